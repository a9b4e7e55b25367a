#include "PiecePainter.h"

#include <QFont>
#include <QPainter>
#include <QPolygonF>
#include <QtMath>

#include <algorithm>

namespace tavlon {

namespace {

// Black chess king; queen, rook, bishop, knight and pawn follow it.
constexpr char32_t kFirstGlyph = 0x265A;
constexpr qreal kGlyphPixelSize = 100; // the size the outlines are taken at

// How much of a square a piece takes, and where its foot stands (fractions of the square).
constexpr qreal kPieceHeight = 0.80;
constexpr qreal kPieceFoot = 0.91;
constexpr qreal kEdgeWidth = 0.035;

constexpr QRgb kDark = qRgb(0x1c, 0x1c, 0x1c);
constexpr QRgb kLight = qRgb(0xf2, 0xf2, 0xf2);

// The glyph of each piece type, counted from the king's.
char32_t glyphOf(PieceType type) {
    constexpr int offsets[] = {0, 5, 4, 3, 2, 1, 0};
    return kFirstGlyph + offsets[type];
}

} // namespace

void PiecePainter::makeShapes() {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(int(kGlyphPixelSize));
    font.setStyleStrategy(QFont::PreferOutline);
    for (int type = Pawn; type <= King; ++type) {
        Shape& shape = shapes_[type];
        const char32_t code = glyphOf(PieceType(type));
        shape.glyph.addText(0, 0, font, QString::fromUcs4(&code, 1));
        shape.glyph.setFillRule(Qt::OddEvenFill);
        // The contours inside no other contour make the silhouette; the rest are inner lines.
        const QList<QPolygonF> contours = shape.glyph.toSubpathPolygons();
        shape.silhouette.setFillRule(Qt::WindingFill);
        for (qsizetype i = 0; i < contours.size(); ++i) {
            if (contours[i].isEmpty())
                continue;
            bool inside = false;
            for (qsizetype j = 0; j < contours.size() && !inside; ++j)
                inside = j != i && contours[j].containsPoint(contours[i].first(), Qt::OddEvenFill);
            if (!inside)
                shape.silhouette.addPolygon(contours[i]);
        }
        shape.bounds = shape.silhouette.boundingRect();
    }
    shapesMade_ = true;
}

QPixmap PiecePainter::render(const Shape& shape, bool white) const {
    const int side = qCeil(squareSize_);
    QPixmap pixmap(QSize(side, side) * devicePixelRatio_);
    pixmap.setDevicePixelRatio(devicePixelRatio_);
    pixmap.fill(Qt::transparent);

    // All glyphs share one scale, taken from the king, so the pieces keep their sizes to each
    // other.
    const qreal scale = kPieceHeight * squareSize_ / shapes_[King].bounds.height();
    const qreal middle = side / 2.0;
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(middle - shape.bounds.center().x() * scale,
                      middle + (kPieceFoot - 0.5) * squareSize_ - shape.bounds.bottom() * scale);
    painter.scale(scale, scale);
    const qreal edge = std::max(1.0, kEdgeWidth * squareSize_) / scale;
    // The silhouette goes down in the colour of the lines, the glyph's body over it.
    if (white) {
        painter.fillPath(shape.silhouette, QColor(kDark));
        painter.fillPath(shape.glyph, Qt::white);
        painter.strokePath(shape.silhouette,
                           QPen(QColor(kDark), edge, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    } else {
        painter.fillPath(shape.silhouette, QColor(kLight));
        painter.fillPath(shape.glyph, QColor(kDark));
        // A hair of dark round the edge keeps the shape crisp on dark squares.
        painter.strokePath(shape.silhouette, QPen(QColor(kDark), edge / 2, Qt::SolidLine,
                                                  Qt::RoundCap, Qt::RoundJoin));
    }
    return pixmap;
}

void PiecePainter::prepare(qreal squareSize, qreal devicePixelRatio) {
    if (squareSize == squareSize_ && devicePixelRatio == devicePixelRatio_)
        return;
    squareSize_ = squareSize;
    devicePixelRatio_ = devicePixelRatio;
    if (squareSize < 1) {
        pixmaps_ = {};
        return;
    }
    if (!shapesMade_)
        makeShapes();
    for (int type = Pawn; type <= King; ++type) {
        pixmaps_[White][type] = render(shapes_[type], true);
        pixmaps_[Black][type] = render(shapes_[type], false);
    }
}

const QPixmap& PiecePainter::pixmap(Piece piece) const {
    return piece ? pixmaps_[colorOf(piece)][typeOf(piece)] : none_;
}

void PiecePainter::draw(QPainter& painter, QPointF centre, Piece piece) const {
    const QPixmap& image = pixmap(piece);
    if (image.isNull())
        return;
    const QSizeF size = image.deviceIndependentSize();
    painter.drawPixmap(
        QPointF(qRound(centre.x() - size.width() / 2), qRound(centre.y() - size.height() / 2)),
        image);
}

} // namespace tavlon
