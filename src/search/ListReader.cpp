#include "search/ListReader.h"

#include "controls/Form.h"
#include "controls/Hourglass.h"
#include "host/HostContext.h"

#include <QGuiApplication>
#include <QTimerEvent>

#include <utility>

namespace TradeForms {

namespace {

constexpr int firstChunkRows = 20'000; ///< read before Read returns: some hundredths of a second
constexpr int chunkRows = 256;         ///< between two checks of the clock
constexpr int chunkMilliseconds = 12;  ///< during which no key is handled
constexpr int typingPauseMilliseconds = 200;   ///< keys that come faster belong to one word
constexpr int stateIntervalMilliseconds = 100; ///< between two calls of OnState
constexpr qint64 longReadingSteps =
    5'000'000; ///< of the database engine: more than a tenth of a second

} // namespace

template <class Step> void ListReader::abandonOnFailure(Step step)
{
    try {
        step();
    } catch (...) {
        Abandon();
        throw;
    }
}

void ListReader::Read()
{
    reading_.reset();
    if (wasLong_ || IsReading()) {
        const bool isTyping =
            sinceWaitingRead_.isValid() && sinceWaitingRead_.elapsed() < typingPauseMilliseconds;
        sinceWaitingRead_.start();
        readOnAfter(isTyping ? typingPauseMilliseconds : 0);
        return;
    }
    abandonOnFailure([this] {
        openReading();
        if (reading_->ReadOn(firstChunkRows))
            publish();
        else
            readOnAfter(0);
    });
}

void ListReader::Finish()
{
    if (!IsReading())
        return;
    const Hourglass hourglass;
    abandonOnFailure([this] { readFor(-1); });
}

void ListReader::Abandon()
{
    reading_.reset();
    if (!IsReading())
        return;
    timer_.stop();
    reportState();
}

void ListReader::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == timer_.timerId())
        form_.Guard([this] { abandonOnFailure([this] { readFor(chunkMilliseconds); }); });
}

void ListReader::openReading()
{
    reading_.emplace(OnBegin(), HostContext::Database());
}

void ListReader::readFor(int milliseconds)
{
    QElapsedTimer elapsed;
    elapsed.start();
    if (!reading_) {
        openReading();
        timer_.start(0, this);
    }
    while (!reading_->ReadOn(chunkRows)) {
        if (milliseconds >= 0 && elapsed.elapsed() >= milliseconds) {
            if (sinceReport_.elapsed() >= stateIntervalMilliseconds)
                reportState();
            return;
        }
    }
    publish();
}

void ListReader::publish()
{
    timer_.stop();
    wasLong_ = reading_->RowCount() > firstChunkRows || reading_->Work() > longReadingSteps;
    const QString text = reading_->Text();
    Recordset rows = reading_->Take();
    reading_.reset();
    OnRead(std::move(rows), text);
}

void ListReader::readOnAfter(int milliseconds)
{
    timer_.start(milliseconds, this);
    reportState();
}

void ListReader::reportState()
{
    sinceReport_.start();
    OnState();
}

} // namespace TradeForms
