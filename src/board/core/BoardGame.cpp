#include "BoardGame.h"

#include "San.h"

#include <algorithm>

namespace tavlon {

BoardGame::BoardGame() {
    rebuild();
}

void BoardGame::rebuild() {
    positions_.assign(1, game_.start);
    sans_.clear();
    positions_.reserve(game_.main.moves.size() + 1);
    sans_.reserve(game_.main.moves.size());
    for (const Node& node : game_.main.moves) {
        positions_.push_back(positions_.back());
        positions_.back().play(node.move);
        sans_.push_back(writeSan(positions_.end()[-2], node.move, &positions_.back()));
    }
    ply_ = std::clamp(ply_, 0, gameLength());
}

void BoardGame::newGame() {
    game_ = Game{};
    ply_ = 0;
    changed_ = false;
    rebuild();
}

void BoardGame::loadMoves(std::string_view movesText) {
    load(Position::start(), movesText);
}

void BoardGame::loadMovesFrom(std::string_view forsyth, std::string_view movesText) {
    load(Position::fromForsyth(forsyth), movesText);
}

void BoardGame::load(const Position& start, std::string_view movesText) {
    Game game = readMoveText(movesText, start);
    game_ = std::move(game);
    ply_ = 0;
    changed_ = false;
    rebuild();
}

void BoardGame::setPosition(std::string_view forsyth) {
    Game game;
    game.start = Position::fromForsyth(forsyth);
    game_ = std::move(game);
    ply_ = 0;
    rebuild();
}

void BoardGame::gotoPly(int ply) {
    ply_ = std::clamp(ply, 0, gameLength());
}

int BoardGame::ply() const {
    return ply_;
}
int BoardGame::gameLength() const {
    return int(game_.main.moves.size());
}

int BoardGame::listMoveNumber() const {
    return ply_ == 0 ? 0 : positions_[size_t(ply_ - 1)].fullmoveNumber();
}

std::string BoardGame::lastMoveText() const {
    return ply_ == 0 ? std::string() : sans_[size_t(ply_ - 1)];
}

std::optional<std::pair<int, int>> BoardGame::lastMove() const {
    if (ply_ == 0)
        return std::nullopt;
    const Move m = game_.main.moves[size_t(ply_ - 1)].move;
    if (m.isNull())
        return std::nullopt;
    if (m.isCastle())
        return std::make_pair(int(m.from), Position::castleKingTarget(m));
    return std::make_pair(int(m.from), int(m.to));
}

std::string BoardGame::forsythAt(int ply) const {
    return positions_[size_t(std::clamp(ply, 0, gameLength()))].forsyth();
}

std::string BoardGame::annotation() const {
    return ply_ == 0 ? game_.main.leadComment : game_.main.moves[size_t(ply_ - 1)].comment;
}

void BoardGame::setAnnotation(std::string_view text) {
    std::string& target =
        ply_ == 0 ? game_.main.leadComment : game_.main.moves[size_t(ply_ - 1)].comment;
    target = std::string(text);
}

std::string BoardGame::movesAsList() const {
    const KnownLine known{positions_, sans_};
    return writeList(game_, &known);
}
std::string BoardGame::movesAsParagraph() const {
    const KnownLine known{positions_, sans_};
    return writeParagraph(game_, &known);
}
std::string BoardGame::movesAnnotated() const {
    const KnownLine known{positions_, sans_};
    return writeAnnotated(game_, &known);
}

std::string BoardGame::result() const {
    return game_.result;
}
void BoardGame::setResult(std::string_view result) {
    game_.result = std::string(result);
}

bool BoardGame::changed() const {
    return changed_;
}
void BoardGame::setChanged(bool changed) {
    changed_ = changed;
}

namespace {

// Whether a move is made by putting its piece down on `to`. A castle is made by putting the king
// on its own rook or on the square where castling puts it; where that square is also a plain
// king step, the plain step takes it (see `chooseMove`).
bool madeOn(Move m, int to) {
    if (!m.isCastle())
        return m.to == to;
    return m.to == to || Position::castleKingTarget(m) == to;
}

// How deep variations nest inside a line.
size_t nesting(const Line& line) {
    size_t deepest = 0;
    for (const Node& node : line.moves)
        for (const Line& v : node.variations)
            deepest = std::max(deepest, 1 + nesting(v));
    return deepest;
}

std::optional<Move> chooseMove(const MoveList& moves, int from, int to, PieceType promotion) {
    std::optional<Move> castle;
    for (Move m : moves) {
        if (m.from != from || !madeOn(m, to) || (m.promotion && m.promotion != promotion))
            continue;
        if (!m.isCastle())
            return m;
        castle = m;
    }
    return castle;
}

} // namespace

std::vector<int> BoardGame::legalTargets(int from) const {
    MoveList moves;
    positions_[size_t(ply_)].legalMoves(moves);
    std::vector<int> targets;
    auto add = [&](int t) {
        if (t != from && std::find(targets.begin(), targets.end(), t) == targets.end())
            targets.push_back(t);
    };
    for (Move m : moves) {
        if (m.from != from)
            continue;
        add(m.to);
        if (m.isCastle())
            add(Position::castleKingTarget(m));
    }
    return targets;
}

BoardGame::PlayOutcome BoardGame::playMove(int from, int to, PieceType promotion) {
    MoveList moves;
    positions_[size_t(ply_)].legalMoves(moves);
    const std::optional<Move> chosen = chooseMove(moves, from, to, promotion);
    if (!chosen)
        return PlayOutcome::Illegal;
    std::vector<Node>& line = game_.main.moves;
    const size_t p = size_t(ply_);
    if (p < line.size() && line[p].move == *chosen) {
        ++ply_;
        return PlayOutcome::SteppedNext;
    }
    if (p == line.size()) {
        line.push_back(Node{*chosen, {}, {}, {}});
    } else {
        // The old continuation goes one level down; refuse what could not be read back.
        size_t deepest = 0;
        for (size_t k = p + 1; k < line.size(); ++k)
            for (const Line& v : line[k].variations)
                deepest = std::max(deepest, 1 + nesting(v));
        if (1 + deepest > kMaxNesting)
            return PlayOutcome::Illegal;
        // The old continuation stays as a variation; a variation that starts with this move
        // becomes the main line instead of a new one.
        std::vector<Line> alternatives = std::move(line[p].variations);
        Line old;
        old.moves.assign(std::make_move_iterator(line.begin() + std::ptrdiff_t(p)),
                         std::make_move_iterator(line.end()));
        line.erase(line.begin() + std::ptrdiff_t(p), line.end());
        std::vector<Node> continuation{Node{*chosen, {}, {}, {}}};
        for (auto it = alternatives.begin(); it != alternatives.end(); ++it) {
            if (!it->moves.empty() && it->moves.front().move == *chosen) {
                continuation = std::move(it->moves);
                if (!it->leadComment.empty()) {
                    std::string& c = continuation.front().comment;
                    c = it->leadComment + (c.empty() ? "" : " " + c);
                }
                alternatives.erase(it);
                break;
            }
        }
        Node& first = continuation.front();
        std::vector<Line> variations = std::move(first.variations);
        variations.insert(variations.begin(), std::move(old));
        for (Line& alt : alternatives)
            variations.push_back(std::move(alt));
        first.variations = std::move(variations);
        for (Node& n : continuation)
            line.push_back(std::move(n));
    }
    changed_ = true;
    rebuild();
    ply_ = int(p) + 1;
    return PlayOutcome::Added;
}

} // namespace tavlon
