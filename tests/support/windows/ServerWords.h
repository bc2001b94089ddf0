#pragma once

#include "data/Tokens.h"

#include <QString>

#include <span>

namespace tests {

/// Translates SQL Server syntax that the embedded engine's adapter does not know to syntax that it
/// does: Unicode literals, dates without dashes, concatenated texts, `top (1)`, `output inserted`,
/// `varbinary(max)`. The tokens are of one statement.
QString FromServerWords(std::span<const TradeForms::Token> tokens);

} // namespace tests
