#pragma once

// Splits a whole PGN file into games for checks and benchmarks: tag section and move text,
// with the start position of a FEN tag. (The program's own import classifies lines its own way.)

#include <string>
#include <string_view>
#include <vector>

namespace tavlon {

struct PgnGame {
    std::string fen; // from a [FEN "..."] tag, else empty
    std::string_view moves;
    bool hasMoves = false;
};

std::vector<PgnGame> splitPgn(std::string_view text);

} // namespace tavlon
