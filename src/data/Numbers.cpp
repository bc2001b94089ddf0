#include "data/Numbers.h"

#include "data/Failure.h"

#include <QDateTime>

#include <cmath>
#include <limits>

namespace TradeForms {

namespace {

bool isDigit(QStringView text, qsizetype at)
{
    return at < text.size() && text[at] >= u'0' && text[at] <= u'9';
}

qsizetype skipDigits(QStringView text, qsizetype at)
{
    while (isDigit(text, at))
        ++at;
    return at;
}

/// The length of the number at the beginning of the text; 0 where there is none.
qsizetype numberEnd(QStringView text)
{
    qsizetype at = !text.isEmpty() && (text[0] == u'+' || text[0] == u'-') ? 1 : 0;
    const qsizetype whole = at;
    at = skipDigits(text, at);
    qsizetype digits = at - whole;
    if (at < text.size() && text[at] == u'.') {
        const qsizetype end = skipDigits(text, at + 1);
        digits += end - at - 1;
        at = end;
    }
    if (digits == 0)
        return 0;
    if (at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
        const bool hasSign = at + 1 < text.size() && (text[at + 1] == u'+' || text[at + 1] == u'-');
        const qsizetype exponent = at + (hasSign ? 2 : 1);
        if (isDigit(text, exponent))
            at = skipDigits(text, exponent);
    }
    return at;
}

QStringView skipBlanks(QStringView text)
{
    qsizetype at = 0;
    while (at < text.size() && text[at].isSpace())
        ++at;
    return text.sliced(at);
}

template <class Whole> Whole narrow(double number)
{
    const double rounded = std::nearbyint(number);
    if (!(rounded >= double(std::numeric_limits<Whole>::min()) &&
          rounded <= double(std::numeric_limits<Whole>::max())))
        throw OverflowFailure();
    return Whole(rounded);
}

constexpr int significantDigits = 15;

} // namespace

double Val(QStringView text)
{
    const QStringView rest = skipBlanks(text);
    const qsizetype end = numberEnd(rest);
    if (end == 0)
        return 0;
    bool fits = false;
    const double number = rest.first(end).toDouble(&fits);
    // A number that is too small for a double is 0; one that is too large is an error.
    if (!std::isfinite(number))
        throw OverflowFailure();
    return number;
}

double InRange(double number)
{
    if (!std::isfinite(number))
        throw OverflowFailure();
    return number;
}

double NumberOf(const QVariant& value)
{
    if (value.isNull())
        throw Failure(QStringLiteral("Invalid use of Null"));
    return value.toDouble();
}

QString GeneralFormat(double number)
{
    if (!std::isfinite(number))
        return QString::number(number);
    // d.dddddde±xx: the digits after rounding, and the exponent that goes with them.
    const QByteArray written = QByteArray::number(std::fabs(number), 'e', significantDigits - 1);
    const qsizetype mark = written.indexOf('e');
    const int exponent = written.sliced(mark + 1).toInt();
    QByteArray digits = written.first(1) + written.sliced(2, mark - 2);
    while (digits.size() > 1 && digits.endsWith('0'))
        digits.chop(1);
    if (digits == "0")
        return QStringLiteral("0");

    QByteArray text;
    if (exponent >= significantDigits || exponent < -significantDigits) {
        text = digits.first(1);
        if (digits.size() > 1)
            text += '.' + digits.sliced(1);
        text += exponent < 0 ? "E-" : "E+";
        text += QByteArray::number(std::abs(exponent)).rightJustified(2, '0');
    } else if (exponent < 0) {
        text = "0." + QByteArray(-exponent - 1, '0') + digits;
    } else if (digits.size() <= exponent + 1) {
        text = digits.leftJustified(exponent + 1, '0');
    } else {
        text = digits.first(exponent + 1) + '.' + digits.sliced(exponent + 1);
    }
    if (number < 0)
        text.prepend('-');
    return QString::fromLatin1(text);
}

bool IsNumeric(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    return !trimmed.isEmpty() && numberEnd(trimmed) == trimmed.size();
}

std::int32_t ToInt32(double number)
{
    return narrow<std::int32_t>(number);
}

std::int16_t ToInt16(double number)
{
    return narrow<std::int16_t>(number);
}

std::uint8_t ToByte(double number)
{
    return narrow<std::uint8_t>(number);
}

QString TextOf(const QVariant& value)
{
    if (value.isNull())
        return QString();
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::Double:
    case QMetaType::Float:
        return GeneralFormat(value.toDouble());
    case QMetaType::QDate:
        return value.toDate().toString(QStringLiteral("dd/MM/yyyy"));
    case QMetaType::QDateTime:
        return value.toDateTime().toString(QStringLiteral("dd/MM/yyyy HH:mm:ss"));
    default:
        return value.toString();
    }
}

QString ProperCase(const QString& text)
{
    QString result;
    result.reserve(text.size());
    bool wordStart = true;
    for (const char32_t letter : text.toLower().toUcs4()) {
        const char32_t shown = wordStart ? QChar::toUpper(letter) : letter;
        result += QChar::fromUcs4(shown);
        wordStart = QChar::isSpace(letter);
    }
    return result;
}

QString UpperCase(const QString& text)
{
    return text.toUpper();
}

} // namespace TradeForms
