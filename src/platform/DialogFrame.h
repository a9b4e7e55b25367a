#pragma once

// The fixed dialog frame of the small settings and information windows: a title and a close
// box, no minimise or maximise box, a size the user cannot change, and no entry of its own in
// the task bar, since the window belongs to its owner.

#include <QFont>
#include <QWidget>

namespace tolvisk {

inline void setFixedDialogFrame(QWidget* window, QWidget* owner) {
    const QPoint at = window->pos();
    window->setParent(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                 Qt::WindowCloseButtonHint);
    window->move(at);
    window->setFixedSize(window->size());
}

// The small type that design sizes in twips are measured for.
inline void setDialogFont(QWidget* window) {
    QFont font = window->font();
    font.setPointSizeF(8.25);
    window->setFont(font);
}

} // namespace tolvisk
