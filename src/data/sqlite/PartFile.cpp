#include "data/sqlite/PartFile.h"

#include "data/sqlite/CompanyFile.h"
#include "data/sqlite/DatabaseFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStorageInfo>

namespace TradeForms {

namespace {

void requireFolder(const QString& place)
{
    const QFileInfo folder(QFileInfo(place).absolutePath());
    if (!folder.isDir())
        RaiseFileFailure(QStringLiteral("The folder '%1' was not found."), folder.filePath());
    if (!IsWritable(folder))
        RaiseFileFailure(
            QStringLiteral("Nothing can be written in the folder '%1': it is read-only."),
            folder.filePath());
}

QString withoutLinks(const QString& place)
{
    const QFileInfo info(place);
    return info.exists() ? info.canonicalFilePath() : info.absoluteFilePath();
}

QString lockOf(const QString& path)
{
    return path + QStringLiteral(".lock");
}

} // namespace

PartFile::PartFile(const QString& place, Existing existing)
    : place_(withoutLinks(place)), path_(NameFor(place_)), lock_(lockOf(path_)), existing_(existing)
{
    const QFileInfo info(place_);
    if (info.isDir())
        RaiseFileFailure(QStringLiteral("'%1' is a folder. Name a file."), place_);
    requireFolder(place_);
    if (existing == Existing::Keep && info.exists())
        RaiseFileFailure(QStringLiteral("'%1' exists already. It was left as it is."), place_);
    // The lock is valid however long the copy takes.
    lock_.setStaleLockTime(0);
    if (!lock_.tryLock())
        RaiseFileFailure(QStringLiteral("Another program is writing '%1' just now."), place_);
    if (!RemoveDatabase(path_))
        RaiseFileFailure(
            QStringLiteral("'%1', which an earlier attempt has left, cannot be removed."), path_);
}

PartFile::~PartFile()
{
    if (!isPlaced_)
        RemoveDatabase(path_);
}

void PartFile::RequireSpace(qint64 bytes) const
{
    const QString folder = QFileInfo(place_).absolutePath();
    const qint64 room = QStorageInfo(folder).bytesAvailable();
    if (room >= 0 && room < bytes) {
        const QLocale c = QLocale::c();
        throw Failure(QStringLiteral("There is no room on the disk of '%1': %2 are needed, and %3 "
                                     "are free.")
                          .arg(QDir::toNativeSeparators(folder), c.formattedDataSize(bytes),
                               c.formattedDataSize(room)));
    }
}

void PartFile::MoveToTarget()
{
    for (const char* ending : {"-wal", "-journal"}) {
        const QString log = place_ + QLatin1String(ending);
        if (QFileInfo::exists(log))
            RaiseFileFailure(
                QStringLiteral("'%1' is what is left of another company: it would spoil the one "
                               "that is to stand there. Move it away."),
                log);
    }
    if (existing_ == Existing::Replace)
        MoveOver(path_, place_);
    else if (!QFile::rename(path_, place_))
        RaiseFileFailure(
            QStringLiteral("'%1' could not be given its name: another file has taken it."), place_);
    isPlaced_ = true;
}

bool PartFile::RemoveLeftover(const QString& path)
{
    QLockFile lock(lockOf(path));
    lock.setStaleLockTime(0);
    return lock.tryLock() && RemoveDatabase(path);
}

} // namespace TradeForms
