// Texts are compared without regard to case and trailing blanks, both in columns and in results of
// functions.

#include "data/Connection.h"
#include "data/Recordset.h"
#include "support/TestCompany.h"
#include "support/Text.h"

#include <gtest/gtest.h>

using namespace TradeForms;
using tests::s;

namespace {

class Comparison : public testing::Test {
protected:
    Comparison()
    {
        company_.Run(
            "insert into ConcessionBody (VoucherID, InsCustomerID, CardNo, Remarks, Amount)"
            " values (1, 'Kot 1', 'A', 'paid', 1), (2, 'KOT 1', 'a ', 'PAID ', 2),"
            " (3, 'kot 1 ', 'b', 'open', 3), (4, 'Raja 2', null, 'Öde', 4),"
            " (5, 'RAJA 2', 'B  ', 'öde ', 5)");
    }

    /// The ids of the vouchers that meet a condition, or the first column of a statement.
    QString where(const char* condition)
    {
        return all(
            QStringLiteral("select VoucherID from ConcessionBody where %1 order by VoucherID")
                .arg(QString::fromUtf8(condition)));
    }

    QString all(const QString& statement)
    {
        const Recordset rows = connection_->Execute(Statement(statement));
        QStringList read;
        for (int position = 0; position < rows.RecordCount(); ++position) {
            QStringList row;
            for (int field = 0; field < rows.FieldCount(); ++field)
                row.append(rows.ValueAt(position, field).toString().trimmed().toLower());
            read.append(row.join(u'|'));
        }
        return read.join(u' ');
    }

    QString all(const char* statement) { return all(QString::fromUtf8(statement)); }

    TestCompany company_;
    std::shared_ptr<Connection> connection_ = company_.Connect();
};

} // namespace

TEST_F(Comparison, OfAColumn)
{
    for (const char* condition :
         {"Remarks = 'Paid'", "Remarks = 'PAID   '", "'paid ' = Remarks",
          "Remarks in ('x', 'pAID')", "Remarks between 'PAI' and 'paid'", "not Remarks <> 'PAID'",
          "Remarks like 'PAID'", "Remarks like 'p%D'", "Remarks >= 'PAID' and Remarks <= 'paid'",
          "Remarks in (select 'PAID')",
          "exists (select * from ConcessionBody c where c.Remarks = 'PAID' and "
          "c.Remarks = ConcessionBody.Remarks)"})
        EXPECT_EQ(where(condition), s("1 2")) << condition;
    EXPECT_EQ(where("Remarks = 'ÖDE'"), s("4 5"));
}

TEST_F(Comparison, OfTheResultOfAFunction)
{
    for (const char* condition : {"left(Remarks,4) = 'PAID'",
                                  "right(InsCustomerID,1) = '1' and left(Remarks,1) = 'P'",
                                  "isnull(Remarks,'') = 'paid '",
                                  "'PAID' = isnull(Remarks,'')",
                                  "coalesce(Remarks,'x') = 'PAID'",
                                  "upper(Remarks) = 'paid'",
                                  "lower(Remarks) = 'PAID'",
                                  "rtrim(Remarks) = 'Paid'",
                                  "ltrim(Remarks) = 'Paid'",
                                  "substring(Remarks,1,4) = 'PAID'",
                                  "replace(Remarks,'x','y') = 'PAID'",
                                  "left(Remarks,3) in ('PAI')",
                                  "left(Remarks,4) between 'PAID' and 'paid'",
                                  "left(isnull(Remarks,''),4) = 'PAID'",
                                  "isnull(left(Remarks,4),'') = 'PAID'",
                                  "left(Remarks,3) like 'PA_'",
                                  "len(Remarks) = '4' and Remarks like 'p%'",
                                  "PATINDEX('%AID%',Remarks) = 2",
                                  "case when Amount > 0 then Remarks else '' end = 'PAID'",
                                  "case Remarks when 'PAID' then 1 else 0 end = 1",
                                  "case when Remarks = 'PAID' then 'Yes' else 'no' end = 'YES '",
                                  "'YES' = case when Remarks = 'PAID' then 'Yes' else 'no' end",
                                  "case when Amount > 0 then Remarks end in ('PAID')",
                                  "isnull(case when Amount > 0 then Remarks end,'') = 'PAID'"})
        EXPECT_EQ(where(condition), s("1 2")) << condition;
}

TEST_F(Comparison, OfAccountKeysThatAreTakenApart)
{
    EXPECT_EQ(where("left(InsCustomerID,PATINDEX('% %',InsCustomerID)-1) = 'KOT'"), s("1 2 3"));
    EXPECT_EQ(where("right(InsCustomerID,len(InsCustomerID)-PATINDEX('% %',InsCustomerID)) = '2'"),
              s("4 5"));
}

TEST_F(Comparison, InGroupsAndInWhatIsDistinct)
{
    EXPECT_EQ(all("select Remarks, sum(Amount) from ConcessionBody group by Remarks order by 2, 1"),
              s("open|3 paid|3 öde|9"));
    EXPECT_EQ(all("select left(InsCustomerID,3), count(*) from ConcessionBody "
                  "group by left(InsCustomerID,3) order by 2 desc"),
              s("kot|3 raj|2"));
    EXPECT_EQ(all("select isnull(Remarks,'') r, count(*) from ConcessionBody "
                  "group by isnull(Remarks,'') having count(*) = 1"),
              s("open|1"));
    EXPECT_EQ(all("select case when Amount > 0 then Remarks end, count(*) from ConcessionBody "
                  "group by case when Amount > 0 then Remarks end order by 2, 1"),
              s("open|1 paid|2 öde|2"));
    EXPECT_EQ(all("select count(distinct Remarks) from ConcessionBody"), s("3"));
    EXPECT_EQ(all("select count(distinct left(InsCustomerID,4)) from ConcessionBody"), s("2"));
    EXPECT_EQ(all("select distinct upper(CardNo) from ConcessionBody where CardNo is not null "
                  "order by 1"),
              s("a b"));
    EXPECT_EQ(all("select distinct left(Remarks,4) from ConcessionBody order by 1"),
              s("open paid öde"));
    EXPECT_EQ(all("select Remarks from ConcessionBody where VoucherID = 1 union "
                  "select Remarks from ConcessionBody where VoucherID = 2"),
              s("paid"));
    EXPECT_EQ(all("select Remarks, max(CardNo) from ConcessionBody group by Remarks "
                  "having max(CardNo) = 'A'"),
              s("paid|a"));
    EXPECT_EQ(all("select Remarks from ConcessionBody group by Remarks having min(CardNo) = 'A'"),
              s("paid"));
}

TEST_F(Comparison, InOrder)
{
    for (const char* order : {"Remarks", "left(Remarks,9)", "isnull(Remarks,'')", "upper(Remarks)",
                              "case when 1=1 then Remarks end"})
        EXPECT_EQ(all(s("select VoucherID from ConcessionBody order by %1, VoucherID desc")
                          .arg(s(order))),
                  s("3 2 1 5 4"))
            << order;
    EXPECT_EQ(all("select max(Remarks) from ConcessionBody where VoucherID < 4"), s("paid"));
    EXPECT_EQ(all("select max(CardNo) from ConcessionBody"), s("b"));
    EXPECT_EQ(all("select min(CardNo) from ConcessionBody"), s("a"));
}

TEST_F(Comparison, InJoins)
{
    EXPECT_EQ(
        all("select a.VoucherID, b.VoucherID from ConcessionBody a inner join ConcessionBody b"
            " on a.Remarks = b.Remarks and a.VoucherID < b.VoucherID order by 1"),
        s("1|2 4|5"));
    EXPECT_EQ(
        all("select a.VoucherID, b.VoucherID from ConcessionBody a inner join ConcessionBody b"
            " on left(a.Remarks,4) = left(b.Remarks,4) and a.VoucherID < b.VoucherID"
            " order by 1"),
        s("1|2 4|5"));
    EXPECT_EQ(all("select AreaName from Areas inner join ConcessionBody on "
                  "left(InsCustomerID,3) = AreaCode where VoucherID = 2"),
              s("کوٹ رادھا کشن"));
    EXPECT_EQ(all("select VoucherID from (select VoucherID, isnull(max(Remarks),'') as Last, "
                  "max(CardNo) as Card from ConcessionBody group by VoucherID) t "
                  "where Last = 'PAID' and Card = 'A' order by 1"),
              s("1 2"));
}
