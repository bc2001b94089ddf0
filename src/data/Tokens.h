#pragma once

#include <QString>

#include <initializer_list>
#include <string_view>
#include <vector>

namespace TradeForms {

/// One token of a statement. Blanks and comments are not tokens.
struct Token {
    enum class Type {
        Word, ///< a name or a keyword
        Number,
        Literal, ///< a string literal with its quotes
        Quoted,  ///< a name in brackets, double quotes or backticks
        Symbol   ///< one character: of an operator, a parenthesis, a comma, a semicolon
    };

    Type Kind = Type::Symbol;
    std::string_view Text;

    bool IsSymbol(char sign) const { return Kind == Type::Symbol && Text.front() == sign; }
    /// Whether it is this word, given in lower case.
    bool IsWord(std::string_view word) const;
    /// Whether it is one of these words, given in lower case.
    bool IsOneOf(std::initializer_list<std::string_view> words) const;
};

/// The number of a ProviderFailure for a statement that is refused before the database sees it.
inline constexpr int BadStatement = 1;

// Each raises ProviderFailure with that number.
[[noreturn]] void RaiseBadStatement(const QString& description);
[[noreturn]] void RaiseSecondStatement(); ///< for a text that holds more than one
[[noreturn]] void RaiseNoStatement();     ///< for a text that holds none

/// Splits a text into tokens, which point into it. Raises ProviderFailure where a literal, a
/// quoted name or a comment is not closed, and where the text holds a zero byte.
std::vector<Token> ReadTokens(std::string_view text);

/// Removes the semicolons at the end from the tokens of a text. Returns the text up to there.
/// Raises ProviderFailure where anything follows a semicolon, and where no token is left.
std::string_view DropEnd(std::string_view text, std::vector<Token>& tokens);

/// The tokens of one statement without the semicolons at its end. Raises ProviderFailure as
/// ReadTokens and DropEnd do.
std::vector<Token> ReadStatement(std::string_view text);

} // namespace TradeForms
