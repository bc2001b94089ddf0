#include "data/odbc/OdbcRowWriter.h"

#include "data/Failure.h"
#include "data/odbc/Parameters.h"
#include "data/odbc/ResultReader.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace TradeForms {

namespace {

/// Closes the result and the parameters of a prepared statement at the end of a scope.
class CloseAtEnd {
public:
    explicit CloseAtEnd(const OdbcStatement& statement) : handle_(statement.Get()) {}
    ~CloseAtEnd()
    {
        SQLFreeStmt(handle_, SQL_CLOSE);
        SQLFreeStmt(handle_, SQL_RESET_PARAMS);
    }
    CloseAtEnd(const CloseAtEnd&) = delete;
    CloseAtEnd& operator=(const CloseAtEnd&) = delete;

private:
    SQLHANDLE handle_;
};

/// Runs a prepared statement with its parameters; `use` reads its result.
template <class Use>
void execute(OdbcEngine& engine, const QString& text, Parameters& values, Use use)
{
    engine.Guarded([&] {
        OdbcLink& link = engine.Link();
        const OdbcStatement& statement = engine.Prepared(text);
        const CloseAtEnd close(statement);
        values.Bind(link, statement);
        link.Check(SQLExecute(statement.Get()), statement);
        use(link, statement);
        link.Finish(statement);
    });
}

qint64 rowsChangedBy(OdbcEngine& engine, const QString& text, Parameters& values)
{
    SQLLEN rows = 0;
    execute(engine, text, values, [&](OdbcLink& link, const OdbcStatement& statement) {
        link.Check(SQLRowCount(statement.Get(), &rows), statement);
    });
    return rows;
}

std::string rowReturnedBy(OdbcEngine& engine, const QString& text, Parameters& values)
{
    std::string returned;
    execute(engine, text, values, [&](OdbcLink& link, const OdbcStatement& statement) {
        ResultReader(link, engine.DatabaseServer(), statement).Read([&](std::string_view row) {
            returned = row;
        });
    });
    return returned;
}

} // namespace

OdbcRowWriter::OdbcRowWriter(OdbcEngine& engine, std::shared_ptr<const ResultMetadata> metadata)
    : engine_(engine), metadata_(std::move(metadata)), table_(QuotedName(metadata_->BaseTable())),
      columns_(engine_.Table(metadata_->BaseTable()))
{
}

const ServerColumn& OdbcRowWriter::serverColumn(int index) const
{
    const ServerColumn* found = columns_.Find(metadata_->At(index).Field);
    if (!found)
        throw ProviderFailure(QStringLiteral("The table '%1' has no column '%2'.")
                                  .arg(metadata_->BaseTable(), metadata_->At(index).Field));
    return *found;
}

/// Whether several rows may match: without a key, rows that are equal in all columns cannot be
/// distinguished, and any one of them is written.
bool OdbcRowWriter::mayFindDuplicates() const
{
    return columns_.Keys.isEmpty() && metadata_->Count() == int(columns_.Columns.size());
}

const OdbcRowWriter::RowCondition& OdbcRowWriter::conditionFor(const char* original)
{
    const int count = metadata_->Count();
    std::vector<bool> nulls;
    const char* at = original;
    for (int index = 0; index < count; ++index)
        nulls.push_back(ReadCell(at).IsNull());
    if (nulls == condition_.Nulls)
        return condition_;

    condition_ = {nulls, {}, {}};
    QStringList conditions;
    for (int index = 0; index < count; ++index) {
        const ServerColumn& column = serverColumn(index);
        if (nulls[std::size_t(index)]) {
            conditions.append(QuotedName(column.Name) + QLatin1String(" is null"));
            continue;
        }
        // A key is compared with the column's collation, for which an index can be used.
        const Server::Condition equality = columns_.IsKey(column.Name)
                                               ? engine_.DatabaseServer().Equals(column)
                                               : engine_.DatabaseServer().IsExactly(column);
        conditions.append(equality.Text);
        condition_.Columns.insert(condition_.Columns.end(), std::size_t(equality.Values), index);
    }
    condition_.Text = conditions.join(QLatin1String(" and "));
    return condition_;
}

std::string OdbcRowWriter::Insert(const char* row, const std::vector<bool>& touched)
{
    QStringList all;
    QStringList chosen;
    QStringList marks;
    Parameters values;
    const char* at = row;
    for (int index = 0; index < metadata_->Count(); ++index) {
        const ServerColumn& column = serverColumn(index);
        const Cell cell = ReadCell(at);
        all.append(QuotedName(column.Name));
        if (!touched[std::size_t(index)])
            continue;
        chosen.append(all.last());
        marks.append(QStringLiteral("?"));
        values.Add(cell, column);
    }
    // Columns that were not set get defaults and generated numbers, which are read back.
    const QStringList returned = chosen.size() == all.size() ? QStringList() : all;
    const Server::Insertion insertion = engine_.DatabaseServer().InsertStatement(
        table_, chosen.join(u", "_s), marks.join(u", "_s), returned);
    if (returned.isEmpty() || !insertion.ReadBack.isEmpty())
        rowsChangedBy(engine_, insertion.Text, values);
    else
        return rowReturnedBy(engine_, insertion.Text, values);
    Parameters none;
    return insertion.ReadBack.isEmpty() ? std::string()
                                        : rowReturnedBy(engine_, insertion.ReadBack, none);
}

qint64 OdbcRowWriter::Update(const char* original, const char* row,
                             const std::vector<bool>& touched)
{
    const RowCondition& condition = conditionFor(original);
    QStringList settings;
    Parameters values;
    for (int index = 0; index < metadata_->Count(); ++index) {
        const Cell cell = ReadCell(row);
        if (!touched[std::size_t(index)])
            continue;
        const ServerColumn& column = serverColumn(index);
        settings.append(QuotedName(column.Name) + QLatin1String(" = ?"));
        values.Add(cell, column);
    }
    for (const int index : condition.Columns)
        values.Add(CellAt(original, index), serverColumn(index));
    return rowsChangedBy(engine_,
                         engine_.DatabaseServer().UpdateStatement(
                             table_, settings.join(u", "_s), condition.Text, mayFindDuplicates()),
                         values);
}

qint64 OdbcRowWriter::Delete(const char* original)
{
    const RowCondition& condition = conditionFor(original);
    Parameters values;
    for (const int index : condition.Columns)
        values.Add(CellAt(original, index), serverColumn(index));
    return rowsChangedBy(
        engine_,
        engine_.DatabaseServer().DeleteStatement(table_, condition.Text, mayFindDuplicates()),
        values);
}

} // namespace TradeForms
