#pragma once

// Reads a whole PGN file game by game, for checks and benchmarks: each game's tags (the start
// position of a FEN tag) and its move text, which ends where the move-text reader says. (The
// program's own import classifies lines its own way.)

#include "MoveText.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavlon {

class PgnFile {
public:
    explicit PgnFile(std::string_view text);

    // Moves on to the next game and reads its tag pairs; false when no game is left. Then one of
    // skipMoves and readMainLine moves past the game's move text.
    bool nextGame();
    // The value of the game's FEN tag; "" when it has none.
    const std::string& fen() const { return fen_; }
    // The start position: of the FEN tag, else the normal one. Throws BoardError.
    Position start() const;
    std::string_view skipMoves();
    void readMainLine(const Position& start, MainLine& line);

private:
    std::string_view text_;
    size_t pos_ = 0;
    std::string fen_;
};

struct PgnGame {
    std::string fen;
    std::string_view moves;
};

// Every game of a file with its move text.
std::vector<PgnGame> splitPgn(std::string_view text);

} // namespace tavlon
