// The help viewer: its sorted topics, the jump to a heading, the missing file; and the about
// window's keys.

#include "help/frmAbout.h"
#include "help/frmHelp.h"
#include "support/AppFixture.h"

#include <QDir>
#include <QTest>

using namespace tolvisk;

namespace {

frmHelp* showHelp(AppFixture& f) {
    f.main().mnuHelpHelp->trigger();
    return qobject_cast<frmHelp*>(f.app->findForm(QStringLiteral("frmHelp")));
}

// A click on the topic's entry, scrolled into view first, as the user would.
void clickTopic(frmHelp& help, const QString& topic) {
    const int16_t row = int16_t(help.List1->items().indexOf(topic));
    help.List1->scrollTo(help.List1->model()->index(row, 0));
    clickList(*help.List1, row);
}

} // namespace

class TestHelp : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { quietHeadlessNotes(); }
    void topicsOfTheHelpText();
    void jump_data();
    void jump();
    void missingFile();
    void aboutKeys_data();
    void aboutKeys();
};

// With the help text that comes with the program: every topic listed, sorted, and every one
// jumps to a heading that starts a line.
void TestHelp::topicsOfTheHelpText() {
    AppFixture f;
    frmHelp* help = showHelp(f);
    const QStringList sorted =
        QStringLiteral(
            "Additional Features|Annotation|Auto Play|Board|Board Square Colors|Color View|"
            "Copyright Notice And Disclaimer|Correspondence Options|Date Format|E-mail|Edit|"
            "Email Features|EMailer|File|Find|Getting Started|Help|Introduction|Limits|Menus|"
            "Move List Style|Options|Play To End On Opening|Player|Promotion Piece|Reports|"
            "Setup Position|Tag Editor|Technical Notes|Time Controls|Tools|Tracking|Unused Time|"
            "Variation Board|View|Web Site")
            .split(u'|');
    QCOMPARE(help->List1->items(), sorted);
    QCOMPARE(help->List1->ListIndex(), int16_t(-1));
    QCOMPARE(help->Text1->SelStart(), 0);
    const QString text = help->Text1->Text();
    for (const QString& topic : sorted) {
        clickTopic(*help, topic);
        const int at = help->Text1->SelStart();
        QVERIFY2(help->Text1->SelText() == topic + u':', qPrintable(topic));
        QVERIFY2(at < 32767 && (at == 0 || text.mid(at - 2, 2) == kCrLf), qPrintable(topic));
    }
    QVERIFY(f.platform.boxes().empty());
}

void TestHelp::jump_data() {
    QTest::addColumn<QString>("file"); // LF line ends; read back with CR LF
    QTest::addColumn<bool>("shared");  // in the program's data rather than the start-up folder
    QTest::addColumn<QString>("topic");
    QTest::addColumn<int>("selStart"); // -1: nothing selected
    const QString pad = QString(32764, u'x') + u'\n';
    QTest::newRow("case counts") << "FIND: in capitals\nFind: here\n" << false << "Find" << 19;
    QTest::newRow("inside a sentence") << "See Options: below.\nOptions:\n"
                                       << false << "Options" << 4;
    QTest::newRow("end of a longer word") << "Correspondence Options: none\nOptions:\n"
                                          << true << "Options" << 15;
    QTest::newRow("starts at 32767") << pad + "Help: here\n" << false << "Help" << 32766;
    QTest::newRow("starts at 32768") << u'x' + pad + "Help: here\n" << false << "Help" << -1;
    QTest::newRow("no heading") << "Nothing here\n" << true << "Tools" << -1;
}

void TestHelp::jump() {
    QFETCH(QString, file);
    QFETCH(bool, shared);
    QFETCH(QString, topic);
    QFETCH(int, selStart);
    AppFixture f;
    // The start-up file's folder first, then the program's data.
    QDir(f.platform.dir()).mkdir(QStringLiteral("share"));
    f.platform.sharedDir = f.platform.path(QStringLiteral("share"));
    f.writeFile(shared ? QStringLiteral("share/tolhelp.txt") : QStringLiteral("tolhelp.txt"),
                file.toUtf8());
    frmHelp* help = showHelp(f);
    QCOMPARE(help->Text1->Text(), QString(file).replace(u'\n', kCrLf));
    clickTopic(*help, topic);
    QCOMPARE(help->Text1->SelStart(), std::max(selStart, 0));
    QCOMPARE(help->Text1->SelText(), selStart < 0 ? QString() : topic + u':');
    QVERIFY(f.platform.boxes().empty());
}

void TestHelp::missingFile() {
    AppFixture f;
    f.platform.sharedDir = f.platform.path(QStringLiteral("none"));
    frmHelp* help = showHelp(f);
    QCOMPARE(boxesShown(f.platform),
             QStringList{"Help Error: There was an error trying to open the help file."});
    QVERIFY(f.platform.boxes().front().icon == MsgIcon::Exclamation);
    QVERIFY(help && help->isVisible());
    QCOMPARE(help->List1->ListCount(), int16_t(0));
    QCOMPARE(help->Text1->Text(), QString());
    clickList(*help->List1, -1);
    QCOMPARE(help->List1->ListIndex(), int16_t(-1));
}

void TestHelp::aboutKeys_data() {
    QTest::addColumn<int>("key");
    QTest::newRow("Enter") << int(Qt::Key_Return);
    QTest::newRow("Esc") << int(Qt::Key_Escape);
}

void TestHelp::aboutKeys() {
    QFETCH(int, key);
    AppFixture f;
    f.main().mnuHelpAbout->trigger();
    auto* about = qobject_cast<frmAbout*>(f.app->findForm(QStringLiteral("frmAbout")));
    QVERIFY(about && about->isVisible());
    QCOMPARE(about->lblVersion->text(), QStringLiteral("Version: 1.2.0"));
    QTest::keyClick(about->focusWidget() ? about->focusWidget() : about, Qt::Key(key));
    QVERIFY(!f.app->findForm(QStringLiteral("frmAbout")));
}

QTEST_MAIN(TestHelp)
#include "tst_help.moc"
