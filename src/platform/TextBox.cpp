#include "platform/TextBox.h"

#include "platform/TextCodec.h"

#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QUrl>

#include <algorithm>

namespace tolvisk {

namespace {

bool endsLine(QChar c) {
    return c == u'\r' || c == u'\n' || c == QChar::ParagraphSeparator;
}

// Positions in the text the user has typed into (a line end counts two) and in the widget.
int typedToProgram(const QString& plain, int pos) {
    return pos + int(QStringView(plain).left(pos).count(QLatin1Char('\n')));
}

int typedToWidget(const QString& plain, int pos) {
    int program = 0;
    for (int i = 0; i < plain.size(); ++i) {
        const int step = plain[i] == QLatin1Char('\n') ? 2 : 1;
        if (program + step > pos)
            return i;
        program += step;
    }
    return int(plain.size());
}

} // namespace

TextBox::TextBox(QWidget* parent) : QPlainTextEdit(parent) {
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (!settingText_)
            edited_ = true;
    });
}

QString TextBox::Text() const {
    if (!edited_)
        return text_;
    // The document's own characters: a non-breaking space stays one. Only the line ends between
    // its blocks are the widget's, and they are CR LF to the program.
    QString text = document()->toRawText();
    text.replace(QChar::ParagraphSeparator, kCrLf);
    return text;
}

void TextBox::setText(const QString& text) {
    // The same text again only puts the cursor back at the start: laying the text out anew is
    // most of what giving a text costs.
    if (!edited_ && text == text_) {
        const QTextCursor c = textCursor();
        if (c.position() != 0 || c.hasSelection())
            setTextCursor(QTextCursor(document()));
        verticalScrollBar()->setValue(0);
        horizontalScrollBar()->setValue(0);
        return;
    }
    text_ = text;
    lines_.clear();
    QString shown;
    bool cut = false;
    const QChar* d = text.constData();
    const int n = int(text.size());
    for (int at = 0;;) {
        if (int(lines_.size()) == kShownLines) {
            shown += QStringLiteral("\n\u2026");
            cut = true;
            break;
        }
        int end = at;
        while (end < n && !endsLine(d[end]))
            ++end;
        const int length = end - at;
        const int visible = std::min(length, kShownLineLength);
        if (!lines_.empty())
            shown += QLatin1Char('\n');
        lines_.push_back({at, length, int(shown.size()), visible});
        shown.append(d + at, visible);
        if (visible < length) {
            shown += QChar(0x2026);
            cut = true;
        }
        if (end == n)
            break;
        at = end + (d[end] == u'\r' && end + 1 < n && d[end + 1] == u'\n' ? 2 : 1);
    }
    settingText_ = true;
    setPlainText(shown);
    settingText_ = false;
    edited_ = false;
    if (cut && !cut_)
        readOnlyBeforeCut_ = isReadOnly();
    if (cut)
        setReadOnly(true);
    else if (cut_)
        setReadOnly(readOnlyBeforeCut_);
    cut_ = cut;
}

int TextBox::toProgram(int widgetPos) const {
    auto after = std::upper_bound(lines_.begin(), lines_.end(), widgetPos,
                                  [](int pos, const Line& l) { return pos < l.shownStart; });
    if (after == lines_.begin())
        return 0;
    const Line& line = *std::prev(after);
    const int offset = widgetPos - line.shownStart;
    // Past what shows of a line cut short, or on the line of dots after the last one shown.
    if (offset > line.shown)
        return line.start + line.length;
    return line.start + offset;
}

int TextBox::toWidget(int programPos) const {
    auto after = std::upper_bound(lines_.begin(), lines_.end(), programPos,
                                  [](int pos, const Line& l) { return pos < l.start; });
    if (after == lines_.begin())
        return 0;
    const Line& line = *std::prev(after);
    return line.shownStart + std::min(programPos - line.start, line.shown);
}

int TextBox::SelStart() const {
    if (edited_)
        return typedToProgram(toPlainText(), textCursor().selectionStart());
    return toProgram(textCursor().selectionStart());
}

void TextBox::setSelStart(int start) {
    QTextCursor c = textCursor();
    c.setPosition(edited_ ? typedToWidget(toPlainText(), std::max(0, start))
                          : toWidget(std::max(0, start)));
    setTextCursor(c);
}

int TextBox::SelLength() const {
    const QTextCursor c = textCursor();
    if (edited_) {
        const QString plain = toPlainText();
        return typedToProgram(plain, c.selectionEnd()) - typedToProgram(plain, c.selectionStart());
    }
    return toProgram(c.selectionEnd()) - toProgram(c.selectionStart());
}

void TextBox::setSelLength(int length) {
    select(SelStart(), length);
}

void TextBox::select(int start, int length) {
    QTextCursor c = textCursor();
    start = std::max(0, start);
    const int end = start + std::max(0, length);
    if (edited_) {
        const QString plain = toPlainText();
        c.setPosition(typedToWidget(plain, start));
        c.setPosition(typedToWidget(plain, end), QTextCursor::KeepAnchor);
    } else {
        c.setPosition(toWidget(start));
        c.setPosition(toWidget(end), QTextCursor::KeepAnchor);
    }
    setTextCursor(c);
}

QString TextBox::SelText() const {
    if (!edited_)
        return text_.mid(SelStart(), SelLength());
    QString text = textCursor().selectedText();
    text.replace(QChar::ParagraphSeparator, kCrLf);
    return text;
}

bool TextBox::canInsertFromMimeData(const QMimeData* source) const {
    for (const QUrl& url : source->urls()) {
        if (url.isLocalFile())
            return false;
    }
    return QPlainTextEdit::canInsertFromMimeData(source);
}

void TextBox::mouseDoubleClickEvent(QMouseEvent* event) {
    // The word under the pointer, delimited by blanks and line ends, not by punctuation: a
    // move number keeps its dot.
    const QString plain = toPlainText();
    int pos = cursorForPosition(event->position().toPoint()).position();
    auto isDelimiter = [](QChar c) {
        return c == QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\t');
    };
    if (pos >= plain.size() || (pos < plain.size() && isDelimiter(plain[pos])))
        if (pos > 0 && !isDelimiter(plain[pos - 1]))
            --pos;
    int start = pos, end = pos;
    while (start > 0 && !isDelimiter(plain[start - 1]))
        --start;
    while (end < plain.size() && !isDelimiter(plain[end]))
        ++end;
    QTextCursor c = textCursor();
    c.setPosition(start);
    c.setPosition(end, QTextCursor::KeepAnchor);
    setTextCursor(c);
    emit DblClick();
}

} // namespace tolvisk
