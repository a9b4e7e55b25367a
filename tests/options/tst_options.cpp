// The options window: Apply, OK, Cancel, Defaults and the close box on both boards and the
// shared settings, the live speed box, and the colour dialog.

#include "options/ColorSwatch.h"
#include "options/frmOptions.h"
#include "support/AppFixture.h"

#include <QTest>

using namespace tolvisk;

namespace {

struct OptionsFixture : AppFixture {
    OptionsFixture() {
        openText(crlf("[Event \"One\"]\n\n1. e4 e5 2. Nf3 *\n"));
        main().mnuFileLoad_Click();
        platform.clear();
    }
    Tavlon& variation() { return *app->boardOf(QStringLiteral("frmVariation")); }
    frmOptions* show() {
        main().mnuOptionsOptions->trigger();
        return qobject_cast<frmOptions*>(app->findForm(QStringLiteral("frmOptions")));
    }
    // "piece light dark" of each board, "mode speed style" of the module, and the style the
    // move list shows: main | variation | module | shown.
    QString state() {
        auto board = [](const Tavlon& b) {
            return QStringLiteral("%1 %2 %3")
                .arg(b.PromotionPiece())
                .arg(b.LightSquareColor())
                .arg(b.DarkSquareColor());
        };
        const QString list = main().txtMoveList->Text();
        const QString shown = list.startsWith(QLatin1String("1.e4"))    ? QStringLiteral("P")
                              : list.startsWith(QLatin1String("1. e4")) ? QStringLiteral("L")
                                                                        : list;
        return QStringLiteral("%1 | %2 | %3 %4 %5 | %6")
            .arg(board(*main().Tavlon1), board(variation()), m().APMode)
            .arg(m().APSpeed)
            .arg(m().MoveListStyle, shown);
    }
    // Sets both boards and the module from "main | variation | module", as a run could have
    // them; the move list is not rebuilt.
    void setState(const QString& start) {
        const QStringList parts = start.split(QStringLiteral(" | "));
        auto board = [](Tavlon& b, const QString& part) {
            const QStringList v = part.split(u' ');
            b.setPromotionPiece(v[0]);
            b.setLightSquareColor(v[1].toInt());
            b.setDarkSquareColor(v[2].toInt());
        };
        board(*main().Tavlon1, parts[0]);
        board(variation(), parts[1]);
        const QStringList v = parts[2].split(u' ');
        m().APMode = v[0];
        m().APSpeed = int16_t(v[1].toInt());
        m().MoveListStyle = v[2];
    }
};

// Types into the speed box as a user does, after selecting what it holds.
void typeSpeed(frmOptions& w, const QString& keys) {
    QTest::keyClick(w.txtAPSpeed, Qt::Key_A, Qt::ControlModifier);
    for (const QChar key : keys) {
        if (key == u'<')
            QTest::keyClick(w.txtAPSpeed, Qt::Key_Backspace);
        else
            QTest::keyClicks(w.txtAPSpeed, QString(key));
    }
}

const QString kDefaults = QStringLiteral("Q 16777215 12632256 | Q 16777215 12632256 | PNP 1 L");
const QString kChanged = QStringLiteral("R 255 65280 | R 255 65280 | PPP 12 P");
// The choices a user makes before a button: Rook, Para, Play - Prev - Play, two colours, 12 s.
const QString kChoices = QStringLiteral("optR optP optPPP light=255 dark=65280 speed=12");

} // namespace

class TestOptions : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() { quietHeadlessNotes(); }
    void sequences_data();
    void sequences();
    void speedBox_data();
    void speedBox();
    void colourDialog();
};

void TestOptions::sequences_data() {
    QTest::addColumn<QString>("start"); // main | variation | module
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("expected"); // main | variation | module | shown style
    QTest::addColumn<bool>("open");        // the window is still loaded
    const QString choices = kChoices + u' ';
    QTest::newRow("Apply") << kDefaults << choices + "cmdApply" << kChanged + " | P" << true;
    QTest::newRow("OK") << kDefaults << choices + "cmdOK" << kChanged + " | P" << false;
    QTest::newRow("Apply, Cancel: all back but the move list")
        << kDefaults << choices + "cmdApply cmdCancel" << kDefaults + " | P" << false;
    QTest::newRow("Cancel") << kDefaults << choices + "cmdCancel" << kDefaults + " | L" << false;
    QTest::newRow("close box: only the speed stays")
        << kDefaults << choices + "close"
        << "Q 16777215 12632256 | Q 16777215 12632256 | PNP 12 L | L" << false;
    QTest::newRow("Defaults: the speed at once")
        << kChanged << "cmdDefaults"
        << "R 255 65280 | R 255 65280 | PPP 1 P | L" << true;
    QTest::newRow("Defaults, Cancel")
        << kChanged << "cmdDefaults cmdCancel" << kChanged + " | L" << false;
    QTest::newRow("Defaults, close box") << kChanged << "cmdDefaults close"
                                         << "R 255 65280 | R 255 65280 | PPP 1 P | L" << false;
    QTest::newRow("Defaults, OK") << kChanged << "cmdDefaults cmdOK" << kDefaults + " | L" << false;
    QTest::newRow("unchanged Apply writes both boards and rebuilds the list")
        << "B 255 65280 | Q 0 0 | PS 5 P"
        << "cmdApply"
        << "B 255 65280 | B 255 65280 | PS 5 P | P" << true;
    // Values only a hand-edited start-up file brings turn on no option: Cancel keeps them, and
    // Apply takes the options on from the start.
    QTest::newRow("hand-edited values, Cancel")
        << "N 255 65280 | N 255 65280 | XX 3 Z"
        << "cmdCancel"
        << "N 255 65280 | N 255 65280 | XX 3 Z | L" << false;
    QTest::newRow("hand-edited values, Apply") << "N 255 65280 | N 255 65280 | XX 3 Z"
                                               << "cmdApply"
                                               << "Q 255 65280 | Q 255 65280 | PNP 3 L | L" << true;
}

void TestOptions::sequences() {
    QFETCH(QString, start);
    QFETCH(QString, steps);
    QFETCH(QString, expected);
    QFETCH(bool, open);
    OptionsFixture f;
    f.setState(start);
    QPointer<frmOptions> w = f.show();
    QVERIFY(w && w->isVisible());
    for (const QString& step : steps.split(u' ')) {
        const QString name = step.section(u'=', 0, 0);
        const QString value = step.section(u'=', 1);
        if (name == QLatin1String("close")) {
            QVERIFY(w->close());
        } else if (name == QLatin1String("speed")) {
            typeSpeed(*w, value);
        } else if (name == QLatin1String("light") || name == QLatin1String("dark")) {
            f.platform.queueColor(value.toUInt());
            QTest::mouseClick(name == QLatin1String("light") ? w->picLSC : w->picDSC,
                              Qt::LeftButton);
        } else {
            auto* button = w->findChild<QAbstractButton*>(name);
            QVERIFY2(button, qPrintable(name));
            QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(6, button->height() / 2));
        }
    }
    QCOMPARE(f.state(), expected);
    QCOMPARE(f.app->findForm(QStringLiteral("frmOptions")) != nullptr, open);
    QVERIFY(f.platform.boxes().empty());
}

void TestOptions::speedBox_data() {
    QTest::addColumn<QString>("typed"); // "<" is Backspace
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("speed");
    QTest::addColumn<int>("boxes");
    QTest::newRow("90") << "90"
                        << "90" << 90 << 0;
    QTest::newRow("91") << "91"
                        << "1" << 1 << 1;
    QTest::newRow("0") << "0"
                       << "1" << 1 << 1;
    QTest::newRow("7.5 rounds to 8, written back") << "7.5"
                                                   << "8" << 8 << 0;
    QTest::newRow("6.5 rounds to 6, the bar stays") << "6.5"
                                                    << "6.5" << 6 << 0;
    QTest::newRow("the last digit deleted") << "<"
                                            << "1" << 1 << 1;
    // Every key is checked: the sign alone is refused, and 5 then follows the 1 put back.
    QTest::newRow("-5") << "-5"
                        << "15" << 15 << 1;
    QTest::newRow("letters") << "4x"
                             << "1" << 1 << 1;
}

void TestOptions::speedBox() {
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(int, speed);
    QFETCH(int, boxes);
    OptionsFixture f;
    frmOptions* w = f.show();
    typeSpeed(*w, typed);
    QCOMPARE(w->txtAPSpeed->text(), shown);
    QCOMPARE(int(f.m().APSpeed), speed);
    QCOMPARE(w->vsAPSpeed->value(), speed);
    const QString box = QStringLiteral("Incorrect Entry: AutoPlay speed must be a number between 1 "
                                       "and 90.\r\n\r\nPlease enter another value and try again.");
    QCOMPARE(boxesShown(f.platform), QStringList(qsizetype(boxes), box));
    for (const PlatformCall& call : f.platform.boxes())
        QVERIFY(call.icon == MsgIcon::Information && call.buttons == MsgButtons::OK);
    // The bar moves the box and the speed: one large step down.
    QTest::keyClick(w->vsAPSpeed, Qt::Key_PageDown);
    QCOMPARE(w->txtAPSpeed->text(), QString::number(std::min(speed + 5, 90)));
    QCOMPARE(int(f.m().APSpeed), std::min(speed + 5, 90));
}

void TestOptions::colourDialog() {
    OptionsFixture f;
    frmOptions* w = f.show();
    f.platform.queueColor(255);
    QTest::mouseClick(w->picLSC, Qt::LeftButton);
    QCOMPARE(w->picLSC->BackColor(), 255);
    // Again: the dialog starts from the board's colour, not the one just chosen.
    f.platform.queueColor(65280);
    QTest::mouseClick(w->picLSC, Qt::LeftButton);
    QCOMPARE(w->picLSC->BackColor(), 65280);
    // Cancelled: the swatch keeps its colour, quietly.
    f.platform.queueColorCancel();
    QTest::mouseClick(w->picDSC, Qt::LeftButton);
    QCOMPARE(w->picDSC->BackColor(), 12632256);
    QStringList presets;
    for (const PlatformCall& call : f.platform.ofKind(QStringLiteral("showColor")))
        presets << call.text;
    QCOMPARE(presets, (QStringList{"16777215", "16777215", "12632256"}));
    QVERIFY(f.platform.boxes().empty());
    QCOMPARE(f.state(), kDefaults + " | L");
}

QTEST_MAIN(TestOptions)
#include "tst_options.moc"
