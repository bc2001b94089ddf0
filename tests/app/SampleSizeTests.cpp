#include "SampleFixture.h"

#include <TradeForms/Failure.h>

namespace tests {

using TradeForms::Connection;
using TradeForms::Recordset;
using TradeForms::Statement;

namespace {

/// What holds of a sample company of either kind: a small one of half a year, and a large one of
/// four years.
class SampleOfAnySize : public testing::TestWithParam<int> {
protected:
    static void SetUpTestSuite() { folder = std::make_unique<QTemporaryDir>(); }
    static void TearDownTestSuite()
    {
        companies.clear();
        folder.reset();
    }

    void SetUp() override
    {
        Made& made = companies[GetParam()];
        if (!made.Company) {
            const QString file = folder->filePath(QString::number(GetParam()));
            Host::MakeSampleCompany(file, GetParam(), lastDay,
                                    [&made](const char* what, int done, int of) {
                                        made.Told.push_back({QString::fromUtf8(what), done, of});
                                    });
            made.Company = Connection::Open(file);
        }
        company = made.Company;
        told = made.Told;
    }

    QVariant Ask(const QString& statement) const
    {
        Recordset rows = company->Execute(Statement(statement));
        return rows.RecordCount() == 0 ? QVariant() : rows.ValueAt(0, 0);
    }
    int Count(const char* from) const
    {
        return Ask(QStringLiteral("select count(*) from ") + QString::fromUtf8(from)).toInt();
    }

    /// What is told while a company is made.
    struct Progress {
        QString Part;
        int Done = 0;
        int Of = 0;
    };

    std::shared_ptr<Connection> company;
    std::vector<Progress> told;

private:
    struct Made {
        std::shared_ptr<Connection> Company;
        std::vector<Progress> Told;
    };

    static inline std::unique_ptr<QTemporaryDir> folder;
    static inline std::map<int, Made> companies;
};

/// A column and the key that it has to find.
struct Reference {
    const char* Table;
    const char* Column;
    const char* To;
    const char* Key;
};

constexpr Reference references[] = {
    {"Areas", "AMStaffID", "Staff", "StaffID"},
    {"Areas", "SAMStaffID", "Staff", "StaffID"},
    {"Areas", "BranchCode", "Branches", "BranchCode"},
    {"Staff", "BranchCode", "Branches", "BranchCode"},
    {"StaffAdvance", "StaffID", "Staff", "StaffID"},
    {"cheque", "staffid", "Staff", "StaffID"},
    {"GatePassHeader", "DriverCode", "Staff", "StaffID"},
    {"GatePassHeader", "ReceivingCode", "Staff", "StaffID"},
    {"GatePassHeader", "AreaCode", "Areas", "AreaCode"},
    {"GatePassHeader", "BranchCode", "Branches", "BranchCode"},
    {"GatePassHeader", "UserNo", "Users", "UserNo"},
    {"GatePassBody", "GatePassID", "GatePassHeader", "GatePassID"},
    {"GatePassBody", "ProductID", "Products", "ProductID"},
    {"StockInHeader", "AccountNo", "Accounts", "AccountNo"},
    {"StockInBody", "StockID", "StockInHeader", "StockID"},
    {"StockInBody", "ProductID", "Products", "ProductID"},
    {"StockOutHeader", "AccountNo", "Accounts", "AccountNo"},
    {"StockOutBody", "StockID", "StockOutHeader", "StockID"},
    {"StockOutBody", "ProductID", "Products", "ProductID"},
    {"StockInDetailHeader", "ReceivingCode", "Staff", "StaffID"},
    {"StockInDetailBody", "StockID", "StockInDetailHeader", "StockID"},
    {"StockInDetailBody", "ProductID", "Products", "ProductID"},
    {"InsCustomerHeader", "AreaCode", "Areas", "AreaCode"},
    {"InsCustomerHeader", "SectorID", "Sectors", "SectorID"},
    {"InsCustomerHeader", "FStaffID", "Staff", "StaffID"},
    {"InsCustomerHeader", "ReceivingCode", "Staff", "StaffID"},
    {"InsCustomerHeader", "AMStaffID", "Staff", "StaffID"},
    {"InsCustomerHeader", "SAMStaffID", "Staff", "StaffID"},
    {"InsCustomerHeader", "CMStaffID", "Staff", "StaffID"},
    {"InsCustomerHeader", "DriverID", "Staff", "StaffID"},
    {"InsCustomerHeader", "UserNo", "Users", "UserNo"},
    {"InsCustomerBody", "InsCustomerID", "InsCustomerHeader", "InsCustomerID"},
    {"InsCustomerBody", "ProductID", "Products", "ProductID"},
    {"ConvertArea", "FromInsCustomerID", "InsCustomerHeader", "InsCustomerID"},
    {"ConvertArea", "ToInsCustomerID", "InsCustomerHeader", "InsCustomerID"},
    {"PreviousBalances", "InsCustomerID", "InsCustomerHeader", "InsCustomerID"},
    {"RecoveryHeader", "AreaCode", "Areas", "AreaCode"},
    {"RecoveryHeader", "AMStaffID", "Staff", "StaffID"},
    {"RecoveryHeader", "SAMStaffID", "Staff", "StaffID"},
    {"RecoveryHeader", "StaffID", "Staff", "StaffID"},
    {"RecoveryBody", "VoucherID", "RecoveryHeader", "VoucherID"},
    {"RecoveryBody", "InsCustomerID", "InsCustomerHeader", "InsCustomerID"},
    {"ConcessionHeader", "AreaCode", "Areas", "AreaCode"},
    {"ConcessionBody", "VoucherID", "ConcessionHeader", "VoucherID"},
    {"ConcessionBody", "InsCustomerID", "InsCustomerHeader", "InsCustomerID"},
    {"ReturnHeader", "AreaCode", "Areas", "AreaCode"},
    {"ReturnBody", "VoucherID", "ReturnHeader", "VoucherID"},
    {"ReturnBody", "InsCustomerID", "InsCustomerHeader", "InsCustomerID"},
    {"ReturnProducts", "VoucherID", "ReturnHeader", "VoucherID"},
    {"ReturnProducts", "InsCustomerID", "InsCustomerHeader", "InsCustomerID"},
    {"ReturnProducts", "ProductID", "Products", "ProductID"},
    {"Salaries", "StaffID", "Staff", "StaffID"},
    {"FrenchiserSalaryHeader", "StaffID", "Staff", "StaffID"},
    {"FrenchiserSalaryBody", "ProductID", "Products", "ProductID"},
    {"WorkShopSalaryHeader", "StaffID", "Staff", "StaffID"},
    {"WorkShopSalaryBody", "PartID", "Parts", "PartID"},
    {"WorkShopPartsHeader", "StaffID", "Staff", "StaffID"},
    {"WorkShopPartsBody", "VoucherID", "WorkShopPartsHeader", "VoucherID"},
    {"WorkShopPartsBody", "PartID", "Parts", "PartID"},
    {"PartnershipProfitHeader", "AreaCode", "Areas", "AreaCode"},
    {"PartnershipProfitBody", "VoucherID", "PartnershipProfitHeader", "VoucherID"},
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Companies, SampleOfAnySize, testing::Values(400, 1500));

TEST_P(SampleOfAnySize, HoldsAsManyAccountsAsWereAskedFor)
{
    EXPECT_EQ(Count("InsCustomerHeader"), GetParam());
}

TEST_P(SampleOfAnySize, HoldsRowsOfEveryKind)
{
    const QStringList empty = {
        QStringLiteral("InstallmentBalances"), QStringLiteral("Tempinscustomerheader"),
        QStringLiteral("TempinscustomerBody"), QStringLiteral("tempproduct")};
    Recordset tables = company->Execute("select name from sqlite_master where type = 'table' and "
                                        "name not like 'sqlite%'");
    for (; !tables.Eof(); tables.MoveNext()) {
        const QString table = tables.Value("name").toString();
        const int rows = Ask(QStringLiteral("select count(*) from [%1]").arg(table)).toInt();
        EXPECT_EQ(rows == 0, empty.contains(table)) << text(table) << " has " << rows;
    }
}

TEST_P(SampleOfAnySize, EveryKeyIsThere)
{
    for (const Reference& reference : references) {
        const QString missing =
            QStringLiteral("select count(*) from [%1] a where a.[%2] is not null and not exists "
                           "(select * from [%3] b where b.[%4] = a.[%2])")
                .arg(QLatin1String(reference.Table), QLatin1String(reference.Column),
                     QLatin1String(reference.To), QLatin1String(reference.Key));
        EXPECT_EQ(Ask(missing).toInt(), 0) << reference.Table << "." << reference.Column;
    }
}

TEST_P(SampleOfAnySize, EveryVoucherHasRows)
{
    EXPECT_EQ(Count("RecoveryHeader where VoucherID not in (select VoucherID from RecoveryBody)"),
              0);
    EXPECT_EQ(Count("ConcessionHeader where VoucherID not in "
                    "(select VoucherID from ConcessionBody)"),
              0);
    EXPECT_EQ(Count("ReturnHeader where VoucherID not in (select VoucherID from ReturnBody)"), 0);
    EXPECT_EQ(Count("WorkShopPartsHeader h where TotalAmount <> (select sum(Amount) from "
                    "WorkShopPartsBody b where b.VoucherID = h.VoucherID)"),
              0);
}

TEST_P(SampleOfAnySize, RunningCardNumbersHaveNoGapsInAnyArea)
{
    EXPECT_EQ(Count("(select AreaCode from InsCustomerHeader where Old = 0 group by AreaCode "
                    "having count(distinct AutoCard) <> max(cast(AutoCard as int)) or "
                    "count(distinct AutoCard) <> count(*) or min(cast(AutoCard as int)) <> 1) a"),
              0);
    EXPECT_EQ(Count("InsCustomerHeader where Old = 0 and AutoCard <> CardNo"), 0);
}

TEST_P(SampleOfAnySize, BalancesLieBetweenNothingAndTheTotal)
{
    EXPECT_EQ(Count("InsCustomerHeader where dbo.FunCurrentBalance(InsCustomerID) < 0 or "
                    "dbo.FunCurrentBalance(InsCustomerID) > TotalAmount"),
              0);
    EXPECT_GT(Count("InsCustomerHeader where dbo.FunCurrentBalance(InsCustomerID) > 0"),
              GetParam() / 8);
    EXPECT_EQ(Count("RecoveryBody where Amount <= 0"), 0);
    EXPECT_EQ(Count("ReturnBody where Amount <= 0 or TotalRecovery + Amount <> TotalAmount"), 0);
}

TEST_P(SampleOfAnySize, ReceiptsStandOnVouchersOfTheirAreaAndDay)
{
    EXPECT_EQ(Count("RecoveryHeader h inner join RecoveryBody b on b.VoucherID = h.VoucherID "
                    "inner join InsCustomerHeader c on c.InsCustomerID = b.InsCustomerID where "
                    "b.VoucherDate <> h.VoucherDate or c.AreaCode <> h.AreaCode or "
                    "b.CardNo <> c.CardNo or c.SaleDate >= b.VoucherDate or "
                    "b.VoucherDate <= c.ChangeDate"),
              0);
    EXPECT_EQ(Count("(select VoucherID from RecoveryBody group by VoucherID, InsCustomerID "
                    "having count(*) > 1) twice"),
              0);
    EXPECT_LE(Ask(QStringLiteral("select max(n) from (select count(*) as n from RecoveryBody "
                                 "group by VoucherID) v"))
                  .toInt(),
              500);
}

TEST_P(SampleOfAnySize, ConversionsAreAsTheConversionFormLeavesThem)
{
    constexpr const char* joined =
        "ConvertArea c inner join InsCustomerHeader o on o.InsCustomerID = c.FromInsCustomerID "
        "inner join InsCustomerHeader n on n.InsCustomerID = c.ToInsCustomerID "
        "inner join PreviousBalances p on p.InsCustomerID = c.ToInsCustomerID and "
        "p.ConvertAccount = 1";
    const int conversions = GetParam() / 50;
    EXPECT_EQ(Count("ConvertArea"), conversions);
    EXPECT_EQ(Count("InsCustomerHeader where ChangeDate is not null"), conversions);
    EXPECT_EQ(Count(joined), conversions);
    const auto broken = [&](const char* condition) {
        return Count((std::string(joined) + " where not (" + condition + ")").c_str());
    };
    EXPECT_EQ(broken("n.Old = 1 and n.Sale = 0 and n.[Order] = 0 and n.AreaCode <> o.AreaCode"), 0);
    EXPECT_EQ(broken("n.ChangeDate = c.ToDate and o.ChangeDate is null"), 0);
    EXPECT_EQ(broken("o.PreviousAccount = n.CardNo || ' ' || n.AreaCode and "
                     "n.PreviousAccount = o.CardNo || ' ' || o.AreaCode"),
              0);
    EXPECT_EQ(broken("c.FromInsCustomerID COLLATE BINARY = upper(c.FromInsCustomerID) and "
                     "c.ToInsCustomerID COLLATE BINARY = upper(c.ToInsCustomerID)"),
              0);
    EXPECT_EQ(broken("c.TotalAmount = o.TotalAmount and n.TotalAmount = o.TotalAmount and "
                     "c.FromAmount + c.ToAmount = c.TotalAmount and c.ToAmount > 0"),
              0);
    EXPECT_EQ(broken("p.Amount = c.FromAmount and p.Previous = 0"), 0);
    EXPECT_EQ(broken("dbo.FunCurrentBalance(o.InsCustomerID) = c.ToAmount"), 0)
        << "nothing moves on the old account any more";
    EXPECT_EQ(broken("p.PreviousDate = isnull((select max(b.VoucherDate) from RecoveryBody b "
                     "where b.InsCustomerID = o.InsCustomerID), o.SaleDate)"),
              0);
    // All else comes over as it stood.
    EXPECT_EQ(broken("n.Name = o.Name and n.FName = o.FName and n.SaleDate = o.SaleDate and "
                     "n.EntryDate = o.EntryDate and n.isPosted = o.isPosted and "
                     "n.MonthlyInstallment = o.MonthlyInstallment and n.Product = o.Product and "
                     "n.GName = o.GName and n.NICNew = o.NICNew and n.AMStaffID = o.AMStaffID and "
                     "isnull(n.AutoCard, '') = isnull(o.AutoCard, '') and "
                     "isnull(n.DriverID, '') = isnull(o.DriverID, '') and n.DOB = o.DOB"),
              0);
    EXPECT_EQ(broken("(select count(*) from InsCustomerBody a inner join InsCustomerBody b on "
                     "b.ProductID = a.ProductID and b.Qty = a.Qty and b.Price = a.Price and "
                     "b.Amount = a.Amount and isnull(b.EngineNo, '') = isnull(a.EngineNo, '') and "
                     "isnull(b.VehicleNo, '') = isnull(a.VehicleNo, '') and "
                     "b.serialno > a.serialno where a.InsCustomerID = o.InsCustomerID and "
                     "b.InsCustomerID = n.InsCustomerID) = "
                     "(select count(*) from InsCustomerBody a where "
                     "a.InsCustomerID = o.InsCustomerID)"),
              0);
}

TEST_P(SampleOfAnySize, PayMonthsAreFirstsOfWholeMonths)
{
    const QString first = Ask(QStringLiteral("select min(SalaryMonth) from Salaries")).toString();
    const QString last = Ask(QStringLiteral("select max(SalaryMonth) from Salaries")).toString();
    EXPECT_EQ(text(last), "2026-10-01") << "November is not over on its twentieth day";
    EXPECT_EQ(text(first), GetParam() > 1000 ? "2022-12-01" : "2026-06-01");
    for (const char* table : {"Salaries", "FrenchiserSalaryHeader", "WorkShopSalaryHeader"}) {
        EXPECT_EQ(Ask(QStringLiteral("select count(*) from %1 where day(SalaryMonth) <> 1")
                          .arg(QLatin1String(table)))
                      .toInt(),
                  0);
    }
    EXPECT_EQ(Count("Salaries s inner join Staff p on p.StaffID = s.StaffID where "
                    "p.Machenic = 1 or p.Frenchiser = 1 or p.BasicSalary <> s.BasicSalary"),
              0);
    EXPECT_EQ(Count("Staff where isnull(dbo.FunCurrentAdvance(StaffID), 0) < 0"), 0);
}

TEST_P(SampleOfAnySize, FranchiseHoldersArePaidWhatTheirFormWorksOut)
{
    const QString holder = Ask(QStringLiteral("select StaffID from FrenchiserSalaryBody where "
                                              "SalaryMonth = '2026-08-01' order by Qty desc"))
                               .toString();
    QString generated = QString::fromUtf8(
        "select d.ProductID, Type, Qty, Commision, Qty*Commision as Amount from  (select "
        "b.ProductID, 'i”iC' as Type, sum(Qty) as Qty, avg(Frenchiser) as Commision from "
        "InsCustomerHeader h inner join InsCustomerbody b on h.InsCustomerID = b.InsCustomerID "
        "inner join OrderCommission o on o.ProductID = b.ProductID where [Order] = 1 and FStaffID "
        "= '{Holder}' and month(saledate)=8 and year(saledate)=2026 Group By b.ProductID union all "
        " "
        "select b.ProductID, '¼Ïp' as Type, sum(Qty) as Qty, avg(Frenchiser) as Commision from "
        "InsCustomerHeader h inner join InsCustomerbody b on h.InsCustomerID = b.InsCustomerID "
        "inner join SaleCommission s on s.ProductID = b.ProductID where Sale = 1 and FStaffID = "
        "'{Holder}' and month(saledate)=8 and year(saledate)=2026 Group By b.ProductID)d order by "
        "Type, d.ProductID");
    generated.replace(QStringLiteral("{Holder}"), holder);
    const QString stored = QStringLiteral("select ProductID, Type, Qty, Commision, Amount from "
                                          "FrenchiserSalaryBody where StaffID = '%1' and "
                                          "SalaryMonth = '2026-08-01' order by Type, ProductID")
                               .arg(holder);
    Recordset wanted = company->Execute(Statement(generated));
    Recordset found = company->Execute(Statement(stored));
    EXPECT_GT(wanted.RecordCount(), 0);
    ASSERT_EQ(found.RecordCount(), wanted.RecordCount());
    for (int row = 0; row < wanted.RecordCount(); ++row)
        for (int field = 0; field < wanted.FieldCount(); ++field)
            EXPECT_EQ(found.ValueAt(row, field).toString(), wanted.ValueAt(row, field).toString());
}

TEST_P(SampleOfAnySize, MechanicsArePaidWhatTheirVouchersSay)
{
    EXPECT_EQ(Count("(select h.StaffID, b.PartID, sum(b.Amount) as Amount from "
                    "WorkShopPartsHeader h inner join WorkShopPartsBody b on "
                    "b.VoucherID = h.VoucherID where h.VoucherDate between '2026-08-01' and "
                    "'2026-08-31' group by h.StaffID, b.PartID) v inner join WorkShopSalaryBody s "
                    "on s.StaffID = v.StaffID and s.PartID = v.PartID and "
                    "s.SalaryMonth = '2026-08-01' and s.Amount = v.Amount"),
              Count("WorkShopSalaryBody where SalaryMonth = '2026-08-01'"));
    EXPECT_GT(Count("WorkShopSalaryBody where SalaryMonth = '2026-08-01'"), 0);
}

TEST_P(SampleOfAnySize, SalariesHoldTheCommissionsThatTheVouchersGive)
{
    // Each role earns its own rate; one who stands twice on an account earns both.
    constexpr const char* earned =
        "(select p.StaffID, isnull(sum(r.Amount), 0) as Amount from Staff p left outer join ("
        "select h.DriverID as StaffID, c.Driver * b.Qty as Amount from InsCustomerHeader h inner "
        "join InsCustomerBody b on b.InsCustomerID = h.InsCustomerID inner join SaleCommission c "
        "on c.ProductID = b.ProductID where Sale = 1 and SaleDate between '2026-08-01' and "
        "'2026-08-31' union all "
        "select h.AMStaffID, c.AreaManager * b.Qty from InsCustomerHeader h inner join "
        "InsCustomerBody b on b.InsCustomerID = h.InsCustomerID inner join SaleCommission c on "
        "c.ProductID = b.ProductID where Sale = 1 and SaleDate between '2026-08-01' and "
        "'2026-08-31' union all "
        "select h.SAMStaffID, c.SAreaManager * b.Qty from InsCustomerHeader h inner join "
        "InsCustomerBody b on b.InsCustomerID = h.InsCustomerID inner join SaleCommission c on "
        "c.ProductID = b.ProductID where Sale = 1 and SaleDate between '2026-08-01' and "
        "'2026-08-31') r on r.StaffID = p.StaffID group by p.StaffID) e inner join Salaries s on "
        "s.StaffID = e.StaffID and s.SalaryMonth = '2026-08-01' and s.SaleComm <> e.Amount";
    EXPECT_EQ(Count(earned), 0);
    EXPECT_GT(Count("Salaries where SalaryMonth = '2026-08-01' and SaleComm > 0"), 5);
    EXPECT_EQ(Count("Salaries s inner join (select DriverCode, sum(OutNewProducts) as Qty from "
                    "GatePassHeader h inner join GatePassBody b on b.GatePassID = h.GatePassID "
                    "where Supply = 1 and GatePassDate between '2026-08-01' and '2026-08-31' "
                    "group by DriverCode) g on g.DriverCode = s.StaffID where "
                    "s.SalaryMonth = '2026-08-01' and s.SupplyComm <> 25 * g.Qty"),
              0);
    EXPECT_GT(Count("Salaries where SupplyComm > 0"), 5);
    EXPECT_GT(Count("Salaries where RecComm > 0"), 5);
    EXPECT_GT(Count("Salaries where Recloan > 0"), 5);
    EXPECT_GT(Count("Salaries where Advance > 0"), 2);
}

TEST_P(SampleOfAnySize, StockLevelsAreTheSumOfTheMovements)
{
    EXPECT_EQ(Count("(select ProductID, BranchCode, total(Qty), sum(Movements) from "
                    "StockMovements group by ProductID, BranchCode except select ProductID, "
                    "BranchCode, Stock, Movements from StockLevels) d"),
              0);
    EXPECT_EQ(Count("vuCurrentStock"), 3 * 40);
    EXPECT_EQ(Count("vuCurrentStock where Stock < 0"), 0);
}

TEST_P(SampleOfAnySize, TellsHowFarItIs)
{
    QStringList parts;
    for (const Progress& progress : told) {
        EXPECT_GE(progress.Done, 0);
        EXPECT_LE(progress.Done, progress.Of);
        if (!parts.contains(progress.Part))
            parts.append(progress.Part);
    }
    ASSERT_FALSE(parts.isEmpty());
    EXPECT_TRUE(parts.contains(QStringLiteral("stock")));
    EXPECT_EQ(text(parts.last()), "indexes");
}

} // namespace tests
