// The variation board: Synchronize and Send between the two boards, their refusals, the toolbar,
// the menu and the double click on a move number.

#include "store/Import.h"
#include "support/AppFixture.h"
#include "variation/frmVariation.h"

#include <QTest>

using namespace tolvisk;

namespace {

const QString kKingAndPawn = QStringLiteral("4k3/8/8/8/8/8/4P3/4K3 w - - 0 1");

const QByteArray kGames = crlf(
    "[Event \"Annotated\"]\n[White \"Anna\"]\n[Black \"Bert\"]\n\n"
    "{Start} 1. e4 {King's pawn} e5 $1 (1... c5 $2 {Sicilian} 2. Nf3 (2. c3 d5) d6) 2. Nf3 Nc6 $14 "
    "3. Bb5 a6 *\n\n"
    "[Event \"Set up\"]\n[SetUp \"1\"]\n[Forsyth \"4k3/8/8/8/8/8/4P3/4K3 w - - 0 1\"]\n\n"
    "1. e4 {up} Kd7 (1... Ke7 $6) 2. e5 Ke6 *\n\n"
    "[Event \"FEN\"]\n[SetUp \"1\"]\n[FEN \"4k3/8/8/8/8/8/4P3/4K3 w - - 0 1\"]\n\n"
    "1. e4 Kd7 2. e5 {far} Ke6 (2... Kc6) *\n\n");

struct Variation : AppFixture {
    // Game `index` of kGames on the main board, synchronised to the variation board.
    explicit Variation(int index = 0) {
        openText(kGames);
        main().lstPGNFiles->setListIndex(int16_t(index));
        main().mnuFileLoad_Click();
        main().mnuToolsVariationBoard_Click();
        var = qobject_cast<frmVariation*>(app->findForm(QStringLiteral("frmVariation")));
        QCOMPARE(navigation().size(), 4); // all enabled until the first refresh
        QTest::mouseClick(var->cmdSync, Qt::LeftButton);
        platform.clear();
    }
    frmVariation* var = nullptr;
    Tavlon& board() { return *main().Tavlon1; }
    Tavlon& varBoard() { return *var->Tavlon1; }
    void button(const char* key) { var->Toolbar1->button(QString::fromLatin1(key))->trigger(); }
    QString startOf(Tavlon& b) {
        b.RefreshForsyth(0);
        return b.CurrentForsyth();
    }
    QStringList navigation() {
        QStringList enabled;
        for (const char* key : {"Start", "Back", "Forward", "End"})
            if (var->Toolbar1->button(QString::fromLatin1(key))->isEnabled())
                enabled << QString::fromLatin1(key);
        return enabled;
    }
};

} // namespace

class TestVariation : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { quietHeadlessNotes(); }
    void syncThenSendLosesNothing_data();
    void syncThenSendLosesNothing();
    void refusalsKeepTheOtherBoard();
    void doubleClickOnMoveNumber_data();
    void doubleClickOnMoveNumber();
    void newPrintAndSaveAs();
};

void TestVariation::syncThenSendLosesNothing_data() {
    QTest::addColumn<int>("game");
    QTest::addColumn<QString>("start");
    QTest::newRow("comments, NAGs and variations")
        << 0 << "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";
    QTest::newRow("SetUp and Forsyth tags") << 1 << kKingAndPawn;
    QTest::newRow("SetUp and FEN tags") << 2 << kKingAndPawn;
}

void TestVariation::syncThenSendLosesNothing() {
    QFETCH(int, game);
    QFETCH(QString, start);
    Variation f(game);
    frmMain& w = f.main();
    const QString moves = f.board().MovesAnnotated();
    const QString startPosition = f.startOf(f.board());
    QCOMPARE(startPosition, start);
    const QStringList tags = w.lstTags->items();
    w.mnuPlayerMoveNext_Click();
    w.mnuPlayerMoveNext_Click();
    w.mnuBoardReverse_Click();

    QTest::mouseClick(f.var->cmdSync, Qt::LeftButton);
    QCOMPARE(f.varBoard().MovesAnnotated(), moves);
    QCOMPARE(f.startOf(f.varBoard()), startPosition);
    QCOMPARE(f.varBoard().Ply(), int16_t(2));
    QCOMPARE(f.var->txtMoveList->Text(), f.varBoard().MovesAsList());
    QCOMPARE(f.varBoard().WhitePlayer(), f.board().WhitePlayer());
    QCOMPARE(f.varBoard().ViewColor(), QStringLiteral("B"));
    QCOMPARE(f.navigation(), (QStringList{"Start", "Back", "Forward", "End"}));

    f.button("Forward");
    f.board().NewGame(); // unsaved work on the main board is replaced without a question
    f.platform.clear();
    QTest::mouseClick(f.var->cmdSend, Qt::LeftButton);
    QCOMPARE(f.board().MovesAnnotated(), moves);
    QCOMPARE(f.startOf(f.board()), startPosition);
    QCOMPARE(w.lblPly->text(), QStringLiteral("Ply: 3"));
    QVERIFY(f.board().GameChanged());
    QVERIFY(w.mnuFileSave->isEnabled());
    QCOMPARE(w.lstTags->items(), tags);
    QCOMPARE(f.m().CurrentGame, int16_t(game + 1));
    QCOMPARE(f.varBoard().MovesAnnotated(), moves); // the variation board keeps its game
    QCOMPARE(f.platform.kinds().first() + f.platform.kinds().last(), QStringLiteral("busynormal"));
    QVERIFY(f.platform.boxes().empty());
}

void TestVariation::refusalsKeepTheOtherBoard() {
    Variation f(1);
    const QString varMoves = f.varBoard().MovesAnnotated();
    // A header edited to name a start position without quotes has no value: this board keeps
    // its game and the start position it came from.
    f.main().lstTags->AddItem(QStringLiteral("[Forsyth none]"), 0);
    QTest::mouseClick(f.var->cmdSync, Qt::LeftButton);
    QCOMPARE(boxesShown(f.platform),
             QStringList("Synchronize Variation: The main game cannot be set up on the variation "
                         "board.\r\n\r\nSubscript out of range"));
    QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::Exclamation);
    QCOMPARE(f.platform.kinds(), (QStringList{"busy", "normal", "msgBox"}));
    QCOMPARE(f.varBoard().MovesAnnotated(), varMoves);
    QCOMPARE(f.var->MyForsyth, kKingAndPawn);

    // After New the window still holds that start position, which 1. d4 does not fit.
    f.var->mnuFileNew->trigger();
    f.varBoard().LoadMoves(QStringLiteral("1. d4 *"));
    const QString moves = f.board().MovesAnnotated();
    f.platform.clear();
    QTest::mouseClick(f.var->cmdSend, Qt::LeftButton);
    QCOMPARE(f.platform.kinds(), (QStringList{"busy", "normal", "msgBox"}));
    QVERIFY(f.platform.boxes()[0].text.startsWith(
        "The variation cannot be set up on the main board.\r\n\r\n"));
    QCOMPARE(f.platform.boxes()[0].title, QStringLiteral("Send Variation"));
    QCOMPARE(f.board().MovesAnnotated(), moves);
    QVERIFY(!f.board().GameChanged());
}

void TestVariation::doubleClickOnMoveNumber_data() {
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("ply");
    QTest::newRow("move number") << "2." << 4;
    QTest::newRow("a move does nothing") << "Nf3" << 6;
    QTest::newRow("above 16,383 does nothing") << "16384." << 6;
}

void TestVariation::doubleClickOnMoveNumber() {
    QFETCH(QString, word);
    QFETCH(int, ply);
    Variation f;
    f.button("End");
    QCOMPARE(f.navigation(), (QStringList{"Start", "Back"}));
    QCOMPARE(f.board().Ply(), int16_t(0)); // the boards do not know each other
    TextBox& list = *f.var->txtMoveList;
    list.setText(QStringLiteral("1. e4 e5 ") + word + QStringLiteral(" x"));
    QTextCursor at(list.document());
    at.setPosition(10);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.cursorRect(at).center());
    QCOMPARE(list.SelText(), word);
    QCOMPARE(int(f.varBoard().Ply()), ply);
    QCOMPARE(f.navigation().size(), ply == 6 ? 2 : 4);
}

void TestVariation::newPrintAndSaveAs() {
    Variation f(1);
    f.button("Cycle");
    QCOMPARE(f.varBoard().ViewColor() + f.board().ViewColor(), QStringLiteral("BW"));
    f.var->mnuFileNew->trigger();
    QCOMPARE(f.varBoard().GameLength(), int16_t(0));
    QCOMPARE(f.var->txtMoveList->Text(), QString());
    QCOMPARE(f.var->MyForsyth, kKingAndPawn); // New leaves the start position of the last Sync
    f.varBoard().LoadMoves(QStringLiteral("1. d4 d5 *"));
    emit f.varBoard().MoveAdded();
    // The header of the game now on the main board, over the variation's moves.
    f.main().lstPGNFiles->setListIndex(0);
    f.main().mnuFileLoad_Click();
    f.button("Print");
    const QString header = "[Event \"Annotated\"]\r\n[White \"Anna\"]\r\n[Black \"Bert\"]\r\n\r\n";
    QCOMPARE(f.platform.printed, QStringList(header + "1. d4 d5\r\n*"));
    f.platform.queueSave(f.platform.path("line.pgn"));
    f.var->mnuFileSaveAs->trigger();
    QCOMPARE(f.readFile(f.platform.path("line.pgn")), (header + "1. d4 d5\r\n*\r\n").toUtf8());
    QCOMPARE(f.platform.lastFilter, kPgnFileFilter);
}

QTEST_MAIN(TestVariation)
#include "tst_variation.moc"
