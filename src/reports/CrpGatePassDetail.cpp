#include "reports/CrpGatePassDetail.h"

#include "controls/Utf8.h"
#include "reports/ReportPieces.h"

namespace TradeForms {

namespace {

/// Supply, sale or order, by the flags of the pass.
QVariant kindOfMovement(const ReportValues& values)
{
    const auto marked = [&values](const char* flag) { return values.Column(utf8(flag)).toBool(); };
    QStringList kinds;
    if (marked("Supply"))
        kinds.append(utf8("سپلائی · Supply"));
    if (marked("Sale"))
        kinds.append(utf8("سیل · Sale"));
    if (marked("Order"))
        kinds.append(utf8("آرڈر · Order"));
    return kinds.join(QStringLiteral("، "));
}

QVariant gatePassNumber(const ReportValues& values)
{
    return values.Column(QStringLiteral("GatePassID"));
}

ReportDeclaration gatePass()
{
    using namespace ReportPieces;
    using Type = ListColumn::Type;
    const Caption title{"گیٹ پاس", "Gate pass"};
    const QList<Caption> copies = {{"دفتری کاپی", "Office copy"},
                                   {"ڈرائیور کاپی", "Driver's copy"},
                                   {"گیٹ کاپی", "Gate copy"}};
    const QList<LabelledField> fields = {
        {"GatePassID", {"نمبر", "Number"}, Column("GatePassID")},
        {"GatePassDate", {"تاریخ", "Date"}, Column("GatePassDate"), ValueFormat::Date},
        {"Kind", {"قسم", "Kind"}, Formula(kindOfMovement), ValueFormat::Plain, true},
        {"BranchName", {"برانچ", "Branch"}, Column("BranchName"), ValueFormat::Plain, true},
        {"AreaCode", {"علاقہ", "Area"}, Column("AreaCode")},
        {"Name", {"ڈرائیور", "Driver"}, Column("Name"), ValueFormat::Plain, true},
        {"Receiving", {"وصول کنندہ", "Receiver"}, Column("Receiving"), ValueFormat::Plain, true},
    };
    const QList<ListColumn> columns = {
        {"ReturnNewProducts", {"واپس نیا", "Returned new"}, 0, 240, Type::Quantity, true},
        {"ReturnOldProducts", {"واپس پرانا", "Returned old"}, 260, 240, Type::Quantity, true},
        {"OutNewProducts", {"باہر", "Out"}, 520, 240, Type::Quantity, true},
        {"ProductName", {"نام", "Product"}, 800, 820, Type::Name},
        {"ProductID", {"کوڈ", "Code"}, 1640, 210, Type::Code},
    };

    ReportDeclaration declaration{.Name = QStringLiteral("CrpGatePassDetail"),
                                  .Title = QStringLiteral("Gate Pass"),
                                  .Key = gatePassNumber,
                                  .Paper = QPageSize::A5,
                                  .Orientation = QPageLayout::Landscape,
                                  .Margins = QMarginsF(120, 90, 120, 70),
                                  .Parameters = {CopyParameter()}};
    const double width = declaration.Width();
    declaration.Sections = {Header(title, copies, width),
                            Fields("ReportHeaderSection2", fields, 4, width),
                            Continuation(title, gatePassNumber, width),
                            ListHeads(columns, width),
                            ListRow(columns, width),
                            ListTotals(columns, width),
                            Signatures({{"دستخط منیجر", "Manager"},
                                        {"دستخط ڈرائیور", "Driver"},
                                        {"دستخط وصول کنندہ", "Receiver"}},
                                       width),
                            Footer(width)};
    return declaration;
}

} // namespace

CrpGatePassDetail::CrpGatePassDetail() : Report(gatePass()) {}

Statement CrpGatePassDetail::Source(const QString& gatePassId)
{
    return Statement(" Select GatePassHeader.*,GatePassBody.ProductID,GatePassBody.OutNewProducts,"
                     "GatePassBody.ReturnOldProducts,GatePassBody.ReturnNewProducts,BranchName,"
                     "Products.ProductName, d.Name, r.name as Receiving "
                     " from GatePassHeader"
                     " inner join GatePassBody on GatePassHeader.GatePassID=GatePassBody.GatePassID"
                     " inner join Branches on GatePassHeader.BranchCode=Branches.BranchCode"
                     " inner join Products on GatePassBody.ProductID=Products.ProductID"
                     " left outer join Staff d on GatePassHeader.DriverCode=d.StaffID"
                     " left outer join Staff r on GatePassHeader.ReceivingCode=r.StaffID"
                     " Where GatePassHeader.GatePassID = {id}")
        .Bind("id", gatePassId);
}

} // namespace TradeForms
