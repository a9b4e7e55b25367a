#pragma once

// The shared module: the store and the shared variables every window reads and writes. One
// instance, owned by the Application. The routines that mirror the store into the main window
// belong to that window.

#include "platform/TextFile.h"
#include "store/GameRecord.h"
#include "store/Settings.h"

#include <QString>

#include <cstdint>

namespace tolvisk {

class Module1 {
public:
    GameStoreArray GameStore;
    int16_t CurrentGame = -1;
    QString PGNFileName;
    bool FileChanged = false;
    bool SaveCancelled = false;
    QString EditedResult;
    QString MoveListStyle = kDefaultMoveListStyle;
    int16_t APSpeed = kDefaultAPSpeed;
    QString APMode = kDefaultAPMode;
    bool APRunning = false;
    int16_t MainLoaded = 0;
    // The encoding the store's file came in, so Save All writes the same bytes back; a new
    // store is UTF-8.
    TextEncoding FileEncoding = TextEncoding::Utf8;
    // The store holds only the first games of PGNFileName, up to the import's limit: Save All
    // then asks for a file, as Save All As does, rather than cut that file short.
    bool PartialFile = false;

    // Store element `index`; an index outside the store is an error, as for any array.
    GameRecord& record(int index);
    // The game count N: the store's upper bound, 0 without elements.
    int gameCount() const { return GameStore.empty() ? 0 : int(GameStore.size()) - 1; }
    // The store part of ClearGames: element 0 alone, no result taken from the tag editor, and
    // the encoding of a new store that is no part of a file.
    void clearStore();
};

} // namespace tolvisk
