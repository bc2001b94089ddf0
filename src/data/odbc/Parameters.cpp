#include "data/odbc/Parameters.h"

#include "data/Utf8.h"

#include <algorithm>
#include <limits>

namespace TradeForms {

namespace {

constexpr SQLULEN maxVarcharLength = 4000; // UTF-16 units

bool isBinary(const ServerColumn& column)
{
    return column.Type == SQL_BINARY || column.Type == SQL_VARBINARY ||
           column.Type == SQL_LONGVARBINARY;
}

bool isDecimal(const ServerColumn& column)
{
    return column.Type == SQL_DECIMAL || column.Type == SQL_NUMERIC;
}

bool isMoment(const ServerColumn& column)
{
    return column.Type == SQL_TYPE_DATE || column.Type == SQL_TYPE_TIMESTAMP;
}

bool fitsInt32(qint64 number)
{
    using Limits = std::numeric_limits<SQLINTEGER>;
    return number >= Limits::min() && number <= Limits::max();
}

} // namespace

SQLPOINTER Parameters::Value::Place()
{
    switch (Type) {
    case SQL_C_SBIGINT:
        return &Integer;
    case SQL_C_DOUBLE:
        return &Real;
    default:
        return Bytes.data();
    }
}

Parameters::Value Parameters::numberFor(const Cell& cell, const ServerColumn& column)
{
    Value value;
    const bool isInteger = cell.Kind == Cell::Type::Integer;
    if (isDecimal(column)) {
        value.Bytes = isInteger ? QByteArray::number(qlonglong(cell.Integer))
                                : QByteArray::number(cell.Real, 'f', column.Scale);
        value.Size = SQLULEN(value.Bytes.size());
        value.Length = SQLLEN(value.Bytes.size());
    } else if (isInteger) {
        value.Type = SQL_C_SBIGINT;
        // 32 bits where they suffice: a wider type may prevent the use of an index.
        value.SqlType = fitsInt32(cell.Integer) ? SQL_INTEGER : SQL_BIGINT;
        value.Size = 0;
        value.Integer = cell.Integer;
        value.Length = sizeof value.Integer;
    } else {
        value.Type = SQL_C_DOUBLE;
        value.SqlType = SQL_DOUBLE;
        value.Size = std::numeric_limits<double>::digits10;
        value.Real = cell.Real;
        value.Length = sizeof value.Real;
    }
    return value;
}

Parameters::Value Parameters::textFor(const Cell& cell, const ServerColumn& column)
{
    Value value;
    if (isMoment(column)) {
        value.Bytes = ToBytes(cell.Bytes);
        value.Size = SQLULEN(value.Bytes.size());
    } else {
        const QString text = FromUtf8(cell.Bytes);
        value.Type = SQL_C_WCHAR;
        value.Bytes = QByteArray(reinterpret_cast<const char*>(text.utf16()),
                                 text.size() * qsizetype(sizeof(char16_t)));
        // The same size for all values that fit, so that the server can reuse one plan.
        value.Size = std::clamp<SQLULEN>(SQLULEN(column.Size), 1, maxVarcharLength);
        value.Size = std::max(value.Size, SQLULEN(text.size()));
        value.SqlType = value.Size <= maxVarcharLength ? SQL_WVARCHAR : SQL_WLONGVARCHAR;
    }
    value.Length = SQLLEN(value.Bytes.size());
    return value;
}

void Parameters::Add(const Cell& cell, const ServerColumn& column)
{
    Value value;
    switch (cell.Kind) {
    case Cell::Type::Integer:
    case Cell::Type::Real:
        value = numberFor(cell, column);
        break;
    case Cell::Type::Text:
        value = textFor(cell, column);
        break;
    case Cell::Type::Binary:
        value.Bytes = ToBytes(cell.Bytes);
        value.Size = std::max<SQLULEN>(1, cell.Bytes.size());
        value.Length = SQLLEN(cell.Bytes.size());
        break;
    case Cell::Type::Null:
        break;
    }
    if (cell.Kind == Cell::Type::Binary || (cell.IsNull() && isBinary(column))) {
        value.Type = SQL_C_BINARY;
        value.SqlType = SQL_VARBINARY;
    }
    values_.push_back(std::move(value));
}

void Parameters::Bind(OdbcLink& link, const OdbcStatement& statement)
{
    SQLUSMALLINT number = 0;
    for (Value& value : values_)
        link.Check(SQLBindParameter(statement.Get(), ++number, SQL_PARAM_INPUT, value.Type,
                                    value.SqlType, value.Size, 0, value.Place(),
                                    SQLLEN(value.Bytes.size()), &value.Length),
                   statement);
}

} // namespace TradeForms
