#pragma once

#include "controls/FileDialog.h"

#include <deque>

namespace TradeForms {

/// The questions where to save a file that a test expects, in their order, and the answers to
/// them. One that comes unexpectedly, or has not come by the end of the scope, fails the test.
class ExpectedFiles {
public:
    ExpectedFiles();
    ~ExpectedFiles();
    ExpectedFiles(const ExpectedFiles&) = delete;
    ExpectedFiles& operator=(const ExpectedFiles&) = delete;

    /// An empty answer is the user's Cancel.
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
