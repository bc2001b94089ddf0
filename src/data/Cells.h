#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <QVariant>

#include <cstdint>
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

    static Cell FromInteger(std::int64_t number)
    {
        return {Type::Integer, number, 0, {}};
    }
    static Cell FromReal(double number) { return {Type::Real, 0, number, {}}; }
    static Cell FromText(std::string_view text) { return {Type::Text, 0, 0, text}; }
    static Cell FromBinary(std::string_view bytes) { return {Type::Binary, 0, 0, bytes}; }

    bool operator==(const Cell&) const = default;
};

/// Appends a cell in its stored form.
void AppendCell(std::string& row, const Cell& cell);
/// Reads the cell at this place and moves the place behind it.
Cell ReadCell(const char*& at);
/// Moves the place behind a number of cells.
void SkipCells(const char*& at, int count);

/// Cell of a row by its index.
Cell CellAt(const char* row, int index);
/// A row's bytes with one cell replaced.
std::string WithCell(std::string_view row, int index, const Cell& cell);
/// A row of nulls.
std::string BlankRow(int columns);

/// The value as a form reads it; an invalid QVariant for null.
QVariant ValueOf(const Cell& cell, ColumnKind kind);

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
QDateTime DateTimeFromText(std::string_view text, Qt::TimeSpec spec = Qt::UTC);
/// The date of such a text.
QDate DateFromText(std::string_view text);
/// Whether the text is a date, or a date-time, in exactly the form in which they are stored.
bool IsStoredDate(std::string_view text);
bool IsStoredDateTime(std::string_view text);
/// The form in which the embedded database stores them.
QByteArray StoredText(const QDate& date);
QByteArray StoredText(const QDateTime& moment);

} // namespace TradeForms
