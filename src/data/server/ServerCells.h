#pragma once

#include "data/Cells.h"

#include <QStringEncoder>
#include <QStringView>

#include <string>
#include <string_view>

// Values of a database server as the embedded database stores them.

namespace TradeForms {

/// The number that a decimal's digits write, such as "-.5000": a whole one is stored as such.
Cell CellOfDecimal(std::string_view digits);
/// A number of a column of numbers: a whole one is stored as such.
Cell CellOfNumber(double number);

/// A timestamp by the calendar and the clock.
struct Timestamp {
    int Year = 0;
    int Month = 0;
    int Day = 0;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
};

/// Appends the cell of a date, or of a date and its time.
void AppendDate(std::string& row, const Timestamp& timestamp);
void AppendDateTime(std::string& row, const Timestamp& timestamp);

/// Appends the cells of texts; keeps what it needs for it from one to the next.
class TextAppender {
public:
    void Append(std::string& row, QStringView text);

private:
    QStringEncoder encoder_{QStringConverter::Utf8, QStringConverter::Flag::Stateless};
    std::string bytes_;
};

} // namespace TradeForms
