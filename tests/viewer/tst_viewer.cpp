// Loading games, stepping, the state of commands, the move list and annotations.

#include "support/AppFixture.h"

#include <QTest>

using namespace tolvisk;

namespace {

const QByteArray kGames =
    crlf("[Event \"First\"]\n[White \"Anna\"]\n[Black \"Bert\"]\n\n"
         "{Before} 1. e4 e5 {Open} 2. Nf3 (2. f4 exf4 $1) Nc6 $14 3. Bb5 a6 4. Ba4 Nf6 5. O-O Be7\n"
         "6. Re1 b5 7. Bb3 d6 8. c3 O-O 9. h3 Nb8 10. d4 Nbd7 11. c4 c6 12. cxb5 axb5 1-0\n\n"
         "[Event \"Second\"]\n[SetUp \"1\"]\n[Forsyth \"4k3/8/8/8/8/8/4P3/4K3 w - - 0 1\"]\n\n"
         "1. e4 Kd7 *\n\n"
         "[Event \"Broken\"]\n\n1. e4 e4 *\n\n");

struct Loaded : AppFixture {
    Loaded() {
        openText(kGames);
        main().mnuFileLoad_Click();
        platform.clear();
    }
};

} // namespace

class TestViewer : public QObject {
    Q_OBJECT
private slots:
    void loadShowsTheGame();
    void loadFromForsythTag();
    void failedLoadShowsTheErrorBox();
    void nextAndPreviousGame();
    void playerStateRows_data();
    void playerStateRows();
    void panelTwoNamesTheLastMove();
    void fiftyMoveNotice();
    void moveListStyles_data();
    void moveListStyles();
    void doubleClickOnMoveNumber_data();
    void doubleClickOnMoveNumber();
    void annotateAndSaveKeepsEverything();
    void clearMarksTheGameChanged();
    void newGameKeepsTheStore();
};

void TestViewer::loadShowsTheGame() {
    Loaded f;
    frmMain& w = f.main();
    QCOMPARE(f.m().CurrentGame, int16_t(1));
    QCOMPARE(w.lstTags->items(),
             (QStringList{"[Event \"First\"]", "[White \"Anna\"]", "[Black \"Bert\"]"}));
    QCOMPARE(w.Tavlon1->Ply(), int16_t(0));
    QCOMPARE(w.Tavlon1->GameLength(), int16_t(24));
    QCOMPARE(w.Tavlon1->WhitePlayer(), QStringLiteral("Anna"));
    QCOMPARE(w.Tavlon1->BlackPlayer(), QStringLiteral("Bert"));
    QCOMPARE(w.lblGameLength->text(), QStringLiteral("Length: 24"));
    QCOMPARE(w.lblPly->text(), QStringLiteral("Ply: 0"));
    QCOMPARE(w.lblOnMove->text(), QStringLiteral("On Move: White"));
    QCOMPARE(w.lblCastle->text(), QStringLiteral("Castle: KQkq"));
    QCOMPARE(w.lblEPSquare->text(), QStringLiteral("EP Square: -"));
    QCOMPARE(w.txtAnnotation->Text(), QStringLiteral("Before"));
    QVERIFY(w.txtMoveList->Text().startsWith(QStringLiteral("1. e4 e5\r\n2. Nf3 Nc6\r\n")));
    // The move number of the start is selected in the list.
    QCOMPARE(w.txtMoveList->SelText(), QStringLiteral("1."));
    w.mnuPlayerMoveNext_Click();
    QCOMPARE(w.lblMoveText->text(), QStringLiteral("Move: e4"));
    QCOMPARE(w.lblEPSquare->text(), QStringLiteral("EP Square: e3"));
    QCOMPARE(w.lblOnMove->text(), QStringLiteral("On Move: Black"));
    QVERIFY(f.platform.boxes().empty());
}

void TestViewer::loadFromForsythTag() {
    Loaded f;
    f.main().lstPGNFiles->setListIndex(1);
    f.main().mnuFileLoad_Click();
    QVERIFY(f.main().IsForsythGame);
    QCOMPARE(f.main().MyForsyth, QStringLiteral("4k3/8/8/8/8/8/4P3/4K3 w - - 0 1"));
    QCOMPARE(f.main().Tavlon1->GameLength(), int16_t(2));
    QCOMPARE(f.main().lblCastle->text(), QStringLiteral("Castle: -"));
    QVERIFY(f.platform.boxes().empty());
}

void TestViewer::failedLoadShowsTheErrorBox() {
    Loaded f;
    frmMain& w = f.main();
    const QString before = w.txtMoveList->Text();
    w.lstPGNFiles->setListIndex(2);
    w.mnuFileLoad_Click();
    QCOMPARE(boxesShown(f.platform),
             QStringList{"Game Error: Error loading game. This game cannot be loaded."});
    QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::Exclamation);
    // Behind the box's details, the board's reason: the move, its number, what is wrong.
    QString reason;
    try {
        Tavlon().LoadMoves(QStringLiteral("1. e4 e4 * \r\n"));
    } catch (const std::exception& e) {
        reason = QString::fromUtf8(e.what());
    }
    QVERIFY(!reason.isEmpty());
    QCOMPARE(f.platform.boxes()[0].detail, reason);
    // CurrentGame and the tags already belong to the failed game; the board keeps its game.
    QCOMPARE(f.m().CurrentGame, int16_t(3));
    QCOMPARE(w.lstTags->items(), QStringList{"[Event \"Broken\"]"});
    QCOMPARE(w.Tavlon1->GameLength(), int16_t(24));
    QCOMPARE(w.txtMoveList->Text(), before);
    QVERIFY(!f.platform.busy);
}

void TestViewer::nextAndPreviousGame() {
    Loaded f;
    frmMain& w = f.main();
    w.mnuPlayerPreviousGame_Click(); // on the first entry: nothing
    QCOMPARE(w.lstPGNFiles->ListIndex(), int16_t(0));
    w.mnuPlayerNextGame_Click();
    QCOMPARE(w.lstPGNFiles->ListIndex(), int16_t(1));
    QCOMPARE(f.m().CurrentGame, int16_t(2));
    w.mnuPlayerNextGame_Click();
    w.mnuPlayerNextGame_Click(); // on the last entry: nothing
    QCOMPARE(w.lstPGNFiles->ListIndex(), int16_t(2));
    QCOMPARE(f.platform.boxes().size(), size_t(1)); // the broken game once
}

void TestViewer::playerStateRows_data() {
    QTest::addColumn<int>("ply");
    QTest::addColumn<int>("listIndex");
    QTest::addColumn<QStringList>("enabled");
    QTest::addColumn<QStringList>("disabled");
    QTest::newRow("start of the game, first entry")
        << 0 << 0
        << QStringList{"Forward", "End", "Next", "Load", "Delete", "Find", "Close", "StartAP"}
        << QStringList{"Start", "Back", "Prev", "Save", "SaveAll", "StopAP"};
    QTest::newRow("end of the game, middle entry")
        << 24 << 1 << QStringList{"Start", "Back", "Prev", "Next"}
        << QStringList{"Forward", "End", "StartAP", "StopAP"};
    QTest::newRow("no selection") << 3 << -1 << QStringList{"Next", "Start", "Forward"}
                                  << QStringList{"Prev"};
}

void TestViewer::playerStateRows() {
    QFETCH(int, ply);
    QFETCH(int, listIndex);
    QFETCH(QStringList, enabled);
    QFETCH(QStringList, disabled);
    Loaded f;
    frmMain& w = f.main();
    w.Tavlon1->GotoPly(int16_t(ply));
    w.lstPGNFiles->setListIndex(int16_t(listIndex));
    f.main().SetPlayerState();
    for (const QString& key : enabled)
        QVERIFY2(w.Toolbar1->button(key)->isEnabled(), qPrintable(key));
    for (const QString& key : disabled)
        QVERIFY2(!w.Toolbar1->button(key)->isEnabled(), qPrintable(key));
    QCOMPARE(w.mnuPlayerMoveFirst->isEnabled(), ply > 0);
    QCOMPARE(w.mnuPlayerMoveNext->isEnabled(), ply < 24);
    QCOMPARE(w.mnuPlayerPreviousGame->isEnabled(), listIndex > 0);
    QVERIFY(w.mnuFileClose->isEnabled());
    QVERIFY(w.mnuEditFind->isEnabled());
    QCOMPARE(w.sbStatusBar->panelText(1), QStringLiteral("Game %1 Of 3").arg(listIndex + 1));
}

void TestViewer::panelTwoNamesTheLastMove() {
    Loaded f;
    frmMain& w = f.main();
    QCOMPARE(w.sbStatusBar->panelText(2), QString());
    w.mnuPlayerMoveNext_Click();
    QCOMPARE(w.sbStatusBar->panelText(2), QStringLiteral("1. e4"));
    w.mnuPlayerMoveNext_Click();
    QCOMPARE(w.sbStatusBar->panelText(2), QStringLiteral("1. ... e5"));
    QCOMPARE(w.txtMoveList->SelText(), QStringLiteral("1."));
    w.mnuPlayerMoveLast_Click();
    QCOMPARE(w.sbStatusBar->panelText(2), QStringLiteral("12. ... axb5"));
    QCOMPARE(w.txtMoveList->SelText(), QStringLiteral("12."));
    w.mnuPlayerMoveFirst_Click();
    QCOMPARE(w.sbStatusBar->panelText(2), QString());
}

void TestViewer::fiftyMoveNotice() {
    AppFixture f;
    frmMain& w = f.main();
    w.Tavlon1->LoadMovesFrom(QStringLiteral("4k3/8/8/8/8/8/8/R3K3 w - - 98 60"),
                             QStringLiteral("60. Ra2 Kd7 61. Ra3 *"));
    w.Tavlon1->GotoPly(2); // halfmove clock 100
    f.main().SetPlayerState();
    QCOMPARE(boxesShown(f.platform), QStringList{"50 Move Rule: Fifty move rule:\r\n\r\nIt has "
                                                 "been 50 moves since the last pawn move or "
                                                 "capture."});
    QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::Information);
    w.Tavlon1->GotoPly(0); // 49
    f.platform.clear();
    f.main().SetPlayerState();
    QVERIFY(f.platform.boxes().empty());
}

void TestViewer::moveListStyles_data() {
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("text");
    QTest::newRow("L") << "L"
                       << "1. e4 e5\r\n2. Nf3 Nc6\r\n1-0";
    QTest::newRow("P") << "P"
                       << "1.e4 e5 2.Nf3 Nc6 1-0 ";
    QTest::newRow("A") << "A"
                       << "{Start}\r\n 1. e4 e5 {Open}\r\n 2. Nf3 (2. f4 exf4) 2... Nc6 1-0 \r\n";
    QTest::newRow("other") << "X"
                           << "";
}

void TestViewer::moveListStyles() {
    QFETCH(QString, style);
    QFETCH(QString, text);
    AppFixture f;
    f.m().MoveListStyle = style;
    f.main().Tavlon1->LoadMoves(
        QStringLiteral("{Start} 1. e4 e5 {Open} 2. Nf3 (2. f4 exf4) Nc6 1-0"));
    f.main().BuildMoveList();
    QCOMPARE(f.main().txtMoveList->Text(), text);
}

void TestViewer::doubleClickOnMoveNumber_data() {
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("ply");
    QTest::newRow("list number") << "L"
                                 << "2." << 4;
    QTest::newRow("list move does nothing") << "L"
                                            << "Nf3" << 1;
    QTest::newRow("annotated number") << "A"
                                      << "3." << 6;
    QTest::newRow("paragraph word") << "P"
                                    << "2.Nf3" << 4;
    QTest::newRow("paragraph black move does nothing") << "P"
                                                       << "Nc6" << 1;
    QTest::newRow("paragraph word without digits goes to 0") << "P"
                                                             << "a.b" << 0;
    QTest::newRow("too large for a ply does nothing") << "L"
                                                      << "20000." << 1;
    QTest::newRow("nan is no number") << "L"
                                      << "nan" << 1;
    QTest::newRow("inf is no number") << "A"
                                      << "inf" << 1;
    QTest::newRow("an exponent is no move number") << "L"
                                                   << "1e1" << 1;
}

void TestViewer::doubleClickOnMoveNumber() {
    QFETCH(QString, style);
    QFETCH(QString, word);
    QFETCH(int, ply);
    AppFixture f;
    frmMain& w = f.main();
    f.m().MoveListStyle = style;
    w.Tavlon1->LoadMoves(QStringLiteral("1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 *"));
    w.Tavlon1->GotoPly(1);
    w.txtMoveList->setText(QStringLiteral("xx ") + word + QStringLiteral(" yy"));
    w.txtMoveList->setSelStart(3);
    w.txtMoveList->setSelLength(int(word.size()));
    w.txtMoveList_DblClick();
    QCOMPARE(int(w.Tavlon1->Ply()), ply);
    QCOMPARE(w.txtMoveList->SelText(), word);
}

void TestViewer::annotateAndSaveKeepsEverything() {
    Loaded f;
    frmMain& w = f.main();
    w.mnuPlayerMoveNext_Click();
    w.mnuPlayerMoveNext_Click();
    w.txtAnnotation->setText(QStringLiteral("Solid,\r\nand\u00a0classical"));
    QTest::mouseClick(w.cmdSetAnno, Qt::LeftButton);
    QVERIFY(w.Tavlon1->GameChanged());
    QVERIFY(w.mnuFileSave->isEnabled());
    QVERIFY(!f.m().FileChanged);
    w.mnuFileSave_Click();
    const QString moves = f.m().GameStore[1].Moves;
    QVERIFY(moves.startsWith(QStringLiteral(
        "{Before} 1. e4 e5 {Solid, and\u00a0classical} 2. Nf3 (2. f4 exf4 $1) 2... Nc6 $14")));
    QVERIFY(moves.endsWith(QStringLiteral("1-0\r\n")));
    // Save All and reopen: the game comes back with its variation, NAGs and comments.
    const QString out = f.platform.path(QStringLiteral("saved.pgn"));
    f.platform.queueSave(out);
    w.mnuFileSaveAllAs_Click();
    f.open(out);
    // Read back as imported lines, each with its trailing blank.
    QCOMPARE(f.m().GameStore[1].Moves,
             QString(moves).replace(QStringLiteral("\r\n"), QStringLiteral(" \r\n")));
    w.mnuFileLoad_Click();
    w.Tavlon1->GotoPly(2);
    QString annotation;
    w.Tavlon1->GetAnnotation(annotation);
    QCOMPARE(annotation, QStringLiteral("Solid, and\u00a0classical"));
    QVERIFY(w.Tavlon1->MovesAnnotated().contains(QStringLiteral("(2. f4 exf4 $1)")));
}

void TestViewer::clearMarksTheGameChanged() {
    Loaded f;
    frmMain& w = f.main();
    w.cmdClearAnnotation_Click();
    QCOMPARE(w.txtAnnotation->Text(), QString());
    QVERIFY(w.Tavlon1->GameChanged());
    // The stored annotation comes back when the ply is shown again.
    w.mnuPlayerMoveNext_Click();
    w.mnuPlayerMovePrevious_Click();
    QCOMPARE(w.txtAnnotation->Text(), QStringLiteral("Before"));
}

void TestViewer::newGameKeepsTheStore() {
    Loaded f;
    frmMain& w = f.main();
    w.mnuFileNew_Click();
    QCOMPARE(f.m().CurrentGame, int16_t(-1));
    QCOMPARE(w.lstTags->ListCount(), int16_t(7));
    QCOMPARE(w.lstTags->List(6), QStringLiteral("[Result \"*\"]"));
    QCOMPARE(w.Tavlon1->GameLength(), int16_t(0));
    QCOMPARE(f.m().gameCount(), 3);
    QCOMPARE(w.lstPGNFiles->ListIndex(), int16_t(0));
    QVERIFY(!w.Toolbar1->button(QStringLiteral("StartAP"))->isEnabled());
    // The names beside the board are the new tags' too.
    QCOMPARE(w.Tavlon1->WhitePlayer(), QStringLiteral("?"));
    QCOMPARE(w.Tavlon1->BlackPlayer(), QStringLiteral("?"));
}

QTEST_MAIN(TestViewer)
#include "tst_viewer.moc"
