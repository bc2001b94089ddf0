#pragma once

#include "data/odbc/Odbc.h"

#include <functional>

namespace TradeForms {

/// One session with a database server: it connects, tells failures in the server's words, and
/// knows when the connection is gone.
class OdbcLink {
public:
    /// Connects. Raises ProviderFailure.
    explicit OdbcLink(const QString& connectionString);
    ~OdbcLink();
    OdbcLink(const OdbcLink&) = delete;
    OdbcLink& operator=(const OdbcLink&) = delete;

    /// A statement to prepare or run. Raises ProviderFailure where the connection was lost.
    OdbcStatement NewStatement();

    /// Raises ProviderFailure with all that the server said where the call has failed; true for
    /// a result, false where there is none.
    bool Check(SQLRETURN result, const OdbcStatement& statement);

    /// Runs a statement of which no rows are wanted, to its very end.
    void Run(const QString& statement);
    /// The first column of the first row, 0 where there is none.
    qint64 ReadNumber(const QString& query);
    /// Reads what a run statement still has to say: a server tells a late failure only then.
    void Finish(const OdbcStatement& statement);

    void SetAutocommit(bool isOn);
    void EndTransaction(SQLSMALLINT how);

    /// What the driver tells of the database and of itself, such as SQL_DBMS_NAME.
    QString Info(SQLUSMALLINT what);

    /// Sets which error numbers mean that another session holds a lock: their failures tell the
    /// user what to do. At first there are none.
    void SetLockErrors(std::function<bool(int number)> isLockError)
    {
        isLockError_ = std::move(isLockError);
    }

    /// Whether the connection broke off. Nothing can be done with it any more.
    bool IsLost() const { return isLost_; }
    /// Takes the connection for lost: it is in a state in which it must not be used.
    void MarkLost() { isLost_ = true; }

private:
    /// What was reported of one call.
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
