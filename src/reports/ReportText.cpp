#include "reports/ReportText.h"

#include "controls/Look.h"
#include "data/Numbers.h"
#include "reports/Document.h"

#include <QFontMetricsF>
#include <QLocale>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace TradeForms::ReportText {

namespace {

// Base line under the middle of the place, in parts of the type's size: half the height of a
// capital or a figure, so that Urdu and Latin type beside each other stand on one line.
constexpr double baseLineUnderMiddle = 0.36;
constexpr double pitchOfLines = 1.5;

QFont type(const QStringList& families, int size, QFont::Weight weight)
{
    QFont font;
    font.setFamilies(families);
    font.setPixelSize(size);
    font.setWeight(weight);
    // Unhinted metrics: widths on paper must not depend on the screen.
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QString grouped(const QString& digits)
{
    constexpr int group = 3;
    QString text = digits;
    for (qsizetype at = text.size() - group; at > 0; at -= group)
        text.insert(at, u',');
    return text;
}

QString number(double value, bool money)
{
    constexpr int decimalsOfMoney = 2;
    QString text = GeneralFormat(value);
    if (text.contains(u'E'))
        return text;
    const QString sign = text.startsWith(u'-') ? QStringLiteral("-") : QString();
    const QString whole = text.mid(sign.size()).section(u'.', 0, 0);
    QString fraction = text.section(u'.', 1);
    if (fraction.isEmpty())
        return sign + grouped(whole);
    if (money)
        fraction = fraction.leftJustified(decimalsOfMoney, u'0');
    return sign + grouped(whole) + u'.' + fraction;
}

QString date(const QVariant& value, const QString& format)
{
    const QDate day = value.toDate();
    return day.isValid() ? QLocale::c().toString(day, format) : TextOf(value);
}

bool isNumber(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

void shrink(TextRun& run, double factor)
{
    run.Font.setPixelSize(std::max(1, int(std::floor(run.Font.pixelSize() * factor))));
    run.Width = Width(run.Text, run.Font);
}

double baseLine(const TextRun& run)
{
    return run.Place.center().y() + baseLineUnderMiddle * run.Font.pixelSize();
}

} // namespace

QFont Latin(int size, QFont::Weight weight)
{
    return type(Look::LatinFont().families(), size, weight);
}

QFont Urdu(int size, QFont::Weight weight)
{
    return type(Look::UrduFont().families(), size, weight);
}

QString Of(const QVariant& value, ValueFormat format)
{
    if (!value.isValid() || value.isNull())
        return QString();
    switch (format) {
    case ValueFormat::Amount:
    case ValueFormat::Quantity:
        return isNumber(value) ? number(value.toDouble(), format == ValueFormat::Amount)
                               : TextOf(value);
    case ValueFormat::Date:
        return date(value, QStringLiteral("dd/MM/yyyy"));
    case ValueFormat::Month:
        return date(value, QStringLiteral("MMM-yyyy"));
    case ValueFormat::Plain:
        break;
    }
    return TextOf(value);
}

double Width(const QString& text, const QFont& font)
{
    return QFontMetricsF(font).horizontalAdvance(text);
}

double LinePitch(const QFont& font)
{
    return pitchOfLines * font.pixelSize();
}

QStringList Wrap(const QString& text, const QFont& font, double width)
{
    QStringList lines;
    for (const QString& paragraph : text.split(u'\n')) {
        if (Width(paragraph, font) <= width) {
            lines.append(paragraph);
            continue;
        }
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        QTextLayout layout(paragraph, font);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(width);
            lines.append(paragraph.mid(line.textStart(), line.textLength()).trimmed());
        }
        layout.endLayout();
    }
    return lines;
}

void Set(TextRun& run)
{
    run.Width = Width(run.Text, run.Font);
    if (run.Width > run.Place.width())
        shrink(run, run.Place.width() / run.Width);
    double left = run.Place.left();
    if (run.Alignment & Qt::AlignRight)
        left = run.Place.right() - run.Width;
    else if (run.Alignment & Qt::AlignHCenter)
        left = run.Place.center().x() - run.Width / 2;
    run.Origin = QPointF(left, baseLine(run));
}

void SetByPoint(TextRun& run, ValueFormat format)
{
    const QString reserve =
        format == ValueFormat::Amount ? QStringLiteral(".00") : QStringLiteral(".0");
    const qsizetype point = run.Text.indexOf(u'.');
    const QString whole = run.Text.left(point);
    const double before = Width(whole, run.Font);
    const double behind = Width(run.Text, run.Font) - before;
    const double room = Width(reserve, run.Font);
    const double factor = std::min(behind > room ? room / behind : 1.0,
                                   (run.Place.width() - room) / std::max(before, 1.0));
    run.Width = before + behind;
    if (factor < 1)
        shrink(run, factor);
    const double shown = factor < 1 ? Width(whole, run.Font) : before;
    run.Origin = QPointF(run.Place.right() - room - shown, baseLine(run));
}

} // namespace TradeForms::ReportText
