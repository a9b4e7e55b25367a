// The start-up file: what a run takes from it, what survives a damaged file, and the exact bytes
// a normal end writes.

#include "support/AppFixture.h"

#include <QTest>

using namespace tolvisk;

namespace {

// The six settings as the program holds them, in the file's order.
QString settingsOf(Application& app) {
    const Tavlon& board = *app.main().Tavlon1;
    const Module1& m = app.module();
    return QStringLiteral("%1|%2|%3|%4|%5|%6")
        .arg(board.PromotionPiece(), m.APMode)
        .arg(m.APSpeed)
        .arg(m.MoveListStyle)
        .arg(board.LightSquareColor())
        .arg(board.DarkSquareColor());
}

const QString kDefaults = QStringLiteral("Q|PNP|1|L|16777215|12632256");

} // namespace

class TestStartupFile : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { quietHeadlessNotes(); }
    void reading_data();
    void reading();
    void writing_data();
    void writing();
};

void TestStartupFile::reading_data() {
    QTest::addColumn<QByteArray>("file"); // "<none>": no file at all; "<unreadable>"
    QTest::addColumn<QString>("expected");
    const QByteArray all = "R\r\nPPP\r\n 12 \r\nA\r\n255\r\n65280\r\n";
    auto row = [](const char* name, const QByteArray& file, const QString& expected) {
        QTest::newRow(name) << file << expected;
    };
    row("no file", "<none>", kDefaults);
    row("unreadable file", "<unreadable>", kDefaults);
    row("empty file", "", kDefaults);
    row("one line", "R\r\n", kDefaults);
    row("three lines", "R\r\nPPP\r\n 12 \r\n", "Q|PPP|1|L|16777215|12632256");
    row("five lines", "R\r\nPPP\r\n 12 \r\nA\r\n255\r\n", "Q|PPP|1|A|16777215|12632256");
    row("line 5 not a number", "R\r\nPPP\r\n 12 \r\nA\r\nwhite\r\n65280\r\n",
        "R|PPP|1|A|16777215|12632256");
    row("line 6 not a number", "R\r\nPPP\r\n 12 \r\nA\r\n255\r\n12 34\r\n",
        "R|PPP|1|A|255|12632256");
    row("line 3 beyond 16 bits", "R\r\nPPP\r\n 32768 \r\nA\r\n255\r\n65280\r\n",
        "R|PPP|1|A|255|65280");
    row("all six", all, "R|PPP|12|A|255|65280");
    row("more than six lines, LF ends, no end last", "R\nPPP\n 12 \nA\n255\n65280\nmore\nx",
        "R|PPP|12|A|255|65280");
    row("blanks around the colours, rounding half to even",
        "R\r\nPPP\r\n12\r\nA\r\n  254.5 \r\n\t65280.5\r\n", "R|PPP|12|A|254|65280");
    row("colour beyond 32 bits", "R\r\nPPP\r\n 12 \r\nA\r\n4294967296\r\n65280\r\n",
        "R|PPP|1|A|16777215|12632256");
    // Values only a hand-edited file can bring keep their defaults, and the rest is read.
    row("colours outside red, green and blue", "R\r\nPPP\r\n 12 \r\nA\r\n-1\r\n16777216\r\n",
        "R|PPP|12|A|16777215|12632256");
    row("unknown mode, style and piece", "N\r\nPNX\r\n 12 \r\nl\r\n255\r\n65280\r\n",
        "Q|PNP|12|L|255|65280");
    row("empty style", "K\r\nPS\r\n 3 \r\n\r\n255\r\n65280\r\n", "K|PS|3|L|255|65280");
    row("speed 0", "B\r\nPR\r\n 0 \r\nP\r\n255\r\n65280\r\n", "B|PR|1|P|255|65280");
    row("speed 91", "B\r\nPR\r\n 91 \r\nP\r\n255\r\n65280\r\n", "B|PR|1|P|255|65280");
    row("speed 90", "B\r\nPR\r\n 90 \r\nP\r\n255\r\n65280\r\n", "B|PR|90|P|255|65280");
    row("speed with letters", "B\r\nPR\r\n  45 seconds\r\nP\r\n255\r\n65280\r\n",
        "B|PR|45|P|255|65280");
    row("speed without a number", "B\r\nPR\r\nfast\r\nP\r\n255\r\n65280\r\n", "B|PR|1|P|255|65280");
    row("speed 2.5 rounds to 2", "B\r\nPR\r\n2.5\r\nP\r\n255\r\n65280\r\n", "B|PR|2|P|255|65280");
    row("speed 3.5 rounds to 4", "B\r\nPR\r\n3.5\r\nP\r\n255\r\n65280\r\n", "B|PR|4|P|255|65280");
}

void TestStartupFile::reading() {
    QFETCH(QByteArray, file);
    QFETCH(QString, expected);
    AppFixture f; // a run without the file
    if (file != "<none>") {
        const QString path =
            f.writeFile(QStringLiteral("tolvisk.txt"),
                        file == "<unreadable>" ? QByteArray("R\r\nPPP\r\n") : file);
        if (file == "<unreadable>")
            f.platform.unreadable.insert(path);
    }
    auto app = makeApplication(f.platform);
    // The start sets its defaults before it reads, whatever the module held.
    app->module().APSpeed = 42;
    app->module().APMode = QStringLiteral("X");
    app->module().MoveListStyle = QStringLiteral("Y");
    app->loadMain();
    QCOMPARE(settingsOf(*app), expected);
    QVERIFY(f.platform.boxes().empty());
}

void TestStartupFile::writing_data() {
    QTest::addColumn<QString>("settings"); // set before the end of the run
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("first run, defaults")
        << kDefaults << QByteArray("Q\r\nPNP\r\n 1 \r\nL\r\n16777215\r\n12632256\r\n");
    QTest::newRow("knight, repeat, paragraph")
        << "K|PR|12|P|65280|128" << QByteArray("K\r\nPR\r\n 12 \r\nP\r\n65280\r\n128\r\n");
    QTest::newRow("rook, stop, annotated, slowest")
        << "R|PS|90|A|0|16777215" << QByteArray("R\r\nPS\r\n 90 \r\nA\r\n0\r\n16777215\r\n");
    QTest::newRow("an unwritable file ends the run quietly") << "<unwritable>" << QByteArray("old");
}

void TestStartupFile::writing() {
    QFETCH(QString, settings);
    QFETCH(QByteArray, bytes);
    AppFixture f;
    const QString path = f.platform.path(QStringLiteral("tolvisk.txt"));
    if (settings == QLatin1String("<unwritable>")) {
        f.writeFile(QStringLiteral("tolvisk.txt"), "old");
        f.platform.unwritable.insert(path);
    } else {
        const QStringList s = settings.split(u'|');
        Tavlon& board = *f.main().Tavlon1;
        board.setPromotionPiece(s[0]);
        f.m().APMode = s[1];
        f.m().APSpeed = int16_t(s[2].toInt());
        f.m().MoveListStyle = s[3];
        board.setLightSquareColor(s[4].toInt());
        board.setDarkSquareColor(s[5].toInt());
    }
    QVERIFY(f.main().close());
    QCOMPARE(AppFixture::readFile(path), bytes);
    QVERIFY(f.platform.boxes().empty());
    if (bytes != "old") {
        // The next run starts with them.
        auto next = makeApplication(f.platform);
        next->loadMain();
        QCOMPARE(settingsOf(*next), settings);
    }
}

QTEST_MAIN(TestStartupFile)
#include "tst_startupfile.moc"
