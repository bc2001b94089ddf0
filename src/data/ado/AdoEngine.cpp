#include "data/ado/AdoEngine.h"

#include "data/CompanyTables.h"
#include "data/Utf8.h"
#include "data/ado/AdoRowWriter.h"
#include "data/server/SimpleSource.h"
#include "data/server/TransactSql.h"

namespace TradeForms {

namespace {

void requireOneStatement(const QString& statement)
{
    const QByteArray bytes = statement.toUtf8();
    TransactSql::RequireOneStatement(ReadStatement(ViewOf(bytes)));
}

QString placeOf(const QString& table, const QString& column)
{
    return (table + u'.' + column).toLower();
}

/// A database that the host created may lack the table that is locked. A system table is read then,
/// since with some providers only a read begins the transaction.
QString takeLockIfThere()
{
    return QStringLiteral("if object_id('dbo.SchemaVersion') is null "
                          "select top (0) name from sys.objects else ") +
           TransactSql::TakeLock();
}

/// Reads a result with a client-side cursor, so that other statements may be run meanwhile.
class AdoCursor : public Cursor {
public:
    AdoCursor(HostLink& link, std::unique_ptr<HostRows> rows,
              std::shared_ptr<const ResultMetadata> columns)
        : link_(link), rows_(std::move(rows)), columns_(std::move(columns))
    {
    }

    std::optional<std::string_view> Next() override
    {
        if (!rows_)
            return std::nullopt;
        const auto row = link_.Guarded([&] { return rows_->Next(); });
        count_ += row.has_value();
        return row;
    }

    std::shared_ptr<const ResultMetadata> Columns() const override { return columns_; }

    qint64 Work() const override { return count_; }

private:
    HostLink& link_;
    std::unique_ptr<HostRows> rows_;
    std::shared_ptr<const ResultMetadata> columns_;
    qint64 count_ = 0;
};

} // namespace

AdoEngine::AdoEngine(const Dispatch& connection)
    : link_(connection), dialect_(TransactSql::Dialect())
{
}

AdoEngine::~AdoEngine() = default;

void AdoEngine::Scan(const QString& statement, const OnColumns& begin, const OnRow& each,
                     Purpose purpose)
{
    requireOneStatement(statement);
    const Dispatch result = link_.Run(statement);
    if (!result)
        return;
    link_.Guarded([&] {
        HostRows rows(result);
        const auto metadata = metadataOf(rows.Columns(), statement, purpose);
        rows.SetKinds(*metadata);
        begin(metadata);
        while (const auto row = rows.Next())
            each(*row);
    });
}

std::unique_ptr<Cursor> AdoEngine::OpenCursor(const QString& statement)
{
    requireOneStatement(statement);
    const Dispatch result = link_.Run(statement);
    if (!result)
        return std::make_unique<AdoCursor>(
            link_, nullptr, std::make_shared<const ResultMetadata>(std::vector<Column>()));
    return link_.Guarded([&] {
        auto rows = std::make_unique<HostRows>(result);
        auto metadata = metadataOf(rows->Columns(), statement, Purpose::Read);
        rows->SetKinds(*metadata);
        return std::make_unique<AdoCursor>(link_, std::move(rows), std::move(metadata));
    });
}

/// The connection does not report base tables, so the statement is examined. For tables of the
/// company's schema the column types come from the schema, since older providers report substitute
/// types.
std::shared_ptr<const ResultMetadata> AdoEngine::metadataOf(const std::vector<HostColumn>& columns,
                                                            const QString& statement,
                                                            Purpose purpose)
{
    const QString table = TableOfSimpleQuery(statement);
    const CompanyTable* known = CompanyTableNamed(table);
    std::vector<Column> described;
    for (const HostColumn& column : columns) {
        const CompanyTable::Field* field = known ? known->Find(column.Name) : nullptr;
        described.push_back({column.Name, field ? field->Kind : column.Kind(), {}, {}});
        if (purpose == Purpose::Write && !table.isEmpty()) {
            described.back().Table = table;
            described.back().Field = column.Name;
            columns_.insert(placeOf(table, column.Name), column);
        }
    }
    return std::make_shared<const ResultMetadata>(std::move(described));
}

HostColumn AdoEngine::ColumnOf(const QString& table, const QString& name) const
{
    return columns_.value(placeOf(table, name), HostColumn{name});
}

std::unique_ptr<RowWriter> AdoEngine::WriterFor(std::shared_ptr<const ResultMetadata> metadata)
{
    return std::make_unique<AdoRowWriter>(*this, std::move(metadata));
}

void AdoEngine::beginNative()
{
    try {
        link_.Begin();
    } catch (const ProviderFailure& failure) {
        if (!link_.IsWithinTransaction())
            throw;
        throw ProviderFailure(QStringLiteral("The program has begun a transaction of its own on "
                                             "this connection and has not ended it. (%1)")
                                  .arg(failure.Description()),
                              failure.Number());
    }
    try {
        link_.Run(takeLockIfThere());
    } catch (const ProviderFailure&) {
        if (link_.IsOpen())
            link_.Rollback();
        throw;
    }
}

void AdoEngine::setSavepoint()
{
    link_.Run(TransactSql::SetSavepoint());
}

void AdoEngine::rollbackToSavepoint()
{
    link_.Run(TransactSql::RollbackToSavepoint());
}

} // namespace TradeForms
