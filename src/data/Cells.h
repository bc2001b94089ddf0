#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QVariant>

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

// A row is a sequence of encoded cells, each a tag byte and its data. A long list costs little more
// memory than its data, and a cell can be compared without conversion.

namespace TradeForms {

/// What a column was declared to hold.
enum class ColumnKind {
    Text,
    Integer,
    Number,
    Flag,
    Date,
    DateTime,
    Binary,
    Expression ///< a computed column: each value has its own type
};

/// One stored value.
struct Cell {
    enum class Type : std::uint8_t { Null, Integer, Real, Text, Binary };

    Type Kind = Type::Null;
    std::int64_t Integer = 0;
    double Real = 0;
    std::string_view Bytes; ///< of a text in UTF-8, or of a binary value

    bool IsNull() const { return Kind == Type::Null; }

    static Cell FromInteger(std::int64_t number) { return {Type::Integer, number, 0, {}}; }
    static Cell FromReal(double number) { return {Type::Real, 0, number, {}}; }
    static Cell FromText(std::string_view text) { return {Type::Text, 0, 0, text}; }
    static Cell FromBinary(std::string_view bytes) { return {Type::Binary, 0, 0, bytes}; }

    bool operator==(const Cell&) const = default;
};

/// The tag of an encoded cell. Small integers and short texts, by far the most frequent, take one
/// byte besides their data.
enum class CellTag : std::uint8_t {
    Null,
    Integer1,
    Integer2,
    Integer4,
    Integer8,
    Real,
    ShortText,
    LongText,
    Binary
};

template <class T> T LoadNumber(const char* at)
{
    T number;
    std::memcpy(&number, at, sizeof(T));
    return number;
}

/// Encoded length by tag, without the bytes of a text or a binary value.
inline constexpr std::uint8_t cellLengths[] = {1, 2, 3, 5, 9, 9, 2, 5, 5};

/// The length in bytes of the encoded cell at this address.
inline std::size_t CellLength(const char* at)
{
    const auto tag = CellTag(*at);
    std::size_t length = cellLengths[std::size_t(tag)];
    if (tag == CellTag::ShortText)
        length += LoadNumber<std::uint8_t>(at + 1);
    else if (tag > CellTag::ShortText)
        length += LoadNumber<std::uint32_t>(at + 1);
    return length;
}

/// Advances the pointer past a number of cells.
inline void SkipCells(const char*& at, int count)
{
    for (; count > 0; --count)
        at += CellLength(at);
}

/// Decodes the cell at the pointer and advances the pointer past it. The bytes of a text or a
/// binary value stay in the row.
inline Cell ReadCell(const char*& at)
{
    const char* const cell = at;
    at += CellLength(cell);
    const auto bytesAfter = [&](std::size_t head) {
        return std::string_view(cell + head, std::size_t(at - cell) - head);
    };
    switch (CellTag(*cell)) {
    case CellTag::Null:
        return {};
    case CellTag::Integer1:
        return Cell::FromInteger(LoadNumber<std::int8_t>(cell + 1));
    case CellTag::Integer2:
        return Cell::FromInteger(LoadNumber<std::int16_t>(cell + 1));
    case CellTag::Integer4:
        return Cell::FromInteger(LoadNumber<std::int32_t>(cell + 1));
    case CellTag::Integer8:
        return Cell::FromInteger(LoadNumber<std::int64_t>(cell + 1));
    case CellTag::Real:
        return Cell::FromReal(LoadNumber<double>(cell + 1));
    case CellTag::ShortText:
        return Cell::FromText(bytesAfter(2));
    case CellTag::LongText:
        return Cell::FromText(bytesAfter(5));
    case CellTag::Binary:
        return Cell::FromBinary(bytesAfter(5));
    }
    Q_UNREACHABLE();
}

/// The cell of a row at an index from 0.
inline Cell CellAt(const char* row, int index)
{
    SkipCells(row, index);
    return ReadCell(row);
}

/// Encodes a cell at the end of a row.
void AppendCell(std::string& row, const Cell& cell);
/// A copy of a row in which the cell at an index is replaced.
std::string WithCell(std::string_view row, int index, const Cell& cell);
/// A row of nulls.
std::string BlankRow(int columns);

/// The value of a text or binary cell, as ValueOf returns it.
QVariant ValueOfBytes(const Cell& cell, ColumnKind kind);

/// The value that a recordset returns for a cell of a column: qlonglong, double, bool, QString,
/// QDate, QDateTime or QByteArray; an invalid QVariant for null. A text that is no date in a date
/// column comes back as QString.
inline QVariant ValueOf(const Cell& cell, ColumnKind kind)
{
    switch (cell.Kind) {
    case Cell::Type::Null:
        return QVariant();
    case Cell::Type::Integer:
        if (kind == ColumnKind::Flag)
            return cell.Integer != 0;
        if (kind == ColumnKind::Number)
            return double(cell.Integer);
        return qlonglong(cell.Integer);
    case Cell::Type::Real:
        return kind == ColumnKind::Flag ? QVariant(cell.Real != 0) : QVariant(cell.Real);
    case Cell::Type::Text:
    case Cell::Type::Binary:
        break;
    }
    return ValueOfBytes(cell, kind);
}

/// A value converted to the type of a column. It owns the bytes that the cell points to.
class EncodedValue {
public:
    /// Raises TypeMismatchFailure where the column cannot hold the value, OverflowFailure where a
    /// number is too large for it.
    EncodedValue(const QVariant& value, ColumnKind kind);
    EncodedValue(const EncodedValue&) = delete;
    EncodedValue& operator=(const EncodedValue&) = delete;

    const TradeForms::Cell& Cell() const { return cell_; }

private:
    QByteArray bytes_;
    TradeForms::Cell cell_;
};

/// Reads a date in the form YYYY-MM-DD, YYYYMMDD or MM/DD/YYYY, with or without a time
/// HH:MM[:SS[.fraction]] after a blank or a T. Returns an invalid QDateTime where the text has none
/// of these forms. UTC, the default, suits calculations: it has no hours that daylight saving
/// skips.
QDateTime DateTimeFromText(std::string_view text, Qt::TimeSpec clock = Qt::UTC);
/// The date part of such a text; an invalid QDate where it is none.
QDate DateFromText(std::string_view text);
/// Whether the text is a date (YYYY-MM-DD) or a date-time (YYYY-MM-DD HH:MM:SS) in the form in
/// which the embedded database stores them.
bool IsStoredDate(std::string_view text);
bool IsStoredDateTime(std::string_view text);
/// The stored form of a date or a date-time; a fraction of a second is dropped.
QByteArray StoredText(const QDate& date);
QByteArray StoredText(const QDateTime& moment);

} // namespace TradeForms
