#include "entry/com/HostWindows.h"

#include <QWidget>

namespace TradeForms {

namespace {

BOOL CALLBACK closeOne(HWND window, LPARAM closed)
{
    if (IsWindowVisible(window) && IsWindowEnabled(window) && !IsOwnWindow(window)) {
        EnableWindow(window, FALSE);
        reinterpret_cast<std::vector<HWND>*>(closed)->push_back(window);
    }
    return TRUE;
}

/// The host may have destroyed a window meanwhile, and its handle may be another thread's by now.
bool isStillThere(HWND window)
{
    return GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId();
}

} // namespace

bool IsOwnWindow(HWND window)
{
    for (; window; window = GetAncestor(window, GA_PARENT))
        if (QWidget::find(WId(window)))
            return true;
    return false;
}

ClosedHostWindows::ClosedHostWindows()
{
    EnumThreadWindows(GetCurrentThreadId(), closeOne, reinterpret_cast<LPARAM>(&closed_));
}

// The one at the back first, so that the host finds them as they were closed.
ClosedHostWindows::~ClosedHostWindows()
{
    for (auto window = closed_.crbegin(); window != closed_.crend(); ++window)
        if (isStillThere(*window))
            EnableWindow(*window, TRUE);
}

} // namespace TradeForms
