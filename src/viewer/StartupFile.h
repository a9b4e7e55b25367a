#pragma once

// Conversions the start-up file's lines go through on reading.

#include <QString>

#include <cstdint>

namespace tolvisk {

// The number a text starts with, after leading blanks: "12abc" is 12, "abc" is 0.
double leadingNumber(const QString& text);
// Rounds half to even and checks the 16-bit range (overflow error beyond it).
int16_t roundToInt16(double value);
// The whole text, blanks around it allowed, as a 32-bit integer; an error when it is none.
int32_t toInt32(const QString& text);
// How line 3 writes a number: a blank in the sign's place for a positive number, and one
// blank behind.
QString numberLine(int value);

} // namespace tolvisk
