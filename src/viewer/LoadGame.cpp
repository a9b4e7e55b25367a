// Putting a stored game on the board, a new game, and moving from game to game.

#include "platform/Errors.h"
#include "platform/Platform.h"
#include "store/Module1.h"
#include "viewer/frmMain.h"

using namespace tolvisk;

void frmMain::mnuFileLoad_Click() {
    try {
        m_.PromptSaveGame();
        if (m_.SaveCancelled)
            return;
        txtPreview->setText(m_.record(lstPGNFiles->ListIndex() + 1).Moves);
        if (lstPGNFiles->ListCount() < 1) {
            platform_.msgBox(QStringLiteral("There are no games to select from."), MsgButtons::OK,
                             MsgIcon::Information, QStringLiteral("No Games"));
            return;
        }
        platform_.setBusy(true);
        platform_.repaint(this);
        if (lstPGNFiles->ListIndex() == -1)
            lstPGNFiles->setListIndex(0);
        m_.CurrentGame = toInt16(lstPGNFiles->ListIndex() + 1);
        m_.FillTagList();
        CheckForForsyth();
        const QString& moves = m_.record(lstPGNFiles->ListIndex() + 1).Moves;
        if (!IsForsythGame)
            Tavlon1->LoadMoves(moves);
        else
            Tavlon1->LoadMovesFrom(MyForsyth, moves);
        m_.ShowPlayerNames();
        m_.UpdateGameStats();
        m_.BuildMoveList();
        m_.SetPlayerState();
        const bool deleted = m_.record(lstPGNFiles->ListIndex() + 1).Deleted;
        mnuEditmarkDeleted->setChecked(deleted);
        Toolbar1->setPressed(QStringLiteral("Delete"), deleted);
        platform_.setBusy(false);
    } catch (const std::exception&) {
        platform_.setBusy(false);
        platform_.msgBox(QStringLiteral("Error loading game. This game cannot be loaded."),
                         MsgButtons::OK, MsgIcon::Exclamation, QStringLiteral("Game Error"));
    }
}

void frmMain::CheckForForsyth() {
    IsForsythGame = false;
    MyForsyth.clear();
    const QStringList tags = lstTags->items();
    if (tags.isEmpty())
        return;
    for (const QString& tag : tags)
        if (tag.contains(QLatin1String("SetUp \"1\""))) {
            IsForsythGame = true;
            break;
        }
    if (!IsForsythGame)
        return;
    for (const QString& tag : tags) {
        if (!tag.contains(QLatin1String("Forsyth")))
            continue;
        const qsizetype first = tag.indexOf(QLatin1Char('"'));
        if (first < 0)
            throw RuntimeError(QStringLiteral("Subscript out of range"), 9);
        const qsizetype second = tag.indexOf(QLatin1Char('"'), first + 1);
        MyForsyth = second < 0 ? tag.mid(first + 1) : tag.mid(first + 1, second - first - 1);
        return;
    }
}

void frmMain::mnuFileNew_Click() {
    m_.PromptSaveGame();
    if (m_.SaveCancelled)
        return;
    SetupNewGame();
    m_.SetPlayerState();
    m_.UpdateGameStats();
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
