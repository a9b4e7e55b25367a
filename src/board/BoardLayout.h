#pragma once

// Where each part of the board control stands at a given widget size. The layout is drawn in
// twips at the control's design size and scaled to fit the widget, keeping its proportions and
// centring it, so that at the design size the squares cover exactly the rectangle the main
// window lays its capture surface on.

#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>

#include <array>

namespace tavlon {

// The design size of the control in twips, and where its 64 squares stand in it.
constexpr int kDesignWidthTwips = 4455;
constexpr int kDesignHeightTwips = 5235;
constexpr int kSquaresLeftTwips = 330;
constexpr int kSquaresTopTwips = 420;
constexpr int kSquaresSizeTwips = 4035;

struct BoardLayout {
    QSize widgetSize;
    qreal dpi = 0;
    QRectF squares; // the 64 squares
    // Pixel edges of the eight columns (left to right) and rows (top to bottom); whole pixels,
    // so neighbouring squares share an edge and together fill `squares` to the pixel.
    std::array<int, 9> columnEdges{};
    std::array<int, 9> rowEdges{};
    QRectF rankLabels; // the margin left of the squares, one digit per row
    QRectF fileLabels; // the band under the squares, one letter per column
    QRectF topName;    // the player whose pieces stand at the top
    QRectF bottomName; // the player whose pieces stand at the bottom
    qreal labelPixelSize = 0;
    qreal namePixelSize = 0;

    qreal squareSize() const { return squares.width() / 8.0; }
    QRect cell(int column, int row) const;
    // The column or row under a coordinate, or -1 outside the squares.
    int columnAt(qreal x) const;
    int rowAt(qreal y) const;
};

// The design size in pixels at `dpi` (pixels per inch; 1440 twips make an inch).
QSize boardDesignSize(qreal dpi);
BoardLayout makeBoardLayout(QSize widgetSize, qreal dpi);

} // namespace tavlon
