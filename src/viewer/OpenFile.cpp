// Opening a PGN file: the store is replaced by the file's games while frmLoadFile shows the
// progress.

#include "platform/Errors.h"
#include "platform/Painting.h"
#include "platform/Platform.h"
#include "store/Import.h"
#include "store/Module1.h"
#include "viewer/frmLoadFile.h"
#include "viewer/frmMain.h"

#include <QFileInfo>

#include <memory>

namespace tolvisk {

void frmMain::mnuFileOpen_Click() {
    openGames(std::nullopt);
}

void frmMain::openFile(const QString& path) {
    // A path from the command line or a drop may be relative to where the program started;
    // the title and Save All want the file wherever the working folder goes.
    openGames(QFileInfo(path).absoluteFilePath());
}

void frmMain::openGames(const std::optional<QString>& path) {
    if (!promptSaveBoth())
        return;
    std::unique_ptr<TextFileReader> file;
    std::unique_ptr<frmLoadFile> progress;
    try {
        const QString FileToOpen =
            path ? *path : platform_.showOpen(kPgnFileFilter, openDialogStartDir());
        if (FileToOpen.isEmpty())
            return;
        rememberOpenDir(FileToOpen);
        m_.PGNFileName = FileToOpen;
        ClearGames();
        SetupNewGame();
        repaintNow(this);

        file = platform_.openInput(FileToOpen);
        progress = std::make_unique<frmLoadFile>();
        progress->ProgressBar1->setVisible(true);
        platform_.setBusy(true);
        progress->setWindowTitle(FileToOpen);
        // On the screen before the import starts, which does not return to the event loop.
        showExposed(progress.get());
        const ImportResult result = importGames(*file, m_.GameStore, [&](long count, long percent) {
            progress->report(count, percent);
        });
        m_.FileEncoding = result.encoding;
        m_.PartialFile = result.limitReached;
        if (result.limitReached) {
            progress.reset();
            platform_.setBusy(false);
            platform_.msgBox(QStringLiteral("Maximum Limit Of Database Reached"), MsgButtons::OK,
                             MsgIcon::None, QStringLiteral("Ravelund Limit = 32,000 Games"));
            showFileTitle(FileToOpen);
            FillGameList();
        }
        file.reset();
        progress.reset();
        showFileTitle(FileToOpen);
        if (!result.limitReached) // the limit stop has filled the list already
            FillGameList();
        txtPreview->setText(QString());
        if (result.count > 0)
            lstPGNFiles->setListIndex(0);
        SetPlayerState();
        m_.FileChanged = false;
        platform_.setBusy(false);
    } catch (const std::exception& e) {
        file.reset();
        progress.reset();
        platform_.setBusy(false);
        platform_.msgBox(describeError(e), MsgButtons::OK, MsgIcon::None, QString());
    }
}

} // namespace tolvisk
