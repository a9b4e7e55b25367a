#include "store/Module1.h"

#include "platform/Errors.h"

namespace tolvisk {

GameRecord& Module1::record(int index) {
    if (index < 0 || size_t(index) >= GameStore.size())
        throw subscriptOutOfRange();
    return GameStore[size_t(index)];
}

void Module1::clearStore() {
    GameStore.assign(1, GameRecord{});
    EditedResult.clear();
    FileEncoding = TextEncoding::Utf8;
    PartialFile = false;
}

} // namespace tolvisk
