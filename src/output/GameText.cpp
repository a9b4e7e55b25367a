#include "output/GameText.h"

#include "board/Tavlon.h"
#include "store/TagLines.h"

namespace tolvisk {

QString gameText(const QStringList& tagLines, const Tavlon& board, const QString& style) {
    QString text = headerText(tagLines);
    if (style == QLatin1String("A"))
        text += board.MovesAnnotated();
    else if (style == QLatin1String("P"))
        text += board.MovesAsParagraph();
    else if (style == QLatin1String("L"))
        text += board.MovesAsList();
    return text;
}

} // namespace tolvisk
