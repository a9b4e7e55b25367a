#include "BoardLayout.h"

#include <QtMath>

#include <algorithm>

namespace tavlon {

namespace {

constexpr qreal kTwipsPerInch = 1440.0;

// The parts of the design in twips; the squares are the control's own constants.
constexpr qreal kLabelBandTwips = 270; // file letters under the squares
constexpr qreal kNameBandTwips = 420;  // a player's name above or below
constexpr qreal kLabelFontTwips = 165; // about 8 points
constexpr qreal kNameFontTwips = 180;  // about 9 points

QRectF scaled(QPointF origin, qreal scale, qreal left, qreal top, qreal width, qreal height) {
    return QRectF(origin.x() + left * scale, origin.y() + top * scale, width * scale,
                  height * scale);
}

} // namespace

QRect BoardLayout::cell(int column, int row) const {
    return QRect(QPoint(columnEdges[column], rowEdges[row]),
                 QPoint(columnEdges[column + 1] - 1, rowEdges[row + 1] - 1));
}

int BoardLayout::columnAt(qreal x) const {
    if (x < columnEdges[0] || x >= columnEdges[8])
        return -1;
    auto it = std::upper_bound(columnEdges.begin(), columnEdges.end(), x);
    return int(it - columnEdges.begin()) - 1;
}

int BoardLayout::rowAt(qreal y) const {
    if (y < rowEdges[0] || y >= rowEdges[8])
        return -1;
    auto it = std::upper_bound(rowEdges.begin(), rowEdges.end(), y);
    return int(it - rowEdges.begin()) - 1;
}

QSize boardDesignSize(qreal dpi) {
    return QSize(qRound(kDesignWidthTwips * dpi / kTwipsPerInch),
                 qRound(kDesignHeightTwips * dpi / kTwipsPerInch));
}

BoardLayout makeBoardLayout(QSize widgetSize, qreal dpi) {
    BoardLayout layout;
    layout.widgetSize = widgetSize;
    layout.dpi = dpi;
    const qreal designWidth = kDesignWidthTwips * dpi / kTwipsPerInch;
    const qreal designHeight = kDesignHeightTwips * dpi / kTwipsPerInch;
    // Scale the whole design evenly, so squares stay square, and centre what is left over.
    const qreal fit = std::max<qreal>(
        0.0, std::min(widgetSize.width() / designWidth, widgetSize.height() / designHeight));
    const qreal scale = fit * dpi / kTwipsPerInch;
    const QPointF origin((widgetSize.width() - designWidth * fit) / 2.0,
                         (widgetSize.height() - designHeight * fit) / 2.0);

    const qreal left = kSquaresLeftTwips;
    const qreal top = kSquaresTopTwips;
    const qreal side = kSquaresSizeTwips;
    layout.squares = scaled(origin, scale, left, top, side, side);
    for (int i = 0; i <= 8; ++i) {
        layout.columnEdges[i] = qRound(layout.squares.left() + i * layout.squares.width() / 8.0);
        layout.rowEdges[i] = qRound(layout.squares.top() + i * layout.squares.height() / 8.0);
    }
    layout.rankLabels = scaled(origin, scale, 0, top, left, side);
    layout.fileLabels = scaled(origin, scale, left, top + side, side, kLabelBandTwips);
    layout.bottomName =
        scaled(origin, scale, left, top + side + kLabelBandTwips, side, kNameBandTwips);
    layout.topName = scaled(origin, scale, left, 0, side, top);
    layout.labelPixelSize = kLabelFontTwips * scale;
    layout.namePixelSize = kNameFontTwips * scale;
    return layout;
}

} // namespace tavlon
