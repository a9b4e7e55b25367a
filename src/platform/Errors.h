#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <limits>
#include <stdexcept>

namespace tolvisk {

// An error raised by the platform or by the program's own checks. `description()` is what a
// failure path shows to the user.
class RuntimeError : public std::runtime_error {
public:
    explicit RuntimeError(const QString& description, int number = 0)
        : std::runtime_error(description.toStdString()), description_(description),
          number_(number) {}
    const QString& description() const { return description_; }
    int number() const { return number_; }

private:
    QString description_;
    int number_;
};

// Raised by a common dialog when the user cancels it.
class CancelError : public RuntimeError {
public:
    CancelError() : RuntimeError(QStringLiteral("Cancel was selected."), 32755) {}
};

// The text a failure path shows for any exception.
inline QString describeError(const std::exception& e) {
    if (auto* r = dynamic_cast<const RuntimeError*>(&e))
        return r->description();
    return QString::fromUtf8(e.what());
}

// Runs one statement and passes over any failure, so that the next statement runs.
inline void skipOnError(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const std::exception&) {
    }
}

// 16-bit arithmetic that the program relies on: it raises an overflow error instead of wrapping.
inline int16_t toInt16(long long value) {
    if (value < std::numeric_limits<int16_t>::min() || value > std::numeric_limits<int16_t>::max())
        throw RuntimeError(QStringLiteral("Overflow"), 6);
    return static_cast<int16_t>(value);
}

} // namespace tolvisk
