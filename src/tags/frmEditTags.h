#pragma once

#include "platform/ToolWindow.h"

namespace tolvisk {

class Application;

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmEditTags : public ToolWindow {
    Q_OBJECT
public:
    explicit frmEditTags(Application&)
        : ToolWindow(QStringLiteral("frmEditTags"), QStringLiteral("Tag Editor"), 6000, 4000) {}
};

} // namespace tolvisk
