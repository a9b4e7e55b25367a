#include "find/StoreSearch.h"

#include "platform/Controls.h"
#include "store/Module1.h"

namespace tolvisk {

int findInStore(const Module1& module, const ListBox& list, const QString& text, int first,
                int last, int step) {
    if (step == 0)
        return -1;
    for (int i = first; step > 0 ? i <= last : i >= last; i += step) {
        if (i < 0 || i >= list.ListCount())
            continue;
        if (list.List(int16_t(i)).contains(text, Qt::CaseInsensitive))
            return i;
        if (size_t(i + 1) < module.GameStore.size() &&
            module.GameStore[size_t(i + 1)].Moves.contains(text, Qt::CaseInsensitive))
            return i;
    }
    return -1;
}

} // namespace tolvisk
