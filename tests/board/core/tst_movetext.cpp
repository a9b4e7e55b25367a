// Move text: reading comments, NAGs, variations and results; the three texts written back;
// playing moves on the board's game; and the real files of the corpus.

#include "core/BoardError.h"
#include "core/BoardGame.h"
#include "core/MoveText.h"
#include "core/PgnFile.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTest>

using namespace tavlon;

namespace {

QString q(const std::string& s) {
    return QString::fromStdString(s);
}

BoardGame loaded(const char* text) {
    BoardGame g;
    g.loadMoves(text);
    return g;
}

// A Forsyth string with its castling field reduced to how many rights each side has, since
// files write Chess960 rights in more than one way.
QString comparable(const QString& fen) {
    QStringList f = fen.split(u' ');
    if (f.size() > 2) {
        int white = 0, black = 0;
        for (QChar c : f[2])
            (c.isUpper() ? white : black) += c != u'-';
        f[2] = QString::number(white) + QString::number(black);
    }
    return f.join(u' ');
}

} // namespace

class TestMoveText : public QObject {
    Q_OBJECT
private slots:
    void reading();
    void results_data();
    void results();
    void readingErrors_data();
    void readingErrors();
    void writers_data();
    void writers();
    void exportRules();
    void annotationsPerPly();
    void playingMoves();
    void loadFailureKeepsTheGame();
    void deepestNesting();
    void corpusMatchesTheOracle();
    void corpusRoundTrips();
};

void TestMoveText::reading() {
    const Game g = readMoveText(
        "{Intro  text}\r\n1. e4! e5 {a\r\nb} $14 2.Nf3 ( 2. f4 ( 2. d4 ) exf4 ) 2...Nc6 "
        "; rest of line\r\n% escape 1-0\r\n3.Bb5 1/2-1/2 4. a4",
        Position::start());
    QCOMPARE(q(g.main.leadComment), QStringLiteral("Intro text"));
    QCOMPARE(g.main.moves.size(), size_t(5));
    QCOMPARE(g.main.moves[0].nags, std::vector<int>{1});
    QCOMPARE(q(g.main.moves[1].comment), QStringLiteral("a b"));
    QCOMPARE(q(g.main.moves[3].comment), QStringLiteral("rest of line"));
    QCOMPARE(g.main.moves[1].nags, std::vector<int>{14});
    QCOMPARE(g.main.moves[2].variations.size(), size_t(1));
    const Line& v = g.main.moves[2].variations[0];
    QCOMPARE(v.moves.size(), size_t(2));
    QCOMPARE(v.moves[0].variations.size(), size_t(1));
    QCOMPARE(q(g.result), QStringLiteral("1/2-1/2"));
}

void TestMoveText::results_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("plies");
    QTest::addColumn<QString>("result");
    QTest::newRow("none") << "1. e4 e5" << 2 << "*";
    QTest::newRow("white wins") << "1. e4 e5 1-0" << 2 << "1-0";
    QTest::newRow("short draw") << "1. e4 1/2" << 1 << "1/2-1/2";
    QTest::newRow("draw with halves") << "1. e4 \u00bd-\u00bd" << 1 << "1/2-1/2";
    QTest::newRow("en dash") << "1. e4 0\u20131" << 1 << "0-1";
    QTest::newRow("glued to the last move") << "1. e4 h6*" << 2 << "*";
    QTest::newRow("ends the text") << "1. e4 1-0 2. Ke2 junk" << 1 << "1-0";
    QTest::newRow("forfeit, White wins") << "1. e4 e5 +--" << 2 << "1-0";
    QTest::newRow("forfeit, Black wins") << "1. e4 --+ 1... e5" << 1 << "0-1";
    QTest::newRow("forfeit before any move") << " +--" << 0 << "1-0";
    QTest::newRow("null move is no forfeit") << "1. e4 -- 2. d4 *" << 3 << "*";
}

void TestMoveText::results() {
    QFETCH(QString, text);
    QFETCH(int, plies);
    QFETCH(QString, result);
    const Game g = readMoveText(text.toStdString(), Position::start());
    QCOMPARE(int(g.main.moves.size()), plies);
    QCOMPARE(q(g.result), result);
}

void TestMoveText::readingErrors_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message");
    QTest::newRow("illegal") << "1. e4 e5 2. Nf6 *"
                             << "Illegal move 2. Nf6: no knight can reach f6";
    QTest::newRow("onto its own piece") << "1. Nf3 d5 2. Nc3 d4 3. Nd2 *"
                                        << "Illegal move 3. Nd2: White's own pawn stands on d2";
    QTest::newRow("ambiguous") << "1. Nc3 d5 2. e3 d4 3. Ne2 *"
                               << "Ambiguous move 3. Ne2: knights on c3 and g1 can reach e2";
    QTest::newRow("black's move") << "1. e4 e5 2. Nf3 Nf6 3. Nc3 Ng5"
                                  << "Illegal move 3... Ng5: no knight can reach g5";
    QTest::newRow("unreadable") << "1. e4 e5 2. 3x *"
                                << "Illegal move 2. 3x: not a move";
    QTest::newRow("in a variation") << "1. e4 (1. e5) *"
                                    << "Illegal move 1. e5: no pawn can reach e5";
    QTest::newRow("unbalanced open") << "1. e4 e5 (1... d5 (1... c5 *"
                                     << "Unbalanced \"(\" after 1... e5";
    QTest::newRow("unbalanced close") << "1. e4 ) e5 *"
                                      << "Unbalanced \")\" after 1. e4";
    QTest::newRow("variation first") << "( 1. d4 ) 1. e4 *"
                                     << "A variation before the first move";
    // Nesting is bounded, so that no reader or writer runs out of stack.
    const QString limit = QStringLiteral("Variations nested deeper than 500 after 1. e4");
    for (int depth : {501, 30000})
        QTest::newRow(qPrintable(QStringLiteral("nested %1 deep").arg(depth)))
            << "1. e4 " + QStringLiteral("(1. d4 ").repeated(depth) +
                   QStringLiteral(")").repeated(depth) + " *"
            << limit;
}

void TestMoveText::readingErrors() {
    QFETCH(QString, text);
    QFETCH(QString, message);
    try {
        readMoveText(text.toStdString(), Position::start());
        QFAIL("accepted");
    } catch (const BoardError& e) {
        QCOMPARE(QString::fromUtf8(e.what()), message);
    }
}

void TestMoveText::writers_data() {
    QTest::addColumn<QString>("in");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("paragraph");
    QTest::addColumn<QString>("annotated");
    QTest::newRow("empty game") << ""
                                << "*"
                                << "*"
                                << "*";
    QTest::newRow("plain") << "1. e4 e5 2. Nf3 1-0"
                           << "1. e4 e5\r\n2. Nf3\r\n1-0"
                           << "1.e4 e5 2.Nf3 1-0"
                           << "1. e4 e5 2. Nf3 1-0";
    QTest::newRow("annotations") << "{A} 1. e4 $1 e5? {B} 2. Nf3 (2. f4) Nc6 0-1"
                                 << "1. e4! e5?\r\n2. Nf3 Nc6\r\n0-1"
                                 << "1.e4! e5? 2.Nf3 Nc6 0-1"
                                 << "{A} 1. e4 $1 e5 $2 {B} 2. Nf3 (2. f4) 2... Nc6 0-1";
    QTest::newRow("braces and line ends in a comment are cleaned") << "1. e4 {x\r\ny} *"
                                                                   << "1. e4\r\n*"
                                                                   << "1.e4 *"
                                                                   << "1. e4 {x y} *";
}

void TestMoveText::writers() {
    QFETCH(QString, in);
    QFETCH(QString, list);
    QFETCH(QString, paragraph);
    QFETCH(QString, annotated);
    BoardGame g;
    g.loadMoves(in.toStdString());
    QCOMPARE(q(g.movesAsList()), list);
    QCOMPARE(q(g.movesAsParagraph()), paragraph);
    QCOMPARE(q(g.movesAnnotated()), annotated);
}

void TestMoveText::exportRules() {
    // Comments full of result-like words and escape-like words must not break the lines where
    // a line-based importer would end the game or drop a line.
    std::string text = "1. e4 {";
    for (int i = 0; i < 40; ++i)
        text += "1-0 %x * 0-1 ";
    text += "} e5 *";
    BoardGame g;
    g.loadMoves(text);
    const QStringList lines = q(g.movesAnnotated()).split(QStringLiteral("\r\n"));
    QVERIFY(lines.size() > 3);
    for (int i = 0; i < lines.size(); ++i) {
        const QString& line = lines[i];
        QVERIFY(!line.isEmpty());
        QVERIFY2(!line.startsWith(u'%'), qPrintable(line));
        if (i + 1 < lines.size())
            QVERIFY2(!endsLikeResult(line.toStdString()), qPrintable(line));
    }
    QVERIFY(lines.last().endsWith(QStringLiteral("*")));
    // It reads back as the same game.
    BoardGame again;
    again.loadMoves(g.movesAnnotated());
    QCOMPARE(q(again.movesAnnotated()), q(g.movesAnnotated()));
}

void TestMoveText::annotationsPerPly() {
    BoardGame g = loaded("{zero} 1. e4 {one} e5 *");
    QCOMPARE(q(g.annotation()), QStringLiteral("zero"));
    g.gotoPly(1);
    QCOMPARE(q(g.annotation()), QStringLiteral("one"));
    g.gotoPly(2);
    QCOMPARE(q(g.annotation()), QString());
    g.setAnnotation("two");
    QCOMPARE(q(g.movesAnnotated()), QStringLiteral("{zero} 1. e4 {one} 1... e5 {two} *"));
}

void TestMoveText::playingMoves() {
    BoardGame g = loaded("1. e4 e5 2. Nf3 Nc6 *");
    const int e2 = 12, e4 = 28, d2 = 11, d4 = 27;
    QCOMPARE(g.playMove(e2, e4, Queen), BoardGame::PlayOutcome::SteppedNext);
    QCOMPARE(g.ply(), 1);
    QVERIFY(!g.changed());
    QCOMPARE(g.playMove(e2, e4, Queen), BoardGame::PlayOutcome::Illegal);
    g.gotoPly(0);
    QCOMPARE(g.playMove(d2, d4, Queen), BoardGame::PlayOutcome::Added);
    QVERIFY(g.changed());
    QCOMPARE(g.ply(), 1);
    QCOMPARE(g.gameLength(), 1);
    // Nothing is lost: the old line is a variation.
    QCOMPARE(q(g.movesAnnotated()), QStringLiteral("1. d4 (1. e4 e5 2. Nf3 Nc6) *"));
    // Playing it again promotes the variation back.
    g.gotoPly(0);
    QCOMPARE(g.playMove(e2, e4, Queen), BoardGame::PlayOutcome::Added);
    QCOMPARE(q(g.movesAnnotated()), QStringLiteral("1. e4 (1. d4) 1... e5 2. Nf3 Nc6 *"));
    QCOMPARE(g.gameLength(), 4);
    // Promotion takes the piece asked for; targets list the legal squares.
    BoardGame p;
    p.setPosition("4k3/P7/8/8/8/8/8/4K3 w - - 0 1");
    QCOMPARE(p.playMove(48, 56, Knight), BoardGame::PlayOutcome::Added);
    QCOMPARE(q(p.lastMoveText()), QStringLiteral("a8=N"));
    BoardGame c;
    c.loadMovesFrom("4k3/8/8/8/8/8/8/R3K2R w KQ - 0 1", "");
    const std::vector<int> targets = c.legalTargets(4);
    QVERIFY(std::find(targets.begin(), targets.end(), 6) != targets.end()); // O-O by g1
    QCOMPARE(c.playMove(4, 6, Queen), BoardGame::PlayOutcome::Added);
    QCOMPARE(q(c.lastMoveText()), QStringLiteral("O-O"));
}

void TestMoveText::loadFailureKeepsTheGame() {
    BoardGame g = loaded("1. e4 e5 *");
    g.gotoPly(2);
    QVERIFY_THROWS_EXCEPTION(BoardError, g.loadMoves("1. e4 e4 *"));
    QVERIFY_THROWS_EXCEPTION(BoardError, g.loadMovesFrom("", "1. e4 *"));
    QCOMPARE(g.gameLength(), 2);
    QCOMPARE(g.ply(), 2);
    g.setPosition("4k3/8/8/8/8/8/8/4K3 b - - 0 1");
    QCOMPARE(q(g.forsythAt(0)), QStringLiteral("4k3/8/8/8/8/8/8/4K3 b - - 0 1"));
}

void TestMoveText::deepestNesting() {
    std::string text = "1. e4 e5 ";
    for (int i = 0; i < 500; ++i)
        text += "(1... c5 ";
    text += std::string(500, ')') + " *";
    BoardGame g = loaded(text.c_str());
    BoardGame again = loaded(g.movesAnnotated().c_str());
    QCOMPARE(q(again.movesAnnotated()), q(g.movesAnnotated()));
    // A move on the board that would push the old line one level deeper is refused.
    QCOMPARE(g.playMove(11, 27, Queen), BoardGame::PlayOutcome::Illegal);
    QCOMPARE(q(g.movesAnnotated()), q(again.movesAnnotated()));
    g.gotoPly(1);
    QCOMPARE(g.playMove(51, 35, Queen), BoardGame::PlayOutcome::Added); // 1... d5 beside them
}

void TestMoveText::corpusMatchesTheOracle() {
    const QString corpus = QStringLiteral(TOLVISK_CORPUS_DIR);
    if (!QDir(corpus).exists())
        QSKIP("the shared corpus is not here");
    // Deliberately broken files, where splitting broken text is a matter of taste, and
    // positions without kings, which this board refuses.
    const QStringList skipped{"syntactic-error", "optional-kings", "withDelimiters",
                              "fromChessProgrammingWiki", "unicodeResultWeirdDash"};
    int compared = 0;
    QStringList differences;
    QDirIterator it(corpus, {QStringLiteral("*.pgn")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString relative = QDir(corpus).relativeFilePath(path);
        if (relative.startsWith(QLatin1String("oracle/")))
            continue;
        bool skip = false;
        for (const QString& s : skipped)
            skip = skip || relative.contains(s);
        if (skip)
            continue;
        QFile oracleFile(corpus + QStringLiteral("/oracle/") + relative.chopped(4) +
                         QStringLiteral(".txt"));
        QFile pgnFile(path);
        if (!oracleFile.open(QIODevice::ReadOnly) || !pgnFile.open(QIODevice::ReadOnly))
            continue;
        // Each game as a replay sees it: plies and the position reached, or why it was refused.
        const QByteArray bytes = pgnFile.readAll();
        QStringList games;
        PgnFile file(std::string_view(bytes.constData(), size_t(bytes.size())));
        MainLine line;
        while (file.nextGame()) {
            try {
                file.readMainLine(file.start(), line);
            } catch (const BoardError& e) {
                file.skipMoves();
                line.error = e.what();
            }
            games << (line.error.empty() ? QString::number(line.moves.size()) + u' ' +
                                               comparable(q(line.end.forsyth()))
                                         : q(line.error));
        }
        for (const QByteArray& raw : oracleFile.readAll().split('\n')) {
            const QList<QByteArray> f = raw.split(' ');
            bool numbered = false, counted = false;
            const int n = f.value(0).toInt(&numbered);
            const int plies = f.value(1).toInt(&counted);
            if (!numbered || !counted || n < 1)
                continue;
            const QString fen = QString::fromLatin1(raw.mid(f[0].size() + f[1].size() + 2));
            const QString mine = games.value(n - 1, QStringLiteral("missing"));
            ++compared;
            if (mine != QString::number(plies) + u' ' + comparable(fen))
                differences << relative + QStringLiteral(" game ") + QString::number(n) +
                                   QStringLiteral(": ") + mine;
        }
    }
    QVERIFY(compared > 8000);
    QVERIFY2(differences.isEmpty(), qPrintable(differences.join(u'\n')));
}

void TestMoveText::corpusRoundTrips() {
    const QString corpus = QStringLiteral(TOLVISK_CORPUS_DIR);
    if (!QDir(corpus).exists())
        QSKIP("the shared corpus is not here");
    int games = 0;
    QStringList differences;
    QDirIterator it(corpus, {QStringLiteral("*.pgn")}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray bytes = file.readAll();
        for (const PgnGame& g :
             splitPgn(std::string_view(bytes.constData(), size_t(bytes.size())))) {
            BoardGame first;
            try {
                first.loadMovesFrom(g.fen.empty() ? Position::start().forsyth() : g.fen, g.moves);
            } catch (const BoardError&) {
                continue;
            }
            ++games;
            const std::string written = first.movesAnnotated();
            BoardGame second;
            try {
                second.loadMovesFrom(first.forsythAt(0), written);
            } catch (const BoardError& e) {
                differences << file.fileName() + QStringLiteral(": ") + QString::fromUtf8(e.what());
                continue;
            }
            if (second.movesAnnotated() != written ||
                second.forsythAt(second.gameLength()) != first.forsythAt(first.gameLength()))
                differences << file.fileName();
        }
    }
    QVERIFY(games > 8000);
    QVERIFY2(differences.isEmpty(), qPrintable(differences.join(u'\n')));
}

QTEST_APPLESS_MAIN(TestMoveText)
#include "tst_movetext.moc"
