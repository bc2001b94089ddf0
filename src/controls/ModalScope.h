#pragma once

#include <functional>
#include <memory>

class QEventLoop;

namespace TradeForms::Modal {

/// Keeps the keys and clicks of the user from what this program's toolkit does not reach, such as
/// the windows of a host that is made otherwise, for as long as what it gives back lives.
using Barrier = std::function<std::shared_ptr<void>()>;
/// Sets it for all modal windows to come; gives back the one before. An empty one keeps nothing.
Barrier SetBarrier(Barrier barrier);

/// A modal window is up. It is made before the window is shown.
class Scope {
public:
    Scope();
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

    /// The window is about to go from the screen. What stood behind it has to be open by then, or
    /// the system would hand the keyboard to another program.
    void End();

    /// Waits until the loop is left: by the window's closing, or by EndAll.
    void Wait(QEventLoop& loop);

    /// How many modal windows are up.
    static int Open();

private:
    std::shared_ptr<void> barrier_;
    bool ended_ = false;
};

/// Every wait for a modal window ends, the innermost first, as if the user had thought better of
/// it: the host's program is ending.
void EndAll();

} // namespace TradeForms::Modal
