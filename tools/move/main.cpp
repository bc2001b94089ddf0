#include "Console.h"

#include <TradeForms/Transfer.h>

#include <QCommandLineParser>
#include <QCoreApplication>

#include <iostream>

namespace {

using namespace TradeForms;
using Tools::ProgressLine;
using Tools::WrongOptions;

/// The options of the command line.
struct Options {
    QString From;
    QString To;
    TransferOptions How;
    ProgressLine::Detail Detail = ProgressLine::Detail::Shown;
};

QString option(const char* name)
{
    return QString::fromLatin1(name);
}

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QStringLiteral(
        "Copies a whole company into another database and proves that all of it arrived: rows,\n"
        "the sums of every column of amounts, the contents of every other column, and each\n"
        "account's balance by either database's own function.\n\n"
        "  tradeforms-move --from FILE --to \"DSN=Company\"\n"
        "  tradeforms-move --from PLACE --to PLACE [--replace | --verify-only]\n\n"
        "A place is a company file, or a connection string. The company is copied as it stands at\n"
        "one moment; what is saved in it later stays behind, so let nobody enter anything until\n"
        "all work in the new place. The company itself is never changed.\n\n"
        "Ends with 0 when all is proven the same, 1 when something failed, 2 on a wrong command\n"
        "line, 3 when the proof found a difference, 4 when it was stopped."));
    parser.addOptions({
        {option("from"), QStringLiteral("Where the company is."), QStringLiteral("PLACE")},
        {option("to"),
         QStringLiteral("Where it goes: an empty company on a server, made by the schema script, "
                        "or a file, which is made where it does not exist."),
         QStringLiteral("PLACE")},
        {option("replace"),
         QStringLiteral("Remove the target's rows first. Also begins anew after an attempt that "
                        "did not come to its end.")},
        {option("verify-only"), QStringLiteral("Compare the two companies, and write nothing.")},
        {option("quiet"), QStringLiteral("Tell nothing but failures and differences.")},
    });
}

Options read(const QCommandLineParser& parser)
{
    const auto given = [&parser](const char* name) { return parser.isSet(option(name)); };
    Options options;
    options.From = parser.value(option("from"));
    options.To = parser.value(option("to"));
    if (options.From.isEmpty() || options.To.isEmpty())
        throw WrongOptions{QStringLiteral("--from and --to are needed. --help tells more.")};
    options.How.Replace = given("replace");
    options.How.VerifyOnly = given("verify-only");
    if (options.How.Replace && options.How.VerifyOnly)
        throw WrongOptions{QStringLiteral("--replace makes no sense with --verify-only.")};
    options.Detail = given("quiet") ? ProgressLine::Detail::Quiet : ProgressLine::Detail::Shown;
    return options;
}

void sayProven(const TransferReport& report, bool isCopied)
{
    Tools::Say(
        QStringLiteral("%1 %2 in %3. Both sides have the same rows, sums and contents, and the "
                       "same balance on each of %4.")
            .arg(isCopied ? QStringLiteral("Moved") : QStringLiteral("Compared"),
                 Tools::Counted(report.Rows(), "row", "rows"),
                 Tools::Counted(report.Tables.size(), "table", "tables"),
                 Tools::Counted(report.Accounts, "account", "accounts")));
    for (const TransferDifference& rounded : report.Rounded)
        Tools::Say(QStringLiteral("Rounded to four decimals: ") + rounded.Text());
}

void complain(const TransferReport& report)
{
    std::cerr << "The two companies differ:\n";
    for (const TransferDifference& difference : report.Differences)
        std::cerr << "  " << difference.Text().toStdString() << '\n';
    std::cerr << "Nothing was compared after this." << std::endl;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    constexpr const char* program = "tradeforms-move";
    return Tools::Run(program, [] {
        QCommandLineParser parser;
        describe(parser);
        if (!Tools::ReadArguments(parser, program, QCoreApplication::arguments()))
            return Tools::ExitDone;
        Options options = read(parser);
        TransferReport report;
        {
            ProgressLine line(options.Detail);
            options.How.Tell = line.Callback();
            report = TransferCompany(options.From, options.To, options.How);
        }
        if (!report.IsProven()) {
            complain(report);
            return Tools::ExitDiffers;
        }
        if (options.Detail == ProgressLine::Detail::Shown)
            sayProven(report, !options.How.VerifyOnly);
        return Tools::ExitDone;
    });
}
