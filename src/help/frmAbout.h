#pragma once

#include "platform/ToolWindow.h"

namespace tolvisk {

class Application;

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmAbout : public ToolWindow {
    Q_OBJECT
public:
    explicit frmAbout(Application&)
        : ToolWindow(QStringLiteral("frmAbout"), QStringLiteral("About Ravelund PGN Viewer"), 5535,
                     4890) {}
};

} // namespace tolvisk
