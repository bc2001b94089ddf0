#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>

// The fuzz targets. Each raises BrokenPromise where a property does not hold for the input.

namespace fuzz {

class BrokenPromise : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Any text is rewritten or refused with a message; literals, quoted names and comments are
/// unchanged; the database prepares the result or refuses it with a message.
void Adapter(const std::uint8_t* data, std::size_t size);

/// Any criterion is parsed or refused with a message; it gives the same result for a row each time,
/// also with blanks around it.
void Criterion(const std::uint8_t* data, std::size_t size);

/// A date that is written and read back is the same; with any of its digits replaced by another
/// character it is no date. A computed value is a date only in the stored form.
void Date(const std::uint8_t* data, std::size_t size);

/// A value that is bound into a statement makes it fail or becomes one literal or number; all other
/// tokens are those of the template.
void Statement(const std::uint8_t* data, std::size_t size);

} // namespace fuzz
