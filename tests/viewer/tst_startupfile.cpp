// The start-up file: what a run reads from it, what survives a damaged file, and the exact bytes
// a normal end writes.

#include "support/AppFixture.h"

#include <QFile>
#include <QTest>

using namespace tolvisk;

namespace {

const QByteArray kDefaultFile = "Q\r\nPNP\r\n 1 \r\nL\r\n16777215\r\n12632256\r\n";

// The six settings as the program holds them, in the file's order.
struct Settings {
    QString promotion = QStringLiteral("Q");
    QString mode = QStringLiteral("PNP");
    int speed = 1;
    QString style = QStringLiteral("L");
    int light = 16777215;
    int dark = 12632256;
    bool operator==(const Settings&) const = default;
};

Settings settingsOf(Application& app) {
    frmMain& w = app.main();
    const Module1& m = app.module();
    return {w.Tavlon1->PromotionPiece(),
            m.APMode,
            m.APSpeed,
            m.MoveListStyle,
            w.Tavlon1->LightSquareColor(),
            w.Tavlon1->DarkSquareColor()};
}

QString describe(const Settings& s) {
    return QStringLiteral("%1|%2|%3|%4|%5|%6")
        .arg(s.promotion, s.mode)
        .arg(s.speed)
        .arg(s.style)
        .arg(s.light)
        .arg(s.dark);
}

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

QByteArray readBytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
}

} // namespace

class TestStartupFile : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void reading_data();
    void reading();
    void unreadableFileKeepsDefaults();
    void firstRunWritesTheDefaultFile();
    void settingsSurviveARun_data();
    void settingsSurviveARun();
    void unwritableFileEndsTheRunQuietly();
};

void TestStartupFile::initTestCase() {
    static const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& message) {
            if (!message.startsWith(QLatin1String("This plugin does not support")))
                previous(type, context, message);
        });
}

void TestStartupFile::reading_data() {
    QTest::addColumn<QByteArray>("file"); // "<none>": no file at all
    QTest::addColumn<QString>("expected");
    const Settings d;
    auto with = [&](auto change) {
        Settings s = d;
        change(s);
        return describe(s);
    };
    const QString all = "R|PPP|12|A|255|65280";
    QTest::newRow("no file") << QByteArray("<none>") << describe(d);
    QTest::newRow("empty file") << QByteArray() << describe(d);
    QTest::newRow("one line") << QByteArray("R\r\n") << describe(d);
    QTest::newRow("two lines") << QByteArray("R\r\nPPP\r\n")
                               << with([](Settings& s) { s.mode = "PPP"; });
    QTest::newRow("three lines") << QByteArray("R\r\nPPP\r\n 12 \r\n")
                                 << with([](Settings& s) { s.mode = "PPP"; });
    QTest::newRow("four lines") << QByteArray("R\r\nPPP\r\n 12 \r\nA\r\n") << with([](Settings& s) {
        s.mode = "PPP";
        s.style = "A";
    });
    QTest::newRow("five lines") << QByteArray("R\r\nPPP\r\n 12 \r\nA\r\n255\r\n")
                                << with([](Settings& s) {
                                       s.mode = "PPP";
                                       s.style = "A";
                                   });
    QTest::newRow("line 5 not a number")
        << QByteArray("R\r\nPPP\r\n 12 \r\nA\r\nwhite\r\n65280\r\n") << with([](Settings& s) {
               s.mode = "PPP";
               s.style = "A";
               s.promotion = "R";
           });
    QTest::newRow("line 6 not a number")
        << QByteArray("R\r\nPPP\r\n 12 \r\nA\r\n255\r\n12 34\r\n") << with([](Settings& s) {
               s.mode = "PPP";
               s.style = "A";
               s.promotion = "R";
               s.light = 255;
           });
    QTest::newRow("line 3 beyond 16 bits")
        << QByteArray("R\r\nPPP\r\n 32768 \r\nA\r\n255\r\n65280\r\n") << with([](Settings& s) {
               s.mode = "PPP";
               s.style = "A";
               s.promotion = "R";
               s.light = 255;
               s.dark = 65280;
           });
    QTest::newRow("all six") << QByteArray("R\r\nPPP\r\n 12 \r\nA\r\n255\r\n65280\r\n") << all;
    QTest::newRow("more than six lines")
        << QByteArray("R\r\nPPP\r\n 12 \r\nA\r\n255\r\n65280\r\nrubbish\r\nmore\r\n") << all;
    QTest::newRow("no end on the last line")
        << QByteArray("R\r\nPPP\r\n 12 \r\nA\r\n255\r\n65280") << all;
    QTest::newRow("LF line ends") << QByteArray("R\nPPP\n 12 \nA\n255\n65280\n") << all;
    QTest::newRow("blanks around the colours")
        << QByteArray("R\r\nPPP\r\n12\r\nA\r\n  255 \r\n\t65280\r\n") << all;
    QTest::newRow("colours round half to even")
        << QByteArray("R\r\nPPP\r\n 12 \r\nA\r\n254.5\r\n65280.5\r\n") << "R|PPP|12|A|254|65280";
    QTest::newRow("colour beyond 32 bits")
        << QByteArray("R\r\nPPP\r\n 12 \r\nA\r\n4294967296\r\n65280\r\n") << with([](Settings& s) {
               s.mode = "PPP";
               s.style = "A";
               s.promotion = "R";
           });
    // Values only a hand-edited file can bring keep their defaults, and the rest is read.
    QTest::newRow("colour outside red, green and blue")
        << QByteArray("R\r\nPPP\r\n 12 \r\nA\r\n-1\r\n16777216\r\n")
        << "R|PPP|12|A|16777215|12632256";
    QTest::newRow("unknown mode, style and piece")
        << QByteArray("N\r\nPNX\r\n 12 \r\nl\r\n255\r\n65280\r\n") << "Q|PNP|12|L|255|65280";
    QTest::newRow("empty style") << QByteArray("K\r\nPS\r\n 3 \r\n\r\n255\r\n65280\r\n")
                                 << "K|PS|3|L|255|65280";
    QTest::newRow("speed 0") << QByteArray("B\r\nPR\r\n 0 \r\nP\r\n255\r\n65280\r\n")
                             << "B|PR|1|P|255|65280";
    QTest::newRow("speed 91") << QByteArray("B\r\nPR\r\n 91 \r\nP\r\n255\r\n65280\r\n")
                              << "B|PR|1|P|255|65280";
    QTest::newRow("speed 90") << QByteArray("B\r\nPR\r\n 90 \r\nP\r\n255\r\n65280\r\n")
                              << "B|PR|90|P|255|65280";
    QTest::newRow("speed with letters")
        << QByteArray("B\r\nPR\r\n  45 seconds\r\nP\r\n255\r\n65280\r\n") << "B|PR|45|P|255|65280";
    QTest::newRow("speed without a number")
        << QByteArray("B\r\nPR\r\nfast\r\nP\r\n255\r\n65280\r\n") << "B|PR|1|P|255|65280";
    QTest::newRow("speed 2.5 rounds to 2")
        << QByteArray("B\r\nPR\r\n2.5\r\nP\r\n255\r\n65280\r\n") << "B|PR|2|P|255|65280";
    QTest::newRow("speed 3.5 rounds to 4")
        << QByteArray("B\r\nPR\r\n3.5\r\nP\r\n255\r\n65280\r\n") << "B|PR|4|P|255|65280";
}

void TestStartupFile::reading() {
    QFETCH(QByteArray, file);
    QFETCH(QString, expected);
    ScriptedPlatform platform;
    if (file != "<none>")
        writeBytes(platform.path(QStringLiteral("tolvisk.txt")), file);
    auto owner = makeApplication(platform);
    Application& app = *owner;
    // The start sets its defaults before it reads, whatever the module held.
    app.module().APSpeed = 42;
    app.module().APMode = QStringLiteral("X");
    app.module().MoveListStyle = QStringLiteral("Y");
    app.loadMain();
    QCOMPARE(describe(settingsOf(app)), expected);
    QVERIFY(platform.boxes().empty());
}

void TestStartupFile::unreadableFileKeepsDefaults() {
    ScriptedPlatform platform;
    const QString path = platform.path(QStringLiteral("tolvisk.txt"));
    writeBytes(path, "R\r\nPPP\r\n 12 \r\nA\r\n255\r\n65280\r\n");
    platform.unreadable.insert(path);
    auto owner = makeApplication(platform);
    Application& app = *owner;
    app.loadMain();
    QCOMPARE(describe(settingsOf(app)), describe(Settings{}));
    QVERIFY(platform.boxes().empty());
}

void TestStartupFile::firstRunWritesTheDefaultFile() {
    ScriptedPlatform platform;
    const QString path = platform.path(QStringLiteral("tolvisk.txt"));
    auto owner = makeApplication(platform);
    Application& app = *owner;
    frmMain& w = app.loadMain();
    QVERIFY(!QFile::exists(path));
    QVERIFY(w.close());
    QCOMPARE(readBytes(path), kDefaultFile);
}

void TestStartupFile::settingsSurviveARun_data() {
    QTest::addColumn<QString>("promotion");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("speed");
    QTest::addColumn<QString>("style");
    QTest::addColumn<int>("light");
    QTest::addColumn<int>("dark");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("knight, repeat, paragraph")
        << "K"
        << "PR" << 12 << "P" << 0x00FF00 << 0x000080
        << QByteArray("K\r\nPR\r\n 12 \r\nP\r\n65280\r\n128\r\n");
    QTest::newRow("rook, stop, annotated, slowest")
        << "R"
        << "PS" << 90 << "A" << 0 << 16777215
        << QByteArray("R\r\nPS\r\n 90 \r\nA\r\n0\r\n16777215\r\n");
    QTest::newRow("bishop, previous")
        << "B"
        << "PPP" << 5 << "L" << 1 << 2 << QByteArray("B\r\nPPP\r\n 5 \r\nL\r\n1\r\n2\r\n");
}

void TestStartupFile::settingsSurviveARun() {
    QFETCH(QString, promotion);
    QFETCH(QString, mode);
    QFETCH(int, speed);
    QFETCH(QString, style);
    QFETCH(int, light);
    QFETCH(int, dark);
    QFETCH(QByteArray, bytes);
    ScriptedPlatform platform;
    const QString path = platform.path(QStringLiteral("tolvisk.txt"));
    {
        auto owner = makeApplication(platform);
        Application& app = *owner;
        frmMain& w = app.loadMain();
        w.Tavlon1->setPromotionPiece(promotion);
        w.Tavlon1->setLightSquareColor(light);
        w.Tavlon1->setDarkSquareColor(dark);
        app.module().APMode = mode;
        app.module().APSpeed = int16_t(speed);
        app.module().MoveListStyle = style;
        QVERIFY(w.close());
    }
    QCOMPARE(readBytes(path), bytes);
    auto next = makeApplication(platform);
    next->loadMain();
    const Settings expected{promotion, mode, speed, style, light, dark};
    QCOMPARE(describe(settingsOf(*next)), describe(expected));
}

void TestStartupFile::unwritableFileEndsTheRunQuietly() {
    ScriptedPlatform platform;
    const QString path = platform.path(QStringLiteral("tolvisk.txt"));
    writeBytes(path, "old");
    platform.unwritable.insert(path);
    auto owner = makeApplication(platform);
    Application& app = *owner;
    frmMain& w = app.loadMain();
    QVERIFY(w.close());
    QVERIFY(platform.boxes().empty());
    QCOMPARE(app.module().MainLoaded, int16_t(0));
    QCOMPARE(readBytes(path), QByteArray("old"));
}

QTEST_MAIN(TestStartupFile)
#include "tst_startupfile.moc"
