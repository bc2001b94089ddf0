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

/// What a table's column is on the server.
struct ServerColumn {
    QString Name;
    int Type = 0; ///< SQL_VARCHAR and the like
    int Size = 0; ///< letters or digits; 0 without a limit
    int Scale = 0;
    bool IsNullable = true;
};

/// A table, as far as a writer of its rows must know it.
struct ServerTable {
    std::vector<ServerColumn> Columns;
    QStringList Keys; ///< columns that tell its rows apart; empty where there are none

    /// By name, without regard to case; null for none.
    const ServerColumn* Find(const QString& name) const;
    bool IsKey(const QString& name) const;
};

/// What differs from one database system to another.
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
    /// The schema in which the company's tables stand; empty where there are no schemas.
    virtual QString Schema() const { return QString(); }

    /// Statements that a new connection begins with.
    virtual QStringList Settings() const = 0;
    /// A query for the version of the company's schema: no row, or failure, where there is none.
    virtual QString VersionQuery() const = 0;

    /// A statement with which a transaction begins and which takes the company's write lock.
    virtual QString TakeLock() const = 0;
    virtual QString SetSavepoint() const = 0;
    /// Empty where marks go by themselves.
    virtual QStringList ReleaseSavepoint() const = 0;
    virtual QStringList RollbackToSavepoint() const = 0;
    /// Whether the transaction that was begun is open still, asked after a failure: a server
    /// may have undone it by itself.
    virtual bool IsTransactionOpen(OdbcLink& link) const = 0;
    /// Whether an error of this number means that another session holds a lock.
    virtual bool IsLockError(int number) const { return IsLockNumber(number); }

    /// Statements before and after a transaction that reads as at one moment.
    virtual QStringList BeforeReadTransaction() const { return {}; }
    virtual QStringList AfterReadTransaction() const { return {}; }
    /// A statement after which rows of a table are added with the numbers that the server gives
    /// otherwise, if such a number is among the columns; and one after which they are not. Empty
    /// where a row may have such a number at any time.
    virtual QString EnableIdentityInsert(const QString&, const QStringList&) const
    {
        return QString();
    }
    virtual QString DisableIdentityInsert(const QString&, const QStringList&) const
    {
        return QString();
    }
    /// Whether a table is no part of the company: the database keeps it up by itself.
    virtual bool IsSystemTable(const QString& table) const;

    /// Whether a column that comes from no table is of the type that the driver tells. Where it
    /// is not, each value tells its own.
    virtual bool TypesExpressions() const = 0;

    /// Raises ProviderFailure where a second statement begins without any sign between them.
    virtual void RequireOneStatement(const std::vector<Token>& tokens) const = 0;

    // Parts of a writer's statements. Values stand as question marks.

    /// The condition that a column has a value, and how often it takes that value.
    struct Condition {
        QString Text;
        int Values = 1;
    };
    virtual Condition Equals(const ServerColumn& column) const = 0;
    /// The same to the byte: a change of case alone is a change.
    virtual Condition IsExactly(const ServerColumn& column) const = 0;

    virtual QString UpdateStatement(const QString& table, const QString& settings,
                                    const QString& where, bool isSingleRow) const = 0;
    virtual QString DeleteStatement(const QString& table, const QString& where,
                                    bool isSingleRow) const = 0;
    /// Adds a row and gives the columns of the row as the table then holds it. Where one
    /// statement cannot do both, `readBack` is the second.
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
