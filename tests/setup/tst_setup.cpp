// The setup window: laying out a position with the tool bar and the mouse, the string it writes,
// the king checks, and what OK does to the main window, up to a saved file read back.

#include "setup/frmSetup.h"
#include "support/AppFixture.h"

#include <QAbstractItemModel>
#include <QTest>

using namespace tolvisk;

namespace {

const QString kStart = QStringLiteral("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1");
const QStringList kNewGameTags = {"[Event \"?\"]", "[Site \"?\"]",  "[Date \"????.??.??\"]",
                                  "[Round \"?\"]", "[White \"?\"]", "[Black \"?\"]",
                                  "[Result \"*\"]"};

struct SetupFixture : AppFixture {
    frmSetup* openSetup() {
        main().mnuToolsSetup->trigger();
        return qobject_cast<frmSetup*>(app->findForm(QStringLiteral("frmSetup")));
    }
};

// Places pieces as the user does: the tool bar button of the piece, then the square. "Ke1 xd2"
// puts a white king on e1 and clears d2.
void place(frmSetup& w, const QString& pieces) {
    for (const QString& piece : pieces.split(u' ', Qt::SkipEmptyParts)) {
        const int position = QStringLiteral("KQRBNPkqrbnpx").indexOf(piece[0]) + 1;
        QTest::mouseClick(
            w.Toolbar1->widgetForAction(w.Toolbar1->button(w.Toolbar1->keyAt(position))),
            Qt::LeftButton);
        const int index = (8 - piece[2].digitValue()) * 8 + (piece[1].unicode() - 'a') + 1;
        QTest::mouseClick(w.picBoard[size_t(index)], Qt::LeftButton);
    }
}

void type(QLineEdit* box, const QString& text) {
    box->selectAll();
    QTest::keyClick(box, Qt::Key_Backspace);
    QTest::keyClicks(box, text);
}

QString tags(const frmSetup& w) {
    QString codes;
    for (int i = 1; i <= 64; ++i)
        codes += w.picBoard[size_t(i)]->Tag;
    return codes;
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
    void writtenString_data();
    void writtenString();
    void kingChecks_data();
    void kingChecks();
    void boardAndToolBar();
    void okOrderOfEffects();
    void okStopsWhenTheSavePromptIsCancelled();
    void okStopsWhenTheBoardRefuses();
    void laidOutGameSurvivesTheFile();
};

void TestSetup::writtenString_data() {
    QTest::addColumn<bool>("clear");
    QTest::addColumn<QString>("pieces");
    QTest::addColumn<QString>("unchecked"); // castling boxes the user unchecks: K Q k q
    QTest::addColumn<QStringList>("boxes"); // side, EP square, fifty-move count, move number
    QTest::addColumn<QString>("forsyth");
    QTest::newRow("fresh window") << false << ""
                                  << "" << QStringList() << kStart;
    QTest::newRow("kings only") << true << "Ke1 ke8"
                                << "KQkq" << QStringList() << "4k3/8/8/8/8/8/8/4K3 w - - 0 1";
    QTest::newRow("runs at rank ends, rights as checked")
        << true << "ra8 rh8 Ka1 kc5"
        << "" << QStringList() << "r6r/8/8/2k5/8/8/8/K7 w KQkq - 0 1";
    QTest::newRow("kq") << false << ""
                        << "KQ" << QStringList()
                        << "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w kq - 0 1";
    QTest::newRow("Qk") << false << ""
                        << "Kq" << QStringList()
                        << "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w Qk - 0 1";
    QTest::newRow("q, a full rank, two white kings")
        << false << "pa3 pb3 pc3 pd3 pe3 pf3 pg3 ph3 Kd4 xe2"
        << "KQk" << QStringList()
        << "rnbqkbnr/pppppppp/8/8/3K4/pppppppp/PPPP1PPP/RNBQKBNR w q - 0 1";
    QTest::newRow("boxes copied as they stand")
        << false << ""
        << "" << QStringList{"b", "", "3", "12 x"}
        << "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR b KQkq  3 12 x";
}

void TestSetup::writtenString() {
    QFETCH(bool, clear);
    QFETCH(QString, pieces);
    QFETCH(QString, unchecked);
    QFETCH(QStringList, boxes);
    QFETCH(QString, forsyth);
    SetupFixture f;
    frmSetup& w = *f.openSetup();
    if (clear)
        w.mnuToolsClear->trigger();
    place(w, pieces);
    QCheckBox* rights[] = {w.chkWCK, w.chkWCQ, w.chkBCK, w.chkBCQ};
    for (QChar right : unchecked)
        QTest::keyClick(rights[QStringLiteral("KQkq").indexOf(right)], Qt::Key_Space);
    if (!boxes.isEmpty()) {
        QTest::keyClick(w.optMoveBlack, Qt::Key_Space);
        type(w.txtEPSquare, boxes[1]);
        type(w.txtFiftyMove, boxes[2]);
        type(w.txtMoveNumber, boxes[3]);
    }
    QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    QVERIFY(f.platform.boxes().empty());
    QCOMPARE(f.main().lstTags->items(),
             (kNewGameTags + QStringList{"[SetUp \"1\"]", "[Forsyth \"" + forsyth + "\"]"}));
    QVERIFY(!f.app->findForm(QStringLiteral("frmSetup")));
}

void TestSetup::kingChecks_data() {
    QTest::addColumn<QString>("pieces");
    QTest::addColumn<QString>("box");
    QTest::newRow("empty board") << ""
                                 << "No white king";
    QTest::newRow("black king only") << "ke8"
                                     << "No white king";
    QTest::newRow("white king only") << "Ke1"
                                     << "No black king";
}

void TestSetup::kingChecks() {
    QFETCH(QString, pieces);
    QFETCH(QString, box);
    SetupFixture f;
    frmSetup& w = *f.openSetup();
    w.mnuToolsClear->trigger();
    place(w, pieces);
    QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    QCOMPARE(boxesShown(f.platform), QStringList{"Setup Error: " + box});
    QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::Information);
    QCOMPARE(f.platform.boxes()[0].buttons, MsgButtons::OK);
    QCOMPARE(f.app->findForm(QStringLiteral("frmSetup")), &w);
    QCOMPARE(f.main().lstTags->items(), kNewGameTags);
}

void TestSetup::boardAndToolBar() {
    SetupFixture f;
    frmSetup& w = *f.openSetup();
    QCOMPARE(w.picBoard[6]->toolTip(), QStringLiteral("f8-6-8-6"));
    QCOMPARE(w.picBoard[37]->toolTip(), QStringLiteral("e4-5-4-37"));
    QCOMPARE(w.picBoard[1]->BackColor(), QColor(255, 255, 255));
    QCOMPARE(w.picBoard[9]->BackColor(), QColor(192, 192, 192));
    QCOMPARE(w.picBoard[64]->BackColor(), QColor(255, 255, 255));
    QCOMPARE(w.picBoard[10]->pos() - w.picBoard[1]->pos(),
             QPoint(w.picBoard[1]->width(), w.picBoard[1]->height()));
    // No button pressed: a click changes nothing.
    const QString start = tags(w);
    QTest::mouseClick(w.picBoard[37], Qt::LeftButton);
    QCOMPARE(tags(w), start);
    // The side to move and the rights stay through Reset Board; the pressed button through Clear.
    QTest::keyClick(w.optMoveBlack, Qt::Key_Space);
    QTest::keyClick(w.chkWCK, Qt::Key_Space);
    place(w, "Qe4");
    QVERIFY(w.picBoard[37]->Tag == QLatin1String("Q") && !w.picBoard[37]->Picture().isNull());
    w.mnuToolsReset->trigger();
    QCOMPARE(tags(w), start);
    QVERIFY(w.optMoveBlack->isChecked() && !w.chkWCK->isChecked());
    w.mnuToolsClear->trigger();
    QCOMPARE(tags(w), QString(64, u'1'));
    QTest::mouseClick(w.picBoard[1], Qt::LeftButton);
    QCOMPARE(w.picBoard[1]->Tag, QStringLiteral("Q"));
    // One button at a time; the eraser leaves the blank.
    place(w, "xa8");
    const QList<QAction*> buttons = w.Toolbar1->actions();
    QCOMPARE(
        std::count_if(buttons.begin(), buttons.end(), [](QAction* a) { return a->isChecked(); }),
        1);
    QVERIFY(w.picBoard[1]->Tag == QLatin1String("1") && w.picBoard[1]->Picture().isNull());
    // Each opening starts afresh.
    w.mnuFileClose->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    frmSetup& again = *f.openSetup();
    QCOMPARE(tags(again), start);
    QVERIFY(again.optMoveWhite->isChecked() && again.chkWCK->isChecked());
}

void TestSetup::okOrderOfEffects() {
    SetupFixture f;
    frmMain& m = f.main();
    frmSetup& w = *f.openSetup();
    w.mnuToolsClear->trigger();
    place(w, "Ke1 ke8 Pe2");
    // What the main window shows whenever its tag list changes, and when the window goes.
    QStringList seen;
    auto note = [&](const char* event) {
        seen << QString::fromLatin1(event) + QLatin1Char(' ') +
                    QString::number(m.lstTags->ListCount()) + QLatin1Char(' ') +
                    m.Tavlon1->CurrentForsyth().section(u' ', 0, 0) +
                    (m.Tavlon1->GameChanged() ? " changed" : "") +
                    (m.mnuFileSave->isEnabled() ? " save" : "");
    };
    connect(m.lstTags->model(), &QAbstractItemModel::modelReset, this, [&] { note("reset"); });
    connect(m.lstTags->model(), &QAbstractItemModel::rowsInserted, this, [&] { note("add"); });
    connect(&w, &ToolWindow::Unloaded, this, [&] { note("unload"); });
    QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    const QString set = QStringLiteral("4k3/8/8/8/8/8/4P3/4K3");
    QCOMPARE(seen, (QStringList{"reset 0 rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR",
                                "add 1 rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR",
                                "add 2 rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR",
                                "add 3 rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR",
                                "add 4 rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR",
                                "add 5 rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR",
                                "add 6 rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR",
                                "add 7 rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR", "add 8 " + set,
                                "add 9 " + set, "unload 9 " + set + " changed save"}));
    QCOMPARE(f.m().CurrentGame, int16_t(-1));
    QCOMPARE(m.lblCastle->text(), QStringLiteral("Castle: -"));
}

void TestSetup::okStopsWhenTheSavePromptIsCancelled() {
    SetupFixture f;
    frmMain& m = f.main();
    m.show();
    QTest::mouseClick(m.Tavlon1, Qt::LeftButton, {}, centreOf(*m.Tavlon1, "e2"));
    QTest::mouseClick(m.Tavlon1, Qt::LeftButton, {}, centreOf(*m.Tavlon1, "e4"));
    QCOMPARE(m.Tavlon1->GameLength(), int16_t(1));
    frmSetup& w = *f.openSetup();
    place(w, "Qe4");
    f.platform.queueMsgBox(MsgResult::Cancel);
    QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    QCOMPARE(boxesShown(f.platform),
             QStringList{"Unsaved Game Changes: The game has changed. Save changes before "
                         "continuing?"});
    QCOMPARE(f.app->findForm(QStringLiteral("frmSetup")), &w);
    QCOMPARE(w.picBoard[37]->Tag, QStringLiteral("Q"));
    QCOMPARE(m.lstTags->items(), kNewGameTags);
    QCOMPARE(m.Tavlon1->GameLength(), int16_t(1));
    QVERIFY(m.Tavlon1->GameChanged());
}

void TestSetup::okStopsWhenTheBoardRefuses() {
    SetupFixture f;
    frmSetup& w = *f.openSetup();
    // Nothing the window offers makes the board refuse today; a code it cannot read stands for
    // whatever it may refuse.
    w.picBoard[20]->Tag = QStringLiteral("?");
    QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    QCOMPARE(boxesShown(f.platform),
             QStringList{"Setup Error: The board cannot take this position:\r\n\r\nUnknown piece "
                         "letter '?' in Forsyth string"});
    QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::Exclamation);
    QCOMPARE(f.app->findForm(QStringLiteral("frmSetup")), &w);
    QCOMPARE(f.main().lstTags->items(), kNewGameTags);
    QVERIFY(!f.main().Tavlon1->GameChanged() && !f.platform.busy);
}

void TestSetup::laidOutGameSurvivesTheFile() {
    SetupFixture f;
    frmMain& m = f.main();
    m.show();
    frmSetup& w = *f.openSetup();
    w.mnuToolsClear->trigger();
    place(w, "Ke1 Rh1 ke8");
    for (QCheckBox* right : {w.chkWCK, w.chkWCQ, w.chkBCK, w.chkBCQ})
        QTest::keyClick(right, Qt::Key_Space);
    QTest::mouseClick(w.cmdOK, Qt::LeftButton);
    for (const char* square : {"h1", "h7", "e8", "d8", "e1", "d2"})
        QTest::mouseClick(m.Tavlon1, Qt::LeftButton, {}, centreOf(*m.Tavlon1, square));
    QCOMPARE(m.Tavlon1->GameLength(), int16_t(3));
    const QString moves = m.Tavlon1->MovesAsList();
    m.mnuFileSave->trigger();
    const QString path = f.platform.path(QStringLiteral("ending.pgn"));
    f.platform.queueSave(path);
    m.mnuFileSaveAll->trigger();
    QVERIFY(AppFixture::readFile(path).startsWith(
        crlf("[Event \"?\"]\n[Site \"?\"]\n[Date \"????.??.??\"]\n[Round \"?\"]\n[White \"?\"]\n"
             "[Black \"?\"]\n[Result \"*\"]\n[SetUp \"1\"]\n"
             "[Forsyth \"4k3/8/8/8/8/8/8/4K2R w - - 0 1\"]\n\n1. Rh7 Kd8 2. Kd2")));

    f.open(path);
    m.mnuFileLoad->trigger();
    QVERIFY(f.platform.boxes().empty());
    QCOMPARE(m.lstTags->items().mid(7),
             (QStringList{"[SetUp \"1\"]", "[Forsyth \"4k3/8/8/8/8/8/8/4K2R w - - 0 1\"]"}));
    QCOMPARE(m.Tavlon1->CurrentForsyth(), QStringLiteral("4k3/8/8/8/8/8/8/4K2R w - - 0 1"));
    QCOMPARE(m.Tavlon1->MovesAsList(), moves);
}

QTEST_MAIN(TestSetup)
#include "tst_setup.moc"
