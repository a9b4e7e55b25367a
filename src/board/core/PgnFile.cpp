#include "PgnFile.h"

#include "PgnLexer.h"

namespace tavlon {

PgnFile::PgnFile(std::string_view text) : text_(text) {
    if (text_.substr(0, 3) == "\xEF\xBB\xBF")
        text_.remove_prefix(3);
}

bool PgnFile::nextGame() {
    fen_.clear();
    PgnLexer lexer(text_, pos_);
    PgnToken t = lexer.next();
    // A game begins with its tag pairs, or with whatever else follows the last game.
    bool tags = false;
    for (; t.kind == PgnToken::Tag; t = lexer.next()) {
        tags = true;
        if (std::string fen = tagValue(lexer.tagPair(t), "FEN"); !fen.empty())
            fen_ = std::move(fen);
    }
    pos_ = t.begin;
    return tags || t.kind != PgnToken::End;
}

Position PgnFile::start() const {
    return fen_.empty() ? Position::start() : Position::fromForsyth(fen_);
}

std::string_view PgnFile::skipMoves() {
    PgnLexer lexer(text_, pos_);
    skipMoveText(lexer);
    const size_t begin = pos_;
    pos_ = lexer.position();
    return text_.substr(begin, pos_ - begin);
}

void PgnFile::readMainLine(const Position& start, MainLine& line) {
    PgnLexer lexer(text_, pos_);
    tavlon::readMainLine(lexer, start, line);
    pos_ = lexer.position();
}

std::vector<PgnGame> splitPgn(std::string_view text) {
    std::vector<PgnGame> games;
    PgnFile file(text);
    while (file.nextGame())
        games.push_back(PgnGame{file.fen(), file.skipMoves()});
    return games;
}

} // namespace tavlon
