#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QVariant>

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

// Rows are held as bytes and read a cell at a time: a long list costs little more memory than
// its data, and comparing a cell needs no conversion.

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
    Expression ///< a computed column: its values tell their type
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

/// How a cell is stored: a tag and its bytes. Small whole numbers and short texts, by far the most
/// frequent, take one byte beside their data.
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

/// Length by tag, without the bytes of a text or a binary value.
inline constexpr std::uint8_t cellLengths[] = {1, 2, 3, 5, 9, 9, 2, 5, 5};

/// Whole length of the stored cell at this place.
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

/// Moves the place behind a number of cells.
inline void SkipCells(const char*& at, int count)
{
    for (; count > 0; --count)
        at += CellLength(at);
}

/// Reads the cell at this place and moves the place behind it.
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

/// Cell of a row by its index.
inline Cell CellAt(const char* row, int index)
{
    SkipCells(row, index);
    return ReadCell(row);
}

/// Appends a cell in its stored form.
void AppendCell(std::string& row, const Cell& cell);
/// A row's bytes with one cell replaced.
std::string WithCell(std::string_view row, int index, const Cell& cell);
/// A row of nulls.
std::string BlankRow(int columns);

/// The value of a text or binary cell as a form reads it.
QVariant ValueOfBytes(const Cell& cell, ColumnKind kind);

/// The value as a form reads it; an invalid QVariant for null.
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

/// A value made ready for a column of this kind. Keeps the bytes that the cell points into.
class EncodedValue {
public:
    /// Raises TypeMismatchFailure where such a column cannot hold the value, OverflowFailure
    /// where a number is too large for it.
    EncodedValue(const QVariant& value, ColumnKind kind);
    EncodedValue(const EncodedValue&) = delete;
    EncodedValue& operator=(const EncodedValue&) = delete;

    const TradeForms::Cell& Cell() const { return cell_; }

private:
    void setText(const QString& text);

    QByteArray bytes_;
    TradeForms::Cell cell_;
};

/// Reads a date as statements and columns write it: YYYY-MM-DD, YYYYMMDD or MM/DD/YYYY, with a
/// time behind it or not. Invalid where the text is none of these. To reckon with it, take UTC,
/// which knows no hour that is skipped.
QDateTime DateTimeFromText(std::string_view text, Qt::TimeSpec clock = Qt::UTC);
/// The date of such a text.
QDate DateFromText(std::string_view text);
/// Whether the text is a date, or a date-time, in exactly the form in which they are stored.
bool IsStoredDate(std::string_view text);
bool IsStoredDateTime(std::string_view text);
/// The form in which the embedded database stores them.
QByteArray StoredText(const QDate& date);
QByteArray StoredText(const QDateTime& moment);

} // namespace TradeForms
