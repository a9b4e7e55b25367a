#pragma once

// The twelve chess pieces, drawn from the solid chess glyphs of DejaVu Sans (U+265A to U+265F).
// A glyph is split into its silhouette and the inner lines cut out of it: a white piece is the
// silhouette in white with the lines and the edge in dark, a black piece the silhouette in dark
// with the lines in light. Each piece is rendered once per square size into a pixmap, so that
// painting the board only copies pixmaps.

#include "core/Position.h"

#include <QPainterPath>
#include <QPixmap>
#include <QPointF>

#include <array>

class QPainter;

namespace tavlon {

class PiecePainter {
public:
    // Renders the pixmaps for squares of `squareSize` logical pixels; returns at once when they
    // were made for that size already.
    void prepare(qreal squareSize, qreal devicePixelRatio);
    // Draws a piece of the prepared size centred on `centre`; an empty square draws nothing.
    void draw(QPainter& painter, QPointF centre, Piece piece) const;
    // The prepared picture of a piece; a null pixmap for an empty square.
    const QPixmap& pixmap(Piece piece) const;

private:
    struct Shape {
        QPainterPath glyph;      // the solid glyph, its inner lines cut out
        QPainterPath silhouette; // its outer contours only, the lines filled in
        QRectF bounds;
    };
    std::array<Shape, 7> shapes_; // by piece type
    bool shapesMade_ = false;
    std::array<std::array<QPixmap, 7>, 2> pixmaps_; // by colour and piece type
    QPixmap none_;
    qreal squareSize_ = 0;
    qreal devicePixelRatio_ = 0;

    void makeShapes();
    QPixmap render(const Shape& shape, bool white) const;
};

} // namespace tavlon
