#include "San.h"

#include "BoardError.h"

#include <cctype>

namespace tavlon {

namespace {

const char kPieceLetters[] = "  NBRQK";

PieceType pieceFromLetter(char c) {
    switch (c) {
    case 'N':
        return Knight;
    case 'B':
        return Bishop;
    case 'R':
        return Rook;
    case 'Q':
        return Queen;
    case 'K':
        return King;
    default:
        return NoType;
    }
}

PieceType promotionFromLetter(char c) {
    switch (std::toupper(static_cast<unsigned char>(c))) {
    case 'N':
        return Knight;
    case 'B':
        return Bishop;
    case 'R':
        return Rook;
    case 'Q':
        return Queen;
    default:
        return NoType;
    }
}

bool isFile(char c) {
    return c >= 'a' && c <= 'h';
}
bool isRank(char c) {
    return c >= '1' && c <= '8';
}

[[noreturn]] void illegal(std::string_view token) {
    throw BoardError("Illegal move \"" + std::string(token) + "\"");
}

} // namespace

int glyphNag(std::string_view g) {
    if (g == "!")
        return 1;
    if (g == "?")
        return 2;
    if (g == "!!")
        return 3;
    if (g == "??")
        return 4;
    if (g == "!?")
        return 5;
    if (g == "?!")
        return 6;
    return 0;
}

const char* nagGlyph(int nag) {
    static const char* glyphs[] = {"", "!", "?", "!!", "??", "!?", "?!"};
    return nag >= 1 && nag <= 6 ? glyphs[nag] : "";
}

std::string writeSan(const Position& pos, Move m) {
    std::string san;
    if (m.isNull())
        return "--";
    if (m.isCastle()) {
        san = m.to > m.from ? "O-O" : "O-O-O";
    } else {
        const Piece p = pos.at(m.from);
        const PieceType type = typeOf(p);
        const bool capture = pos.at(m.to) || (m.flags & Move::EnPassant);
        if (type == Pawn) {
            if (capture) {
                san += char('a' + fileOf(m.from));
                san += 'x';
            }
        } else {
            san += kPieceLetters[type];
            MoveList others;
            pos.legalMovesTo(others, type, m.to);
            bool ambiguous = false, fileClash = false, rankClash = false;
            for (Move o : others) {
                if (o.from == m.from)
                    continue;
                ambiguous = true;
                if (fileOf(o.from) == fileOf(m.from))
                    fileClash = true;
                if (rankOf(o.from) == rankOf(m.from))
                    rankClash = true;
            }
            if (ambiguous) {
                if (!fileClash)
                    san += char('a' + fileOf(m.from));
                else if (!rankClash)
                    san += char('1' + rankOf(m.from));
                else {
                    san += char('a' + fileOf(m.from));
                    san += char('1' + rankOf(m.from));
                }
            }
            if (capture)
                san += 'x';
        }
        san += char('a' + fileOf(m.to));
        san += char('1' + rankOf(m.to));
        if (m.promotion) {
            san += '=';
            san += kPieceLetters[m.promotion];
        }
    }
    Position next = pos;
    next.play(m);
    if (next.inCheck())
        san += next.hasLegalMove() ? "+" : "#";
    return san;
}

SanResult readSan(const Position& pos, std::string_view token) {
    SanResult result;
    std::string_view t = token;
    // Glyphs, check and mate marks, and an en passant remark are decoration.
    size_t end = t.size();
    while (end > 0 && (t[end - 1] == '!' || t[end - 1] == '?'))
        --end;
    result.nag = glyphNag(t.substr(end));
    t = t.substr(0, end);
    while (!t.empty() && (t.back() == '+' || t.back() == '#'))
        t.remove_suffix(1);
    for (std::string_view ep : {"e.p.", "ep"})
        if (t.size() > ep.size() + 2 && t.substr(t.size() - ep.size()) == ep)
            t.remove_suffix(ep.size());
    while (!t.empty() && (t.back() == '+' || t.back() == '#'))
        t.remove_suffix(1);
    if (t.empty())
        illegal(token);

    if (t == "--" || t == "Z0") {
        result.move = Move{0, 0, NoType, Move::Null};
        if (pos.inCheck())
            illegal(token);
        return result;
    }
    if (t == "O-O" || t == "0-0" || t == "O-O-O" || t == "0-0-0") {
        const int side = t.size() == 3 ? 0 : 1;
        MoveList moves;
        pos.legalMoves(moves);
        for (Move m : moves)
            if (m.isCastle() && (m.to > m.from ? 0 : 1) == side) {
                result.move = m;
                return result;
            }
        illegal(token);
    }

    std::string s;
    s.reserve(t.size());
    PieceType promo = NoType;
    // Promotion: "=Q", "(Q)", "/Q", or a bare letter after the rank.
    {
        std::string_view u = t;
        if (u.size() >= 3 && u.back() == ')' && u[u.size() - 3] == '(') {
            promo = promotionFromLetter(u[u.size() - 2]);
            u.remove_suffix(3);
        } else if (u.size() >= 3 && promotionFromLetter(u.back()) != NoType &&
                   (u[u.size() - 2] == '=' || u[u.size() - 2] == '/' || isRank(u[u.size() - 2]))) {
            const char before = u[u.size() - 2];
            // "Bb8" ends in a rank too: only a pawn-like token takes a bare letter.
            if (before == '=' || before == '/' || isFile(u[0])) {
                promo = promotionFromLetter(u.back());
                u.remove_suffix(before == '=' || before == '/' ? 2 : 1);
            }
        }
        for (char c : u)
            if (c != 'x' && c != '-' && c != ':')
                s += c;
    }
    PieceType type = NoType;
    size_t i = 0;
    if (!s.empty() && pieceFromLetter(s[0]) != NoType) {
        type = pieceFromLetter(s[0]);
        i = 1;
    }
    if (s.size() < i + 2 || !isFile(s[s.size() - 2]) || !isRank(s[s.size() - 1]))
        illegal(token);
    const int to = makeSquare(s[s.size() - 2] - 'a', s[s.size() - 1] - '1');
    int fromFile = -1, fromRank = -1;
    for (size_t k = i; k + 2 < s.size(); ++k) {
        if (isFile(s[k]) && fromFile < 0)
            fromFile = s[k] - 'a';
        else if (isRank(s[k]) && fromRank < 0)
            fromRank = s[k] - '1';
        else
            illegal(token);
    }
    if (type == NoType) {
        if (fromFile >= 0 && fromRank >= 0) {
            // A coordinate move: the piece is whatever stands on the square.
            const Piece p = pos.at(makeSquare(fromFile, fromRank));
            if (!p || colorOf(p) != pos.sideToMove())
                illegal(token);
            type = typeOf(p);
            if (type == King && std::abs(fileOf(to) - fromFile) == 2 && rankOf(to) == fromRank) {
                MoveList moves;
                pos.legalMoves(moves);
                for (Move m : moves)
                    if (m.isCastle() && m.from == makeSquare(fromFile, fromRank) &&
                        Position::castleKingTarget(m) == to) {
                        result.move = m;
                        return result;
                    }
            }
        } else {
            type = Pawn;
        }
    }
    MoveList candidates;
    pos.legalMovesTo(candidates, type, to);
    Move found{};
    int count = 0;
    for (Move m : candidates) {
        if (fromFile >= 0 && fileOf(m.from) != fromFile)
            continue;
        if (fromRank >= 0 && rankOf(m.from) != fromRank)
            continue;
        if (m.promotion != (promo == NoType && m.promotion ? Queen : promo))
            continue;
        found = m;
        ++count;
    }
    if (count == 0)
        illegal(token);
    if (count > 1)
        throw BoardError("Ambiguous move \"" + std::string(token) + "\"");
    result.move = found;
    return result;
}

} // namespace tavlon
