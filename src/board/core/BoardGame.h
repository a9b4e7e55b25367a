#pragma once

// One game with its annotations and the ply shown: everything the board control knows, without
// any Qt. The Tavlon widget is a thin shell over this class.

#include "BoardError.h"
#include "MoveText.h"
#include "Position.h"

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tavlon {

class BoardGame {
public:
    BoardGame();

    // The normal start position, no moves, result "*", ply 0, not changed.
    void newGame();
    // Replaces the game by the stored move text, played from the normal start position or from
    // `forsyth`. On any error throws BoardError naming the ply and the token, and keeps the
    // previous game. Afterwards ply 0 and not changed; the result token, if any, sets the result.
    void loadMoves(std::string_view movesText);
    void loadMovesFrom(std::string_view forsyth, std::string_view movesText);
    // A new game without moves that starts from `forsyth`; throws BoardError if unusable.
    void setPosition(std::string_view forsyth);

    // Shows that ply of the main line; past the end goes to the end, below 0 to 0.
    void gotoPly(int ply);
    int ply() const;
    int gameLength() const;

    // The position shown.
    const Position& position() const { return positions_[size_t(ply_)]; }
    int listMoveNumber() const;       // number of the move that led here; 0 at ply 0
    std::string lastMoveText() const; // SAN of the move that led here, "" at ply 0
    // From and to square of the move that led here (the king's squares for castling).
    std::optional<std::pair<int, int>> lastMove() const;

    // The six-field Forsyth string of any ply of the main line.
    std::string forsythAt(int ply) const;

    // Annotation (comment text, without braces) of the shown ply; ply 0 is the text before the
    // first move.
    std::string annotation() const;
    void setAnnotation(std::string_view text);

    // "1. e4 e5" one pair a line; "1.e4 e5 2.Nf3" wrapped; full PGN export text. All use
    // CR LF line ends and end in the result.
    std::string movesAsList() const;
    std::string movesAsParagraph() const;
    std::string movesAnnotated() const;

    std::string result() const;
    void setResult(std::string_view result);

    bool changed() const;
    void setChanged(bool changed);

    // Mouse moves on the shown position.
    std::vector<int> legalTargets(int from) const;
    enum class PlayOutcome { Illegal, SteppedNext, Added };
    // `promotion` is used when the move is one. Playing the game's next move only steps
    // forward. Any other legal move becomes the main line from here, and the old continuation is
    // kept as a variation at this point; then the game is changed.
    PlayOutcome playMove(int from, int to, PieceType promotion);

private:
    void load(const Position& start, std::string_view movesText);
    void rebuild();
    Game game_;
    int ply_ = 0;
    bool changed_ = false;
    std::vector<Position> positions_; // after 0, 1, ... plies of the main line
    SanList sans_;                    // of the moves that led there
};

} // namespace tavlon
