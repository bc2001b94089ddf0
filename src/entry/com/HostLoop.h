#pragma once

#include <QAbstractNativeEventFilter>
#include <QTimer>

#include <windows.h>

namespace TradeForms {

/// Serves the library's windows in the host's message loop, by a hook that is shown each message of
/// this thread as it is taken from the queue, before the host's loop handles it.
///
/// A host's loop may offer every key to its accelerators and dialogs first. So a key message for
/// one of our windows passes through the host's loop under a private message number, and is turned
/// back when it arrives.
///
/// A host may post its quit message while a modal window of ours runs a loop. That loop would
/// consume the message; it is kept, the modal windows are closed, and the message is posted again
/// for the host.
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
    int delivering_ = 0; ///< depth of nested key deliveries
};

} // namespace TradeForms
