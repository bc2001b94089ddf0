#include "support/Keys.h"

#include "controls/Form.h"
#include "controls/Grid.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace TradeForms {

namespace {

/// Returns the middle of a widget in the form's coordinates.
QPoint middleOf(const Form& form, const QWidget& widget)
{
    return widget.mapTo(&form, widget.rect().center());
}

QPoint rowOf(const Form& form, Grid& grid, int row)
{
    const QModelIndex index = grid.model()->index(row, grid.columnAt(grid.viewport()->width() / 2));
    grid.scrollTo(index);
    return grid.viewport()->mapTo(&form, grid.visualRect(index).center());
}

} // namespace

void Activate(Form& form)
{
    // QWidget::isActiveWindow is also true if only the owner is active, so ask the application.
    const auto isActive = [&form] { return QApplication::activeWindow() == &form; };
    if (isActive())
        return;
    if (form.isHidden())
        form.ShowModeless(false);
    form.activateWindow();
    if (!QTest::qWaitFor(isActive))
        ADD_FAILURE() << "The window did not become active: " << form.windowTitle().toStdString();
}

void Type(Form& form, const QString& text)
{
    Activate(form);
    for (const QChar c : text) {
        const char latin = c.toLatin1();
        const Qt::Key key = latin != 0 ? QTest::asciiToKey(latin) : Qt::Key(c.unicode());
        QTest::sendKeyEvent(QTest::Click, form.windowHandle(), key, QString(c),
                            c.isUpper() ? Qt::ShiftModifier : Qt::NoModifier);
    }
}

void Type(Form& form, const char* utf8)
{
    Type(form, QString::fromUtf8(utf8));
}

void Press(Form& form, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    Activate(form);
    QTest::keyClick(form.windowHandle(), key, modifiers);
}

void Paste(Form& form, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    Press(form, Qt::Key_V, Qt::ControlModifier);
}

void Click(Form& form, const QPoint& position, Qt::MouseButton button)
{
    Activate(form);
    QTest::mouseClick(form.windowHandle(), button, Qt::NoModifier, position);
}

void Click(Form& form, const Control& control, Qt::MouseButton button)
{
    Activate(form);
    Click(form, middleOf(form, control.Widget()), button);
}

void DoubleClick(Form& form, const Control& control, Qt::MouseButton button)
{
    Activate(form);
    QTest::mouseDClick(form.windowHandle(), button, Qt::NoModifier,
                       middleOf(form, control.Widget()));
}

void ClickRow(Form& form, Grid& grid, int row, Qt::MouseButton button)
{
    Activate(form);
    Click(form, rowOf(form, grid, row), button);
}

void DoubleClickRow(Form& form, Grid& grid, int row)
{
    Activate(form);
    QTest::mouseDClick(form.windowHandle(), Qt::LeftButton, Qt::NoModifier, rowOf(form, grid, row));
}

} // namespace TradeForms
