#include "data/sqlite/SqliteEngine.h"

#include "data/Failure.h"
#include "data/sqlite/Functions.h"
#include "data/sqlite/SqliteRowWriter.h"

#include <QRandomGenerator>

#include <algorithm>

namespace TradeForms {

namespace {

// Enough for all statements of the library and of a host, each with several values.
constexpr int adaptedStatementLimit = 1024;
constexpr int preparedStatementLimit = 128;

Handle withDialect(Handle handle)
{
    // Without this, a misspelt name in double quotes would be a string literal.
    sqlite3_db_config(handle.get(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle.get(), SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    RegisterDialect(handle.get());
    return handle;
}

bool contains(const QString& declared, const char* word)
{
    return declared.contains(QLatin1String(word), Qt::CaseInsensitive);
}

/// The column kind of a declared type. Columns of a host may be declared with the server's types.
ColumnKind kindOf(const char* declaredType)
{
    if (!declaredType)
        return ColumnKind::Expression;
    const QString declared = QString::fromUtf8(declaredType);
    if (contains(declared, "BIT") || contains(declared, "BOOL"))
        return ColumnKind::Flag;
    if (contains(declared, "DATETIME") || contains(declared, "TIMESTAMP"))
        return ColumnKind::DateTime;
    if (contains(declared, "DATE"))
        return ColumnKind::Date;
    if (contains(declared, "INT"))
        return ColumnKind::Integer;
    if (contains(declared, "CHAR") || contains(declared, "CLOB") || contains(declared, "TEXT"))
        return ColumnKind::Text;
    if (contains(declared, "BLOB") || contains(declared, "BINARY"))
        return ColumnKind::Binary;
    return ColumnKind::Number;
}

Column describeColumn(sqlite3_stmt* statement, int index, Engine::Purpose purpose)
{
    Column column;
    column.Name = QString::fromUtf8(sqlite3_column_name(statement, index));
    column.Kind = kindOf(sqlite3_column_decltype(statement, index));
    if (purpose == Engine::Purpose::Write) {
        column.Table = QString::fromUtf8(sqlite3_column_table_name(statement, index));
        column.Field = QString::fromUtf8(sqlite3_column_origin_name(statement, index));
    }
    return column;
}

std::shared_ptr<const ResultMetadata> describe(sqlite3_stmt* statement, Engine::Purpose purpose)
{
    std::vector<Column> columns;
    for (int index = 0; index < sqlite3_column_count(statement); ++index)
        columns.push_back(describeColumn(statement, index, purpose));
    return std::make_shared<const ResultMetadata>(std::move(columns));
}

/// Encodes the current row of a statement.
void encodeRow(std::string& row, sqlite3_stmt* statement, int columns)
{
    row.clear();
    for (int column = 0; column < columns; ++column)
        AppendCell(row, ReadColumn(statement, column));
}

/// It owns its statement, since cached statements are valid only until the next call.
class SqliteCursor : public Cursor {
public:
    explicit SqliteCursor(PreparedStatement statement) : statement_(std::move(statement)) {}

    std::optional<std::string_view> Next() override
    {
        const bool hasRow = Step(statement_.get());
        if (!columns_)
            columns_ = describe(statement_.get(), Engine::Purpose::Read);
        if (!hasRow)
            return std::nullopt;
        encodeRow(row_, statement_.get(), columns_->Count());
        return row_;
    }

    std::shared_ptr<const ResultMetadata> Columns() const override { return columns_; }

    qint64 Work() const override
    {
        return sqlite3_stmt_status(statement_.get(), SQLITE_STMTSTATUS_VM_STEP, 0);
    }

private:
    PreparedStatement statement_;
    std::shared_ptr<const ResultMetadata> columns_;
    std::string row_;
};

} // namespace

SqliteEngine::SqliteEngine(Handle handle)
    : handle_(withDialect(std::move(handle))), adapted_(adaptedStatementLimit),
      prepared_(preparedStatementLimit), functions_(handle_.get())
{
    sqlite3_busy_handler(handle_.get(), waitForLock, this);
}

SqliteEngine::~SqliteEngine() = default;

/// Busy handler: called while another process holds the lock. Waits for a random time, so that two
/// processes do not collide repeatedly.
int SqliteEngine::waitForLock(void* self, int attempt)
{
    auto& engine = *static_cast<SqliteEngine*>(self);
    const std::chrono::milliseconds now = engine.clock_->Now();
    if (attempt == 0)
        engine.lockWaitBegan_ = now;
    const std::chrono::milliseconds left = engine.lockWait_ - (now - engine.lockWaitBegan_);
    if (left.count() <= 0)
        return 0;
    constexpr int longestPause = 25;
    const std::chrono::milliseconds pause(
        1 + QRandomGenerator::global()->bounded(std::min(attempt + 1, longestPause)));
    engine.clock_->Sleep(std::min(pause, left));
    return 1;
}

bool SqliteEngine::isNativeOpen() const
{
    return sqlite3_get_autocommit(handle_.get()) == 0;
}

void SqliteEngine::rollbackToSavepoint()
{
    run("ROLLBACK TO mark");
    run("RELEASE mark");
}

void SqliteEngine::run(const QByteArray& text)
{
    sqlite3_stmt* statement = Prepared(text);
    const ResetAtEnd reset(statement);
    Step(statement);
}

const AdaptedStatement& SqliteEngine::Adapted(const QString& statement)
{
    if (const AdaptedStatement* known = adapted_.object(statement))
        return *known;
    auto* made = new AdaptedStatement(AdaptStatement(statement.toUtf8()));
    adapted_.insert(statement, made);
    return *made;
}

SqliteEngine::CachedStatement& SqliteEngine::cachedStatement(const QByteArray& text)
{
    if (CachedStatement* known = prepared_.object(text))
        return *known;
    auto* made = new CachedStatement{Prepare(handle_.get(), text), nullptr, Purpose::Read, 0};
    prepared_.insert(text, made);
    return *made;
}

/// The columns of a statement. They are read again where SQLite has prepared it again, since
/// `select *` may have more columns then.
std::shared_ptr<const ResultMetadata> SqliteEngine::metadataOf(CachedStatement& cached,
                                                               Purpose purpose)
{
    sqlite3_stmt* statement = cached.Compiled.get();
    const int preparations = sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_REPREPARE, 0);
    if (!cached.Columns || preparations != cached.Preparations || purpose != cached.ReadFor) {
        cached.Columns = describe(statement, purpose);
        cached.ReadFor = purpose;
        cached.Preparations = preparations;
    }
    return cached.Columns;
}

void SqliteEngine::Scan(const QString& statement, const OnColumns& begin, const OnRow& each,
                        Purpose purpose)
{
    const AdaptedStatement& ready = Adapted(statement);
    if (ready.Procedure) {
        Atomically([&] { functions_.Call(ready.Procedure->Name, ready.Procedure->Arguments); });
        return;
    }
    CachedStatement& cached = cachedStatement(ready.Text);
    sqlite3_stmt* compiled = cached.Compiled.get();
    const ResetAtEnd reset(compiled);
    bool hasRow = Step(compiled);
    const int columns = sqlite3_column_count(compiled);
    if (columns == 0)
        return;
    begin(metadataOf(cached, purpose));
    for (; hasRow; hasRow = Step(compiled)) {
        encodeRow(row_, compiled, columns);
        each(row_);
    }
}

std::unique_ptr<Cursor> SqliteEngine::OpenCursor(const QString& statement)
{
    const AdaptedStatement& ready = Adapted(statement);
    if (ready.Procedure)
        return nullptr;
    return std::make_unique<SqliteCursor>(Prepare(handle_.get(), ready.Text, false));
}

std::unique_ptr<RowWriter> SqliteEngine::WriterFor(std::shared_ptr<const ResultMetadata> metadata)
{
    return std::make_unique<SqliteRowWriter>(*this, std::move(metadata));
}

QStringList SqliteEngine::TableNames()
{
    sqlite3_stmt* statement =
        Prepared("SELECT name FROM sqlite_schema WHERE type = 'table'"
                 " AND name NOT LIKE 'sqlite~_%' ESCAPE '~' AND name <> 'StockLevels'"
                 " ORDER BY name COLLATE NOCASE");
    const ResetAtEnd reset(statement);
    QStringList names;
    while (Step(statement))
        names.append(ReadText(statement, 0));
    return names;
}

void SqliteEngine::BeginReadTransaction()
{
    run("BEGIN");
    try {
        // The first read determines the state that is seen.
        run("SELECT count(*) FROM sqlite_schema");
    } catch (...) {
        EndReadTransaction();
        throw;
    }
}

void SqliteEngine::EndReadTransaction() noexcept
{
    sqlite3_exec(handle_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void SqliteEngine::BeginLoad()
{
    if (load_)
        throw ProviderFailure(QStringLiteral("A bulk load has begun already."), SQLITE_MISUSE);
    if (isNativeOpen())
        throw ProviderFailure(QStringLiteral("A bulk load cannot begin within a transaction."),
                              SQLITE_MISUSE);
    load_.emplace(handle_.get());
}

void SqliteEngine::EndLoad(const std::function<void(int, int)>& progress)
{
    if (!load_)
        throw ProviderFailure(QStringLiteral("No bulk load has begun."), SQLITE_MISUSE);
    if (isNativeOpen())
        throw ProviderFailure(QStringLiteral("A bulk load cannot end within a transaction."),
                              SQLITE_MISUSE);
    load_->Finish(progress);
    load_.reset();
}

} // namespace TradeForms
