// The main window as a whole: start and close, the start-up file, the toolbar, the layout rules
// and auto play.

#include "platform/Errors.h"
#include "support/AppFixture.h"
#include "variation/frmVariation.h"
#include "viewer/StartupFile.h"
#include "viewer/Twips.h"

#include <QMenuBar>
#include <QTest>

using namespace tolvisk;

namespace {

const QByteArray kDefaultStartup = crlf("Q\nPNP\n 1 \nL\n16777215\n12632256\n");

// A fixture whose start-up file is written before the window loads.
struct Started {
    ScriptedPlatform platform;
    std::unique_ptr<Application> app;
    explicit Started(const QByteArray* startup) {
        if (startup) {
            QFile file(platform.path(QStringLiteral("tolvisk.txt")));
            file.open(QIODevice::WriteOnly);
            file.write(*startup);
        }
        app = std::make_unique<Application>(platform);
        app->loadMain();
    }
};

const QByteArray kThreeGames = crlf("[Event \"A\"]\n\n1. e4 e5 *\n\n"
                                    "[Event \"B\"]\n\n1. d4 *\n\n"
                                    "[Event \"C\"]\n\n1. c4 c5 2. Nc3 *\n\n");

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT
private slots:
    void startsAsDesigned();
    void menusAndToolbar();
    void startupFile_data();
    void startupFile();
    void startupFileConversions();
    void closingWritesTheStartupFile();
    void cancelKeepsTheWindowOpen_data();
    void cancelKeepsTheWindowOpen();
    void unloadClosesTheOtherWindows();
    void toolbarDispatch_data();
    void toolbarDispatch();
    void resizeRules_data();
    void resizeRules();
    void hidingTheToolbarRaisesTheList();
    void editors();
    void autoPlay_data();
    void autoPlay();
    void autoPlayButtons();
};

void TestMainWindow::startsAsDesigned() {
    Started s(nullptr);
    frmMain& w = s.app->main();
    Module1& m = s.app->module();
    QCOMPARE(w.windowTitle(), QStringLiteral("Ravelund"));
    QCOMPARE(m.MainLoaded, int16_t(1));
    QCOMPARE(m.APSpeed, int16_t(1));
    QCOMPARE(m.APMode, QStringLiteral("PNP"));
    QCOMPARE(m.MoveListStyle, QStringLiteral("L"));
    QCOMPARE(m.CurrentGame, int16_t(-1));
    QCOMPARE(w.lstTags->ListCount(), int16_t(7));
    QCOMPARE(w.lblPly->text(), QStringLiteral("Ply: 0"));
    QVERIFY(!w.Timer1->Enabled());
    QCOMPARE(w.Timer1->Interval(), 1000);
    QCOMPARE(w.Timer2->Interval(), 500);
    // The variation board is loaded, hidden, with the main board's settings.
    frmVariation& v = s.app->variation();
    QVERIFY(v.isHidden());
    QCOMPARE(v.Tavlon1->DarkSquareColor(), 0xC0C0C0);
    QCOMPARE(s.app->forms().size(), size_t(2));
    // Controls stand at their design places.
    QCOMPARE(w.lstTags->pos(), twipsRect(5940, 420, 0, 0).topLeft());
    QCOMPARE(w.cmdSetAnno->geometry(), twipsRect(7020, 4740, 1635, 375));
    QCOMPARE(w.Tavlon1->geometry(), twipsRect(0, 0, 4455, 5235));
    QCOMPARE(w.Picture1->geometry(), twipsRect(330, 420, 4035, 4035));
    QCOMPARE(w.cmdSetAnno->text(), QStringLiteral("Apply Annotation"));
    QCOMPARE(w.lstPGNFiles->toolTip(), QStringLiteral("Games loaded into database"));
    QCOMPARE(w.txtPreview->toolTip(), QStringLiteral("Preview of game that is selected"));
    QCOMPARE(w.topTwips(w.txtPreview), 5700);
}

void TestMainWindow::menusAndToolbar() {
    Started s(nullptr);
    frmMain& w = s.app->main();
    QStringList captions;
    for (QAction* a : w.menuBar()->actions())
        captions << a->text();
    QCOMPARE(captions, (QStringList{"&File", "&Edit", "&View", "&Options", "&Board", "&Player",
                                    "&Tools", "&Help"}));
    QStringList file;
    for (QAction* a : w.mnuFile->actions())
        file << (a->isSeparator() ? QStringLiteral("-") : a->text());
    QCOMPARE(file, (QStringList{"&New", "Open...", "Load Game", "&Close", "-", "&Save Game",
                                "Save Game &As...", "Save All", "Save All As...", "-", "&Print...",
                                "-", "E&xit"}));
    QCOMPARE(w.mnuFileOpen->shortcut(), QKeySequence(QStringLiteral("Ctrl+O")));
    QCOMPARE(w.mnuFileExit->shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
    QCOMPARE(w.mnuEditFind->shortcut(), QKeySequence(QStringLiteral("Ctrl+F")));
    QCOMPARE(w.mnuHelpAbout->text(), QStringLiteral("&About "));
    QVERIFY(!w.mnuToolsVariationBoard->isVisible());
    QVERIFY(w.mnuViewToolbar->isChecked());
    QVERIFY(w.mnuViewStatusBar->isChecked());
    QCOMPARE(w.Toolbar1->buttonCount(), 27);
    const QStringList keys{"New",     "",      "Open",      "Close",  "Load",    "Save",  "SaveAll",
                           "",        "Print", "",          "Delete", "",        "Copy",  "Find",
                           "",        "Cycle", "Variation", "",       "Prev",    "Start", "Back",
                           "Forward", "End",   "Next",      "",       "StartAP", "StopAP"};
    for (int i = 1; i <= 27; ++i)
        QCOMPARE(w.Toolbar1->keyAt(i), keys[i - 1]);
    QCOMPARE(w.Toolbar1->button(QStringLiteral("Cycle"))->toolTip(),
             QStringLiteral("Reverse View"));
    QVERIFY(w.Toolbar1->button(QStringLiteral("Delete"))->isCheckable());
    for (const QString& key : keys)
        if (!key.isEmpty())
            QVERIFY(!w.Toolbar1->button(key)->icon().isNull());
}

void TestMainWindow::startupFile_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QString>("promotion");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("speed");
    QTest::addColumn<QString>("style");
    QTest::addColumn<int>("light");
    QTest::addColumn<int>("dark");
    const QString Q = "Q", PNP = "PNP", L = "L";
    const int W = 0xFFFFFF, G = 0xC0C0C0;
    QTest::newRow("no file") << QByteArray() << false << Q << PNP << 1 << L << W << G;
    QTest::newRow("all six") << crlf("R\nPS\n 12 \nA\n255\n65280\n") << true << "R"
                             << "PS" << 12 << "A" << 255 << 65280;
    QTest::newRow("one line") << crlf("R\n") << true << Q << PNP << 1 << L << W << G;
    QTest::newRow("three lines") << crlf("R\nPR\n 5 \n") << true << Q << "PR" << 1 << L << W << G;
    QTest::newRow("five lines") << crlf("R\nPR\n 5 \nP\n255\n") << true << Q << "PR" << 1 << "P"
                                << W << G;
    QTest::newRow("line 5 not a number") << crlf("B\nPR\n 5 \nP\nwhite\n255\n") << true << "B"
                                         << "PR" << 1 << "P" << W << G;
    QTest::newRow("line 6 not a number") << crlf("B\nPR\n 5 \nP\n255\nx\n") << true << "B"
                                         << "PR" << 1 << "P" << 255 << G;
    QTest::newRow("speed beyond 16 bits") << crlf("B\nPR\n 40000 \nP\n255\n256\n") << true << "B"
                                          << "PR" << 1 << "P" << 255 << 256;
    QTest::newRow("blanks round numbers, speed without blanks")
        << crlf("K\nPPP\n90\nL\n 255 \n 256 \n") << true << "K"
        << "PPP" << 90 << L << 255 << 256;
    QTest::newRow("speed with letters, half to even")
        << crlf("Q\nPS\n2.5x\nL\n1\n2\n") << true << Q << "PS" << 2 << L << 1 << 2;
    QTest::newRow("more than six lines") << crlf("R\nPS\n 3 \nA\n1\n2\ngarbage\n") << true << "R"
                                         << "PS" << 3 << "A" << 1 << 2;
    QTest::newRow("hand-edited nonsense keeps the defaults")
        << crlf("X\nZZ\n 0 \n\n1\n2\n") << true << Q << PNP << 1 << L << 1 << 2;
}

void TestMainWindow::startupFile() {
    QFETCH(QByteArray, file);
    QFETCH(bool, exists);
    QFETCH(QString, promotion);
    QFETCH(QString, mode);
    QFETCH(int, speed);
    QFETCH(QString, style);
    QFETCH(int, light);
    QFETCH(int, dark);
    Started s(exists ? &file : nullptr);
    frmMain& w = s.app->main();
    QCOMPARE(w.Tavlon1->PromotionPiece(), promotion);
    QCOMPARE(s.app->module().APMode, mode);
    QCOMPARE(int(s.app->module().APSpeed), speed);
    QCOMPARE(s.app->module().MoveListStyle, style);
    QCOMPARE(int(w.Tavlon1->LightSquareColor()), light);
    QCOMPARE(int(w.Tavlon1->DarkSquareColor()), dark);
    // The variation board got the same settings.
    QCOMPARE(s.app->variation().Tavlon1->PromotionPiece(), promotion);
    QCOMPARE(int(s.app->variation().Tavlon1->LightSquareColor()), light);
    QVERIFY(s.platform.boxes().empty());
}

void TestMainWindow::startupFileConversions() {
    QCOMPARE(leadingNumber(QStringLiteral(" 12abc")), 12.0);
    QCOMPARE(leadingNumber(QStringLiteral("abc")), 0.0);
    QCOMPARE(roundToInt16(2.5), int16_t(2));
    QCOMPARE(roundToInt16(3.5), int16_t(4));
    QVERIFY_THROWS_EXCEPTION(tolvisk::RuntimeError, roundToInt16(32768));
    QCOMPARE(toInt32(QStringLiteral(" 16777215 ")), 16777215);
    QVERIFY_THROWS_EXCEPTION(tolvisk::RuntimeError, toInt32(QString()));
    QCOMPARE(numberLine(1), QStringLiteral(" 1 "));
    QCOMPARE(numberLine(-5), QStringLiteral("-5 "));
}

void TestMainWindow::closingWritesTheStartupFile() {
    Started s(nullptr);
    const QString path = s.platform.path(QStringLiteral("tolvisk.txt"));
    QVERIFY(!QFile::exists(path));
    QVERIFY(!s.app->main().Form_QueryUnload());
    QCOMPARE(AppFixture::readFile(path), kDefaultStartup);
    // Written as read: a second run reads the same settings back.
    s.app->main().Tavlon1->setPromotionPiece(QStringLiteral("K"));
    s.app->module().APSpeed = 45;
    QVERIFY(!s.app->main().Form_QueryUnload());
    QCOMPARE(AppFixture::readFile(path), crlf("K\nPNP\n 45 \nL\n16777215\n12632256\n"));
    // An unwritable file costs nothing but the settings.
    s.platform.unwritable << path;
    QVERIFY(!s.app->main().Form_QueryUnload());
    QVERIFY(s.platform.boxes().empty());
}

void TestMainWindow::cancelKeepsTheWindowOpen_data() {
    QTest::addColumn<bool>("gameChanged");
    QTest::addColumn<bool>("fileChanged");
    QTest::addColumn<QString>("title");
    QTest::newRow("game prompt") << true << false << "Unsaved Game Changes";
    QTest::newRow("file prompt") << false << true << "Unsaved File Changes";
}

void TestMainWindow::cancelKeepsTheWindowOpen() {
    QFETCH(bool, gameChanged);
    QFETCH(bool, fileChanged);
    QFETCH(QString, title);
    Started s(nullptr);
    frmMain& w = s.app->main();
    w.Tavlon1->setGameChanged(gameChanged);
    s.app->module().FileChanged = fileChanged;
    s.platform.clear();
    s.platform.queueMsgBox(MsgResult::Cancel);
    QCloseEvent event;
    QApplication::sendEvent(&w, &event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(s.platform.boxes().size(), size_t(1));
    QCOMPARE(s.platform.boxes()[0].title, title);
    QVERIFY(!QFile::exists(s.platform.path(QStringLiteral("tolvisk.txt"))));
    QCOMPARE(s.app->module().MainLoaded, int16_t(1));
}

void TestMainWindow::unloadClosesTheOtherWindows() {
    Started s(nullptr);
    frmMain& w = s.app->main();
    // While the main window is loaded the variation board only hides.
    s.app->variation().show();
    QVERIFY(!s.app->variation().close());
    QVERIFY(s.app->variation().isHidden());
    w.mnuToolsEditTags_Click();
    w.mnuEditFind_Click();
    QCOMPARE(s.app->forms().size(), size_t(4));
    QCOMPARE(s.app->findForm(QStringLiteral("frmEditTags"))->windowTitle(),
             QStringLiteral("Tag Editor"));
    QCloseEvent event;
    QApplication::sendEvent(&w, &event);
    QVERIFY(event.isAccepted());
    QCOMPARE(s.app->module().MainLoaded, int16_t(0));
    QCOMPARE(s.app->forms().size(), size_t(1));
    QVERIFY(QFile::exists(s.platform.path(QStringLiteral("tolvisk.txt"))));
}

void TestMainWindow::toolbarDispatch_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("effect");
    QTest::newRow("New") << "New"
                         << "new game";
    QTest::newRow("Open") << "Open"
                          << "open dialog";
    QTest::newRow("Close") << "Close"
                           << "close box";
    QTest::newRow("Load") << "Load"
                          << "loaded";
    QTest::newRow("Save") << "Save"
                          << "saved";
    QTest::newRow("SaveAll") << "SaveAll"
                             << "save dialog";
    QTest::newRow("Delete") << "Delete"
                            << "marked";
    QTest::newRow("Find") << "Find"
                          << "window frmFind";
    QTest::newRow("Cycle") << "Cycle"
                           << "view B";
    QTest::newRow("Variation") << "Variation"
                               << "window frmVariation";
    QTest::newRow("Prev") << "Prev"
                          << "entry 0";
    QTest::newRow("Next") << "Next"
                          << "entry 1";
    QTest::newRow("Start") << "Start"
                           << "ply 0";
    QTest::newRow("Back") << "Back"
                          << "ply 1";
    QTest::newRow("Forward") << "Forward"
                             << "ply 3";
    QTest::newRow("End") << "End"
                         << "ply 4";
    QTest::newRow("StartAP") << "StartAP"
                             << "running";
    QTest::newRow("StopAP") << "StopAP"
                            << "stopped";
    QTest::newRow("Print does nothing yet") << "Print"
                                            << "nothing";
    QTest::newRow("Copy does nothing yet") << "Copy"
                                           << "nothing";
    QTest::newRow("separator") << ""
                               << "nothing";
    QTest::newRow("unknown") << "Bogus"
                             << "nothing";
}

void TestMainWindow::toolbarDispatch() {
    QFETCH(QString, key);
    QFETCH(QString, effect);
    AppFixture f;
    f.openText(crlf("[Event \"A\"]\n\n1. e4 e5 2. Nf3 Nc6 *\n\n[Event \"B\"]\n\n1. d4 *\n\n[Event "
                    "\"C\"]\n\n1. c4 *\n\n"));
    frmMain& w = f.main();
    w.lstPGNFiles->setListIndex(1);
    w.mnuFileLoad_Click();
    w.lstPGNFiles->setListIndex(0);
    w.mnuFileLoad_Click();
    w.Tavlon1->GotoPly(2);
    f.m().APRunning = effect == QLatin1String("stopped");
    f.platform.clear();
    if (key == QLatin1String("Open"))
        f.platform.queueOpenCancel();
    if (key == QLatin1String("Close"))
        f.platform.queueMsgBox(MsgResult::No);
    if (key == QLatin1String("SaveAll")) {
        f.m().PGNFileName.clear();
        f.platform.queueSaveCancel();
    }
    if (key == QLatin1String("Save"))
        w.Tavlon1->setGameChanged(true);
    w.Toolbar1_ButtonClick(key);
    if (effect == QLatin1String("new game"))
        QCOMPARE(f.m().CurrentGame, int16_t(-1));
    else if (effect == QLatin1String("open dialog"))
        QCOMPARE(f.platform.ofKind(QStringLiteral("showOpen")).size(), size_t(1));
    else if (effect == QLatin1String("close box"))
        QCOMPARE(f.platform.boxes().at(0).title, QStringLiteral("Confirm Clear All Games"));
    else if (effect == QLatin1String("loaded"))
        QCOMPARE(w.Tavlon1->Ply(), int16_t(0));
    else if (effect == QLatin1String("saved"))
        QVERIFY(f.m().FileChanged);
    else if (effect == QLatin1String("save dialog"))
        QCOMPARE(f.platform.ofKind(QStringLiteral("showSave")).size(), size_t(1));
    else if (effect == QLatin1String("marked"))
        QVERIFY(f.m().GameStore[1].Deleted);
    else if (effect.startsWith(QLatin1String("window ")))
        QVERIFY(f.app->findForm(effect.mid(7))->isVisible());
    else if (effect == QLatin1String("view B"))
        QCOMPARE(w.Tavlon1->ViewColor(), QStringLiteral("B"));
    else if (effect.startsWith(QLatin1String("entry ")))
        QCOMPARE(int(w.lstPGNFiles->ListIndex()), effect.mid(6).toInt());
    else if (effect.startsWith(QLatin1String("ply ")))
        QCOMPARE(int(w.Tavlon1->Ply()), effect.mid(4).toInt());
    else if (effect == QLatin1String("running"))
        QVERIFY(f.m().APRunning && w.Timer1->Enabled());
    else if (effect == QLatin1String("stopped"))
        QVERIFY(!f.m().APRunning && !w.Timer1->Enabled());
    else {
        QCOMPARE(w.Tavlon1->Ply(), int16_t(2));
        QCOMPARE(w.lstPGNFiles->ListIndex(), int16_t(0));
        QVERIFY(f.platform.calls.empty());
    }
}

void TestMainWindow::resizeRules_data() {
    QTest::addColumn<bool>("toolbar");
    QTest::addColumn<bool>("statusBar");
    QTest::addColumn<QSize>("sizeTwips");
    QTest::newRow("design size, both bars") << true << true << QSize(9210, 7800);
    QTest::newRow("larger, both bars") << true << true << QSize(14000, 10000);
    QTest::newRow("larger, no toolbar") << false << true << QSize(14000, 10000);
    QTest::newRow("larger, no bars") << false << false << QSize(12000, 9000);
}

void TestMainWindow::resizeRules() {
    QFETCH(bool, toolbar);
    QFETCH(bool, statusBar);
    QFETCH(QSize, sizeTwips);
    Started s(nullptr);
    frmMain& w = s.app->main();
    w.show();
    if (!toolbar)
        w.mnuViewToolbar_Click();
    if (!statusBar)
        w.mnuViewStatusBar_Click();
    QCOMPARE(w.mnuViewToolbar->isChecked(), toolbar);
    w.resize(twipsToPx(sizeTwips.width()), twipsToPx(sizeTwips.height()));
    QApplication::processEvents();
    w.Form_Resize();
    QSize outer = w.frameGeometry().size();
    if (outer == w.size())
        outer += QSize(twipsToPx(120), twipsToPx(420));
    const int W = pxToTwips(outer.width()), H = pxToTwips(outer.height());
    const int bars = (toolbar ? pxToTwips(w.Toolbar1->height()) : 0) +
                     (statusBar ? pxToTwips(w.sbStatusBar->height()) : 0);
    auto near = [](int px, int twips) { return std::abs(px - twipsToPx(twips)) <= 1; };
    QVERIFY(near(w.txtMoveList->width(), W - 5940 - 300));
    QVERIFY(near(w.lstTags->width(), W - 5940 - 300));
    QVERIFY(near(w.lstPGNFiles->width(), W - 1760));
    QVERIFY(near(w.lstPGNFiles->height(), H - bars - 5265 - 840));
    QCOMPARE(w.txtPreview->height(), w.lstPGNFiles->height());
    QCOMPARE(w.txtPreview->width(), twipsToPx(1455));
    QCOMPARE(w.topTwips(w.lstPGNFiles), toolbar ? 5700 : 5700 - pxToTwips(w.Toolbar1->height()));
}

void TestMainWindow::hidingTheToolbarRaisesTheList() {
    Started s(nullptr);
    frmMain& w = s.app->main();
    w.show();
    QApplication::processEvents();
    const int bottom = w.lstPGNFiles->mapTo(&w, QPoint(0, w.lstPGNFiles->height())).y();
    const int top = w.lstPGNFiles->mapTo(&w, QPoint(0, 0)).y();
    w.mnuViewToolbar_Click();
    QApplication::processEvents();
    QVERIFY(w.Toolbar1->isHidden());
    const int newTop = w.lstPGNFiles->mapTo(&w, QPoint(0, 0)).y();
    const int newBottom = w.lstPGNFiles->mapTo(&w, QPoint(0, w.lstPGNFiles->height())).y();
    QVERIFY(newTop < top);
    QVERIFY(std::abs(newBottom - bottom) <= 2);
}

void TestMainWindow::editors() {
    Started s(nullptr);
    frmMain& w = s.app->main();
    s.platform.clear();
    w.mnuToolsEditorsNotepad_Click();
    auto boxes = s.platform.boxes();
    QCOMPARE(boxes.size(), size_t(1));
    QCOMPARE(boxes[0].text, QStringLiteral("Error Opening Notepad"));
    QCOMPARE(boxes[0].title, QStringLiteral("Error"));
    QCOMPARE(boxes[0].icon, MsgIcon::None);
    QCOMPARE(s.platform.ofKind(QStringLiteral("start")).front().text, QStringLiteral("gedit"));
    s.platform.clear();
    w.mnuToolsEditorsWordPad_Click();
    boxes = s.platform.boxes();
    QCOMPARE(boxes.size(), size_t(1));
    QCOMPARE(boxes[0].icon, MsgIcon::Exclamation);
    QCOMPARE(boxes[0].title, QString());
    QCOMPARE(s.platform.ofKind(QStringLiteral("start")).front().text,
             QStringLiteral("libreoffice --writer"));
    s.platform.clear();
    s.platform.startable << QStringLiteral("mousepad");
    w.mnuToolsEditorsNotepad_Click();
    QVERIFY(s.platform.boxes().empty());
    QCOMPARE(s.platform.ofKind(QStringLiteral("start")).back().text, QStringLiteral("mousepad"));
}

void TestMainWindow::autoPlay_data() {
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("startEntry");
    // After each tick: "entry:ply" and whether the timer runs.
    QTest::addColumn<QStringList>("ticks");
    QTest::newRow("PS stops at the end")
        << "PS" << 0 << QStringList{"0:1 on", "0:2 on", "0:2 off", "0:2 off"};
    QTest::newRow("PR repeats") << "PR" << 0 << QStringList{"0:1 on", "0:2 on", "0:0 on", "0:1 on"};
    QTest::newRow("PNP goes on to the next game and stops at the last")
        << "PNP" << 1 << QStringList{"1:1 on", "2:0 on", "2:1 on", "2:2 on", "2:3 on", "2:3 off"};
    QTest::newRow("PPP goes back and stops at the first")
        << "PPP" << 1 << QStringList{"1:1 on", "0:0 on", "0:1 on", "0:2 on", "0:2 off"};
    QTest::newRow("unknown mode does nothing") << "XX" << 0 << QStringList{"0:0 on", "0:0 on"};
}

void TestMainWindow::autoPlay() {
    QFETCH(QString, mode);
    QFETCH(int, startEntry);
    QFETCH(QStringList, ticks);
    AppFixture f;
    f.openText(kThreeGames);
    frmMain& w = f.main();
    w.lstPGNFiles->setListIndex(int16_t(startEntry));
    w.mnuFileLoad_Click();
    f.m().APMode = mode;
    f.m().APSpeed = 90;
    w.mnuPlayerStartAP_Click();
    QCOMPARE(w.Timer1->Interval(), 90000);
    QVERIFY(w.Timer1->Enabled());
    for (const QString& expected : ticks) {
        w.Timer1_Timer();
        const QString state = QStringLiteral("%1:%2 %3")
                                  .arg(w.lstPGNFiles->ListIndex())
                                  .arg(w.Tavlon1->Ply())
                                  .arg(w.Timer1->Enabled() ? "on" : "off");
        QCOMPARE(state, expected);
    }
}

void TestMainWindow::autoPlayButtons() {
    AppFixture f;
    f.openText(kThreeGames);
    frmMain& w = f.main();
    w.mnuFileLoad_Click();
    w.mnuPlayerStartAP_Click();
    QVERIFY(f.m().APRunning);
    QVERIFY(!w.Toolbar1->button(QStringLiteral("StartAP"))->isEnabled());
    QVERIFY(w.Toolbar1->button(QStringLiteral("StopAP"))->isEnabled());
    QVERIFY(!w.mnuPlayerStartAP->isEnabled());
    QVERIFY(w.mnuPlayerStopAP->isEnabled());
    w.mnuPlayerMoveLast_Click();
    w.mnuPlayerStopAP_Click();
    QVERIFY(!f.m().APRunning);
    // At the end of the game the state rules keep Start disabled.
    QVERIFY(!w.Toolbar1->button(QStringLiteral("StartAP"))->isEnabled());
    QVERIFY(!w.mnuPlayerStopAP->isEnabled());
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
