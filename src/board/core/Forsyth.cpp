// Reading and writing the six-field Forsyth string of a position.

#include "BoardError.h"
#include "Position.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <vector>

namespace tavlon {

namespace {

std::vector<std::string_view> fields(std::string_view s) {
    std::vector<std::string_view> out;
    size_t i = 0;
    while (i < s.size()) {
        while (i < s.size() && (s[i] == ' ' || s[i] == '\t'))
            ++i;
        size_t j = i;
        while (j < s.size() && s[j] != ' ' && s[j] != '\t')
            ++j;
        if (j > i)
            out.push_back(s.substr(i, j - i));
        i = j;
    }
    return out;
}

// A count of the Forsyth string; digits only, larger numbers stop at kMaxCount.
int toNumber(std::string_view s, int fallback) {
    if (s.empty() || s.find_first_not_of("0123456789") != std::string_view::npos)
        return fallback;
    long long value = 0;
    for (char c : s)
        value = std::min<long long>(value * 10 + (c - '0'), kMaxCount);
    return int(value);
}

} // namespace

Position Position::fromForsyth(std::string_view text) {
    const std::vector<std::string_view> f = fields(text);
    if (f.empty())
        throw BoardError("Empty Forsyth string");
    Position pos;
    int rank = 7, file = 0;
    for (char c : f[0]) {
        if (c == '/') {
            if (file != 8)
                throw BoardError("Forsyth rank " + std::to_string(8 - rank) + " is not 8 squares");
            --rank;
            file = 0;
            if (rank < 0)
                throw BoardError("Forsyth string has more than 8 ranks");
        } else if (c >= '1' && c <= '8') {
            file += c - '0';
            if (file > 8)
                throw BoardError("Forsyth rank " + std::to_string(8 - rank) + " is too long");
        } else {
            const Piece piece = pieceOfLetter(c);
            if (!piece)
                throw BoardError(std::string("Unknown piece letter '") + c + "' in Forsyth string");
            if (file > 7)
                throw BoardError("Forsyth rank " + std::to_string(8 - rank) + " is too long");
            pos.put(makeSquare(file, rank), piece);
            ++file;
        }
    }
    if (rank != 0 || file != 8)
        throw BoardError("Forsyth string does not have 8 ranks of 8 squares");
    if (pos.king_[White] < 0)
        throw BoardError("Forsyth string has no white king");
    if (pos.king_[Black] < 0)
        throw BoardError("Forsyth string has no black king");

    if (f.size() > 1) {
        if (f[1] == "w" || f[1] == "W")
            pos.side_ = White;
        else if (f[1] == "b" || f[1] == "B")
            pos.side_ = Black;
        else
            throw BoardError("Unknown side to move \"" + std::string(f[1]) +
                             "\" in Forsyth string");
    }
    if (f.size() > 2 && f[2] != "-") {
        for (char c : f[2]) {
            const Color color = std::isupper(static_cast<unsigned char>(c)) ? White : Black;
            const int home = color == White ? 0 : 7;
            const int kingSq = pos.king_[color];
            if (rankOf(kingSq) != home)
                continue;
            const char u = char(std::toupper(static_cast<unsigned char>(c)));
            const Piece rook = makePiece(color, Rook);
            int rookFile = -1;
            if (u == 'K') {
                for (int x = 7; x > fileOf(kingSq); --x)
                    if (pos.board_[makeSquare(x, home)] == rook) {
                        rookFile = x;
                        break;
                    }
            } else if (u == 'Q') {
                for (int x = 0; x < fileOf(kingSq); ++x)
                    if (pos.board_[makeSquare(x, home)] == rook) {
                        rookFile = x;
                        break;
                    }
            } else if (u >= 'A' && u <= 'H') {
                rookFile = u - 'A';
            } else {
                continue;
            }
            if (rookFile < 0 || pos.board_[makeSquare(rookFile, home)] != rook)
                continue;
            pos.castle_[color][rookFile > fileOf(kingSq) ? 0 : 1] = int8_t(rookFile);
        }
    }
    pos.sanitiseRights();
    if (f.size() > 3 && f[3] != "-" && f[3].size() == 2) {
        const int ef = f[3][0] - 'a', er = f[3][1] - '1';
        const int wantRank = pos.side_ == White ? 5 : 2;
        if (ef >= 0 && ef < 8 && er == wantRank) {
            const int sq = makeSquare(ef, er);
            const int pawnSq = sq + (pos.side_ == White ? -8 : 8);
            const int fromSq = sq + (pos.side_ == White ? 8 : -8);
            if (!pos.board_[sq] && !pos.board_[fromSq] &&
                pos.board_[pawnSq] == makePiece(Color(pos.side_ ^ 1), Pawn))
                pos.ep_ = sq;
        }
    }
    pos.findCheckers();
    const int waiting = pos.king_[pos.side_ ^ 1];
    pos.exposed_ = pos.attacked(waiting, pos.side_);
    pos.halfmove_ = f.size() > 4 ? toNumber(f[4], 0) : 0;
    pos.fullmove_ = f.size() > 5 ? toNumber(f[5], 1) : 1;
    if (pos.fullmove_ < 1)
        pos.fullmove_ = 1;
    return pos;
}

void Position::sanitiseRights() {
    for (int c = 0; c < 2; ++c) {
        const int home = c == White ? 0 : 7;
        const int kingSq = king_[c];
        for (int side = 0; side < 2; ++side) {
            const int rf = castle_[c][side];
            if (rf < 0)
                continue;
            const bool ok = kingSq >= 0 && rankOf(kingSq) == home &&
                            board_[makeSquare(rf, home)] == makePiece(Color(c), Rook) &&
                            (side == 0 ? rf > fileOf(kingSq) : rf < fileOf(kingSq));
            if (!ok)
                castle_[c][side] = -1;
        }
    }
}

void Position::appendForsyth(std::string& out) const {
    // Written into a buffer of the longest string first: 71 characters of placement, side,
    // rights, square and two counts of up to 10 digits, and five blanks.
    char text[112];
    char* p = text;
    for (int rank = 7; rank >= 0; --rank) {
        int empty = 0;
        for (int file = 0; file < 8; ++file) {
            const Piece piece = board_[makeSquare(file, rank)];
            if (!piece) {
                ++empty;
                continue;
            }
            if (empty)
                *p++ = char('0' + empty);
            empty = 0;
            *p++ = pieceLetter(piece);
        }
        if (empty)
            *p++ = char('0' + empty);
        if (rank)
            *p++ = '/';
    }
    *p++ = ' ';
    *p++ = side_ == White ? 'w' : 'b';
    *p++ = ' ';
    const char* rights = p;
    for (Color c : {White, Black})
        for (int side = 0; side < 2; ++side)
            if (castle_[c][side] >= 0)
                *p++ = castleLetter(c, side, castle_[c][side]);
    if (p == rights)
        *p++ = '-';
    *p++ = ' ';
    if (ep_ >= 0) {
        *p++ = char('a' + fileOf(ep_));
        *p++ = char('1' + rankOf(ep_));
    } else {
        *p++ = '-';
    }
    for (int count : {halfmove_, fullmove_}) {
        *p++ = ' ';
        p = std::to_chars(p, text + sizeof text, count).ptr;
    }
    out.append(text, size_t(p - text));
}

std::string Position::forsyth() const {
    std::string s;
    appendForsyth(s);
    return s;
}

} // namespace tavlon
