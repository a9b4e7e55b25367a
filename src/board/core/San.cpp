#include "San.h"

#include "BoardError.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace tavlon {

namespace {

// A piece letter of SAN: upper case, and no letter for a pawn.
PieceType pieceFromLetter(char c) {
    const PieceType t = typeOfLetter(c);
    return t == Pawn ? NoType : t;
}

PieceType promotionFromLetter(char c) {
    const PieceType t = typeOfLetter(char(std::toupper(static_cast<unsigned char>(c))));
    return t == Pawn || t == King ? NoType : t;
}

bool isFile(char c) {
    return c >= 'a' && c <= 'h';
}
bool isRank(char c) {
    return c >= '1' && c <= '8';
}

} // namespace

namespace {
constexpr std::string_view kGlyphs[] = {"", "!", "?", "!!", "??", "!?", "?!"};
}

int glyphNag(std::string_view g) {
    if (!g.empty())
        for (int nag = 1; nag <= 6; ++nag)
            if (g == kGlyphs[nag])
                return nag;
    return 0;
}

std::string_view nagGlyph(int nag) {
    return nag >= 1 && nag <= 6 ? kGlyphs[nag] : "";
}

std::string numberedMove(int number, Color side, std::string_view token) {
    return std::to_string(number) + (side == White ? ". " : "... ") + std::string(token);
}

std::string numberedMove(const Position& pos, std::string_view token) {
    return numberedMove(pos.fullmoveNumber(), pos.sideToMove(), token);
}

std::string writeSan(const Position& pos, Move m, const Position* after) {
    if (!after) {
        Position next = pos;
        next.play(m);
        return writeSan(pos, m, &next);
    }
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
    if (after->inCheck())
        san += after->hasLegalMove() ? "+" : "#";
    return san;
}

namespace {

const char* const kPieceNames[] = {"piece", "pawn", "knight", "bishop", "rook", "queen", "king"};

std::string squareName(int sq) {
    return {char('a' + fileOf(sq)), char('1' + rankOf(sq))};
}

[[noreturn]] void refuse(const Position& pos, std::string_view token, const std::string& why) {
    throw BoardError("Illegal move " + numberedMove(pos, token) + ": " + why);
}

// Why no move of `type` from the given file or rank (-1: any) reaches `to`.
std::string whyNot(const Position& pos, PieceType type, int to, int fromFile, int fromRank,
                   PieceType promo) {
    const char* name = kPieceNames[type];
    const int lastRank = pos.sideToMove() == White ? 7 : 0;
    if (promo != NoType && (type != Pawn || rankOf(to) != lastRank))
        return "only a pawn reaching the last rank promotes";
    const Piece there = pos.at(to);
    if (there && colorOf(there) == pos.sideToMove())
        return std::string(pos.sideToMove() == White ? "White" : "Black") + "'s own " +
               kPieceNames[typeOf(there)] + " stands on " + squareName(to);
    // Moves that break no rule but the one about the king.
    MoveList reaching;
    pos.pseudoMovesTo(reaching, type, to);
    int reachable = 0, placed = 0;
    for (Move m : reaching) {
        ++reachable;
        if ((fromFile < 0 || fileOf(m.from) == fromFile) &&
            (fromRank < 0 || rankOf(m.from) == fromRank))
            ++placed;
    }
    if (reachable == 0)
        return std::string("no ") + name + " can reach " + squareName(to);
    if (placed == 0) {
        std::string where = fromFile >= 0 && fromRank >= 0
                                ? squareName(makeSquare(fromFile, fromRank))
                            : fromFile >= 0 ? std::string("file ") + char('a' + fromFile)
                                            : std::string("rank ") + char('1' + fromRank);
        return std::string("no ") + name + " on " + where + " can reach " + squareName(to);
    }
    return "the king would be in check";
}

std::string castleRefusal(const Position& pos, int side, Position::CastleCheck check) {
    const char* who = pos.sideToMove() == White ? "White" : "Black";
    const char* wing = side == 0 ? "king side" : "queen side";
    switch (check) {
    case Position::CastleCheck::NoRight:
        return std::string(who) + " has no right to castle " + wing;
    case Position::CastleCheck::Blocked:
        return "pieces stand in the way";
    case Position::CastleCheck::InCheck:
        return "the king is in check";
    default:
        return "the king would cross or land on an attacked square";
    }
}

} // namespace

bool readSanStrict(const Position& pos, std::string_view token, SanResult& result) {
    std::string_view t = token;
    size_t end = t.size();
    while (end > 0 && (t[end - 1] == '!' || t[end - 1] == '?'))
        --end;
    result.nag = glyphNag(t.substr(end));
    while (end > 0 && (t[end - 1] == '+' || t[end - 1] == '#'))
        --end;
    t = t.substr(0, end);
    if (t.size() < 2)
        return false;
    if (t[0] == 'O') {
        const int side = t == "O-O" ? 0 : t == "O-O-O" ? 1 : -1;
        if (side < 0 || pos.castleCheck(side) != Position::CastleCheck::Legal)
            return false;
        result.move = pos.castleMove(side);
        return true;
    }
    // [piece] [file] [rank] [x] file rank [=promotion], read from the front.
    size_t i = 0;
    PieceType type = Pawn;
    if (const PieceType p = pieceFromLetter(t[0]); p != NoType) {
        type = p;
        ++i;
    }
    PieceType promo = NoType;
    if (t[t.size() - 2] == '=') {
        promo = promotionFromLetter(t.back());
        if (promo == NoType || t.back() < 'A' || t.back() > 'Z' || type != Pawn)
            return false;
        t.remove_suffix(2);
    }
    if (t.size() < i + 2 || !isFile(t[t.size() - 2]) || !isRank(t.back()))
        return false;
    const int to = makeSquare(t[t.size() - 2] - 'a', t.back() - '1');
    Bitboard from = kAllSquares;
    std::string_view middle = t.substr(i, t.size() - 2 - i);
    if (!middle.empty() && middle.back() == 'x')
        middle.remove_suffix(1);
    if (!middle.empty() && isFile(middle.front())) {
        from &= fileSquares(middle.front() - 'a');
        middle.remove_prefix(1);
    }
    if (!middle.empty() && isRank(middle.front()) && type != Pawn) {
        from &= rankSquares(middle.front() - '1');
        middle.remove_prefix(1);
    }
    // A pawn names its file only when it takes.
    if (!middle.empty() || (type == Pawn && from != kAllSquares && t[1] != 'x'))
        return false;
    MoveList candidates;
    pos.legalMovesTo(candidates, type, to, from);
    int found = 0;
    for (Move m : candidates) {
        if (m.promotion != (promo == NoType && m.promotion ? Queen : promo))
            continue;
        result.move = m;
        ++found;
    }
    return found == 1;
}

SanResult readSan(const Position& pos, std::string_view token) {
    SanResult result;
    if (readSanStrict(pos, token, result))
        return result;
    return readSanLenient(pos, token);
}

SanResult readSanLenient(const Position& pos, std::string_view token) {
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
        refuse(pos, token, "not a move");

    if (t == "--" || t == "Z0") {
        result.move = Move{0, 0, NoType, Move::Null};
        if (pos.inCheck())
            refuse(pos, token, "the king is in check");
        return result;
    }
    if (t == "O-O" || t == "0-0" || t == "O-O-O" || t == "0-0-0") {
        const int side = t.size() == 3 ? 0 : 1;
        const Position::CastleCheck check = pos.castleCheck(side);
        if (check == Position::CastleCheck::Legal) {
            result.move = pos.castleMove(side);
            return result;
        }
        refuse(pos, token, castleRefusal(pos, side, check));
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
        refuse(pos, token, "not a move");
    const int to = makeSquare(s[s.size() - 2] - 'a', s[s.size() - 1] - '1');
    int fromFile = -1, fromRank = -1;
    for (size_t k = i; k + 2 < s.size(); ++k) {
        if (isFile(s[k]) && fromFile < 0)
            fromFile = s[k] - 'a';
        else if (isRank(s[k]) && fromRank < 0)
            fromRank = s[k] - '1';
        else
            refuse(pos, token, "not a move");
    }
    if (type == NoType) {
        if (fromFile >= 0 && fromRank >= 0) {
            // A coordinate move: the piece is whatever stands on the square.
            const int from = makeSquare(fromFile, fromRank);
            const Piece p = pos.at(from);
            if (!p || colorOf(p) != pos.sideToMove())
                refuse(pos, token,
                       std::string(pos.sideToMove() == White ? "White" : "Black") +
                           " has no piece on " + squareName(from));
            type = typeOf(p);
            if (type == King && std::abs(fileOf(to) - fromFile) == 2 && rankOf(to) == fromRank) {
                const int side = fileOf(to) > fromFile ? 0 : 1;
                if (pos.castleCheck(side) == Position::CastleCheck::Legal &&
                    Position::castleKingTarget(pos.castleMove(side)) == to) {
                    result.move = pos.castleMove(side);
                    return result;
                }
            }
        } else {
            type = Pawn;
        }
    }
    MoveList candidates;
    pos.legalMovesTo(candidates, type, to);
    std::vector<std::string> places; // of the pieces that match, by name
    for (Move m : candidates) {
        if (fromFile >= 0 && fileOf(m.from) != fromFile)
            continue;
        if (fromRank >= 0 && rankOf(m.from) != fromRank)
            continue;
        if (m.promotion != (promo == NoType && m.promotion ? Queen : promo))
            continue;
        places.push_back(squareName(m.from));
        result.move = m;
    }
    if (places.empty())
        refuse(pos, token, whyNot(pos, type, to, fromFile, fromRank, promo));
    if (places.size() > 1) {
        std::sort(places.begin(), places.end());
        std::string list = places.front();
        for (size_t k = 1; k < places.size(); ++k)
            list += (k + 1 == places.size() ? " and " : ", ") + places[k];
        throw BoardError("Ambiguous move " + numberedMove(pos, token) + ": " + kPieceNames[type] +
                         "s on " + list + " can reach " + squareName(to));
    }
    return result;
}

} // namespace tavlon
