// The store without any window: the import line classifier, the Save All writer, what a cycle
// of both keeps, and the rules of header text (list entry, tag lines, tag values, the start
// position tags).

#include "platform/Errors.h"
#include "platform/TextFile.h"
#include "store/Import.h"
#include "store/LineRules.h"
#include "store/StoreWriter.h"
#include "store/TagLines.h"
#include "support/AppFixture.h"

#include <QDirIterator>
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

GameStoreArray import(TextFileReader& file, ImportResult* result = nullptr,
                      QList<long>* counts = nullptr) {
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

GameStoreArray import(const QByteArray& bytes, ImportResult* result = nullptr,
                      QList<long>* counts = nullptr) {
    TextFileReader file(bytes);
    return import(file, result, counts);
}

QByteArray saveAll(const GameStoreArray& store, TextEncoding encoding = TextEncoding::Utf8) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("all.pgn"));
    TextFileWriter file(path, encoding);
    writeStore(file, store);
    file.close();
    return AppFixture::readFile(path);
}

// The lines of a file, blanks trimmed, as Save All must keep them: neither empty nor escape.
QList<QByteArray> keptLines(QByteArray bytes) {
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    QList<QByteArray> lines;
    for (QByteArray line : bytes.replace("\r\n", "\n").replace('\r', '\n').split('\n')) {
        line = trimBlanks(line).toByteArray();
        if (!line.isEmpty() && !line.startsWith('%'))
            lines << line;
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

} // namespace

class TestStore : public QObject {
    Q_OBJECT
private slots:
    void workedExample();
    void lineRules_data();
    void lineRules();
    void openAndSaveAllKeepEveryLine();
    void unicodeFilesComeBackInTheirEncoding_data();
    void unicodeFilesComeBackInTheirEncoding();
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
    const QByteArray saved = crlf("[Event \"Club\"]\n[White \"Ann\"]\n[Result \"1-0\"]\n"
                                  "1. e4 e5 {Open game} \n2. Nf3 Nc6 1-0 \n\n"
                                  "[Event \"Cup\"]\n1. d4 * \n\n");
    QCOMPARE(saveAll(store), saved);
    QCOMPARE(saveAll(import(saved)), saved);
}

// Each file as lines joined by "|" with CR LF line ends; the games' blocks likewise, the lines
// of each block ended by CR LF.
void TestStore::lineRules_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("headers");
    QTest::addColumn<QStringList>("moves");
    auto row = [](const char* name, const char* file, QStringList headers, QStringList moves) {
        QByteArray bytes(file);
        bytes.replace('|', "\r\n");
        for (QStringList* blocks : {&headers, &moves})
            for (QString& block : *blocks)
                block = block.isEmpty() ? block : block.replace(u'|', kCrLf) + kCrLf;
        QTest::newRow(name) << bytes << headers << moves;
    };
    // A pass that finds no game changes nothing.
    row("trailing empty lines add nothing", "[Event \"A\"]|1. e4 *||||", {"[Event \"A\"]"},
        {"1. e4 * "});
    row("an escape line last in the file starts no game", "1. e4 *||%end", {""}, {"1. e4 * "});
    row("only empty and escape lines: no game", "|% a||%b|", {}, {});
    // A first line that opens no tag section starts the move text.
    row("moves without tags", "1. e4 e5|2. Nf3 *", {""}, {"1. e4 e5 |2. Nf3 * "});
    row("a lone result without tags", "*", {""}, {"* "});
    row("escape line in the move text is not kept but ends the game",
        "[Event \"A\"]||1. e4 e5|%1-0|2. Nf3 *", {"[Event \"A\"]", ""}, {"1. e4 e5 ", "2. Nf3 * "});
    // The tag section holds tag lines and escape lines; anything else starts the move text.
    row("escape line inside the tag section stays", "[Event \"A\"]|% note||1. e4 *",
        {"[Event \"A\"]|% note"}, {"1. e4 * "});
    row("a comment line right behind the tags", "[Event \"A\"]|{Intro} 1. e4 *", {"[Event \"A\"]"},
        {"{Intro} 1. e4 * "});
    row("coordinate moves right behind the tags", "[Event \"A\"]|e2e4 e7e5", {"[Event \"A\"]"},
        {"e2e4 e7e5 "});
    row("tabs, blanks and a byte order mark before a tag",
        "[Event \"A\"]|\t[Site \"S\"]| "
        "\xEF\xBB\xBF[Round \"1\"]||1. e4 *",
        {"[Event \"A\"]|\t[Site \"S\"]|\xEF\xBB\xBF[Round \"1\"]"}, {"1. e4 * "});
    // The gap passes over empty and escape lines.
    row("escape lines in the gap", "[Event \"A\"]||% x||%y|1. d4 *", {"[Event \"A\"]"},
        {"1. d4 * "});
    // Behind the gap, a tag line begins the next game; anything else starts the move text.
    row("tags only, then a new game", "[Event \"A\"]||[Event \"B\"]|[Site \"S\"]||1. d4 *",
        {"[Event \"A\"]", "[Event \"B\"]|[Site \"S\"]"}, {"", "1. d4 * "});
    row("a lone result behind the gap", "[Event \"A\"]||*||[Event \"B\"]",
        {"[Event \"A\"]", "[Event \"B\"]"}, {"* ", ""});
    row("coordinate moves behind the gap", "[Event \"A\"]||e2e4 e7e5|g1f3||", {"[Event \"A\"]"},
        {"e2e4 e7e5 |g1f3 "});
    row("tags to the end of the file", "[Event \"A\"]|[Site \"S\"]", {"[Event \"A\"]|[Site \"S\"]"},
        {""});
    // The move text rules stand as they were.
    row("comment line starts the move text; blanks trimmed, tabs kept",
        "  [Event \"A\"]  ||{Intro}|1. e4\t*", {"[Event \"A\"]"}, {"{Intro} |1. e4\t* "});
    row("a one-line move text runs into the next game's tags",
        "[Event \"A\"]||1. e4 e5|[Event \"B\"]|1/2-1/2||[Event \"C\"]",
        {"[Event \"A\"]", "[Event \"C\"]"}, {"1. e4 e5 |[Event \"B\"] |1/2-1/2 ", ""});
    row("lone CR and LF end lines too", "[Event \"A\"]\r[Site \"B\"]\n\n1. e4 *",
        {"[Event \"A\"]|[Site \"B\"]"}, {"1. e4 * "});
}

void TestStore::lineRules() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, headers);
    QFETCH(QStringList, moves);
    const GameStoreArray store = import(file);
    QCOMPARE(int(store.size()) - 1, int(headers.size()));
    for (int i = 0; i < headers.size(); ++i) {
        QCOMPARE(store[size_t(i + 1)].Header, headers[i]);
        QCOMPARE(store[size_t(i + 1)].Moves, moves[i]);
    }
    // Saved and read back, the same games; saved again, the same bytes.
    const QByteArray saved = saveAll(store);
    const GameStoreArray again = import(saved);
    QCOMPARE(again.size(), store.size());
    for (size_t i = 1; i < store.size(); ++i) {
        QCOMPARE(again[i].Header, store[i].Header.toString());
        QCOMPARE(again[i].Moves, store[i].Moves.toString());
    }
    QCOMPARE(saveAll(again), saved);
}

void TestStore::openAndSaveAllKeepEveryLine() {
    const QString corpus = QStringLiteral(TOLVISK_CORPUS_DIR);
    if (!QFileInfo(corpus).isDir())
        QSKIP("no corpus folder");
    QDirIterator files(corpus, {QStringLiteral("*.pgn")}, QDir::Files,
                       QDirIterator::Subdirectories);
    int checked = 0;
    while (files.hasNext()) {
        const QString path = files.next();
        if (path.contains(QLatin1String("/oracle/")))
            continue;
        ++checked;
        ImportResult result;
        auto file = TextFileReader::open(path);
        const GameStoreArray store = import(*file, &result);
        const QByteArray first = saveAll(store, result.encoding);
        // Every line that is neither empty nor an escape line is there, as often as it was.
        const QList<QByteArray> want = keptLines(AppFixture::readFile(path));
        const QList<QByteArray> have = keptLines(first);
        QVERIFY2(std::includes(have.begin(), have.end(), want.begin(), want.end()),
                 qPrintable(path));
        ImportResult again;
        TextFileReader firstFile(first);
        const GameStoreArray reopened = import(firstFile, &again);
        QVERIFY2(saveAll(reopened, again.encoding) == first, qPrintable(path));
    }
    QVERIFY(checked > 200);
}

void TestStore::unicodeFilesComeBackInTheirEncoding_data() {
    QTest::addColumn<int>("encoding");
    QTest::newRow("UTF-16 little-endian") << int(TextEncoding::Utf16LE);
    QTest::newRow("UTF-16 big-endian") << int(TextEncoding::Utf16BE);
    QTest::newRow("UTF-32 little-endian") << int(TextEncoding::Utf32LE);
    QTest::newRow("UTF-32 big-endian") << int(TextEncoding::Utf32BE);
    QTest::newRow("UTF-8 with its mark") << int(TextEncoding::Utf8Bom);
}

void TestStore::unicodeFilesComeBackInTheirEncoding() {
    QFETCH(int, encoding);
    const auto e = TextEncoding(encoding);
    const QString text =
        QStringLiteral("[White \"R\u00e9ti \u0141\u00f3d\u017a \U0001F600\"]\r\n"
                       "1. e4 {caf\u00e9} * \r\n\r\n[Event \"B\"]\r\n1. d4 * \r\n\r\n");
    const QByteArray bytes = encodeText(text, e);
    ImportResult result;
    const GameStoreArray store = import(bytes, &result);
    QCOMPARE(int(result.encoding), encoding);
    QCOMPARE(store.size(), size_t(3));
    QCOMPARE(store[1].Header,
             QStringLiteral("[White \"R\u00e9ti \u0141\u00f3d\u017a \U0001F600\"]\r\n"));
    QCOMPARE(saveAll(store, result.encoding), bytes);
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
