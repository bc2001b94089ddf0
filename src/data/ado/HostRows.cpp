#include "data/ado/HostRows.h"

#include "data/Utf8.h"

#include <QDate>

#include <windows.h>

#include <oleauto.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace TradeForms {

namespace {

/// The type numbers of columns in the connection's object model.
enum HostType {
    SmallInt = 2,
    Integer = 3,
    Single = 4,
    Double = 5,
    Currency = 6,
    Date = 7,
    Text = 8,
    Boolean = 11,
    Variable = 12,
    Decimal = 14,
    TinyInt = 16,
    UnsignedTinyInt = 17,
    UnsignedSmallInt = 18,
    UnsignedInt = 19,
    BigInt = 20,
    UnsignedBigInt = 21,
    FileTime = 64,
    Binary = 128,
    UnicodeChar = 130,
    Numeric = 131,
    DatabaseDate = 133,
    DatabaseTimeStamp = 135,
    VariableNumeric = 139,
    UnicodeVarChar = 202,
    UnicodeLongVarChar = 203,
    VariableBinary = 204,
    LongVarBinary = 205
};

// Lengths of the text columns that older providers report in place of date and date-time columns.
constexpr int dateLength = 10;
constexpr int shortestMoment = 19;
constexpr int longestMoment = 27;

constexpr int valuesPerBlock = 4096;

ULONGLONG magnitudeOf(LONGLONG number)
{
    return number < 0 ? ULONGLONG(0) - ULONGLONG(number) : ULONGLONG(number);
}

double powerOfTen(int exponent)
{
    double power = 1;
    for (; exponent > 0; --exponent)
        power *= 10;
    return power;
}

Cell cellOfUnsigned(ULONGLONG number)
{
    if (number > ULONGLONG(std::numeric_limits<LONGLONG>::max()))
        return Cell::FromReal(double(number));
    return Cell::FromInteger(LONGLONG(number));
}

/// The cell of magnitude / 10^decimals. Where both are exact as doubles, their quotient is rounded
/// correctly.
Cell cellOfScaled(ULONGLONG magnitude, bool isNegative, int decimals)
{
    for (; decimals > 0 && magnitude % 10 == 0; --decimals)
        magnitude /= 10;
    constexpr ULONGLONG largestExact = 1ULL << 53;
    constexpr int mostExact = 22;
    if (decimals == 0 && magnitude <= ULONGLONG(std::numeric_limits<LONGLONG>::max()))
        return Cell::FromInteger(isNegative ? -LONGLONG(magnitude) : LONGLONG(magnitude));
    if (magnitude <= largestExact && decimals <= mostExact) {
        const double number = double(magnitude) / powerOfTen(decimals);
        return Cell::FromReal(isNegative ? -number : number);
    }
    std::string digits = std::to_string(magnitude);
    if (digits.size() <= std::size_t(decimals))
        digits.insert(0, std::size_t(decimals) + 1 - digits.size(), '0');
    digits.insert(digits.size() - std::size_t(decimals), 1, '.');
    return CellOfDecimal((isNegative ? "-" : "") + digits);
}

Cell cellOfDecimal(const DECIMAL& number)
{
    if (number.Hi32 == 0)
        return cellOfScaled(number.Lo64, number.sign != 0, number.scale);
    double real = 0;
    VarR8FromDec(const_cast<DECIMAL*>(&number), &real);
    return CellOfNumber(real);
}

/// Converts an automation date: days since 30 December 1899. The fraction is the time of day also
/// in a negative number.
Timestamp timestampOf(double days)
{
    constexpr qint64 dayOfMilliseconds = 24 * 60 * 60 * 1000;
    qint64 whole = qint64(days);
    // Rounded to milliseconds, since fractions of a day are seldom exact.
    qint64 rest = std::llround(std::fabs(days - double(whole)) * double(dayOfMilliseconds));
    if (rest == dayOfMilliseconds) {
        rest = 0;
        ++whole;
    }
    static const QDate beginning(1899, 12, 30);
    Timestamp timestamp;
    beginning.addDays(whole).getDate(&timestamp.Year, &timestamp.Month, &timestamp.Day);
    const int seconds = int(rest / 1000);
    timestamp.Hour = seconds / 3600;
    timestamp.Minute = seconds / 60 % 60;
    timestamp.Second = seconds % 60;
    return timestamp;
}

/// A property of a field that not every provider has; `otherwise` where it is missing.
int optionalNumber(const Dispatch& field, const char* member, int otherwise)
{
    try {
        return field.Get(member).ToInt32();
    } catch (const Failure&) {
        return otherwise;
    }
}

HostColumn describe(const Dispatch& field)
{
    HostColumn column;
    column.Name = field.Get("Name").ToString();
    column.Type = field.Get("Type").ToInt32();
    if (column.IsUnicode())
        column.Size = optionalNumber(field, "DefinedSize", 0);
    if (column.Type == HostType::Currency)
        column.Scale = 4;
    else if (column.IsDecimal())
        column.Scale = optionalNumber(field, "NumericScale", -1);
    return column;
}

} // namespace

ColumnKind HostColumn::Kind() const
{
    switch (Type) {
    case HostType::Boolean:
        return ColumnKind::Flag;
    case HostType::TinyInt:
    case HostType::UnsignedTinyInt:
    case HostType::SmallInt:
    case HostType::UnsignedSmallInt:
    case HostType::Integer:
    case HostType::UnsignedInt:
    case HostType::BigInt:
    case HostType::UnsignedBigInt:
        return ColumnKind::Integer;
    case HostType::Single:
    case HostType::Double:
    case HostType::Currency:
    case HostType::Decimal:
    case HostType::Numeric:
    case HostType::VariableNumeric:
        return ColumnKind::Number;
    case HostType::DatabaseDate:
        return ColumnKind::Date;
    case HostType::Date:
    case HostType::FileTime:
    case HostType::DatabaseTimeStamp:
        return ColumnKind::DateTime;
    case HostType::Binary:
    case HostType::VariableBinary:
    case HostType::LongVarBinary:
        return ColumnKind::Binary;
    case HostType::Variable:
        return ColumnKind::Expression;
    default:
        break;
    }
    // Possibly a date that an older provider returns as text; each value is examined.
    const bool isPerhapsDate =
        IsUnicode() && (Size == dateLength || (Size >= shortestMoment && Size <= longestMoment));
    return isPerhapsDate ? ColumnKind::Expression : ColumnKind::Text;
}

bool HostColumn::IsDecimal() const
{
    return Type == HostType::Currency || Type == HostType::Decimal || Type == HostType::Numeric ||
           Type == HostType::VariableNumeric;
}

bool HostColumn::IsUnicode() const
{
    return Type == HostType::Text || Type == HostType::UnicodeChar ||
           Type == HostType::UnicodeVarChar || Type == HostType::UnicodeLongVarChar;
}

/// The two-dimensional array of a block of rows; the values of a row are adjacent.
class HostRows::Block {
public:
    Block(Variant values, std::size_t columns) : values_(std::move(values))
    {
        const VARIANT& raw = *values_.Raw();
        array_ = V_VT(&raw) == (VT_ARRAY | VT_VARIANT) ? V_ARRAY(&raw) : nullptr;
        if (!array_ || SafeArrayGetDim(array_) != 2 || lengthOf(1) != columns)
            throw ProviderFailure(QStringLiteral("The connection gives its rows in a form that "
                                                 "cannot be read."));
        columns_ = columns;
        rows_ = lengthOf(2);
        void* data = nullptr;
        if (FAILED(SafeArrayAccessData(array_, &data)))
            throw ProviderFailure(QStringLiteral("The connection's rows cannot be reached."));
        next_ = static_cast<const VARIANT*>(data);
    }
    ~Block()
    {
        if (next_)
            SafeArrayUnaccessData(array_);
    }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    /// The values of the next row; null after the last.
    const VARIANT* Next()
    {
        if (row_ == rows_)
            return nullptr;
        return next_ + columns_ * row_++;
    }

private:
    std::size_t lengthOf(UINT dimension) const
    {
        LONG first = 0;
        LONG last = -1;
        SafeArrayGetLBound(array_, dimension, &first);
        SafeArrayGetUBound(array_, dimension, &last);
        return std::size_t(LONGLONG(last) - first + 1);
    }

    Variant values_;
    SAFEARRAY* array_ = nullptr;
    const VARIANT* next_ = nullptr;
    std::size_t columns_ = 0;
    std::size_t rows_ = 0;
    std::size_t row_ = 0;
};

HostRows::HostRows(const Dispatch& rows) : rows_(rows)
{
    const Dispatch fields = rows_.Get("Fields").ToDispatch();
    const qint32 count = fields.Get("Count").ToInt32();
    for (qint32 index = 0; index < count; ++index) {
        columns_.push_back(describe(fields.Get("Item", index).ToDispatch()));
        kinds_.push_back(columns_.back().Kind());
    }
}

HostRows::~HostRows()
{
    block_.reset();
    try {
        rows_.Call("Close");
    } catch (const Failure&) {
        // It is closed already, or is released with its last reference.
    }
}

void HostRows::SetKinds(const ResultMetadata& metadata)
{
    for (std::size_t column = 0; column < kinds_.size(); ++column)
        kinds_[column] = metadata.At(int(column)).Kind;
}

bool HostRows::fetch()
{
    block_.reset();
    if (columns_.empty() || rows_.Get("EOF").ToBool())
        return false;
    const qint32 count = std::max(1, valuesPerBlock / qint32(columns_.size()));
    block_ = std::make_unique<Block>(rows_.Call("GetRows", count), columns_.size());
    return true;
}

std::optional<std::string_view> HostRows::Next()
{
    const VARIANT* values = block_ ? block_->Next() : nullptr;
    if (!values) {
        if (!fetch())
            return std::nullopt;
        values = block_->Next();
    }
    if (!values)
        return std::nullopt;
    row_.clear();
    for (std::size_t column = 0; column < columns_.size(); ++column)
        append(values[column], column);
    return row_;
}

void HostRows::append(const VARIANT& value, std::size_t column)
{
    const ColumnKind kind = kinds_[column];
    switch (V_VT(&value)) {
    case VT_EMPTY:
    case VT_NULL:
        return AppendCell(row_, Cell());
    case VT_I1:
        return AppendCell(row_, Cell::FromInteger(V_I1(&value)));
    case VT_UI1:
        return AppendCell(row_, Cell::FromInteger(V_UI1(&value)));
    case VT_I2:
        return AppendCell(row_, Cell::FromInteger(V_I2(&value)));
    case VT_UI2:
        return AppendCell(row_, Cell::FromInteger(V_UI2(&value)));
    case VT_I4:
    case VT_INT:
        return AppendCell(row_, Cell::FromInteger(V_I4(&value)));
    case VT_UI4:
    case VT_UINT:
        return AppendCell(row_, Cell::FromInteger(V_UI4(&value)));
    case VT_I8:
        return AppendCell(row_, Cell::FromInteger(V_I8(&value)));
    case VT_UI8:
        return AppendCell(row_, cellOfUnsigned(V_UI8(&value)));
    case VT_BOOL:
        return AppendCell(row_, Cell::FromInteger(V_BOOL(&value) != VARIANT_FALSE ? 1 : 0));
    case VT_R4:
        return AppendCell(row_, CellOfNumber(double(V_R4(&value))));
    case VT_R8:
        return AppendCell(row_, CellOfNumber(V_R8(&value)));
    case VT_CY: {
        constexpr int decimals = 4;
        const LONGLONG number = V_CY(&value).int64;
        return AppendCell(row_, cellOfScaled(magnitudeOf(number), number < 0, decimals));
    }
    case VT_DECIMAL:
        return AppendCell(row_, cellOfDecimal(V_DECIMAL(&value)));
    case VT_DATE:
        return appendMoment(V_DATE(&value), kind);
    case VT_BSTR:
        return appendText(QStringView(reinterpret_cast<const char16_t*>(V_BSTR(&value)),
                                      qsizetype(SysStringLen(V_BSTR(&value)))),
                          kind);
    case VT_ARRAY | VT_UI1: {
        const SAFEARRAY* bytes = V_ARRAY(&value);
        return AppendCell(row_, Cell::FromBinary({static_cast<const char*>(bytes->pvData),
                                                  bytes->rgsabound[0].cElements}));
    }
    default:
        throw ProviderFailure(QStringLiteral("The values of '%1' are of a type (%2) that cannot "
                                             "be read.")
                                  .arg(columns_[column].Name)
                                  .arg(V_VT(&value)));
    }
}

void HostRows::appendMoment(double days, ColumnKind kind)
{
    const Timestamp timestamp = timestampOf(days);
    if (kind == ColumnKind::Date)
        AppendDate(row_, timestamp);
    else
        AppendDateTime(row_, timestamp);
}

/// Older providers return dates as texts, with fractions of a second.
void HostRows::appendText(QStringView text, ColumnKind kind)
{
    if (kind == ColumnKind::Date || kind == ColumnKind::DateTime) {
        const QByteArray written = text.toUtf8();
        const QDateTime moment = DateTimeFromText(ViewOf(written));
        if (moment.isValid()) {
            const QByteArray stored =
                kind == ColumnKind::Date ? StoredText(moment.date()) : StoredText(moment);
            return AppendCell(row_, Cell::FromText(ViewOf(stored)));
        }
    }
    texts_.Append(row_, text);
}

} // namespace TradeForms
