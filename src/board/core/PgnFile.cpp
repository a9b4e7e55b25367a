#include "PgnFile.h"

namespace tavlon {

namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}

bool isResultWord(std::string_view w) {
    return w == "1-0" || w == "0-1" || w == "1/2-1/2" || w == "*";
}

// The value of a tag "[Name "Value"]" when its name is `name`.
std::string tagValue(std::string_view tag, std::string_view name) {
    size_t i = 1;
    while (i < tag.size() && isSpace(tag[i]))
        ++i;
    if (tag.substr(i, name.size()) != name || i + name.size() >= tag.size() ||
        !isSpace(tag[i + name.size()]))
        return {};
    const size_t open = tag.find('"', i);
    if (open == std::string_view::npos)
        return {};
    std::string value;
    for (size_t k = open + 1; k < tag.size() && tag[k] != '"'; ++k) {
        if (tag[k] == '\\' && k + 1 < tag.size())
            ++k;
        value += tag[k];
    }
    return value;
}

} // namespace

std::vector<PgnGame> splitPgn(std::string_view text) {
    if (text.substr(0, 3) == "\xEF\xBB\xBF")
        text.remove_prefix(3);
    std::vector<PgnGame> games;
    bool open = false;    // a game is being gathered
    bool inMoves = false; // its move text has begun
    size_t movesStart = 0;
    int depth = 0;
    auto finish = [&](size_t end) {
        if (open && inMoves) {
            games.back().moves = text.substr(movesStart, end - movesStart);
            games.back().hasMoves = true;
        }
        open = inMoves = false;
        depth = 0;
    };
    auto begin = [&] {
        games.emplace_back();
        open = true;
    };
    const size_t n = text.size();
    size_t i = 0;
    bool lineStart = true;
    while (i < n) {
        const char c = text[i];
        if (c == '\n' || c == '\r') {
            lineStart = true;
            ++i;
            continue;
        }
        if (lineStart && c == '%') {
            while (i < n && text[i] != '\n' && text[i] != '\r')
                ++i;
            continue;
        }
        lineStart = false;
        if (isSpace(c)) {
            ++i;
            continue;
        }
        if (c == '[' && depth == 0) {
            if (!open || inMoves) {
                finish(i);
                begin();
            }
            size_t k = i + 1;
            bool quoted = false;
            while (k < n && (quoted || text[k] != ']') && text[k] != '\n' && text[k] != '\r') {
                if (text[k] == '\\' && quoted)
                    ++k;
                else if (text[k] == '"')
                    quoted = !quoted;
                ++k;
            }
            const std::string fen = tagValue(text.substr(i, k - i), "FEN");
            if (!fen.empty())
                games.back().fen = fen;
            i = k < n && text[k] == ']' ? k + 1 : k;
            continue;
        }
        if (!open)
            begin();
        if (!inMoves) {
            inMoves = true;
            movesStart = i;
        }
        if (c == '{') {
            const size_t close = text.find('}', i);
            i = close == std::string_view::npos ? n : close + 1;
            continue;
        }
        if (c == ';') {
            while (i < n && text[i] != '\n' && text[i] != '\r')
                ++i;
            continue;
        }
        if (c == '(' || c == ')') {
            depth += c == '(' ? 1 : (depth > 0 ? -1 : 0);
            ++i;
            continue;
        }
        size_t k = i;
        while (k < n && !isSpace(text[k]) && text[k] != '{' && text[k] != '(' && text[k] != ')' &&
               text[k] != ';' && text[k] != '[')
            ++k;
        if (k == i)
            k = i + 1;
        const std::string_view word = text.substr(i, k - i);
        i = k;
        if (depth == 0 && isResultWord(word))
            finish(k);
    }
    finish(n);
    return games;
}

} // namespace tavlon
