// The main window's start and end, the toolbar's dispatch, the commands that open other
// windows or programs, and the error report of last resort.

#include "viewer/frmMain.h"

#include "platform/Errors.h"
#include "platform/Numbers.h"
#include "platform/Platform.h"
#include "store/Module1.h"
#include "viewer/Application.h"
#include "viewer/TextEditors.h"

#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>

namespace tolvisk {

frmMain::frmMain(Application& app)
    : QMainWindow(nullptr), app_(app), m_(app.module()), platform_(app.platform()) {
    setObjectName(QStringLiteral("frmMain"));
    createControls();
    setAcceptDrops(true);
}

frmMain::~frmMain() = default;

void frmMain::Form_Load() {
    m_.APRunning = false;
    lstPGNFiles->Clear();
    m_.APSpeed = kDefaultAPSpeed;
    m_.MoveListStyle = kDefaultMoveListStyle;
    m_.APMode = kDefaultAPMode;
    ReadStartupFile();
    if (QWidget* variation = app_.loadForm(QStringLiteral("frmVariation")))
        variation->hide();
    m_.MainLoaded = 1;
    if (Tavlon* board = app_.boardOf(QStringLiteral("frmVariation")))
        applyBoardSettings(*board, boardSettings(*Tavlon1));
    SetupNewGame();
    UpdateGameStats();
    SetPlayerState();
}

bool frmMain::Form_QueryUnload() {
    if (!promptSaveBoth())
        return true;
    WriteStartupFile();
    return false;
}

void frmMain::Form_Unload() {
    // The variation board refuses to go while this is set, so it is cleared first.
    m_.MainLoaded = 0;
    const std::vector<QWidget*> forms = app_.forms();
    const int16_t last = toInt16(qsizetype(forms.size()) - 1);
    for (int16_t i = last; i >= 1; --i)
        app_.unloadForm(forms[size_t(i)]);
}

void frmMain::closeEvent(QCloseEvent* event) {
    bool cancel = true;
    try {
        cancel = Form_QueryUnload();
    } catch (const std::exception& e) {
        platform_.msgBox(describeError(e), MsgButtons::OK, MsgIcon::Critical, QString());
    }
    if (cancel) {
        event->ignore();
        return;
    }
    Form_Unload();
    event->accept();
}

QString frmMain::droppedFile(const QMimeData* data) {
    for (const QUrl& url : data->urls()) {
        if (url.isLocalFile())
            return url.toLocalFile();
    }
    return QString();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    if (!droppedFile(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* event) {
    const QString path = droppedFile(event->mimeData());
    if (path.isEmpty())
        return;
    event->acceptProposedAction();
    activateWindow();
    run([this, path] { openFile(path); });
}

void frmMain::mnuFileExit_Click() {
    close();
}

void frmMain::mnuToolsEditorsNotepad_Click() {
    try {
        startTextEditor(platform_, EditorKind::Plain);
    } catch (const std::exception&) {
        platform_.msgBox(QStringLiteral("Error Opening Notepad"), MsgButtons::OK, MsgIcon::None,
                         QStringLiteral("Error"));
    }
}

void frmMain::mnuToolsEditorsWordPad_Click() {
    try {
        startTextEditor(platform_, EditorKind::WordProcessor);
    } catch (const std::exception& e) {
        platform_.msgBox(describeError(e), MsgButtons::OK, MsgIcon::Exclamation, QString());
    }
}

void frmMain::mnuToolsEditTags_Click() {
    app_.showForm(QStringLiteral("frmEditTags"));
}

void frmMain::mnuToolsSetup_Click() {
    app_.showForm(QStringLiteral("frmSetup"));
}

void frmMain::mnuToolsVariationBoard_Click() {
    app_.showForm(QStringLiteral("frmVariation"));
}

void frmMain::mnuEditFind_Click() {
    app_.showForm(QStringLiteral("frmFind"));
}

void frmMain::mnuOptionsOptions_Click() {
    app_.showForm(QStringLiteral("frmOptions"));
}

void frmMain::mnuHelpHelp_Click() {
    app_.showForm(QStringLiteral("frmHelp"));
}

void frmMain::mnuHelpAbout_Click() {
    app_.showForm(QStringLiteral("frmAbout"));
}

// Printing and the clipboard are the output routines' (GameOutput), which the application
// holds for this window.
void frmMain::mnuFilePrint_Click() {
    if (GameOutput* output = app_.output())
        output->printGame(*Tavlon1);
}

void frmMain::mnuEditCopyClipboard_Click() {
    if (GameOutput* output = app_.output())
        output->copyGame();
}

void frmMain::mnuEditCopyBitmap_Click() {
    if (GameOutput* output = app_.output())
        output->copyBoard();
}

void frmMain::Timer2_Timer() {
    if (GameOutput* output = app_.output())
        output->CaptureScreen();
    else
        Timer2->setEnabled(false);
}

void frmMain::run(Handler handler) {
    run([this, handler] { (this->*handler)(); });
}

void frmMain::run(const std::function<void()>& handler) {
    // An error that no handler took must not end the program: it is reported and the user
    // carries on.
    try {
        handler();
    } catch (const std::exception& e) {
        platform_.setBusy(false);
        platform_.msgBox(describeError(e), MsgButtons::OK, MsgIcon::Critical, QString());
    }
}

void frmMain::showFileTitle(const QString& path) {
    setWindowTitle(kDefaultTitle + QStringLiteral(" - ") + path);
}

QString frmMain::openDialogStartDir() {
    if (!lastOpenDir_.isEmpty())
        return lastOpenDir_;
    const QString samples = QDir(platform_.sharedDataDir()).filePath(QStringLiteral("samples"));
    // A copy of the program without its samples starts in the user's home instead.
    return QFileInfo(samples).isDir() ? samples : QDir::homePath();
}

void frmMain::rememberOpenDir(const QString& path) {
    if (!path.isEmpty())
        lastOpenDir_ = QFileInfo(path).absolutePath();
}

} // namespace tolvisk
