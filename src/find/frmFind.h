#pragma once

#include "viewer/ToolWindow.h"

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmFind : public ToolWindow {
    Q_OBJECT
public:
    explicit frmFind(tolvisk::Application& app)
        : ToolWindow(app, QStringLiteral("frmFind"), QStringLiteral("Find"), 5000, 2000) {}
};
