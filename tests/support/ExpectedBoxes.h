#pragma once

#include "controls/MsgBox.h"

#include <deque>
#include <functional>

namespace TradeForms {

/// The message boxes that a test expects, in their order, and the answers to them. A box that
/// comes unexpectedly, or is another one, fails the test and gets the answer that changes
/// least; so does a box that has not come by the end of the scope. Scopes may be nested: the
/// innermost answers.
class ExpectedBoxes {
public:
    ExpectedBoxes();
    ~ExpectedBoxes();
    ExpectedBoxes(const ExpectedBoxes&) = delete;
    ExpectedBoxes& operator=(const ExpectedBoxes&) = delete;

    /// While the box is up, meanwhile runs.
    void Expect(const Message& message, MsgAnswer answer = MsgAnswer::Ok,
                std::function<void()> meanwhile = {});
    /// An Ok box whose text is the provider's own and only must not be empty.
    void ExpectAny(MsgIcon icon, const QString& title);
    /// How many have not come yet.
    int Left() const { return int(expected_.size()); }

private:
    struct Expected {
        Message Box; ///< an empty text stands for any
        MsgAnswer Answer;
        std::function<void()> Meanwhile;
    };

    MsgAnswer Answer(const Message& message);

    std::deque<Expected> expected_;
    Modal::BoxPresenter previous_;
};

/// The modal forms that a test expects, in their order. Each is really shown, and waited for
/// until it is on the screen; then its callback drives it, and has to close it.
class ExpectedDialogs {
public:
    using Drive = std::function<void(Form& dialog)>;

    ExpectedDialogs();
    ~ExpectedDialogs();
    ExpectedDialogs(const ExpectedDialogs&) = delete;
    ExpectedDialogs& operator=(const ExpectedDialogs&) = delete;

    void Expect(Drive drive);
    /// How many have not come yet.
    int Left() const { return int(expected_.size()); }

private:
    void Present(Form& form, QWidget* owner);

    std::deque<Drive> expected_;
    Modal::FormPresenter previous_;
};

/// Within its scope the real boxes and dialogs come up and wait for keys and clicks.
class RealModals {
public:
    RealModals();
    ~RealModals();
    RealModals(const RealModals&) = delete;
    RealModals& operator=(const RealModals&) = delete;

private:
    Modal::BoxPresenter boxes_;
    Modal::FormPresenter forms_;
};

} // namespace TradeForms
