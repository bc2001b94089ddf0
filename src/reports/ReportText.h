#pragma once

#include "reports/ReportDeclaration.h"

#include <QFont>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace TradeForms {

struct TextRun;

/// Fonts, formatting and measuring of text on paper. Sizes are tenths of a millimetre.
namespace ReportText {

// Type
QFont Latin(int size, QFont::Weight weight = QFont::Normal);
QFont Urdu(int size, QFont::Weight weight = QFont::Normal);

/// Formats a value; a null becomes an empty text.
QString Of(const QVariant& value, ValueFormat format);

/// Width of a line of text.
double Width(const QString& text, const QFont& font);
/// The distance between baselines.
double LinePitch(const QFont& font);
/// Breaks a text into lines of at most this width. A wider word is broken.
QStringList Wrap(const QString& text, const QFont& font, double width);

/// Sets width and origin of a run from its text, place, font and alignment. A run that is too wide
/// gets a smaller font.
void Set(TextRun& run);
/// The same for a number aligned by its decimal point.
void SetByPoint(TextRun& run, ValueFormat format);

} // namespace ReportText
} // namespace TradeForms
