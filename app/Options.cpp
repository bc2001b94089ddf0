#include "Options.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

namespace Host {

namespace {

QString defaultDatabase()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
        .filePath(QStringLiteral("company.db"));
}

/// A command line option; a switch where the name of its value is empty.
struct Argument {
    const char* Name;
    const char* Value;
    const char* Help;
};

constexpr Argument arguments[] = {
    {"database", "FILE",
     "The company's database: a file, or the ODBC connection string of a server, such as "
     "\"DSN=Company\". Without it: company.db among the user's own data."},
    {"user", "NAME",
     "Log in as NAME. The password is the first line of standard input; a terminal is asked "
     "for it; where there is neither, the login window asks."},
    {"print-to", "DIR",
     "Print into a folder: each copy becomes a PDF file of its own. Without it pages go to the "
     "system's printer, and where there is none, into the folder TradeForms among the user's "
     "documents."},
    {"open", "SCREEN", "Open a screen right after login, by its name: GatePassForm."},
    {"create-sample", "",
     "Make the sample company where the database does not exist yet. Goes on with --user or "
     "--open, ends otherwise."},
    {"accounts", "N", "Instalment accounts of the sample company (400)."},
    {"until", "DATE",
     "Last day of the sample company's vouchers, as YYYY-MM-DD (today). The same day gives the "
     "same company."},
    {"first-administrator", "NAME",
     "Give a company in which no one can log in yet its administrator, and end. The password "
     "is read as for --user."},
    {"help", "", "Show this help, and end."},
    {"version", "", "Show the version, and end."},
};

Options refuse(const QString& message)
{
    Options options;
    options.Wanted = Options::Action::Refuse;
    options.Message = message;
    return options;
}

} // namespace

bool IsOnServer(const QString& database)
{
    return database.contains(QLatin1Char('=')) && !QFileInfo::exists(database);
}

QString ShownDatabase(const QString& database)
{
    if (!IsOnServer(database))
        return QDir::toNativeSeparators(database);
    // A value in braces may contain semicolons, and closing braces, which are doubled.
    static const QRegularExpression password(
        QStringLiteral(R"(\b(pwd|password)\s*=\s*(\{(?:[^}]|\}\})*\}|[^;]*))"),
        QRegularExpression::CaseInsensitiveOption);
    return QString(database).replace(password, QStringLiteral("\\1=***"));
}

Options ReadOptions(const QStringList& words)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "The reference host of TradeForms: login, menu of screens, sample company."));
    for (const Argument& argument : arguments) {
        parser.addOption({QLatin1String(argument.Name), QLatin1String(argument.Help),
                          QLatin1String(argument.Value)});
    }
    if (!parser.parse(words))
        return refuse(parser.errorText());
    const auto given = [&parser](const char* name) { return parser.isSet(QLatin1String(name)); };
    const auto value = [&parser](const char* name) { return parser.value(QLatin1String(name)); };

    Options options;
    if (given("help")) {
        options.Wanted = Options::Action::ShowHelp;
        options.Message = parser.helpText();
        return options;
    }
    if (given("version")) {
        options.Wanted = Options::Action::ShowVersion;
        return options;
    }
    if (!parser.positionalArguments().isEmpty()) {
        return refuse(QStringLiteral("Unexpected argument \"%1\".")
                          .arg(parser.positionalArguments().constFirst()));
    }

    options.Database = given("database") ? value("database") : defaultDatabase();
    if (given("print-to")) {
        options.PrintTo = value("print-to");
        if (options.PrintTo.isEmpty())
            return refuse(QStringLiteral("--print-to takes a folder."));
    }
    options.UserName = given("user") ? value("user") : value("first-administrator");
    options.CreateSample = given("create-sample");
    if (options.CreateSample && IsOnServer(options.Database))
        return refuse(QStringLiteral("--create-sample makes a file, not a company on a server."));
    if (given("first-administrator"))
        options.Wanted = Options::Action::AddAdministrator;
    else if (options.CreateSample && !given("user") && !given("open"))
        options.Wanted = Options::Action::CreateSample;

    if (given("open")) {
        options.Open = FindScreen(value("open"));
        if (!options.Open) {
            return refuse(QStringLiteral("There is no screen \"%1\". The screens are: %2.")
                              .arg(value("open"), ScreenMethods().join(QStringLiteral(", "))));
        }
    }
    if (given("accounts")) {
        bool isNumber = false;
        options.Accounts = value("accounts").toInt(&isNumber);
        if (!isNumber || options.Accounts < 0 || options.Accounts > Sample::MostAccounts) {
            return refuse(QStringLiteral("--accounts takes a whole number from 0 to %1.")
                              .arg(Sample::MostAccounts));
        }
    }
    options.Until = QDate::currentDate();
    if (given("until")) {
        options.Until = QDate::fromString(value("until"), Qt::ISODate);
        if (!options.Until.isValid())
            return refuse(QStringLiteral("--until takes a date as YYYY-MM-DD."));
    }
    return options;
}

} // namespace Host
