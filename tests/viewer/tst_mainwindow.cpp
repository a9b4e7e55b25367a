// The main window as a whole: its controls, menus and toolbar, the start and closing sequences,
// the layout rules, the view toggles, the toolbar dispatch, the editors and the tool windows.

#include "support/AppFixture.h"

#include "variation/frmVariation.h"
#include "viewer/TextEditors.h"
#include "viewer/ToolbarIcons.h"
#include "viewer/Twips.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QScopeGuard>
#include <QScreen>
#include <QTest>

using namespace tolvisk;

namespace {

int px(int twips) {
    return twipsToPx(twips);
}

// A control's place in twips in the window's client area (below the menu bar).
QRect clientRect(frmMain& w, QWidget* control) {
    const QPoint at = control->mapTo(&w, QPoint(0, 0)) - QPoint(0, w.menuBar()->height());
    return QRect(at, control->size());
}

// Shows the window, so that its bars have their real places.
void showMain(frmMain& w) {
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
}

const QByteArray kThreeGames =
    crlf("[Event \"A\"]\n[White \"Ann\"]\n[Black \"Bo\"]\n\n1. e4 e5 2. Nf3 *\n\n"
         "[Event \"B\"]\n\n1. d4 d5 *\n\n"
         "[Event \"C\"]\n\n1. c4 *\n\n");

// The texts of a menu's entries in order, "-" for a separating line.
QStringList entries(QMenu* menu) {
    QStringList out;
    for (QAction* action : menu->actions())
        out << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return out;
}

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();

    void controlsAtTheirPlaces_data();
    void controlsAtTheirPlaces();
    void windowCaptionsAndTips();
    void menuTree_data();
    void menuTree();
    void menuShortcutsAndStates();
    void toolbarPositions();
    void toolbarImages();

    void startSequence();
    void closingSequence_data();
    void closingSequence();
    void variationOnlyHidesWhileMainLoaded();
    void unloadOrder();
    void teardownShowsNothing();

    void resizeRules_data();
    void resizeRules();
    void narrowingKeepsLastWidths();
    void toolbarToggleKeepsLowerEdge();
    void toggles_data();
    void toggles();
    void nothingOverlaps();

    void toolbarDispatchTable_data();
    void toolbarDispatchTable();
    void toolbarButtonsRunTheirCommands();
    void toolbarPassesOverFailures();

    void toolWindows_data();
    void toolWindows();
    void textEditors_data();
    void textEditors();
    void desktopDefaultEditor();

    void openDialogStartFolder();
    void bundledSamplesReplay();
};

void TestMainWindow::initTestCase() {
    QApplication::setQuitOnLastWindowClosed(false);
    // The headless platform's notes on what it cannot do are no news.
    static const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& message) {
            if (!message.startsWith(QLatin1String("This plugin does not support")))
                previous(type, context, message);
        });
    // The editor tests must not depend on this machine's desktop settings.
    static QTemporaryDir xdg;
    for (const char* name :
         {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME", "XDG_DATA_DIRS"})
        qputenv(name, xdg.filePath(QString::fromLatin1(name)).toLocal8Bit());
}

void TestMainWindow::controlsAtTheirPlaces_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QRect>("twips");
    auto row = [](const char* name, const char* parent, int l, int t, int w, int h) {
        QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(parent)
                            << QRect(l, t, w, h);
    };
    row("Tavlon1", "picMain", 0, 0, 4455, 5235);
    row("Picture1", "picMain", 330, 420, 4035, 4035);
    row("lstTags", "picMain", 5940, 420, 2835, 1425);
    row("txtMoveList", "picMain", 5940, 1920, 2835, 1515);
    row("txtAnnotation", "picMain", 5940, 3840, 2835, 795);
    row("cmdClearAnnotation", "picMain", 6120, 4740, 795, 375);
    row("cmdSetAnno", "picMain", 7020, 4740, 1635, 375);
    // The labels size themselves to their text: their width is at least the planned one.
    row("lblMoveNumber", "picMain", 4560, 420, 600, 195);
    row("lblMoveText", "picMain", 4560, 660, 450, 195);
    row("lblOnMove", "picMain", 4560, 900, 705, 195);
    row("lblEPSquare", "picMain", 4560, 1140, 810, 195);
    row("lblFifty", "picMain", 4560, 1380, 675, 195);
    row("lblCastle", "picMain", 4560, 1620, 480, 195);
    row("lblPly", "picMain", 4560, 1860, 255, 195);
    row("lblGameLength", "picMain", 4560, 2100, 540, 195);
    row("Label1", "picMain", 6000, 3600, 810, 195);
}

void TestMainWindow::controlsAtTheirPlaces() {
    QFETCH(QString, name);
    QFETCH(QString, parent);
    QFETCH(QRect, twips);
    AppFixture f;
    auto* control = f.main().findChild<QWidget*>(name);
    QVERIFY(control);
    QCOMPARE(control->parentWidget()->objectName(), parent);
    QCOMPARE(control->pos(), QPoint(px(twips.left()), px(twips.top())));
    QCOMPARE(control->height(), px(twips.height()));
    if (qobject_cast<QLabel*>(control)) {
        auto* label = static_cast<QLabel*>(control);
        QVERIFY(control->width() >= px(twips.width()));
        QVERIFY2(control->width() >= label->sizeHint().width(), qPrintable(label->text()));
        QVERIFY(!label->autoFillBackground());
    } else {
        QCOMPARE(control->width(), px(twips.width()));
    }
}

void TestMainWindow::windowCaptionsAndTips() {
    AppFixture f;
    frmMain& w = f.main();
    QCOMPARE(w.windowTitle(), QStringLiteral("Ravelund"));
    QCOMPARE(w.width(), px(9210));
    QCOMPARE(w.height() - w.menuBar()->sizeHint().height(), px(7215));
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QVERIFY(qAbs(w.geometry().center().x() - screen.center().x()) <= 1);
    QVERIFY(qAbs(w.geometry().center().y() - screen.center().y()) <= 1);

    // Form_Load has already written the status labels; a fresh window shows the captions.
    tolvisk::ScriptedPlatform platform;
    Application fresh(platform);
    frmMain unloaded(fresh);
    const std::pair<QLabel*, const char*> freshCaptions[] = {
        {unloaded.lblMoveNumber, "Move #:"}, {unloaded.lblMoveText, "Move:"},
        {unloaded.lblOnMove, "On Move:"},    {unloaded.lblEPSquare, "EP Square:"},
        {unloaded.lblFifty, "50 Move:"},     {unloaded.lblCastle, "Castle:"},
        {unloaded.lblPly, "Ply:"},           {unloaded.lblGameLength, "Length:"},
        {unloaded.Label1, "Annotation:"}};
    for (const auto& [label, caption] : freshCaptions)
        QCOMPARE(label->text(), QString::fromLatin1(caption));
    QCOMPARE(w.lblPly->text(), QStringLiteral("Ply: 0"));
    QCOMPARE(w.cmdClearAnnotation->text(), QStringLiteral("Clear"));
    QCOMPARE(w.cmdSetAnno->text(), QStringLiteral("Apply Annotation"));
    QCOMPARE(w.txtPreview->toolTip(), QStringLiteral("Preview of game that is selected"));
    QCOMPARE(w.lstPGNFiles->toolTip(), QStringLiteral("Games loaded into database"));
    // Picture1 lies under the board.
    const QObjectList children = w.picMain->children();
    QVERIFY(children.indexOf(w.Picture1) < children.indexOf(w.Tavlon1));
    QCOMPARE(w.Tavlon1->DarkSquareColor(), 0xC0C0C0);
    QCOMPARE(w.Tavlon1->LightSquareColor(), 0xFFFFFF);
}

void TestMainWindow::menuTree_data() {
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QStringList>("items");
    QTest::newRow("File") << "mnuFile"
                          << "&File" << QStringList{"&New",
                                                    "Open...",
                                                    "Load Game",
                                                    "&Close",
                                                    "-",
                                                    "&Save Game",
                                                    "Save Game &As...",
                                                    "Save All",
                                                    "Save All As...",
                                                    "-",
                                                    "&Print...",
                                                    "-",
                                                    "E&xit"};
    QTest::newRow("Edit")
        << "mnuEdit"
        << "&Edit"
        << QStringList{"Find...",        "-", "Copy Game To Clipboard", "Copy Board As Bitmap", "-",
                       "Mark As Deleted"};
    QTest::newRow("View") << "mnuView"
                          << "&View" << QStringList{"&Toolbar", "Status &Bar"};
    QTest::newRow("Options") << "mnuOptions"
                             << "&Options" << QStringList{"Setup Options"};
    QTest::newRow("Board") << "mnuBoard"
                           << "&Board" << QStringList{"Reverse View"};
    QTest::newRow("Player")
        << "mnuPlayer"
        << "&Player"
        << QStringList{
               "Move First",    "Move Previous", "Move Next", "Move Last",       "-",
               "Previous Game", "Next Game",     "-",         "Start Auto Play", "Stop Auto Play"};
    QTest::newRow("Tools") << "mnuTools"
                           << "&Tools"
                           << QStringList{"Edit Tags", "Variation Board", "Setup Pieces",
                                          "Text Editors"};
    QTest::newRow("Text Editors") << "mnuToolsEditors"
                                  << "Text Editors" << QStringList{"WordPad", "Notepad"};
    QTest::newRow("Help") << "mnuHelp"
                          << "&Help" << QStringList{"Help", "-", "&About "};
}

void TestMainWindow::menuTree() {
    QFETCH(QString, menu);
    QFETCH(QString, caption);
    QFETCH(QStringList, items);
    // Before Form_Load, which has SetPlayerState decide, every entry is enabled.
    ScriptedPlatform platform;
    Application app(platform);
    frmMain w(app);
    auto* m = w.findChild<QMenu*>(menu);
    QVERIFY(m);
    QCOMPARE(m->title(), caption);
    QCOMPARE(entries(m), items);
    for (QAction* action : m->actions())
        if (action->isVisible())
            QVERIFY2(action->isEnabled(), qPrintable(action->text()));
}

void TestMainWindow::menuShortcutsAndStates() {
    AppFixture f;
    frmMain& w = f.main();
    QStringList bar;
    for (QAction* action : w.menuBar()->actions())
        bar << action->text();
    QCOMPARE(bar, (QStringList{"&File", "&Edit", "&View", "&Options", "&Board", "&Player", "&Tools",
                               "&Help"}));
    const std::pair<QAction*, QKeySequence> shortcuts[] = {
        {w.mnuFileNew, QKeySequence(QStringLiteral("Ctrl+N"))},
        {w.mnuFileOpen, QKeySequence(QStringLiteral("Ctrl+O"))},
        {w.mnuFileClose, QKeySequence(QStringLiteral("Ctrl+W"))},
        {w.mnuFilePrint, QKeySequence(QStringLiteral("Ctrl+P"))},
        {w.mnuFileExit, QKeySequence(QStringLiteral("Ctrl+Q"))},
        {w.mnuEditFind, QKeySequence(QStringLiteral("Ctrl+F"))}};
    int withShortcut = 0;
    for (QAction* action : w.findChildren<QAction*>())
        withShortcut += action->shortcut().isEmpty() ? 0 : 1;
    QCOMPARE(withShortcut, 6);
    for (const auto& [action, keys] : shortcuts)
        QCOMPARE(action->shortcut(), keys);
    QVERIFY(!w.mnuToolsVariationBoard->isVisible());
    QVERIFY(w.mnuViewToolbar->isCheckable() && w.mnuViewToolbar->isChecked());
    QVERIFY(w.mnuViewStatusBar->isCheckable() && w.mnuViewStatusBar->isChecked());
}

void TestMainWindow::toolbarPositions() {
    AppFixture f;
    ToolBar& bar = *f.main().Toolbar1;
    const QStringList keys{"New",     "",      "Open",      "Close",  "Load",    "Save",  "SaveAll",
                           "",        "Print", "",          "Delete", "",        "Copy",  "Find",
                           "",        "Cycle", "Variation", "",       "Prev",    "Start", "Back",
                           "Forward", "End",   "Next",      "",       "StartAP", "StopAP"};
    const QStringList tips{"New",
                           "Open",
                           "Close",
                           "Load Game",
                           "Save",
                           "Save All",
                           "Print",
                           "Delete",
                           "Copy Game To Clipboard",
                           "Find",
                           "Reverse View",
                           "Variation Board",
                           "Previous Game",
                           "Move First",
                           "Move Previous",
                           "Move Next",
                           "Move Last",
                           "Next Game",
                           "Start Auto Play",
                           "Stop Auto Play"};
    QCOMPARE(bar.buttonCount(), 27);
    QStringList actual;
    for (int i = 1; i <= 27; ++i)
        actual << bar.keyAt(i);
    QCOMPARE(actual, keys);
    QStringList actualTips;
    for (const QString& key : keys)
        if (!key.isEmpty())
            actualTips << bar.button(key)->toolTip();
    QCOMPARE(actualTips, tips);
    for (const QString& key : keys)
        if (!key.isEmpty())
            QCOMPARE(bar.button(key)->isCheckable(), key == QLatin1String("Delete"));
    // Positions 2, 8, 10, 12, 15 and 25 are separating lines; 18 is the 1500-twip gap.
    QList<QAction*> actions = bar.actions();
    QCOMPARE(actions.size(), 27);
    for (int position : {2, 8, 10, 12, 15, 25})
        QVERIFY2(actions[position - 1]->isSeparator(), qPrintable(QString::number(position)));
    QWidget* gap = bar.widgetForAction(actions[17]);
    QVERIFY(gap);
    QCOMPARE(gap->width(), px(1500));
    QVERIFY(!actions[17]->isSeparator());
    // Every button fits on the toolbar at the first width.
    showMain(f.main());
    for (const QString& key : keys)
        if (!key.isEmpty())
            QVERIFY2(bar.widgetForAction(bar.button(key))->isVisible(), qPrintable(key));
}

void TestMainWindow::toolbarImages() {
    QList<QImage> images;
    for (int index = 1; index <= kToolbarIconCount; ++index) {
        const QImage image = toolbarIcon(index).pixmap(16, 16).toImage();
        QCOMPARE(image.size(), QSize(16, 16));
        int inked = 0;
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x)
                inked += qAlpha(image.pixel(x, y)) > 128 ? 1 : 0;
        QVERIFY2(inked >= 20, qPrintable(QStringLiteral("image %1 is nearly blank").arg(index)));
        QVERIFY2(!images.contains(image),
                 qPrintable(QStringLiteral("image %1 repeats").arg(index)));
        images << image;
    }
    // The buttons take images 1 to 20 in order.
    AppFixture f;
    ToolBar& bar = *f.main().Toolbar1;
    int index = 0;
    for (int position = 1; position <= 27; ++position) {
        const QString key = bar.keyAt(position);
        if (key.isEmpty())
            continue;
        QCOMPARE(bar.button(key)->icon().pixmap(16, 16).toImage(), images[index++]);
    }
    QCOMPARE(index, 20);
}

void TestMainWindow::startSequence() {
    ScriptedPlatform platform;
    QFile file(platform.path(QStringLiteral("tolvisk.txt")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("R\r\nPPP\r\n 7 \r\nA\r\n255\r\n65280\r\n");
    file.close();
    Application app(platform);
    app.module().APRunning = true;
    frmMain& w = app.loadMain();
    Module1& m = app.module();
    QVERIFY(!m.APRunning);
    QCOMPARE(m.MainLoaded, int16_t(1));
    QCOMPARE(w.lstPGNFiles->ListCount(), int16_t(0));
    QVERIFY(!w.Timer1->Enabled());
    QCOMPARE(w.Timer1->Interval(), 1000);
    QVERIFY(!w.Timer2->Enabled());
    QCOMPARE(w.Timer2->Interval(), 500);
    // The variation board is loaded hidden after the file was read, and takes its settings.
    QCOMPARE(app.forms().size(), size_t(2));
    QCOMPARE(app.forms()[0], static_cast<QWidget*>(&w));
    frmVariation& variation = app.variation();
    QCOMPARE(app.forms()[1], static_cast<QWidget*>(&variation));
    QVERIFY(variation.isHidden());
    QCOMPARE(variation.windowTitle(), QStringLiteral("Variation Board"));
    QCOMPARE(variation.Tavlon1->LightSquareColor(), 255);
    QCOMPARE(variation.Tavlon1->DarkSquareColor(), 65280);
    QCOMPARE(variation.Tavlon1->PromotionPiece(), QStringLiteral("R"));
    // A new empty game, its labels and the state of the commands.
    QCOMPARE(m.CurrentGame, int16_t(-1));
    QCOMPARE(w.lstTags->ListCount(), int16_t(7));
    QCOMPARE(w.lblGameLength->text(), QStringLiteral("Length: 0"));
    QCOMPARE(w.lblOnMove->text(), QStringLiteral("On Move: White"));
    for (const char* key : {"Start", "Back", "Forward", "End", "StartAP", "StopAP", "Load", "Save"})
        QVERIFY2(!w.Toolbar1->button(QString::fromLatin1(key))->isEnabled(), key);
    QVERIFY(!w.isVisible()); // main() shows it
    QVERIFY(platform.boxes().empty());
}

void TestMainWindow::closingSequence_data() {
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("gameChanged");
    QTest::addColumn<bool>("fileChanged");
    QTest::addColumn<QList<int>>("answers"); // MsgResult per prompt
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<bool>("closes");
    const QList<int> none;
    for (const char* how : {"close box", "Exit", "system"}) {
        auto name = [how](const char* what) { return QByteArray(how) + ": " + what; };
        QTest::newRow(name("nothing to save"))
            << how << false << false << none << QStringList{} << true;
        QTest::newRow(name("both declined"))
            << how << true << true << QList<int>{int(MsgResult::No), int(MsgResult::No)}
            << QStringList{"Unsaved Game Changes", "Unsaved File Changes"} << true;
        QTest::newRow(name("game prompt cancelled"))
            << how << true << true << QList<int>{int(MsgResult::Cancel)}
            << QStringList{"Unsaved Game Changes"} << false;
        QTest::newRow(name("file prompt cancelled"))
            << how << true << true << QList<int>{int(MsgResult::No), int(MsgResult::Cancel)}
            << QStringList{"Unsaved Game Changes", "Unsaved File Changes"} << false;
        QTest::newRow(name("only the file, cancelled"))
            << how << false << true << QList<int>{int(MsgResult::Cancel)}
            << QStringList{"Unsaved File Changes"} << false;
    }
}

void TestMainWindow::closingSequence() {
    QFETCH(QString, how);
    QFETCH(bool, gameChanged);
    QFETCH(bool, fileChanged);
    QFETCH(QList<int>, answers);
    QFETCH(QStringList, titles);
    QFETCH(bool, closes);
    AppFixture f;
    frmMain& w = f.main();
    showMain(w);
    const QString startup = f.platform.path(QStringLiteral("tolvisk.txt"));
    f.writeFile(QStringLiteral("tolvisk.txt"), "old");
    f.main().Tavlon1->setGameChanged(gameChanged);
    f.m().FileChanged = fileChanged;
    for (int answer : answers)
        f.platform.queueMsgBox(MsgResult(answer));

    bool accepted = false;
    if (how == QLatin1String("close box")) {
        accepted = w.close();
    } else if (how == QLatin1String("Exit")) {
        w.mnuFileExit->trigger();
        accepted = !w.isVisible();
    } else {
        QCloseEvent event;
        event.setAccepted(true);
        QApplication::sendEvent(&w, &event);
        accepted = event.isAccepted();
    }
    QCOMPARE(accepted, closes);
    QStringList shown;
    for (const PlatformCall& box : f.platform.boxes())
        shown << box.title;
    QCOMPARE(shown, titles);
    QVERIFY(f.platform.msgAnswers.empty());
    if (closes) {
        QCOMPARE(AppFixture::readFile(startup),
                 QByteArray("Q\r\nPNP\r\n 1 \r\nL\r\n16777215\r\n12632256\r\n"));
        QCOMPARE(f.m().MainLoaded, int16_t(0));
        QCOMPARE(f.app->forms().size(), size_t(1)); // the variation board went too
    } else {
        QCOMPARE(AppFixture::readFile(startup), QByteArray("old"));
        QCOMPARE(f.m().MainLoaded, int16_t(1));
        QVERIFY(w.isVisible());
        QCOMPARE(f.app->forms().size(), size_t(2));
    }
}

void TestMainWindow::variationOnlyHidesWhileMainLoaded() {
    AppFixture f;
    frmVariation& variation = f.app->variation();
    f.main().Toolbar1_ButtonClick(QStringLiteral("Variation"));
    QVERIFY(variation.isVisible());
    QVERIFY(!variation.close());
    QVERIFY(variation.isHidden());
    QCOMPARE(f.app->forms().size(), size_t(2));
    // Showing it again finds the same window.
    f.main().mnuToolsVariationBoard_Click();
    QCOMPARE(&f.app->variation(), &variation);
    QVERIFY(variation.isVisible());
}

void TestMainWindow::unloadOrder() {
    AppFixture f;
    frmMain& w = f.main();
    w.mnuHelpHelp_Click();
    w.mnuEditFind_Click();
    w.mnuToolsEditTags_Click();
    QStringList order;
    int16_t mainLoadedSeen = -1;
    for (QWidget* form : f.app->forms()) {
        if (form == &w)
            continue;
        const QString name = form->objectName();
        connect(form, &QObject::destroyed, this, [&order, name] { order << name; });
    }
    connect(f.app->forms()[1], &QObject::destroyed, this,
            [&] { mainLoadedSeen = f.m().MainLoaded; });
    w.Form_Unload();
    QCOMPARE(order, (QStringList{"frmEditTags", "frmFind", "frmHelp", "frmVariation"}));
    QCOMPARE(mainLoadedSeen, int16_t(0));
    QVERIFY(f.app->forms() == std::vector<QWidget*>{&w});
}

void TestMainWindow::teardownShowsNothing() {
    auto platform = std::make_unique<ScriptedPlatform>();
    {
        Application app(*platform);
        frmMain& w = app.loadMain();
        w.Tavlon1->setGameChanged(true);
        app.module().FileChanged = true;
        w.mnuHelpAbout_Click();
        w.mnuToolsSetup_Click();
        w.Toolbar1_ButtonClick(QStringLiteral("Variation"));
    }
    QVERIFY(platform->boxes().empty());
    QVERIFY(!QFile::exists(platform->path(QStringLiteral("tolvisk.txt"))));
}

// Layout. W and H are the client area (below the menu bar) plus the frame, title and menu bar
// as the rules were drawn for them: 120 twips across and 660 down.
void TestMainWindow::resizeRules_data() {
    QTest::addColumn<int>("clientWidth"); // twips
    QTest::addColumn<int>("clientHeight");
    QTest::addColumn<bool>("toolbar");
    QTest::addColumn<bool>("statusBar");
    for (const auto& [w, h] : {std::pair{9210, 7215}, {12000, 9000}, {15000, 12000}, {7000, 6800}})
        for (bool toolbar : {true, false})
            for (bool status : {true, false})
                QTest::addRow("%dx%d%s%s", w, h, toolbar ? " toolbar" : "", status ? " status" : "")
                    << w << h << toolbar << status;
}

void TestMainWindow::resizeRules() {
    QFETCH(int, clientWidth);
    QFETCH(int, clientHeight);
    QFETCH(bool, toolbar);
    QFETCH(bool, statusBar);
    AppFixture f;
    frmMain& w = f.main();
    showMain(w);
    if (!toolbar)
        w.mnuViewToolbar_Click();
    if (!statusBar)
        w.mnuViewStatusBar_Click();
    const int menu = w.menuBar()->height();
    w.resize(px(clientWidth), px(clientHeight) + menu);
    QCoreApplication::processEvents();
    QCOMPARE(w.size(), QSize(px(clientWidth), px(clientHeight) + menu));
    QCOMPARE(w.menuBar()->height(), menu);
    const int W = pxToTwips(w.width()) + 120;
    const int H = pxToTwips(w.height() - menu) + 660;
    const int bars = (toolbar ? pxToTwips(w.Toolbar1->height()) : 0) +
                     (statusBar ? pxToTwips(w.sbStatusBar->height()) : 0);
    for (tolvisk::TextBox* box : {w.txtMoveList, w.txtAnnotation})
        QCOMPARE(box->width(), px(W - 5940 - 300));
    QCOMPARE(w.lstTags->width(), px(W - 5940 - 300));
    QCOMPARE(w.lstPGNFiles->width(), px(W - 1760));
    const int listHeight = H - bars - 5265 - 840;
    QCOMPARE(w.lstPGNFiles->height(), px(listHeight));
    QCOMPARE(w.txtPreview->height(), w.lstPGNFiles->height());
    QCOMPARE(w.txtPreview->width(), px(1455));
    // Nothing else moves.
    QCOMPARE(w.picMain->height(), px(5265));
    QCOMPARE(w.Tavlon1->geometry(), twipsRect(0, 0, 4455, 5235));
    QCOMPARE(w.cmdSetAnno->geometry(), twipsRect(7020, 4740, 1635, 375));
    QCOMPARE(w.lstPGNFiles->x(), px(1560));
    const int toolbarHeight = toolbar ? w.Toolbar1->height() : 0;
    QCOMPARE(clientRect(w, w.lstPGNFiles).top(), px(5700) - (toolbar ? 0 : w.Toolbar1->height()));
    QCOMPARE(clientRect(w, w.picMain).top(), toolbarHeight);
}

void TestMainWindow::narrowingKeepsLastWidths() {
    AppFixture f;
    frmMain& w = f.main();
    showMain(w);
    const int menu = w.menuBar()->height();
    w.resize(px(12000), px(9000) + menu);
    const int wide = px(pxToTwips(w.width()) + 120 - 6240);
    QCOMPARE(w.lstTags->width(), wide);
    // Too narrow and too low: the rules give negative sizes, which the controls refuse, and the
    // later rules still run.
    w.resize(px(4000), px(5000) + menu);
    QCOMPARE(w.width(), px(4000)); // no minimum size holds the window
    for (QWidget* control :
         std::initializer_list<QWidget*>{w.lstTags, w.txtMoveList, w.txtAnnotation})
        QCOMPARE(control->width(), wide);
    QCOMPARE(w.lstPGNFiles->width(), px(pxToTwips(w.width()) + 120 - 1760));
    const int bars = pxToTwips(w.Toolbar1->height()) + pxToTwips(w.sbStatusBar->height());
    const int fromWide = px(pxToTwips(px(9000)) + 660 - bars - 6105);
    QCOMPARE(w.lstPGNFiles->height(), fromWide);
    QCOMPARE(w.txtPreview->height(), fromWide);
}

void TestMainWindow::toolbarToggleKeepsLowerEdge() {
    AppFixture f;
    frmMain& w = f.main();
    showMain(w);
    const QRect before = clientRect(w, w.lstPGNFiles);
    const QRect previewBefore = clientRect(w, w.txtPreview);
    const int bar = w.Toolbar1->height();
    w.mnuViewToolbar_Click();
    QVERIFY(w.Toolbar1->isHidden());
    QVERIFY(!w.mnuViewToolbar->isChecked());
    QCoreApplication::processEvents(); // the window's layout moves the panel up
    QCOMPARE(clientRect(w, w.picMain).top(), 0);
    const QRect after = clientRect(w, w.lstPGNFiles);
    QCOMPARE(after.top(), before.top() - bar);
    QCOMPARE(after.bottom(), before.bottom());
    QCOMPARE(clientRect(w, w.txtPreview).top(), previewBefore.top() - bar);
    QCOMPARE(w.txtPreview->height(), after.height());
    w.mnuViewToolbar_Click();
    QCoreApplication::processEvents();
    QCOMPARE(clientRect(w, w.lstPGNFiles), before);
    QCOMPARE(clientRect(w, w.txtPreview), previewBefore);
}

void TestMainWindow::toggles_data() {
    QTest::addColumn<bool>("viaMenu");
    QTest::newRow("handler") << false;
    QTest::newRow("menu entry") << true;
}

void TestMainWindow::toggles() {
    QFETCH(bool, viaMenu);
    AppFixture f;
    frmMain& w = f.main();
    showMain(w);
    auto toggle = [&](QAction* entry, void (frmMain::*handler)()) {
        if (viaMenu)
            entry->trigger();
        else
            (w.*handler)();
    };
    const int listHeight = w.lstPGNFiles->height();
    toggle(w.mnuViewStatusBar, &frmMain::mnuViewStatusBar_Click);
    QVERIFY(!w.mnuViewStatusBar->isChecked());
    QVERIFY(w.sbStatusBar->isHidden());
    QCOMPARE(w.lstPGNFiles->height(), listHeight + w.sbStatusBar->height());
    toggle(w.mnuViewToolbar, &frmMain::mnuViewToolbar_Click);
    QVERIFY(!w.mnuViewToolbar->isChecked());
    QVERIFY(w.Toolbar1->isHidden());
    // With both bars hidden Bars is 0.
    QCOMPARE(w.lstPGNFiles->height(),
             px(pxToTwips(w.height() - w.menuBar()->height()) + 660 - 6105));
    toggle(w.mnuViewStatusBar, &frmMain::mnuViewStatusBar_Click);
    toggle(w.mnuViewToolbar, &frmMain::mnuViewToolbar_Click);
    QVERIFY(w.mnuViewStatusBar->isChecked() && w.mnuViewToolbar->isChecked());
    QVERIFY(!w.sbStatusBar->isHidden() && !w.Toolbar1->isHidden());
    QCOMPARE(w.statusBar(), static_cast<QStatusBar*>(w.sbStatusBar));
    QCOMPARE(w.lstPGNFiles->height(), listHeight);
}

void TestMainWindow::nothingOverlaps() {
    for (const QSize client : {QSize(9210, 7215), QSize(13000, 10000)}) {
        AppFixture f;
        frmMain& w = f.main();
        showMain(w);
        w.resize(px(client.width()), px(client.height()) + w.menuBar()->height());
        QCoreApplication::processEvents();
        const QRect panel = clientRect(w, w.picMain);
        const QRect list = clientRect(w, w.lstPGNFiles);
        const QRect preview = clientRect(w, w.txtPreview);
        const QRect status = clientRect(w, w.sbStatusBar);
        const QRect tags = clientRect(w, w.lstTags);
        QVERIFY(panel.bottom() < list.top());
        QVERIFY(list.bottom() < status.top());
        QVERIFY(preview.right() < list.left());
        QVERIFY(list.right() < w.width());
        QVERIFY(tags.right() < w.width());
        QVERIFY(clientRect(w, w.Toolbar1).bottom() < panel.top());
        // The buttons and labels show their whole captions.
        for (QPushButton* button : {w.cmdSetAnno, w.cmdClearAnnotation})
            QVERIFY(button->fontMetrics().horizontalAdvance(button->text()) + 8 <= button->width());
        QVERIFY(w.Label1->fontMetrics().horizontalAdvance(w.Label1->text()) <= w.Label1->width());
    }
}

void TestMainWindow::toolbarDispatchTable_data() {
    QTest::addColumn<int>("position");
    QTest::addColumn<QString>("key");
    const char* keys[] = {"New",     "",      "Open",      "Close",  "Load",    "Save",  "SaveAll",
                          "",        "Print", "",          "Delete", "",        "Copy",  "Find",
                          "",        "Cycle", "Variation", "",       "Prev",    "Start", "Back",
                          "Forward", "End",   "Next",      "",       "StartAP", "StopAP"};
    for (int i = 0; i < 27; ++i)
        QTest::addRow("%d %s", i + 1, keys[i]) << i + 1 << QString::fromLatin1(keys[i]);
}

void TestMainWindow::toolbarDispatchTable() {
    QFETCH(int, position);
    QFETCH(QString, key);
    static const std::map<QString, frmMain::Handler> expected = {
        {"New", &frmMain::mnuFileNew_Click},
        {"Open", &frmMain::mnuFileOpen_Click},
        {"Close", &frmMain::mnuFileClose_Click},
        {"Load", &frmMain::mnuFileLoad_Click},
        {"Save", &frmMain::mnuFileSave_Click},
        {"SaveAll", &frmMain::mnuFileSaveAll_Click},
        {"Print", &frmMain::mnuFilePrint_Click},
        {"Delete", &frmMain::mnuEditmarkDeleted_Click},
        {"Copy", &frmMain::mnuEditCopyClipboard_Click},
        {"Find", &frmMain::mnuEditFind_Click},
        {"Cycle", &frmMain::mnuBoardReverse_Click},
        {"Prev", &frmMain::mnuPlayerPreviousGame_Click},
        {"Start", &frmMain::mnuPlayerMoveFirst_Click},
        {"Back", &frmMain::mnuPlayerMovePrevious_Click},
        {"Forward", &frmMain::mnuPlayerMoveNext_Click},
        {"End", &frmMain::mnuPlayerMoveLast_Click},
        {"Next", &frmMain::mnuPlayerNextGame_Click},
        {"StartAP", &frmMain::mnuPlayerStartAP_Click},
        {"StopAP", &frmMain::mnuPlayerStopAP_Click},
    };
    AppFixture f;
    QCOMPARE(f.main().Toolbar1->keyAt(position), key);
    const auto row = expected.find(key);
    const frmMain::Handler handler = frmMain::toolbarHandler(key);
    if (row == expected.end())
        QVERIFY(handler == nullptr); // separators, the gap and "Variation"
    else
        QVERIFY(handler == row->second);
    // Keys are compared exactly.
    if (!key.isEmpty())
        QVERIFY(frmMain::toolbarHandler(key.toLower()) == nullptr);
}

void TestMainWindow::toolbarButtonsRunTheirCommands() {
    AppFixture f;
    frmMain& w = f.main();
    f.openText(kThreeGames);
    w.mnuFileLoad_Click();
    f.platform.clear();
    // A click on a button reaches the dispatch and so the command.
    auto click = [&](const char* key) { w.Toolbar1->button(QString::fromLatin1(key))->trigger(); };
    click("Forward");
    click("Forward");
    QCOMPARE(w.Tavlon1->Ply(), int16_t(2));
    click("Next");
    QCOMPARE(f.m().CurrentGame, int16_t(2));
    // The toggle stays pressed while the game is marked.
    click("Delete");
    QVERIFY(f.m().GameStore[2].Deleted);
    QVERIFY(w.Toolbar1->pressed(QStringLiteral("Delete")));
    click("Delete");
    QVERIFY(!f.m().GameStore[2].Deleted);
    QVERIFY(!w.Toolbar1->pressed(QStringLiteral("Delete")));
    // "Variation" works while its menu entry is still hidden; other keys do nothing.
    QVERIFY(!w.mnuToolsVariationBoard->isVisible());
    click("Variation");
    QVERIFY(f.app->variation().isVisible());
    w.Toolbar1_ButtonClick(QStringLiteral("Nothing"));
    w.Toolbar1_ButtonClick(QString());
    QCOMPARE(f.m().CurrentGame, int16_t(2));
    QVERIFY(f.platform.boxes().empty());
}

void TestMainWindow::toolbarPassesOverFailures() {
    AppFixture f;
    frmMain& w = f.main();
    // Without any store marking a game deleted fails: the toolbar passes over it quietly,
    // the menu entry reports it.
    w.Toolbar1_ButtonClick(QStringLiteral("Delete"));
    QVERIFY(f.platform.boxes().empty());
    w.run(&frmMain::mnuEditmarkDeleted_Click);
    QCOMPARE(f.platform.boxes().size(), size_t(1));
    QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::Critical);
}

void TestMainWindow::toolWindows_data() {
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("title");
    QTest::newRow("Edit Tags") << "mnuToolsEditTags"
                               << "frmEditTags"
                               << "Tag Editor";
    QTest::newRow("Setup Pieces") << "mnuToolsSetup"
                                  << "frmSetup"
                                  << "Setup Pieces";
    QTest::newRow("Variation Board") << "mnuToolsVariationBoard"
                                     << "frmVariation"
                                     << "Variation Board";
    QTest::newRow("Find") << "mnuEditFind"
                          << "frmFind"
                          << "Find";
    QTest::newRow("Options") << "mnuOptionsOptions"
                             << "frmOptions"
                             << "Options";
    QTest::newRow("Help") << "mnuHelpHelp"
                          << "frmHelp"
                          << "Ravelund Help";
    QTest::newRow("About") << "mnuHelpAbout"
                           << "frmAbout"
                           << "About Ravelund PGN Viewer";
    QTest::newRow("double click on the tags") << "lstTags"
                                              << "frmEditTags"
                                              << "Tag Editor";
}

void TestMainWindow::toolWindows() {
    QFETCH(QString, command);
    QFETCH(QString, form);
    QFETCH(QString, title);
    AppFixture f;
    frmMain& w = f.main();
    auto run = [&] {
        if (command == QLatin1String("lstTags"))
            emit w.lstTags->DblClick();
        else
            w.findChild<QAction*>(command)->trigger();
    };
    run();
    QWidget* window = f.app->findForm(form);
    QVERIFY(window);
    QCOMPARE(window->windowTitle(), title);
    QVERIFY(window->isVisible());
    QVERIFY(window->isWindow());
    QCOMPARE(window->windowModality(), Qt::NonModal);
    QVERIFY(w.isEnabled());
    const size_t loaded = f.app->forms().size();
    window->showMinimized();
    run(); // a second time: the same window, brought back
    QCOMPARE(f.app->findForm(form), window);
    QCOMPARE(f.app->forms().size(), loaded);
    QVERIFY(!(window->windowState() & Qt::WindowMinimized));
    QVERIFY(f.platform.boxes().empty());
    if (form == QLatin1String("frmVariation"))
        return;
    // Closing unloads a tool window.
    QPointer<QWidget> guard(window);
    QVERIFY(window->close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(guard.isNull());
    QVERIFY(!f.app->findForm(form));
    QCOMPARE(f.app->forms().size(), loaded - 1);
}

void TestMainWindow::textEditors_data() {
    QTest::addColumn<bool>("notepad");
    QTest::addColumn<QStringList>("startable");
    QTest::addColumn<QStringList>("tried");
    QTest::addColumn<QString>("boxText");
    const QStringList plain{"gedit", "gnome-text-editor", "kate",      "kwrite", "mousepad", "xed",
                            "pluma", "leafpad",           "featherpad"};
    QTest::newRow("Notepad: kate") << true << QStringList{"kate"} << plain.mid(0, 3) << QString();
    QTest::newRow("Notepad: none") << true << QStringList{} << plain << "Error Opening Notepad";
    QTest::newRow("WordPad: LibreOffice")
        << false << QStringList{"libreoffice"} << QStringList{"libreoffice --writer"} << QString();
    QTest::newRow("WordPad: AbiWord")
        << false << QStringList{"abiword", "gedit"}
        << QStringList{"libreoffice --writer", "abiword"} << QString();
    QTest::newRow("WordPad: a plain editor")
        << false << QStringList{"mousepad"}
        << QStringList{"libreoffice --writer", "abiword", "calligrawords"} + plain.mid(0, 5)
        << QString();
    QTest::newRow("WordPad: none")
        << false << QStringList{}
        << QStringList{"libreoffice --writer", "abiword", "calligrawords"} + plain
        << "File not found: featherpad";
}

void TestMainWindow::textEditors() {
    QFETCH(bool, notepad);
    QFETCH(QStringList, startable);
    QFETCH(QStringList, tried);
    QFETCH(QString, boxText);
    AppFixture f;
    for (const QString& program : startable)
        f.platform.startable.insert(program);
    if (notepad)
        f.main().mnuToolsEditorsNotepad->trigger();
    else
        f.main().mnuToolsEditorsWordPad->trigger();
    QStringList started;
    for (const PlatformCall& call : f.platform.ofKind(QStringLiteral("start")))
        started << call.text;
    QCOMPARE(started, tried);
    const auto boxes = f.platform.boxes();
    if (boxText.isEmpty()) {
        QVERIFY(boxes.empty());
        return;
    }
    QCOMPARE(boxes.size(), size_t(1));
    QCOMPARE(boxes[0].text, boxText);
    QCOMPARE(boxes[0].buttons, MsgButtons::OK);
    if (notepad) {
        QCOMPARE(boxes[0].title, QStringLiteral("Error"));
        QCOMPARE(boxes[0].icon, MsgIcon::None);
    } else {
        QCOMPARE(boxes[0].title, QString()); // the program's default title
        QCOMPARE(boxes[0].icon, MsgIcon::Exclamation);
    }
}

void TestMainWindow::desktopDefaultEditor() {
    QTemporaryDir dir;
    const QByteArray config = QFile::encodeName(dir.filePath(QStringLiteral("config")));
    const QByteArray data = QFile::encodeName(dir.filePath(QStringLiteral("data")));
    const QByteArray oldConfig = qgetenv("XDG_CONFIG_HOME");
    const QByteArray oldData = qgetenv("XDG_DATA_DIRS");
    qputenv("XDG_CONFIG_HOME", config);
    qputenv("XDG_DATA_DIRS", data);
    auto restore = qScopeGuard([&] {
        qputenv("XDG_CONFIG_HOME", oldConfig);
        qputenv("XDG_DATA_DIRS", oldData);
    });
    QVERIFY(!desktopTextEditor());
    QDir().mkpath(QString::fromLocal8Bit(config));
    QDir().mkpath(QString::fromLocal8Bit(data) + QStringLiteral("/applications"));
    QFile list(QString::fromLocal8Bit(config) + QStringLiteral("/mimeapps.list"));
    QVERIFY(list.open(QIODevice::WriteOnly));
    list.write(
        "[Added Associations]\ntext/plain=other.desktop;\n"
        "[Default "
        "Applications]\ntext/html=browser.desktop\ntext/plain=missing.desktop;notes.desktop;\n");
    list.close();
    QFile entry(QString::fromLocal8Bit(data) + QStringLiteral("/applications/notes.desktop"));
    QVERIFY(entry.open(QIODevice::WriteOnly));
    entry.write("[Desktop Entry]\nName=Notes\nExec=\"/opt/my notes/notes\" --new-window %F\n"
                "[Desktop Action x]\nExec=wrong\n");
    entry.close();
    const auto editor = desktopTextEditor();
    QVERIFY(editor);
    QCOMPARE(editor->program, QStringLiteral("/opt/my notes/notes"));
    QCOMPARE(editor->arguments, QStringList{"--new-window"});
    // It is tried after the well-known plain editors.
    const auto candidates = editorCandidates(EditorKind::Plain);
    QCOMPARE(candidates.back(), *editor);
    QCOMPARE(candidates.size(), size_t(10));
}

void TestMainWindow::openDialogStartFolder() {
    AppFixture f;
    frmMain& w = f.main();
    QCOMPARE(w.openDialogStartDir(), QDir::homePath()); // no samples beside this executable
    const QString samples = f.platform.path(QStringLiteral("samples"));
    QVERIFY(QDir().mkpath(samples));
    f.platform.queueOpenCancel();
    w.mnuFileOpen_Click();
    QCOMPARE(f.platform.lastOpenDir, samples);
    QVERIFY(QDir().mkpath(f.platform.path(QStringLiteral("mine"))));
    f.open(f.writeFile(QStringLiteral("mine/games.pgn"), kThreeGames));
    f.platform.queueOpenCancel();
    w.mnuFileOpen_Click();
    QCOMPARE(f.platform.lastOpenDir, f.platform.path(QStringLiteral("mine")));
}

void TestMainWindow::bundledSamplesReplay() {
    const QDir dir(QStringLiteral(TOLVISK_DATA_DIR "/samples"));
    const QStringList files = dir.entryList({QStringLiteral("*.pgn")}, QDir::Files);
    QVERIFY(!files.isEmpty());
    int games = 0;
    int fromPosition = 0;
    for (const QString& name : files) {
        AppFixture f;
        frmMain& w = f.main();
        f.open(dir.filePath(name));
        const int16_t count = w.lstPGNFiles->ListCount();
        QVERIFY2(count > 0, qPrintable(name));
        for (int16_t i = 0; i < count; ++i) {
            w.lstPGNFiles->setListIndex(i);
            w.mnuFileLoad_Click();
            QVERIFY2(f.platform.boxes().empty(),
                     qPrintable(QStringLiteral("%1 game %2").arg(name).arg(i + 1)));
            QVERIFY(w.Tavlon1->GameLength() > 0);
            w.mnuPlayerMoveLast_Click();
            QCOMPARE(w.Tavlon1->Ply(), w.Tavlon1->GameLength());
            fromPosition += w.IsForsythGame ? 1 : 0;
            ++games;
        }
    }
    QVERIFY2(games >= 30, qPrintable(QString::number(games)));
    QVERIFY(fromPosition >= 1);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
