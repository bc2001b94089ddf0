#pragma once

#include "data/Engine.h"

#include <QString>

#include <chrono>
#include <memory>

namespace TradeForms {

/// How long another process that holds a lock is waited for.
constexpr std::chrono::milliseconds customaryLockWait{5000};

/// Opens a company file. Raises ProviderFailure with words for the user where it is missing, no
/// company, of a newer version, read-only or cannot be opened.
std::unique_ptr<Engine> OpenCompanyFile(const QString& file,
                                        std::chrono::milliseconds lockWait = customaryLockWait);

/// Makes a company file, which must not exist, with the schema in it. Raises ProviderFailure.
std::unique_ptr<Engine> CreateCompanyFile(const QString& file);

} // namespace TradeForms
