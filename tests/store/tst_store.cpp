// Opening, listing, marking, closing and saving the store, end to end through the main window.

#include "support/AppFixture.h"

#include <QTest>

using namespace tolvisk;

namespace {

// The worked example of the import rules: ten lines, CR LF each.
const QByteArray kClubFile = crlf("% from the club archive\n"
                                  "[Event \"Club\"]\n"
                                  "[White \"Ann\"]\n"
                                  "[Result \"1-0\"]\n"
                                  "\n"
                                  "1. e4 e5 {Open game}\n"
                                  "2. Nf3 Nc6 1-0\n"
                                  "\n"
                                  "[Event \"Cup\"]\n"
                                  "1. d4 *\n");

} // namespace

class TestStore : public QObject {
    Q_OBJECT
private slots:
    void importGivesTheWorkedExampleStore();
    void saveAllWritesTheWorkedExampleBytes();
    void lineClassification_data();
    void lineClassification();
    void roundTripKeepsBytes_data();
    void roundTripKeepsBytes();
    void cancelledOpenDialog();
    void unopenableFile();
    void emptyFileIsNoError();
    void limitOf32000Games();
    void listPreviewAndPanels();
    void markAsDeleted();
    void closeAsksFirst();
    void saveAllOnEmptyList();
    void saveNewGameThenSaveAgain();
    void saveAllLeavesOutMarkedGames();
    void promptsAndTheirCancel();
    void saveAsWritesTagsAndMoveList();
};

void TestStore::importGivesTheWorkedExampleStore() {
    AppFixture f;
    const QString path = f.openText(kClubFile);
    QCOMPARE(f.m().GameStore.size(), size_t(3));
    QCOMPARE(f.m().GameStore[1].Header,
             QStringLiteral("[Event \"Club\"]\r\n[White \"Ann\"]\r\n[Result \"1-0\"]\r\n"));
    QCOMPARE(f.m().GameStore[1].Moves,
             QStringLiteral("1. e4 e5 {Open game} \r\n2. Nf3 Nc6 1-0 \r\n"));
    QCOMPARE(f.m().GameStore[2].Header, QStringLiteral("[Event \"Cup\"]\r\n"));
    QCOMPARE(f.m().GameStore[2].Moves, QStringLiteral("1. d4 * \r\n"));
    QCOMPARE(f.main().windowTitle(), QStringLiteral("Ravelund - ") + path);
    QCOMPARE(f.main().sbStatusBar->panelText(1), QStringLiteral("Game 1 Of 2"));
    QCOMPARE(f.main().txtPreview->Text(), f.m().GameStore[1].Moves);
    QCOMPARE(f.main().lstPGNFiles->List(0),
             QStringLiteral("[Event \"Club\"] [White \"Ann\"] [Result \"1-0\"] "));
    QCOMPARE(f.m().PGNFileName, path);
    QVERIFY(!f.m().FileChanged);
    QCOMPARE(f.m().CurrentGame, int16_t(-1));
    // The busy pointer comes and goes; no box.
    QVERIFY(f.platform.boxes().empty());
    QCOMPARE(f.platform.kinds().last(), QStringLiteral("normal"));
    QVERIFY(!f.platform.busy);
}

void TestStore::saveAllWritesTheWorkedExampleBytes() {
    AppFixture f;
    f.openText(kClubFile);
    const QString out = f.platform.path(QStringLiteral("out.pgn"));
    f.platform.queueSave(out);
    f.main().mnuFileSaveAllAs_Click();
    const QByteArray expected = crlf("[Event \"Club\"]\n[White \"Ann\"]\n[Result \"1-0\"]\n"
                                     "1. e4 e5 {Open game} \n2. Nf3 Nc6 1-0 \n\n"
                                     "[Event \"Cup\"]\n1. d4 * \n\n");
    QCOMPARE(AppFixture::readFile(out), expected);
    QCOMPARE(f.m().PGNFileName, out);
    QCOMPARE(f.main().windowTitle(), QStringLiteral("Ravelund - ") + out);
    // Opening that file gives the same store again.
    const auto before = f.m().GameStore;
    f.open(out);
    QCOMPARE(f.m().GameStore.size(), before.size());
    for (size_t i = 1; i < before.size(); ++i) {
        QCOMPARE(f.m().GameStore[i].Header, before[i].Header);
        QCOMPARE(f.m().GameStore[i].Moves, before[i].Moves);
    }
}

void TestStore::lineClassification_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("headers");
    QTest::addColumn<QStringList>("moves");
    QTest::newRow("moves without tags land in both fields")
        << crlf("1. e4 e5 *\n") << QStringList{"1. e4 e5 *\r\n"} << QStringList{"1. e4 e5 * \r\n"};
    QTest::newRow("escape line inside the tag section stays")
        << crlf("[Event \"A\"]\n% note\n\n1. e4 *\n") << QStringList{"[Event \"A\"]\r\n% note\r\n"}
        << QStringList{"1. e4 * \r\n"};
    QTest::newRow("tags only, then a new game: its first line is dropped")
        << crlf("[Event \"A\"]\n\n[Event \"B\"]\n[Site \"S\"]\n\n1. d4 *\n")
        << QStringList{"[Event \"A\"]\r\n", "[Site \"S\"]\r\n"} << QStringList{"", "1. d4 * \r\n"};
    QTest::newRow("escape line in the move text is not stored but ends the game")
        << crlf("[Event \"A\"]\n\n1. e4 e5\n%1-0\n2. Nf3 *\n")
        << QStringList{"[Event \"A\"]\r\n", "2. Nf3 *\r\n"}
        << QStringList{"1. e4 e5 \r\n", "2. Nf3 * \r\n"};
    QTest::newRow("comment line starts the move text; blanks trimmed, tabs kept")
        << crlf("  [Event \"A\"]  \n\n{Intro}\n1. e4\t*\n") << QStringList{"[Event \"A\"]\r\n"}
        << QStringList{"{Intro} \r\n1. e4\t* \r\n"};
    QTest::newRow("lone CR and LF end lines too")
        << QByteArray("[Event \"A\"]\r[Site \"B\"]\n\n1. e4 *")
        << QStringList{"[Event \"A\"]\r\n[Site \"B\"]\r\n"} << QStringList{"1. e4 * \r\n"};
    QTest::newRow("trailing empty lines add a line end to the last header")
        << crlf("[Event \"A\"]\n1. e4 *\n\n\n\n") << QStringList{"[Event \"A\"]\r\n\r\n"}
        << QStringList{"1. e4 * \r\n"};
}

void TestStore::lineClassification() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, headers);
    QFETCH(QStringList, moves);
    AppFixture f;
    f.openText(file);
    QCOMPARE(f.m().gameCount(), int(headers.size()));
    for (int i = 0; i < headers.size(); ++i) {
        QCOMPARE(f.m().GameStore[size_t(i + 1)].Header, headers[i]);
        QCOMPARE(f.m().GameStore[size_t(i + 1)].Moves, moves[i]);
    }
}

void TestStore::roundTripKeepsBytes_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("white");
    const QByteArray game = "[Event \"Dortmund\"]\n[White \"R\xE9ti\"]\n[Black \"S\xE4misch\"]\n"
                            "1. e4 e5 {Br\x81ssel} 1-0\n\n";
    QTest::newRow("Windows-1252") << crlf(game) << QStringLiteral("R\u00e9ti");
    QTest::newRow("UTF-8") << crlf(QString::fromLatin1(game).toUtf8())
                           << QStringLiteral("R\u00e9ti");
    QTest::newRow("UTF-8 with BOM")
        << (QByteArray("\xEF\xBB\xBF") +
            crlf(QStringLiteral("[White \"H\u00f8vikodden\"]\n1. d4 *\n\n").toUtf8()))
        << QStringLiteral("H\u00f8vikodden");
}

void TestStore::roundTripKeepsBytes() {
    QFETCH(QByteArray, file);
    QFETCH(QString, white);
    AppFixture f;
    f.openText(file);
    QVERIFY(f.main().lstPGNFiles->List(0).contains(white));
    // Imported games are written back with each move line's trailing blank.
    QByteArray expected = file;
    expected.replace("1-0\r\n", "1-0 \r\n").replace("*\r\n", "* \r\n");
    expected.replace("\r\n\r\n", "\r\n");
    expected += "\r\n";
    const QString out = f.platform.path(QStringLiteral("out.pgn"));
    f.platform.queueSave(out);
    f.main().mnuFileSaveAllAs_Click();
    QCOMPARE(AppFixture::readFile(out), expected);
}

void TestStore::cancelledOpenDialog() {
    AppFixture f;
    f.openText(kClubFile);
    f.platform.clear();
    f.platform.queueOpenCancel();
    f.main().mnuFileOpen_Click();
    QCOMPARE(f.m().gameCount(), 2); // nothing changed
    const auto boxes = f.platform.boxes();
    QCOMPARE(boxes.size(), size_t(1));
    QCOMPARE(boxes[0].text, QStringLiteral("Cancel was selected."));
    QCOMPARE(boxes[0].title, QString());
    QCOMPARE(boxes[0].icon, MsgIcon::None);
    QCOMPARE(f.platform.lastFilter,
             QStringLiteral(
                 "PGN files (*.pgn) | *.pgn|Text files (*.txt) | *.txt|All files (*.*) | *.*"));
}

void TestStore::unopenableFile() {
    AppFixture f;
    f.openText(kClubFile);
    const QString title = f.main().windowTitle();
    const QString bad = f.platform.path(QStringLiteral("missing.pgn"));
    f.open(bad);
    QCOMPARE(f.m().GameStore.size(), size_t(1)); // the point of no return was passed
    QCOMPARE(f.m().PGNFileName, bad);
    QCOMPARE(f.main().windowTitle(), title);
    QCOMPARE(f.main().lstPGNFiles->ListCount(), int16_t(0));
    QCOMPARE(f.platform.boxes().size(), size_t(1));
    QVERIFY(!f.platform.busy);
}

void TestStore::emptyFileIsNoError() {
    AppFixture f;
    const QString path = f.openText(crlf("\n\n\n"));
    QCOMPARE(f.m().gameCount(), 0);
    QCOMPARE(f.main().sbStatusBar->panelText(1), QString());
    QCOMPARE(f.main().windowTitle(), QStringLiteral("Ravelund - ") + path);
    QVERIFY(f.platform.boxes().empty());
    QVERIFY(f.main().mnuFileSaveAllAs->isEnabled());
    QVERIFY(!f.main().mnuFileLoad->isEnabled());
    QVERIFY(!f.main().Toolbar1->button(QStringLiteral("Find"))->isEnabled());
}

void TestStore::limitOf32000Games() {
    AppFixture f;
    QByteArray file;
    for (int i = 0; i < 32001; ++i)
        file += "1. e4 *\r\n\r\n";
    f.openText(file);
    QCOMPARE(f.m().gameCount(), 32000);
    const auto boxes = f.platform.boxes();
    QCOMPARE(boxes.size(), size_t(1));
    QCOMPARE(boxes[0].text, QStringLiteral("Maximum Limit Of Database Reached"));
    QCOMPARE(boxes[0].title, QStringLiteral("Ravelund Limit = 32,000 Games"));
    QCOMPARE(boxes[0].icon, MsgIcon::None);
    QCOMPARE(f.main().lstPGNFiles->ListCount(), int16_t(32000));
    QCOMPARE(f.main().sbStatusBar->panelText(1), QStringLiteral("Game 1 Of 32000"));
}

void TestStore::listPreviewAndPanels() {
    AppFixture f;
    f.openText(crlf("[Event \"A\"]\n1. e4 *\n\n\n\n1. d4 *\n\n"));
    frmMain& w = f.main();
    w.lstPGNFiles->setListIndex(1);
    QCOMPARE(w.sbStatusBar->panelText(1), QStringLiteral("Game 2 of 2"));
    QCOMPARE(w.txtPreview->Text(), QStringLiteral("1. d4 * \r\n"));
    QCOMPARE(w.lstPGNFiles->List(1), QStringLiteral("1. d4 * "));
    f.m().SetPlayerState();
    QCOMPARE(w.sbStatusBar->panelText(1), QStringLiteral("Game 2 Of 2"));
    w.lstPGNFiles->setListIndex(-1);
    QCOMPARE(w.txtPreview->Text(), QString());
    QCOMPARE(w.sbStatusBar->panelText(1), QStringLiteral("Game 0 of 2"));
    f.m().FillGameList();
    QCOMPARE(w.sbStatusBar->panelText(1), QStringLiteral("2 Games"));
    QCOMPARE(w.lstPGNFiles->ListIndex(), int16_t(-1));
}

void TestStore::markAsDeleted() {
    AppFixture f;
    f.openText(kClubFile);
    frmMain& w = f.main();
    w.mnuEditmarkDeleted_Click();
    QVERIFY(f.m().GameStore[1].Deleted);
    QVERIFY(w.mnuEditmarkDeleted->isChecked());
    QVERIFY(w.Toolbar1->pressed(QStringLiteral("Delete")));
    QVERIFY(!f.m().FileChanged);
    w.lstPGNFiles->setListIndex(1);
    QVERIFY(!w.mnuEditmarkDeleted->isChecked());
    w.lstPGNFiles->setListIndex(0);
    QVERIFY(w.Toolbar1->pressed(QStringLiteral("Delete")));
    w.Toolbar1_ButtonClick(QStringLiteral("Delete"));
    QVERIFY(!f.m().GameStore[1].Deleted);
}

void TestStore::closeAsksFirst() {
    AppFixture f;
    f.openText(kClubFile);
    f.platform.clear();
    f.platform.queueMsgBox(MsgResult::No);
    f.main().mnuFileClose_Click();
    QCOMPARE(f.m().gameCount(), 2);
    auto boxes = f.platform.boxes();
    QCOMPARE(boxes.size(), size_t(1));
    QCOMPARE(boxes[0].title, QStringLiteral("Confirm Clear All Games"));
    QCOMPARE(
        boxes[0].text,
        QStringLiteral("This will remove all loaded games from memory. Do you want to continue ?"));
    QCOMPARE(boxes[0].icon, MsgIcon::Exclamation);
    QCOMPARE(boxes[0].buttons, MsgButtons::YesNo);
    const QString title = f.main().windowTitle();
    f.platform.queueMsgBox(MsgResult::Yes);
    f.main().mnuFileClose_Click();
    QCOMPARE(f.m().GameStore.size(), size_t(1));
    QCOMPARE(f.m().PGNFileName, QString());
    QCOMPARE(f.main().lstPGNFiles->ListCount(), int16_t(0));
    QCOMPARE(f.main().windowTitle(), title);
    QCOMPARE(f.main().lstTags->ListCount(), int16_t(7));
    // Loading from the empty list now says there is nothing to load.
    f.platform.clear();
    f.main().lstPGNFiles_DblClick();
    QCOMPARE(f.platform.boxes().at(0).text, QStringLiteral("There are no games to select from."));
    QCOMPARE(f.platform.boxes().at(0).title, QStringLiteral("No Games"));
}

void TestStore::saveAllOnEmptyList() {
    AppFixture f;
    f.main().mnuFileSaveAll_Click();
    const auto boxes = f.platform.boxes();
    QCOMPARE(boxes.size(), size_t(1));
    QCOMPARE(boxes[0].title, QStringLiteral("No Games To Export"));
    QCOMPARE(boxes[0].text,
             QStringLiteral(
                 "There are no saved games to export.\r\n\r\nSave a PGN game and try again."));
    QCOMPARE(boxes[0].icon, MsgIcon::Exclamation);
    QVERIFY(f.platform.ofKind(QStringLiteral("showSave")).empty());
}

void TestStore::saveNewGameThenSaveAgain() {
    AppFixture f;
    f.openText(kClubFile);
    frmMain& w = f.main();
    w.mnuFileNew_Click();
    w.Tavlon1->LoadMoves(QStringLiteral("1. e4 e5 *"));
    w.Tavlon1->setGameChanged(true);
    w.mnuFileSave_Click();
    QCOMPARE(f.m().gameCount(), 3);
    QCOMPARE(f.m().CurrentGame, int16_t(3));
    QCOMPARE(w.lstPGNFiles->ListIndex(), int16_t(2));
    QVERIFY(f.m().FileChanged);
    QVERIFY(!w.Tavlon1->GameChanged());
    QCOMPARE(
        f.m().GameStore[3].Header,
        QStringLiteral("[Event \"?\"]\r\n[Site \"?\"]\r\n[Date \"????.??.??\"]\r\n[Round \"?\"]\r\n"
                       "[White \"?\"]\r\n[Black \"?\"]\r\n[Result \"*\"]\r\n\r\n"));
    QCOMPARE(f.m().GameStore[3].Moves, QStringLiteral("1. e4 e5 *\r\n"));
    QVERIFY(w.mnuFileSaveAll->isEnabled());
    w.mnuFileSave_Click();
    QCOMPARE(f.m().gameCount(), 3);
}

void TestStore::saveAllLeavesOutMarkedGames() {
    AppFixture f;
    const QString path = f.openText(kClubFile);
    f.main().mnuEditmarkDeleted_Click();
    f.main().lstPGNFiles->setListIndex(1);
    f.main().mnuEditmarkDeleted_Click();
    f.main().mnuFileSaveAll_Click(); // to the file it came from, no dialog
    QCOMPARE(AppFixture::readFile(path), QByteArray());
    QCOMPARE(f.main().lstPGNFiles->ListCount(), int16_t(2));
    QVERIFY(f.m().GameStore[1].Deleted);
}

void TestStore::promptsAndTheirCancel() {
    AppFixture f;
    f.openText(kClubFile);
    frmMain& w = f.main();
    w.Tavlon1->setGameChanged(true);
    f.platform.clear();
    f.platform.queueMsgBox(MsgResult::Cancel);
    w.mnuFileSaveAll_Click();
    QVERIFY(f.m().SaveCancelled);
    auto boxes = f.platform.boxes();
    QCOMPARE(boxes.size(), size_t(1));
    QCOMPARE(boxes[0].title, QStringLiteral("Unsaved Game Changes"));
    QCOMPARE(boxes[0].text,
             QStringLiteral("The game has changed. Save changes before continuing?"));
    QCOMPARE(boxes[0].buttons, MsgButtons::YesNoCancel);
    // Open: Yes to the game saves it into the store; then the file prompt; Cancel stops.
    f.platform.clear();
    f.platform.queueMsgBox(MsgResult::Yes);
    f.platform.queueMsgBox(MsgResult::Cancel);
    w.mnuFileOpen_Click();
    boxes = f.platform.boxes();
    QCOMPARE(boxes.size(), size_t(2));
    QCOMPARE(boxes[1].title, QStringLiteral("Unsaved File Changes"));
    QCOMPARE(boxes[1].text,
             QStringLiteral("The PGN file has changed. Save changes before continuing?"));
    QVERIFY(f.platform.ofKind(QStringLiteral("showOpen")).empty());
    QCOMPARE(f.m().gameCount(), 3);
    // No at the game prompt keeps the change flag; Load then replaces the game.
    w.Tavlon1->setGameChanged(true);
    f.platform.clear();
    f.platform.queueMsgBox(MsgResult::No);
    w.mnuFileLoad_Click();
    QVERIFY(!w.Tavlon1->GameChanged());
}

void TestStore::saveAsWritesTagsAndMoveList() {
    AppFixture f;
    f.openText(kClubFile);
    f.main().mnuFileLoad_Click();
    const QString out = f.platform.path(QStringLiteral("one.pgn"));
    f.platform.queueSave(out);
    f.main().mnuFileSaveAs_Click();
    QCOMPARE(
        AppFixture::readFile(out),
        crlf("[Event \"Club\"]\n[White \"Ann\"]\n[Result \"1-0\"]\n\n1. e4 e5\n2. Nf3 Nc6\n1-0\n"));
    QVERIFY(!f.m().FileChanged);
    // A cancelled dialog writes nothing and says nothing.
    f.platform.clear();
    f.platform.queueSaveCancel();
    f.main().mnuFileSaveAs_Click();
    QVERIFY(f.platform.boxes().empty());
    QVERIFY(!f.platform.busy);
}

QTEST_MAIN(TestStore)
#include "tst_store.moc"
