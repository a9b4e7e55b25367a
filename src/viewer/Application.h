#pragma once

// Owns the shared module, the windows and the platform for one run (or one test case).

#include "platform/Platform.h"
#include "store/Module1.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

class frmMain;
class frmVariation;

namespace tolvisk {

class Application {
public:
    explicit Application(Platform& platform);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    Platform& platform() { return platform_; }
    Module1& module() { return module_; }

    // Loads frmMain (running its Form_Load) and returns it; it is not shown.
    frmMain& loadMain();
    frmMain& main();
    bool mainLoaded() const { return main_ != nullptr; }
    // Loaded hidden by frmMain's Form_Load; stays loaded for the whole run.
    frmVariation& variation();

    // The windows loaded now, frmMain first: the collection the closing sequence walks.
    std::vector<QWidget*> forms() const;
    void registerForm(QWidget* form);
    // Closes the window through its own closing handlers; a window that agrees is destroyed.
    void unloadForm(QWidget* form);
    // Drops a window that closed by itself from the collection.
    void forgetForm(QWidget* form);

    // Shows a tool window, loading it if it is not loaded, not modally. Tool windows are
    // loaded on first show and destroyed when closed.
    void showForm(const QString& name);
    QWidget* findForm(const QString& name) const;

private:
    Platform& platform_;
    Module1 module_;
    frmMain* main_ = nullptr;
    std::vector<QPointer<QWidget>> forms_;
};

} // namespace tolvisk
