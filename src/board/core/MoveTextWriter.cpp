// Writing the three move texts of a game.

#include "MoveText.h"
#include "San.h"

namespace tavlon {

namespace {

constexpr size_t kLineWidth = 79;

bool startsEscape(std::string_view w) { return !w.empty() && w[0] == '%'; }

// Joins words into lines of at most 79 characters with CR LF between them. A line that the
// importer would read as the end of a game (it ends like a result) or as an escape line (it
// starts with "%") is avoided by breaking elsewhere; a single long word may exceed the width.
std::string wrap(const std::vector<std::string>& words) {
    std::vector<std::vector<const std::string*>> lines(1);
    std::vector<size_t> widths(1, 0);
    for (const std::string& w : words) {
        auto& line = lines.back();
        size_t& width = widths.back();
        const size_t added = line.empty() ? w.size() : width + 1 + w.size();
        if (line.empty() || added <= kLineWidth || startsEscape(w)) {
            line.push_back(&w);
            width = added;
            continue;
        }
        // Carry words that would leave the line ending like a result over to the next line.
        std::vector<const std::string*> carried;
        while (line.size() > 1 && endsLikeResult(*line.back())) {
            carried.insert(carried.begin(), line.back());
            line.pop_back();
        }
        if (!carried.empty() && startsEscape(*carried.front())) {
            line.insert(line.end(), carried.begin(), carried.end());
            carried.clear();
        }
        if (endsLikeResult(*line.back())) {
            // Nowhere to break: keep going on this line.
            line.insert(line.end(), carried.begin(), carried.end());
            line.push_back(&w);
            width = added;
            continue;
        }
        width = 0;
        for (size_t k = 0; k < line.size(); ++k)
            width += line[k]->size() + (k ? 1 : 0);
        carried.push_back(&w);
        size_t carriedWidth = 0;
        for (size_t k = 0; k < carried.size(); ++k)
            carriedWidth += carried[k]->size() + (k ? 1 : 0);
        lines.push_back(carried);
        widths.push_back(carriedWidth);
    }
    std::string out;
    for (size_t l = 0; l < lines.size(); ++l) {
        if (l)
            out += "\r\n";
        for (size_t k = 0; k < lines[l].size(); ++k) {
            if (k)
                out += ' ';
            out += *lines[l][k];
        }
    }
    return out;
}

std::string cleanComment(const std::string& text) {
    std::string out;
    for (char c : text) {
        if (c == '}')
            continue;
        out += (c == '\r' || c == '\n' || c == '\t') ? ' ' : c;
    }
    return out;
}

class AnnotatedWriter {
public:
    std::vector<std::string> words;

    void comment(const std::string& text) {
        const std::string clean = cleanComment(text);
        std::vector<std::string> parts;
        size_t i = 0;
        while (i <= clean.size()) {
            size_t j = clean.find(' ', i);
            if (j == std::string::npos)
                j = clean.size();
            if (j > i)
                parts.push_back(clean.substr(i, j - i));
            i = j + 1;
        }
        if (parts.empty())
            parts.push_back("");
        parts.front().insert(0, "{");
        parts.back() += "}";
        for (auto& p : parts)
            push(std::move(p));
    }

    void line(const Line& line, Position pos, bool needNumber) {
        if (!line.leadComment.empty()) {
            comment(line.leadComment);
            needNumber = true;
        }
        for (const Node& node : line.moves) {
            // A move number stays on the line of its move.
            const std::string number = std::to_string(pos.fullmoveNumber());
            std::string san = writeSan(pos, node.move);
            if (pos.sideToMove() == White)
                san = number + ". " + san;
            else if (needNumber)
                san = number + "... " + san;
            push(std::move(san));
            needNumber = false;
            for (int nag : node.nags)
                push("$" + std::to_string(nag));
            if (!node.comment.empty()) {
                comment(node.comment);
                needNumber = true;
            }
            for (const Line& variation : node.variations) {
                if (variation.moves.empty() && variation.leadComment.empty())
                    continue;
                openNext_ = true;
                this->line(variation, pos, true);
                words.back() += ")";
                needNumber = true;
            }
            pos.play(node.move);
        }
    }

    void push(std::string w) {
        if (openNext_) {
            w.insert(0, "(");
            openNext_ = false;
        }
        words.push_back(std::move(w));
    }

private:
    bool openNext_ = false;
};

std::string glyphOf(const Node& node) {
    for (int nag : node.nags)
        if (nag >= 1 && nag <= 6)
            return nagGlyph(nag);
    return {};
}

} // namespace

bool endsLikeResult(std::string_view line) {
    while (!line.empty() && line.back() == ' ')
        line.remove_suffix(1);
    for (std::string_view r : {"1/2-1/2", "1-0", "0-1", "*"})
        if (line.size() >= r.size() && line.substr(line.size() - r.size()) == r)
            return true;
    return false;
}

std::string writeAnnotated(const Game& game) {
    AnnotatedWriter w;
    w.line(game.main, game.start, true);
    w.push(game.result);
    return wrap(w.words);
}

std::string writeList(const Game& game) {
    std::string out;
    Position pos = game.start;
    bool first = true;
    for (const Node& node : game.main.moves) {
        const std::string san = writeSan(pos, node.move) + glyphOf(node);
        if (pos.sideToMove() == White) {
            if (!first)
                out += "\r\n";
            out += std::to_string(pos.fullmoveNumber()) + ". " + san;
        } else if (first) {
            out += std::to_string(pos.fullmoveNumber()) + "... " + san;
        } else {
            out += " " + san;
        }
        first = false;
        pos.play(node.move);
    }
    if (!first)
        out += "\r\n";
    out += game.result;
    return out;
}

std::string writeParagraph(const Game& game) {
    std::vector<std::string> words;
    Position pos = game.start;
    bool first = true;
    for (const Node& node : game.main.moves) {
        const std::string san = writeSan(pos, node.move) + glyphOf(node);
        if (pos.sideToMove() == White)
            words.push_back(std::to_string(pos.fullmoveNumber()) + "." + san);
        else if (first)
            words.push_back(std::to_string(pos.fullmoveNumber()) + "..." + san);
        else
            words.push_back(san);
        first = false;
        pos.play(node.move);
    }
    words.push_back(game.result);
    return wrap(words);
}

} // namespace tavlon
