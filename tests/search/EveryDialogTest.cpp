// What all dialogs have in common. Where it comes from their declarations each of them is opened;
// where it is the window's own work, one of each kind.

#include "host/HostContext.h"
#include "search/Catalogue.h"
#include "support/SearchDesk.h"
#include "support/Text.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace tests {

namespace {

struct Dialog {
    const SearchDeclaration* Declared;
    const char* Key;             ///< a column that tells the rows apart
    const char* Listed;          ///< its texts, as the dialog comes up
    const char* First;           ///< the results of the first row
    const char* KeepOne;         ///< leaves the first row alone
    const char* Field = "TxtID"; ///< has the focus at first, and gets what is typed in the list
};

std::ostream& operator<<(std::ostream& out, const Dialog& dialog)
{
    return out << dialog.Declared->Name;
}

/// All tables that a dialog reads.
constexpr const char* emptyAll = R"sql(
DELETE FROM Areas; DELETE FROM Branches; DELETE FROM Products; DELETE FROM Staff;
DELETE FROM Accounts; DELETE FROM Parts; DELETE FROM Parties; DELETE FROM Sectors;
DELETE FROM InsCustomerHeader; DELETE FROM GatePassHeader; DELETE FROM RecoveryHeader;
DELETE FROM ConcessionHeader; DELETE FROM ReturnHeader; DELETE FROM WorkShopPartsHeader;
DELETE FROM PartnershipProfitHeader; DELETE FROM ConvertArea; DELETE FROM Salaries;
DELETE FROM FrenchiserSalaryHeader; DELETE FROM WorkShopSalaryHeader; DELETE FROM StockInHeader;
DELETE FROM StockOutHeader; DELETE FROM StockInDetailHeader;
)sql";

const QList<Dialog>& dialogs()
{
    static const QList<Dialog> all{
        {&SchArea(), "ID", "Kot Raja Lahore", "Kot", "delete from Areas where AreaCode <> 'Kot'"},
        {&SchBranch(), "ID", "1 2 3", "1", "delete from Branches where BranchCode <> 1"},
        {&SchProduct(), "ID", "101 104 210 233", "101",
         "delete from Products where ProductID <> '101'"},
        {&SchStaff(), "ID", "2014 2015 3107 3108 4001 5001 5002", "2014",
         "delete from Staff where StaffID <> '2014'"},
        {&SchAccounts(), "ID", "1 7 12", "1", "delete from Accounts where AccountNo <> '1'"},
        {&SchParts(), "ID", "11 12 13", "11", "delete from Parts where PartID <> 11"},
        {&SchParty(), "ID", "P1 P2", "P1", "delete from Parties where PartyCode <> 'P1'"},
        {&SchSector(), "ID", "1 2 3", "1", "delete from Sectors where SectorID <> 1"},
        {&SchCustomer(), "ID", "11 12 13 12 7", "11|Kot",
         "delete from InsCustomerHeader where InsCustomerID <> 'Kot 11'"},
        {&SchGatePass(), "ID", "1 2", "1", "delete from GatePassHeader where GatePassID <> 1",
         "TxtFilter"},
        {&SchInsCustomer(), "CusID", "Kot 11 Kot 12 Raja 12", "Kot 11",
         "delete from InsCustomerHeader where InsCustomerID <> 'Kot 11'", "TxtFilter"},
        {&SchRecoveryVoucher(), "ID", "1 2", "1", "delete from RecoveryHeader where VoucherID <> 1",
         "TxtFilter"},
        {&SchRecoveryVoucherDetail(), "Receipt", "501 502 503", "1|Kot 11",
         "delete from RecoveryBody where ReceiptNo <> 501"},
        {&SchConcessionVoucher(), "ID", "1 2", "1",
         "delete from ConcessionHeader where VoucherID <> 1", "TxtFilter"},
        {&SchReturnVoucher(), "ID", "1 2", "1", "delete from ReturnHeader where VoucherID <> 1",
         "TxtFilter"},
        {&SchWorkerParts(), "ID", "1 2", "1",
         "delete from WorkShopPartsHeader where VoucherID <> 1", "TxtFilter"},
        {&SchPartnershipProfit(), "ID", "1 2", "1",
         "delete from PartnershipProfitHeader where VoucherID <> 1", "TxtFilter"},
        {&SchConvertArea(), "PrevCardNo", "11 12", "Kot|11",
         "delete from ConvertArea where FromInsCustomerID <> 'Kot 11'", "TxtPrevCardNo"},
        {&SchSalary(), "ID", "2014", "2014|{month}",
         "delete from Salaries where StaffID <> '2014'"},
        {&SchFrenchiserSalary(), "ID", "4001", "4001|{month}",
         "delete from FrenchiserSalaryHeader where BasicSalary = 1"},
        {&SchWorkShopSalary(), "ID", "3108", "3108|{month}",
         "delete from WorkShopSalaryHeader where BasicSalary = 1"},
        {&SchStockIn(), "ID", "11 12", "11", "delete from StockInHeader where StockID <> 11",
         "TxtFilter"},
        {&SchStockOut(), "ID", "11 12", "11", "delete from StockOutHeader where StockID <> 11",
         "TxtFilter"},
        {&SchStockInDetail(), "ID", "1 2", "1",
         "delete from StockInDetailHeader where StockID <> 1", "TxtFilter"},
    };
    return all;
}

class DialogTest : public SearchDesk, public ::testing::WithParamInterface<Dialog> {
protected:
    DialogTest()
    {
        // Of salaries, whose default range is one month or two or three, this month's alone.
        for (const char* table : {"Salaries", "FrenchiserSalaryHeader", "WorkShopSalaryHeader"}) {
            company.Run(s("delete from %1 where SalaryMonth < '%2'")
                            .arg(s(table), month.toString(Qt::ISODate)));
        }
    }

    const SearchDeclaration& is() const { return *GetParam().Declared; }

    QStringList results() const
    {
        QStringList texts;
        for (const SearchResult& result : is().Results)
            texts << SearchDialog::Shared(is()).ParaOut(result.Name).toString();
        return texts;
    }

    QStringList firstResults() const
    {
        return s(GetParam().First)
            .replace(s("{month}"), month.toString(s("dd/MM/yyyy")))
            .split(u'|');
    }

    QStringList emptyResults() const
    {
        QStringList texts;
        for (const SearchResult& result : is().Results)
            texts << (result.Kind == SearchResult::Type::Text ? QString() : s("0"));
        return texts;
    }

    const char* firstField() const { return GetParam().Field; }

    static Message failure() { return {{}, MsgIcon::Stop, s("Error occured")}; }
};

std::string nameOf(const ::testing::TestParamInfo<Dialog>& tested)
{
    return tested.param.Declared->Name;
}

/// One dialog for each way in which the window is put together.
QList<Dialog> oneOfEachKind()
{
    const QList<const SearchDeclaration*> chosen{
        &SchCustomer(), // a code list: a balance below it, two results, a filter on F12
        &SchRecoveryVoucherDetail(), // a voucher list: a jump, queries, a count, two results
        &SchPartnershipProfit(),     // its pickers keep to whole months
        &SchSalary(),                // no field that jumps
        &SchStockIn(),               // a second list, and a field that waits for BtnFilter
    };
    QList<Dialog> kinds;
    std::copy_if(dialogs().begin(), dialogs().end(), std::back_inserter(kinds),
                 [&](const Dialog& dialog) { return chosen.contains(dialog.Declared); });
    return kinds;
}

class EveryDialog : public DialogTest {};
class DialogOfEachKind : public DialogTest {};

INSTANTIATE_TEST_SUITE_P(Of, EveryDialog, ::testing::ValuesIn(dialogs()), nameOf);
INSTANTIATE_TEST_SUITE_P(Of, DialogOfEachKind, ::testing::ValuesIn(oneOfEachKind()), nameOf);

} // namespace

TEST(TheCatalogue, ListsEveryDialogThatIsDeclaredUnderItsOwnName)
{
    QFile header(QStringLiteral(SOURCE_DIR "/src/search/Catalogue.h"));
    ASSERT_TRUE(header.open(QIODevice::ReadOnly));
    static const QRegularExpression pattern(s("const\\s+SearchDeclaration&\\s+(Sch\\w+)\\(\\);"));
    QStringList declared;
    for (auto found = pattern.globalMatch(QString::fromUtf8(header.readAll())); found.hasNext();)
        declared << found.next().captured(1);
    QStringList listed;
    for (const SearchDeclaration* declaration : AllSearchDialogs())
        listed << s(declaration->Name);
    EXPECT_EQ(declared, listed);
    EXPECT_EQ(listed.size(), 24);
}

TEST(TheCatalogue, IsWhatIsTestedHere)
{
    QList<const SearchDeclaration*> tested;
    for (const Dialog& dialog : dialogs())
        tested << dialog.Declared;
    EXPECT_EQ(tested, AllSearchDialogs());
}

TEST_P(EveryDialog, ComesUpWithItsRowsAndTheFirstOneMarked)
{
    Look(
        is(),
        [this](SearchWindow& window) {
            EXPECT_EQ(Column(window, GetParam().Key), s(GetParam().Listed));
            EXPECT_EQ(window.List().SelectedRows(), QList<int>{0});
            EXPECT_TRUE(window.IsActive(window.NarrowingField(firstField())));
            EXPECT_EQ(window.Title().StateText(), s("rows %1").arg(window.List().RowCount()));
            EXPECT_EQ(window.windowTitle(),
                      &is() == &SchSector() ? s("Search") : s(is().Title.English));
        });
}

TEST_P(EveryDialog, TakesNamesInUrduAndAllElseInLatin)
{
    const QStringList names{s("TxtName"),       s("TxtFName"),     s("TxtStaffName"),
                            s("TxtDriverName"), s("TxtReceiving"), s("TxtFrenchiser"),
                            s("TxtProductName")};
    Look(is(), [&](SearchWindow& window) {
        for (const SearchField& field : is().Fields) {
            const Txt& txt = window.NarrowingField(field.Name);
            EXPECT_EQ(dynamic_cast<const UTxt*>(&txt) != nullptr, names.contains(s(field.Name)))
                << field.Name;
        }
    });
}

TEST_P(EveryDialog, MinimisesButForGatePasses)
{
    Look(
        is(),
        [this](SearchWindow& window) {
            Click(window, window.Title().ImgMin());
            EXPECT_EQ(window.isMinimized(), &is() != &SchGatePass());
            window.showNormal();
        });
}

TEST_P(EveryDialog, GivesItsResultsOnEnter)
{
    Show(is(), [](SearchWindow& window) { Press(window, Qt::Key_Return); });
    EXPECT_EQ(results(), firstResults());
}

TEST_P(DialogOfEachKind, GivesTheMarkedRowOnEnterWhereverTheFocusIs)
{
    QStringList places;
    Look(is(), [&](SearchWindow& window) {
        do {
            places << window.ActiveControl()->Name();
            window.FocusNext();
        } while (!places.contains(window.ActiveControl()->Name()));
    });
    EXPECT_TRUE(places.contains(s("Grid")) && places.contains(s("BtnClose")));
    for (int stop = 0; stop < places.size(); ++stop) {
        SCOPED_TRACE(places[stop].toStdString());
        Show(is(), [stop](SearchWindow& window) {
            for (int step = 0; step < stop; ++step)
                Press(window, Qt::Key_Tab);
            Press(window, Qt::Key_Return);
            EXPECT_FALSE(window.isVisible());
        });
        EXPECT_EQ(results(), firstResults());
    }
}

TEST_P(DialogOfEachKind, GivesTheMarkedRowOnDoubleClickAndOnBtnSelect)
{
    Show(is(), [](SearchWindow& window) { DoubleClickRow(window, window.List(), 0); });
    EXPECT_EQ(results(), firstResults());
    Look(
        is(), [](SearchWindow&) {});
    Show(is(), [](SearchWindow& window) { Click(window, window.BtnSelect()); });
    EXPECT_EQ(results(), firstResults());
}

TEST_P(DialogOfEachKind, GivesTheEmptyResultOnEscAndOnBtnClose)
{
    Show(is(), [](SearchWindow& window) { Press(window, Qt::Key_Return); });
    Look(is(), [](SearchWindow&) {});
    EXPECT_EQ(results(), emptyResults());
    Show(
        is(), [](SearchWindow& window) { Press(window, Qt::Key_Return); });
    Show(is(), [](SearchWindow& window) { Click(window, window.BtnClose()); });
    EXPECT_EQ(results(), emptyResults());
}

TEST_P(DialogOfEachKind, ShowsAnEmptyListInWhichEnterDoesNothing)
{
    company.Run(emptyAll);
    Look(is(), [this](SearchWindow& window) {
        EXPECT_EQ(window.List().RowCount(), 0);
        EXPECT_EQ(window.Title().StateText(), s("rows 0"));
        Press(window, Qt::Key_Return);
        Click(window, window.BtnSelect());
        DoubleClick(window, window.List());
        EXPECT_TRUE(window.isVisible());
        TypeInto(window, firstField(), s("1")); // a jump in nothing
        Press(window, Qt::Key_Down);
        Press(window, Qt::Key_Down);
        EXPECT_TRUE(window.IsActive(window.List()));
        if (window.GridDetail())
            EXPECT_EQ(window.GridDetail()->RowCount(), 0);
        if (window.LblTotalCards())
            EXPECT_EQ(window.LblTotalCards()->Text(), s("0"));
    });
    EXPECT_EQ(results(), emptyResults());
}

TEST_P(DialogOfEachKind, TakesTheOnlyRowOfAList)
{
    company.Run(GetParam().KeepOne);
    Show(is(), [this](SearchWindow& window) {
        EXPECT_EQ(window.List().RowCount(), 1);
        EXPECT_EQ(window.Title().StateText(), s("rows 1"));
        if (is().Fields.front().Kind == SearchField::Type::Jump)
            TypeInto(window, firstField(), s("77")); // no match: the last row is the first
        Press(window, Qt::Key_Down);
        Press(window, Qt::Key_Down);
        Press(window, Qt::Key_Up);
        EXPECT_EQ(window.List().Row(), 0);
        Press(window, Qt::Key_Return);
    });
    EXPECT_EQ(results(), firstResults());
    Show(is(), [](SearchWindow& window) { DoubleClickRow(window, window.List(), 0); });
    EXPECT_EQ(results(), firstResults());
}

TEST_P(EveryDialog, SaysThatAQuoteFailsAndTriesAgainAtTheNextKey)
{
    for (const SearchField& field : is().Fields) {
        SCOPED_TRACE(field.Name);
        const bool waits = field.Kind == SearchField::Type::OnFilter;
        Look(is(), [&](SearchWindow& window) {
            const QString listed = Column(window, GetParam().Key);
            boxes.Expect(failure());
            TypeInto(window, field.Name, s("'"));
            if (waits) {
                EXPECT_EQ(boxes.Left(), 1); // nothing has been read yet
                Click(window, *window.BtnFilter());
                window.SetFocus(window.NarrowingField(field.Name));
            }
            EXPECT_EQ(boxes.Left(), 0);
            EXPECT_EQ(Column(window, GetParam().Key), listed);
            Press(window, Qt::Key_Backspace);
            if (waits)
                Click(window, *window.BtnFilter());
            EXPECT_TRUE(window.NarrowingField(field.Name).Text().isEmpty());
            EXPECT_EQ(Column(window, GetParam().Key), listed);
            EXPECT_EQ(window.List().SelectedRows(), QList<int>{0});
        });
    }
}

TEST_P(DialogOfEachKind, ComesUpEmptyWhereTheListCannotBeRead)
{
    HostContext::objCN.reset();
    boxes.Expect(failure());
    Look(is(), [](SearchWindow& window) {
        EXPECT_EQ(window.List().RowCount(), 0);
        Press(window, Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
    });
    EXPECT_EQ(results().front(), emptyResults().front());
}

TEST_P(DialogOfEachKind, GoesIntoTheListOnDownAndBackWithATypedCharacter)
{
    Look(
        is(),
        [this](SearchWindow& window) {
            Txt& field = window.NarrowingField(firstField());
            TypeInto(window, firstField(), s("1"));
            Press(window, Qt::Key_Down);
            EXPECT_TRUE(window.IsActive(window.List()));
            Type(window, s("2"));
            EXPECT_TRUE(window.IsActive(field));
            EXPECT_EQ(field.Text(), s("2")); // in place of what it held
        });
}

TEST_P(EveryDialog, ReadsAgainOnF12WhereItIsAKeyOfBtnFilterOnly)
{
    const bool isKey = &is() == &SchCustomer() || &is() == &SchInsCustomer();
    Look(is(), [&](SearchWindow& window) {
        company.Run(emptyAll);
        const int before = window.List().RowCount();
        Press(window, Qt::Key_F12);
        EXPECT_EQ(window.List().RowCount(), isKey ? 0 : before);
    });
}

TEST_P(EveryDialog, HasBtnFilterWhereAFieldWaitsForIt)
{
    const bool waits =
        std::any_of(is().Fields.begin(), is().Fields.end(), [](const SearchField& field) {
            return field.Kind == SearchField::Type::OnFilter;
        });
    Look(is(), [&](SearchWindow& window) {
        EXPECT_EQ(window.BtnFilter() != nullptr, waits || &is() == &SchCustomer());
        if (window.BtnFilter()) {
            EXPECT_EQ(window.BtnFilter()->toolTip(),
                      &is() == &SchInsCustomer() ? s("Shortcut Key is F12") : QString());
            company.Run(emptyAll);
            Click(window, *window.BtnFilter());
            EXPECT_EQ(window.List().RowCount(), 0);
        }
    });
}

TEST_P(EveryDialog, ReadsAgainWhenAPickerChangesButForAccounts)
{
    Look(
        is(),
        [this](SearchWindow& window) {
            EXPECT_EQ(window.DtpFrom() == nullptr, is().Dates.From == nullptr);
            if (!window.DtpFrom())
                return;
            company.Run(emptyAll);
            const int before = window.List().RowCount();
            window.DtpFrom()->SetValue(QDate(2001, 2, 1));
            EXPECT_EQ(window.List().RowCount(), &is() == &SchInsCustomer() ? before : 0);
            window.DtpTo()->SetValue(QDate(2001, 2, 1));
            EXPECT_EQ(window.List().RowCount(), &is() == &SchInsCustomer() ? before : 0);
        });
}

TEST_P(DialogOfEachKind, LeavesDownInAPickerToThePicker)
{
    Look(
        is(),
        [this](SearchWindow& window) {
            for (DTPicker* picker : {window.DtpFrom(), window.DtpTo()}) {
                if (!picker)
                    continue;
                picker->SetValue(QDate(2026, 3, 15));
                window.SetFocus(*picker);
                Press(window, Qt::Key_Down);
                EXPECT_TRUE(window.IsActive(*picker));
                if (&is() != &SchPartnershipProfit()) // which keeps to whole months
                    EXPECT_LT(picker->Value(), QDate(2026, 3, 15));
            }
        });
}

} // namespace tests
