#pragma once

// The second board, on which the user tries out a side line: Synchronize copies the main game
// here, Send copies this game over the main one. Loaded hidden when the main window starts and
// kept for the whole run: its close box only hides it while the main window is loaded.

#include "board/Tavlon.h"
#include "platform/Controls.h"

#include <QCloseEvent>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>

namespace tolvisk {

class Application;

class frmVariation : public QMainWindow {
    Q_OBJECT
public:
    explicit frmVariation(Application& app);

    // Form variables: the start position found at the last synchronisation.
    bool IsForsythGame = false;
    QString MyForsyth;

    Tavlon* Tavlon1 = nullptr;
    TextBox* txtMoveList = nullptr;
    QPushButton* cmdSync = nullptr;
    QPushButton* cmdSend = nullptr;
    ToolBar* Toolbar1 = nullptr;
    QMenu* mnuFile = nullptr;
    QAction* mnuFileNew = nullptr;
    QAction* mnuFileSaveAs = nullptr;
    QAction* mnuFilePrint = nullptr;
    QAction* mnuFileClose = nullptr;

    void cmdSync_Click();
    void cmdSend_Click();
    void CheckVarForsyth();
    void SetVarPlayerState();
    void mnuFileNew_Click();
    void mnuFileSaveAs_Click();
    void mnuFilePrint_Click();
    void mnuFileClose_Click();
    void Toolbar1_ButtonClick(const QString& key);
    // Key "Cycle": the view turns from White to Black and back; any other value stays.
    void mnuBoardReverse_Click();
    void Tavlon1_MoveAdded();
    void txtMoveList_DblClick();
    // Returns the cancel flag.
    bool Form_QueryUnload();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void createControls();
    // A board refused the game: the box, with the pointer back first.
    void reportRefusal(const QString& title, const QString& text, const std::exception& e);

    Application& app_;
};

} // namespace tolvisk
