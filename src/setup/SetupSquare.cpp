#include "setup/SetupSquare.h"

#include <QMouseEvent>
#include <QPainter>

namespace tolvisk {

SetupSquare::SetupSquare(int index, QWidget* parent) : QWidget(parent), index_(index) {
    setObjectName(QStringLiteral("picBoard%1").arg(index));
}

void SetupSquare::setBackColor(const QColor& color) {
    backColor_ = color;
    update();
}

void SetupSquare::setPicture(const QPixmap& picture) {
    picture_ = picture;
    update();
}

void SetupSquare::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), backColor_);
    if (picture_.isNull())
        return;
    const QSizeF size = picture_.deviceIndependentSize();
    painter.drawPixmap(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2),
                       picture_);
}

void SetupSquare::mouseReleaseEvent(QMouseEvent* event) {
    // A click is a left button let go over the square it went down on.
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit Click(index_);
}

} // namespace tolvisk
