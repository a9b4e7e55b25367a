#include "variation/frmVariation.h"

#include "platform/WindowPlacement.h"
#include "viewer/Application.h"

#include <QHBoxLayout>

namespace tolvisk {

frmVariation::frmVariation(Application& app) : QWidget(nullptr, Qt::Window), app_(app) {
    setObjectName(QStringLiteral("frmVariation"));
    setWindowTitle(QStringLiteral("Variation Board"));
    Tavlon1 = new Tavlon(this);
    Tavlon1->setObjectName(QStringLiteral("Tavlon1"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Tavlon1);
    resize(Tavlon1->sizeHint());
    centreOnScreen(this);
}

void frmVariation::mnuFileClose_Click() {
    hide();
}

bool frmVariation::Form_QueryUnload() {
    // While the main window is loaded the window only hides; the main window's unloading
    // clears the flag first and so lets it go.
    const bool cancel = app_.module().MainLoaded != 0;
    mnuFileClose_Click();
    return cancel;
}

void frmVariation::closeEvent(QCloseEvent* event) {
    if (Form_QueryUnload())
        event->ignore();
    else
        event->accept();
}

} // namespace tolvisk
