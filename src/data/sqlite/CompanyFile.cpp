#include "data/sqlite/CompanyFile.h"

#include "data/Failure.h"
#include "data/SchemaVersion.h"
#include "data/Utf8.h"
#include "data/sqlite/CompanySchema.h"
#include "data/sqlite/DatabaseFiles.h"
#include "data/sqlite/SqliteEngine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace TradeForms {

namespace {

// The same number is in the schema script, which sets it in a new file.
constexpr qint64 applicationId = 0x5464466D;

void requireWritableFolder(const QFileInfo& info)
{
    const QFileInfo folder(info.absolutePath());
    if (!folder.isDir())
        RaiseFileFailure(QStringLiteral("The folder of '%1' was not found."),
                         info.absoluteFilePath(), SQLITE_CANTOPEN);
    if (!IsWritable(folder))
        RaiseFileFailure(
            QStringLiteral("The folder of '%1' is read-only. A company can be kept only where "
                           "files can be written."),
            info.absoluteFilePath(), SQLITE_READONLY_DIRECTORY);
}

/// Without a log file, the size of a database is a multiple of the page size.
void requireWholePages(sqlite3* handle, const QFileInfo& info)
{
    const qint64 pageSize = ReadInteger(handle, "PRAGMA page_size");
    if (pageSize > 0 && info.size() % pageSize != 0)
        throw ProviderFailure(DamagedText(QDir::toNativeSeparators(info.absoluteFilePath()),
                                          QStringLiteral("its last page breaks off")),
                              SQLITE_CORRUPT);
}

void requireCompany(sqlite3* handle, const QString& file)
{
    const qint64 owner = ReadInteger(handle, "PRAGMA application_id");
    const qint64 version = ReadInteger(handle, "PRAGMA user_version");
    if (owner != applicationId && owner != 0)
        RaiseFileFailure(QStringLiteral("'%1' belongs to another program."), file, SQLITE_NOTADB);
    if (owner == 0 || version < 1)
        RaiseFileFailure(QStringLiteral("'%1' holds no company."), file, SQLITE_NOTADB);
    if (version > schemaVersion)
        RaiseFileFailure(
            QStringLiteral("'%1' was made by a newer version of this program. Install that "
                           "version to open it."),
            file, SQLITE_SCHEMA);
    // The schema of an older version is checked after the upgrade.
    if (version == schemaVersion)
        RequireCompanySchema(handle, QDir::toNativeSeparators(file));
}

void requireWritable(sqlite3* handle, const QString& file)
{
    if (sqlite3_db_readonly(handle, "main") != 0)
        RaiseFileFailure(QStringLiteral("'%1' is read-only. Nothing could be saved in it."), file,
                         SQLITE_READONLY);
}

QByteArray definitionOf(sqlite3* handle, const SchemaObject& object)
{
    const PreparedStatement read =
        Prepare(handle, "SELECT sql FROM sqlite_master WHERE type = ?1 AND name = ?2");
    BindText(read.get(), 1, ViewOf(object.Type));
    BindText(read.get(), 2, ViewOf(object.Name));
    return Step(read.get()) ? ReadBytes(read.get(), 0) : QByteArray();
}

/// Creates the objects that an older company lacks, and replaces views, indexes and triggers whose
/// definition has changed. Existing tables and objects of a host are unchanged.
void createSchemaObjects(sqlite3* handle)
{
    for (const SchemaObject& object : SchemaObjectsOf(SchemaInMemory().get())) {
        if (object.Name.startsWith("sqlite"))
            continue;
        const QByteArray present = definitionOf(handle, object);
        if (present == object.Definition || (!present.isEmpty() && object.Type == "table"))
            continue;
        if (!present.isEmpty())
            RunScript(handle, ("DROP " + object.Type + ' ' + object.Name).constData());
        RunScript(handle, object.Definition.constData());
    }
}

/// Upgrades a company of an older schema version in one transaction. Where two programs open it at
/// once, the second finds it upgraded.
void upgrade(SqliteEngine& engine, const QString& file)
{
    sqlite3* handle = engine.Raw();
    const auto isOld = [&] { return ReadInteger(handle, "PRAGMA user_version") < schemaVersion; };
    if (!isOld())
        return;
    engine.Atomically([&] {
        if (!isOld())
            return;
        createSchemaObjects(handle);
        RequireCompanySchema(handle, QDir::toNativeSeparators(file));
        FillStockLevels(handle);
        MarkAsCompany(handle);
    });
}

void requireFile(const QFileInfo& info)
{
    if (!info.exists())
        RaiseFileFailure(QStringLiteral("The company file '%1' was not found."),
                         info.absoluteFilePath(), SQLITE_CANTOPEN);
    if (info.isDir())
        RaiseFileFailure(QStringLiteral("'%1' is a folder, not a company file."),
                         info.absoluteFilePath(), SQLITE_CANTOPEN);
}

std::unique_ptr<Engine> create(const QString& file, const QByteArray& script)
{
    const QFileInfo info(file);
    const QString path = info.absoluteFilePath();
    if (info.exists())
        RaiseFileFailure(QStringLiteral("'%1' exists already."), path, SQLITE_CANTOPEN);
    requireWritableFolder(info);
    // Fails for the second of two programs that create the same file at once.
    if (QFile place(path); !place.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        RaiseFileFailure(QStringLiteral("'%1' could not be created."), path, SQLITE_CANTOPEN);

    try {
        auto engine = OpenFile(path, defaultLockWait);
        ConfigureCompany(engine->Raw());
        engine->Atomically([&] { RunScript(engine->Raw(), script.constData()); });
        return engine;
    } catch (...) {
        RemoveDatabase(path);
        throw;
    }
}

} // namespace

bool IsWritable(const QFileInfo& info)
{
    // Without WriteUser, which describes what this user may do, as isWritable does.
    const auto marks = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
    return info.isWritable() && (info.permissions() & marks);
}

std::unique_ptr<SqliteEngine> OpenFile(const QString& file, std::chrono::milliseconds lockWait)
{
    sqlite3* raw = nullptr;
    const int result = sqlite3_open_v2(
        file.toUtf8().constData(), &raw,
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    Handle handle(raw);
    if (result != SQLITE_OK)
        RaiseFileFailure(QStringLiteral("'%1' could not be opened."), file, result);
    auto engine = std::make_unique<SqliteEngine>(std::move(handle));
    engine->SetLockWait(lockWait);
    return engine;
}

std::unique_ptr<SqliteEngine> OpenCompanyToRead(const QString& file,
                                                std::chrono::milliseconds lockWait)
{
    const QFileInfo info(file);
    requireFile(info);
    auto engine = OpenFile(info.absoluteFilePath(), lockWait);
    requireCompany(engine->Raw(), info.absoluteFilePath());
    return engine;
}

std::unique_ptr<Engine> OpenCompanyFile(const QString& file, std::chrono::milliseconds lockWait)
{
    const QFileInfo info(file);
    const QString path = info.absoluteFilePath();
    requireFile(info);
    if (!IsWritable(info))
        RaiseFileFailure(QStringLiteral("'%1' is read-only. Nothing could be saved in it."), path,
                         SQLITE_READONLY);
    requireWritableFolder(info);

    const bool hasLog = QFileInfo(path + QStringLiteral("-wal")).size() > 0;
    auto engine = OpenFile(path, lockWait);
    requireCompany(engine->Raw(), path);
    if (!hasLog)
        requireWholePages(engine->Raw(), info);
    requireWritable(engine->Raw(), path);
    ConfigureCompany(engine->Raw());
    upgrade(*engine, path);
    return engine;
}

std::unique_ptr<Engine> CreateCompanyFile(const QString& file)
{
    return create(file, SqliteSchemaScript());
}

std::unique_ptr<Engine> CreateCompanyFileLike(SqliteEngine& model, const QString& file)
{
    QByteArray script = "PRAGMA application_id = " + QByteArray::number(applicationId) +
                        "; PRAGMA user_version = " + QByteArray::number(schemaVersion) + ';';
    const PreparedStatement read =
        Prepare(model.Raw(),
                "SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL"
                " AND name NOT LIKE 'sqlite~_%' ESCAPE '~'"
                " ORDER BY CASE type WHEN 'table' THEN 1 WHEN 'view' THEN 2 ELSE 3 END, rowid",
                false);
    while (Step(read.get()))
        script += ReadBytes(read.get(), 0) + ";\n";
    return create(file, script);
}

void ConfigureCompany(sqlite3* handle)
{
    RunScript(handle, "PRAGMA synchronous = FULL; PRAGMA journal_mode = WAL;"
                      "PRAGMA cache_size = -16384; PRAGMA temp_store = MEMORY;");
}

void MarkAsCompany(sqlite3* handle)
{
    const QByteArray mark = "PRAGMA user_version = " + QByteArray::number(schemaVersion);
    RunScript(handle, mark.constData());
}

void FillStockLevels(sqlite3* handle)
{
    RunScript(handle, "DELETE FROM StockLevels;"
                      "INSERT INTO StockLevels (ProductID, BranchCode, Stock, Movements)"
                      " SELECT ProductID, BranchCode, total(Qty), sum(Movements)"
                      " FROM StockMovements"
                      " WHERE ProductID IS NOT NULL AND BranchCode IS NOT NULL"
                      " GROUP BY ProductID, BranchCode");
}

} // namespace TradeForms
