#include "tools/Program.h"

#include <gtest/gtest.h>

#include <QProcess>

#include <csignal>

namespace tests {

namespace {

constexpr int longestRun = 120'000;

Ended endOf(QProcess& process, const QByteArray& saidBefore = {})
{
    const bool isOver = process.state() == QProcess::NotRunning;
    if (!isOver && !process.waitForFinished(longestRun)) {
        process.kill();
        process.waitForFinished();
        ADD_FAILURE() << process.program().toStdString() << " did not end by itself";
        return {};
    }
    const int code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return {code, process.readAllStandardOutput().toStdString(),
            (saidBefore + process.readAllStandardError()).toStdString()};
}

} // namespace

Ended RunProgram(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromUtf8(program), arguments);
    return endOf(process);
}

Ended RunUntilItSays(const char* program, const QStringList& arguments, const QByteArray& said,
                     int signal)
{
    QProcess process;
    process.start(QString::fromUtf8(program), arguments);
    process.setReadChannel(QProcess::StandardError);
    QByteArray error;
    while (!error.contains(said) && process.waitForReadyRead(longestRun))
        error += process.readAllStandardError();
    EXPECT_TRUE(error.contains(said)) << error.toStdString();
    if (process.processId() != 0)
        ::kill(pid_t(process.processId()), signal);
    return endOf(process, error);
}

std::string RunOnTerminal(const char* program, const QStringList& arguments)
{
    // The program of that name gives its command a terminal.
    QString command = QString::fromUtf8(program);
    for (const QString& argument : arguments)
        command += QStringLiteral(" '%1'").arg(argument);
    QProcess process;
    process.start(QStringLiteral("script"),
                  {QStringLiteral("-qefc"), command, QStringLiteral("/dev/null")});
    return endOf(process).Out;
}

} // namespace tests
