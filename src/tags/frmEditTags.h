#pragma once

// The tag editor: edits a copy of the header lines of the game on the main board and gives them
// back on OK. It never touches the store; the game is marked as changed, so Save takes the
// lines there.

#include "platform/ToolWindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStringList>

namespace tolvisk {

class Application;
class ListBox;

class frmEditTags : public ToolWindow {
    Q_OBJECT
public:
    explicit frmEditTags(Application& app);

    // The lines copied at load.
    QStringList TagLines;

    ListBox* lstTags = nullptr;
    QLineEdit* txtSelected = nullptr;
    QLabel* lblSelected = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdApply = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdClose = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdDelete = nullptr;

    void Form_Load();
    void WriteTags();
    void lstTags_Click();
    void cmdApply_Click();
    void cmdCancel_Click();
    void cmdClose_Click();
    void cmdAdd_Click();
    void cmdDelete_Click();
    void cmdOK_Click();

private:
    Application& app_;

    void createControls();
    // The two button states: while a line is being edited, and otherwise.
    void setButtons(bool editing);
};

} // namespace tolvisk
