#pragma once

// Painting while a long handler runs, which returns to the event loop only at its end.

class QWidget;

namespace tolvisk {

// Shows the window and lets the window system put it on the screen, so that the repaints that
// follow reach it. Only window-system events run meanwhile: user input and timer ticks wait
// until the handler has ended.
void showExposed(QWidget* window);
// Paints the widget at once, when it is shown, after what the window system has asked for
// meanwhile.
void repaintNow(QWidget* widget);

} // namespace tolvisk
