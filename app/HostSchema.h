#pragma once

namespace TradeForms {
class Connection;
}

namespace Host {

/// Gives a company the tables and columns that are this host's own: names, passwords and rights
/// of the users, and what the company is called. What is there already stays as it is.
/// Raises TradeForms::ProviderFailure.
void EnsureHostSchema(TradeForms::Connection& connection);

} // namespace Host
