// The start-up file "tolvisk.txt": six settings, one a line, read at start and written at a
// normal end.

#include "viewer/StartupFile.h"

#include "platform/Errors.h"
#include "platform/Platform.h"
#include "store/Module1.h"
#include "viewer/Application.h"
#include "viewer/frmMain.h"

#include <QDir>

#include <cmath>
#include <limits>

namespace tolvisk {

namespace {

QString startupFilePath(Platform& platform) {
    return QDir(platform.dataDir()).filePath(QStringLiteral("tolvisk.txt"));
}

double roundHalfEven(double value) {
    return std::nearbyint(value); // the default rounding mode is to nearest, ties to even
}

RuntimeError typeMismatch() {
    return RuntimeError(QStringLiteral("Type mismatch"), 13);
}

bool isValidMode(const QString& mode) {
    return mode == QLatin1String("PS") || mode == QLatin1String("PR") ||
           mode == QLatin1String("PNP") || mode == QLatin1String("PPP");
}

bool isValidStyle(const QString& style) {
    return style == QLatin1String("L") || style == QLatin1String("P") ||
           style == QLatin1String("A");
}

bool isValidPromotion(const QString& piece) {
    return piece == QLatin1String("Q") || piece == QLatin1String("R") ||
           piece == QLatin1String("B") || piece == QLatin1String("K");
}

// The length of the decimal number `s` starts with: sign, digits, point, digits, and an
// exponent when digits follow it ("2e" is 2); 0 when it starts with none.
qsizetype numberLength(QStringView s) {
    qsizetype end = 0;
    auto digits = [&] {
        const qsizetype from = end;
        while (end < s.size() && s[end] >= u'0' && s[end] <= u'9')
            ++end;
        return end - from;
    };
    if (end < s.size() && (s[end] == u'+' || s[end] == u'-'))
        ++end;
    qsizetype mantissa = digits();
    if (end < s.size() && s[end] == u'.') {
        ++end;
        mantissa += digits();
    }
    if (mantissa == 0)
        return 0;
    const qsizetype beforeExponent = end;
    if (end < s.size() && (s[end] == u'e' || s[end] == u'E')) {
        ++end;
        if (end < s.size() && (s[end] == u'+' || s[end] == u'-'))
            ++end;
        if (digits() == 0)
            end = beforeExponent;
    }
    return end;
}

// Red, green and blue, nothing above: the board has no use for system colours.
bool isColour(int32_t value) {
    return value >= 0 && value <= 0xFFFFFF;
}

} // namespace

double leadingNumber(const QString& text) {
    const QString s = text.trimmed();
    const qsizetype length = numberLength(s);
    // A number too large for a double comes back infinite, which no range holds.
    return length == 0 ? 0 : s.left(length).toDouble();
}

int16_t roundToInt16(double value) {
    const double rounded = roundHalfEven(value);
    if (!std::isfinite(rounded) || rounded < std::numeric_limits<int16_t>::min() ||
        rounded > std::numeric_limits<int16_t>::max())
        throw RuntimeError(QStringLiteral("Overflow"), 6);
    return int16_t(rounded);
}

int32_t toInt32(const QString& text) {
    const QString s = text.trimmed();
    if (s.isEmpty() || numberLength(s) != s.size())
        throw typeMismatch();
    const double rounded = roundHalfEven(s.toDouble());
    if (!std::isfinite(rounded) || rounded < std::numeric_limits<int32_t>::min() ||
        rounded > std::numeric_limits<int32_t>::max())
        throw RuntimeError(QStringLiteral("Overflow"), 6);
    return int32_t(rounded);
}

QString numberLine(int value) {
    return (value >= 0 ? QStringLiteral(" ") : QString()) + QString::number(value) +
           QStringLiteral(" ");
}

} // namespace tolvisk

using namespace tolvisk;

void frmMain::WriteStartupFile() {
    try {
        auto file = platform_.openOutput(startupFilePath(platform_), TextEncoding::Utf8);
        file->print(Tavlon1->PromotionPiece());
        file->print(m_.APMode);
        file->print(numberLine(m_.APSpeed));
        file->print(m_.MoveListStyle);
        file->print(QString::number(Tavlon1->LightSquareColor()));
        file->print(QString::number(Tavlon1->DarkSquareColor()));
        file->close();
    } catch (const std::exception&) {
        // A start-up file that cannot be written costs the settings, never the end of the run.
    }
}

void frmMain::ReadStartupFile() {
    try {
        QString line1, line3, line5, line6;
        {
            auto file = platform_.openInput(startupFilePath(platform_));
            line1 = file->lineInput();
            // Settings only a hand-edited file can spoil keep their default instead.
            const QString mode = file->lineInput();
            if (isValidMode(mode))
                m_.APMode = mode;
            line3 = file->lineInput();
            const QString style = file->lineInput();
            if (isValidStyle(style))
                m_.MoveListStyle = style;
            line5 = file->lineInput();
            line6 = file->lineInput();
        }
        if (isValidPromotion(line1))
            Tavlon1->setPromotionPiece(line1);
        const int32_t light = toInt32(line5);
        if (isColour(light))
            Tavlon1->setLightSquareColor(light);
        const int32_t dark = toInt32(line6);
        if (isColour(dark))
            Tavlon1->setDarkSquareColor(dark);
        const int16_t speed = roundToInt16(leadingNumber(line3));
        if (speed >= 1 && speed <= 90)
            m_.APSpeed = speed;
    } catch (const std::exception&) {
        // What was applied so far stands; the rest keeps its default.
    }
}
