// Core checks and figures: replaying files, perft, and reading back what the board writes.

#include "BenchCommands.h"

#include "board/Tavlon.h"
#include "core/BoardError.h"
#include "core/MoveText.h"
#include "core/PgnFile.h"
#include "core/Position.h"

#include <QApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>

using namespace tavlon;

namespace {

std::string readFile(const std::string& path) {
    std::string text;
    if (std::FILE* f = std::fopen(path.c_str(), "rb")) {
        std::fseek(f, 0, SEEK_END);
        text.resize(size_t(std::max(0L, std::ftell(f))));
        std::fseek(f, 0, SEEK_SET);
        text.resize(std::fread(text.data(), 1, text.size(), f));
        std::fclose(f);
    }
    return text;
}

Position startOf(const PgnGame& g) {
    return g.fen.empty() ? Position::start() : Position::fromForsyth(g.fen);
}

int replay(const std::vector<std::string>& args) {
    if (args.size() != 1)
        return 2;
    const std::string text = readFile(args[0]);
    const auto t0 = std::chrono::steady_clock::now();
    long plies = 0, refused = 0;
    std::string out;
    out.reserve(text.size() / 4);
    int n = 0;
    PgnFile file(text);
    MainLine line;
    while (file.nextGame()) {
        ++n;
        try {
            file.readMainLine(file.start(), line);
        } catch (const BoardError& e) { // of the FEN tag
            file.skipMoves();
            line.error = e.what();
        }
        if (!line.error.empty()) {
            ++refused;
            out += std::to_string(n);
            out += " REFUSED ";
            out += line.error;
            out += '\n';
            continue;
        }
        plies += long(line.moves.size());
        char head[32];
        std::snprintf(head, sizeof head, "%d %zu ", n, line.moves.size());
        out += head;
        out += line.end.forsyth();
        out += '\n';
    }
    const double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    std::fwrite(out.data(), 1, out.size(), stdout);
    std::printf("games %d plies %ld refused %ld games/s %.0f\n", n, plies, refused, n / s);
    return 0;
}

int perftCommand(const std::vector<std::string>& args) {
    if (args.size() != 2)
        return 2;
    const int depth = std::stoi(args[1]);
    const auto t0 = std::chrono::steady_clock::now();
    const long nodes = tavlon::perft(Position::fromForsyth(args[0]), depth);
    const double s = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    std::printf("%ld\n", nodes);
    std::fprintf(stderr, "%.3f s, %.0f nodes/s\n", s, nodes / s);
    return 0;
}

// What a round trip must keep: moves, comments, NAGs and variations, line by line.
void describe(const Line& line, Position pos, std::string& out) {
    out.append("<").append(line.leadComment).append(">");
    for (const Node& node : line.moves) {
        out.append(" ").append(std::to_string(node.move.from)).append("-");
        out.append(std::to_string(node.move.to)).append(std::to_string(node.move.promotion));
        for (int nag : node.nags)
            out.append(" $").append(std::to_string(nag));
        if (!node.comment.empty())
            out.append(" {").append(node.comment).append("}");
        for (const Line& v : node.variations) {
            out += " (";
            describe(v, pos, out);
            out += ")";
        }
        pos.play(node.move);
    }
    out += " =";
    pos.appendForsyth(out);
}

int roundtrip(const std::vector<std::string>& args) {
    if (args.size() != 1)
        return 2;
    const std::string text = readFile(args[0]);
    int n = 0, loaded = 0, differ = 0;
    for (const PgnGame& g : splitPgn(text)) {
        ++n;
        Game first;
        try {
            first = readMoveText(g.moves, startOf(g));
        } catch (const BoardError&) {
            continue;
        }
        ++loaded;
        const std::string written = writeAnnotated(first);
        std::string problem;
        size_t lineStart = 0;
        while (lineStart <= written.size()) {
            size_t end = written.find("\r\n", lineStart);
            const bool last = end == std::string::npos;
            if (last)
                end = written.size();
            const std::string_view line(written.data() + lineStart, end - lineStart);
            if (line.empty())
                problem = "empty line";
            else if (!last && endsLikeResult(line))
                problem = "line ends like a result";
            else if (line[0] == '%')
                problem = "line starts with %";
            else if (line.size() > 79 && line.find(' ') != std::string_view::npos)
                problem = "line longer than 79";
            if (last)
                break;
            lineStart = end + 2;
        }
        try {
            const Game second = readMoveText(written, first.start);
            std::string a, b;
            describe(first.main, first.start, a);
            describe(second.main, second.start, b);
            if (a != b || first.result != second.result)
                problem = "game differs after reading back";
        } catch (const BoardError& e) {
            problem = std::string("written text refused: ") + e.what();
        }
        if (!problem.empty()) {
            ++differ;
            std::printf("%d DIFFERS %s\n", n, problem.c_str());
        }
    }
    std::printf("games %d loaded %d differ %d\n", n, loaded, differ);
    return differ ? 1 : 0;
}

// Every game onto the board control as the main window puts it there: load, the three move
// texts, then each ply stepped through with what the window reads at each step.
int boardLoad(const std::vector<std::string>& args) {
    if (args.size() != 1)
        return 2;
    const std::string text = readFile(args[0]);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int argc = 1;
    char name[] = "tolvisk-bench";
    char* argv[] = {name, nullptr};
    QApplication app(argc, argv);
    Tavlon board;
    QElapsedTimer clock;
    qint64 loading = 0, stepping = 0, slowest = 0;
    long games = 0, refused = 0, plies = 0;
    PgnFile file(text);
    while (file.nextGame()) {
        const std::string fen = file.fen();
        const QString moves = QString::fromUtf8(file.skipMoves());
        ++games;
        clock.start();
        try {
            if (fen.empty())
                board.LoadMoves(moves);
            else
                board.LoadMovesFrom(QString::fromStdString(fen), moves);
        } catch (const BoardError&) {
            ++refused;
            continue;
        }
        const qsizetype written = board.MovesAsList().size() + board.MovesAsParagraph().size() +
                                  board.MovesAnnotated().size();
        loading += clock.nsecsElapsed();
        for (int ply = 0; ply < board.GameLength(); ++ply) {
            clock.start();
            board.MoveNext();
            board.RefreshForsyth(board.Ply());
            QString annotation;
            board.GetAnnotation(annotation);
            const qsizetype read = board.CurrentForsyth().size() + board.LastMoveText().size() +
                                   board.EPSquare().size() + board.CastleRights().size() +
                                   board.OnMove().size() + annotation.size();
            const qint64 step = clock.nsecsElapsed();
            stepping += step;
            slowest = std::max(slowest, step);
            plies += read > 0;
        }
        (void)written;
    }
    std::printf("games %ld refused %ld plies %ld\n", games, refused, plies);
    std::printf("load and move texts: %.3f s, %.0f games/s\n", loading / 1e9,
                (games - refused) / (loading / 1e9));
    std::printf("steps: %.3f s, %.2f us a step, slowest %.3f ms\n", stepping / 1e9,
                plies ? stepping / 1e3 / double(plies) : 0.0, slowest / 1e6);
    return 0;
}

BenchCommand replayBench("replay", "FILE", "replay every game's main line; N PLIES FEN", &replay);
BenchCommand perftBench("perft", "FEN DEPTH", "count the leaf nodes of the move tree",
                        &perftCommand);
BenchCommand boardLoadBench("boardload", "FILE",
                            "every game onto the board control, its move texts, each ply stepped",
                            &boardLoad);
BenchCommand roundtripBench("roundtrip", "FILE",
                            "read, write and read back every game; report differences", &roundtrip);

} // namespace
