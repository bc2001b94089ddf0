#pragma once

#include <QObject>
#include <QPointer>
#include <QWindow>

#include <memory>
#include <vector>

class QKeyEvent;

namespace TradeForms {

/// Keeps the keys that come in after a modal form has closed and before the step that showed it
/// goes on. That step is in the midst of its work: a key must not start another one on the same
/// form. The keys come back when the step is done, to whatever window has the keyboard then, so a
/// fast typist loses nothing. Clicks of that moment are dropped.
class TypeAhead : public QObject {
    Q_OBJECT
public:
    TypeAhead();
    ~TypeAhead() override;

    /// The modal form has closed.
    void Hold();
    /// The step goes on.
    void Release();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Key {
        std::shared_ptr<QKeyEvent> Event;
        QPointer<QWindow> For; ///< the window it came in for
    };
    std::vector<Key> keys_;
};

} // namespace TradeForms
