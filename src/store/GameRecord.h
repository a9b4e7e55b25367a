#pragma once

#include <QString>

#include <vector>

namespace tolvisk {

// One game as text. Both blocks are lines each ended by CR LF; the store never parses them.
struct GameRecord {
    QString Header;
    QString Moves;
    bool Deleted = false;
};

// Element 0 is a scratch record; games occupy 1 to N. No elements at all before the first
// Open, Close or Save.
using GameStoreArray = std::vector<GameRecord>;

} // namespace tolvisk
