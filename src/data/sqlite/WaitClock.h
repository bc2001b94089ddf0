#pragma once

#include <QThread>

#include <chrono>

namespace TradeForms {

/// The clock for waiting for a lock of another process. Tests replace it.
class WaitClock {
public:
    using Milliseconds = std::chrono::milliseconds;

    virtual ~WaitClock() = default;

    /// The time since a fixed point in time.
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
