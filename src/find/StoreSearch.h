#pragma once

// The search over the store that the Find window walks: a game matches when its list entry or
// its move text holds the text, whatever the case.

#include <QString>

namespace tolvisk {

class Module1;
class ListBox;

// Tries entries from `first` to `last` by `step` (+1 or -1); returns the first that matches,
// or -1. Selects nothing.
int findInStore(const Module1& module, const ListBox& list, const QString& text, int first,
                int last, int step);

} // namespace tolvisk
