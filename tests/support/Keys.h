#pragma once

#include <QPoint>
#include <QString>
#include <Qt>

namespace TradeForms {

class Control;
class Form;
class Grid;

// Keys and clicks as the user's own: they come in at the window of the form, which is made the
// active one first, and walk the whole road to the control.

/// Types a text, a key for each character.
void Type(Form& form, const QString& text);
void Type(Form& form, const char* utf8);
/// Presses and releases a key.
void Press(Form& form, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Puts a text on the clipboard and presses Ctrl+V.
void Paste(Form& form, const QString& text);

/// Clicks into the middle of a control, or at a position of the form.
void Click(Form& form, const Control& control, Qt::MouseButton button = Qt::LeftButton);
void Click(Form& form, const QPoint& position, Qt::MouseButton button = Qt::LeftButton);
void DoubleClick(Form& form, const Control& control, Qt::MouseButton button = Qt::LeftButton);
/// Clicks or double-clicks into a row of a grid, which is scrolled into view first.
void ClickRow(Form& form, Grid& grid, int row, Qt::MouseButton button = Qt::LeftButton);
void DoubleClickRow(Form& form, Grid& grid, int row);

/// Shows the form, if it is hidden, and waits until it is the active window.
void Activate(Form& form);

} // namespace TradeForms
