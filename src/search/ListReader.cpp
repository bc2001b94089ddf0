#include "search/ListReader.h"

#include "controls/Form.h"
#include "controls/Hourglass.h"
#include "host/HostContext.h"

#include <QGuiApplication>
#include <QTimerEvent>

#include <utility>

namespace TradeForms {

namespace {

constexpr int firstRows = 20'000;      ///< read at once: some hundredths of a second
constexpr int rowsOfPiece = 256;       ///< between two looks at the clock
constexpr int timeOfPiece = 12;        ///< milliseconds in which no key is heard
constexpr int typingPause = 200;       ///< milliseconds; keys that follow each other come sooner
constexpr int pauseOfState = 100;      ///< milliseconds between two words about the state
constexpr qint64 longWork = 5'000'000; ///< a good tenth of a second

} // namespace

template <class Step> void ListReader::orAbandon(Step step)
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
        const bool isTyping = asked_.isValid() && asked_.elapsed() < typingPause;
        asked_.start();
        goOnAfter(isTyping ? typingPause : 0);
        return;
    }
    orAbandon([this] {
        begin();
        if (reading_->ReadOn(firstRows))
            publish();
        else
            goOnAfter(0);
    });
}

void ListReader::Finish()
{
    if (!IsReading())
        return;
    const Hourglass hourglass;
    orAbandon([this] { readFor(-1); });
}

void ListReader::Abandon()
{
    reading_.reset();
    if (!IsReading())
        return;
    timer_.stop();
    tell();
}

void ListReader::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == timer_.timerId())
        form_.Guard([this] { orAbandon([this] { readFor(timeOfPiece); }); });
}

void ListReader::begin()
{
    reading_.emplace(OnBegin(), HostContext::Database());
}

void ListReader::readFor(int milliseconds)
{
    QElapsedTimer elapsed;
    elapsed.start();
    if (!reading_) {
        begin();
        timer_.start(0, this);
    }
    while (!reading_->ReadOn(rowsOfPiece)) {
        if (milliseconds >= 0 && elapsed.elapsed() >= milliseconds) {
            if (told_.elapsed() >= pauseOfState)
                tell();
            return;
        }
    }
    publish();
}

void ListReader::publish()
{
    timer_.stop();
    wasLong_ = reading_->RowCount() > firstRows || reading_->Work() > longWork;
    const QString text = reading_->Text();
    Recordset rows = reading_->Take();
    reading_.reset();
    OnRead(std::move(rows), text);
}

void ListReader::goOnAfter(int milliseconds)
{
    timer_.start(milliseconds, this);
    tell();
}

void ListReader::tell()
{
    told_.start();
    OnState();
}

} // namespace TradeForms
