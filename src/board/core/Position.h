#pragma once

// A chess position with legal move generation. Squares are 0 (a1) to 63 (h8); castling rights
// are kept as rook files so that Chess960 starting positions work like the normal one. Pieces
// are kept twice, square by square and as bit sets per colour and per type, on which attacks are
// worked out; the pieces that give check are found as each move is made.

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace tavlon {

enum Color : int { White = 0, Black = 1 };
enum PieceType : int {
    NoType = 0,
    Pawn = 1,
    Knight = 2,
    Bishop = 3,
    Rook = 4,
    Queen = 5,
    King = 6
};

// A piece is type | (color << 3); 0 is an empty square.
using Piece = int8_t;
constexpr Piece makePiece(Color c, PieceType t) {
    return Piece(t | (c << 3));
}
constexpr PieceType typeOf(Piece p) {
    return PieceType(p & 7);
}
constexpr Color colorOf(Piece p) {
    return Color(p >> 3);
}
constexpr int fileOf(int sq) {
    return sq & 7;
}
constexpr int rankOf(int sq) {
    return sq >> 3;
}
constexpr int makeSquare(int file, int rank) {
    return file + 8 * rank;
}

// The letters of the piece types, as Forsyth strings and SAN write them: White's upper case.
constexpr char kPieceLetters[] = " PNBRQK";
constexpr std::array<PieceType, 128> kTypesOfLetters = [] {
    std::array<PieceType, 128> types{};
    for (int t = Pawn; t <= King; ++t)
        types[size_t(kPieceLetters[t])] = PieceType(t);
    return types;
}();
// The type of an upper-case letter of kPieceLetters; NoType for any other character.
constexpr PieceType typeOfLetter(char upper) {
    return static_cast<unsigned char>(upper) < 128 ? kTypesOfLetters[size_t(upper)] : NoType;
}
// The piece of a letter: "PNBRQK" White's, "pnbrqk" Black's; 0 for any other character.
constexpr Piece pieceOfLetter(char letter) {
    const bool black = letter >= 'a' && letter <= 'z';
    const PieceType type = typeOfLetter(black ? char(letter - 'a' + 'A') : letter);
    return type == NoType ? Piece(0) : makePiece(black ? Black : White, type);
}
// A piece's letter: "PNBRQK" for White, "pnbrqk" for Black.
constexpr char pieceLetter(Piece p) {
    const char upper = kPieceLetters[typeOf(p)];
    return colorOf(p) == White ? upper : char(upper - 'A' + 'a');
}
// The letter of a castling right in a Forsyth string: K or Q for a rook in its corner, the
// rook's file for any other (Chess960); upper case for White. side 0 = king side.
constexpr char castleLetter(Color c, int side, int rookFile) {
    const bool corner = rookFile == (side == 0 ? 7 : 0);
    const char upper = corner ? (side == 0 ? 'K' : 'Q') : char('A' + rookFile);
    return c == White ? upper : char(upper - 'A' + 'a');
}

// The halfmove clock and the move number never go beyond this.
constexpr int kMaxCount = 2147483647;

struct Move {
    enum Flag : uint8_t { Normal = 0, EnPassant = 1, Castle = 2, Null = 4, DoubleStep = 8 };
    uint8_t from;
    uint8_t to; // for castling: the rook's square
    uint8_t promotion;
    uint8_t flags;
    bool operator==(const Move&) const = default;
    bool isCastle() const { return flags & Castle; }
    bool isNull() const { return flags & Null; }
};

// Room for the moves of any position a Forsyth string can set up, not only of reachable ones.
// A square not held by the side to move is reached by at most 16 of its pieces (the first on
// each of eight rays, eight knights); promotions add at most 72 and castling 2. With n pieces of
// its own the side has at most min(16 (64 - n) + 74, 27 n) <= 682 moves.
constexpr int kMaxMoves = 688;

// Left uninitialised: filling it is the generator's job, and it is made for every SAN read.
struct MoveList {
    Move moves[kMaxMoves];
    int size = 0;
    void push(Move m) { moves[size++] = m; }
    const Move* begin() const { return moves; }
    const Move* end() const { return moves + size; }
};

// A set of squares, bit n for square n.
using Bitboard = uint64_t;
constexpr Bitboard bitOf(int sq) {
    return Bitboard(1) << sq;
}
constexpr Bitboard kAllSquares = ~Bitboard(0);
constexpr Bitboard fileSquares(int file) {
    return Bitboard(0x0101010101010101) << file;
}
constexpr Bitboard rankSquares(int rank) {
    return Bitboard(0xFF) << (8 * rank);
}

class Position {
public:
    static Position start();

    Piece at(int sq) const { return board_[sq]; }
    Color sideToMove() const { return side_; }
    int epSquare() const { return ep_; }
    int halfmoveClock() const { return halfmove_; }
    int fullmoveNumber() const { return fullmove_; }
    // Rook file of a castling right, -1 when the right is gone. side 0 = king side, 1 = queen side.
    int castleRookFile(Color c, int side) const { return castle_[c][side]; }

    bool attacked(int sq, Color by) const;
    bool inCheck() const { return checkers_ != 0; }

    void legalMoves(MoveList& list) const;
    bool hasLegalMove() const;
    // Legal moves of one piece type (any type when NoType) to one square, from the squares of
    // `from` only: what reading SAN looks for. Castling is not among them.
    void legalMovesTo(MoveList& list, PieceType type, int to, Bitboard from = kAllSquares) const;
    // The same by the rules of each piece alone, not yet checked for the king's safety.
    void pseudoMovesTo(MoveList& list, PieceType type, int to) const;
    // Castling for the side to move: side 0 = king side, 1 = queen side.
    enum class CastleCheck { Legal, NoRight, Blocked, InCheck, Attacked };
    CastleCheck castleCheck(int side) const;
    // The castling move (king's square to rook's square); only meaningful with a right.
    Move castleMove(int side) const;
    // Plays a legal move (or a null move).
    void play(Move m);
    // The square the king ends on when castling with that move.
    static int castleKingTarget(Move m);

    // Forsyth read/write. read throws BoardError for an unusable string.
    static Position fromForsyth(std::string_view forsyth);
    std::string forsyth() const;
    void appendForsyth(std::string& out) const;

    bool operator==(const Position& o) const;

private:
    Bitboard pieces(Color c, PieceType t) const { return byColor_[c] & byType_[t]; }
    Bitboard occupied() const { return byColor_[White] | byColor_[Black]; }
    Bitboard attackersTo(int sq, Bitboard occupied) const;
    // Whether the king of the side to move stands safe once the piece on `from` has gone to
    // `to` and `gone` is emptied (the pawn taken en passant).
    bool safeAfter(int from, int to, Bitboard gone) const;
    // The pieces of the side to move that alone stand between their king and an enemy slider.
    Bitboard pins() const;
    // Whether the piece on `from` may not go to `to` as it shields its king from a slider.
    bool pinnedAway(int from, int to) const;
    void findCheckers();
    void findCheckersAfter(int from, int to);
    void movesTo(MoveList& list, PieceType type, int to, Bitboard from, bool legal) const;
    void put(int sq, Piece p) {
        clear(sq);
        board_[sq] = p;
        byColor_[colorOf(p)] |= bitOf(sq);
        byType_[typeOf(p)] |= bitOf(sq);
        if (typeOf(p) == King)
            king_[colorOf(p)] = int8_t(sq);
    }
    void clear(int sq) {
        if (const Piece p = board_[sq]) {
            byColor_[colorOf(p)] &= ~bitOf(sq);
            byType_[typeOf(p)] &= ~bitOf(sq);
            board_[sq] = 0;
        }
    }
    void sanitiseRights();

    std::array<Piece, 64> board_{};
    Bitboard byColor_[2] = {0, 0};
    Bitboard byType_[7] = {0, 0, 0, 0, 0, 0, 0};
    int8_t king_[2] = {-1, -1};
    int8_t castle_[2][2] = {{-1, -1}, {-1, -1}};
    Color side_ = White;
    int ep_ = -1;
    int halfmove_ = 0;
    int fullmove_ = 1;
    Bitboard checkers_ = 0; // the enemy pieces that give check to the side to move
    // The side that has just moved is in check, as only a Forsyth string can have it.
    bool exposed_ = false;
};

// Leaf nodes of the legal move tree to `depth` plies: the standard check of a move generator.
long perft(const Position& pos, int depth);

} // namespace tavlon
