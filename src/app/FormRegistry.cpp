#include "app/FormRegistry.h"

#include "find/frmFind.h"
#include "help/frmAbout.h"
#include "help/frmHelp.h"
#include "options/frmOptions.h"
#include "output/Output.h"
#include "setup/frmSetup.h"
#include "tags/frmEditTags.h"
#include "variation/frmVariation.h"

#include <functional>
#include <map>

namespace tolvisk {

namespace {

template <class Form> QWidget* make(Application& app) {
    return new Form(app);
}

const std::map<QString, QWidget* (*)(Application&)> kForms = {
    {QStringLiteral("frmVariation"), &make<frmVariation>},
    {QStringLiteral("frmSetup"), &make<frmSetup>},
    {QStringLiteral("frmEditTags"), &make<frmEditTags>},
    {QStringLiteral("frmFind"), &make<frmFind>},
    {QStringLiteral("frmOptions"), &make<frmOptions>},
    {QStringLiteral("frmHelp"), &make<frmHelp>},
    {QStringLiteral("frmAbout"), &make<frmAbout>},
};

} // namespace

QWidget* createForm(const QString& name, Application& app) {
    const auto form = kForms.find(name);
    return form == kForms.end() ? nullptr : form->second(app);
}

std::unique_ptr<GameOutput> createOutput(Application& app) {
    return std::make_unique<Output>(app);
}

} // namespace tolvisk
