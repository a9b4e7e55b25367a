#pragma once

#include "platform/ToolWindow.h"

namespace tolvisk {

class Application;

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmHelp : public ToolWindow {
    Q_OBJECT
public:
    explicit frmHelp(Application&)
        : ToolWindow(QStringLiteral("frmHelp"), QStringLiteral("Ravelund Help"), 8910, 4605) {}
};

} // namespace tolvisk
