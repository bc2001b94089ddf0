#pragma once

#include "reports/ReportDeclaration.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

namespace TradeForms {

class Recordset;

/// The rows of a report, read from a recordset that its caller owns.
class ReportRows {
public:
    /// Raises Failure where the recordset is closed.
    explicit ReportRows(std::shared_ptr<Recordset> rows);

    int Count() const { return count_; }
    /// A row's value, the row counted from 0. Raises Failure where the recordset has been closed
    /// or opened anew meanwhile, and for a column that it does not have.
    QVariant Value(int row, const QString& column) const;

private:
    Recordset& stillOpen() const;

    std::shared_ptr<Recordset> rows_;
    int count_ = 0;
    mutable QHash<QString, int> columns_;
};

/// The values of a section's fields: a row, and the running totals.
class RowValues : public ReportValues {
public:
    using Sums = QHash<QString, double>;

    RowValues(const ReportRows& rows, QStringList parameters)
        : rows_(rows), parameters_(std::move(parameters))
    {
    }

    QVariant Column(const QString& name) const override;
    double Total(const QString& name) const override;
    QString Parameter(int index) const override;
    bool HasRow() const override { return Row >= 0 && Row < rows_.Count(); }

    int Row = 0;
    Sums Totals;

private:
    const ReportRows& rows_;
    QStringList parameters_;
};

} // namespace TradeForms
