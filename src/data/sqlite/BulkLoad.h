#pragma once

#include "data/sqlite/Handle.h"

#include <QByteArray>
#include <QList>

#include <functional>

namespace TradeForms {

/// Fills an empty company file with a great many rows. While this lives, rows are written
/// without their indexes and without waiting for the disk, and the file cannot be opened: it is
/// marked as one that holds no company. Finish makes it whole.
class BulkLoad {
public:
    /// Raises ProviderFailure where the file holds rows already.
    explicit BulkLoad(sqlite3* handle);
    BulkLoad(const BulkLoad&) = delete;
    BulkLoad& operator=(const BulkLoad&) = delete;

    /// Makes the indexes and whatever else follows from the rows, telling how many of how many
    /// steps are done, and sees to it that all is on the disk.
    void Finish(const std::function<void(int done, int steps)>& progress);

private:
    void requireEmpty() const;
    void dropIndexesAndTriggers();

    sqlite3* handle_;
    QList<QByteArray> definitions_; ///< of the indexes and triggers that were put aside
};

} // namespace TradeForms
