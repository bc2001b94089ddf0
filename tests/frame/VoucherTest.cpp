// Features of the frame for vouchers that the stock forms do not use.

#include "controls/Pieces.h"
#include "data/Failure.h"
#include "frame/ReceiptForm.h"
#include "search/SearchDialog.h"

#include <QCalendarWidget>

namespace tests {

namespace {

using State = VoucherForm::State;

class VoucherTest : public ReceiptDesk {
protected:
    static Message Taken() { return {s("The number is taken"), MsgIcon::Stop, s("Alert")}; }
    void StoreElsewhere(int id)
    {
        company.Run(
            s("insert into RecoveryHeader (VoucherID, StaffID) values (%1, '3107')").arg(id));
    }
};

} // namespace

// ---- Number and race

TEST_F(VoucherTest, WithoutARaceTwoUsersOnOneNewNumberLandOnOneVoucher)
{
    Changed().Voucher = [](VoucherDeclaration& voucher) { voucher.Race = nullptr; };
    Changed().Save = [](ReceiptForm& it) { it.Store(); };
    Open();
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    StoreElsewhere(1);
    company.Run(s("insert into RecoveryBody (VoucherID, CardNo, Amount) values (1, '9', 5)"));
    Save();
    EXPECT_EQ(Lines(s("select CardNo from RecoveryBody where VoucherID = 1 order by CardNo")),
              QStringList({s("7"), s("9")}));
    EXPECT_EQ(Count(s("RecoveryHeader")), 1);
}

TEST_F(VoucherTest, AFormThatDrawsNoNumberSaysThatItIsTakenAndStops)
{
    Changed().Voucher = [](VoucherDeclaration& voucher) { voucher.NextId = nullptr; };
    Open();
    EXPECT_EQ(It().TxtVoucher.Text(), QString());
    It().TxtVoucher.SetText(s("5"));
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    StoreElsewhere(5);
    boxes.Expect(Taken());
    Click(It(), It().BtnSave);
    EXPECT_EQ(It().TxtVoucher.Text(), s("5"));
    EXPECT_EQ(Count(s("RecoveryBody")), 0);
    It().TxtVoucher.SetText(s("6"));
    Save();
    EXPECT_EQ(Stored(6).size(), 1);
}

// ---- Identity, date, focus

TEST_F(VoucherTest, WhatTellsTheVoucherIsOpenOnANewOneAndClosedOnAnOpenedOne)
{
    StoreThree();
    Open();
    EXPECT_TRUE(It().TxtVoucher.IsEnabled());
    EXPECT_TRUE(HasFocus(It().TxtAreaCode)) << "which is opened before it gets the focus";
    OpenIt();
    EXPECT_FALSE(It().TxtVoucher.IsEnabled());
    EXPECT_FALSE(It().TxtAreaCode.IsEnabled());
    EXPECT_TRUE(HasFocus(It().Staff.Code));
    It().MarkEdited();
    EXPECT_FALSE(It().TxtVoucher.IsEnabled());
    Ctrl(Qt::Key_W);
    EXPECT_TRUE(It().TxtVoucher.IsEnabled());
    EXPECT_TRUE(HasFocus(It().TxtAreaCode));
}

TEST_F(VoucherTest, TheDateIsTodayWithEachNewVoucher)
{
    Open();
    It().DtpDate.SetValue(QDate(2026, 1, 31));
    Ctrl(Qt::Key_W);
    EXPECT_EQ(It().DtpDate.Value(), QDate::currentDate());
}

TEST_F(VoucherTest, ADateThatStaysIsTodayOnlyWhenTheWindowOpens)
{
    Changed().Voucher = [](VoucherDeclaration& voucher) { voucher.DateStays = true; };
    Changed().Made = [](ReceiptForm& it) { it.DtpDate.SetValue(QDate(2000, 1, 1)); };
    Open();
    EXPECT_EQ(It().DtpDate.Value(), QDate::currentDate());
    It().DtpDate.SetValue(QDate(2026, 1, 31));
    Ctrl(Qt::Key_W);
    EXPECT_EQ(It().DtpDate.Value(), QDate(2026, 1, 31));
}

// ---- Header fields

TEST_F(VoucherTest, ATrimmedTextIsStoredWithoutItsOuterBlanks)
{
    Open();
    It().TxtAreaCode.SetText(s("  Kot Radha  "));
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    Save();
    EXPECT_EQ(company.Scalar("select AreaCode from RecoveryHeader").toString(), s("Kot Radha"));
}

TEST_F(VoucherTest, WhoAndWhenAreStoredByTheFrame)
{
    Open();
    It().TxtAreaCode.SetText(s("Kot"));
    It().Staff.Code.SetText(s("2014"));
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    HostContext::UserNo = 2;
    Save();
    EXPECT_EQ(Lines(s("select isPosted, UserNo, EntryDate >= '2026' from RecoveryHeader")),
              QStringList({s("0|2|1")}));
    const QString entered = company.Scalar("select EntryDate from RecoveryHeader").toString();
    HostContext::UserNo = 3;
    company.Run("update RecoveryHeader set isPosted = 1, VoucherDate = '2026-03-05'");
    OpenIt();
    It().MarkEdited();
    Save();
    EXPECT_EQ(Lines(s("select isPosted, UserNo from RecoveryHeader")), QStringList({s("1|3")}));
    EXPECT_EQ(company.Scalar("select EntryDate from RecoveryHeader").toString(), entered);
}

TEST_F(VoucherTest, AShownDateOfNothingLeavesTheOneBefore)
{
    DTPicker picker;
    const QList<HeaderField> fields{HeaderFields::Date("VoucherDate", picker),
                                    HeaderFields::ShownDate("EntryDate", picker)};
    const VoucherHeader header(fields);
    StoreThree();
    const auto load = [&] {
        header.Load(connection->Execute("Select * from RecoveryHeader where VoucherID=1"));
        return picker.Value();
    };
    EXPECT_EQ(load(), QDate(2026, 3, 5));
    company.Run("update RecoveryHeader set EntryDate = '2026-07-09 10:00:00'");
    EXPECT_EQ(load(), QDate(2026, 7, 9));
    Recordset stored;
    stored.Open(Statement("Select * from RecoveryHeader where VoucherID=1"), connection,
                CursorType::Static, LockType::Pessimistic);
    picker.SetValue(QDate(2026, 8, 1));
    header.Save(stored, false);
    stored.Update();
    EXPECT_EQ(Lines(s("select VoucherDate, EntryDate from RecoveryHeader")),
              QStringList({s("2026-08-01|2026-07-09 10:00:00")}));
}

// ---- Keys

TEST_F(VoucherTest, AFurtherButtonHasItsCtrlKey)
{
    Open();
    Ctrl(Qt::Key_D);
    EXPECT_EQ(It().DetailClicks, 1);
    It().BtnDetail.SetEnabled(false);
    Ctrl(Qt::Key_D);
    EXPECT_EQ(It().DetailClicks, 1);
    EXPECT_EQ(It().BtnDetail.accessibleDescription(), s("Ctrl+D"));
}

TEST_F(VoucherTest, AFormWithoutCtrlKeysLeavesThemAlone)
{
    Changed().Voucher = [](VoucherDeclaration& voucher) { voucher.CtrlKeys = false; };
    Changed().Made = [](ReceiptForm& it) { it.BtnOpen.SetEnabled(false); };
    Open();
    It().TxtAreaCode.SetText(s("Kot"));
    Ctrl(Qt::Key_W);
    EXPECT_EQ(It().TxtAreaCode.Text(), s("Kot"));
    Ctrl(Qt::Key_Q);
    EXPECT_TRUE(It().isVisible());
}

TEST_F(VoucherTest, AltDownOpensTheCalendarWhereDownBecomesTab)
{
    Changed().Voucher = [](VoucherDeclaration& voucher) { voucher.DownBecomesTab = true; };
    Open();
    It().ResetFocus(It().DtpDate);
    Press(It(), Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(HasFocus(It().DtpDate));
    QWidget* popup = QApplication::activePopupWidget();
    ASSERT_TRUE(popup);
    EXPECT_TRUE(popup->findChild<QCalendarWidget*>());
    popup->close();
    Press(It(), Qt::Key_Down);
    EXPECT_TRUE(HasFocus(It().Staff.Code));
}

TEST_F(VoucherTest, TabWalksAsTheWindowIsLaidOut)
{
    Changed().Rows = [](ReceiptForm&, DetailDeclaration& rows) { rows.Ends.clear(); };
    Open();
    const auto walk = [this](int steps) {
        QStringList walked;
        for (; steps > 0; --steps) {
            walked << It().ActiveControl()->Name();
            Press(It(), Qt::Key_Tab);
        }
        return walked.join(u' ').toStdString();
    };
    EXPECT_EQ(walk(9), "TxtAreaCode DtpDate TxtStaffID TxtRate TxtCID TxtInsCustomerID"
                       " TxtReceiptNo TxtAmount Grid");
    It().ResetFocus(It().TxtTotalAmount); // leaving the list on its blank row moves to the code
    EXPECT_EQ(walk(6), "TxtTotalAmount BtnOpen BtnOpenDetail BtnClear BtnClose TxtVoucher");
}

// ---- Refusals

TEST_F(VoucherTest, ARefusalSaysWhyAndMovesTheFocus)
{
    Open();
    boxes.Expect({s("Not so"), MsgIcon::Exclamation, s("Alert")});
    EXPECT_FALSE(It().Refuse(It().TxtRate, {s("Not so"), MsgIcon::Exclamation, s("Alert")}));
    EXPECT_TRUE(HasFocus(It().TxtRate));
}

TEST_F(VoucherTest, TheQuestionOnClosingIsTheFormsOwn)
{
    const Message own{s("Do you want to close without save?"), MsgIcon::Question, s("Alert"),
                      MsgButtons::YesNo, MsgAnswer::No};
    Changed().Voucher = [&](VoucherDeclaration& voucher) { voucher.CloseQuestion = own; };
    Open();
    It().MarkEdited();
    boxes.Expect(own, MsgAnswer::No);
    Ctrl(Qt::Key_Q);
    EXPECT_TRUE(It().isVisible());
    boxes.Expect(own, MsgAnswer::Yes);
    Ctrl(Qt::Key_Q);
    EXPECT_FALSE(It().isVisible());
}

TEST_F(VoucherTest, AFormMayAskForTheRightBeforeTheQuestion)
{
    StoreThree();
    user->Delete = false;
    Open();
    OpenIt();
    boxes.Expect(Refused(s("You are not authorized to Delete a record")));
    Ctrl(Qt::Key_R);
    EXPECT_EQ(Count(s("RecoveryHeader")), 1);
    user->Delete = true;
    DeleteRowsFirst(s("RecoveryHeader"), s("RecoveryBody"), s("VoucherID"));
    EXPECT_EQ(Count(s("RecoveryBody")), 0);
}

TEST_F(VoucherTest, AStepWithoutAGuardOfItsOwnEndsInThePlainBox)
{
    Open();
    boxes.Expect({s("Invalid use of Null"), MsgIcon::Stop, s("Receipts")});
    It().RunUnguarded([] { NumberOf(QVariant()); });
    EXPECT_EQ(NumberOf(QVariant(2.5)), 2.5);
}

// ---- Code fields

TEST_F(VoucherTest, AFoundRowFillsAllNamesAndAMissEmptiesThem)
{
    Open();
    It().ResetFocus(It().Staff.Code);
    Enter(s("2014"));
    EXPECT_EQ(It().Staff.Name.Text(), s("محمد اسلم"));
    EXPECT_EQ(It().TxtFName.Text(), s("محمد اکرم"));
    EXPECT_TRUE(It().TxtFName.IsDisplayOnly());
    It().ResetFocus(It().Staff.Code);
    Type(It(), s("9"));
    EXPECT_EQ(It().TxtFName.Text(), QString());
    It().TxtFName.SetText(s("باقی"));
    dialogs.Expect(Cancel());
    Press(It(), Qt::Key_Tab);
    EXPECT_EQ(It().TxtFName.Text(), QString());
}

TEST_F(VoucherTest, WhatStaysOpenBesideACodeIsEmptiedByTypingAndIsNoName)
{
    QList<bool> known;
    Changed().Staff = [&](ReceiptForm& it, LookupDeclaration& staff) {
        staff.OnFound = [&](const Recordset&) { it.TxtRate.SetText(s("850")); };
        staff.OnTyped = [&](bool wasKnown) {
            known << wasKnown;
            it.TxtRate.SetText(QString());
        };
    };
    Open();
    It().ResetFocus(It().Staff.Code);
    Enter(s("2014"));
    EXPECT_FALSE(It().TxtRate.IsDisplayOnly());
    EXPECT_EQ(It().TxtRate.Text(), s("850"));
    It().ResetFocus(It().Staff.Code);
    known.clear();
    Type(It(), s("9"));
    EXPECT_EQ(It().TxtRate.Text(), QString());
    Type(It(), s("9"));
    EXPECT_EQ(known, QList<bool>({true, false}));
}

TEST_F(VoucherTest, ANoticeComesBeforeTheStatementAndRefusesNothing)
{
    QStringList noticed;
    Changed().Staff = [&](ReceiptForm& it, LookupDeclaration& staff) {
        staff.OnAsk = [&] { noticed << it.Staff.Name.Text(); };
    };
    Open();
    It().ResetFocus(It().Staff.Code);
    Press(It(), Qt::Key_Return);
    EXPECT_TRUE(noticed.isEmpty()) << "there is no code to ask for";
    It().ResetFocus(It().Staff.Code);
    Enter(s("2014"));
    EXPECT_EQ(noticed, QStringList({QString()}));
    EXPECT_FALSE(It().Staff.Name.Text().isEmpty());
}

TEST_F(VoucherTest, ACodeMayHaveNoButton)
{
    Changed().Staff = [](ReceiptForm&, LookupDeclaration& staff) { staff.Button = nullptr; };
    Open();
    It().ResetFocus(It().Staff.Code);
    Press(It(), Qt::Key_F4);
    EXPECT_TRUE(HasFocus(It().Staff.Code));
    dialogs.Expect(Cancel());
    Press(It(), Qt::Key_F1);
    EXPECT_EQ(dialogs.Left(), 0);
}

TEST_F(VoucherTest, AFormsOwnStepOnACodeComesAfterTheFrames)
{
    QStringList names;
    Changed().Made = [&](ReceiptForm& it) {
        it.Staff.Code.OnChange += [&] { names << it.Staff.Name.Text(); };
        it.TxtAmount.OnLostFocus += [&] { names << it.TxtAmount.Text(); };
    };
    Open();
    It().ResetFocus(It().Staff.Code);
    Enter(s("2014"));
    names.clear();
    It().ResetFocus(It().Staff.Code);
    Type(It(), s("9"));
    EXPECT_EQ(names, QStringList({QString()})) << "the name is gone by then";
    names.clear();
    EnterReceipt(s("7"), s("Kot 7"), s("1"), s("100"));
    EXPECT_EQ(FilledRows(), 1) << "a field whose leaving adds the row may have a step of its own";
    EXPECT_EQ(names, QStringList({QString()})) << "the row is in the list by then";
}

// ---- Results of lists

TEST_F(VoucherTest, AMonthThatAListGivesIsReadDayFirst)
{
    company.Run("insert into Salaries (StaffID, SalaryMonth) values ('2014', '2026-03-01')");
    SearchDialog& salaries = SearchDialog::Shared(SchSalary());
    dialogs.Expect([](Form& dialog) {
        auto& list = dynamic_cast<SearchWindow&>(dialog);
        list.DtpFrom()->SetValue(QDate(2026, 1, 1));
        list.DtpTo()->SetValue(QDate(2026, 12, 1));
        Press(dialog, Qt::Key_Return);
    });
    salaries.Show(nullptr);
    EXPECT_EQ(salaries.ParaOut("ParaOutDate").toString(), s("01/03/2026"));
    EXPECT_EQ(salaries.ParaOutDate("ParaOutDate"), QDate(2026, 3, 1));
    dialogs.Expect(Cancel());
    salaries.Show(nullptr);
    EXPECT_FALSE(salaries.ParaOutDate("ParaOutDate").isValid());
}

} // namespace tests
