#include "data/ado/AdoRowWriter.h"

#include "data/CompanyTables.h"
#include "data/ado/HostLiteral.h"
#include "data/server/TransactSql.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace TradeForms {

namespace {

// Limits of one batch: large enough that the round trip matters little.
constexpr int maxBatchStatements = 128;
constexpr qsizetype maxBatchLength = 64 * 1024;

} // namespace

AdoRowWriter::AdoRowWriter(AdoEngine& engine, std::shared_ptr<const ResultMetadata> metadata)
    : engine_(engine), metadata_(std::move(metadata)),
      known_(CompanyTableNamed(metadata_->BaseTable())), table_(QuotedName(metadata_->BaseTable()))
{
    for (int index = 0; index < metadata_->Count(); ++index) {
        const QString& field = metadata_->At(index).Field;
        columns_.push_back(engine_.ColumnOf(metadata_->BaseTable(), field));
        names_.append(QuotedName(field));
    }
}

QString AdoRowWriter::literal(int index, const Cell& cell) const
{
    return LiteralFor(cell, columns_[std::size_t(index)], metadata_->At(index).Kind);
}

/// A key is compared with the column's collation, for which an index can be used; any other text
/// byte by byte, so that a change of case is noticed.
QString AdoRowWriter::condition(int index, const Cell& cell) const
{
    const QString& name = names_[index];
    if (cell.IsNull())
        return name + QLatin1String(" is null");
    const QString value = literal(index, cell);
    const QString equals = name + QLatin1String(" = ") + value;
    const bool isKey = known_ && known_->IsKey(metadata_->At(index).Field);
    if (cell.Kind != Cell::Type::Text || metadata_->At(index).Kind != ColumnKind::Text || isKey)
        return equals;
    return equals + QLatin1String(" and cast(") + name +
           QLatin1String(" as varbinary(max)) = cast(") + value +
           QLatin1String(" as varbinary(max))");
}

QString AdoRowWriter::search(const char* original) const
{
    QStringList conditions;
    for (int index = 0; index < metadata_->Count(); ++index)
        conditions.append(condition(index, ReadCell(original)));
    return conditions.join(QLatin1String(" and "));
}

/// Whether several rows may match: without a key, rows that are equal in all columns cannot be
/// distinguished, and any one of them is written.
bool AdoRowWriter::mayFindDuplicates() const
{
    return known_ && known_->Keys.isEmpty() && metadata_->Count() == int(known_->Fields.size());
}

/// Columns that were not set get defaults and generated numbers, which are read back.
bool AdoRowWriter::returnsRow(const std::vector<bool>& touched) const
{
    return std::find(touched.begin(), touched.end(), false) != touched.end();
}

QString AdoRowWriter::insertStatement(const char* row, const std::vector<bool>& touched) const
{
    QStringList chosen;
    QStringList values;
    for (int index = 0; index < metadata_->Count(); ++index) {
        const Cell cell = ReadCell(row);
        if (!touched[std::size_t(index)])
            continue;
        chosen.append(names_[index]);
        values.append(literal(index, cell));
    }
    return TransactSql::InsertStatement(table_, chosen.join(u", "_s), values.join(u", "_s),
                                        returnsRow(touched) ? names_ : QStringList());
}

QString AdoRowWriter::updateStatement(const char* original, const char* row,
                                      const std::vector<bool>& touched) const
{
    QStringList settings;
    for (int index = 0; index < metadata_->Count(); ++index) {
        const Cell cell = ReadCell(row);
        if (touched[std::size_t(index)])
            settings.append(names_[index] + QLatin1String(" = ") + literal(index, cell));
    }
    return TransactSql::UpdateStatement(table_, settings.join(u", "_s), search(original),
                                        mayFindDuplicates());
}

QString AdoRowWriter::deleteStatement(const char* original) const
{
    return TransactSql::DeleteStatement(table_, search(original), mayFindDuplicates());
}

/// The count is missing where the session has set nocount on.
qint64 AdoRowWriter::changedBy(const QString& statement)
{
    qint32 changed = -1;
    engine_.Link().Run(statement, &changed);
    return changed >= 0 ? changed : engine_.Link().ReadNumber(QStringLiteral("select @@rowcount"));
}

std::string AdoRowWriter::rowReturnedBy(const QString& statement)
{
    std::string given;
    const Dispatch result = engine_.Link().Run(statement);
    if (!result)
        return given;
    engine_.Link().Guarded([&] {
        HostRows rows(result);
        rows.SetKinds(*metadata_);
        if (const auto row = rows.Next())
            given = *row;
    });
    return given;
}

std::string AdoRowWriter::Insert(const char* row, const std::vector<bool>& touched)
{
    const QString statement = insertStatement(row, touched);
    if (returnsRow(touched))
        return rowReturnedBy(statement);
    engine_.Link().Run(statement);
    return {};
}

qint64 AdoRowWriter::Update(const char* original, const char* row, const std::vector<bool>& touched)
{
    return changedBy(updateStatement(original, row, touched));
}

qint64 AdoRowWriter::Delete(const char* original)
{
    return changedBy(deleteStatement(original));
}

QString AdoRowWriter::statementFor(const RowChange& change) const
{
    switch (change.Kind) {
    case RowChange::Type::Insert:
        return insertStatement(change.Row, *change.Touched);
    case RowChange::Type::Update:
        return updateStatement(change.Original, change.Row, *change.Touched);
    case RowChange::Type::Delete:
        return deleteStatement(change.Original);
    }
    Q_UNREACHABLE();
}

/// Sends changes in batches, since a round trip takes longer than a change. Insertions that return
/// their row are sent alone.
std::vector<std::string> AdoRowWriter::Write(const std::vector<RowChange>& changes)
{
    std::vector<std::string> stored(changes.size());
    QStringList waiting;
    qsizetype letters = 0;
    const auto send = [&] {
        runAtOnce(std::exchange(waiting, {}));
        letters = 0;
    };
    for (std::size_t index = 0; index < changes.size(); ++index) {
        const RowChange& change = changes[index];
        if (change.Kind == RowChange::Type::Insert && returnsRow(*change.Touched)) {
            send();
            stored[index] = Insert(change.Row, *change.Touched);
            continue;
        }
        waiting.append(statementFor(change));
        letters += waiting.last().size();
        if (waiting.size() == maxBatchStatements || letters > maxBatchLength)
            send();
    }
    send();
    return stored;
}

/// Runs a batch up to the first statement that fails or does not find its row. Raises
/// ProviderFailure with the same message as for a single statement. The batch is run by
/// sp_executesql, so that set nocount ends with it; its only result is the number of a statement
/// that did not find its row.
void AdoRowWriter::runAtOnce(const QStringList& statements)
{
    if (statements.isEmpty())
        return;
    QString batch = QStringLiteral("set nocount on; begin try ");
    for (qsizetype index = 0; index < statements.size(); ++index)
        batch += statements[index] +
                 QStringLiteral("; if @@rowcount <> 1 begin select %1 as Missing; return; end; ")
                     .arg(index + 1);
    batch += QLatin1String("end try begin catch throw; end catch");
    const QString call = QLatin1String("exec sp_executesql ") + TransactSql::UnicodeLiteral(batch);
    if (engine_.Link().ReadNumber(call) != 0)
        RequireFound(0);
}

} // namespace TradeForms
