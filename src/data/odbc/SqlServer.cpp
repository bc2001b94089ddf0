#include "data/odbc/SqlServer.h"

#include "data/Failure.h"
#include "data/odbc/OdbcLink.h"

#include <algorithm>

namespace TradeForms {

namespace {

/// Words that begin a statement and stand nowhere else at its outermost level.
constexpr std::string_view beginnings[] = {
    "insert",  "update",  "delete",    "truncate", "drop",    "create", "alter",  "exec",
    "execute", "declare", "grant",     "revoke",   "deny",    "begin",  "commit", "rollback",
    "save",    "use",     "go",        "shutdown", "waitfor", "kill",   "backup", "restore",
    "dbcc",    "print",   "raiserror", "throw",    "bulk",    "if",     "while",
};

bool isOneOf(const Token& token, std::initializer_list<std::string_view> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view word) { return token.IsWord(word); });
}

bool isBeginning(const Token& token)
{
    return std::any_of(std::begin(beginnings), std::end(beginnings),
                       [&](std::string_view word) { return token.IsWord(word); });
}

/// A parameter comes in UTF-16. Cast to the column's own kind it can be searched by an index.
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
        return QStringLiteral("cast(? as decimal(%1, %2))").arg(column.Size).arg(column.Decimals);
    default:
        return QStringLiteral("?");
    }
}

bool isText(const ServerColumn& column)
{
    return castParameter(column).contains(QLatin1String("char"));
}

QString top(bool isOfOneRow)
{
    return isOfOneRow ? QStringLiteral("top (1) ") : QString();
}

QString literal(const QString& text)
{
    return QStringLiteral("N'") + QString(text).replace(u'\'', QLatin1String("''")) + u'\'';
}

/// Where the server numbers one of these columns.
QString setIdentityInsert(const QString& table, const QStringList& columns, const QString& how)
{
    QStringList names;
    for (const QString& column : columns)
        names.append(literal(column));
    const QString place = QStringLiteral("dbo.") + QuotedName(table);
    return QStringLiteral("if exists (select * from sys.identity_columns where object_id = "
                          "object_id(%1) and name in (%2)) set identity_insert %3 %4")
        .arg(literal(place), names.join(QLatin1String(", ")), place, how);
}

} // namespace

// The one form of a date that no language setting misreads.
SqlServer::SqlServer() : Server({QStringLiteral("yyyyMMdd"), QStringLiteral("yyyyMMdd HH:mm:ss")})
{
}

QStringList SqlServer::Settings() const
{
    return {
        // Whatever the login's own language is: '01/01/2006' is the first of January, and a week
        // begins on the same day everywhere.
        QStringLiteral("set language us_english"),
        QStringLiteral("set dateformat mdy"),
        // What indexes on computed columns ask for; and a text that is too long for its column
        // is refused rather than cut.
        QStringLiteral("set ansi_nulls, ansi_padding, ansi_warnings, arithabort, "
                       "concat_null_yields_null, quoted_identifier on"),
        QStringLiteral("set numeric_roundabort off"),
        // A statement that fails undoes itself and leaves the transaction open: whether all of it
        // is undone is the form's to say.
        QStringLiteral("set xact_abort off"),
        // The number of rows that a statement found tells whether another was faster.
        QStringLiteral("set nocount off"),
        QStringLiteral("set transaction isolation level read committed"),
        QStringLiteral("set lock_timeout 5000"),
    };
}

QString SqlServer::VersionQuery() const
{
    return QStringLiteral("select max(Version) from dbo.SchemaVersion having max(Version) > 0");
}

/// Where the database keeps no older versions of rows, whoever writes has to wait.
QStringList SqlServer::BeforeReading() const
{
    return {QStringLiteral("if exists (select * from sys.databases where database_id = db_id() and "
                           "snapshot_isolation_state = 1) "
                           "set transaction isolation level snapshot "
                           "else set transaction isolation level serializable")};
}

QStringList SqlServer::AfterReading() const
{
    return {QStringLiteral("set transaction isolation level read committed")};
}

QString SqlServer::TakeGivenNumbers(const QString& table, const QStringList& columns) const
{
    return setIdentityInsert(table, columns, QStringLiteral("on"));
}

QString SqlServer::GiveNumbersAgain(const QString& table, const QStringList& columns) const
{
    return setIdentityInsert(table, columns, QStringLiteral("off"));
}

/// What its tools for diagrams leave in a database.
bool SqlServer::IsOwnTable(const QString& table) const
{
    return table == QLatin1String("sysdiagrams") || Server::IsOwnTable(table);
}

/// Two who begin a transaction wait for each other here, and those who only read do not wait.
QString SqlServer::TakeLock() const
{
    return QStringLiteral("select Version from dbo.SchemaVersion with (updlock, holdlock)");
}

QString SqlServer::SetMark() const
{
    return QStringLiteral("save transaction mark");
}

QStringList SqlServer::RollbackToMark() const
{
    return {QStringLiteral("rollback transaction mark")};
}

bool SqlServer::IsTransactionOpen(OdbcLink& link) const
{
    return link.ReadNumber(QStringLiteral("select @@trancount")) > 0;
}

/// The server needs no sign between two statements, and would run both.
void SqlServer::RequireOneStatement(const std::vector<Token>& tokens) const
{
    // What makes or changes routines, and a merge, hold statements of their own.
    if (isOneOf(tokens.front(), {"create", "alter", "merge"}))
        return;
    int depth = 0;
    for (std::size_t at = 1; at < tokens.size(); ++at) {
        const Token& token = tokens[at];
        depth += int(token.IsSign('(')) - int(token.IsSign(')'));
        const bool isPartOfName = tokens[at - 1].IsSign('.') || tokens[at - 1].IsWord("as");
        const bool isInsertsSource =
            at > 1 && tokens.front().IsWord("insert") && isOneOf(token, {"exec", "execute"});
        if (depth == 0 && !isPartOfName && !isInsertsSource && isBeginning(token))
            throw ProviderFailure(
                QStringLiteral("Only one statement can be run at a time: there is more after its "
                               "end."),
                BadStatement);
    }
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
                                   const QString& where, bool isOfOneRow) const
{
    return QStringLiteral("update %1%2 set %3 where %4")
        .arg(top(isOfOneRow), table, settings, where);
}

QString SqlServer::DeleteStatement(const QString& table, const QString& where,
                                   bool isOfOneRow) const
{
    return QStringLiteral("delete %1from %2 where %3").arg(top(isOfOneRow), table, where);
}

Server::Insertion SqlServer::InsertStatement(const QString& table, const QString& columns,
                                             const QString& values, const QStringList& given) const
{
    QStringList inserted;
    for (const QString& column : given)
        inserted.append(QStringLiteral("inserted.") + column);
    const QString output = inserted.isEmpty()
                               ? QString()
                               : QStringLiteral(" output ") + inserted.join(QLatin1String(", "));
    if (columns.isEmpty())
        return {QStringLiteral("insert into %1%2 default values").arg(table, output), {}};
    return {QStringLiteral("insert into %1 (%2)%3 values (%4)").arg(table, columns, output, values),
            {}};
}

} // namespace TradeForms
