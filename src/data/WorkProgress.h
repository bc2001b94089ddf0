#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

namespace TradeForms {

/// The stages of a long operation.
enum class Stage {
    Counting, ///< rows of the tables, on both sides
    Copying,
    Indexing,  ///< of a new company
    Checking,  ///< a copied file, page by page
    Comparing, ///< what was copied with what it was copied from, row by row
    Balances   ///< of the accounts, on both sides
};

/// The progress of a long operation.
struct WorkProgress {
    Stage At = Stage::Counting;
    QString Table;   ///< the current table; empty where the stage does not go by tables
    qint64 Done = 0; ///< pages, rows or accounts, depending on the stage
    qint64 All = 0;  ///< their total number; 0 where it is not known in advance
};

/// A callback for progress, called many times a second. Where it returns false, the operation stops
/// and raises CancelledFailure. It must not throw.
using OnProgress = std::function<bool(const WorkProgress&)>;

/// Calls the callback, if there is one. Raises CancelledFailure where it returns false.
void Tell(const OnProgress& onProgress, const WorkProgress& progress);

} // namespace TradeForms
