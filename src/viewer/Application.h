#pragma once

// Owns the shared module, the windows and the platform for one run (or one test case). Windows
// other than the main one come from the form factory by name, so that this object, like the
// main window, never names a tool window.

#include "platform/Platform.h"
#include "store/Module1.h"
#include "viewer/GameOutput.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

namespace tolvisk {

class Application;
class frmMain;

// Makes the window of that name, or gives nullptr for a name it does not know.
using FormFactory = std::function<QWidget*(const QString& name, Application& app)>;
// Makes the output routines, which come from a tool-window folder like the windows do.
using OutputFactory = std::function<std::unique_ptr<GameOutput>(Application& app)>;

class Application {
public:
    Application(Platform& platform, FormFactory factory, const OutputFactory& output = {});
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    Platform& platform() { return platform_; }
    Module1& module() { return module_; }
    // Printing, clipboard text and the board picture; nullptr when none was given.
    GameOutput* output() { return output_.get(); }

    // Loads frmMain (running its Form_Load) and returns it; it is not shown.
    frmMain& loadMain();
    frmMain& main();

    // The windows loaded now, frmMain first: the collection the closing sequence walks.
    std::vector<QWidget*> forms() const;
    QWidget* findForm(const QString& name) const;
    // Loads the window if it is not loaded, without showing it; nullptr for an unknown name.
    QWidget* loadForm(const QString& name);
    // Shows a window, loading it if it is not loaded, not modally.
    void showForm(const QString& name);
    // Closes the window through its own closing handlers; a window that agrees is destroyed.
    void unloadForm(QWidget* form);
    // The board of a loaded window, its control "Tavlon1"; nullptr when there is none.
    Tavlon* boardOf(const QString& formName) const;

private:
    void forgetForm(QWidget* form);

    Platform& platform_;
    FormFactory factory_;
    Module1 module_;
    frmMain* main_ = nullptr;
    std::vector<QPointer<QWidget>> forms_;
    std::unique_ptr<GameOutput> output_; // made last, once the module stands
};

} // namespace tolvisk
