#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Comparison of texts in UTF-8 as the company's database compares them: without regard to case, by
// Unicode's simple case folding, and to trailing blanks.

namespace TradeForms {

/// Returns a number below, equal to or above 0 where the first text sorts before, equals or sorts
/// after the second.
int CompareText(std::string_view first, std::string_view second);

/// The text without the blanks at its end.
inline std::string_view WithoutTrailingBlanks(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// The number of code points.
int TextLength(std::string_view text);
/// The offset of the byte where a code point begins, given by its index from 0; the length of the
/// text where it has fewer.
std::size_t ByteOfCharacter(std::string_view text, int character);

/// A compiled pattern of `like`.
class LikePattern {
public:
    /// A pattern of SQL: % is any string, _ any character, [a-f] and [^a-f] a character of a set or
    /// outside of it. The character after the escape character, where that is not 0, stands for
    /// itself.
    static LikePattern Sql(std::string_view pattern, char32_t escape = 0);
    /// A pattern of a recordset's filter: * and % are any string, everything else stands for
    /// itself.
    static LikePattern Criterion(std::string_view pattern);

    /// Whether the whole text matches; trailing blanks of the text may remain unmatched.
    bool Matches(std::string_view text) const;
    /// The index from 1 of the character where the pattern first matches; 0 where it does not
    /// match.
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
