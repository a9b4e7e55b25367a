// libFuzzer target: any bytes as a Forsyth string, then a few plies from the position read.

#include "core/BoardError.h"
#include "core/Position.h"
#include "core/San.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    tavlon::Position pos;
    try {
        pos = tavlon::Position::fromForsyth(text);
    } catch (const tavlon::BoardError&) {
        return 0;
    }
    // What is written reads back as the same position.
    const std::string written = pos.forsyth();
    if (!(tavlon::Position::fromForsyth(written) == pos))
        std::abort();
    for (int ply = 0; ply < 4; ++ply) {
        tavlon::MoveList moves;
        pos.legalMoves(moves);
        if (moves.size == 0)
            break;
        const tavlon::Move m = moves.moves[size_t(ply * 7) % size_t(moves.size)];
        const std::string san = tavlon::writeSan(pos, m);
        if (!(tavlon::readSan(pos, san).move == m))
            std::abort();
        pos.play(m);
    }
    return 0;
}
