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

/// What is to be done to one row, in the words of RowWriter.
struct RowChange {
    enum class Type { Insert, Update, Delete };

    Type Kind = Type::Insert;
    const char* Original = nullptr; ///< not of a row that is added
    const char* Row = nullptr;      ///< not of a row that is deleted
    const std::vector<bool>* Touched = nullptr;
};

/// Writes rows of one result to the table they came from. It finds a row by its key and by the
/// values that were read, so that a row that someone else has changed is not found.
class RowWriter {
public:
    virtual ~RowWriter();

    /// Adds a row of which the touched columns were set. Returns the row as the table holds it,
    /// numbers that the database gives included; empty where all columns were set, and the row
    /// is what it was.
    virtual std::string Insert(const char* row, const std::vector<bool>& touched) = 0;
    /// Writes the touched columns. Returns the number of rows found.
    virtual qint64 Update(const char* original, const char* row,
                          const std::vector<bool>& touched) = 0;
    /// Returns the number of rows found.
    virtual qint64 Delete(const char* original) = 0;

    /// Makes changes in their order. Returns for each what Insert does; nothing for a row that was
    /// there. Raises ProviderFailure at the first that fails or whose row is not found; what was
    /// done before it is done.
    virtual std::vector<std::string> Write(const std::vector<RowChange>& changes);

protected:
    /// Raises ProviderFailure where it is not one row that was found.
    static void RequireFound(qint64 rows);
};

/// The rows of one statement, one by one. Other statements may be run between two of them.
class Cursor {
public:
    Cursor() = default;
    virtual ~Cursor();
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;

    /// The next row's encoded cells, which live until the next call; none after the last row.
    /// Raises ProviderFailure.
    virtual std::optional<std::string_view> Next() = 0;
    /// The columns; known after the first Next.
    virtual std::shared_ptr<const ResultMetadata> Columns() const = 0;
    /// What the database has done for it so far, in small steps of its own. It is no time: the
    /// same rows cost the same, however busy the machine is.
    virtual qint64 Work() const = 0;
};

/// What a connection asks of a database. Everything raises ProviderFailure where the database
/// refuses.
///
/// This class keeps what the caller believes of the transaction; an engine below says what is.
/// The two part where the database has ended a transaction by itself, on a full disk for one.
class Engine {
public:
    Engine() = default;
    virtual ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// The statement's finished text; a value that does not fit its place is reported as the
    /// server would report it.
    QString TextOf(const Statement& statement) const;
    /// Whether a result's rows are to be written back, which takes to know where they come from.
    enum class Purpose { Read, Write };

    using OnColumns = std::function<void(const std::shared_ptr<const ResultMetadata>& columns)>;
    using OnRow = std::function<void(std::string_view row)>;

    /// Runs one statement in the server's dialect and hands its rows over as they are read,
    /// keeping none: `begin` once with the columns, then `each` with the encoded cells of a row,
    /// which live until it returns. Neither is called where the statement gives no rows at all.
    /// What they raise ends the reading. Nothing else may be run here meanwhile.
    virtual void Scan(const QString& statement, const OnColumns& begin, const OnRow& each,
                      Purpose purpose = Purpose::Read) = 0;

    /// A query that is read a row at a time, each when it is asked for. Null where this database
    /// can only read it in one go.
    virtual std::unique_ptr<Cursor> OpenCursor(const QString& statement);

    /// Runs one statement in the server's dialect. Null where the statement gives no rows.
    std::shared_ptr<const Snapshot> Run(const QString& statement, Purpose purpose = Purpose::Read);
    /// A writer for the rows of a result that has a base table.
    virtual std::unique_ptr<RowWriter>
    WriterFor(std::shared_ptr<const ResultMetadata> metadata) = 0;
    /// A writer that only adds rows, and with them also the numbers that the database gives
    /// otherwise. While it lives there is none for another table.
    virtual std::unique_ptr<RowWriter> LoaderFor(std::shared_ptr<const ResultMetadata> metadata)
    {
        return WriterFor(std::move(metadata));
    }
    virtual const TradeForms::Dialect& Dialect() const = 0;

    /// The tables whose rows are the company, by their names. What the database keeps up by
    /// itself, from their rows or for its own ends, is left out.
    virtual QStringList TableNames();

    /// Until EndReadTransaction whatever is read is as it stood at one moment, and nothing is
    /// written. Outside of a transaction.
    virtual void BeginReadTransaction();
    virtual void EndReadTransaction() noexcept {}

    void BeginTrans();
    void CommitTrans();
    /// Ends quietly where the database has rolled back by itself already.
    void RollbackTrans();
    bool InTransaction() const { return isBegun_ && isNativeOpen(); }
    /// After an operation that failed: where the database has undone the transaction by itself,
    /// what was to be done then is done at once, before the user goes on.
    void UndoIfRolledBack();

    /// Prepares an empty database for being filled with a great many rows; see Connection.
    virtual void BeginLoad() {}
    virtual void EndLoad(const std::function<void(int done, int steps)>&) {}

    /// Runs the work all or none: within the open transaction, or in one of its own.
    void Atomically(const std::function<void()>& work);

    /// What to do when the open transaction comes to nothing.
    void OnRollback(std::function<void()> undo);

protected:
    virtual bool isNativeOpen() const = 0;
    /// Whether a transaction is open, whoever has begun it.
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

/// Reads as at one moment while it lives.
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
