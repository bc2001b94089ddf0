#include "data/sqlite/DatabaseFiles.h"

#include "data/Failure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

#include <filesystem>
#include <system_error>

namespace TradeForms {

void RaiseFileFailure(const QString& description, const QString& file)
{
    throw Failure(description.arg(QDir::toNativeSeparators(file)));
}

void RaiseFileFailure(const QString& description, const QString& file, int code)
{
    throw ProviderFailure(description.arg(QDir::toNativeSeparators(file)), code);
}
void RaiseInUse(const QString& file)
{
    RaiseFileFailure(
        QStringLiteral("'%1' is in use. Close the program on all workstations and try again."),
        file);
}

bool IsSameFile(const QString& first, const QString& second)
{
    std::error_code error;
    return std::filesystem::equivalent(QFileInfo(first).filesystemAbsoluteFilePath(),
                                       QFileInfo(second).filesystemAbsoluteFilePath(), error);
}

bool RemoveDatabase(const QString& file)
{
    bool isGone = true;
    for (const char* ending : {"-wal", "-shm", "-journal", ""}) {
        const QString path = file + QLatin1String(ending);
        isGone = (!QFile::exists(path) || QFile::remove(path)) && isGone;
    }
    return isGone;
}

void MoveOver(const QString& file, const QString& place)
{
    std::error_code error;
    std::filesystem::rename(QFileInfo(file).filesystemAbsoluteFilePath(),
                            QFileInfo(place).filesystemAbsoluteFilePath(), error);
#ifdef Q_OS_WIN
    // On Windows an open file can neither be renamed nor replaced.
    if (error.value() == ERROR_SHARING_VIOLATION || error.value() == ERROR_ACCESS_DENIED)
        RaiseInUse(QFileInfo::exists(place) ? place : file);
#endif
    if (error)
        throw Failure(QStringLiteral("'%1' could not be replaced: %2.")
                          .arg(QDir::toNativeSeparators(place),
                               QString::fromLocal8Bit(error.message().c_str())));
}

} // namespace TradeForms
