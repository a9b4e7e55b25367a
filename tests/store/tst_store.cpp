// The store without any window: the import line classifier, the Save All writer, and the rules
// of header text (list entry, tag lines, tag values, the start position tags).

#include "platform/Errors.h"
#include "platform/TextFile.h"
#include "store/Import.h"
#include "store/StoreWriter.h"
#include "store/TagLines.h"
#include "support/AppFixture.h"

#include <QTemporaryDir>
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

GameStoreArray import(const QByteArray& bytes, ImportResult* result = nullptr,
                      QList<long>* counts = nullptr) {
    TextFileReader file(bytes);
    GameStoreArray store(1);
    const ImportResult r = importGames(file, store, [&](long count, long percent) {
        QVERIFY(percent >= 0 && percent <= 101);
        if (counts)
            *counts << count;
    });
    if (result)
        *result = r;
    return store;
}

QByteArray saveAll(const GameStoreArray& store) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("all.pgn"));
    {
        TextFileWriter file(path, TextEncoding::Utf8);
        writeStore(file, store);
    }
    return AppFixture::readFile(path);
}

} // namespace

class TestStore : public QObject {
    Q_OBJECT
private slots:
    void workedExample();
    void lineClassification_data();
    void lineClassification();
    void limitOf32000Games_data();
    void limitOf32000Games();
    void saveAllSkipsMarkedGames();
    void headerText_data();
    void headerText();
    void forsythTags_data();
    void forsythTags();
};

void TestStore::workedExample() {
    ImportResult result;
    QList<long> counts;
    const GameStoreArray store = import(kClubFile, &result, &counts);
    QCOMPARE(result.count, 2L);
    QVERIFY(!result.limitReached);
    QCOMPARE(counts, (QList<long>{0, 1})); // once a pass, before the pass reads its game
    QCOMPARE(store.size(), size_t(3));
    QCOMPARE(store[1].Header,
             QStringLiteral("[Event \"Club\"]\r\n[White \"Ann\"]\r\n[Result \"1-0\"]\r\n"));
    QCOMPARE(store[1].Moves, QStringLiteral("1. e4 e5 {Open game} \r\n2. Nf3 Nc6 1-0 \r\n"));
    QCOMPARE(store[2].Header, QStringLiteral("[Event \"Cup\"]\r\n"));
    QCOMPARE(store[2].Moves, QStringLiteral("1. d4 * \r\n"));
    QCOMPARE(saveAll(store), crlf("[Event \"Club\"]\n[White \"Ann\"]\n[Result \"1-0\"]\n"
                                  "1. e4 e5 {Open game} \n2. Nf3 Nc6 1-0 \n\n"
                                  "[Event \"Cup\"]\n1. d4 * \n\n"));
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
    QTest::newRow("an escape line last in the file starts a game of its own")
        << crlf("1. e4 *\n\n%end") << QStringList{"1. e4 *\r\n", "%end\r\n"}
        << QStringList{"1. e4 * \r\n", ""};
    QTest::newRow("only empty lines: no game") << crlf("\n\n\n") << QStringList{} << QStringList{};
}

void TestStore::lineClassification() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, headers);
    QFETCH(QStringList, moves);
    const GameStoreArray store = import(file);
    QCOMPARE(int(store.size()) - 1, int(headers.size()));
    for (int i = 0; i < headers.size(); ++i) {
        QCOMPARE(store[size_t(i + 1)].Header, headers[i]);
        QCOMPARE(store[size_t(i + 1)].Moves, moves[i]);
    }
}

void TestStore::limitOf32000Games_data() {
    QTest::addColumn<int>("games");
    QTest::newRow("exactly 32,000 also stops") << 32000;
    QTest::newRow("the rest of the file is not read") << 32005;
}

void TestStore::limitOf32000Games() {
    QFETCH(int, games);
    QByteArray file;
    for (int i = 0; i < games; ++i)
        file += "1. e4 *\r\n\r\n";
    ImportResult result;
    const GameStoreArray store = import(file, &result);
    QVERIFY(result.limitReached);
    QCOMPARE(result.count, 32000L);
    QCOMPARE(store.size(), size_t(32001));
}

void TestStore::saveAllSkipsMarkedGames() {
    GameStoreArray store = import(kClubFile);
    store[1].Deleted = true;
    QCOMPARE(saveAll(store), crlf("[Event \"Cup\"]\n1. d4 * \n\n"));
    store[2].Deleted = true;
    QCOMPARE(saveAll(store), QByteArray());
}

void TestStore::headerText_data() {
    QTest::addColumn<QString>("header");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QStringList>("tags");
    QTest::newRow("imported") << "[Event \"A\"]\r\n[White \"W\"]\r\n"
                              << "[Event \"A\"] [White \"W\"] "
                              << QStringList{"[Event \"A\"]", "[White \"W\"]"};
    QTest::newRow("saved, with its empty line") << "[Event \"A\"]\r\n\r\n"
                                                << "[Event \"A\"] " << QStringList{"[Event \"A\"]"};
    QTest::newRow("only empty lines") << "\r\n\r\n"
                                      << "??? No Tags Found ???" << QStringList{};
    QTest::newRow("no line end at all") << ""
                                        << "??? No Tags Found ???" << QStringList{};
    QTest::newRow("a move line for a header") << "1. e4 *\r\n"
                                              << "1. e4 * " << QStringList{"1. e4 *"};
}

void TestStore::headerText() {
    QFETCH(QString, header);
    QFETCH(QString, entry);
    QFETCH(QStringList, tags);
    QCOMPARE(gameListEntry(header), entry);
    QCOMPARE(headerTagLines(header), tags);
}

void TestStore::forsythTags_data() {
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<bool>("isForsyth");
    QTest::addColumn<QString>("forsyth"); // "error": taking the value fails
    QTest::newRow("marker then value")
        << QStringList{"[SetUp \"1\"]", "[Forsyth \"x y\"]"} << true << "x y";
    QTest::newRow("value then marker")
        << QStringList{"[Forsyth \"x y\"]", "[SetUp \"1\"]"} << true << "x y";
    QTest::newRow("SetUp 0") << QStringList{"[SetUp \"0\"]", "[Forsyth \"x\"]"} << false << "";
    QTest::newRow("no marker") << QStringList{"[Forsyth \"x\"]"} << false << "";
    QTest::newRow("marker alone") << QStringList{"[SetUp \"1\"]"} << true << "";
    QTest::newRow("marker and FEN")
        << QStringList{"[SetUp \"1\"]", "[FEN \"x y\"]"} << true << "x y";
    QTest::newRow("FEN alone") << QStringList{"[Event \"Forsyth\"]", "[FEN \"x\"]"} << true << "x";
    QTest::newRow("a player called Forsyth")
        << QStringList{"[Black \"Forsyth\"]", "[FEN \"x\"]", "[SetUp \"1\"]"} << true << "x";
    QTest::newRow("Forsyth before FEN")
        << QStringList{"[FEN \"x\"]", "[SetUp \"1\"]", "[Forsyth \"y\"]"} << true << "y";
    QTest::newRow("FEN, SetUp 0") << QStringList{"[SetUp \"0\"]", "[FEN \"x\"]"} << false << "";
    QTest::newRow("tags on one line")
        << QStringList{"[Event \"e\"] [FEN \"x\"] [Site \"s\"]"} << true << "x";
    QTest::newRow("FEN without quote") << QStringList{"[FEN x]"} << true << "error";
    QTest::newRow("an earlier line with the word wins")
        << QStringList{"[Event \"Forsyth test\"]", "[SetUp \"1\"]", "[Forsyth \"x\"]"} << true
        << "Forsyth test";
    QTest::newRow("one quote: to the end")
        << QStringList{"[SetUp \"1\"]", "[Forsyth \"abc]"} << true << "abc]";
    QTest::newRow("no quote") << QStringList{"[SetUp \"1\"]", "Forsyth"} << true << "error";
    QTest::newRow("no tags") << QStringList{} << false << "";
}

void TestStore::forsythTags() {
    QFETCH(QStringList, tags);
    QFETCH(bool, isForsyth);
    QFETCH(QString, forsyth);
    bool isForsythGame = !isForsyth;
    QString value = QStringLiteral("stale");
    try {
        findForsythTag(tags, isForsythGame, value);
    } catch (const RuntimeError& e) {
        QCOMPARE(e.description(), QStringLiteral("Subscript out of range"));
        value = QStringLiteral("error");
    }
    QCOMPARE(isForsythGame, isForsyth);
    QCOMPARE(value, forsyth);
}

QTEST_MAIN(TestStore)
#include "tst_store.moc"
