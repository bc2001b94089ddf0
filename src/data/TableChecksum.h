#pragma once

#include "data/Snapshot.h"
#include "data/Transfer.h"

#include <string_view>
#include <vector>

namespace TradeForms {

/// A sum of amounts, exact to four decimals, which is the scale of amounts and quantities.
class AmountSum {
public:
    /// A number rounded to four decimals, as a server stores it.
    static AmountSum Of(const Cell& number);

    void Add(const AmountSum& other);
    QString Text() const;
    bool operator==(const AmountSum&) const = default;

    qint64 Whole() const { return whole_; }
    int TenThousandths() const { return tenThousandths_; }

private:
    qint64 whole_ = 0;
    int tenThousandths_ = 0; ///< from 0 to 9,999, added to whole_ also where that is negative
};

/// A checksum of the rows of a table that depends neither on their order nor on the database: the
/// number of rows, and for each column the number of nulls, the sum of its amounts and a checksum
/// of its values.
class TableChecksum {
public:
    /// Columns that hold amounts in either of the two tables are summed.
    TableChecksum(const ResultMetadata& columns, const ResultMetadata& counterpart);

    /// Adds a row of encoded cells.
    void Add(std::string_view row);
    qint64 Rows() const { return rows_; }

    /// The differences from the checksum of another table, in all its columns.
    QList<TransferDifference> Compare(const TableChecksum& target, const QString& table) const;
    /// The columns whose amounts have more than four decimals here and not in another table, which
    /// is equal otherwise.
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
