#pragma once

#include <functional>
#include <memory>

class QEventLoop;

namespace TradeForms::Modal {

/// Creates an object that, while it lives, blocks keyboard and mouse input to windows outside this
/// toolkit, such as those of a host program.
using Barrier = std::function<std::shared_ptr<void>()>;
/// Sets the barrier for modal windows shown from now on and returns the previous one. An empty
/// function blocks nothing.
Barrier SetBarrier(Barrier barrier);

/// Represents a modal window on the screen. To be created before the window is shown.
class Scope {
public:
    Scope();
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

    /// To be called just before the window is hidden: removes the barrier. The windows behind it
    /// must accept input by then, or the system would activate another program. Further calls do
    /// nothing.
    void End();

    /// Runs the event loop until it is left because the window closes or EndAll is called.
    void Wait(QEventLoop& loop);

    /// Returns the number of modal windows on the screen.
    static int Open();

private:
    std::shared_ptr<void> barrier_;
    bool ended_ = false;
};

/// Ends the wait for every modal window, the innermost first, as if the user had cancelled. For use
/// when the host program is exiting.
void EndAll();

} // namespace TradeForms::Modal
