#pragma once

#include "data/Statement.h"
#include "data/Tokens.h"
#include "data/server/ServerFailure.h"
#include "data/server/TransactSql.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <string_view>
#include <vector>

namespace TradeForms {

class OdbcLink;

/// A column of a table, as the server's catalogue describes it.
struct ServerColumn {
    QString Name;
    int Type = 0; ///< SQL_VARCHAR and the like
    int Size = 0; ///< characters or digits; 0 without a limit
    int Scale = 0;
    bool IsNullable = true;
};

/// The columns and keys of a table, which a row writer needs.
struct ServerTable {
    std::vector<ServerColumn> Columns;
    QStringList Keys; ///< columns of the primary key, or of a unique index without nulls; empty
                      ///< where there are none

    /// The column of a name, without regard to case; null where there is none.
    const ServerColumn* Find(const QString& name) const;
    bool IsKey(const QString& name) const;
};

/// The statements and settings in which database systems differ.
class Server {
public:
    virtual ~Server();

    /// Makes the object for one database system.
    using Factory = std::unique_ptr<Server> (*)();
    /// Chooses a factory for every system whose name contains this one, in any case. Any other
    /// system is taken for SQL Server.
    static void Register(const QString& system, Factory factory);
    /// The object for a system, by the name that its driver reports.
    static std::unique_ptr<Server> Named(const QString& system);

    const TradeForms::Dialect& Dialect() const { return dialect_; }
    /// The schema of the company's tables; empty where the system has no schemas.
    virtual QString Schema() const { return QString(); }

    /// Statements to run on each new connection.
    virtual QStringList Settings() const = 0;
    /// A query for the version of the company's schema. It fails or returns no row where there is
    /// no company.
    virtual QString VersionQuery() const = 0;

    /// A statement with which a transaction begins and which takes the company's write lock.
    virtual QString TakeLock() const = 0;
    virtual QString SetSavepoint() const = 0;
    /// Empty where savepoints need not be released.
    virtual QStringList ReleaseSavepoint() const = 0;
    virtual QStringList RollbackToSavepoint() const = 0;
    /// Whether the transaction is still open. Called after a failure, since a server may have
    /// rolled it back by itself. Raises ProviderFailure.
    virtual bool IsTransactionOpen(OdbcLink& link) const = 0;
    /// Whether an error of this number means that another session holds a lock.
    virtual bool IsLockError(int number) const { return IsLockNumber(number); }

    /// Statements before and after a read transaction.
    virtual QStringList BeforeReadTransaction() const { return {}; }
    virtual QStringList AfterReadTransaction() const { return {}; }
    /// Statements that allow and disallow explicit values for the identity column of a table, if it
    /// is among the columns. Empty where the system always allows them.
    virtual QString EnableIdentityInsert(const QString&, const QStringList&) const
    {
        return QString();
    }
    virtual QString DisableIdentityInsert(const QString&, const QStringList&) const
    {
        return QString();
    }
    /// Whether a table is not part of the company's data, since the database maintains it.
    virtual bool IsSystemTable(const QString& table) const;

    /// Whether the type that the driver reports for an expression is reliable. Where it is not, the
    /// type is determined for each value.
    virtual bool TypesExpressions() const = 0;

    /// Raises ProviderFailure where the tokens are more than one statement, also without a
    /// semicolon.
    virtual void RequireOneStatement(const std::vector<Token>& tokens) const = 0;

    // Parts of the statements of a row writer. Parameters are question marks.

    /// A condition on the value of a column, and how often its text contains the parameter.
    struct Condition {
        QString Text;
        int Values = 1;
    };
    virtual Condition Equals(const ServerColumn& column) const = 0;
    /// The same byte by byte, so that texts that differ in case are not equal.
    virtual Condition IsExactly(const ServerColumn& column) const = 0;

    virtual QString UpdateStatement(const QString& table, const QString& settings,
                                    const QString& where, bool isSingleRow) const = 0;
    virtual QString DeleteStatement(const QString& table, const QString& where,
                                    bool isSingleRow) const = 0;
    /// A statement that inserts a row and returns columns of it as stored. Where one statement
    /// cannot do both, ReadBack is the query for the columns.
    struct Insertion {
        QString Text;
        QString ReadBack;
    };
    virtual Insertion InsertStatement(const QString& table, const QString& columns,
                                      const QString& values, const QStringList& returned) const = 0;

protected:
    explicit Server(TradeForms::Dialect dialect) : dialect_(std::move(dialect)) {}

private:
    TradeForms::Dialect dialect_;
};

} // namespace TradeForms
