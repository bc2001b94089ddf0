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

/// Reads a list so that the user can go on typing, be it as long as it may.
///
/// A list of some thousand rows is there when Read returns. Of a longer one the rest is read in
/// pieces, for each of which the event loop finds time when no key is waiting; a Read that comes
/// meanwhile gives it up. After a list that was long, or long in the making, the next one begins in
/// the event loop too, and while keys follow each other it waits for a pause, since the database
/// cannot be stopped between two rows that lie far apart. Who needs the list that belongs to what
/// is typed calls Finish. Until it is whole nobody sees anything of it.
class ListReader : public QObject {
    Q_OBJECT
public:
    explicit ListReader(Form& form) : form_(form) {}

    /// What is to be read; asked for when the reading begins.
    std::function<Statement()> OnBegin;
    /// The list is whole. The text is that of its statement.
    std::function<void(Recordset rows, const QString& text)> OnRead;
    /// A long reading has begun, gone on or ended: see IsReading and RowCount.
    std::function<void()> OnState;

    /// Raises what OnBegin and OnRead raise, and ProviderFailure; what happens later in the event
    /// loop goes to the form's guard. Either way the reading is over then.
    void Read();
    /// Reads what is still to be read, if anything. Raises as Read does.
    void Finish();
    /// Gives up what is being read.
    void Abandon();

    bool IsReading() const { return timer_.isActive(); }
    /// Rows of the unfinished list.
    int RowCount() const { return reading_ ? reading_->RowCount() : 0; }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void begin();
    /// Reads on until the list is whole or the time is over; -1 is no limit.
    void readFor(int milliseconds);
    void publish();
    void goOnAfter(int milliseconds);
    template <class Step> void orAbandon(Step step);
    void tell();

    Form& form_;
    std::optional<Reading> reading_;
    QBasicTimer timer_;
    QElapsedTimer asked_; ///< since the last Read that had to wait
    QElapsedTimer told_;  ///< since OnState ran
    bool wasLong_ = false;
};

} // namespace TradeForms
