#include "data/ado/HostLiteral.h"

#include "data/Utf8.h"
#include "data/server/TransactSql.h"

#include <QLocale>

namespace TradeForms {

namespace {

/// Default scale when the provider reports none.
constexpr int defaultScale = 4;

QString number(double real, const HostColumn& column)
{
    if (column.IsDecimal())
        return QString::number(real, 'f', column.Scale < 0 ? defaultScale : column.Scale);
    // With an exponent it is a float literal, so that the server need not convert a decimal.
    return QString::number(real, 'e', QLocale::FloatingPointShortest);
}

/// A stored date or date-time in the format of the server; any other text unchanged.
QString moment(const Cell& cell)
{
    if (IsStoredDate(cell.Bytes))
        return DateFromText(cell.Bytes).toString(TransactSql::Dialect().DateFormat);
    if (IsStoredDateTime(cell.Bytes))
        return DateTimeFromText(cell.Bytes).toString(TransactSql::Dialect().DateTimeFormat);
    return FromUtf8(cell.Bytes);
}

} // namespace

QString LiteralFor(const Cell& cell, const HostColumn& column, ColumnKind kind)
{
    switch (cell.Kind) {
    case Cell::Type::Null:
        return QStringLiteral("null");
    case Cell::Type::Integer:
        return QString::number(cell.Integer);
    case Cell::Type::Real:
        return number(cell.Real, column);
    case Cell::Type::Binary:
        return QLatin1String("0x") + QString::fromLatin1(ToBytes(cell.Bytes).toHex());
    case Cell::Type::Text:
        break;
    }
    if (kind == ColumnKind::Date || kind == ColumnKind::DateTime)
        return TransactSql::Literal(moment(cell));
    const QString text = FromUtf8(cell.Bytes);
    return column.IsUnicode() ? TransactSql::UnicodeLiteral(text) : TransactSql::Literal(text);
}

} // namespace TradeForms
