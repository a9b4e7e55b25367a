#pragma once

// A sunken square that shows a colour value and raises Click when the user clicks it.

#include <QFrame>

#include <cstdint>

namespace tolvisk {

class ColorSwatch : public QFrame {
    Q_OBJECT
public:
    explicit ColorSwatch(QWidget* parent = nullptr);

    // Red lowest: red + 256 * green + 65536 * blue.
    int32_t BackColor() const { return backColor_; }
    void setBackColor(int32_t color);

signals:
    void Click();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int32_t backColor_ = 0;
};

} // namespace tolvisk
