#pragma once

#include <QThread>

#include <chrono>

namespace TradeForms {

/// The time that goes by while the lock of another process is waited for.
class WaitClock {
public:
    using Milliseconds = std::chrono::milliseconds;

    virtual ~WaitClock() = default;

    /// Since a moment that stays the same.
    virtual Milliseconds Now()
    {
        return std::chrono::duration_cast<Milliseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
    }
    virtual void Sleep(Milliseconds pause)
    {
        QThread::msleep(static_cast<unsigned long>(pause.count()));
    }
};

} // namespace TradeForms
