#pragma once

// Standard algebraic notation: strict on writing, lenient on reading as real files need.

#include "Position.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavlon {

std::string writeSan(const Position& pos, Move m);

struct SanResult {
    Move move;
    int nag = 0; // 1..6 for ! ? !! ?? !? ?! written after the move
};

// Reads one move token. Throws BoardError ("Illegal move 23... Nxe5: no knight can reach e5",
// "Ambiguous move ...") when the token is no playable move in `pos`.
SanResult readSan(const Position& pos, std::string_view token);

// The token with the number of the move it would be in `pos`: "23. e4", "23... e5".
std::string numberedMove(const Position& pos, std::string_view token);

// Splits a trailing ! ? glyph off a token; returns its NAG (0 when none).
int glyphNag(std::string_view glyph);
const char* nagGlyph(int nag);

} // namespace tavlon
