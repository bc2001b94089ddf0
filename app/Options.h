#pragma once

#include "Screens.h"
#include "sample/Company.h"

#include <QDate>
#include <QString>
#include <QStringList>

namespace Host {

/// The options of the command line.
struct Options {
    enum class Action {
        Run,          ///< open the company and show login and menu
        CreateSample, ///< make the sample company and leave
        AddAdministrator,
        ShowHelp,
        ShowVersion,
        Refuse ///< invalid command line; Message tells why
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

/// Whether the company is on a server: given by a connection string instead of a file.
bool IsOnServer(const QString& database);
/// The location of the company for display: a path, or a connection string without its password.
QString ShownDatabase(const QString& database);

/// Parses the arguments, of which the first is the program's name.
Options ReadOptions(const QStringList& arguments);

} // namespace Host
