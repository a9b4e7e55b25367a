#pragma once

// A game as a tree of moves with comments, NAGs and variations; reading PGN move text into it
// and writing the three move texts out of it.

#include "Position.h"

#include <string>
#include <string_view>
#include <vector>

namespace tavlon {

struct Line;

struct Node {
    Move move;
    std::vector<int> nags;
    std::string comment;          // after the move: the annotation of its ply
    std::vector<Line> variations; // alternatives to this move
};

struct Line {
    std::string leadComment; // before the line's first move
    std::vector<Node> moves;
};

struct Game {
    Position start = Position::start();
    Line main; // main.leadComment is the annotation of ply 0
    std::string result = "*";
};

// Variations may nest this deep; deeper text is refused, so that nothing that walks the tree
// needs more than this much stack.
constexpr size_t kMaxNesting = 500;

// Reads stored move text. Throws BoardError naming the move and what is wrong with it when the
// text cannot be played.
Game readMoveText(std::string_view text, const Position& start);

class PgnLexer;

// The main line of a game in a file, as a replay needs it.
struct MainLine {
    std::vector<Move> moves;
    Position end;                  // after the last move played
    std::string_view result = "*"; // "1-0", "0-1", "1/2-1/2" or "*"
    std::string error;             // why the game was refused; empty when it was not
};

// Reads the move text of one game of a PGN file from where `lexer` stands to the game's end (a
// result outside variations, the "[" of the next game's tags, or the end of the file), playing
// the main line from `start`. Variations are checked for balance but not played. A refused game
// is still read to its end. Leaves `lexer` there.
void readMainLine(PgnLexer& lexer, const Position& start, MainLine& line);
// The same without playing anything: only moves `lexer` to the game's end.
void skipMoveText(PgnLexer& lexer);

// What a caller knows already of a game's main line: the position before each move and the
// move in SAN, so that the writers need not work them out again.
using SanList = std::vector<std::string>;
struct KnownLine {
    const std::vector<Position>& positions;
    const SanList& sans;
};

// The three move texts: CR LF between lines, none after the last.
std::string writeAnnotated(const Game& game, const KnownLine* known = nullptr);
std::string writeList(const Game& game, const KnownLine* known = nullptr);
std::string writeParagraph(const Game& game, const KnownLine* known = nullptr);

// True when a line of text ends like a game result, as the importer sees it.
bool endsLikeResult(std::string_view line);

} // namespace tavlon
