#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <random>

using namespace TradeForms;

namespace {

class Filtered : public testing::Test {
protected:
    void SetUp() override
    {
        company_.Run("insert into RecoveryBody values "
                     "(1, '2026-01-05', 'Kot 1', '1', 10, 500),"
                     "(1, '2026-01-05', 'KOT 2 ', '2', 11, 700.5),"
                     "(1, '2026-01-06', 'Raja 1', '1', 12, null),"
                     "(1, null, 'قصور 3', null, 13, 0)");
        rows_.Open(Statement("select * from RecoveryBody"), company_.Connect());
    }

    int count(const char* criterion)
    {
        rows_.SetFilter(Statement(criterion));
        return rows_.RecordCount();
    }

    int found(const char* criterion)
    {
        rows_.Find(Statement(criterion));
        return rows_.Eof() ? -1 : rows_.Position();
    }

    TestCompany company_;
    Recordset rows_;
};

} // namespace

TEST_F(Filtered, ComparesTextsAsTheDatabaseDoes)
{
    EXPECT_EQ(count("InsCustomerID='kot 1'"), 1);
    EXPECT_EQ(count("inscustomerid = 'Kot 2'"), 1);
    EXPECT_EQ(count("InsCustomerID='قصور 3'"), 1);
    EXPECT_EQ(count("InsCustomerID<>'kot 1'"), 3);
    EXPECT_EQ(count("InsCustomerID < 'L'"), 2);
    EXPECT_EQ(count("CardNo >= '1'"), 3);
}

TEST_F(Filtered, ComparesNumbersWhicheverWayTheyAreWritten)
{
    EXPECT_EQ(count("ReceiptNo=11"), 1);
    EXPECT_EQ(count("ReceiptNo='11'"), 1);
    EXPECT_EQ(count("Amount=700.50"), 1);
    EXPECT_EQ(count("Amount > 0"), 2);
    EXPECT_EQ(count("Amount<=500"), 2);
    EXPECT_EQ(count("CardNo = 1"), 2);
    EXPECT_EQ(count("ReceiptNo='abc'"), 0);
}

TEST_F(Filtered, TakesADoubledQuoteForOne)
{
    company_.Run("insert into RecoveryBody (VoucherID, InsCustomerID) values (1, 'it''s'), "
                 "(1, 'it')");
    rows_.Requery();
    EXPECT_EQ(count("InsCustomerID='it''s'"), 1);
    EXPECT_EQ(count("InsCustomerID='it''s' or InsCustomerID = 'it'"), 2);
    EXPECT_THROW(count("InsCustomerID='it' s'"), Failure);
}

TEST_F(Filtered, ComparesDates)
{
    EXPECT_EQ(count("VoucherDate='2026-01-05'"), 2);
    EXPECT_EQ(count("VoucherDate > '2026-01-05'"), 1);
    EXPECT_EQ(count("VoucherDate<>'2026-01-05'"), 1);
}

TEST_F(Filtered, FindsANullNeitherEqualNorUnequal)
{
    EXPECT_EQ(count("Amount=0"), 1);
    EXPECT_EQ(count("Amount<>0"), 2);
    EXPECT_EQ(count("CardNo like '%'"), 3);
}

TEST_F(Filtered, JoinsComparisons)
{
    EXPECT_EQ(count("VoucherID=1 and InsCustomerID='kot 1'"), 1);
    EXPECT_EQ(count("VoucherID=2 and InsCustomerID='kot 1'"), 0);
    EXPECT_EQ(count("ReceiptNo=10 or ReceiptNo=12"), 2);
    EXPECT_EQ(count("ReceiptNo=10 or ReceiptNo=12 and Amount=1"), 1);
    EXPECT_EQ(count("ReceiptNo=10 AND VoucherID=1 OR ReceiptNo=13 and [VoucherID]=1"), 2);
}

TEST_F(Filtered, KnowsLike)
{
    EXPECT_EQ(count("InsCustomerID like 'KOT%'"), 2);
    EXPECT_EQ(count("InsCustomerID like 'kot*'"), 2);
    EXPECT_EQ(count("InsCustomerID like '% 1'"), 2);
    EXPECT_EQ(count("InsCustomerID like '%قص%'"), 1);
    EXPECT_EQ(count("ReceiptNo like '1%'"), 4);
    EXPECT_EQ(count("ReceiptNo like '%2'"), 1);
    EXPECT_EQ(count("InsCustomerID like 'K_t%'"), 0);
}

TEST_F(Filtered, FailsOnWhatItCannotReadAndKeepsTheFilter)
{
    ASSERT_EQ(count("ReceiptNo=10"), 1);
    for (const char* criterion :
         {"", "ReceiptNo", "ReceiptNo=", "ReceiptNo=abc", "ReceiptNo='10", "=10", "ReceiptNo ! 10",
          "ReceiptNo=10 and", "ReceiptNo=10 xor ReceiptNo=11", "NoSuchColumn=1",
          "ReceiptNo=10 ReceiptNo=11"})
        EXPECT_THROW(rows_.SetFilter(Statement(criterion)), Failure) << criterion;
    EXPECT_EQ(rows_.RecordCount(), 1);
}

TEST_F(Filtered, AQuoteInAValueIsAPlainFailure)
{
    const Statement criterion =
        Statement("InsCustomerID='{V}'").Bind("V", QStringLiteral("x' or 'a'='a"));
    try {
        rows_.SetFilter(criterion);
        FAIL();
    } catch (const ProviderFailure&) {
        FAIL() << "the database has nothing to do with it";
    } catch (const Failure&) {
    }
    EXPECT_THROW(rows_.Find(criterion), Failure);
}

TEST_F(Filtered, MovesToTheFirstRecordThatIsLeft)
{
    rows_.MoveLast();
    rows_.SetFilter(Statement("ReceiptNo >= 12"));
    EXPECT_EQ(rows_.Value("ReceiptNo"), QVariant(12));
    EXPECT_TRUE(rows_.HasFilter());
    rows_.ClearFilter();
    EXPECT_FALSE(rows_.HasFilter());
    EXPECT_EQ(rows_.Value("ReceiptNo"), QVariant(10));
    EXPECT_EQ(rows_.RecordCount(), 4);
}

TEST_F(Filtered, LeavesBothEndsWhereNothingIsLeft)
{
    rows_.SetFilter(Statement("ReceiptNo=99"));
    EXPECT_TRUE(rows_.Bof());
    EXPECT_TRUE(rows_.Eof());
    EXPECT_EQ(rows_.Position(), -1);
}

TEST_F(Filtered, FindBeginsAtTheFirstRecordEachTime)
{
    EXPECT_EQ(found("CardNo='1'"), 0);
    EXPECT_EQ(found("CardNo='1'"), 0);
    EXPECT_EQ(found("ReceiptNo=12"), 2);
    EXPECT_EQ(found("CardNo like '2%'"), 1);
    EXPECT_EQ(found("ReceiptNo=99"), -1);
    EXPECT_TRUE(rows_.Eof());
    EXPECT_FALSE(rows_.Bof());
}

TEST_F(Filtered, FindLooksOnlyAtVisibleRecordsAndTakesOneComparison)
{
    rows_.SetFilter(Statement("ReceiptNo>=11"));
    EXPECT_EQ(found("CardNo='1'"), 1);
    EXPECT_EQ(found("ReceiptNo=10"), -1);
    EXPECT_THROW(rows_.Find(Statement("ReceiptNo=11 and CardNo='2'")), Failure);
}

TEST_F(Filtered, ReadsOverATextThatIsANumberBeyondAll)
{
    company_.Run("update RecoveryBody set CardNo='1e999' where ReceiptNo=11");
    rows_.Requery();
    EXPECT_EQ(count("CardNo = 1"), 2);
    EXPECT_THROW(count("CardNo = 1e999"), OverflowFailure);
}

TEST(Criterion, AgreesWithTheDatabaseOnRandomRows)
{
    const TestCompany company;
    std::mt19937 random(11);
    const char* const texts[] = {"'Kot 1'", "'kot 1 '", "'RAJA'", "'قصور'", "''", "null", "'12'"};
    const char* const numbers[] = {"1", "2.5", "0", "null", "-3", "12"};
    for (int i = 0; i < 300; ++i)
        company.Run(QStringLiteral("insert into PreviousBalances (InsCustomerID, Amount) "
                                   "values (%1, %2)")
                        .arg(QString::fromUtf8(texts[random() % std::size(texts)]),
                             QString::fromUtf8(numbers[random() % std::size(numbers)])));
    const auto connection = company.Connect();
    Recordset rows;
    rows.Open(Statement("select * from PreviousBalances"), connection);
    const char* const operators[] = {"=", "<>", "<", ">", "<=", ">=", "like"};
    for (int i = 0; i < 300; ++i) {
        QByteArray criterion;
        for (int n = int(random() % 3); n >= 0; --n) {
            const bool isText = random() % 2;
            const char* value = isText ? texts[random() % std::size(texts)]
                                       : numbers[random() % std::size(numbers)];
            if (qstrcmp(value, "null") == 0)
                value = isText ? "'x'" : "7";
            const char* const op = operators[random() % (isText ? 7 : 6)];
            criterion += QByteArray(isText ? "InsCustomerID " : "Amount ") + op + ' ' + value;
            if (n > 0)
                criterion += random() % 2 ? " and " : " or ";
        }
        const QString text = QString::fromUtf8(criterion);
        rows.SetFilter(Statement(text));
        EXPECT_EQ(
            rows.RecordCount(),
            connection
                ->Execute(Statement(QStringLiteral("select * from PreviousBalances where ") + text))
                .RecordCount())
            << criterion.toStdString();
    }
}
