#pragma once

#include "viewer/ToolWindow.h"

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmAbout : public ToolWindow {
    Q_OBJECT
public:
    explicit frmAbout(tolvisk::Application& app)
        : ToolWindow(app, QStringLiteral("frmAbout"), QStringLiteral("About Ravelund PGN Viewer"),
                     5535, 4890) {}
};
