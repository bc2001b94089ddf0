// The shell that all search dialogs share, and the declarations of the first five.

#include "search/SearchDialog.h"
#include "data/Connection.h"
#include "host/HostContext.h"
#include "search/Catalogue.h"
#include "search/SearchWindow.h"
#include "support/ExpectedBoxes.h"
#include "support/FakeUser.h"
#include "support/Keys.h"
#include "support/TestCompany.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QtTest>

namespace tests {

using namespace TradeForms;

namespace {

class SearchDialogTest : public ::testing::Test {
protected:
    SearchDialogTest()
    {
        HostContext::objCN = company.Connect();
        for (const SearchDeclaration* declaration : {&SchArea(), &SchBranch()})
            SearchDialog::Shared(*declaration).SetParaIn("ParaInBranchCode", s("0"));
        owner.resize(200, 100);
        owner.show();
    }
    ~SearchDialogTest() override { HostContext::objCN.reset(); }

    /// Shows a dialog and lets the test drive its window.
    SearchDialog& show(const SearchDeclaration& declaration,
                       const std::function<void(SearchWindow&)>& drive)
    {
        SearchDialog& dialog = SearchDialog::Shared(declaration);
        dialogs.Expect([&](Form& form) { drive(dynamic_cast<SearchWindow&>(form)); });
        dialog.Show(&owner);
        return dialog;
    }

    void addPass(int id, const QString& area, const QString& driver, const QString& receiver,
                 const QDate& date = QDate::currentDate())
    {
        company.Run(s("insert into GatePassHeader (GatePassID, GatePassDate, DriverCode,"
                      " ReceivingCode, AreaCode, BranchCode, isPosted)"
                      " values (%1, '%2', %3, %4, '%5', 1, 0)")
                        .arg(id)
                        .arg(date.toString(Qt::ISODate), driver, receiver, area));
        company.Run(s("insert into GatePassBody (GatePassID, ProductID, OutNewProducts,"
                      " ReturnOldProducts) values (%1, '101', 3, 1)")
                        .arg(id));
    }

    static QString first(SearchWindow& window, const char* column)
    {
        return cell(window, 0, column);
    }
    static QString cell(SearchWindow& window, int row, const char* column)
    {
        const QAbstractItemModel* model = window.List().model();
        return model->index(row, window.List().ColumnIndex(s(column))).data().toString();
    }

    TestCompany company;
    ExpectedBoxes boxes;
    ExpectedDialogs dialogs;
    QWidget owner;
};

} // namespace

TEST_F(SearchDialogTest, EnterInAnEmptyListDoesNothingAndEscReturnsTheEmptyResult)
{
    SearchDialog& dialog = show(SchGatePass(), [](SearchWindow& window) {
        EXPECT_EQ(window.List().RowCount(), 0);
        Press(window, Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
        Press(window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutGatePassID").toInt(), 0);
}

TEST_F(SearchDialogTest, EnterInTxtIDSelectsTheRowThatTheJumpReachedNotTheTextTyped)
{
    SearchDialog& dialog = show(SchStaff(), [](SearchWindow& window) {
        Type(window, s("310"));
        EXPECT_EQ(cell(window, window.List().Row(), "ID").left(3), s("310"));
        Press(window, Qt::Key_Return);
    });
    EXPECT_TRUE(dialog.ParaOut("ParaOutStaffID").toString() == s("3107") ||
                dialog.ParaOut("ParaOutStaffID").toString() == s("3108"));
}

TEST_F(SearchDialogTest, AJumpWithNoMatchStandsOnTheLastRowAndEnterSelectsIt)
{
    QString last;
    SearchDialog& dialog = show(SchStaff(), [&last](SearchWindow& window) {
        Type(window, s("zzz"));
        const int rows = window.List().RowCount();
        EXPECT_EQ(window.List().Row(), rows - 1);
        EXPECT_EQ(window.List().SelectedRows(), QList<int>({rows - 1}));
        last = cell(window, rows - 1, "ID");
        Press(window, Qt::Key_Return);
    });
    EXPECT_FALSE(last.isEmpty());
    EXPECT_EQ(dialog.ParaOut("ParaOutStaffID").toString(), last);
}

TEST_F(SearchDialogTest, AJumpWithEmptiedTextGoesToTheFirstRow)
{
    show(
        SchStaff(),
        [](SearchWindow& window) {
            Type(window, s("zzz"));
            EXPECT_NE(window.List().Row(), 0);
            Press(window, Qt::Key_A, Qt::ControlModifier);
            Press(window, Qt::Key_Backspace);
            EXPECT_EQ(window.List().Row(), 0);
            EXPECT_EQ(window.List().SelectedRows(), QList<int>({0}));
            Press(window, Qt::Key_Escape);
        });
}

TEST_F(SearchDialogTest, BlanksAloneJumpToTheFirstRow)
{
    show(
        SchArea(),
        [](SearchWindow& window) {
            ASSERT_GT(window.List().RowCount(), 1);
            Press(window, Qt::Key_Down);
            Press(window, Qt::Key_End);
            window.SetFocus(window.NarrowingField("TxtID"));
            Type(window, s("  "));
            EXPECT_EQ(window.List().Row(), 0);
            Press(window, Qt::Key_Escape);
        });
}

TEST_F(SearchDialogTest, ASixteenBitResultCannotCarryAnIdAbove32767)
{
    addPass(32768, s("Kot"), s("'2014'"), s("null"));
    boxes.Expect({s("Overflow"), MsgIcon::Stop, s("Error occured")});
    SearchDialog& dialog = show(SchGatePass(), [](SearchWindow& window) {
        Press(window, Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(window.List().RowCount(), 1);
        Press(window, Qt::Key_Escape);
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutGatePassID").toInt(), 0);
}

TEST_F(SearchDialogTest, AnIdOf32767IsCarried)
{
    addPass(32767, s("Kot"), s("'2014'"), s("null"));
    SearchDialog& dialog =
        show(SchGatePass(), [](SearchWindow& window) { Press(window, Qt::Key_Return); });
    EXPECT_EQ(dialog.ParaOut("ParaOutGatePassID").toInt(), 32767);
}

TEST_F(SearchDialogTest, BtnCloseEmptiesAnEarlierResult)
{
    SearchDialog& dialog =
        show(SchBranch(), [](SearchWindow& window) { Press(window, Qt::Key_Return); });
    EXPECT_FALSE(dialog.ParaOut("ParaOutBranchCode").toString().isEmpty());
    show(SchBranch(), [](SearchWindow& window) { Click(window, window.BtnClose()); });
    EXPECT_TRUE(dialog.ParaOut("ParaOutBranchCode").toString().isEmpty());
}

TEST_F(SearchDialogTest, ImgExitAndTheSystemCloseWithoutAResult)
{
    SearchDialog& dialog =
        show(SchBranch(), [](SearchWindow& window) { Click(window, window.Title().ImgExit()); });
    EXPECT_TRUE(dialog.ParaOut("ParaOutBranchCode").toString().isEmpty());
    show(SchBranch(), [](SearchWindow& window) { window.close(); });
    EXPECT_TRUE(dialog.ParaOut("ParaOutBranchCode").toString().isEmpty());
}

TEST_F(SearchDialogTest, SchAreaListsAllAreasForBranchZero)
{
    SearchDialog& dialog = SearchDialog::Shared(SchArea());
    dialog.SetParaIn("ParaInBranchCode", s("0"));
    show(SchArea(), [this](SearchWindow& window) {
        EXPECT_EQ(window.List().RowCount(),
                  company.Scalar(s("select count(*) from Areas")).toInt());
        Press(window, Qt::Key_Escape);
    });
    dialog.SetParaIn("ParaInBranchCode", s("2"));
    show(SchArea(), [](SearchWindow& window) {
        EXPECT_EQ(window.List().RowCount(), 1);
        EXPECT_EQ(first(window, "ID"), s("Lahore"));
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(SearchDialogTest, ParaInKeepsItsValueFromCallToCall)
{
    SearchDialog::Shared(SchStaff()).SetParaIn("ParaInStr", s(" and Frenchiser=1"));
    for (int i = 0; i < 2; ++i) {
        show(
            SchStaff(),
            [](SearchWindow& window) {
                EXPECT_EQ(window.List().RowCount(), 1);
                EXPECT_EQ(first(window, "ID"), s("4001"));
                Press(window, Qt::Key_Escape);
            });
    }
    SearchDialog::Shared(SchStaff()).SetParaIn("ParaInStr", QString());
}

TEST_F(SearchDialogTest, TheStaffClauseLandsAfterTheNameClause)
{
    SearchDialog::Shared(SchStaff()).SetParaIn("ParaInStr", s(" and Frenchiser=1"));
    show(SchStaff(), [](SearchWindow& window) {
        window.NarrowingField("TxtName").SetText(s("احمد"));
        EXPECT_TRUE(window.ListStatement().endsWith(
            s("  where 1=1 and Name like '%احمد%' and Frenchiser=1")))
            << qPrintable(window.ListStatement());
        Press(window, Qt::Key_Escape);
    });
    SearchDialog::Shared(SchStaff()).SetParaIn("ParaInStr", QString());
}

TEST_F(SearchDialogTest, AnUnknownParaNameIsAnError)
{
    EXPECT_THROW(SearchDialog::Shared(SchStaff()).SetParaIn("ParaInX", 1), std::out_of_range);
    EXPECT_THROW(SearchDialog::Shared(SchStaff()).ParaOut("ParaOutX"), std::out_of_range);
}

TEST_F(SearchDialogTest, EveryShowingIsAFreshLoad)
{
    show(SchProduct(), [](SearchWindow& window) {
        window.NarrowingField("TxtName").SetText(s("واشنگ"));
        EXPECT_EQ(window.List().RowCount(), 1);
        Press(window, Qt::Key_Escape);
    });
    show(SchProduct(), [](SearchWindow& window) {
        EXPECT_TRUE(window.NarrowingField("TxtName").Text().isEmpty());
        EXPECT_EQ(window.List().RowCount(), 4);
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(SearchDialogTest, DownInTheFirstFieldGoesIntoTheListAndATypedCharacterBack)
{
    show(
        SchStaff(),
        [](SearchWindow& window) {
            Txt& id = window.NarrowingField("TxtID");
            Type(window, s("2"));
            Press(window, Qt::Key_Down);
            EXPECT_EQ(window.ActiveControl(), &window.List());
            Press(window, Qt::Key_Down);
            Type(window, s("4"));
            EXPECT_EQ(window.ActiveControl(), &id);
            EXPECT_EQ(id.Text(), s("4"));
            Type(window, s("0"));
            EXPECT_EQ(id.Text(), s("40"));
            EXPECT_EQ(cell(window, window.List().Row(), "ID"), s("4001"));
            Press(window, Qt::Key_Escape);
        });
}

TEST_F(SearchDialogTest, OnlyLettersAndDigitsTypedInTheListGoIntoTheField)
{
    const auto isTaken = [this](QChar typed) {
        bool taken = false;
        show(SchStaff(), [&](SearchWindow& window) {
            Press(window, Qt::Key_Down);
            Type(window, QString(typed));
            Txt& field = window.NarrowingField("TxtID");
            taken = window.ActiveControl() == &field;
            EXPECT_TRUE(taken || window.ActiveControl() == &window.List());
            EXPECT_EQ(field.Text(), taken ? QString(typed) : QString());
            Press(window, Qt::Key_Escape);
        });
        return taken;
    };
    for (const QChar typed : s("azAZ09"))
        EXPECT_TRUE(isTaken(typed)) << char(typed.toLatin1());
    // What stands next to them in the order of codes, and others.
    for (const QChar typed : s("`{@[/:- "))
        EXPECT_FALSE(isTaken(typed)) << char(typed.toLatin1());
    EXPECT_FALSE(isTaken(QChar(0x0661))); // an Arabic digit
}

TEST_F(SearchDialogTest, AKeyWithoutACharacterInTheListDoesNothingSpecial)
{
    show(
        SchStaff(),
        [](SearchWindow& window) {
            Press(window, Qt::Key_Down);
            Press(window, Qt::Key_F5);
            EXPECT_EQ(window.ActiveControl(), &window.List());
            EXPECT_TRUE(window.NarrowingField("TxtID").Text().isEmpty());
            Press(window, Qt::Key_Escape);
        });
}

TEST_F(SearchDialogTest, DownInAnotherFieldStays)
{
    show(
        SchStaff(),
        [](SearchWindow& window) {
            Txt& name = window.NarrowingField("TxtName");
            window.SetFocus(name);
            Press(window, Qt::Key_Down);
            EXPECT_EQ(window.ActiveControl(), &name);
            Press(window, Qt::Key_F12); // no BtnFilter here
            EXPECT_TRUE(window.isVisible());
            Press(window, Qt::Key_Escape);
        });
}

TEST_F(SearchDialogTest, ArrowsMoveTheMarkedRowAndEnterTakesIt)
{
    QString second;
    SearchDialog& dialog = show(SchBranch(), [&second](SearchWindow& window) {
        Press(window, Qt::Key_Down);
        Press(window, Qt::Key_Down);
        second = cell(window, 1, "ID");
        Press(window, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutBranchCode").toString(), second);
}

TEST_F(SearchDialogTest, DoubleClickSelects)
{
    QString third;
    SearchDialog& dialog = show(SchBranch(), [&third](SearchWindow& window) {
        third = cell(window, 2, "ID");
        DoubleClickRow(window, window.List(), 2);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutBranchCode").toString(), third);
}

TEST_F(SearchDialogTest, DoubleClickBelowTheRowsSelectsTheMarkedOne)
{
    SearchDialog& dialog = show(SchBranch(), [](SearchWindow& window) {
        Type(window, s("2"));
        DoubleClick(window, window.List());
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutBranchCode").toString(), s("2"));
}

TEST_F(SearchDialogTest, DoubleClickInAnEmptyListDoesNothing)
{
    show(
        SchGatePass(),
        [](SearchWindow& window) {
            DoubleClick(window, window.List());
            EXPECT_TRUE(window.isVisible());
            Press(window, Qt::Key_Escape);
        });
}

TEST_F(SearchDialogTest, BtnSelectSelects)
{
    SearchDialog& dialog =
        show(SchBranch(), [](SearchWindow& window) { Click(window, window.BtnSelect()); });
    EXPECT_EQ(dialog.ParaOut("ParaOutBranchCode").toString(), s("1"));
}

TEST_F(SearchDialogTest, AQuoteFailsTheReadAndKeepsTheListForTheNextKey)
{
    boxes.Expect({s("Unclosed quotation mark after the character string '''."), MsgIcon::Stop,
                  s("Error occured")});
    show(SchStaff(), [](SearchWindow& window) {
        const int rows = window.List().RowCount();
        window.SetFocus(window.NarrowingField("TxtName"));
        Type(window, s("'"));
        EXPECT_EQ(window.List().RowCount(), rows);
        Press(window, Qt::Key_Backspace);
        EXPECT_EQ(window.List().RowCount(), rows);
        Press(window, Qt::Key_Return);
    });
}

TEST_F(SearchDialogTest, ALetterInANumberJumpFailsAndTheDialogStays)
{
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    show(SchBranch(), [](SearchWindow& window) {
        Type(window, s("x"));
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(window.List().RowCount(), 3);
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(SearchDialogTest, NamesJumpByPrefixInAreasAndBranches)
{
    show(
        SchBranch(),
        [](SearchWindow& window) {
            window.NarrowingField("TxtName").SetText(s("لا"));
            EXPECT_EQ(cell(window, window.List().Row(), "ID"), s("2"));
            window.NarrowingField("TxtName").SetText(s("ہور")); // inside a name
            EXPECT_EQ(window.List().Row(), 2);
            Press(window, Qt::Key_Escape);
        });
}

TEST_F(SearchDialogTest, GatePassesShowTheLastThirtyDaysAndTheirSums)
{
    const QDate today = QDate::currentDate();
    addPass(1, s("Kot"), s("'2014'"), s("'3107'"), today.addDays(-31));
    addPass(2, s("Kot"), s("'2014'"), s("'3107'"), today.addDays(-30));
    addPass(3, s("Raja"), s("null"), s("null"), today);
    show(SchGatePass(), [today](SearchWindow& window) {
        EXPECT_EQ(window.DtpFrom()->Value(), today.addDays(-30));
        EXPECT_EQ(window.DtpTo()->Value(), today);
        ASSERT_EQ(window.List().RowCount(), 2);
        EXPECT_EQ(cell(window, 0, "ID"), s("2"));
        EXPECT_EQ(cell(window, 0, "Date"), today.addDays(-30).toString(s("dd/MM/yyyy")));
        EXPECT_EQ(cell(window, 0, "Driver"), s("محمد اسلم"));
        EXPECT_EQ(cell(window, 0, "Receiving"), s("غلام رسول"));
        EXPECT_EQ(cell(window, 0, "AreaName"), s("Kot"));
        EXPECT_EQ(cell(window, 0, "outnewstock"), s("3"));
        EXPECT_EQ(cell(window, 0, "returnoldstock"), s("1"));
        EXPECT_EQ(cell(window, 0, "returnnewstock"), QString());
        EXPECT_EQ(cell(window, 1, "Driver"), QString());
        EXPECT_TRUE(window.Title().StateText().contains(s("rows 2")));

        window.DtpFrom()->SetValue(today.addDays(-31));
        EXPECT_EQ(window.List().RowCount(), 3);
        window.DtpTo()->SetValue(today.addDays(-30));
        EXPECT_EQ(window.List().RowCount(), 2);
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(SearchDialogTest, GatePassFieldsQueryAgainEachInItsPlace)
{
    addPass(1, s("Kot"), s("'2014'"), s("'3107'"));
    addPass(2, s("Raja"), s("'2015'"), s("null"));
    show(SchGatePass(), [](SearchWindow& window) {
        window.NarrowingField("TxtAreaCode").SetText(s("raja"));
        EXPECT_EQ(window.List().RowCount(), 1);
        EXPECT_EQ(first(window, "ID"), s("2"));
        window.NarrowingField("TxtAreaCode").SetText(QString());
        window.NarrowingField("TxtDriverName").SetText(s("اسلم"));
        EXPECT_EQ(first(window, "ID"), s("1"));
        window.NarrowingField("TxtReceiving").SetText(s("رسول"));
        EXPECT_TRUE(window.ListStatement().contains(
            s(" and r.Name like '%رسول%' and d.Name like '%اسلم%' ORDER By")))
            << qPrintable(window.ListStatement());
        EXPECT_EQ(window.List().RowCount(), 1);
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(SearchDialogTest, AVoucherWithoutRowsIsMissingFromTheList)
{
    addPass(1, s("Kot"), s("'2014'"), s("null"));
    addPass(2, s("Kot"), s("'2014'"), s("null"));
    company.Run(s("delete from GatePassBody where GatePassID = 1"));
    show(SchGatePass(), [](SearchWindow& window) {
        EXPECT_EQ(window.List().RowCount(), 1);
        EXPECT_EQ(first(window, "ID"), s("2"));
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(SearchDialogTest, GatePassesJumpByNumber)
{
    for (const int id : {1, 5, 12})
        addPass(id, s("Kot"), s("'2014'"), s("null"));
    show(SchGatePass(), [](SearchWindow& window) {
        Type(window, s("5"));
        EXPECT_EQ(cell(window, window.List().Row(), "ID"), s("5"));
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(SearchDialogTest, ProductsShowTheStockOfAllBranches)
{
    show(
        SchProduct(),
        [](SearchWindow& window) {
            Type(window, s("101"));
            EXPECT_EQ(cell(window, window.List().Row(), "Stock"), s("25"));
            Press(window, Qt::Key_Escape);
        });
}

TEST_F(SearchDialogTest, AFailureInTheLoadLeavesADialogWithAnEmptyList)
{
    company.Run(s("alter table Branches rename to BranchesGone"));
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    show(SchBranch(), [](SearchWindow& window) {
        EXPECT_EQ(window.List().RowCount(), 0);
        Press(window, Qt::Key_Return);
        EXPECT_TRUE(window.isVisible());
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(SearchDialogTest, ALongListIsShownWholeAndJumpsAtOnce)
{
    company.Run(s("with recursive n(i) as (select 1 union all select i + 1 from n"
                  " where i < 100000) insert into Branches (BranchCode, BranchName)"
                  " select 10 + i, 'B' || i from n"));
    show(SchBranch(), [](SearchWindow& window) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.List().RowCount() == 100003; }, 60'000));
        Type(window, s("100010"));
        EXPECT_EQ(cell(window, window.List().Row(), "Name"), s("B100000"));
        Press(window, Qt::Key_Escape);
    });
}

} // namespace tests
