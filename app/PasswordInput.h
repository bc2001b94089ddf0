#pragma once

#include <QString>

#include <optional>

namespace Host {

/// The password for a user who was named on the command line: typed on the terminal without
/// echo where standard input is one, else its first line. Nothing at the end of input.
std::optional<QString> ReadPassword(const QString& userName);

} // namespace Host
