// The main window as a whole: the start and closing sequences, the layout rules, the toolbar,
// the tool windows, the editors, and the bundled samples.

#include "support/AppFixture.h"

#include "platform/Twips.h"
#include "viewer/TextEditors.h"
#include "viewer/ToolbarIcons.h"

#include <QApplication>
#include <QFile>
#include <QMenuBar>
#include <QTest>

using namespace tolvisk;

namespace {

int px(int twips) {
    return twipsToPx(twips);
}

// A control's place in the window's client area (below the menu bar), in pixels.
QRect clientRect(frmMain& w, QWidget* control) {
    const QPoint at = control->mapTo(&w, QPoint(0, 0)) - QPoint(0, w.menuBar()->height());
    return QRect(at, control->size());
}

struct ShownFixture : AppFixture {
    ShownFixture() {
        main().show();
        QVERIFY(QTest::qWaitForWindowExposed(&main()));
    }
};

const QByteArray kThreeGames =
    crlf("[Event \"A\"]\n\n1. e4 e5 2. Nf3 *\n\n[Event \"B\"]\n\n1. d4 *\n\n"
         "[Event \"C\"]\n\n1. c4 *\n\n");

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void startSequence();
    void closing_data();
    void closing();
    void otherWindowsGoWithTheMain();
    void layout_data();
    void layout();
    void barsAndNarrowing();
    void toolbar();
    void toolWindows_data();
    void toolWindows();
    void textEditors_data();
    void textEditors();
};

void TestMainWindow::initTestCase() {
    QApplication::setQuitOnLastWindowClosed(false);
    quietHeadlessNotes();
    // The editor tests must not depend on this machine's desktop settings.
    static QTemporaryDir xdg;
    for (const char* name :
         {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_HOME", "XDG_DATA_DIRS"})
        qputenv(name, xdg.filePath(QString::fromLatin1(name)).toLocal8Bit());
}

void TestMainWindow::startSequence() {
    AppFixture first; // for its platform's folder
    first.writeFile(QStringLiteral("tolvisk.txt"), "R\r\nPPP\r\n 7 \r\nA\r\n255\r\n65280\r\n");
    auto app = makeApplication(first.platform);
    app->module().APRunning = true;
    frmMain& w = app->loadMain();
    QVERIFY(!app->module().APRunning);
    QCOMPARE(app->module().MainLoaded, int16_t(1));
    QVERIFY(!w.Timer1->Enabled() && !w.Timer2->Enabled());
    QCOMPARE(w.Timer1->Interval(), 1000);
    QCOMPARE(w.Timer2->Interval(), 500);
    // The variation board is loaded hidden after the file was read, and takes its settings.
    QWidget* variation = app->findForm(QStringLiteral("frmVariation"));
    QVERIFY(app->forms() == (std::vector<QWidget*>{&w, variation}));
    QVERIFY(variation->isHidden());
    const Tavlon* board = app->boardOf(QStringLiteral("frmVariation"));
    QCOMPARE(board->LightSquareColor(), 255);
    QCOMPARE(board->DarkSquareColor(), 65280);
    QCOMPARE(board->PromotionPiece(), QStringLiteral("R"));
    // A new empty game, its labels and the state of the commands.
    QCOMPARE(app->module().CurrentGame, int16_t(-1));
    QCOMPARE(w.lstTags->ListCount(), int16_t(7));
    QCOMPARE(w.lblGameLength->text(), QStringLiteral("Length: 0"));
    for (const char* key : {"Start", "Back", "Forward", "End", "StartAP", "StopAP", "Load", "Save"})
        QVERIFY2(!w.Toolbar1->button(QString::fromLatin1(key))->isEnabled(), key);
    QVERIFY(!w.mnuToolsVariationBoard->isVisible() && !w.isVisible());
    QVERIFY(first.platform.boxes().empty());
}

void TestMainWindow::closing_data() {
    QTest::addColumn<QString>("how");
    QTest::addColumn<bool>("gameChanged");
    QTest::addColumn<bool>("fileChanged");
    QTest::addColumn<QList<int>>("answers"); // MsgResult per prompt
    QTest::addColumn<QString>("prompts");    // g game, f file
    QTest::addColumn<bool>("closes");
    const int no = int(MsgResult::No), cancel = int(MsgResult::Cancel);
    QTest::newRow("nothing to save") << "close box" << false << false << QList<int>{} << "" << true;
    QTest::newRow("both declined")
        << "close box" << true << true << QList<int>{no, no} << "gf" << true;
    QTest::newRow("game prompt cancelled")
        << "close box" << true << true << QList<int>{cancel} << "g" << false;
    QTest::newRow("file prompt cancelled")
        << "close box" << true << true << QList<int>{no, cancel} << "gf" << false;
    QTest::newRow("only the file, cancelled")
        << "close box" << false << true << QList<int>{cancel} << "f" << false;
    // Exit and a close from the system take the same way.
    QTest::newRow("Exit") << "Exit" << true << false << QList<int>{cancel} << "g" << false;
    QTest::newRow("system") << "system" << false << false << QList<int>{} << "" << true;
}

void TestMainWindow::closing() {
    QFETCH(QString, how);
    QFETCH(bool, gameChanged);
    QFETCH(bool, fileChanged);
    QFETCH(QList<int>, answers);
    QFETCH(QString, prompts);
    QFETCH(bool, closes);
    ShownFixture f;
    frmMain& w = f.main();
    const QString startup = f.writeFile(QStringLiteral("tolvisk.txt"), "old");
    w.Tavlon1->setGameChanged(gameChanged);
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
        QApplication::sendEvent(&w, &event);
        accepted = event.isAccepted();
    }
    QCOMPARE(accepted, closes);
    QString shown;
    for (const PlatformCall& box : f.platform.boxes())
        shown += box.title == QLatin1String("Unsaved Game Changes") ? u'g' : u'f';
    QCOMPARE(shown, prompts);
    QCOMPARE(AppFixture::readFile(startup),
             closes ? QByteArray("Q\r\nPNP\r\n 1 \r\nL\r\n16777215\r\n12632256\r\n") : "old");
    QCOMPARE(f.m().MainLoaded, int16_t(closes ? 0 : 1));
    QCOMPARE(f.app->forms().size(), size_t(closes ? 1 : 2)); // the variation board goes too
}

void TestMainWindow::otherWindowsGoWithTheMain() {
    AppFixture f;
    frmMain& w = f.main();
    // While the main window is loaded the variation board only hides.
    QWidget* variation = f.app->findForm(QStringLiteral("frmVariation"));
    w.Toolbar1_ButtonClick(QStringLiteral("Variation"));
    QVERIFY(!variation->close() && variation->isHidden());
    // Unloading takes the windows from the last loaded on, with MainLoaded already cleared.
    for (QAction* command : {w.mnuHelpHelp, w.mnuEditFind, w.mnuToolsEditTags})
        command->trigger();
    QStringList order;
    int16_t mainLoadedSeen = -1;
    for (QWidget* form : f.app->forms())
        if (form != &w)
            connect(form, &QObject::destroyed, this,
                    [&order, name = form->objectName()] { order << name; });
    connect(variation, &QObject::destroyed, this, [&] { mainLoadedSeen = f.m().MainLoaded; });
    w.Form_Unload();
    QCOMPARE(order, (QStringList{"frmEditTags", "frmFind", "frmHelp", "frmVariation"}));
    QCOMPARE(mainLoadedSeen, int16_t(0));
    QVERIFY(f.app->forms() == std::vector<QWidget*>{&w});
    // Tearing a run down (as tests and the end of main() do) asks and writes nothing.
    {
        auto app = makeApplication(f.platform);
        app->loadMain().Tavlon1->setGameChanged(true);
        app->module().FileChanged = true;
        app->main().mnuHelpAbout_Click();
    }
    QVERIFY(f.platform.boxes().empty());
    QVERIFY(!QFile::exists(f.platform.path(QStringLiteral("tolvisk.txt"))));
}

// W and H are the client area (below the menu bar) plus the frame, title and menu bar as the
// rules were drawn for them: 120 twips across and 660 down.
void TestMainWindow::layout_data() {
    QTest::addColumn<int>("clientWidth"); // twips
    QTest::addColumn<int>("clientHeight");
    QTest::addColumn<bool>("toolbar");
    QTest::addColumn<bool>("statusBar");
    for (const auto& [w, h] : {std::pair{9210, 7215}, {12000, 9000}, {7000, 6800}})
        for (bool toolbar : {true, false})
            for (bool status : {true, false})
                QTest::addRow("%dx%d%s%s", w, h, toolbar ? " toolbar" : "", status ? " status" : "")
                    << w << h << toolbar << status;
}

void TestMainWindow::layout() {
    QFETCH(int, clientWidth);
    QFETCH(int, clientHeight);
    QFETCH(bool, toolbar);
    QFETCH(bool, statusBar);
    ShownFixture f;
    frmMain& w = f.main();
    if (!toolbar)
        w.mnuViewToolbar->trigger();
    if (!statusBar)
        w.mnuViewStatusBar->trigger();
    const int menu = w.menuBar()->height();
    w.resize(px(clientWidth), px(clientHeight) + menu);
    QCoreApplication::processEvents();
    const int W = pxToTwips(w.width()) + 120;
    const int H = pxToTwips(w.height() - menu) + 660;
    const int bars = (toolbar ? pxToTwips(w.Toolbar1->height()) : 0) +
                     (statusBar ? pxToTwips(w.sbStatusBar->height()) : 0);
    for (QWidget* box : std::initializer_list<QWidget*>{w.lstTags, w.txtMoveList, w.txtAnnotation})
        QCOMPARE(box->width(), px(W - 5940 - 300));
    QCOMPARE(w.lstPGNFiles->width(), px(W - 1760));
    QCOMPARE(w.lstPGNFiles->height(), px(H - bars - 5265 - 840));
    QCOMPARE(w.txtPreview->height(), w.lstPGNFiles->height());
    QCOMPARE(w.txtPreview->width(), px(1455));
    // Nothing else moves; the lists stand below the board panel, above the status bar.
    QCOMPARE(w.Tavlon1->geometry(), twipsRect(0, 0, 4455, 5235));
    QCOMPARE(w.cmdSetAnno->geometry(), twipsRect(7020, 4740, 1635, 375));
    const QRect list = clientRect(w, w.lstPGNFiles);
    QCOMPARE(list.top(), px(5700) - (toolbar ? 0 : w.Toolbar1->height()));
    QCOMPARE(clientRect(w, w.picMain),
             QRect(0, toolbar ? w.Toolbar1->height() : 0, w.width(), px(5265)));
    QVERIFY(clientRect(w, w.picMain).bottom() < list.top());
    QVERIFY(!statusBar || list.bottom() < clientRect(w, w.sbStatusBar).top());
    QVERIFY(clientRect(w, w.txtPreview).right() < list.left());
    // The buttons and labels show their whole captions; every toolbar button fits.
    for (QPushButton* button : {w.cmdSetAnno, w.cmdClearAnnotation})
        QVERIFY(button->fontMetrics().horizontalAdvance(button->text()) + 8 <= button->width());
    for (QLabel* label : {w.Label1, w.lblMoveNumber, w.lblEPSquare, w.lblGameLength})
        QVERIFY(label->width() >= label->sizeHint().width());
    for (QAction* action : w.Toolbar1->actions())
        QVERIFY(!toolbar || clientWidth < 9210 || action->isSeparator() ||
                w.Toolbar1->widgetForAction(action)->isVisible());
}

void TestMainWindow::barsAndNarrowing() {
    ShownFixture f;
    frmMain& w = f.main();
    const QRect list = clientRect(w, w.lstPGNFiles);
    const QRect preview = clientRect(w, w.txtPreview);
    const int bar = w.Toolbar1->height();
    // Without the toolbar the lists stand higher by its height; their lower edge stays.
    w.mnuViewToolbar->trigger();
    QCoreApplication::processEvents();
    QVERIFY(w.Toolbar1->isHidden() && !w.mnuViewToolbar->isChecked());
    QCOMPARE(clientRect(w, w.lstPGNFiles), list.adjusted(0, -bar, 0, 0));
    QCOMPARE(clientRect(w, w.txtPreview), preview.adjusted(0, -bar, 0, 0));
    w.mnuViewStatusBar->trigger();
    QVERIFY(w.sbStatusBar->isHidden() && !w.mnuViewStatusBar->isChecked());
    w.mnuViewStatusBar->trigger();
    w.mnuViewToolbar->trigger();
    QCoreApplication::processEvents();
    QCOMPARE(w.statusBar(), static_cast<QStatusBar*>(w.sbStatusBar));
    QCOMPARE(clientRect(w, w.lstPGNFiles), list);
    QCOMPARE(clientRect(w, w.txtPreview), preview);
    // Too narrow and too low: the rules give negative sizes, which the controls refuse, keeping
    // their last ones, and the later rules still run. No minimum size holds the window.
    const int menu = w.menuBar()->height();
    w.resize(px(12000), px(9000) + menu);
    const int wide = w.lstTags->width();
    const int high = w.lstPGNFiles->height();
    w.resize(px(4000), px(5000) + menu);
    QCOMPARE(w.width(), px(4000));
    for (QWidget* box : std::initializer_list<QWidget*>{w.lstTags, w.txtMoveList, w.txtAnnotation})
        QCOMPARE(box->width(), wide);
    QCOMPARE(w.lstPGNFiles->width(), px(pxToTwips(w.width()) + 120 - 1760));
    QCOMPARE(w.lstPGNFiles->height(), high);
    QCOMPARE(w.txtPreview->height(), high);
}

void TestMainWindow::toolbar() {
    ShownFixture f;
    frmMain& w = f.main();
    auto click = [&](const char* key) {
        QTest::mouseClick(w.Toolbar1->widgetForAction(w.Toolbar1->button(QString::fromLatin1(key))),
                          Qt::LeftButton);
    };
    // Without a store marking fails: the toolbar passes over it, the menu entry reports it.
    click("Delete");
    QVERIFY(f.platform.boxes().empty());
    w.run(&frmMain::mnuEditmarkDeleted_Click);
    QCOMPARE(f.platform.boxes().at(0).icon, MsgIcon::Critical);
    f.openText(kThreeGames);
    f.platform.clear();
    w.mnuFileLoad_Click();
    click("Forward");
    click("Forward");
    QCOMPARE(w.Tavlon1->Ply(), int16_t(2));
    click("Next");
    QCOMPARE(f.m().CurrentGame, int16_t(2));
    // The toggle stays pressed while the game is marked.
    click("Delete");
    QVERIFY(f.m().GameStore[2].Deleted && w.Toolbar1->pressed(QStringLiteral("Delete")));
    click("Delete");
    QVERIFY(!f.m().GameStore[2].Deleted && !w.Toolbar1->pressed(QStringLiteral("Delete")));
    // "Variation" works while its menu entry is hidden; other keys, compared exactly, do nothing.
    click("Variation");
    QVERIFY(f.app->findForm(QStringLiteral("frmVariation"))->isVisible());
    w.Toolbar1_ButtonClick(QStringLiteral("next"));
    QCOMPARE(f.m().CurrentGame, int16_t(2));
    QVERIFY(f.platform.boxes().empty());
    // Its images: none blank, no two alike.
    QList<QImage> images;
    for (int index = 1; index <= kToolbarIconCount; ++index) {
        const QImage image = toolbarIcon(index).pixmap(16, 16).toImage();
        int inked = 0;
        for (int y = 0; y < 16; ++y)
            for (int x = 0; x < 16; ++x)
                inked += qAlpha(image.pixel(x, y)) > 128 ? 1 : 0;
        QVERIFY2(inked >= 20 && !images.contains(image), qPrintable(QString::number(index)));
        images << image;
    }
}

void TestMainWindow::toolWindows_data() {
    QTest::addColumn<QString>("command"); // a menu entry's caption, or a double click
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("title");
    QTest::newRow("Edit Tags") << "Edit Tags"
                               << "frmEditTags"
                               << "Tag Editor";
    QTest::newRow("Setup Pieces") << "Setup Pieces"
                                  << "frmSetup"
                                  << "Setup Pieces";
    QTest::newRow("Variation Board") << "Variation Board"
                                     << "frmVariation"
                                     << "Variation Board";
    QTest::newRow("Find") << "Find..."
                          << "frmFind"
                          << "Find";
    QTest::newRow("Options") << "Setup Options"
                             << "frmOptions"
                             << "Options";
    QTest::newRow("Help") << "Help"
                          << "frmHelp"
                          << "Ravelund Help";
    QTest::newRow("About") << "&About "
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
    ShownFixture f;
    frmMain& w = f.main();
    auto run = [&] {
        if (command == QLatin1String("lstTags"))
            doubleClickList(*w.lstTags, 0);
        for (QAction* action : w.menuBar()->findChildren<QAction*>())
            if (action->text() == command)
                action->trigger();
    };
    run();
    QWidget* window = f.app->findForm(form);
    QVERIFY(window && window->isVisible() && window->isWindow());
    QCOMPARE(window->windowTitle(), title);
    QCOMPARE(window->windowModality(), Qt::NonModal);
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
    QCOMPARE(f.app->forms().size(), loaded - 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(guard.isNull());
}

void TestMainWindow::textEditors_data() {
    QTest::addColumn<bool>("notepad");
    QTest::addColumn<QStringList>("startable");
    QTest::addColumn<QStringList>("tried");
    QTest::addColumn<QString>("box"); // "title: text", or none
    const QStringList plain{"gedit", "gnome-text-editor", "kate",      "kwrite", "mousepad", "xed",
                            "pluma", "leafpad",           "featherpad"};
    const QStringList writers{"libreoffice --writer", "abiword", "calligrawords"};
    QTest::newRow("Notepad: kate") << true << QStringList{"kate"} << plain.mid(0, 3) << QString();
    QTest::newRow("Notepad: none")
        << true << QStringList{} << plain << "Error: Error Opening Notepad";
    QTest::newRow("WordPad: AbiWord")
        << false << QStringList{"abiword", "gedit"} << writers.mid(0, 2) << QString();
    QTest::newRow("WordPad: a plain editor")
        << false << QStringList{"mousepad"} << writers + plain.mid(0, 5) << QString();
    QTest::newRow("WordPad: none")
        << false << QStringList{} << writers + plain
        << ": No text editor was found. Tried: libreoffice, abiword, calligrawords, gedit, "
           "gnome-text-editor, kate, kwrite, mousepad, xed, pluma, leafpad, featherpad.";
}

void TestMainWindow::textEditors() {
    QFETCH(bool, notepad);
    QFETCH(QStringList, startable);
    QFETCH(QStringList, tried);
    QFETCH(QString, box);
    AppFixture f;
    for (const QString& program : startable)
        f.platform.startable.insert(program);
    (notepad ? f.main().mnuToolsEditorsNotepad : f.main().mnuToolsEditorsWordPad)->trigger();
    QStringList started;
    for (const PlatformCall& call : f.platform.ofKind(QStringLiteral("start")))
        started << call.text;
    QCOMPARE(started, tried);
    QCOMPARE(boxesShown(f.platform), box.isEmpty() ? QStringList() : QStringList{box});
    if (!box.isEmpty())
        QCOMPARE(f.platform.boxes()[0].icon, notepad ? MsgIcon::None : MsgIcon::Exclamation);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
