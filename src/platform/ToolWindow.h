#pragma once

// Base of the windows shown beside the main window: titled, sized in twips, centred on the
// screen, never modal, and destroyed (unloaded) when closed.

#include <QCloseEvent>
#include <QWidget>

namespace tolvisk {

class ToolWindow : public QWidget {
    Q_OBJECT
public:
    ToolWindow(const QString& name, const QString& title, int clientWidthTwips,
               int clientHeightTwips);

signals:
    // The window has agreed to close; it is destroyed right after.
    void Unloaded();

protected:
    void closeEvent(QCloseEvent* event) override;
};

} // namespace tolvisk
