#include "setup/PieceImages.h"

#include "board/PiecePainter.h"

#include <QPainter>
#include <QPainterPath>

namespace tolvisk {

namespace {

QPixmap blankImage(int size, qreal devicePixelRatio) {
    QPixmap image(QSize(size, size) * devicePixelRatio);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    return image;
}

// An empty square with a red cross over it.
QPixmap eraserImage(int size, qreal devicePixelRatio) {
    QPixmap image = blankImage(size, devicePixelRatio);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal s = size;
    const QRectF square(s * 0.16, s * 0.16, s * 0.68, s * 0.68);
    painter.setPen(QPen(QColor(0x70, 0x70, 0x70), std::max(1.0, s / 24)));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(square, s * 0.06, s * 0.06);
    QPainterPath cross;
    const QRectF arms = square.adjusted(s * 0.1, s * 0.1, -s * 0.1, -s * 0.1);
    cross.moveTo(arms.topLeft());
    cross.lineTo(arms.bottomRight());
    cross.moveTo(arms.topRight());
    cross.lineTo(arms.bottomLeft());
    painter.strokePath(cross, QPen(QColor(0xc8, 0x10, 0x10), s / 9, Qt::SolidLine, Qt::RoundCap));
    return image;
}

} // namespace

std::array<QPixmap, 13> drawPieceImages(int size, qreal devicePixelRatio) {
    tavlon::PiecePainter pieces;
    pieces.prepare(size, devicePixelRatio);
    std::array<QPixmap, 13> images;
    const char codes[] = "KQRBNPkqrbnp";
    for (int i = 0; i < 12; ++i) {
        images[size_t(i)] = blankImage(size, devicePixelRatio);
        QPainter painter(&images[size_t(i)]);
        pieces.draw(painter, QPointF(size / 2.0, size / 2.0), tavlon::pieceOfLetter(codes[i]));
    }
    images[12] = eraserImage(size, devicePixelRatio);
    return images;
}

} // namespace tolvisk
