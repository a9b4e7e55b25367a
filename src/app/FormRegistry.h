#pragma once

// The one place that knows every window: each name the program shows, and how to make it.
// Adding a window is its folder and one line in the table.

#include <QString>

#include <memory>

class QWidget;

namespace tolvisk {

class Application;
class GameOutput;

// Makes the window of that name, or gives nullptr for a name not in the table.
QWidget* createForm(const QString& name, Application& app);
// The printing, clipboard text and board picture routines of the output folder.
std::unique_ptr<GameOutput> createOutput(Application& app);

} // namespace tolvisk
