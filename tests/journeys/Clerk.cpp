#include "Clerk.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QThread>
#include <QWidget>
#include <QWindow>
#include <QtTest>

#include <cstdio>
#include <memory>

namespace journeys {

namespace {

QWidget* activeWindow()
{
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup;
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

/// Where no window manager runs, nothing gives the keyboard to another window when one closes.
void activateAsAManagerWould(const QString& window)
{
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->objectName() == window)
            widget->activateWindow();
}

QString focusName()
{
    const QWidget* widget = QApplication::focusWidget();
    while (widget && widget->objectName().isEmpty())
        widget = widget->parentWidget();
    return widget ? widget->objectName() : QString();
}

} // namespace

bool Clerk::Work(const std::function<void(Clerk&)>& script, const std::function<void()>& run)
{
    QThread* thread = QThread::create([this, script] {
        try {
            script(*this);
            done_ = true;
        } catch (const GivenUp&) {
            // The program may stand before a question: leave at once.
            QMetaObject::invokeMethod(
                qApp, [] { std::_Exit(1); }, Qt::QueuedConnection);
        }
    });
    QMetaObject::invokeMethod(
        qApp, [thread] { thread->start(); }, Qt::QueuedConnection);
    run();
    // The script may still look at the screen.
    while (!thread->wait(1))
        QCoreApplication::processEvents();
    delete thread;
    return done_;
}

void Clerk::giveUp(const QString& what)
{
    Picture(QStringLiteral("given-up"));
    std::fprintf(stderr, "journey: %s\n", qPrintable(what));
    std::fflush(stderr);
    throw GivenUp();
}

QString Clerk::onScreen(const std::function<QString(QWidget*)>& look)
{
    QString seen;
    QMetaObject::invokeMethod(
        qApp, [&] { seen = look(activeWindow()); }, Qt::BlockingQueuedConnection);
    return seen;
}

void Clerk::act(const std::function<void(QWidget*)>& doIt)
{
    struct Progress {
        QPointer<QWidget> StartedIn;
        bool Started = false;
        bool Done = false;
    };
    const auto progress = std::make_shared<Progress>();
    // Queued and not waited for: a key may open a window that stays until later keys close it.
    QMetaObject::invokeMethod(
        qApp,
        [doIt, progress] {
            progress->StartedIn = activeWindow();
            progress->Started = true;
            if (progress->StartedIn)
                doIt(progress->StartedIn);
            progress->Done = true;
        },
        Qt::QueuedConnection);
    // Done with, or waiting in a window that it has opened.
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < Patience) {
        const QString state = onScreen([progress](QWidget* active) {
            const bool waits = progress->Started && active && active->isActiveWindow() &&
                               active != progress->StartedIn;
            return progress->Done || waits ? QStringLiteral("on") : QString();
        });
        if (!state.isEmpty())
            return;
        QThread::msleep(1);
    }
    giveUp(QStringLiteral("the program does not answer"));
}

void Clerk::until(const std::function<QString(QWidget*)>& look, const QString& wanted,
                  const QString& what)
{
    QElapsedTimer timer;
    timer.start();
    QString seen;
    do {
        seen = onScreen(look);
        if (seen == wanted)
            return;
        QThread::msleep(2);
    } while (timer.elapsed() < Patience);
    giveUp(QStringLiteral("expected %1 \"%2\", saw \"%3\"").arg(what, wanted, seen));
}

void Clerk::See(const QString& window)
{
    until(
        [window](QWidget* active) {
            if (!active)
                activateAsAManagerWould(window);
            const bool ready = active && active->windowHandle() &&
                               active->windowHandle()->isExposed() && active->isActiveWindow();
            return ready ? active->objectName() : QStringLiteral("(none)");
        },
        window, QStringLiteral("the window"));
}

void Clerk::WaitFor(const QString& control, bool enabled)
{
    until(
        [control](QWidget* active) {
            const QWidget* widget = active ? active->findChild<QWidget*>(control) : nullptr;
            return QString::fromLatin1(!widget ? "missing" : widget->isEnabled() ? "on" : "off");
        },
        QString::fromLatin1(enabled ? "on" : "off"), control);
}

void Clerk::Answer(const QString& text, const QString& title, Qt::Key key)
{
    until(
        [](QWidget* active) {
            return active && active->isActiveWindow()
                       ? active->windowTitle() + QStringLiteral(": ") +
                             active->accessibleDescription()
                       : QString();
        },
        title + QStringLiteral(": ") + text, QStringLiteral("the message"));
    Picture(QStringLiteral("message"));
    Press(key);
}

void Clerk::AnswerLike(const QString& part, const QString& title, Qt::Key key)
{
    until(
        [part](QWidget* active) {
            const bool there = active && active->isActiveWindow() &&
                               active->accessibleDescription().contains(part);
            return there ? active->windowTitle() : QString();
        },
        title, QStringLiteral("a message of the title"));
    Picture(QStringLiteral("message"));
    Press(key);
}

void Clerk::Type(const QString& text)
{
    for (const QChar character : text) {
        act([character](QWidget* active) {
            if (character.unicode() < 128) {
                QTest::keyClick(active->windowHandle(), character.toLatin1());
            } else {
                // No key of the test's keyboard: as a layout would send it.
                QWindow* window = active->windowHandle();
                QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier,
                                QString(character));
                QCoreApplication::sendEvent(window, &press);
                QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier,
                                  QString(character));
                QCoreApplication::sendEvent(window, &release);
            }
        });
    }
}

void Clerk::Press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    act([key, modifiers](QWidget* active) {
        if (QWindow* window = active->windowHandle())
            QTest::keyClick(window, key, modifiers);
    });
}

void Clerk::Enter(const QString& text)
{
    Type(text);
    Press(Qt::Key_Return);
}

void Clerk::Replace(const QString& text)
{
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    Type(text);
}

QString Clerk::Text(const QString& control)
{
    return onScreen([control](QWidget* active) {
        const QWidget* widget = active ? active->findChild<QWidget*>(control) : nullptr;
        return widget ? widget->property("text").toString() : QStringLiteral("(no such control)");
    });
}

QString Clerk::Focus()
{
    return onScreen([](QWidget*) { return focusName(); });
}

void Clerk::ExpectFocus(const QString& control)
{
    until([](QWidget*) { return focusName(); }, control, QStringLiteral("the focus in"));
}

void Clerk::ExpectText(const QString& control, const QString& text)
{
    until(
        [control](QWidget* active) {
            const QWidget* widget = active ? active->findChild<QWidget*>(control) : nullptr;
            return widget ? widget->property("text").toString()
                          : QStringLiteral("(no such control)");
        },
        text, control);
}

void Clerk::Expect(bool holds, const QString& what)
{
    if (!holds)
        giveUp(what);
}

void Clerk::Picture(const QString& name)
{
    if (pictures_.isEmpty())
        return;
    const QString file = QDir(pictures_).filePath(
        QStringLiteral("%1-%2.png").arg(++picture_, 2, 10, QLatin1Char('0')).arg(name));
    // Once around, so that what the last key changed is painted.
    onScreen([](QWidget*) { return QString(); });
    onScreen([file](QWidget* active) {
        if (active)
            active->grab().save(file);
        return QString();
    });
}

} // namespace journeys
