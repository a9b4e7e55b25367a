#pragma once

#include "viewer/ToolWindow.h"

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmSetup : public ToolWindow {
    Q_OBJECT
public:
    explicit frmSetup(tolvisk::Application& app)
        : ToolWindow(app, QStringLiteral("frmSetup"), QStringLiteral("Setup Pieces"), 8000, 5000) {}
};
