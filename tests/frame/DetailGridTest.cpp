// The entry row above the grid.

#include "support/GatePassDesk.h"
#include "support/Text.h"

#include <QApplication>
#include <QMenu>
#include <QtTest>

namespace tests {

namespace {

using State = VoucherForm::State;

class DetailGridTest : public GatePassDesk {
protected:
    /// Returns the value of a column in the row's record of BodyRecordset, or "none".
    QString inBody(const QString& product, const char* column = "OutNewProducts")
    {
        It().Detail.BodyRecordset.SetFilter(Statement("ProductID='{code}'").Bind("code", product));
        const QString value = It().Detail.BodyRecordset.RecordCount() == 0
                                  ? s("none")
                                  : It().Detail.BodyRecordset.Value(column).toString();
        It().Detail.BodyRecordset.ClearFilter();
        return value;
    }

    QMenu* rowMenu()
    {
        auto* menu = It().findChild<QMenu*>(s("MnuDelete"));
        return menu && menu->isVisible() ? menu : nullptr;
    }
};

} // namespace

TEST_F(DetailGridTest, ARowWithoutAProductIsRefused)
{
    Open();
    EnterHeader();
    Click(It(), It().TxtReturnNewProducts);
    boxes.Expect({s("Enter Product ID."), MsgIcon::Exclamation, s("Alert")});
    Press(It(), Qt::Key_Return);
    EXPECT_TRUE(HasFocus(It().Product.Code));
    EXPECT_EQ(FilledRows(), 0);
    // A code of spaces counts as empty.
    Click(It(), It().TxtReturnNewProducts);
    It().Product.Code.SetText(s("  "));
    boxes.Expect({s("Enter Product ID."), MsgIcon::Exclamation, s("Alert")});
    Press(It(), Qt::Key_Return);
    EXPECT_TRUE(HasFocus(It().Product.Code));
    EXPECT_EQ(It().Detail.CountRows(), 0);
}

TEST_F(DetailGridTest, TheListPaintsAgainAfterARowWasAddedAndAfterAVoucherWasOpened)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    EXPECT_TRUE(It().Rows.Redraw());
    Save();
    OpenStored(1);
    EXPECT_TRUE(It().Rows.Redraw());
}

TEST_F(DetailGridTest, AVoucherWithoutRowsLeavesTheListAsItWas)
{
    Open();
    const int full = Stored();
    const int empty = Stored(s("210"), s("1"));
    OpenStored(full);
    ASSERT_EQ(FilledRows(), 1);
    // The list shows only passes with rows, so another user removes them while it is open.
    dialogs.Expect([&](Form& dialog) {
        company.Run(s("delete from GatePassBody where GatePassID = %1").arg(empty));
        Choose(QString::number(empty))(dialog);
    });
    Ctrl(Qt::Key_O);
    EXPECT_EQ(It().TxtGatePassID.Text(), QString::number(empty));
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(Cell(0, "ID"), s("101"));
    EXPECT_EQ(It().Detail.CountRows(), 0);
}

TEST_F(DetailGridTest, OpeningAVoucherFillsNoEntryControl)
{
    Open();
    OpenStored(Stored());
    EXPECT_TRUE(It().Product.Code.Text().isEmpty());
    EXPECT_TRUE(It().TxtOutNewProducts.Text().isEmpty());
    // The blank row is below the other rows.
    EXPECT_EQ(It().Rows.RowCount(), 2);
    EXPECT_EQ(Cell(1, "ID"), s(" "));
    EXPECT_EQ(It().Rows.Row(), 1);
}

TEST_F(DetailGridTest, AddingAProductTwiceIsRefusedAndTheFirstRowStandsUnchanged)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    boxes.Expect({s("The Record Already Exist"), MsgIcon::Information, s("Alert")});
    EnterRow(s("101"), s("7"));
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(Cell(0, "OutNewProducts"), s("3"));
    EXPECT_EQ(inBody(s("101")), s("3"));
    EXPECT_TRUE(It().Product.Code.Text().isEmpty());
    EXPECT_TRUE(It().TxtOutNewProducts.Text().isEmpty());
    EXPECT_TRUE(HasFocus(It().Product.Code));
}

TEST_F(DetailGridTest, EditingARowAndPressingEscLeavesRowAndRecordUnchanged)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"), s("1"), s("2"));
    const QList<std::pair<const char*, QString>> before{
        {"OutNewProducts", s("3")}, {"ReturnOldProducts", s("1")}, {"ReturnNewProducts", s("2")}};
    Press(It(), Qt::Key_Down);
    Press(It(), Qt::Key_Up);
    Press(It(), Qt::Key_Return);
    ASSERT_FALSE(It().Detail.IsRowAdd);
    for (Txt* field :
         {&It().TxtOutNewProducts, &It().TxtReturnOldProducts, &It().TxtReturnNewProducts}) {
        It().ResetFocus(*field);
        Type(It(), s("9"));
        EXPECT_TRUE(field->Text().contains(s("9"))) << qPrintable(field->Name());
    }
    Press(It(), Qt::Key_Escape);
    for (const Txt* field : {&It().Product.Code, &It().TxtOutNewProducts,
                             &It().TxtReturnOldProducts, &It().TxtReturnNewProducts})
        EXPECT_TRUE(field->Text().isEmpty()) << qPrintable(field->Name());
    for (const auto& [column, value] : before) {
        EXPECT_EQ(Cell(0, column), value) << column;
        EXPECT_EQ(inBody(s("101"), column), value) << column;
    }
    EXPECT_FALSE(It().Detail.IsRowAdd);

    // The entry controls add rows again only after the grid is left on its blank row.
    Press(It(), Qt::Key_Down);
    Press(It(), Qt::Key_End, Qt::ControlModifier);
    Press(It(), Qt::Key_Return);
    EXPECT_TRUE(It().Detail.IsRowAdd);
}

TEST_F(DetailGridTest, ARowThatIsNotThereCannotBeCorrectedByTypingItsCode)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    Press(It(), Qt::Key_Down);
    Press(It(), Qt::Key_Up);
    Press(It(), Qt::Key_Return);
    Press(It(), Qt::Key_Escape);
    ASSERT_FALSE(It().Detail.IsRowAdd);
    boxes.Expect(Failed(s("210 is not the row that is being corrected. Choose the row that you "
                          "want to correct, or the blank row to add one.")));
    EnterRow(s("210"), s("4"));
    EXPECT_EQ(Cell(0, "ID"), s("101"));
    EXPECT_EQ(Cell(0, "OutNewProducts"), s("3"));
    EXPECT_TRUE(It().Rows.Redraw());
    // The voucher is nevertheless saved with all of its rows.
    Press(It(), Qt::Key_Escape);
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null")}));
}

TEST_F(DetailGridTest, RemovingTheOnlyRowLeavesTheBlankOneAndSavingIsRefused)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    Press(It(), Qt::Key_Down);
    Press(It(), Qt::Key_Up);
    Press(It(), Qt::Key_Menu);
    ASSERT_NE(rowMenu(), nullptr);
    EXPECT_EQ(rowMenu()->actions().value(0)->text(), s("Remove This Row"));
    QTest::keyClick(rowMenu(), Qt::Key_Return);
    QCoreApplication::processEvents(); // the row is removed once the menu has closed
    EXPECT_EQ(It().Rows.RowCount(), 1);
    EXPECT_EQ(Cell(0, "ID"), s(" "));
    EXPECT_EQ(inBody(s("101")), s("none"));
    boxes.Expect({s("Enter atleast one product to save"), MsgIcon::Exclamation, s("Alert")});
    Ctrl(Qt::Key_S);
}

TEST_F(DetailGridTest, RemovingARowMarksTheVoucherWithoutAQuestion)
{
    Open();
    const int id = Stored();
    OpenStored(id);
    Click(It(), It().Rows);
    It().Rows.SetRow(0);
    It().Detail.RemoveRow();
    EXPECT_EQ(It().FormState(), State::Edited);
    EXPECT_EQ(BodyOf(id).size(), 1); // the table changes only on saving
    Press(It(), Qt::Key_Return);     // on the blank row, which has moved up
    EnterRow(s("210"), s("1"));
    Save();
    EXPECT_EQ(BodyOf(id), QStringList({s("210|1|null|null")}));
}

TEST_F(DetailGridTest, TheBlankRowCannotBeRemoved)
{
    Open();
    OpenStored(Stored());
    It().Rows.MoveLast();
    It().Detail.RemoveRow();
    EXPECT_EQ(It().Rows.RowCount(), 2);
    EXPECT_EQ(Cell(1, "ID"), s(" "));
    EXPECT_EQ(It().FormState(), State::Opened);
}

TEST_F(DetailGridTest, OnlyTheCurrentRowIsRemovedWhateverIsSelected)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    EnterRow(s("210"), s("5"));
    It().Rows.SelectRow(0);
    It().Rows.SetRow(1);
    It().Detail.RemoveRow();
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(Cell(0, "ID"), s("101"));
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null")}));
}

TEST_F(DetailGridTest, AnEmptyNumberFieldStoresNullAndANullShowsAsBlank)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), QString());
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|null|null|null")}));
    OpenStored(1);
    EXPECT_EQ(Cell(0, "OutNewProducts").trimmed(), QString());
}

TEST_F(DetailGridTest, SelectingTheBlankRowAndPressingEnterMovesToTheEmptyCode)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    Press(It(), Qt::Key_Down);
    Press(It(), Qt::Key_Return);
    EXPECT_TRUE(HasFocus(It().Product.Code));
    EXPECT_TRUE(It().Product.Code.Text().isEmpty());
    EXPECT_TRUE(It().Product.Code.IsEnabled());
    EXPECT_TRUE(It().Product.Code.HasTabStop());
    EXPECT_TRUE(It().Detail.IsRowAdd);
    // A code typed before is cleared.
    Type(It(), s("210"));
    Press(It(), Qt::Key_Down);
    ASSERT_TRUE(HasFocus(It().Rows));
    Press(It(), Qt::Key_Return);
    EXPECT_TRUE(It().Product.Code.Text().isEmpty());
}

TEST_F(DetailGridTest, RightClickOnTheBlankRowShowsNoMenu)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    Press(It(), Qt::Key_Down);
    Press(It(), Qt::Key_Menu);
    EXPECT_EQ(rowMenu(), nullptr);
    ClickRow(It(), It().Rows, 1, Qt::RightButton);
    EXPECT_EQ(rowMenu(), nullptr);
    ClickRow(It(), It().Rows, 0, Qt::RightButton);
    ASSERT_NE(rowMenu(), nullptr);
    rowMenu()->close();
}

TEST_F(DetailGridTest, WhileTheGridHasTheFocusTheCodeIsClosedAndTheRowShows)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"), s("1"));
    EnterRow(s("210"), s("5"));
    Press(It(), Qt::Key_Down);
    EXPECT_TRUE(It().Detail.IsGridActive);
    EXPECT_FALSE(It().Product.Code.IsEnabled());
    EXPECT_FALSE(It().Product.Code.HasTabStop());
    Press(It(), Qt::Key_Up);
    EXPECT_EQ(It().Product.Code.Text(), s("210"));
    EXPECT_EQ(It().TxtOutNewProducts.Text(), s("5"));
    Press(It(), Qt::Key_Up);
    EXPECT_EQ(It().Product.Code.Text(), s("101"));
    EXPECT_EQ(It().TxtReturnOldProducts.Text(), s("1"));
    EXPECT_EQ(It().Product.Name.Text(), s("موٹر سائیکل 125 سی سی"));
    Press(It(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_TRUE(It().Product.Code.Text().isEmpty());
    EXPECT_TRUE(It().Product.Name.Text().isEmpty());
}

TEST_F(DetailGridTest, LeavingTheGridOnAFilledRowCorrectsThatRow)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    EnterRow(s("210"), s("5"));
    Press(It(), Qt::Key_Down);
    Press(It(), Qt::Key_Home, Qt::ControlModifier);
    Press(It(), Qt::Key_Tab);
    EXPECT_TRUE(HasFocus(It().TxtReturnOldProducts));
    EXPECT_FALSE(It().Product.Code.IsEnabled());
    EXPECT_FALSE(It().Detail.IsGridActive);
    Enter(s("2"));
    Enter(s("1"));
    EXPECT_EQ(Cell(0, "ID"), s("101"));
    EXPECT_EQ(Cell(0, "ReturnOldProducts"), s("2"));
    EXPECT_EQ(Cell(0, "ReturnNewProducts"), s("1"));
    EXPECT_EQ(FilledRows(), 2);
    EXPECT_EQ(It().Rows.RowCount(), 3);
    EXPECT_TRUE(It().Detail.IsRowAdd);
    EXPECT_TRUE(HasFocus(It().Product.Code));
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|2|1"), s("210|5|null|null")}));
}

TEST_F(DetailGridTest, DoubleClickChoosesTheRowAsEnterDoes)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    DoubleClickRow(It(), It().Rows, 0);
    EXPECT_TRUE(HasFocus(It().TxtReturnOldProducts));
    EXPECT_FALSE(It().Detail.IsRowAdd);
    EXPECT_EQ(It().Product.Code.Text(), s("101"));
}

TEST_F(DetailGridTest, ANumberBeyondAllNumbersFailsTheRowAndLosesNothing)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    Enter(s("3"));
    Paste(It(), QString(400, QLatin1Char('9')));
    Press(It(), Qt::Key_Return);
    boxes.Expect(Failed(s("Overflow")));
    Press(It(), Qt::Key_Return);
    EXPECT_EQ(FilledRows(), 0);
    EXPECT_EQ(inBody(s("101")), s("none"));
    EXPECT_EQ(It().TxtReturnOldProducts.Text().size(), 400);
    EXPECT_TRUE(HasFocus(It().TxtReturnNewProducts));
    EXPECT_EQ(It().Product.Code.Text(), s("101"));
}

TEST_F(DetailGridTest, AQuoteInTheCodeFailsTheRowAndLosesNothing)
{
    Open();
    EnterHeader();
    Click(It(), It().TxtReturnNewProducts);
    It().Product.Code.SetText(s("1'1"));
    Type(It(), s("4"));
    boxes.Expect(Failed(s("Unclosed quotation mark after the character string '1'1'.")));
    Press(It(), Qt::Key_Return);
    EXPECT_EQ(FilledRows(), 0);
    EXPECT_EQ(It().TxtReturnNewProducts.Text(), s("4"));
    EXPECT_TRUE(HasFocus(It().TxtReturnNewProducts));
}

TEST_F(DetailGridTest, AClickOnARowThatAddsThePendingOneLeavesTheNextRowItsOwnPlace)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    Enter(s("210"));
    Enter(s("5"));
    Enter(QString());
    ClickRow(It(), It().Rows, 0);
    EXPECT_EQ(FilledRows(), 2);
    EnterRow(s("233"), s("2"));
    EXPECT_EQ(Cell(0, "ID"), s("101"));
    EXPECT_EQ(Cell(1, "ID"), s("210"));
    EXPECT_EQ(Cell(2, "ID"), s("233"));
    EXPECT_EQ(Cell(3, "ID"), s(" "));
    Save();
    EXPECT_EQ(BodyOf(1).size(), 3);
}

TEST_F(DetailGridTest, AnotherRowsCodeTypedWhileCorrectingChangesNeitherRow)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    EnterRow(s("210"), s("5"));
    Press(It(), Qt::Key_Down);
    Press(It(), Qt::Key_Home, Qt::ControlModifier);
    Press(It(), Qt::Key_Return);
    Press(It(), Qt::Key_Escape);
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    EnterRow(s("210"), s("9"));
    EXPECT_EQ(Cell(0, "OutNewProducts"), s("3"));
    EXPECT_EQ(Cell(1, "OutNewProducts"), s("5"));
    EXPECT_EQ(inBody(s("101")), s("3"));
    EXPECT_EQ(inBody(s("210")), s("5"));
}

TEST_F(DetailGridTest, CtrlSOnADuplicateRowSavesNothing)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    Enter(s("101"));
    Enter(s("7"));
    Enter(QString());
    boxes.Expect({s("The Record Already Exist"), MsgIcon::Information, s("Alert")});
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
    EXPECT_EQ(FilledRows(), 1);
}

TEST_F(DetailGridTest, HundredsOfRowsAreStoredAndOpenedInOrder)
{
    company.Run(s("with recursive n(i) as (select 1000 union all select i + 1 from n"
                  " where i < 1299) insert into Products (ProductID, ProductName)"
                  " select i, 'P' || i from n"));
    company.Run(s("insert into StockInBody (StockID, ProductID, Qty) select"
                  " (select min(StockID) from StockInHeader where BranchCode = 1), ProductID, 50"
                  " from Products where ProductName like 'P1%'"));
    Open();
    EnterHeader();
    for (int product = 1000; product < 1300; ++product)
        EnterRow(QString::number(product), s("2"));
    EXPECT_EQ(FilledRows(), 300);
    Save();
    EXPECT_EQ(BodyOf(1).size(), 300);
    OpenStored(1);
    EXPECT_EQ(FilledRows(), 300);
    EXPECT_EQ(Cell(0, "ID"), s("1000"));
    EXPECT_EQ(Cell(299, "ID"), s("1299"));
}

} // namespace tests
