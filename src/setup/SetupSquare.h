#pragma once

// A square of the setup board: a picture box that shows its picture over its background colour
// and keeps the square's one-character code in `Tag`.

#include <QColor>
#include <QPixmap>
#include <QString>
#include <QWidget>

namespace tolvisk {

class SetupSquare : public QWidget {
    Q_OBJECT
public:
    SetupSquare(int index, QWidget* parent);

    int Index() const { return index_; }
    // The square code: a piece letter, or "1" for an empty square.
    QString Tag = QStringLiteral("1");
    QColor BackColor() const { return backColor_; }
    void setBackColor(const QColor& color);
    const QPixmap& Picture() const { return picture_; }
    void setPicture(const QPixmap& picture);

signals:
    void Click(int index);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int index_;
    QColor backColor_ = Qt::white;
    QPixmap picture_;
};

} // namespace tolvisk
