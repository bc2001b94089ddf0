#include "reports/ReportRows.h"

#include "data/Failure.h"
#include "data/Recordset.h"

namespace TradeForms {

ReportRows::ReportRows(std::shared_ptr<Recordset> rows) : rows_(std::move(rows))
{
    if (!rows_ || !rows_->IsOpen())
        throw Failure(QStringLiteral("The rows of the report are not open."));
    count_ = rows_->RecordCount();
}

Recordset& ReportRows::stillOpen() const
{
    if (!rows_->IsOpen())
        throw Failure(QStringLiteral("The rows of the report have been closed."));
    if (rows_->RecordCount() != count_)
        throw Failure(QStringLiteral("The rows of the report have changed."));
    return *rows_;
}

QVariant ReportRows::Value(int row, const QString& column) const
{
    Recordset& rows = stillOpen();
    auto known = columns_.constFind(column);
    if (known == columns_.constEnd()) {
        const int index = rows.FieldIndex(column);
        if (index < 0)
            throw Failure(QStringLiteral("The rows of the report have no column %1.").arg(column));
        known = columns_.insert(column, index);
    }
    return rows.ValueAt(row, *known);
}

QVariant RowValues::Column(const QString& name) const
{
    return HasRow() ? rows_.Value(Row, name) : QVariant();
}

double RowValues::Total(const QString& name) const
{
    const auto total = Totals.constFind(name);
    if (total == Totals.constEnd())
        throw Failure(QStringLiteral("The report has no total %1.").arg(name));
    return *total;
}

QString RowValues::Parameter(int index) const
{
    if (index < 1 || index > parameters_.size())
        throw Failure(QStringLiteral("The report has no parameter %1.").arg(index));
    return parameters_.at(index - 1);
}

} // namespace TradeForms
