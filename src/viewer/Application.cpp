#include "viewer/Application.h"

#include "find/frmFind.h"
#include "help/frmAbout.h"
#include "help/frmHelp.h"
#include "options/frmOptions.h"
#include "setup/frmSetup.h"
#include "tags/frmEditTags.h"
#include "variation/frmVariation.h"
#include "viewer/frmMain.h"

#include <algorithm>
#include <functional>
#include <map>

namespace tolvisk {

Application::Application(Platform& platform) : platform_(platform), module_(*this) {}

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

frmVariation& Application::variation() {
    if (auto* form = qobject_cast<frmVariation*>(findForm(QStringLiteral("frmVariation"))))
        return *form;
    return *new frmVariation(*this);
}

std::vector<QWidget*> Application::forms() const {
    std::vector<QWidget*> loaded;
    for (const auto& form : forms_) {
        if (form)
            loaded.push_back(form.data());
    }
    return loaded;
}

void Application::registerForm(QWidget* form) {
    if (std::find(forms_.begin(), forms_.end(), form) == forms_.end())
        forms_.emplace_back(form);
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

QWidget* Application::findForm(const QString& name) const {
    for (const auto& form : forms_) {
        if (form && form->objectName() == name)
            return form.data();
    }
    return nullptr;
}

void Application::showForm(const QString& name) {
    static const std::map<QString, std::function<QWidget*(Application&)>> factories = {
        {QStringLiteral("frmEditTags"), [](Application& a) { return new frmEditTags(a); }},
        {QStringLiteral("frmSetup"), [](Application& a) { return new frmSetup(a); }},
        {QStringLiteral("frmFind"), [](Application& a) { return new frmFind(a); }},
        {QStringLiteral("frmOptions"), [](Application& a) { return new frmOptions(a); }},
        {QStringLiteral("frmHelp"), [](Application& a) { return new frmHelp(a); }},
        {QStringLiteral("frmAbout"), [](Application& a) { return new frmAbout(a); }},
        {QStringLiteral("frmVariation"), [](Application& a) { return &a.variation(); }},
    };
    QWidget* form = findForm(name);
    if (!form) {
        auto factory = factories.find(name);
        if (factory == factories.end())
            return;
        form = factory->second(*this);
    }
    // Shown beside the main window, never modal; a minimised window comes back.
    form->setWindowState(form->windowState() & ~Qt::WindowMinimized);
    form->show();
    form->raise();
    form->activateWindow();
}

} // namespace tolvisk
