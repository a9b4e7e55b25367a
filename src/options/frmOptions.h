#pragma once

#include "viewer/ToolWindow.h"

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmOptions : public ToolWindow {
    Q_OBJECT
public:
    explicit frmOptions(tolvisk::Application& app)
        : ToolWindow(app, QStringLiteral("frmOptions"), QStringLiteral("Options"), 6210, 3675) {}
};
