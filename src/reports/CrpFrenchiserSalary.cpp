#include "reports/CrpFrenchiserSalary.h"

#include "reports/PaySlip.h"

namespace TradeForms {

namespace {

PaySlip::Declaration frenchiserSalary()
{
    using Type = ReportPieces::ListColumn::Type;
    return PaySlip::Declaration{
        .ReportName = "CrpFrenchiserSalary",
        .Title = "Frenchiser Salary",
        .Heading = {"فرنچائزر تنخواہ", "Franchise salary slip"},
        .NameColumn = "StaffName",
        .List = {{"Amount", {"رقم", "Amount"}, 0, 220, Type::Amount, true},
                 {"Commision", {"کمیشن", "Commission"}, 235, 180, Type::Amount},
                 {"Qty", {"تعداد", "Quantity"}, 430, 130, Type::Quantity, true},
                 {"Type", {"قسم", "Kind"}, 575, 130, Type::Name},
                 {"ProductName", {"مال", "Product"}, 735, 415, Type::Name},
                 {"ProductID", {"کوڈ", "Code"}, 1165, 105, Type::Code}},
        .Pay = PaySlip::PayWithList({"کمیشن", "Commission"}),
        .TotalOf = PaySlip::TotalWithList,
    };
}

} // namespace

CrpFrenchiserSalary::CrpFrenchiserSalary() : Report(PaySlip::ReportOf(frenchiserSalary())) {}

Statement CrpFrenchiserSalary::Source(const QString& staffId, const QDate& month)
{
    return PaySlip::Source(
        " select h.*, Name as StaffName, FName, Address, Designation, b.ProductID, ProductName,"
        " Type, Commision, Qty, Amount from FrenchiserSalaryHeader h"
        " inner join FrenchiserSalaryBody b on b.staffid = h.staffid"
        " and h.SalaryMonth = b.SalaryMonth"
        " inner join Products p on p.ProductID = b.ProductID"
        " inner join staff s on s.staffid = h.staffid"
        " where h.StaffID='{StaffID}' and h.SalaryMonth = '{month}' ",
        staffId, month);
}

} // namespace TradeForms
