#pragma once

#include "controls/FileDialog.h"

#include <deque>

namespace TradeForms {

/// The Save As dialogs that a test expects, in order, with the answers to them. An unexpected one,
/// or one not shown by the end of the scope, fails the test.
class ExpectedFiles {
public:
    ExpectedFiles();
    ~ExpectedFiles();
    ExpectedFiles(const ExpectedFiles&) = delete;
    ExpectedFiles& operator=(const ExpectedFiles&) = delete;

    /// Adds an expected dialog for files with this suffix. answer: the path; empty if the user
    /// cancels.
    void Expect(const QString& suffix, const QString& answer);

private:
    struct Expected {
        QString Suffix;
        QString Answer;
    };

    std::deque<Expected> expected_;
    Modal::SavePresenter previous_;
};

} // namespace TradeForms
