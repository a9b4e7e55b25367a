#pragma once

// The about window: the program's name, its version and a short notice.

#include "platform/ToolWindow.h"

#include <QFrame>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

namespace tolvisk {

class Application;

class frmAbout : public ToolWindow {
    Q_OBJECT
public:
    explicit frmAbout(Application& app);

    QFrame* Picture1 = nullptr;
    QLabel* Label3 = nullptr;
    QLabel* Label8 = nullptr;
    QLabel* Image2 = nullptr;
    QLabel* Image1 = nullptr;
    QLabel* Label1 = nullptr;
    QLabel* Label2 = nullptr;
    QLabel* lblVersion = nullptr;
    QLabel* Label4 = nullptr;
    QLabel* Label5 = nullptr;
    QLabel* Label6 = nullptr;
    QLabel* Label7 = nullptr;
    QFrame* Line1 = nullptr;
    QPlainTextEdit* txtCopyright = nullptr;
    QPushButton* cmdOK = nullptr;

    void Form_Load();
    void cmdOK_Click();

protected:
    // Enter and Esc both press OK.
    void keyPressEvent(QKeyEvent* event) override;

private:
    Application& app_;
    void createControls();
};

} // namespace tolvisk
