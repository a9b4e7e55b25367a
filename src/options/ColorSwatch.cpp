#include "options/ColorSwatch.h"

#include <QMouseEvent>

namespace tolvisk {

ColorSwatch::ColorSwatch(QWidget* parent) : QFrame(parent) {
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setLineWidth(2);
    setAutoFillBackground(true);
    setCursor(Qt::PointingHandCursor);
    setBackColor(0xFFFFFF);
}

void ColorSwatch::setBackColor(int32_t color) {
    backColor_ = color;
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window,
                     QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF));
    setPalette(palette);
}

void ColorSwatch::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit Click();
}

} // namespace tolvisk
