#pragma once

#include <QPlainTextEdit>

#include <vector>

namespace tolvisk {

// A text box. `Text()` gives back exactly the characters it was given; it and the selection use
// the program's view of the text, in which a line ends in CR LF, while the widget shows
// ordinary lines.
//
// However long a text, giving it stays quick: the box shows at most kShownLines lines of at
// most kShownLineLength characters, each cut short ending in "…", and a box that cuts its text
// is read-only until it is given one it shows whole, so what it holds is never lost.
class TextBox : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit TextBox(QWidget* parent = nullptr);

    static constexpr int kShownLines = 5000;
    static constexpr int kShownLineLength = 10000;

    QString Text() const;
    void setText(const QString& text);
    int SelStart() const;
    void setSelStart(int start);
    int SelLength() const;
    void setSelLength(int length);
    // SelStart, then SelLength, in one step.
    void select(int start, int length);
    QString SelText() const;

signals:
    // Raised after a double click has selected the blank-delimited word under the pointer.
    void DblClick();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    // Files dragged over a text box are not text to insert: the drop goes on to the window.
    bool canInsertFromMimeData(const QMimeData* source) const override;

private:
    // A line of the text as given and as shown: where it starts in each, its length and how
    // much of it shows.
    struct Line {
        int start;
        int length;
        int shownStart;
        int shown;
    };
    int toProgram(int widgetPos) const;
    int toWidget(int programPos) const;

    QString text_;            // as given, while the user has not typed into it
    std::vector<Line> lines_; // the lines shown
    bool edited_ = false;     // the user has changed the text since it was given
    bool settingText_ = false;
    bool cut_ = false;
    bool readOnlyBeforeCut_ = false;
};

} // namespace tolvisk
