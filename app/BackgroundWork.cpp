#include "BackgroundWork.h"

#include <TradeForms/Failure.h>

#include <QThread>

namespace Host {

using TradeForms::WorkProgress;

BackgroundWork::BackgroundWork(QObject* parent) : QObject(parent) {}

BackgroundWork::~BackgroundWork()
{
    Stop();
    if (thread_)
        thread_->wait();
}

void BackgroundWork::Start(Work work)
{
    isStopWanted_ = false;
    thread_.reset(QThread::create([this, work = std::move(work)] { run(work); }));
    thread_->start();
}

void BackgroundWork::run(const Work& work)
{
    try {
        const QString text =
            work([this](const WorkProgress& progress) { return advance(progress); });
        end([this, text] { Q_EMIT Done(text); });
    } catch (const TradeForms::CancelledFailure&) {
        end([this] { Q_EMIT Stopped(); });
    } catch (const std::exception& failure) {
        const QString text = QString::fromUtf8(failure.what());
        end([this, text] { Q_EMIT Failed(text); });
    }
}

/// One queued signal at a time: the work reports progress more often than it can be shown.
bool BackgroundWork::advance(const WorkProgress& progress)
{
    if (!isTelling_.exchange(true)) {
        QMetaObject::invokeMethod(
            this,
            [this, progress] {
                isTelling_ = false;
                Q_EMIT Advanced(progress);
            },
            Qt::QueuedConnection);
    }
    return !isStopWanted_;
}

void BackgroundWork::end(const std::function<void()>& tell)
{
    QMetaObject::invokeMethod(
        this,
        [this, tell] {
            thread_->wait();
            thread_.reset();
            tell();
        },
        Qt::QueuedConnection);
}

} // namespace Host
