#pragma once

#include <QString>

#include <exception>
#include <functional>

class QWidget;

namespace TradeForms {

class Form;

enum class MsgIcon { None = 0, Stop = 16, Question = 32, Exclamation = 48, Information = 64 };
enum class MsgButtons { Ok, YesNo };
enum class MsgAnswer { Ok, Yes, No };

/// The contents of a message box.
struct Message {
    QString Text;
    MsgIcon Icon = MsgIcon::None;
    QString Title;
    MsgButtons Buttons = MsgButtons::Ok;
    MsgAnswer Default = MsgAnswer::Yes; ///< the button that Enter presses, in a Yes/No box
};

/// Shows a message box over a window, waits and returns the answer. Esc answers No, or Ok in an Ok
/// box; Enter answers the default button, Y answers Yes and N answers No.
MsgAnswer MsgBox(QWidget* owner, const Message& message);
/// Shows an Ok box with an icon.
void Inform(QWidget* owner, const QString& text, MsgIcon icon, const QString& title);
/// Shows a Yes/No box with the question icon. Returns true for Yes.
bool Ask(QWidget* owner, const QString& text, const QString& title);
/// Shows the standard error box: the exception's description, the stop icon and the title "Error
/// occured".
void ShowError(QWidget* owner, const std::exception& failure);

/// The two test hooks that replace the windows that would wait for the user. Each setter returns
/// the previous presenter; an empty function restores the real window.
namespace Modal {
using BoxPresenter = std::function<MsgAnswer(QWidget* owner, const Message& message)>;
BoxPresenter SetBoxPresenter(BoxPresenter presenter);
/// Called in place of showing a form modally and waiting. It may drive the form and close it;
/// Form::ShowModal returns when it returns.
using FormPresenter = std::function<void(Form& form, QWidget* owner)>;
FormPresenter SetFormPresenter(FormPresenter presenter);
/// Shows a form modally with an event loop of its own. ShowModal does this if no presenter is set;
/// a presenter may call it.
void Run(Form& form, QWidget* owner);
/// Calls the presenter, or Run if none is set. ShowModal is implemented by this.
void Present(Form& form, QWidget* owner);
/// Returns the number of boxes and modal forms shown so far, by a presenter or for real.
int Count();
} // namespace Modal

} // namespace TradeForms
