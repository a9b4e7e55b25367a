// libFuzzer target: any bytes as move text. Whatever is accepted must write back to text that
// reads as the same game.

#include "core/BoardError.h"
#include "core/MoveText.h"
#include "core/PgnFile.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    (void)tavlon::splitPgn(text);
    tavlon::Game game;
    try {
        game = tavlon::readMoveText(text, tavlon::Position::start());
    } catch (const tavlon::BoardError&) {
        return 0;
    }
    const std::string annotated = tavlon::writeAnnotated(game);
    (void)tavlon::writeList(game);
    (void)tavlon::writeParagraph(game);
    const tavlon::Game again = tavlon::readMoveText(annotated, game.start);
    if (tavlon::writeAnnotated(again) != annotated)
        std::abort();
    return 0;
}
