#pragma once

#include "data/Tokens.h"

#include <QString>

#include <span>

namespace tests {

/// What SQL Server understands and the embedded engine's adapter does not, in words that it does:
/// literals in Unicode, dates without dashes, texts that are joined, `top (1)`, `output inserted`,
/// `varbinary(max)`. The tokens are of one statement.
QString FromServerWords(std::span<const TradeForms::Token> tokens);

} // namespace tests
