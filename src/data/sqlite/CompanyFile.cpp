#include "data/sqlite/CompanyFile.h"

#include "data/Failure.h"
#include "data/SchemaVersion.h"
#include "data/sqlite/CompanySchema.h"
#include "data/sqlite/SqliteEngine.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace TradeForms {

/// The text of schema/sqlite.sql, which the build makes a part of the library.
const char* SqliteSchemaScript();

namespace {

// Stands in the schema script as well, which writes it into a new file.
constexpr qint64 applicationId = 0x5464466D;

[[noreturn]] void raise(const QString& description, const QString& file, int number)
{
    throw ProviderFailure(description.arg(QDir::toNativeSeparators(file)), number);
}

void requireWritableFolder(const QFileInfo& info)
{
    const QFileInfo folder(info.absolutePath());
    if (!folder.isDir())
        raise(QStringLiteral("The folder of '%1' was not found."), info.absoluteFilePath(),
              SQLITE_CANTOPEN);
    if (!IsWritable(folder))
        raise(QStringLiteral("The folder of '%1' is read-only. A company can be kept only where "
                             "files can be written."),
              info.absoluteFilePath(), SQLITE_READONLY_DIRECTORY);
}

/// Without a log to complete it, a file consists of whole pages.
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
        raise(QStringLiteral("'%1' belongs to another program."), file, SQLITE_NOTADB);
    if (owner == 0 || version < 1)
        raise(QStringLiteral("'%1' holds no company."), file, SQLITE_NOTADB);
    if (version > schemaVersion)
        raise(QStringLiteral("'%1' was made by a newer version of this program. Install that "
                             "version to open it."),
              file, SQLITE_SCHEMA);
    // One of an older version is looked at when it has been brought up to date.
    if (version == schemaVersion)
        RequireCompanySchema(handle, QDir::toNativeSeparators(file));
}

void requireWritable(sqlite3* handle, const QString& file)
{
    if (sqlite3_db_readonly(handle, "main") != 0)
        raise(QStringLiteral("'%1' is read-only. Nothing could be saved in it."), file,
              SQLITE_READONLY);
}

/// Something that the schema names: a table, an index, a view or a trigger.
struct SchemaObject {
    QByteArray Kind;
    QByteArray Name;
    QByteArray Definition;
};

QByteArray readBytes(sqlite3_stmt* statement, int column)
{
    const std::string_view text = ReadColumn(statement, column).Bytes;
    return QByteArray(text.data(), qsizetype(text.size()));
}

/// What the schema script makes, in the order in which it can be made. What belongs to a table
/// without a definition of its own is left out.
QList<SchemaObject> schemaObjects()
{
    sqlite3* raw = nullptr;
    sqlite3_open(":memory:", &raw);
    SqliteEngine model{Handle(raw)};
    RunScript(model.Raw(), SqliteSchemaScript());
    const PreparedStatement read =
        Prepare(model.Raw(), "SELECT type, name, sql FROM sqlite_master WHERE sql IS NOT NULL"
                             " AND name NOT LIKE 'sqlite%' ORDER BY rowid");
    QList<SchemaObject> objects;
    while (Step(read.get()))
        objects.append(
            {readBytes(read.get(), 0), readBytes(read.get(), 1), readBytes(read.get(), 2)});
    return objects;
}

QByteArray definitionOf(sqlite3* handle, const SchemaObject& object)
{
    const PreparedStatement read =
        Prepare(handle, "SELECT sql FROM sqlite_master WHERE type = ?1 AND name = ?2");
    BindText(read.get(), 1, {object.Kind.constData(), std::size_t(object.Kind.size())});
    BindText(read.get(), 2, {object.Name.constData(), std::size_t(object.Name.size())});
    return Step(read.get()) ? readBytes(read.get(), 0) : QByteArray();
}

/// Makes what an older company lacks, and anew what is defined otherwise by now. Tables that are
/// there keep their rows and columns, and whatever a host has added stays.
void makeObjects(sqlite3* handle)
{
    for (const SchemaObject& object : schemaObjects()) {
        const QByteArray present = definitionOf(handle, object);
        if (present == object.Definition || (!present.isEmpty() && object.Kind == "table"))
            continue;
        if (!present.isEmpty())
            RunScript(handle, ("DROP " + object.Kind + ' ' + object.Name).constData());
        RunScript(handle, object.Definition.constData());
    }
}

/// Brings a company of an older version up to date, all or nothing. Of two who open it at once
/// the second finds it done.
void bringUpToDate(SqliteEngine& engine, const QString& file)
{
    sqlite3* handle = engine.Raw();
    const auto isOld = [&] { return ReadInteger(handle, "PRAGMA user_version") < schemaVersion; };
    if (!isOld())
        return;
    engine.Atomically([&] {
        if (!isOld())
            return;
        makeObjects(handle);
        RequireCompanySchema(handle, QDir::toNativeSeparators(file));
        FillStockLevels(handle);
        MarkAsCompany(handle);
    });
}

void requireFile(const QFileInfo& info)
{
    if (!info.exists())
        raise(QStringLiteral("The company file '%1' was not found."), info.absoluteFilePath(),
              SQLITE_CANTOPEN);
    if (info.isDir())
        raise(QStringLiteral("'%1' is a folder, not a company file."), info.absoluteFilePath(),
              SQLITE_CANTOPEN);
}

std::unique_ptr<Engine> create(const QString& file, const QByteArray& script)
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
        auto engine = OpenFile(path, customaryLockWait);
        ConfigureCompany(engine->Raw());
        engine->Atomically([&] { RunScript(engine->Raw(), script.constData()); });
        return engine;
    } catch (...) {
        for (const char* part : {"", "-journal", "-wal", "-shm"})
            QFile::remove(path + QLatin1String(part));
        throw;
    }
}

} // namespace

bool IsWritable(const QFileInfo& info)
{
    // WriteUser would tell what this user can do, as isWritable does.
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
        raise(QStringLiteral("'%1' could not be opened."), file, result);
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
        raise(QStringLiteral("'%1' is read-only. Nothing could be saved in it."), path,
              SQLITE_READONLY);
    requireWritableFolder(info);

    const bool hasLog = QFileInfo(path + QStringLiteral("-wal")).size() > 0;
    auto engine = OpenFile(path, lockWait);
    requireCompany(engine->Raw(), path);
    if (!hasLog)
        requireWholePages(engine->Raw(), info);
    requireWritable(engine->Raw(), path);
    ConfigureCompany(engine->Raw());
    bringUpToDate(*engine, path);
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
        script += readBytes(read.get(), 0) + ";\n";
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
