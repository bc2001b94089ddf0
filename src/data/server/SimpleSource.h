#pragma once

#include <QString>

namespace TradeForms {

/// The table of a query that reads columns of one table without renaming or computing any, such as
/// `select * from T where ...`; empty for any other statement. It replaces the base tables that
/// some drivers do not report. Raises ProviderFailure where the statement cannot be split into
/// tokens.
QString TableOfSimpleQuery(const QString& statement);

} // namespace TradeForms
