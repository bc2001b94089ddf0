// Who may save and delete.

#include "support/GatePassDesk.h"

#include "frame/Authorisation.h"
#include "host/HostContext.h"
#include "support/Text.h"

namespace tests {

namespace {

using State = VoucherForm::State;

class AuthorisationTest : public GatePassDesk {
protected:
    void change(int id)
    {
        OpenStored(id);
        Press(It(), Qt::Key_Escape);
        EnterRow(s("210"), s("1"));
    }
    void post(int id)
    {
        company.Run(s("update GatePassHeader set isPosted = 1 where GatePassID = %1").arg(id));
    }
    bool wasChanged(int id) { return BodyOf(id).size() == 2; }
    void window(const QString& from, const QString& to)
    {
        company.Run(
            s("update Users set FromDate = %1, ToDate = %2 where UserNo = 1").arg(from, to));
    }
    static QString day(int fromToday)
    {
        return QDate::currentDate().addDays(fromToday).toString(s("''yyyy-MM-dd''"));
    }
    static Message outsideWindow()
    {
        return {s("You are not authorized to add a record in this Date."), MsgIcon::Information,
                s("Information")};
    }
    static Message removeQuestion()
    {
        return {s("Do you want to remove this record?"), MsgIcon::Question, s("Confirmation"),
                MsgButtons::YesNo};
    }
};

} // namespace

TEST_F(AuthorisationTest, AUserWithoutTheModifyRightStillStoresANewPass)
{
    user->Modify = false;
    Open();
    Stored();
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
    EXPECT_TRUE(user->Asked.isEmpty());
}

TEST_F(AuthorisationTest, AUserWithoutTheModifyRightChangesNoStoredPass)
{
    Open();
    const int id = Stored();
    change(id);
    user->Modify = false;
    boxes.Expect(Refused(s("You are not authorized to modify a record")));
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(wasChanged(id));
    EXPECT_EQ(It().FormState(), State::Edited);
    EXPECT_EQ(FilledRows(), 2);
    EXPECT_EQ(user->Asked, QStringList({s("MniGatePass modify")}));
}

TEST_F(AuthorisationTest, TheModifyRightLetsAStoredPassBeChanged)
{
    Open();
    const int id = Stored();
    change(id);
    Save();
    EXPECT_TRUE(wasChanged(id));
}

TEST_F(AuthorisationTest, APostedPassIsChangedByAnAdministratorOnly)
{
    Open();
    const int id = Stored();
    change(id);
    post(id);
    boxes.Expect(Refused(s("You are not authorized to modify a posted record")));
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(wasChanged(id));
    EXPECT_EQ(user->FlagReads, 1);
    user->Administrator = true;
    Save();
    EXPECT_TRUE(wasChanged(id));
}

TEST_F(AuthorisationTest, WithoutAllowPostedEditSavingAPostedPassDoesNothingAndSaysNothing)
{
    Open();
    const int id = Stored();
    change(id);
    post(id);
    user->PostedEdit = false;
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(wasChanged(id));
    EXPECT_EQ(It().FormState(), State::Edited);
    user->Administrator = true;
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(wasChanged(id));
}

TEST_F(AuthorisationTest, AnAdministratorIsStoppedByTheDateWindowAndByNoOtherTest)
{
    user->Administrator = true;
    user->Modify = false;
    user->Delete = false;
    Open();
    const int id = Stored();
    change(id);
    window(day(-10), day(-1));
    boxes.Expect(outsideWindow());
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(wasChanged(id));
    window(s("null"), s("null"));
    Save();
    EXPECT_TRUE(wasChanged(id));
    OpenStored(id);
    boxes.Expect(removeQuestion(), MsgAnswer::Yes);
    Ctrl(Qt::Key_R);
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
    EXPECT_TRUE(user->Asked.isEmpty());
}

TEST_F(AuthorisationTest, APostedPassIsDeletedByAnyUserWithTheDeleteRight)
{
    user->Modify = false;
    user->PostedEdit = false;
    Open();
    const int id = Stored();
    post(id);
    OpenStored(id);
    boxes.Expect(removeQuestion(), MsgAnswer::Yes);
    Ctrl(Qt::Key_R);
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
    EXPECT_EQ(user->Asked, QStringList({s("MniGatePass delete")}));
}

TEST_F(AuthorisationTest, AUserWithoutTheDeleteRightDeletesNothing)
{
    user->Delete = false;
    Open();
    const int id = Stored();
    OpenStored(id);
    boxes.Expect(removeQuestion(), MsgAnswer::Yes);
    boxes.Expect(Refused(s("You are not authorized to Delete a record")));
    Ctrl(Qt::Key_R);
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
    EXPECT_EQ(It().FormState(), State::Opened);
    EXPECT_EQ(FilledRows(), 1);
}

TEST_F(AuthorisationTest, WithFromDateNullNoWindowHoldsWhateverToDateSays)
{
    window(s("null"), day(-100));
    Open();
    Stored();
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
}

TEST_F(AuthorisationTest, ANullToDateMeansNoUpperBound)
{
    window(day(0), s("null"));
    Open();
    Stored();
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
    window(day(1), s("null"));
    EnterHeader();
    EnterRow(s("101"), s("1"));
    boxes.Expect(outsideWindow());
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
}

TEST_F(AuthorisationTest, BothEndsOfTheWindowBelongToIt)
{
    Open();
    window(day(0), day(0));
    Stored();
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
}

TEST_F(AuthorisationTest, TheWindowIsTestedOnTheDateOnTheScreen)
{
    Open();
    const int id = Stored();
    window(day(-5), day(-5));
    change(id);
    It().DtpDate.SetValue(QDate::currentDate().addDays(-5));
    Save();
    EXPECT_TRUE(wasChanged(id));
}

TEST_F(AuthorisationTest, TheWindowOfAnotherUserHoldsForNobodyElse)
{
    company.Run(s("update Users set FromDate = %1, ToDate = %1 where UserNo <> 1").arg(day(-1)));
    Open();
    Stored();
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
    HostContext::UserNo = 2;
    EnterHeader();
    EnterRow(s("101"), s("1"));
    boxes.Expect(outsideWindow());
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
}

TEST_F(AuthorisationTest, AFailingSecurityObjectEndsInTheErrorBoxAndWritesNothing)
{
    Open();
    const int id = Stored();
    change(id);
    user->Broken = true;
    boxes.Expect(Failed(s("The security service does not answer.")));
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(wasChanged(id));
    EXPECT_FALSE(connection->InTransaction());
}

TEST_F(AuthorisationTest, TheModifyTestOfFormsWithoutAPostedFlag)
{
    const QString refusal = s("You are not authorized to modify a record");
    EXPECT_TRUE(Authorisation::MayModify(nullptr, s("MniConcession"), refusal));
    user->Modify = false;
    boxes.Expect(Refused(refusal));
    EXPECT_FALSE(Authorisation::MayModify(nullptr, s("MniConcession"), refusal));
    user->Administrator = true;
    EXPECT_TRUE(Authorisation::MayModify(nullptr, s("MniConcession"), refusal));
}

} // namespace tests
