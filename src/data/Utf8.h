#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <string_view>

// Conversions between UTF-8 and Qt's strings, and comparisons that need no more than ASCII.

namespace TradeForms {

/// The string that these bytes encode in UTF-8; a null string for no bytes.
inline QString FromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

/// A copy of the bytes.
inline QByteArray ToBytes(std::string_view bytes)
{
    return QByteArray(bytes.data(), qsizetype(bytes.size()));
}

/// The bytes of an array, which must outlive the view.
inline std::string_view ViewOf(const QByteArray& bytes)
{
    return {bytes.constData(), std::size_t(bytes.size())};
}

/// Whether a character is one of 0 to 9.
constexpr bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// The lower-case form of A to Z; any other character unchanged.
template <class Character> constexpr Character AsciiLower(Character character)
{
    return character >= Character('A') && character <= Character('Z')
               ? Character(character + Character('a' - 'A'))
               : character;
}

/// Whether two names of tables or columns are the same, without regard to case.
inline bool IsSameName(QStringView first, QStringView second)
{
    return first.compare(second, Qt::CaseInsensitive) == 0;
}

} // namespace TradeForms
