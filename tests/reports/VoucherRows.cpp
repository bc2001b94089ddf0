#include "reports/VoucherRows.h"

namespace tests {

void StoreGatePass(const TestCompany& company)
{
    company.Run("INSERT INTO GatePassHeader (GatePassID, EntryDate, isPosted, GatePassDate,"
                " DriverCode, ReceivingCode, AreaCode, BranchCode, Supply, Sale, \"Order\", UserNo)"
                " VALUES (7, '2026-03-05 10:30:00', 0, '2026-03-05', '2014', '3107', 'Kot', 1,"
                " 0, 1, 0, 1);"
                "INSERT INTO GatePassBody (GatePassID, ProductID, OutNewProducts,"
                " ReturnOldProducts, ReturnNewProducts) VALUES"
                " (7, '101', 3, 1, NULL), (7, '210', 5, NULL, NULL), (7, '233', 2.5, NULL, 1);");
}

void StoreGatePassLines(const TestCompany& company, int count)
{
    company.Run(QStringLiteral(
                    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1)"
                    " INSERT INTO Products (ProductID, ProductName, PurchaseRate, InstallmentRate,"
                    " GroupID) SELECT 1000 + i, 'مال نمبر ' || i, 1, 1, 1 FROM n;"
                    "INSERT INTO GatePassBody (GatePassID, ProductID, OutNewProducts)"
                    " SELECT 7, ProductID, 2 FROM Products WHERE CAST(ProductID AS INTEGER) > 1000")
                    .arg(count));
}

void StoreRecovery(const TestCompany& company)
{
    company.Run(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 40)"
        " INSERT INTO InsCustomerHeader (InsCustomerID, CardNo, AreaCode, AMStaffID, SAMStaffID,"
        " Name, FName, City, SaleDate, MonthlyInstallment, TotalAmount, isPosted)"
        " SELECT 'Kot ' || i, i, 'Kot', '5001', '5002', 'گاہک نمبر ' || i, 'محمد شفیع', 'قصور',"
        " '2026-01-10', 1000, 10000, 0 FROM n;"
        "INSERT INTO RecoveryHeader (VoucherID, EntryDate, isPosted, VoucherDate, AreaCode,"
        " AMStaffID, SAMStaffID, StaffID, UserNo) VALUES (3, '2026-03-05 17:00:00', 0,"
        " '2026-03-05', 'Kot', '5001', '5002', '3107', 1);"
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 40)"
        " INSERT INTO RecoveryBody (VoucherID, VoucherDate, InsCustomerID, CardNo, ReceiptNo,"
        " Amount) SELECT 3, '2026-03-05', 'Kot ' || i, i, 500 + i,"
        " CASE WHEN i % 2 = 1 THEN 250.5 ELSE 1000 END FROM n;");
}

void StoreSalary(const TestCompany& company)
{
    company.Run("INSERT INTO Salaries (StaffID, SalaryMonth, BasicSalary, SaleComm, SalePrize,"
                " OrderComm, OrderPrize, RecComm, RecPrize, SupplyComm, GPFund, KFFund, Recloan,"
                " Other, Advance, Less) VALUES ('2014', '2026-03-01', 15000, 1201, 1002, 803.5,"
                " 604, 405, 306, 207, 208, 109, 510, 111, 2012, 113.25)");
}

void StoreFrenchiserSalary(const TestCompany& company)
{
    company.Run("INSERT INTO FrenchiserSalaryHeader (StaffID, SalaryMonth, BasicSalary, GPFund,"
                " KFFund, Recloan, Other, Less, Advance) VALUES ('4001', '2026-03-01', 10000, 20,"
                " 30, 40, 50, 60, 70);"
                "INSERT INTO FrenchiserSalaryBody (StaffID, SalaryMonth, ProductID, Type,"
                " Commision, Qty, Amount) VALUES"
                " ('4001', '2026-03-01', '101', 'i”iC', 450, 3, 1350),"
                " ('4001', '2026-03-01', '210', '¼Ïp', 120.5, 2, 241);");
}

void StoreWorkshopSalary(const TestCompany& company, int parts)
{
    company.Run("INSERT INTO WorkShopSalaryHeader (StaffID, SalaryMonth, BasicSalary, GPFund,"
                " KFFund, Recloan, Other, Less, Advance) VALUES ('3108', '2026-03-01', 13000, 150,"
                " 50, 300, 0, 0, 1000);");
    for (int part = 0; part < parts; ++part)
        company.Run(QStringLiteral("INSERT INTO WorkShopSalaryBody (StaffID, SalaryMonth, PartID,"
                                   " Amount) VALUES ('3108', '2026-03-01', %1, %2)")
                        .arg(11 + part)
                        .arg(850 + 420.5 * part));
}

} // namespace tests
