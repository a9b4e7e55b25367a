#pragma once

// Base of the windows shown beside the main window: titled, sized in twips, centred on the
// screen, never modal, and destroyed (unloaded) when closed.

#include <QCloseEvent>
#include <QWidget>

#include <functional>

namespace tolvisk {

class Platform;

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
    // Runs an event handler; an error that no handler took is reported in a box, not fatal, as
    // in the main window.
    static void run(Platform& platform, const std::function<void()>& handler);
    // Connects a control's event to a handler that runs as `run` runs it.
    template <class Sender, class Signal, class Handler>
    void wire(Platform& platform, Sender* sender, Signal signal, Handler handler) {
        connect(sender, signal, this, [&platform, handler] { run(platform, handler); });
    }
};

} // namespace tolvisk
