#pragma once

// The text a game goes out as, to the printer and to the clipboard alike.

#include <QString>
#include <QStringList>

class Tavlon;

namespace tolvisk {

// Every tag line followed by CR LF, one more CR LF, then the board's moves in the move-list
// style: "A" annotated, "P" paragraph, "L" list, and no moves for any other value. Nothing else
// is added, so the text does not depend on the ply the board shows.
QString gameText(const QStringList& tagLines, const Tavlon& board, const QString& style);

} // namespace tolvisk
