#pragma once

#include <QString>

// What is done to the files of a database, and the failures of that.

namespace TradeForms {

/// Raises Failure with a description in which %1 is replaced by the file.
[[noreturn]] void RaiseFileFailure(const QString& description, const QString& file);
/// The same as a ProviderFailure with one of SQLite's error codes.
[[noreturn]] void RaiseFileFailure(const QString& description, const QString& file, int code);
/// Raises the Failure of a company that another program has open.
[[noreturn]] void RaiseInUse(const QString& file);

/// Whether two paths lead to one file that exists.
bool IsSameFile(const QString& first, const QString& second);

/// Removes a database and its log and journal files. Returns false where one of them cannot be
/// removed.
bool RemoveDatabase(const QString& file);

/// Renames a file, and replaces a file that exists under the new name. Raises Failure.
void MoveOver(const QString& file, const QString& place);

} // namespace TradeForms
