// Features of the frame for detail rows: several key columns, a total, mandatory fields, and what
// happens to a second row of the same account.

#include "frame/ReceiptForm.h"

#include <QMenu>

namespace tests {

namespace {

using State = VoucherForm::State;

class RowsTest : public ReceiptDesk {
protected:
    static Message Alert(const char* text) { return {s(text), MsgIcon::Exclamation, s("Alert")}; }
};

} // namespace

// ---- Keys

TEST_F(RowsTest, EachKeyIsStoredWhenTheRowIsAdded)
{
    Open();
    EnterReceipt(s("7"), s(" Kot 7 "), s("1"), s("100"));
    EXPECT_EQ(Cell(0, "ID"), s("7"));
    EXPECT_EQ(Cell(0, "InsCustomerID"), s(" Kot 7 "));
    Save();
    EXPECT_EQ(Stored(1), QStringList({s("7|Kot 7|1|100")})) << "the blanks round a trimmed key";
}

TEST_F(RowsTest, NoKeyIsWrittenWhenARowIsCorrected)
{
    StoreThree();
    Changed().Rows = [](ReceiptForm&, DetailDeclaration& rows) {
        rows.RowFilter = "ReceiptNo={ReceiptNo}"; // finds the row independently of its key columns
    };
    Open();
    OpenIt();
    ChooseRow(0);
    It().SetFocus(It().TxtAmount);
    ASSERT_FALSE(It().Detail.IsRowAdd);
    // Another user changes the key: the batch update then no longer finds the row.
    company.Run(s("update RecoveryBody set CardNo = '70'"));
    It().TxtAmount.SetText(s("90"));
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured")); // from the batch update
    It().SetFocus(It().BtnDetail);
    Click(It(), It().BtnSave);
    EXPECT_EQ(company.Scalar("select CardNo from RecoveryBody where ReceiptNo = 1").toString(),
              s("70"));
}

TEST_F(RowsTest, ARowIsFoundByAllOfItsKeys)
{
    Open();
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    EnterReceipt(s("7"), s("Kot 7"), s("2"), s("250")); // same account
    EnterReceipt(s("8"), s("Kot 8"), s("1"), s("40"));  // same receipt number
    Save();
    EXPECT_EQ(Stored(1), QStringList({s("7|Kot 7|1|100"), s("7|Kot 7|2|250"), s("8|Kot 8|1|40")}));
}

TEST_F(RowsTest, ARowIsRemovedByWhatTheListShowsAndNotByTheEntryRow)
{
    StoreThree();
    Open();
    OpenIt();
    // The second row is current and the entry row is empty.
    It().Rows.SetRow(1);
    ASSERT_TRUE(It().TxtInsCustomerID.Text().isEmpty());
    Click(It(), It().TxtCID);
    ClickRow(It(), It().Rows, 1, Qt::RightButton);
    It().ResetFocus(It().TxtCID);
    It().TxtInsCustomerID.SetText(s("Kot 8"));
    It().TxtReceiptNo.SetText(s("3"));
    RemoveChosen();
    EXPECT_EQ(FilledRows(), 2);
    Save();
    EXPECT_EQ(Stored(1), QStringList({s("7|Kot 7|1|100"), s("8|Kot 8|3|40")}));
}

// ---- The order of filling

TEST_F(RowsTest, AnAmountThatWasTypedOverIsShownAsItIsStored)
{
    StoreThree();
    Changed().Made = [](ReceiptForm& it) {
        // As an amount is computed from the rate and the quantity.
        it.TxtReceiptNo.OnChange += [&it] { it.TxtAmount.SetText(s("999")); };
    };
    Open();
    OpenIt();
    ChooseRow(1);
    EXPECT_EQ(It().TxtReceiptNo.Text(), s("2"));
    EXPECT_EQ(It().TxtAmount.Text(), s("250"));
    Press(It(), Qt::Key_Escape);
    EXPECT_EQ(It().TxtAmount.Text(), QString()) << "emptied before what it follows";
}

// ---- What a new voucher begins with

TEST_F(RowsTest, ANewVoucherDoesNotCountOnWhatTheEntryRowCounts)
{
    Changed().CountsReceiptsOn = true;
    Open();
    EXPECT_EQ(It().TxtReceiptNo.Text(), QString());
    EnterReceipt(s("7"), s("Kot 7"), s("10"), s("100"));
    EXPECT_EQ(It().TxtReceiptNo.Text(), s("11"));
    Press(It(), Qt::Key_Escape);
    EXPECT_EQ(It().TxtReceiptNo.Text(), s("12"));
    Save();
    EXPECT_EQ(It().TxtReceiptNo.Text(), QString());
}

// ---- Required fields

TEST_F(RowsTest, RequiredFieldsAreAskedForInTheirOrder)
{
    Open();
    boxes.Expect(Alert("Enter Customer ID."));
    EnterReceipt({}, {}, {}, {});
    EXPECT_TRUE(HasFocus(It().TxtCID));
    boxes.Expect(Alert("Enter Receipt No."));
    EnterReceipt(s("7"), s("Kot 7"), s("  "), {});
    EXPECT_TRUE(HasFocus(It().TxtReceiptNo));
    // The amount has no message; only the focus moves to it.
    EnterReceipt(s("7"), s("Kot 7"), s("1"), {});
    EXPECT_TRUE(HasFocus(It().TxtAmount));
    EXPECT_EQ(FilledRows(), 0);
}

TEST_F(RowsTest, RequiredFieldsAreAskedForOfACorrectedRowToo)
{
    StoreThree();
    Open();
    OpenIt();
    ChooseRow(0);
    It().SetFocus(It().TxtAmount);
    It().TxtAmount.SetText(QString());
    It().SetFocus(It().BtnDetail);
    EXPECT_TRUE(HasFocus(It().TxtAmount));
    EXPECT_EQ(Cell(0, "Amount"), s("100"));
}

// ---- A row that is there already

TEST_F(RowsTest, ASecondRowIsRefusedAndTheEntryRowCleared)
{
    Open();
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    boxes.Expect({s("The Record Already Exist"), MsgIcon::Information, s("Alert")});
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("900"));
    EXPECT_TRUE(HasFocus(It().TxtCID));
    EXPECT_EQ(It().TxtAmount.Text(), QString());
    EXPECT_EQ(It().TxtTotalAmount.Text(), s("100"));
}

TEST_F(RowsTest, ASecondRowIsRefusedAndTheEntryRowStays)
{
    Changed().Rows = [](ReceiptForm&, DetailDeclaration& rows) {
        rows.AddedTwice = Twice::Refused;
        rows.Duplicate = {s("This Card No Already Exists."), MsgIcon::Information, s("Alert")};
    };
    Open();
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    boxes.Expect({s("This Card No Already Exists."), MsgIcon::Information, s("Alert")});
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("900"));
    EXPECT_TRUE(HasFocus(It().TxtCID));
    EXPECT_EQ(It().TxtAmount.Text(), s("900"));
    EXPECT_EQ(It().TxtTotalAmount.Text(), s("100"));
}

TEST_F(RowsTest, ASecondRowOverwritesTheFirstAndTheTotalAddsBoth)
{
    Changed().Rows = [](ReceiptForm&, DetailDeclaration& rows) {
        rows.AddedTwice = Twice::Overwrites;
    };
    Open();
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("900"));
    EXPECT_EQ(It().TxtTotalAmount.Text(), s("1000"));
    EXPECT_TRUE(Cell(1, "ID").trimmed().isEmpty()) << "the list's row takes no code";
    EXPECT_EQ(Cell(1, "Amount"), s("900"));
    Save();
    EXPECT_EQ(Stored(1), QStringList({s("7|Kot 7|1|900")}));
}

// ---- The total

TEST_F(RowsTest, TheTotalFollowsLoadingAddingCorrectingAndRemoving)
{
    StoreThree();
    Open();
    OpenIt();
    EXPECT_EQ(It().TxtTotalAmount.Text(), s("390"));
    OpenIt();
    EXPECT_EQ(It().TxtTotalAmount.Text(), s("390")) << "the total of the voucher before";
    EnterReceipt(s("9"), s("Kot 9"), s("4"), s("10.5"));
    EXPECT_EQ(It().TxtTotalAmount.Text(), s("400.5"));
    ChooseRow(0);
    It().SetFocus(It().TxtAmount);
    It().TxtAmount.SetText(s("150"));
    It().SetFocus(It().BtnDetail);
    EXPECT_EQ(It().TxtTotalAmount.Text(), s("450.5"));
    ClickRow(It(), It().Rows, 1, Qt::RightButton);
    RemoveChosen();
    EXPECT_EQ(It().TxtTotalAmount.Text(), s("200.5"));
    Save();
    EXPECT_EQ(Stored(1), QStringList({s("7|Kot 7|1|150"), s("8|Kot 8|3|40"), s("9|Kot 9|4|10.5")}));
}

TEST_F(RowsTest, AVoucherWithoutRowsLeavesTheTotalAsItWas)
{
    StoreThree();
    Open();
    It().TxtTotalAmount.SetText(s("55"));
    // The list shows only vouchers with rows, so another user removes them while it is open.
    OpenIt([this] { company.Run(s("delete from RecoveryBody")); });
    EXPECT_EQ(It().TxtTotalAmount.Text(), s("55"));
}

TEST_F(RowsTest, ATotalBeyondANumberIsToldAndChangesNothing)
{
    Open();
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("1.7e308"));
    boxes.Expect(Failed(s("Overflow")));
    EnterReceipt(s("8"), s("Kot 8"), s("2"), s("1.7e308"));
    EXPECT_EQ(It().TxtAmount.Text(), s("1.7e308"));
    EXPECT_TRUE(It().Rows.Redraw());
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(It().Detail.CountRows(), 1);
}

// ---- Narrowed rows

TEST_F(RowsTest, RowsThatTheListLeavesOutStayInTheVoucher)
{
    StoreThree();
    Changed().Rows = [](ReceiptForm&, DetailDeclaration& rows) {
        rows.Narrow = [] {
            return Statement(" and InsCustomerID='{account}'").Bind("account", s("Kot 7"));
        };
    };
    Open();
    OpenIt();
    EXPECT_EQ(FilledRows(), 2);
    EXPECT_EQ(It().TxtTotalAmount.Text(), s("350"));
    It().MarkEdited();
    Save();
    EXPECT_EQ(Stored(1).size(), 3);
}

// ---- Keys closed while a row is corrected

TEST_F(RowsTest, WhatTellsTheRowIsClosedWhileItIsCorrected)
{
    StoreThree();
    Open();
    OpenIt();
    EXPECT_TRUE(It().TxtReceiptNo.IsEnabled());
    ChooseRow(0);
    EXPECT_FALSE(It().TxtReceiptNo.IsEnabled());
    EXPECT_FALSE(It().TxtCID.IsEnabled());
    It().SetFocus(It().TxtAmount);
    EXPECT_FALSE(It().TxtReceiptNo.IsEnabled());
    Press(It(), Qt::Key_Escape);
    EXPECT_TRUE(It().TxtReceiptNo.IsEnabled());
    EXPECT_TRUE(It().TxtCID.IsEnabled());
}

// ---- What the form does between

TEST_F(RowsTest, AddingMarksNothingWhereTheFormSaysSo)
{
    Changed().Rows = [](ReceiptForm&, DetailDeclaration& rows) { rows.AddMarksEdited = false; };
    Open();
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(It().FormState(), State::New);
    ClickRow(It(), It().Rows, 0, Qt::RightButton);
    RemoveChosen();
    EXPECT_EQ(It().FormState(), State::Edited) << "removing marks it all the same";
}

TEST_F(RowsTest, AnAcceptedRowIsToldBeforeItIsWritten)
{
    int rowsThen = -1;
    QString totalThen;
    Changed().Rows = [&](ReceiptForm& it, DetailDeclaration& rows) {
        rows.OnAccepted = [&] {
            rowsThen = it.Detail.CountRows();
            totalThen = it.TxtTotalAmount.Text();
        };
    };
    Open();
    boxes.Expect(Alert("Enter Customer ID."));
    EnterReceipt({}, {}, {}, {});
    EXPECT_EQ(rowsThen, -1) << "of a row that was refused";
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    EXPECT_EQ(rowsThen, 0);
    EXPECT_EQ(totalThen, QString());
}

TEST_F(RowsTest, TheGridRunsTheFormsOwnSteps)
{
    Open();
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    EXPECT_EQ(It().Steps, QStringList({s("add"), s("clear")}));
    It().Steps.clear();
    Click(It(), It().TxtCID);
    ChooseRow(0);
    EXPECT_EQ(It().Steps, QStringList({s("show")}));
    It().Steps.clear();
    ClickRow(It(), It().Rows, 0, Qt::RightButton);
    RemoveChosen();
    EXPECT_EQ(It().Steps.first(), s("remove"));
    EXPECT_EQ(It().Steps.last(), s("show"));
}

TEST_F(RowsTest, EachRowTakesWhatTheFormStampsOnIt)
{
    Open();
    It().DtpDate.SetValue(QDate(2026, 2, 3));
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    EnterReceipt(s("8"), s("Kot 8"), s("2"), s("40"));
    Save();
    EXPECT_EQ(Lines(s("select VoucherDate from RecoveryBody")),
              QStringList({s("2026-02-03"), s("2026-02-03")}));
}

TEST_F(RowsTest, F12LeadsWhereTheFormSays)
{
    Changed().Rows = [](ReceiptForm& it, DetailDeclaration& rows) { rows.F12 = &it.TxtRate; };
    Open();
    It().ResetFocus(It().TxtCID);
    Press(It(), Qt::Key_F12);
    EXPECT_TRUE(HasFocus(It().TxtRate));
}

} // namespace tests
