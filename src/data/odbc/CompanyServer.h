#pragma once

#include "data/odbc/OdbcEngine.h"

#include <memory>

namespace TradeForms {

/// Connects to a server. Raises ProviderFailure with a text for the user where that fails, and as
/// RequireCompany does.
std::unique_ptr<Engine> OpenCompanyServer(const QString& connectionString);

/// Raises ProviderFailure with a text for the user where the database of a connected engine holds
/// no company of this library's schema version.
void RequireCompany(OdbcEngine& engine);

} // namespace TradeForms
