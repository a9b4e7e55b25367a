#pragma once

#include "platform/ToolWindow.h"

namespace tolvisk {

class Application;

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmSetup : public ToolWindow {
    Q_OBJECT
public:
    explicit frmSetup(Application&)
        : ToolWindow(QStringLiteral("frmSetup"), QStringLiteral("Setup Pieces"), 8000, 5000) {}
};

} // namespace tolvisk
