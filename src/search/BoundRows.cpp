#include "search/BoundRows.h"

#include "data/Numbers.h"

#include <QLocale>

#include <utility>

namespace TradeForms {

void BoundRows::Take(Recordset rows)
{
    rows_ = std::move(rows);
    fieldOfColumn_.clear();
    for (const SearchColumn& column : columns_) {
        fieldOfColumn_.push_back(rows_.FieldIndex(QString::fromUtf8(column.Field)));
    }
}

void BoundRows::Drop()
{
    rows_ = Recordset();
}

int BoundRows::RowCount() const
{
    return rows_.IsOpen() ? rows_.RecordCount() : 0;
}

QString BoundRows::Text(int row, int column) const
{
    const int field = fieldOfColumn_[std::size_t(column)];
    if (field < 0) {
        return QString();
    }
    const QVariant value = rows_.ValueAt(row, field);
    if (columns_[column].Is == SearchColumn::Kind::Month) {
        return QLocale(QLocale::English).toString(value.toDate(), QStringLiteral("MMM-yyyy"));
    }
    return TextOf(value);
}

} // namespace TradeForms
