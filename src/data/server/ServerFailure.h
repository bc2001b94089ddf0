#pragma once

#include <QString>

namespace TradeForms {

// The words for the user where a database server's own would leave one helpless: what to do
// first, and then the server's.

QString InUseText(const QString& reason);
QString LostText(const QString& reason);
QString LostInCommitText(const QString& reason);

/// Whether SQL Server gives this number to one who waited for another's lock: for too long, or
/// while that one waited for him.
bool IsLockNumber(int number);

} // namespace TradeForms
