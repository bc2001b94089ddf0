#include "data/Backup.h"

#include "data/sqlite/CompanyCopy.h"
#include "data/sqlite/CompanyFile.h"
#include "data/sqlite/DatabaseFiles.h"
#include "data/sqlite/PartFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace TradeForms {

namespace {

/// Who works in a company holds it all day; there is no sense in waiting long.
constexpr std::chrono::milliseconds briefWait{1000};

QString timestamp(const QDateTime& moment)
{
    return moment.toString(QStringLiteral("yyyyMMdd-HHmmss"));
}

/// The company's log is a part of it that has a name of its own.
void requireOtherFile(const QString& company, const QString& target)
{
    for (const char* ending : {"", "-wal", "-shm", "-journal"})
        if (IsSameFile(company + QLatin1String(ending), target))
            RaiseFileFailure(QStringLiteral("'%1' is the company itself. Name another file."),
                             target);
}

/// Checks a file that nobody else knows yet, or that nobody changes.
VerifiedCompany verify(const QString& file, const OnProgress& onProgress)
{
    const auto engine = OpenCompanyToRead(file);
    const ReadTransaction transaction(*engine);
    CheckDatabase(*engine, file, onProgress);
    return {QFileInfo(file).absoluteFilePath(), QFileInfo(file).size(),
            CountRows(*engine, onProgress)};
}

/// Holds a company so that nobody else has it open; null where there is none to hold, or none
/// that could be opened. Raises Failure where somebody has it open.
std::unique_ptr<SqliteEngine> lockExclusively(const QString& file)
{
    if (!QFileInfo::exists(file))
        return nullptr;
    try {
        auto engine = OpenFile(file, briefWait);
        // The log is brought in first, so that the company is the one file.
        RunScript(engine->Raw(), "PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE");
        return engine;
    } catch (const ProviderFailure& failure) {
        switch (failure.Number() & 0xFF) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            RaiseInUse(file);
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            return nullptr;
        default:
            throw;
        }
    }
}

/// Ends what keeps others out of a file that is about to be replaced. Elsewhere than on Windows
/// that goes on until the new one stands there.
void releaseForReplace([[maybe_unused]] std::unique_ptr<SqliteEngine>& held)
{
#ifdef Q_OS_WIN
    // An open file cannot be replaced there, which keeps others out as well.
    held.reset();
#endif
}

/// Copies a company into a part file and verifies the copy.
VerifiedCompany copyVerified(SqliteEngine& source, PartFile& part, const OnProgress& onProgress)
{
    const QString name = QString::fromUtf8(sqlite3_db_filename(source.Raw(), "main"));
    QList<TableCount> counts;
    {
        const ReadTransaction transaction(source);
        part.RequireSpace(ReadInteger(source.Raw(), "PRAGMA page_count") *
                          ReadInteger(source.Raw(), "PRAGMA page_size"));
        counts = CountRows(source, onProgress);
        CopyDatabase(source, part.Path(), onProgress);
    }
    try {
        VerifiedCompany copy = verify(part.Path(), onProgress);
        if (copy.Tables != counts)
            throw ProviderFailure(QStringLiteral("it has other rows"), SQLITE_CORRUPT);
        return copy;
    } catch (const ProviderFailure& failure) {
        throw Failure(QStringLiteral("The copy of '%1' is not whole and was removed: %2")
                          .arg(QDir::toNativeSeparators(name), failure.Description()));
    }
}

/// The company that has to make room: it gets another name, and gets its own back where it is
/// not to be replaced after all. Its log goes with it, where it could not be brought in: beside
/// another company it would be taken for that one's.
class FormerCompany {
public:
    explicit FormerCompany(const QString& file) : file_(file), former_(freeName(file))
    {
        moveLogs(file_, former_);
        hasCompany_ = QFileInfo::exists(file_);
        if (!hasCompany_)
            return;
        if (!createHardLink())
            MoveOver(file_, former_);
    }
    ~FormerCompany()
    {
        if (isKept_)
            return;
        try {
            restore();
        } catch (const Failure&) {
            // It is there still, under its other name; the failure that led here is on its way.
        }
    }
    FormerCompany(const FormerCompany&) = delete;
    FormerCompany& operator=(const FormerCompany&) = delete;

    /// Empty where no company stood there.
    QString Former() const { return hasCompany_ ? former_ : QString(); }
    void Keep() { isKept_ = true; }

private:
    static QString freeName(const QString& file)
    {
        const QFileInfo info(file);
        const QString stem = info.completeBaseName() + QStringLiteral("-before-restore-") +
                             timestamp(QDateTime::currentDateTime());
        const QString suffix = info.suffix().isEmpty() ? QString() : u'.' + info.suffix();
        QString name = info.dir().filePath(stem + suffix);
        for (int copy = 2; QFileInfo::exists(name); ++copy)
            name = info.dir().filePath(stem + u'-' + QString::number(copy) + suffix);
        return name;
    }

    static void moveLogs(const QString& from, const QString& to)
    {
        for (const char* ending : {"-wal", "-journal"})
            if (QFileInfo::exists(from + QLatin1String(ending)))
                MoveOver(from + QLatin1String(ending), to + QLatin1String(ending));
    }

    /// Where the disk knows second names, the company is at no moment without its own.
    bool createHardLink() const
    {
#ifdef Q_OS_WIN
        // Nobody who has it open keeps it from getting one there, only from losing one.
        return false;
#else
        std::error_code error;
        std::filesystem::create_hard_link(QFileInfo(file_).filesystemAbsoluteFilePath(),
                                          QFileInfo(former_).filesystemAbsoluteFilePath(), error);
        return !error;
#endif
    }

    void restore()
    {
        if (hasCompany_ && IsSameFile(file_, former_)) {
            QFile::remove(former_);
        } else {
            RemoveDatabase(file_);
            if (hasCompany_)
                MoveOver(former_, file_);
        }
        moveLogs(former_, file_);
    }

    QString file_;
    QString former_;
    bool hasCompany_ = false;
    bool isKept_ = false;
};

/// The restored company as a workstation opens it, which brings an older one up to date and may
/// give it further tables.
VerifiedCompany verifyInPlace(const QString& company, const QList<TableCount>& expected)
{
    OpenCompanyFile(company);
    const auto engine = OpenCompanyToRead(company);
    const VerifiedCompany restored{company, QFileInfo(company).size(), CountRows(*engine, {})};
    const bool isWhole = std::ranges::all_of(
        expected, [&](const TableCount& table) { return restored.Tables.contains(table); });
    if (!isWhole)
        RaiseFileFailure(
            QStringLiteral("'%1' has other rows than the backup after it was put in its place."),
            company);
    return restored;
}

QString backupStem(const QString& company)
{
    return QFileInfo(company).completeBaseName() + QStringLiteral("-backup-");
}

bool isTimestamp(const QString& text)
{
    const QDateTime moment = QDateTime::fromString(text, QStringLiteral("yyyyMMdd-HHmmss"));
    return moment.isValid() && timestamp(moment) == text;
}

} // namespace

qint64 VerifiedCompany::Rows() const
{
    qint64 rows = 0;
    for (const TableCount& table : Tables)
        rows += table.Rows;
    return rows;
}

VerifiedCompany BackUpCompany(const QString& company, const QString& target, Existing existing,
                              const OnProgress& onProgress)
{
    const auto source = OpenCompanyToRead(company);
    requireOtherFile(company, target);
    PartFile part(target, existing);
    auto former = lockExclusively(part.Place());
    // With a log, those who save do not wait for those who read.
    if (sqlite3_db_readonly(source->Raw(), "main") == 0)
        RunScript(source->Raw(), "PRAGMA journal_mode = WAL");
    VerifiedCompany copy = copyVerified(*source, part, onProgress);
    releaseForReplace(former);
    part.MoveToTarget();
    copy.File = part.Place();
    return copy;
}

VerifiedCompany VerifyBackup(const QString& file, const OnProgress& onProgress)
{
    return verify(file, onProgress);
}

RestoredCompany RestoreCompany(const QString& backup, const QString& company,
                               const OnProgress& onProgress)
{
    verify(backup, onProgress);
    requireOtherFile(backup, company);
    PartFile part(company, Existing::Replace);
    const QString& place = part.Place();
    auto former = lockExclusively(place);
    const VerifiedCompany copy = copyVerified(*OpenCompanyToRead(backup), part, onProgress);
    releaseForReplace(former);
    FormerCompany aside(place);
    part.MoveToTarget();
    RestoredCompany restored{verifyInPlace(place, copy.Tables), aside.Former()};
    aside.Keep();
    return restored;
}

QString BackupName(const QString& company, const QDateTime& moment)
{
    return backupStem(company) + timestamp(moment) + QStringLiteral(".db");
}

QStringList RemoveOlderBackups(const QString& folder, const QString& company, int keep)
{
    const QDir dir(folder);
    const QString stem = backupStem(company);
    static const QString ending = QStringLiteral(".db");
    QStringList backups;
    // Their names are in the order of their age.
    for (const QString& name : dir.entryList(QDir::Files, QDir::Name)) {
        if (!name.startsWith(stem))
            continue;
        const QString rest = name.mid(stem.size());
        if (rest.endsWith(ending) && isTimestamp(rest.chopped(ending.size())))
            backups.append(name);
        else if (rest.endsWith(PartFile::NameFor(ending)) &&
                 isTimestamp(rest.chopped(PartFile::NameFor(ending).size())))
            PartFile::RemoveLeftover(dir.filePath(name));
    }
    const QStringList removed = backups.mid(0, std::max<qsizetype>(0, backups.size() - keep));
    for (const QString& name : removed) {
        if (!QFile::remove(dir.filePath(name)))
            RaiseFileFailure(QStringLiteral("The older backup '%1' could not be removed."),
                             dir.filePath(name));
    }
    return removed;
}

} // namespace TradeForms
