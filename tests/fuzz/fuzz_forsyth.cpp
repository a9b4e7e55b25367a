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
        // The moves to each square, as SAN reading finds them, are the legal moves but castling.
        int reaching = 0, castles = 0;
        for (int to = 0; to < 64; ++to) {
            tavlon::MoveList list;
            pos.legalMovesTo(list, tavlon::NoType, to);
            reaching += list.size;
        }
        for (tavlon::Move m : moves)
            castles += m.isCastle();
        if (reaching + castles != moves.size)
            std::abort();
        const tavlon::Move m = moves.moves[size_t(ply * 7) % size_t(moves.size)];
        // The move's SAN reads back as the move, on the quick path and the lenient one alike.
        const std::string san = tavlon::writeSan(pos, m);
        tavlon::SanResult quick;
        if (!tavlon::readSanStrict(pos, san, quick) || !(quick.move == m) ||
            !(tavlon::readSanLenient(pos, san).move == m))
            std::abort();
        pos.play(m);
    }
    return 0;
}
