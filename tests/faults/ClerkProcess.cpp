#include "faults/ClerkProcess.h"

#include <gtest/gtest.h>

namespace {

/// Longer than any clerk needs, on any machine: what takes longer hangs.
constexpr int patience = 240000;

} // namespace

ClerkProcess::ClerkProcess(const QString& company, qlonglong firstToken, qlonglong count)
{
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QStringLiteral(SAVING_CLERK),
                   {company, QString::number(firstToken), QString::number(count)});
    if (!process_.waitForStarted(patience))
        ADD_FAILURE() << "cannot start " << SAVING_CLERK;
}

ClerkProcess::~ClerkProcess()
{
    if (process_.state() != QProcess::NotRunning)
        Kill();
}

void ClerkProcess::read()
{
    unread_ += process_.readAllStandardOutput();
    for (qsizetype end = unread_.indexOf('\n'); end >= 0; end = unread_.indexOf('\n')) {
        const QString line = QString::fromUtf8(unread_.first(end));
        unread_.remove(0, end + 1);
        const QStringList words = line.split(u' ');
        if (words[0] == QStringLiteral("ready"))
            word_.IsReady = true;
        else if (words[0] == QStringLiteral("done"))
            word_.IsDone = true;
        else if (words[0] == QStringLiteral("race"))
            ++word_.Races;
        else if (words[0] == QStringLiteral("saved") && words.size() == 3)
            word_.Reported.append({words[1].toLongLong(), words[2].toLongLong()});
        else
            word_.Boxes.append(line);
    }
}

bool ClerkProcess::WaitFor(const std::function<bool(const ClerksWord&)>& condition)
{
    read();
    while (!condition(word_)) {
        if (!process_.waitForReadyRead(patience))
            return false;
        read();
    }
    return true;
}

void ClerkProcess::Start()
{
    process_.write("\n");
    process_.waitForBytesWritten(patience);
}

void ClerkProcess::Kill()
{
    process_.kill();
    process_.waitForFinished(patience);
    read();
}

bool ClerkProcess::Finish()
{
    if (process_.state() != QProcess::NotRunning && !process_.waitForFinished(patience))
        return false;
    read();
    return process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
}
