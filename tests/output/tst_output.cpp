// Print, Copy Game To Clipboard and Copy Board As Bitmap, from the main window's commands.

#include "support/AppFixture.h"

#include <QTest>

using namespace tolvisk;

namespace {

const QByteArray kGame = crlf("[Event \"Club\"]\n[White \"Anna\"]\n[Black \"Bert\"]\n\n"
                              "1. e4 {Best by test} e5 $1 (1... c5 2. Nf3) 2. Nf3 Nc6 *\n\n");

struct Loaded : AppFixture {
    Loaded() {
        openText(kGame);
        main().mnuFileLoad_Click();
        platform.clear();
    }
};

} // namespace

class TestOutput : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { quietHeadlessNotes(); }
    void printAndCopyText_data();
    void printAndCopyText();
    void noPrinterSaysNothing();
    void copyBoardOnTheTick();
    void failingClipboardStopsTheTimer();
};

void TestOutput::printAndCopyText_data() {
    QTest::addColumn<QString>("style");
    QTest::addColumn<bool>("tags");
    QTest::addColumn<QString>("moves");
    const QString header = "[Event \"Club\"]\r\n[White \"Anna\"]\r\n[Black \"Bert\"]\r\n\r\n";
    QTest::newRow("list") << "L" << true << header + "1. e4 e5!\r\n2. Nf3 Nc6\r\n*";
    QTest::newRow("paragraph") << "P" << true << header + "1.e4 e5! 2.Nf3 Nc6 *";
    QTest::newRow("annotated")
        << "A" << true << header + "1. e4 {Best by test} 1... e5 $1 (1... c5 2. Nf3) 2. Nf3 Nc6 *";
    QTest::newRow("other style: no moves") << "X" << true << header;
    QTest::newRow("no tags") << "L" << false << "\r\n1. e4 e5!\r\n2. Nf3 Nc6\r\n*";
}

void TestOutput::printAndCopyText() {
    QFETCH(QString, style);
    QFETCH(bool, tags);
    QFETCH(QString, moves);
    Loaded f;
    frmMain& w = f.main();
    f.m().MoveListStyle = style;
    if (!tags)
        w.lstTags->Clear();
    w.Tavlon1->MoveLast(); // the text does not depend on the ply shown
    w.Toolbar1->button(QStringLiteral("Print"))->trigger();
    w.mnuEditCopyClipboard->trigger();
    QCOMPARE(f.platform.printed, QStringList{moves});
    QCOMPARE(f.platform.ofKind("clipboardText").size(), size_t(1));
    QCOMPARE(f.platform.clipboardText, moves);
    QCOMPARE(f.platform.kinds().mid(f.platform.kinds().indexOf("print")),
             (QStringList{"print", "clipboardClear", "clipboardText"}));
}

void TestOutput::noPrinterSaysNothing() {
    Loaded f;
    f.platform.printerFails = true;
    f.main().mnuFilePrint->trigger();
    QVERIFY(f.platform.printed.isEmpty());
    QVERIFY(f.platform.boxes().empty());
}

void TestOutput::copyBoardOnTheTick() {
    Loaded f;
    frmMain& w = f.main();
    w.mnuEditCopyBitmap->trigger();
    w.mnuEditCopyBitmap->trigger(); // again during the wait: the clipboard emptied again
    QCOMPARE(f.platform.kinds(), (QStringList{"clipboardClear", "clipboardClear"}));
    QVERIFY(w.Timer2->Enabled());
    QVERIFY(!w.Picture1->isEnabled());
    // The picture shows the board at the tick, over Picture1's area and at its size.
    w.Tavlon1->MoveLast();
    const QRect area = w.Picture1->geometry().translated(-w.Tavlon1->pos());
    const QImage board = w.Tavlon1->grab().toImage().copy(area);
    emit w.Timer2->Tick();
    QVERIFY(!w.Timer2->Enabled());
    QCOMPARE(f.platform.kinds().mid(2), (QStringList{"clipboardClear", "clipboardImage"}));
    QCOMPARE(f.platform.clipboardImage.size(), w.Picture1->size());
    QCOMPARE(f.platform.clipboardImage, board);
    // The top left square, a8, is a light one.
    QCOMPARE(f.platform.clipboardImage.pixel(4, 4) & 0xFFFFFF, 0xFFFFFFu);
}

void TestOutput::failingClipboardStopsTheTimer() {
    Loaded f;
    f.platform.clipboardFails = true;
    f.main().mnuEditCopyBitmap->trigger();
    emit f.main().Timer2->Tick();
    QVERIFY(!f.main().Timer2->Enabled());
    QCOMPARE(boxesShown(f.platform),
             QStringList(": The board could not be copied to the clipboard.\r\n\r\n"
                         "Can't open clipboard"));
    QCOMPARE(f.platform.boxes()[0].icon, MsgIcon::Exclamation);
}

QTEST_MAIN(TestOutput)
#include "tst_output.moc"
