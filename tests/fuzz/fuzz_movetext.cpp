// libFuzzer target: any bytes as move text. Whatever is accepted must write back to text that
// reads as the same game, and a replay of the text as a file must play the same main line.

#include "core/BoardError.h"
#include "core/MoveText.h"
#include "core/PgnFile.h"
#include "core/PgnLexer.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    tavlon::PgnFile file(text);
    tavlon::MainLine line;
    while (file.nextGame()) {
        try {
            file.readMainLine(file.start(), line);
        } catch (const tavlon::BoardError&) {
            file.skipMoves();
        }
    }
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
    // The same text as a file: its first game is this one, main line and result alike.
    tavlon::PgnLexer lexer(text);
    tavlon::readMainLine(lexer, game.start, line);
    if (!line.error.empty() || line.moves.size() != game.main.moves.size() ||
        line.result != game.result)
        std::abort();
    for (size_t i = 0; i < line.moves.size(); ++i)
        if (!(line.moves[i] == game.main.moves[i].move))
            std::abort();
    return 0;
}
