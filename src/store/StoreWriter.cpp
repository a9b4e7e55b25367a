#include "store/StoreWriter.h"

namespace tolvisk {

void writeStore(TextFileWriter& file, const GameStoreArray& store) {
    for (size_t i = 1; i < store.size(); ++i) {
        const GameRecord& game = store[i];
        if (game.Deleted)
            continue;
        game.Header.writeTo(file);
        game.Moves.writeTo(file);
        file.write(kCrLf);
    }
}

} // namespace tolvisk
