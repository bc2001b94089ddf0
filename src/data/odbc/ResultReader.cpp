#include "data/odbc/ResultReader.h"

#include "data/Failure.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace TradeForms {

namespace {

// A type of SQL Server's drivers that is not in the ODBC headers.
constexpr SQLSMALLINT dateTimeOffset = -155;

constexpr qint64 maxBoundLength = 4000;           // UTF-16 units or bytes
constexpr std::size_t maxBlockBytes = 512 * 1024; // memory for the rows of a block
constexpr std::size_t maxBlockRows = 512;
constexpr std::size_t chunkBytes = 16 * 1024; // of a long value

ColumnKind kindOf(SQLSMALLINT sqlType)
{
    switch (sqlType) {
    case SQL_BIT:
        return ColumnKind::Flag;
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return ColumnKind::Integer;
    case SQL_DECIMAL:
    case SQL_NUMERIC:
    case SQL_FLOAT:
    case SQL_REAL:
    case SQL_DOUBLE:
        return ColumnKind::Number;
    case SQL_TYPE_DATE:
        return ColumnKind::Date;
    case SQL_TYPE_TIMESTAMP:
    case dateTimeOffset:
        return ColumnKind::DateTime;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
        return ColumnKind::Binary;
    default:
        return ColumnKind::Text;
    }
}

/// The C type in which a value is fetched without loss: a decimal as text, a text in UTF-16.
SQLSMALLINT fetchTypeOf(SQLSMALLINT sqlType)
{
    switch (kindOf(sqlType)) {
    case ColumnKind::Flag:
    case ColumnKind::Integer:
        return SQL_C_SBIGINT;
    case ColumnKind::Number:
        return sqlType == SQL_DECIMAL || sqlType == SQL_NUMERIC ? SQL_C_CHAR : SQL_C_DOUBLE;
    case ColumnKind::Date:
        return SQL_C_TYPE_DATE;
    case ColumnKind::DateTime:
        return SQL_C_TYPE_TIMESTAMP;
    case ColumnKind::Binary:
        return SQL_C_BINARY;
    default:
        return SQL_C_WCHAR;
    }
}

/// The buffer size in bytes of one value; `length` is the maximal length of a text in UTF-16 units
/// or of a binary value in bytes.
std::size_t widthOf(SQLSMALLINT type, std::size_t length)
{
    constexpr std::size_t longestDecimal = 48;
    switch (type) {
    case SQL_C_CHAR:
        return longestDecimal;
    case SQL_C_WCHAR:
        return (length + 1) * sizeof(SQLWCHAR);
    case SQL_C_BINARY:
        return length;
    case SQL_C_TYPE_DATE:
        return sizeof(SQL_DATE_STRUCT);
    case SQL_C_TYPE_TIMESTAMP:
        return sizeof(SQL_TIMESTAMP_STRUCT);
    default:
        return sizeof(SQLBIGINT);
    }
}

template <class T> T load(const char* at)
{
    T value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

} // namespace

ResultReader::ResultReader(OdbcLink& link, const Server& server, const OdbcStatement& statement)
    : link_(link), server_(server), statement_(statement)
{
    SQLSMALLINT count = 0;
    link_.Check(SQLNumResultCols(statement_.Get(), &count), statement_);
    columns_.reserve(std::size_t(count));
    for (int column = 0; column < count; ++column)
        columns_.push_back(bufferFor(column));
}

ResultReader::Buffer ResultReader::bufferFor(int column)
{
    Buffer buffer;
    buffer.SqlType = SQLSMALLINT(numberAttribute(column, SQL_DESC_CONCISE_TYPE));
    buffer.Type = fetchTypeOf(buffer.SqlType);
    buffer.Kind = kindOf(buffer.SqlType);
    buffer.IsTyped =
        server_.TypesExpressions() || !textAttribute(column, SQL_DESC_BASE_TABLE_NAME).isEmpty();
    const bool isSized = buffer.Type == SQL_C_WCHAR || buffer.Type == SQL_C_BINARY;
    const qint64 length = isSized ? numberAttribute(column, SQL_DESC_LENGTH) : 0;
    // The value of an expression may be longer than in the first row.
    buffer.IsBounded = !isSized || (buffer.IsTyped && length > 0 && length <= maxBoundLength);
    buffer.Width = buffer.IsBounded ? widthOf(buffer.Type, std::size_t(length)) : chunkBytes;
    return buffer;
}

QString ResultReader::textAttribute(int column, SQLUSMALLINT what)
{
    std::array<SQLWCHAR, 256> text{};
    SQLSMALLINT bytes = 0;
    link_.Check(SQLColAttributeW(statement_.Get(), SQLUSMALLINT(column + 1), what, text.data(),
                                 SQLSMALLINT(sizeof text), &bytes, nullptr),
                statement_);
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text.data()));
}

qint64 ResultReader::numberAttribute(int column, SQLUSMALLINT what)
{
    SQLLEN number = 0;
    link_.Check(SQLColAttributeW(statement_.Get(), SQLUSMALLINT(column + 1), what, nullptr, 0,
                                 nullptr, &number),
                statement_);
    return number;
}

std::vector<Column> ResultReader::Describe(Engine::Purpose purpose)
{
    std::vector<Column> described;
    for (int index = 0; index < Count(); ++index) {
        const Buffer& buffer = columns_[std::size_t(index)];
        Column column;
        column.Name = textAttribute(index, SQL_DESC_NAME);
        column.Kind = buffer.IsTyped ? buffer.Kind : ColumnKind::Expression;
        if (purpose == Engine::Purpose::Write) {
            column.Table = textAttribute(index, SQL_DESC_BASE_TABLE_NAME);
            if (!column.Table.isEmpty())
                column.Field = textAttribute(index, SQL_DESC_BASE_COLUMN_NAME);
        }
        described.push_back(std::move(column));
    }
    return described;
}

bool ResultReader::isBounded() const
{
    return std::all_of(
        columns_.begin(), columns_.end(), [](const Buffer& buffer) { return buffer.IsBounded; });
}

void ResultReader::setBlock(std::size_t rows, SQLULEN* fetched, SQLUSMALLINT* states)
{
    const auto set = [&](SQLINTEGER attribute, SQLPOINTER value) {
        link_.Check(SQLSetStmtAttrW(statement_.Get(), attribute, value, 0), statement_);
    };
    set(SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(rows));
    set(SQL_ATTR_ROWS_FETCHED_PTR, fetched);
    set(SQL_ATTR_ROW_STATUS_PTR, states);
}

void ResultReader::prepareBlocks()
{
    if (isBounded()) {
        std::size_t rowBytes = 0;
        for (const Buffer& buffer : columns_)
            rowBytes += buffer.Width + sizeof(SQLLEN);
        blockSize_ = std::clamp(maxBlockBytes / std::max<std::size_t>(rowBytes, 1), std::size_t(1),
                                maxBlockRows);
    }
    for (Buffer& buffer : columns_) {
        buffer.Values.resize(buffer.Width * blockSize_);
        buffer.Lengths.resize(blockSize_);
    }
    if (!isBounded())
        return;
    rowStatus_.resize(blockSize_);
    setBlock(blockSize_, &fetched_, rowStatus_.data());
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        Buffer& buffer = columns_[column];
        link_.Check(SQLBindCol(statement_.Get(), SQLUSMALLINT(column + 1), buffer.Type,
                               buffer.Values.data(), SQLLEN(buffer.Width), buffer.Lengths.data()),
                    statement_);
    }
}

/// Fetches the next rows. Returns their number, 0 at the end.
std::size_t ResultReader::fetch()
{
    fetched_ = 1;
    if (!link_.Check(SQLFetch(statement_.Get()), statement_))
        return 0;
    if (rowStatus_.empty()) {
        getColumns();
        return 1;
    }
    const auto end = rowStatus_.begin() + qsizetype(fetched_);
    if (std::find(rowStatus_.begin(), end, SQL_ROW_ERROR) != end)
        link_.Check(SQL_ERROR, statement_);
    return fetched_;
}

void ResultReader::getColumns()
{
    for (int column = 0; column < Count(); ++column) {
        Buffer& buffer = columns_[std::size_t(column)];
        if (buffer.IsBounded)
            link_.Check(SQLGetData(statement_.Get(), SQLUSMALLINT(column + 1), buffer.Type,
                                   buffer.Values.data(), SQLLEN(buffer.Values.size()),
                                   buffer.Lengths.data()),
                        statement_);
        else
            getLongData(column, buffer);
    }
}

/// Reads a value of any length in chunks; the terminating zero of each chunk of a text is dropped.
void ResultReader::getLongData(int column, Buffer& buffer)
{
    const std::size_t end = buffer.Type == SQL_C_WCHAR ? sizeof(SQLWCHAR) : 0;
    std::size_t length = 0;
    while (true) {
        buffer.Values.resize(std::max(buffer.Values.size(), length + chunkBytes));
        const std::size_t room = buffer.Values.size() - length;
        SQLLEN left = 0;
        const bool isThere =
            link_.Check(SQLGetData(statement_.Get(), SQLUSMALLINT(column + 1), buffer.Type,
                                   buffer.Values.data() + length, SQLLEN(room), &left),
                        statement_);
        if (!isThere)
            break;
        if (left == SQL_NULL_DATA) {
            buffer.Lengths[0] = SQL_NULL_DATA;
            return;
        }
        if (left != SQL_NO_TOTAL && std::size_t(left) + end <= room) {
            length += std::size_t(left);
            break;
        }
        length += room - end;
    }
    buffer.Lengths[0] = SQLLEN(length);
}

void ResultReader::Read(const Engine::OnRow& each)
{
    prepareBlocks();
    while (const std::size_t rows = fetch()) {
        for (std::size_t row = 0; row < rows; ++row) {
            row_.clear();
            for (const Buffer& buffer : columns_)
                append(buffer, row);
            each(row_);
        }
    }
    // The statement outlives the buffers.
    SQLFreeStmt(statement_.Get(), SQL_UNBIND);
    setBlock(1, nullptr, nullptr);
}

void ResultReader::append(const Buffer& buffer, std::size_t row)
{
    const SQLLEN length = buffer.Lengths[row];
    const char* const value = buffer.Values.data() + row * buffer.Width;
    if (length == SQL_NULL_DATA)
        return AppendCell(row_, Cell());
    switch (buffer.Type) {
    case SQL_C_SBIGINT:
        return AppendCell(row_, Cell::FromInteger(load<SQLBIGINT>(value)));
    case SQL_C_DOUBLE: {
        const double number = load<double>(value);
        return AppendCell(row_, buffer.IsTyped ? CellOfNumber(number) : Cell::FromReal(number));
    }
    case SQL_C_CHAR:
        return AppendCell(row_, CellOfDecimal({value, std::size_t(length)}));
    case SQL_C_TYPE_DATE: {
        const auto date = load<SQL_DATE_STRUCT>(value);
        return AppendDate(row_, {date.year, date.month, date.day});
    }
    case SQL_C_TYPE_TIMESTAMP: {
        const auto moment = load<SQL_TIMESTAMP_STRUCT>(value);
        return AppendDateTime(row_, {moment.year, moment.month, moment.day, moment.hour,
                                     moment.minute, moment.second});
    }
    default:
        break;
    }
    const std::size_t end = buffer.Type == SQL_C_WCHAR ? sizeof(SQLWCHAR) : 0;
    if (buffer.IsBounded && (length < 0 || std::size_t(length) + end > buffer.Width))
        throw ProviderFailure(QStringLiteral("A value is longer than its column was declared to "
                                             "be, and cannot be read whole."));
    const std::string_view bytes(value, std::size_t(length));
    if (buffer.Type == SQL_C_BINARY)
        return AppendCell(row_, Cell::FromBinary(bytes));
    texts_.Append(row_, QStringView(reinterpret_cast<const char16_t*>(bytes.data()),
                                    qsizetype(bytes.size() / sizeof(char16_t))));
}

} // namespace TradeForms
