#pragma once

#include <QtGlobal>

namespace TradeForms {

/// The version of the schema that this library works on. The schema scripts write it into a
/// new company: into the file's user_version, or into the table SchemaVersion.
inline constexpr qint64 schemaVersion = 2;

} // namespace TradeForms
