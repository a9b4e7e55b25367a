// The main window's handlers over the store as a whole: selection, deleted mark, Close, and
// the empty new game.

#include "platform/Errors.h"
#include "platform/Platform.h"
#include "store/Module1.h"
#include "viewer/frmMain.h"

using namespace tolvisk;

void frmMain::SetupNewGame() {
    Tavlon1->NewGame();
    txtMoveList->setText(QString());
    lstTags->Clear();
    for (const char* line : {"[Event \"?\"]", "[Site \"?\"]", "[Date \"????.??.??\"]",
                             "[Round \"?\"]", "[White \"?\"]", "[Black \"?\"]", "[Result \"*\"]"})
        lstTags->AddItem(QString::fromLatin1(line));
    m_.CurrentGame = -1;
}

void frmMain::lstPGNFiles_Click() {
    const int16_t i = lstPGNFiles->ListIndex();
    const GameRecord& game = m_.record(i + 1);
    txtPreview->setText(game.Moves);
    sbStatusBar->setPanelText(1, QStringLiteral("Game ") + QString::number(i + 1) +
                                     QStringLiteral(" of ") +
                                     QString::number(lstPGNFiles->ListCount()));
    Toolbar1->setPressed(QStringLiteral("Delete"), game.Deleted);
    mnuEditmarkDeleted->setChecked(game.Deleted);
}

void frmMain::mnuEditmarkDeleted_Click() {
    mnuEditmarkDeleted->setChecked(!mnuEditmarkDeleted->isChecked());
    GameRecord& game = m_.record(lstPGNFiles->ListIndex() + 1);
    game.Deleted = mnuEditmarkDeleted->isChecked();
    Toolbar1->setPressed(QStringLiteral("Delete"), game.Deleted);
}

void frmMain::mnuFileClose_Click() {
    if (!m_.promptSaveBoth())
        return;
    const MsgResult answer = platform_.msgBox(
        QStringLiteral("This will remove all loaded games from memory. Do you want to continue ?"),
        MsgButtons::YesNo, MsgIcon::Exclamation, QStringLiteral("Confirm Clear All Games"));
    if (answer == MsgResult::No)
        return;
    platform_.setBusy(true);
    m_.PGNFileName.clear();
    m_.FileChanged = false;
    m_.ClearGames();
    SetupNewGame();
    m_.SetPlayerState();
    platform_.setBusy(false);
}
