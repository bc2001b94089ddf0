#include "data/Connection.h"
#include "data/Recordset.h"
#include "support/EveryTable.h"
#include "support/TestCompany.h"
#include "tools/Program.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>

#include <csignal>

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace tests {

namespace {

class MoveProgram : public testing::Test {
protected:
    QString place(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
    QStringList files() const { return QDir(folder_.path()).entryList(QDir::Files, QDir::Name); }

    QStringList to(const QString& target) const
    {
        return {QStringLiteral("--from"), company_.File(), QStringLiteral("--to"), target};
    }
    static Ended run(const QStringList& arguments) { return RunProgram(MOVE_PROGRAM, arguments); }
    void makeLarge() const
    {
        company_.Run("with recursive n(i) as (select 1 union all select i + 1 from n where "
                     "i < 200000) insert into RecoveryBody (VoucherID, Amount) select i, i from n");
    }

    TestCompany company_;
    QTemporaryDir folder_;
};

} // namespace

TEST_F(MoveProgram, TellsItsOptionsAndVersion)
{
    const Ended help = run({QStringLiteral("--help")});
    EXPECT_EQ(help.Code, 0);
    for (const char* option :
         {"--from", "--to", "--replace", "--verify-only", "--quiet", "--version"})
        EXPECT_THAT(help.Out, HasSubstr(option));
    const Ended version = run({QStringLiteral("--version")});
    EXPECT_EQ(version.Out.rfind("tradeforms-move ", 0), 0u);
}

TEST_F(MoveProgram, ACommandLineWithoutSenseIsRefused)
{
    EXPECT_EQ(run({}).Code, 2);
    EXPECT_EQ(run({QStringLiteral("--from"), company_.File()}).Code, 2);
    EXPECT_EQ(run({QStringLiteral("--to"), place("new.db")}).Code, 2);
    EXPECT_EQ(run(to(place("new.db")) << QStringLiteral("stray")).Code, 2);
    EXPECT_EQ(
        run(to(place("new.db")) << QStringLiteral("--replace") << QStringLiteral("--verify-only"))
            .Code,
        2);
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(MoveProgram, ACompanyArrivesWholeAndIsProven)
{
    AddHostTables(company_);
    FillEveryTable(company_, 15);
    const Ended moved = run(to(place("new.db")));
    EXPECT_EQ(moved.Code, 0) << moved.Error;
    EXPECT_THAT(moved.Out, AllOf(HasSubstr("Moved "), HasSubstr(" rows in "),
                                 HasSubstr("each of 15 accounts")));
    EXPECT_THAT(moved.Error, AllOf(HasSubstr("Copying RecoveryBody"), HasSubstr("Making indexes"),
                                   HasSubstr("Comparing Areas"), HasSubstr("Comparing balances")));
    EXPECT_EQ(ContentsOf(place("new.db")), ContentsOf(company_.File()));
    EXPECT_EQ(files(), QStringList{QStringLiteral("new.db")});

    const Ended compared =
        run(to(place("new.db")) << QStringLiteral("--verify-only") << QStringLiteral("--quiet"));
    EXPECT_EQ(compared.Code, 0);
    EXPECT_EQ(compared.Out + compared.Error, "");
}

TEST_F(MoveProgram, ADifferenceIsListedAndEndsWithItsOwnCode)
{
    FillEveryTable(company_, 5);
    ASSERT_EQ(run(to(place("new.db"))).Code, 0);
    TradeForms::Connection::Open(place("new.db"))
        ->Execute("update Staff set Advance = 12, Name = 'X' where StaffID = '2014'");
    const Ended compared = run(to(place("new.db")) << QStringLiteral("--verify-only"));
    EXPECT_EQ(compared.Code, 3);
    EXPECT_THAT(compared.Error, AllOf(HasSubstr("The two companies differ:"),
                                      HasSubstr("Table Staff, column Advance: source sum "),
                                      HasSubstr("Table Staff, column Name: source check sum "),
                                      HasSubstr("Nothing was compared after this.")));
    EXPECT_THAT(compared.Error, Not(HasSubstr("Comparing StockInBody")));
    EXPECT_EQ(compared.Out, "");
}

TEST_F(MoveProgram, ATargetThatHasRowsIsRefused)
{
    ASSERT_EQ(run(to(place("new.db"))).Code, 0);
    const Ended again = run(to(place("new.db")));
    EXPECT_EQ(again.Code, 1);
    EXPECT_THAT(again.Error, AllOf(HasSubstr("not empty"), HasSubstr("Areas (3 rows)"),
                                   HasSubstr("Nothing was written")));
    company_.Run("delete from Areas");
    EXPECT_EQ(run(to(place("new.db")) << QStringLiteral("--replace")).Code, 0);
    EXPECT_EQ(ContentsOf(place("new.db")), ContentsOf(company_.File()));
}

TEST_F(MoveProgram, KilledInItsMidstItLeavesNothingUnderTheName)
{
    makeLarge();
    const Ended killed =
        RunUntilItSays(MOVE_PROGRAM, to(place("new.db")), "Copying RecoveryBody", SIGKILL);
    ASSERT_EQ(killed.Code, -1) << killed.Out;
    EXPECT_FALSE(QFile::exists(place("new.db")));
    EXPECT_EQ(run(to(place("new.db"))).Code, 0);
    EXPECT_EQ(files(), QStringList{QStringLiteral("new.db")});
}

TEST_F(MoveProgram, InterruptedItCleansUp)
{
    makeLarge();
    const Ended stopped =
        RunUntilItSays(MOVE_PROGRAM, to(place("new.db")), "Copying RecoveryBody", SIGINT);
    EXPECT_EQ(stopped.Code, 4);
    EXPECT_TRUE(files().isEmpty()) << files().join(u' ').toStdString();
}

TEST_F(MoveProgram, AServerThatIsNotThereIsTold)
{
    const Ended ended = run(to(QStringLiteral("DSN=NoSuchSource")));
    EXPECT_EQ(ended.Code, 1);
    EXPECT_THAT(ended.Error, HasSubstr("tradeforms-move: "));
}

} // namespace tests
