#pragma once

// Where a window first opens: centred on the screen, as the program's windows do.

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace tolvisk {

inline void centreOnScreen(QWidget* window) {
    if (QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->availableGeometry();
        window->move(area.center() - QPoint(window->width() / 2, window->height() / 2));
    }
}

} // namespace tolvisk
