#pragma once

// The import's tests on one line of a PGN file, on its bytes: by the first character of a line
// and by how it ends. ASCII is all they look at, so they hold for UTF-8 and Windows-1252 alike.

#include <QByteArrayView>

namespace tolvisk {

// The line without its leading and trailing blanks (character 32 only; a tab stays).
inline QByteArrayView trimBlanks(QByteArrayView s) {
    qsizetype a = 0, b = s.size();
    while (a < b && s[a] == ' ')
        ++a;
    while (b > a && s[b - 1] == ' ')
        --b;
    return s.sliced(a, b - a);
}

inline bool isEscapeLine(QByteArrayView s) {
    return !s.isEmpty() && s[0] == '%';
}
inline bool isResultLine(QByteArrayView s) {
    return s.endsWith("1/2-1/2") || s.endsWith("0-1") || s.endsWith("1-0") || s.endsWith("*");
}
// The first character that counts for the tag section: leading blanks and tabs, and a UTF-8
// byte order mark, are passed over for this test only.
inline char tagSectionLead(QByteArrayView s) {
    qsizetype i = 0;
    for (;;) {
        if (i < s.size() && (s[i] == ' ' || s[i] == '\t'))
            ++i;
        else if (s.sliced(i).startsWith("\xEF\xBB\xBF"))
            i += 3;
        else
            break;
    }
    return i < s.size() ? s[i] : '\0';
}
// A line that opens a game's tag section.
inline bool opensTagSection(QByteArrayView s) {
    return tagSectionLead(s) == '[';
}
// A line that the tag section holds: a tag line or an escape line.
inline bool staysInTagSection(QByteArrayView s) {
    const char lead = tagSectionLead(s);
    return lead == '[' || lead == '%';
}

} // namespace tolvisk
