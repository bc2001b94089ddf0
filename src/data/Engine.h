#pragma once

#include "data/Snapshot.h"
#include "data/Statement.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace TradeForms {

/// One change for RowWriter::Write.
struct RowChange {
    enum class Type { Insert, Update, Delete };

    Type Kind = Type::Insert;
    const char* Original = nullptr; ///< null for an insertion
    const char* Row = nullptr;      ///< null for a deletion
    const std::vector<bool>* Touched = nullptr;
};

/// Writes rows of one result to its base table. A row is identified by its key and by the values
/// that were read, so that a row that another user has changed since is not found (optimistic
/// locking).
class RowWriter {
public:
    virtual ~RowWriter();

    /// Inserts a row; `touched` marks the columns that were set, all others get their defaults.
    /// Returns the encoded row as the table holds it, with generated numbers; empty where all
    /// columns were set. Raises ProviderFailure.
    virtual std::string Insert(const char* row, const std::vector<bool>& touched) = 0;
    /// Writes the touched columns of a row. Returns the number of rows found. Raises
    /// ProviderFailure.
    virtual qint64 Update(const char* original, const char* row,
                          const std::vector<bool>& touched) = 0;
    /// Deletes a row. Returns the number of rows found. Raises ProviderFailure.
    virtual qint64 Delete(const char* original) = 0;

    /// Makes changes in their order. Returns for each insertion what Insert returns, and an empty
    /// row for the others. Raises ProviderFailure at the first change that fails or whose row is
    /// not found; the changes before it remain.
    virtual std::vector<std::string> Write(const std::vector<RowChange>& changes);

protected:
    /// Raises ProviderFailure where the number of rows found is not 1.
    static void RequireFound(qint64 rows);
};

/// Reads the rows of one statement one by one. Other statements may be run between two rows.
class Cursor {
public:
    Cursor() = default;
    virtual ~Cursor();
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;

    /// The encoded cells of the next row, valid until the next call; nothing after the last row.
    /// Raises ProviderFailure.
    virtual std::optional<std::string_view> Next() = 0;
    /// The columns; to be called after the first Next.
    virtual std::shared_ptr<const ResultMetadata> Columns() const = 0;
    /// The database's work so far, counted in its own steps and not in time: the same rows cost the
    /// same however busy the machine is. 0 where the database does not count.
    virtual qint64 Work() const = 0;
};

/// A database that a connection works on. Every function raises ProviderFailure where the database
/// reports an error.
///
/// This class keeps the state of the transaction as the caller sees it; the derived engine reports
/// the state in the database. The two differ where the database has rolled back by itself, for
/// example when the disk is full.
class Engine {
public:
    Engine() = default;
    virtual ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// The text of a statement with its values, in the dialect of this database. Raises
    /// ProviderFailure where a value does not fit its placeholder.
    QString TextOf(const Statement& statement) const;
    /// Whether the rows of a result are to be written back; only then are their base tables looked
    /// up.
    enum class Purpose { Read, Write };

    using OnColumns = std::function<void(const std::shared_ptr<const ResultMetadata>& columns)>;
    using OnRow = std::function<void(std::string_view row)>;

    /// Runs one statement in the server's dialect and passes its rows on as they are read: calls
    /// `begin` once with the columns, then `each` with the encoded cells of a row, which are valid
    /// until it returns. Calls neither where the statement returns no result. An exception of
    /// either ends the reading and is passed on. No other statement may be run on this engine
    /// meanwhile.
    virtual void Scan(const QString& statement, const OnColumns& begin, const OnRow& each,
                      Purpose purpose = Purpose::Read) = 0;

    /// Opens a query that is read row by row. Returns null where this database can only read a
    /// result as a whole.
    virtual std::unique_ptr<Cursor> OpenCursor(const QString& statement);

    /// Runs one statement in the server's dialect. Returns its rows; null where the statement
    /// returns no result.
    std::shared_ptr<const Snapshot> Run(const QString& statement, Purpose purpose = Purpose::Read);
    /// A writer for the rows of a result with a base table.
    virtual std::unique_ptr<RowWriter>
    WriterFor(std::shared_ptr<const ResultMetadata> metadata) = 0;
    /// A writer that only inserts rows, also with explicit values for columns whose numbers the
    /// database generates (identity columns). Only one may exist at a time.
    virtual std::unique_ptr<RowWriter> LoaderFor(std::shared_ptr<const ResultMetadata> metadata)
    {
        return WriterFor(std::move(metadata));
    }
    virtual const TradeForms::Dialect& Dialect() const = 0;

    /// The names of the tables that hold the company. System tables and those that the database
    /// derives from others are left out.
    virtual QStringList TableNames();

    /// Begins a transaction in which all reads see the same state of the database, and nothing may
    /// be written. Must not be called within a transaction.
    virtual void BeginReadTransaction();
    virtual void EndReadTransaction() noexcept {}

    void BeginTrans();
    void CommitTrans();
    /// Does nothing in the database where that has rolled back by itself already.
    void RollbackTrans();
    bool InTransaction() const { return isBegun_ && isNativeOpen(); }
    /// To be called after an operation that failed: runs the OnRollback functions where the
    /// database has rolled the transaction back by itself.
    void UndoIfRolledBack();

    /// Bulk load of an empty database; see Connection.
    virtual void BeginLoad() {}
    virtual void EndLoad(const std::function<void(int done, int steps)>&) {}

    /// Runs the work so that all or none of it takes effect: after a savepoint in the open
    /// transaction, or in a transaction of its own. Passes on what the work raises.
    void Atomically(const std::function<void()>& work);

    /// Registers a function to be called when the open transaction is rolled back.
    void OnRollback(std::function<void()> undo);

protected:
    virtual bool isNativeOpen() const = 0;
    /// Whether a transaction is open, also one that was not begun here.
    virtual bool isWithinTransaction() { return isNativeOpen(); }
    virtual void beginNative() = 0;
    virtual void commitNative() = 0;
    virtual void rollbackNative() = 0;
    virtual void setSavepoint() = 0;
    virtual void releaseSavepoint() = 0;
    virtual void rollbackToSavepoint() = 0;

private:
    void undo();

    bool isBegun_ = false;
    std::vector<std::function<void()>> undoActions_;
};

/// A read transaction for the lifetime of this object. Raises ProviderFailure.
class ReadTransaction {
public:
    explicit ReadTransaction(Engine& engine) : engine_(engine) { engine_.BeginReadTransaction(); }
    ~ReadTransaction() { engine_.EndReadTransaction(); }
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

private:
    Engine& engine_;
};

} // namespace TradeForms
