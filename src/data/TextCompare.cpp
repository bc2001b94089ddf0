#include "data/TextCompare.h"

#include <QChar>

#include <algorithm>

namespace TradeForms {

namespace {

bool isAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

unsigned char foldAscii(char byte)
{
    const auto letter = static_cast<unsigned char>(byte);
    return letter >= 'A' && letter <= 'Z' ? (unsigned char)(letter + ('a' - 'A')) : letter;
}

/// Decodes the code point at an offset and moves the offset past it. A byte that is no valid UTF-8
/// stands for itself.
char32_t readCodePoint(std::string_view text, std::size_t& at)
{
    const auto lead = static_cast<unsigned char>(text[at++]);
    if (lead < 0xC2)
        return lead;
    const int following = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    char32_t letter = lead & (0x3Fu >> following);
    for (int left = following; left > 0 && at < text.size() && isContinuation(text[at]); --left)
        letter = (letter << 6) | (static_cast<unsigned char>(text[at++]) & 0x3Fu);
    return letter;
}

char32_t foldCase(char32_t letter)
{
    return letter < 0x80 ? foldAscii(char(letter)) : QChar::toCaseFolded(letter);
}

char32_t readFolded(std::string_view text, std::size_t& at)
{
    return isAscii(text[at]) ? char32_t(foldAscii(text[at++])) : foldCase(readCodePoint(text, at));
}

/// Compares code point by code point, from the first byte on that is not ASCII.
int compareCodePoints(std::string_view first, std::string_view second, std::size_t at)
{
    std::size_t secondAt = at;
    while (at < first.size() && secondAt < second.size()) {
        const char32_t a = readFolded(first, at);
        const char32_t b = readFolded(second, secondAt);
        if (a != b)
            return a < b ? -1 : 1;
    }
    return int(at < first.size()) - int(secondAt < second.size());
}

} // namespace

int CompareText(std::string_view first, std::string_view second)
{
    first = WithoutTrailingBlanks(first);
    second = WithoutTrailingBlanks(second);
    const std::size_t common = std::min(first.size(), second.size());
    for (std::size_t at = 0; at < common; ++at) {
        if (!isAscii(first[at]) || !isAscii(second[at]))
            return compareCodePoints(first, second, at);
        const int difference = int(foldAscii(first[at])) - int(foldAscii(second[at]));
        if (difference != 0)
            return difference;
    }
    return int(first.size() > common) - int(second.size() > common);
}

int TextLength(std::string_view text)
{
    return int(std::count_if(
        text.begin(), text.end(), [](char byte) { return !isContinuation(byte); }));
}

std::size_t ByteOfCharacter(std::string_view text, int character)
{
    std::size_t at = 0;
    for (; character > 0 && at < text.size(); --character) {
        ++at;
        while (at < text.size() && isContinuation(text[at]))
            ++at;
    }
    return at;
}

LikePattern LikePattern::Sql(std::string_view pattern, char32_t escape)
{
    LikePattern compiled;
    for (std::size_t at = 0; at < pattern.size();) {
        if (pattern[at] == '[' && escape != U'[') {
            at = compiled.addClass(pattern, at + 1);
            continue;
        }
        char32_t letter = readCodePoint(pattern, at);
        Element element;
        if (escape != 0 && letter == escape && at < pattern.size())
            letter = readCodePoint(pattern, at);
        else if (letter == U'%')
            element.Kind = Element::Type::AnyString;
        else if (letter == U'_')
            element.Kind = Element::Type::AnyCharacter;
        element.CodePoint = foldCase(letter);
        compiled.elements_.push_back(std::move(element));
    }
    return compiled;
}

LikePattern LikePattern::Criterion(std::string_view pattern)
{
    LikePattern compiled;
    for (std::size_t at = 0; at < pattern.size();) {
        const char32_t letter = readCodePoint(pattern, at);
        Element element;
        if (letter == U'%' || letter == U'*')
            element.Kind = Element::Type::AnyString;
        element.CodePoint = foldCase(letter);
        compiled.elements_.push_back(std::move(element));
    }
    return compiled;
}

/// Reads a character set after its opening bracket. Returns the offset after it. A set that is not
/// closed matches nothing.
std::size_t LikePattern::addClass(std::string_view pattern, std::size_t at)
{
    Element element;
    element.Kind = Element::Type::Class;
    if (at < pattern.size() && pattern[at] == '^') {
        element.IsNegated = true;
        ++at;
    }
    bool isClosed = false;
    while (at < pattern.size()) {
        if (pattern[at] == ']') {
            isClosed = true;
            ++at;
            break;
        }
        const char32_t first = foldCase(readCodePoint(pattern, at));
        char32_t last = first;
        if (at + 1 < pattern.size() && pattern[at] == '-' && pattern[at + 1] != ']') {
            ++at;
            last = foldCase(readCodePoint(pattern, at));
        }
        element.Ranges.push_back({first, last});
    }
    if (!isClosed)
        element.Kind = Element::Type::Never;
    elements_.push_back(std::move(element));
    return at;
}

bool LikePattern::fits(const Element& element, char32_t letter)
{
    switch (element.Kind) {
    case Element::Type::Character:
        return element.CodePoint == letter;
    case Element::Type::AnyCharacter:
        return true;
    case Element::Type::Class: {
        const bool isIn =
            std::any_of(element.Ranges.begin(), element.Ranges.end(), [&](const Range& range) {
                return letter >= range.First && letter <= range.Last;
            });
        return isIn != element.IsNegated;
    }
    case Element::Type::AnyString:
    case Element::Type::Never:
        return false;
    }
    Q_UNREACHABLE();
}

/// Greedy matching with backtracking to the last % alone, which is sufficient.
bool LikePattern::matchesFrom(std::size_t element, std::string_view text) const
{
    constexpr std::size_t none = std::size_t(-1);
    std::size_t at = 0;
    std::size_t runElement = none;
    std::size_t runAt = 0;
    while (true) {
        if (element == elements_.size()) {
            if (WithoutTrailingBlanks(text.substr(at)).empty())
                return true;
        } else if (elements_[element].Kind == Element::Type::AnyString) {
            runElement = ++element;
            runAt = at;
            if (runElement == elements_.size())
                return true;
            continue;
        } else if (at < text.size()) {
            std::size_t next = at;
            if (fits(elements_[element], readFolded(text, next))) {
                at = next;
                ++element;
                continue;
            }
        }
        if (runElement == none || runAt >= text.size())
            return false;
        readCodePoint(text, runAt);
        at = runAt;
        element = runElement;
    }
}

bool LikePattern::Matches(std::string_view text) const
{
    return matchesFrom(0, text);
}

int LikePattern::IndexIn(std::string_view text) const
{
    if (elements_.empty() || elements_.front().Kind != Element::Type::AnyString)
        return Matches(text) ? 1 : 0;
    int character = 1;
    for (std::size_t at = 0; at <= text.size(); ++character) {
        if (matchesFrom(1, text.substr(at)))
            return character;
        if (at == text.size())
            break;
        readCodePoint(text, at);
    }
    return 0;
}

} // namespace TradeForms
