#include "PasswordInput.h"

#include <QtGlobal>

#include <iostream>
#include <string>

#ifdef Q_OS_UNIX
#include <termios.h>
#include <unistd.h>
#endif

namespace Host {

namespace {

std::optional<QString> readLine()
{
    std::string line;
    if (!std::getline(std::cin, line))
        return std::nullopt;
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return QString::fromStdString(line);
}

#ifdef Q_OS_UNIX

/// Turns the echo of the terminal off during its lifetime.
class QuietTerminal {
public:
    QuietTerminal()
    {
        tcgetattr(STDIN_FILENO, &before_);
        termios quiet = before_;
        quiet.c_lflag &= ~tcflag_t(ECHO);
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
    }
    ~QuietTerminal() { tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_); }
    QuietTerminal(const QuietTerminal&) = delete;
    QuietTerminal& operator=(const QuietTerminal&) = delete;

private:
    termios before_{};
};

std::optional<QString> askOnTerminal(const QString& userName)
{
    std::cerr << "Password for " << userName.toStdString() << ": " << std::flush;
    const QuietTerminal quiet;
    const std::optional<QString> password = readLine();
    std::cerr << std::endl;
    return password;
}

#endif

} // namespace

std::optional<QString> ReadPassword([[maybe_unused]] const QString& userName)
{
#ifdef Q_OS_UNIX
    if (isatty(STDIN_FILENO))
        return askOnTerminal(userName);
#endif
    return readLine();
}

} // namespace Host
