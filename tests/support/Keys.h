#pragma once

#include <QPoint>
#include <QString>
#include <Qt>

namespace TradeForms {

class Control;
class Form;
class Grid;

// Keys and clicks delivered like the user's own: they are sent to the form's window, which is
// activated first, and reach the control from there.

/// Types a text, one key for each character.
void Type(Form& form, const QString& text);
void Type(Form& form, const char* utf8);
/// Presses and releases a key.
void Press(Form& form, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Puts a text on the clipboard and presses Ctrl+V.
void Paste(Form& form, const QString& text);

/// Clicks the middle of a control, or a position in the form's coordinates.
void Click(Form& form, const Control& control, Qt::MouseButton button = Qt::LeftButton);
void Click(Form& form, const QPoint& position, Qt::MouseButton button = Qt::LeftButton);
void DoubleClick(Form& form, const Control& control, Qt::MouseButton button = Qt::LeftButton);
/// Clicks or double-clicks a row of a grid, scrolling it into view first.
void ClickRow(Form& form, Grid& grid, int row, Qt::MouseButton button = Qt::LeftButton);
void DoubleClickRow(Form& form, Grid& grid, int row);

/// Shows the form if it is hidden, and waits until it is the active window.
void Activate(Form& form);

} // namespace TradeForms
