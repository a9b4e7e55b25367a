#include "viewer/Application.h"

#include "platform/ToolWindow.h"
#include "viewer/frmMain.h"

#include <algorithm>

namespace tolvisk {

Application::Application(Platform& platform, FormFactory factory, const OutputFactory& output)
    : platform_(platform), factory_(std::move(factory)), output_(output ? output(*this) : nullptr) {
}

Application::~Application() {
    // Tear down without any closing sequence: no prompt, no box, no start-up file.
    std::vector<QPointer<QWidget>> forms = forms_;
    forms_.clear();
    for (auto it = forms.rbegin(); it != forms.rend(); ++it) {
        if (*it && it->data() != main_)
            delete it->data();
    }
    delete main_;
    main_ = nullptr;
}

frmMain& Application::loadMain() {
    if (!main_) {
        main_ = new frmMain(*this);
        forms_.insert(forms_.begin(), QPointer<QWidget>(main_));
        main_->Form_Load();
    }
    return *main_;
}

frmMain& Application::main() {
    return *main_;
}

std::vector<QWidget*> Application::forms() const {
    std::vector<QWidget*> loaded;
    for (const auto& form : forms_) {
        if (form)
            loaded.push_back(form.data());
    }
    return loaded;
}

QWidget* Application::findForm(const QString& name) const {
    for (const auto& form : forms_) {
        if (form && form->objectName() == name)
            return form.data();
    }
    return nullptr;
}

QWidget* Application::loadForm(const QString& name) {
    if (QWidget* form = findForm(name))
        return form;
    QWidget* form = factory_ ? factory_(name, *this) : nullptr;
    if (!form)
        return nullptr;
    forms_.emplace_back(form);
    // A tool window leaves the collection as soon as it agrees to close.
    if (auto* tool = qobject_cast<ToolWindow*>(form))
        QObject::connect(tool, &ToolWindow::Unloaded, tool, [this, form] { forgetForm(form); });
    return form;
}

void Application::showForm(const QString& name) {
    QWidget* form = loadForm(name);
    if (!form)
        return;
    // Shown beside the main window, never modal; a minimised window comes back.
    form->setWindowState(form->windowState() & ~Qt::WindowMinimized);
    form->show();
    form->raise();
    form->activateWindow();
}

void Application::forgetForm(QWidget* form) {
    std::erase_if(forms_, [form](const QPointer<QWidget>& p) { return p.isNull() || p == form; });
}

void Application::unloadForm(QWidget* form) {
    if (!form || !form->close())
        return;
    forgetForm(form);
    if (form != main_)
        delete form;
}

Tavlon* Application::boardOf(const QString& formName) const {
    QWidget* form = findForm(formName);
    return form ? form->findChild<Tavlon*>(QStringLiteral("Tavlon1")) : nullptr;
}

} // namespace tolvisk
