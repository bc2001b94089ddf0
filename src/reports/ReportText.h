#pragma once

#include "reports/ReportDeclaration.h"

#include <QFont>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace TradeForms {

struct TextRun;

/// Text on paper: its type, its values, its measure. Sizes are tenths of a millimetre.
namespace ReportText {

// Type
QFont Latin(int size, QFont::Weight weight = QFont::Normal);
QFont Urdu(int size, QFont::Weight weight = QFont::Normal);

/// A value as text; a null is empty.
QString Of(const QVariant& value, ValueFormat format);

/// Width of a line of text.
double Width(const QString& text, const QFont& font);
/// From one base line to the next.
double LinePitch(const QFont& font);
/// The lines of a text that may be so wide. A word that is wider by itself is broken.
QStringList Wrap(const QString& text, const QFont& font, double width);

/// Puts a run into its place: width and origin from text, place, font and alignment. A run that
/// is too wide gets a smaller font.
void Set(TextRun& run);
/// The same for a number that stands by its decimal point.
void SetByPoint(TextRun& run, ValueFormat format);

} // namespace ReportText
} // namespace TradeForms
