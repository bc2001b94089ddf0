#pragma once

#include <QString>
#include <QStringView>
#include <QVariant>

#include <cstdint>

// Numbers in fields are text. These few functions are the only road between the two.

namespace TradeForms {

/// The number at the start of the text: blanks are skipped, then sign, digits, one decimal point
/// and an exponent are read as far as they go. Blank or non-numeric text counts 0.
/// Raises OverflowFailure where the number is beyond a double.
double Val(QStringView text);

/// A number that was worked out, as it is. Raises OverflowFailure where it is beyond a double.
double InRange(double number);

/// A number of the database that has to be there. Raises Failure, "Invalid use of Null", for a
/// null, which must not count as 0 where it stands for a rate that nobody has set.
double NumberOf(const QVariant& value);

/// A number in general format: up to 15 significant digits, no trailing zeros, no separators,
/// and no exponent below 1E+15.
QString GeneralFormat(double number);

/// Whether the whole trimmed text is a number that Val reads to its end.
bool IsNumeric(QStringView text);

/// Narrowing; each rounds to the nearest whole number (halves to the even one) and raises
/// OverflowFailure where that does not fit.
std::int32_t ToInt32(double number);
std::int16_t ToInt16(double number);
std::uint8_t ToByte(double number);

/// A cell's value as the text that a field shows: null as the empty text, a number in general
/// format, a flag as "True" or "False", a date as dd/MM/yyyy.
QString TextOf(const QVariant& value);

/// First letter of each word capital, the others small. Words end at white space.
QString ProperCase(const QString& text);
QString UpperCase(const QString& text);

} // namespace TradeForms
