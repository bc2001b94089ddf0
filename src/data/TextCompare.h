#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Texts in UTF-8 as the company's database compares them: without regard to case, by Unicode's
// simple folding, and without regard to blanks at the end.

namespace TradeForms {

/// Below, at or above 0 as the first text comes before the second, equals it or comes after.
int CompareText(std::string_view first, std::string_view second);

/// The text without the blanks at its end.
inline std::string_view WithoutTrailingBlanks(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// Number of characters.
int TextLength(std::string_view text);
/// Place of the byte where a character begins; the end where the text has fewer.
std::size_t ByteOfCharacter(std::string_view text, int character);

/// A compiled pattern of `like`.
class LikePattern {
public:
    /// The server's own: % any run, _ any character, [a-f] and [^a-f] one of a class. The escape
    /// character, where it is not 0, takes its meaning from the character after it.
    static LikePattern Sql(std::string_view pattern, char32_t escape = 0);
    /// A filter's: * and % are any run, everything else stands for itself.
    static LikePattern Criterion(std::string_view pattern);

    /// Whether the whole text fits; blanks at the text's end may be left over.
    bool Matches(std::string_view text) const;
    /// Number of the character, from 1, where the pattern first fits; 0 where it does not.
    int IndexIn(std::string_view text) const;

private:
    struct Range {
        char32_t First;
        char32_t Last;
    };
    struct Element {
        enum class Type : std::uint8_t { Character, AnyCharacter, AnyString, Class, Never };
        Type Kind = Type::Character;
        bool IsNegated = false;
        char32_t CodePoint = 0;
        std::vector<Range> Ranges;
    };

    static bool fits(const Element& element, char32_t letter);
    std::size_t addClass(std::string_view pattern, std::size_t at);
    bool matchesFrom(std::size_t element, std::string_view text) const;

    std::vector<Element> elements_;
};

} // namespace TradeForms
