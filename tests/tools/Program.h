#pragma once

#include <QByteArray>
#include <QStringList>

#include <functional>
#include <string>

namespace tests {

/// How a program ended, and what it said.
struct Ended {
    int Code = -1; ///< -1 where it was killed or did not end
    std::string Out;
    std::string Error;
};

/// Runs a program to its end.
Ended RunProgram(const char* program, const QStringList& arguments);

/// Runs a program, and does something when it has said something on standard error. Until that is
/// done the program gets no further than to its next word there.
Ended RunAndHold(const char* program, const QStringList& arguments, const QByteArray& said,
                 const std::function<void(qint64 process)>& meanwhile);

/// Runs a program until it has said something on standard error, then sends it a signal.
Ended RunUntilItSays(const char* program, const QStringList& arguments, const QByteArray& said,
                     int signal);

/// Runs a program on a terminal; all that it writes there.
std::string RunOnTerminal(const char* program, const QStringList& arguments);

} // namespace tests
