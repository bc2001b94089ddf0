#pragma once

#include "controls/Grid.h"
#include "data/Recordset.h"
#include "search/SearchDeclaration.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <vector>

namespace TradeForms {

/// The rows of a query, bound to the columns of a list. Empty until Take.
class BoundRows : public GridSource {
public:
    explicit BoundRows(const QList<SearchColumn>& columns) : columns_(columns) {}

    void Take(Recordset rows);
    void Drop();
    Recordset& Rows() { return rows_; }
    const Recordset& Rows() const { return rows_; }

    /// The value of a cell; invalid for a null and for a column without a field.
    QVariant Value(int row, int column) const;

    int RowCount() const override;
    QString Text(int row, int column) const override;

private:
    const QList<SearchColumn>& columns_;
    Recordset rows_;
    std::vector<int> fieldOfColumn_;
};

} // namespace TradeForms
