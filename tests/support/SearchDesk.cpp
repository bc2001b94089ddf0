#include "support/SearchDesk.h"

#include "data/Connection.h"
#include "host/HostContext.h"
#include "support/Text.h"

#include <QRegularExpression>

namespace tests {

namespace {

/// {-3} stands for the date three days ago, {month} for the first day of this month and {month-1}
/// for that of the last.
constexpr const char* documents = R"sql(
INSERT INTO GatePassHeader (GatePassID, GatePassDate, DriverCode, ReceivingCode, AreaCode,
                            BranchCode, isPosted) VALUES
    (1, '{-30}', '2014', '3107', 'Kot', 1, 0), (2, '{0}', '2015', NULL, 'Raja', 1, 0),
    (3, '{-31}', '2014', '3107', 'Kot', 1, 0), (4, '{0}', '2014', '3107', 'Kot', 1, 0);
INSERT INTO GatePassBody VALUES (1, '101', 3, 1, 2), (1, '104', 4, NULL, NULL),
    (2, '101', 1, NULL, NULL), (3, '101', 1, NULL, NULL);

INSERT INTO InsCustomerHeader (InsCustomerID, AreaCode, CardNo, Name, FName, PAddress, SaleDate,
                               PromiseDate, TotalAmount, FStaffID, ReceivingCode, [Order], Sale,
                               Old) VALUES
    ('Kot 11', 'Kot', '11', 'احمد علی', 'محمد شفیع', 'چک نمبر 7، کوٹ رادھا کشن', '{-90}', 5,
     185000, '4001', '3107', 0, 1, 0),
    ('Kot 12', 'Kot', '12', 'احمد حسن', 'غلام نبی', 'محلہ اسلام پورہ', '{0}', 10, 132000.5,
     NULL, '2014', 0, 1, 0),
    ('Kot 13', 'Kot', '13', 'احمد بخش', 'عبدالرحمن', 'بستی چراغ شاہ', '{-91}', 10, 26000, NULL,
     NULL, 0, 1, 0),
    ('Raja 12', 'Raja', '12', 'نذیر احمد', 'محمد یوسف', 'گلی نمبر 4، ریلوے روڈ', '{0}', 1, 84000,
     '4001', NULL, 0, 1, 0),
    ('Gone 7', 'Gone', '7', 'فضل دین', 'احمد خان', 'چک نمبر 12', '{0}', 1, 7400, NULL, NULL, 0,
     1, 0);
INSERT INTO InsCustomerBody (InsCustomerID, ProductID, Qty, Price, Amount) VALUES
    ('Kot 11', '101', 1, 185000, 185000), ('Kot 12', '104', 1, 132000, 132000),
    ('Kot 12', '299', 2, 0.25, 0.5), ('Raja 12', '233', 1, 84000, 84000);

INSERT INTO ConvertArea VALUES ('Kot 11', 60000, 185000, 'Raja 9', 60000, '{-180}'),
    ('Raja 12', 84000, 84000, 'Lahore 44', 80000, '{0}'),
    ('Kot 13', 26000, 26000, 'Lahore 45', 26000, '{-181}');

INSERT INTO RecoveryHeader (VoucherID, VoucherDate, AreaCode, StaffID, isPosted) VALUES
    (1, '{month}', 'Kot', '3107', 0), (2, '{0}', 'Raja', NULL, 0),
    (3, '{-61}', 'Kot', '3107', 0), (4, '{0}', 'Kot', '3107', 0);
INSERT INTO RecoveryBody VALUES (1, '{month}', 'Kot 11', '11', 501, 5000),
    (1, '{month}', 'Kot 12', '12', 502, 2500.5), (2, '{0}', 'Raja 12', '12', 503, 4000),
    (3, '{-61}', 'Kot 11', '11', 500, 5000);

INSERT INTO ConcessionHeader VALUES (1, '{-30}', 'Kot'), (2, '{0}', 'Raja'), (3, '{-31}', 'Kot'),
    (4, '{0}', 'Kot');
INSERT INTO ConcessionBody VALUES (1, '{-30}', 'Kot 11', '11', NULL, 700),
    (1, '{-30}', 'Kot 12', '12', NULL, 50.5), (2, '{0}', 'Raja 12', '12', NULL, 300),
    (3, '{-31}', 'Kot 11', '11', NULL, 10);

INSERT INTO ReturnHeader VALUES (1, '{-30}', 'Kot'), (2, '{0}', 'Raja'), (3, '{-31}', 'Kot'),
    (4, '{0}', 'Kot');
INSERT INTO ReturnBody VALUES (1, '{-30}', 'Kot 11', '11', NULL, 0, 185000, 9000),
    (2, '{0}', 'Raja 12', '12', NULL, 0, 84000, 12000),
    (3, '{-31}', 'Kot 11', '11', NULL, 0, 185000, 1);

INSERT INTO WorkShopPartsHeader VALUES (1, '{month}', '3108', 1270.5), (2, '{0}', NULL, 2900),
    (3, '{month-1}', '3108', 850), (4, '{0}', '3108', 0);
INSERT INTO WorkShopPartsBody VALUES (1, 11, 850, 1, 850), (1, 12, 420.5, 1, 420.5),
    (2, 13, 2900, 1, 2900), (3, 11, 850, 1, 850);

INSERT INTO PartnershipProfitHeader VALUES (1, 'Kot', '{month}'), (2, 'Raja', '{month}'),
    (3, 'Kot', '{month-1}'), (4, 'Kot', '{month}');
INSERT INTO PartnershipProfitBody VALUES (1, 90000, 5000, 20000), (1, 10000, 0, 500.5),
    (2, 1000, 2000, 500), (3, 1, 0, 0);

INSERT INTO Salaries VALUES
    ('2014', '{month}', 15000, 1, 2, 3, 4, 5, 6, 7, 200, 100, 50, 30, 500, 8),
    ('5001', '{month-1}', 25000, 0, 0, 0, 0, 0, 0, 0, 400, 200, 0, 0, 1000, 0),
    ('5001', '{month-3}', 25000, 0, 0, 0, 0, 0, 0, 0, 400, 200, 0, 0, 1000, 0);
INSERT INTO FrenchiserSalaryHeader VALUES ('4001', '{month}', 10000, 20, 10, 5, 7, 2, 0),
    ('4001', '{month-1}', 10000, 0, 0, 0, 0, 0, 0), ('4001', '{month-3}', 1, 0, 0, 0, 0, 0, 0);
INSERT INTO FrenchiserSalaryBody VALUES ('4001', '{month}', '101', 'x', 500, 2, 1000),
    ('4001', '{month}', '104', 'x', 400, 1, 400);
INSERT INTO WorkShopSalaryHeader VALUES ('3108', '{month}', 13000, 150, 50, 0, 0, 0, 300),
    ('3108', '{month-1}', 13000, 150, 50, 0, 0, 0, 300), ('3108', '{month-3}', 1, 0, 0, 0, 0, 0, 0);
INSERT INTO WorkShopSalaryBody VALUES ('3108', '{month}', 11, 850), ('3108', '{month}', 12, 421);

INSERT INTO StockInHeader VALUES (11, '{-30}', 1, '7', NULL), (12, '{0}', 2, NULL, NULL),
    (13, '{-31}', 1, '7', NULL);
INSERT INTO StockInBody VALUES (11, '101', 2, 145000, 290000), (11, '210', 3, 18500, 55500),
    (12, '104', 1, 98000, 98000), (13, '101', 1, 145000, 145000);
INSERT INTO StockOutHeader VALUES (11, '{-30}', 1, '12', NULL), (12, '{0}', 3, NULL, NULL),
    (13, '{-31}', 1, '7', NULL);
INSERT INTO StockOutBody VALUES (11, '104', 1, 98000, 98000), (12, '101', 1, 145000, 145000),
    (12, '233', 2, 62000, 124000), (13, '101', 1, 145000, 145000);
INSERT INTO StockInDetailHeader VALUES (1, '{-30}', '3107', NULL), (2, '{0}', NULL, NULL),
    (3, '{-31}', '3107', NULL), (4, '{0}', '3107', NULL);
INSERT INTO StockInDetailBody VALUES (1, '101', 'EN-70881', 'CH-10021'),
    (1, '101', 'EN-70882', 'CH-10022'), (2, '104', 'EN-5531', 'CH-3300'),
    (3, '104', 'EN-1', 'CH-1');
)sql";

QString dated(QString text, const QDate& today)
{
    static const QRegularExpression day(s("\\{(month)?(-?\\d+)?\\}"));
    const QDate month(today.year(), today.month(), 1);
    for (auto place = day.match(text); place.hasMatch(); place = day.match(text)) {
        const int number = place.captured(2).toInt();
        const QDate date =
            place.captured(1).isEmpty() ? today.addDays(number) : month.addMonths(number);
        text.replace(place.capturedStart(), place.capturedLength(), date.toString(Qt::ISODate));
    }
    return text;
}

} // namespace

std::string NameOfDialog(const ::testing::TestParamInfo<const SearchDeclaration*>& tested)
{
    return tested.param->Name;
}

SearchDesk::SearchDesk()
{
    company.Run(s("BEGIN;") + dated(s(documents), today) + s("COMMIT;"));
    HostContext::objCN = company.Connect();
    // The dialogs are shared instances, which keep their inputs from one test to the next.
    for (const SearchDeclaration* description : AllSearchDialogs())
        for (const SearchInput& input : description->Inputs)
            SearchDialog::Shared(*description).SetParaIn(input.Name, s(input.NoClauseFor));
    owner.resize(200, 100);
    owner.show();
}

SearchDesk::~SearchDesk()
{
    HostContext::objCN.reset();
}

SearchDialog& SearchDesk::Show(const SearchDeclaration& description,
                               const std::function<void(SearchWindow&)>& drive)
{
    SearchDialog& dialog = SearchDialog::Shared(description);
    dialogs.Expect([&](Form& form) { drive(dynamic_cast<SearchWindow&>(form)); });
    dialog.Show(&owner);
    return dialog;
}

SearchDialog& SearchDesk::Look(const SearchDeclaration& description,
                               const std::function<void(SearchWindow&)>& look)
{
    return Show(
        description,
        [&](SearchWindow& window) {
            look(window);
            Press(window, Qt::Key_Escape);
        });
}

QString SearchDesk::Column(SearchWindow& window, const char* column)
{
    return Column(window.List(), column);
}

QString SearchDesk::Column(Grid& grid, const char* column)
{
    QStringList texts;
    for (int row = 0; row < grid.RowCount(); ++row)
        texts << grid.Cell(row, s(column));
    return texts.join(u' ');
}

QString SearchDesk::Current(SearchWindow& window, const char* column)
{
    return window.List().Cell(window.List().Row(), s(column));
}

void SearchDesk::TypeInto(SearchWindow& window, const char* field, const QString& text)
{
    Txt& txt = window.NarrowingField(field);
    ASSERT_TRUE(window.IsActive(txt) || window.SetFocus(txt));
    txt.selectAll();
    if (text.isEmpty())
        Press(window, Qt::Key_Delete);
    else
        Type(window, text);
}

::testing::AssertionResult SearchDesk::Read(SearchWindow& window, const QString& part)
{
    if (window.ListStatement().contains(part))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "'" << part.toStdString() << "' is not in\n"
                                         << window.ListStatement().toStdString();
}

QString SearchDesk::Iso(int days)
{
    return QDate::currentDate().addDays(days).toString(Qt::ISODate);
}

QString SearchDesk::Shown(int days)
{
    return QDate::currentDate().addDays(days).toString(s("dd/MM/yyyy"));
}

} // namespace tests
