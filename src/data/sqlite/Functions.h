#pragma once

#include <sqlite3.h>

namespace TradeForms {

/// Registers what SQLite lacks of the server: the collation CI, `like` without regard to case, and
/// the functions that the adapter writes. Raises ProviderFailure.
void RegisterDialect(sqlite3* handle);

} // namespace TradeForms
