#pragma once

#include "data/Cells.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace TradeForms {

/// A table as the library's own schema makes it.
struct CompanyTable {
    struct Field {
        QString Name;
        ColumnKind Kind = ColumnKind::Text;
    };

    std::vector<Field> Fields;
    QStringList Keys; ///< columns that tell its rows apart; empty where there are none

    /// By name, without regard to case; null for none.
    const Field* Find(const QString& name) const;
    bool IsKey(const QString& name) const { return Keys.contains(name, Qt::CaseInsensitive); }
};

/// By name, without regard to case; null for a table that is not of this schema.
const CompanyTable* CompanyTableNamed(const QString& name);

} // namespace TradeForms
