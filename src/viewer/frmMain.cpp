#include "viewer/frmMain.h"

#include "platform/Errors.h"
#include "platform/Platform.h"
#include "store/Module1.h"
#include "variation/frmVariation.h"
#include "viewer/Application.h"
#include "viewer/TextEditors.h"
#include "viewer/Twips.h"

#include <QDir>
#include <QFileInfo>
#include <QMenuBar>

#include <map>

using tolvisk::pxToTwips;
using tolvisk::skipOnError;
using tolvisk::twipsToPx;

frmMain::frmMain(tolvisk::Application& app)
    : QMainWindow(nullptr), app_(app), m_(app.module()), platform_(app.platform()) {
    setObjectName(QStringLiteral("frmMain"));
    createControls();
    connectHandlers();
}

frmMain::~frmMain() = default;

void frmMain::Form_Load() {
    m_.APRunning = false;
    lstPGNFiles->Clear();
    m_.APSpeed = 1;
    m_.MoveListStyle = QStringLiteral("L");
    m_.APMode = QStringLiteral("PNP");
    ReadStartupFile();
    frmVariation& variation = app_.variation();
    variation.hide();
    m_.MainLoaded = 1;
    variation.Tavlon1->setLightSquareColor(Tavlon1->LightSquareColor());
    variation.Tavlon1->setDarkSquareColor(Tavlon1->DarkSquareColor());
    variation.Tavlon1->setPromotionPiece(Tavlon1->PromotionPiece());
    SetupNewGame();
    m_.UpdateGameStats();
    m_.SetPlayerState();
}

bool frmMain::Form_QueryUnload() {
    if (!m_.promptSaveBoth())
        return true;
    WriteStartupFile();
    return false;
}

void frmMain::Form_Unload() {
    // The variation board refuses to go while this is set, so it is cleared first.
    m_.MainLoaded = 0;
    const std::vector<QWidget*> forms = app_.forms();
    const int16_t last = tolvisk::toInt16(qsizetype(forms.size()) - 1);
    for (int16_t i = last; i >= 1; --i)
        app_.unloadForm(forms[size_t(i)]);
}

void frmMain::closeEvent(QCloseEvent* event) {
    bool cancel = true;
    try {
        cancel = Form_QueryUnload();
    } catch (const std::exception& e) {
        platform_.msgBox(tolvisk::describeError(e), tolvisk::MsgButtons::OK,
                         tolvisk::MsgIcon::Critical, QString());
    }
    if (cancel) {
        event->ignore();
        return;
    }
    Form_Unload();
    event->accept();
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    // The board panel is docked: it spans the window's width at its fixed height.
    picMain->resize(centralWidget()->width(), picMain->height());
    Form_Resize();
}

namespace {

constexpr int kFrameWidthTwips = 120;
constexpr int kFrameHeightTwips = 660;

// The window's outer size in twips: the client area below the menu bar plus the frame, title
// and menu bar as the layout rules were drawn for them (120 across, 660 down). Real title bars
// differ from one window manager to the next; measuring them would push the game list under the
// status bar on some desktops, while these fixed allowances keep the rules' margins everywhere.
QSize outerSizeTwips(const QMainWindow* window) {
    const QMenuBar* menu = window->menuBar();
    int menuHeight = 0;
    if (menu && !menu->isHidden()) {
        // As the window's layout measures it: a narrow window wraps the menu bar.
        menuHeight = menu->heightForWidth(std::max(window->width(), menu->minimumWidth()));
        if (menuHeight < 0)
            menuHeight = menu->sizeHint().height();
    }
    return QSize(pxToTwips(window->width()) + kFrameWidthTwips,
                 pxToTwips(window->height() - menuHeight) + kFrameHeightTwips);
}

// A control refuses a negative size and keeps the one it has.
void setWidthTwips(QWidget* widget, int width) {
    if (width < 0)
        throw tolvisk::RuntimeError(QStringLiteral("Invalid property value"), 380);
    widget->resize(twipsToPx(width), widget->height());
}

void setHeightTwips(QWidget* widget, int height) {
    if (height < 0)
        throw tolvisk::RuntimeError(QStringLiteral("Invalid property value"), 380);
    widget->resize(widget->width(), twipsToPx(height));
}

int leftTwips(const QWidget* widget) {
    return pxToTwips(widget->x());
}

int heightTwips(const QWidget* widget) {
    return pxToTwips(widget->height());
}

} // namespace

void frmMain::Form_Resize() {
    if (!txtPreview)
        return;
    const QSize outer = outerSizeTwips(this);
    const int W = outer.width();
    const int H = outer.height();
    skipOnError([&] { setWidthTwips(lstTags, W - leftTwips(lstTags) - 300); });
    skipOnError([&] { setWidthTwips(txtMoveList, W - leftTwips(txtMoveList) - 300); });
    skipOnError([&] { setWidthTwips(txtAnnotation, W - leftTwips(txtAnnotation) - 300); });
    int16_t Bars = 0;
    skipOnError([&] {
        if (!Toolbar1->isHidden())
            Bars = tolvisk::toInt16(Bars + heightTwips(Toolbar1));
    });
    skipOnError([&] {
        if (!sbStatusBar->isHidden())
            Bars = tolvisk::toInt16(Bars + heightTwips(sbStatusBar));
    });
    skipOnError([&] { setWidthTwips(lstPGNFiles, W - 1760); });
    skipOnError([&] { setHeightTwips(lstPGNFiles, H - Bars - heightTwips(picMain) - 840); });
    skipOnError([&] { setHeightTwips(txtPreview, heightTwips(lstPGNFiles)); });
}

void frmMain::mnuViewToolbar_Click() {
    mnuViewToolbar->setChecked(!mnuViewToolbar->isChecked());
    Toolbar1->setVisible(mnuViewToolbar->isChecked());
    const int top = mnuViewToolbar->isChecked() ? 5700 : 5700 - heightTwips(Toolbar1);
    setTopTwips(txtPreview, top);
    setTopTwips(lstPGNFiles, top);
    Form_Resize();
}

void frmMain::mnuViewStatusBar_Click() {
    mnuViewStatusBar->setChecked(!mnuViewStatusBar->isChecked());
    setStatusBar(sbStatusBar); // docked at the bottom again
    sbStatusBar->setVisible(mnuViewStatusBar->isChecked());
    Form_Resize();
}

frmMain::Handler frmMain::toolbarHandler(const QString& key) {
    static const std::map<QString, Handler> handlers = {
        {QStringLiteral("New"), &frmMain::mnuFileNew_Click},
        {QStringLiteral("Open"), &frmMain::mnuFileOpen_Click},
        {QStringLiteral("Close"), &frmMain::mnuFileClose_Click},
        {QStringLiteral("Load"), &frmMain::mnuFileLoad_Click},
        {QStringLiteral("Save"), &frmMain::mnuFileSave_Click},
        {QStringLiteral("SaveAll"), &frmMain::mnuFileSaveAll_Click},
        {QStringLiteral("Print"), &frmMain::mnuFilePrint_Click},
        {QStringLiteral("Delete"), &frmMain::mnuEditmarkDeleted_Click},
        {QStringLiteral("Copy"), &frmMain::mnuEditCopyClipboard_Click},
        {QStringLiteral("Find"), &frmMain::mnuEditFind_Click},
        {QStringLiteral("Cycle"), &frmMain::mnuBoardReverse_Click},
        {QStringLiteral("Prev"), &frmMain::mnuPlayerPreviousGame_Click},
        {QStringLiteral("Start"), &frmMain::mnuPlayerMoveFirst_Click},
        {QStringLiteral("Back"), &frmMain::mnuPlayerMovePrevious_Click},
        {QStringLiteral("Forward"), &frmMain::mnuPlayerMoveNext_Click},
        {QStringLiteral("End"), &frmMain::mnuPlayerMoveLast_Click},
        {QStringLiteral("Next"), &frmMain::mnuPlayerNextGame_Click},
        {QStringLiteral("StartAP"), &frmMain::mnuPlayerStartAP_Click},
        {QStringLiteral("StopAP"), &frmMain::mnuPlayerStopAP_Click},
    };
    const auto handler = handlers.find(key);
    return handler == handlers.end() ? nullptr : handler->second;
}

void frmMain::Toolbar1_ButtonClick(const QString& key) {
    // A failing command is passed over: a toolbar click has no message of its own.
    skipOnError([&] {
        if (key == QLatin1String("Variation")) {
            app_.showForm(QStringLiteral("frmVariation"));
            return;
        }
        if (const Handler handler = toolbarHandler(key))
            (this->*handler)();
    });
}

void frmMain::mnuFileExit_Click() {
    close();
}

void frmMain::mnuToolsEditorsNotepad_Click() {
    try {
        tolvisk::startTextEditor(platform_, tolvisk::EditorKind::Plain);
    } catch (const std::exception&) {
        platform_.msgBox(QStringLiteral("Error Opening Notepad"), tolvisk::MsgButtons::OK,
                         tolvisk::MsgIcon::None, QStringLiteral("Error"));
    }
}

void frmMain::mnuToolsEditorsWordPad_Click() {
    try {
        tolvisk::startTextEditor(platform_, tolvisk::EditorKind::WordProcessor);
    } catch (const std::exception& e) {
        platform_.msgBox(tolvisk::describeError(e), tolvisk::MsgButtons::OK,
                         tolvisk::MsgIcon::Exclamation, QString());
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

// Printing and the clipboard commands come with the output work; until then they do nothing.
void frmMain::mnuFilePrint_Click() {}
void frmMain::mnuEditCopyClipboard_Click() {}
void frmMain::mnuEditCopyBitmap_Click() {}

QString frmMain::openDialogStartDir() {
    if (!lastOpenDir_.isEmpty())
        return lastOpenDir_;
    const QString samples = QDir(platform_.exeDir()).filePath(QStringLiteral("samples"));
    // A copy of the program without its samples starts in the user's home instead.
    return QFileInfo(samples).isDir() ? samples : QDir::homePath();
}

void frmMain::rememberOpenDir(const QString& path) {
    if (!path.isEmpty())
        lastOpenDir_ = QFileInfo(path).absolutePath();
}
