// Text files kept byte for byte, the number conversions, and the control rules the windows rely
// on, driven by real input.

#include "platform/Controls.h"
#include "platform/Errors.h"
#include "platform/Numbers.h"
#include "platform/QtPlatform.h"
#include "platform/TextFile.h"
#include "support/AppFixture.h"

#include <QApplication>
#include <QFileDialog>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTimer>
#include <QToolTip>

using namespace tolvisk;

class TestPlatform : public QObject {
    Q_OBJECT
private slots:
    void encodingRoundTrip_data();
    void encodingRoundTrip();
    void writer();
    void readerAcrossBlocks();
    void numbers_data();
    void numbers();
    void listSelection_data();
    void listSelection();
    void listDoubleClickAndToolTip();
    void textBoxKeepsEveryCharacter();
    void textBoxShowsLongTextsCutShort();
    void doubleClickSelectsTheBlankDelimitedWord();
    void timerRestartsWhenEnabled();
    void saveDialogAddsTheFilterExtension_data();
    void saveDialogAddsTheFilterExtension();
    void sharedData_data();
    void sharedData();
};

void TestPlatform::encodingRoundTrip_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("encoding");
    QTest::addColumn<QString>("text");
    auto row = [](const char* name, const QByteArray& bytes, TextEncoding e, const QString& text) {
        QTest::newRow(name) << bytes << int(e) << text;
    };
    const auto utf8 = TextEncoding::Utf8, cp1252 = TextEncoding::Windows1252;
    row("ascii", "1. e4 e5\r\n", utf8, "1. e4 e5\r\n");
    row("utf-8", "R\xC3\xA9ti", utf8, "R\u00e9ti");
    row("utf-8 bom", "\xEF\xBB\xBFH\xC3\xB8", TextEncoding::Utf8Bom, "H\u00f8");
    row("latin-1", "R\xE9ti\xA0S\xE4misch", cp1252, "R\u00e9ti\u00a0S\u00e4misch");
    row("cp437 bytes and undefined 1252 bytes", "Br\x81ssel \x8D\x8F\x90\x9D \x80", cp1252,
        "Br\u0081ssel \u008d\u008f\u0090\u009d \u20ac");
    row("overlong utf-8 is no utf-8", "\xC0\xAF", cp1252, "\u00c0\u00af");
    row("truncated utf-8 is no utf-8", "ab\xC3", cp1252, "ab\u00c3");
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

void TestPlatform::writer() {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("a.txt"));
    auto written = [&](TextEncoding encoding, const QString& text) {
        TextFileWriter w(path, encoding);
        w.print(text);
        w.write(QStringLiteral("x"));
        w.close();
        return AppFixture::readFile(path);
    };
    QCOMPARE(written(TextEncoding::Windows1252, QStringLiteral("R\u00e9ti \u0160ah")),
             QByteArray("R\xE9ti \x8A"
                        "ah\r\nx"));
    // A character the code page cannot hold makes the whole file UTF-8.
    QCOMPARE(written(TextEncoding::Windows1252, QStringLiteral("R\u00e9ti \u0141\u00f3d\u017a")),
             QStringLiteral("R\u00e9ti \u0141\u00f3d\u017a\r\nx").toUtf8());
    QVERIFY_THROWS_EXCEPTION(
        RuntimeError, TextFileWriter(QStringLiteral("/nonexistent/dir/x.pgn"), TextEncoding::Utf8));
    QVERIFY_THROWS_EXCEPTION(RuntimeError,
                             TextFileReader::open(QStringLiteral("/nonexistent/x.pgn")));
}

void TestPlatform::readerAcrossBlocks() {
    // A CR LF split between two blocks, and a line running over into the next block.
    const qint64 block = TextFileReader::kBlockSize;
    QByteArray bytes(block - 1, 'a');
    bytes += "\r\nb";
    bytes += QByteArray(block, 'c');
    bytes += "\rlast";
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("long.pgn"));
    QFile out(path);
    QVERIFY(out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size());
    out.close();
    // Read line by line, as the import reads, block by block.
    auto file = TextFileReader::open(path);
    QList<QByteArray> lines;
    while (!file->atEnd()) {
        const TextFileReader::Span line = file->lineSpan();
        lines << QByteArray(file->data() + line.begin, line.end - line.begin);
    }
    QCOMPARE(lines,
             (QList<QByteArray>{QByteArray(block - 1, 'a'), "b" + QByteArray(block, 'c'), "last"}));
    QCOMPARE(file->position(), bytes.size());
}

void TestPlatform::numbers_data() {
    // The conversion, its text, and what it gives: a number, or "error" / "none".
    QTest::addColumn<QString>("conversion");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    const char* rows[][3] = {
        {"leading", " 1 ", "1"},
        {"leading", "12abc", "12"},
        {"leading", "abc", "0"},
        {"leading", " -3", "-3"},
        {"leading", "2.75x", "2.75"},
        {"leading", ".5", "0.5"},
        {"leading", "1e2", "100"},
        {"leading", "2e", "2"},
        {"leading", "1 2", "1"},
        {"int32", "  255  ", "255"},
        {"int32", "-2", "-2"},
        {"int32", "2.5", "2"},
        {"int32", "3.5", "4"},
        {"int32", "2147483647", "2147483647"},
        {"int32", "2147483648", "error"},
        {"int32", "255x", "error"},
        {"int32", "", "error"},
        {"int32", "inf", "error"},
        {"decimal", " 12. ", "12"},
        {"decimal", "-2.5", "-2.5"},
        {"decimal", "nan", "none"},
        {"decimal", "inf", "none"},
        {"decimal", "1e2", "none"},
        {"decimal", "0x10", "none"},
        {"decimal", "12a", "none"},
        {"decimal", ".", "none"},
        {"int16", "32767.4", "32767"},
        {"int16", "32767.5", "error"},
        {"int16", "-32768", "-32768"},
        {"int16", "nan", "error"},
    };
    for (const auto& [conversion, text, result] : rows)
        QTest::addRow("%s \"%s\"", conversion, text)
            << QString::fromLatin1(conversion) << QString::fromLatin1(text)
            << QString::fromLatin1(result);
}

void TestPlatform::numbers() {
    QFETCH(QString, conversion);
    QFETCH(QString, text);
    QFETCH(QString, result);
    QString got;
    try {
        if (conversion == QLatin1String("leading")) {
            got = QString::number(leadingNumber(text));
        } else if (conversion == QLatin1String("int32")) {
            got = QString::number(toInt32(text));
        } else if (conversion == QLatin1String("int16")) {
            got = QString::number(roundToInt16(text.toDouble()));
        } else {
            const std::optional<double> value = decimalNumber(text);
            got = value ? QString::number(*value) : QStringLiteral("none");
        }
    } catch (const RuntimeError&) {
        got = QStringLiteral("error");
    }
    QCOMPARE(got, result);
}

// Every change of the selection raises Click once, after it, whoever makes it; and the user can
// move the selection but not take it away.
void TestPlatform::listSelection_data() {
    QTest::addColumn<int>("start"); // selected by program first; -1 none
    QTest::addColumn<QString>("input");
    QTest::addColumn<int>("index");
    QTest::addColumn<QList<int>>("clicks"); // ListIndex as each Click saw it
    QTest::newRow("click an entry") << -1 << "click 2" << 2 << QList<int>{2};
    QTest::newRow("click another entry") << 0 << "click 1" << 1 << QList<int>{1};
    QTest::newRow("click the selected entry") << 1 << "click 1" << 1 << QList<int>{};
    QTest::newRow("click below the entries") << 1 << "click -1" << 1 << QList<int>{};
    QTest::newRow("ctrl+click the selected entry") << 1 << "ctrl-click 1" << 1 << QList<int>{};
    QTest::newRow("ctrl+click another entry") << 1 << "ctrl-click 2" << 2 << QList<int>{2};
    QTest::newRow("ctrl+space") << 1 << "ctrl-space" << 1 << QList<int>{};
    QTest::newRow("down arrow") << 0 << "key down" << 1 << QList<int>{1};
    QTest::newRow("end key") << 0 << "key end" << 2 << QList<int>{2};
    QTest::newRow("program, the same entry again") << 1 << "program 1" << 1 << QList<int>{1};
    QTest::newRow("program, none") << 1 << "program -1" << -1 << QList<int>{-1};
}

void TestPlatform::listSelection() {
    QFETCH(int, start);
    QFETCH(QString, input);
    QFETCH(int, index);
    QFETCH(QList<int>, clicks);
    ListBox list;
    list.setItems({"a", "b", "c"});
    list.resize(200, 200);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    list.setListIndex(int16_t(start));
    QList<int> seen;
    connect(&list, &ListBox::Click, this, [&] { seen << list.ListIndex(); });
    const QStringList words = input.split(QLatin1Char(' '));
    const int row = words.value(1).toInt();
    if (words[0] == QLatin1String("click"))
        clickList(list, row);
    else if (words[0] == QLatin1String("ctrl-click"))
        clickList(list, row, Qt::ControlModifier);
    else if (words[0] == QLatin1String("ctrl-space"))
        QTest::keyClick(&list, Qt::Key_Space, Qt::ControlModifier);
    else if (words[0] == QLatin1String("key"))
        QTest::keyClick(&list, words[1] == QLatin1String("end") ? Qt::Key_End : Qt::Key_Down);
    else
        list.setListIndex(int16_t(row));
    QCOMPARE(seen, clicks);
    QCOMPARE(int(list.ListIndex()), index);
    // What the user sees selected is ListIndex.
    const QModelIndexList selected = list.selectionModel()->selectedIndexes();
    QCOMPARE(selected.isEmpty() ? -1 : selected.first().row(), index);
}

void TestPlatform::listDoubleClickAndToolTip() {
    ListBox list;
    list.setToolTip(QStringLiteral("Games loaded into database"));
    list.resize(200, 200);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QSignalSpy doubleClicks(&list, &ListBox::DblClick);
    doubleClickList(list, -1); // an empty list
    QCOMPARE(doubleClicks.count(), 1);
    list.setItems({"[Event \"A\"] ", "[Event \"B\"] "});
    doubleClickList(list, 1);
    doubleClickList(list, -1);
    QCOMPARE(doubleClicks.count(), 3);
    // Over an entry the list's own tip shows, not the entry's text.
    const QPoint at = entryPoint(list, 0);
    QHelpEvent help(QEvent::ToolTip, at, list.viewport()->mapToGlobal(at));
    QApplication::sendEvent(list.viewport(), &help);
    QTRY_COMPARE(QToolTip::text(), QStringLiteral("Games loaded into database"));
}

void TestPlatform::textBoxKeepsEveryCharacter() {
    TextBox box;
    const QString text = QStringLiteral("1. e4 {a\u00a0b\tc} e5\r\n2. Nf3\r\n12. a4 \u2028x");
    box.setText(text);
    QCOMPARE(box.Text(), text);
    // Positions count CR LF as two characters.
    const int at = int(text.indexOf(QStringLiteral("12.")));
    box.setSelStart(at);
    box.setSelLength(3);
    QCOMPARE(box.SelStart(), at);
    QCOMPARE(box.SelText(), QStringLiteral("12."));
    box.setSelStart(int(text.indexOf(QStringLiteral("e5"))));
    box.setSelLength(6);
    QCOMPARE(box.SelText(), QStringLiteral("e5\r\n2."));
    QCOMPARE(box.SelLength(), 6);
}

void TestPlatform::textBoxShowsLongTextsCutShort() {
    TextBox box;
    // One line too long to lay out, then a short one.
    const QString longLine(TextBox::kShownLineLength + 5000, u'w');
    const QString text = longLine + QStringLiteral("\r\n1. e4");
    box.setText(text);
    QCOMPARE(box.Text(), text);
    QCOMPARE(box.document()->firstBlock().text(),
             longLine.left(TextBox::kShownLineLength) + QChar(0x2026));
    // Read-only while cut, so that what it holds cannot be lost by typing.
    QVERIFY(box.isReadOnly());
    const int at = int(text.indexOf(QStringLiteral("1.")));
    box.select(at, 2);
    QCOMPARE(box.SelStart(), at);
    QCOMPARE(box.SelText(), QStringLiteral("1."));
    // Too many lines: the first ones, then a line of dots.
    QString many;
    for (int i = 0; i < TextBox::kShownLines + 10; ++i)
        many += QStringLiteral("%1.\r\n").arg(i);
    box.setText(many);
    QCOMPARE(box.Text(), many);
    QCOMPARE(box.document()->blockCount(), TextBox::kShownLines + 1);
    QCOMPARE(box.document()->lastBlock().text(), QString(QChar(0x2026)));
    // A text it shows whole makes it editable again, and what the user types is its text.
    box.setText(QStringLiteral("1. e4"));
    QVERIFY(!box.isReadOnly());
    box.moveCursor(QTextCursor::End);
    QTest::keyClicks(&box, QStringLiteral(" e5"));
    QCOMPARE(box.Text(), QStringLiteral("1. e4 e5"));
}

void TestPlatform::doubleClickSelectsTheBlankDelimitedWord() {
    TextBox box;
    box.resize(300, 100);
    box.setText(QStringLiteral("1.e4 e5 12.Nf3"));
    box.show();
    QSignalSpy clicks(&box, &TextBox::DblClick);
    QTextCursor c(box.document());
    c.setPosition(9); // inside "12.Nf3"
    QTest::mouseDClick(box.viewport(), Qt::LeftButton, {}, box.cursorRect(c).center());
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(box.SelText(), QStringLiteral("12.Nf3"));
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

void TestPlatform::saveDialogAddsTheFilterExtension_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("filter"); // 0 PGN, 1 text, 2 all files
    QTest::addColumn<QString>("saved");
    QTest::newRow("bare name, PGN") << "game" << 0 << "game.pgn";
    QTest::newRow("bare name, text") << "game" << 1 << "game.txt";
    QTest::newRow("bare name, all files") << "game" << 2 << "game";
    QTest::newRow("a name with its own extension") << "game.txt" << 0 << "game.txt";
}

void TestPlatform::saveDialogAddsTheFilterExtension() {
    QFETCH(QString, typed);
    QFETCH(int, filter);
    QFETCH(QString, saved);
    QTemporaryDir dir;
    // The user picks the filter, types the name and presses Save.
    QTimer::singleShot(0, this, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        const QStringList filters = dialog->nameFilters();
        dialog->selectNameFilter(filters.at(filter));
        emit dialog->filterSelected(filters.at(filter));
        dialog->selectFile(dir.filePath(typed));
        QMetaObject::invokeMethod(dialog, "accept");
    });
    QtPlatform platform;
    const QString path =
        platform.showSave(QStringLiteral("PGN files (*.pgn) | *.pgn|Text files (*.txt) | "
                                         "*.txt|All files (*.*) | *.*"),
                          QString());
    QCOMPARE(path, dir.filePath(saved));
}

void TestPlatform::sharedData_data() {
    QTest::addColumn<QStringList>("made"); // below a temporary prefix, the program in bin/
    QTest::addColumn<QString>("found");
    QTest::newRow("build tree") << QStringList{"bin/samples", "share/tolvisk"} << "bin";
    QTest::newRow("installed") << QStringList{"bin", "share/tolvisk"} << "share/tolvisk";
    QTest::newRow("neither") << QStringList{"bin"} << "bin";
}

void TestPlatform::sharedData() {
    QFETCH(QStringList, made);
    QFETCH(QString, found);
    QTemporaryDir prefix;
    for (const QString& dir : made)
        QVERIFY(QDir(prefix.path()).mkpath(dir));
    QCOMPARE(findSharedDataDir(prefix.filePath(QStringLiteral("bin")),
                               QStringLiteral("../share/tolvisk")),
             prefix.filePath(found));
}

QTEST_MAIN(TestPlatform)
#include "tst_platform.moc"
