#pragma once

#include "viewer/ToolWindow.h"

// The window as it stands so far: its title and frame; its controls come with its own work.
class frmEditTags : public ToolWindow {
    Q_OBJECT
public:
    explicit frmEditTags(tolvisk::Application& app)
        : ToolWindow(app, QStringLiteral("frmEditTags"), QStringLiteral("Tag Editor"), 6000, 4000) {
    }
};
