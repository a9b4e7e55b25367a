#pragma once

#include "platform/ToolWindow.h"

namespace tolvisk {

class Application;

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmOptions : public ToolWindow {
    Q_OBJECT
public:
    explicit frmOptions(Application&)
        : ToolWindow(QStringLiteral("frmOptions"), QStringLiteral("Options"), 6210, 3675) {}
};

} // namespace tolvisk
