#include "platform/ToolWindow.h"

#include "platform/Errors.h"
#include "platform/Platform.h"
#include "platform/Twips.h"
#include "platform/WindowPlacement.h"

namespace tolvisk {

ToolWindow::ToolWindow(const QString& name, const QString& title, int clientWidthTwips,
                       int clientHeightTwips)
    : QWidget(nullptr, Qt::Window) {
    setObjectName(name);
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    resize(twipsToPx(clientWidthTwips), twipsToPx(clientHeightTwips));
    centreOnScreen(this);
}

void ToolWindow::closeEvent(QCloseEvent* event) {
    event->accept();
    emit Unloaded();
}

void ToolWindow::run(Platform& platform, const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::exception& e) {
        platform.setBusy(false);
        platform.msgBox(describeError(e), MsgButtons::OK, MsgIcon::Critical, QString());
    }
}

} // namespace tolvisk
