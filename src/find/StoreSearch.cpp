#include "find/StoreSearch.h"

#include "platform/Controls.h"
#include "store/Module1.h"

#include <QStringMatcher>

namespace tolvisk {

int findInStore(const Module1& module, const ListBox& list, const QString& text, int first,
                int last, int step) {
    if (step == 0)
        return -1;
    // One matcher for the whole walk: its tables are built once, not once per game.
    const QStringMatcher matcher(text, Qt::CaseInsensitive);
    for (int i = first; step > 0 ? i <= last : i >= last; i += step) {
        if (i < 0 || i >= list.ListCount())
            continue;
        if (matcher.indexIn(list.List(int16_t(i))) >= 0)
            return i;
        if (size_t(i + 1) < module.GameStore.size() &&
            matcher.indexIn(module.GameStore[size_t(i + 1)].Moves) >= 0)
            return i;
    }
    return -1;
}

} // namespace tolvisk
