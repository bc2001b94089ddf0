#pragma once

#include "controls/Control.h"

#include <QList>
#include <QPointer>
#include <QWidget>

#include <exception>
#include <functional>
#include <memory>

namespace TradeForms {

/// A key press, passed to the form before the control sees it.
struct KeyPress {
    int Code = 0;                ///< Qt::Key; the keypad's Enter comes as Qt::Key_Return
    Qt::KeyboardModifiers Shift; ///< modifiers without the keypad flag
    QString Text;                ///< the characters that the key types, or empty
    bool Swallowed = false;
    void Swallow() { Swallowed = true; }
    bool IsCtrl(int code) const { return Shift == Qt::ControlModifier && Code == code; }
};

/// A borderless window with the event order that all screens rely on:
///
/// 1. Before the focus leaves a control, its OnValidate may cancel the move. Then the focus stays,
///    and the key or mouse press is swallowed. During OnValidate the control still is
///    ActiveControl().
/// 2. Then the focus moves. OnLostFocus of the old control runs, with ActiveControl() already
///    returning the new one; then OnGotFocus of the new one.
/// 3. OnChange runs for changes by the program and by the user alike.
/// 4. FormKeyDown sees each key before the controls do and may swallow it. FormKeyPress sees each
///    edit that the user makes in a text field (typed, pasted, cut, composed) before the field.
///    Enter becomes Tab unless FormKeyDown swallows it.
/// 5. A click on a button moves the focus first, then clicks. If a message box or a modal form
///    was shown while the focus moved, the click is dropped.
/// 6. SetFocus called by the program follows rule 1.
///
/// Switching to another window and back does not change the focus within the form, so no handler
/// runs. A handler may show a modal dialog.
///
/// If a handler of OnLostFocus moves the focus on, the control in between gets neither OnGotFocus
/// nor the matching OnLostFocus, but rule 1 still applies to it. SetFocus called within OnValidate
/// moves the focus without validating again.
class Form : public QWidget {
    Q_OBJECT
public:
    explicit Form(QWidget* owner = nullptr);
    ~Form() override;

    /// The control that has the focus on this form, or had it when the form was last active; null
    /// if none.
    Control* ActiveControl() const;
    bool IsActive(const Control& control) const { return ActiveControl() == &control; }

    /// Moves the focus under rule 1. Returns false if the active control's validation refused, or
    /// if the control cannot take the focus (disabled or hidden).
    bool SetFocus(Control& control);
    /// Moves the focus without validating the active control and without firing its OnLostFocus.
    /// For programs that have just replaced the contents of the fields, so that there is nothing to
    /// validate. Returns whether the control took the focus.
    bool ResetFocus(Control& control);
    /// Moves to the next or previous tab stop under rule 1, as Tab does. Returns false if the focus
    /// stays.
    bool FocusNext();
    bool FocusPrevious();
    /// Turns partly typed input of the active control into its value, for keys that act while the
    /// focus stays. It also happens before a control is validated on leaving.
    void FinishEdit();
    /// Sets the tab order to exactly these controls.
    void SetTabOrderOf(const QList<Control*>& order);

    /// Shows one of several pages that share a place and hides the others. If the focus is on a
    /// page that is hidden, it moves to the first tab stop of the page shown, without validating
    /// the control left, which the calling program is expected to have dealt with. The focus moves
    /// before the page is hidden, because Qt would otherwise move it to the next widget.
    void ShowPage(QWidget& page, const QList<QWidget*>& pages);

    /// All controls of the form, in the order of their creation.
    QList<Control*> Controls() const;

    /// Sets the window title, which the task bar shows.
    void SetWindowCaption(const QString& caption);

    /// Shows the window modelessly. deleteOnClose: whether it deletes itself when closed.
    void ShowModeless(bool deleteOnClose = true);
    /// Whether the window has been shown and not closed or hidden since. True for a minimised
    /// window.
    bool IsUp() const;
    /// Shows the window centred over another one, or on the screen if that is null.
    void ShowOver(const QWidget* window);
    /// Shows the window modally over the owner and returns when it has been closed. Tests can
    /// replace this (see Modal in MsgBox.h).
    void ShowModal(QWidget* owner);
    /// Closes the window unless QueryUnload cancels. Returns whether it was closed.
    bool Unload();
    void Minimize();

    /// Runs a handler and passes any exception from it to HandlerFailed.
    void Guard(const std::function<void()>& handler);

signals:
    /// The window is about to close; this can no longer be cancelled.
    void Unloading();
    /// The window was closed or hidden.
    void Unloaded();

protected:
    /// Handles a key before the control does. The base treats Enter as Tab and Shift+Enter as
    /// Shift+Tab.
    virtual void FormKeyDown(KeyPress& key);
    /// Called before the user edits the active text field; after a paste or a composed text.
    virtual void FormKeyPress();
    /// Called before the window closes; setting cancel keeps it open.
    virtual void QueryUnload(bool& cancel);
    /// Called when a handler threw an exception that it did not catch itself. The base shows a
    /// plain error box.
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

    /// Called by a text field when the user edits it.
    void NotifyEdit();

    std::unique_ptr<Private> d;
};

} // namespace TradeForms
