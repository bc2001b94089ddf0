#pragma once

#include <QByteArray>

#include <string_view>
#include <vector>

namespace TradeForms {

/// One token of a statement; blanks and comments lie between tokens.
struct Token {
    enum class Type {
        Word, ///< a name or a keyword
        Number,
        Literal, ///< a text with its quotes
        Quoted,  ///< a name in brackets, double quotes or backticks
        Sign     ///< one sign: an operator's letter, a parenthesis, a comma, a semicolon
    };

    Type Kind = Type::Sign;
    std::string_view Text;

    bool IsSign(char sign) const { return Kind == Type::Sign && Text.front() == sign; }
    /// Whether it is this word, given in small letters.
    bool IsWord(std::string_view word) const;
};

/// The number of a failure for a statement that is turned down before the database sees it.
inline constexpr int BadStatement = 1;

/// Takes a statement apart. The tokens point into the text. Raises ProviderFailure where a
/// literal, a quoted name or a comment does not end.
std::vector<Token> ReadTokens(std::string_view text);

/// Takes the semicolon off, of the tokens and of the text that is returned. Raises
/// ProviderFailure where anything follows it, and where there is no statement at all.
std::string_view DropEnd(std::string_view text, std::vector<Token>& tokens);

} // namespace TradeForms
