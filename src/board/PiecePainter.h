#pragma once

// The twelve chess pieces, drawn from the solid chess glyphs of DejaVu Sans (U+265A to U+265F).
// A glyph is split into its silhouette and the inner lines cut out of it: a white piece is the
// silhouette in white with the lines and the edge in dark, a black piece the silhouette in dark
// with the lines in light. Each piece is rendered once per square size into a pixmap, so that
// painting the board only copies pixmaps.

#include <QPainterPath>
#include <QPixmap>
#include <QPointF>

#include <array>

class QPainter;

class PiecePainter {
public:
    // Renders the pixmaps for squares of `squareSize` logical pixels; returns at once when they
    // were made for that size already.
    void prepare(qreal squareSize, qreal devicePixelRatio);
    // Draws a piece ("KQRBNP" white, "kqrbnp" black) of the prepared size centred on `centre`;
    // anything else draws nothing.
    void draw(QPainter& painter, QPointF centre, char piece) const;
    // The prepared pixmap of a piece, or a null pixmap.
    const QPixmap& pixmap(char piece) const;

private:
    struct Shape {
        QPainterPath glyph;      // the solid glyph, its inner lines cut out
        QPainterPath silhouette; // its outer contours only, the lines filled in
        QRectF bounds;
    };
    std::array<Shape, 6> shapes_; // king, queen, rook, bishop, knight, pawn
    bool shapesMade_ = false;
    std::array<QPixmap, 12> pixmaps_; // the white set, then the black set, in the order above
    QPixmap none_;
    qreal squareSize_ = 0;
    qreal devicePixelRatio_ = 0;

    void makeShapes();
    QPixmap render(const Shape& shape, bool white) const;
};
