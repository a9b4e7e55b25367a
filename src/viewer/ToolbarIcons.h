#pragma once

#include <QIcon>

namespace tolvisk {

// The main toolbar's 21 images, 16 x 16, drawn here so that none is ever blank whatever the
// desktop's icon theme. `index` is 1-based, in the toolbar's image order.
QIcon toolbarIcon(int index);
constexpr int kToolbarIconCount = 21;

} // namespace tolvisk
