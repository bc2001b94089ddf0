#include "data/sqlite/Adapter.h"

#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <random>

using namespace TradeForms;

namespace {

std::string adapted(const char* text)
{
    return AdaptStatement(text).Text.toStdString();
}

QVariant value(Connection& connection, const char* statement)
{
    const Recordset recordset = connection.Execute(statement);
    EXPECT_EQ(recordset.RecordCount(), 1) << statement;
    return recordset.ValueAt(0, 0);
}

std::string failureOf(Connection& connection, const QString& statement)
{
    try {
        connection.Execute(Statement(statement));
    } catch (const ProviderFailure& failure) {
        EXPECT_EQ(connection.Errors().Count(), 1);
        EXPECT_EQ(connection.Errors().Item(0).Description, failure.Description());
        EXPECT_NE(failure.Number(), 0);
        return failure.what();
    }
    return "no failure";
}

} // namespace

TEST(Adapter, LeavesWhatNeedsNoChange)
{
    for (const char* text :
         {"Select * from GatePassHeader where GatePassID = 1",
          " select InsC.*, ar.AreaName FROM InsCustomerHeader InsC left outer join Areas ar on 1=1",
          "update T set A='x', [Order]=0 where B = 2", "select a b, sum(qty)qty from T",
          "select left, right from T", "select count(*) from [dbo.x] where a like '[a-c]%'"})
        EXPECT_EQ(adapted(text), text);
}

TEST(Adapter, RenamesFunctionsInAnyCase)
{
    EXPECT_EQ(adapted("select ISNULL(a,0) from T"), "select ifnull(a,0) COLLATE CI from T");
    EXPECT_EQ(adapted("select Left (a,2) x"), "select tf_left (a,2) COLLATE CI x");
    EXPECT_EQ(adapted("select isnull(a,0)a, isnull(b,0)[b]"),
              "select ifnull(a,0) COLLATE CI a, ifnull(b,0) COLLATE CI [b]");
    EXPECT_EQ(adapted("select month(a)"), "select CAST(tf_month(a) AS INTEGER)");
    EXPECT_EQ(adapted("select left(a,PATINDEX('% %',a)-1)"),
              "select tf_left(a,CAST(tf_patindex('% %',a) AS INTEGER)-1) COLLATE CI");
}

TEST(Adapter, LeavesLiteralsQuotedNamesAndCommentsAlone)
{
    for (const char* text :
         {"select 'isnull(left(dbo.x' as a", "select 'it''s left(' as a", "select [left(] from T",
          "select \"dbo.left(\" from T", "select a /* left(x, dbo.y) ' */ from T",
          "select a -- isnull('\n from T"})
        EXPECT_EQ(adapted(text), text);
}

TEST(Adapter, DropsTheSchemaOfAName)
{
    EXPECT_EQ(adapted("select dbo.FunCurrentBalance(a) from dbo . T"),
              "select FunCurrentBalance(a) from   T");
    EXPECT_EQ(adapted("select DBO.FunGetProduct('a')"), "select FunGetProduct('a') COLLATE CI");
}

TEST(Adapter, TakesADatePartForAName)
{
    EXPECT_EQ(adapted("select dateadd(d,-1,dateadd(m,1,max(x)))"),
              "select tf_dateadd('d',-1,tf_dateadd('m',1,max(x)))");
    EXPECT_EQ(adapted("select dateadd(d'x'e,1)"), "select tf_dateadd('d' 'x' 'e',1)");
}

TEST(Adapter, TellsThatFewRowsLieInARangeOfDates)
{
    EXPECT_EQ(adapted("select * from T where Day between '2026-01-01' and '2026-01-31'"),
              "select * from T where unlikely(Day between '2026-01-01' and '2026-01-31')");
    EXPECT_EQ(adapted("select * from T WHERE[Day]BETWEEN'2026-01-01'AND'2026-01-31'order by 1"),
              "select * from T WHERE unlikely([Day]BETWEEN'2026-01-01'AND'2026-01-31')order by 1");
    EXPECT_EQ(adapted("select a from T where T.d between '2026-01-01 08:00:00' and '2026-01-31' "
                      "and left(b,1)='x'"),
              "select a from T where unlikely(T.d between '2026-01-01 08:00:00' and '2026-01-31') "
              "and tf_left(b,1) COLLATE CI='x'");
}

TEST(Adapter, LeavesOtherRangesAlone)
{
    for (const char* text :
         {"select * from T where a between 1 and 2", "select * from T where a between 'a' and 'b'",
          "select * from T where a between '2026-01-01' and '2026-01-31' || 'x'",
          "select * from T where a between '2026-01-01' and b",
          "select * from T where 1 + a between '2026-01-01' and '2026-01-31'",
          "select * from T where not a between '2026-01-01' and '2026-01-31'",
          "select a from (select a from T) t where a between '2026-01-01' and '2026-01-31'",
          "select a between '2026-01-01' and '2026-01-31' from T",
          "select * from T where a between", "select * from T where T.", "select * from T where"})
        EXPECT_EQ(adapted(text), text);
}

TEST(Adapter, PutsAnAliasThatStandsInFrontBehind)
{
    EXPECT_EQ(adapted("select 'advance' = case when a = 1 then 2 else 3 end from T where x = 'y'"),
              "select  case when a = 1 then 2 else 3 end COLLATE CI AS \"advance\" from T "
              "where x = 'y'");
    EXPECT_EQ(adapted("select distinct total = sum(a), b from T"),
              "select distinct  sum(a) AS total, b from T");
    EXPECT_EQ(adapted("select x from (select 'a' = 1, [b] = 2) t"),
              "select x from (select  1 AS \"a\",  2 AS [b]) t");
    EXPECT_EQ(adapted("select 'a' = 1"), "select  1 AS \"a\"");
}

TEST(Adapter, DoesNotTakeAComparisonForAnAlias)
{
    for (const char* text : {"select a from T where 'x' = b", "update T set a = 1, b = 2"})
        EXPECT_EQ(adapted(text), text);
    EXPECT_EQ(adapted("select case when 'a' = b then 1 end from T"),
              "select case when 'a' = b then 1 end COLLATE CI from T");
}

TEST(Adapter, ReadsACallOfAProcedure)
{
    const AdaptedStatement call =
        AdaptStatement("EXEC dbo.spRecoveryPrize 'Kot ''x','2026-01-01', -5;");
    ASSERT_TRUE(call.Procedure);
    EXPECT_EQ(call.Procedure->Name, "spRecoveryPrize");
    EXPECT_EQ(call.Procedure->Arguments, (QList<QByteArray>{"Kot 'x", "2026-01-01", "-5"}));
    EXPECT_THROW(AdaptStatement("exec"), ProviderFailure);
    EXPECT_THROW(AdaptStatement("exec P 'a' 'b'"), ProviderFailure);
    EXPECT_THROW(AdaptStatement("exec P 'a',"), ProviderFailure);
    EXPECT_THROW(AdaptStatement("exec P select"), ProviderFailure);
}

TEST(Adapter, LetsTheHostsOwnTablesPass)
{
    const char* create = "create table Day (left int, Name varchar(30), [Order] bit default (0))";
    EXPECT_EQ(adapted(create), create);

    const TestCompany company;
    const auto connection = company.Connect();
    connection->Execute("create table UserRights (UserNo int, ScreenKey varchar(40), "
                        "CanModify bit, CanDelete bit)");
    connection->Execute("alter table Users add UserName varchar(40)");
    connection->Execute("alter table Users add Administrator bit");
    connection->Execute("create index ix_rights on UserRights (UserNo)");
    connection->Execute("insert into UserRights values (1, 'MniGatePass', 1, 0)");
    connection->Execute("update Users set UserName='اکرم', Administrator=1 where UserNo=1");
    const Recordset users = connection->Execute("select * from Users where UserNo=1");
    EXPECT_EQ(users.Value("username").toString(), QStringLiteral("اکرم"));
    EXPECT_EQ(users.Value("Administrator"), QVariant(true));
    const Recordset rights = connection->Execute("select * from UserRights");
    EXPECT_EQ(rights.Value("CanModify"), QVariant(true));
    EXPECT_EQ(rights.Value("CanDelete"), QVariant(false));
}

TEST(Adapter, RunsOneStatementAtATime)
{
    const TestCompany company;
    const auto connection = company.Connect();
    for (const char* text : {"delete from Sectors; delete from Parts", "select 1; select 2",
                             "delete from Sectors;;-- x\n delete from Parts"})
        EXPECT_EQ(failureOf(*connection, QString::fromUtf8(text)),
                  "Only one statement can be run at a time: there is more after its end.")
            << text;
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(3));
    EXPECT_EQ(company.Scalar("select count(*) from Parts"), QVariant(3));
    EXPECT_EQ(value(*connection, "select 1 ; ; -- done"), QVariant(1));
}

TEST(Adapter, ReportsAStatementThatCannotBeRead)
{
    const TestCompany company;
    const auto connection = company.Connect();
    const auto failure = [&](const char* text) {
        return failureOf(*connection, QString::fromUtf8(text));
    };
    EXPECT_EQ(failure("select 'abc"), "Unclosed quotation mark after the character string 'abc'.");
    EXPECT_EQ(failure("select a /* b"), "A comment is not closed.");
    EXPECT_EQ(failure("select [a"), "A name in brackets is not closed.");
    EXPECT_EQ(failure("  "), "There is no statement to run.");
    EXPECT_EQ(failure("-- nothing"), "There is no statement to run.");
    EXPECT_EQ(failure("select * from NoSuchTable"), "no such table: NoSuchTable");
    EXPECT_EQ(failure("select \"NoSuchColumn\" from Staff"), "no such column: NoSuchColumn");
    EXPECT_EQ(failure("exec NoSuchProcedure"), "There is no procedure 'NoSuchProcedure'.");
    EXPECT_EQ(failure("exec SPInstallmentBalances"),
              "Procedure 'SPInstallmentBalances' takes 1 arguments.");
    EXPECT_EQ(failure("exec SPInstallmentBalances 'today'"), "'today' is not a date.");
    EXPECT_EQ(failure("select dateadd(fortnight,1,'2026-01-01')"),
              "dateadd cannot add 'fortnight'.");
    EXPECT_EQ(failure("select month('abc')"), "'abc' is not a date.");
    EXPECT_EQ(failure("select left('abc',-1)"),
              "Invalid length parameter passed to the left function.");
}

TEST(Dialect, ComparesTextsWithoutCaseAndTrailingBlanks)
{
    const TestCompany company;
    const auto connection = company.Connect();
    for (const char* statement : {"select count(*) from Areas where AreaCode = 'KOT'",
                                  "select count(*) from Areas where AreaCode = 'kot  '",
                                  "select count(*) from Areas where left(AreaCode,3) = 'kOt '",
                                  "select count(*) from Areas where right(AreaCode,3) = 'KOT'",
                                  "select count(*) from Areas where isnull(AreaCode,'') = 'kot'",
                                  "select count(*) from Areas where upper(AreaCode) = 'kot'",
                                  "select count(*) from Areas where AreaCode like 'k_T'"})
        EXPECT_EQ(value(*connection, statement), QVariant(1)) << statement;
}

TEST(Dialect, ComparesNumbersWithTheirTexts)
{
    const TestCompany company;
    const auto connection = company.Connect();
    EXPECT_EQ(value(*connection, "select count(*) from Users where month(FromDate)='1' and "
                                 "year(FromDate)='2026'"),
              QVariant(1));
    EXPECT_EQ(value(*connection, "select count(*) from Products where ProductID = 101"),
              QVariant(1));
    EXPECT_EQ(value(*connection, "select count(*) from Branches where BranchCode = '1'"),
              QVariant(1));
}

TEST(Dialect, TakesDatesApartAndAddsToThem)
{
    const TestCompany company;
    const auto connection = company.Connect();
    EXPECT_EQ(value(*connection, "select day('2026-03-09')"), QVariant(9));
    EXPECT_EQ(value(*connection, "select month('03/09/2026')"), QVariant(3));
    EXPECT_EQ(value(*connection, "select year('20260309')"), QVariant(2026));
    EXPECT_EQ(value(*connection, "select month(null)"), QVariant());
    EXPECT_EQ(value(*connection, "select dateadd(m,1,'2026-01-31')"), QDate(2026, 2, 28));
    EXPECT_EQ(value(*connection, "select dateadd(d,-1,dateadd(m,1,'2026-02-01'))"),
              QDate(2026, 2, 28));
    EXPECT_EQ(value(*connection, "select dateadd(yy,-1,'2024-02-29')"), QDate(2023, 2, 28));
    EXPECT_EQ(value(*connection, "select dateadd(hh,25,'2026-01-01')"),
              QVariant(QDateTime(QDate(2026, 1, 2), QTime(1, 0))));
    EXPECT_EQ(value(*connection, "select dateadd(d,1,'2026-01-01 10:30:00')"),
              QVariant(QDateTime(QDate(2026, 1, 2), QTime(10, 30))));
    EXPECT_EQ(value(*connection, "select dateadd(d,1,null)"), QVariant());
    QDateTime before = QDateTime::currentDateTime();
    before = before.addMSecs(-before.time().msec());
    const QDateTime now = value(*connection, "select getdate()").toDateTime();
    EXPECT_GE(now, before);
    EXPECT_LE(now, QDateTime::currentDateTime());
}

TEST(Dialect, ReadsTheFirstDayOfTheCarriedAdvanceAsADate)
{
    const TestCompany company;
    const auto connection = company.Connect();
    const char* statement = "select isnull(dateadd(d,-1,dateadd(m,1,max(SalaryMonth))),"
                            "'01/01/2006')max from Salaries where staffid='2014'";
    EXPECT_EQ(value(*connection, statement), QDate(2006, 1, 1));
    company.Run("insert into Salaries (StaffID, SalaryMonth) values ('2014', '2026-02-01')");
    const Recordset recordset = connection->Execute(statement);
    EXPECT_EQ(recordset.Value("max"), QDate(2026, 2, 28));
}

TEST(Dialect, CountsCharactersAndNotBytes)
{
    const TestCompany company;
    const auto connection = company.Connect();
    EXPECT_EQ(value(*connection, "select left('لاہور',2)"), QStringLiteral("لا"));
    EXPECT_EQ(value(*connection, "select right('لاہور',2)"), QStringLiteral("ور"));
    EXPECT_EQ(value(*connection, "select len('لاہور  ')"), QVariant(5));
    EXPECT_EQ(value(*connection, "select left('ab',9)"), QStringLiteral("ab"));
    EXPECT_EQ(value(*connection, "select right('ab',9)"), QStringLiteral("ab"));
    EXPECT_EQ(value(*connection, "select right('ab',0)"), QString());
    EXPECT_EQ(value(*connection, "select len(null)"), QVariant());
}

TEST(Dialect, SplitsAnAccountKeyAtItsFirstBlank)
{
    const TestCompany company;
    const auto connection = company.Connect();
    company.Run("insert into ConvertArea (FromInsCustomerID) values ('Kot 12 B'), ('Raja 7')");
    const Recordset parts = connection->Execute(
        "select left(frominscustomerid,PATINDEX('% %',frominscustomerid)-1) as Area, "
        "right(frominscustomerid,len(frominscustomerid)-PATINDEX('% %',frominscustomerid)) as Card "
        "from convertArea order by frominscustomerid");
    ASSERT_EQ(parts.RecordCount(), 2);
    EXPECT_EQ(parts.ValueAt(0, 0), QStringLiteral("Kot"));
    EXPECT_EQ(parts.ValueAt(0, 1), QStringLiteral("12 B"));
    EXPECT_EQ(parts.ValueAt(1, 0), QStringLiteral("Raja"));
    EXPECT_EQ(parts.ValueAt(1, 1), QStringLiteral("7"));
}

TEST(Dialect, ReadsAColumnThatIsAddedBetweenTwoRunsOfAStatement)
{
    const TestCompany company;
    const auto connection = company.Connect();
    EXPECT_EQ(connection->Execute("select * from Parts").FieldCount(), 3);
    connection->Execute("alter table Parts add Shelf varchar(10)");
    const Recordset parts = connection->Execute("select * from Parts");
    EXPECT_EQ(parts.FieldCount(), 4);
    EXPECT_EQ(parts.FieldName(3), QStringLiteral("Shelf"));
}

TEST(Adapter, ADroppedSchemaLetsNoCommentBegin)
{
    EXPECT_EQ(AdaptStatement("select 1 -dbo.-2").Text, "select 1 - -2");
    EXPECT_EQ(AdaptStatement("select 1 /dbo.*2").Text, "select 1 / *2");
    EXPECT_EQ(AdaptStatement("select 'a'dbo.'b'").Text, "select 'a' 'b'");
}

TEST(Adapter, KeepsRandomTextsWhole)
{
    // Statements of parts that need no change must be unchanged in every combination.
    const char* const pieces[] = {"'left('",   "'it''s'",   "[isnull(x]", "\"dbo.\"", "/* ' */",
                                  "-- exec\n", "a",         "12.5e-3",    "<>",       "(",
                                  ")",         "left join", ",",          "case",     "when",
                                  "'قصور'",    "0x1F",      "=",          "month",    "dbo"};
    std::mt19937 random(99);
    for (int i = 0; i < 3000; ++i) {
        QByteArray text = "update T set x";
        int open = 0;
        for (int n = 1 + int(random() % 20); n > 0; --n) {
            QByteArray piece = pieces[random() % std::size(pieces)];
            if (piece == ")" && open == 0)
                continue;
            open += int(piece == "(") - int(piece == ")");
            // A word before a parenthesis would be a function call.
            if (piece == "(")
                piece = "+ (";
            text += ' ' + piece;
        }
        EXPECT_EQ(AdaptStatement(text).Text, text);
    }
}
