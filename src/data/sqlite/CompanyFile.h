#pragma once

#include "data/Engine.h"

#include <QString>

#include <memory>

namespace TradeForms {

/// Opens a company file. Raises ProviderFailure with words for the user where it is missing, no
/// company, of a newer version, read-only or cannot be opened.
std::unique_ptr<Engine> OpenCompanyFile(const QString& file);

/// Makes a company file, which must not exist, with the schema in it. Raises ProviderFailure.
std::unique_ptr<Engine> CreateCompanyFile(const QString& file);

} // namespace TradeForms
