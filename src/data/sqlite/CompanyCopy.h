#pragma once

#include "data/Backup.h"
#include "data/sqlite/SqliteEngine.h"

#include <QList>
#include <QString>

namespace TradeForms {

/// Holds what an engine reads at one moment's state, from the first row read on.
class ReadTransaction {
public:
    explicit ReadTransaction(SqliteEngine& engine);
    ~ReadTransaction();
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

private:
    sqlite3* handle_;
};

/// Copies a database page by page into a file that stands alone: one file, that any reader can
/// open, also where nothing can be written. Within a ReadTransaction of the source what is saved
/// meanwhile does not begin the copy anew. Raises Failure, CancelledFailure.
void CopyDatabase(SqliteEngine& from, const QString& file, const OnProgress& onProgress);

/// Reads the whole file through and compares its parts with each other. Raises Failure with what
/// is damaged, CancelledFailure.
void CheckDatabase(SqliteEngine& engine, const QString& file, const OnProgress& onProgress);

/// The rows of each table, by the tables' names. Raises ProviderFailure, CancelledFailure.
QList<TableCount> CountRows(SqliteEngine& engine, const OnProgress& onProgress);

/// Asks whether to go on. Raises CancelledFailure where not.
void Tell(const OnProgress& onProgress, const Progress& progress);

} // namespace TradeForms
