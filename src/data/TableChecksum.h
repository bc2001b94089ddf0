#pragma once

#include "data/Snapshot.h"
#include "data/Transfer.h"

#include <string_view>
#include <vector>

namespace TradeForms {

/// A sum of amounts, exact to the fourth decimal, which is what amounts and quantities have.
class AmountSum {
public:
    /// The amount of a number as a server keeps it.
    static AmountSum Of(const Cell& number);

    void Add(const AmountSum& other);
    QString Text() const;
    bool operator==(const AmountSum&) const = default;

    qint64 Whole() const { return whole_; }
    int TenThousandths() const { return tenThousandths_; }

private:
    qint64 whole_ = 0;
    int tenThousandths_ = 0; ///< from 0 to 9,999, to be added
};

/// What tells the rows of a table from those of another, whatever order they come in and whatever
/// database they come from: their number, and for each column its nulls, the sum of its numbers
/// and a check sum of its values.
class TableChecksum {
public:
    /// Columns that hold amounts on either side are summed.
    TableChecksum(const ResultMetadata& columns, const ResultMetadata& counterpart);

    /// Takes a row of encoded cells.
    void Add(std::string_view row);
    qint64 Rows() const { return rows_; }

    /// What differs in another table; all columns of it.
    QList<TransferDifference> Compare(const TableChecksum& target, const QString& table) const;
    /// Where amounts lost decimals on their way to another table that does not differ otherwise.
    QList<TransferDifference> RoundedIn(const TableChecksum& target, const QString& table) const;

private:
    struct ColumnChecksum {
        QString Name;
        bool IsAmount = false;
        qint64 Nulls = 0;
        quint64 CheckSum = 0;
        AmountSum Sum;
        qint64 TooPrecise = 0; ///< amounts with more than four decimals
    };

    static void add(ColumnChecksum& column, const Cell& cell);

    std::vector<ColumnChecksum> columns_;
    qint64 rows_ = 0;
};

} // namespace TradeForms
