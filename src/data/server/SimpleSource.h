#pragma once

#include <QString>

namespace TradeForms {

/// The table of a statement that reads columns of one table as they are, such as
/// `select * from T where ...`; empty for any other. Where a driver does not say where a result
/// comes from, the columns of such a statement are the table's, under their own names.
QString TableOfSimpleQuery(const QString& statement);

} // namespace TradeForms
