#pragma once

#include <sqlite3.h>

namespace TradeForms {

/// Gives a connection what the server has and SQLite lacks: the collation CI, `like` without
/// regard to case, and the functions that the adapter writes. Raises ProviderFailure.
void RegisterDialect(sqlite3* handle);

} // namespace TradeForms
