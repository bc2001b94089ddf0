// What each column of each list shows: the field that is its own, and no other of the row.

#include "data/Connection.h"
#include "data/Numbers.h"
#include "host/HostContext.h"
#include "search/Catalogue.h"
#include "support/SearchDesk.h"
#include "support/Text.h"

#include <QLocale>
#include <QSet>

namespace tests {

namespace {

struct ColumnText {
    const char* Column;
    const char* Text; ///< in the first row; {-30} is a day, {month} this month, {1st} its first day
};

struct Lists {
    const SearchDeclaration* Declared;
    QList<ColumnText> Columns;
    QList<ColumnText> Lines = {};
    const char* Before = ""; ///< makes each field of the row unlike the others
};

std::ostream& operator<<(std::ostream& out, const Lists& lists)
{
    return out << lists.Declared->Name;
}

const QList<Lists>& allLists()
{
    static const QList<Lists> all{
        {&SchArea(), {{"ID", "Kot"}, {"Name", "کوٹ رادھا کشن"}}},
        {&SchBranch(), {{"ID", "1"}, {"Name", "قصور"}}},
        {&SchProduct(), {{"ID", "101"}, {"Name", "موٹر سائیکل 125 سی سی"}, {"Stock", "23"}}},
        {&SchStaff(),
         {{"ID", "2014"},
          {"Name", "محمد اسلم"},
          {"Address", "محلہ قصابان، قصور"},
          {"Designation", "ڈرائیور"},
          {"Branch", "قصور"}}},
        {&SchAccounts(), {{"ID", "1"}, {"Name", "نقد"}}},
        {&SchParts(), {{"ID", "11"}, {"Name", "کلچ پلیٹ"}, {"Rate", "850"}}},
        {&SchParty(), {{"ID", "P1"}, {"Name", "حاجی ٹریڈرز"}}},
        {&SchSector(), {{"ID", "1"}, {"Name", "سیکٹر الف"}}},
        {&SchCustomer(),
         {{"AreaCode", "Kot"},
          {"ID", "11"},
          {"Name", "احمد علی"},
          {"FName", "محمد شفیع"},
          {"Address", "چک نمبر 7، کوٹ رادھا کشن"}}},
        {&SchGatePass(),
         {{"ID", "1"},
          {"Date", "{-30}"},
          {"Driver", "محمد اسلم"},
          {"Receiving", "غلام رسول"},
          {"AreaName", "Kot"},
          {"outnewstock", "7"},
          {"returnoldstock", "5"},
          {"returnnewstock", "6"}},
         {},
         "update GatePassBody set ReturnOldProducts = 5, ReturnNewProducts = 6"
         " where GatePassID = 1 and ProductID = '101'"},
        {&SchInsCustomer(),
         {{"ID", "11"},
          {"Date", "{-90}"},
          {"CustomerName", "احمد علی"},
          {"FName", "محمد شفیع"},
          {"AreaName", "کوٹ رادھا کشن"},
          {"Receiving", "غلام رسول"},
          {"Frenchiser", "طارق محمود"},
          {"Promise", "5"},
          {"TotalItems", "1"},
          {"TotalAmount", "185000"},
          {"CusID", "Kot 11"}}},
        {&SchRecoveryVoucher(),
         {{"ID", "1"},
          {"Date", "{1st}"},
          {"AreaName", "کوٹ رادھا کشن"},
          {"Staff", "غلام رسول"},
          {"TotalAmount", "7500.5"}}},
        {&SchRecoveryVoucherDetail(),
         {{"ID", "11"},
          {"VoucherNo", "1"},
          {"Date", "{1st}"},
          {"CusID", "Kot 11"},
          {"Name", "احمد علی"},
          {"AreaName", "کوٹ رادھا کشن"},
          {"Receipt", "501"},
          {"Amount", "5000"}}},
        {&SchConcessionVoucher(),
         {{"ID", "1"}, {"Date", "{-30}"}, {"AreaName", "کوٹ رادھا کشن"}, {"TotalAmount", "750.5"}}},
        {&SchReturnVoucher(),
         {{"ID", "1"}, {"Date", "{-30}"}, {"AreaName", "کوٹ رادھا کشن"}, {"TotalAmount", "9000"}}},
        {&SchWorkerParts(),
         {{"ID", "1"},
          {"Date", "{1st}"},
          {"StaffID", "3108"},
          {"StaffName", "محمد شریف"},
          {"TotalAmount", "1270.5"}}},
        {&SchPartnershipProfit(),
         {{"ID", "1"}, {"Month", "{month}"}, {"AreaName", "کوٹ رادھا کشن"}, {"Profit", "74499.5"}}},
        {&SchConvertArea(),
         {{"PrevAreaCode", "Kot"},
          {"PrevCardNo", "11"},
          {"Name", "احمد علی"},
          {"Total", "185000"},
          {"Previous", "60000"},
          {"NewAreaCode", "Raja"},
          {"NewCardNo", "9"},
          {"Remain", "55000"},
          {"ToDate", "{-180}"}},
         {},
         "update ConvertArea set ToAmount = 55000 where FromInsCustomerID = 'Kot 11'"},
        {&SchSalary(),
         {{"ID", "2014"},
          {"Name", "محمد اسلم"},
          {"FName", "محمد اکرم"},
          {"Date", "{month}"},
          {"Designation", "ڈرائیور"},
          {"Total", "14700"}},
         {},
         "delete from Salaries where StaffID <> '2014'"},
        {&SchFrenchiserSalary(),
         {{"ID", "4001"}, {"Name", "طارق محمود"}, {"Month", "{month}"}, {"Total", "11370"}},
         {},
         "delete from FrenchiserSalaryHeader where SalaryMonth <>"
         " (select max(SalaryMonth) from FrenchiserSalaryHeader)"},
        {&SchWorkShopSalary(),
         {{"ID", "3108"}, {"Name", "محمد شریف"}, {"Month", "{month}"}, {"Total", "14071"}},
         {},
         "delete from WorkShopSalaryHeader where SalaryMonth <>"
         " (select max(SalaryMonth) from WorkShopSalaryHeader)"},
        {&SchStockIn(),
         {{"ID", "11"},
          {"Date", "{-30}"},
          {"AccountName", "حاجی ٹریڈرز"},
          {"BranchName", "قصور"},
          {"TotalItems", "5"}},
         {{"ProductName", "موٹر سائیکل 125 سی سی"}, {"Qty", "2"}}},
        {&SchStockOut(),
         {{"ID", "11"},
          {"Date", "{-30}"},
          {"AccountName", "لاہور موٹرز"},
          {"BranchName", "قصور"},
          {"TotalItems", "1"}},
         {{"ProductName", "موٹر سائیکل 70 سی سی"}, {"Qty", "1"}}},
        {&SchStockInDetail(),
         {{"ID", "1"}, {"Date", "{-30}"}, {"ReceivingName", "غلام رسول"}, {"TotalItems", "2"}},
         {{"ProductName", "موٹر سائیکل 125 سی سی"},
          {"ChasisNo", "CH-10021"},
          {"EngineNo", "EN-70881"}}},
    };
    return all;
}

class ColumnsTest : public SearchDesk, public ::testing::WithParamInterface<Lists> {
protected:
    QString monthText(const QDate& date) const
    {
        return QLocale(QLocale::English).toString(date, s("MMM-yyyy"));
    }

    QString textOf(const ColumnText& shown) const
    {
        const QString text = s(shown.Text);
        if (text == s("{month}"))
            return monthText(month);
        if (text == s("{1st}"))
            return month.toString(s("dd/MM/yyyy"));
        return text.startsWith(u'{') ? Shown(text.mid(1).chopped(1).toInt()) : text;
    }

    /// The fields of the first row that would be shown so.
    QSet<QString> fieldsThatShow(const QString& text, const Recordset& rows) const
    {
        QSet<QString> fields;
        for (int field = 0; field < rows.FieldCount(); ++field) {
            const QVariant value = rows.ValueAt(0, field);
            if (TextOf(value) == text || monthText(value.toDate()) == text)
                fields << rows.FieldName(field).toLower();
        }
        return fields;
    }

    void ExpectRow(Grid& grid, const QList<ColumnText>& expected, const Statement& statement)
    {
        const Recordset rows = HostContext::Database()->Execute(statement);
        ASSERT_GT(rows.RecordCount(), 0);
        QStringList names;
        for (const ColumnText& shown : expected) {
            names << s(shown.Column);
            const QString text = textOf(shown);
            EXPECT_EQ(grid.Cell(0, s(shown.Column)), text) << shown.Column;
            EXPECT_EQ(fieldsThatShow(text, rows).size(), 1)
                << shown.Column << " could be bound to another field as well";
        }
        QStringList columns;
        for (const GridColumn& column : grid.Columns())
            columns << column.Name;
        EXPECT_EQ(columns, names);
    }
};

INSTANTIATE_TEST_SUITE_P(Of, ColumnsTest, ::testing::ValuesIn(allLists()),
                         [](const ::testing::TestParamInfo<Lists>& tested) {
                             return std::string(tested.param.Declared->Name);
                         });

} // namespace

TEST(Columns, OfEveryDialogAreTested)
{
    QList<const SearchDeclaration*> tested;
    for (const Lists& lists : allLists())
        tested << lists.Declared;
    EXPECT_EQ(tested, AllSearchDialogs());
}

TEST_P(ColumnsTest, ShowEachItsOwnFieldOfTheRow)
{
    const Lists& expected = GetParam();
    company.Run(expected.Before);
    Look(*expected.Declared, [&](SearchWindow& window) {
        ExpectRow(window.List(), expected.Columns, Statement(window.ListStatement()));
        ASSERT_EQ(window.GridDetail() != nullptr, !expected.Lines.isEmpty());
        if (window.GridDetail())
            ExpectRow(*window.GridDetail(), expected.Lines,
                      Statement(expected.Declared->GridDetail.Statement.constData())
                          .Bind("ID", Current(window, "ID")));
    });
}

} // namespace tests
