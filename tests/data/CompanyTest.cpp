#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

using namespace TradeForms;

namespace {

class Company : public testing::Test {
protected:
    QVariant value(const char* statement)
    {
        const Recordset rows = connection_->Execute(statement);
        EXPECT_EQ(rows.RecordCount(), 1) << statement;
        return rows.RecordCount() == 1 ? rows.ValueAt(0, 0) : QVariant(QStringLiteral("no row"));
    }

    QVariant balance(const char* account)
    {
        const Recordset rows = connection_->Execute(
            Statement("select dbo.FunCurrentBalance('{A}')").Bind("A", QString::fromUtf8(account)));
        return rows.ValueAt(0, 0);
    }

    QList<QVariantList> balances()
    {
        return company_.Rows("select InsCustomerID, Balance from InstallmentBalances "
                             "order by InsCustomerID");
    }

    TestCompany company_;
    std::shared_ptr<Connection> connection_ = company_.Connect();
};

QVariantList row(const char* account, double balance)
{
    // A whole amount is stored as an integer.
    const bool isWhole = balance == qlonglong(balance);
    return {QString::fromUtf8(account), isWhole ? QVariant(qlonglong(balance)) : QVariant(balance)};
}

} // namespace

TEST_F(Company, BalanceIsTheTotalLessAllThatWasPaid)
{
    company_.Run("insert into InsCustomerHeader (InsCustomerID, TotalAmount) values "
                 "('Kot 1', 50000), ('Kot 2', null), ('Kot 3', 100)");
    EXPECT_EQ(balance("Kot 1"), QVariant(50000.0));
    company_.Run("insert into PreviousBalances (InsCustomerID, Amount) values ('Kot 1', 10000);"
                 "insert into RecoveryBody (InsCustomerID, Amount) values "
                 "('Kot 1', 1500), ('KOT 1 ', 500.25), ('Kot 3', null);"
                 "insert into ConcessionBody (InsCustomerID, Amount) values ('Kot 1', 100);"
                 "insert into ReturnBody (InsCustomerID, Amount, TotalAmount) values "
                 "('Kot 1', 200, 99999)");
    EXPECT_EQ(balance("Kot 1"), QVariant(37699.75));
    EXPECT_EQ(balance("kot 1"), QVariant(37699.75));
    EXPECT_EQ(balance("Kot 2"), QVariant(0.0));
    EXPECT_EQ(balance("Kot 3"), QVariant(100.0));
    EXPECT_FALSE(balance("Kot 9").isValid());
    EXPECT_EQ(value("select isnull(dbo.FunCurrentBalance('Kot 9'),0)"), QVariant(0));
}

TEST_F(Company, BalanceOfAnAccountThatIsPaidOffIsExactlyNothing)
{
    company_.Run("insert into InsCustomerHeader (InsCustomerID, AreaCode, SaleDate, TotalAmount) "
                 "values ('Kot 1', 'Kot', '2025-01-01', 100.3)");
    for (int i = 0; i < 3; ++i)
        company_.Run("insert into RecoveryBody (InsCustomerID, VoucherDate, Amount) values "
                     "('Kot 1', '2026-01-05', 33.1), ('Kot 1', '2026-01-06', 0.3333)");
    company_.Run("insert into RecoveryBody (InsCustomerID, VoucherDate, Amount) values "
                 "('Kot 1', '2026-01-07', 0.0001)");
    EXPECT_EQ(balance("Kot 1"), QVariant(0.0));
    connection_->Execute("exec spRecoveryPrize 'Kot','2026-03-01'");
    EXPECT_EQ(value("select count(*) as total from InstallmentBalances where balance<>0"),
              QVariant(0));
}

TEST_F(Company, BalanceReadsNoConversion)
{
    company_.Run("insert into InsCustomerHeader (InsCustomerID, TotalAmount) values ('Kot 1', 500);"
                 "insert into ConvertArea (FromInsCustomerID, FromAmount, TotalAmount, "
                 "ToInsCustomerID, ToAmount) values ('Kot 1', 100, 500, 'Raja 9', 400)");
    EXPECT_EQ(balance("Kot 1"), QVariant(500.0));
}

TEST_F(Company, BalanceIsAColumnLikeAnyOther)
{
    company_.Run("insert into InsCustomerHeader (InsCustomerID, CardNo, AreaCode, TotalAmount) "
                 "values ('Kot 1', '1', 'Kot', 500), ('Kot 2', '2', 'Kot', 700);"
                 "insert into RecoveryBody (InsCustomerID, Amount) values ('Kot 2', 50)");
    const Recordset rows = connection_->Execute(
        "SELECT InsCustomerID, dbo.FunCurrentBalance(insCustomerID) as Balance "
        "from InsCustomerHeader order by InsCustomerID");
    EXPECT_EQ(rows.ValueAt(0, 1), QVariant(500.0));
    EXPECT_EQ(rows.ValueAt(1, 1), QVariant(650.0));
}

TEST_F(Company, ProductNamesTheLinesInTheirOrder)
{
    company_.Run("insert into InsCustomerBody (InsCustomerID, ProductID, Qty) values "
                 "('Kot 1', '210', 2), ('Kot 1', '101', 1), ('Kot 2', '104', 1), "
                 "('Kot 1', '233', 1.5), ('Kot 1', '999', 1)");
    EXPECT_EQ(value("select dbo.FunGetProduct('kot 1')"),
              QStringLiteral("واشنگ مشین x2, موٹر سائیکل 125 سی سی, ریفریجریٹر درمیانہ x1.5"));
    EXPECT_EQ(value("select dbo.FunGetProduct('Kot 9')"), QVariant(QStringLiteral("")));
    company_.Run("insert into InsCustomerHeader (InsCustomerID) values ('Kot 2')");
    connection_->Execute("update InsCustomerHeader set Product = dbo.FunGetProduct('Kot 2') "
                         "where InsCustomerID = 'Kot 2'");
    EXPECT_EQ(company_.Scalar("select Product from InsCustomerHeader"),
              QStringLiteral("موٹر سائیکل 70 سی سی"));
}

TEST_F(Company, ProductWithTheSignsOfADateIsItsName)
{
    company_.Run("insert into Products (ProductID, ProductName) values ('300', 'PKGS-01-31');"
                 "insert into InsCustomerBody (InsCustomerID, ProductID, Qty) values "
                 "('Kot 1', '300', 1)");
    EXPECT_EQ(value("select dbo.FunGetProduct('Kot 1')"), QVariant(QStringLiteral("PKGS-01-31")));
}

TEST_F(Company, CustomerIsTheLastOneWithTheUnit)
{
    company_.Run("insert into InsCustomerBody (InsCustomerID, EngineNo, ChasisNo) values "
                 "('Kot 1', 'E-77', 'C-1'), ('Raja 2', 'X', 'e-77'), ('Kot 3', 'E-78', ''), "
                 "('Kot 4', '', null)");
    EXPECT_EQ(value("select dbo.FunGetCustomer('E-77') as InsCustomerID"),
              QStringLiteral("Raja 2"));
    EXPECT_EQ(value("select dbo.FunGetCustomer('c-1 ') as InsCustomerID"), QStringLiteral("Kot 1"));
    EXPECT_FALSE(value("select dbo.FunGetCustomer('E-99') as InsCustomerID").isValid());
    EXPECT_FALSE(value("select dbo.FunGetCustomer('') as InsCustomerID").isValid());
    EXPECT_FALSE(value("select dbo.FunGetCustomer('  ') as InsCustomerID").isValid());
}

TEST_F(Company, AdvanceIsWhatWasLentLessWhatWasTakenBack)
{
    EXPECT_EQ(value("select dbo.FunCurrentAdvance('2014')"), QVariant(6000.0));
    company_.Run("insert into StaffAdvance values ('2014', '2026-01-01', 1000.5);"
                 "insert into Salaries (StaffID, SalaryMonth, Recloan) values "
                 "('2014', '2026-01-01', 500), ('2014', '2026-02-01', null);"
                 "insert into FrenchiserSalaryHeader (StaffID, SalaryMonth, Recloan) values "
                 "('2014', '2026-01-01', 20);"
                 "insert into WorkShopSalaryHeader (StaffID, SalaryMonth, Recloan) values "
                 "('2014', '2026-01-01', 3)");
    EXPECT_EQ(value("select dbo.FunCurrentAdvance('2014')"), QVariant(6477.5));
    EXPECT_FALSE(value("select dbo.FunCurrentAdvance('2015')").isValid());
    EXPECT_EQ(value("select isnull(dbo.FunCurrentAdvance('2015'),0)"), QVariant(0));
}

TEST_F(Company, StockIsWhatCameInLessWhatWentOut)
{
    company_.Run("insert into StockOutHeader (StockID, BranchCode) values (1, 1);"
                 "insert into StockOutBody (StockID, ProductID, Qty) values (1, '101', 3);"
                 "insert into GatePassHeader (GatePassID, BranchCode) values (1, 1), (2, 2);"
                 "insert into GatePassBody values (1, '101', 5, 7, 1), (1, '104', 14, 0, 0), "
                 "(2, '299', 2, 0, null);"
                 "insert into ReturnProducts values (1, 'Kot 1', '101', 9)");
    const auto stock = [&](const char* product, int branch) {
        const Recordset rows = connection_->Execute(
            Statement("SELECT * from vuCurrentStock WHERE ProductID='{P}' and branchcode ={B}")
                .Bind("P", QString::fromUtf8(product))
                .Bind("B", branch));
        EXPECT_LE(rows.RecordCount(), 1);
        return rows.RecordCount() == 1 ? rows.Value("Stock") : QVariant();
    };
    EXPECT_EQ(stock("101", 1), QVariant(13.0));
    EXPECT_EQ(stock("101", 2), QVariant(5.0));
    EXPECT_EQ(stock("104", 1), QVariant(0.0));
    EXPECT_EQ(stock("299", 2), QVariant(-2.0));
    EXPECT_FALSE(stock("299", 1).isValid());
    EXPECT_FALSE(stock("233", 2).isValid());

    const Recordset sums = connection_->Execute(
        "SELECT ProductID, ProductName, Sum(Stock) as Stock FROM VuCurrentStock where 1=1 "
        "AND ProductName Like '%سائیکل%' Group By ProductID, ProductName");
    ASSERT_EQ(sums.RecordCount(), 2);
    EXPECT_EQ(sums.ValueAt(0, 0), QStringLiteral("101"));
    EXPECT_EQ(sums.ValueAt(0, 2), QVariant(18.0));
    EXPECT_EQ(sums.ValueAt(1, 2), QVariant(0.0));
}

TEST_F(Company, StockOfOneProductReadsItsOneLevel)
{
    const Recordset plan = connection_->Execute(
        "EXPLAIN QUERY PLAN SELECT * from vuCurrentStock WHERE ProductID='101' and branchcode =1");
    ASSERT_EQ(plan.RecordCount(), 2);
    for (int step = 0; step < 2; ++step)
        EXPECT_TRUE(plan.ValueAt(step, 3).toString().startsWith(QStringLiteral("SEARCH")));
}

TEST_F(Company, AccountsAreAllAccounts)
{
    const Recordset accounts = connection_->Execute("select * from vuAccounts where AccountNo='7'");
    EXPECT_EQ(accounts.Value("AccountName"), QStringLiteral("حاجی ٹریڈرز"));
    EXPECT_EQ(connection_->Execute("SELECT * FROM vuAccounts").RecordCount(), 3);
}

TEST_F(Company, InstallmentBalancesAreThoseOfADaysVouchers)
{
    company_.Run("insert into InsCustomerHeader (InsCustomerID, TotalAmount) values "
                 "('Kot 1', 1000), ('Kot 2', 2000), ('Kot 3', 3000);"
                 "insert into RecoveryHeader (VoucherID, VoucherDate) values "
                 "(1, '2026-01-05'), (2, '2026-01-05'), (3, '2026-01-06');"
                 "insert into RecoveryBody (VoucherID, VoucherDate, InsCustomerID, Amount) values "
                 "(1, '2026-01-05', 'Kot 1', 100), (2, '2026-01-05', 'KOT 1', 10), "
                 "(2, '2026-01-05', 'Kot 2', 200), (3, '2026-01-06', 'Kot 1', 1), "
                 "(3, '2026-01-06', 'Kot 3', 300), (1, '2026-01-05', 'Gone 1', 5);"
                 "insert into ConcessionBody (InsCustomerID, VoucherDate, Amount) values "
                 "('Kot 1', '2026-01-05', 0.5), ('Kot 1', '2026-01-07', 9);"
                 "insert into ReturnBody (InsCustomerID, VoucherDate, Amount) values "
                 "('Kot 2', '2026-01-04', 50), ('Kot 2', '2026-01-06', 60);"
                 "insert into PreviousBalances (InsCustomerID, PreviousDate, Amount) values "
                 "('Kot 2', '2026-01-01', 7), ('Kot 2', '2026-02-01', 8);"
                 "insert into InstallmentBalances values ('old', 1)");
    connection_->Execute("exec SPInstallmentBalances '2026-01-05'");
    EXPECT_EQ(balances(),
              (QList<QVariantList>{row("Gone 1", -5), row("Kot 1", 889.5), row("Kot 2", 1743)}));
    connection_->Execute("exec SPInstallmentBalances '01/06/2026'");
    EXPECT_EQ(balances(), (QList<QVariantList>{row("Kot 1", 888.5), row("Kot 3", 2700)}));
    connection_->Execute("exec SPInstallmentBalances '2030-01-01'");
    EXPECT_TRUE(balances().isEmpty());
}

TEST_F(Company, RecoveryPrizeTakesTheCardsThatWereDueWhenTheMonthBegan)
{
    company_.Run(
        "insert into InsCustomerHeader (InsCustomerID, AreaCode, SaleDate, ChangeDate, "
        "TotalAmount) values "
        "('Kot 1', 'Kot', '2026-01-31', null, 1000),"
        "('Kot 2', 'KOT ', '2025-06-01', '2026-01-31', 2000),"
        "('Kot 3', 'Kot', '2026-02-01', null, 3000),"
        "('Kot 4', 'Kot', '2025-06-01', '2026-02-01', 4000),"
        "('Kot 5', 'Kot', null, null, 5000),"
        "('Kot 6', 'Kot', '2025-06-01', null, 600),"
        "('Raja 1', 'Raja', '2025-06-01', null, 7000);"
        "insert into RecoveryBody (InsCustomerID, VoucherDate, Amount) values "
        "('Kot 1', '2026-01-31', 100), ('Kot 1', '2026-02-01', 50), ('Kot 6', '2026-01-01', 600)");
    for (const char* statement :
         {"exec spRecoveryPrize 'Kot','2026-02-01'", "exec spRecoveryPrize 'kot','2026-02-17'"}) {
        connection_->Execute(statement);
        EXPECT_EQ(balances(),
                  (QList<QVariantList>{row("Kot 1", 900), row("Kot 2", 2000), row("Kot 6", 0)}));
        EXPECT_EQ(value("select count(*) as total from InstallmentBalances where balance<>0"),
                  QVariant(2));
    }
}

TEST_F(Company, AFailedProcedureLeavesTheBalancesAlone)
{
    company_.Run("insert into InstallmentBalances values ('old', 1)");
    EXPECT_THROW(connection_->Execute("exec spRecoveryPrize 'Kot','never'"), ProviderFailure);
    EXPECT_EQ(balances(), (QList<QVariantList>{row("old", 1)}));
}

TEST_F(Company, APrintLeavesOutAVoucherWithoutItsAreaOrManagers)
{
    company_.Run(
        "insert into InsCustomerHeader (InsCustomerID, Name) values ('Kot 1', 'عبداللہ');"
        "insert into InstallmentBalances values ('Kot 1', 400);"
        "insert into RecoveryHeader (VoucherID, AreaCode, AMStaffID, SAMStaffID, StaffID) values "
        "(1, 'KOT', '5001', '5002', null), (2, 'Kot', 'gone', '5002', null), "
        "(3, 'Kot', '5001', null, null), (4, 'gone', '5001', '5002', null);"
        "insert into RecoveryBody (VoucherID, InsCustomerID, Amount) values "
        "(1, 'KOT 1', 100), (2, 'Kot 1', 100), (3, 'Kot 1', 100), (4, 'Kot 1', 100), "
        "(1, 'Kot 2', 100)");
    const auto printed = [&](int voucher) {
        return connection_
            ->Execute(
                Statement(" Select  h.*,ar.AreaName,AM.Name as AMName,SAM.Name as SAMName, w.Name "
                          "as StaffName, b.CardNo, ih.Name, ih.FName, ih.City, ReceiptNo, Amount, "
                          "i.Balance from (select * from RecoveryHeader where VoucherID={id}) h "
                          "join Areas ar on h.AreaCode=ar.AreaCode join Staff AM on "
                          "h.AMStaffID=AM.StaffID join Staff SAM on h.SAMStaffID=SAM.StaffID left "
                          "outer join Staff w on h.StaffID=w.StaffID inner join RecoveryBody b on "
                          "b.voucherid = h.voucherid inner join InstallmentBalances i on "
                          "i.insCustomerID = b.insCustomerID inner join InsCustomerHeader ih on "
                          "ih.insCustomerID = b.insCustomerID Order By ReceiptNo")
                    .Bind("id", voucher))
            .RecordCount();
    };
    EXPECT_EQ(printed(1), 1);
    EXPECT_EQ(printed(2), 0);
    EXPECT_EQ(printed(3), 0);
    EXPECT_EQ(printed(4), 0);
}

TEST_F(Company, TheWorkTableOfConversionsHasTheColumnsOfAccountsInTheirOrder)
{
    EXPECT_EQ(company_.Rows("select name, type from pragma_table_info('Tempinscustomerheader')"),
              company_.Rows("select name, type from pragma_table_info('InsCustomerHeader')"));
}

TEST_F(Company, TextColumnsCompareInTheCompanysWay)
{
    // In a column without the collation a code would be found only in the case in which it was
    // stored.
    const QList<QVariantList> tables = company_.Rows(
        "select name, sql from sqlite_schema where type='table' and name not like 'sqlite_%'");
    int texts = 0;
    for (const QVariantList& table : tables) {
        for (const QString& line : table[1].toString().split(u'\n')) {
            if (line.contains(QStringLiteral(" TEXT"))) {
                ++texts;
                EXPECT_TRUE(line.contains(QStringLiteral("TEXT COLLATE CI")))
                    << table[0].toString().toStdString() << ": " << line.toStdString();
            }
        }
    }
    EXPECT_GT(texts, 100);
}

TEST_F(Company, TheNextCardOfAnAreaIsReadFromAnIndex)
{
    company_.Run(
        "insert into InsCustomerHeader (InsCustomerID, AreaCode, Old, AutoCard) values "
        "('Kot 9', 'Kot', 0, '9'), ('Kot 10', 'Kot', 0, '10'), ('Kot 99', 'Kot', 1, '99')");
    const char* statement = "Select isnull(max(cast(Autocard as int)),0) + 1  from "
                            "InsCustomerHeader Where old=0 and AreaCode = 'Kot'";
    EXPECT_EQ(value(statement), QVariant(11));
    const Recordset plan = connection_->Execute(
        Statement(QStringLiteral("EXPLAIN QUERY PLAN ") + QString::fromUtf8(statement)));
    EXPECT_TRUE(plan.ValueAt(0, 3).toString().contains(
        QStringLiteral("InsCustomerHeader_AutoCard (AreaCode=? AND Old=?)")));
    // The query plan is the same whether all cards of the area are read or the last one alone; only
    // the byte code shows at which end the index is entered.
    Recordset program =
        connection_->Execute(Statement(QStringLiteral("EXPLAIN ") + QString::fromUtf8(statement)));
    QStringList seeks;
    for (; !program.Eof(); program.MoveNext())
        if (program.Value("opcode").toString().startsWith(QStringLiteral("Seek")))
            seeks.append(program.Value("opcode").toString());
    EXPECT_EQ(seeks, QStringList(QStringLiteral("SeekLE")));
}
