#include "data/Cells.h"

#include "data/Failure.h"
#include "data/Numbers.h"
#include "data/Utf8.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace TradeForms {

namespace {

template <class T> void append(std::string& row, CellTag tag, T value)
{
    char bytes[1 + sizeof(T)];
    bytes[0] = char(tag);
    std::memcpy(bytes + 1, &value, sizeof(T));
    row.append(bytes, sizeof bytes);
}

template <class T> bool fits(std::int64_t number)
{
    return number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
}

bool areDigits(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), IsDigit);
}

/// The number that up to nine digits represent; nothing where any character is no digit.
std::optional<int> readDigits(std::string_view text)
{
    if (!areDigits(text))
        return std::nullopt;
    int number = 0;
    for (const char digit : text)
        number = number * 10 + (digit - '0');
    return number;
}

QDate dateOf(std::string_view year, std::string_view month, std::string_view day)
{
    const std::optional<int> y = readDigits(year);
    const auto m = readDigits(month);
    const auto d = readDigits(day);
    return y && m && d ? QDate(*y, *m, *d) : QDate();
}

/// The date at the beginning of the text. Sets the number of characters that it takes.
QDate readDate(std::string_view text, std::size_t& length)
{
    length = 10;
    if (text.size() >= 10 && text[4] == '-' && text[7] == '-')
        return dateOf(text.substr(0, 4), text.substr(5, 2), text.substr(8, 2));
    if (text.size() >= 10 && text[2] == '/' && text[5] == '/')
        return dateOf(text.substr(6, 4), text.substr(0, 2), text.substr(3, 2));
    length = 8;
    if (text.size() >= 8)
        return dateOf(text.substr(0, 4), text.substr(4, 2), text.substr(6, 2));
    return QDate();
}

/// The time that the whole text represents: HH:MM[:SS[.fraction]]. The fraction may have any length
/// and is dropped, since date-times are stored in whole seconds.
QTime readTime(std::string_view text)
{
    if (text.size() < 5 || text[2] != ':')
        return QTime();
    std::optional<int> seconds = 0;
    if (text.size() > 5) {
        if (text.size() < 8 || text[5] != ':' ||
            (text.size() > 8 && (text[8] != '.' || !areDigits(text.substr(9)))))
            return QTime();
        seconds = readDigits(text.substr(6, 2));
    }
    const auto hours = readDigits(text.substr(0, 2));
    const auto minutes = readDigits(text.substr(3, 2));
    return hours && minutes && seconds ? QTime(*hours, *minutes, *seconds) : QTime();
}

QVariant dateValue(const Cell& cell)
{
    const QDate date = DateFromText(cell.Bytes);
    return date.isValid() ? QVariant(date) : QVariant(FromUtf8(cell.Bytes));
}

QVariant dateTimeValue(const Cell& cell)
{
    const QDateTime moment = DateTimeFromText(cell.Bytes, Qt::LocalTime);
    return moment.isValid() ? QVariant(moment) : QVariant(FromUtf8(cell.Bytes));
}

bool isNothing(const QVariant& value)
{
    return value.isNull() || (value.typeId() == QMetaType::QDate && !value.toDate().isValid()) ||
           (value.typeId() == QMetaType::QDateTime && !value.toDateTime().isValid());
}

double toNumber(const QVariant& value)
{
    if (value.typeId() == QMetaType::QString) {
        const QString text = value.toString();
        if (!IsNumeric(text))
            throw TypeMismatchFailure();
        return Val(text);
    }
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber || std::isnan(number))
        throw TypeMismatchFailure();
    if (std::isinf(number))
        throw OverflowFailure();
    return number;
}

bool isWholeNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
        return true;
    default:
        return false;
    }
}

std::int64_t toInteger(const QVariant& value)
{
    if (isWholeNumber(value))
        return value.toLongLong();
    if (value.typeId() == QMetaType::QString) {
        // Directly from the text, since a double would lose the last digits of a long number.
        bool isWhole = false;
        const qlonglong number = value.toString().trimmed().toLongLong(&isWhole);
        if (isWhole)
            return number;
    }
    const double rounded = std::nearbyint(toNumber(value));
    constexpr double limit = 9223372036854775808.0;
    if (rounded < -limit || rounded >= limit)
        throw OverflowFailure();
    return std::int64_t(rounded);
}

bool toFlag(const QVariant& value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    if (value.typeId() == QMetaType::QString) {
        const QString text = value.toString().trimmed();
        if (text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
            return true;
        if (text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
            return false;
    }
    return toNumber(value) != 0;
}

QDateTime toDateTime(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QDate:
        return QDateTime(value.toDate(), QTime(0, 0), Qt::UTC);
    case QMetaType::QDateTime:
        return value.toDateTime();
    case QMetaType::QString: {
        const QByteArray text = value.toString().trimmed().toUtf8();
        const QDateTime moment = DateTimeFromText(ViewOf(text));
        if (moment.isValid())
            return moment;
        break;
    }
    default:
        break;
    }
    throw TypeMismatchFailure();
}

/// The text that is stored in a text column for a value of any type.
QString toText(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QString:
        return value.toString();
    case QMetaType::Double:
    case QMetaType::Float:
        return GeneralFormat(value.toDouble());
    case QMetaType::QDate:
        return QString::fromLatin1(StoredText(value.toDate()));
    case QMetaType::QDateTime:
        return QString::fromLatin1(StoredText(value.toDateTime()));
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    default:
        if (!value.canConvert<QString>())
            throw TypeMismatchFailure();
        return value.toString();
    }
}

} // namespace

void AppendCell(std::string& row, const Cell& cell)
{
    switch (cell.Kind) {
    case Cell::Type::Null:
        row += char(CellTag::Null);
        break;
    case Cell::Type::Integer:
        if (fits<std::int8_t>(cell.Integer))
            append(row, CellTag::Integer1, std::int8_t(cell.Integer));
        else if (fits<std::int16_t>(cell.Integer))
            append(row, CellTag::Integer2, std::int16_t(cell.Integer));
        else if (fits<std::int32_t>(cell.Integer))
            append(row, CellTag::Integer4, std::int32_t(cell.Integer));
        else
            append(row, CellTag::Integer8, cell.Integer);
        break;
    case Cell::Type::Real:
        append(row, CellTag::Real, cell.Real);
        break;
    case Cell::Type::Text:
        if (cell.Bytes.size() <= std::numeric_limits<std::uint8_t>::max())
            append(row, CellTag::ShortText, std::uint8_t(cell.Bytes.size()));
        else
            append(row, CellTag::LongText, std::uint32_t(cell.Bytes.size()));
        row += cell.Bytes;
        break;
    case Cell::Type::Binary:
        append(row, CellTag::Binary, std::uint32_t(cell.Bytes.size()));
        row += cell.Bytes;
        break;
    }
}

std::string WithCell(std::string_view row, int index, const Cell& cell)
{
    const char* begin = row.data();
    SkipCells(begin, index);
    const char* const end = begin + CellLength(begin);
    std::string changed;
    changed.reserve(row.size() + cell.Bytes.size() + sizeof(double));
    changed.append(row.data(), begin);
    AppendCell(changed, cell);
    changed.append(end, row.data() + row.size());
    return changed;
}

std::string BlankRow(int columns)
{
    return std::string(std::size_t(columns), char(CellTag::Null));
}

QVariant ValueOfBytes(const Cell& cell, ColumnKind kind)
{
    if (cell.Kind == Cell::Type::Binary)
        return ToBytes(cell.Bytes);
    switch (kind) {
    case ColumnKind::Date:
        return dateValue(cell);
    case ColumnKind::DateTime:
        return dateTimeValue(cell);
    case ColumnKind::Expression:
        // max() of a date column and dateadd() give dates too.
        if (IsStoredDate(cell.Bytes))
            return dateValue(cell);
        if (IsStoredDateTime(cell.Bytes))
            return dateTimeValue(cell);
        return FromUtf8(cell.Bytes);
    default:
        return FromUtf8(cell.Bytes);
    }
}

EncodedValue::EncodedValue(const QVariant& value, ColumnKind kind)
{
    if (isNothing(value))
        return;
    switch (kind) {
    case ColumnKind::Integer:
        cell_ = Cell::FromInteger(toInteger(value));
        return;
    case ColumnKind::Number:
        cell_ = isWholeNumber(value) ? Cell::FromInteger(value.toLongLong())
                                     : Cell::FromReal(toNumber(value));
        return;
    case ColumnKind::Flag:
        cell_ = Cell::FromInteger(toFlag(value) ? 1 : 0);
        return;
    case ColumnKind::Date:
        bytes_ = StoredText(toDateTime(value).date());
        break;
    case ColumnKind::DateTime:
        bytes_ = StoredText(toDateTime(value));
        break;
    case ColumnKind::Text:
    case ColumnKind::Expression:
        bytes_ = toText(value).toUtf8();
        break;
    case ColumnKind::Binary:
        bytes_ = value.toByteArray();
        cell_ = Cell::FromBinary(ViewOf(bytes_));
        return;
    }
    cell_ = Cell::FromText(ViewOf(bytes_));
}

QDateTime DateTimeFromText(std::string_view text, Qt::TimeSpec clock)
{
    std::size_t length = 0;
    const QDate date = readDate(text, length);
    if (!date.isValid())
        return QDateTime();
    QTime time(0, 0);
    if (text.size() > length)
        time = text[length] == ' ' || text[length] == 'T' ? readTime(text.substr(length + 1))
                                                          : QTime();
    return time.isValid() ? QDateTime(date, time, clock) : QDateTime();
}

QDate DateFromText(std::string_view text)
{
    std::size_t length = 0;
    const QDate date = readDate(text, length);
    return text.size() == length ? date : DateTimeFromText(text).date();
}

bool IsStoredDate(std::string_view text)
{
    std::size_t length = 0;
    return text.size() == 10 && text[4] == '-' && readDate(text, length).isValid();
}

bool IsStoredDateTime(std::string_view text)
{
    return text.size() == 19 && text[10] == ' ' && IsStoredDate(text.substr(0, 10)) &&
           readTime(text.substr(11)).isValid();
}

QByteArray StoredText(const QDate& date)
{
    return date.toString(Qt::ISODate).toLatin1();
}

QByteArray StoredText(const QDateTime& moment)
{
    return StoredText(moment.date()) + ' ' + moment.time().toString(Qt::ISODate).toLatin1();
}

} // namespace TradeForms
