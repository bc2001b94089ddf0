#include "data/sqlite/CompanyCopy.h"

#include "data/Failure.h"
#include "data/Utf8.h"

#include <QDir>
#include <QStringList>

#include <utility>

namespace TradeForms {

namespace {

/// Pages of 4 KiB between two calls of the progress callback; some milliseconds of work.
constexpr int pagesPerStep = 1024;
/// Instructions of the virtual machine between two calls of the progress callback.
constexpr int instructionsPerCheck = 20'000;
constexpr int maxListedErrors = 10;

struct FinishBackup {
    void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};
using Backup = std::unique_ptr<sqlite3_backup, FinishBackup>;

/// Calls the progress callback while a statement runs, and interrupts the statement where it
/// returns false.
class CancelCheck {
public:
    CancelCheck(sqlite3* handle, const OnProgress& onProgress, WorkProgress progress)
        : handle_(handle), onProgress_(onProgress), progress_(std::move(progress))
    {
        if (onProgress_)
            sqlite3_progress_handler(handle_, instructionsPerCheck, ask, this);
    }
    ~CancelCheck() { sqlite3_progress_handler(handle_, 0, nullptr, nullptr); }
    CancelCheck(const CancelCheck&) = delete;
    CancelCheck& operator=(const CancelCheck&) = delete;

private:
    static int ask(void* self)
    {
        const auto& watch = *static_cast<CancelCheck*>(self);
        return watch.onProgress_(watch.progress_) ? 0 : 1;
    }

    sqlite3* handle_;
    const OnProgress& onProgress_;
    WorkProgress progress_;
};

/// Runs work that a CancelCheck may interrupt. Raises CancelledFailure then.
template <class Work> auto cancellable(Work work)
{
    try {
        return work();
    } catch (const ProviderFailure& failure) {
        if (failure.Number() == SQLITE_INTERRUPT)
            throw CancelledFailure();
        throw;
    }
}

[[noreturn]] void raiseCopyFailure(int code, SqliteEngine& from, const QString& file)
{
    if ((code & 0xFF) == SQLITE_FULL)
        throw Failure(QStringLiteral("There is no room left on the disk for '%1'. Nothing was "
                                     "replaced. Make room and try again.")
                          .arg(QDir::toNativeSeparators(file)));
    const QString source = QString::fromUtf8(sqlite3_db_filename(from.Raw(), "main"));
    throw Failure(QStringLiteral("'%1' could not be copied to '%2': %3. Check the disks and try "
                                 "again.")
                      .arg(QDir::toNativeSeparators(source), QDir::toNativeSeparators(file),
                           QString::fromUtf8(sqlite3_errstr(code))));
}

Handle openEmpty(const QString& file)
{
    sqlite3* raw = nullptr;
    const int result = sqlite3_open_v2(file.toUtf8().constData(), &raw,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE |
                                           SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE,
                                       nullptr);
    Handle handle(raw);
    if (result != SQLITE_OK)
        throw Failure(
            QStringLiteral("'%1' could not be created.").arg(QDir::toNativeSeparators(file)));
    // An incomplete copy is deleted, so that no journal is needed.
    RunScript(raw, "PRAGMA journal_mode = OFF");
    return handle;
}

} // namespace

void CopyDatabase(SqliteEngine& from, const QString& file, const OnProgress& onProgress)
{
    const Handle to = openEmpty(file);
    Backup backup(sqlite3_backup_init(to.get(), "main", from.Raw(), "main"));
    if (!backup)
        RaiseSqlite(to.get());
    int result = SQLITE_OK;
    while (result == SQLITE_OK) {
        result = sqlite3_backup_step(backup.get(), pagesPerStep);
        const int all = sqlite3_backup_pagecount(backup.get());
        Tell(onProgress, {Stage::Copying, {}, all - sqlite3_backup_remaining(backup.get()), all});
    }
    backup.reset();
    if (result != SQLITE_DONE)
        raiseCopyFailure(result, from, file);
    // The copy is in WAL mode as its source, and must not need a log file.
    RunScript(to.get(), "PRAGMA synchronous = FULL; PRAGMA journal_mode = DELETE");
}

void CheckDatabase(SqliteEngine& engine, const QString& file, const OnProgress& onProgress)
{
    const WorkProgress progress{Stage::Checking, {}, 0, 0};
    Tell(onProgress, progress);
    const CancelCheck watch(engine.Raw(), onProgress, progress);
    QStringList damages;
    cancellable([&] {
        const PreparedStatement check = Prepare(engine.Raw(),
                                                QByteArrayLiteral("PRAGMA integrity_check(") +
                                                    QByteArray::number(maxListedErrors) + ')',
                                                false);
        while (Step(check.get())) {
            const std::string_view line = ReadColumn(check.get(), 0).Bytes;
            if (line != "ok")
                damages.append(FromUtf8(line));
        }
    });
    if (!damages.isEmpty())
        throw ProviderFailure(
            QStringLiteral("'%1' is damaged: %2")
                .arg(QDir::toNativeSeparators(file), damages.join(QLatin1String("; "))),
            SQLITE_CORRUPT);
}

QList<TableCount> CountRows(SqliteEngine& engine, const OnProgress& onProgress)
{
    const QStringList tables = engine.TableNames();
    QList<TableCount> counts;
    for (const QString& table : tables) {
        const WorkProgress progress{Stage::Counting, table, counts.size(), tables.size()};
        Tell(onProgress, progress);
        const CancelCheck watch(engine.Raw(), onProgress, progress);
        const QByteArray query = "SELECT count(*) FROM " + QuotedIdentifier(table);
        counts.append({table, cancellable([&] { return ReadInteger(engine.Raw(), query); })});
    }
    return counts;
}

} // namespace TradeForms
