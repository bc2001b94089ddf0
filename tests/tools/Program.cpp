#include "tools/Program.h"

#include <gtest/gtest.h>

#include <QProcess>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace tests {

namespace {

/// Longer than any run, on any machine: what takes longer hangs.
constexpr int longestRun = 240'000;

/// A pipe that holds one piece of writing: whoever writes the next waits until it is read.
class NarrowPipe {
public:
    NarrowPipe()
    {
        EXPECT_EQ(::pipe2(ends_, O_DIRECT | O_CLOEXEC), 0);
        EXPECT_GT(::fcntl(ends_[1], F_SETPIPE_SZ, 1), 0);
    }
    ~NarrowPipe()
    {
        CloseWriting();
        ::close(ends_[0]);
    }
    NarrowPipe(const NarrowPipe&) = delete;
    NarrowPipe& operator=(const NarrowPipe&) = delete;

    int Writing() const { return ends_[1]; }
    /// What a process of one's own has open keeps the pipe from ending.
    void CloseWriting()
    {
        if (ends_[1] >= 0)
            ::close(ends_[1]);
        ends_[1] = -1;
    }
    /// Waits for the next piece. Empty at the end.
    QByteArray Read() const
    {
        pollfd readable{ends_[0], POLLIN, 0};
        if (::poll(&readable, 1, longestRun) != 1)
            return {};
        QByteArray piece(4096, 0);
        const ssize_t size = ::read(ends_[0], piece.data(), std::size_t(piece.size()));
        return piece.first(std::max<qsizetype>(size, 0));
    }

private:
    int ends_[2] = {-1, -1};
};

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

Ended RunAndHold(const char* program, const QStringList& arguments, const QByteArray& said,
                 const std::function<void(qint64 process)>& meanwhile)
{
    NarrowPipe error;
    QProcess process;
    process.setChildProcessModifier([&error] { ::dup2(error.Writing(), STDERR_FILENO); });
    process.start(QString::fromUtf8(program), arguments);
    if (!process.waitForStarted(longestRun)) {
        ADD_FAILURE() << program << " does not start";
        return {};
    }
    error.CloseWriting();
    QByteArray all;
    bool isDone = false;
    for (QByteArray piece = error.Read(); !piece.isEmpty(); piece = error.Read()) {
        all += piece;
        if (!isDone && all.contains(said)) {
            isDone = true;
            meanwhile(process.processId());
        }
    }
    EXPECT_TRUE(isDone) << all.toStdString();
    return endOf(process, all);
}

Ended RunUntilItSays(const char* program, const QStringList& arguments, const QByteArray& said,
                     int signal)
{
    return RunAndHold(
        program, arguments, said, [signal](qint64 process) { ::kill(pid_t(process), signal); });
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
