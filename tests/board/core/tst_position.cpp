// Positions, legal moves (perft), Forsyth strings and SAN.

#include "core/BoardError.h"
#include "core/Position.h"
#include "core/San.h"

#include <QTest>

#include <algorithm>
#include <cctype>
#include <optional>
#include <random>
#include <tuple>

using namespace tavlon;

namespace {

std::string afterSan(const std::string& fen, const std::vector<std::string>& moves) {
    Position p = Position::fromForsyth(fen);
    for (const std::string& m : moves)
        p.play(readSan(p, m).move);
    return p.forsyth();
}

const char* kStart = "rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1";

} // namespace

class TestPosition : public QObject {
    Q_OBJECT
private slots:
    void perftCounts_data();
    void perftCounts();
    void movesToASquare_data();
    void movesToASquare();
    void forsythRoundTrip_data();
    void forsythRoundTrip();
    void forsythRefusals_data();
    void forsythRefusals();
    void sanReading_data();
    void sanReading();
    void sanRefusals_data();
    void sanRefusals();
    void sanWriting_data();
    void sanWriting();
    void quickSanAgreesWithLenient_data();
    void quickSanAgreesWithLenient();
};

void TestPosition::perftCounts_data() {
    QTest::addColumn<QString>("fen");
    QTest::addColumn<int>("depth");
    QTest::addColumn<qlonglong>("nodes");
    // Depths kept small for the sanitizer build; tolvisk-bench perft runs the deep ones.
    QTest::newRow("start 4") << kStart << 4 << 197281LL;
    QTest::newRow("kiwipete 3")
        << "r3k2r/p1ppqpb1/bn2pnp1/3PN3/1p2P3/2N2Q1p/PPPBBPPP/R3K2R w KQkq - 0 1" << 3 << 97862LL;
    QTest::newRow("position 3, 4") << "8/2p5/3p4/KP5r/1R3p1k/8/4P1P1/8 w - - 0 1" << 4 << 43238LL;
    QTest::newRow("position 4, 3")
        << "r3k2r/Pppp1ppp/1b3nbN/nP6/BBP1P3/q4N2/Pp1P2PP/R2Q1RK1 w kq - 0 1" << 3 << 9467LL;
    QTest::newRow("position 5, 3")
        << "rnbq1k1r/pp1Pbppp/2p5/8/2B5/8/PPP1NnPP/RNBQK2R w KQ - 1 8" << 3 << 62379LL;
    QTest::newRow("position 6, 3")
        << "r4rk1/1pp1qppp/p1np1n2/2b1p1B1/2B1P1b1/P1NP1N2/1PP1QPPP/R4RK1 w - - 0 10" << 3
        << 89890LL;
    QTest::newRow("rooks on one file") << "R7/8/8/8/8/8/8/R3K2k w - - 0 1" << 4 << 6880LL;
    QTest::newRow("knights on one file") << "4k3/8/N7/8/8/8/N7/4K3 w - - 0 1" << 4 << 4868LL;
    // More moves than any game reaches (no engine counts this many).
    QTest::newRow("24 queens") << "1QQQQQQK/Q5Q1/Q6Q/Q6Q/Q3Q3/Q5QQ/Q4Qnn/QQQQ1Qnk w - - 0 1" << 1
                               << 259LL;
    QTest::newRow("24 queens round a king in check")
        << "1KQQQQQQ/1Q5Q/Q6Q/Q6Q/Q6Q/Q6Q/Q6Q/kQQQQQQ1 w - - 0 1" << 1 << 273LL;
    // Chess960, every count from Stockfish.
    QTest::newRow("960 middle game")
        << "bqnb1rkr/pp3ppp/3ppn2/2p5/5P2/P2P4/NPP1P1PP/BQ1BNRKR w HFhf - 2 9" << 3 << 12189LL;
    QTest::newRow("960 middle game, h and e rooks")
        << "2nnrbkr/p1qppppp/8/1ppb4/6PP/3PP3/PPP2P2/BQNNRBKR w HEhe - 1 9" << 3 << 18002LL;
    QTest::newRow("960 castling rook shields the king")
        << "k7/8/8/8/8/8/8/qRK5 w B - 0 1" << 4 << 11702LL;
    QTest::newRow("960 castling rook shields the king's target")
        << "4k3/8/8/8/8/8/8/rR2K3 w B - 0 1" << 3 << 1400LL;
    QTest::newRow("960 castle opens the rank to the target")
        << "1r2k1r1/8/8/8/8/8/8/R3K2R w AHbg - 0 1" << 3 << 15138LL;
    QTest::newRow("960 castle target is also a king step")
        << "4k3/8/8/8/8/8/8/5K1R w H - 0 1" << 4 << 6659LL;
    QTest::newRow("960 king between its rooks")
        << "rkr5/8/8/8/8/8/8/RKR5 w ACac - 0 1" << 4 << 138584LL;
    QTest::newRow("960 enemy rook beside the castling rook")
        << "1k6/8/8/8/8/8/8/4K1Rr w G - 0 1" << 4 << 18114LL;
    QTest::newRow("960 king between rooks, enemy rook behind")
        << "6k1/8/8/8/8/8/8/1rRKR3 w CE - 0 1" << 4 << 49604LL;
}

void TestPosition::perftCounts() {
    QFETCH(QString, fen);
    QFETCH(int, depth);
    QFETCH(qlonglong, nodes);
    QCOMPARE(qlonglong(perft(Position::fromForsyth(fen.toStdString()), depth)), nodes);
}

// At every node of the move tree, the moves to each square (of each piece type), as SAN reading
// finds them, are exactly the legal moves there, castling aside.
void TestPosition::movesToASquare_data() {
    perftCounts_data();
    // Set-up oddities: two kings a side, and a king taken (found by fuzzing).
    QTest::newRow("kings taken")
        << "r5kr/p1ppqpb1/bn2pnq1/3KN3/3Q2p1/pq1pppb1/bn2pkq1/K6N w - - 0 1" << 3 << 0LL;
}

namespace {

QString movesToMismatch(const Position& pos, int depth) {
    MoveList all;
    pos.legalMoves(all);
    for (int to = 0; to < 64; ++to) {
        for (int type = NoType; type <= King; ++type) {
            std::vector<Move> expected, found;
            for (Move m : all)
                if (!m.isCastle() && m.to == to &&
                    (type == NoType || typeOf(pos.at(m.from)) == type))
                    expected.push_back(m);
            MoveList list;
            pos.legalMovesTo(list, PieceType(type), to);
            found.assign(list.begin(), list.end());
            auto order = [](Move a, Move b) {
                return std::tie(a.from, a.promotion) < std::tie(b.from, b.promotion);
            };
            std::sort(expected.begin(), expected.end(), order);
            std::sort(found.begin(), found.end(), order);
            if (expected != found)
                return QString::fromStdString(pos.forsyth()) + QStringLiteral(" to ") +
                       QString::number(to) + QStringLiteral(" type ") + QString::number(type);
        }
    }
    if (depth > 1)
        for (Move m : all) {
            Position next = pos;
            next.play(m);
            if (const QString bad = movesToMismatch(next, depth - 1); !bad.isEmpty())
                return bad;
        }
    return {};
}

} // namespace

void TestPosition::movesToASquare() {
    QFETCH(QString, fen);
    QFETCH(int, depth);
    QCOMPARE(movesToMismatch(Position::fromForsyth(fen.toStdString()), std::min(depth, 3)),
             QString());
}

void TestPosition::forsythRoundTrip_data() {
    QTest::addColumn<QString>("in");
    QTest::addColumn<QString>("out");
    QTest::newRow("start") << kStart << kStart;
    QTest::newRow("kings only, as the setup window writes it") << "4k3/8/8/8/8/8/8/4K3 w - - 0 1"
                                                               << "4k3/8/8/8/8/8/8/4K3 w - - 0 1";
    QTest::newRow("rights the position does not allow are dropped")
        << "4k3/8/8/8/8/8/8/4K3 w KQkq - 0 1"
        << "4k3/8/8/8/8/8/8/4K3 w - - 0 1";
    QTest::newRow("move number 0 counts as 1") << "4k3/8/8/8/8/8/8/4K3 b - - 5 0"
                                               << "4k3/8/8/8/8/8/8/4K3 b - - 5 1";
    QTest::newRow("missing fields take defaults") << "4k3/8/8/8/8/8/8/4K3 b"
                                                  << "4k3/8/8/8/8/8/8/4K3 b - - 0 1";
    QTest::newRow("extra blanks") << "  4k3/8/8/8/8/8/8/4K3   w  -  -  3  7 "
                                  << "4k3/8/8/8/8/8/8/4K3 w - - 3 7";
    QTest::newRow("impossible ep square dropped") << "4k3/8/8/8/8/8/8/4K3 w - e6 0 1"
                                                  << "4k3/8/8/8/8/8/8/4K3 w - - 0 1";
    QTest::newRow("possible ep square kept") << "4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 2"
                                             << "4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 2";
    QTest::newRow("two white kings pass") << "4k3/8/8/8/8/8/8/K3K3 w - - 0 1"
                                          << "4k3/8/8/8/8/8/8/K3K3 w - - 0 1";
    QTest::newRow("the largest counts") << "4k3/8/8/8/8/8/8/4K3 w - - 2147483647 2147483647"
                                        << "4k3/8/8/8/8/8/8/4K3 w - - 2147483647 2147483647";
    QTest::newRow("larger counts stop there") << "4k3/8/8/8/8/8/8/4K3 w - - 99999999999 99999999999"
                                              << "4k3/8/8/8/8/8/8/4K3 w - - 2147483647 2147483647";
    QTest::newRow("shredder letters in a 960 position")
        << "bqnb1rkr/pp3ppp/3ppn2/2p5/5P2/P2P4/NPP1P1PP/BQ1BNRKR w HFhf - 2 9"
        << "bqnb1rkr/pp3ppp/3ppn2/2p5/5P2/P2P4/NPP1P1PP/BQ1BNRKR w KFkf - 2 9";
}

void TestPosition::forsythRoundTrip() {
    QFETCH(QString, in);
    QFETCH(QString, out);
    QCOMPARE(QString::fromStdString(Position::fromForsyth(in.toStdString()).forsyth()), out);
}

void TestPosition::forsythRefusals_data() {
    QTest::addColumn<QString>("fen");
    QTest::newRow("empty") << "";
    QTest::newRow("blanks only") << "   ";
    QTest::newRow("seven ranks") << "4k3/8/8/8/8/8/4K3 w - - 0 1";
    QTest::newRow("nine ranks") << "4k3/8/8/8/8/8/8/8/4K3 w - - 0 1";
    QTest::newRow("short rank") << "4k3/7/8/8/8/8/8/4K3 w - - 0 1";
    QTest::newRow("long rank") << "4k3/9/8/8/8/8/8/4K3 w - - 0 1";
    QTest::newRow("unknown piece") << "4k3/8/8/8/8/8/8/4K2X w - - 0 1";
    QTest::newRow("no white king") << "4k3/8/8/8/8/8/8/8 w - - 0 1";
    QTest::newRow("no black king") << "8/8/8/8/8/8/8/4K3 w - - 0 1";
    QTest::newRow("unknown side") << "4k3/8/8/8/8/8/8/4K3 x - - 0 1";
}

void TestPosition::forsythRefusals() {
    QFETCH(QString, fen);
    QVERIFY_THROWS_EXCEPTION(BoardError, Position::fromForsyth(fen.toStdString()));
}

void TestPosition::sanReading_data() {
    QTest::addColumn<QString>("fen");
    QTest::addColumn<QStringList>("moves");
    QTest::addColumn<QString>("after");
    const QString knights = "4k3/8/8/8/8/8/8/1N2KN2 w - - 0 1";
    QTest::newRow("plain") << kStart << QStringList{"e4", "e5", "Nf3"}
                           << "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b KQkq - 1 2";
    QTest::newRow("coordinates")
        << kStart << QStringList{"e2e4", "e7-e5", "Ng1-f3"}
        << "rnbqkbnr/pppp1ppp/8/4p3/4P3/5N2/PPPP1PPP/RNBQKB1R b KQkq - 1 2";
    QTest::newRow("file disambiguation")
        << knights << QStringList{"Nbd2"} << "4k3/8/8/8/8/8/3N4/4KN2 b - - 1 1";
    QTest::newRow("over-disambiguated")
        << knights << QStringList{"Nf1g3"} << "4k3/8/8/8/8/6N1/8/1N2K3 b - - 1 1";
    QTest::newRow("glyphs, checks, missing x")
        << "4k3/8/8/3p4/4P3/8/8/4K3 w - - 0 1" << QStringList{"ed5!?"}
        << "4k3/8/8/3P4/8/8/8/4K3 b - - 0 1";
    QTest::newRow("castling with zeros")
        << "r3k2r/8/8/8/8/8/8/R3K2R w KQkq - 0 1" << QStringList{"0-0", "0-0-0+"}
        << "2kr3r/8/8/8/8/8/8/R4RK1 w - - 2 2";
    QTest::newRow("promotion forms")
        << "4k3/P7/8/8/8/8/7p/4K3 w - - 0 1" << QStringList{"a8Q+", "Kd7", "Kf2", "h1=N+"}
        << "Q7/3k4/8/8/8/8/5K2/7n w - - 0 3";
    QTest::newRow("promotion in brackets")
        << "4k3/P7/8/8/8/8/8/4K3 w - - 0 1" << QStringList{"a8(R)"}
        << "R3k3/8/8/8/8/8/8/4K3 b - - 0 1";
    QTest::newRow("en passant remark")
        << "4k3/8/8/3pP3/8/8/8/4K3 w - d6 0 2" << QStringList{"exd6e.p."}
        << "4k3/8/3P4/8/8/8/8/4K3 b - - 0 2";
    QTest::newRow("null move") << kStart << QStringList{"--", "e5"}
                               << "rnbqkbnr/pppp1ppp/8/4p3/8/8/PPPPPPPP/RNBQKBNR w KQkq e6 0 2";
    QTest::newRow("counts at their largest stay there")
        << "4k3/8/8/8/8/8/8/4K3 b - - 2147483647 2147483647" << QStringList{"Kd7", "--"}
        << "8/3k4/8/8/8/8/8/4K3 b - - 2147483647 2147483647";
    QTest::newRow("pinned knight is not a candidate")
        << "4r1k1/8/8/8/8/8/4N3/1N2K3 w - - 0 1" << QStringList{"Nc3"}
        << "4r1k1/8/8/8/8/2N5/4N3/4K3 b - - 1 1";
}

void TestPosition::sanReading() {
    QFETCH(QString, fen);
    QFETCH(QStringList, moves);
    QFETCH(QString, after);
    std::vector<std::string> list;
    for (const QString& m : moves)
        list.push_back(m.toStdString());
    QCOMPARE(QString::fromStdString(afterSan(fen.toStdString(), list)), after);
}

void TestPosition::sanRefusals_data() {
    QTest::addColumn<QString>("fen");
    QTest::addColumn<QString>("move");
    QTest::addColumn<QString>("message");
    const QString knights = "4k3/8/8/8/8/8/8/1N2KN2 w - - 0 1";
    const QString castles = "r3k2r/8/8/8/8/8/3r4/R3K2R w Qkq - 0 1";
    QTest::newRow("no piece reaches") << kStart << "e5"
                                      << "Illegal move 1. e5: no pawn can reach e5";
    QTest::newRow("none from there") << knights << "Ncd2"
                                     << "Illegal move 1. Ncd2: no knight on file c can reach d2";
    QTest::newRow("pinned") << "4r1k1/8/8/8/8/8/4N3/4K3 w - - 0 1"
                            << "Nc3"
                            << "Illegal move 1. Nc3: the king would be in check";
    QTest::newRow("ambiguous") << knights << "Nd2"
                               << "Ambiguous move 1. Nd2: knights on b1 and f1 can reach d2";
    QTest::newRow("garbage") << kStart << "xyz"
                             << "Illegal move 1. xyz: not a move";
    QTest::newRow("coordinates from an empty square")
        << kStart << "e3e4"
        << "Illegal move 1. e3e4: White has no piece on e3";
    QTest::newRow("promotion short of the last rank")
        << kStart << "e4=Q"
        << "Illegal move 1. e4=Q: only a pawn reaching the last rank promotes";
    QTest::newRow("castling blocked") << kStart << "O-O"
                                      << "Illegal move 1. O-O: pieces stand in the way";
    QTest::newRow("castling right gone") << castles << "O-O"
                                         << "Illegal move 1. O-O: White has no right to castle "
                                            "king side";
    QTest::newRow("castling through an attack")
        << castles << "O-O-O"
        << "Illegal move 1. O-O-O: the king would cross or land on an attacked square";
    QTest::newRow("null move in check") << "4k3/8/8/8/8/8/8/r3K3 w - - 0 9"
                                        << "--"
                                        << "Illegal move 9. --: the king is in check";
}

void TestPosition::sanRefusals() {
    QFETCH(QString, fen);
    QFETCH(QString, move);
    QFETCH(QString, message);
    try {
        readSan(Position::fromForsyth(fen.toStdString()), move.toStdString());
        QFAIL("accepted");
    } catch (const BoardError& e) {
        QCOMPARE(QString::fromUtf8(e.what()), message);
    }
}

void TestPosition::sanWriting_data() {
    QTest::addColumn<QString>("fen");
    QTest::addColumn<QString>("in");
    QTest::addColumn<QString>("san");
    QTest::newRow("file") << "4k3/8/8/8/8/8/8/1N2KN2 w - - 0 1"
                          << "b1d2"
                          << "Nbd2";
    QTest::newRow("rank") << "4k3/8/N7/8/8/8/N7/4K3 w - - 0 1"
                          << "a2b4"
                          << "N2b4";
    QTest::newRow("square") << "4k3/8/8/8/Q1Q5/8/Q7/4K3 w - - 0 1"
                            << "a4b3"
                            << "Qa4b3";
    QTest::newRow("no need despite pin") << "4r1k1/8/8/8/8/8/4N3/1N2K3 w - - 0 1"
                                         << "b1c3"
                                         << "Nc3";
    QTest::newRow("pawn capture, check") << "4k3/8/5p2/4P3/8/8/8/4K3 w - - 0 1"
                                         << "e5f6"
                                         << "exf6";
    QTest::newRow("promotion with check") << "4k3/P7/8/8/8/8/8/4K3 w - - 0 1"
                                          << "a7a8q"
                                          << "a8=Q+";
    QTest::newRow("mate") << "6k1/5ppp/8/8/8/8/8/R5K1 w - - 0 1"
                          << "a1a8"
                          << "Ra8#";
    QTest::newRow("long castling") << "r3k2r/8/8/8/8/8/8/R3K2R b KQkq - 0 1"
                                   << "O-O-O"
                                   << "O-O-O";
}

void TestPosition::sanWriting() {
    QFETCH(QString, fen);
    QFETCH(QString, in);
    QFETCH(QString, san);
    const Position p = Position::fromForsyth(fen.toStdString());
    QCOMPARE(QString::fromStdString(writeSan(p, readSan(p, in.toStdString()).move)), san);
}

// The quick SAN path must read every token exactly as the lenient reader does, or leave it to
// that reader. Tokens: each legal move's SAN, the spellings files use, and random mutations.
void TestPosition::quickSanAgreesWithLenient_data() {
    perftCounts_data();
}

namespace {

std::vector<std::string> spellings(const Position& pos, Move m, std::mt19937& random) {
    const std::string san = writeSan(pos, m);
    const std::string from = {char('a' + fileOf(m.from)), char('1' + rankOf(m.from))};
    const std::string to = {char('a' + fileOf(m.to)), char('1' + rankOf(m.to))};
    std::string bare = san;
    while (!bare.empty() && (bare.back() == '+' || bare.back() == '#'))
        bare.pop_back();
    std::vector<std::string> tokens = {
        san,        bare,         bare + "+", bare + "#",      san + "!",
        san + "?!", bare + "!!?", from + to,  from + "-" + to, "x" + bare};
    const size_t x = bare.find('x');
    if (x != std::string::npos)
        tokens.push_back(bare.substr(0, x) + bare.substr(x + 1));
    else if (bare.size() > 2)
        tokens.push_back(bare.substr(0, bare.size() - 2) + "x" + bare.substr(bare.size() - 2));
    if (std::isupper(static_cast<unsigned char>(bare[0])) && bare[0] != 'O') {
        tokens.push_back(bare.substr(0, 1) + from + bare.substr(bare.size() - 2));
        tokens.push_back(bare.substr(0, 1) + from.substr(0, 1) + bare.substr(bare.size() - 2));
        tokens.push_back(bare.substr(0, 1) + from.substr(1) + bare.substr(bare.size() - 2));
    }
    if (const size_t eq = bare.find('='); eq != std::string::npos) {
        tokens.push_back(bare.substr(0, eq));
        tokens.push_back(bare.substr(0, eq) + bare.substr(eq + 1));
        tokens.push_back(bare.substr(0, eq + 1) + char(std::tolower(bare[eq + 1])));
        tokens.push_back(bare.substr(0, eq) + "(" + bare.substr(eq + 1) + ")");
    }
    if (bare.starts_with("O-O")) {
        std::string zeros = bare;
        std::replace(zeros.begin(), zeros.end(), 'O', '0');
        tokens.push_back(zeros);
    }
    if (m.flags & Move::EnPassant)
        tokens.push_back(bare + "e.p.");
    const std::string alphabet = "abcdefgh12345678NBRQKOx=+#!?-.()P0";
    for (int i = 0; i < 6; ++i) {
        std::string t = san;
        const size_t at = random() % (t.size() + 1);
        switch (random() % 3) {
        case 0:
            t.insert(at, 1, alphabet[random() % alphabet.size()]);
            break;
        case 1:
            if (at < t.size())
                t.erase(at, 1);
            break;
        default:
            if (at < t.size())
                t[at] = alphabet[random() % alphabet.size()];
        }
        tokens.push_back(t);
    }
    return tokens;
}

QString quickSanMismatch(const Position& pos, int depth, std::mt19937& random) {
    MoveList moves;
    pos.legalMoves(moves);
    for (Move m : moves) {
        SanResult standard;
        if (!readSanStrict(pos, writeSan(pos, m), standard) || !(standard.move == m))
            return QString::fromStdString(pos.forsyth() + " " + writeSan(pos, m) + " not quick");
        for (const std::string& token : spellings(pos, m, random)) {
            SanResult quick;
            const bool read = readSanStrict(pos, token, quick);
            std::optional<SanResult> lenient;
            try {
                lenient = readSanLenient(pos, token);
            } catch (const BoardError&) {
            }
            if (read && (!lenient || !(lenient->move == quick.move) || lenient->nag != quick.nag))
                return QString::fromStdString(pos.forsyth() + " " + token);
        }
        if (depth > 1) {
            Position next = pos;
            next.play(m);
            if (const QString bad = quickSanMismatch(next, depth - 1, random); !bad.isEmpty())
                return bad;
        }
    }
    return {};
}

} // namespace

void TestPosition::quickSanAgreesWithLenient() {
    QFETCH(QString, fen);
    QFETCH(int, depth);
    std::mt19937 random(7);
    QCOMPARE(quickSanMismatch(Position::fromForsyth(fen.toStdString()), std::min(depth, 2), random),
             QString());
}

QTEST_APPLESS_MAIN(TestPosition)
#include "tst_position.moc"
