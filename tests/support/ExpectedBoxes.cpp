#include "support/ExpectedBoxes.h"

#include "controls/Form.h"
#include "support/Keys.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <utility>

namespace TradeForms {

namespace {

std::string told(const Message& message)
{
    const QString buttons = message.Buttons == MsgButtons::Ok   ? QStringLiteral("Ok")
                            : message.Default == MsgAnswer::Yes ? QStringLiteral("Yes/No")
                                                                : QStringLiteral("yes/No by Enter");
    return QStringLiteral("\"%1\", icon %2, title \"%3\", %4")
        .arg(message.Text)
        .arg(int(message.Icon))
        .arg(message.Title, buttons)
        .toStdString();
}

/// An expected box with an empty text matches any text.
bool matches(const Message& expected, const Message& box)
{
    const bool text = expected.Text.isEmpty() ? !box.Text.isEmpty() : expected.Text == box.Text;
    return text && expected.Icon == box.Icon && expected.Title == box.Title &&
           expected.Buttons == box.Buttons && expected.Default == box.Default;
}

MsgAnswer safeAnswer(const Message& message)
{
    return message.Buttons == MsgButtons::Ok ? MsgAnswer::Ok : MsgAnswer::No;
}

std::string nameOf(const Form& form)
{
    return (form.windowTitle() + QLatin1String(" (") + form.objectName() + QLatin1Char(')'))
        .toStdString();
}

/// Calls a test's callback; its exceptions must not propagate through an event loop.
void run(const std::function<void()>& callback)
{
    try {
        callback();
    } catch (const std::exception& failure) {
        ADD_FAILURE() << "The callback of an expected box or dialog failed: " << failure.what();
    }
}

} // namespace

ExpectedBoxes::ExpectedBoxes()
    : previous_(Modal::SetBoxPresenter(
          [this](QWidget*, const Message& message) { return Answer(message); }))
{
}

ExpectedBoxes::~ExpectedBoxes()
{
    Modal::SetBoxPresenter(std::move(previous_));
    for (const Expected& missing : expected_)
        ADD_FAILURE() << "A message box has not come: " << told(missing.Box);
}

void ExpectedBoxes::Expect(const Message& message, MsgAnswer answer,
                           std::function<void()> meanwhile)
{
    expected_.push_back({message, answer, std::move(meanwhile)});
}

void ExpectedBoxes::ExpectAny(MsgIcon icon, const QString& title)
{
    Expect({{}, icon, title});
}

MsgAnswer ExpectedBoxes::Answer(const Message& message)
{
    if (expected_.empty()) {
        ADD_FAILURE() << "Unexpected message box: " << told(message);
        return safeAnswer(message);
    }
    if (!matches(expected_.front().Box, message)) {
        ADD_FAILURE() << "Message box: " << told(message)
                      << "\nexpected: " << told(expected_.front().Box);
        return safeAnswer(message);
    }
    const Expected expected = std::move(expected_.front());
    expected_.pop_front();
    if (expected.Meanwhile)
        run(expected.Meanwhile);
    return expected.Answer;
}

ExpectedDialogs::ExpectedDialogs()
    : previous_(
          Modal::SetFormPresenter([this](Form& form, QWidget* owner) { Present(form, owner); }))
{
}

ExpectedDialogs::~ExpectedDialogs()
{
    Modal::SetFormPresenter(std::move(previous_));
    if (!expected_.empty())
        ADD_FAILURE() << expected_.size() << " expected dialogs have not come";
}

void ExpectedDialogs::Expect(Drive drive)
{
    expected_.push_back(std::move(drive));
}

void ExpectedDialogs::Present(Form& form, QWidget* owner)
{
    if (expected_.empty()) {
        ADD_FAILURE() << "Unexpected dialog: " << nameOf(form);
        return;
    }
    const Drive drive = std::move(expected_.front());
    expected_.pop_front();
    QTimer::singleShot(0, &form, [&form, &drive] {
        Activate(form);
        run([&] { drive(form); });
        if (form.isHidden())
            return;
        ADD_FAILURE() << "The dialog was left open: " << nameOf(form);
        form.hide();
    });
    Modal::Run(form, owner);
}

RealModals::RealModals() : boxes_(Modal::SetBoxPresenter({})), forms_(Modal::SetFormPresenter({}))
{
}

RealModals::~RealModals()
{
    Modal::SetBoxPresenter(std::move(boxes_));
    Modal::SetFormPresenter(std::move(forms_));
}

} // namespace TradeForms
