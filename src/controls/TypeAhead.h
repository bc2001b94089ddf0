#pragma once

#include <QObject>
#include <QPointer>
#include <QWindow>

#include <memory>
#include <vector>

class QKeyEvent;

namespace TradeForms {

/// Queues the keys that arrive between the closing of a modal form and the return to the handler
/// that showed it. That handler is not finished, so a key must not start another one on the same
/// form. The keys are delivered when the handler is done, to the window that has the keyboard focus
/// then, so that a fast typist loses nothing. Mouse clicks in that period are dropped.
class TypeAhead : public QObject {
    Q_OBJECT
public:
    TypeAhead();
    ~TypeAhead() override;

    /// Starts queueing: the modal form has closed.
    void Hold();
    /// Stops queueing and posts the queued keys: the handler continues.
    void Release();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Key {
        std::shared_ptr<QKeyEvent> Event;
        QPointer<QWindow> For; ///< the window that it was sent to
    };
    std::vector<Key> keys_;
};

} // namespace TradeForms
