#pragma once

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <windows.h>

namespace TradeForms {

/// Keeps the library's windows alive in a message loop that is the host's. It sees each message of
/// this thread when it is taken from the queue, before the host's loop does.
///
/// A host's loop may show every key to its accelerators and its dialogs first. So a key for one of
/// our windows goes through the host's loop under another name, which only our windows know, and
/// gets its own back when it arrives.
///
/// A host may end its loop while a loop of ours is running, for a modal window. That loop would
/// take the quit message away from it; it is kept, the modal windows end, and the host gets it.
class HostLoop : public QAbstractNativeEventFilter {
public:
    HostLoop();
    ~HostLoop() override;
    HostLoop(const HostLoop&) = delete;
    HostLoop& operator=(const HostLoop&) = delete;

    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
    static LRESULT CALLBACK sawMessage(int code, WPARAM removed, LPARAM message);

    void taken(MSG& message);
    void passQuitOn();
    UINT otherNameOf(UINT key) const;
    UINT keyOf(UINT otherName) const;

    static constexpr UINT kKeys = WM_KEYLAST - WM_KEYFIRST + 1;

    UINT otherNames_[kKeys];
    HHOOK hook_;
    QTimer quitting_;
    int quitCode_ = 0;
    int delivering_ = 0; ///< keys that are on their way into a window, one within the other
};

} // namespace TradeForms
