#include "Options.h"
#include "SampleFixture.h"

#include <TradeForms/Version.h>

#include <QProcess>

using namespace testing;

namespace tests {

using Host::Options;
using Host::ReadOptions;

namespace {

struct Ended {
    int Code = -1;
    std::string Out;
    std::string Error;
};

/// Runs a program on the off-screen platform, with a text on its standard input.
Ended runProgram(const char* path, const QStringList& arguments, const QByteArray& input)
{
    QProcess program;
    program.start(QString::fromUtf8(path), arguments);
    program.write(input);
    program.closeWriteChannel();
    if (!program.waitForFinished(patience) || program.exitStatus() != QProcess::NormalExit) {
        program.kill();
        program.waitForFinished();
        return {-1, {}, "did not end by itself"};
    }
    return {program.exitCode(), program.readAllStandardOutput().toStdString(),
            program.readAllStandardError().toStdString()};
}

Ended run(const QStringList& arguments, const QByteArray& input = {})
{
    return runProgram(HOST_PROGRAM, arguments, input);
}

/// The program whose server is a company file behind SQLite's ODBC driver.
Ended runOnSqlite(const QStringList& arguments, const QByteArray& input = {})
{
    return runProgram(HOST_ON_SQLITE, arguments, input);
}

QStringList database(const QString& file)
{
    return {QStringLiteral("--database"), file};
}

Options read(const QStringList& arguments)
{
    return ReadOptions(QStringList{QStringLiteral("tradeforms-host")} + arguments);
}

class Program : public SampleFixture {};

} // namespace

TEST_F(Program, TellsItsVersion)
{
    const Ended ended = run({QStringLiteral("--version")});
    EXPECT_EQ(ended.Code, 0);
    EXPECT_EQ(ended.Out, "tradeforms-host " TRADEFORMS_VERSION "\n");
}

TEST_F(Program, TellsItsOptions)
{
    const Ended ended = run({QStringLiteral("--help")});
    EXPECT_EQ(ended.Code, 0);
    for (const char* option : {"--database", "--user", "--open", "--print-to", "--create-sample",
                               "--accounts", "--until", "--first-administrator", "--version"})
        EXPECT_THAT(ended.Out, HasSubstr(option));
}

TEST_F(Program, AnUnknownScreenIsToldWithTheKnownOnes)
{
    const Ended ended = run(database(File) << QStringLiteral("--open") << QStringLiteral("Chess"));
    EXPECT_EQ(ended.Code, 2);
    EXPECT_THAT(ended.Error, AllOf(HasSubstr("Chess"), HasSubstr("GatePassForm")));
}

TEST_F(Program, WrongOptionsAreRefused)
{
    EXPECT_EQ(run({QStringLiteral("--no-such-option")}).Code, 2);
    EXPECT_EQ(run({QStringLiteral("stray")}).Code, 2);
    EXPECT_EQ(run({QStringLiteral("--accounts"), QStringLiteral("many")}).Code, 2);
    EXPECT_EQ(run({QStringLiteral("--accounts"), QStringLiteral("-1")}).Code, 2);
    EXPECT_EQ(run({QStringLiteral("--until"), QStringLiteral("tomorrow")}).Code, 2);
}

TEST_F(Program, AFolderForPrintedPagesThatCannotBeMadeIsTold)
{
    const Ended ended = run(database(File) << QStringLiteral("--print-to") << File);
    EXPECT_EQ(ended.Code, 1);
    EXPECT_THAT(ended.Error, AllOf(HasSubstr("printed pages"), HasSubstr(File.toStdString())));
    EXPECT_EQ(run({QStringLiteral("--print-to"), QString()}).Code, 2);
}

TEST_F(Program, AMissingDatabaseIsToldWithTheWayOut)
{
    const QString missing = Folder.filePath(QStringLiteral("missing.db"));
    const Ended ended = run(database(missing));
    EXPECT_EQ(ended.Code, 1);
    EXPECT_THAT(ended.Error, AllOf(HasSubstr("missing.db"), HasSubstr("--create-sample")));
    EXPECT_FALSE(QFile::exists(missing));
}

TEST_F(Program, AFileThatIsNoDatabaseIsTold)
{
    const QString other = Folder.filePath(QStringLiteral("letter.txt"));
    QFile file(other);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("Dear Sir, ").repeated(500));
    file.close();
    const Ended ended = run(database(other));
    EXPECT_EQ(ended.Code, 1);
    EXPECT_THAT(ended.Error, HasSubstr("tradeforms-host: "));
}

TEST_F(Program, ACompanyOfANewerVersionIsTold)
{
    Connection->Execute("pragma user_version = 9999");
    const Ended ended = run(database(File));
    EXPECT_EQ(ended.Code, 1);
    EXPECT_THAT(ended.Error, HasSubstr("newer version"));
}

TEST_F(Program, ReachesACompanyThroughADriverAsWellAsAsAFile)
{
    const QString driver =
        QStringLiteral("Driver=SQLite3;Database=%1;LoadExt=" COMPANY_EXTENSION).arg(File);
    // The wrong password is told by the same login as that of a file.
    const Ended wrong = runOnSqlite(
        database(driver) << QStringLiteral("--user") << QStringLiteral("clerk"), "wrong\n");
    EXPECT_EQ(wrong.Code, 1);
    EXPECT_THAT(wrong.Error, HasSubstr("Wrong user name or password"));

    // The right one leads on to what the library says of the user.
    Connection->Execute("update Users set UserNo = 256 where UserName = 'clerk'");
    const Ended in = runOnSqlite(
        database(driver) << QStringLiteral("--user") << QStringLiteral("clerk"), "sample\n");
    EXPECT_EQ(in.Code, 1);
    EXPECT_THAT(in.Error, AllOf(HasSubstr("clerk"), HasSubstr("256"), HasSubstr("255")));
}

TEST_F(Program, AServerThatIsNotThereIsToldInTheDriversWords)
{
    const Ended ended = run(database(QStringLiteral("DSN=NoSuchSource;PWD=secret")));
    EXPECT_EQ(ended.Code, 1);
    EXPECT_THAT(ended.Error, AllOf(HasSubstr("could not be opened: Data source name not found"),
                                   Not(HasSubstr("secret"))));
}

TEST_F(Program, ADatabaseWithoutACompanyIsToldWithTheWayOut)
{
    const QString other = Folder.filePath(QStringLiteral("other.db"));
    const Ended ended =
        runOnSqlite(database(QStringLiteral("Driver=SQLite3;Database=%1").arg(other)));
    EXPECT_EQ(ended.Code, 1);
    EXPECT_THAT(ended.Error, AllOf(HasSubstr("holds no company"), HasSubstr("schema script")));
}

TEST_F(Program, AWrongPasswordOnStandardInputEndsIt)
{
    const QStringList asClerk = database(File)
                                << QStringLiteral("--user") << QStringLiteral("clerk");
    const Ended ended = run(asClerk, "wrong\n");
    EXPECT_EQ(ended.Code, 1);
    EXPECT_THAT(ended.Error, HasSubstr("Wrong user name or password"));
    const Ended unknown =
        run(database(File) << QStringLiteral("--user") << QStringLiteral("nobody"), "sample\n");
    EXPECT_EQ(unknown.Code, 1);
    EXPECT_EQ(unknown.Error, ended.Error) << "it does not tell which of the two was wrong";
}

TEST_F(Program, AUserNumberAbove255EndsItWithTheName)
{
    Connection->Execute("update Users set UserNo = 256 where UserName = 'clerk'");
    const Ended ended =
        run(database(File) << QStringLiteral("--user") << QStringLiteral("clerk"), "sample\n");
    EXPECT_EQ(ended.Code, 1);
    EXPECT_THAT(ended.Error, AllOf(HasSubstr("clerk"), HasSubstr("256"), HasSubstr("255")));
}

TEST_F(Program, MakesTheSampleCompanyOnce)
{
    const QString made = Folder.filePath(QStringLiteral("new/made.db"));
    const QStringList create = database(made)
                               << QStringLiteral("--create-sample") << QStringLiteral("--accounts")
                               << QStringLiteral("25") << QStringLiteral("--until")
                               << QStringLiteral("2026-03-31");
    const Ended ended = run(create);
    EXPECT_EQ(ended.Code, 0) << ended.Error;
    const auto company = TradeForms::Connection::Open(made);
    TradeForms::Recordset accounts = company->Execute("select count(*) from InsCustomerHeader");
    EXPECT_EQ(accounts.Fields(0).Value().toInt(), 25);
    TradeForms::Recordset last = company->Execute("select max(GatePassDate) as d from "
                                                  "GatePassHeader where "
                                                  "GatePassDate <= '2026-03-31'");
    EXPECT_GE(last.Value("d").toString(), QStringLiteral("2026-03-25"));

    const Ended again = run(create);
    EXPECT_EQ(again.Code, 1);
    EXPECT_THAT(again.Error, HasSubstr("tradeforms-host: "));
}

TEST_F(Program, ACompanyWithoutLoginsGetsItsFirstAdministrator)
{
    const QString empty = Folder.filePath(QStringLiteral("empty.db"));
    TradeForms::Connection::Open(empty, TradeForms::Connection::Mode::Create).reset();
    const Ended told = run(database(empty));
    EXPECT_EQ(told.Code, 1);
    EXPECT_THAT(told.Error, HasSubstr("--first-administrator"));

    const QStringList add = database(empty)
                            << QStringLiteral("--first-administrator") << QStringLiteral("boss");
    EXPECT_EQ(run(add).Code, 1) << "a password is needed";
    EXPECT_EQ(run(add, "secret\n").Code, 0);
    EXPECT_EQ(run(add, "secret\n").Code, 1) << "there is one already";
}

TEST(CommandLine, SampleAloneEndsAndGoesOnWithAUserOrAScreen)
{
    const QString sample = QStringLiteral("--create-sample");
    EXPECT_EQ(read({sample}).Wanted, Options::Action::CreateSample);
    EXPECT_EQ(read({sample, QStringLiteral("--user"), QStringLiteral("clerk")}).Wanted,
              Options::Action::Run);
    const Options opened = read({sample, QStringLiteral("--open"), QStringLiteral("GatePassForm")});
    EXPECT_EQ(opened.Wanted, Options::Action::Run);
    EXPECT_TRUE(opened.CreateSample);
    ASSERT_NE(opened.Open, nullptr);
    EXPECT_STREQ(opened.Open->Key, "MniGatePass");
}

TEST(CommandLine, TakesAFolderToPrintTo)
{
    EXPECT_EQ(read({QStringLiteral("--print-to"), QStringLiteral("out")}).PrintTo,
              QStringLiteral("out"));
    EXPECT_EQ(read({}).PrintTo, QString());
}

TEST(CommandLine, TellsAServerFromAFile)
{
    EXPECT_TRUE(Host::IsOnServer(QStringLiteral("DSN=Company")));
    EXPECT_TRUE(Host::IsOnServer(QStringLiteral("Driver={SQL Server};Server=a;Database=b")));
    EXPECT_FALSE(Host::IsOnServer(QStringLiteral("company.db")));
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a=b.db")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(Host::IsOnServer(file.fileName()));
    const Options sample = read({QStringLiteral("--database"), QStringLiteral("DSN=Company"),
                                 QStringLiteral("--create-sample")});
    EXPECT_EQ(sample.Wanted, Options::Action::Refuse);
}

TEST(CommandLine, ShowsNoPassword)
{
    const auto shown = [](const char* given) {
        return text(Host::ShownDatabase(QString::fromLatin1(given)));
    };
    EXPECT_EQ(shown("DSN=Company;UID=clerk;PWD=geheim"), "DSN=Company;UID=clerk;PWD=***");
    EXPECT_EQ(shown("DSN=Company;password = {a;b}}c};UID=x"), "DSN=Company;password=***;UID=x");
    EXPECT_EQ(shown("DSN=Company;Trusted_Connection=yes"), "DSN=Company;Trusted_Connection=yes");
}

TEST(CommandLine, HasItsDefaults)
{
    const QDate before = QDate::currentDate();
    const Options options = read({});
    EXPECT_GE(options.Until, before);
    EXPECT_LE(options.Until, QDate::currentDate());
    EXPECT_EQ(options.Wanted, Options::Action::Run);
    EXPECT_THAT(text(options.Database), EndsWith("company.db"));
    EXPECT_TRUE(options.UserName.isEmpty());
    EXPECT_EQ(options.Accounts, 400);
    EXPECT_EQ(options.Open, nullptr);
}

} // namespace tests
