#include "support/SqliteServer.h"

#include "data/Failure.h"
#include "data/odbc/OdbcLink.h"

using namespace TradeForms;

namespace tests {

namespace {

const bool isRegistered = [] {
    Server::Register(QStringLiteral("sqlite"),
                     []() -> std::unique_ptr<Server> { return std::make_unique<SqliteServer>(); });
    return true;
}();

QString oneRow(const QString& table, const QString& where)
{
    return QStringLiteral("rowid = (select rowid from %1 where %2 limit 1)").arg(table, where);
}

} // namespace

SqliteServer::SqliteServer() : Server(TradeForms::Dialect()) {}

QStringList SqliteServer::Settings() const
{
    return {QStringLiteral("pragma synchronous = full")};
}

/// The application id identifies a company file; the schema script sets it.
QString SqliteServer::VersionQuery() const
{
    return QStringLiteral("select user_version from pragma_user_version "
                          "where user_version > 0 "
                          "and (select application_id from pragma_application_id) = 1415857773");
}

bool SqliteServer::IsSystemTable(const QString& table) const
{
    return table.startsWith(QLatin1String("sqlite_")) || Server::IsSystemTable(table);
}

/// A modifying statement takes the lock when it starts, even if it changes no rows.
QString SqliteServer::TakeLock() const
{
    return QStringLiteral("delete from InstallmentBalances where 1=0");
}

QString SqliteServer::SetSavepoint() const
{
    return QStringLiteral("savepoint mark");
}

QStringList SqliteServer::ReleaseSavepoint() const
{
    return {QStringLiteral("release mark")};
}

QStringList SqliteServer::RollbackToSavepoint() const
{
    return {QStringLiteral("rollback to mark"), QStringLiteral("release mark")};
}

/// SQLite offers no query for this, but refuses to begin a transaction within another.
bool SqliteServer::IsTransactionOpen(OdbcLink& link) const
{
    try {
        link.Run(QStringLiteral("begin"));
        return false;
    } catch (const ProviderFailure&) {
        return true;
    }
}

bool SqliteServer::IsLockError(int number) const
{
    constexpr int busy = 5;
    return number == busy || Server::IsLockError(number);
}

/// In SQLite's dialect, a second statement can only follow after a semicolon, so there is nothing
/// to check.
void SqliteServer::RequireOneStatement(const std::vector<Token>&) const {}

Server::Condition SqliteServer::Equals(const ServerColumn& column) const
{
    return {QuotedName(column.Name) + QStringLiteral(" = ?")};
}

Server::Condition SqliteServer::IsExactly(const ServerColumn& column) const
{
    const bool isText =
        column.Type == SQL_LONGVARCHAR || column.Type == SQL_VARCHAR || column.Type == SQL_CHAR;
    if (!isText)
        return Equals(column);
    return {QStringLiteral("%1 = ? and %1 collate binary = ?").arg(QuotedName(column.Name)), 2};
}

QString SqliteServer::UpdateStatement(const QString& table, const QString& settings,
                                      const QString& where, bool isSingleRow) const
{
    return QStringLiteral("update %1 set %2 where %3")
        .arg(table, settings, isSingleRow ? oneRow(table, where) : where);
}

QString SqliteServer::DeleteStatement(const QString& table, const QString& where,
                                      bool isSingleRow) const
{
    return QStringLiteral("delete from %1 where %2")
        .arg(table, isSingleRow ? oneRow(table, where) : where);
}

Server::Insertion SqliteServer::InsertStatement(const QString& table, const QString& columns,
                                                const QString& values,
                                                const QStringList& returned) const
{
    Insertion insertion;
    insertion.Text =
        columns.isEmpty()
            ? QStringLiteral("insert into %1 default values").arg(table)
            : QStringLiteral("insert into %1 (%2) values (%3)").arg(table, columns, values);
    if (!returned.isEmpty())
        insertion.ReadBack = QStringLiteral("select %1 from %2 where rowid = last_insert_rowid()")
                                 .arg(returned.join(QLatin1String(", ")), table);
    return insertion;
}

} // namespace tests
