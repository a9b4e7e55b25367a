#pragma once

// The main window: game list, preview, board, tags, move list, annotation, menus, toolbar and
// status bar. Its handlers are spread over files by subject (import, saving, loading, player
// state, move list, auto play, start-up file); this header names them all.

#include "board/Tavlon.h"
#include "platform/Controls.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>

namespace tolvisk {
class Application;
class Module1;
class Platform;
} // namespace tolvisk

class frmMain : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMain(tolvisk::Application& app);
    ~frmMain() override;

    // Form variables.
    bool IsForsythGame = false;
    QString MyForsyth;

    // Controls.
    tolvisk::ToolBar* Toolbar1 = nullptr;
    QWidget* picMain = nullptr;
    QWidget* Picture1 = nullptr;
    Tavlon* Tavlon1 = nullptr;
    QLabel* lblMoveNumber = nullptr;
    QLabel* lblMoveText = nullptr;
    QLabel* lblOnMove = nullptr;
    QLabel* lblEPSquare = nullptr;
    QLabel* lblFifty = nullptr;
    QLabel* lblCastle = nullptr;
    QLabel* lblPly = nullptr;
    QLabel* lblGameLength = nullptr;
    tolvisk::ListBox* lstTags = nullptr;
    tolvisk::TextBox* txtMoveList = nullptr;
    QLabel* Label1 = nullptr;
    tolvisk::TextBox* txtAnnotation = nullptr;
    QPushButton* cmdClearAnnotation = nullptr;
    QPushButton* cmdSetAnno = nullptr;
    tolvisk::TextBox* txtPreview = nullptr;
    tolvisk::ListBox* lstPGNFiles = nullptr;
    tolvisk::PanelStatusBar* sbStatusBar = nullptr;
    tolvisk::Timer* Timer1 = nullptr;
    tolvisk::Timer* Timer2 = nullptr;

    // Menus.
    QMenu* mnuFile = nullptr;
    QAction* mnuFileNew = nullptr;
    QAction* mnuFileOpen = nullptr;
    QAction* mnuFileLoad = nullptr;
    QAction* mnuFileClose = nullptr;
    QAction* mnuFileSave = nullptr;
    QAction* mnuFileSaveAs = nullptr;
    QAction* mnuFileSaveAll = nullptr;
    QAction* mnuFileSaveAllAs = nullptr;
    QAction* mnuFilePrint = nullptr;
    QAction* mnuFileExit = nullptr;
    QMenu* mnuEdit = nullptr;
    QAction* mnuEditFind = nullptr;
    QAction* mnuEditCopyClipboard = nullptr;
    QAction* mnuEditCopyBitmap = nullptr;
    QAction* mnuEditmarkDeleted = nullptr;
    QMenu* mnuView = nullptr;
    QAction* mnuViewToolbar = nullptr;
    QAction* mnuViewStatusBar = nullptr;
    QMenu* mnuOptions = nullptr;
    QAction* mnuOptionsOptions = nullptr;
    QMenu* mnuBoard = nullptr;
    QAction* mnuBoardReverse = nullptr;
    QMenu* mnuPlayer = nullptr;
    QAction* mnuPlayerMoveFirst = nullptr;
    QAction* mnuPlayerMovePrevious = nullptr;
    QAction* mnuPlayerMoveNext = nullptr;
    QAction* mnuPlayerMoveLast = nullptr;
    QAction* mnuPlayerPreviousGame = nullptr;
    QAction* mnuPlayerNextGame = nullptr;
    QAction* mnuPlayerStartAP = nullptr;
    QAction* mnuPlayerStopAP = nullptr;
    QMenu* mnuTools = nullptr;
    QAction* mnuToolsEditTags = nullptr;
    QAction* mnuToolsVariationBoard = nullptr;
    QAction* mnuToolsSetup = nullptr;
    QMenu* mnuToolsEditors = nullptr;
    QAction* mnuToolsEditorsWordPad = nullptr;
    QAction* mnuToolsEditorsNotepad = nullptr;
    QMenu* mnuHelp = nullptr;
    QAction* mnuHelpHelp = nullptr;
    QAction* mnuHelpAbout = nullptr;

    // Window (frmMain.cpp).
    void Form_Load();
    // Returns the cancel flag.
    bool Form_QueryUnload();
    void Form_Unload();
    void Form_Resize();
    void Toolbar1_ButtonClick(const QString& key);
    using Handler = void (frmMain::*)();
    // The handler a toolbar key runs, the one its menu entry runs; none for "Variation" (which
    // shows the variation board) and for any key not on the toolbar.
    static Handler toolbarHandler(const QString& key);
    void mnuViewToolbar_Click();
    void mnuViewStatusBar_Click();
    void mnuFileExit_Click();
    void mnuToolsEditorsNotepad_Click();
    void mnuToolsEditorsWordPad_Click();
    void mnuToolsEditTags_Click();
    void mnuToolsSetup_Click();
    void mnuToolsVariationBoard_Click();
    void mnuEditFind_Click();
    void mnuOptionsOptions_Click();
    void mnuHelpHelp_Click();
    void mnuHelpAbout_Click();
    void mnuFilePrint_Click();
    void mnuEditCopyClipboard_Click();
    void mnuEditCopyBitmap_Click();

    // Store (store/StoreHandlers.cpp).
    void SetupNewGame();
    void lstPGNFiles_Click();
    void mnuEditmarkDeleted_Click();
    void mnuFileClose_Click();
    // Import (store/Import.cpp).
    void mnuFileOpen_Click();
    // The filter string of the PGN file dialogs.
    static QString pgnFileFilter();
    // Saving (store/Save.cpp).
    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();
    void mnuFileSaveAll_Click();
    void mnuFileSaveAllAs_Click();

    // Loading (viewer/LoadGame.cpp).
    void mnuFileLoad_Click();
    void CheckForForsyth();
    void mnuFileNew_Click();
    void mnuPlayerNextGame_Click();
    void mnuPlayerPreviousGame_Click();
    void lstPGNFiles_DblClick();
    void lstTags_DblClick();

    // Player state (viewer/PlayerState.cpp).
    void mnuPlayerMoveFirst_Click();
    void mnuPlayerMovePrevious_Click();
    void mnuPlayerMoveNext_Click();
    void mnuPlayerMoveLast_Click();
    void mnuBoardReverse_Click();
    void Tavlon1_MoveAdded();
    void Tavlon1_Moved();
    void Tavlon1_BoardNotice();

    // Move list (viewer/MoveList.cpp).
    void cmdSetAnno_Click();
    void cmdClearAnnotation_Click();
    void txtMoveList_DblClick();

    // Auto play (viewer/AutoPlay.cpp).
    void mnuPlayerStartAP_Click();
    void mnuPlayerStopAP_Click();
    void Timer1_Timer();
    void AutoPlay();

    // Start-up file (viewer/StartupFile.cpp).
    void ReadStartupFile();
    void WriteStartupFile();

    tolvisk::Application& app() { return app_; }
    static constexpr int kToolbarHeightTwips = 360;
    // The folder the File Open dialog starts in: the bundled samples until another folder has
    // been used.
    QString openDialogStartDir();
    void rememberOpenDir(const QString& path);
    // Runs a handler for an event; an error no handler took is shown in a box, not fatal.
    void run(void (frmMain::*handler)());
    // A control's top in twips from the top of the client area, toolbar included.
    void setTopTwips(QWidget* widget, int top);
    int topTwips(QWidget* widget) const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    tolvisk::Application& app_;
    tolvisk::Module1& m_;
    tolvisk::Platform& platform_;
    void createControls();
    void createMenus();
    void createToolbar();
    void connectHandlers();
    QString lastOpenDir_;
};
