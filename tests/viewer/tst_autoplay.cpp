// Auto play: start, stop and each tick of Timer1 in the four end-of-game modes, across games.

#include "support/AppFixture.h"

#include <QTest>

using namespace tolvisk;

namespace {

// Two plies, none, three plies.
const QByteArray kGames = crlf("[Event \"One\"]\n\n1. e4 e5 *\n\n"
                               "[Event \"Two\"]\n\n*\n\n"
                               "[Event \"Three\"]\n\n1. d4 d5 2. c4 *\n\n");

struct AutoFixture : AppFixture {
    explicit AutoFixture(const QByteArray& games = kGames) {
        openText(games);
        platform.clear();
    }
    void load(int index) {
        main().lstPGNFiles->setListIndex(int16_t(index));
        main().mnuFileLoad_Click();
    }
    // Where auto play stands: "list index:ply", then "on" or "off" for Timer1 and "run" or
    // "stop" for APRunning.
    QString state() {
        frmMain& w = main();
        return QStringLiteral("%1:%2 %3 %4")
            .arg(w.lstPGNFiles->ListIndex())
            .arg(w.Tavlon1->Ply())
            .arg(w.Timer1->Enabled() ? "on" : "off")
            .arg(m().APRunning ? "run" : "stop");
    }
    QStringList tick(int count) {
        QStringList states;
        for (int i = 0; i < count; ++i) {
            main().Timer1_Timer();
            states << state();
        }
        return states;
    }
    bool startEnabled() { return main().Toolbar1->button(QStringLiteral("StartAP"))->isEnabled(); }
    bool stopEnabled() { return main().Toolbar1->button(QStringLiteral("StopAP"))->isEnabled(); }
};

} // namespace

class TestAutoPlay : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void startSetsTheInterval_data();
    void startSetsTheInterval();
    void stopInTheMiddleAndAtTheEnd();
    void modes_data();
    void modes();
    void theTimerTickRunsAutoPlay();
    void steppingByHandDoesNotStop();
    void cancelledPromptMovesTheSelectionOn();
    void failedLoadGoesOn();
    void newModeCountsAtTheNextEnd();
};

void TestAutoPlay::initTestCase() {
    // The headless platform's notes on what it cannot do are no news.
    static const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& message) {
            if (!message.startsWith(QLatin1String("This plugin does not support")))
                previous(type, context, message);
        });
}

void TestAutoPlay::startSetsTheInterval_data() {
    QTest::addColumn<int>("speed");
    QTest::newRow("1 second") << 1;
    QTest::newRow("7 seconds") << 7;
    QTest::newRow("90 seconds, the top of the range") << 90;
}

void TestAutoPlay::startSetsTheInterval() {
    QFETCH(int, speed);
    AutoFixture f;
    f.load(0);
    frmMain& w = f.main();
    f.m().APSpeed = int16_t(speed);
    w.sbStatusBar->setPanelText(1, QStringLiteral("stale"));
    w.mnuPlayerStartAP_Click();
    QCOMPARE(w.Timer1->Interval(), speed * 1000);
    QCOMPARE(f.state(), QStringLiteral("0:0 on run")); // the first step comes one interval later
    QVERIFY(!f.startEnabled());
    QVERIFY(f.stopEnabled());
    QVERIFY(!w.mnuPlayerStartAP->isEnabled());
    QVERIFY(w.mnuPlayerStopAP->isEnabled());
    QCOMPARE(w.sbStatusBar->panelText(1), QStringLiteral("Game 1 Of 3")); // SetPlayerState ran
    // A new speed counts from the next start only.
    f.m().APSpeed = int16_t(speed == 1 ? 2 : 1);
    f.tick(1);
    QCOMPARE(w.Timer1->Interval(), speed * 1000);
}

void TestAutoPlay::stopInTheMiddleAndAtTheEnd() {
    AutoFixture f;
    f.load(2);
    frmMain& w = f.main();
    w.mnuPlayerStartAP_Click();
    f.tick(1);
    w.mnuPlayerStopAP_Click();
    QCOMPARE(f.state(), QStringLiteral("2:1 off stop"));
    QVERIFY(f.startEnabled());
    QVERIFY(w.mnuPlayerStartAP->isEnabled());
    QVERIFY(!f.stopEnabled());
    QVERIFY(!w.mnuPlayerStopAP->isEnabled());
    // At the end of the game the state rules have the last word: start stays disabled.
    w.mnuPlayerStartAP_Click();
    w.mnuPlayerMoveLast_Click();
    w.mnuPlayerStopAP_Click();
    QVERIFY(!f.startEnabled());
    QVERIFY(!w.mnuPlayerStartAP->isEnabled());
    QVERIFY(!f.stopEnabled());
}

void TestAutoPlay::modes_data() {
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("game");      // list index loaded before the start
    QTest::addColumn<int>("selection"); // then selected without loading; -2 leaves it
    QTest::addColumn<bool>("atEnd");    // start from the end of the game
    QTest::addColumn<QStringList>("ticks");
    QTest::addColumn<int>("current"); // CurrentGame afterwards
    QTest::newRow("PS stops at the end")
        << "PS" << 0 << -2 << false << QStringList{"0:1 on run", "0:2 on run", "0:2 off stop"} << 1;
    QTest::newRow("PR plays the game again")
        << "PR" << 0 << -2 << false
        << QStringList{"0:1 on run", "0:2 on run", "0:0 on run", "0:1 on run", "0:2 on run"} << 1;
    QTest::newRow("PNP through the list")
        << "PNP" << 0 << -2 << false
        << QStringList{"0:1 on run", "0:2 on run", "1:0 on run", "2:0 on run",
                       "2:1 on run", "2:2 on run", "2:3 on run", "2:3 off stop"}
        << 3;
    QTest::newRow("PPP back through the list")
        << "PPP" << 2 << -2 << false
        << QStringList{"2:1 on run", "2:2 on run", "2:3 on run", "1:0 on run",
                       "0:0 on run", "0:1 on run", "0:2 on run", "0:2 off stop"}
        << 1;
    QTest::newRow("PS on a game without moves")
        << "PS" << 1 << -2 << false << QStringList{"1:0 off stop"} << 2;
    QTest::newRow("PR on a game without moves")
        << "PR" << 1 << -2 << false << QStringList{"1:0 on run", "1:0 on run"} << 2;
    QTest::newRow("PNP on the last game")
        << "PNP" << 2 << -2 << true << QStringList{"2:3 off stop"} << 3;
    QTest::newRow("PPP on the first game")
        << "PPP" << 0 << -2 << true << QStringList{"0:2 off stop"} << 1;
    QTest::newRow("PNP without a selection goes on ticking")
        << "PNP" << 0 << -1 << true << QStringList{"-1:2 on run", "-1:2 on run", "-1:2 on run"}
        << 1;
    QTest::newRow("PPP without a selection stops")
        << "PPP" << 0 << -1 << true << QStringList{"-1:2 off stop"} << 1;
    QTest::newRow("an unknown mode does nothing")
        << "XX" << 0 << -2 << false << QStringList{"0:0 on run", "0:0 on run"} << 1;
    QTest::newRow("modes compare exactly")
        << "pnp" << 0 << -2 << true << QStringList{"0:2 on run"} << 1;
}

void TestAutoPlay::modes() {
    QFETCH(QString, mode);
    QFETCH(int, game);
    QFETCH(int, selection);
    QFETCH(bool, atEnd);
    QFETCH(QStringList, ticks);
    QFETCH(int, current);
    AutoFixture f;
    f.load(game);
    frmMain& w = f.main();
    if (atEnd)
        w.mnuPlayerMoveLast_Click();
    if (selection != -2)
        w.lstPGNFiles->setListIndex(int16_t(selection));
    f.m().APMode = mode;
    w.mnuPlayerStartAP_Click();
    QCOMPARE(f.tick(int(ticks.size())), ticks);
    // A game moved to stands loaded; a stop leaves the commands as the state rules say.
    QCOMPARE(f.m().CurrentGame, int16_t(current));
    QCOMPARE(f.stopEnabled(), f.m().APRunning);
    if (!f.m().APRunning)
        QCOMPARE(f.startEnabled(), w.Tavlon1->Ply() < w.Tavlon1->GameLength());
    QVERIFY(f.platform.boxes().empty());
}

void TestAutoPlay::theTimerTickRunsAutoPlay() {
    AutoFixture f;
    f.load(0);
    frmMain& w = f.main();
    w.mnuPlayerStartAP_Click();
    emit w.Timer1->Tick();
    QCOMPARE(f.state(), QStringLiteral("0:1 on run"));
    QCOMPARE(w.lblPly->text(), QStringLiteral("Ply: 1")); // the board's event refreshed the labels
    QCOMPARE(w.sbStatusBar->panelText(2), QStringLiteral("1. e4"));
}

void TestAutoPlay::steppingByHandDoesNotStop() {
    AutoFixture f;
    f.load(2);
    frmMain& w = f.main();
    w.mnuPlayerStartAP_Click();
    w.mnuPlayerMoveNext_Click();
    w.mnuPlayerMoveNext_Click();
    QCOMPARE(f.state(), QStringLiteral("2:2 on run"));
    f.load(0);
    QCOMPARE(f.state(), QStringLiteral("0:0 on run"));
    QCOMPARE(f.tick(1), QStringList{"0:1 on run"});
}

void TestAutoPlay::cancelledPromptMovesTheSelectionOn() {
    AutoFixture f;
    f.load(0);
    frmMain& w = f.main();
    w.mnuPlayerMoveLast_Click();
    w.Tavlon1->setGameChanged(true);
    w.mnuPlayerStartAP_Click();
    // The load of the next game asks first; after a Cancel the selection has moved but the game
    // has not, and the next tick moves the selection on again.
    f.platform.queueMsgBox(MsgResult::Cancel);
    QCOMPARE(f.tick(1), QStringList{"1:2 on run"});
    QCOMPARE(f.m().CurrentGame, int16_t(1));
    f.platform.queueMsgBox(MsgResult::Cancel);
    QCOMPARE(f.tick(1), QStringList{"2:2 on run"});
    QCOMPARE(f.m().CurrentGame, int16_t(1));
    QCOMPARE(f.tick(1), QStringList{"2:2 off stop"});
    const auto boxes = f.platform.boxes();
    QCOMPARE(boxes.size(), size_t(2));
    QCOMPARE(boxes[0].title, QStringLiteral("Unsaved Game Changes"));
}

void TestAutoPlay::failedLoadGoesOn() {
    AutoFixture f(crlf("[Event \"One\"]\n\n1. e4 e5 *\n\n"
                       "[Event \"Broken\"]\n\n1. e4 e4 *\n\n"
                       "[Event \"Three\"]\n\n1. d4 d5 2. c4 *\n\n"));
    f.load(0);
    frmMain& w = f.main();
    w.mnuPlayerMoveLast_Click();
    w.mnuPlayerStartAP_Click();
    QCOMPARE(f.tick(1), QStringList{"1:2 on run"}); // the board keeps its finished game
    QCOMPARE(f.platform.boxes().size(), size_t(1));
    QCOMPARE(f.platform.boxes()[0].title, QStringLiteral("Game Error"));
    QCOMPARE(f.tick(2), (QStringList{"2:0 on run", "2:1 on run"}));
    QCOMPARE(f.m().CurrentGame, int16_t(3));
}

void TestAutoPlay::newModeCountsAtTheNextEnd() {
    AutoFixture f;
    f.load(0);
    frmMain& w = f.main();
    w.mnuPlayerStartAP_Click();
    QCOMPARE(f.tick(2), (QStringList{"0:1 on run", "0:2 on run"}));
    f.m().APMode = QStringLiteral("PS");
    QCOMPARE(f.tick(1), QStringList{"0:2 off stop"});
}

QTEST_MAIN(TestAutoPlay)
#include "tst_autoplay.moc"
