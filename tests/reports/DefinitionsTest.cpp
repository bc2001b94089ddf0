// The five reports on rows of a company: what stands on their pages.

#include "data/Connection.h"
#include "host/HostContext.h"
#include "reports/CrpFrenchiserSalary.h"
#include "reports/CrpGatePassDetail.h"
#include "reports/CrpRecoveryVoucher.h"
#include "reports/CrpSalary.h"
#include "reports/CrpWorkshopSalary.h"
#include "reports/Designs.h"
#include "reports/VoucherRows.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

namespace tests {

namespace {

class DefinitionsTest : public ::testing::Test {
protected:
    DefinitionsTest() { HostContext::UserNo = 7; }
    ~DefinitionsTest() override { HostContext::UserNo = 0; }

    template <class Crp> Document formatted(const Statement& source, const char* copy = "1")
    {
        Crp report;
        rows = std::make_shared<Recordset>();
        rows->Open(source, connection);
        report.SetDataSource(rows);
        if (*copy)
            report.SetParameter(1, s(copy));
        return report.Format();
    }

    Document gatePass(const char* copy = "1")
    {
        return formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7")), copy);
    }
    Document recovery()
    {
        connection->Execute(CrpRecoveryVoucher::Balances(QDate(2026, 3, 5)));
        return formatted<CrpRecoveryVoucher>(CrpRecoveryVoucher::Source(s("3")), "");
    }
    Document salary(const char* copy = "1")
    {
        return formatted<CrpSalary>(CrpSalary::Source(s("2014"), march), copy);
    }
    Document frenchiser()
    {
        return formatted<CrpFrenchiserSalary>(CrpFrenchiserSalary::Source(s("4001"), march));
    }
    Document workshop()
    {
        return formatted<CrpWorkshopSalary>(CrpWorkshopSalary::Source(s("3108"), march));
    }

    /// Texts of an object down the pages.
    static QStringList column(const Document& document, const char* object)
    {
        QStringList texts;
        for (const TextRun& run : RunsOf(document, s(object)))
            texts.append(run.Text);
        return texts;
    }

    const QDate march = QDate(2026, 3, 1);
    TestCompany company;
    std::shared_ptr<Connection> connection = company.Connect();
    std::shared_ptr<Recordset> rows;
};

} // namespace

// ---- Gate pass

TEST_F(DefinitionsTest, AGatePassShowsItsHeaderItsLinesAndTheirTotals)
{
    StoreGatePass(company);
    const Document pass = gatePass();
    EXPECT_EQ(pass.PageSize(), QSizeF(2100, 1480));
    EXPECT_EQ(pass.Title(), s("Gate Pass 7"));
    EXPECT_EQ(Only(pass, "FldGatePassID"), s("7"));
    EXPECT_EQ(Only(pass, "FldGatePassDate"), s("05/03/2026"));
    EXPECT_EQ(Only(pass, "FldKind"), s("سیل · Sale"));
    EXPECT_EQ(Only(pass, "FldBranchName"), s("قصور"));
    EXPECT_EQ(Only(pass, "FldAreaCode"), s("Kot"));
    EXPECT_EQ(Only(pass, "FldName"), s("محمد اسلم"));
    EXPECT_EQ(Only(pass, "FldReceiving"), s("غلام رسول"));
    QStringList codes = column(pass, "FldProductID");
    codes.sort();
    EXPECT_EQ(codes, QStringList({s("101"), s("210"), s("233")}));
    EXPECT_EQ(column(pass, "FldProductName").size(), 3);
    // Nulls leave no text.
    EXPECT_EQ(column(pass, "FldReturnNewProducts"), QStringList({s("1")}));
    EXPECT_EQ(Only(pass, "FldTotalOutNewProducts"), s("10.5"));
    EXPECT_EQ(Only(pass, "FldTotalReturnOldProducts"), s("1"));
    EXPECT_EQ(Only(pass, "FldTotalReturnNewProducts"), s("1"));
    EXPECT_EQ(column(pass, "TxtSigner").size(), 3);
    EXPECT_EQ(Only(pass, "FldPageUrdu"), s("صفحہ 1 از 1"));
    const QRegularExpression footer(
        s("^Page 1 of 1 · printed \\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d · user 7$"));
    EXPECT_TRUE(footer.match(Only(pass, "FldPage")).hasMatch());
}

TEST_F(DefinitionsTest, AGatePassNamesItsKindAndItsCopy)
{
    StoreGatePass(company);
    company.Run("UPDATE GatePassHeader SET Sale = 0, Supply = 1");
    EXPECT_EQ(Only(gatePass(), "FldKind"), s("سپلائی · Supply"));
    company.Run("UPDATE GatePassHeader SET Supply = 0, \"Order\" = 1");
    EXPECT_EQ(Only(gatePass(), "FldKind"), s("آرڈر · Order"));
    EXPECT_EQ(Only(gatePass("1"), "FldCopy"), s("دفتری کاپی · Office copy"));
    EXPECT_EQ(Only(gatePass("2"), "FldCopy"), s("ڈرائیور کاپی · Driver's copy"));
    EXPECT_EQ(Only(gatePass("3"), "FldCopy"), s("گیٹ کاپی · Gate copy"));
    EXPECT_EQ(Only(gatePass("4"), "FldCopy"), s("کاپی 4 · Copy 4"));
    EXPECT_TRUE(column(gatePass(""), "FldCopy").isEmpty());
}

TEST_F(DefinitionsTest, AGatePassWithoutDriverAndReceiverLeavesThemEmpty)
{
    StoreGatePass(company);
    company.Run("UPDATE GatePassHeader SET DriverCode = NULL, ReceivingCode = NULL");
    const Document pass = gatePass();
    EXPECT_TRUE(column(pass, "FldName").isEmpty());
    EXPECT_TRUE(column(pass, "FldReceiving").isEmpty());
    EXPECT_EQ(column(pass, "FldProductID").size(), 3);
}

TEST_F(DefinitionsTest, AProductThatVanishedIsLeftOffTheGatePass)
{
    StoreGatePass(company);
    company.Run("PRAGMA foreign_keys = OFF; DELETE FROM Products WHERE ProductID = '210'");
    const Document pass = gatePass();
    QStringList codes = column(pass, "FldProductID");
    codes.sort();
    EXPECT_EQ(codes, QStringList({s("101"), s("233")}));
    EXPECT_EQ(Only(pass, "FldTotalOutNewProducts"), s("5.5"));
}

TEST_F(DefinitionsTest, AnEmptyGatePassIsAReportWithoutLines)
{
    StoreGatePass(company);
    company.Run("DELETE FROM GatePassBody");
    const Document pass = gatePass();
    EXPECT_EQ(pass.PageCount(), 1);
    EXPECT_EQ(pass.Title(), s("Gate Pass"));
    EXPECT_TRUE(column(pass, "FldProductID").isEmpty());
    EXPECT_TRUE(column(pass, "FldGatePassID").isEmpty());
    EXPECT_EQ(Only(pass, "TxtTitleEnglish"), s("Gate pass"));
    EXPECT_EQ(Only(pass, "FldTotalOutNewProducts"), s("0"));
}

TEST_F(DefinitionsTest, ALongGatePassRepeatsItsHeadsAndNamesItself)
{
    StoreGatePass(company);
    StoreGatePassLines(company, 37);
    const Document pass = gatePass();
    ASSERT_GE(pass.PageCount(), 3);
    EXPECT_EQ(column(pass, "FldProductID").size(), 40);
    EXPECT_EQ(Only(pass, "FldTotalOutNewProducts"), s("84.5"));
    for (int page = 0; page < pass.PageCount(); ++page) {
        EXPECT_EQ(RunsOf(pass, page, s("HeadProductID")).size(), 1);
        EXPECT_EQ(RunsOf(pass, page, s("TxtNameUrdu")).size(),
                  page == 0 && !HostContext::NameUrdu.isEmpty() ? 1 : 0);
        const QList<TextRun> again = RunsOf(pass, page, s("FldTitleAgainEnglish"));
        ASSERT_EQ(again.size(), page == 0 ? 0 : 1);
        if (page > 0)
            EXPECT_EQ(again.first().Text, s("Gate pass  7"));
    }
    EXPECT_FALSE(RunsOf(pass, pass.PageCount() - 1, s("TxtSigner")).isEmpty());
}

// ---- Recovery voucher

TEST_F(DefinitionsTest, ARecoveryVoucherShowsEachReceiptWithItsBalance)
{
    StoreRecovery(company);
    const Document voucher = recovery();
    EXPECT_EQ(voucher.PageSize(), QSizeF(2100, 2970));
    EXPECT_EQ(voucher.Title(), s("Recovery Voucher 3"));
    EXPECT_EQ(voucher.PageCount(), 2);
    EXPECT_EQ(Only(voucher, "FldVoucherID"), s("3"));
    EXPECT_EQ(Only(voucher, "FldVoucherDate"), s("05/03/2026"));
    EXPECT_EQ(Only(voucher, "FldAreaName"), s("کوٹ رادھا کشن"));
    EXPECT_EQ(Only(voucher, "FldAMName"), s("نذیر احمد"));
    EXPECT_EQ(Only(voucher, "FldSAMName"), s("محمد یوسف"));
    EXPECT_EQ(Only(voucher, "FldStaffName"), s("غلام رسول"));
    const QStringList receipts = column(voucher, "FldReceiptNo");
    ASSERT_EQ(receipts.size(), 40);
    EXPECT_EQ(receipts.first(), s("501"));
    EXPECT_EQ(receipts.last(), s("540"));
    EXPECT_EQ(column(voucher, "FldCardNo").at(1), s("2"));
    EXPECT_EQ(column(voucher, "FldName").at(1), s("گاہک نمبر 2"));
    EXPECT_EQ(column(voucher, "FldFName").at(1), s("محمد شفیع"));
    EXPECT_EQ(column(voucher, "FldCity").at(1), s("قصور"));
    EXPECT_EQ(column(voucher, "FldAmount").mid(0, 2), QStringList({s("250.50"), s("1,000")}));
    EXPECT_EQ(column(voucher, "FldBalance").mid(0, 2), QStringList({s("9,749.50"), s("9,000")}));
    EXPECT_EQ(Only(voucher, "FldTotalAmount"), s("25,010"));
    EXPECT_TRUE(column(voucher, "FldCopy").isEmpty());
    EXPECT_EQ(RunsOf(voucher, 1, s("FldPageUrdu")).first().Text, s("صفحہ 2 از 2"));
}

// ---- Pay slips

TEST_F(DefinitionsTest, ASalarySlipShowsEveryLineTheSumsAndTheScreensTotals)
{
    StoreSalary(company);
    const Document slip = salary();
    EXPECT_EQ(slip.PageSize(), QSizeF(1480, 2100));
    EXPECT_EQ(slip.PageCount(), 1);
    EXPECT_EQ(slip.Title(), s("Salary 2014 Mar-2026"));
    const QList<std::pair<const char*, const char*>> expected = {
        {"FldPerson", "محمد اسلم"},
        {"FldStaffID", "2014"},
        {"FldFName", "محمد اکرم"},
        {"FldSalaryMonth", "Mar-2026"},
        {"FldDesignation", "ڈرائیور"},
        {"FldAddress", "محلہ قصابان، قصور"},
        {"FldBasicSalary", "15,000"},
        {"FldSaleComm", "1,201"},
        {"FldSalePrize", "1,002"},
        {"FldOrderComm", "803.50"},
        {"FldOrderPrize", "604"},
        {"FldRecComm", "405"},
        {"FldRecPrize", "306"},
        {"FldSupplyComm", "207"},
        {"FldOther", "111"},
        {"FldAdvance", "2,012"},
        {"FldLess", "113.25"},
        {"FldRecloan", "510"},
        {"FldKFFund", "109"},
        {"FldGPFund", "208"},
        {"FldSumPay", "19,639.50"},
        {"FldSumDeductions", "2,952.25"},
        // 15000 - 2012 - 113.25 + the seven commissions and prizes + 111
        {"FldTotal", "17,514.25"},
        {"FldRemaining", "16,687.25"},
        {"FldCopy", "ملازم کاپی · Employee's copy"},
    };
    for (const auto& [object, text] : expected)
        EXPECT_EQ(Only(slip, object), s(text)) << object;
    EXPECT_EQ(Only(salary("2"), "FldCopy"), s("دفتری کاپی · Office copy"));
}

TEST_F(DefinitionsTest, ANegativeNetPayIsShownAsItIs)
{
    StoreSalary(company);
    company.Run("UPDATE Salaries SET Advance = 30000");
    EXPECT_EQ(Only(salary(), "FldRemaining"), s("-11,300.75"));
}

TEST_F(DefinitionsTest, AFrenchiserSlipShowsItsCommissionLinesAndAddsThemUp)
{
    StoreFrenchiserSalary(company);
    const Document slip = frenchiser();
    EXPECT_EQ(slip.PageCount(), 1);
    EXPECT_EQ(slip.Title(), s("Frenchiser Salary 4001 Mar-2026"));
    EXPECT_EQ(Only(slip, "FldPerson"), s("طارق محمود"));
    QStringList lines;
    const QStringList codes = column(slip, "FldProductID");
    ASSERT_EQ(codes.size(), 2);
    for (int line = 0; line < 2; ++line)
        lines.append(codes.at(line) + s("|") + column(slip, "FldType").at(line) + s("|") +
                     column(slip, "FldCommision").at(line) + s("|") +
                     column(slip, "FldQty").at(line) + s("|") + column(slip, "FldAmount").at(line));
    lines.sort();
    EXPECT_EQ(lines, QStringList({s("101|i”iC|450|3|1,350"), s("210|¼Ïp|120.50|2|241")}));
    EXPECT_EQ(Only(slip, "FldTotalAmount"), s("1,591"));
    EXPECT_EQ(Only(slip, "FldTotalQty"), s("5"));
    EXPECT_EQ(Only(slip, "FldListTotal"), s("1,591"));
    EXPECT_EQ(Only(slip, "FldSumPay"), s("11,641"));
    EXPECT_EQ(Only(slip, "FldSumDeductions"), s("220"));
    EXPECT_EQ(Only(slip, "FldTotal"), s("11,511"));
    EXPECT_EQ(Only(slip, "FldRemaining"), s("11,421"));
}

TEST_F(DefinitionsTest, ASlipShowsItsOwnMonthAlone)
{
    StoreSalary(company);
    StoreFrenchiserSalary(company);
    StoreWorkshopSalary(company, 1);
    for (const char* table : {"Salaries", "FrenchiserSalaryHeader", "FrenchiserSalaryBody",
                              "WorkShopSalaryHeader", "WorkShopSalaryBody"}) {
        company.Run(QStringLiteral("CREATE TEMP TABLE Earlier AS SELECT * FROM %1;"
                                   "UPDATE Earlier SET SalaryMonth = '2026-02-01';"
                                   "INSERT INTO %1 SELECT * FROM Earlier; DROP TABLE Earlier")
                        .arg(s(table)));
    }
    EXPECT_EQ(Only(salary(), "FldSalaryMonth"), s("Mar-2026"));
    EXPECT_EQ(Only(salary(), "FldRemaining"), s("16,687.25"));
    EXPECT_EQ(column(frenchiser(), "FldProductID").size(), 2);
    EXPECT_EQ(Only(frenchiser(), "FldRemaining"), s("11,421"));
    EXPECT_EQ(column(workshop(), "Fldpartname").size(), 1);
}

TEST_F(DefinitionsTest, AFrenchiserMonthWithoutLinesPrintsNoFigures)
{
    StoreFrenchiserSalary(company);
    company.Run("DELETE FROM FrenchiserSalaryBody");
    const Document slip = frenchiser();
    EXPECT_EQ(slip.PageCount(), 1);
    EXPECT_TRUE(column(slip, "FldProductID").isEmpty());
    EXPECT_TRUE(column(slip, "FldRemaining").isEmpty());
    EXPECT_TRUE(column(slip, "FldSumPay").isEmpty());
}

TEST_F(DefinitionsTest, AWorkshopSlipShowsItsParts)
{
    StoreWorkshopSalary(company, 2);
    const Document slip = workshop();
    EXPECT_EQ(slip.Title(), s("Workshop Salary 3108 Mar-2026"));
    QStringList parts = column(slip, "Fldpartname");
    parts.sort();
    EXPECT_EQ(parts, QStringList({s("بریک شو"), s("کلچ پلیٹ")}));
    EXPECT_EQ(Only(slip, "FldTotalAmount"), s("2,120.50"));
    EXPECT_EQ(Only(slip, "FldTotal"), s("14,120.50"));
    EXPECT_EQ(Only(slip, "FldRemaining"), s("13,620.50"));
}

TEST_F(DefinitionsTest, AWorkshopMonthWithoutPartsPrintsItsHeaderWithOneLineOfZero)
{
    StoreWorkshopSalary(company, 0);
    const Document slip = workshop();
    EXPECT_EQ(column(slip, "FldAmount"), QStringList({s("0")}));
    EXPECT_TRUE(column(slip, "Fldpartname").isEmpty());
    EXPECT_EQ(Only(slip, "FldPerson"), s("محمد شریف"));
    EXPECT_EQ(Only(slip, "FldRemaining"), s("11,500"));
}

TEST_F(DefinitionsTest, UnderALongListPayAndSignaturesGoToTheNextPageTogether)
{
    StoreFrenchiserSalary(company);
    company.Run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 8)"
                " INSERT INTO FrenchiserSalaryBody (StaffID, SalaryMonth, ProductID, Type,"
                " Commision, Qty, Amount) SELECT '4001', '2026-03-01', '233', '¼Ïp', i, 1, i"
                " FROM n");
    const Document slip = frenchiser();
    ASSERT_EQ(slip.PageCount(), 2);
    EXPECT_EQ(RunsOf(slip, 0, s("FldProductID")).size(), 10);
    EXPECT_EQ(RunsOf(slip, 0, s("FldTotalAmount")).size(), 1);
    EXPECT_EQ(RunsOf(slip, 1, s("FldRemaining")).size(), 1);
    EXPECT_EQ(RunsOf(slip, 1, s("TxtSigner")).size(), 3);
}

// ---- What stands where

namespace {

/// A name of an object, and the two captions that belong to it.
struct Captioned {
    const char* Object;
    const char* Urdu;
    const char* English;
};

void expectCaptions(const Document& document, const char* prefix, const QList<Captioned>& all)
{
    for (const auto& [object, urdu, english] : all) {
        SCOPED_TRACE(object);
        const QByteArray name(object);
        EXPECT_EQ(Only(document, prefix + name), s(urdu));
        EXPECT_EQ(Only(document, prefix + QByteArray("English") + name), s(english));
    }
}

void expectLabels(const Document& document, const QList<Captioned>& all)
{
    expectCaptions(document, "Lbl", all);
}

void expectHeads(const Document& document, const QList<Captioned>& all)
{
    expectCaptions(document, "Head", all);
}

QRectF placeOf(const Document& document, const char* object)
{
    const QList<TextRun> runs = RunsOf(document, s(object));
    return runs.isEmpty() ? QRectF() : runs.first().Place;
}

} // namespace

TEST_F(DefinitionsTest, EachFieldOfAGatePassBearsItsLabel)
{
    StoreGatePass(company);
    const Document pass = gatePass();
    expectLabels(pass, {{"GatePassID", "نمبر", "Number"},
                        {"GatePassDate", "تاریخ", "Date"},
                        {"Kind", "قسم", "Kind"},
                        {"BranchName", "برانچ", "Branch"},
                        {"AreaCode", "علاقہ", "Area"},
                        {"Name", "ڈرائیور", "Driver"},
                        {"Receiving", "وصول کنندہ", "Receiver"}});
    expectHeads(pass, {{"ProductID", "کوڈ", "Code"},
                       {"ProductName", "نام", "Product"},
                       {"OutNewProducts", "باہر", "Out"},
                       {"ReturnOldProducts", "واپس پرانا", "Returned old"},
                       {"ReturnNewProducts", "واپس نیا", "Returned new"}});
}

TEST_F(DefinitionsTest, EachFieldOfARecoveryVoucherBearsItsLabel)
{
    StoreRecovery(company);
    company.Run("DELETE FROM RecoveryBody WHERE ReceiptNo > 503");
    const Document voucher = recovery();
    ASSERT_EQ(voucher.PageCount(), 1);
    expectLabels(voucher, {{"VoucherID", "نمبر", "Number"},
                           {"VoucherDate", "تاریخ", "Date"},
                           {"AreaName", "علاقہ", "Area"},
                           {"AMName", "ایریا منیجر", "Area manager"},
                           {"SAMName", "سیکرٹری", "Secretary"},
                           {"StaffName", "ملازم", "Collected by"}});
    expectHeads(voucher, {{"ReceiptNo", "رسید", "Receipt"},
                          {"CardNo", "کارڈ نمبر", "Card no."},
                          {"Name", "گاہک", "Customer"},
                          {"FName", "ولدیت", "Father's name"},
                          {"City", "شہر", "City"},
                          {"Amount", "رقم", "Amount"},
                          {"Balance", "بقایا", "Balance"}});
    EXPECT_TRUE(column(voucher, "FldTotalBalance").isEmpty());
}

TEST_F(DefinitionsTest, EachLineOfASlipBearsItsLabel)
{
    const QList<Captioned> shared = {{"Person", "نام", "Name"},
                                     {"StaffID", "کوڈ", "Code"},
                                     {"FName", "ولدیت", "Father's name"},
                                     {"SalaryMonth", "مہینہ", "Month"},
                                     {"Designation", "عہدہ", "Post"},
                                     {"Address", "پتہ", "Address"},
                                     {"BasicSalary", "بنیادی تنخواہ", "Basic pay"},
                                     {"Other", "دیگر", "Other"},
                                     {"SumPay", "کل تنخواہ", "Pay in all"},
                                     {"Advance", "ایڈوانس", "Advance"},
                                     {"Less", "دیگر کٹوتی", "Less"},
                                     {"Recloan", "وصولی قرض", "Loan recovered"},
                                     {"KFFund", "کے ایف فنڈ", "KF fund"},
                                     {"GPFund", "جی پی فنڈ", "GP fund"},
                                     {"SumDeductions", "کل کٹوتی", "Deductions in all"},
                                     {"Total", "میزان", "Total before loan and funds"},
                                     {"Remaining", "قابل ادائیگی", "Net pay"}};
    StoreSalary(company);
    const Document staff = salary();
    expectLabels(staff, shared);
    expectLabels(staff, {{"SaleComm", "سیل کمیشن", "Sale commission"},
                         {"SalePrize", "سیل انعام", "Sale prize"},
                         {"OrderComm", "آرڈر کمیشن", "Order commission"},
                         {"OrderPrize", "آرڈر انعام", "Order prize"},
                         {"RecComm", "وصولی کمیشن", "Recovery commission"},
                         {"RecPrize", "وصولی انعام", "Recovery prize"},
                         {"SupplyComm", "سپلائی کمیشن", "Supply commission"}});
    EXPECT_EQ(Only(staff, "TxtTitleEnglish"), s("Salary slip"));

    StoreFrenchiserSalary(company);
    const Document holder = frenchiser();
    expectLabels(holder, shared);
    expectLabels(holder, {{"ListTotal", "کمیشن", "Commission"}});
    expectHeads(holder, {{"ProductID", "کوڈ", "Code"},
                         {"ProductName", "مال", "Product"},
                         {"Type", "قسم", "Kind"},
                         {"Qty", "تعداد", "Quantity"},
                         {"Commision", "کمیشن", "Commission"},
                         {"Amount", "رقم", "Amount"}});
    EXPECT_EQ(Only(holder, "TxtTitleEnglish"), s("Franchise salary slip"));

    StoreWorkshopSalary(company, 1);
    const Document mechanic = workshop();
    expectLabels(mechanic, shared);
    expectLabels(mechanic, {{"ListTotal", "پرزہ جات", "Parts"}});
    expectHeads(mechanic, {{"partname", "پرزہ", "Part"}, {"Amount", "رقم", "Amount"}});
    EXPECT_EQ(Only(mechanic, "TxtTitleEnglish"), s("Workshop salary slip"));
}

TEST_F(DefinitionsTest, FieldsRunRowByRowFromTheReadersRightHandEachLeftOfItsLabel)
{
    StoreGatePass(company);
    const Document pass = gatePass();
    const QList<const char*> order = {"GatePassID", "GatePassDate", "Kind",     "BranchName",
                                      "AreaCode",   "Name",         "Receiving"};
    for (qsizetype at = 0; at < order.size(); ++at) {
        SCOPED_TRACE(order[at]);
        const QByteArray name(order[at]);
        const QRectF field = placeOf(pass, "Fld" + name);
        const QRectF label = placeOf(pass, "Lbl" + name);
        EXPECT_LE(field.right(), label.left());
        EXPECT_LE(label.left() - field.right(), 20);
        EXPECT_EQ(field.top(), label.top());
        if (at % 4 == 0) {
            EXPECT_EQ(label.right(), pass.PageSize().width() - 120);
            continue;
        }
        const QRectF before = placeOf(pass, "Fld" + QByteArray(order[at - 1]));
        EXPECT_LT(label.right(), before.left());
        EXPECT_EQ(field.top(), before.top());
    }
    EXPECT_GT(placeOf(pass, "FldAreaCode").top(), placeOf(pass, "FldBranchName").bottom());
}

TEST_F(DefinitionsTest, ColumnsStandUnderTheirHeadsAndTotalsUnderTheirColumns)
{
    StoreGatePass(company);
    const Document pass = gatePass();
    for (const char* name :
         {"ProductID", "ProductName", "OutNewProducts", "ReturnOldProducts", "ReturnNewProducts"}) {
        SCOPED_TRACE(name);
        const QRectF head = placeOf(pass, QByteArray("Head") + name);
        const QRectF cell = placeOf(pass, QByteArray("Fld") + name);
        EXPECT_EQ(head.left(), cell.left());
        EXPECT_EQ(head.right(), cell.right());
        EXPECT_LT(head.bottom(), cell.bottom());
        const QRectF total = placeOf(pass, QByteArray("FldTotal") + name);
        if (!total.isNull()) {
            EXPECT_EQ(total.left(), cell.left());
            EXPECT_EQ(total.right(), cell.right());
            EXPECT_GT(total.top(), cell.bottom());
        }
    }
    EXPECT_GT(placeOf(pass, "HeadProductID").left(), placeOf(pass, "HeadProductName").left());
    EXPECT_GT(placeOf(pass, "HeadOutNewProducts").left(),
              placeOf(pass, "HeadReturnOldProducts").left());
    EXPECT_GT(placeOf(pass, "HeadReturnOldProducts").left(),
              placeOf(pass, "HeadReturnNewProducts").left());
}

TEST_F(DefinitionsTest, TheFirstSignerSignsAtTheRightAtTheBottomOfTheLastPage)
{
    StoreGatePass(company);
    const Document pass = gatePass();
    const QList<TextRun> signers = RunsOf(pass, s("TxtSigner"));
    const QList<TextRun> english = RunsOf(pass, s("TxtSignerEnglish"));
    ASSERT_EQ(signers.size(), 3);
    ASSERT_EQ(english.size(), 3);
    const QStringList names = {s("Manager"), s("Driver"), s("Receiver")};
    for (int signer = 0; signer < 3; ++signer) {
        EXPECT_EQ(english[signer].Text, names[signer]);
        EXPECT_EQ(english[signer].Place.left(), signers[signer].Place.left());
        if (signer > 0)
            EXPECT_LT(signers[signer].Place.right(), signers[signer - 1].Place.left());
    }
    EXPECT_DOUBLE_EQ(signers[0].Place.right(), pass.PageSize().width() - 120);
    EXPECT_NEAR(signers[2].Place.left(), 120, 0.01);
    EXPECT_LT(placeOf(pass, "FldPageUrdu").top() - signers[0].Place.bottom(), 60);
}

TEST_F(DefinitionsTest, PayStandsAtTheRightAndDeductionsAtTheLeftTheirSumsOnOneLine)
{
    StoreSalary(company);
    const Document slip = salary();
    const double middle = slip.PageSize().width() / 2;
    for (const char* pay : {"FldBasicSalary", "FldSupplyComm", "FldOther", "FldSumPay", "FldTotal"})
        EXPECT_GT(placeOf(slip, pay).left(), middle) << pay;
    for (const char* deduction :
         {"FldAdvance", "FldGPFund", "FldSumDeductions", "LblAdvance", "FldRemaining"})
        EXPECT_LT(placeOf(slip, deduction).right(), middle) << deduction;
    EXPECT_EQ(placeOf(slip, "FldBasicSalary").top(), placeOf(slip, "FldAdvance").top());
    EXPECT_EQ(placeOf(slip, "FldSumPay").top(), placeOf(slip, "FldSumDeductions").top());
    EXPECT_EQ(placeOf(slip, "FldTotal").top(), placeOf(slip, "FldRemaining").top());
    EXPECT_GT(placeOf(slip, "FldSumPay").top(), placeOf(slip, "FldOther").bottom());
    EXPECT_GT(placeOf(slip, "FldTotal").top(), placeOf(slip, "FldSumPay").bottom());
}

// ---- The statements, to the letter

TEST(ReportStatementsTest, AreTheRequiredOnes)
{
    EXPECT_EQ(CrpGatePassDetail::Source(s("7")).Text(),
              s(" Select "
                "GatePassHeader.*,GatePassBody.ProductID,GatePassBody.OutNewProducts,GatePassBody."
                "ReturnOldProducts,GatePassBody.ReturnNewProducts,BranchName,Products.ProductName, "
                "d.Name, r.name as Receiving  from GatePassHeader inner join GatePassBody on "
                "GatePassHeader.GatePassID=GatePassBody.GatePassID inner join Branches on "
                "GatePassHeader.BranchCode=Branches.BranchCode inner join Products on "
                "GatePassBody.ProductID=Products.ProductID left outer join Staff d on "
                "GatePassHeader.DriverCode=d.StaffID left outer join Staff r on "
                "GatePassHeader.ReceivingCode=r.StaffID Where GatePassHeader.GatePassID = 7"));
    EXPECT_EQ(CrpRecoveryVoucher::Balances(QDate(2026, 3, 5)).Text(),
              s("exec SPInstallmentBalances '2026-03-05'"));
    EXPECT_EQ(
        CrpRecoveryVoucher::Source(s("3")).Text(),
        s(" Select  h.*,ar.AreaName,AM.Name as AMName,SAM.Name as SAMName, w.Name as StaffName, "
          "b.CardNo, ih.Name, ih.FName, ih.City, ReceiptNo, Amount, i.Balance from (select * from "
          "RecoveryHeader where VoucherID=3) h join Areas ar on h.AreaCode=ar.AreaCode join Staff "
          "AM on h.AMStaffID=AM.StaffID join Staff SAM on h.SAMStaffID=SAM.StaffID left outer join "
          "Staff w on h.StaffID=w.StaffID inner join RecoveryBody b on b.voucherid = h.voucherid "
          "inner join InstallmentBalances i on i.insCustomerID = b.insCustomerID inner join "
          "InsCustomerHeader ih on ih.insCustomerID = b.insCustomerID Order By ReceiptNo"));
    EXPECT_EQ(
        CrpSalary::Source(s("2014"), QDate(2026, 3, 1)).Text(),
        s("Select s.*, f.name, f.fname, Address, designation from salaries s inner join staff f on "
          "s.StaffID = f.StaffID where s.StaffID='2014' and SalaryMonth='2026-03-01'"));
    EXPECT_EQ(
        CrpFrenchiserSalary::Source(s("4001"), QDate(2026, 3, 1)).Text(),
        s(" select h.*, Name as StaffName, FName, Address, Designation, b.ProductID, ProductName, "
          "Type, Commision, Qty, Amount from FrenchiserSalaryHeader h inner join "
          "FrenchiserSalaryBody b on b.staffid = h.staffid and h.SalaryMonth = b.SalaryMonth inner "
          "join Products p on p.ProductID = b.ProductID inner join staff s on s.staffid = "
          "h.staffid where h.StaffID='4001' and h.SalaryMonth = '2026-03-01' "));
    EXPECT_EQ(CrpWorkshopSalary::Source(s("3108"), QDate(2026, 3, 1)).Text(),
              s(" select h.*, isnull(amount,0)amount, partname, Name as StaffName, Address, Fname, "
                "Designation from WorkShopSalaryHeader h left outer join WorkShopSalaryBody b on "
                "b.staffid = h.staffid and h.SalaryMonth = b.SalaryMonth left outer join parts p "
                "on p.partid = b.partid inner join staff s on s.staffid = h.staffid where "
                "h.StaffID='3108' and h.SalaryMonth = '2026-03-01' "));
}

} // namespace tests
