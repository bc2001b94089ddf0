#include "support/windows/ServerWords.h"

#include "data/Cells.h"

#include <algorithm>
#include <string>

using namespace TradeForms;

namespace tests {

namespace {

using Tokens = std::span<const Token>;

bool touches(const Token& first, const Token& second)
{
    return first.Text.data() + first.Text.size() == second.Text.data();
}

/// Converts a date literal from the server's format to the one stored by the embedded engine.
std::string storedLiteral(std::string_view literal)
{
    const std::string_view content = literal.substr(1, literal.size() - 2);
    const bool isDate = content.size() == 8 && (content[0] == '1' || content[0] == '2');
    const bool isMoment = content.size() == 17 && content[8] == ' ';
    if ((isDate || isMoment) && content.find('-') == std::string_view::npos) {
        const QDateTime moment = DateTimeFromText(content);
        if (moment.isValid()) {
            const QByteArray stored = isDate ? StoredText(moment.date()) : StoredText(moment);
            return '\'' + stored.toStdString() + '\'';
        }
    }
    return std::string(literal);
}

class Translator {
public:
    explicit Translator(Tokens tokens) : tokens_(tokens) {}

    std::string Statement()
    {
        if (startsWith({"update", "top"}))
            return ofOneRow(1, "update ");
        if (startsWith({"delete", "top"}))
            return ofOneRow(1, "delete ");
        const std::size_t output = find("output");
        if (startsWith({"insert"}) && output < tokens_.size())
            return insertion(output);
        return text(0, tokens_.size());
    }

private:
    bool startsWith(std::initializer_list<std::string_view> words) const
    {
        return words.size() <= tokens_.size() &&
               std::equal(
                   words.begin(), words.end(), tokens_.begin(),
                   [](std::string_view word, const Token& token) { return token.IsWord(word); });
    }

    bool isWord(std::size_t at, std::string_view word) const
    {
        return at < tokens_.size() && tokens_[at].IsWord(word);
    }

    bool isLiteral(std::size_t at) const
    {
        return at < tokens_.size() && tokens_[at].Kind == Token::Type::Literal;
    }

    std::size_t find(std::string_view word) const
    {
        return std::size_t(std::find_if(
                               tokens_.begin(), tokens_.end(),
                               [&](const Token& token) { return token.IsWord(word); }) -
                           tokens_.begin());
    }

    /// Whether a string literal or its prefix N ends or begins here, on this side of a plus sign.
    bool isJoin(std::size_t at) const
    {
        return tokens_[at].IsSymbol('+') && at > 0 && isLiteral(at - 1) &&
               (isLiteral(at + 1) || (isWord(at + 1, "n") && isLiteral(at + 2)));
    }

    bool isUnicodeSign(std::size_t at) const
    {
        return isWord(at, "n") && isLiteral(at + 1) && touches(tokens_[at], tokens_[at + 1]);
    }

    /// Returns the tokens of this range with the text between them.
    std::string text(std::size_t begin, std::size_t end) const
    {
        std::string out;
        for (std::size_t at = begin; at < end; ++at) {
            const Token& token = tokens_[at];
            if (at > begin && !touches(tokens_[at - 1], token))
                out += ' ';
            if (isUnicodeSign(at))
                continue;
            if (token.Kind == Token::Type::Literal)
                out += storedLiteral(token.Text);
            else if (isJoin(at))
                out += "||";
            else if (token.IsWord("varbinary") && isWord(at + 2, "max")) {
                out += "blob";
                at += 3;
            } else
                out += token.Text;
        }
        return out;
    }

    /// `update top (1) T set ... where ...` and `delete top (1) from T where ...`.
    std::string ofOneRow(std::size_t top, const char* verb) const
    {
        const std::size_t rest = top + 4; // after top ( 1 )
        const std::size_t where = find("where");
        const std::size_t table = rest + (isWord(rest, "from") ? 1 : 0);
        return verb + text(rest, where) + " where rowid = (select rowid from " +
               text(table, table + 1) + ' ' + text(where, tokens_.size()) + " limit 1)";
    }

    /// `insert into T (...) output inserted.a, inserted.b values (...)`.
    std::string insertion(std::size_t output) const
    {
        std::size_t end = output + 1;
        std::string columns;
        while (isWord(end, "inserted")) {
            columns += (columns.empty() ? "" : ", ") + std::string(tokens_[end + 2].Text);
            end += 3;
            if (end < tokens_.size() && tokens_[end].IsSymbol(','))
                ++end;
        }
        return text(0, output) + ' ' + text(end, tokens_.size()) + " returning " + columns;
    }

    Tokens tokens_;
};

} // namespace

QString FromServerWords(Tokens tokens)
{
    return QString::fromStdString(Translator(tokens).Statement());
}

} // namespace tests
