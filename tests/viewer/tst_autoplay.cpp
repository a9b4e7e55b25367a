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
    // Where auto play stands: "list index:ply", Timer1 "on" or "off", APRunning "run" or
    // "stop", then with `commands` the enabled ones of start and stop (toolbar and menu agree).
    QString state(bool commands = true) {
        frmMain& w = main();
        const bool start = w.Toolbar1->button(QStringLiteral("StartAP"))->isEnabled();
        const bool stop = w.Toolbar1->button(QStringLiteral("StopAP"))->isEnabled();
        if (start != w.mnuPlayerStartAP->isEnabled() || stop != w.mnuPlayerStopAP->isEnabled())
            return QStringLiteral("menu and toolbar differ");
        return QStringLiteral("%1:%2 %3 %4")
                   .arg(w.lstPGNFiles->ListIndex())
                   .arg(w.Tavlon1->Ply())
                   .arg(w.Timer1->Enabled() ? "on" : "off", m().APRunning ? "run" : "stop") +
               (commands ? QString(start ? " start" : "") + (stop ? " stop" : "") : QString());
    }
    QStringList tick(int count, bool commands = true) {
        QStringList states;
        for (int i = 0; i < count; ++i) {
            emit main().Timer1->Tick();
            states << state(commands);
        }
        return states;
    }
};

} // namespace

class TestAutoPlay : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { quietHeadlessNotes(); }
    void startAndStop();
    void modes_data();
    void modes();
    void goesOnBesideTheUser();
    void promptsAndFailedLoads();
};

void TestAutoPlay::startAndStop() {
    for (int speed : {1, 90}) {
        AutoFixture f;
        f.load(2);
        frmMain& w = f.main();
        f.m().APSpeed = int16_t(speed);
        w.mnuPlayerStartAP->trigger();
        // The first step comes one full interval later; a new speed counts from the next start.
        QCOMPARE(w.Timer1->Interval(), speed * 1000);
        QCOMPARE(f.state(), QStringLiteral("2:0 on run stop"));
        f.m().APSpeed = 2;
        QCOMPARE(f.tick(1), QStringList{"2:1 on run stop"});
        QCOMPARE(w.lblPly->text(), QStringLiteral("Ply: 1")); // the board's event refreshed
        QCOMPARE(w.Timer1->Interval(), speed * 1000);
        w.mnuPlayerStopAP->trigger();
        QCOMPARE(f.state(), QStringLiteral("2:1 off stop start"));
        // At the end of the game the state rules have the last word: start stays disabled.
        w.mnuPlayerStartAP_Click();
        w.mnuPlayerMoveLast_Click();
        w.mnuPlayerStopAP_Click();
        QCOMPARE(f.state(), QStringLiteral("2:3 off stop"));
    }
}

void TestAutoPlay::modes_data() {
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("game");      // list index loaded before the start
    QTest::addColumn<int>("selection"); // then selected without loading; -2 leaves it
    QTest::addColumn<bool>("atEnd");    // start from the end of the game
    QTest::addColumn<QStringList>("ticks");
    QTest::newRow("PS stops at the end")
        << "PS" << 0 << -2 << false << QStringList{"0:1 on run", "0:2 on run", "0:2 off stop"};
    QTest::newRow("PR plays the game again")
        << "PR" << 0 << -2 << false
        << QStringList{"0:1 on run", "0:2 on run", "0:0 on run", "0:1 on run", "0:2 on run"};
    QTest::newRow("PNP through the list")
        << "PNP" << 0 << -2 << false
        << QStringList{"0:1 on run", "0:2 on run", "1:0 on run", "2:0 on run",
                       "2:1 on run", "2:2 on run", "2:3 on run", "2:3 off stop"};
    QTest::newRow("PPP back through the list")
        << "PPP" << 2 << -2 << false
        << QStringList{"2:1 on run", "2:2 on run", "2:3 on run", "1:0 on run",
                       "0:0 on run", "0:1 on run", "0:2 on run", "0:2 off stop"};
    QTest::newRow("PS on a game without moves")
        << "PS" << 1 << -2 << false << QStringList{"1:0 off stop"};
    QTest::newRow("PR on a game without moves")
        << "PR" << 1 << -2 << false << QStringList{"1:0 on run", "1:0 on run"};
    QTest::newRow("PNP on the last game")
        << "PNP" << 2 << -2 << true << QStringList{"2:3 off stop"};
    QTest::newRow("PPP on the first game")
        << "PPP" << 0 << -2 << true << QStringList{"0:2 off stop"};
    QTest::newRow("PNP without a selection goes on ticking")
        << "PNP" << 0 << -1 << true << QStringList{"-1:2 on run", "-1:2 on run", "-1:2 on run"};
    QTest::newRow("PPP without a selection stops")
        << "PPP" << 0 << -1 << true << QStringList{"-1:2 off stop"};
    QTest::newRow("an unknown mode does nothing")
        << "XX" << 0 << -2 << false << QStringList{"0:0 on run", "0:0 on run"};
    QTest::newRow("modes compare exactly") << "pnp" << 0 << -2 << true << QStringList{"0:2 on run"};
}

void TestAutoPlay::modes() {
    QFETCH(QString, mode);
    QFETCH(int, game);
    QFETCH(int, selection);
    QFETCH(bool, atEnd);
    QFETCH(QStringList, ticks);
    AutoFixture f;
    f.load(game);
    frmMain& w = f.main();
    if (atEnd)
        w.mnuPlayerMoveLast_Click();
    if (selection != -2)
        w.lstPGNFiles->setListIndex(int16_t(selection));
    f.m().APMode = mode;
    w.mnuPlayerStartAP_Click();
    QCOMPARE(f.tick(int(ticks.size()), false), ticks);
    // A stop leaves the commands as the state rules say.
    const bool canStart = !f.m().APRunning && w.Tavlon1->Ply() < w.Tavlon1->GameLength();
    QCOMPARE(f.state().section(u' ', 3),
             (canStart ? QStringLiteral("start") : QString()) +
                 (f.m().APRunning ? QStringLiteral("stop") : QString()));
    QVERIFY(f.platform.boxes().empty());
}

void TestAutoPlay::goesOnBesideTheUser() {
    AutoFixture f;
    f.load(2);
    frmMain& w = f.main();
    w.mnuPlayerStartAP_Click();
    w.mnuPlayerMoveNext_Click();
    w.mnuPlayerMoveNext_Click();
    QCOMPARE(f.state(), QStringLiteral("2:2 on run stop"));
    f.load(0);
    QCOMPARE(f.tick(1), QStringList{"0:1 on run stop"});
    // A new mode counts at the next end of a game.
    f.m().APMode = QStringLiteral("PS");
    QCOMPARE(f.tick(2), (QStringList{"0:2 on run stop", "0:2 off stop"}));
}

void TestAutoPlay::promptsAndFailedLoads() {
    AutoFixture f(crlf("[Event \"One\"]\n\n1. e4 e5 *\n\n[Event \"Broken\"]\n\n1. e4 e4 *\n\n"
                       "[Event \"Three\"]\n\n1. d4 d5 2. c4 *\n\n"));
    f.load(0);
    frmMain& w = f.main();
    w.mnuPlayerMoveLast_Click();
    w.Tavlon1->setGameChanged(true);
    w.mnuPlayerStartAP_Click();
    // The load of the next game asks first; after a Cancel the selection has moved but the game
    // has not, and the next tick moves the selection on again.
    f.platform.queueMsgBox(MsgResult::Cancel);
    QCOMPARE(f.tick(1), QStringList{"1:2 on run stop"});
    QCOMPARE(f.m().CurrentGame, int16_t(1));
    // A load that fails shows its box, and auto play goes on with the board as it stands.
    for (MsgResult answer : {MsgResult::No, MsgResult::OK, MsgResult::No})
        f.platform.queueMsgBox(answer);
    w.lstPGNFiles->setListIndex(0);
    QCOMPARE(f.tick(3), (QStringList{"1:2 on run stop", "2:0 on run stop", "2:1 on run stop"}));
    QCOMPARE(f.m().CurrentGame, int16_t(3));
    const QString prompt = "Unsaved Game Changes: The game has changed. Save changes before "
                           "continuing?";
    QCOMPARE(boxesShown(f.platform),
             (QStringList{prompt, prompt,
                          "Game Error: Error loading game. This game cannot be loaded.", prompt}));
}

QTEST_MAIN(TestAutoPlay)
#include "tst_autoplay.moc"
