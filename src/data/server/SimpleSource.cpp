#include "data/server/SimpleSource.h"

#include "data/Tokens.h"
#include "data/Utf8.h"

#include <algorithm>

namespace TradeForms {

namespace {

/// A parser for the tokens of a query.
class QueryReader {
public:
    explicit QueryReader(const std::vector<Token>& tokens) : tokens_(tokens) {}

    std::string_view Table()
    {
        if (!takeWord("select") || !takeColumns() || !takeWord("from"))
            return {};
        std::string_view table = takeName();
        while (takeSymbol('.'))
            table = takeName();
        takeAlias();
        return isPlainTail() ? table : std::string_view();
    }

private:
    bool isAtEnd() const { return at_ == tokens_.size(); }

    bool takeWord(std::string_view word)
    {
        const bool isIt = !isAtEnd() && tokens_[at_].IsWord(word);
        at_ += isIt;
        return isIt;
    }

    bool takeSymbol(char sign)
    {
        const bool isIt = !isAtEnd() && tokens_[at_].IsSymbol(sign);
        at_ += isIt;
        return isIt;
    }

    std::string_view takeName()
    {
        if (isAtEnd() || isKeyword(tokens_[at_]) ||
            (tokens_[at_].Kind != Token::Type::Word && tokens_[at_].Kind != Token::Type::Quoted))
            return {};
        return tokens_[at_++].Text;
    }

    static bool isKeyword(const Token& token)
    {
        return token.IsOneOf({"from",     "where",     "order", "group", "having", "union",
                              "distinct", "all",       "top",   "null",  "case",   "join",
                              "inner",    "left",      "right", "full",  "cross",  "outer",
                              "except",   "intersect", "for",   "with"});
    }

    /// Reads a list of plain columns: *, T.*, a, T.a, [a b].
    bool takeColumns()
    {
        do {
            bool isColumn = takeSymbol('*') || !takeName().empty();
            while (isColumn && takeSymbol('.'))
                isColumn = takeSymbol('*') || !takeName().empty();
            if (!isColumn)
                return false;
        } while (takeSymbol(','));
        return true;
    }

    void takeAlias()
    {
        takeWord("as");
        takeName();
    }

    /// Whether only a where clause and an order by clause follow.
    bool isPlainTail() const
    {
        if (isAtEnd())
            return true;
        if (!tokens_[at_].IsOneOf({"where", "order"}))
            return false;
        int depth = 0;
        for (std::size_t at = at_; at < tokens_.size(); ++at) {
            depth += int(tokens_[at].IsSymbol('(')) - int(tokens_[at].IsSymbol(')'));
            if (depth == 0 &&
                tokens_[at].IsOneOf({"group", "having", "union", "except", "intersect", "for"}))
                return false;
        }
        return true;
    }

    const std::vector<Token>& tokens_;
    std::size_t at_ = 0;
};

} // namespace

QString TableOfSimpleQuery(const QString& statement)
{
    const QByteArray text = statement.toUtf8();
    std::vector<Token> tokens = ReadTokens(ViewOf(text));
    if (!tokens.empty() && tokens.back().IsSymbol(';'))
        tokens.pop_back();
    std::string_view table = QueryReader(tokens).Table();
    if (!table.empty() && (table.front() == '[' || table.front() == '"' || table.front() == '`'))
        table = table.substr(1, table.size() - 2);
    return FromUtf8(table);
}

} // namespace TradeForms
