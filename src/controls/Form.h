#pragma once

#include "controls/Control.h"

#include <QList>
#include <QPointer>
#include <QWidget>

#include <exception>
#include <functional>
#include <memory>

namespace TradeForms {

/// A key on its way to a control. The form sees it first.
struct KeyPress {
    int Code = 0;                ///< Qt::Key; the keypad's Enter comes as Qt::Key_Return
    Qt::KeyboardModifiers Shift; ///< modifiers, the keypad flag left out
    QString Text;                ///< what the key types, if anything
    bool Swallowed = false;
    void Swallow() { Swallowed = true; }
    bool IsCtrl(int code) const { return Shift == Qt::ControlModifier && Code == code; }
};

/// A borderless window with the event order on which all screens rest:
///
/// 1. Before the focus leaves a control, that control's OnValidate may refuse; then nothing
///    moves, and the key or mouse press is swallowed. The control still is ActiveControl().
/// 2. Then the focus moves. OnLostFocus of the old control runs with ActiveControl() already
///    the new one; then OnGotFocus of the new one.
/// 3. OnChange runs for changes by the program and by the user alike.
/// 4. FormKeyDown sees each key before the controls and may swallow it; FormKeyPress sees each
///    edit that the user makes in a text field (typed, pasted, cut, composed), before the field.
///    Enter becomes Tab unless FormKeyDown swallows it.
/// 5. A click on a button moves the focus first, then clicks. If a message box or a modal form
///    came up while the focus moved, the press is over by then and nothing is clicked.
/// 6. SetFocus from code obeys rule 1.
///
/// Going to another window and coming back is no change of focus within the form: no handler
/// runs. A modal dialog may be shown from any handler.
///
/// Where a handler of OnLostFocus moves the focus on, the control that was passed over gets no
/// OnGotFocus, nor the OnLostFocus that would go with it; rule 1 holds for it all the same. A
/// SetFocus from within OnValidate moves the focus without asking again.
class Form : public QWidget {
    Q_OBJECT
public:
    explicit Form(QWidget* owner = nullptr);
    ~Form() override;

    /// The control that has the focus on this form, or had it when the form was last active.
    Control* ActiveControl() const;
    bool IsActive(const Control& control) const { return ActiveControl() == &control; }

    /// Moves the focus under rule 1. False where the active control's validation refused, or
    /// the control cannot take it (disabled or hidden).
    bool SetFocus(Control& control);
    /// Moves the focus without asking the active control and without its OnLostFocus: for a
    /// program that has just replaced what the fields hold, so that there is nothing to act on.
    bool ResetFocus(Control& control);
    /// The next or previous tab stop, under rule 1: what Tab does. False where the focus stays.
    bool FocusNext();
    bool FocusPrevious();
    /// What is typed in part in the active control becomes its value: for keys that act while
    /// the focus stays. Leaving a control does it too, before it is validated.
    void FinishEdit();
    /// The order in which Tab walks: just these, in this order.
    void SetTabOrderOf(const QList<Control*>& order);

    /// Shows one of several parts that lie in one place and hides the others. Where the focus
    /// stands on one of those, it goes to the first tab stop of the part that is shown, without
    /// asking the control that it leaves: a program that turns the page has dealt with it. (Hidden
    /// first, that control would lose the focus to whatever stands next.)
    void ShowPage(QWidget& page, const QList<QWidget*>& pages);

    /// All controls of the form, in the order of their creation.
    QList<Control*> Controls() const;

    /// The name that the task bar shows.
    void SetWindowCaption(const QString& caption);

    /// Shows the window on its own; it deletes itself when it is closed, if asked to.
    void ShowModeless(bool deleteOnClose = true);
    /// Whether the window has been shown and not been closed or hidden since; minimised, it is up.
    bool IsUp() const;
    /// Shows the window in the middle of another one, or of the screen where that is null.
    void ShowOver(const QWidget* window);
    /// Shows the window modally over the owner and returns when it is unloaded.
    /// The seam for tests is Modal (see MsgBox.h).
    void ShowModal(QWidget* owner);
    /// Closes the window, if QueryUnload lets it. True when it is closed.
    bool Unload();
    /// Minimises the window.
    void Minimize();

    /// Runs a handler so that no exception leaves it; a failure goes to HandlerFailed.
    void Guard(const std::function<void()>& handler);

signals:
    /// The window is going to close, and nothing will stop it.
    void Unloading();
    /// The window has gone from the screen: it was closed or hidden.
    void Unloaded();

protected:
    /// A key, before the control. The base makes Enter a Tab, and Shift+Enter a Shift+Tab.
    virtual void FormKeyDown(KeyPress& key);
    /// The user is about to edit, or has just pasted or composed into, the active text field.
    virtual void FormKeyPress();
    /// The window is about to close.
    virtual void QueryUnload(bool& cancel);
    /// A handler without a guard of its own has failed. The base shows a plain error box.
    virtual void HandlerFailed(const std::exception& failure);

    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    friend class Txt;
    class Private;

    /// From a text field: the user edits it.
    void TellEdit();

    std::unique_ptr<Private> d;
};

} // namespace TradeForms
