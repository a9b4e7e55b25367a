#include "tags/frmEditTags.h"

#include "platform/Controls.h"
#include "platform/Platform.h"
#include "store/Module1.h"
#include "store/TagLines.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tolvisk {

namespace {

const QString kNothingSelected = QStringLiteral("Nothing Selected");
const QString kEditing = QStringLiteral("Editing: ");

QPushButton* button(const char* name, const char* caption, const char* tip) {
    auto* b = new QPushButton(QString::fromLatin1(caption));
    b->setObjectName(QString::fromLatin1(name));
    b->setToolTip(QString::fromLatin1(tip));
    return b;
}

} // namespace

frmEditTags::frmEditTags(Application& app)
    : ToolWindow(QStringLiteral("frmEditTags"), QStringLiteral("Tag Editor"), 8400, 4500),
      app_(app) {
    createControls();
    Form_Load();
}

void frmEditTags::createControls() {
    QFont font = this->font();
    font.setPointSizeF(8.25);
    setFont(font);
    lstTags = new ListBox;
    lstTags->setObjectName(QStringLiteral("lstTags"));
    lstTags->setToolTip(QStringLiteral("Header tags in current game"));
    lblSelected = new QLabel(kNothingSelected);
    lblSelected->setObjectName(QStringLiteral("lblSelected"));
    txtSelected = new QLineEdit;
    txtSelected->setObjectName(QStringLiteral("txtSelected"));
    txtSelected->setToolTip(QStringLiteral("Enter header tag information"));
    lblSelected->setBuddy(txtSelected);
    cmdOK = button("cmdOK", "OK", "Apply changes and close window");
    cmdApply = button("cmdApply", "Apply", "Apply changes");
    cmdCancel = button("cmdCancel", "Undo", "Cancel all changes");
    cmdClose = button("cmdClose", "Cancel", "Cancel all changes and close window");
    cmdAdd = button("cmdAdd", "Add Tag", "Add a header tag");
    cmdDelete = button("cmdDelete", "Delete Tag", "Delete the selected header tag");

    // The list with its two buttons beside it; below, the line being edited with its two; at
    // the foot, OK and Cancel.
    auto* grid = new QGridLayout(this);
    grid->addWidget(lstTags, 0, 0);
    auto* listButtons = new QVBoxLayout;
    listButtons->addWidget(cmdAdd);
    listButtons->addWidget(cmdDelete);
    listButtons->addStretch();
    grid->addLayout(listButtons, 0, 1);
    grid->addWidget(lblSelected, 1, 0, 1, 2);
    grid->addWidget(txtSelected, 2, 0);
    auto* editButtons = new QHBoxLayout;
    editButtons->addWidget(cmdApply);
    editButtons->addWidget(cmdCancel);
    grid->addLayout(editButtons, 2, 1);
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(cmdOK);
    foot->addWidget(cmdClose);
    grid->addLayout(foot, 3, 0, 1, 2);
    grid->setRowStretch(0, 1);

    Platform& platform = app_.platform();
    wire(platform, lstTags, &ListBox::Click, [this] { lstTags_Click(); });
    // Enter in the box applies, as the Apply button does.
    wire(platform, txtSelected, &QLineEdit::returnPressed, [this] { cmdApply_Click(); });
    wire(platform, cmdOK, &QPushButton::clicked, [this] { cmdOK_Click(); });
    wire(platform, cmdApply, &QPushButton::clicked, [this] { cmdApply_Click(); });
    wire(platform, cmdCancel, &QPushButton::clicked, [this] { cmdCancel_Click(); });
    wire(platform, cmdClose, &QPushButton::clicked, [this] { cmdClose_Click(); });
    wire(platform, cmdAdd, &QPushButton::clicked, [this] { cmdAdd_Click(); });
    wire(platform, cmdDelete, &QPushButton::clicked, [this] { cmdDelete_Click(); });
}

void frmEditTags::Form_Load() {
    const ListBox& mainTags = *app_.main().lstTags;
    TagLines = mainTags.items();
    WriteTags();
    // Opens on the line selected in the main window, through this list's Click; empty lines
    // left out can put that line beyond the end, and then none is selected.
    const int16_t selected = mainTags.ListIndex();
    lstTags->setListIndex(selected < lstTags->ListCount() ? selected : int16_t(-1));
    for (QPushButton* b : {cmdOK, cmdApply, cmdCancel, cmdAdd, cmdDelete, cmdClose})
        b->setEnabled(true);
}

void frmEditTags::WriteTags() {
    lstTags->Clear();
    for (const QString& line : TagLines)
        if (!line.isEmpty())
            lstTags->AddItem(line);
}

void frmEditTags::setButtons(bool editing) {
    cmdOK->setEnabled(true);
    cmdApply->setEnabled(editing);
    cmdCancel->setEnabled(editing);
    cmdAdd->setEnabled(!editing);
    cmdDelete->setEnabled(editing);
    cmdClose->setEnabled(!editing);
}

void frmEditTags::lstTags_Click() {
    const int16_t i = lstTags->ListIndex();
    if (i == -1)
        return;
    const QString line = lstTags->List(i);
    txtSelected->setText(line.contains(u'"') ? tagValue(line) : line);
    lblSelected->setText(kEditing + line);
    setButtons(true);
}

void frmEditTags::cmdApply_Click() {
    const int16_t i = lstTags->ListIndex();
    if (i != -1) {
        // All that stood behind the first double quote gives way to the box and a closing quote.
        const QString old = lstTags->List(i);
        const qsizetype quote = old.indexOf(u'"');
        const QString line = quote >= 0
                                 ? old.left(quote + 1) + txtSelected->text() + QStringLiteral("\"]")
                                 : txtSelected->text();
        lstTags->RemoveItem(i);
        lstTags->AddItem(line, i);
        txtSelected->clear();
        lblSelected->setText(kNothingSelected);
    }
    setButtons(false);
}

void frmEditTags::cmdCancel_Click() {
    txtSelected->clear();
    lblSelected->setText(kNothingSelected);
    lstTags->setListIndex(-1);
    setButtons(false);
}

void frmEditTags::cmdClose_Click() {
    close();
}

void frmEditTags::cmdAdd_Click() {
    cmdCancel_Click();
    Platform& platform = app_.platform();
    const QString name =
        platform.inputBox(QStringLiteral("Enter tag name"), QStringLiteral("New Tag"));
    if (name.isEmpty())
        return;
    // Anywhere in a line, its value too: "Date" goes as soon as any line holds the word.
    for (const QString& line : lstTags->items())
        if (line.contains(name)) {
            platform.msgBox(QStringLiteral("There already is a header tag named ") + name +
                                QLatin1Char('.'),
                            MsgButtons::OK, MsgIcon::None, QStringLiteral("Tag Cannot Be Added"));
            return;
        }
    lstTags->AddItem(QLatin1Char('[') + name + QStringLiteral(" \"\"]"));
}

void frmEditTags::cmdDelete_Click() {
    const int16_t i = lstTags->ListIndex();
    if (i == -1)
        return;
    const QString line = lstTags->List(i);
    const MsgResult answer = app_.platform().msgBox(
        QStringLiteral("Are you sure you want to delete Tag ") + line + QStringLiteral(" ?"),
        MsgButtons::YesNo, MsgIcon::None, QStringLiteral("Confirm Delete"));
    if (answer == MsgResult::No)
        return;
    if (lblSelected->text() == kEditing + line) {
        lblSelected->setText(kNothingSelected);
        txtSelected->clear();
    }
    lstTags->RemoveItem(i);
    setButtons(false);
}

void frmEditTags::cmdOK_Click() {
    frmMain& main = app_.main();
    if (txtSelected->text() == QLatin1String("PeelSideTab")) {
        main.mnuToolsVariationBoard->setVisible(true);
        close();
        // The window is gone, and the steps below see it loaded afresh from the main window's
        // lines: the edits made here are lost.
        Form_Load();
    }
    if (lstTags->ListCount() >= 1) {
        cmdApply_Click();
        const QStringList lines = lstTags->items();
        main.lstTags->Clear();
        for (const QString& line : lines)
            main.lstTags->AddItem(line);
        for (const QString& line : lines) {
            // A line without a double quote has no value to give.
            if (!line.contains(u'"'))
                continue;
            const QString value = tagValue(line);
            if (line.contains(QLatin1String("Result"))) {
                app_.module().EditedResult = value;
                main.Tavlon1->setGameResult(value);
            }
            if (line.contains(QLatin1String("White ")))
                main.Tavlon1->setWhitePlayer(value);
            if (line.contains(QLatin1String("Black ")))
                main.Tavlon1->setBlackPlayer(value);
        }
    }
    main.ShowPlayerNames();
    main.mnuFileSave->setEnabled(true);
    main.Toolbar1->button(QStringLiteral("Save"))->setEnabled(true);
    main.Tavlon1->setGameChanged(true);
    close();
}

} // namespace tolvisk
