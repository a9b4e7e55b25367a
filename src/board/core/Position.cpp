#include "Position.h"

#include "BoardError.h"

#include <cstdlib>

namespace tavlon {

namespace {

struct Tables {
    // Knight and king targets, and the eight rays (N, S, E, W, NE, NW, SE, SW) from each square.
    std::array<std::array<int8_t, 9>, 64> knight{};
    std::array<std::array<int8_t, 9>, 64> king{};
    std::array<std::array<std::array<int8_t, 8>, 8>, 64> ray{};
    Tables() {
        const int kd[8][2] = {{1, 2},   {2, 1},   {2, -1}, {1, -2},
                              {-1, -2}, {-2, -1}, {-2, 1}, {-1, 2}};
        const int gd[8][2] = {{0, 1}, {0, -1}, {1, 0}, {-1, 0}, {1, 1}, {-1, 1}, {1, -1}, {-1, -1}};
        for (int sq = 0; sq < 64; ++sq) {
            int f = fileOf(sq), r = rankOf(sq);
            int n = 0, m = 0;
            for (auto& d : kd) {
                int nf = f + d[0], nr = r + d[1];
                if (nf >= 0 && nf < 8 && nr >= 0 && nr < 8)
                    knight[sq][n++] = int8_t(makeSquare(nf, nr));
            }
            knight[sq][n] = -1;
            for (int dir = 0; dir < 8; ++dir) {
                int nf = f + gd[dir][0], nr = r + gd[dir][1];
                if (nf >= 0 && nf < 8 && nr >= 0 && nr < 8)
                    king[sq][m++] = int8_t(makeSquare(nf, nr));
                int len = 0;
                for (int k = 1; k < 8; ++k) {
                    int xf = f + k * gd[dir][0], xr = r + k * gd[dir][1];
                    if (xf < 0 || xf > 7 || xr < 0 || xr > 7)
                        break;
                    ray[sq][dir][len++] = int8_t(makeSquare(xf, xr));
                }
                for (int k = len; k < 8; ++k)
                    ray[sq][dir][k] = -1;
            }
            king[sq][m] = -1;
        }
    }
};

const Tables& tables() {
    static const Tables t;
    return t;
}

bool isDiagonal(int dir) {
    return dir >= 4;
}

// The clocks stop at the largest number a Forsyth string may give them.
void countUp(int& counter) {
    if (counter < kMaxCount)
        ++counter;
}

} // namespace

Position Position::start() {
    static const Position p =
        fromForsyth("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w KQkq - 0 1");
    return p;
}

void Position::put(int sq, Piece p) {
    board_[sq] = p;
    if (typeOf(p) == King)
        king_[colorOf(p)] = sq;
}

bool Position::attacked(int sq, Color by) const {
    const Tables& t = tables();
    for (const int8_t* k = t.knight[sq].data(); *k >= 0; ++k)
        if (board_[*k] == makePiece(by, Knight))
            return true;
    for (const int8_t* k = t.king[sq].data(); *k >= 0; ++k)
        if (board_[*k] == makePiece(by, King))
            return true;
    // A pawn of `by` attacks sq from one rank behind it (seen from `by`).
    const int pr = rankOf(sq) + (by == White ? -1 : 1);
    if (pr >= 0 && pr < 8) {
        const Piece pawn = makePiece(by, Pawn);
        const int f = fileOf(sq);
        if (f > 0 && board_[makeSquare(f - 1, pr)] == pawn)
            return true;
        if (f < 7 && board_[makeSquare(f + 1, pr)] == pawn)
            return true;
    }
    for (int dir = 0; dir < 8; ++dir) {
        const PieceType slider = isDiagonal(dir) ? Bishop : Rook;
        for (int8_t s : t.ray[sq][dir]) {
            if (s < 0)
                break;
            const Piece p = board_[s];
            if (p) {
                if (colorOf(p) == by && (typeOf(p) == slider || typeOf(p) == Queen))
                    return true;
                break;
            }
        }
    }
    return false;
}

void Position::pseudoMoves(MoveList& list, PieceType only, int target) const {
    const Tables& t = tables();
    const Color us = side_;
    const Color them = Color(us ^ 1);
    auto wanted = [&](int to) { return target < 0 || to == target; };
    auto addTarget = [&](int from, int to) {
        const Piece p = board_[to];
        if (p && colorOf(p) == us)
            return;
        if (wanted(to))
            list.push(Move{uint8_t(from), uint8_t(to), NoType, Move::Normal});
    };
    const int forward = us == White ? 8 : -8;
    const int startRank = us == White ? 1 : 6;
    const int lastRank = us == White ? 7 : 0;
    auto addPawn = [&](int from, int to, uint8_t flags) {
        if (!wanted(to))
            return;
        if (rankOf(to) == lastRank) {
            for (int promo : {Queen, Rook, Bishop, Knight})
                list.push(Move{uint8_t(from), uint8_t(to), uint8_t(promo), flags});
        } else {
            list.push(Move{uint8_t(from), uint8_t(to), NoType, flags});
        }
    };
    for (int from = 0; from < 64; ++from) {
        const Piece p = board_[from];
        if (!p || colorOf(p) != us)
            continue;
        const PieceType type = typeOf(p);
        if (only != NoType && type != only)
            continue;
        switch (type) {
        case Pawn: {
            const int one = from + forward;
            if (one >= 0 && one < 64 && !board_[one]) {
                addPawn(from, one, Move::Normal);
                const int two = one + forward;
                if (rankOf(from) == startRank && !board_[two] && wanted(two))
                    list.push(Move{uint8_t(from), uint8_t(two), NoType, Move::DoubleStep});
            }
            for (int df : {-1, 1}) {
                const int f = fileOf(from) + df;
                if (f < 0 || f > 7 || one < 0 || one >= 64)
                    continue;
                const int to = makeSquare(f, rankOf(one));
                if (board_[to] && colorOf(board_[to]) == them)
                    addPawn(from, to, Move::Normal);
                else if (to == ep_ && !board_[to])
                    addPawn(from, to, Move::EnPassant);
            }
            break;
        }
        case Knight:
            for (const int8_t* k = t.knight[from].data(); *k >= 0; ++k)
                addTarget(from, *k);
            break;
        case King:
            for (const int8_t* k = t.king[from].data(); *k >= 0; ++k)
                addTarget(from, *k);
            break;
        default:
            for (int dir = 0; dir < 8; ++dir) {
                if (type == Bishop && !isDiagonal(dir))
                    continue;
                if (type == Rook && isDiagonal(dir))
                    continue;
                for (int8_t s : t.ray[from][dir]) {
                    if (s < 0)
                        break;
                    addTarget(from, s);
                    if (board_[s])
                        break;
                }
            }
            break;
        }
    }
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
    auto clear = [&](int a, int b) {
        for (int s = std::min(a, b); s <= std::max(a, b); ++s)
            if (s != kingFrom && s != rookFrom && board_[s])
                return false;
        return true;
    };
    if (!clear(kingFrom, kingTo) || !clear(rookFrom, rookTo))
        return CastleCheck::Blocked;
    if (inCheck())
        return CastleCheck::InCheck;
    // The squares the king passes must be safe here; where it lands is checked like any move,
    // after the rook has moved (a Chess960 rook may have been shielding it).
    const Color them = Color(c ^ 1);
    for (int s = std::min(kingFrom, kingTo); s <= std::max(kingFrom, kingTo); ++s)
        if (attacked(s, them))
            return CastleCheck::Attacked;
    return isLegal(castleMove(side)) ? CastleCheck::Legal : CastleCheck::Attacked;
}

void Position::addCastles(MoveList& list) const {
    for (int side = 0; side < 2; ++side)
        if (castleCheck(side) == CastleCheck::Legal)
            list.push(castleMove(side));
}

int Position::castleKingTarget(Move m) {
    const int rank = rankOf(m.from);
    return makeSquare(m.to > m.from ? 6 : 2, rank);
}

bool Position::isLegal(Move m) const {
    Position next = *this;
    next.play(m);
    return !next.attacked(next.king_[side_], next.side_);
}

void Position::legalMoves(MoveList& list) const {
    MoveList pseudo;
    pseudoMoves(pseudo, NoType, -1);
    for (Move m : pseudo)
        if (isLegal(m))
            list.push(m);
    addCastles(list);
}

void Position::legalMovesTo(MoveList& list, PieceType type, int to) const {
    // Walks back from the target square: much cheaper than a full move list, which matters when
    // a long file of games is replayed.
    const Tables& t = tables();
    const Color us = side_;
    const Piece there = board_[to];
    if (there && colorOf(there) == us)
        return;
    const bool checked = inCheck();
    auto legal = [&](const Move& m) {
        // Out of check, a piece other than the king may move unless it is pinned to its king.
        if (checked || (m.flags & Move::EnPassant) || typeOf(board_[m.from]) == King)
            return isLegal(m);
        return !pinnedAway(m.from, m.to);
    };
    auto add = [&](int from, uint8_t flags) {
        const int lastRank = us == White ? 7 : 0;
        if (typeOf(board_[from]) == Pawn && rankOf(to) == lastRank) {
            for (int promo : {Queen, Rook, Bishop, Knight}) {
                Move m{uint8_t(from), uint8_t(to), uint8_t(promo), flags};
                if (legal(m))
                    list.push(m);
            }
            return;
        }
        Move m{uint8_t(from), uint8_t(to), NoType, flags};
        if (legal(m))
            list.push(m);
    };
    auto want = [&](PieceType pt) { return type == NoType || type == pt; };
    if (want(Knight))
        for (const int8_t* k = t.knight[to].data(); *k >= 0; ++k)
            if (board_[*k] == makePiece(us, Knight))
                add(*k, Move::Normal);
    if (want(King))
        for (const int8_t* k = t.king[to].data(); *k >= 0; ++k)
            if (board_[*k] == makePiece(us, King))
                add(*k, Move::Normal);
    if (want(Bishop) || want(Rook) || want(Queen)) {
        for (int dir = 0; dir < 8; ++dir) {
            const PieceType slider = isDiagonal(dir) ? Bishop : Rook;
            for (int8_t sq : t.ray[to][dir]) {
                if (sq < 0)
                    break;
                const Piece p = board_[sq];
                if (!p)
                    continue;
                if (colorOf(p) == us &&
                    ((typeOf(p) == slider && want(slider)) || (typeOf(p) == Queen && want(Queen))))
                    add(sq, Move::Normal);
                break;
            }
        }
    }
    if (want(Pawn)) {
        const int back = us == White ? -8 : 8;
        const Piece pawn = makePiece(us, Pawn);
        const int behind = to + back;
        if (behind >= 0 && behind < 64) {
            if (there || to == ep_) {
                const int f = fileOf(to);
                const uint8_t flags = there ? Move::Normal : Move::EnPassant;
                if (there || (ep_ >= 0 && rankOf(to) == (us == White ? 5 : 2))) {
                    if (f > 0 && board_[behind - 1] == pawn)
                        add(behind - 1, flags);
                    if (f < 7 && board_[behind + 1] == pawn)
                        add(behind + 1, flags);
                }
            }
            if (!there) {
                if (board_[behind] == pawn) {
                    add(behind, Move::Normal);
                } else if (!board_[behind]) {
                    const int twoBack = behind + back;
                    const int fourth = us == White ? 3 : 4;
                    if (rankOf(to) == fourth && board_[twoBack] == pawn)
                        add(twoBack, Move::DoubleStep);
                }
            }
        }
    }
}

bool Position::pinnedAway(int from, int to) const {
    const int k = king_[side_];
    if (k < 0)
        return false;
    const int df = fileOf(from) - fileOf(k), dr = rankOf(from) - rankOf(k);
    if (df != 0 && dr != 0 && std::abs(df) != std::abs(dr))
        return false;
    const int sf = (df > 0) - (df < 0), sr = (dr > 0) - (dr < 0);
    const int step = sf + 8 * sr;
    for (int s = k + step; s != from; s += step)
        if (board_[s])
            return false; // something else shields the king
    // Staying on the line keeps the shield.
    const int tf = fileOf(to) - fileOf(k), tr = rankOf(to) - rankOf(k);
    if (tf * sr == tr * sf && (tf * sf >= 0) && (tr * sr >= 0) && (tf || tr))
        return false;
    const PieceType slider = (sf != 0 && sr != 0) ? Bishop : Rook;
    int f = fileOf(from) + sf, r = rankOf(from) + sr;
    while (f >= 0 && f < 8 && r >= 0 && r < 8) {
        const Piece p = board_[makeSquare(f, r)];
        if (p)
            return colorOf(p) != side_ && (typeOf(p) == slider || typeOf(p) == Queen);
        f += sf;
        r += sr;
    }
    return false;
}

bool Position::hasLegalMove() const {
    MoveList pseudo;
    pseudoMoves(pseudo, NoType, -1);
    for (Move m : pseudo)
        if (isLegal(m))
            return true;
    return false;
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
        const int kingTo = makeSquare(kingSide ? 6 : 2, rank);
        const int rookTo = makeSquare(kingSide ? 5 : 3, rank);
        board_[m.from] = 0;
        board_[m.to] = 0;
        board_[kingTo] = makePiece(us, King);
        board_[rookTo] = makePiece(us, Rook);
        king_[us] = kingTo;
        castle_[us][0] = castle_[us][1] = -1;
        countUp(halfmove_);
    } else {
        const Piece moving = board_[m.from];
        const Piece captured = board_[m.to];
        board_[m.to] = m.promotion ? makePiece(us, PieceType(m.promotion)) : moving;
        board_[m.from] = 0;
        if (m.flags & Move::EnPassant)
            board_[makeSquare(fileOf(m.to), rankOf(m.from))] = 0;
        if (typeOf(moving) == King) {
            king_[us] = m.to;
            castle_[us][0] = castle_[us][1] = -1;
        }
        const int homeUs = us == White ? 0 : 7;
        const int homeThem = us == White ? 7 : 0;
        for (int side = 0; side < 2; ++side) {
            if (typeOf(moving) == Rook && m.from == makeSquare(castle_[us][side], homeUs))
                castle_[us][side] = -1;
            if (captured && m.to == makeSquare(castle_[them][side], homeThem))
                castle_[them][side] = -1;
        }
        if (typeOf(moving) == Pawn || captured || (m.flags & Move::EnPassant))
            halfmove_ = 0;
        else
            countUp(halfmove_);
        if (typeOf(moving) == Pawn && std::abs(m.to - m.from) == 16)
            ep_ = (m.to + m.from) / 2;
    }
    if (us == Black)
        countUp(fullmove_);
    side_ = them;
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
