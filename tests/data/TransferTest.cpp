#include "data/Transfer.h"

#include "data/Connection.h"
#include "data/Engine.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "data/TableChecksum.h"
#include "support/Engines.h"
#include "support/EveryTable.h"
#include "support/FaultyDisk.h"
#include "support/TestCompany.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>

using namespace TradeForms;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace {

template <class Work> std::string failureOf(Work work)
{
    try {
        work();
    } catch (const Failure& failure) {
        return failure.what();
    }
    return {};
}

/// The differences of a report as lines.
std::vector<std::string> linesOf(const QList<TransferDifference>& differences)
{
    std::vector<std::string> lines;
    for (const TransferDifference& difference : differences)
        lines.push_back(difference.Text().toStdString());
    return lines;
}

TransferOptions replacing()
{
    TransferOptions options;
    options.Replace = true;
    return options;
}

TransferOptions comparing()
{
    TransferOptions options;
    options.VerifyOnly = true;
    return options;
}

class Transfers : public testing::Test {
protected:
    Transfers() { AddHostTables(source_); }

    QString place(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
    QStringList files() const { return QDir(folder_.path()).entryList(QDir::Files, QDir::Name); }

    /// An existing target with the host's tables and without rows.
    QString emptyTarget() const
    {
        const QString file = place("empty.db");
        const auto connection = Connection::Open(file, Connection::Mode::Create);
        for (const char* statement :
             {"alter table Users add UserName TEXT COLLATE CI",
              "alter table Users add Administrator BIT not null default 0",
              "create table UserRights (UserNo INTEGER not null, ScreenKey TEXT COLLATE CI not "
              "null, CanModify BIT not null default 0, primary key (UserNo, ScreenKey))",
              "create table CompanyInfo (NameUrdu TEXT, LogoFile TEXT)"})
            connection->Execute(statement);
        return file;
    }
    TransferReport verify(const QString& target) const
    {
        return TransferCompany(source_.File(), target, comparing());
    }
    /// The differences that a comparison finds after a change of the target.
    std::vector<std::string> foundAfter(const char* change) const
    {
        const QString target = place("changed.db");
        QFile::remove(target);
        TransferCompany(source_.File(), target);
        Connection::Open(target)->Execute(change);
        const TransferReport report = verify(target);
        EXPECT_FALSE(report.IsProven()) << change;
        return linesOf(report.Differences);
    }

    TestCompany source_;
    QTemporaryDir folder_;
};

} // namespace

TEST_F(Transfers, ComparesEachAccountOnceHoweverManyThereAre)
{
    source_.Run("with recursive n(i) as (select 1 union all select i + 1 from n where i < 1203) "
                "insert into InsCustomerHeader (InsCustomerID, TotalAmount) "
                "select 'Kot ' || i, i from n");
    const TransferReport report = TransferCompany(source_.File(), place("new.db"));
    EXPECT_TRUE(report.IsProven());
    EXPECT_EQ(report.Accounts, 1203);
}

TEST_F(Transfers, AFileThatIsNotProvenIsNotLeftUnderTheName)
{
    // A number that is stored as text, which is converted to a number when it is written again.
    source_.Run("create table Ours (A text); insert into Ours values ('1');"
                "pragma writable_schema = on; update sqlite_schema "
                "set sql = 'create table Ours (A integer)' where name = 'Ours'");
    const TransferReport report = TransferCompany(source_.File(), place("new.db"));
    EXPECT_FALSE(report.IsProven());
    ASSERT_EQ(report.Differences.size(), 1);
    EXPECT_THAT(report.Differences.constFirst().Text().toStdString(),
                HasSubstr("Table Ours, column A: source check sum "));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(Transfers, ANewFileGetsEverything)
{
    FillEveryTable(source_, 25);
    const TransferReport report = TransferCompany(source_.File(), place("new.db"));
    EXPECT_TRUE(report.IsProven()) << testing::PrintToString(linesOf(report.Differences));
    EXPECT_EQ(ContentsOf(place("new.db")), ContentsOf(source_.File()));
    EXPECT_EQ(report.Accounts, 25);
    EXPECT_TRUE(report.Rounded.isEmpty());
    EXPECT_EQ(files(), QStringList{QStringLiteral("new.db")});

    // Results of the database functions are the same as well.
    const auto stockOf = [](const QString& file) {
        const Recordset stock = Connection::Open(file)->Execute(
            "select ProductID, BranchCode, Stock from vuCurrentStock order by ProductID, "
            "BranchCode");
        QList<QVariantList> rows;
        for (int row = 0; row < stock.RecordCount(); ++row)
            rows.append({stock.ValueAt(row, 0), stock.ValueAt(row, 1), stock.ValueAt(row, 2)});
        return rows;
    };
    EXPECT_GE(stockOf(place("new.db")).size(), 5);
    EXPECT_EQ(stockOf(place("new.db")), stockOf(source_.File()));

    // It has the same indexes and triggers as a new company.
    const auto schemaOf = [](const TestCompany& company) {
        return company.Rows("select type, name, sql from sqlite_schema where name not like "
                            "'sqlite%' order by type, name");
    };
    const TestCompany moved;
    QFile::remove(moved.File());
    ASSERT_TRUE(QFile::copy(place("new.db"), moved.File()));
    EXPECT_EQ(schemaOf(moved), schemaOf(source_));
}

TEST_F(Transfers, AnEmptyCompanyGetsEverything)
{
    FillEveryTable(source_, 25);
    const QString target = emptyTarget();
    EXPECT_TRUE(TransferCompany(source_.File(), target).IsProven());
    EXPECT_EQ(ContentsOf(target), ContentsOf(source_.File()));
    const TransferReport again = verify(target);
    EXPECT_TRUE(again.IsProven());
    EXPECT_EQ(again.Accounts, 25);
}

TEST_F(Transfers, NumbersThatTheDatabaseGivesAreKeptAndGoOn)
{
    source_.Run("insert into InsCustomerBody (serialno, InsCustomerID) values (7, 'Kot 1'), "
                "(4000000000, 'Kot 2')");
    TransferCompany(source_.File(), place("new.db"));
    const auto moved = Connection::Open(place("new.db"));
    moved->Execute("insert into InsCustomerBody (InsCustomerID) values ('Kot 3')");
    const Recordset rows = moved->Execute("select serialno from InsCustomerBody order by serialno");
    EXPECT_EQ(rows.ValueAt(0, 0), QVariant(7LL));
    EXPECT_EQ(rows.ValueAt(1, 0), QVariant(4000000000LL));
    EXPECT_EQ(rows.ValueAt(2, 0), QVariant(4000000001LL));
}

TEST_F(Transfers, ATargetThatHasRowsIsRefusedWithItsTables)
{
    FillEveryTable(source_, 3);
    const QString target = emptyTarget();
    Connection::Open(target)->Execute("insert into Areas (AreaCode) values ('Mine')");
    Connection::Open(target)->Execute("insert into CompanyInfo (LogoFile) values ('logo.png')");
    const auto before = ContentsOf(target);
    EXPECT_THAT(failureOf([&] { TransferCompany(source_.File(), target); }),
                AllOf(HasSubstr("not empty"), HasSubstr("Areas (1 rows)"),
                      HasSubstr("CompanyInfo (1 rows)"), Not(HasSubstr("Staff"))));
    EXPECT_EQ(ContentsOf(target), before);

    EXPECT_TRUE(TransferCompany(source_.File(), target, replacing()).IsProven());
    EXPECT_EQ(ContentsOf(target), ContentsOf(source_.File()));
}

TEST_F(Transfers, WhatTheTargetLacksIsToldBeforeAnythingIsWritten)
{
    FillEveryTable(source_, 3);
    const QString bare = place("bare.db");
    Connection::Open(bare, Connection::Mode::Create);
    const auto before = ContentsOf(bare);
    EXPECT_THAT(failureOf([&] { TransferCompany(source_.File(), bare); }),
                AllOf(HasSubstr("lacks tables or columns"), HasSubstr("CompanyInfo"),
                      HasSubstr("UserRights"), HasSubstr("Users.UserName"),
                      HasSubstr("Users.Administrator")));
    EXPECT_EQ(ContentsOf(bare), before);

    // With Prepare, a host can create its own tables before that.
    TransferOptions options;
    options.Prepare = [](Connection& target) {
        for (const char* statement :
             {"alter table Users add UserName TEXT COLLATE CI",
              "alter table Users add Administrator BIT",
              "create table UserRights (UserNo INTEGER, ScreenKey TEXT, CanModify BIT)",
              "create table CompanyInfo (NameUrdu TEXT, LogoFile TEXT)"})
            target.Execute(statement);
    };
    EXPECT_TRUE(TransferCompany(source_.File(), bare, options).IsProven());
}

TEST_F(Transfers, PlacesThatAreNoCompanyAreTold)
{
    const auto refused = [&](const QString& from, const QString& to) {
        return failureOf([&] { TransferCompany(from, to); });
    };
    EXPECT_THAT(refused(place("missing.db"), place("new.db")), HasSubstr("was not found"));
    EXPECT_THAT(refused(source_.File(), place("nowhere/new.db")), HasSubstr("was not found"));
    EXPECT_THAT(refused(source_.File(), source_.File()), HasSubstr("is the company itself"));
    const TestCompany newer;
    newer.Run("pragma user_version = 99");
    EXPECT_THAT(refused(source_.File(), newer.File()), HasSubstr("newer version"));
    EXPECT_THAT(refused(newer.File(), place("new.db")), HasSubstr("newer version"));
    EXPECT_THAT(failureOf([&] { verify(place("missing.db")); }), HasSubstr("was not found"));
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(Transfers, AConnectionStringIsToldFromAFile)
{
    EXPECT_TRUE(IsConnectionString(QStringLiteral("DSN=Company")));
    EXPECT_FALSE(IsConnectionString(QStringLiteral("company.db")));
    QFile odd(place("a=b.db"));
    ASSERT_TRUE(odd.open(QIODevice::WriteOnly));
    EXPECT_FALSE(IsConnectionString(place("a=b.db")));
}

TEST_F(Transfers, ADifferenceInTheNumberOfRowsIsFound)
{
    FillEveryTable(source_, 10);
    const auto found = foundAfter("delete from Parts where PartID=1003");
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found.front(), "Table Parts: source 13 rows, target 12 rows");
}

TEST_F(Transfers, ADifferenceInAnAmountIsFound)
{
    source_.Run("insert into RecoveryBody (VoucherID, InsCustomerID, Amount) values "
                "(1, 'Kot 1', 1500.25), (1, 'Kot 2', -200), (1, 'Kot 3', 99999999999.9999)");
    EXPECT_EQ(foundAfter("update RecoveryBody set Amount = Amount + 0.0001 "
                         "where InsCustomerID = 'Kot 1'"),
              std::vector<std::string>{"Table RecoveryBody, column Amount: source sum "
                                       "100000001300.2499, target sum 100000001300.2500"});
    // Two differences that cancel out in the sum are found as well.
    const auto exchanged = foundAfter("update RecoveryBody set Amount = Amount + "
                                      "case InsCustomerID when 'Kot 1' then 1 when 'Kot 2' then "
                                      "-1 else 0 end");
    ASSERT_EQ(exchanged.size(), 1u);
    EXPECT_THAT(exchanged.front(), AllOf(HasSubstr("column Amount"), HasSubstr("check sum")));
}

TEST_F(Transfers, ADifferenceInAnyOtherColumnIsFoundAndAllOfItsTableAreListed)
{
    const auto found =
        foundAfter("update Areas set AreaName = 'KOT', AMStaffID = null where AreaCode = 'Kot'");
    ASSERT_EQ(found.size(), 2u);
    EXPECT_THAT(found[0], HasSubstr("Table Areas, column AreaName: source check sum "));
    EXPECT_EQ(found[1], "Table Areas, column AMStaffID: source 0 nulls, target 1 nulls");
    source_.Run("insert into Areas (AreaCode, AreaName) values ('X', 'case')");
    EXPECT_EQ(foundAfter("update Areas set AreaName = 'CASE' where AreaCode = 'X'").size(), 1u);
    EXPECT_EQ(foundAfter("update Areas set AreaName = 'case ' where AreaCode = 'X'").size(), 1u);
    EXPECT_EQ(foundAfter("update Users set FromDate = '2026-01-02' where UserNo = 3").size(), 1u);
    EXPECT_EQ(foundAfter("update Staff set FieldWorker = 0 where StaffID = '2014'").size(), 1u);
}

TEST_F(Transfers, ADifferenceInABalanceIsFoundWithItsAccount)
{
    source_.Run("insert into InsCustomerHeader (InsCustomerID, TotalAmount) values "
                "('Kot 1', 50000), ('Kot 2', 700), ('Kot O''Hara', 1)");
    TransferCompany(source_.File(), place("new.db"));
    // The row counts and sums are the same but a balance differs: the spelling of an account is
    // changed so that the database does not find it any more.
    Connection::Open(place("new.db"));
    source_.Run("insert into RecoveryBody (InsCustomerID, Amount) values ('Kot 1', 100), "
                "('Kot 2', 7)");
    const auto target = Connection::Open(place("new.db"));
    target->Execute("insert into RecoveryBody (InsCustomerID, Amount) values ('Kot 1', 7)");
    target->Execute("insert into RecoveryBody (InsCustomerID, Amount) values ('Kot 2', 100)");
    const TransferReport report = verify(place("new.db"));
    EXPECT_EQ(
        linesOf(report.Differences),
        (std::vector<std::string>{"Balance of account Kot 1: source 49900.0000, target 49993.0000",
                                  "Balance of account Kot 2: source 693.0000, target 600.0000"}));
}

TEST_F(Transfers, WhoSavesMeanwhileDoesNotSpoilIt)
{
    FillEveryTable(source_, 10);
    const auto then = ContentsOf(source_.File());
    const auto clerk = source_.Connect();
    int saved = 0;
    TransferOptions options;
    options.Tell = [&](const WorkProgress& progress) {
        if (progress.At != Stage::Counting) {
            clerk->BeginTrans();
            clerk->Execute(Statement("insert into RecoveryBody (VoucherID, InsCustomerID, Amount) "
                                     "values ({N}, 'Kot 1001', 10)")
                               .Bind("N", 5000 + ++saved));
            clerk->Execute("update Areas set AreaName='changed'");
            clerk->CommitTrans();
        }
        return true;
    };
    const TransferReport report = TransferCompany(source_.File(), place("new.db"), options);
    EXPECT_TRUE(report.IsProven()) << testing::PrintToString(linesOf(report.Differences));
    EXPECT_GT(saved, 50);
    EXPECT_EQ(ContentsOf(place("new.db")), then);
}

TEST_F(Transfers, StoppedAtAnyMomentItLeavesNoFile)
{
    FillEveryTable(source_, 10);
    for (const Stage stage :
         {Stage::Counting, Stage::Copying, Stage::Indexing, Stage::Comparing, Stage::Balances}) {
        TransferOptions options;
        options.Tell = [stage](const WorkProgress& progress) { return progress.At != stage; };
        EXPECT_THROW(TransferCompany(source_.File(), place("new.db"), options), CancelledFailure);
        EXPECT_TRUE(files().isEmpty()) << int(stage) << files().join(u' ').toStdString();
    }
}

TEST_F(Transfers, StoppedItLeavesWholeTablesAndBeginsAnewWhenToldSo)
{
    FillEveryTable(source_, 10);
    const QString target = emptyTarget();
    TransferOptions options;
    options.Tell = [](const WorkProgress& progress) {
        return progress.At != Stage::Copying || progress.Table != QStringLiteral("RecoveryBody");
    };
    EXPECT_THROW(TransferCompany(source_.File(), target, options), CancelledFailure);
    EXPECT_EQ(Connection::Open(target)->Execute("select * from RecoveryBody").RecordCount(), 0);
    EXPECT_EQ(Connection::Open(target)->Execute("select * from Areas").RecordCount(), 13);
    EXPECT_THAT(failureOf([&] { TransferCompany(source_.File(), target); }),
                HasSubstr("not empty"));
    EXPECT_TRUE(TransferCompany(source_.File(), target, replacing()).IsProven());
}

TEST_F(Transfers, ADiskThatIsFullIsToldAndLeavesNoFile)
{
    FillEveryTable(source_, 40);
    FaultyDisk disk;
    for (const int operation : {1, 60, 300}) {
        disk.FailAt(operation, FaultyDisk::Fault::Full, FaultyDisk::Lasts::UntilRepaired);
        EXPECT_THAT(failureOf([&] { TransferCompany(source_.File(), place("new.db")); }),
                    HasSubstr("no room left"));
        EXPECT_TRUE(disk.HasFailed());
        disk.Repair();
        EXPECT_TRUE(files().isEmpty()) << operation << files().join(u' ').toStdString();
    }
    EXPECT_TRUE(TransferCompany(source_.File(), place("new.db")).IsProven());
}

TEST_F(Transfers, ARowThatTheTargetRefusesIsToldAndItsTableUndone)
{
    FillEveryTable(source_, 10);
    const QString target = emptyTarget();
    Connection::Open(target)->Execute("create unique index OneName on Staff (Name)");
    EXPECT_THAT(failureOf([&] { TransferCompany(source_.File(), target); }),
                AllOf(HasSubstr("Staff, after "), HasSubstr("same key exists already"),
                      HasSubstr("as it was before")));
    EXPECT_EQ(Connection::Open(target)->Execute("select * from Staff").RecordCount(), 0);
}

TEST_F(Transfers, TheSourceStaysAsItIs)
{
    FillEveryTable(source_, 10);
    const auto before = ContentsOf(source_.File());
    TransferCompany(source_.File(), place("new.db"));
    EXPECT_EQ(ContentsOf(source_.File()), before);
}

TEST_F(Transfers, ATableLongerThanMemoryIsNeverHeld)
{
    // Rows are copied one by one: the first is written before the last is read.
    source_.Run("with recursive n(i) as (select 1 union all select i + 1 from n where i < 20000) "
                "insert into RecoveryBody (VoucherID, Amount) select i, i from n");
    const QString target = emptyTarget();
    qint64 last = 0;
    TransferOptions options;
    options.Tell = [&](const WorkProgress& progress) {
        if (progress.Table == QStringLiteral("RecoveryBody") && progress.At == Stage::Copying) {
            EXPECT_EQ(progress.All, 20000);
            EXPECT_LE(progress.Done - last, 1000);
            last = progress.Done;
        }
        return true;
    };
    EXPECT_TRUE(TransferCompany(source_.File(), target, options).IsProven());
    EXPECT_EQ(last, 20000);
}

#ifndef _WIN32 // where companies are not moved through the one other engine

namespace {

/// A company on another engine than that of its source.
class TransfersThroughOdbc : public Transfers {
protected:
    TransfersThroughOdbc() { AddHostTables(server_); }

    std::shared_ptr<Connection> connect() const
    {
        return tests::ConnectThrough(tests::EngineKind::Odbc, server_);
    }

    TestCompany server_;
};

} // namespace

TEST_F(TransfersThroughOdbc, AllOfACompanyGoesUpAndComesBack)
{
    FillEveryTable(source_, 25);
    const auto server = connect();
    const TransferReport up = TransferCompany(*source_.Connect(), *server, replacing());
    EXPECT_TRUE(up.IsProven()) << testing::PrintToString(linesOf(up.Differences));
    EXPECT_EQ(up.Accounts, 25);
    EXPECT_EQ(ContentsOf(server_.File()), ContentsOf(source_.File()));

    const auto home = Connection::Open(emptyTarget());
    const TransferReport down = TransferCompany(*server, *home);
    EXPECT_TRUE(down.IsProven()) << testing::PrintToString(linesOf(down.Differences));
    EXPECT_EQ(ContentsOf(place("empty.db")), ContentsOf(source_.File()));
}

TEST_F(TransfersThroughOdbc, ATargetThatHasRowsIsRefused)
{
    const auto before = ContentsOf(server_.File());
    EXPECT_THAT(failureOf([&] { TransferCompany(*source_.Connect(), *connect()); }),
                AllOf(HasSubstr("not empty"), HasSubstr("Areas (3 rows)")));
    EXPECT_EQ(ContentsOf(server_.File()), before);
}

TEST_F(TransfersThroughOdbc, DifferencesAreFoundOnBothSides)
{
    FillEveryTable(source_, 5);
    const auto source = source_.Connect();
    const auto server = connect();
    ASSERT_TRUE(TransferCompany(*source, *server, replacing()).IsProven());
    server->Execute("update RecoveryBody set Amount = 12.34 where InsCustomerID = 'Kot 1001'");
    const auto lines = linesOf(TransferCompany(*source, *server, comparing()).Differences);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_THAT(lines.front(), AllOf(HasSubstr("RecoveryBody, column Amount"), HasSubstr("sum ")));
    EXPECT_EQ(linesOf(TransferCompany(*server, *source, comparing()).Differences).size(), 1u);
}

TEST_F(TransfersThroughOdbc, StoppedItLeavesWholeTables)
{
    FillEveryTable(source_, 25);
    const auto server = connect();
    TransferOptions options = replacing();
    options.Tell = [](const WorkProgress& progress) {
        return progress.At != Stage::Copying || progress.Table != QStringLiteral("RecoveryBody");
    };
    EXPECT_THROW(TransferCompany(*source_.Connect(), *server, options), CancelledFailure);
    EXPECT_EQ(server->Execute("select * from Areas").RecordCount(), 28);
    EXPECT_EQ(server->Execute("select * from RecoveryBody").RecordCount(), 0);
    EXPECT_TRUE(TransferCompany(*source_.Connect(), *server, replacing()).IsProven());
}

#endif

TEST(AmountSum, IsExactWhereDoublesAreNot)
{
    AmountSum sum;
    for (int times = 0; times < 10; ++times)
        sum.Add(AmountSum::Of(Cell::FromReal(0.1)));
    EXPECT_EQ(sum, AmountSum::Of(Cell::FromInteger(1)));
    EXPECT_EQ(sum.Text(), QStringLiteral("1.0000"));
    sum.Add(AmountSum::Of(Cell::FromReal(99999999999.9999)));
    sum.Add(AmountSum::Of(Cell::FromReal(-0.0001)));
    EXPECT_EQ(sum.Text(), QStringLiteral("100000000000.9998"));
}

TEST(AmountSum, TellsAmountsBelowNothing)
{
    const auto text = [](double amount) {
        return AmountSum::Of(Cell::FromReal(amount)).Text().toStdString();
    };
    EXPECT_EQ(text(-0.25), "-0.2500");
    EXPECT_EQ(text(-1234.5678), "-1234.5678");
    EXPECT_EQ(text(-1), "-1.0000");
    EXPECT_EQ(text(0.00004), "0.0000");
    EXPECT_EQ(text(-0.00004), "0.0000");
    EXPECT_EQ(text(0.99995), "1.0000") << "as its digits are written";
    EXPECT_EQ(text(1e17), "100000000000000000.0000");
    AmountSum sum = AmountSum::Of(Cell::FromReal(-5.5));
    sum.Add(AmountSum::Of(Cell::FromReal(5.25)));
    EXPECT_EQ(sum.Text(), QStringLiteral("-0.2500"));
}

TEST(TableChecksum, TellsWhereAmountsLostDecimals)
{
    const ResultMetadata columns({{QStringLiteral("Amount"), ColumnKind::Number, {}, {}}});
    const auto checksumOf = [&](const std::vector<double>& amounts) {
        TableChecksum checksum(columns, columns);
        for (const double amount : amounts) {
            std::string row;
            AppendCell(row, Cell::FromReal(amount));
            checksum.Add(row);
        }
        return checksum;
    };
    const TableChecksum source = checksumOf({1.0 / 3, 0.1 + 0.2, 7});
    const TableChecksum target = checksumOf({0.3333, 0.3, 7});
    EXPECT_TRUE(source.Compare(target, QStringLiteral("T")).isEmpty());
    const auto rounded = source.RoundedIn(target, QStringLiteral("T"));
    ASSERT_EQ(rounded.size(), 1);
    EXPECT_EQ(rounded.first().Source, QStringLiteral("1 amounts of more than four decimals"));
    EXPECT_FALSE(source.Compare(checksumOf({0.3334, 0.3, 7}), QStringLiteral("T")).isEmpty());
}
