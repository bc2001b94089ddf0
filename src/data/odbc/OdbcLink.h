#pragma once

#include "data/odbc/Odbc.h"

#include <functional>

namespace TradeForms {

/// One session with a database server. It raises failures with the server's messages and detects a
/// lost connection.
class OdbcLink {
public:
    /// Connects. Raises ProviderFailure.
    explicit OdbcLink(const QString& connectionString);
    ~OdbcLink();
    OdbcLink(const OdbcLink&) = delete;
    OdbcLink& operator=(const OdbcLink&) = delete;

    /// Allocates a statement handle. Raises ProviderFailure where the connection was lost.
    OdbcStatement NewStatement();

    /// Checks the return code of a call. Returns false for SQL_NO_DATA and true for any other
    /// success. Raises ProviderFailure with all messages of the server where the call has failed.
    bool Check(SQLRETURN result, const OdbcStatement& statement);

    /// Runs a statement and discards its results. Raises ProviderFailure.
    void Run(const QString& statement);
    /// Runs a query. Returns the first column of the first row, 0 where there is none. Raises
    /// ProviderFailure.
    qint64 ReadNumber(const QString& query);
    /// Reads the remaining results of a statement, since a server may report an error only with a
    /// later result. Raises ProviderFailure.
    void Finish(const OdbcStatement& statement);

    void SetAutocommit(bool isOn);
    void EndTransaction(SQLSMALLINT how);

    /// A text that SQLGetInfo returns, such as SQL_DBMS_NAME. Raises ProviderFailure.
    QString Info(SQLUSMALLINT what);

    /// Sets which error numbers mean that another session holds a lock: their failures tell the
    /// user what to do. At first there are none.
    void SetLockErrors(std::function<bool(int number)> isLockError)
    {
        isLockError_ = std::move(isLockError);
    }

    /// Whether the connection was lost. It cannot be used any more.
    bool IsLost() const { return isLost_; }
    /// Marks the connection as lost, where it is in a state in which it must not be used.
    void MarkLost() { isLost_ = true; }

private:
    /// The diagnostic records of a call that failed.
    struct Diagnostics {
        QString State; ///< SQLSTATE of the first record, five characters
        int Number = 0;
        QString Text;
    };

    static Diagnostics readDiagnostics(SQLSMALLINT type, SQLHANDLE handle);
    bool check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle);
    [[noreturn]] void raise(SQLSMALLINT type, SQLHANDLE handle);
    QString textFor(const Diagnostics& diagnostics) const;
    bool isDead();

    OdbcEnvironment environment_;
    OdbcSession session_;
    std::function<bool(int)> isLockError_;
    bool isLost_ = false;
};

} // namespace TradeForms
