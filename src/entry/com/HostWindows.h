#pragma once

#include <windows.h>

#include <memory>
#include <vector>

namespace TradeForms {

/// Whether a window or its top-level window belongs to this library.
bool IsOwnWindow(HWND window);

/// The host's windows on this thread, disabled while this lives. Those that take keys and clicks
/// when it is made are the ones that take them again afterwards, and no others.
class ClosedHostWindows {
public:
    ClosedHostWindows();
    ~ClosedHostWindows();
    ClosedHostWindows(const ClosedHostWindows&) = delete;
    ClosedHostWindows& operator=(const ClosedHostWindows&) = delete;

private:
    std::vector<HWND> closed_;
};

} // namespace TradeForms
