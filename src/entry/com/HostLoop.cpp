#include "entry/com/HostLoop.h"

#include "controls/ModalScope.h"
#include "entry/com/HostWindows.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QScopedValueRollback>
#include <QThread>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <iterator>
#include <string>

namespace TradeForms {

namespace {

/// The hook's instance: a hook procedure has no user data.
HostLoop* current = nullptr;

/// Whether a message loop of ours is running.
bool isOurLoopRunning()
{
    return Modal::Scope::Open() > 0 || QThread::currentThread()->loopLevel() > 0;
}

} // namespace

HostLoop::HostLoop()
{
    for (UINT i = 0; i < kKeys; ++i)
        otherNames_[i] = RegisterWindowMessageW((L"TradeForms.Key." + std::to_wstring(i)).c_str());
    quitting_.setInterval(std::chrono::milliseconds(10));
    QObject::connect(&quitting_, &QTimer::timeout, [this] { passQuitOn(); });
    QAbstractEventDispatcher::instance()->installNativeEventFilter(this);
    current = this;
    hook_ = SetWindowsHookExW(WH_GETMESSAGE, sawMessage, nullptr, GetCurrentThreadId());
}

HostLoop::~HostLoop()
{
    UnhookWindowsHookEx(hook_);
    current = nullptr;
}

LRESULT CALLBACK HostLoop::sawMessage(int code, WPARAM removed, LPARAM message)
{
    if (code == HC_ACTION && removed == PM_REMOVE && current)
        current->taken(*reinterpret_cast<MSG*>(message));
    return CallNextHookEx(nullptr, code, removed, message);
}

void HostLoop::taken(MSG& message)
{
    if (message.message == WM_QUIT && isOurLoopRunning()) {
        quitCode_ = int(message.wParam);
        message.message = WM_NULL;
        quitting_.start();
        return;
    }
    // While a key is delivered, Qt peeks the queue for the character that the key types.
    if (delivering_ > 0)
        return;
    if (const UINT other = otherNameOf(message.message); other && IsOwnWindow(message.hwnd))
        message.message = other;
}

bool HostLoop::nativeEventFilter(const QByteArray&, void* message, qintptr* result)
{
    MSG key = *static_cast<MSG*>(message);
    key.message = keyOf(key.message);
    if (!key.message)
        return false;
    const QScopedValueRollback<int> delivering(delivering_, delivering_ + 1);
    TranslateMessage(&key);
    const LRESULT answer = DispatchMessageW(&key);
    if (result)
        *result = answer;
    return true;
}

void HostLoop::passQuitOn()
{
    if (isOurLoopRunning()) {
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        Modal::EndAll();
        return;
    }
    quitting_.stop();
    PostQuitMessage(quitCode_);
}

UINT HostLoop::otherNameOf(UINT key) const
{
    return key >= WM_KEYFIRST && key <= WM_KEYLAST ? otherNames_[key - WM_KEYFIRST] : 0;
}

UINT HostLoop::keyOf(UINT otherName) const
{
    const auto found = std::find(std::begin(otherNames_), std::end(otherNames_), otherName);
    return found == std::end(otherNames_)
               ? 0
               : WM_KEYFIRST + UINT(std::distance(std::begin(otherNames_), found));
}

} // namespace TradeForms
