#include "reports/CrpSalary.h"

#include "controls/Utf8.h"
#include "reports/PaySlip.h"

namespace TradeForms {

namespace {

/// Summed in the order of the pay screen, as the order changes the rounding of doubles.
double totalOf(const ReportValues& values)
{
    const auto amount = [&values](const char* column) { return values.Number(utf8(column)); };
    return amount("BasicSalary") - amount("Advance") - amount("Less") + amount("RecComm") +
           amount("RecPrize") + amount("SaleComm") + amount("SalePrize") + amount("OrderComm") +
           amount("OrderPrize") + amount("SupplyComm") + amount("Other");
}

PaySlip::Declaration salary()
{
    using PaySlip::ColumnLine;
    return PaySlip::Declaration{
        .ReportName = "CrpSalary",
        .Title = "Salary",
        .Heading = {"تنخواہ پرچی", "Salary slip"},
        .NameColumn = "Name",
        .Pay = {ColumnLine("BasicSalary", {"بنیادی تنخواہ", "Basic pay"}),
                ColumnLine("SaleComm", {"سیل کمیشن", "Sale commission"}),
                ColumnLine("SalePrize", {"سیل انعام", "Sale prize"}),
                ColumnLine("OrderComm", {"آرڈر کمیشن", "Order commission"}),
                ColumnLine("OrderPrize", {"آرڈر انعام", "Order prize"}),
                ColumnLine("RecComm", {"وصولی کمیشن", "Recovery commission"}),
                ColumnLine("RecPrize", {"وصولی انعام", "Recovery prize"}),
                ColumnLine("SupplyComm", {"سپلائی کمیشن", "Supply commission"}),
                ColumnLine("Other", {"دیگر", "Other"})},
        .TotalOf = totalOf,
    };
}

} // namespace

CrpSalary::CrpSalary() : Report(PaySlip::ReportOf(salary())) {}

Statement CrpSalary::Source(const QString& staffId, const QDate& month)
{
    return PaySlip::Source("Select s.*, f.name, f.fname, Address, designation from salaries s"
                           " inner join staff f on s.StaffID = f.StaffID"
                           " where s.StaffID='{StaffID}' and SalaryMonth='{month}'",
                           staffId, month);
}

} // namespace TradeForms
