#include "controls/Control.h"

#include "controls/Form.h"
#include "controls/MsgBox.h"

#include <QWidget>

namespace TradeForms {

namespace {

quint64 nextSerial()
{
    static quint64 serial = 0;
    return ++serial;
}

} // namespace

// The form itself moves the focus on a mouse press (see Form), so that a handler can still redirect
// it. Qt must therefore not focus a control on a click or wheel turn.
Control::Control(QWidget& widget) : widget_(widget), serial_(nextSerial())
{
    widget_.setFocusPolicy(Qt::TabFocus);
}

Control::~Control() = default;

QString Control::Name() const
{
    return widget_.objectName();
}

void Control::SetName(const QString& name, const QString& accessibleName)
{
    widget_.setObjectName(name);
    if (!accessibleName.isEmpty())
        widget_.setAccessibleName(accessibleName);
}

bool Control::IsEnabled() const
{
    return widget_.isEnabled();
}

void Control::SetEnabled(bool enabled)
{
    widget_.setEnabled(enabled);
}

bool Control::IsVisible() const
{
    return widget_.isVisibleTo(widget_.window());
}

void Control::SetVisible(bool visible)
{
    widget_.setVisible(visible);
}

bool Control::HasTabStop() const
{
    return (widget_.focusPolicy() & Qt::TabFocus) != 0;
}

void Control::SetTabStop(bool tabStop)
{
    widget_.setFocusPolicy(tabStop ? Qt::TabFocus : Qt::NoFocus);
}

Control* Control::Of(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget()) {
        if (auto* control = dynamic_cast<Control*>(const_cast<QWidget*>(widget)))
            return control;
        if (widget->isWindow())
            break;
    }
    return nullptr;
}

Form* Control::OwnerForm() const
{
    return qobject_cast<Form*>(widget_.window());
}

void Control::runGuarded(const std::function<void()>& steps)
{
    if (Form* form = OwnerForm()) {
        form->Guard(steps);
        return;
    }
    try {
        steps();
    } catch (const std::exception& failure) {
        ShowError(&widget_, failure);
    }
}

} // namespace TradeForms
