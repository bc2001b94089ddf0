#pragma once

#include <QColor>
#include <QFont>

class QPainter;
class QPalette;
class QRect;
class QStyle;
class QWidget;

/// The palette and type scale of all screens. Nothing here changes the host's own windows: each
/// control is given its colours, fonts and style individually.
namespace TradeForms::Look {

// Palette
QColor Accent(); ///< title strip, primary button, focus ring
QColor AccentText();
QColor Background();      ///< of a form
QColor EntryBackground(); ///< of the entry row strip
QColor BarBackground();   ///< of the button bar
QColor FieldBackground();
QColor FocusBackground();  ///< of the field that has the focus
QColor ClosedBackground(); ///< of a name field or a field that is closed for now
QColor Border();
QColor Text();
QColor MutedText();
QColor DisabledText();
QColor Selection(); ///< current row of a grid
QColor HeaderBackground();
QColor AlternateRow();
QColor Warning();
QColor StopSign(); ///< background of the signs in message boxes
QColor WarningSign();
QColor NoticeSign();
QColor PageSurround(); ///< round the pages of a report
QColor Hit();          ///< background of search hits
QColor CurrentHit();   ///< background of the current search hit

// Type scale
QFont LatinFont(); ///< fields and grids
QFont UrduFont();  ///< ZovUrdu if installed, else Noto Naskh Arabic, else Noto Nastaliq
QFont CaptionUrdu();
QFont CaptionLatin(); ///< small, under an Urdu caption
QFont TitleUrdu();
QFont TitleLatin();

/// Height of a field in pixels, enough for Urdu text.
int FieldHeight();
/// Unit of spacing, in pixels.
int Space();

/// The style of all controls, independent of the host's style. Owned by the application.
QStyle* BaseStyle();
/// The palette above as a QPalette.
const QPalette& Palette();
/// Sets a widget's style, palette and font.
void Dress(QWidget& widget, const QFont& font);

/// State of a field, which decides the colours of its background and frame.
enum class FieldState { Open, Focused, Closed, Disabled };
/// Paints the background and frame of a field; warning gives the frame the warning colour.
void PaintField(QPainter& painter, const QRect& rect, FieldState state, bool warning = false);
/// Paints the focus ring of a control that is not a field.
void PaintFocusRing(QPainter& painter, const QRect& rect);

} // namespace TradeForms::Look
