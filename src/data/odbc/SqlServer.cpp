#include "data/odbc/SqlServer.h"

#include "data/odbc/OdbcLink.h"

namespace TradeForms {

namespace {

/// Parameters are sent in UTF-16. The cast to the column's type allows an index to be used.
QString castParameter(const ServerColumn& column)
{
    switch (column.Type) {
    case SQL_CHAR:
    case SQL_VARCHAR:
        return QStringLiteral("cast(? as varchar(8000))");
    case SQL_WCHAR:
    case SQL_WVARCHAR:
        return QStringLiteral("cast(? as nvarchar(4000))");
    case SQL_LONGVARCHAR:
        return QStringLiteral("cast(? as varchar(max))");
    case SQL_WLONGVARCHAR:
        return QStringLiteral("cast(? as nvarchar(max))");
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return QStringLiteral("cast(? as decimal(%1, %2))").arg(column.Size).arg(column.Scale);
    default:
        return QStringLiteral("?");
    }
}

bool isText(const ServerColumn& column)
{
    return castParameter(column).contains(QLatin1String("char"));
}

/// Sets identity_insert for a table, if one of the columns is its identity column.
QString setIdentityInsert(const QString& table, const QStringList& columns, const QString& how)
{
    QStringList names;
    for (const QString& column : columns)
        names.append(TransactSql::UnicodeLiteral(column));
    const QString place = QStringLiteral("dbo.") + QuotedName(table);
    return QStringLiteral("if exists (select * from sys.identity_columns where object_id = "
                          "object_id(%1) and name in (%2)) set identity_insert %3 %4")
        .arg(TransactSql::UnicodeLiteral(place), names.join(QLatin1String(", ")), place, how);
}

} // namespace

SqlServer::SqlServer() : Server(TransactSql::Dialect()) {}

QStringList SqlServer::Settings() const
{
    return {
        // Independent of the login's language: '01/02/2006' is the second of January, and weeks
        // begin on the same day.
        QStringLiteral("set language us_english"),
        QStringLiteral("set dateformat mdy"),
        // Required for indexes on computed columns. Also, a text that is too long for its column is
        // refused and not truncated.
        QStringLiteral("set ansi_nulls, ansi_padding, ansi_warnings, arithabort, "
                       "concat_null_yields_null, quoted_identifier on"),
        QStringLiteral("set numeric_roundabort off"),
        // A statement that fails is undone but leaves the transaction open, which the form then
        // ends.
        QStringLiteral("set xact_abort off"),
        // The number of affected rows shows whether another user has changed a row.
        QStringLiteral("set nocount off"),
        QStringLiteral("set transaction isolation level read committed"),
        QStringLiteral("set lock_timeout 5000"),
    };
}

QString SqlServer::VersionQuery() const
{
    return QStringLiteral("select max(Version) from dbo.SchemaVersion having max(Version) > 0");
}

/// Where the database allows no snapshot isolation, writers have to wait for this transaction.
QStringList SqlServer::BeforeReadTransaction() const
{
    return {QStringLiteral("if exists (select * from sys.databases where database_id = db_id() and "
                           "snapshot_isolation_state = 1) "
                           "set transaction isolation level snapshot "
                           "else set transaction isolation level serializable")};
}

QStringList SqlServer::AfterReadTransaction() const
{
    return {QStringLiteral("set transaction isolation level read committed")};
}

QString SqlServer::EnableIdentityInsert(const QString& table, const QStringList& columns) const
{
    return setIdentityInsert(table, columns, QStringLiteral("on"));
}

QString SqlServer::DisableIdentityInsert(const QString& table, const QStringList& columns) const
{
    return setIdentityInsert(table, columns, QStringLiteral("off"));
}

/// The table of the server's diagram tools is not part of the company.
bool SqlServer::IsSystemTable(const QString& table) const
{
    return table == QLatin1String("sysdiagrams") || Server::IsSystemTable(table);
}

QString SqlServer::TakeLock() const
{
    return TransactSql::TakeLock();
}

QString SqlServer::SetSavepoint() const
{
    return TransactSql::SetSavepoint();
}

QStringList SqlServer::RollbackToSavepoint() const
{
    return {TransactSql::RollbackToSavepoint()};
}

bool SqlServer::IsTransactionOpen(OdbcLink& link) const
{
    return link.ReadNumber(TransactSql::CountTransactions()) > 0;
}

void SqlServer::RequireOneStatement(const std::vector<Token>& tokens) const
{
    TransactSql::RequireOneStatement(tokens);
}

Server::Condition SqlServer::Equals(const ServerColumn& column) const
{
    return {QuotedName(column.Name) + QStringLiteral(" = ") + castParameter(column)};
}

Server::Condition SqlServer::IsExactly(const ServerColumn& column) const
{
    const Condition equals = Equals(column);
    if (!isText(column))
        return equals;
    return {QStringLiteral("%1 and cast(%2 as varbinary(max)) = cast(%3 as varbinary(max))")
                .arg(equals.Text, QuotedName(column.Name), castParameter(column)),
            2};
}

QString SqlServer::UpdateStatement(const QString& table, const QString& settings,
                                   const QString& where, bool isSingleRow) const
{
    return TransactSql::UpdateStatement(table, settings, where, isSingleRow);
}

QString SqlServer::DeleteStatement(const QString& table, const QString& where,
                                   bool isSingleRow) const
{
    return TransactSql::DeleteStatement(table, where, isSingleRow);
}

Server::Insertion SqlServer::InsertStatement(const QString& table, const QString& columns,
                                             const QString& values,
                                             const QStringList& returned) const
{
    return {TransactSql::InsertStatement(table, columns, values, returned), {}};
}

} // namespace TradeForms
