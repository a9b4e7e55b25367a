#pragma once

// The main window: game list, preview, board, tags, move list, annotation, menus, toolbar and
// status bar, with the routines that keep them in step with the store. Its handlers are spread
// over files by subject; this header names them all.

#include "board/Tavlon.h"
#include "platform/Controls.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>

#include <functional>
#include <optional>

namespace tolvisk {

class Application;
class Module1;
class Platform;

class frmMain : public QMainWindow {
    Q_OBJECT
public:
    explicit frmMain(Application& app);
    ~frmMain() override;

    // Form variables.
    bool IsForsythGame = false;
    QString MyForsyth;

    // Controls.
    ToolBar* Toolbar1 = nullptr;
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
    ListBox* lstTags = nullptr;
    TextBox* txtMoveList = nullptr;
    QLabel* Label1 = nullptr;
    TextBox* txtAnnotation = nullptr;
    QPushButton* cmdClearAnnotation = nullptr;
    QPushButton* cmdSetAnno = nullptr;
    TextBox* txtPreview = nullptr;
    ListBox* lstPGNFiles = nullptr;
    PanelStatusBar* sbStatusBar = nullptr;
    Timer* Timer1 = nullptr;
    Timer* Timer2 = nullptr;

    // Menus; their entries are described in the command table (Commands.cpp).
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
    void Toolbar1_ButtonClick(const QString& key);
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
    void Timer2_Timer();

    // Layout (frmMainLayout.cpp).
    void Form_Resize();
    void mnuViewToolbar_Click();
    void mnuViewStatusBar_Click();

    // The store in the game list (GameLists.cpp).
    void ClearGames();
    void FillGameList();
    void FillTagList();
    void ShowPlayerNames();
    void SetupNewGame();
    void lstPGNFiles_Click();
    void mnuEditmarkDeleted_Click();
    void mnuFileClose_Click();

    // Import (OpenFile.cpp).
    void mnuFileOpen_Click();
    // Opens a file named on the command line or dropped on the window: Open without its
    // dialog, prompts, progress, limit and boxes alike.
    void openFile(const QString& path);

    // Saving (Save.cpp).
    void mnuFileSave_Click();
    void mnuFileSaveAs_Click();
    // Save As with the given move text: the dialog, the tag lines of lstTags, the text; a quiet
    // end on any error. The variation board saves its line through it too.
    void saveGameAs(const QString& moveText);
    void mnuFileSaveAll_Click();
    void mnuFileSaveAllAs_Click();
    void PromptSaveGame();
    void PromptSaveFile();
    // Both prompts, game first; false as soon as one is cancelled (the second then never asks).
    bool promptSaveBoth();

    // Loading (LoadGame.cpp).
    void mnuFileLoad_Click();
    void CheckForForsyth();
    void mnuFileNew_Click();
    void mnuPlayerNextGame_Click();
    void mnuPlayerPreviousGame_Click();
    void lstPGNFiles_DblClick();
    void lstTags_DblClick();

    // Player state (PlayerState.cpp).
    void SetPlayerState();
    void UpdateGameStats();
    void HighlightCurrentMove();
    void mnuPlayerMoveFirst_Click();
    void mnuPlayerMovePrevious_Click();
    void mnuPlayerMoveNext_Click();
    void mnuPlayerMoveLast_Click();
    void mnuBoardReverse_Click();
    // A board's view turns from White to Black and back; any other value stays.
    static void reverseView(Tavlon& board);
    void Tavlon1_MoveAdded();
    void Tavlon1_Moved();

    // Move list (MoveList.cpp).
    void BuildMoveList();
    void cmdSetAnno_Click();
    void cmdClearAnnotation_Click();
    void txtMoveList_DblClick();

    // Auto play (AutoPlay.cpp).
    void mnuPlayerStartAP_Click();
    void mnuPlayerStopAP_Click();
    void Timer1_Timer();
    void AutoPlay();

    // Start-up file (StartupFile.cpp).
    void ReadStartupFile();
    void WriteStartupFile();

    Application& app() { return app_; }
    // Runs a handler for an event; an error no handler took is shown in a box, not fatal.
    using Handler = void (frmMain::*)();
    void run(Handler handler);
    // The same for a handler of another window; slotFor makes the slot that runs it so.
    void run(const std::function<void()>& handler);
    template <class Window>
    std::function<void()> slotFor(Window* window, void (Window::*handler)()) {
        return [this, window, handler] { run([window, handler] { (window->*handler)(); }); };
    }
    // The folder the File Open dialog starts in: the bundled samples until another folder has
    // been used.
    QString openDialogStartDir();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    Application& app_;
    Module1& m_;
    Platform& platform_;
    QString lastOpenDir_;
    static constexpr int kToolbarHeightTwips = 360;

    void createControls();
    // Menus, toolbar and their wiring, from the command table (Commands.cpp).
    void createCommands();
    // A command's menu entry and toolbar button alike.
    void setCommandEnabled(QAction* frmMain::*entry, bool enabled);
    // Stage 1 of SetPlayerState: every command's enabled state by its rule.
    struct CommandState {
        int P, L, I, C;
        bool G, F, N, A;
    };
    void enableCommands(const CommandState& state);
    // The deleted mark of a game: the menu entry checked, then the toolbar button pressed.
    void showDeletedMark(bool deleted);
    void showFileTitle(const QString& path);
    // Auto play on or off: the timer, APRunning, and the pair of commands.
    void switchAutoPlay(bool on);
    // A stepping command: the board steps, then the move number is selected.
    void step(void (Tavlon::*move)());
    // A save prompt: when `changed`, asks Yes, No or Cancel; Yes runs `save`, Cancel sets
    // SaveCancelled.
    void promptToSave(bool changed, const QString& text, const QString& title, Handler save);
    // A file that could not be written: a box naming it and the reason. Returns false, and
    // shows nothing, for a cancelled dialog.
    bool reportSaveFailure(const std::exception& e);
    void rememberOpenDir(const QString& path);
    // Open's steps, with the file dialog when no path is given.
    void openGames(const std::optional<QString>& path);
    // A drop of local files on the window opens the first of them.
    static QString droppedFile(const QMimeData* data);
    // A control's top in twips from the top of the client area, toolbar included.
    void setTopTwips(QWidget* widget, int top);
};

} // namespace tolvisk
