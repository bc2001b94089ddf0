#include "data/Statement.h"
#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

using namespace TradeForms;

namespace {

std::string text(const Statement& statement)
{
    return statement.Text().toStdString();
}

std::string failureOf(const Statement& statement)
{
    try {
        statement.Text();
    } catch (const ProviderFailure&) {
        return "a ProviderFailure";
    } catch (const Failure& failure) {
        return failure.Description().toStdString();
    }
    return "no failure";
}

Statement quoted(const QVariant& value)
{
    return Statement("a='{V}'").Bind("V", value);
}

Statement bare(const QVariant& value)
{
    return Statement("a={V}").Bind("V", value);
}

} // namespace

TEST(Statement, FillsQuotedAndBarePlaces)
{
    EXPECT_EQ(text(Statement("Select * from T where A='{Code}' and B ={No} or A='{Code} {No}'")
                       .Bind("Code", QStringLiteral("Kot"))
                       .Bind("No", 12)),
              "Select * from T where A='Kot' and B =12 or A='Kot 12'");
}

TEST(Statement, SplicesAClauseWithItsValuesWhereverItIsNamed)
{
    const Statement clause = Statement(" and BranchCode={n}").Bind("n", QStringLiteral("1"));
    EXPECT_EQ(text(Statement("Select * FROM Areas where AreaCode='{Code}'{Filter}{Filter}")
                       .Bind("Code", QStringLiteral("Kot"))
                       .Splice("Filter", clause)),
              "Select * FROM Areas where AreaCode='Kot' and BranchCode=1 and BranchCode=1");
    EXPECT_EQ(text(Statement("x{Filter}").Splice("Filter", Statement())), "x");
}

TEST(Statement, BindsThePlacesOfASplicedClauseToo)
{
    EXPECT_EQ(text(Statement("{Role}='{Id}'{More}")
                       .Splice("Role", Statement("AMStaffID"))
                       .Splice("More", Statement(" and X='{Id}'"))
                       .Bind("Id", QStringLiteral("5001"))),
              "AMStaffID='5001' and X='5001'");
}

TEST(Statement, LeavesBracesThatAreNoPlaceAsTheyStand)
{
    EXPECT_EQ(text(Statement("a {} {1} { b } {c")), "a {} {1} { b } {c");
}

TEST(Statement, NeverReadsAPlaceInsideAValue)
{
    EXPECT_EQ(text(Statement("'{A}' '{B}'").Bind("A", QStringLiteral("{B}")).Bind("B", 1)),
              "'{B}' '1'");
}

TEST(Statement, WritesNumbersInFull)
{
    EXPECT_EQ(text(bare(1234567890123456789LL)), "a=1234567890123456789");
    EXPECT_EQ(text(bare(1e6)), "a=1000000");
    EXPECT_EQ(text(bare(0.1)), "a=0.1");
    EXPECT_EQ(text(bare(0.00001)), "a=0.00001");
    EXPECT_EQ(text(bare(-0.0)), "a=0");
    EXPECT_EQ(text(bare(true)), "a=1");
    EXPECT_EQ(text(bare(false)), "a=0");
}

TEST(Statement, WritesDoublesThatAreReadBackExactly)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 5000; ++i) {
        double number = 0;
        const quint64 bits = random();
        std::memcpy(&number, &bits, sizeof number);
        if (!std::isfinite(number))
            continue;
        EXPECT_EQ(bare(number).Text().sliced(2).toDouble(), number);
    }
}

TEST(Statement, FailsOnANumberThatIsNone)
{
    EXPECT_THROW(bare(std::numeric_limits<double>::infinity()).Text(), OverflowFailure);
    EXPECT_THROW(quoted(std::numeric_limits<double>::quiet_NaN()).Text(), OverflowFailure);
}

TEST(Statement, WritesDatesInTheConnectionsOwnForm)
{
    EXPECT_EQ(text(quoted(QDate(2026, 3, 9))), "a='2026-03-09'");
    EXPECT_EQ(text(quoted(QDateTime(QDate(2026, 3, 9), QTime(14, 5, 6)))),
              "a='2026-03-09 14:05:06'");
    Dialect server;
    server.DateFormat = QStringLiteral("yyyyMMdd");
    EXPECT_EQ(quoted(QDate(2026, 3, 9)).Text(server), QStringLiteral("a='20260309'"));
}

TEST(Statement, ANullIsAnEmptyTextBetweenQuotes)
{
    EXPECT_EQ(text(quoted(QVariant())), "a=''");
    EXPECT_EQ(text(quoted(QString())), "a=''");
    EXPECT_EQ(text(quoted(QDate())), "a=''");
}

TEST(Statement, AQuoteInAQuotedValueFails)
{
    EXPECT_EQ(failureOf(quoted(QStringLiteral("O'Brien"))),
              "Unclosed quotation mark after the character string 'O'Brien'.");
    EXPECT_EQ(failureOf(quoted(QStringLiteral("x' or 1=1 --"))),
              "Unclosed quotation mark after the character string 'x' or 1=1 --'.");
}

TEST(Statement, ALongValueIsCutInTheFailure)
{
    const QString value = QStringLiteral("'") + QString(10000, u'ک');
    EXPECT_EQ(failureOf(quoted(value)),
              QStringLiteral("Unclosed quotation mark after the character string '%1…'.")
                  .arg(value.first(60))
                  .toStdString());
}

TEST(Statement, ABareValueThatIsNoNumberFails)
{
    EXPECT_EQ(failureOf(bare(QStringLiteral("12 or 1=1"))), "Incorrect syntax near '12 or 1=1'.");
    EXPECT_EQ(failureOf(bare(QStringLiteral("abc"))), "Incorrect syntax near 'abc'.");
    EXPECT_EQ(failureOf(bare(QDate(2026, 1, 1))), "Incorrect syntax near '2026-01-01'.");
}

TEST(Statement, AnEmptyBareValueNamesWhatStandsBefore)
{
    EXPECT_EQ(failureOf(bare(QString())), "Incorrect syntax near '='.");
    EXPECT_EQ(failureOf(bare(QStringLiteral("  "))), "Incorrect syntax near '='.");
    EXPECT_EQ(failureOf(bare(QVariant())), "Incorrect syntax near '='.");
    EXPECT_EQ(failureOf(Statement("in ({A}, {B})").Bind("A", 1).Bind("B", QString())),
              "Incorrect syntax near ','.");
    EXPECT_EQ(failureOf(Statement("where x between {A}").Bind("A", QString())),
              "Incorrect syntax near 'between'.");
}

TEST(Statement, ATextThatIsANumberMayStandBareAndIsTrimmed)
{
    EXPECT_EQ(text(bare(QStringLiteral(" 12 "))), "a=12");
    EXPECT_EQ(text(bare(QStringLiteral("-1.50"))), "a=-1.50");
}

TEST(Statement, ANegativeNumberAfterAMinusIsNoComment)
{
    EXPECT_EQ(text(Statement("10-{V}").Bind("V", -5)), "10- -5");
}

TEST(Statement, AnOpenPlaceFails)
{
    EXPECT_EQ(failureOf(Statement("a={V}")), "The statement has no value for 'V'.");
}

TEST(Statement, AFailedStatementIsTheProvidersAndRunsNothing)
{
    const TestCompany company;
    const auto connection = company.Connect();
    const Statement insert =
        Statement("insert into Sectors values (9, '{Name}')").Bind("Name", QStringLiteral("it's"));
    EXPECT_THROW(connection->Execute(insert), ProviderFailure);
    ASSERT_EQ(connection->Errors().Count(), 1);
    EXPECT_EQ(connection->Errors().Item(0).Description,
              QStringLiteral("Unclosed quotation mark after the character string 'it's'."));
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(3));

    Recordset recordset;
    EXPECT_THROW(recordset.Open(Statement("select * from Sectors where SectorID={V}")
                                    .Bind("V", QStringLiteral("1; drop table Sectors")),
                                connection),
                 ProviderFailure);
    EXPECT_FALSE(recordset.IsOpen());
    EXPECT_EQ(connection->Errors().Count(), 1);
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(3));
}

TEST(Statement, AnyTextWithoutAQuoteComesBackThroughALiteral)
{
    const TestCompany company;
    const auto connection = company.Connect();
    const QString alphabet =
        QStringLiteral(
            "aZ09 %_;-/*[]\"`(){}=,.\\\t\n\r@#$ isnull(left( dbo. getdate() قصورے ۱۲ é ß 中 ") +
        QString::fromUcs4(U"\U0001F600", 1);
    std::mt19937 random(42);
    for (int i = 0; i < 400; ++i) {
        QString value;
        for (int n = int(random() % 40); n > 0; --n) {
            const int at = int(random() % quint32(alphabet.size()));
            value += alphabet[at].isSurrogate() ? alphabet.last(2) : QString(alphabet[at]);
        }
        const Recordset recordset = connection->Execute(
            Statement("select '{V}' as v, left('{V}', 40) as l where '{V}' = '{V}'")
                .Bind("V", value));
        ASSERT_EQ(recordset.RecordCount(), 1) << value.toStdString();
        EXPECT_EQ(recordset.Value("v").toString(), value);
        EXPECT_EQ(recordset.Value("l").toString(), value);
    }
}

TEST(Statement, CarriesAVeryLongText)
{
    const TestCompany company;
    const auto connection = company.Connect();
    const QString value(10000, u'ک');
    connection->Execute(Statement("insert into Sectors values (9, '{V}')").Bind("V", value));
    EXPECT_EQ(company.Scalar("select SectorName from Sectors where SectorID=9"), QVariant(value));
}

TEST(Statement, ATextWithANulFailsAndRunsNothing)
{
    const TestCompany company;
    const auto connection = company.Connect();
    const QString value = QStringLiteral("a") + QChar(u'\0') + QStringLiteral("b");
    EXPECT_THROW(
        connection->Execute(Statement("insert into Sectors values (9, '{V}')").Bind("V", value)),
        ProviderFailure);
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(3));
}
