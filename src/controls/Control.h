#pragma once

#include "controls/Event.h"

#include <QString>

#include <functional>

class QWidget;

namespace TradeForms {

class Form;

/// Mixin for every control of a form: adds a name and the events to a widget. The form fires the
/// events in a fixed order (see Form). An exception thrown by a handler is passed to
/// Form::HandlerFailed.
class Control {
public:
    explicit Control(QWidget& widget);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    QWidget& Widget() const { return widget_; }
    QString Name() const;
    /// Sets the object name, and the English accessible name that screen readers announce.
    void SetName(const QString& name, const QString& accessibleName = {});

    bool IsEnabled() const;
    void SetEnabled(bool enabled);
    /// Whether the control is not hidden itself. True also while its form is not on the screen.
    bool IsVisible() const;
    void SetVisible(bool visible);
    bool HasTabStop() const;
    /// Adds the control to the tab order or removes it; a click focuses it either way.
    void SetTabStop(bool tabStop);
    /// Whether the control can ever have the focus; false for labels and read-only name fields.
    virtual bool TakesFocus() const { return true; }

    /// Whether the control that has the focus is validated before the focus moves to this one.
    bool CausesValidation = true;
    /// A control that is not validated when the focus moves from it to this one; null for none.
    const Control* SparesValidationOf = nullptr;

    VetoEvent OnValidate;
    Event<> OnGotFocus;
    Event<> OnLostFocus;
    /// The text or value was changed, by the user or by the program.
    Event<> OnChange;
    Event<> OnClick;

    /// Returns the control that the widget is or lies within (such as a date field for its inner
    /// line edit), or null.
    static Control* Of(const QWidget* widget);
    /// Returns the form that contains the control, or null.
    Form* OwnerForm() const;

protected:
    friend class Form;

    /// Runs an event's handlers within the form's guard. Without a form, an exception from them is
    /// shown in the error box.
    template <class... Arguments>
    void Fire(const Event<Arguments...>& event, const Arguments&... arguments)
    {
        if (!event.IsEmpty())
            runGuarded([event, arguments...] { event(arguments...); });
    }
    /// Turns partly typed input into the value. The base does nothing.
    virtual void FinishEdit() {}

private:
    void runGuarded(const std::function<void()>& steps);

    QWidget& widget_;
    quint64 serial_; ///< increases with each control created
};

} // namespace TradeForms
