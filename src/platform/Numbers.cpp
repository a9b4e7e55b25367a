#include "platform/Numbers.h"

#include "platform/Errors.h"

#include <cmath>
#include <limits>

namespace tolvisk {

namespace {

// The length of the decimal number `s` starts with: sign, digits, point, digits, and with
// `exponent` an exponent when digits follow it ("2e" is 2); 0 when it starts with none.
qsizetype numberLength(QStringView s, bool exponent) {
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
    if (exponent && end < s.size() && (s[end] == u'e' || s[end] == u'E')) {
        ++end;
        if (end < s.size() && (s[end] == u'+' || s[end] == u'-'))
            ++end;
        if (digits() == 0)
            end = beforeExponent;
    }
    return end;
}

double roundHalfEven(double value) {
    return std::nearbyint(value); // the default rounding mode is to nearest, ties to even
}

template <class Int> Int roundChecked(double value) {
    const double rounded = roundHalfEven(value);
    if (!std::isfinite(rounded) || rounded < std::numeric_limits<Int>::min() ||
        rounded > std::numeric_limits<Int>::max())
        throw overflowError();
    return Int(rounded);
}

} // namespace

int16_t toInt16(long long value) {
    if (value < std::numeric_limits<int16_t>::min() || value > std::numeric_limits<int16_t>::max())
        throw overflowError();
    return int16_t(value);
}

int16_t roundToInt16(double value) {
    return roundChecked<int16_t>(value);
}

int32_t toInt32(QStringView text) {
    const QStringView s = text.trimmed();
    if (s.isEmpty() || numberLength(s, true) != s.size())
        throw RuntimeError(QStringLiteral("Type mismatch"), 13);
    return roundChecked<int32_t>(s.toDouble());
}

double leadingNumber(QStringView text) {
    const QStringView s = text.trimmed();
    const qsizetype length = numberLength(s, true);
    // A number too large for a double comes back infinite, which no range holds.
    return length == 0 ? 0 : s.left(length).toDouble();
}

std::optional<double> decimalNumber(QStringView text) {
    const QStringView s = text.trimmed();
    if (s.isEmpty() || numberLength(s, false) != s.size())
        return std::nullopt;
    // "12." is the number and its dot; toDouble takes it as it is.
    return s.toDouble();
}

QString numberLine(int value) {
    return (value >= 0 ? QStringLiteral(" ") : QString()) + QString::number(value) +
           QStringLiteral(" ");
}

} // namespace tolvisk
