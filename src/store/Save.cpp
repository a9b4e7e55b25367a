// Saving: the game on the board into the store, one game to a file of its own, and the whole
// store to its PGN file.

#include "platform/Errors.h"
#include "platform/Platform.h"
#include "store/Module1.h"
#include "viewer/frmMain.h"

using namespace tolvisk;

namespace {
const QString kCrLf = QStringLiteral("\r\n");
constexpr int kMaxGames = 32767; // list indexes are 16-bit
} // namespace

void frmMain::mnuFileSave_Click() {
    const bool isNew = m_.CurrentGame == -1;
    int index = m_.CurrentGame;
    if (isNew) {
        if (lstPGNFiles->ListCount() >= kMaxGames) {
            platform_.msgBox(
                QStringLiteral("The database is full. No more than 32,767 games can be kept."),
                MsgButtons::OK, MsgIcon::Exclamation, QStringLiteral("Ravelund"));
            return;
        }
        index = lstPGNFiles->ListCount() + 1;
        if (m_.GameStore.size() < size_t(index) + 1)
            m_.GameStore.resize(size_t(index) + 1);
    }
    GameRecord& game = m_.record(index);
    QString header;
    for (const QString& line : lstTags->items())
        header += line + kCrLf;
    header += kCrLf;
    game.Header = header;
    game.Moves = Tavlon1->MovesAnnotated() + kCrLf;
    Tavlon1->setGameChanged(false);
    m_.FillGameList();
    if (isNew)
        m_.CurrentGame = int16_t(index);
    lstPGNFiles->setListIndex(toInt16(m_.CurrentGame - 1));
    m_.FileChanged = true;
    m_.SetPlayerState();
}

void frmMain::mnuFileSaveAs_Click() {
    try {
        const QString path = platform_.showSave(pgnFileFilter(), QString());
        platform_.setBusy(true);
        QString text;
        for (const QString& line : lstTags->items())
            text += line + kCrLf;
        text += kCrLf;
        text += txtMoveList->Text();
        auto file = platform_.openOutput(path, m_.FileEncoding);
        file->print(text);
        file->close();
        platform_.setBusy(false);
    } catch (const std::exception&) {
        // A cancelled dialog or an unwritable file ends the command quietly.
        platform_.setBusy(false);
    }
}

void frmMain::mnuFileSaveAll_Click() {
    if (lstPGNFiles->ListCount() < 1) {
        platform_.msgBox(QStringLiteral("There are no saved games to export.") + kCrLf + kCrLf +
                             QStringLiteral("Save a PGN game and try again."),
                         MsgButtons::OK, MsgIcon::Exclamation,
                         QStringLiteral("No Games To Export"));
        return;
    }
    m_.PromptSaveGame();
    if (m_.SaveCancelled)
        return;
    try {
        if (m_.PGNFileName.isEmpty())
            m_.PGNFileName = platform_.showSave(pgnFileFilter(), QString());
        platform_.setBusy(true);
        auto file = platform_.openOutput(m_.PGNFileName, m_.FileEncoding);
        const int n = m_.gameCount();
        for (int i = 1; i <= n; ++i) {
            const GameRecord& game = m_.GameStore[size_t(i)];
            if (game.Deleted)
                continue;
            file->write(game.Header);
            file->write(game.Moves);
            file->write(kCrLf);
        }
        file->close();
        m_.FileChanged = false;
        setWindowTitle(QStringLiteral("Ravelund - ") + m_.PGNFileName);
        m_.SetPlayerState();
        platform_.setBusy(false);
    } catch (const std::exception&) {
        platform_.setBusy(false);
    }
}

void frmMain::mnuFileSaveAllAs_Click() {
    m_.PGNFileName.clear();
    mnuFileSaveAll_Click();
}
