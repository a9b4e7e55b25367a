#pragma once

// Window layouts are given in twips (1/1440 inch); the screen's logical resolution turns them
// into pixels.

#include <QGuiApplication>
#include <QRect>
#include <QScreen>

#include <cmath>

namespace tolvisk {

inline qreal logicalDpi() {
    QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchY() : 96.0;
}

inline int twipsToPx(int twips) {
    return int(std::lround(twips * logicalDpi() / 1440.0));
}

inline int pxToTwips(int px) {
    return int(std::lround(px * 1440.0 / logicalDpi()));
}

inline QRect twipsRect(int left, int top, int width, int height) {
    return QRect(twipsToPx(left), twipsToPx(top), twipsToPx(width), twipsToPx(height));
}

} // namespace tolvisk
