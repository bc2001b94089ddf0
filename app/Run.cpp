#include "Run.h"

#include "HostSchema.h"
#include "LoginWindow.h"
#include "MainWindow.h"
#include "Options.h"
#include "PasswordInput.h"
#include "SampleCompany.h"
#include "Session.h"
#include "Users.h"

#include <TradeForms/Connection.h>
#include <TradeForms/Failure.h>
#include <TradeForms/Printing.h>

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QMessageBox>
#include <QStandardPaths>

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <string>

namespace Host {

using TradeForms::Connection;
using TradeForms::Failure;

namespace {

void say(const QString& text)
{
    std::cerr << "tradeforms-host: " << text.toStdString() << std::endl;
}

/// Whether message boxes are visible: not on the off-screen platforms.
bool boxesCanBeSeen()
{
    const QString platform = QGuiApplication::platformName();
    return platform != QLatin1String("offscreen") && platform != QLatin1String("minimal");
}

int tellFailure(const QString& text)
{
    say(text);
    if (boxesCanBeSeen())
        QMessageBox::critical(nullptr, QStringLiteral("TradeForms"), text);
    return ExitFailed;
}

/// Not modal: printing goes on.
void tellOfFolder(const QString& folder)
{
    const QString text = QStringLiteral("There is no printer on this computer. What is printed is "
                                        "kept as PDF files in the folder %1.")
                             .arg(QDir::toNativeSeparators(folder));
    say(text);
    if (boxesCanBeSeen()) {
        auto* box = new QMessageBox(QMessageBox::Information, QStringLiteral("TradeForms"), text,
                                    QMessageBox::Ok);
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->setModal(false);
        box->show();
    }
}

/// Sets the destination of printed pages. Raises Failure where the folder cannot be created.
void choosePrinter(const Options& options)
{
    if (options.PrintTo.isEmpty()) {
        const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
        TradeForms::Printing::UsePrinter(documents.filePath(QStringLiteral("TradeForms")),
                                         tellOfFolder);
        return;
    }
    if (!QDir().mkpath(options.PrintTo)) {
        throw Failure(QStringLiteral("The folder %1 for printed pages cannot be made.")
                          .arg(QDir::toNativeSeparators(options.PrintTo)));
    }
    TradeForms::Printing::UseFolder(QDir(options.PrintTo).absolutePath());
}

/// Prints the progress of a large sample, at every tenth of each of its parts.
class SampleProgress {
public:
    void operator()(const char* what, int done, int of)
    {
        const int tenth = int(std::int64_t(done) * 10 / std::max(1, of));
        if (what_ == what && tenth_ == tenth)
            return;
        what_ = what;
        tenth_ = tenth;
        say(QStringLiteral("%1 %2 %").arg(QLatin1String(what)).arg(10 * tenth));
    }

private:
    std::string what_;
    int tenth_ = -1;
};

void makeSample(const Options& options)
{
    constexpr int madeAtOnce = 1000;
    QDir().mkpath(QFileInfo(options.Database).absolutePath());
    MakeSampleCompany(options.Database, options.Accounts, options.Until,
                      options.Accounts > madeAtOnce ? Sample::Progress(SampleProgress())
                                                    : Sample::Progress());
}

std::shared_ptr<Connection> openCompany(const QString& database)
{
    if (IsOnServer(database)) {
        // The script that makes the company there makes this host's tables as well.
        return Connection::OpenServer(database);
    }
    std::shared_ptr<Connection> connection = Connection::Open(database);
    EnsureHostSchema(*connection);
    return connection;
}

/// Returns whether there is a company to open; offers to create the sample.
bool companyIsThere(const Options& options)
{
    if (IsOnServer(options.Database) || QFileInfo::exists(options.Database))
        return true;
    if (options.CreateSample) {
        makeSample(options);
        return true;
    }
    const QString missing = QStringLiteral("There is no company at %1.")
                                .arg(QDir::toNativeSeparators(options.Database));
    say(missing + QStringLiteral(" --create-sample makes one to try the screens on."));
    if (!boxesCanBeSeen() ||
        QMessageBox::question(nullptr, QStringLiteral("TradeForms"),
                              missing +
                                  QStringLiteral("\n\nMake the sample company there? Its users "
                                                 "are admin, clerk and others, all with the "
                                                 "password \"%1\".")
                                      .arg(Sample::Password())) != QMessageBox::Yes)
        return false;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    makeSample(options);
    QApplication::restoreOverrideCursor();
    return true;
}

enum class Ending { Left, LoggedOut };

/// Shows the menu, with an open screen if one is given, until the user leaves.
Ending runSession(Session& session, const QString& database, const Screen* first)
{
    MainWindow window(session, database);
    QEventLoop loop;
    Ending ending = Ending::Left;
    QObject::connect(&window, &MainWindow::LeaveRequested, &loop, &QEventLoop::quit);
    QObject::connect(&window, &MainWindow::LogOutRequested, &loop, [&ending, &loop] {
        ending = Ending::LoggedOut;
        loop.quit();
    });
    window.show();
    // The login window had the focus until now.
    window.activateWindow();
    if (first)
        window.Open(*first);
    loop.exec();
    return ending;
}

/// Shows the login window until a user has logged in whom the library accepts, or the user cancels.
std::unique_ptr<Session> logInByWindow(const std::shared_ptr<Connection>& connection,
                                       const Users& users, const QString& database,
                                       const QString& userName)
{
    LoginWindow login(users, ReadCompanyInfo(*connection).NameUrdu, database, userName);
    while (login.exec() == QDialog::Accepted) {
        try {
            return std::make_unique<Session>(connection, *login.Account());
        } catch (const Failure& failure) {
            say(failure.Description());
            login.ShowMessage(failure.Description());
        }
    }
    return nullptr;
}

int runCompany(const Options& options)
{
    const std::shared_ptr<Connection> connection = openCompany(options.Database);
    const Users users(connection);
    if (!users.AnyoneCanLogIn()) {
        return tellFailure(QStringLiteral("No user of this company has a name and a password yet. "
                                          "Run this program with --first-administrator NAME."));
    }

    std::unique_ptr<Session> session;
    if (!options.UserName.isEmpty()) {
        if (const std::optional<QString> password = ReadPassword(options.UserName)) {
            const std::optional<UserAccount> account = users.LogIn(options.UserName, *password);
            if (!account)
                return tellFailure(WrongLoginText());
            session = std::make_unique<Session>(connection, *account);
        }
    }
    if (!session)
        session = logInByWindow(connection, users, options.Database, options.UserName);
    const Screen* first = options.Open;
    while (session && runSession(*session, options.Database, first) == Ending::LoggedOut) {
        first = nullptr;
        session = logInByWindow(connection, users, options.Database, {});
    }
    return ExitDone;
}

} // namespace

int CreateSampleCompany(const Options& options)
{
    try {
        makeSample(options);
    } catch (const std::exception& failure) {
        say(QString::fromUtf8(failure.what()));
        return ExitFailed;
    }
    return ExitDone;
}

int AddFirstAdministrator(const Options& options)
{
    try {
        Users users(openCompany(options.Database));
        const std::optional<QString> password = ReadPassword(options.UserName);
        if (!password || password->isEmpty()) {
            say(QStringLiteral("A password is needed on standard input."));
            return ExitFailed;
        }
        users.AddFirstAdministrator(options.UserName, *password);
    } catch (const std::exception& failure) {
        say(QString::fromUtf8(failure.what()));
        return ExitFailed;
    }
    return ExitDone;
}

int RunHost(const Options& options)
{
    // Only the menu ends the program, not closing the login window or a form.
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        choosePrinter(options);
        return companyIsThere(options) ? runCompany(options) : ExitFailed;
    } catch (const std::exception& failure) {
        return tellFailure(QString::fromUtf8(failure.what()));
    }
}

} // namespace Host
