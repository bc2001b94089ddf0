#pragma once

#include "data/Backup.h"
#include "data/sqlite/SqliteEngine.h"

#include <QList>
#include <QString>

namespace TradeForms {

/// Copies a database page by page into a file that stands alone: one file, that any reader can
/// open, also where nothing can be written. Within a ReadTransaction of the source what is saved
/// meanwhile does not begin the copy anew. Raises Failure, CancelledFailure.
void CopyDatabase(SqliteEngine& from, const QString& file, const OnProgress& onProgress);

/// Reads the whole file through and compares its parts with each other. Raises Failure with what
/// is damaged, CancelledFailure.
void CheckDatabase(SqliteEngine& engine, const QString& file, const OnProgress& onProgress);

/// The rows of each table of the company, by the tables' names. Raises ProviderFailure,
/// CancelledFailure.
QList<TableCount> CountRows(SqliteEngine& engine, const OnProgress& onProgress);

} // namespace TradeForms
