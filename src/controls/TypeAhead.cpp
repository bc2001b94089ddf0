#include "controls/TypeAhead.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace TradeForms {

namespace {

/// Returns the window that has the keyboard focus, or the given one: while the focus changes
/// between windows, no window has it for a moment.
QWindow* keyboardWindow(QWindow* otherwise)
{
    if (const QWidget* modal = QApplication::activeModalWidget())
        return modal->windowHandle();
    QWindow* focused = QGuiApplication::focusWindow();
    return focused ? focused : otherwise;
}

} // namespace

TypeAhead::TypeAhead() = default;

TypeAhead::~TypeAhead() = default;

void TypeAhead::Hold()
{
    qApp->installEventFilter(this);
}

void TypeAhead::Release()
{
    qApp->removeEventFilter(this);
    // Posted individually: a key may open a window that has to receive the keys after it.
    for (const Key& key : keys_) {
        QMetaObject::invokeMethod(
            qApp,
            [key] {
                if (QWindow* window = keyboardWindow(key.For))
                    QCoreApplication::sendEvent(window, key.Event.get());
            },
            Qt::QueuedConnection);
    }
    keys_.clear();
}

bool TypeAhead::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWindowType())
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        keys_.push_back({std::shared_ptr<QKeyEvent>(static_cast<QKeyEvent*>(event)->clone()),
                         static_cast<QWindow*>(watched)});
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return true;
    default:
        return false;
    }
}

} // namespace TradeForms
