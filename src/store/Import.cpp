#include "store/Import.h"

#include <cmath>

namespace tolvisk {

namespace {

QStringView trimBlanks(QStringView s) {
    qsizetype a = 0, b = s.size();
    while (a < b && s[a] == u' ')
        ++a;
    while (b > a && s[b - 1] == u' ')
        --b;
    return s.mid(a, b - a);
}

bool isEscape(QStringView s) {
    return !s.isEmpty() && s[0] == u'%';
}
bool isDigitLine(QStringView s) {
    return !s.isEmpty() && s[0] >= u'0' && s[0] <= u'9';
}
bool isCommentLine(QStringView s) {
    return !s.isEmpty() && s[0] == u'{';
}
bool isResultLine(QStringView s) {
    return s.endsWith(u"1/2-1/2") || s.endsWith(u"0-1") || s.endsWith(u"1-0") || s.endsWith(u"*");
}

} // namespace

ImportResult importGames(TextFileReader& file, GameStoreArray& store,
                         const ImportProgress& progress) {
    ImportResult result;
    long& Count = result.count;
    const double FileLength = double(file.length());
    auto read = [&] { return trimBlanks(file.lineInputView()); };
    auto appendHeader = [&](QStringView line) {
        QString& header = store[size_t(Count)].Header;
        header += line;
        header += kCrLf;
    };
    auto appendMoves = [&](QStringView line) {
        QString& moves = store[size_t(Count)].Moves;
        moves += line;
        moves += u" \r\n";
    };

    while (!file.atEnd()) {
        const double units = std::floor(double(file.position()) / 128.0) * 128.0;
        progress(Count, FileLength > 0 ? std::lround(units / FileLength * 100.0) : 0);

        QStringView Line = read();
        while ((Line.isEmpty() || isEscape(Line)) && !file.atEnd())
            Line = read();
        if (!Line.isEmpty()) {
            ++Count;
            store.resize(size_t(Count) + 1);
        }
        // The tag section.
        for (;;) {
            appendHeader(Line);
            if (Line.isEmpty() || isDigitLine(Line) || file.atEnd())
                break;
            Line = read();
            if (Line.isEmpty() || isDigitLine(Line))
                break;
        }
        // The gap before the move text.
        if (Line.isEmpty()) {
            while (Line.isEmpty() && !file.atEnd()) {
                Line = file.lineInputView();
                if (!isEscape(Line))
                    Line = trimBlanks(Line);
            }
        }
        // The move text.
        if (isCommentLine(Line) || isDigitLine(Line)) {
            appendMoves(Line);
            for (;;) {
                if (Line.isEmpty() || file.atEnd())
                    break;
                Line = read();
                if (Line.isEmpty())
                    break;
                if (!isEscape(Line))
                    appendMoves(Line);
                if (isResultLine(Line))
                    break;
            }
        }
        if (Count == kGameLimit) {
            result.limitReached = true;
            break;
        }
    }
    return result;
}

} // namespace tolvisk
