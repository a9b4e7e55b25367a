// Text files kept byte for byte, and the control rules the windows rely on.

#include "platform/Controls.h"
#include "platform/Errors.h"
#include "platform/QtPlatform.h"
#include "platform/TextFile.h"
#include "support/ScriptedPlatform.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace tolvisk;

class TestPlatform : public QObject {
    Q_OBJECT
private slots:
    void encodingRoundTrip_data();
    void encodingRoundTrip();
    void lineInput_data();
    void lineInput();
    void writerWritesCrLf();
    void writerFallsBackToUtf8();
    void writerFailsOnUnwritablePath();
    void fileFilter();
    void listBoxClick();
    void listBoxBulkFill();
    void textBoxCountsCrLfAsTwo();
    void doubleClickSelectsTheBlankDelimitedWord();
    void toolbarByKey();
    void timerRestartsWhenEnabled();
    void scriptedPlatformFailsOnUnexpectedBox();
};

void TestPlatform::encodingRoundTrip_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("encoding");
    QTest::addColumn<QString>("text");
    QTest::newRow("ascii") << QByteArray("1. e4 e5\r\n") << int(TextEncoding::Utf8) << QStringLiteral("1. e4 e5\r\n");
    QTest::newRow("utf-8") << QByteArray("R\xC3\xA9ti") << int(TextEncoding::Utf8) << QStringLiteral("R\u00e9ti");
    QTest::newRow("utf-8 bom") << QByteArray("\xEF\xBB\xBFH\xC3\xB8") << int(TextEncoding::Utf8Bom) << QStringLiteral("H\u00f8");
    QTest::newRow("latin-1") << QByteArray("R\xE9ti S\xE4misch") << int(TextEncoding::Windows1252) << QStringLiteral("R\u00e9ti S\u00e4misch");
    QTest::newRow("cp437 bytes and undefined 1252 bytes") << QByteArray("Br\x81ssel \x8D\x8F\x90\x9D \x80") << int(TextEncoding::Windows1252)
                                                          << QStringLiteral("Br\u0081ssel \u008d\u008f\u0090\u009d \u20ac");
    QTest::newRow("overlong utf-8 is no utf-8") << QByteArray("\xC0\xAF") << int(TextEncoding::Windows1252) << QStringLiteral("\u00c0\u00af");
    QTest::newRow("truncated utf-8 is no utf-8") << QByteArray("ab\xC3") << int(TextEncoding::Windows1252) << QStringLiteral("ab\u00c3");
}

void TestPlatform::encodingRoundTrip() {
    QFETCH(QByteArray, bytes);
    QFETCH(int, encoding);
    QFETCH(QString, text);
    const TextEncoding detected = detectEncoding(bytes);
    QCOMPARE(int(detected), encoding);
    QCOMPARE(decodeText(bytes, detected), text);
    TextEncoding used;
    QCOMPARE(encodeText(text, detected, &used), bytes);
    QCOMPARE(int(used), encoding);
}

void TestPlatform::lineInput_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("crlf") << QByteArray("a\r\nb\r\n") << QStringList{"a", "b"};
    QTest::newRow("lone cr and lf") << QByteArray("a\rb\nc") << QStringList{"a", "b", "c"};
    QTest::newRow("empty lines") << QByteArray("\r\n\r\n\n") << QStringList{"", "", ""};
    QTest::newRow("last line without end") << QByteArray("a\r\nb") << QStringList{"a", "b"};
    QTest::newRow("bom is not part of the line") << QByteArray("\xEF\xBB\xBF[Event \"x\"]\r\n") << QStringList{"[Event \"x\"]"};
    QTest::newRow("empty file") << QByteArray() << QStringList{};
}

void TestPlatform::lineInput() {
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, lines);
    TextFileReader reader(bytes);
    QStringList read;
    qint64 last = -1;
    while (!reader.atEnd()) {
        read << reader.lineInput();
        QVERIFY(reader.position() > last);
        last = reader.position();
    }
    QCOMPARE(read, lines);
    QCOMPARE(reader.position(), reader.length());
    QVERIFY_THROWS_EXCEPTION(RuntimeError, reader.lineInput());
}

void TestPlatform::writerWritesCrLf() {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.txt"));
    {
        TextFileWriter w(path, TextEncoding::Windows1252);
        w.print(QStringLiteral("R\u00e9ti"));
        w.write(QStringLiteral("x"));
    }
    QFile f(path);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(f.readAll(), QByteArray("R\xE9ti\r\nx"));
}

void TestPlatform::writerFallsBackToUtf8() {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.txt"));
    TextFileWriter w(path, TextEncoding::Windows1252);
    w.print(QStringLiteral("\u017dilina \u0160ah")); // fits 1252
    w.print(QStringLiteral("\u0141\u00f3d\u017a"));  // does not
    w.close();
    QFile f(path);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(f.readAll()), QStringLiteral("\u017dilina \u0160ah\r\n\u0141\u00f3d\u017a\r\n"));
}

void TestPlatform::writerFailsOnUnwritablePath() {
    QVERIFY_THROWS_EXCEPTION(RuntimeError, TextFileWriter(QStringLiteral("/nonexistent/dir/x.pgn"), TextEncoding::Utf8));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, readTextFile(QStringLiteral("/nonexistent/x.pgn")));
}

void TestPlatform::fileFilter() {
    QCOMPARE(qtFileFilter(QStringLiteral("PGN files (*.pgn) | *.pgn|Text files (*.txt) | *.txt|All files (*.*) | *.*")),
             QStringLiteral("PGN files (*.pgn);;Text files (*.txt);;All files (*.*)"));
}

void TestPlatform::listBoxClick() {
    ListBox list;
    list.setItems({"a", "b", "c"});
    QSignalSpy clicks(&list, &ListBox::Click);
    QCOMPARE(list.ListIndex(), int16_t(-1));
    list.setListIndex(1);
    list.setListIndex(1); // the same again still clicks
    list.setListIndex(-1);
    QCOMPARE(clicks.count(), 3);
    QCOMPARE(list.ListIndex(), int16_t(-1));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, list.setListIndex(3));
    // A user's click raises Click once.
    list.resize(200, 200);
    list.show();
    clicks.clear();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(2, 0)).center());
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(list.ListIndex(), int16_t(2));
    list.AddItem(QStringLiteral("z"), 0);
    QCOMPARE(list.List(0), QStringLiteral("z"));
    list.RemoveItem(0);
    QCOMPARE(list.ListCount(), int16_t(3));
}

void TestPlatform::listBoxBulkFill() {
    ListBox list;
    QStringList items;
    for (int i = 0; i < 32000; ++i)
        items << QString::number(i);
    list.setItems(items);
    QCOMPARE(list.ListCount(), int16_t(32000));
    QCOMPARE(list.ListIndex(), int16_t(-1));
    QCOMPARE(list.List(31999), QStringLiteral("31999"));
}

void TestPlatform::textBoxCountsCrLfAsTwo() {
    TextBox box;
    box.setText(QStringLiteral("1. e4 e5\r\n2. Nf3 Nc6\r\n12. a4"));
    QCOMPARE(box.Text(), QStringLiteral("1. e4 e5\r\n2. Nf3 Nc6\r\n12. a4"));
    const int at = int(box.Text().indexOf(QStringLiteral("12.")));
    box.setSelStart(at);
    box.setSelLength(3);
    QCOMPARE(box.SelStart(), at);
    QCOMPARE(box.SelLength(), 3);
    QCOMPARE(box.SelText(), QStringLiteral("12."));
    box.setSelStart(6);
    box.setSelLength(6);
    QCOMPARE(box.SelText(), QStringLiteral("e5\r\n2."));
    QCOMPARE(box.SelLength(), 6);
}

void TestPlatform::doubleClickSelectsTheBlankDelimitedWord() {
    TextBox box;
    box.resize(300, 100);
    box.setText(QStringLiteral("1.e4 e5 12.Nf3"));
    box.show();
    QSignalSpy clicks(&box, &TextBox::DblClick);
    QTextCursor c(box.document());
    c.setPosition(9); // inside "12.Nf3"
    const QPoint at = box.cursorRect(c).center();
    QTest::mouseDClick(box.viewport(), Qt::LeftButton, {}, at);
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(box.SelText(), QStringLiteral("12.Nf3"));
}

void TestPlatform::toolbarByKey() {
    ToolBar bar;
    bar.addButton(QStringLiteral("New"), QStringLiteral("New"), QIcon());
    bar.addSeparatorButton();
    bar.addButton(QStringLiteral("Delete"), QStringLiteral("Delete"), QIcon(), true);
    bar.addPlaceholder(100);
    QCOMPARE(bar.buttonCount(), 4);
    QCOMPARE(bar.keyAt(3), QStringLiteral("Delete"));
    QCOMPARE(bar.keyAt(2), QString());
    QSignalSpy clicks(&bar, &ToolBar::ButtonClick);
    bar.button(QStringLiteral("New"))->trigger();
    QCOMPARE(clicks.at(0).at(0).toString(), QStringLiteral("New"));
    bar.setPressed(QStringLiteral("Delete"), true);
    QVERIFY(bar.pressed(QStringLiteral("Delete")));
    QVERIFY_THROWS_EXCEPTION(RuntimeError, bar.button(QStringLiteral("Nope")));
}

void TestPlatform::timerRestartsWhenEnabled() {
    Timer timer;
    QSignalSpy ticks(&timer, &Timer::Tick);
    timer.setInterval(200);
    timer.setEnabled(true);
    QTest::qWait(120);
    timer.setEnabled(true); // starts the interval again
    QTest::qWait(120);
    QCOMPARE(ticks.count(), 0);
    QTRY_COMPARE(ticks.count(), 1);
    timer.setEnabled(false);
    QVERIFY(!timer.Enabled());
}

void TestPlatform::scriptedPlatformFailsOnUnexpectedBox() {
    ScriptedPlatform p;
    // An OK box needs no answer; a question does.
    QCOMPARE(p.msgBox(QStringLiteral("x"), MsgButtons::OK, MsgIcon::None, QString()), MsgResult::OK);
    p.queueMsgBox(MsgResult::No);
    QCOMPARE(p.msgBox(QStringLiteral("q"), MsgButtons::YesNo, MsgIcon::Question, QStringLiteral("t")), MsgResult::No);
    QCOMPARE(p.boxes().size(), size_t(2));
    QCOMPARE(p.boxes()[1].title, QStringLiteral("t"));
    p.queueOpenCancel();
    QVERIFY_THROWS_EXCEPTION(CancelError, p.showOpen(QString(), QString()));
}

QTEST_MAIN(TestPlatform)
#include "tst_platform.moc"
