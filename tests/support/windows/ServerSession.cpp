#include "support/windows/ServerSession.h"

#include "data/Failure.h"
#include "data/sqlite/SqliteEngine.h"
#include "support/windows/ServerWords.h"

#include <algorithm>
#include <initializer_list>

using namespace TradeForms;

namespace tests {

namespace {

using Tokens = std::span<const Token>;

bool isOneOf(const Token& token, std::initializer_list<std::string_view> words)
{
    return std::any_of(
        words.begin(), words.end(), [&](std::string_view word) { return token.IsWord(word); });
}

bool startsWith(Tokens tokens, std::initializer_list<std::string_view> texts)
{
    return texts.size() <= tokens.size() && std::equal(
                                                texts.begin(), texts.end(), tokens.begin(),
                                                [](std::string_view text, const Token& token) {
                                                    return token.IsWord(text) || token.Text == text;
                                                });
}

[[noreturn]] void raise(Tokens near)
{
    throw ProviderFailure(QStringLiteral("Incorrect syntax near '%1'.")
                              .arg(near.empty()
                                       ? QString()
                                       : QString::fromUtf8(near.front().Text.data(),
                                                           qsizetype(near.front().Text.size()))),
                          102);
}

/// Removes these tokens from the front.
void take(Tokens& tokens, std::initializer_list<std::string_view> texts)
{
    if (!startsWith(tokens, texts))
        raise(tokens);
    tokens = tokens.subspan(texts.size());
}

/// Removes and returns the statement at the front, including its semicolon.
Tokens takeStatement(Tokens& tokens)
{
    std::size_t end = 0;
    while (end < tokens.size() && !tokens[end].IsSymbol(';'))
        ++end;
    const Tokens statement = tokens.first(end);
    tokens = tokens.subspan(std::min(end + 1, tokens.size()));
    return statement;
}

QString contentOf(const Token& literal)
{
    return QString::fromUtf8(literal.Text.data() + 1, qsizetype(literal.Text.size()) - 2)
        .replace(QLatin1String("''"), QLatin1String("'"));
}

} // namespace

ServerSession::ServerSession(std::unique_ptr<Engine> company) : company_(std::move(company)) {}

void ServerSession::BeginTrans()
{
    company_->BeginTrans();
    isTouched_ = false;
}

bool ServerSession::isCounted()
{
    return isTouched_ && sqlite3_get_autocommit(static_cast<SqliteEngine&>(*company_).Raw()) == 0;
}

ServerSession::Result ServerSession::number(qint64 value)
{
    return {company_->Run(QStringLiteral("select %1 as Number").arg(value)), -1};
}

ServerSession::Result ServerSession::Execute(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const std::vector<Token> tokens =
        ReadTokens(std::string_view(bytes.constData(), std::size_t(bytes.size())));
    const Tokens statement(tokens);
    if (startsWith(statement, {"exec", "sp_executesql", "N"}) && statement.size() == 4)
        return batch(contentOf(statement.back()));
    if (startsWith(statement, {"select", "@@trancount"}))
        return number(isCounted() ? 1 : 0);
    if (startsWith(statement, {"select", "@@rowcount"}))
        return number(lastCount_);
    // A company file does not have this table; it takes its own lock when a transaction begins.
    if (startsWith(statement, {"if", "object_id", "(", "'dbo.SchemaVersion'", ")", "is", "null",
                               "select", "top", "(", "0", ")"})) {
        isTouched_ = true;
        return {company_->Run(QStringLiteral("select '' as name where 1=0")), -1};
    }
    const Result result = plain(statement);
    return {result.Rows, isCounting_ ? result.Changed : -1};
}

ServerSession::Result ServerSession::plain(Tokens statement)
{
    if (startsWith(statement, {"save", "transaction", "mark"})) {
        if (!isCounted())
            throw ProviderFailure(QStringLiteral("Cannot issue SAVE TRANSACTION when there is no "
                                                 "active transaction."),
                                  628);
        company_->Run(QStringLiteral("savepoint mark"));
        return {};
    }
    if (startsWith(statement, {"rollback", "transaction", "mark"})) {
        company_->Run(QStringLiteral("rollback to mark"));
        return {};
    }
    Result result{company_->Run(FromServerWords(statement)), -1};
    isTouched_ = true;
    if (!statement.empty() && isOneOf(statement.front(), {"insert", "update", "delete"})) {
        const auto changes = company_->Run(QStringLiteral("select changes() as Number"));
        lastCount_ = CellAt(changes->Row(0), 0).Integer;
        result.Changed = int(lastCount_);
    }
    return result;
}

/// A failure ends the batch at once, as it ends a try block that raises it again.
ServerSession::Result ServerSession::batch(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const std::vector<Token> all =
        ReadTokens(std::string_view(bytes.constData(), std::size_t(bytes.size())));
    Tokens tokens(all);
    take(tokens, {"set", "nocount", "on", ";", "begin", "try"});
    while (!startsWith(tokens, {"end", "try"})) {
        plain(takeStatement(tokens));
        take(tokens, {"if", "@@rowcount", "<", ">", "1", "begin", "select"});
        const Tokens given = takeStatement(tokens);
        take(tokens, {"return", ";", "end", ";"});
        if (lastCount_ != 1)
            return number(
                QByteArray(given.front().Text.data(), qsizetype(given.front().Text.size()))
                    .toLongLong());
    }
    take(tokens, {"end", "try", "begin", "catch", "throw", ";", "end", "catch"});
    if (!tokens.empty())
        raise(tokens);
    return {};
}

} // namespace tests
