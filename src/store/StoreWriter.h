#pragma once

// Save All's text: the store as one PGN file.

#include "platform/TextFile.h"
#include "store/GameRecord.h"

namespace tolvisk {

// Every game not marked as deleted, in store order: its Header, its Moves, then CR LF.
void writeStore(TextFileWriter& file, const GameStoreArray& store);

} // namespace tolvisk
