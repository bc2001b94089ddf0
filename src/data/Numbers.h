#pragma once

#include <QString>
#include <QStringView>
#include <QVariant>

#include <cstdint>

// Conversions between numbers and the texts of fields. All code uses these functions for them.

namespace TradeForms {

/// The number at the start of the text: blanks are skipped, then sign, digits, one decimal point
/// and an exponent are read as far as they go. Returns 0 for a blank or non-numeric text. Raises
/// OverflowFailure where the number is beyond a double.
double Val(QStringView text);

/// Returns a computed number unchanged. Raises OverflowFailure where it is infinite or NaN.
double InRange(double number);

/// A number of the database that has to be there. Raises Failure, "Invalid use of Null", for a
/// null, which must not count as 0 where it stands for a rate that nobody has set.
double NumberOf(const QVariant& value);

/// A number in general format: up to 15 significant digits, no trailing zeros, no separators,
/// and no exponent below 1E+15.
QString GeneralFormat(double number);

/// Whether the whole trimmed text is a number that Val reads to its end.
bool IsNumeric(QStringView text);

/// Rounds to the nearest whole number, halves to the even one. Raises OverflowFailure where that
/// does not fit the type.
std::int32_t ToInt32(double number);
std::int16_t ToInt16(double number);
std::uint8_t ToByte(double number);

/// A cell's value as the text that a field shows: null as the empty text, a number in general
/// format, a flag as "True" or "False", a date as dd/MM/yyyy.
QString TextOf(const QVariant& value);

/// The text with the first letter of each word in upper case and all others in lower case. Words
/// are separated by white space.
QString ProperCase(const QString& text);
QString UpperCase(const QString& text);

} // namespace TradeForms
