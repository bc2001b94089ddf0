#pragma once

namespace TradeForms {
class Connection;
}

namespace Host {

/// Adds this host's own tables and columns to a company: names, passwords and rights of the users,
/// and the company's name. Existing ones stay as they are. Raises TradeForms::ProviderFailure.
void EnsureHostSchema(TradeForms::Connection& connection);

} // namespace Host
