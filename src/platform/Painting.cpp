#include "platform/Painting.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QWidget>
#include <QWindow>

namespace tolvisk {

namespace {

// Window-system events only: what the user does and the timers' ticks wait for the handler's
// end, as they would without any painting.
void windowSystemEvents() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                    QEventLoop::X11ExcludeTimers);
}

} // namespace

void showExposed(QWidget* window) {
    window->show();
    QElapsedTimer waited;
    waited.start();
    // A window manager maps the window in its own time, a few milliseconds; without one the
    // window is exposed at once.
    while (!(window->windowHandle() && window->windowHandle()->isExposed()) &&
           waited.elapsed() < 1000) {
        windowSystemEvents();
        QThread::msleep(1);
    }
    repaintNow(window);
}

void repaintNow(QWidget* widget) {
    if (widget && widget->isVisible())
        widget->repaint();
    // Windows uncovered meanwhile (a dialog that has closed) are repainted too.
    windowSystemEvents();
}

} // namespace tolvisk
