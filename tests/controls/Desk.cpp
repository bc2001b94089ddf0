#include "Desk.h"

namespace TradeForms {

Desk::Desk()
    : A(*new Txt(s("TxtA"))), B(*new Txt(s("TxtB"))), C(*new UTxt(s("TxtC"))),
      Date(*new DTPicker(s("DtpDate"))), Btn(*new JeweledButton(s("BtnB"), s("بند"), s("Close"))),
      Rows(*new Grid), Words(*new Label(s("LblWords"), s("words"))), column_(new QVBoxLayout(this))
{
    SetWindowCaption(s("Desk"));
    column_->setContentsMargins(40, 40, 40, 40);
    Add(&A);
    Add(&B);
    Add(&C);
    Add(&Date);
    Add(&Btn);
    Add(&Rows);
    Add(&Words);
    Btn.OnClick += [this] { Note(s("BtnB.Click")); };
    SetTabOrderOf({&A, &B, &C, &Date, &Btn, &Rows});
    resize(400, 600);
}

template <typename T> T& Desk::Add(T* control)
{
    column_->addWidget(control);
    const auto note = [this, control](const char* what) {
        const Control* active = ActiveControl();
        Note(control->Name() + s(what) + s("(") + (active ? active->Name() : QString()) + s(")"));
    };
    control->OnGotFocus += [note] { note(".GotFocus"); };
    control->OnLostFocus += [note] { note(".LostFocus"); };
    control->OnValidate += [note](bool&) { note(".Validate"); };
    return *control;
}

void Desk::FormKeyDown(KeyPress& key)
{
    if (onKeyDown)
        onKeyDown(key);
    if (!key.Swallowed)
        Form::FormKeyDown(key);
}

void Desk::FormKeyPress()
{
    if (onKeyPress)
        onKeyPress();
}

void Desk::QueryUnload(bool& cancel)
{
    if (onQueryUnload)
        onQueryUnload(cancel);
}

void Desk::HandlerFailed(const std::exception& failure)
{
    failures << QString::fromUtf8(failure.what());
}

DeskTest::DeskTest()
{
    Activate(desk);
    desk.TakeLog();
}

} // namespace TradeForms
