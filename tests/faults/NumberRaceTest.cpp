// Another workstation that stores a pass under the same number, at the worst of moments.

#include "faults/Meanwhile.h"
#include "support/GatePassDesk.h"
#include "support/Text.h"

namespace tests {

namespace {

class NumberRace : public GatePassDesk {
protected:
    /// As another workstation stores a pass.
    void storeAnothers(int id)
    {
        company.Run(s("begin;"
                      "insert into GatePassHeader (GatePassID, AreaCode, BranchCode, isPosted)"
                      " values (%1, 'Raja', 1, 0);"
                      "insert into GatePassBody values (%1, '233', 7, null, null);"
                      "commit")
                        .arg(id));
    }

    QString areaOf(int id)
    {
        return company
            .Scalar(s("select AreaCode from GatePassHeader where GatePassID = %1").arg(id))
            .toString();
    }

    const QStringList anothers{s("233|7|null|null")};
    const Message idTaken{s("This Gate Pass ID already exists. A new Gate Psss ID. has been "
                            "generated. Please try again"),
                          MsgIcon::Stop, s("Alert")};
};

} // namespace

TEST_F(NumberRace, ANumberTakenWhileTheLockIsWaitedForDrawsTheRaceMessageAndOverwritesNothing)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    {
        const Meanwhile another(connection, "BEGIN", [this] { storeAnothers(1); });
        boxes.Expect(idTaken);
        Ctrl(Qt::Key_S);
        EXPECT_TRUE(another.HasHappened());
    }
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(It().FormState(), VoucherForm::State::Edited);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("2"));
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(areaOf(1), s("Raja"));
    EXPECT_EQ(BodyOf(1), anothers);
    EXPECT_EQ(Count(s("GatePassHeader")), 1);

    Save();
    EXPECT_EQ(areaOf(1), s("Raja"));
    EXPECT_EQ(BodyOf(1), anothers);
    EXPECT_EQ(areaOf(2), s("Kot"));
    EXPECT_EQ(BodyOf(2), QStringList({s("101|3|null|null")}));
}

TEST_F(NumberRace, OnAnOpenedVoucherIsNone)
{
    Open();
    OpenStored(Stored());
    Press(It(), Qt::Key_Escape);
    EnterRow(s("104"), s("1"));
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null"), s("104|1|null|null")}));
}

TEST_F(NumberRace, ANewVoucherNeverTakesUpTheRowsOfAnother)
{
    Open();
    {
        // Between the reading of the next number and that of its rows.
        const Meanwhile another(connection, "Select * from GatePassBody",
                                [this] { storeAnothers(1); });
        Ctrl(Qt::Key_W);
        EXPECT_TRUE(another.HasHappened());
    }
    EXPECT_EQ(It().TxtGatePassID.Text(), s("2"));
    EXPECT_EQ(FilledRows(), 0);
    EnterHeader();
    EnterRow(s("233"), s("1"));
    Save();
    EXPECT_EQ(BodyOf(1), anothers);
    EXPECT_EQ(BodyOf(2), QStringList({s("233|1|null|null")}));
}

TEST_F(NumberRace, RowsThatNoVoucherHoldsKeepNobodyFromANewOne)
{
    company.Run("insert into GatePassBody values (1, '233', 7, null, null)");
    Open();
    EXPECT_EQ(It().TxtGatePassID.Text(), s("1"));
    EXPECT_EQ(It().FormState(), VoucherForm::State::New);
}

} // namespace tests
