#pragma once

#include <QColor>
#include <QFont>

class QPainter;
class QPalette;
class QRect;
class QStyle;
class QWidget;

/// The one palette and the one type scale of all screens. Nothing here touches the host's own
/// windows: controls take their colours, fonts and style from here one by one.
namespace TradeForms::Look {

// Palette
QColor Accent(); ///< title strip, primary button, focus ring
QColor AccentText();
QColor Background();      ///< of a form
QColor EntryBackground(); ///< of the entry row strip
QColor BarBackground();   ///< of the button bar
QColor FieldBackground();
QColor FocusBackground();  ///< of the field that has the focus
QColor ClosedBackground(); ///< of a name field, and of a field closed for now
QColor Border();
QColor Text();
QColor MutedText();
QColor DisabledText();
QColor Selection(); ///< current row of a grid
QColor HeaderBackground();
QColor AlternateRow();
QColor Warning();
QColor StopSign(); ///< grounds of the signs in message boxes
QColor WarningSign();
QColor NoticeSign();
QColor PageSurround(); ///< round the pages of a report
QColor Hit();          ///< behind words that a search has found
QColor CurrentHit();   ///< behind those of them that the user is at

// Type scale
QFont LatinFont(); ///< fields and grids
QFont UrduFont();  ///< ZovUrdu where it is installed, else Noto Naskh Arabic or Nastaliq
QFont CaptionUrdu();
QFont CaptionLatin(); ///< small, under an Urdu caption
QFont TitleUrdu();
QFont TitleLatin();

/// Height in pixels of one field, tall enough for Urdu.
int FieldHeight();
/// Unit of spacing in pixels.
int Space();

/// The base style of all controls, so that a host's style does not change them.
QStyle* BaseStyle();
/// The palette above in the roles of Qt.
const QPalette& Palette();
/// Gives a widget the base style, the palette and a font.
void Dress(QWidget& widget, const QFont& font);

/// How a field stands: decides the colours of its ground and frame.
enum class FieldState { Open, Focused, Closed, Disabled };
/// Ground and frame of a field; a warning replaces the frame's colour.
void PaintField(QPainter& painter, const QRect& rect, FieldState state, bool warning = false);
/// The ring round a control that has the focus and is no field.
void PaintFocusRing(QPainter& painter, const QRect& rect);

} // namespace TradeForms::Look
