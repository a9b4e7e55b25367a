// Putting a stored game on the board, a new game, and moving from game to game.

#include "platform/Errors.h"
#include "platform/Numbers.h"
#include "platform/Painting.h"
#include "platform/Platform.h"
#include "store/Module1.h"
#include "store/TagLines.h"
#include "viewer/frmMain.h"

namespace tolvisk {

void frmMain::mnuFileLoad_Click() {
    try {
        PromptSaveGame();
        if (m_.SaveCancelled)
            return;
        // The move text is built from the file's bytes once, for the preview and the board.
        const int previewed = lstPGNFiles->ListIndex() + 1;
        QString moves = m_.record(previewed).Moves;
        txtPreview->setText(moves);
        if (lstPGNFiles->ListCount() < 1) {
            platform_.msgBox(QStringLiteral("There are no games to select from."), MsgButtons::OK,
                             MsgIcon::Information, QStringLiteral("No Games"));
            return;
        }
        platform_.setBusy(true);
        repaintNow(this);
        if (lstPGNFiles->ListIndex() == -1)
            lstPGNFiles->setListIndex(0);
        m_.CurrentGame = toInt16(lstPGNFiles->ListIndex() + 1);
        FillTagList();
        CheckForForsyth();
        if (lstPGNFiles->ListIndex() + 1 != previewed)
            moves = m_.record(lstPGNFiles->ListIndex() + 1).Moves;
        if (!IsForsythGame)
            Tavlon1->LoadMoves(moves);
        else
            Tavlon1->LoadMovesFrom(MyForsyth, moves);
        ShowPlayerNames();
        UpdateGameStats();
        BuildMoveList();
        SetPlayerState();
        showDeletedMark(m_.record(lstPGNFiles->ListIndex() + 1).Deleted);
        platform_.setBusy(false);
    } catch (const std::exception& e) {
        platform_.setBusy(false);
        // The reason (for the board, the move, its number and what is wrong with it) lets the
        // user find the fault in the file.
        platform_.msgBox(QStringLiteral("Error loading game. This game cannot be loaded."),
                         MsgButtons::OK, MsgIcon::Exclamation, QStringLiteral("Game Error"),
                         describeError(e));
    }
}

void frmMain::CheckForForsyth() {
    findForsythTag(lstTags->items(), IsForsythGame, MyForsyth);
}

void frmMain::mnuFileNew_Click() {
    PromptSaveGame();
    if (m_.SaveCancelled)
        return;
    SetupNewGame();
    SetPlayerState();
    UpdateGameStats();
}

void frmMain::mnuPlayerNextGame_Click() {
    const int16_t i = lstPGNFiles->ListIndex();
    if (i == -1 || i == lstPGNFiles->ListCount() - 1)
        return;
    lstPGNFiles->setListIndex(int16_t(i + 1));
    mnuFileLoad_Click();
}

void frmMain::mnuPlayerPreviousGame_Click() {
    const int16_t i = lstPGNFiles->ListIndex();
    if (i == -1 || i < 1)
        return;
    lstPGNFiles->setListIndex(int16_t(i - 1));
    mnuFileLoad_Click();
}

void frmMain::lstPGNFiles_DblClick() {
    mnuFileLoad_Click();
}

void frmMain::lstTags_DblClick() {
    mnuToolsEditTags_Click();
}

} // namespace tolvisk
