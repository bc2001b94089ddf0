#include "data/Tokens.h"

#include "data/Failure.h"
#include "data/Utf8.h"

#include <algorithm>

namespace TradeForms {

namespace {

bool isBlank(char letter)
{
    return letter == ' ' || (letter >= '\t' && letter <= '\r');
}

/// Letters of other scripts may be part of a name as well.
bool isNameCharacter(char letter)
{
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
           IsDigit(letter) || letter == '_' || letter == '@' || letter == '#' || letter == '$' ||
           static_cast<unsigned char>(letter) >= 0x80;
}

class TokenReader {
public:
    explicit TokenReader(std::string_view text) : text_(text) {}

    std::vector<Token> Read()
    {
        std::vector<Token> tokens;
        tokens.reserve(text_.size() / 4 + 4);
        while (skipBlanksAndComments()) {
            const std::size_t start = at_;
            const Token::Type kind = readOne();
            tokens.push_back({kind, text_.substr(start, at_ - start)});
        }
        return tokens;
    }

private:
    bool startsWith(std::string_view sign) const { return text_.substr(at_, sign.size()) == sign; }

    /// Skips blanks and comments. Returns false at the end of the text.
    bool skipBlanksAndComments()
    {
        while (at_ < text_.size())
            if (isBlank(text_[at_]))
                ++at_;
            else if (startsWith("--"))
                at_ = std::min(text_.find('\n', at_), text_.size());
            else if (startsWith("/*"))
                skipTo("*/", 2, QStringLiteral("A comment is not closed."));
            else
                return true;
        return false;
    }

    /// Moves past the next occurrence of a sign.
    void skipTo(std::string_view sign, std::size_t from, const QString& failure)
    {
        const std::size_t found = text_.find(sign, at_ + from);
        if (found == std::string_view::npos)
            RaiseBadStatement(failure);
        at_ = found + sign.size();
    }

    Token::Type readOne()
    {
        const char letter = text_[at_];
        switch (letter) {
        case '\'':
            skipQuoted('\'');
            return Token::Type::Literal;
        case '"':
        case '`':
            skipQuoted(letter);
            return Token::Type::Quoted;
        case '[':
            skipTo("]", 1, QStringLiteral("A name in brackets is not closed."));
            return Token::Type::Quoted;
        default:
            break;
        }
        if (IsDigit(letter) || (letter == '.' && at_ + 1 < text_.size() && IsDigit(text_[at_ + 1])))
            return readNumber();
        if (!isNameCharacter(letter)) {
            ++at_;
            return Token::Type::Symbol;
        }
        while (at_ < text_.size() && isNameCharacter(text_[at_]))
            ++at_;
        return Token::Type::Word;
    }

    Token::Type readNumber()
    {
        while (at_ < text_.size() &&
               (isNameCharacter(text_[at_]) || text_[at_] == '.' ||
                ((text_[at_] == '+' || text_[at_] == '-') && AsciiLower(text_[at_ - 1]) == 'e')))
            ++at_;
        return Token::Type::Number;
    }

    /// Moves past a quoted text, in which a doubled quote stands for one.
    void skipQuoted(char quote)
    {
        const std::size_t start = at_ + 1;
        for (std::size_t from = start;;) {
            const std::size_t end = text_.find(quote, from);
            if (end == std::string_view::npos)
                RaiseBadStatement(
                    QStringLiteral("Unclosed quotation mark after the character string '%1'.")
                        .arg(FromUtf8(text_.substr(start))));
            at_ = end + 1;
            if (at_ >= text_.size() || text_[at_] != quote)
                return;
            from = at_ + 1;
        }
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

} // namespace

void RaiseBadStatement(const QString& description)
{
    throw ProviderFailure(description, BadStatement);
}

void RaiseSecondStatement()
{
    RaiseBadStatement(QStringLiteral("Only one statement can be run at a time: there is more after "
                                     "its end."));
}

void RaiseNoStatement()
{
    RaiseBadStatement(QStringLiteral("There is no statement to run."));
}

bool Token::IsOneOf(std::initializer_list<std::string_view> words) const
{
    return std::any_of(
        words.begin(), words.end(), [this](std::string_view word) { return IsWord(word); });
}

bool Token::IsWord(std::string_view word) const
{
    return Kind == Type::Word && Text.size() == word.size() &&
           std::equal(
               Text.begin(), Text.end(), word.begin(),
               [](char mine, char wanted) { return AsciiLower(mine) == wanted; });
}

std::vector<Token> ReadTokens(std::string_view text)
{
    // A database would take it for the end of the statement.
    if (text.find('\0') != std::string_view::npos)
        RaiseBadStatement(QStringLiteral("The statement holds a character that cannot be used."));
    return TokenReader(text).Read();
}

std::string_view DropEnd(std::string_view text, std::vector<Token>& tokens)
{
    const auto end = std::find_if(
        tokens.begin(), tokens.end(), [](const Token& token) { return token.IsSymbol(';'); });
    if (std::any_of(end, tokens.end(), [](const Token& token) { return !token.IsSymbol(';'); }))
        RaiseSecondStatement();
    if (end != tokens.end())
        text = text.substr(0, std::size_t(end->Text.data() - text.data()));
    tokens.erase(end, tokens.end());
    if (tokens.empty())
        RaiseNoStatement();
    return text;
}

std::vector<Token> ReadStatement(std::string_view text)
{
    std::vector<Token> tokens = ReadTokens(text);
    DropEnd(text, tokens);
    return tokens;
}

} // namespace TradeForms
