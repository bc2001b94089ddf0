#include "data/odbc/OdbcRowWriter.h"

#include "data/Failure.h"
#include "data/odbc/Parameters.h"
#include "data/odbc/ResultReader.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace TradeForms {

namespace {

/// Leaves a statement ready for the next time, however its run ended.
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

/// Runs a kept statement with its values; `use` takes what it gives.
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

/// Of rows that are alike in everything any one will do.
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
        // A key is compared as the table compares it, which an index serves.
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
    // What was left out the table fills in: defaults and numbers of its own.
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
