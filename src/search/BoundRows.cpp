#include "search/BoundRows.h"

#include "controls/Utf8.h"
#include "data/Numbers.h"

#include <QLocale>

#include <utility>

namespace TradeForms {

void BoundRows::Take(Recordset rows)
{
    rows_ = std::move(rows);
    fieldOfColumn_.clear();
    for (const SearchColumn& column : columns_)
        fieldOfColumn_.push_back(rows_.FieldIndex(utf8(column.Field)));
}

void BoundRows::Drop()
{
    rows_ = Recordset();
}

int BoundRows::RowCount() const
{
    return rows_.IsOpen() ? rows_.RecordCount() : 0;
}

QVariant BoundRows::Value(int row, int column) const
{
    const int field = fieldOfColumn_[std::size_t(column)];
    return field < 0 ? QVariant() : rows_.ValueAt(row, field);
}

QString BoundRows::Text(int row, int column) const
{
    const QVariant value = Value(row, column);
    if (columns_[column].Kind == SearchColumn::Type::Month)
        return QLocale(QLocale::English).toString(value.toDate(), QStringLiteral("MMM-yyyy"));
    return TextOf(value);
}

} // namespace TradeForms
