#pragma once

#include <QtGlobal>

namespace TradeForms {

/// The schema version that this library requires. The schema scripts store it in a new company: in
/// a file's user_version, or in the table SchemaVersion of a server.
inline constexpr qint64 schemaVersion = 2;

} // namespace TradeForms
