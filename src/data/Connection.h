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

/// One error that the database reported.
struct TRADEFORMS_EXPORT ProviderError {
    int Number = 0;
    QString Description;
};

/// The errors that the database reported in the last operation. The next operation clears them;
/// failures that do not come from the database leave them unchanged.
class TRADEFORMS_EXPORT ErrorList {
public:
    int Count() const { return int(errors_.size()); }
    const ProviderError& Item(int index) const { return errors_.at(index); }

private:
    friend class Connection;
    friend class EngineAccess;
    QList<ProviderError> errors_;
};

/// A connection to a company's database. The host opens and owns it; the library shares it and
/// never closes it. To be used on one thread.
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
    /// client-side cursors to a database of SQL Server. Adds a reference to it and never closes it.
    /// Runs no statement: a connection that cannot be used fails at the first one.
    static std::shared_ptr<Connection> OpenHost(IDispatch* connection);
#endif

    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Runs one statement. Returns the rows of a query as a static, read-only recordset whose
    /// record count is known, and a closed recordset for any other statement. Raises
    /// ProviderFailure.
    Recordset Execute(const Statement& statement);
    Recordset Execute(const char* statement);

    /// Begins a transaction and takes the write lock at once; waits up to 5 seconds for another
    /// process that holds the lock. Raises ProviderFailure, also where a transaction is open
    /// already. CommitTrans and RollbackTrans end it and raise ProviderFailure, also where there is
    /// none.
    void BeginTrans();
    void CommitTrans();
    void RollbackTrans();
    bool InTransaction() const;

    /// Bulk load of a new company: rows that are inserted between the two calls are written many
    /// times faster. On the embedded engine they are written without indexes and without waiting
    /// for the disk; EndLoad creates the indexes and calls `progress` after each step. A file whose
    /// load was not ended cannot be opened and has to be created again. Must not be called within a
    /// transaction. Both raise ProviderFailure; BeginLoad also where the company holds rows
    /// already.
    void BeginLoad();
    void EndLoad(const std::function<void(int done, int steps)>& progress = {});

    const ErrorList& Errors() const
    {
        return errors_;
    }

    /// How values are written into statements for this database.
    const TradeForms::Dialect& Dialect() const;

private:
    friend class EngineAccess;
    explicit Connection(std::unique_ptr<Engine> engine);
    void report(const ProviderFailure& failure);

    std::unique_ptr<Engine> engine_;
    ErrorList errors_;
};

} // namespace TradeForms
