#pragma once

#include "controls/Event.h"

#include <QString>

#include <functional>

class QWidget;

namespace TradeForms {

class Form;

/// What every control of a form has beside its widget: a name, and the events that its form raises
/// in the fixed order (see Form). A step that throws ends in Form::HandlerFailed.
class Control {
public:
    explicit Control(QWidget& widget);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    QWidget& Widget() const { return widget_; }
    QString Name() const;
    /// Sets the object name, and the English accessible name that screen readers tell.
    void SetName(const QString& name, const QString& accessibleName = {});

    bool IsEnabled() const;
    void SetEnabled(bool enabled);
    /// Whether the control itself is shown in its form, be the form on the screen or not.
    bool IsVisible() const;
    void SetVisible(bool visible);
    bool HasTabStop() const;
    /// Takes the control into or out of the tab order; a click still focuses it.
    void SetTabStop(bool tabStop);
    /// Whether the focus may come here at all; a label or a read-only name never takes it.
    virtual bool TakesFocus() const { return true; }

    /// Whether the control that has the focus is validated before this one gets it.
    bool CausesValidation = true;
    /// The one control whose validation a step to this one leaves out; null is none.
    const Control* SparesValidationOf = nullptr;

    VetoEvent OnValidate;
    Event<> OnGotFocus;
    Event<> OnLostFocus;
    /// The text or value changed, by the user or by the program.
    Event<> OnChange;
    Event<> OnClick;

    /// The control that a widget is or belongs to (a date field's line edit belongs to the
    /// date field), or null.
    static Control* Of(const QWidget* widget);
    /// The form that the control stands on, or null.
    Form* OwnerForm() const;

protected:
    friend class Form;

    /// Runs an event's steps under the form's guard.
    template <class... Arguments>
    void Fire(const Event<Arguments...>& event, const Arguments&... arguments)
    {
        if (!event.IsEmpty())
            runGuarded([event, arguments...] { event(arguments...); });
    }
    /// What is typed in part becomes the value.
    virtual void FinishEdit() {}

private:
    void runGuarded(const std::function<void()>& steps);

    QWidget& widget_;
    quint64 serial_; ///< order of creation
};

} // namespace TradeForms
