// Writing the three move texts of a game.

#include "MoveText.h"
#include "San.h"

namespace tavlon {

namespace {

constexpr size_t kLineWidth = 79;

bool startsEscape(std::string_view w) {
    return !w.empty() && w[0] == '%';
}

// Joins words into lines of at most 79 characters with CR LF between them. A line that the
// importer would read as the end of a game (it ends like a result) or as an escape line (it
// starts with "%") is avoided by breaking before the run of result-like words that ends the
// line, or by not breaking at all; a single long word may exceed the width. Each word is carried
// to a new line at most once, so the time is linear even for a comment full of results.
class LineWrapper {
public:
    void add(std::string_view w) {
        const bool fits = words_ == lineStart_ || width_ + 1 + w.size() <= kLineWidth;
        const bool canBreak = runStart_ > lineStart_ && (runStart_ == words_ || !runEscapes_);
        if (!fits && !startsEscape(w) && canBreak) {
            // A new line, carrying the result-like run with it.
            std::string carried;
            if (runStart_ < words_) {
                carried = out_.substr(runOffset_);
                out_.resize(runOffset_ - 1); // and the blank before it
            }
            out_ += "\r\n";
            runOffset_ = out_.size();
            out_ += carried;
            lineStart_ = runStart_;
            width_ = carried.size();
        }
        if (words_ > lineStart_) {
            out_ += ' ';
            ++width_;
        }
        if (runStart_ == words_) {
            runOffset_ = out_.size();
            runEscapes_ = startsEscape(w);
        }
        out_ += w;
        width_ += w.size();
        ++words_;
        if (!endsLikeResult(w))
            runStart_ = words_;
    }
    std::string take() { return std::move(out_); }

private:
    std::string out_;
    size_t words_ = 0;        // words added so far
    size_t lineStart_ = 0;    // first word of the current line
    size_t runStart_ = 0;     // first word of the result-like run that ends the line (or the next)
    size_t runOffset_ = 0;    // where that run starts in `out_`
    bool runEscapes_ = false; // the run's first word starts with "%"
    size_t width_ = 0;
};

// Walks a line move by move: the position before each move and its SAN, taken from what the
// caller knows of the main line, or worked out here.
class LineWalk {
public:
    LineWalk(const Position& start, const KnownLine* known) : pos_(start), known_(known) {}
    const Position& before(size_t i) const { return known_ ? known_->positions[i] : pos_; }
    std::string_view san(size_t i, Move m) {
        if (known_)
            return known_->sans[i];
        san_ = writeSan(pos_, m);
        return san_;
    }
    void next(Move m) {
        if (!known_)
            pos_.play(m);
    }

private:
    Position pos_;
    const KnownLine* known_;
    std::string san_;
};

// Builds the words of the annotated text one at a time, so that a bracket can still be added to
// the last word of a variation before it is placed.
class AnnotatedWriter {
public:
    void line(const Line& line, const Position& start, bool needNumber, const KnownLine* known) {
        if (!line.leadComment.empty()) {
            comment(line.leadComment);
            needNumber = true;
        }
        LineWalk walk(start, known);
        for (size_t i = 0; i < line.moves.size(); ++i) {
            const Node& node = line.moves[i];
            const Position& pos = walk.before(i);
            // A move number stays on the line of its move.
            beginWord();
            if (pos.sideToMove() == White || needNumber) {
                word_ += std::to_string(pos.fullmoveNumber());
                word_ += pos.sideToMove() == White ? ". " : "... ";
            }
            word_ += walk.san(i, node.move);
            needNumber = false;
            for (int nag : node.nags) {
                beginWord();
                word_ += '$';
                word_ += std::to_string(nag);
            }
            if (!node.comment.empty()) {
                comment(node.comment);
                needNumber = true;
            }
            for (const Line& variation : node.variations) {
                if (variation.moves.empty() && variation.leadComment.empty())
                    continue;
                openNext_ = true;
                this->line(variation, pos, true, nullptr);
                word_ += ')';
                needNumber = true;
            }
            walk.next(node.move);
        }
    }

    std::string finish(std::string_view result) {
        beginWord();
        word_ += result;
        beginWord();
        return wrapper_.take();
    }

private:
    // Braces round the words of the text; a closing brace inside it and line breaks are dropped.
    void comment(std::string_view text) {
        bool any = false, inWord = false;
        for (char c : text) {
            if (c == '}')
                continue;
            if (c == ' ' || c == '\r' || c == '\n' || c == '\t') {
                inWord = false;
                continue;
            }
            if (!inWord) {
                beginWord();
                if (!any)
                    word_ += '{';
                any = inWord = true;
            }
            word_ += c;
        }
        if (!any) {
            beginWord();
            word_ += '{';
        }
        word_ += '}';
    }

    // Places the word built so far and starts the next.
    void beginWord() {
        if (started_)
            wrapper_.add(word_);
        started_ = true;
        word_.clear();
        if (openNext_) {
            word_ += '(';
            openNext_ = false;
        }
    }

    LineWrapper wrapper_;
    std::string word_;
    bool started_ = false;
    bool openNext_ = false;
};

std::string_view glyphOf(const Node& node) {
    for (int nag : node.nags)
        if (nag >= 1 && nag <= 6)
            return nagGlyph(nag);
    return {};
}

} // namespace

bool endsLikeResult(std::string_view line) {
    while (!line.empty() && line.back() == ' ')
        line.remove_suffix(1);
    if (line.empty() ||
        (line.back() != '2' && line.back() != '0' && line.back() != '1' && line.back() != '*'))
        return false; // the last characters of the results below
    for (std::string_view r : {"1/2-1/2", "1-0", "0-1", "*"})
        if (line.size() >= r.size() && line.substr(line.size() - r.size()) == r)
            return true;
    return false;
}

std::string writeAnnotated(const Game& game, const KnownLine* known) {
    AnnotatedWriter w;
    w.line(game.main, game.start, true, known);
    return w.finish(game.result);
}

std::string writeList(const Game& game, const KnownLine* known) {
    std::string out;
    LineWalk walk(game.start, known);
    for (size_t i = 0; i < game.main.moves.size(); ++i) {
        const Node& node = game.main.moves[i];
        const Position& pos = walk.before(i);
        if (pos.sideToMove() == White) {
            if (i > 0)
                out += "\r\n";
            out += std::to_string(pos.fullmoveNumber());
            out += ". ";
        } else if (i == 0) {
            out += std::to_string(pos.fullmoveNumber());
            out += "... ";
        } else {
            out += ' ';
        }
        out += walk.san(i, node.move);
        out += glyphOf(node);
        walk.next(node.move);
    }
    if (!game.main.moves.empty())
        out += "\r\n";
    out += game.result;
    return out;
}

std::string writeParagraph(const Game& game, const KnownLine* known) {
    LineWrapper wrapper;
    LineWalk walk(game.start, known);
    std::string word;
    for (size_t i = 0; i < game.main.moves.size(); ++i) {
        const Node& node = game.main.moves[i];
        const Position& pos = walk.before(i);
        word.clear();
        if (pos.sideToMove() == White || i == 0) {
            word += std::to_string(pos.fullmoveNumber());
            word += pos.sideToMove() == White ? "." : "...";
        }
        word += walk.san(i, node.move);
        word += glyphOf(node);
        wrapper.add(word);
        walk.next(node.move);
    }
    wrapper.add(game.result);
    return wrapper.take();
}

} // namespace tavlon
