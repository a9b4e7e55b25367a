#include "store/TagLines.h"

#include "platform/Errors.h"
#include "platform/TextFile.h"

namespace tolvisk {

QString tagValue(QStringView line) {
    const qsizetype first = line.indexOf(u'"');
    if (first < 0)
        throw subscriptOutOfRange();
    const qsizetype second = line.indexOf(u'"', first + 1);
    return (second < 0 ? line.mid(first + 1) : line.mid(first + 1, second - first - 1)).toString();
}

namespace {

// The first line holding `text`, or nullptr.
const QString* firstHolding(const QStringList& lines, QLatin1String text) {
    for (const QString& line : lines)
        if (line.contains(text))
            return &line;
    return nullptr;
}

} // namespace

void findForsythTag(const QStringList& tagLines, bool& isForsythGame, QString& forsyth) {
    isForsythGame = false;
    forsyth.clear();
    const QLatin1String fen("[FEN ");
    const QString* fenLine = firstHolding(tagLines, fen);
    const bool marker = firstHolding(tagLines, QLatin1String("SetUp \"1\"")) != nullptr;
    if (!marker && (!fenLine || firstHolding(tagLines, QLatin1String("SetUp \"0\""))))
        return;
    isForsythGame = true;
    // The word alone decides where a Forsyth tag stands or no FEN tag does; otherwise a player
    // or an event called Forsyth would hide the FEN tag.
    const bool forsythTag = firstHolding(tagLines, QLatin1String("[Forsyth ")) != nullptr;
    const QString* valueLine = marker && (forsythTag || !fenLine)
                                   ? firstHolding(tagLines, QLatin1String("Forsyth"))
                                   : nullptr;
    if (valueLine)
        forsyth = tagValue(*valueLine);
    else if (fenLine)
        // From the tag on, so that a line holding several tags gives this one's value.
        forsyth = tagValue(QStringView(*fenLine).mid(fenLine->indexOf(fen)));
}

QStringList headerTagLines(const QString& header) {
    const QList<QStringView> pieces = QStringView(header).split(kCrLf);
    QStringList lines;
    if (pieces.size() > 1)
        for (QStringView piece : pieces)
            if (!piece.isEmpty())
                lines << piece.toString();
    return lines;
}

QString headerText(const QStringList& tagLines) {
    QString text;
    for (const QString& line : tagLines)
        text += line + kCrLf;
    return text + kCrLf;
}

QString gameListEntry(const QString& header) {
    const QChar* text = header.constData();
    const qsizetype size = header.size();
    QString entry;
    entry.reserve(size);
    qsizetype start = 0;
    for (qsizetype k = 0; k <= size; ++k) {
        const bool end = k == size || (text[k] == u'\r' && k + 1 < size && text[k + 1] == u'\n');
        if (!end)
            continue;
        if (k > start) {
            entry.append(text + start, k - start);
            entry += QLatin1Char(' ');
        }
        start = k + 2;
        ++k;
    }
    return entry.isEmpty() ? QStringLiteral("??? No Tags Found ???") : entry;
}

} // namespace tolvisk
