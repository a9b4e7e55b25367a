#pragma once

// Base of the windows that frmMain opens beside itself: loaded on first show, not modal, and
// destroyed (unloaded) when closed.

#include <QCloseEvent>
#include <QWidget>

namespace tolvisk {
class Application;
}

class ToolWindow : public QWidget {
    Q_OBJECT
public:
    ToolWindow(tolvisk::Application& app, const QString& name, const QString& title,
               int clientWidthTwips, int clientHeightTwips);
    ~ToolWindow() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    tolvisk::Application& app_;
};
