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

void findForsythTag(const QStringList& tagLines, bool& isForsythGame, QString& forsyth) {
    isForsythGame = false;
    forsyth.clear();
    for (const QString& line : tagLines)
        if (line.contains(QLatin1String("SetUp \"1\""))) {
            isForsythGame = true;
            break;
        }
    if (!isForsythGame)
        return;
    for (const QString& line : tagLines)
        if (line.contains(QLatin1String("Forsyth"))) {
            forsyth = tagValue(line);
            return;
        }
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
