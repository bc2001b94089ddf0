#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>

// What the fuzzers try on any bytes, and the corpus test on those that are kept. Each raises
// BrokenPromise where something came out that must not.

namespace fuzz {

class BrokenPromise : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Any text is rewritten, or refused with a text for the user; literals, quoted names and comments
/// come out as they went in; what comes out is prepared by the database or refused by it.
void Adapter(const std::uint8_t* data, std::size_t size);

/// Any criterion is read, or refused with a text for the user; it then holds for a row or not, the
/// same however its words are spelt.
void Criterion(const std::uint8_t* data, std::size_t size);

/// Any text is a date or none. A date that is written and read back is the same; one of its digits
/// replaced by anything else makes it none. A computed value is a date in its stored form alone.
void Date(const std::uint8_t* data, std::size_t size);

/// A value that is typed into a statement fails it or stands as the one literal or number that it
/// was meant to be: all other tokens are the template's.
void Statement(const std::uint8_t* data, std::size_t size);

} // namespace fuzz
