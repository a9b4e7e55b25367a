#include "Position.h"

#include "BoardError.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace tavlon {

namespace {

// The eight directions as file and rank steps. The first four raise the square number, the last
// four lower it, so the first piece met along a ray is its lowest or its highest square.
constexpr int kSteps[8][2] = {{0, 1},  {1, 0},  {1, 1},   {-1, 1},  // N, E, NE, NW
                              {0, -1}, {-1, 0}, {-1, -1}, {1, -1}}; // S, W, SW, SE
constexpr int kRookDirs[4] = {0, 1, 4, 5};
constexpr int kBishopDirs[4] = {2, 3, 6, 7};

struct Tables {
    Bitboard knight[64];
    Bitboard king[64];
    Bitboard pawn[2][64];     // the squares a pawn of that colour attacks
    Bitboard ray[8][64];      // from a square to the edge, the square itself left out
    int8_t direction[64][64]; // the direction from one square to another on a line, else -1
};

constexpr bool onBoard(int file, int rank) {
    return file >= 0 && file < 8 && rank >= 0 && rank < 8;
}

constexpr Tables makeTables() {
    Tables t{};
    constexpr int knightSteps[8][2] = {{1, 2},   {2, 1},   {2, -1}, {1, -2},
                                       {-1, -2}, {-2, -1}, {-2, 1}, {-1, 2}};
    for (int sq = 0; sq < 64; ++sq) {
        const int f = fileOf(sq), r = rankOf(sq);
        for (const auto& d : knightSteps)
            if (onBoard(f + d[0], r + d[1]))
                t.knight[sq] |= bitOf(makeSquare(f + d[0], r + d[1]));
        for (int dir = 0; dir < 8; ++dir) {
            const int df = kSteps[dir][0], dr = kSteps[dir][1];
            if (onBoard(f + df, r + dr))
                t.king[sq] |= bitOf(makeSquare(f + df, r + dr));
            for (int k = 1; onBoard(f + k * df, r + k * dr); ++k)
                t.ray[dir][sq] |= bitOf(makeSquare(f + k * df, r + k * dr));
        }
        for (int df : {-1, 1}) {
            if (onBoard(f + df, r + 1))
                t.pawn[White][sq] |= bitOf(makeSquare(f + df, r + 1));
            if (onBoard(f + df, r - 1))
                t.pawn[Black][sq] |= bitOf(makeSquare(f + df, r - 1));
        }
    }
    for (int a = 0; a < 64; ++a)
        for (int b = 0; b < 64; ++b)
            t.direction[a][b] = -1;
    for (int a = 0; a < 64; ++a)
        for (int dir = 0; dir < 8; ++dir)
            for (Bitboard r = t.ray[dir][a]; r; r &= r - 1)
                t.direction[a][std::countr_zero(r)] = int8_t(dir);
    return t;
}

constexpr Tables kTables = makeTables();

int lowest(Bitboard b) {
    return std::countr_zero(b);
}
int highest(Bitboard b) {
    return 63 - std::countl_zero(b);
}
int popLowest(Bitboard& b) {
    const int sq = lowest(b);
    b &= b - 1;
    return sq;
}

// The squares a slider reaches along one ray: up to and with the first piece met.
Bitboard rayAttacks(int dir, int sq, Bitboard occupied) {
    const Bitboard ray = kTables.ray[dir][sq];
    const Bitboard blockers = ray & occupied;
    if (!blockers)
        return ray;
    return ray ^ kTables.ray[dir][dir < 4 ? lowest(blockers) : highest(blockers)];
}

Bitboard rookAttacks(int sq, Bitboard occupied) {
    Bitboard a = 0;
    for (int dir : kRookDirs)
        a |= rayAttacks(dir, sq, occupied);
    return a;
}

Bitboard bishopAttacks(int sq, Bitboard occupied) {
    Bitboard a = 0;
    for (int dir : kBishopDirs)
        a |= rayAttacks(dir, sq, occupied);
    return a;
}

Bitboard rookRays(int sq) {
    return kTables.ray[0][sq] | kTables.ray[1][sq] | kTables.ray[4][sq] | kTables.ray[5][sq];
}

Bitboard bishopRays(int sq) {
    return kTables.ray[2][sq] | kTables.ray[3][sq] | kTables.ray[6][sq] | kTables.ray[7][sq];
}

// The squares strictly between two squares on a line; none when they are on no line. (Worked
// out from the rays rather than kept in a table of every pair, which would not stay in cache.)
Bitboard between(int a, int b) {
    const int dir = kTables.direction[a][b];
    return dir < 0 ? 0 : kTables.ray[dir][a] ^ kTables.ray[dir][b] ^ bitOf(b);
}

// The whole line through two squares; none when they are on no line.
Bitboard lineThrough(int a, int b) {
    const int dir = kTables.direction[a][b];
    return dir < 0 ? 0 : kTables.ray[dir][a] | kTables.ray[dir ^ 4][a] | bitOf(a);
}

// The clocks stop at the largest number a Forsyth string may give them.
void countUp(int& counter) {
    if (counter < kMaxCount)
        ++counter;
}

void pushPawnMove(MoveList& list, int from, int to, uint8_t flags) {
    if (rankOf(to) == 0 || rankOf(to) == 7) {
        for (PieceType promo : {Queen, Rook, Bishop, Knight})
            list.push(Move{uint8_t(from), uint8_t(to), uint8_t(promo), flags});
    } else {
        list.push(Move{uint8_t(from), uint8_t(to), NoType, flags});
    }
}

} // namespace

Position Position::start() {
    static const Position p =
        fromForsyth("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1");
    return p;
}

Bitboard Position::attackersTo(int sq, Bitboard occ) const {
    return (kTables.knight[sq] & byType_[Knight]) | (kTables.king[sq] & byType_[King]) |
           (kTables.pawn[White][sq] & pieces(Black, Pawn)) |
           (kTables.pawn[Black][sq] & pieces(White, Pawn)) |
           (bishopAttacks(sq, occ) & (byType_[Bishop] | byType_[Queen])) |
           (rookAttacks(sq, occ) & (byType_[Rook] | byType_[Queen]));
}

bool Position::attacked(int sq, Color by) const {
    return attackersTo(sq, occupied()) & byColor_[by];
}

bool Position::safeAfter(int from, int to, Bitboard gone) const {
    const int king = king_[side_];
    if (king < 0)
        return true;
    const int kingAfter = typeOf(board_[from]) == King ? to : king;
    const Bitboard occ = (occupied() & ~bitOf(from) & ~gone) | bitOf(to);
    const Bitboard enemies = byColor_[side_ ^ 1] & ~bitOf(to) & ~gone;
    return !(attackersTo(kingAfter, occ) & enemies);
}

Bitboard Position::pins() const {
    const int king = king_[side_];
    if (king < 0)
        return 0;
    const Color them = Color(side_ ^ 1);
    const Bitboard occ = occupied();
    Bitboard snipers = (rookRays(king) & (pieces(them, Rook) | pieces(them, Queen))) |
                       (bishopRays(king) & (pieces(them, Bishop) | pieces(them, Queen)));
    Bitboard result = 0;
    while (snipers) {
        const Bitboard shield = between(king, popLowest(snipers)) & occ;
        if (shield && !(shield & (shield - 1)) && (shield & byColor_[side_]))
            result |= shield;
    }
    return result;
}

bool Position::pinnedAway(int from, int to) const {
    const int king = king_[side_];
    if (king < 0)
        return false;
    // On no line with the king, something between the two, or staying on the line (the king's
    // own square counts, where a king has been taken in a set-up position): no harm.
    const int dir = kTables.direction[king][from];
    if (dir < 0 || to == king || kTables.direction[king][to] == dir ||
        (between(king, from) & occupied()))
        return false;
    // What stands behind it?
    const Color them = Color(side_ ^ 1);
    const Bitboard sliders =
        pieces(them, Queen) | ((dir & 2) ? pieces(them, Bishop) : pieces(them, Rook));
    return rayAttacks(dir, from, occupied()) & sliders;
}

void Position::findCheckers() {
    const int king = king_[side_];
    checkers_ = king < 0 ? 0 : attackersTo(king, occupied()) & byColor_[side_ ^ 1];
}

void Position::legalMoves(MoveList& list) const {
    const Color us = side_;
    const Bitboard own = byColor_[us];
    const Bitboard enemies = byColor_[us ^ 1];
    const Bitboard occ = own | enemies;
    // The king steps to squares nothing attacks once it has left its own.
    for (Bitboard kings = pieces(us, King); kings;) {
        const int from = popLowest(kings);
        for (Bitboard to = kTables.king[from] & ~own; to;) {
            const int sq = popLowest(to);
            if (!(attackersTo(sq, occ & ~bitOf(from)) & enemies))
                list.push(Move{uint8_t(from), uint8_t(sq), NoType, Move::Normal});
        }
    }
    const int king = king_[us];
    const Bitboard checkers = checkers_;
    if (checkers & (checkers - 1)) // double check
        return;
    const Bitboard pinned = pins();
    // Out of check a move must take the checker or step between; a pinned piece keeps to its
    // line.
    const Bitboard target =
        ~own & (checkers ? checkers | between(king, lowest(checkers)) : kAllSquares);
    auto allowed = [&](int from) {
        return (pinned & bitOf(from)) ? target & lineThrough(king, from) : target;
    };
    for (Bitboard b = pieces(us, Knight) & ~pinned; b;) {
        const int from = popLowest(b);
        for (Bitboard to = kTables.knight[from] & target; to;)
            list.push(Move{uint8_t(from), uint8_t(popLowest(to)), NoType, Move::Normal});
    }
    const Bitboard diagonal = pieces(us, Bishop) | pieces(us, Queen);
    const Bitboard straight = pieces(us, Rook) | pieces(us, Queen);
    for (Bitboard b = diagonal | straight; b;) {
        const int from = popLowest(b);
        Bitboard reach = 0;
        if (diagonal & bitOf(from))
            reach |= bishopAttacks(from, occ);
        if (straight & bitOf(from))
            reach |= rookAttacks(from, occ);
        for (Bitboard to = reach & allowed(from); to;)
            list.push(Move{uint8_t(from), uint8_t(popLowest(to)), NoType, Move::Normal});
    }
    const int forward = us == White ? 8 : -8;
    const int startRank = us == White ? 1 : 6;
    for (Bitboard b = pieces(us, Pawn); b;) {
        const int from = popLowest(b);
        const Bitboard ok = allowed(from);
        const int one = from + forward;
        if (one >= 0 && one < 64 && !board_[one]) {
            if (ok & bitOf(one))
                pushPawnMove(list, from, one, Move::Normal);
            const int two = one + forward;
            if (rankOf(from) == startRank && !board_[two] && (ok & bitOf(two)))
                list.push(Move{uint8_t(from), uint8_t(two), NoType, Move::DoubleStep});
        }
        for (Bitboard to = kTables.pawn[us][from] & enemies & ok; to;)
            pushPawnMove(list, from, popLowest(to), Move::Normal);
        if (ep_ >= 0 && (kTables.pawn[us][from] & bitOf(ep_)) &&
            safeAfter(from, ep_, bitOf(makeSquare(fileOf(ep_), rankOf(from)))))
            list.push(Move{uint8_t(from), uint8_t(ep_), NoType, Move::EnPassant});
    }
    if (!checkers)
        for (int side = 0; side < 2; ++side)
            if (castleCheck(side) == CastleCheck::Legal)
                list.push(castleMove(side));
}

bool Position::hasLegalMove() const {
    MoveList list;
    legalMoves(list);
    return list.size > 0;
}

void Position::movesTo(MoveList& list, PieceType type, int to, Bitboard from, bool legal) const {
    const Color us = side_;
    const Bitboard there = bitOf(to);
    if (byColor_[us] & there)
        return;
    const Bitboard occ = occupied();
    // Out of check, a piece other than the king can only be held back by a pin.
    auto allowed = [&](int from, Bitboard gone) {
        if (!legal)
            return true;
        if (checkers_ || gone || typeOf(board_[from]) == King)
            return safeAfter(from, to, gone);
        return !pinnedAway(from, to);
    };
    auto want = [&](PieceType t) { return type == NoType || type == t; };
    Bitboard candidates = 0;
    if (want(Knight))
        candidates |= kTables.knight[to] & pieces(us, Knight);
    if (want(King))
        candidates |= kTables.king[to] & pieces(us, King);
    if (want(Bishop) || want(Queen))
        candidates |= bishopAttacks(to, occ) & ((want(Bishop) ? pieces(us, Bishop) : 0) |
                                                (want(Queen) ? pieces(us, Queen) : 0));
    if (want(Rook) || want(Queen))
        candidates |= rookAttacks(to, occ) &
                      ((want(Rook) ? pieces(us, Rook) : 0) | (want(Queen) ? pieces(us, Queen) : 0));
    for (Bitboard b = candidates & from; b;) {
        const int sq = popLowest(b);
        if (allowed(sq, 0))
            list.push(Move{uint8_t(sq), uint8_t(to), NoType, Move::Normal});
    }
    if (!want(Pawn))
        return;
    const Bitboard pawns = pieces(us, Pawn) & from;
    auto add = [&](int sq, uint8_t flags, Bitboard gone) {
        if (allowed(sq, gone))
            pushPawnMove(list, sq, to, flags);
    };
    const Color them = Color(us ^ 1);
    if (byColor_[them] & there) {
        for (Bitboard b = kTables.pawn[them][to] & pawns; b;)
            add(popLowest(b), Move::Normal, 0);
        return;
    }
    if (to == ep_) {
        const int taken = to + (us == White ? -8 : 8);
        for (Bitboard b = kTables.pawn[them][to] & pawns; b;)
            add(popLowest(b), Move::EnPassant, bitOf(taken));
    }
    const int back = us == White ? -8 : 8;
    const int behind = to + back;
    if (behind < 0 || behind >= 64)
        return;
    if (pawns & bitOf(behind)) {
        add(behind, Move::Normal, 0);
    } else if (!board_[behind] && rankOf(to) == (us == White ? 3 : 4) &&
               (pawns & bitOf(behind + back))) {
        add(behind + back, Move::DoubleStep, 0);
    }
}

void Position::legalMovesTo(MoveList& list, PieceType type, int to, Bitboard from) const {
    movesTo(list, type, to, from, true);
}

void Position::pseudoMovesTo(MoveList& list, PieceType type, int to) const {
    movesTo(list, type, to, kAllSquares, false);
}

Move Position::castleMove(int side) const {
    const int rank = side_ == White ? 0 : 7;
    return Move{uint8_t(king_[side_]), uint8_t(makeSquare(castle_[side_][side], rank)), NoType,
                Move::Castle};
}

Position::CastleCheck Position::castleCheck(int side) const {
    const Color c = side_;
    const int rookFile = castle_[c][side];
    const int rank = c == White ? 0 : 7;
    const int kingFrom = king_[c];
    if (rookFile < 0 || kingFrom < 0 || rankOf(kingFrom) != rank)
        return CastleCheck::NoRight;
    const int rookFrom = makeSquare(rookFile, rank);
    if (board_[rookFrom] != makePiece(c, Rook))
        return CastleCheck::NoRight;
    const int kingTo = makeSquare(side == 0 ? 6 : 2, rank);
    const int rookTo = makeSquare(side == 0 ? 5 : 3, rank);
    // Every square the king or the rook passes or lands on is empty but for the two of them.
    auto span = [](int a, int b) { return between(a, b) | bitOf(a) | bitOf(b); };
    const Bitboard others = occupied() & ~bitOf(kingFrom) & ~bitOf(rookFrom);
    if ((span(kingFrom, kingTo) | span(rookFrom, rookTo)) & others)
        return CastleCheck::Blocked;
    if (checkers_)
        return CastleCheck::InCheck;
    // The squares the king passes must be safe here; where it lands is checked once the rook
    // has moved too (a Chess960 rook may have been shielding it).
    const Color them = Color(c ^ 1);
    for (Bitboard path = span(kingFrom, kingTo); path;)
        if (attacked(popLowest(path), them))
            return CastleCheck::Attacked;
    const Bitboard after = others | bitOf(kingTo) | bitOf(rookTo);
    if (attackersTo(kingTo, after) & byColor_[them])
        return CastleCheck::Attacked;
    return CastleCheck::Legal;
}

int Position::castleKingTarget(Move m) {
    const int rank = rankOf(m.from);
    return makeSquare(m.to > m.from ? 6 : 2, rank);
}

void Position::play(Move m) {
    const Color us = side_;
    const Color them = Color(us ^ 1);
    ep_ = -1;
    if (m.isNull()) {
        countUp(halfmove_);
    } else if (m.isCastle()) {
        const int rank = rankOf(m.from);
        const bool kingSide = m.to > m.from;
        clear(m.from);
        clear(m.to);
        put(makeSquare(kingSide ? 6 : 2, rank), makePiece(us, King));
        put(makeSquare(kingSide ? 5 : 3, rank), makePiece(us, Rook));
        castle_[us][0] = castle_[us][1] = -1;
        countUp(halfmove_);
    } else {
        const Piece moving = board_[m.from];
        const Piece captured = board_[m.to];
        const PieceType type = typeOf(moving);
        if (captured) {
            byColor_[them] ^= bitOf(m.to);
            byType_[typeOf(captured)] ^= bitOf(m.to);
        }
        byColor_[us] ^= bitOf(m.from) | bitOf(m.to);
        byType_[type] ^= bitOf(m.from);
        const Piece arriving = m.promotion ? makePiece(us, PieceType(m.promotion)) : moving;
        byType_[typeOf(arriving)] ^= bitOf(m.to);
        board_[m.to] = arriving;
        board_[m.from] = 0;
        if (m.flags & Move::EnPassant)
            clear(makeSquare(fileOf(m.to), rankOf(m.from)));
        if (type == King) {
            king_[us] = int8_t(m.to);
            castle_[us][0] = castle_[us][1] = -1;
        }
        const int homeUs = us == White ? 0 : 7;
        const int homeThem = us == White ? 7 : 0;
        for (int side = 0; side < 2; ++side) {
            if (type == Rook && castle_[us][side] >= 0 &&
                m.from == makeSquare(castle_[us][side], homeUs))
                castle_[us][side] = -1;
            if (captured && castle_[them][side] >= 0 &&
                m.to == makeSquare(castle_[them][side], homeThem))
                castle_[them][side] = -1;
        }
        if (type == Pawn || captured)
            halfmove_ = 0;
        else
            countUp(halfmove_);
        if (type == Pawn && std::abs(m.to - m.from) == 16)
            ep_ = (m.to + m.from) / 2;
    }
    if (us == Black)
        countUp(fullmove_);
    side_ = them;
    if (m.isNull() || m.isCastle() || (m.flags & Move::EnPassant) || m.promotion || exposed_)
        findCheckers();
    else
        findCheckersAfter(m.from, m.to);
    exposed_ = false;
}

// After a plain move from `from` to `to` by the side that has just moved, its pieces that give
// check: the one that moved, or one behind `from`. (The king it attacked before could only
// have been its own move's, which the legality of that move rules out.)
void Position::findCheckersAfter(int from, int to) {
    checkers_ = 0;
    const int king = king_[side_];
    if (king < 0)
        return;
    const Color us = Color(side_ ^ 1);
    const Bitboard occ = occupied();
    const PieceType type = typeOf(board_[to]);
    const Bitboard kingBit = bitOf(king);
    bool direct = false;
    switch (type) {
    case Pawn:
        direct = kTables.pawn[us][to] & kingBit;
        break;
    case Knight:
        direct = kTables.knight[to] & kingBit;
        break;
    case King:
        direct = kTables.king[to] & kingBit;
        break;
    default: {
        const int dir = kTables.direction[to][king];
        direct = dir >= 0 && (type == Queen || bool(dir & 2) == (type == Bishop)) &&
                 !(between(to, king) & occ);
        break;
    }
    }
    if (direct)
        checkers_ |= bitOf(to);
    const int dir = kTables.direction[king][from];
    if (dir >= 0 && !(between(king, from) & occ)) {
        const Bitboard sliders =
            pieces(us, Queen) | ((dir & 2) ? pieces(us, Bishop) : pieces(us, Rook));
        checkers_ |= rayAttacks(dir, king, occ) & sliders;
    }
}

bool Position::operator==(const Position& o) const {
    return board_ == o.board_ && side_ == o.side_ && ep_ == o.ep_ &&
           castle_[0][0] == o.castle_[0][0] && castle_[0][1] == o.castle_[0][1] &&
           castle_[1][0] == o.castle_[1][0] && castle_[1][1] == o.castle_[1][1];
}

long perft(const Position& pos, int depth) {
    if (depth <= 0)
        return 1;
    MoveList list;
    pos.legalMoves(list);
    if (depth == 1)
        return list.size;
    long nodes = 0;
    for (Move m : list) {
        Position next = pos;
        next.play(m);
        nodes += perft(next, depth - 1);
    }
    return nodes;
}

} // namespace tavlon
