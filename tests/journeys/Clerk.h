#pragma once

#include <QDir>
#include <QImage>
#include <QString>

#include <functional>

class QWidget;

namespace journeys {

/// In milliseconds; longer than anything that is waited for takes, on any machine: what takes
/// longer hangs.
inline constexpr int Patience = 240'000;

/// A clerk at the keyboard. The script runs on a thread of its own while the program runs its
/// event loops, modal ones too; each act goes in as real key or mouse events through the active
/// window, and the next waits until the program has dealt with it.
///
/// What the clerk expects to see and does not is a failure: it is told on standard error with
/// the script's line, and the script ends.
class Clerk {
public:
    /// Pictures go to the folder; an empty name takes none.
    explicit Clerk(const QString& pictures) : pictures_(pictures) {}

    /// Runs the script beside the program; run is the program's own main loop. True where the
    /// script came to its end.
    bool Work(const std::function<void(Clerk&)>& script, const std::function<void()>& run);

    // To be called from the script.

    /// Waits until the active window has that object name. Where none of the program's windows
    /// is active, it takes the one of that name, as somebody who turns to another window does.
    void See(const QString& window);
    /// Waits until a control of the active window is open, or closed.
    void WaitFor(const QString& control, bool enabled);
    /// Waits for a message box with exactly this text and title, and answers it with a key.
    void Answer(const QString& text, const QString& title, Qt::Key key);
    /// As Answer, for a text that is known by a part.
    void AnswerLike(const QString& part, const QString& title, Qt::Key key);

    void Type(const QString& text);
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Types and presses Enter.
    void Enter(const QString& text);
    /// Empties the active field and types.
    void Replace(const QString& text);

    /// The text of a field or label of the active window.
    QString Text(const QString& control);
    /// Object name of what has the focus.
    QString Focus();
    void ExpectFocus(const QString& control);
    void ExpectText(const QString& control, const QString& text);
    void Expect(bool holds, const QString& what);

    /// A picture of the active window, numbered.
    void Picture(const QString& name);

    struct GivenUp {};

private:
    QString onScreen(const std::function<QString(QWidget* active)>& look);
    void act(const std::function<void(QWidget* active)>& doIt);
    void until(const std::function<QString(QWidget* active)>& look, const QString& wanted,
               const QString& what);
    [[noreturn]] void giveUp(const QString& what);

    QString pictures_;
    int picture_ = 0;
    bool done_ = false;
};

} // namespace journeys
