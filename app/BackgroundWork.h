#pragma once

#include <TradeForms/WorkProgress.h>

#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>

class QThread;

namespace Host {

/// Runs long work on a thread of its own. Its signals are sent on the thread of this object.
class BackgroundWork : public QObject {
    Q_OBJECT

public:
    /// The work: returns the message for the user; what it raises is reported as a failure.
    using Work = std::function<QString(const TradeForms::OnProgress&)>;

    explicit BackgroundWork(QObject* parent);
    /// Cancels the work and waits for its end.
    ~BackgroundWork() override;

    /// Starts work. Only while none is running.
    void Start(Work work);
    bool IsRunning() const { return thread_ != nullptr; }
    /// Asks the work to cancel.
    void Stop() { isStopWanted_ = true; }

Q_SIGNALS:
    void Advanced(const TradeForms::WorkProgress& progress);
    void Done(const QString& text);
    void Failed(const QString& text);
    void Stopped();

private:
    void run(const Work& work);
    bool advance(const TradeForms::WorkProgress& progress);
    void end(const std::function<void()>& tell);

    std::unique_ptr<QThread> thread_;
    std::atomic<bool> isStopWanted_ = false;
    std::atomic<bool> isTelling_ = false; ///< a progress signal is still queued
};

} // namespace Host
