#pragma once

#include "data/Cells.h"
#include "data/ado/HostRows.h"

#include <QString>

namespace TradeForms {

/// The literal of a cell for a column of a type. A decimal is rounded to the column's scale, so
/// that it compares equal to the stored value.
QString LiteralFor(const Cell& cell, const HostColumn& column, ColumnKind kind);

} // namespace TradeForms
