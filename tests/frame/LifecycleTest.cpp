// Opening, states, saving, deleting and closing a voucher.

#include "support/FaultyDisk.h"
#include "support/GatePassDesk.h"

#include "host/HostContext.h"
#include "support/Text.h"

#include <QtTest>

namespace tests {

namespace {

using State = VoucherForm::State;

class LifecycleTest : public GatePassDesk {
protected:
    /// Stores a voucher under the number as another workstation would.
    void storeElsewhere(int id)
    {
        company.Run(s("insert into GatePassHeader (GatePassID, AreaCode, BranchCode, isPosted)"
                      " values (%1, 'Raja', 1, 0)")
                        .arg(id));
    }
};

class StatesTest : public LifecycleTest {
protected:
    /// Stores a pass dated five days ago, opens it and starts correcting its row.
    void openAndCorrectARow()
    {
        It().DtpDate.SetValue(QDate::currentDate().addDays(-5));
        OpenStored(Stored());
        It().ResetFocus(It().Product.Code);
        Press(It(), Qt::Key_Down);
        Press(It(), Qt::Key_Up);
        Press(It(), Qt::Key_Return);
        ASSERT_EQ(It().FormState(), State::Opened);
        ASSERT_FALSE(It().Detail.IsRowAdd);
        ASSERT_FALSE(It().Product.Code.IsEnabled());
        ASSERT_EQ(It().DtpDate.Value(), QDate::currentDate().addDays(-5));
    }

    /// Checks everything that state New sets.
    void expectNew(const QString& number)
    {
        EXPECT_EQ(It().FormState(), State::New);
        EXPECT_TRUE(It().Title.StateText().contains(s("New")));
        EXPECT_TRUE(It().BtnOpen.IsEnabled());
        EXPECT_FALSE(It().BtnDelete.IsEnabled());
        EXPECT_FALSE(It().BtnSave.IsEnabled());
        EXPECT_FALSE(It().BtnPrint.IsEnabled());
        EXPECT_TRUE(It().BtnClear.IsEnabled());
        EXPECT_TRUE(It().IsNew);
        EXPECT_EQ(It().TxtGatePassID.Text(), number);
        EXPECT_EQ(It().DtpDate.Value(), QDate::currentDate());
        EXPECT_TRUE(It().Area.Code.Text().isEmpty());
        EXPECT_EQ(It().Rows.RowCount(), 1);
        EXPECT_EQ(FilledRows(), 0);
        EXPECT_EQ(It().Detail.CountRows(), 0);
        EXPECT_TRUE(It().Detail.IsRowAdd);
        EXPECT_FALSE(It().Detail.IsGridActive);
        EXPECT_TRUE(It().Product.Code.IsEnabled());
        EXPECT_TRUE(It().Product.Code.HasTabStop());
        EXPECT_TRUE(It().Product.Code.Text().isEmpty());
        EXPECT_TRUE(It().TxtReturnOldProducts.Text().isEmpty());
        EXPECT_TRUE(HasFocus(It().Driver.Code));
    }
};

/// A company on a disk that reports waits for a lock.
struct WatchedDisk {
    FaultyDisk disk;
};
class RaceTest : protected WatchedDisk, public LifecycleTest {};

const Message& idTaken()
{
    static const Message message{s("This Gate Pass ID already exists. A new Gate Psss ID. has "
                                   "been generated. Please try again"),
                                 MsgIcon::Stop, s("Alert")};
    return message;
}

const Message& removeQuestion()
{
    static const Message message{s("Do you want to remove this record?"), MsgIcon::Question,
                                 s("Confirmation"), MsgButtons::YesNo};
    return message;
}

} // namespace

TEST_F(StatesTest, AWindowOpensInStateNew)
{
    Open();
    expectNew(s("1"));
}

TEST_F(StatesTest, StateNewAfterAnEditedVoucherSwitchesEverything)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    ASSERT_EQ(It().FormState(), State::Edited);
    Ctrl(Qt::Key_W);
    expectNew(s("1"));
}

TEST_F(StatesTest, StateNewAfterAnOpenedVoucherSwitchesEverything)
{
    Open();
    openAndCorrectARow();
    Ctrl(Qt::Key_W);
    expectNew(s("2"));
}

TEST_F(StatesTest, StateNewAfterADeletedVoucherSwitchesEverything)
{
    Open();
    openAndCorrectARow();
    boxes.Expect(removeQuestion(), MsgAnswer::Yes);
    Ctrl(Qt::Key_R);
    expectNew(s("1"));
}

TEST_F(StatesTest, StateNewFromAFieldThatMarksTheVoucherWhenItIsEmptied)
{
    Open();
    OpenStored(Stored());
    It().ResetFocus(It().Area.Code);
    ASSERT_EQ(It().FormState(), State::Opened);
    Ctrl(Qt::Key_W);
    expectNew(s("2"));
}

TEST_F(StatesTest, AnotherVoucherOpenedWhileARowIsCorrectedTakesRowsAgain)
{
    Open();
    Stored(s("210"), s("1"));
    openAndCorrectARow();
    OpenStored(1);
    EXPECT_EQ(It().FormState(), State::Opened);
    EXPECT_TRUE(It().Detail.IsRowAdd);
    EXPECT_TRUE(It().Product.Code.IsEnabled());
    EXPECT_TRUE(It().Product.Code.HasTabStop());
    EXPECT_TRUE(HasFocus(It().DtpDate));
    Press(It(), Qt::Key_Escape);
    EnterRow(s("104"), s("2"));
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("104|2|null|null"), s("210|1|null|null")}));
}

TEST_F(LifecycleTest, StateEditedSwitchesTheButtons)
{
    Open();
    Type(It(), s("2"));
    EXPECT_EQ(It().FormState(), State::Edited);
    EXPECT_FALSE(It().BtnOpen.IsEnabled());
    EXPECT_FALSE(It().BtnDelete.IsEnabled());
    EXPECT_TRUE(It().BtnSave.IsEnabled());
    EXPECT_FALSE(It().BtnPrint.IsEnabled());
    EXPECT_TRUE(It().BtnClear.IsEnabled());
    EXPECT_TRUE(It().IsNew);
    EXPECT_TRUE(It().Title.StateText().contains(s("Edited")));
}

TEST_F(LifecycleTest, StateOpenedSwitchesTheButtonsUntilTheFirstChange)
{
    Open();
    const int id = Stored();
    OpenStored(id);
    EXPECT_EQ(It().FormState(), State::Opened);
    EXPECT_TRUE(It().BtnOpen.IsEnabled());
    EXPECT_TRUE(It().BtnDelete.IsEnabled());
    EXPECT_FALSE(It().BtnSave.IsEnabled());
    EXPECT_TRUE(It().BtnPrint.IsEnabled());
    EXPECT_FALSE(It().IsNew);
    EXPECT_TRUE(It().Title.StateText().contains(s("Opened")));

    Press(It(), Qt::Key_Return);
    Type(It(), s("9"));
    EXPECT_EQ(It().FormState(), State::Edited);
    EXPECT_FALSE(It().BtnDelete.IsEnabled());
    EXPECT_FALSE(It().BtnPrint.IsEnabled());
    EXPECT_FALSE(It().IsNew);
}

TEST_F(LifecycleTest, AChangeOfTheDateAloneMarksNothing)
{
    Open();
    Click(It(), It().DtpDate);
    Press(It(), Qt::Key_Up);
    EXPECT_NE(It().DtpDate.Value(), QDate::currentDate());
    EXPECT_EQ(It().FormState(), State::New);
}

TEST_F(LifecycleTest, AnIdStoredElsewhereMeanwhileDrawsTheMessageAndAFreshNumber)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    storeElsewhere(1);
    boxes.Expect(idTaken(), MsgAnswer::Ok,
                 [this] { EXPECT_EQ(It().TxtGatePassID.Text(), s("1")); });
    Ctrl(Qt::Key_S);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("2"));
    EXPECT_EQ(It().FormState(), State::Edited);
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
    EXPECT_EQ(Count(s("GatePassBody")), 0);

    Save();
    EXPECT_EQ(Count(s("GatePassHeader")), 2);
    EXPECT_EQ(BodyOf(2), QStringList({s("101|3|null|null")}));
    EXPECT_TRUE(BodyOf(1).isEmpty());
}

TEST_F(LifecycleTest, AfterTheRaceMessageRowsAreStillFoundByTheirProduct)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    EnterRow(s("210"), s("1"));
    storeElsewhere(1);
    boxes.Expect(idTaken());
    Ctrl(Qt::Key_S);
    boxes.Expect({s("The Record Already Exist"), MsgIcon::Information, s("Alert")});
    EnterRow(s("101"), s("4"));
    It().Rows.SetRow(1);
    It().Detail.RemoveRow();
    Save();
    EXPECT_EQ(BodyOf(2), QStringList({s("101|3|null|null")}));
}

TEST_F(LifecycleTest, EnterInTheGridNeverInjectsATab)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    Press(It(), Qt::Key_Down);
    ASSERT_TRUE(HasFocus(It().Rows));
    Press(It(), Qt::Key_Return); // on the blank row
    EXPECT_TRUE(HasFocus(It().Product.Code));
    Press(It(), Qt::Key_Down);
    Press(It(), Qt::Key_Up);
    Press(It(), Qt::Key_Return); // on a filled row
    EXPECT_TRUE(HasFocus(It().TxtReturnOldProducts));
}

TEST_F(LifecycleTest, CtrlSOnAFormInServerModeDoesNothing)
{
    HostContext::ServerMode = true;
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    EXPECT_FALSE(It().BtnSave.IsVisible());
    EXPECT_TRUE(It().BtnSave.IsEnabled());
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(It().FormState(), State::Edited);
}

TEST_F(LifecycleTest, CtrlRInServerModeDoesNothing)
{
    Open();
    const int id = Stored();
    HostContext::ServerMode = true;
    Open();
    OpenStored(id);
    EXPECT_TRUE(It().BtnDelete.IsEnabled());
    Ctrl(Qt::Key_R);
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
}

TEST_F(LifecycleTest, EscOnTheEntryRowClearsOnlyTheEntryControls)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    Enter(s("210"));
    Type(It(), s("4"));
    Press(It(), Qt::Key_Escape);
    EXPECT_TRUE(It().Product.Code.Text().isEmpty());
    EXPECT_TRUE(It().Product.Name.Text().isEmpty());
    EXPECT_TRUE(It().TxtOutNewProducts.Text().isEmpty());
    EXPECT_TRUE(HasFocus(It().Product.Code));
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(It().Area.Code.Text(), s("Kot"));
}

TEST_F(LifecycleTest, ClosingWithRowsTypedAsksAndNoLeavesThem)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    ExpectCloseQuestion(MsgAnswer::No);
    Ctrl(Qt::Key_Q);
    EXPECT_TRUE(It().isVisible());
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(It().Detail.CountRows(), 1);
    ExpectCloseQuestion(MsgAnswer::Yes);
    Ctrl(Qt::Key_Q);
    EXPECT_FALSE(It().isVisible());
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
}

TEST_F(LifecycleTest, ClosingAnUneditedFormAsksNothingAndLetsGoOfItsRows)
{
    Open();
    EXPECT_TRUE(It().Detail.BodyRecordset.IsOpen());
    Ctrl(Qt::Key_Q);
    EXPECT_FALSE(It().isVisible());
    EXPECT_FALSE(It().Detail.BodyRecordset.IsOpen());
}

TEST_F(LifecycleTest, ImgExitAndTheSystemCloseThroughTheSameQuestion)
{
    Open();
    Type(It(), s("2"));
    ExpectCloseQuestion(MsgAnswer::No);
    Click(It(), It().Title.ImgExit());
    EXPECT_TRUE(It().isVisible());
    ExpectCloseQuestion(MsgAnswer::No);
    EXPECT_FALSE(It().close());
    EXPECT_TRUE(It().isVisible());
    ExpectCloseQuestion(MsgAnswer::Yes);
    Click(It(), It().BtnClose);
    EXPECT_FALSE(It().isVisible());
}

TEST_F(LifecycleTest, ImgMinHasNoAction)
{
    Open();
    Click(It(), It().Title.ImgMin());
    EXPECT_TRUE(It().isVisible());
    EXPECT_FALSE(It().isMinimized());
}

TEST_F(LifecycleTest, BtnClearInStateEditedLosesTheRowsWithoutAsking)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    Ctrl(Qt::Key_W);
    EXPECT_EQ(It().FormState(), State::New);
    EXPECT_EQ(FilledRows(), 0);
    EXPECT_TRUE(It().Branch.Code.Text().isEmpty());
    EXPECT_TRUE(HasFocus(It().Driver.Code));
}

TEST_F(LifecycleTest, ClearWorksFromEveryFieldWithoutBringingUpAList)
{
    Open();
    for (Txt* field : {&It().Driver.Code, &It().Receiving.Code, &It().Area.Code, &It().Branch.Code,
                       &It().Product.Code, &It().TxtOutNewProducts, &It().TxtReturnOldProducts,
                       &It().TxtReturnNewProducts}) {
        It().ResetFocus(*field);
        Type(It(), s("7"));
        Ctrl(Qt::Key_W);
        EXPECT_TRUE(HasFocus(It().Driver.Code)) << qPrintable(field->Name());
        EXPECT_EQ(It().FormState(), State::New) << qPrintable(field->Name());
    }
}

TEST_F(LifecycleTest, ClicksOnClearAndCloseBringUpNoListFromAnEmptyMandatoryField)
{
    Open();
    Type(It(), s("7"));
    It().ResetFocus(It().Area.Code);
    Click(It(), It().BtnClear);
    EXPECT_EQ(It().FormState(), State::New);
    It().ResetFocus(It().Branch.Code);
    Click(It(), It().BtnClose);
    EXPECT_FALSE(It().isVisible());
}

TEST_F(LifecycleTest, AFailureBeforeTheTransactionIsToldOnceAndKeepsTheScreen)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    company.Run("alter table GatePassHeader rename to Elsewhere");
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    Ctrl(Qt::Key_S);
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(It().FormState(), State::Edited);
    company.Run("alter table Elsewhere rename to GatePassHeader");
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null")}));
}

TEST_F(LifecycleTest, AfterAFailedSaveTheTransactionIsRolledBackAndASecondSaveSucceeds)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    company.Run(s("create trigger Stop before insert on GatePassBody"
                  " begin select raise(abort, 'the body cannot be written'); end"));
    boxes.Expect(Failed(s("The database refuses this record: the body cannot be written.")));
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
    EXPECT_EQ(It().FormState(), State::Edited);
    EXPECT_TRUE(It().BtnSave.IsEnabled());
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(It().Area.Code.Text(), s("Kot"));

    company.Run(s("drop trigger Stop"));
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null")}));
}

TEST_F(LifecycleTest, AFailureThatIsNotTheDatabasesLeavesTheTransactionOpen)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    // A branch number beyond the range of a double fails when the header is read from the fields,
    // which happens within the transaction.
    It().Branch.Code.SetText(QString(400, QLatin1Char('9')));
    boxes.Expect(Failed(s("Overflow")));
    Ctrl(Qt::Key_S);
    EXPECT_TRUE(connection->InTransaction());
    EXPECT_EQ(FilledRows(), 1);

    // The next save fails because the transaction is still open; that failure ends it.
    It().Branch.Code.SetText(s("1"));
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(connection->InTransaction());
    Save();
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
}

TEST_F(LifecycleTest, DeletingTheHighestVoucherMakesItsIdComeUpAgain)
{
    Open();
    Stored();
    const int id = Stored(s("210"), s("1"));
    EXPECT_EQ(id, 2);
    OpenStored(id);
    boxes.Expect(removeQuestion(), MsgAnswer::Yes);
    Ctrl(Qt::Key_R);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("2"));
    EXPECT_EQ(It().FormState(), State::New);
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
    EXPECT_TRUE(BodyOf(2).isEmpty());
}

TEST_F(LifecycleTest, AnsweringNoToTheRemovalQuestionKeepsTheVoucher)
{
    Open();
    const int id = Stored();
    OpenStored(id);
    boxes.Expect(removeQuestion(), MsgAnswer::No);
    Ctrl(Qt::Key_R);
    EXPECT_EQ(It().FormState(), State::Opened);
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
}

TEST_F(LifecycleTest, AFailedDeletionIsRolledBackAndKeepsTheRowsOnTheScreen)
{
    Open();
    const int id = Stored();
    OpenStored(id);
    company.Run(s("create trigger Stop before delete on GatePassHeader"
                  " begin select raise(abort, 'the header cannot be deleted'); end"));
    boxes.Expect(removeQuestion(), MsgAnswer::Yes);
    boxes.Expect(Failed(s("The database refuses this record: the header cannot be deleted.")));
    Ctrl(Qt::Key_R);
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(BodyOf(id).size(), 1);
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_TRUE(It().Rows.Redraw());
    EXPECT_EQ(It().FormState(), State::Opened);
}

TEST_F(LifecycleTest, ACodeOfBlanksIsNoCode)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    It().Branch.Code.SetText(s("  "));
    boxes.Expect({s("Enter Branch Code."), MsgIcon::Exclamation, s("Gate Pass")});
    Ctrl(Qt::Key_S);
    It().Branch.Code.SetText(s("1"));
    It().Area.Code.SetText(s("  "));
    boxes.Expect({s("Enter Area Code."), MsgIcon::Exclamation, s("Gate Pass")});
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
}

TEST_F(LifecycleTest, AVoucherWithoutRowsIsRefused)
{
    Open();
    EnterHeader();
    It().ResetFocus(It().DtpDate);
    boxes.Expect({s("Enter atleast one product to save"), MsgIcon::Exclamation, s("Alert")});
    Ctrl(Qt::Key_S);
    EXPECT_TRUE(HasFocus(It().Product.Code));
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
}

TEST_F(LifecycleTest, APassWhoseHeaderHasVanishedIsStoredAsANewOne)
{
    Open();
    const int id = Stored();
    OpenStored(id);
    Press(It(), Qt::Key_Escape);
    EnterRow(s("210"), s("1"));
    company.Run("delete from GatePassHeader");
    Save();
    EXPECT_EQ(Lines(s("select GatePassID, isPosted, EntryDate is null from GatePassHeader")),
              QStringList({s("1|0|0")}));
    EXPECT_EQ(BodyOf(id).size(), 2);
}

TEST_F(LifecycleTest, ARowChangedByAnotherUserFailsTheSaveAndKeepsTheScreen)
{
    Open();
    const int id = Stored();
    OpenStored(id);
    It().Rows.SetRow(0);
    It().Detail.RemoveRow();
    It().Rows.MoveLast();
    Press(It(), Qt::Key_Escape);
    EnterRow(s("210"), s("1"));
    company.Run(s("update GatePassBody set OutNewProducts = 8"));
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(BodyOf(id), QStringList({s("101|8|null|null")}));
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(It().FormState(), State::Edited);
}

TEST_F(LifecycleTest, OpeningAndCancellingTheListChangesNothing)
{
    Open();
    Stored();
    dialogs.Expect(Cancel());
    Ctrl(Qt::Key_O);
    EXPECT_EQ(It().FormState(), State::New);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("2"));
}

TEST_F(LifecycleTest, OpenIsOffWhileTheVoucherIsEdited)
{
    Open();
    Stored();
    Type(It(), s("2"));
    Ctrl(Qt::Key_O); // opening a dialog would fail the test
    EXPECT_EQ(It().FormState(), State::Edited);
}

TEST_F(LifecycleTest, AnIdAbove32767CannotComeBackThroughTheDialog)
{
    Open();
    const int id = Stored();
    company.Run(s("update GatePassHeader set GatePassID = 32768"));
    company.Run(s("update GatePassBody set GatePassID = 32768"));
    boxes.Expect(Failed(s("Overflow")));
    dialogs.Expect([](Form& dialog) {
        Press(dialog, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        Press(dialog, Qt::Key_Escape);
    });
    Ctrl(Qt::Key_O);
    EXPECT_EQ(It().FormState(), State::New);
    EXPECT_EQ(id, 1);
}

TEST_F(LifecycleTest, CtrlSFromTheLastFieldSavesTheRowThatIsBeingEntered)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    Enter(s("3"));
    Enter(s("1"));
    ASSERT_TRUE(HasFocus(It().TxtReturnNewProducts));
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|1|null")}));
}

TEST_F(LifecycleTest, CtrlSFromTheLastFieldOfAnEmptyEntryRowJustSaves)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    It().ResetFocus(It().TxtReturnNewProducts);
    It().Product.Code.SetText(s(" "));
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null")}));
}

TEST_F(LifecycleTest, AClickOnSaveFirstAddsThePendingRow)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    Enter(s("3"));
    Enter(s("1"));
    boxes.Expect(PrintQuestion(), MsgAnswer::No);
    Click(It(), It().BtnSave);
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|1|null")}));
}

TEST_F(LifecycleTest, ANumberTakenWhileItIsGivenIsGivenUpWithItsRows)
{
    Open();
    It().TxtGatePassID.OnChange += [this] {
        if (It().TxtGatePassID.Text() == s("1")) {
            storeElsewhere(1);
            company.Run("insert into GatePassBody (GatePassID, ProductID, OutNewProducts)"
                        " values (1, '210', 4)");
        }
    };
    Ctrl(Qt::Key_W);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("2"));
    EXPECT_EQ(It().Rows.RowCount(), 1);
    EXPECT_EQ(FilledRows(), 0);
    Stored();
    EXPECT_EQ(BodyOf(1), QStringList({s("210|4|null|null")}));
    EXPECT_EQ(BodyOf(2), QStringList({s("101|3|null|null")}));
}

TEST_F(RaceTest, ANumberTakenWhileTheSaveWaitsIsToldAndNothingIsWritten)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    const std::shared_ptr<Connection> other = company.Connect();
    other->BeginTrans();
    // The save has found the number free and is waiting for the other user's lock.
    disk.WhenSomebodyWaits([&] {
        other->Execute("insert into GatePassHeader (GatePassID, AreaCode, BranchCode, isPosted)"
                       " values (1, 'Raja', 1, 0)");
        other->CommitTrans();
    });
    boxes.Expect(idTaken());
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(other->InTransaction());
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(company.Scalar("select AreaCode from GatePassHeader"), s("Raja"));
    EXPECT_EQ(Count(s("GatePassBody")), 0);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("2"));
    EXPECT_EQ(It().FormState(), State::Edited);

    Save();
    EXPECT_EQ(BodyOf(2), QStringList({s("101|3|null|null")}));
    EXPECT_EQ(Count(s("GatePassHeader")), 2);
}

} // namespace tests
