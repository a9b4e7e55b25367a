// Reading PGN move text: move numbers, comments, NAGs, variations, escape lines and results.
// One reader serves the board (the whole tree), a replay (the main line only) and the file
// reader (only where the game ends); all three end a game by the same rules.

#include "BoardError.h"
#include "MoveText.h"
#include "PgnLexer.h"
#include "San.h"

namespace tavlon {

namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}

// Comment text as kept: whitespace runs become one blank, none at the ends, and no "}" (which
// a brace comment could not hold when written back).
void appendComment(std::string& to, std::string_view text) {
    std::string clean;
    bool space = false;
    for (char c : text) {
        if (c == '}')
            continue;
        if (isSpace(c)) {
            space = !clean.empty();
            continue;
        }
        if (space)
            clean += ' ';
        space = false;
        clean += c;
    }
    if (clean.empty())
        return;
    if (!to.empty())
        to += ' ';
    to += clean;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// Whether every character of `w` is `a` or `b`.
bool onlyOf(std::string_view w, char a, char b) {
    for (char c : w)
        if (c != a && c != b)
            return false;
    return true;
}

struct Frame {
    Line* line;                // null when the line is not kept
    Position pos;              // before the next move of this line
    Position lastPos;          // before the line's last move (kept in Tree mode only)
    std::string_view lastMove; // that move as written; empty before the first
    int lastNumber = 0;        // and its number
    Color lastSide = White;
};

class Reader {
public:
    enum Mode {
        Tree,     // the whole game, for the board
        MainLine, // the main line played, variations and comments passed over
        Scan,     // nothing played: only where the game ends
    };

    Reader(PgnLexer& lexer, Mode mode) : lexer_(lexer), mode_(mode) {}

    // Reads up to the end of the game: a result outside variations, the end of the text, and in
    // a file (MainLine and Scan) also a "[" outside variations, where the next game's tags begin.
    // `line` is the main line's Line in Tree mode.
    void run(const Position& start, Line* line, std::vector<Move>* moves) {
        moves_ = moves;
        frames_.push_back(Frame{line, start, start, {}});
        for (;;) {
            try {
                if (!step())
                    return;
            } catch (const BoardError& e) {
                if (mode_ == Tree)
                    throw;
                error_ = e.what();
                mode_ = Scan;
            }
        }
    }

    // In MainLine mode a refused move does not stop the reading: the rest is scanned for the
    // game's end, and the refusal kept here.
    const std::string& error() const { return error_; }
    std::string_view result() const { return result_.empty() ? "*" : result_; }
    const Position& position() const { return frames_.front().pos; }

private:
    size_t depth() const { return frames_.size() - 1 + skipDepth_; }

    // Reads one token; false at the end of the game.
    bool step() {
        const PgnToken t = lexer_.next();
        switch (t.kind) {
        case PgnToken::End:
            if (depth() > 0 && mode_ != Scan)
                fail("Unbalanced \"(\"", frames_.front());
            return false;
        case PgnToken::Comment:
            comment(t.text);
            break;
        case PgnToken::Open:
            openVariation();
            break;
        case PgnToken::Close:
            closeVariation();
            break;
        case PgnToken::Nag:
            nag(t.value);
            break;
        case PgnToken::Tag:
            if (mode_ == Tree)
                refuse(t.text);
            if (depth() == 0) {
                lexer_.rewind(t); // the next game's tags
                return false;
            }
            break;
        case PgnToken::Word:
            if (const std::string_view r = resultOf(t.text); !r.empty()) {
                if (depth() == 0) {
                    result_ = r;
                    return false; // the rest of the text is not part of the game
                }
                break;
            }
            word(t.text);
            return result_.empty();
        }
        return true;
    }

    // `what` after the last move read in that line.
    [[noreturn]] static void fail(const std::string& what, const Frame& where) {
        if (where.lastMove.empty())
            throw BoardError(what + " before the first move");
        throw BoardError(what + " after " +
                         numberedMove(where.lastNumber, where.lastSide, where.lastMove));
    }

    [[noreturn]] void refuse(std::string_view token) const {
        throw BoardError("Illegal move " + numberedMove(frames_.back().pos, token) +
                         ": not a move");
    }

    void comment(std::string_view text) {
        Frame& f = frames_.back();
        if (mode_ != Tree)
            return;
        if (f.line->moves.empty())
            appendComment(f.line->leadComment, text);
        else
            appendComment(f.line->moves.back().comment, text);
    }

    void nag(int value) {
        Frame& f = frames_.back();
        if (mode_ != Tree || value <= 0 || value > 255)
            return;
        if (!f.line->moves.empty())
            f.line->moves.back().nags.push_back(value);
    }

    void openVariation() {
        Frame& f = frames_.back();
        if (mode_ != Scan && depth() + 1 > kMaxNesting)
            fail("Variations nested deeper than " + std::to_string(kMaxNesting), frames_.front());
        if (mode_ != Tree) {
            ++skipDepth_;
            return;
        }
        if (f.lastMove.empty())
            fail("A variation", f);
        Node& node = f.line->moves.back();
        node.variations.emplace_back();
        frames_.push_back(Frame{&node.variations.back(), f.lastPos, f.lastPos, {}});
    }

    void closeVariation() {
        if (depth() == 0) {
            if (mode_ != Scan)
                fail("Unbalanced \")\"", frames_.back());
            return;
        }
        if (skipDepth_ > 0) {
            --skipDepth_;
            return;
        }
        const Line* closed = frames_.back().line;
        frames_.pop_back();
        // An empty "( )" says nothing; dropping it keeps what is written equal to what is read.
        if (closed->moves.empty() && closed->leadComment.empty())
            frames_.back().line->moves.back().variations.pop_back();
    }

    void word(std::string_view w) {
        if (skipDepth_ > 0)
            return;
        // Move numbers: "12", "12.", "12...", and "12.e4" with the move glued on.
        if (isDigit(w[0]) && w.substr(0, 3) != "0-0") {
            size_t k = 0;
            while (k < w.size() && isDigit(w[k]))
                ++k;
            const size_t digitsEnd = k;
            while (k < w.size() && w[k] == '.')
                ++k;
            if (k == w.size())
                return;
            if (k == digitsEnd) {
                if (mode_ == Scan)
                    return;
                refuse(w);
            }
            w = w.substr(k);
        }
        // Check signs, dots and an en passant remark on their own say nothing.
        if (onlyOf(w, '+', '#') || onlyOf(w, '.', '.') || w == "e.p." || w == "ep")
            return;
        // A result glued to the last move, as in "h6*".
        if (w.size() > 1 && w.back() == '*' && frames_.size() == 1) {
            word(w.substr(0, w.size() - 1));
            result_ = "*";
            return;
        }
        if (mode_ == Scan)
            return;
        if (onlyOf(w, '!', '?')) {
            nag(glyphNag(w));
            return;
        }
        Frame& f = frames_.back();
        const SanResult san = readSan(f.pos, w);
        if (mode_ == Tree) {
            Node node;
            node.move = san.move;
            if (san.nag)
                node.nags.push_back(san.nag);
            f.line->moves.push_back(std::move(node));
        } else if (moves_) {
            moves_->push_back(san.move);
        }
        if (mode_ == Tree)
            f.lastPos = f.pos;
        f.lastMove = w;
        f.lastNumber = f.pos.fullmoveNumber();
        f.lastSide = f.pos.sideToMove();
        f.pos.play(san.move);
    }

    PgnLexer& lexer_;
    Mode mode_;
    std::vector<Frame> frames_;
    std::vector<Move>* moves_ = nullptr;
    size_t skipDepth_ = 0;
    std::string_view result_;
    std::string error_;
};

} // namespace

Game readMoveText(std::string_view text, const Position& start) {
    Game game;
    game.start = start;
    PgnLexer lexer(text);
    Reader reader(lexer, Reader::Tree);
    reader.run(start, &game.main, nullptr);
    game.result = std::string(reader.result());
    return game;
}

void readMainLine(PgnLexer& lexer, const Position& start, MainLine& line) {
    line.moves.clear();
    line.error.clear();
    Reader reader(lexer, Reader::MainLine);
    reader.run(start, nullptr, &line.moves);
    line.error = reader.error();
    line.end = reader.position();
    line.result = reader.result();
}

void skipMoveText(PgnLexer& lexer) {
    Reader reader(lexer, Reader::Scan);
    reader.run(Position::start(), nullptr, nullptr);
}

} // namespace tavlon
