#pragma once

// The one tokeniser of PGN text, shared by the move-text reader and the file reader: words,
// comments, variation brackets, NAGs, tag brackets and escape lines.

#include <cstdint>
#include <string>
#include <string_view>

namespace tavlon {

struct PgnToken {
    enum Kind : uint8_t {
        End,     // no more text
        Word,    // a move, a move number, a result, a glyph, or anything else between delimiters
        Comment, // `text` is the inside of {...} or what follows ; on its line
        Open,    // (
        Close,   // )
        Nag,     // $n; `value` is n, at most 1000
        Tag,     // [ : where a tag pair begins
    };
    Kind kind = End;
    std::string_view text;
    size_t begin = 0; // offset of the token's first character
    int value = 0;
};

class PgnLexer {
public:
    explicit PgnLexer(std::string_view text, size_t from = 0);

    // The next token. Blanks, escape lines (a "%" that starts a line) and a "}" outside a
    // comment are passed over.
    PgnToken next();
    // Reads a tag pair from its "[" to its "]" (or the end of its line); returns the whole of it.
    std::string_view tagPair(const PgnToken& open);
    // Goes back to where `token` began, so that it is read again.
    void rewind(const PgnToken& token) { pos_ = token.begin; }
    size_t position() const { return pos_; }
    std::string_view text() const { return text_; }

private:
    std::string_view text_;
    size_t pos_;
    bool lineStart_ = true;
};

// The value of a tag pair [Name "Value"] when its name is `name`, with its escapes undone;
// empty otherwise.
std::string tagValue(std::string_view tagPair, std::string_view name);

// The result a word stands for ("1-0", "0-1", "1/2-1/2", "*"), or "" when it is none.
std::string_view resultOf(std::string_view word);

} // namespace tavlon
