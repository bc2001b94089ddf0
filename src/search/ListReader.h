#pragma once

#include "data/Reading.h"
#include "data/Statement.h"

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace TradeForms {

class Form;

/// Reads a list of any length without holding up the user's typing.
///
/// A list of up to 20,000 rows is complete when Read returns. The rest of a longer one is read in
/// chunks by a timer of the event loop, between the user's keys; another Read abandons it. After a
/// long list, or one that took the database long, the next one is read by the timer from its first
/// row, and while the user types it waits for a pause, because a query cannot be interrupted
/// between two rows. A caller that needs the complete list at once calls Finish. OnRead gives the
/// list only when it is complete.
class ListReader : public QObject {
    Q_OBJECT
public:
    explicit ListReader(Form& form) : form_(form) {}

    /// Returns the statement to read. Called when the reading begins.
    std::function<Statement()> OnBegin;
    /// Called with the complete list and the text of its statement.
    std::function<void(Recordset rows, const QString& text)> OnRead;
    /// Called when a reading in chunks has begun, progressed or ended: see IsReading and RowCount.
    std::function<void()> OnState;

    /// Starts reading. Raises what OnBegin and OnRead raise, and ProviderFailure; failures of the
    /// timer go to the form's guard. A failure ends the reading.
    void Read();
    /// Reads the remaining rows of an unfinished list. Raises as Read does.
    void Finish();
    /// Drops an unfinished list.
    void Abandon();

    bool IsReading() const { return timer_.isActive(); }
    /// Rows read so far of an unfinished list, else 0.
    int RowCount() const { return reading_ ? reading_->RowCount() : 0; }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void openReading();
    /// Reads until the list is complete or the time is over; -1 is no limit.
    void readFor(int milliseconds);
    void publish();
    void readOnAfter(int milliseconds);
    template <class Step> void abandonOnFailure(Step step);
    void reportState();

    Form& form_;
    std::optional<Reading> reading_;
    QBasicTimer timer_;
    QElapsedTimer sinceWaitingRead_; ///< since the last Read that was left to the timer
    QElapsedTimer sinceReport_;      ///< since the last call of OnState
    bool wasLong_ = false;
};

} // namespace TradeForms
