#include "support/windows/HostRecordset.h"

#include "data/ado/Dispatch.h"

#include <oleauto.h>

#include <QDate>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace TradeForms;

namespace tests {

namespace {

// Type numbers of the system's data objects.
constexpr int typeInteger = 3;
constexpr int typeDouble = 5;
constexpr int typeBoolean = 11;
constexpr int typeVariant = 12;
constexpr int typeBigInt = 20;
constexpr int typeNumeric = 131;
constexpr int typeDate = 133;
constexpr int typeTimeStamp = 135;
constexpr int typeVarChar = 200;
constexpr int typeUnicodeVarChar = 202;
constexpr int typeVarBinary = 204;

constexpr qint32 noCurrentRecord = qint32(0x800A0BCD);
constexpr qint32 objectClosed = qint32(0x800A0E78);

QString textOf(const Cell& cell)
{
    return QString::fromUtf8(cell.Bytes.data(), qsizetype(cell.Bytes.size()));
}

/// Whether the number is an amount that the server's decimal(18, 4) can hold.
bool isAmount(double number)
{
    return std::fabs(number) < 1e14 && QByteArray::number(number, 'f', 4).toDouble() == number;
}

/// Properties common to all values of a column.
struct Found {
    bool HasInteger = false;
    bool HasLong = false;
    bool HasReal = false;
    bool HasBeyondAmount = false;
    bool HasDate = false;
    bool HasMoment = false;
    bool HasText = false;
    bool HasBinary = false;

    void Note(const Cell& cell)
    {
        switch (cell.Kind) {
        case Cell::Type::Null:
            break;
        case Cell::Type::Integer:
            HasInteger = true;
            HasLong = HasLong || cell.Integer != qint32(cell.Integer);
            HasBeyondAmount = HasBeyondAmount || std::llabs(cell.Integer) > 99999999999999;
            break;
        case Cell::Type::Real:
            HasReal = true;
            HasBeyondAmount = HasBeyondAmount || !isAmount(cell.Real);
            break;
        case Cell::Type::Binary:
            HasBinary = true;
            break;
        case Cell::Type::Text:
            if (IsStoredDate(cell.Bytes))
                HasDate = true;
            else if (IsStoredDateTime(cell.Bytes))
                HasMoment = true;
            else
                HasText = true;
            break;
        }
    }

    bool HasWords() const { return HasDate || HasMoment || HasText; }
    bool HasNumbers() const { return HasInteger || HasReal; }
};

Found foundIn(const Snapshot& rows, int column)
{
    Found found;
    for (int row = 0; row < rows.RowCount(); ++row)
        found.Note(CellAt(rows.Row(row), column));
    return found;
}

int typeOfExpression(const Found& found)
{
    if (int(found.HasNumbers()) + int(found.HasWords()) + int(found.HasBinary) > 1)
        return typeVariant;
    if (found.HasReal)
        return typeDouble;
    if (found.HasInteger)
        return found.HasLong ? typeBigInt : typeInteger;
    if (found.HasBinary)
        return typeVarBinary;
    if (found.HasDate && !found.HasMoment && !found.HasText)
        return typeDate;
    if (found.HasMoment && !found.HasDate && !found.HasText)
        return typeTimeStamp;
    return typeVarChar;
}

/// Returns the type of the server's column. A company file can hold values that such a column
/// cannot.
int typeOf(ColumnKind kind, const Found& found)
{
    switch (kind) {
    case ColumnKind::Integer:
        if (!found.HasReal && !found.HasWords() && !found.HasBinary)
            return found.HasLong ? typeBigInt : typeInteger;
        break;
    case ColumnKind::Number:
        if (!found.HasWords() && !found.HasBinary)
            return found.HasBeyondAmount ? typeDouble : typeNumeric;
        break;
    case ColumnKind::Flag:
        if (!found.HasWords() && !found.HasBinary)
            return typeBoolean;
        break;
    case ColumnKind::Date:
        if (!found.HasMoment && !found.HasText && !found.HasNumbers())
            return typeDate;
        break;
    case ColumnKind::DateTime:
        if (!found.HasDate && !found.HasText && !found.HasNumbers())
            return typeTimeStamp;
        break;
    case ColumnKind::Text:
        if (!found.HasNumbers() && !found.HasBinary)
            return typeVarChar;
        break;
    case ColumnKind::Binary:
        return typeVarBinary;
    case ColumnKind::Expression:
        break;
    }
    return typeOfExpression(found);
}

HostField fieldOf(const Snapshot& rows, int column, Provider provider)
{
    const Column& told = rows.Columns().At(column);
    HostField field{told.Name, typeOf(told.Kind, foundIn(rows, column)), 0, 0, 0};
    if (field.Type == typeNumeric) {
        field.Precision = 18;
        field.Decimals = 4;
    }
    const bool isMoment = field.Type == typeDate || field.Type == typeTimeStamp;
    if (isMoment && provider == Provider::Older) {
        field.Size = field.Type == typeDate ? 10 : 19;
        field.Type = typeUnicodeVarChar;
    }
    return field;
}

/// A field object, which describes its column.
class Field : public HostObject {
public:
    explicit Field(const HostField& field) : field_(field)
    {
        Add(
            L"Name", [this](Arguments) { return Variant(field_.Name); });
        Add(
            L"Type", [this](Arguments) { return Variant(qint32(field_.Type)); });
        Add(
            L"DefinedSize", [this](Arguments) { return Variant(qint32(field_.Size)); });
        Add(
            L"Precision", [this](Arguments) { return Variant(qint32(field_.Precision)); });
        Add(L"NumericScale", [this](Arguments) { return Variant(qint32(field_.Decimals)); });
    }

private:
    HostField field_;
};

class Fields : public HostObject {
public:
    explicit Fields(const std::vector<HostField>& fields) : fields_(fields)
    {
        Add(
            L"Count", [this](Arguments) { return Variant(qint32(fields_.size())); });
        Add(L"Item", [this](Arguments arguments) {
            return Handed(new Field(fields_.at(std::size_t(V_I4(arguments[0])))));
        });
    }

private:
    std::vector<HostField> fields_;
};

double daysOf(const QDateTime& moment)
{
    const double days = double(QDate(1899, 12, 30).daysTo(moment.date()));
    const double fraction = double(moment.time().msecsSinceStartOfDay()) / 86400000;
    return days < 0 ? days - fraction : days + fraction;
}

Variant decimalOf(const QByteArray& digits)
{
    Variant result;
    DECIMAL number{};
    std::wstring text = QString::fromLatin1(digits).toStdWString();
    if (FAILED(VarDecFromStr(text.data(), LOCALE_INVARIANT, 0, &number)))
        throw HostFailure{QStringLiteral("No decimal holds %1.").arg(QLatin1String(digits)),
                          E_FAIL};
    V_DECIMAL(result.Raw()) = number;
    V_VT(result.Raw()) = VT_DECIMAL;
    return result;
}

Variant bytesOf(const Cell& cell)
{
    Variant result;
    V_ARRAY(result.Raw()) = SafeArrayCreateVector(VT_UI1, 0, ULONG(cell.Bytes.size()));
    V_VT(result.Raw()) = VT_ARRAY | VT_UI1;
    std::copy(cell.Bytes.begin(), cell.Bytes.end(),
              static_cast<char*>(V_ARRAY(result.Raw())->pvData));
    return result;
}

Variant momentOf(const Cell& cell)
{
    Variant result;
    V_DATE(result.Raw()) = daysOf(DateTimeFromText(cell.Bytes));
    V_VT(result.Raw()) = VT_DATE;
    return result;
}

Variant null()
{
    Variant result;
    V_VT(result.Raw()) = VT_NULL;
    return result;
}

Variant numberOf(const Cell& cell, int type)
{
    const bool isInteger = cell.Kind == Cell::Type::Integer;
    switch (type) {
    case typeBoolean:
        return Variant(isInteger ? cell.Integer != 0 : cell.Real != 0);
    case typeNumeric:
    case typeBigInt:
        return decimalOf(isInteger ? QByteArray::number(qlonglong(cell.Integer))
                                   : QByteArray::number(cell.Real, 'f', 4));
    case typeDouble:
        return Variant(isInteger ? double(cell.Integer) : cell.Real);
    default:
        return isInteger ? Variant(qint32(cell.Integer)) : Variant(cell.Real);
    }
}

} // namespace

HostRecordset::HostRecordset(HostConnection& connection, std::shared_ptr<const Snapshot> rows,
                             Provider provider)
    : connection_(connection), rows_(std::move(rows))
{
    connection_.AddRef();
    for (int column = 0; rows_ && column < rows_->Columns().Count(); ++column)
        fields_.push_back(fieldOf(*rows_, column, provider));
    Add(L"State", [this](Arguments) { return Variant(qint32(rows_ ? 1 : 0)); });
    Add(
        L"EOF",
        [this](Arguments) {
            requireOpen();
            return Variant(next_ >= rows_->RowCount());
        });
    Add(
        L"Fields", [this](Arguments) { return Handed(new Fields(fields_)); });
    Add(L"GetRows", [this](Arguments arguments) { return getRows(arguments); });
    Add(L"Close", [this](Arguments) {
        requireOpen();
        rows_.reset();
        return Variant();
    });
}

HostRecordset::~HostRecordset()
{
    connection_.Release();
}

void HostRecordset::requireOpen() const
{
    if (!rows_)
        throw HostFailure{QStringLiteral("Operation is not allowed when the object is closed."),
                          objectClosed};
}

Variant HostRecordset::value(const Cell& cell, const HostField& field) const
{
    switch (cell.Kind) {
    case Cell::Type::Null:
        return null();
    case Cell::Type::Integer:
    case Cell::Type::Real:
        return numberOf(cell, field.Type);
    case Cell::Type::Binary:
        return bytesOf(cell);
    case Cell::Type::Text:
        break;
    }
    return field.Type == typeDate || field.Type == typeTimeStamp ? momentOf(cell)
                                                                 : Variant(textOf(cell));
}

/// Returns the next rows, at most as many as requested, as an array of fields by rows.
Variant HostRecordset::getRows(Arguments arguments)
{
    requireOpen();
    connection_.countBlock();
    if (next_ >= rows_->RowCount())
        throw HostFailure{
            QStringLiteral("Either BOF or EOF is True, or the current record has been deleted."),
            noCurrentRecord};
    const int count = std::min(int(V_I4(arguments[0])), rows_->RowCount() - next_);
    SAFEARRAYBOUND bounds[] = {{ULONG(fields_.size()), 0}, {ULONG(count), 0}};
    Variant result;
    V_ARRAY(result.Raw()) = SafeArrayCreate(VT_VARIANT, 2, bounds);
    V_VT(result.Raw()) = VT_ARRAY | VT_VARIANT;
    auto* place = static_cast<VARIANT*>(V_ARRAY(result.Raw())->pvData);
    for (const int end = next_ + count; next_ < end; ++next_) {
        const char* at = rows_->Row(next_);
        for (const HostField& field : fields_) {
            Variant made = value(ReadCell(at), field);
            std::swap(*place++, *made.Raw());
        }
    }
    return result;
}

} // namespace tests
