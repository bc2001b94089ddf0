#include "reports/CrpRecoveryVoucher.h"

#include "reports/ReportPieces.h"

namespace TradeForms {

namespace {

QVariant voucherNumber(const ReportValues& values)
{
    return values.Column(QStringLiteral("VoucherID"));
}

ReportDeclaration recoveryVoucher()
{
    using namespace ReportPieces;
    using Type = ListColumn::Type;
    const Caption title{"وصولی واؤچر", "Recovery voucher"};
    const QList<LabelledField> fields = {
        {"VoucherID", {"نمبر", "Number"}, Column("VoucherID")},
        {"VoucherDate", {"تاریخ", "Date"}, Column("VoucherDate"), ValueFormat::Date},
        {"AreaName", {"علاقہ", "Area"}, Column("AreaName"), ValueFormat::Plain, true},
        {"AMName", {"ایریا منیجر", "Area manager"}, Column("AMName"), ValueFormat::Plain, true},
        {"SAMName", {"سیکرٹری", "Secretary"}, Column("SAMName"), ValueFormat::Plain, true},
        {"StaffName", {"ملازم", "Collected by"}, Column("StaffName"), ValueFormat::Plain, true},
    };
    const QList<ListColumn> columns = {
        {"Balance", {"بقایا", "Balance"}, 0, 240, Type::Amount},
        {"Amount", {"رقم", "Amount"}, 260, 240, Type::Amount, true},
        {"City", {"شہر", "City"}, 530, 250, Type::Name},
        {"FName", {"ولدیت", "Father's name"}, 800, 320, Type::Name},
        {"Name", {"گاہک", "Customer"}, 1140, 320, Type::Name},
        {"CardNo", {"کارڈ نمبر", "Card no."}, 1480, 150, Type::Code},
        {"ReceiptNo", {"رسید", "Receipt"}, 1650, 140, Type::Code},
    };

    ReportDeclaration declaration{.Name = QStringLiteral("CrpRecoveryVoucher"),
                                  .Title = QStringLiteral("Recovery Voucher"),
                                  .Key = voucherNumber,
                                  .Paper = QPageSize::A4,
                                  .Margins = QMarginsF(150, 130, 150, 110),
                                  .Parameters = {CopyParameter()}};
    const double width = declaration.Width();
    declaration.Sections = {Header(title, {}, width),
                            Fields("ReportHeaderSection2", fields, 3, width),
                            Continuation(title, voucherNumber, width),
                            ListHeads(columns, width),
                            ListRow(columns, width),
                            ListTotals(columns, width),
                            Signatures({{"دستخط وصول کنندہ", "Collected by"},
                                        {"دستخط ایریا منیجر", "Area manager"},
                                        {"دستخط کیشیئر", "Cashier"}},
                                       width),
                            Footer(width)};
    return declaration;
}

} // namespace

CrpRecoveryVoucher::CrpRecoveryVoucher() : Report(recoveryVoucher()) {}

Statement CrpRecoveryVoucher::Balances(const QDate& voucherDate)
{
    return Statement("exec SPInstallmentBalances '{date}'").Bind("date", voucherDate);
}

Statement CrpRecoveryVoucher::Source(const QString& voucherId)
{
    return Statement(
               " Select  h.*,ar.AreaName,AM.Name as AMName,SAM.Name as SAMName,"
               " w.Name as StaffName, b.CardNo, ih.Name, ih.FName, ih.City, ReceiptNo, Amount,"
               " i.Balance from (select * from RecoveryHeader where VoucherID={id}) h"
               " join Areas ar on h.AreaCode=ar.AreaCode"
               " join Staff AM on h.AMStaffID=AM.StaffID"
               " join Staff SAM on h.SAMStaffID=SAM.StaffID"
               " left outer join Staff w on h.StaffID=w.StaffID"
               " inner join RecoveryBody b on b.voucherid = h.voucherid"
               " inner join InstallmentBalances i on i.insCustomerID = b.insCustomerID"
               " inner join InsCustomerHeader ih on ih.insCustomerID = b.insCustomerID"
               " Order By ReceiptNo")
        .Bind("id", voucherId);
}

} // namespace TradeForms
