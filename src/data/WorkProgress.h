#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

namespace TradeForms {

/// What a long piece of work is at.
enum class Stage {
    Counting, ///< rows of the tables, on both sides
    Copying,
    Indexing,  ///< what a new company is searched by
    Checking,  ///< a copied file, page by page
    Comparing, ///< what was copied with what it was copied from, row by row
    Balances   ///< what each account owes, on both sides
};

/// How far a long piece of work has come.
struct WorkProgress {
    Stage At = Stage::Counting;
    QString Table;   ///< the table in hand; empty where the work does not go by tables
    qint64 Done = 0; ///< pages, rows or accounts, as the stage goes by one or the other
    qint64 All = 0;  ///< 0 where it cannot be known beforehand
};

/// Told how far the work has come, many times a second. The answer false stops the work, which
/// then raises CancelledFailure. It must raise nothing itself.
using OnProgress = std::function<bool(const WorkProgress&)>;

/// Tells it, if there is anyone to tell. Raises CancelledFailure.
void Tell(const OnProgress& onProgress, const WorkProgress& progress);

} // namespace TradeForms
