#pragma once

#include "Screens.h"
#include "sample/Company.h"

#include <QDate>
#include <QString>
#include <QStringList>

namespace Host {

/// What the command line asks for.
struct Options {
    enum class Action {
        Run,          ///< open the company and show login and menu
        CreateSample, ///< make the sample company and leave
        AddAdministrator,
        ShowHelp,
        ShowVersion,
        Refuse ///< the command line is wrong; Message tells why
    };

    Action Wanted = Action::Run;
    QString Message; ///< for ShowHelp and Refuse

    QString Database;             ///< a file, or an ODBC connection string
    QString PrintTo;              ///< folder for printed pages; empty: the system's printer
    QString UserName;             ///< empty: ask
    const Screen* Open = nullptr; ///< the screen to open after login, if any
    bool CreateSample = false;    ///< also with Run: make the company first if it is missing
    int Accounts = Sample::DefaultAccounts;
    QDate Until;
};

/// Whether the company is on a server: told by a connection string, and not as a file.
bool IsOnServer(const QString& database);
/// Where the company is, as it may be shown: a file's path, or a connection string without its
/// password.
QString ShownDatabase(const QString& database);

/// Reads the arguments, the program's name first.
Options ReadOptions(const QStringList& arguments);

} // namespace Host
