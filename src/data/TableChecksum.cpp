#include "data/TableChecksum.h"

#include <QByteArray>
#include <QHashFunctions>

#include <algorithm>
#include <cmath>

namespace TradeForms {

namespace {

constexpr int unitsPerWhole = 10'000;

bool isNumber(const Cell& cell)
{
    return cell.Kind == Cell::Type::Integer || cell.Kind == Cell::Type::Real;
}

/// Whether a number has more than four decimals, apart from the rounding error of a double.
bool isTooPrecise(const Cell& cell)
{
    if (cell.Kind != Cell::Type::Real)
        return false;
    const double scaled = cell.Real * unitsPerWhole;
    const double rest = std::abs(scaled - std::nearbyint(scaled));
    constexpr double noise = 1e-11;
    return rest > std::max(1e-6, std::abs(scaled) * noise);
}

QString nullsText(qint64 nulls)
{
    return QStringLiteral("%1 nulls").arg(nulls);
}

QString checkSumText(quint64 sum)
{
    return QStringLiteral("check sum %1").arg(sum, 16, 16, QLatin1Char('0'));
}

} // namespace

AmountSum AmountSum::Of(const Cell& number)
{
    AmountSum amount;
    if (number.Kind == Cell::Type::Integer) {
        amount.whole_ = number.Integer;
        return amount;
    }
    const double scaled = number.Real * unitsPerWhole;
    const double nearest = std::nearbyint(scaled);
    if (std::abs(scaled) < 1e15 && std::abs(scaled - nearest) < 0.25) {
        const auto tenThousandths = qint64(nearest);
        amount.tenThousandths_ =
            int((tenThousandths % unitsPerWhole + unitsPerWhole) % unitsPerWhole);
        amount.whole_ = (tenThousandths - amount.tenThousandths_) / unitsPerWhole;
        return amount;
    }
    // Halfway between two amounts the digits are rounded, as they are when the number is sent.
    const QByteArray digits = QByteArray::number(std::abs(number.Real), 'f', 4);
    amount.whole_ = digits.chopped(5).toLongLong();
    amount.tenThousandths_ = digits.right(4).toInt();
    if (number.Real < 0) {
        amount.whole_ = -amount.whole_;
        if (amount.tenThousandths_ > 0) {
            --amount.whole_;
            amount.tenThousandths_ = unitsPerWhole - amount.tenThousandths_;
        }
    }
    return amount;
}

void AmountSum::Add(const AmountSum& other)
{
    tenThousandths_ += other.tenThousandths_;
    const int carry = tenThousandths_ / unitsPerWhole;
    tenThousandths_ %= unitsPerWhole;
    // Wraps around instead of overflowing; sums that differ still differ then.
    whole_ = qint64(quint64(whole_) + quint64(other.whole_) + quint64(carry));
}

QString AmountSum::Text() const
{
    const bool isNegative = whole_ < 0;
    const bool borrows = isNegative && tenThousandths_ > 0;
    const quint64 whole =
        isNegative ? quint64(0) - quint64(whole_) - (borrows ? 1 : 0) : quint64(whole_);
    const int rest = borrows ? unitsPerWhole - tenThousandths_ : tenThousandths_;
    return (isNegative ? QStringLiteral("-") : QString()) + QString::number(whole) + u'.' +
           QString::number(rest).rightJustified(4, u'0');
}

TableChecksum::TableChecksum(const ResultMetadata& columns, const ResultMetadata& counterpart)
{
    for (int index = 0; index < columns.Count(); ++index) {
        ColumnChecksum column;
        column.Name = columns.At(index).Name;
        column.IsAmount = columns.At(index).Kind == ColumnKind::Number ||
                          counterpart.At(index).Kind == ColumnKind::Number;
        columns_.push_back(column);
    }
}

void TableChecksum::Add(std::string_view row)
{
    ++rows_;
    const char* at = row.data();
    for (ColumnChecksum& column : columns_)
        add(column, ReadCell(at));
}

void TableChecksum::add(ColumnChecksum& column, const Cell& cell)
{
    if (cell.IsNull()) {
        ++column.Nulls;
        return;
    }
    if (!isNumber(cell)) {
        column.CheckSum += qHashBits(cell.Bytes.data(), cell.Bytes.size());
        return;
    }
    const AmountSum amount = AmountSum::Of(cell);
    column.CheckSum += qHashMulti(0, amount.Whole(), amount.TenThousandths());
    if (column.IsAmount) {
        column.Sum.Add(amount);
        column.TooPrecise += isTooPrecise(cell);
    }
}

QList<TransferDifference> TableChecksum::Compare(const TableChecksum& target,
                                                 const QString& table) const
{
    QList<TransferDifference> differences;
    if (rows_ != target.rows_)
        differences.append({table,
                            {},
                            {},
                            QStringLiteral("%1 rows").arg(rows_),
                            QStringLiteral("%1 rows").arg(target.rows_)});
    for (std::size_t index = 0; index < columns_.size(); ++index) {
        const ColumnChecksum& here = columns_[index];
        const ColumnChecksum& there = target.columns_[index];
        const auto differ = [&](const QString& source, const QString& copied) {
            differences.append({table, here.Name, {}, source, copied});
        };
        if (here.IsAmount && here.Sum != there.Sum)
            differ(QStringLiteral("sum ") + here.Sum.Text(),
                   QStringLiteral("sum ") + there.Sum.Text());
        else if (here.Nulls != there.Nulls)
            differ(nullsText(here.Nulls), nullsText(there.Nulls));
        else if (here.CheckSum != there.CheckSum)
            differ(checkSumText(here.CheckSum), checkSumText(there.CheckSum));
    }
    return differences;
}

QList<TransferDifference> TableChecksum::RoundedIn(const TableChecksum& target,
                                                   const QString& table) const
{
    QList<TransferDifference> rounded;
    for (std::size_t index = 0; index < columns_.size(); ++index) {
        const ColumnChecksum& here = columns_[index];
        const ColumnChecksum& there = target.columns_[index];
        if (here.TooPrecise != there.TooPrecise)
            rounded.append(
                {table,
                 here.Name,
                 {},
                 QStringLiteral("%1 amounts of more than four decimals").arg(here.TooPrecise),
                 QStringLiteral("%1").arg(there.TooPrecise)});
    }
    return rounded;
}

} // namespace TradeForms
