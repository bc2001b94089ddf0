#include "support/windows/HostConnection.h"

#include "data/Connection.h"
#include "data/Engine.h"
#include "data/Failure.h"
#include "data/Reading.h"
#include "data/Recordset.h"
#include "data/ado/Dispatch.h"
#include "data/sqlite/CompanyFile.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

using namespace TradeForms;
using tests::Handed;
using tests::HostConnection;
using tests::HostFailure;
using tests::HostObject;
using tests::Provider;

namespace {

class OnHost : public testing::Test {
protected:
    explicit OnHost(Provider provider = Provider::Present)
    {
        host_ = new HostConnection(OpenCompanyFile(company_.File()), provider);
        lent_ = Handed(host_).ToDispatch();
        connection_ = Connection::OpenHost(lent_.Raw());
    }

    template <class Operation> static QString failureOf(Operation operation)
    {
        try {
            operation();
        } catch (const ProviderFailure& failure) {
            return failure.Description();
        }
        return QStringLiteral("no failure");
    }

    Recordset open(const char* statement, LockType lock = LockType::BatchOptimistic)
    {
        Recordset rows;
        rows.Open(Statement(statement), connection_, CursorType::Static, lock);
        return rows;
    }

    /// How often the way to the server is taken for this.
    template <class Operation> int callsFor(Operation operation)
    {
        const int before = host_->Calls();
        operation();
        return host_->Calls() - before;
    }

    TestCompany company_;
    HostConnection* host_ = nullptr;
    Dispatch lent_;
    std::shared_ptr<Connection> connection_;
};

class OnOlderProvider : public OnHost {
protected:
    OnOlderProvider() : OnHost(Provider::Older) {}
};

QString words(const char* text)
{
    return QString::fromUtf8(text);
}

QString lost(const QString& reason)
{
    return QStringLiteral("The connection to the database was lost. What stands in the windows "
                          "and was not saved is not in the database. When the server can be "
                          "reached again, start the program anew. (%1)")
        .arg(reason);
}

QString inUse(const char* reason)
{
    return QStringLiteral("The database is in use by another user. Try again in a moment. (%1)")
        .arg(words(reason));
}

const QString conflict =
    QStringLiteral("The record has been changed or removed by another user since it was read. "
                   "Nothing was saved. Open it again and repeat the change.");

/// Rows with something of every kind in them.
void fillVouchers(const TestCompany& company, int rows)
{
    company.Run(QStringLiteral(
                    "with recursive n(i) as (select 1 union all select i+1 from n where i<%1) "
                    "insert into RecoveryBody select i/50, date('2026-01-01', (i%365) || ' days'), "
                    "'Kot ' || i, case when i%7=0 then null else 'کارڈ ' || i end, i, "
                    "case when i%3=0 then i else i/4.0 end from n")
                    .arg(rows));
}

} // namespace

TEST_F(OnHost, IsAskedNothingBeforeTheFirstStatement)
{
    EXPECT_EQ(host_->Calls(), 0);
    EXPECT_EQ(connection_->Execute("select * from Staff").RecordCount(), 7);
    EXPECT_EQ(host_->Calls(), 1);
}

TEST_F(OnHost, WhatIsNoConnectionFailsAtTheFirstStatement)
{
    const auto none = Connection::OpenHost(nullptr);
    EXPECT_EQ(failureOf([&] { none->Execute("select 1"); }), words("Object variable not set."));
    class Thing : public HostObject {};
    const auto other = Connection::OpenHost(Handed(new Thing).ToDispatch().Raw());
    EXPECT_EQ(failureOf([&] { other->Execute("select 1"); }),
              words("The object has no member 'Execute'."));
    EXPECT_EQ(other->Errors().Count(), 1);
    EXPECT_FALSE(other->InTransaction());
}

TEST_F(OnHost, ASecondStatementNeverReachesTheServer)
{
    EXPECT_EQ(failureOf([&] { connection_->Execute("select 1 delete from Sectors"); }),
              words("Only one statement can be run at a time: there is more after its end."));
    EXPECT_EQ(host_->Calls(), 0);
}

TEST_F(OnHost, ReferencesAreAllGivenBack)
{
    const int alive = HostObject::Alive();
    {
        const Recordset rows = connection_->Execute("select * from Staff");
        Recordset sectors = open("select * from Sectors");
        sectors.Fields("SectorName").SetValue(words("x"));
        sectors.UpdateBatch();
        Reading reading(Statement("select * from Products"), connection_);
        reading.ReadOn(2);
        EXPECT_THROW(connection_->Execute("select * from Nowhere"), ProviderFailure);
        EXPECT_EQ(HostObject::Alive(), alive + 1) << "what is being read";
    }
    EXPECT_EQ(HostObject::Alive(), alive);
    // The connection is the host's, whichever of the two lets it go first.
    lent_ = Dispatch();
    EXPECT_EQ(HostObject::Alive(), alive);
    EXPECT_EQ(connection_->Execute("select * from Staff").RecordCount(), 7);
    connection_.reset();
    EXPECT_EQ(HostObject::Alive(), alive - 1);
}

TEST_F(OnHost, LeavesTheHostsConnectionOpen)
{
    connection_->Execute("select 1");
    connection_.reset();
    EXPECT_EQ(lent_.Call("Execute", words("select 1 as n")).ToDispatch().Get("State").ToInt32(), 1);
}

TEST_F(OnHost, ReadsNoRowOneRowAndManyInBlocks)
{
    const auto embedded = company_.Connect();
    const auto compare = [&](const char* statement, int count) {
        const Recordset rows = connection_->Execute(statement);
        const Recordset same = embedded->Execute(statement);
        ASSERT_EQ(rows.RecordCount(), count);
        ASSERT_EQ(same.RecordCount(), count);
        for (int row = 0; row < count; ++row)
            for (int field = 0; field < rows.FieldCount(); ++field)
                ASSERT_EQ(rows.ValueAt(row, field), same.ValueAt(row, field))
                    << row << ' ' << rows.FieldName(field).toStdString();
    };
    compare("select * from RecoveryBody", 0);
    fillVouchers(company_, 100000);
    compare("select * from RecoveryBody where ReceiptNo=1", 1);
    compare("select * from RecoveryBody", 100000);
    compare("select Amount from RecoveryBody where ReceiptNo<=4096", 4096);
    compare("select Amount from RecoveryBody where ReceiptNo<=4097", 4097);
}

TEST_F(OnHost, GivesALongListInPiecesAndRunsOthersMeanwhile)
{
    fillVouchers(company_, 5000);
    Reading reading(Statement("select * from RecoveryBody"), connection_);
    EXPECT_FALSE(reading.ReadOn(10));
    EXPECT_EQ(reading.RowCount(), 10);
    connection_->Execute("delete from Sectors where SectorID=1");
    EXPECT_EQ(connection_->Execute("select * from Sectors").RecordCount(), 2);
    EXPECT_FALSE(reading.ReadOn(4000));
    EXPECT_EQ(reading.Work(), 4010);
    EXPECT_TRUE(reading.ReadOn(4000));
    const Recordset rows = reading.Take();
    EXPECT_EQ(rows.RecordCount(), 5000);
    EXPECT_EQ(rows.ValueAt(4999, 4), QVariant(5000));

    Reading none(Statement("delete from Sectors"), connection_);
    EXPECT_TRUE(none.ReadOn(1));
    EXPECT_EQ(none.RowCount(), 0);
}

TEST_F(OnHost, AConnectionThatBreaksOffInMidReadSaysSo)
{
    fillVouchers(company_, 5000);
    host_->CutLineAfterBlocks(3);
    EXPECT_EQ(failureOf([&] { connection_->Execute("select * from RecoveryBody"); }),
              lost(HostConnection::LostReason));
    ASSERT_EQ(connection_->Errors().Count(), 1);
    EXPECT_EQ(connection_->Errors().Item(0).Number, 11);
    EXPECT_EQ(failureOf([&] { connection_->Execute("select 1"); }),
              lost(HostConnection::LostReason));
}

TEST_F(OnHost, AConnectionThatBreaksOffTakesTheTransactionWithIt)
{
    connection_->BeginTrans();
    connection_->Execute("delete from Sectors");
    host_->CutLine();
    EXPECT_EQ(failureOf([&] { connection_->Execute("delete from Staff"); }),
              lost(HostConnection::LostReason));
    EXPECT_FALSE(connection_->InTransaction());
    EXPECT_TRUE(
        failureOf([&] { connection_->CommitTrans(); }).contains(words("Nothing of it was saved")));
    EXPECT_NO_THROW(connection_->RollbackTrans());
}

TEST_F(OnHost, AConnectionThatBreaksOffInTheCommitLeavesItOpenWhetherItWasSaved)
{
    connection_->BeginTrans();
    connection_->Execute("delete from Sectors");
    host_->CutLine();
    const QString told = failureOf([&] { connection_->CommitTrans(); });
    EXPECT_TRUE(told.contains(words("It is not known whether it was"))) << told.toStdString();
    EXPECT_FALSE(connection_->InTransaction());
    EXPECT_NO_THROW(connection_->RollbackTrans());
}

TEST_F(OnHost, TellsAllThatTheServerSaidAndItsNumber)
{
    host_->FailNext({{2627, words("Violation of PRIMARY KEY constraint 'PK'.")},
                     {3621, words("The statement has been terminated.")},
                     {3621, words("The statement has been terminated.")}});
    EXPECT_EQ(failureOf([&] { connection_->Execute("delete from Sectors"); }),
              words("Violation of PRIMARY KEY constraint 'PK'.\n"
                    "The statement has been terminated."));
    EXPECT_EQ(connection_->Errors().Item(0).Number, 2627);
}

TEST_F(OnHost, DoesNotTakeAnOlderListOfErrorsForWhatTheConnectionItselfSays)
{
    EXPECT_THROW(connection_->Execute("select * from Nowhere"), ProviderFailure);
    class ClosedConnection : public HostConnection {
    public:
        explicit ClosedConnection(std::unique_ptr<Engine> engine)
            : HostConnection(std::move(engine))
        {
        }
        void Close()
        {
            Replace(
                L"Execute",
                [](Arguments) -> Variant {
                    throw HostFailure{words("Operation is not allowed when the object is closed."),
                                      qint32(0x800A0E78)};
                });
        }
    };
    auto* closed = new ClosedConnection(OpenCompanyFile(company_.File()));
    const Dispatch held = Handed(closed).ToDispatch();
    const auto connection = Connection::OpenHost(held.Raw());
    EXPECT_EQ(failureOf([&] { connection->Execute("select * from Nowhere"); }),
              words("no such table: Nowhere"));
    closed->Close();
    EXPECT_EQ(failureOf([&] { connection->Execute("select 1"); }),
              lost(words("Operation is not allowed when the object is closed.")));
    EXPECT_EQ(connection->Errors().Item(0).Number, qint32(0x800A0E78));
}

TEST_F(OnHost, SaysThatTheDatabaseIsInUse)
{
    host_->FailNext({{1222, words("Lock request time out period exceeded.")}});
    EXPECT_EQ(failureOf([&] { connection_->Execute("delete from Sectors"); }),
              inUse("Lock request time out period exceeded."));
    EXPECT_EQ(connection_->Errors().Item(0).Number, 1222);
}

TEST_F(OnHost, SeesThatTheServerHasUndoneTheTransaction)
{
    connection_->BeginTrans();
    connection_->Execute("delete from Sectors");
    host_->Session().RollbackTrans(); // as it does to one of two who wait for each other
    host_->FailNext({{1205, words("Transaction was deadlocked.")}});
    EXPECT_EQ(failureOf([&] { connection_->Execute("delete from Staff"); }),
              inUse("Transaction was deadlocked."));
    EXPECT_FALSE(connection_->InTransaction());
    EXPECT_NO_THROW(connection_->RollbackTrans());
    EXPECT_NO_THROW(connection_->BeginTrans());
    connection_->RollbackTrans();
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors"), QVariant(3));
}

TEST_F(OnHost, ATransactionOfTheHostsOwnIsNotTakenOver)
{
    host_->Session().BeginTrans();
    lent_.Call("Execute", words("update Sectors set SectorName='theirs' where SectorID=3"));
    EXPECT_EQ(failureOf([&] { connection_->BeginTrans(); }),
              words("The program has begun a transaction of its own on this connection and has not "
                    "ended it. (A transaction is open already.)"));
    EXPECT_FALSE(connection_->InTransaction());

    // What is written alone is written within it, and undoes no more than itself.
    Recordset sectors = open("select * from Sectors order by SectorID");
    sectors.Fields("SectorName").SetValue(words("within"));
    sectors.UpdateBatch();
    sectors.AddNew();
    sectors.Fields("SectorID").SetValue(9);
    sectors.Fields("SectorName").SetValue(words("new"));
    sectors.AddNew();
    sectors.Fields("SectorID").SetValue(2); // is taken
    sectors.Fields("SectorName").SetValue(words("again"));
    EXPECT_THROW(sectors.UpdateBatch(), ProviderFailure);
    const Recordset read = connection_->Execute("select * from Sectors order by SectorID");
    EXPECT_EQ(read.RecordCount(), 3);
    EXPECT_EQ(read.Value("SectorName"), words("within"));
    EXPECT_EQ(company_.Scalar("select SectorName from Sectors where SectorID=1"),
              words("سیکٹر الف"))
        << "it is the host's to commit";
    host_->Session().CommitTrans();
    EXPECT_EQ(company_.Scalar("select SectorName from Sectors where SectorID=1"), words("within"));
    EXPECT_EQ(company_.Scalar("select SectorName from Sectors where SectorID=3"), words("theirs"));
}

TEST_F(OnHost, SendsTheRowsOfABatchTogether)
{
    Recordset rows = open("Select * from GatePassBody where GatePassID=7");
    const auto add = [&](int product) {
        rows.AddNew();
        rows.Fields("GatePassID").SetValue(7);
        rows.Fields("ProductID").SetValue(QString::number(product));
        for (const char* column : {"OutNewProducts", "ReturnOldProducts", "ReturnNewProducts"})
            rows.Fields(column).SetValue(product / 4.0);
    };
    for (int product = 0; product < 100; ++product)
        add(product);
    // Begin, its lock, the rows, commit.
    EXPECT_EQ(callsFor([&] {
                  connection_->BeginTrans();
                  rows.UpdateBatch();
                  connection_->CommitTrans();
              }),
              5)
        << "and the mark";
    EXPECT_EQ(company_.Scalar("select sum(OutNewProducts) from GatePassBody"),
              QVariant(99 * 100 / 2 / 4.0));

    for (int row = 0; row < 100; ++row) {
        rows.MoveToPosition(row);
        rows.Fields("GatePassID").SetValue(8);
    }
    rows.MoveToPosition(50);
    rows.Delete();
    EXPECT_EQ(callsFor([&] { rows.UpdateBatch(); }), 5) << "the query for a transaction, too";
    EXPECT_EQ(company_.Scalar("select count(*) from GatePassBody where GatePassID=8"),
              QVariant(99));
}

TEST_F(OnHost, SendsNoMoreAtOnceThanCanBeReadAtOnce)
{
    Recordset rows = open("Select * from GatePassBody where GatePassID=7");
    for (int product = 0; product < 300; ++product) {
        rows.AddNew();
        rows.Fields("GatePassID").SetValue(7);
        rows.Fields("ProductID").SetValue(QString::number(product));
        for (const char* column : {"OutNewProducts", "ReturnOldProducts", "ReturnNewProducts"})
            rows.Fields(column).SetValue(product);
    }
    host_->ForgetStatements();
    rows.UpdateBatch();
    const QStringList batches =
        host_->Statements().filter(QStringLiteral("exec sp_executesql N'set nocount on;"));
    EXPECT_EQ(batches.size(), 3);
    EXPECT_EQ(company_.Scalar("select count(*) from GatePassBody"), QVariant(300));
}

TEST_F(OnHost, ARowOfABatchFailsAsItWouldAlone)
{
    Recordset sectors = open("select * from Sectors order by SectorID");
    const auto add = [&](int number) {
        sectors.AddNew();
        sectors.Fields("SectorID").SetValue(number);
        sectors.Fields("SectorName").SetValue(words("x"));
    };
    add(10);
    add(2); // is taken
    add(11);
    EXPECT_EQ(failureOf([&] { sectors.UpdateBatch(); }),
              words("A record with the same key exists already (Sectors.SectorID)."));
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors"), QVariant(3));
    EXPECT_FALSE(connection_->InTransaction());
}

TEST_F(OnHost, ARowOfABatchThatIsNotFoundRefusesTheWhole)
{
    Recordset sectors = open("select * from Sectors order by SectorID");
    for (int row = 0; row < 3; ++row) {
        sectors.MoveToPosition(row);
        sectors.Fields("SectorName").SetValue(words("changed"));
    }
    company_.Run("update Sectors set SectorName='theirs' where SectorID=2");
    EXPECT_EQ(failureOf([&] { sectors.UpdateBatch(); }), conflict);
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors where SectorName='changed'"),
              QVariant(0));
}

TEST_F(OnHost, RowsAreCountedWhereTheSessionWasToldNotTo)
{
    host_->Session().SetCounting(false);
    Recordset sectors = open("select * from Sectors order by SectorID", LockType::Pessimistic);
    sectors.Fields("SectorName").SetValue(words("changed"));
    EXPECT_NO_THROW(sectors.Update());
    company_.Run("update Sectors set SectorName='theirs'");
    sectors.Fields("SectorName").SetValue(words("again"));
    EXPECT_EQ(failureOf([&] { sectors.Update(); }), conflict);
}

TEST_F(OnHost, TextsComeBackAsTheyWereWritten)
{
    const QStringList texts{words("it's"),
                            words("C:\\new\\"),
                            words("a\\\nb\\\r\nc"),
                            words("قصور، ' \" [x] -- /* ; N'y'"),
                            words("0x41"),
                            words("{Name}"),
                            words("varbinary(max) + 'z'"),
                            words(" blanks ")};
    Recordset sectors = open("select * from Sectors where SectorID>=100");
    for (int row = 0; row < texts.size(); ++row) {
        sectors.AddNew();
        sectors.Fields("SectorID").SetValue(100 + row);
        sectors.Fields("SectorName").SetValue(texts[row]);
    }
    sectors.UpdateBatch();
    sectors = open("select * from Sectors where SectorID>=100 order by SectorID");
    ASSERT_EQ(sectors.RecordCount(), texts.size());
    for (int row = 0; row < texts.size(); ++row) {
        EXPECT_EQ(sectors.ValueAt(row, 1), texts[row]);
        sectors.MoveToPosition(row);
        sectors.Fields("SectorID").SetValue(200 + row);
    }
    // They are found again, to the byte.
    sectors.UpdateBatch();
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors where SectorID>=200"),
              QVariant(texts.size()));
}

TEST_F(OnHost, AmountsAreFoundAgainByWhatTheColumnHolds)
{
    Recordset rows = open("Select * from StockInBody where StockID=50");
    for (const double amount : {0.1, 1.0 / 3, 99999999999.9999, -0.0001, 2.0}) {
        rows.AddNew();
        rows.Fields("StockID").SetValue(50);
        rows.Fields("Amount").SetValue(amount);
    }
    rows.UpdateBatch();
    EXPECT_EQ(company_.Rows("select Amount from StockInBody where StockID=50"),
              (QList<QVariantList>{{0.1}, {0.3333}, {99999999999.9999}, {-0.0001}, {2}}));
    for (int row = 0; row < 5; ++row) {
        rows.MoveToPosition(row);
        rows.Fields("Qty").SetValue(row);
    }
    EXPECT_NO_THROW(rows.UpdateBatch());
    EXPECT_EQ(company_.Scalar("select sum(Qty) from StockInBody where StockID=50"), QVariant(10));
}

TEST_F(OnHost, DatesGoInTheServersForm)
{
    Recordset header = open("select * from GatePassHeader where 1=0", LockType::Pessimistic);
    header.AddNew();
    header.Fields("GatePassID").SetValue(1);
    header.Fields("GatePassDate").SetValue(QDate(2026, 2, 3));
    header.Fields("EntryDate").SetValue(QDateTime(QDate(2026, 2, 3), QTime(16, 5, 9)));
    host_->ForgetStatements();
    header.Update();
    const QString sent = host_->Statements().join(u'\n');
    EXPECT_TRUE(sent.contains(words("'20260203'"))) << sent.toStdString();
    EXPECT_TRUE(sent.contains(words("'20260203 16:05:09'"))) << sent.toStdString();
    EXPECT_EQ(company_.Rows("select GatePassDate, EntryDate from GatePassHeader"),
              (QList<QVariantList>{{words("2026-02-03"), words("2026-02-03 16:05:09")}}));

    connection_->Execute(Statement("delete from GatePassHeader where GatePassDate='{Day}'")
                             .Bind("Day", QDate(2026, 2, 3)));
    EXPECT_EQ(company_.Scalar("select count(*) from GatePassHeader"), QVariant(0));
}

TEST_F(OnOlderProvider, ReadsAndFindsDatesThatComeAsTexts)
{
    company_.Run("insert into GatePassHeader (GatePassID, GatePassDate, EntryDate) "
                 "values (1, '2026-02-03', '2026-02-03 16:05:09')");
    Recordset header = open("select * from GatePassHeader", LockType::Pessimistic);
    EXPECT_EQ(header.Value("GatePassDate"), QVariant(QDate(2026, 2, 3)));
    EXPECT_EQ(header.Value("EntryDate").toDateTime(),
              QDateTime(QDate(2026, 2, 3), QTime(16, 5, 9)));
    header.Fields("BranchCode").SetValue(2);
    EXPECT_NO_THROW(header.Update());
    // Of several tables, too.
    const Recordset joined = connection_->Execute(
        "select h.GatePassDate, max(h.EntryDate) as Latest from GatePassHeader h left outer join "
        "Areas a on a.AreaCode=h.AreaCode group by h.GatePassDate");
    EXPECT_EQ(joined.Value("GatePassDate"), QVariant(QDate(2026, 2, 3)));
    EXPECT_EQ(joined.Value("Latest").toDateTime(), QDateTime(QDate(2026, 2, 3), QTime(16, 5, 9)));
}

TEST_F(OnHost, ATableThatIsNotOfTheCompanyIsWrittenByAllItsColumns)
{
    company_.Run("create table Notes (No INTEGER PRIMARY KEY, Words TEXT COLLATE CI);"
                 "insert into Notes values (1, 'one'), (2, 'two')");
    Recordset notes = open("select * from Notes order by No");
    notes.Fields("Words").SetValue(words("ONE"));
    notes.UpdateBatch();
    EXPECT_EQ(company_.Scalar("select Words from Notes where No=1"), words("ONE"));
    company_.Run("update Notes set Words='Two' where No=2");
    notes.MoveToPosition(1);
    notes.Delete();
    EXPECT_EQ(failureOf([&] { notes.UpdateBatch(); }), conflict);
}
