// The tag editor: its buttons after each step, adding and deleting lines with their boxes, and
// editing lines and giving them back to the main window.

#include "support/AppFixture.h"
#include "tags/frmEditTags.h"

#include <QTest>

using namespace tolvisk;

namespace {

const QStringList kTags = {"[Event \"A \"B\" C\"]", "[White \"?\"]", "Comment", "[Result \"*\"]"};

struct TagsFixture : AppFixture {
    // The game on the board has kTags; the editor opens on the line selected in the main list.
    frmEditTags& openEditor(int16_t selected = -1) {
        main().lstTags->setItems(kTags);
        main().lstTags->setListIndex(selected);
        main().mnuToolsEditTags->trigger();
        return *qobject_cast<frmEditTags*>(app->findForm(QStringLiteral("frmEditTags")));
    }
};

// The captions of the enabled buttons.
QString enabled(const frmEditTags& w) {
    QStringList on;
    for (QPushButton* b : {w.cmdOK, w.cmdApply, w.cmdCancel, w.cmdAdd, w.cmdDelete, w.cmdClose})
        if (b->isEnabled())
            on << b->text();
    return on.join(u',');
}

void click(QPushButton* button) {
    QTest::mouseClick(button, Qt::LeftButton);
}

void edit(frmEditTags& w, int row, const QString& text) {
    clickList(*w.lstTags, row);
    w.txtSelected->selectAll();
    QTest::keyClick(w.txtSelected, Qt::Key_Backspace);
    QTest::keyClicks(w.txtSelected, text);
    QTest::keyClick(w.txtSelected, Qt::Key_Return);
}

} // namespace

class TestEditTags : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { quietHeadlessNotes(); }
    void buttons_data();
    void buttons();
    void addAndDelete();
    void okGivesTheLinesBack();
    void hiddenWordShowsTheVariationBoard();
};

void TestEditTags::buttons_data() {
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("enabled");
    QTest::addColumn<QString>("label");
    // clang-format off
    QTest::newRow("opened") << "" << "OK,Apply,Undo,Add Tag,Delete Tag,Cancel" << "Nothing Selected";
    QTest::newRow("line clicked") << "click" << "OK,Apply,Undo,Delete Tag" << "Editing: [White \"?\"]";
    QTest::newRow("applied") << "click apply" << "OK,Add Tag,Cancel" << "Nothing Selected";
    QTest::newRow("undone") << "click undo" << "OK,Add Tag,Cancel" << "Nothing Selected";
    QTest::newRow("deleted") << "click delete" << "OK,Add Tag,Cancel" << "Nothing Selected";
    QTest::newRow("Enter, nothing selected") << "enter" << "OK,Add Tag,Cancel" << "Nothing Selected";
    // clang-format on
}

void TestEditTags::buttons() {
    QFETCH(QString, steps);
    QFETCH(QString, enabled);
    QFETCH(QString, label);
    TagsFixture f;
    frmEditTags& w = f.openEditor();
    f.platform.queueMsgBox(MsgResult::Yes);
    for (const QString& step : steps.split(u' ', Qt::SkipEmptyParts)) {
        if (step == QLatin1String("click"))
            clickList(*w.lstTags, 1);
        else if (step == QLatin1String("enter"))
            QTest::keyClick(w.txtSelected, Qt::Key_Enter);
        else
            click(step == QLatin1String("apply")  ? w.cmdApply
                  : step == QLatin1String("undo") ? w.cmdCancel
                                                  : w.cmdDelete);
    }
    QCOMPARE(::enabled(w), enabled);
    QCOMPARE(w.lblSelected->text(), label);
    QCOMPARE(w.lstTags->ListIndex(), int16_t(steps == QLatin1String("click") ? 1 : -1));
}

void TestEditTags::addAndDelete() {
    TagsFixture f;
    frmEditTags& w = f.openEditor(1); // opens on the main list's line
    QCOMPARE(w.txtSelected->text(), QStringLiteral("?"));
    for (const char* answer : {"C", "", "Annotator"})
        f.platform.queueInput(QString::fromLatin1(answer));
    for (int i = 0; i < 3; ++i)
        click(w.cmdAdd);
    const PlatformCall input = f.platform.ofKind(QStringLiteral("inputBox"))[0];
    QCOMPARE(input.title + QStringLiteral(": ") + input.text,
             QStringLiteral("New Tag: Enter tag name"));
    QCOMPARE(boxesShown(f.platform),
             QStringList{"Tag Cannot Be Added: There already is a header tag named C."});
    QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::None);
    QCOMPARE(w.lstTags->List(4), QStringLiteral("[Annotator \"\"]"));

    f.platform.clear();
    f.platform.queueMsgBox(MsgResult::No);
    f.platform.queueMsgBox(MsgResult::Yes);
    clickList(*w.lstTags, 3);
    click(w.cmdDelete);
    QCOMPARE(w.lstTags->ListCount(), int16_t(5));
    click(w.cmdDelete);
    QCOMPARE(
        boxesShown(f.platform),
        QStringList(2, "Confirm Delete: Are you sure you want to delete Tag [Result \"*\"] ?"));
    QCOMPARE(f.platform.boxes()[0].buttons, MsgButtons::YesNo);
    QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::None);
    QCOMPARE(w.lstTags->items(), (QStringList{kTags[0], kTags[1], kTags[2], "[Annotator \"\"]"}));
    QVERIFY(w.txtSelected->text().isEmpty());
    click(w.cmdClose);
    QCOMPARE(f.main().lstTags->items(), kTags);
}

void TestEditTags::okGivesTheLinesBack() {
    TagsFixture f;
    frmMain& m = f.main();
    frmEditTags& w = f.openEditor();
    f.platform.queueInput(QStringLiteral("Black"));
    click(w.cmdAdd);
    edit(w, 4, QStringLiteral("Bert"));
    clickList(*w.lstTags, 0);
    QCOMPARE(w.txtSelected->text(), QStringLiteral("A ")); // up to the second double quote
    edit(w, 0, QString());
    edit(w, 1, QStringLiteral("Anna"));
    edit(w, 2, QStringLiteral("Black White Result")); // the whole line: no double quote
    clickList(*w.lstTags, 3);
    QTest::keyClicks(w.txtSelected, QStringLiteral("1-0")); // taken in by OK
    click(w.cmdOK);
    QCOMPARE(m.lstTags->items(),
             (QStringList{"[Event \"\"]", "[White \"Anna\"]", "Black White Result",
                          "[Result \"*1-0\"]", "[Black \"Bert\"]"}));
    QCOMPARE(f.m().EditedResult, QStringLiteral("*1-0"));
    QCOMPARE(m.Tavlon1->GameResult(), QStringLiteral("*1-0"));
    QCOMPARE(m.Tavlon1->WhitePlayer(), QStringLiteral("Anna"));
    QCOMPARE(m.Tavlon1->BlackPlayer(), QStringLiteral("Bert"));
    QVERIFY(m.Tavlon1->GameChanged() && m.mnuFileSave->isEnabled());
    QVERIFY(m.Toolbar1->button(QStringLiteral("Save"))->isEnabled());
    QVERIFY(!f.app->findForm(QStringLiteral("frmEditTags")));
    QVERIFY(f.platform.boxes().empty());
}

void TestEditTags::hiddenWordShowsTheVariationBoard() {
    TagsFixture f;
    frmMain& m = f.main();
    frmEditTags& w = f.openEditor();
    edit(w, 1, QStringLiteral("Anna"));
    QVERIFY(!m.mnuToolsVariationBoard->isVisible());
    QTest::keyClicks(w.txtSelected, QStringLiteral("PeelSideTab"));
    click(w.cmdOK);
    QVERIFY(m.mnuToolsVariationBoard->isVisible());
    QCOMPARE(m.lstTags->items(), kTags); // the edit made before is lost
    QVERIFY(m.Tavlon1->GameChanged());
    QVERIFY(!f.app->findForm(QStringLiteral("frmEditTags")));
}

QTEST_MAIN(TestEditTags)
#include "tst_edittags.moc"
