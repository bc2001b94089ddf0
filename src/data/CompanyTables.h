#pragma once

#include "data/Cells.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace TradeForms {

/// A table of the library's schema.
struct CompanyTable {
    struct Field {
        QString Name;
        ColumnKind Kind = ColumnKind::Text;
    };

    std::vector<Field> Fields;
    QStringList Keys; ///< columns of the primary key, or of a unique index without nulls; empty
                      ///< where there are none

    /// The field of a name, without regard to case; null where there is none.
    const Field* Find(const QString& name) const;
    bool IsKey(const QString& name) const { return Keys.contains(name, Qt::CaseInsensitive); }
};

/// The table of a name, without regard to case; null where the schema has none.
const CompanyTable* CompanyTableNamed(const QString& name);

} // namespace TradeForms
