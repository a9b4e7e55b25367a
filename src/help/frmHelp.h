#pragma once

#include "viewer/ToolWindow.h"

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmHelp : public ToolWindow {
    Q_OBJECT
public:
    explicit frmHelp(tolvisk::Application& app)
        : ToolWindow(app, QStringLiteral("frmHelp"), QStringLiteral("Ravelund Help"), 8910, 4605) {}
};
