#include "data/sqlite/Adapter.h"

#include "data/Failure.h"
#include "data/Tokens.h"
#include "data/Utf8.h"

#include <algorithm>

namespace TradeForms {

namespace {

[[noreturn]] void raiseSyntax(std::string_view near)
{
    RaiseBadStatement(QStringLiteral("Incorrect syntax near '%1'.").arg(FromUtf8(near)));
}

/// A function that SQLite lacks, or whose result needs a collation or type for comparisons: texts
/// compare without regard to case, numbers also with numbers in text form.
struct Function {
    std::string_view Name;
    std::string_view Replacement; ///< empty where the name is unchanged
    std::string_view Suffix;
};

constexpr std::string_view asText = " COLLATE CI";
constexpr std::string_view asNumber = " AS INTEGER)";

constexpr Function functions[] = {
    {"isnull", "ifnull", asText},
    {"left", "tf_left", asText},
    {"right", "tf_right", asText},
    {"len", "CAST(tf_len", asNumber},
    {"patindex", "CAST(tf_patindex", asNumber},
    {"day", "CAST(tf_day", asNumber},
    {"month", "CAST(tf_month", asNumber},
    {"year", "CAST(tf_year", asNumber},
    {"dateadd", "tf_dateadd", ""},
    {"getdate", "tf_getdate", ""},
    {"coalesce", "coalesce", asText},
    {"lower", "lower", asText},
    {"upper", "upper", asText},
    {"ltrim", "ltrim", asText},
    {"rtrim", "rtrim", asText},
    {"replace", "replace", asText},
    {"substring", "substring", asText},
    {"fungetproduct", "FunGetProduct", asText},
    {"fungetcustomer", "FunGetCustomer", asText},
    {"max", "", asText},
    {"min", "", asText},
};

const Function* functionNamed(const Token& word)
{
    const auto found =
        std::find_if(std::begin(functions), std::end(functions),
                     [&](const Function& function) { return word.IsWord(function.Name); });
    return found == std::end(functions) ? nullptr : found;
}

/// The value of a string literal: without its quotes, and with doubled quotes made single.
QByteArray contentOf(std::string_view literal)
{
    const std::string_view inner = literal.substr(1, literal.size() - 2);
    return ToBytes(inner).replace("''", "'");
}

class Adapter {
public:
    explicit Adapter(std::string_view text) : text_(text), tokens_(ReadTokens(text)) {}

    AdaptedStatement Adapt()
    {
        text_ = DropEnd(text_, tokens_);
        const Token& first = tokens_.front();
        AdaptedStatement result;
        if (first.IsOneOf({"exec", "execute"}))
            result.Procedure = readCall();
        // Definitions of tables come from the host and are written for SQLite.
        else if (first.IsOneOf({"create", "alter", "drop"}))
            result.Text = ToBytes(text_);
        else
            result.Text = rewrite();
        return result;
    }

private:
    /// The state of one nesting level: of the statement, or of a pair of parentheses.
    struct Level {
        std::string_view Suffix;
        const Function* Call = nullptr;
        int Argument = 0;
        int Cases = 0; ///< open case expressions
        bool InSelectList = false;
        bool AtItem = false; ///< at the beginning of a select item
        QByteArray Alias;    ///< of the current item, in the form `alias = item`
    };

    bool isSymbolAt(std::size_t index, char sign) const
    {
        return index < tokens_.size() && tokens_[index].IsSymbol(sign);
    }

    AdaptedStatement::Call readCall()
    {
        std::size_t at = 1;
        if (at < tokens_.size() && tokens_[at].IsWord("dbo") && isSymbolAt(at + 1, '.'))
            at += 2;
        if (at >= tokens_.size() || tokens_[at].Kind != Token::Type::Word)
            raiseSyntax(tokens_.front().Text);
        AdaptedStatement::Call call;
        call.Name = ToBytes(tokens_[at].Text);
        for (++at; at < tokens_.size(); ++at) {
            if (!call.Arguments.isEmpty()) {
                if (!isSymbolAt(at, ',') || at + 1 >= tokens_.size())
                    raiseSyntax(tokens_[at].Text);
                ++at;
            }
            call.Arguments.append(readArgument(at));
        }
        return call;
    }

    QByteArray readArgument(std::size_t& at)
    {
        QByteArray sign;
        if (isSymbolAt(at, '-') && at + 1 < tokens_.size()) {
            sign = "-";
            ++at;
        }
        const Token& token = tokens_[at];
        if (token.Kind == Token::Type::Number)
            return sign + ToBytes(token.Text);
        if (token.Kind != Token::Type::Literal || !sign.isEmpty())
            raiseSyntax(token.Text);
        return contentOf(token.Text);
    }

    QByteArray rewrite()
    {
        out_.reserve(qsizetype(text_.size()) + 64);
        copied_ = text_.data();
        hasSubquery_ = std::count_if(tokens_.begin(), tokens_.end(),
                                     [](const Token& token) { return token.IsWord("select"); }) > 1;
        levels_.assign(1, {});
        for (std::size_t at = 0; at < tokens_.size(); ++at)
            rewriteToken(at);
        putAlias();
        copyTo(text_.data() + text_.size());
        return out_;
    }

    void put(std::string_view text) { out_.append(text.data(), qsizetype(text.size())); }

    /// Copies the text that has not been copied yet, up to an address.
    void copyTo(const char* end)
    {
        out_.append(copied_, end - copied_);
        copied_ = end;
    }

    /// Replaces a token.
    void replace(const Token& token, std::string_view text)
    {
        copyTo(token.Text.data());
        put(text);
        copied_ += token.Text.size();
    }

    void copy(const Token& token) { copyTo(token.Text.data() + token.Text.size()); }

    void putAlias()
    {
        QByteArray& alias = levels_.back().Alias;
        if (!alias.isEmpty())
            out_ += " AS " + alias;
        alias.clear();
    }

    void rewriteToken(std::size_t& at)
    {
        const Token& token = tokens_[at];
        if (levels_.back().InSelectList && rewriteSelectItem(at))
            return;
        switch (token.Kind) {
        case Token::Type::Symbol:
            return rewriteSymbol(at);
        case Token::Type::Word:
            return rewriteWord(at);
        case Token::Type::Literal:
            return rewriteLiteral(token);
        case Token::Type::Number:
        case Token::Type::Quoted:
            return copy(token);
        }
    }

    /// Tracks a select list. Returns true where the token was an alias in front of an item, which
    /// is written behind the item as `AS alias`.
    bool rewriteSelectItem(std::size_t& at)
    {
        Level& level = levels_.back();
        const Token& token = tokens_[at];
        if (token.IsSymbol(',')) {
            putAlias();
            level.AtItem = true;
        } else if (token.IsSymbol(')')) {
            putAlias();
        } else if (token.IsOneOf({"from", "into", "where", "group", "having", "order", "union",
                                  "except", "intersect"})) {
            putAlias();
            level.InSelectList = false;
        } else if (level.AtItem && !token.IsOneOf({"distinct", "all"})) {
            level.AtItem = false;
            if (isSymbolAt(at + 1, '=')) {
                copyTo(token.Text.data());
                level.Alias = aliasOf(token);
                ++at;
                copied_ = tokens_[at].Text.data() + 1;
                return true;
            }
        }
        return false;
    }

    static QByteArray aliasOf(const Token& token)
    {
        if (token.Kind == Token::Type::Literal)
            return '"' + contentOf(token.Text).replace("\"", "\"\"") + '"';
        return ToBytes(token.Text);
    }

    void rewriteSymbol(std::size_t at)
    {
        const Token& token = tokens_[at];
        copy(token);
        switch (token.Text.front()) {
        case '(':
            levels_.push_back({nextCall_ ? nextCall_->Suffix : std::string_view(),
                               nextCall_,
                               0,
                               0,
                               false,
                               false,
                               {}});
            nextCall_ = nullptr;
            break;
        case ')':
            if (levels_.size() > 1) {
                putSuffix(levels_.back().Suffix, at);
                levels_.pop_back();
            }
            break;
        case ',':
            ++levels_.back().Argument;
            break;
        default:
            break;
        }
    }

    /// Adds a suffix after a parenthesis, and a blank where an alias follows directly.
    void putSuffix(std::string_view suffix, std::size_t parenthesis)
    {
        put(suffix);
        const std::size_t next = parenthesis + 1;
        if (!suffix.empty() && next < tokens_.size() && tokens_[next].Kind != Token::Type::Symbol &&
            tokens_[next].Text.data() == copied_)
            put(" ");
    }

    void rewriteWord(std::size_t& at)
    {
        const Token& token = tokens_[at];
        Level& level = levels_.back();
        if (token.IsWord("dbo") && isSymbolAt(at + 1, '.')) {
            // Separate tokens must not become adjacent: they might begin a comment or join two
            // literals.
            const bool isApart = at == 0 || isSymbolAt(at - 1, '(') || isSymbolAt(at - 1, ',');
            replace(token, isApart || *(token.Text.data() - 1) == ' ' ? "" : " ");
            replace(tokens_[++at], "");
        } else if (token.IsWord("select")) {
            level.InSelectList = true;
            level.AtItem = true;
            copy(token);
        } else if (isCallOf("dateadd", level) && level.Argument == 0) {
            replaceByLiteral(at);
        } else if (isSymbolAt(at + 1, '(') && !(at > 0 && tokens_[at - 1].IsWord("into")) &&
                   functionNamed(token)) {
            nextCall_ = functionNamed(token);
            checkDateArgument(level);
            rewriteCall(token, level);
        } else if (token.IsWord("where")) {
            copy(token);
            rewriteDateRange(at);
        } else if (token.IsWord("case")) {
            ++level.Cases;
            copy(token);
        } else if (token.IsWord("end") && level.Cases > 0) {
            --level.Cases;
            copy(token);
            // Where this is an argument of a call, the call defines the collation of its own
            // result.
            if (!level.Call)
                put(asText);
        } else {
            copy(token);
        }
    }

    /// Marks a date range as unlikely. A company has the vouchers of years, and a range covers a
    /// few days of them; without the hint SQLite may join the rows of all vouchers first and filter
    /// by date last. Statements with a subquery get no hint: SQLite would expect very few vouchers
    /// and scan the subquery for each of them.
    void rewriteDateRange(std::size_t& where)
    {
        const std::size_t end = endOfDateRange(where + 1);
        if (end == 0 || hasSubquery_)
            return;
        copyTo(tokens_[where + 1].Text.data());
        const std::string_view before = tokens_[where].Text;
        const bool meets = before.data() + before.size() == copied_;
        put(meets ? " unlikely(" : "unlikely(");
        copy(tokens_[end - 1]);
        put(")");
        where = end - 1;
    }

    /// The index of the token after `name between '2026-01-01' and '2026-01-31'`, where that is a
    /// whole condition; otherwise 0.
    std::size_t endOfDateRange(std::size_t name) const
    {
        if (isSymbolAt(name + 1, '.'))
            name += 2;
        const std::size_t end = name + 5;
        const bool isRange = end <= tokens_.size() && isName(tokens_[name]) &&
                             tokens_[name + 1].IsWord("between") && isDate(tokens_[name + 2]) &&
                             tokens_[name + 3].IsWord("and") && isDate(tokens_[name + 4]);
        const bool isWhole = end >= tokens_.size() || tokens_[end].IsSymbol(')') ||
                             tokens_[end].IsOneOf({"and", "or", "group", "order"});
        return isRange && isWhole ? end : 0;
    }

    static bool isName(const Token& token)
    {
        return token.Kind == Token::Type::Word || token.Kind == Token::Type::Quoted;
    }

    static bool isDate(const Token& token)
    {
        return token.Kind == Token::Type::Literal && momentIn(token).isValid();
    }

    static QDateTime momentIn(const Token& literal)
    {
        const QByteArray content = contentOf(literal.Text);
        return DateTimeFromText(ViewOf(content));
    }

    /// Writes a word as a string literal, separated from adjacent literals.
    void replaceByLiteral(std::size_t at)
    {
        const Token& token = tokens_[at];
        copyTo(token.Text.data());
        if (out_.endsWith('\''))
            put(" ");
        replace(token, '\'' + std::string(token.Text) + '\'');
        if (copied_ < text_.data() + text_.size() && *copied_ == '\'')
            put(" ");
    }

    void rewriteCall(const Token& token, const Level& around)
    {
        if (!nextCall_->Replacement.empty())
            return replace(token, nextCall_->Replacement);
        copy(token);
        // Where this is an argument of a call, the call defines the collation of its own result.
        if (around.Call)
            nextCall_ = nullptr;
    }

    static bool isCallOf(std::string_view name, const Level& level)
    {
        return level.Call && level.Call->Name == name;
    }

    void checkDateArgument(Level& level)
    {
        const bool isDate = nextCall_->Name == "dateadd" || nextCall_->Name == "getdate";
        if (isDate && isCallOf("isnull", level) && level.Argument == 0)
            level.Call = &isnullOfDate;
    }

    /// The second argument of isnull(date, text) is written in the stored form of dates.
    void rewriteLiteral(const Token& token)
    {
        if (levels_.back().Call == &isnullOfDate) {
            const QDateTime moment = momentIn(token);
            if (moment.isValid()) {
                const bool hasTime = contentOf(token.Text).size() > 10;
                const QByteArray stored = hasTime ? StoredText(moment) : StoredText(moment.date());
                return replace(token, '\'' + stored.toStdString() + '\'');
            }
        }
        copy(token);
    }

    static constexpr Function isnullOfDate{"isnull", "ifnull", asText};

    std::string_view text_;
    std::vector<Token> tokens_;
    QByteArray out_;
    const char* copied_ = nullptr;
    bool hasSubquery_ = false;
    std::vector<Level> levels_;
    const Function* nextCall_ = nullptr;
};

} // namespace

AdaptedStatement AdaptStatement(const QByteArray& text)
{
    return Adapter(ViewOf(text)).Adapt();
}

} // namespace TradeForms
