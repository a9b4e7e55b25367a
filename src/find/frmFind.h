#pragma once

// The Find window: looks for a text in the game list's entries and the stored move text, and
// selects the first game that holds it. It keeps no state: it goes on from the list's present
// selection and reads the search text afresh each time.

#include "platform/ToolWindow.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace tolvisk {

class Application;

class frmFind : public ToolWindow {
    Q_OBJECT
public:
    explicit frmFind(Application& app);

    QLabel* lblSearchString = nullptr;
    QLineEdit* txtFindString = nullptr;
    // The tag templates, offered beside the search text; a choice fills the text in.
    QToolButton* cmdTemplates = nullptr;
    QMenu* mnuSearch = nullptr;
    QGroupBox* fraFind = nullptr;
    QPushButton* cmdFindFirst = nullptr;
    QPushButton* cmdFindNext = nullptr;
    QPushButton* cmdFindLast = nullptr;
    QPushButton* cmdFindPrevious = nullptr;
    QPushButton* cmdClose = nullptr;

    void cmdFindFirst_Click();
    void cmdFindNext_Click();
    void cmdFindLast_Click();
    void cmdFindPrevious_Click();
    void cmdClose_Click();

private:
    // The one search: entries `first` to `last` by `step`; on failure the box says `failure`
    // and the search text.
    void search(int first, int last, int step, const QString& failure);
    void fillTemplate(const QString& tag);

    Application& app_;
};

} // namespace tolvisk
