#include "store/Settings.h"

#include "board/Tavlon.h"

namespace tolvisk {

BoardSettings boardSettings(const Tavlon& board) {
    return {board.LightSquareColor(), board.DarkSquareColor(), board.PromotionPiece()};
}

void applyBoardSettings(Tavlon& board, const BoardSettings& settings) {
    board.setLightSquareColor(settings.LightSquareColor);
    board.setDarkSquareColor(settings.DarkSquareColor);
    board.setPromotionPiece(settings.PromotionPiece);
}

} // namespace tolvisk
