// What a failure does to the transaction, with several windows on the one connection of a
// workstation, and with another workstation beside it.

#include "data/EngineAccess.h"
#include "data/Failure.h"
#include "data/sqlite/SqliteEngine.h"
#include "host/HostContext.h"
#include "support/GatePassDesk.h"
#include "support/Text.h"

#include <chrono>
#include <utility>

namespace tests {

namespace {

using namespace std::chrono_literals;

class TransactionRules : public GatePassDesk {
protected:
    void SetUp() override
    {
        Open();
        EnterHeader();
        EnterRow(s("101"), s("3"));
    }

    /// A failure within the transaction that is none of the database's: a number that no double
    /// holds.
    void failOfTheFormsOwn(FrmGatePass& of)
    {
        of.Branch.Code.SetText(QString(400, u'9'));
        boxes.Expect(Failed(s("Overflow")));
        Press(of, Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(connection->Errors().Count(), 0);
        EXPECT_TRUE(connection->InTransaction());
        of.Branch.Code.SetText(s("1"));
    }

    void expectOpenAlready() { boxes.Expect(Failed(s("A transaction is open already."))); }
};

} // namespace

TEST_F(TransactionRules, AFailureOfTheDatabaseBeforeTheTransactionLeavesNothingOpen)
{
    company.Run("alter table GatePassHeader rename to Elsewhere");
    boxes.Expect(Failed(s("no such table: GatePassHeader")));
    Ctrl(Qt::Key_S);
    EXPECT_EQ(connection->Errors().Count(), 1);
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(It().FormState(), VoucherForm::State::Edited);

    company.Run("alter table Elsewhere rename to GatePassHeader");
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null")}));
}

TEST_F(TransactionRules, AnErrorOfAnEarlierOperationDoesNotCountForALaterFailure)
{
    EXPECT_THROW(connection->Execute("select * from Nowhere"), ProviderFailure);
    EXPECT_EQ(connection->Errors().Count(), 1);
    failOfTheFormsOwn(It());
}

TEST_F(TransactionRules, ATransactionLeftOpenIsEndedByTheFailureOfAnotherWindow)
{
    failOfTheFormsOwn(It());
    const std::unique_ptr<FrmGatePass> first = std::exchange(form, Another());
    EnterHeader();
    EnterRow(s("210"), s("2"));
    expectOpenAlready();
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(Count(s("GatePassHeader")), 0);

    // Now both can save, the second under a fresh number.
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("210|2|null|null")}));
    form.reset();
    boxes.Expect({s("This Gate Pass ID already exists. A new Gate Psss ID. has been generated. "
                    "Please try again"),
                  MsgIcon::Stop, s("Alert")});
    Press(*first, Qt::Key_S, Qt::ControlModifier);
    boxes.Expect(PrintQuestion(), MsgAnswer::No);
    Press(*first, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(BodyOf(2), QStringList({s("101|3|null|null")}));
}

TEST_F(TransactionRules, ATransactionLeftOpenIsEndedByAnErrorBeforeAnyTransaction)
{
    failOfTheFormsOwn(It());
    connection->Execute("drop table GatePassHeader");
    boxes.Expect(Failed(s("no such table: GatePassHeader")));
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(connection->InTransaction());
    // The table's removal was within that transaction as well.
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
    Save();
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
}

TEST_F(TransactionRules, ATransactionLeftOpenIsEndedByTheFailureOfADeletion)
{
    Save();
    EnterHeader();
    EnterRow(s("210"), s("2"));
    failOfTheFormsOwn(It());
    const std::unique_ptr<FrmGatePass> first = std::exchange(form, Another());
    OpenStored(1);
    boxes.Expect({s("Do you want to remove this record?"), MsgIcon::Question, s("Confirmation"),
                  MsgButtons::YesNo},
                 MsgAnswer::Yes);
    expectOpenAlready();
    Ctrl(Qt::Key_R);
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(It().FormState(), VoucherForm::State::Opened);
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(BodyOf(1).size(), 1);
}

TEST_F(TransactionRules, ATransactionLeftOpenKeepsOtherWorkstationsFromWritingAlone)
{
    failOfTheFormsOwn(It());
    const auto other = company.Connect();
    static_cast<SqliteEngine&>(EngineAccess::Of(*other)).SetLockWait(50ms);
    EXPECT_EQ(other->Execute("select * from Staff").RecordCount(), 7);
    try {
        other->BeginTrans();
        ADD_FAILURE() << "the lock was given twice";
    } catch (const ProviderFailure& failure) {
        EXPECT_EQ(failure.Description(),
                  s("The database is in use by another user. Try again in a moment."));
    }
    EXPECT_EQ(other->Errors().Count(), 1);

    // It ends with the workstation's program at the latest.
    form.reset();
    HostContext::objCN.reset();
    connection.reset();
    EXPECT_NO_THROW(other->BeginTrans());
    other->RollbackTrans();
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
}

TEST_F(TransactionRules, ARefusedRecordIsRolledBackWithAllThatWentBefore)
{
    company.Run("create trigger Stop before insert on GatePassBody when new.ProductID = '210'"
                " begin select raise(abort, 'no'); end");
    EnterRow(s("210"), s("1"));
    boxes.Expect(Failed(s("The database refuses this record: no.")));
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
    EXPECT_EQ(Count(s("GatePassBody")), 0);
    EXPECT_EQ(FilledRows(), 2);
    company.Run("drop trigger Stop");
    Save();
    EXPECT_EQ(BodyOf(1).size(), 2);
}

TEST_F(TransactionRules, AFailureThatTheDatabaseEndsByItselfLeavesTheFormReadyForTheNextSave)
{
    // As a full disk does: the whole transaction is gone when the statement fails.
    company.Run("create trigger Stop before insert on GatePassBody"
                " begin select raise(rollback, 'gone'); end");
    boxes.Expect(Failed(s("The database refuses this record: gone.")));
    Ctrl(Qt::Key_S);
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
    company.Run("drop trigger Stop");
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null")}));
}

} // namespace tests
