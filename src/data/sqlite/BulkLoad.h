#pragma once

#include "data/sqlite/Handle.h"

#include <QByteArray>
#include <QList>

#include <functional>

namespace TradeForms {

/// Bulk load of an empty company file. Until Finish, rows are written without indexes and without
/// waiting for the disk, and the file is marked as no company, so that it cannot be opened.
class BulkLoad {
public:
    /// Drops indexes and triggers. Raises ProviderFailure where the file holds rows already.
    explicit BulkLoad(sqlite3* handle);
    BulkLoad(const BulkLoad&) = delete;
    BulkLoad& operator=(const BulkLoad&) = delete;

    /// Creates indexes, triggers and derived rows, calls `progress` after each step, and writes
    /// everything to the disk. Raises ProviderFailure.
    void Finish(const std::function<void(int done, int steps)>& progress);

private:
    void requireEmpty() const;
    void dropIndexesAndTriggers();

    sqlite3* handle_;
    QList<QByteArray> definitions_; ///< of the dropped indexes and triggers
};

} // namespace TradeForms
