#pragma once

// PGN import: the line classifier that fills the store from a text file. It decides for each
// line whether it belongs to a game's tag section, to its move text, or to nothing, and keeps
// the lines as they are; it never looks inside a tag or a move.

#include "platform/TextFile.h"
#include "store/GameRecord.h"

#include <functional>

namespace tolvisk {

// The filter of every PGN file dialog.
inline const QString kPgnFileFilter =
    QStringLiteral("PGN files (*.pgn) | *.pgn|Text files (*.txt) | *.txt|All files (*.*) | *.*");
// Import stops after this many games.
constexpr int kGameLimit = 32000;

struct ImportResult {
    long count = 0;            // games read
    bool limitReached = false; // stopped at kGameLimit, whatever remained in the file
    // The encoding of the bytes the games came from, for writing them back.
    TextEncoding encoding = TextEncoding::Utf8;
};

// Reported at the start of each pass: the games found so far and how far through the file the
// reading is, in per cent (above 100 when the position runs past the length's 128-byte units).
using ImportProgress = std::function<void(long count, long percent)>;

// Reads games into `store`, which holds element 0 only, one new element per game. Up to the
// limit, every line of the file that is neither empty nor an escape line ends up in a game, and
// the games read back from Save All's output are the same games. A failure of the file leaves the games read
// so far in the store and travels to the caller.
ImportResult importGames(TextFileReader& file, GameStoreArray& store,
                         const ImportProgress& progress);

} // namespace tolvisk
