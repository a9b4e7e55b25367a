#include "PgnLexer.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavlon {

namespace {

enum CharClass : uint8_t {
    Blank = 1,     // ends a word
    LineEnd = 2,   // CR or LF
    Delimiter = 4, // ends a word: a blank or one of { } ( ) ; $ [
};

constexpr std::array<uint8_t, 256> makeClasses() {
    std::array<uint8_t, 256> c{};
    for (unsigned char b : {' ', '\t', '\f', '\v'})
        c[b] = Blank | Delimiter;
    for (unsigned char b : {'\r', '\n'})
        c[b] = Blank | LineEnd | Delimiter;
    for (unsigned char b : {'{', '}', '(', ')', ';', '$', '['})
        c[b] = Delimiter;
    return c;
}

constexpr std::array<uint8_t, 256> kClasses = makeClasses();

bool is(char c, uint8_t cls) {
    return kClasses[static_cast<unsigned char>(c)] & cls;
}

} // namespace

PgnLexer::PgnLexer(std::string_view text, size_t from)
    : text_(text), pos_(from), lineStart_(from == 0 || is(text[from - 1], LineEnd)) {}

PgnToken PgnLexer::next() {
    const size_t n = text_.size();
    while (pos_ < n) {
        const char c = text_[pos_];
        if (is(c, LineEnd)) {
            lineStart_ = true;
            ++pos_;
            continue;
        }
        if (lineStart_ && c == '%') {
            while (pos_ < n && !is(text_[pos_], LineEnd))
                ++pos_;
            continue;
        }
        lineStart_ = false;
        if (is(c, Blank) || c == '}') { // a stray brace closes nothing
            ++pos_;
            continue;
        }
        PgnToken t;
        t.begin = pos_;
        switch (c) {
        case '{': {
            const size_t close = text_.find('}', pos_ + 1);
            const size_t stop = close == std::string_view::npos ? n : close;
            t.kind = PgnToken::Comment;
            t.text = text_.substr(pos_ + 1, stop - pos_ - 1);
            pos_ = close == std::string_view::npos ? n : close + 1;
            return t;
        }
        case ';': {
            size_t stop = pos_ + 1;
            while (stop < n && !is(text_[stop], LineEnd))
                ++stop;
            t.kind = PgnToken::Comment;
            t.text = text_.substr(pos_ + 1, stop - pos_ - 1);
            pos_ = stop;
            return t;
        }
        case '(':
        case ')':
        case '[':
            t.kind = c == '(' ? PgnToken::Open : c == ')' ? PgnToken::Close : PgnToken::Tag;
            t.text = text_.substr(pos_++, 1);
            return t;
        case '$': {
            size_t stop = pos_ + 1;
            while (stop < n && text_[stop] >= '0' && text_[stop] <= '9') {
                t.value = std::min(t.value * 10 + (text_[stop] - '0'), 1000); // no overflow
                ++stop;
            }
            t.kind = PgnToken::Nag;
            t.text = text_.substr(pos_, stop - pos_);
            pos_ = stop;
            return t;
        }
        default: {
            size_t stop = pos_ + 1;
            while (stop < n && !is(text_[stop], Delimiter))
                ++stop;
            t.kind = PgnToken::Word;
            t.text = text_.substr(pos_, stop - pos_);
            pos_ = stop;
            return t;
        }
        }
    }
    PgnToken end;
    end.begin = n;
    return end;
}

std::string_view PgnLexer::tagPair(const PgnToken& open) {
    const size_t n = text_.size();
    size_t k = open.begin + 1;
    bool quoted = false;
    while (k < n && (quoted || text_[k] != ']') && !is(text_[k], LineEnd)) {
        if (text_[k] == '\\' && quoted)
            ++k;
        else if (text_[k] == '"')
            quoted = !quoted;
        ++k;
    }
    k = std::min(k, n);
    pos_ = k < n && text_[k] == ']' ? k + 1 : k;
    return text_.substr(open.begin, pos_ - open.begin);
}

std::string tagValue(std::string_view tag, std::string_view name) {
    size_t i = 1;
    while (i < tag.size() && is(tag[i], Blank))
        ++i;
    if (tag.substr(i, name.size()) != name || i + name.size() >= tag.size() ||
        !is(tag[i + name.size()], Blank))
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

// Files spell results in more ways than the standard: halves, en dashes, a lone "1/2", and the
// forfeit marks of tournament files ("+--" White wins, "--+" Black wins).
std::string_view resultOf(std::string_view w) {
    // Every spelling begins with one of these; moves never do.
    const char c = w[0];
    if (c != '1' && c != '0' && c != '*' && c != '+' && c != '-' && c != '\xC2')
        return {};
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

} // namespace tavlon
