#pragma once

#include <TradeForms/Export.h>
#include <TradeForms/Failure.h>
#include <TradeForms/Statement.h>

#include <QList>
#include <QString>

#include <functional>
#include <memory>

#ifdef _WIN32
struct IDispatch;
#endif

namespace TradeForms {

class Engine;
class Recordset;

/// One thing that the database reported.
struct TRADEFORMS_EXPORT ProviderError {
    int Number = 0;
    QString Description;
};

/// What the database reported in the last operation that failed. The next operation empties it;
/// failures that are not the database's leave it alone.
class TRADEFORMS_EXPORT ErrorList {
public:
    int Count() const { return int(errors_.size()); }
    const ProviderError& Item(int index) const { return errors_.at(index); }

private:
    friend class Connection;
    friend class EngineAccess;
    QList<ProviderError> errors_;
};

/// A connection to a company's database. The host opens it and owns it; the library holds it
/// through a shared pointer and never closes it. Used on one thread.
class TRADEFORMS_EXPORT Connection {
public:
    /// How a company file is opened.
    enum class Mode {
        ReadWrite, ///< the file must hold a company of this library's schema version
        Create     ///< the file must not exist; the schema is made in it
    };

    /// Opens the company file of the embedded engine.
    ///
    /// Raises ProviderFailure with a text for the user where the file is missing, is no
    /// database, holds no company, is of a newer version, is read-only or cannot be opened.
    /// A company of an older schema version is brought up to date.
    static std::shared_ptr<Connection> Open(const QString& file, Mode mode = Mode::ReadWrite);

    /// Opens the company that a database server holds, by an ODBC connection string:
    /// "DSN=Company;UID=clerk;PWD=..." or "Driver={...};Server=...;Database=...".
    ///
    /// Raises ProviderFailure with a text for the user where there is no such source or driver,
    /// where the server refuses or cannot be reached (in its own words), and where the database
    /// holds no company of this library's schema version.
    static std::shared_ptr<Connection> OpenServer(const QString& connectionString);

#ifdef _WIN32
    /// Takes the connection that a host has opened, an object of the class `ADODB.Connection` with
    /// client-side cursors to a database of SQL Server. It counts a reference and never closes the
    /// connection. Nothing is asked of it here: a connection that is of no use fails at the first
    /// statement.
    static std::shared_ptr<Connection> OpenHost(IDispatch* connection);
#endif

    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Runs one statement. A query's rows come back as a static read-only recordset whose
    /// record count is known; any other statement gives a closed recordset.
    /// Raises ProviderFailure.
    Recordset Execute(const Statement& statement);
    Recordset Execute(const char* statement);

    /// Begins a transaction and takes the write lock at once. Another process that holds the
    /// lock is waited for up to 5 seconds. Raises ProviderFailure, also within a transaction.
    void BeginTrans();
    void CommitTrans();
    void RollbackTrans();
    bool InTransaction() const;

    /// Fills a new company with a great many rows: rows that are added between the two calls are
    /// written many times faster. On the embedded engine they are written without indexes, and
    /// without waiting for the disk; EndLoad makes the indexes and tells how many of how many
    /// steps are done. A file whose load was not ended cannot be opened: make it anew. Outside of
    /// a transaction. BeginLoad raises ProviderFailure where the company holds rows already.
    void BeginLoad();
    void EndLoad(const std::function<void(int done, int steps)>& progress = {});

    const ErrorList& Errors() const
    {
        return errors_;
    }

    /// How this database wants values written.
    const TradeForms::Dialect& Dialect() const;

private:
    friend class EngineAccess;
    explicit Connection(std::unique_ptr<Engine> engine);
    void report(const ProviderFailure& failure);

    std::unique_ptr<Engine> engine_;
    ErrorList errors_;
};

} // namespace TradeForms
