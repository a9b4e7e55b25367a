#pragma once

// A game's header as text: its tag lines, the game list's entry made of them, and the tag-value
// rule every window uses. Nothing here parses a tag; the rules are those of the text.

#include <QString>
#include <QStringList>
#include <QStringView>

namespace tolvisk {

// The value of a tag line: the text between its first two double quotes, or from the first one
// to the end when it holds one; an error when it holds none.
QString tagValue(QStringView line);

// Looks for a start position among a game's tag lines. The first line holding `SetUp "1"`
// makes it a set-up game, and then the first line holding "Forsyth" gives the position by the
// tag-value rule. Files from elsewhere carry the standard's `[FEN "..."]` tag instead: where no
// `[Forsyth ` tag stands beside it, the first line holding `[FEN ` gives the value, and without
// any SetUp marker that line alone makes a set-up game; `SetUp "0"` means none. Both results
// are cleared first; `isForsythGame` is set before the value is taken, so it stands when taking
// the value fails (a value line without a double quote).
void findForsythTag(const QStringList& tagLines, bool& isForsythGame, QString& forsyth);

// The tag lines of a stored header: its non-empty lines; none when it holds no line end.
QStringList headerTagLines(const QString& header);
// A header as the store keeps a saved game's: each tag line and CR LF, then one more CR LF.
QString headerText(const QStringList& tagLines);
// The game list's entry for a stored header: its non-empty lines side by side, each followed by
// a blank, or "??? No Tags Found ???" when it has none.
QString gameListEntry(const QString& header);

} // namespace tolvisk
