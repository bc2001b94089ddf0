#pragma once

#include "data/odbc/OdbcEngine.h"

#include <memory>

namespace TradeForms {

/// Connects to a server and makes sure that its database holds a company of this library's
/// schema version. Raises ProviderFailure with a text for the user.
std::unique_ptr<Engine> OpenCompanyServer(const QString& connectionString);

/// The second half of it: for an engine that is connected already.
void RequireCompany(OdbcEngine& engine);

} // namespace TradeForms
