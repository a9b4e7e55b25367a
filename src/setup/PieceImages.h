#pragma once

// The setup window's thirteen pictures, in the order of its tool bar: the twelve pieces drawn as
// the board control draws them, so that both boards look alike, and an eraser for the button
// that empties a square.

#include <QPixmap>

#include <array>

namespace tolvisk {

// White king, queen, rook, bishop, knight, pawn, the same for Black, then the eraser; each
// `size` logical pixels square.
std::array<QPixmap, 13> drawPieceImages(int size, qreal devicePixelRatio);

} // namespace tolvisk
