#pragma once

#include <QString>

namespace TradeForms {

// Texts for the user about failures that a server's message alone does not explain: what to do,
// followed by the server's message in `reason`.

QString InUseText(const QString& reason);
QString LostText(const QString& reason);
QString LostInCommitText(const QString& reason);

/// Whether this is the number of a SQL Server error about locks: a lock time-out or a deadlock.
bool IsLockNumber(int number);

} // namespace TradeForms
