#include "data/server/ServerCells.h"

#include <array>
#include <charconv>
#include <cmath>

namespace TradeForms {

namespace {

void put(char*& at, int number, int digits)
{
    for (int digit = digits - 1; digit >= 0; --digit, number /= 10)
        at[digit] = char('0' + number % 10);
    at += digits;
}

void putDate(char*& at, const Timestamp& timestamp)
{
    put(at, timestamp.Year, 4);
    *at++ = '-';
    put(at, timestamp.Month, 2);
    *at++ = '-';
    put(at, timestamp.Day, 2);
}

void putTime(char*& at, const Timestamp& timestamp)
{
    put(at, timestamp.Hour, 2);
    *at++ = ':';
    put(at, timestamp.Minute, 2);
    *at++ = ':';
    put(at, timestamp.Second, 2);
}

} // namespace

/// Some drivers omit a leading zero.
Cell CellOfDecimal(std::string_view digits)
{
    const std::string_view whole = digits.substr(0, digits.find('.'));
    const bool isWhole =
        digits.substr(whole.size()).find_first_not_of(".0") == std::string_view::npos;
    std::int64_t integer = 0;
    if (isWhole && (whole.empty() || whole == "-"))
        return Cell::FromInteger(0);
    if (isWhole &&
        std::from_chars(whole.data(), whole.data() + whole.size(), integer).ec == std::errc())
        return Cell::FromInteger(integer);
    double number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return Cell::FromReal(number);
}

Cell CellOfNumber(double number)
{
    constexpr double limit = 9007199254740992.0;
    if (number == std::floor(number) && std::fabs(number) < limit)
        return Cell::FromInteger(std::int64_t(number));
    return Cell::FromReal(number);
}

void AppendDate(std::string& row, const Timestamp& timestamp)
{
    std::array<char, 10> text{};
    char* at = text.data();
    putDate(at, timestamp);
    AppendCell(row, Cell::FromText({text.data(), text.size()}));
}

void AppendDateTime(std::string& row, const Timestamp& timestamp)
{
    std::array<char, 19> text{};
    char* at = text.data();
    putDate(at, timestamp);
    *at++ = ' ';
    putTime(at, timestamp);
    AppendCell(row, Cell::FromText({text.data(), text.size()}));
}

void TextAppender::Append(std::string& row, QStringView text)
{
    bytes_.resize(std::size_t(encoder_.requiredSpace(text.size())));
    const char* const end = encoder_.appendToBuffer(bytes_.data(), text);
    AppendCell(row, Cell::FromText({bytes_.data(), std::size_t(end - bytes_.data())}));
}

} // namespace TradeForms
