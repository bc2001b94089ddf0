#include "Console.h"

#include <TradeForms/Backup.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace {

using namespace TradeForms;
using Tools::ProgressLine;
using Tools::WrongOptions;

/// The options of the command line.
struct Options {
    enum class Action { BackUp, Restore, Verify };

    Action Wanted = Action::BackUp;
    QString Company;
    QString Backup;
    Existing IfThere = Existing::Keep;
    int Keep = 0; ///< number of backups to keep; 0 keeps all
    ProgressLine::Detail Detail = ProgressLine::Detail::Shown;
};

QString option(const char* name)
{
    return QString::fromLatin1(name);
}

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Copies a company file while it is in use, verifies the copy, and puts it back.\n\n"
        "  tradeforms-backup --database FILE --to FILE-OR-FOLDER [--replace] [--keep N]\n"
        "  tradeforms-backup --restore BACKUP --database FILE\n"
        "  tradeforms-backup --verify FILE\n\n"
        "Ends with 0 when all is well, 1 when something failed (nothing half done stands under\n"
        "the target's name then), 2 on a wrong command line, 4 when it was stopped."));
    parser.addOptions({
        {option("database"), QStringLiteral("The company file."), QStringLiteral("FILE")},
        {option("to"),
         QStringLiteral("Where the backup goes. In a folder it gets a name with date and time."),
         QStringLiteral("FILE")},
        {option("replace"), QStringLiteral("Replace a file that has the backup's name.")},
        {option("keep"),
         QStringLiteral("With a folder: keep the newest N backups of this company that were made "
                        "there under such names, and remove the older ones."),
         QStringLiteral("N")},
        {option("restore"),
         QStringLiteral("Put this backup in the company's place. Nobody may have it open. The "
                        "company that stands there is kept under another name."),
         QStringLiteral("BACKUP")},
        {option("verify"), QStringLiteral("Read a company or backup through."),
         QStringLiteral("FILE")},
        {option("quiet"), QStringLiteral("Tell nothing but failures.")},
    });
}

Options read(const QCommandLineParser& parser)
{
    const auto given = [&parser](const char* name) { return parser.isSet(option(name)); };
    const auto value = [&parser](const char* name) { return parser.value(option(name)); };
    const auto refuseBeside = [&](const char* action, std::initializer_list<const char*> others) {
        for (const char* other : others)
            if (given(other))
                throw WrongOptions{QStringLiteral("--%1 makes no sense with --%2.")
                                       .arg(QLatin1String(other), QLatin1String(action))};
    };

    Options options;
    options.Company = value("database");
    options.Detail = given("quiet") ? ProgressLine::Detail::Quiet : ProgressLine::Detail::Shown;
    if (given("verify")) {
        refuseBeside("verify", {"database", "to", "restore", "replace", "keep"});
        options.Wanted = Options::Action::Verify;
        options.Backup = value("verify");
        return options;
    }
    if (options.Company.isEmpty())
        throw WrongOptions{QStringLiteral("--database is needed, or --verify. --help tells more.")};
    if (given("restore")) {
        refuseBeside("restore", {"to", "replace", "keep"});
        options.Wanted = Options::Action::Restore;
        options.Backup = value("restore");
        return options;
    }
    options.Backup = value("to");
    if (options.Backup.isEmpty())
        throw WrongOptions{QStringLiteral("--to or --restore is needed. --help tells more.")};
    options.IfThere = given("replace") ? Existing::Replace : Existing::Keep;
    if (given("keep")) {
        bool isNumber = false;
        options.Keep = value("keep").toInt(&isNumber);
        if (!isNumber || options.Keep < 1)
            throw WrongOptions{QStringLiteral("--keep takes a whole number from 1.")};
        if (!QFileInfo(options.Backup).isDir())
            throw WrongOptions{QStringLiteral("--keep needs a folder after --to.")};
    }
    return options;
}

QString told(const VerifiedCompany& company)
{
    return QStringLiteral("%1: %2 in %3, %4")
        .arg(QDir::toNativeSeparators(company.File), Tools::Counted(company.Rows(), "row", "rows"),
             Tools::Counted(company.Tables.size(), "table", "tables"),
             QLocale(QLocale::English).formattedDataSize(company.Bytes));
}

QStringList backUp(const Options& options, const OnProgress& onProgress)
{
    const QFileInfo target(options.Backup);
    if (!target.isDir()) {
        return {QStringLiteral("Backup ") +
                told(BackUpCompany(options.Company, options.Backup, options.IfThere, onProgress))};
    }
    const QDir folder(options.Backup);
    const QString file = folder.filePath(BackupName(options.Company, QDateTime::currentDateTime()));
    QStringList lines{QStringLiteral("Backup ") +
                      told(BackUpCompany(options.Company, file, options.IfThere, onProgress))};
    if (options.Keep > 0)
        for (const QString& name : RemoveOlderBackups(folder.path(), options.Company, options.Keep))
            lines.append(QStringLiteral("Removed the older backup ") + name);
    return lines;
}

QStringList restore(const Options& options, const OnProgress& onProgress)
{
    const RestoredCompany restored = RestoreCompany(options.Backup, options.Company, onProgress);
    QStringList lines{QStringLiteral("Restored ") + told(restored.Company)};
    if (!restored.Former.isEmpty()) {
        lines.append(QStringLiteral("The company that stood there is now ") +
                     QDir::toNativeSeparators(restored.Former));
    }
    return lines;
}

QStringList verify(const Options& options, const OnProgress& onProgress)
{
    return {QStringLiteral("Whole ") + told(VerifyBackup(options.Backup, onProgress))};
}

QStringList run(const Options& options, const OnProgress& onProgress)
{
    switch (options.Wanted) {
    case Options::Action::BackUp:
        return backUp(options, onProgress);
    case Options::Action::Restore:
        return restore(options, onProgress);
    case Options::Action::Verify:
        return verify(options, onProgress);
    }
    Q_UNREACHABLE();
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    constexpr const char* program = "tradeforms-backup";
    return Tools::Run(program, [] {
        QCommandLineParser parser;
        describe(parser);
        if (!Tools::ReadArguments(parser, program, QCoreApplication::arguments()))
            return Tools::ExitDone;
        const Options options = read(parser);
        QStringList lines;
        {
            ProgressLine line(options.Detail);
            lines = run(options, line.Callback());
        }
        if (options.Detail == ProgressLine::Detail::Shown)
            for (const QString& text : lines)
                Tools::Say(text);
        return Tools::ExitDone;
    });
}
