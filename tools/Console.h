#pragma once

#include <TradeForms/WorkProgress.h>

#include <QString>
#include <QStringList>

#include <functional>

class QCommandLineParser;

// What the programs of this folder share: how they begin, tell how far they are, and end.

namespace Tools {

/// Exit codes.
inline constexpr int ExitDone = 0;
inline constexpr int ExitFailed = 1;
inline constexpr int ExitWrongOptions = 2;
inline constexpr int ExitDiffers = 3; ///< the work was done, and the proof found a difference
inline constexpr int ExitStopped = 4; ///< by the user

/// A command line that makes no sense.
struct WrongOptions {
    QString Message;
};

/// Runs a program: tells what fails on standard error, after the program's name, and gives the
/// exit code. Ctrl+C makes ProgressLine ask for an end.
int Run(const char* program, const std::function<int()>& work);

/// Reads the command line; --help and --version are answered at once. Raises WrongOptions. True
/// where there is something to do.
bool ReadArguments(QCommandLineParser& parser, const char* program, const QStringList& arguments);

/// A line on standard output.
void Say(const QString& text);

/// A number as people read it: 10,500,000.
QString Grouped(qint64 number);
/// "1 row", "12 rows".
QString Counted(qint64 number, const char* one, const char* many);

/// Shows on standard error how far the work is: a bar on a terminal, otherwise a line now and
/// then, or nothing.
class ProgressLine {
public:
    enum class Detail { Shown, Quiet };

    explicit ProgressLine(Detail detail);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// To be handed to the library; must not outlive this object.
    TradeForms::OnProgress Callback();

private:
    bool tell(const TradeForms::WorkProgress& progress);
    void draw(const QString& text, int percent);
    void wipe();

    Detail detail_;
    bool isTerminal_;
    int drawnWidth_ = 0;
    QString lastText_;
    int lastPercent_ = -1;
};

} // namespace Tools
