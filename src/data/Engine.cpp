#include "data/Engine.h"

#include "data/Failure.h"

#include <utility>

namespace TradeForms {

RowWriter::~RowWriter() = default;

std::vector<std::string> RowWriter::Write(const std::vector<RowChange>& changes)
{
    std::vector<std::string> stored;
    for (const RowChange& change : changes) {
        stored.emplace_back();
        switch (change.Kind) {
        case RowChange::Type::Insert:
            stored.back() = Insert(change.Row, *change.Touched);
            break;
        case RowChange::Type::Update:
            RequireFound(Update(change.Original, change.Row, *change.Touched));
            break;
        case RowChange::Type::Delete:
            RequireFound(Delete(change.Original));
            break;
        }
    }
    return stored;
}

void RowWriter::RequireFound(qint64 rows)
{
    if (rows != 1)
        throw ProviderFailure(
            QStringLiteral("The record has been changed or removed by another user since it was "
                           "read. Nothing was saved. Open it again and repeat the change."));
}

Cursor::~Cursor() = default;

Engine::~Engine() = default;

QString Engine::TextOf(const Statement& statement) const
{
    try {
        return statement.Text(Dialect());
    } catch (const Failure& failure) {
        throw ProviderFailure(failure.Description());
    }
}

std::unique_ptr<Cursor> Engine::OpenCursor(const QString&)
{
    return nullptr;
}

std::shared_ptr<const Snapshot> Engine::Run(const QString& statement, Purpose purpose)
{
    std::shared_ptr<Snapshot> snapshot;
    Scan(
        statement,
        [&](const std::shared_ptr<const ResultMetadata>& columns) {
            snapshot = std::make_shared<Snapshot>(columns);
        },
        [&](std::string_view row) { snapshot->Append(row); }, purpose);
    if (snapshot)
        snapshot->Finish();
    return snapshot;
}

QStringList Engine::TableNames()
{
    throw ProviderFailure(QStringLiteral("This database does not tell its tables."));
}

void Engine::BeginReadTransaction()
{
    throw ProviderFailure(QStringLiteral("This database cannot be read as at one moment."));
}

void Engine::BeginTrans()
{
    if (InTransaction())
        throw ProviderFailure(QStringLiteral("A transaction is open already."));
    UndoIfRolledBack();
    isBegun_ = false;
    beginNative();
    isBegun_ = true;
}

void Engine::CommitTrans()
{
    if (!isBegun_)
        throw ProviderFailure(QStringLiteral("There is no transaction to commit."));
    if (!isNativeOpen())
        throw ProviderFailure(QStringLiteral("The database has undone the transaction after an "
                                             "error. Nothing of it was saved."));
    commitNative();
    isBegun_ = false;
    undoActions_.clear();
}

void Engine::RollbackTrans()
{
    if (!isBegun_)
        throw ProviderFailure(QStringLiteral("There is no transaction to roll back."));
    if (isNativeOpen())
        rollbackNative();
    isBegun_ = false;
    undo();
}

void Engine::UndoIfRolledBack()
{
    if (isBegun_ && !isNativeOpen())
        undo();
}

void Engine::Atomically(const std::function<void()>& work)
{
    const bool isNested = isWithinTransaction();
    isNested ? setSavepoint() : beginNative();
    try {
        work();
        isNested ? releaseSavepoint() : commitNative();
    } catch (...) {
        // The failure that led here is the one to report.
        try {
            if (isWithinTransaction())
                isNested ? rollbackToSavepoint() : rollbackNative();
        } catch (const ProviderFailure&) {
        }
        throw;
    }
}

void Engine::OnRollback(std::function<void()> undo)
{
    if (InTransaction())
        undoActions_.push_back(std::move(undo));
}

void Engine::undo()
{
    const auto undos = std::exchange(undoActions_, {});
    for (auto undo = undos.rbegin(); undo != undos.rend(); ++undo)
        (*undo)();
}

} // namespace TradeForms
