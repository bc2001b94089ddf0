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

/// Other programs keep a company open all day, so that waiting longer would not help.
constexpr std::chrono::milliseconds briefWait{1000};

QString timestamp(const QDateTime& moment)
{
    return moment.toString(QStringLiteral("yyyyMMdd-HHmmss"));
}

/// The target must not be one of the company's log files either.
void requireOtherFile(const QString& company, const QString& target)
{
    for (const char* ending : {"", "-wal", "-shm", "-journal"})
        if (IsSameFile(company + QLatin1String(ending), target))
            RaiseFileFailure(QStringLiteral("'%1' is the company itself. Name another file."),
                             target);
}

/// Verifies a file in one read transaction.
VerifiedCompany verify(const QString& file, const OnProgress& onProgress)
{
    const auto engine = OpenCompanyToRead(file);
    const ReadTransaction transaction(*engine);
    CheckDatabase(*engine, file, onProgress);
    return {QFileInfo(file).absoluteFilePath(), QFileInfo(file).size(),
            CountRows(*engine, onProgress)};
}

/// Opens a company with an exclusive lock. Returns null where there is no file, or none that can be
/// opened as a database. Raises Failure where another program has it open.
std::unique_ptr<SqliteEngine> lockExclusively(const QString& file)
{
    if (!QFileInfo::exists(file))
        return nullptr;
    try {
        auto engine = OpenFile(file, briefWait);
        // Leaving WAL mode writes the log into the database, so that the company is one file.
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

/// Releases the lock on a file before it is replaced, where the system requires that.
void releaseForReplace([[maybe_unused]] std::unique_ptr<SqliteEngine>& held)
{
#ifdef Q_OS_WIN
    // On Windows an open file cannot be replaced.
    held.reset();
#endif
}

/// Copies a company to a part file and verifies the copy. Raises Failure.
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

/// Renames the company that is to be replaced, and renames it back in the destructor unless Keep
/// was called. Its log files are renamed with it: SQLite would apply them to the new company.
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
            // The company still exists under its other name. The failure that caused this is
            // reported.
        }
    }
    FormerCompany(const FormerCompany&) = delete;
    FormerCompany& operator=(const FormerCompany&) = delete;

    /// The new name; empty where there was no company.
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

    /// With a hard link, the company never lacks its own name, even if the program is killed.
    bool createHardLink() const
    {
#ifdef Q_OS_WIN
        // A program that has the file open would prevent the later rename, but not the link.
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

/// Opens the restored company as a workstation does, which upgrades an older one, and compares the
/// row counts. Raises Failure.
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
    // In WAL mode writers do not wait for readers.
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
    // The names sort by age.
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
