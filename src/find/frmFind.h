#pragma once

#include "platform/ToolWindow.h"

namespace tolvisk {

class Application;

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmFind : public ToolWindow {
    Q_OBJECT
public:
    explicit frmFind(Application&)
        : ToolWindow(QStringLiteral("frmFind"), QStringLiteral("Find"), 5000, 2000) {}
};

} // namespace tolvisk
