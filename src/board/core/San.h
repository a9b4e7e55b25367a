#pragma once

// Standard algebraic notation: strict on writing, lenient on reading as real files need.

#include "Position.h"

#include <string>
#include <string_view>

namespace tavlon {

// `after`, when given, is the position the move leads to.
std::string writeSan(const Position& pos, Move m, const Position* after = nullptr);

struct SanResult {
    Move move{};
    int nag = 0; // 1..6 for ! ? !! ?? !? ?! written after the move
};

// Reads one move token. Throws BoardError ("Illegal move 23... Nxe5: no knight can reach e5",
// "Ambiguous move ...") when the token is no playable move in `pos`. Standard SAN takes a quick
// path; anything else, and every refusal, goes the lenient way.
SanResult readSan(const Position& pos, std::string_view token);
// The quick path alone: true for standard SAN that names exactly one legal move.
bool readSanStrict(const Position& pos, std::string_view token, SanResult& result);
// The lenient way alone: coordinates, missing or extra signs, other promotion spellings.
SanResult readSanLenient(const Position& pos, std::string_view token);

// The token with the number of the move it would be in `pos`: "23. e4", "23... e5".
std::string numberedMove(const Position& pos, std::string_view token);
std::string numberedMove(int number, Color side, std::string_view token);

// Splits a trailing ! ? glyph off a token; returns its NAG (0 when none).
int glyphNag(std::string_view glyph);
std::string_view nagGlyph(int nag);

} // namespace tavlon
