#include "data/Connection.h"
#include "data/Recordset.h"
#include "support/EveryTable.h"
#include "support/TestCompany.h"
#include "tools/Program.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <thread>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace tests {

namespace {

class BackupProgram : public testing::Test {
protected:
    QString place(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
    QStringList files() const { return QDir(folder_.path()).entryList(QDir::Files, QDir::Name); }

    static Ended run(const QStringList& arguments) { return RunProgram(BACKUP_PROGRAM, arguments); }
    QStringList toPlace(const QString& place) const
    {
        return {QStringLiteral("--database"), company_.File(), QStringLiteral("--to"), place};
    }
    static QStringList restore(const QString& backup, const QString& company)
    {
        return {QStringLiteral("--restore"), backup, QStringLiteral("--database"), company};
    }
    /// Makes the company so large that a copy takes its time.
    void makeLarge() const
    {
        company_.Run("create table Papers (Content BLOB);"
                     "with recursive n(i) as (select 1 union all select i + 1 from n where i < 60)"
                     "insert into Papers select randomblob(1000000) from n");
    }

    TestCompany company_;
    QTemporaryDir folder_;
};

} // namespace

TEST_F(BackupProgram, TellsItsOptionsAndVersion)
{
    const Ended help = run({QStringLiteral("--help")});
    EXPECT_EQ(help.Code, 0);
    for (const char* option : {"--database", "--to", "--replace", "--keep", "--restore", "--verify",
                               "--quiet", "--version"})
        EXPECT_THAT(help.Out, HasSubstr(option));
    const Ended version = run({QStringLiteral("--version")});
    EXPECT_EQ(version.Code, 0);
    EXPECT_EQ(version.Out.rfind("tradeforms-backup ", 0), 0u);
}

TEST_F(BackupProgram, ACommandLineWithoutSenseIsRefused)
{
    const auto refused = [](const QStringList& arguments) {
        const Ended ended = run(arguments);
        EXPECT_EQ(ended.Code, 2) << arguments.join(u' ').toStdString();
        EXPECT_THAT(ended.Error, HasSubstr("tradeforms-backup: "));
    };
    refused({});
    refused({QStringLiteral("--no-such-option")});
    refused({QStringLiteral("stray")});
    refused({QStringLiteral("--database"), company_.File()});
    refused({QStringLiteral("--to"), place("copy.db")});
    refused(toPlace(place("copy.db")) << QStringLiteral("--keep") << QStringLiteral("2"));
    refused(toPlace(folder_.path()) << QStringLiteral("--keep") << QStringLiteral("none"));
    refused(toPlace(folder_.path()) << QStringLiteral("--keep") << QStringLiteral("0"));
    refused(restore(place("a.db"), place("b.db")) << QStringLiteral("--replace"));
    refused({QStringLiteral("--verify"), place("a.db"), QStringLiteral("--to"), place("b.db")});
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(BackupProgram, ACompanyGoesOutAndComesBack)
{
    AddHostTables(company_);
    FillEveryTable(company_, 15);
    const auto then = ContentsOf(company_.File());
    const Ended taken = run(toPlace(place("copy.db")));
    EXPECT_EQ(taken.Code, 0) << taken.Error;
    EXPECT_THAT(taken.Out, AllOf(HasSubstr("Backup "), HasSubstr("copy.db"), HasSubstr(" rows in "),
                                 HasSubstr(" tables")));
    EXPECT_THAT(taken.Error, AllOf(HasSubstr("Counting rows"), HasSubstr("Copying 100 %\n"),
                                   HasSubstr("Checking the copy\n"), Not(HasSubstr("\r"))));
    EXPECT_LT(std::ranges::count(taken.Error, '\n'), 40) << "not a line for each step";
    ASSERT_TRUE(QFile::copy(place("copy.db"), place("company.db")));
    TradeForms::Connection::Open(place("company.db"))->Execute("delete from RecoveryBody");

    const Ended back = run(restore(place("copy.db"), place("company.db")));
    EXPECT_EQ(back.Code, 0) << back.Error;
    EXPECT_THAT(back.Out, AllOf(HasSubstr("Restored "), HasSubstr("-before-restore-")));
    EXPECT_EQ(ContentsOf(place("company.db")), then);
    const Ended verified = run({QStringLiteral("--verify"), place("company.db")});
    EXPECT_EQ(verified.Code, 0);
    EXPECT_THAT(verified.Out, HasSubstr("Whole "));
}

TEST_F(BackupProgram, AFileThatIsThereIsReplacedOnlyWhenToldSo)
{
    EXPECT_EQ(run(toPlace(place("copy.db"))).Code, 0);
    const Ended second = run(toPlace(place("copy.db")));
    EXPECT_EQ(second.Code, 1);
    EXPECT_THAT(second.Error, HasSubstr("exists already"));
    EXPECT_EQ(run(toPlace(place("copy.db")) << QStringLiteral("--replace")).Code, 0);
}

TEST_F(BackupProgram, InAFolderItGetsATimeAndTheOldestGo)
{
    for (const char* name : {"test-backup-20250101-080000.db", "test-backup-20250102-080000.db",
                             "other-backup-20250101-080000.db"})
        ASSERT_TRUE(QFile::copy(company_.File(), place(name)));
    const Ended ended =
        run(toPlace(folder_.path()) << QStringLiteral("--keep") << QStringLiteral("2"));
    EXPECT_EQ(ended.Code, 0) << ended.Error;
    EXPECT_THAT(ended.Out, HasSubstr("Removed the older backup test-backup-20250101-080000.db"));
    const QStringList left = files();
    ASSERT_EQ(left.size(), 3) << left.join(u' ').toStdString();
    EXPECT_EQ(left[0], QStringLiteral("other-backup-20250101-080000.db"));
    EXPECT_EQ(left[1], QStringLiteral("test-backup-20250102-080000.db"));
    EXPECT_THAT(left[2].toStdString(), testing::MatchesRegex("test-backup-[0-9]+-[0-9]+.db"));
    EXPECT_EQ(ContentsOf(place(left[2].toUtf8().constData())), ContentsOf(company_.File()));
}

TEST_F(BackupProgram, QuietItTellsNothingButFailures)
{
    const Ended ended = run(toPlace(place("copy.db")) << QStringLiteral("--quiet"));
    EXPECT_EQ(ended.Code, 0);
    EXPECT_EQ(ended.Out + ended.Error, "");
    const Ended again = run(toPlace(place("copy.db")) << QStringLiteral("--quiet"));
    EXPECT_EQ(again.Code, 1);
    EXPECT_NE(again.Error, "");
}

TEST_F(BackupProgram, OnATerminalItDrawsABar)
{
    const std::string shown = RunOnTerminal(BACKUP_PROGRAM, toPlace(place("copy.db")));
    EXPECT_THAT(shown, AllOf(HasSubstr("\r[##############################] 100 %  Copying"),
                             HasSubstr("\rChecking the copy"), HasSubstr("Backup ")));
}

TEST_F(BackupProgram, WhileOthersSaveTheCopyIsOfOneMoment)
{
    makeLarge();
    constexpr int usual = 5; // of vouchers that the clerk saves before and after the moment
    std::atomic<bool> isEnough = false;
    std::atomic<int> saved = 0;
    std::thread clerk([&] {
        const auto connection = company_.Connect();
        while (!isEnough) {
            connection->BeginTrans();
            connection->Execute("insert into ReturnHeader (VoucherID) select "
                                "isnull(max(VoucherID),0)+1 from ReturnHeader");
            connection->Execute("insert into ReturnBody (VoucherID) select max(VoucherID) from "
                                "ReturnHeader");
            connection->CommitTrans();
            ++saved;
        }
    });
    const auto waitForSaves = [&saved](int count) {
        while (saved < count)
            std::this_thread::yield();
    };
    waitForSaves(usual);
    const Ended ended = RunAndHold(BACKUP_PROGRAM, toPlace(place("copy.db")), "Copying ",
                                   [&](qint64) { waitForSaves(saved + usual); });
    isEnough = true;
    clerk.join();
    EXPECT_EQ(ended.Code, 0) << ended.Error;
    const auto copy = TradeForms::Connection::Open(place("copy.db"));
    const int headers = copy->Execute("select * from ReturnHeader").RecordCount();
    EXPECT_EQ(copy->Execute("select * from ReturnBody").RecordCount(), headers);
    EXPECT_GE(headers, usual);
    EXPECT_LE(headers, saved - usual);
}

TEST_F(BackupProgram, KilledInItsMidstItLeavesNothingUnderTheName)
{
    makeLarge();
    const Ended killed =
        RunUntilItSays(BACKUP_PROGRAM, toPlace(place("copy.db")), "Copying ", SIGKILL);
    ASSERT_EQ(killed.Code, -1) << killed.Out;
    EXPECT_FALSE(QFile::exists(place("copy.db")));
    EXPECT_TRUE(QFile::exists(place("copy.db.part")));

    const Ended again = run(toPlace(place("copy.db")));
    EXPECT_EQ(again.Code, 0) << again.Error;
    EXPECT_EQ(files(), QStringList{QStringLiteral("copy.db")});
}

TEST_F(BackupProgram, KilledInItsMidstARestoreLeavesTheCompany)
{
    makeLarge();
    ASSERT_EQ(run(toPlace(place("copy.db"))).Code, 0);
    ASSERT_TRUE(QFile::copy(place("copy.db"), place("company.db")));
    TradeForms::Connection::Open(place("company.db"))->Execute("delete from Areas");
    const auto before = ContentsOf(place("company.db"));
    const Ended killed = RunUntilItSays(
        BACKUP_PROGRAM, restore(place("copy.db"), place("company.db")), "Copying ", SIGKILL);
    ASSERT_EQ(killed.Code, -1) << killed.Out;
    EXPECT_EQ(ContentsOf(place("company.db")), before);
    EXPECT_EQ(run(restore(place("copy.db"), place("company.db"))).Code, 0);
    EXPECT_NE(ContentsOf(place("company.db")), before);
}

TEST_F(BackupProgram, InterruptedItCleansUp)
{
    makeLarge();
    for (const int signal : {SIGINT, SIGTERM}) {
        const Ended stopped =
            RunUntilItSays(BACKUP_PROGRAM, toPlace(place("copy.db")), "Copying ", signal);
        EXPECT_EQ(stopped.Code, 4);
        EXPECT_THAT(stopped.Error, HasSubstr("Stopped."));
        EXPECT_TRUE(files().isEmpty()) << files().join(u' ').toStdString();
    }
}

TEST_F(BackupProgram, ADamagedBackupIsToldAndNotRestored)
{
    FillEveryTable(company_, 100);
    ASSERT_EQ(run(toPlace(place("copy.db"))).Code, 0);
    QFile copy(place("copy.db"));
    ASSERT_TRUE(copy.open(QIODevice::ReadWrite));
    copy.resize(copy.size() - 8192);
    copy.close();
    const auto before = ContentsOf(company_.File());
    const Ended verified = run({QStringLiteral("--verify"), place("copy.db")});
    EXPECT_EQ(verified.Code, 1);
    EXPECT_THAT(verified.Error, AllOf(HasSubstr("copy.db"), HasSubstr("is damaged")));
    EXPECT_EQ(run(restore(place("copy.db"), company_.File())).Code, 1);
    EXPECT_EQ(ContentsOf(company_.File()), before);
}

TEST_F(BackupProgram, ACompanyInUseIsNotRestored)
{
    ASSERT_EQ(run(toPlace(place("copy.db"))).Code, 0);
    const auto clerk = company_.Connect();
    const Ended ended = run(restore(place("copy.db"), company_.File()));
    EXPECT_EQ(ended.Code, 1);
    EXPECT_THAT(ended.Error, HasSubstr("is in use"));
}

} // namespace tests
