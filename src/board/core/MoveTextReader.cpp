// Reading PGN move text: move numbers, comments, NAGs, variations, escape lines and results.

#include "BoardError.h"
#include "MoveText.h"
#include "San.h"

#include <algorithm>
#include <cctype>

namespace tavlon {

namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}
bool isDelimiter(char c) {
    return isSpace(c) || c == '{' || c == '}' || c == '(' || c == ')' || c == ';' || c == '$';
}

// The result a word stands for ("1-0", "0-1", "1/2-1/2", "*"), or "" when it is none. Files
// spell results in more ways than the standard: halves, en dashes, a lone "1/2", and the forfeit
// marks of tournament files ("+--" White wins, "--+" Black wins).
std::string_view resultOf(std::string_view w) {
    static constexpr std::pair<std::string_view, std::string_view> kSpellings[] = {
        {"1-0", "1-0"},
        {"0-1", "0-1"},
        {"1/2-1/2", "1/2-1/2"},
        {"*", "*"},
        {"1/2", "1/2-1/2"},
        {"\xC2\xBD-\xC2\xBD", "1/2-1/2"},
        {"1\xE2\x80\x93"
         "0",
         "1-0"},
        {"0\xE2\x80\x93"
         "1",
         "0-1"},
        {"1/2\xE2\x80\x93"
         "1/2",
         "1/2-1/2"},
        {"+--", "1-0"},
        {"--+", "0-1"},
    };
    for (const auto& [spelling, result] : kSpellings)
        if (w == spelling)
            return result;
    return {};
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

struct Frame {
    Line* line;
    Position pos;              // before the next move of this line
    Position lastPos;          // before the line's last move
    std::string_view lastMove; // that move as written; empty before the first
};

class Reader {
public:
    Reader(std::string_view text, const Position& start, bool mainOnly)
        : text_(text), start_(start), mainOnly_(mainOnly) {}

    Game run() {
        Game game;
        game.start = start_;
        frames_.push_back(Frame{&game.main, start_, start_, {}});
        size_t i = 0;
        bool lineStart = true;
        const size_t n = text_.size();
        while (i < n) {
            const char c = text_[i];
            if (c == '\n' || c == '\r') {
                lineStart = true;
                ++i;
                continue;
            }
            if (lineStart && c == '%') {
                while (i < n && text_[i] != '\n' && text_[i] != '\r')
                    ++i;
                continue;
            }
            lineStart = false;
            if (isSpace(c)) {
                ++i;
                continue;
            }
            if (c == '{') {
                const size_t close = text_.find('}', i + 1);
                const size_t stop = close == std::string_view::npos ? n : close;
                comment(text_.substr(i + 1, stop - i - 1));
                i = close == std::string_view::npos ? n : close + 1;
                continue;
            }
            if (c == ';') {
                size_t stop = i + 1;
                while (stop < n && text_[stop] != '\n' && text_[stop] != '\r')
                    ++stop;
                comment(text_.substr(i + 1, stop - i - 1));
                i = stop;
                continue;
            }
            if (c == '(') {
                openVariation();
                ++i;
                continue;
            }
            if (c == ')') {
                if (frames_.size() + skipDepth_ <= 1)
                    fail("Unbalanced \")\"", frames_.back());
                closeVariation();
                ++i;
                continue;
            }
            if (c == '}') {
                ++i; // a stray brace closes nothing
                continue;
            }
            size_t stop = i + 1;
            if (c == '$') {
                while (stop < n && std::isdigit(static_cast<unsigned char>(text_[stop])))
                    ++stop;
                int value = 0;
                for (size_t k = i + 1; k < stop; ++k)
                    value = std::min(value * 10 + (text_[k] - '0'), 1000); // no overflow
                nag(value);
                i = stop;
                continue;
            }
            while (stop < n && !isDelimiter(text_[stop]))
                ++stop;
            const std::string_view word = text_.substr(i, stop - i);
            i = stop;
            if (const std::string_view result = resultOf(word); !result.empty()) {
                if (frames_.size() == 1 && skipDepth_ == 0) {
                    game.result = std::string(result);
                    break; // the rest of the text is not part of the game
                }
                continue;
            }
            this->word(word);
            if (!gluedResult_.empty()) {
                game.result = gluedResult_;
                break;
            }
        }
        if (frames_.size() > 1 || skipDepth_ > 0)
            fail("Unbalanced \"(\"", frames_.front());
        game.end = frames_.front().pos;
        return game;
    }

private:
    // `what` after the last move read in that line.
    [[noreturn]] static void fail(const std::string& what, const Frame& where) {
        if (where.lastMove.empty())
            throw BoardError(what + " before the first move");
        throw BoardError(what + " after " + numberedMove(where.lastPos, where.lastMove));
    }

    void comment(std::string_view text) {
        if (skipDepth_ > 0 || mainOnly_)
            return;
        Frame& f = frames_.back();
        if (f.line->moves.empty())
            appendComment(f.line->leadComment, text);
        else
            appendComment(f.line->moves.back().comment, text);
    }

    void nag(int value) {
        if (skipDepth_ > 0 || mainOnly_ || value <= 0 || value > 255)
            return;
        Frame& f = frames_.back();
        if (!f.line->moves.empty())
            f.line->moves.back().nags.push_back(value);
    }

    void openVariation() {
        Frame& f = frames_.back();
        if (frames_.size() + skipDepth_ > kMaxNesting)
            fail("Variations nested deeper than " + std::to_string(kMaxNesting), frames_.front());
        if (skipDepth_ > 0 || mainOnly_) {
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
        if (std::isdigit(static_cast<unsigned char>(w[0])) && w.substr(0, 3) != "0-0") {
            size_t k = 0;
            while (k < w.size() && std::isdigit(static_cast<unsigned char>(w[k])))
                ++k;
            const size_t digitsEnd = k;
            while (k < w.size() && (w[k] == '.' || w[k] == ' '))
                ++k;
            if (k == w.size())
                return;
            if (k == digitsEnd)
                throw BoardError("Illegal move " + numberedMove(frames_.back().pos, w) +
                                 ": not a move");
            w = w.substr(k);
        }
        if (w == "e.p." || w == "ep" || w.find_first_not_of("+#") == std::string_view::npos ||
            w.find_first_not_of('.') == std::string_view::npos)
            return;
        // A result glued to the last move, as in "h6*".
        if (w.size() > 1 && w.back() == '*' && frames_.size() == 1) {
            word(w.substr(0, w.size() - 1));
            gluedResult_ = "*";
            return;
        }
        if (w.find_first_not_of("!?") == std::string_view::npos) {
            nag(glyphNag(w));
            return;
        }
        Frame& f = frames_.back();
        const SanResult san = readSan(f.pos, w);
        if (!mainOnly_) {
            Node node;
            node.move = san.move;
            if (san.nag)
                node.nags.push_back(san.nag);
            f.line->moves.push_back(std::move(node));
        } else {
            f.line->moves.push_back(Node{san.move, {}, {}, {}});
        }
        f.lastPos = f.pos;
        f.pos.play(san.move);
        f.lastMove = w;
    }

    std::string_view text_;
    Position start_;
    bool mainOnly_;
    std::vector<Frame> frames_;
    int skipDepth_ = 0;
    std::string gluedResult_;
};

} // namespace

Game readMoveText(std::string_view text, const Position& start, bool mainLineOnly) {
    return Reader(text, start, mainLineOnly).run();
}

} // namespace tavlon
