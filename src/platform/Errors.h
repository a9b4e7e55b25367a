#pragma once

#include <QString>

#include <functional>
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

// The errors the program raises for itself, worded as the platform words its own.
inline RuntimeError subscriptOutOfRange() {
    return RuntimeError(QStringLiteral("Subscript out of range"), 9);
}
inline RuntimeError invalidPropertyValue() {
    return RuntimeError(QStringLiteral("Invalid property value"), 380);
}
inline RuntimeError overflowError() {
    return RuntimeError(QStringLiteral("Overflow"), 6);
}

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

} // namespace tolvisk

// The checked integer conversions that raise the overflow error, for the callers that found
// them here.
#include "platform/Numbers.h"
