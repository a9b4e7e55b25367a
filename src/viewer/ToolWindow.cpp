#include "viewer/ToolWindow.h"

#include "viewer/Application.h"
#include "viewer/Twips.h"
#include "viewer/WindowPlacement.h"

ToolWindow::ToolWindow(tolvisk::Application& app, const QString& name, const QString& title,
                       int clientWidthTwips, int clientHeightTwips)
    : QWidget(nullptr, Qt::Window), app_(app) {
    setObjectName(name);
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    resize(tolvisk::twipsToPx(clientWidthTwips), tolvisk::twipsToPx(clientHeightTwips));
    tolvisk::centreOnScreen(this);
    app_.registerForm(this);
}

ToolWindow::~ToolWindow() {
    app_.forgetForm(this);
}

void ToolWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    app_.forgetForm(this);
}
