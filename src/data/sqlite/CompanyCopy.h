#pragma once

#include "data/Backup.h"
#include "data/sqlite/SqliteEngine.h"

#include <QList>
#include <QString>

namespace TradeForms {

/// Copies a database page by page to a single file without log files, which can be opened where
/// nothing can be written. To be called within a ReadTransaction of the source, so that changes
/// made meanwhile do not restart the copy. Raises Failure, CancelledFailure.
void CopyDatabase(SqliteEngine& from, const QString& file, const OnProgress& onProgress);

/// Runs an integrity check of the whole file. Raises ProviderFailure that lists the damage,
/// CancelledFailure.
void CheckDatabase(SqliteEngine& engine, const QString& file, const OnProgress& onProgress);

/// The number of rows of each table of the company, sorted by table. Raises ProviderFailure,
/// CancelledFailure.
QList<TableCount> CountRows(SqliteEngine& engine, const OnProgress& onProgress);

} // namespace TradeForms
