#pragma once

// The help viewer: the help text shown whole, and a sorted list of topics beside it, where a
// click on a topic selects its heading in the text.

#include "platform/Controls.h"
#include "platform/ToolWindow.h"

#include <QLabel>

namespace tolvisk {

class Application;

class frmHelp : public ToolWindow {
    Q_OBJECT
public:
    explicit frmHelp(Application& app);

    QLabel* Label1 = nullptr;
    ListBox* List1 = nullptr;
    TextBox* Text1 = nullptr;

    void Form_Load();
    void Form_Resize();
    void List1_Click();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    Application& app_;
    // The help text, read from the start-up file's folder or else from the program's data.
    QString readHelpText();
};

} // namespace tolvisk
