#include "data/odbc/OdbcEngine.h"

#include "data/Failure.h"
#include "data/Utf8.h"
#include "data/odbc/OdbcLoader.h"
#include "data/odbc/OdbcRowWriter.h"
#include "data/odbc/ResultReader.h"
#include "data/server/ServerFailure.h"
#include "data/server/SimpleSource.h"

#include <algorithm>
#include <map>

namespace TradeForms {

namespace {

constexpr int preparedStatementLimit = 64;

/// A number of a catalogue result, which some drivers return as text.
int numberOf(const Cell& cell)
{
    return cell.Kind == Cell::Type::Text ? FromUtf8(cell.Bytes).toInt() : int(cell.Integer);
}

/// Column indexes in the results of the catalogue functions.
namespace CatalogueColumn {
constexpr int Table = 2;
constexpr int Column = 3;
constexpr int Type = 4;
constexpr int Size = 6;
constexpr int Scale = 8;
constexpr int Nullable = 10;
constexpr int IndexName = 5;
constexpr int IndexColumn = 8;
constexpr int IndexCondition = 12;
} // namespace CatalogueColumn

} // namespace

OdbcEngine::OdbcEngine(const QString& connectionString)
    : link_(connectionString), server_(Server::Named(link_.Info(SQL_DBMS_NAME))),
      prepared_(preparedStatementLimit)
{
    link_.SetLockErrors([this](int number) { return server_->IsLockError(number); });
    run(server_->Settings());
}

OdbcEngine::~OdbcEngine() = default;

void OdbcEngine::run(const QStringList& statements)
{
    for (const QString& statement : statements)
        link_.Run(statement);
}

void OdbcEngine::Scan(const QString& statement, const OnColumns& begin, const OnRow& each,
                      Purpose purpose)
{
    const QByteArray bytes = statement.toUtf8();
    server_->RequireOneStatement(ReadStatement(ViewOf(bytes)));

    Guarded([&] {
        const QString text = serverText(statement);
        const OdbcStatement handle = link_.NewStatement();
        link_.Check(SQLExecDirectW(handle.Get(), OdbcText(text), SQLINTEGER(text.size())), handle);
        bool isBegun = false;
        do {
            // A procedure may return row counts before its result set.
            ResultReader reader(link_, *server_, handle);
            if (isBegun || reader.Count() == 0)
                continue;
            isBegun = true;
            begin(metadataOf(reader.Describe(purpose), statement, purpose));
            reader.Read(each);
        } while (link_.Check(SQLMoreResults(handle.Get()), handle));
    });
}

/// Where the driver does not report base tables for rows that are to be written, the base table is
/// taken from the statement.
std::shared_ptr<const ResultMetadata>
OdbcEngine::metadataOf(std::vector<Column> columns, const QString& statement, Purpose purpose) const
{
    const bool isUnknown = std::all_of(columns.begin(), columns.end(),
                                       [](const Column& column) { return column.Table.isEmpty(); });
    if (purpose == Purpose::Write && isUnknown) {
        const QString table = TableOfSimpleQuery(statement);
        for (Column& column : columns) {
            column.Table = table;
            column.Field = table.isEmpty() ? QString() : column.Name;
        }
    }
    return std::make_shared<const ResultMetadata>(std::move(columns));
}

std::unique_ptr<RowWriter> OdbcEngine::WriterFor(std::shared_ptr<const ResultMetadata> metadata)
{
    return std::make_unique<OdbcRowWriter>(*this, std::move(metadata));
}

std::unique_ptr<RowWriter> OdbcEngine::LoaderFor(std::shared_ptr<const ResultMetadata> metadata)
{
    return std::make_unique<OdbcLoader>(*this, metadata);
}

void OdbcEngine::BeginReadTransaction()
{
    run(server_->BeforeReadTransaction());
    link_.SetAutocommit(false);
    isOpen_ = true;
    try {
        // The first statement determines the state that is read.
        link_.ReadNumber(server_->VersionQuery());
    } catch (...) {
        EndReadTransaction();
        throw;
    }
}

void OdbcEngine::EndReadTransaction() noexcept
{
    try {
        rollbackNative();
        run(server_->AfterReadTransaction());
    } catch (const ProviderFailure&) {
        // The connection is lost, and its transaction with it; the next statement reports it.
    }
}

void OdbcEngine::beginNative()
{
    link_.SetAutocommit(false);
    isOpen_ = true;
    try {
        link_.Run(server_->TakeLock());
    } catch (const ProviderFailure&) {
        rollbackNative();
        throw;
    }
}

/// Returns to autocommit after a transaction.
void OdbcEngine::resumeAutocommit()
{
    isOpen_ = false;
    try {
        link_.SetAutocommit(true);
    } catch (const ProviderFailure&) {
        // Further statements would run in a transaction that is never committed.
        link_.MarkLost();
    }
}

void OdbcEngine::commitNative()
{
    try {
        Guarded([&] { link_.EndTransaction(SQL_COMMIT); });
    } catch (const ProviderFailure& failure) {
        if (!link_.IsLost())
            throw;
        throw ProviderFailure(LostInCommitText(failure.Description()), failure.Number());
    }
    resumeAutocommit();
}

/// A server rolls back the transaction of a lost session by itself.
void OdbcEngine::rollbackNative()
{
    try {
        link_.EndTransaction(SQL_ROLLBACK);
    } catch (const ProviderFailure&) {
        if (!link_.IsLost())
            throw;
    }
    resumeAutocommit();
}

void OdbcEngine::setSavepoint()
{
    Guarded([&] { link_.Run(server_->SetSavepoint()); });
}

void OdbcEngine::releaseSavepoint()
{
    Guarded([&] { run(server_->ReleaseSavepoint()); });
}

void OdbcEngine::rollbackToSavepoint()
{
    Guarded([&] { run(server_->RollbackToSavepoint()); });
}

/// A server may roll the transaction back when a statement fails, for example in a deadlock.
/// Without this check the next statement would begin a new transaction unnoticed.
void OdbcEngine::checkTransaction()
{
    if (!isNativeOpen())
        return;
    try {
        if (!server_->IsTransactionOpen(link_))
            rollbackNative();
    } catch (const ProviderFailure&) {
        // The first failure is the one to report; a lost connection is reported by the next
        // statement.
    }
}

const OdbcStatement& OdbcEngine::Prepared(const QString& text)
{
    if (const OdbcStatement* known = prepared_.object(text); known && !link_.IsLost())
        return *known;
    auto made = std::make_unique<OdbcStatement>(link_.NewStatement());
    link_.Check(SQLPrepareW(made->Get(), OdbcText(text), SQLINTEGER(text.size())), *made);
    const OdbcStatement& statement = *made;
    prepared_.insert(text, made.release());
    return statement;
}

const ServerTable& OdbcEngine::Table(const QString& name)
{
    const QString known = name.toLower();
    if (const auto found = tables_.find(known); found != tables_.end())
        return found->second;
    ServerTable table;
    readColumns(name, table);
    if (table.Columns.empty())
        throw ProviderFailure(
            QStringLiteral("The database does not tell the columns of '%1'.").arg(name));
    readPrimaryKey(name, table);
    if (table.Keys.isEmpty())
        readUniqueIndex(name, table);
    return tables_.emplace(known, std::move(table)).first->second;
}

namespace {

/// A name as an argument of a catalogue function: null for an empty one.
struct CatalogueName {
    explicit CatalogueName(const QString& name)
        : Text(name.isEmpty() ? nullptr : OdbcText(name)), Length(SQLSMALLINT(name.size()))
    {
    }
    SQLWCHAR* Text;
    SQLSMALLINT Length;
};

} // namespace

QStringList OdbcEngine::TableNames()
{
    const OdbcStatement handle = link_.NewStatement();
    const QString schemaName = server_->Schema();
    const CatalogueName schema(schemaName);
    const QString kindName = QStringLiteral("TABLE");
    const CatalogueName kind(kindName);
    link_.Check(SQLTablesW(handle.Get(), nullptr, 0, schema.Text, schema.Length, nullptr, 0,
                           kind.Text, kind.Length),
                handle);
    QStringList names;
    ResultReader(link_, *server_, handle).Read([&](std::string_view row) {
        const QString name = FromUtf8(CellAt(row.data(), CatalogueColumn::Table).Bytes);
        if (!server_->IsSystemTable(name))
            names.append(name);
    });
    names.sort(Qt::CaseInsensitive);
    return names;
}

void OdbcEngine::readColumns(const QString& name, ServerTable& table)
{
    const OdbcStatement handle = link_.NewStatement();
    const QString schemaName = server_->Schema();
    const CatalogueName schema(schemaName);
    const CatalogueName wanted(name);
    link_.Check(SQLColumnsW(handle.Get(), nullptr, 0, schema.Text, schema.Length, wanted.Text,
                            wanted.Length, nullptr, 0),
                handle);
    ResultReader(link_, *server_, handle).Read([&](std::string_view row) {
        const auto cell = [&](int place) { return CellAt(row.data(), place); };
        // An underscore in the name matches any character.
        if (!IsSameName(FromUtf8(cell(CatalogueColumn::Table).Bytes), name))
            return;
        table.Columns.push_back(
            {FromUtf8(cell(CatalogueColumn::Column).Bytes), numberOf(cell(CatalogueColumn::Type)),
             numberOf(cell(CatalogueColumn::Size)), numberOf(cell(CatalogueColumn::Scale)),
             numberOf(cell(CatalogueColumn::Nullable)) != SQL_NO_NULLS});
    });
}

void OdbcEngine::readPrimaryKey(const QString& name, ServerTable& table)
{
    const OdbcStatement handle = link_.NewStatement();
    const QString schemaName = server_->Schema();
    const CatalogueName schema(schemaName);
    const CatalogueName wanted(name);
    link_.Check(SQLPrimaryKeysW(handle.Get(), nullptr, 0, schema.Text, schema.Length, wanted.Text,
                                wanted.Length),
                handle);
    ResultReader(link_, *server_, handle).Read([&](std::string_view row) {
        table.Keys.append(FromUtf8(CellAt(row.data(), CatalogueColumn::Column).Bytes));
    });
}

/// Without a primary key, a unique index on columns that are not nullable serves as key.
void OdbcEngine::readUniqueIndex(const QString& name, ServerTable& table)
{
    const OdbcStatement handle = link_.NewStatement();
    const QString schemaName = server_->Schema();
    const CatalogueName schema(schemaName);
    const CatalogueName wanted(name);
    link_.Check(SQLStatisticsW(handle.Get(), nullptr, 0, schema.Text, schema.Length, wanted.Text,
                               wanted.Length, SQL_INDEX_UNIQUE, SQL_QUICK),
                handle);
    std::map<QString, QStringList> indexes;
    ResultReader(link_, *server_, handle).Read([&](std::string_view row) {
        const auto cell = [&](int place) { return CellAt(row.data(), place); };
        // Without the row for the table itself and filtered indexes.
        if (!cell(CatalogueColumn::IndexName).IsNull() &&
            cell(CatalogueColumn::IndexCondition).IsNull())
            indexes[FromUtf8(cell(CatalogueColumn::IndexName).Bytes)].append(
                FromUtf8(cell(CatalogueColumn::IndexColumn).Bytes));
    });
    const auto isNeverNull = [&](const QString& column) {
        const ServerColumn* found = table.Find(column);
        return found && !found->IsNullable;
    };
    for (const auto& [index, columns] : indexes) {
        if (std::all_of(columns.begin(), columns.end(), isNeverNull)) {
            table.Keys = columns;
            return;
        }
    }
}

} // namespace TradeForms
