#pragma once

#include <QString>

#include <stdexcept>

// A fault that ends the run: a failing database call, an unknown stored code, a key
// that names no record. It travels up to the failure handler of the start-up
// routine or of the event loop, which shows its message and ends the program.
// Tests catch it like any exception, so they can observe it without ending.
class cFatalFault : public std::runtime_error
{
public:
    cFatalFault(const QString &source, int number, const QString &description);

    const QString &Source() const { return source_; }
    int Number() const { return number_; }
    const QString &Description() const { return description_; }

private:
    QString source_;
    int number_;
    QString description_;
};

// Fault numbers, so that the failure message tells one kind from another.
namespace FaultNumber {
inline constexpr int Database = 3146;
inline constexpr int UnknownKey = 5;
inline constexpr int UnknownCode = 13;
inline constexpr int File = 75;
} // namespace FaultNumber

[[noreturn]] void RaiseFatal(const QString &source, int number, const QString &description);
