#include "Console.h"

#include <TradeForms/Failure.h>
#include <TradeForms/Version.h>

#include <QCommandLineParser>
#include <QLocale>

#include <csignal>
#include <cstdio>
#include <iostream>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace Tools {

using TradeForms::Stage;
using TradeForms::WorkProgress;

namespace {

volatile std::sig_atomic_t stopWanted = 0;

void wantStop(int)
{
    stopWanted = 1;
}

bool errorIsTerminal()
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) != 0;
#endif
}

QString textOf(const WorkProgress& progress)
{
    const QString of = progress.Table.isEmpty() ? QString() : QLatin1Char(' ') + progress.Table;
    switch (progress.At) {
    case Stage::Counting:
        return QStringLiteral("Counting rows");
    case Stage::Copying:
        return QStringLiteral("Copying") + of;
    case Stage::Indexing:
        return QStringLiteral("Making indexes");
    case Stage::Checking:
        return QStringLiteral("Checking the copy");
    case Stage::Comparing:
        return QStringLiteral("Comparing") + of;
    case Stage::Balances:
        return QStringLiteral("Comparing balances");
    }
    Q_UNREACHABLE();
}

/// The percentage done; -1 where the total is not known.
int percentOf(const WorkProgress& progress)
{
    return progress.All == 0 ? -1 : int(100 * progress.Done / progress.All);
}

} // namespace

int Run(const char* program, const std::function<int()>& work)
{
    std::signal(SIGINT, wantStop);
    std::signal(SIGTERM, wantStop);
    const auto complain = [program](const QString& text) {
        std::cerr << program << ": " << text.toStdString() << std::endl;
    };
    try {
        return work();
    } catch (const WrongOptions& wrong) {
        complain(wrong.Message);
        return ExitWrongOptions;
    } catch (const TradeForms::CancelledFailure&) {
        complain(QStringLiteral("Stopped."));
        return ExitStopped;
    } catch (const std::exception& failure) {
        complain(QString::fromUtf8(failure.what()));
        return ExitFailed;
    }
}

bool ReadArguments(QCommandLineParser& parser, const char* program, const QStringList& arguments)
{
    const QCommandLineOption help(QStringLiteral("help"),
                                  QStringLiteral("Show this help, and end."));
    const QCommandLineOption version(QStringLiteral("version"),
                                     QStringLiteral("Show the version, and end."));
    parser.addOptions({help, version});
    if (!parser.parse(arguments))
        throw WrongOptions{parser.errorText()};
    if (parser.isSet(help)) {
        std::cout << parser.helpText().toStdString();
        return false;
    }
    if (parser.isSet(version)) {
        std::cout << program << ' ' << TRADEFORMS_VERSION << '\n';
        return false;
    }
    if (!parser.positionalArguments().isEmpty()) {
        throw WrongOptions{QStringLiteral("Unexpected argument \"%1\".")
                               .arg(parser.positionalArguments().constFirst())};
    }
    return true;
}

void Say(const QString& text)
{
    std::cout << text.toStdString() << std::endl;
}

QString Grouped(qint64 number)
{
    return QLocale(QLocale::English).toString(number);
}

QString Counted(qint64 number, const char* one, const char* many)
{
    return Grouped(number) + QLatin1Char(' ') + QLatin1String(number == 1 ? one : many);
}

ProgressLine::ProgressLine(Detail detail) : detail_(detail), isTerminal_(errorIsTerminal()) {}

ProgressLine::~ProgressLine()
{
    wipe();
}

TradeForms::OnProgress ProgressLine::Callback()
{
    return [this](const WorkProgress& progress) { return tell(progress); };
}

bool ProgressLine::tell(const WorkProgress& progress)
{
    if (detail_ == Detail::Shown) {
        const QString text = textOf(progress);
        const int percent = percentOf(progress);
        // Outside of a terminal, a new line for every ten per cent only.
        constexpr int step = 10;
        const bool isNews =
            text != lastText_ ||
            (isTerminal_ ? percent != lastPercent_ : percent / step != lastPercent_ / step);
        if (isNews) {
            draw(text, percent);
            lastText_ = text;
            lastPercent_ = percent;
        }
    }
    return stopWanted == 0;
}

void ProgressLine::draw(const QString& text, int percent)
{
    constexpr int width = 30;
    QString line = text;
    if (percent >= 0) {
        const QString number = QStringLiteral("%1 %").arg(percent, 3);
        const int filled = width * percent / 100;
        line = isTerminal_ ? QLatin1Char('[') + QString(filled, QLatin1Char('#')) +
                                 QString(width - filled, QLatin1Char('.')) + QStringLiteral("] ") +
                                 number + QStringLiteral("  ") + text
                           : text + QStringLiteral(" ") + number.trimmed();
    }
    if (!isTerminal_) {
        std::cerr << line.toStdString() << std::endl;
        return;
    }
    std::cerr << '\r' << line.leftJustified(drawnWidth_).toStdString() << std::flush;
    drawnWidth_ = int(line.size());
}

void ProgressLine::wipe()
{
    if (isTerminal_ && drawnWidth_ > 0)
        std::cerr << '\r' << std::string(std::size_t(drawnWidth_), ' ') << '\r' << std::flush;
}

} // namespace Tools
