// Saving: the game on the board into the store, one game to a file of its own, the whole store
// to its PGN file, and the two prompts that guard unsaved work.

#include "platform/Errors.h"
#include "platform/Numbers.h"
#include "platform/Platform.h"
#include "store/Import.h"
#include "store/Module1.h"
#include "store/StoreWriter.h"
#include "store/TagLines.h"
#include "viewer/frmMain.h"

namespace tolvisk {

namespace {
constexpr int kMaxGames = 32767; // list indexes are 16-bit
} // namespace

void frmMain::mnuFileSave_Click() {
    const bool isNew = m_.CurrentGame == -1;
    int index = m_.CurrentGame;
    if (isNew) {
        if (lstPGNFiles->ListCount() >= kMaxGames) {
            platform_.msgBox(
                QStringLiteral("The database is full. No more than 32,767 games can be kept."),
                MsgButtons::OK, MsgIcon::Exclamation, kDefaultTitle);
            return;
        }
        index = lstPGNFiles->ListCount() + 1;
        if (m_.GameStore.size() < size_t(index) + 1)
            m_.GameStore.resize(size_t(index) + 1);
    }
    GameRecord& game = m_.record(index);
    game.Header = headerText(lstTags->items());
    game.Moves = Tavlon1->MovesAnnotated() + kCrLf;
    Tavlon1->setGameChanged(false);
    FillGameList();
    if (isNew)
        m_.CurrentGame = int16_t(index);
    lstPGNFiles->setListIndex(toInt16(m_.CurrentGame - 1));
    m_.FileChanged = true;
    SetPlayerState();
}

void frmMain::mnuFileSaveAs_Click() {
    saveGameAs(txtMoveList->Text());
}

void frmMain::saveGameAs(const QString& moveText) {
    try {
        const QString path = platform_.showSave(kPgnFileFilter, QString());
        platform_.setBusy(true);
        const QString text = headerText(lstTags->items()) + moveText;
        auto file = platform_.openOutput(path, m_.FileEncoding);
        file->print(text);
        file->close();
        platform_.setBusy(false);
    } catch (const std::exception& e) {
        platform_.setBusy(false);
        reportSaveFailure(e);
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
    PromptSaveGame();
    if (m_.SaveCancelled)
        return;
    // The store holds only part of its file: writing it there would cut the file short.
    if (m_.PartialFile)
        m_.PGNFileName.clear();
    try {
        if (m_.PGNFileName.isEmpty())
            m_.PGNFileName = platform_.showSave(kPgnFileFilter, QString());
        platform_.setBusy(true);
        auto file = platform_.openOutput(m_.PGNFileName, m_.FileEncoding);
        writeStore(*file, m_.GameStore);
        file->close();
        m_.FileChanged = false;
        m_.PartialFile = false;
        showFileTitle(m_.PGNFileName);
        SetPlayerState();
        platform_.setBusy(false);
    } catch (const std::exception& e) {
        platform_.setBusy(false);
        // A file not written stops whatever the save prompt stood in front of, as Cancel does.
        if (reportSaveFailure(e))
            m_.SaveCancelled = true;
    }
}

bool frmMain::reportSaveFailure(const std::exception& e) {
    // Cancelling the dialog is no failure to report.
    if (dynamic_cast<const CancelError*>(&e))
        return false;
    platform_.msgBox(describeError(e), MsgButtons::OK, MsgIcon::Exclamation,
                     QStringLiteral("Save Error"));
    return true;
}

void frmMain::mnuFileSaveAllAs_Click() {
    m_.PGNFileName.clear();
    mnuFileSaveAll_Click();
}

void frmMain::PromptSaveGame() {
    promptToSave(Tavlon1->GameChanged(),
                 QStringLiteral("The game has changed. Save changes before continuing?"),
                 QStringLiteral("Unsaved Game Changes"), &frmMain::mnuFileSave_Click);
}

void frmMain::PromptSaveFile() {
    promptToSave(m_.FileChanged,
                 QStringLiteral("The PGN file has changed. Save changes before continuing?"),
                 QStringLiteral("Unsaved File Changes"), &frmMain::mnuFileSaveAll_Click);
}

void frmMain::promptToSave(bool changed, const QString& text, const QString& title, Handler save) {
    m_.SaveCancelled = false;
    if (!changed)
        return;
    const MsgResult answer =
        platform_.msgBox(text, MsgButtons::YesNoCancel, MsgIcon::Question, title);
    if (answer == MsgResult::Cancel)
        m_.SaveCancelled = true;
    else if (answer == MsgResult::Yes)
        (this->*save)();
}

bool frmMain::promptSaveBoth() {
    PromptSaveGame();
    if (m_.SaveCancelled)
        return false;
    PromptSaveFile();
    return !m_.SaveCancelled;
}

} // namespace tolvisk
