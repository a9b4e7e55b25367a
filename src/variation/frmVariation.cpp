#include "variation/frmVariation.h"

#include "viewer/Application.h"
#include "viewer/Twips.h"
#include "viewer/WindowPlacement.h"

#include <QHBoxLayout>

frmVariation::frmVariation(tolvisk::Application& app) : QWidget(nullptr, Qt::Window), app_(app) {
    setObjectName(QStringLiteral("frmVariation"));
    setWindowTitle(QStringLiteral("Variation Board"));
    Tavlon1 = new Tavlon(this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(Tavlon1);
    resize(Tavlon1->sizeHint());
    tolvisk::centreOnScreen(this);
    app_.registerForm(this);
}

frmVariation::~frmVariation() = default;

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
