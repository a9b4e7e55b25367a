// The setup window: laying out a position with the tool bar and the mouse, the string it writes,
// the king checks, and what OK does to the main window, up to a saved file read back.

#include "setup/frmSetup.h"
#include "support/AppFixture.h"

#include <QAbstractItemModel>
#include <QTest>

using namespace tolvisk;

namespace {

const QString kStart = QStringLiteral("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR");
const QStringList kNewGameTags = {"[Event \"?\"]", "[Site \"?\"]",  "[Date \"????.??.??\"]",
                                  "[Round \"?\"]", "[White \"?\"]", "[Black \"?\"]",
                                  "[Result \"*\"]"};

struct SetupFixture : AppFixture {
    frmSetup& openSetup() {
        main().mnuToolsSetup->trigger();
        return *qobject_cast<frmSetup*>(app->findForm(QStringLiteral("frmSetup")));
    }
};

void type(QLineEdit* box, const QString& text) {
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Backspace);
    QTest::keyClicks(box, text);
}

// Does what the user does, step by step: "Ke1" presses the white king's button and clicks e1,
// "xd2" the eraser's, "@d2" clicks d2 alone; "-K" unchecks White's kingside right; "black" sets
// Black to move; "ep=", "fifty=" and "move=" type into the boxes; "clear" and "reset" are Clear
// Board and Reset Board.
void act(frmSetup& w, const QString& steps) {
    QCheckBox* rights[] = {w.chkWCK, w.chkWCQ, w.chkBCK, w.chkBCQ};
    for (const QString& step : steps.split(u'|', Qt::SkipEmptyParts)) {
        const QString value = step.section(u'=', 1);
        if (step == QLatin1String("clear"))
            w.mnuToolsClear->trigger();
        else if (step == QLatin1String("reset"))
            w.mnuToolsReset->trigger();
        else if (step == QLatin1String("black"))
            QTest::keyClick(w.optMoveBlack, Qt::Key_Space);
        else if (step.startsWith(u'-'))
            QTest::keyClick(rights[QStringLiteral("KQkq").indexOf(step[1])], Qt::Key_Space);
        else if (step.contains(u'='))
            type(step.startsWith(QLatin1String("ep"))      ? w.txtEPSquare
                 : step.startsWith(QLatin1String("fifty")) ? w.txtFiftyMove
                                                           : w.txtMoveNumber,
                 value);
        else {
            const int button = QStringLiteral("KQRBNPkqrbnpx").indexOf(step[0]) + 1;
            if (button > 0)
                QTest::mouseClick(
                    w.Toolbar1->widgetForAction(w.Toolbar1->button(w.Toolbar1->keyAt(button))),
                    Qt::LeftButton);
            const int index = (8 - step[2].digitValue()) * 8 + (step[1].unicode() - 'a') + 1;
            QTest::mouseClick(w.picBoard[size_t(index)], Qt::LeftButton);
        }
    }
}

QString codes(const frmSetup& w) {
    QString text;
    for (int i = 1; i <= 64; ++i)
        text += w.picBoard[size_t(i)]->Tag;
    return text;
}

// The centre of a square of the main board, White at the bottom.
QPoint centreOf(const Tavlon& board, const char* square) {
    const QRectF r = board.squaresRect();
    return QPointF(r.left() + (square[0] - 'a' + 0.5) * r.width() / 8,
                   r.top() + ('8' - square[1] + 0.5) * r.height() / 8)
        .toPoint();
}

} // namespace

class TestSetup : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { quietHeadlessNotes(); }
    void ok_data();
    void ok();
    void boardAndToolBar();
    void okOrderOfEffects();
    void okStops();
    void laidOutGameSurvivesTheFile();
};

void TestSetup::ok_data() {
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("result"); // the string written, or the box's text
    // clang-format off
    QTest::newRow("fresh window") << "" << kStart + " w KQkq - 0 1";
    QTest::newRow("kings only") << "clear|Ke1|ke8|-K|-Q|-k|-q" << "4k3/8/8/8/8/8/8/4K3 w - - 0 1";
    QTest::newRow("runs at rank ends") << "clear|ra8|rh8|Ka1|kc5" << "r6r/8/8/2k5/8/8/8/K7 w KQkq - 0 1";
    QTest::newRow("kq") << "-K|-Q" << kStart + " w kq - 0 1";
    QTest::newRow("Qk") << "-K|-q" << kStart + " w Qk - 0 1";
    QTest::newRow("q, two white kings") << "Kd4|xe2|-K|-Q|-k"
                                        << "rnbqkbnr/pppppppp/8/8/3K4/8/PPPP1PPP/RNBQKBNR w q - 0 1";
    QTest::newRow("no button pressed") << "@e2" << kStart + " w KQkq - 0 1";
    QTest::newRow("Clear keeps the button") << "Qd4|clear|@a8|Ke1|ke8" << "Q3k3/8/8/8/8/8/8/4K3 w KQkq - 0 1";
    QTest::newRow("Reset keeps side and rights") << "black|-K|Qe4|reset" << kStart + " b Qkq - 0 1";
    QTest::newRow("boxes as they stand") << "black|ep=|fifty=3|move=12 x" << kStart + " b KQkq  3 12 x";
    QTest::newRow("empty board") << "clear" << "No white king";
    QTest::newRow("black king only") << "clear|ke8" << "No white king";
    QTest::newRow("white king only") << "clear|Ke1" << "No black king";
    // clang-format on
}

void TestSetup::ok() {
    QFETCH(QString, steps);
    QFETCH(QString, result);
    SetupFixture f;
    frmSetup& w = f.openSetup();
    act(w, steps);
    QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    if (result.startsWith(QLatin1String("No "))) {
        QCOMPARE(boxesShown(f.platform), QStringList{"Setup Error: " + result});
        QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::Information);
        QCOMPARE(f.platform.boxes()[0].buttons, MsgButtons::OK);
        QCOMPARE(f.app->findForm(QStringLiteral("frmSetup")), &w);
        QCOMPARE(f.main().lstTags->items(), kNewGameTags);
        return;
    }
    QVERIFY(f.platform.boxes().empty());
    QCOMPARE(f.main().lstTags->items(),
             (kNewGameTags + QStringList{"[SetUp \"1\"]", "[Forsyth \"" + result + "\"]"}));
    QVERIFY(!f.app->findForm(QStringLiteral("frmSetup")));
}

void TestSetup::boardAndToolBar() {
    SetupFixture f;
    frmSetup& w = f.openSetup();
    QCOMPARE(w.picBoard[6]->toolTip() + w.picBoard[37]->toolTip(),
             QStringLiteral("f8-6-8-6e4-5-4-37"));
    QVERIFY(w.picBoard[1]->BackColor() == Qt::white && w.picBoard[64]->BackColor() == Qt::white);
    QCOMPARE(w.picBoard[9]->BackColor(), QColor(192, 192, 192));
    act(w, "black|Qe4|xa8");
    QVERIFY(!w.picBoard[37]->Picture().isNull() && w.picBoard[1]->Picture().isNull());
    // Each opening starts afresh.
    w.mnuFileClose->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    frmSetup& again = f.openSetup();
    QCOMPARE(codes(again), QStringLiteral("rnbqkbnrpppppppp") + QString(32, u'1') +
                               QStringLiteral("PPPPPPPPRNBQKBNR"));
    QVERIFY(again.optMoveWhite->isChecked());
}

void TestSetup::okOrderOfEffects() {
    SetupFixture f;
    frmMain& m = f.main();
    frmSetup& w = f.openSetup();
    act(w, "clear|Ke1|ke8|Pe2");
    // What the main window shows whenever its tag list changes, and when the window goes.
    QStringList seen;
    auto note = [&](const char* event) {
        seen << QStringLiteral("%1 %2 %3%4%5")
                    .arg(QLatin1String(event))
                    .arg(m.lstTags->ListCount())
                    .arg(m.Tavlon1->CurrentForsyth().section(u' ', 0, 0) == kStart ? "start"
                                                                                   : "set")
                    .arg(m.Tavlon1->GameChanged() ? " changed" : "")
                    .arg(m.mnuFileSave->isEnabled() ? " save" : "");
    };
    connect(m.lstTags->model(), &QAbstractItemModel::modelReset, this, [&] { note("reset"); });
    connect(m.lstTags->model(), &QAbstractItemModel::rowsInserted, this, [&] { note("add"); });
    connect(&w, &ToolWindow::Unloaded, this, [&] { note("unload"); });
    QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    QStringList expected{"reset 0 start"};
    for (int i = 1; i <= 7; ++i)
        expected << QStringLiteral("add %1 start").arg(i);
    expected << "add 8 set"
             << "add 9 set"
             << "unload 9 set changed save";
    QCOMPARE(seen, expected);
    QCOMPARE(m.lblCastle->text(), QStringLiteral("Castle: -"));
}

void TestSetup::okStops() {
    // The user cancels the save prompt of the new game: nothing changes, the window stays.
    SetupFixture f;
    frmMain& m = f.main();
    m.show();
    QTest::mouseClick(m.Tavlon1, Qt::LeftButton, {}, centreOf(*m.Tavlon1, "e2"));
    QTest::mouseClick(m.Tavlon1, Qt::LeftButton, {}, centreOf(*m.Tavlon1, "e4"));
    frmSetup& w = f.openSetup();
    act(w, "Qe4");
    f.platform.queueMsgBox(MsgResult::Cancel);
    QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    QCOMPARE(boxesShown(f.platform),
             QStringList{"Unsaved Game Changes: The game has changed. Save changes before "
                         "continuing?"});
    QCOMPARE(f.app->findForm(QStringLiteral("frmSetup")), &w);
    QCOMPARE(w.picBoard[37]->Tag, QStringLiteral("Q"));
    QVERIFY(m.Tavlon1->GameLength() == 1 && m.Tavlon1->GameChanged());

    // The board refuses the string. Nothing the window offers makes it refuse today; a code it
    // cannot read stands for whatever it may refuse.
    f.platform.clear();
    w.picBoard[20]->Tag = QStringLiteral("?");
    QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    QCOMPARE(boxesShown(f.platform),
             QStringList{"Setup Error: The board cannot take this position:\r\n\r\nUnknown piece "
                         "letter '?' in Forsyth string"});
    QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::Exclamation);
    QCOMPARE(f.app->findForm(QStringLiteral("frmSetup")), &w);
    QVERIFY(m.Tavlon1->GameLength() == 1 && !f.platform.busy);
    QCOMPARE(m.lstTags->items(), kNewGameTags);
}

void TestSetup::laidOutGameSurvivesTheFile() {
    SetupFixture f;
    frmMain& m = f.main();
    m.show();
    frmSetup& w = f.openSetup();
    act(w, "clear|Ke1|Rh1|ke8|-K|-Q|-k|-q");
    QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    for (const char* square : {"h1", "h7", "e8", "d8", "e1", "d2"})
        QTest::mouseClick(m.Tavlon1, Qt::LeftButton, {}, centreOf(*m.Tavlon1, square));
    const QString moves = m.Tavlon1->MovesAsList();
    m.mnuFileSave->trigger();
    const QString path = f.platform.path(QStringLiteral("ending.pgn"));
    f.platform.queueSave(path);
    m.mnuFileSaveAll->trigger();
    const QString forsyth = QStringLiteral("4k3/8/8/8/8/8/8/4K2R w - - 0 1");
    const QStringList header =
        kNewGameTags + QStringList{"[SetUp \"1\"]", "[Forsyth \"" + forsyth + "\"]"};
    QVERIFY(AppFixture::readFile(path).startsWith(
        (header.join(kCrLf) + "\r\n\r\n1. Rh7 Kd8 2. Kd2").toLatin1()));

    f.open(path);
    m.mnuFileLoad->trigger();
    QVERIFY(f.platform.boxes().empty());
    QCOMPARE(m.lstTags->items(), header);
    QCOMPARE(m.Tavlon1->CurrentForsyth(), forsyth);
    QCOMPARE(m.Tavlon1->MovesAsList(), moves);
    QCOMPARE(m.Tavlon1->GameLength(), int16_t(3));
}

QTEST_MAIN(TestSetup)
#include "tst_setup.moc"
