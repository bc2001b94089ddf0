#pragma once

#include "controls/MsgBox.h"

#include <deque>
#include <functional>

namespace TradeForms {

/// The message boxes that a test expects, in order, with the answers to them. An unexpected or
/// different box fails the test and gets the answer that changes least; a box that has not been
/// shown by the end of the scope fails the test too. Scopes may be nested: the innermost answers.
class ExpectedBoxes {
public:
    ExpectedBoxes();
    ~ExpectedBoxes();
    ExpectedBoxes(const ExpectedBoxes&) = delete;
    ExpectedBoxes& operator=(const ExpectedBoxes&) = delete;

    /// Adds an expected box. `meanwhile` is called while the box is open.
    void Expect(const Message& message, MsgAnswer answer = MsgAnswer::Ok,
                std::function<void()> meanwhile = {});
    /// Adds an expected Ok box whose text comes from the provider; it must only be non-empty.
    void ExpectAny(MsgIcon icon, const QString& title);
    /// Returns the number of those not shown yet.
    int Left() const { return int(expected_.size()); }

private:
    struct Expected {
        Message Box; ///< an empty text matches any
        MsgAnswer Answer;
        std::function<void()> Meanwhile;
    };

    MsgAnswer Answer(const Message& message);

    std::deque<Expected> expected_;
    Modal::BoxPresenter previous_;
};

/// The modal forms that a test expects, in order. Each is really shown; once it is on the screen
/// its callback is called, which drives it and has to close it.
class ExpectedDialogs {
public:
    using Drive = std::function<void(Form& dialog)>;

    ExpectedDialogs();
    ~ExpectedDialogs();
    ExpectedDialogs(const ExpectedDialogs&) = delete;
    ExpectedDialogs& operator=(const ExpectedDialogs&) = delete;

    void Expect(Drive drive);
    /// Returns the number of those not shown yet.
    int Left() const { return int(expected_.size()); }

private:
    void Present(Form& form, QWidget* owner);

    std::deque<Drive> expected_;
    Modal::FormPresenter previous_;
};

/// For its lifetime the real boxes and dialogs are shown and wait for keys and clicks.
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
