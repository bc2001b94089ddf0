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

/// What a message box says.
struct Message {
    QString Text;
    MsgIcon Icon = MsgIcon::None;
    QString Title;
    MsgButtons Buttons = MsgButtons::Ok;
    MsgAnswer Default = MsgAnswer::Yes; ///< of Yes and No: what Enter answers
};

/// Shows a message box over a window and waits for the answer. Esc answers No, or Ok where that
/// is the one button; Enter answers the default button, Y and N the two others.
MsgAnswer MsgBox(QWidget* owner, const Message& message);
/// An Ok box with an icon.
void Inform(QWidget* owner, const QString& text, MsgIcon icon, const QString& title);
/// A Yes/No box with the question icon. True for Yes.
bool Ask(QWidget* owner, const QString& text, const QString& title);
/// The system's one error box: the failure's description, the stop icon, "Error occured".
void ShowError(QWidget* owner, const std::exception& failure);

/// The two seams through which tests answer what would stop and wait for the user. Each setter
/// gives back the one before; an empty function is the real thing.
namespace Modal {
using BoxPresenter = std::function<MsgAnswer(QWidget* owner, const Message& message)>;
BoxPresenter SetBoxPresenter(BoxPresenter presenter);
/// Called when a form is about to be shown modally, in place of showing and waiting. It may
/// drive the form and unload it; Form::ShowModal returns when it returns.
using FormPresenter = std::function<void(Form& form, QWidget* owner)>;
FormPresenter SetFormPresenter(FormPresenter presenter);
/// Shows a form modally with its own event loop: what ShowModal does where no presenter is set,
/// and what a presenter may call.
void Run(Form& form, QWidget* owner);
/// What ShowModal does: the presenter's way, or Run.
void Present(Form& form, QWidget* owner);
/// How many boxes and modal forms have been shown so far, by a presenter or for real.
int Count();
} // namespace Modal

} // namespace TradeForms
