#pragma once

#include "controls/Grid.h"
#include "data/Recordset.h"
#include "search/SearchDeclaration.h"

#include <QList>
#include <QString>
#include <QVariant>

#include <vector>

namespace TradeForms {

/// Rows of a query, as the columns of a list show them. Empty until there are some.
class BoundRows : public GridSource {
public:
    explicit BoundRows(const QList<SearchColumn>& columns) : columns_(columns) {}

    void Take(Recordset rows);
    void Drop();
    Recordset& Rows() { return rows_; }
    const Recordset& Rows() const { return rows_; }

    /// What stands behind the text; invalid for a null and for a column without a field.
    QVariant Value(int row, int column) const;

    int RowCount() const override;
    QString Text(int row, int column) const override;

private:
    const QList<SearchColumn>& columns_;
    Recordset rows_;
    std::vector<int> fieldOfColumn_;
};

} // namespace TradeForms
