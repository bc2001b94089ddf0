// The order in which a gate pass is checked, stored and deleted, as shown by which step fails
// first.

#include "support/GatePassDesk.h"
#include "support/Text.h"

namespace tests {

namespace {

class GatePassOrderTest : public GatePassDesk {
protected:
    /// Restricts the user to records with past dates.
    void closeTheWindow()
    {
        company.Run(s("update Users set FromDate = '2020-01-01', ToDate = '2020-12-31'"
                      " where UserNo = 1"));
    }
    static Message outsideWindow()
    {
        return {s("You are not authorized to add a record in this Date."), MsgIcon::Information,
                s("Information")};
    }

    /// Stores a voucher under the number as another workstation would.
    void storeElsewhere(int id)
    {
        company.Run(s("insert into GatePassHeader (GatePassID, AreaCode, BranchCode, isPosted)"
                      " values (%1, 'Raja', 1, 0)")
                        .arg(id));
    }
    static Message idTaken()
    {
        return {s("This Gate Pass ID already exists. A new Gate Psss ID. has been generated. "
                  "Please try again"),
                MsgIcon::Stop, s("Alert")};
    }
};

} // namespace

TEST_F(GatePassOrderTest, TheRightIsTestedBeforeTheDateWindow)
{
    Open();
    OpenStored(Stored());
    Press(It(), Qt::Key_Escape);
    EnterRow(s("210"), s("1"));
    closeTheWindow();
    user->Modify = false;
    boxes.Expect(Refused(s("You are not authorized to modify a record")));
    Ctrl(Qt::Key_S);
    user->Modify = true;
    boxes.Expect(outsideWindow());
    Ctrl(Qt::Key_S);
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null")}));
}

TEST_F(GatePassOrderTest, TheDateWindowIsTestedBeforeTheFieldsAreAskedFor)
{
    closeTheWindow();
    Open();
    Type(It(), "2014");
    boxes.Expect(outsideWindow());
    Ctrl(Qt::Key_S);
    EXPECT_TRUE(HasFocus(It().Driver.Code));
    company.Run("update Users set FromDate = null where UserNo = 1");
    boxes.Expect({s("Enter Branch Code."), MsgIcon::Exclamation, s("Gate Pass")});
    Ctrl(Qt::Key_S);
}

TEST_F(GatePassOrderTest, MandatoryFieldsAreAskedForInScreenOrder)
{
    Open();
    Type(It(), s("2014"));
    boxes.Expect({s("Enter Branch Code."), MsgIcon::Exclamation, s("Gate Pass")});
    Ctrl(Qt::Key_S);
    EXPECT_TRUE(HasFocus(It().Branch.Code));
    Type(It(), s("1"));
    boxes.Expect({s("Enter Area Code."), MsgIcon::Exclamation, s("Gate Pass")});
    Ctrl(Qt::Key_S);
    EXPECT_TRUE(HasFocus(It().Area.Code));
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
}

TEST_F(GatePassOrderTest, TheFieldsAreAskedForBeforeTheNumberIsTested)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    storeElsewhere(1);
    It().Area.Code.SetText(QString());
    boxes.Expect({s("Enter Area Code."), MsgIcon::Exclamation, s("Gate Pass")});
    Ctrl(Qt::Key_S);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("1"));
}

TEST_F(GatePassOrderTest, TheNumberIsTestedBeforeTheRowsAreCounted)
{
    Open();
    EnterHeader();
    storeElsewhere(1);
    boxes.Expect(idTaken());
    Ctrl(Qt::Key_S);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("2"));
    boxes.Expect({s("Enter atleast one product to save"), MsgIcon::Exclamation, s("Alert")});
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
}

TEST_F(GatePassOrderTest, ThePassIsStoredWhenTheQuestionOfPrintingComes)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    boxes.Expect(PrintQuestion(), MsgAnswer::No, [this] {
        EXPECT_FALSE(connection->InTransaction());
        EXPECT_EQ(Count(s("GatePassHeader")), 1);
        EXPECT_EQ(Count(s("GatePassBody")), 1);
    });
    Ctrl(Qt::Key_S);
}

TEST_F(GatePassOrderTest, DeletingTakesTheRowsBeforeTheHeader)
{
    Open();
    OpenStored(Stored());
    DeleteRowsFirst(s("GatePassHeader"), s("GatePassBody"), s("GatePassID"));
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
    EXPECT_EQ(Count(s("GatePassBody")), 0);
}

} // namespace tests
