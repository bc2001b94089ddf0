#pragma once

#include <TradeForms/WorkProgress.h>

#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>

class QThread;

namespace Host {

/// Work that takes minutes, on a thread of its own. Its signals come on the thread of this object.
class BackgroundWork : public QObject {
    Q_OBJECT

public:
    /// Does it, and gives what there is to tell the user. What it raises is told as a failure.
    using Work = std::function<QString(const TradeForms::OnProgress&)>;

    explicit BackgroundWork(QObject* parent);
    /// Stops the work and waits for its end.
    ~BackgroundWork() override;

    /// Only while nothing runs.
    void Start(Work work);
    bool IsRunning() const { return thread_ != nullptr; }
    /// Asks the work to end soon.
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
    std::atomic<bool> isTelling_ = false; ///< something was told that has not been heard yet
};

} // namespace Host
