#include "controls/Form.h"

#include "controls/Buttons.h"
#include "controls/Look.h"
#include "controls/MsgBox.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>

#include <algorithm>
#include <optional>
#include <stdexcept>

namespace TradeForms {

class Form::Private {
public:
    explicit Private(Form& owner) : form(owner) {}

    Control* ActiveControl() const { return Control::Of(active); }
    bool CanTakeFocus(const Control& control) const;
    bool MayLeaveFor(const Control& to);
    enum class Leave { Fully, Quietly }; ///< whether the old control's OnLostFocus is fired
    bool MoveFocus(Control& to, Qt::FocusReason reason, Leave leave = Leave::Fully);
    bool TryMoveFocus(Control& to, Qt::FocusReason reason);
    bool Step(bool forward);
    Control* Neighbour(bool forward) const;
    QList<Control*> TabStops() const;
    void Transition(Control* to, Leave leave = Leave::Fully);
    void FocusChanged(QWidget* now);
    void WatchWindow();

    bool KeyPressed(QKeyEvent& event);
    bool MousePressed(const QMouseEvent& event);
    Control* FocusTargetAt(const QPoint& position) const;
    void CenterOver(const QWidget* window);

    Form& form;
    QPointer<QWidget> active;     ///< widget of the active control
    QPointer<QWidget> passedOver; ///< became active, but its OnGotFocus has not been fired yet
    QList<QPointer<QWidget>> tabOrder;
    QPointer<QWindow> window;   ///< the native window whose events are filtered
    std::optional<QPoint> grip; ///< offset of the mouse while the user drags the window
    bool moving = false;        ///< the form itself is moving the focus
    bool validating = false;
    bool querying = false; ///< QueryUnload is running
    bool unloaded = false;
    bool deleteOnClose = false;
    bool deletePending = false; ///< closed by a handler that has not returned yet
    bool swallowing = false;    ///< swallows the rest of a refused mouse press
    int handlers = 0;           ///< number of handlers running
};

bool Form::Private::CanTakeFocus(const Control& control) const
{
    return control.TakesFocus() && control.IsEnabled() && control.IsVisible() &&
           control.OwnerForm() == &form;
}

// Rule 1. A handler that throws does not cancel the move.
bool Form::Private::MayLeaveFor(const Control& to)
{
    Control* from = ActiveControl();
    if (!from || from == &to || validating || !CanTakeFocus(*from))
        return true;
    from->FinishEdit();
    if (unloaded || ActiveControl() != from)
        return false;
    if (!to.CausesValidation || to.SparesValidationOf == from || from->OnValidate.IsEmpty())
        return true;

    bool cancel = false;
    {
        const QScopedValueRollback<bool> asking(validating, true);
        const VetoEvent validate = from->OnValidate;
        form.Guard([&] { validate(cancel); });
    }
    // If the handler itself moved the focus or closed the form, the original move is dropped.
    return !cancel && !unloaded && ActiveControl() == from;
}

bool Form::Private::MoveFocus(Control& to, Qt::FocusReason reason, Leave leave)
{
    if (!CanTakeFocus(to))
        return false;
    {
        // Handlers must not run within Qt's own focus change, so FocusChanged ignores it.
        const QScopedValueRollback<bool> ours(moving, true);
        to.Widget().setFocus(reason);
    }
    if (Control::Of(form.focusWidget()) != &to)
        return false;
    if (ActiveControl() != &to)
        Transition(&to, leave);
    return true;
}

bool Form::Private::TryMoveFocus(Control& to, Qt::FocusReason reason)
{
    return CanTakeFocus(to) && MayLeaveFor(to) && MoveFocus(to, reason);
}

QList<Control*> Form::Private::TabStops() const
{
    QList<Control*> stops;
    if (tabOrder.isEmpty())
        return form.Controls();
    for (const QPointer<QWidget>& widget : tabOrder)
        if (Control* control = Control::Of(widget))
            stops.append(control);
    return stops;
}

Control* Form::Private::Neighbour(bool forward) const
{
    QList<Control*> stops = TabStops();
    if (!forward)
        std::reverse(stops.begin(), stops.end());
    const Control* from = ActiveControl();
    const qsizetype at = stops.indexOf(from);
    for (qsizetype i = 1; i <= stops.size(); ++i) {
        Control* stop = stops[(at + i) % stops.size()];
        if (stop != from && stop->HasTabStop() && CanTakeFocus(*stop))
            return stop;
    }
    return nullptr;
}

bool Form::Private::Step(bool forward)
{
    Control* to = Neighbour(forward);
    if (!to || !MayLeaveFor(*to))
        return false;
    // The validation may have enabled or disabled controls: look again.
    to = Neighbour(forward);
    return to && MoveFocus(*to, forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

// Rule 2.
void Form::Private::Transition(Control* to, Leave leave)
{
    Control* from = ActiveControl();
    const bool fromHadFocus = from && passedOver != active;
    active = to ? &to->Widget() : nullptr;
    passedOver = active;
    if (fromHadFocus && leave == Leave::Fully)
        from->Fire(from->OnLostFocus);
    if (active && passedOver == active && ActiveControl() == to && !unloaded) {
        passedOver = nullptr;
        to->Fire(to->OnGotFocus);
    }
}

// Handles a focus change not made by the form, such as Qt's when the focused control is hidden.
void Form::Private::FocusChanged(QWidget* now)
{
    if (moving || !now || now->window() != &form)
        return;
    Control* control = Control::Of(now);
    if (control != ActiveControl())
        Transition(control);
}

// QApplication moves the focus before an event filter on a widget sees the mouse press, so the
// filter is installed on the native window. All keys also pass through it, whichever widget has the
// focus.
void Form::Private::WatchWindow()
{
    if (window == form.windowHandle())
        return;
    if (window)
        window->removeEventFilter(&form);
    window = form.windowHandle();
    if (window)
        window->installEventFilter(&form);
}

bool Form::Private::KeyPressed(QKeyEvent& event)
{
    KeyPress key;
    key.Code = event.key() == Qt::Key_Enter ? int(Qt::Key_Return) : event.key();
    key.Shift = event.modifiers() & ~Qt::KeypadModifier;
    key.Text = event.text();
    form.Guard([&] { form.FormKeyDown(key); });
    if (key.Swallowed || unloaded)
        return true;

    const bool plain = !(key.Shift & ~Qt::ShiftModifier);
    if (plain && (key.Code == Qt::Key_Tab || key.Code == Qt::Key_Backtab)) {
        Step(key.Code == Qt::Key_Tab && key.Shift == Qt::NoModifier);
        return true;
    }
    return false;
}

Control* Form::Private::FocusTargetAt(const QPoint& position) const
{
    const QWidget* pressed = form.childAt(position);
    Control* control = Control::Of(pressed);
    if (!control || !CanTakeFocus(*control))
        return nullptr;
    // A press on a scroll bar or column header does not focus the grid.
    for (; pressed != &control->Widget(); pressed = pressed->parentWidget())
        if (qobject_cast<const QScrollBar*>(pressed) || qobject_cast<const QHeaderView*>(pressed))
            return nullptr;
    return control;
}

// Returns whether the press must not reach the widget.
bool Form::Private::MousePressed(const QMouseEvent& event)
{
    Control* target = FocusTargetAt(event.position().toPoint());
    if (!target || target == ActiveControl())
        return false;
    const int shown = Modal::Count();
    if (!MayLeaveFor(*target))
        return true;
    MoveFocus(*target, Qt::MouseFocusReason);
    return unloaded || Modal::Count() != shown;
}

void Form::Private::CenterOver(const QWidget* over)
{
    const QScreen* screen = over ? over->screen() : form.screen();
    const QRect room = screen->availableGeometry();
    if (!form.testAttribute(Qt::WA_Resized))
        form.resize(form.sizeHint().expandedTo(form.minimumSizeHint()).boundedTo(room.size()));
    const QRect around = over ? over->frameGeometry() : room;
    QPoint corner = around.center() - form.rect().center();
    corner.setX(
        std::clamp(corner.x(), room.left(), std::max(room.left(), room.right() - form.width())));
    corner.setY(
        std::clamp(corner.y(), room.top(), std::max(room.top(), room.bottom() - form.height())));
    form.move(corner);
}

Form::Form(QWidget* owner)
    : QWidget(owner, Qt::Window | Qt::FramelessWindowHint | Qt::WindowSystemMenuHint |
                         Qt::WindowMinimizeButtonHint),
      d(std::make_unique<Private>(*this))
{
    Look::Dress(*this, Look::LatinFont());
    setLayoutDirection(Qt::RightToLeft);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { d->FocusChanged(now); });
}

Form::~Form()
{
    // The controls are destroyed after this; the focus changes that this causes are ignored.
    disconnect(qApp, nullptr, this, nullptr);
    if (d->window)
        d->window->removeEventFilter(this);
}

Control* Form::ActiveControl() const
{
    return d->ActiveControl();
}

bool Form::SetFocus(Control& control)
{
    return d->TryMoveFocus(control, Qt::OtherFocusReason);
}

bool Form::ResetFocus(Control& control)
{
    return d->MoveFocus(control, Qt::OtherFocusReason, Private::Leave::Quietly);
}

bool Form::FocusNext()
{
    return d->Step(true);
}

bool Form::FocusPrevious()
{
    return d->Step(false);
}

void Form::FinishEdit()
{
    if (Control* active = d->ActiveControl())
        active->FinishEdit();
}

void Form::SetTabOrderOf(const QList<Control*>& order)
{
    d->tabOrder.clear();
    for (const Control* control : order)
        d->tabOrder.append(&control->Widget());
}

void Form::ShowPage(QWidget& page, const QList<QWidget*>& pages)
{
    page.show();
    const Control* active = ActiveControl();
    const bool isOnAnother = std::any_of(pages.begin(), pages.end(), [&](const QWidget* other) {
        return other != &page && active && other->isAncestorOf(&active->Widget());
    });
    if (isOnAnother) {
        for (Control* stop : d->TabStops())
            if (page.isAncestorOf(&stop->Widget()) && stop->HasTabStop() && ResetFocus(*stop))
                break;
    }
    for (QWidget* other : pages)
        other->setVisible(other == &page);
}

QList<Control*> Form::Controls() const
{
    QList<Control*> controls;
    for (QWidget* widget : findChildren<QWidget*>())
        if (auto* control = dynamic_cast<Control*>(widget))
            controls.append(control);
    std::sort(controls.begin(), controls.end(),
              [](const Control* a, const Control* b) { return a->serial_ < b->serial_; });
    return controls;
}

void Form::SetWindowCaption(const QString& caption)
{
    setWindowTitle(caption);
    setAccessibleName(caption);
}

void Form::ShowModeless(bool deleteOnClose)
{
    d->deleteOnClose = deleteOnClose;
    setWindowModality(Qt::NonModal);
    ShowOver(parentWidget() ? parentWidget()->window() : QApplication::activeWindow());
}

bool Form::IsUp() const
{
    return isVisible() && !d->unloaded;
}

void Form::ShowOver(const QWidget* window)
{
    if (isHidden())
        d->CenterOver(window && window->isVisible() ? window : nullptr);
    if (isMinimized())
        showNormal();
    else
        show();
    raise();
    activateWindow();
}

void Form::ShowModal(QWidget* owner)
{
    Modal::Present(*this, owner);
}

bool Form::Unload()
{
    return !d->querying && close();
}

void Form::Minimize()
{
    showMinimized();
}

void Form::Guard(const std::function<void()>& handler)
{
    if (!handler)
        return;
    ++d->handlers;
    try {
        try {
            handler();
        } catch (const std::exception& failure) {
            HandlerFailed(failure);
        } catch (...) {
            HandlerFailed(std::runtime_error("Unknown failure"));
        }
    } catch (const std::exception& failure) {
        // HandlerFailed itself threw: show the base class's plain box.
        Form::HandlerFailed(failure);
    }
    if (--d->handlers == 0 && d->deletePending)
        deleteLater();
}

void Form::FormKeyDown(KeyPress& key)
{
    if (key.Code != Qt::Key_Return)
        return;
    d->Step(!key.Shift.testFlag(Qt::ShiftModifier));
    key.Swallow();
}

void Form::FormKeyPress() {}

void Form::QueryUnload(bool&) {}

void Form::HandlerFailed(const std::exception& failure)
{
    MsgBox(this, {QString::fromUtf8(failure.what()), MsgIcon::Stop, windowTitle()});
}

void Form::NotifyEdit()
{
    Guard([this] { FormKeyPress(); });
}

// Called for a Tab that bypassed the window's event filter, and by Qt when the focused control is
// disabled or hidden. The latter is caused by the program, so the control is not validated.
bool Form::focusNextPrevChild(bool next)
{
    const Control* from = d->ActiveControl();
    if (from && d->CanTakeFocus(*from)) {
        d->Step(next);
        return true;
    }
    Control* to = d->Neighbour(next);
    return to && d->MoveFocus(*to, Qt::OtherFocusReason);
}

bool Form::eventFilter(QObject* watched, QEvent* event)
{
    // An open popup handles keys and presses itself.
    if (watched != d->window || QApplication::activePopupWidget())
        return QWidget::eventFilter(watched, event);
    switch (event->type()) {
    case QEvent::KeyPress:
        return d->KeyPressed(static_cast<QKeyEvent&>(*event));
    case QEvent::MouseButtonPress:
        d->swallowing = d->MousePressed(static_cast<QMouseEvent&>(*event));
        return d->swallowing;
    case QEvent::MouseButtonDblClick: // arrives in place of the second press
        return d->swallowing;
    case QEvent::MouseMove:
        return d->swallowing && static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton;
    case QEvent::MouseButtonRelease:
        return std::exchange(d->swallowing, false);
    default:
        return QWidget::eventFilter(watched, event);
    }
}

bool Form::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        // While the form is active, its keys must not trigger shortcuts of the host.
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (!(key.modifiers() & Qt::AltModifier)) {
            event->accept();
            return true;
        }
        break;
    }
    case QEvent::Show:
        d->WatchWindow();
        if (!event->spontaneous()) {
            d->unloaded = false;
            if (!d->ActiveControl()) {
                if (Control* first = d->Neighbour(true))
                    d->MoveFocus(*first, Qt::TabFocusReason);
            }
        }
        break;
    case QEvent::WinIdChange:
        d->WatchWindow();
        break;
    case QEvent::Hide:
        if (!event->spontaneous()) {
            // Reset, so that the form starts anew when shown again.
            d->unloaded = true;
            d->active = nullptr;
            d->passedOver = nullptr;
            if (QWidget* focused = focusWidget())
                focused->clearFocus();
            emit Unloaded();
        }
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void Form::closeEvent(QCloseEvent* event)
{
    if (d->querying) {
        event->ignore();
        return;
    }
    bool cancel = false;
    {
        const QScopedValueRollback<bool> asking(d->querying, true);
        Guard([&] { QueryUnload(cancel); });
    }
    event->setAccepted(!cancel);
    if (cancel)
        return;
    d->unloaded = true;
    emit Unloading();
    if (!d->deleteOnClose)
        return;
    // A handler that is still running, perhaps in a nested event loop, needs the form.
    if (d->handlers > 0)
        d->deletePending = true;
    else
        deleteLater();
}

void Form::mousePressEvent(QMouseEvent* event)
{
    const Control* pressed = Control::Of(childAt(event->position().toPoint()));
    const bool background = !pressed || dynamic_cast<const Label*>(pressed);
    if (event->button() != Qt::LeftButton || !background) {
        event->ignore();
        return;
    }
    if (!windowHandle() || !windowHandle()->startSystemMove())
        d->grip = event->globalPosition().toPoint() - pos();
}

void Form::mouseMoveEvent(QMouseEvent* event)
{
    if (d->grip && event->buttons().testFlag(Qt::LeftButton))
        move(event->globalPosition().toPoint() - *d->grip);
}

void Form::mouseReleaseEvent(QMouseEvent*)
{
    d->grip.reset();
}

void Form::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Look::Background());
    painter.setPen(Look::Border().darker(125));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace TradeForms
