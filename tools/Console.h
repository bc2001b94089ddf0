#pragma once

#include <TradeForms/WorkProgress.h>

#include <QString>
#include <QStringList>

#include <functional>

class QCommandLineParser;

// What the command-line tools share: options, output, progress and exit codes.

namespace Tools {

/// Exit codes.
inline constexpr int ExitDone = 0;
inline constexpr int ExitFailed = 1;
inline constexpr int ExitWrongOptions = 2;
inline constexpr int ExitDiffers =
    3; ///< the transfer was done, but the comparison found a difference
inline constexpr int ExitStopped = 4; ///< by the user

/// An invalid command line; its message is shown to the user.
struct WrongOptions {
    QString Message;
};

/// Runs the work of a program. Returns its exit code; where it raises an exception, prints the
/// message to standard error after the program's name. Ctrl+C makes the callback of ProgressLine
/// cancel the work.
int Run(const char* program, const std::function<int()>& work);

/// Parses the command line, and prints the output of --help and --version. Returns whether the
/// program has more to do. Raises WrongOptions.
bool ReadArguments(QCommandLineParser& parser, const char* program, const QStringList& arguments);

/// Prints a line to standard output.
void Say(const QString& text);

/// A number with thousands separators: 10,500,000.
QString Grouped(qint64 number);
/// A number with a noun in the singular or plural: "1 row", "12 rows".
QString Counted(qint64 number, const char* one, const char* many);

/// Shows progress on standard error: a progress bar on a terminal, otherwise a line from time to
/// time, or nothing.
class ProgressLine {
public:
    enum class Detail { Shown, Quiet };

    explicit ProgressLine(Detail detail);
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// The progress callback for the library. It must not be called after this object is destroyed.
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
