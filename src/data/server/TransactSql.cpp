#include "data/server/TransactSql.h"

#include "data/Failure.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

namespace TradeForms {

namespace {

/// Keywords that begin a statement and occur nowhere else outside of parentheses.
constexpr std::string_view beginnings[] = {
    "insert",  "update",  "delete",    "truncate", "drop",    "create", "alter",  "exec",
    "execute", "declare", "grant",     "revoke",   "deny",    "begin",  "commit", "rollback",
    "save",    "use",     "go",        "shutdown", "waitfor", "kill",   "backup", "restore",
    "dbcc",    "print",   "raiserror", "throw",    "bulk",    "if",     "while",
};

bool isBeginning(const Token& token)
{
    return std::any_of(
        std::begin(beginnings), std::end(beginnings),
        [&](std::string_view word) { return token.IsWord(word); });
}

QString top(bool isSingleRow)
{
    return isSingleRow ? QStringLiteral("top (1) ") : QString();
}

QString literal(QString text, const QString& prefix)
{
    text.replace(u'\'', QLatin1String("''"));
    // The server removes a backslash before a line end together with the line end, so the literal
    // is split there.
    for (const char* end : {"\r\n", "\n"}) {
        const QLatin1String line(end);
        text.replace(u'\\' + line, QLatin1String("\\' + ") + prefix + u'\'' + line);
    }
    return prefix + u'\'' + text + u'\'';
}

} // namespace

QString QuotedName(const QString& name)
{
    return u'"' + QString(name).replace(u'"', QLatin1String("\"\"")) + u'"';
}

TradeForms::Dialect TransactSql::Dialect()
{
    return {QStringLiteral("yyyyMMdd"), QStringLiteral("yyyyMMdd HH:mm:ss")};
}

QString TransactSql::Literal(const QString& text)
{
    return literal(text, QString());
}

QString TransactSql::UnicodeLiteral(const QString& text)
{
    return literal(text, QStringLiteral("N"));
}

void TransactSql::RequireOneStatement(const std::vector<Token>& tokens)
{
    // Definitions of routines, and merge, contain other statements.
    if (tokens.front().IsOneOf({"create", "alter", "merge"}))
        return;
    int depth = 0;
    for (std::size_t at = 1; at < tokens.size(); ++at) {
        const Token& token = tokens[at];
        depth += int(token.IsSymbol('(')) - int(token.IsSymbol(')'));
        const bool isPartOfName = tokens[at - 1].IsSymbol('.') || tokens[at - 1].IsWord("as");
        const bool isInsertsSource =
            at > 1 && tokens.front().IsWord("insert") && token.IsOneOf({"exec", "execute"});
        if (depth == 0 && !isPartOfName && !isInsertsSource && isBeginning(token))
            RaiseSecondStatement();
    }
}

QString TransactSql::TakeLock()
{
    return QStringLiteral("select Version from dbo.SchemaVersion with (updlock, holdlock)");
}

QString TransactSql::SetSavepoint()
{
    return QStringLiteral("save transaction mark");
}

QString TransactSql::RollbackToSavepoint()
{
    return QStringLiteral("rollback transaction mark");
}

QString TransactSql::CountTransactions()
{
    return QStringLiteral("select @@trancount");
}

QString TransactSql::UpdateStatement(const QString& table, const QString& settings,
                                     const QString& where, bool isSingleRow)
{
    return QStringLiteral("update ") + top(isSingleRow) + table + QLatin1String(" set ") +
           settings + QLatin1String(" where ") + where;
}

QString TransactSql::DeleteStatement(const QString& table, const QString& where, bool isSingleRow)
{
    return QStringLiteral("delete ") + top(isSingleRow) + QLatin1String("from ") + table +
           QLatin1String(" where ") + where;
}

QString TransactSql::InsertStatement(const QString& table, const QString& columns,
                                     const QString& values, const QStringList& returned)
{
    QStringList inserted;
    for (const QString& column : returned)
        inserted.append(QStringLiteral("inserted.") + column);
    const QString output = inserted.isEmpty()
                               ? QString()
                               : QStringLiteral(" output ") + inserted.join(QLatin1String(", "));
    if (columns.isEmpty())
        return QStringLiteral("insert into ") + table + output + QLatin1String(" default values");
    return QStringLiteral("insert into ") + table + QLatin1String(" (") + columns +
           QLatin1Char(')') + output + QLatin1String(" values (") + values + QLatin1Char(')');
}

} // namespace TradeForms
