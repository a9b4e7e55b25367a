#pragma once

// What the small tool windows laid out in twips share: their controls' places, their type, and
// the fixed dialog frame of the settings and information windows.

#include "platform/Twips.h"

#include <QFont>
#include <QWidget>

#include <algorithm>

namespace tolvisk {

// A title and a close box, no minimise or maximise box, a size the user cannot change, and no
// entry of its own in the task bar, since the window belongs to its owner.
inline void setFixedDialogFrame(QWidget* window, QWidget* owner) {
    const QPoint at = window->pos();
    window->setParent(owner, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                 Qt::WindowCloseButtonHint);
    window->move(at);
    window->setFixedSize(window->size());
}

// The small type the windows' sizes in twips were laid out for.
inline void setDialogFont(QWidget* window) {
    QFont font = window->font();
    font.setPointSizeF(8.25);
    window->setFont(font);
}

// The desktop's sans type runs wider than the type the sizes in twips were laid out for: a
// caption that does not fit widens its control to the right, up to the edge of its parent.
inline void widenToCaption(QWidget* control) {
    const int room = control->parentWidget()->width() - control->x() - 4;
    const int wanted = std::min(control->sizeHint().width(), room);
    if (wanted > control->width())
        control->resize(wanted, control->height());
}

// Names a control and puts it at its place on its parent, given in twips.
template <class Control>
Control* placeTwips(Control* control, const char* name, int left, int top, int width, int height) {
    control->setObjectName(QLatin1String(name));
    control->setGeometry(twipsRect(left, top, width, height));
    return control;
}

} // namespace tolvisk
