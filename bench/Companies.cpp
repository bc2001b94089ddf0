#include "Companies.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <cstdio>

namespace Bench {

namespace {

/// The same day each time, so that a company that was kept is the one that would be made.
constexpr const char* lastDay = "2026-11-20";

void make(const QString& file, int accounts)
{
    std::fprintf(stderr, "Making a company of %d accounts in %s. It is kept for later runs.\n",
                 accounts, qPrintable(QDir::toNativeSeparators(file)));
    QElapsedTimer timer;
    timer.start();
    // A file that a broken run has left behind is not taken for a company.
    const QString making = file + QStringLiteral(".making");
    QFile::remove(making);
    QProcess host;
    host.setProcessChannelMode(QProcess::ForwardedChannels);
    host.start(QStringLiteral(HOST_PROGRAM),
               {QStringLiteral("--create-sample"), QStringLiteral("--database"), making,
                QStringLiteral("--accounts"), QString::number(accounts), QStringLiteral("--until"),
                QLatin1String(lastDay)});
    if (!host.waitForFinished(-1) || host.exitCode() != 0 || !QFile::rename(making, file))
        qFatal("The company could not be made.");
    std::fprintf(stderr, "Made in %.0f s.\n", double(timer.elapsed()) / 1000);
}

} // namespace

const std::vector<int>& CompanySizes()
{
    static const std::vector<int> sizes = [] {
        std::vector<int> read;
        const QString wanted = qEnvironmentVariable("TRADEFORMS_BENCH_SIZES");
        for (const QString& size : wanted.split(u',', Qt::SkipEmptyParts))
            read.push_back(size.toInt());
        return wanted.isNull() ? std::vector{10'000, 100'000, 1'000'000} : read;
    }();
    return sizes;
}

QString CompanyOf(int accounts)
{
    const QDir folder(
        qEnvironmentVariable("TRADEFORMS_BENCH_COMPANIES", QStringLiteral(COMPANY_FOLDER)));
    folder.mkpath(QStringLiteral("."));
    const QString file = folder.filePath(QStringLiteral("%1.db").arg(accounts));
    if (!QFile::exists(file))
        make(file, accounts);
    return file;
}

} // namespace Bench
