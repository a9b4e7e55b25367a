// The store in the main window: the game list, the preview, the tag list and the players'
// names; selecting and marking games, Close, and the empty new game.

#include "platform/Platform.h"
#include "store/Module1.h"
#include "store/TagLines.h"
#include "viewer/frmMain.h"

namespace tolvisk {

void frmMain::ClearGames() {
    platform_.setBusy(true);
    m_.clearStore();
    lstPGNFiles->Clear();
    txtPreview->setText(QString());
    platform_.setBusy(false);
}

void frmMain::FillGameList() {
    const int n = m_.gameCount();
    sbStatusBar->setPanelText(1, QString::number(n) + QStringLiteral(" Games"));
    lstPGNFiles->Clear();
    // Each entry is made from its header when the list shows or reads it: a long store costs
    // no time here and is not held twice.
    lstPGNFiles->setItems(n, [this](int row) {
        const size_t i = size_t(row) + 1;
        return i < m_.GameStore.size() ? gameListEntry(m_.GameStore[i].Header) : QString();
    });
    platform_.setBusy(false);
}

void frmMain::FillTagList() {
    lstTags->setItems(headerTagLines(m_.record(lstPGNFiles->ListIndex() + 1).Header));
}

void frmMain::ShowPlayerNames() {
    // From the selected list entry, not from lstTags: the names of the game in the store.
    const QString entry = lstPGNFiles->List(lstPGNFiles->ListIndex());
    for (const QString& piece : entry.split(QLatin1Char(']'))) {
        // A piece without a double quote names nobody.
        if (!piece.contains(u'"'))
            continue;
        if (piece.contains(QLatin1String("[White ")))
            Tavlon1->setWhitePlayer(tagValue(piece));
        if (piece.contains(QLatin1String("[Black ")))
            Tavlon1->setBlackPlayer(tagValue(piece));
    }
}

void frmMain::SetupNewGame() {
    Tavlon1->NewGame();
    txtMoveList->setText(QString());
    lstTags->Clear();
    for (const char* line : {"[Event \"?\"]", "[Site \"?\"]", "[Date \"????.??.??\"]",
                             "[Round \"?\"]", "[White \"?\"]", "[Black \"?\"]", "[Result \"*\"]"})
        lstTags->AddItem(QString::fromLatin1(line));
    // The names beside the board are those of the new tags, not of the game before.
    Tavlon1->setWhitePlayer(QStringLiteral("?"));
    Tavlon1->setBlackPlayer(QStringLiteral("?"));
    m_.CurrentGame = -1;
}

void frmMain::lstPGNFiles_Click() {
    const int16_t i = lstPGNFiles->ListIndex();
    const GameRecord& game = m_.record(i + 1);
    txtPreview->setText(game.Moves);
    sbStatusBar->setPanelText(
        1, QStringLiteral("Game %1 of %2").arg(i + 1).arg(lstPGNFiles->ListCount()));
    showDeletedMark(game.Deleted);
}

void frmMain::mnuEditmarkDeleted_Click() {
    mnuEditmarkDeleted->setChecked(!mnuEditmarkDeleted->isChecked());
    GameRecord& game = m_.record(lstPGNFiles->ListIndex() + 1);
    game.Deleted = mnuEditmarkDeleted->isChecked();
    Toolbar1->setPressed(QStringLiteral("Delete"), game.Deleted);
}

void frmMain::showDeletedMark(bool deleted) {
    mnuEditmarkDeleted->setChecked(deleted);
    Toolbar1->setPressed(QStringLiteral("Delete"), deleted);
}

void frmMain::mnuFileClose_Click() {
    if (!promptSaveBoth())
        return;
    const MsgResult answer = platform_.msgBox(
        QStringLiteral("This will remove all loaded games from memory. Do you want to continue ?"),
        MsgButtons::YesNo, MsgIcon::Exclamation, QStringLiteral("Confirm Clear All Games"));
    if (answer == MsgResult::No)
        return;
    platform_.setBusy(true);
    m_.PGNFileName.clear();
    m_.FileChanged = false;
    ClearGames();
    SetupNewGame();
    SetPlayerState();
    platform_.setBusy(false);
}

} // namespace tolvisk
