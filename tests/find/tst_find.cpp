// The Find window: its four searches over the game list and the stored moves, driven by clicks
// and keys as a user gives them.

#include "find/frmFind.h"
#include "support/AppFixture.h"

#include <QTest>

using namespace tolvisk;

namespace {

// Four games; the third holds Qxh7 only in its moves, the fourth is marked as deleted.
const QByteArray kGames = crlf("[White \"Anand\"]\n[Black \"Carlsen\"]\n\n1. e4 e5 *\n\n"
                               "[White \"KASPAROV\"]\n\n1. d4 d5 *\n\n"
                               "[White \"Anand\"]\n\n1. e4 e6 2. Qxh7 *\n\n"
                               "[Event \"Open\"]\n\n1. c4 {Anand's choice} *\n\n");

struct FindFixture : AppFixture {
    explicit FindFixture(const QByteArray& games = kGames) {
        openText(games);
        main().mnuFileLoad_Click();
        main().Tavlon1->setGameChanged(true); // a found game is not loaded: no question comes
        main().mnuEditFind_Click();
        find = qobject_cast<frmFind*>(app->findForm(QStringLiteral("frmFind")));
        platform.clear();
    }
    frmFind* find = nullptr;
    ListBox& list() { return *main().lstPGNFiles; }
    void search(const QString& text, QPushButton* button) {
        find->txtFindString->clear();
        QTest::keyClicks(find->txtFindString, text);
        QTest::mouseClick(button, Qt::LeftButton);
    }
};

} // namespace

class TestFind : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { quietHeadlessNotes(); }
    void bounds_data();
    void bounds();
    void emptyListDoesNothing();
    void enterAndTemplateFindNext();
};

void TestFind::bounds_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("selected");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("after");
    QTest::addColumn<QString>("box");
    const QString none;
    QTest::newRow("first, any case") << "First" << 2 << "kasparov" << 1 << none;
    QTest::newRow("first, in the moves only") << "First" << 3 << "QXH7" << 2 << none;
    QTest::newRow("first, in a comment") << "First" << 0 << "anand's" << 3 << none;
    QTest::newRow("first fails") << "First" << 1 << "Tal" << 1 << "No matches found for Tal";
    QTest::newRow("next goes on behind") << "Next" << 0 << "Anand" << 2 << none;
    QTest::newRow("next, nothing selected") << "Next" << -1 << "Anand" << 0 << none;
    QTest::newRow("next fails") << "Next" << 2 << "d4" << 2 << "No more matches found for d4";
    QTest::newRow("next at the last entry") << "Next" << 3 << "e4" << 3 << none;
    QTest::newRow("next, empty text") << "Next" << 1 << "" << 2 << none;
    QTest::newRow("last") << "Last" << 0 << "e4" << 2 << none;
    QTest::newRow("last, deleted game") << "Last" << 0 << "Open" << 3 << none;
    QTest::newRow("last fails") << "Last" << 2 << "Tal" << 2 << "No matches found for Tal";
    QTest::newRow("prev goes back") << "Prev" << 3 << "e4" << 2 << none;
    QTest::newRow("prev fails") << "Prev" << 1 << "c4" << 1 << "No more matches found for c4";
    QTest::newRow("prev at the first entry") << "Prev" << 0 << "e4" << 0 << none;
    QTest::newRow("prev, nothing selected") << "Prev" << -1 << "e4" << -1 << none;
    QTest::newRow("fails, nothing selected")
        << "First" << -1 << "Tal" << -1 << "No matches found for Tal";
}

void TestFind::bounds() {
    QFETCH(QString, button);
    QFETCH(int, selected);
    QFETCH(QString, text);
    QFETCH(int, after);
    QFETCH(QString, box);
    FindFixture f;
    f.m().GameStore[4].Deleted = true;
    f.list().setListIndex(int16_t(selected));
    f.main().txtPreview->setText(QStringLiteral("stale"));
    f.platform.clear();
    frmFind& w = *f.find;
    QPushButton* buttons[] = {w.cmdFindFirst, w.cmdFindNext, w.cmdFindLast, w.cmdFindPrevious};
    const QStringList names{"First", "Next", "Last", "Prev"};
    f.search(text, buttons[names.indexOf(button)]);
    QCOMPARE(int(f.list().ListIndex()), after);
    QCOMPARE(boxesShown(f.platform),
             box.isEmpty() ? QStringList() : QStringList("Match Failed: " + box));
    if (!box.isEmpty())
        QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::None);
    QVERIFY(f.list().isVisibleTo(&f.main()));
    QCOMPARE(f.m().CurrentGame, int16_t(1));
    QCOMPARE(f.main().Tavlon1->GameLength(), int16_t(2));
    if (after == selected && box.isEmpty()) {
        // No entry tried: the list's Click has not run.
        QCOMPARE(f.main().txtPreview->Text(), QStringLiteral("stale"));
        return;
    }
    // The Click of the selection it ends on ran last: preview, status panel and deleted mark.
    QCOMPARE(f.main().txtPreview->Text(), f.m().GameStore[size_t(after + 1)].Moves);
    QCOMPARE(f.main().sbStatusBar->panelText(1), QStringLiteral("Game %1 of 4").arg(after + 1));
    QCOMPARE(f.main().mnuEditmarkDeleted->isChecked(), after == 3);
}

void TestFind::emptyListDoesNothing() {
    FindFixture f(QByteArray{});
    f.main().txtPreview->setText(QStringLiteral("untouched"));
    for (QPushButton* b :
         {f.find->cmdFindFirst, f.find->cmdFindNext, f.find->cmdFindLast, f.find->cmdFindPrevious})
        QTest::mouseClick(b, Qt::LeftButton);
    QVERIFY(f.platform.boxes().empty());
    QCOMPARE(f.main().txtPreview->Text(), QStringLiteral("untouched"));
}

void TestFind::enterAndTemplateFindNext() {
    FindFixture f;
    f.list().setListIndex(0);
    QTest::keyClicks(f.find->txtFindString, QStringLiteral("anand"));
    QTest::keyClick(f.find->txtFindString, Qt::Key_Return);
    QCOMPARE(f.list().ListIndex(), int16_t(2));
    // A template fills the text in with the cursor between its quotes.
    f.find->mnuSearch->findChild<QAction*>(QStringLiteral("mnuSearchWhite"))->trigger();
    QTest::keyClicks(f.find->txtFindString, QStringLiteral("kasparov"));
    QCOMPARE(f.find->txtFindString->text(), QStringLiteral("[White \"kasparov\"]"));
    QTest::keyClick(f.find->txtFindString, Qt::Key_Enter);
    QCOMPARE(boxesShown(f.platform),
             QStringList("Match Failed: No more matches found for [White \"kasparov\"]"));
    QTest::mouseClick(f.find->cmdFindFirst, Qt::LeftButton);
    QCOMPARE(f.list().ListIndex(), int16_t(1));
}

QTEST_MAIN(TestFind)
#include "tst_find.moc"
