#pragma once

#include "data/Cells.h"
#include "data/ado/HostRows.h"

#include <QString>

namespace TradeForms {

/// A value written as a literal for a column that holds values of this kind. A decimal is rounded
/// to the column's decimals, so that what is looked for is what the column holds.
QString LiteralFor(const Cell& cell, const HostColumn& column, ColumnKind kind);

} // namespace TradeForms
