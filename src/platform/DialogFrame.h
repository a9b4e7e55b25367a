#pragma once

// The fixed dialog frame of the small settings and information windows: a title and a close
// box, no minimise or maximise box, a size the user cannot change, and no entry of its own in
// the task bar, since the window belongs to its owner.

#include <QFont>
#include <QWidget>

#include <algorithm>

namespace tolvisk {

inline void setFixedDialogFrame(QWidget* window, QWidget* owner) {
    const QPoint at = window->pos();
    window->setParent(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                 Qt::WindowCloseButtonHint);
    window->move(at);
    window->setFixedSize(window->size());
}

// The small type the design's sizes in twips were measured for.
inline void setDialogFont(QWidget* window) {
    QFont font = window->font();
    font.setPointSizeF(8.25);
    window->setFont(font);
}

// The desktop's sans type runs wider than the type the design sizes were measured in: a caption
// that does not fit widens its control to the right, up to the edge of its parent.
inline void widenToCaption(QWidget* control) {
    const int room = control->parentWidget()->width() - control->x() - 4;
    const int wanted = std::min(control->sizeHint().width(), room);
    if (wanted > control->width())
        control->resize(wanted, control->height());
}

} // namespace tolvisk
