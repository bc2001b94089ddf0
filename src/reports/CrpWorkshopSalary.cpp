#include "reports/CrpWorkshopSalary.h"

#include "reports/PaySlip.h"

namespace TradeForms {

namespace {

PaySlip::Declaration workshopSalary()
{
    using Type = ReportPieces::ListColumn::Type;
    return PaySlip::Declaration{
        .ReportName = "CrpWorkshopSalary",
        .Title = "Workshop Salary",
        .Heading = {"ورکشاپ تنخواہ", "Workshop salary slip"},
        .NameColumn = "StaffName",
        .List = {{"Amount", {"رقم", "Amount"}, 0, 260, Type::Amount, true},
                 {"partname", {"پرزہ", "Part"}, 300, 970, Type::Name}},
        .Pay = PaySlip::PayWithList({"پرزہ جات", "Parts"}),
        .TotalOf = PaySlip::TotalWithList,
    };
}

} // namespace

CrpWorkshopSalary::CrpWorkshopSalary() : Report(PaySlip::ReportOf(workshopSalary())) {}

Statement CrpWorkshopSalary::Source(const QString& staffId, const QDate& month)
{
    return PaySlip::Source(
        " select h.*, isnull(amount,0)amount, partname, Name as StaffName, Address, Fname,"
        " Designation from WorkShopSalaryHeader h"
        " left outer join WorkShopSalaryBody b on b.staffid = h.staffid"
        " and h.SalaryMonth = b.SalaryMonth"
        " left outer join parts p on p.partid = b.partid"
        " inner join staff s on s.staffid = h.staffid"
        " where h.StaffID='{StaffID}' and h.SalaryMonth = '{month}' ",
        staffId, month);
}

} // namespace TradeForms
