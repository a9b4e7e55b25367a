#pragma once

// The second board. Loaded hidden when the main window starts and kept for the whole run: its
// close box only hides it while the main window is loaded.

#include "board/Tavlon.h"

#include <QCloseEvent>
#include <QWidget>

namespace tolvisk {

class Application;

class frmVariation : public QWidget {
    Q_OBJECT
public:
    explicit frmVariation(Application& app);

    Tavlon* Tavlon1 = nullptr;

    void mnuFileClose_Click();
    // Returns the cancel flag.
    bool Form_QueryUnload();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    Application& app_;
};

} // namespace tolvisk
