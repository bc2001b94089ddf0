#pragma once

#include "data/Cells.h"

#include <QStringEncoder>
#include <QStringView>

#include <string>
#include <string_view>

// Conversion of values of a database server to the cells that the embedded database has for them.

namespace TradeForms {

/// The cell of a decimal in text form, such as "-.5000": an integer cell for a whole number,
/// otherwise a real one.
Cell CellOfDecimal(std::string_view digits);
/// The cell of a floating-point number: an integer cell for a whole number below 2^53, otherwise a
/// real one.
Cell CellOfNumber(double number);

/// A date with a time of day.
struct Timestamp {
    int Year = 0;
    int Month = 0;
    int Day = 0;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
};

/// Appends the cell of a date, or of a date-time, in the stored form.
void AppendDate(std::string& row, const Timestamp& timestamp);
void AppendDateTime(std::string& row, const Timestamp& timestamp);

/// Appends the cells of texts. It reuses its encoder and buffer from one text to the next.
class TextAppender {
public:
    void Append(std::string& row, QStringView text);

private:
    QStringEncoder encoder_{QStringConverter::Utf8, QStringConverter::Flag::Stateless};
    std::string bytes_;
};

} // namespace TradeForms
