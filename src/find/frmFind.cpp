#include "find/frmFind.h"

#include "find/StoreSearch.h"
#include "platform/Platform.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tolvisk {

namespace {

const QString kNoMatches = QStringLiteral("No matches found for ");
const QString kNoMoreMatches = QStringLiteral("No more matches found for ");

QPushButton* makeButton(const QString& name, const QString& caption, const QString& tip) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setToolTip(tip);
    return button;
}

} // namespace

frmFind::frmFind(Application& app)
    : ToolWindow(QStringLiteral("frmFind"), QStringLiteral("Find"), 5000, 2300), app_(app) {
    lblSearchString = new QLabel(QStringLiteral("Enter Search String:"));
    txtFindString = new QLineEdit;
    txtFindString->setObjectName(QStringLiteral("txtFindString"));
    txtFindString->setToolTip(QStringLiteral("Enter search string"));
    lblSearchString->setBuddy(txtFindString);

    mnuSearch = new QMenu(QStringLiteral("Search"), this);
    for (const char* tag : {"Event", "Site", "Date", "Round", "White", "Black", "Result", "ECO"}) {
        const QString name = QString::fromLatin1(tag);
        QAction* entry = mnuSearch->addAction(QStringLiteral("[%1 \"\"]").arg(name));
        entry->setObjectName(QStringLiteral("mnuSearch") + name);
        connect(entry, &QAction::triggered, this, [this, name] { fillTemplate(name); });
    }
    cmdTemplates = new QToolButton;
    cmdTemplates->setObjectName(QStringLiteral("cmdTemplates"));
    cmdTemplates->setText(QStringLiteral("[ ]"));
    cmdTemplates->setToolTip(QStringLiteral("Fill in a tag to search for"));
    cmdTemplates->setMenu(mnuSearch);
    cmdTemplates->setPopupMode(QToolButton::InstantPopup);

    fraFind = new QGroupBox(QStringLiteral("Find"));
    cmdFindFirst = makeButton(QStringLiteral("cmdFindFirst"), QStringLiteral("Find First"),
                              QStringLiteral("Find first match of search string"));
    cmdFindNext = makeButton(QStringLiteral("cmdFindNext"), QStringLiteral("Find Next"),
                             QStringLiteral("Find next match of search string"));
    cmdFindLast = makeButton(QStringLiteral("cmdFindLast"), QStringLiteral("Find Last"),
                             QStringLiteral("Find last match of search string"));
    cmdFindPrevious = makeButton(QStringLiteral("cmdFindPrevious"), QStringLiteral("Find Prev"),
                                 QStringLiteral("Find previous match of search string"));
    cmdClose = makeButton(QStringLiteral("cmdClose"), QStringLiteral("&Cancel"),
                          QStringLiteral("Close this window"));

    auto* text = new QHBoxLayout;
    text->addWidget(txtFindString, 1);
    text->addWidget(cmdTemplates);
    auto* buttons = new QHBoxLayout(fraFind);
    for (QPushButton* b : {cmdFindFirst, cmdFindNext, cmdFindLast, cmdFindPrevious})
        buttons->addWidget(b);
    auto* bottom = new QHBoxLayout;
    bottom->addStretch(1);
    bottom->addWidget(cmdClose);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblSearchString);
    layout->addLayout(text);
    layout->addWidget(fraFind);
    layout->addLayout(bottom);

    // An error no handler took is reported by the main window's last resort.
    frmMain& main = app_.main();
    connect(cmdFindFirst, &QPushButton::clicked, this,
            main.slotFor(this, &frmFind::cmdFindFirst_Click));
    connect(cmdFindNext, &QPushButton::clicked, this,
            main.slotFor(this, &frmFind::cmdFindNext_Click));
    connect(cmdFindLast, &QPushButton::clicked, this,
            main.slotFor(this, &frmFind::cmdFindLast_Click));
    connect(cmdFindPrevious, &QPushButton::clicked, this,
            main.slotFor(this, &frmFind::cmdFindPrevious_Click));
    connect(cmdClose, &QPushButton::clicked, this, &frmFind::cmdClose_Click);
    // Enter in the search text goes on to the next match, as in any find box.
    connect(txtFindString, &QLineEdit::returnPressed, this,
            main.slotFor(this, &frmFind::cmdFindNext_Click));
}

void frmFind::cmdFindFirst_Click() {
    search(0, app_.main().lstPGNFiles->ListCount() - 1, +1, kNoMatches);
}

void frmFind::cmdFindNext_Click() {
    const ListBox& list = *app_.main().lstPGNFiles;
    search(list.ListIndex() + 1, list.ListCount() - 1, +1, kNoMoreMatches);
}

void frmFind::cmdFindLast_Click() {
    search(app_.main().lstPGNFiles->ListCount() - 1, 0, -1, kNoMatches);
}

void frmFind::cmdFindPrevious_Click() {
    search(app_.main().lstPGNFiles->ListIndex() - 1, 0, -1, kNoMoreMatches);
}

void frmFind::cmdClose_Click() {
    close();
}

void frmFind::search(int first, int last, int step, const QString& failure) {
    frmMain& main = app_.main();
    ListBox& list = *main.lstPGNFiles;
    const int16_t remembered = list.ListIndex();
    const QString text = txtFindString->text();
    const bool anyEntry = step > 0 ? first <= last : first >= last;
    // The list is hidden while the search walks it and nothing repaints until the end, so the
    // walk itself selects nothing: only the selection it ends on is assigned, and its Click
    // brings the preview, the status panel and the deleted mark up to date once.
    list.hide();
    const int found = anyEntry ? findInStore(app_.module(), list, text, first, last, step) : -1;
    if (found >= 0)
        list.setListIndex(int16_t(found));
    list.show();
    if (found >= 0 || !anyEntry)
        return;
    list.setListIndex(remembered);
    app_.platform().msgBox(failure + text, MsgButtons::OK, MsgIcon::None,
                           QStringLiteral("Match Failed"));
}

void frmFind::fillTemplate(const QString& tag) {
    // The template with the cursor between its quotes, ready for the value.
    const QString filled = QStringLiteral("[%1 \"\"]").arg(tag);
    txtFindString->setText(filled);
    txtFindString->setCursorPosition(int(filled.size()) - 2);
    txtFindString->setFocus();
}

} // namespace tolvisk
