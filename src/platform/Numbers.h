#pragma once

// The number conversions the program relies on, written once: integers of the widths the
// windows use, which refuse a value they cannot hold instead of wrapping, and the two ways a
// text is read as a number.

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

namespace tolvisk {

// A 16-bit integer; an overflow error beyond its range.
int16_t toInt16(long long value);
// Rounds half to even into a 16-bit integer; an overflow error beyond its range or for a value
// that is no number at all.
int16_t roundToInt16(double value);
// The whole text, blanks around it allowed, rounded half to even into a 32-bit integer; a type
// mismatch when the text is no number, an overflow error beyond the range.
int32_t toInt32(QStringView text);
// The number a text starts with, after leading blanks: "12abc" is 12, "1e2" is 100, "abc" is 0.
double leadingNumber(QStringView text);
// The whole text as a plain decimal number, blanks around it allowed: digits with a sign and a
// point, "12." included; none for anything else ("nan", "inf", "1e2", "12a", "").
std::optional<double> decimalNumber(QStringView text);
// How the start-up file writes a number: a blank in the sign's place for one that is not
// negative, and one blank behind.
QString numberLine(int value);

} // namespace tolvisk
