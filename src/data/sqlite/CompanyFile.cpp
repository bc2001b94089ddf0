#include "data/sqlite/CompanyFile.h"

#include "data/Failure.h"
#include "data/sqlite/SqliteEngine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace TradeForms {

/// The text of schema/sqlite.sql, which the build makes a part of the library.
const char* SqliteSchemaScript();

namespace {

// Both stand in the schema script as well, which writes them into a new file.
constexpr qint64 applicationId = 0x5464466D;
constexpr qint64 schemaVersion = 1;

[[noreturn]] void raise(const QString& description, const QString& file, int number)
{
    throw ProviderFailure(description.arg(QDir::toNativeSeparators(file)), number);
}

/// Whether this process may write here. An administrator may write to what is marked read-only
/// as well, and is told all the same: the mark is there for a reason.
bool isWritable(const QFileInfo& info)
{
    // WriteUser would tell what this user can do, as isWritable does.
    const auto marks = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return info.isWritable() && (info.permissions() & marks);
}

void requireWritableFolder(const QFileInfo& info)
{
    const QFileInfo folder(info.absolutePath());
    if (!folder.isDir())
        raise(QStringLiteral("The folder of '%1' was not found."), info.absoluteFilePath(),
              SQLITE_CANTOPEN);
    if (!isWritable(folder))
        raise(QStringLiteral("The folder of '%1' is read-only. A company can be kept only where "
                             "files can be written."),
              info.absoluteFilePath(), SQLITE_READONLY_DIRECTORY);
}

std::unique_ptr<SqliteEngine> openEngine(const QString& file, std::chrono::milliseconds lockWait)
{
    sqlite3* raw = nullptr;
    const int result = sqlite3_open_v2(
        file.toUtf8().constData(), &raw,
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    Handle handle(raw);
    if (result != SQLITE_OK)
        raise(QStringLiteral("'%1' could not be opened."), file, result);
    auto engine = std::make_unique<SqliteEngine>(std::move(handle));
    engine->SetLockWait(lockWait);
    return engine;
}

/// A commit is on the disk when it returns; readers and a writer do not hinder each other.
void configure(sqlite3* handle)
{
    RunScript(handle, "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;"
                      "PRAGMA cache_size = -16384; PRAGMA temp_store = MEMORY;");
}

void requireCompany(sqlite3* handle, const QString& file)
{
    const qint64 owner = ReadInteger(handle, "PRAGMA application_id");
    const qint64 version = ReadInteger(handle, "PRAGMA user_version");
    if (owner != applicationId && owner != 0)
        raise(QStringLiteral("'%1' belongs to another program."), file, SQLITE_NOTADB);
    if (owner == 0 || version < 1)
        raise(QStringLiteral("'%1' holds no company."), file, SQLITE_NOTADB);
    if (version > schemaVersion)
        raise(QStringLiteral("'%1' was made by a newer version of this program. Install that "
                             "version to open it."),
              file, SQLITE_SCHEMA);
    if (sqlite3_db_readonly(handle, "main") != 0)
        raise(QStringLiteral("'%1' is read-only. Nothing could be saved in it."), file,
              SQLITE_READONLY);
}

} // namespace

std::unique_ptr<Engine> OpenCompanyFile(const QString& file, std::chrono::milliseconds lockWait)
{
    const QFileInfo info(file);
    const QString path = info.absoluteFilePath();
    if (!info.exists())
        raise(QStringLiteral("The company file '%1' was not found."), path, SQLITE_CANTOPEN);
    if (info.isDir())
        raise(QStringLiteral("'%1' is a folder, not a company file."), path, SQLITE_CANTOPEN);
    if (!isWritable(info))
        raise(QStringLiteral("'%1' is read-only. Nothing could be saved in it."), path,
              SQLITE_READONLY);
    requireWritableFolder(info);

    auto engine = openEngine(path, lockWait);
    requireCompany(engine->Raw(), path);
    configure(engine->Raw());
    return engine;
}

std::unique_ptr<Engine> CreateCompanyFile(const QString& file)
{
    const QFileInfo info(file);
    const QString path = info.absoluteFilePath();
    if (info.exists())
        raise(QStringLiteral("'%1' exists already."), path, SQLITE_CANTOPEN);
    requireWritableFolder(info);
    // Whoever comes second, of two who make the same file at once, is refused here.
    if (QFile place(path); !place.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        raise(QStringLiteral("'%1' could not be created."), path, SQLITE_CANTOPEN);

    try {
        auto engine = openEngine(path, customaryLockWait);
        configure(engine->Raw());
        engine->Atomically([&] { RunScript(engine->Raw(), SqliteSchemaScript()); });
        return engine;
    } catch (...) {
        QFile::remove(path);
        throw;
    }
}

} // namespace TradeForms
