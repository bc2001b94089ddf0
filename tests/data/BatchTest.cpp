#include "data/Connection.h"
#include "data/EngineAccess.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "data/sqlite/SqliteEngine.h"
#include "support/Engines.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

using namespace TradeForms;

namespace {

class Batch : public tests::OnEngine {
protected:
    void SetUp() override
    {
        company_.Run("insert into GatePassBody values (7, '101', 5, 1, 0), (7, '104', 2, 0, 0), "
                     "(7, '210', 9, 0, 3)");
        rows_ = openBody();
    }

    Recordset openBody()
    {
        Recordset rows;
        rows.Open(Statement("Select * from GatePassBody where GatePassID=7"), connection_,
                  CursorType::Static, LockType::BatchOptimistic, -1);
        return rows;
    }

    void add(const char* product, double out)
    {
        rows_.AddNew();
        rows_.Fields("GatePassID").SetValue(7);
        rows_.Fields("ProductID").SetValue(QString::fromUtf8(product));
        rows_.Fields("OutNewProducts").SetValue(out);
    }

    void find(const char* product)
    {
        rows_.SetFilter(
            Statement("GatePassID=7 and ProductID='{P}'").Bind("P", QString::fromUtf8(product)));
    }

    QStringList stored(const char* columns = "ProductID || ' ' || ifnull(OutNewProducts,'-')")
    {
        QStringList read;
        const QString statement = QStringLiteral("select %1 from GatePassBody where GatePassID=7 "
                                                 "order by ProductID, OutNewProducts");
        for (const QVariantList& row : company_.Rows(statement.arg(QString::fromUtf8(columns))))
            read.append(row.first().toString());
        return read;
    }

    QString updateFailure()
    {
        try {
            rows_.UpdateBatch();
        } catch (const ProviderFailure& failure) {
            EXPECT_EQ(connection_->Errors().Count(), 1);
            return failure.Description();
        }
        return QStringLiteral("no failure");
    }

    Recordset rows_;
};

/// Tests that look into the embedded database.
class EmbeddedBatch : public Batch {};

class RandomBatches : public tests::OnEngine {};

const QStringList untouched{QStringLiteral("101 5"), QStringLiteral("104 2"),
                            QStringLiteral("210 9")};
const QString conflict =
    QStringLiteral("The record has been changed or removed by another user since it was read. "
                   "Nothing was saved. Open it again and repeat the change.");

} // namespace

ON_EACH_ENGINE(Batch);
ON_THE_EMBEDDED_ENGINE(EmbeddedBatch);
ON_EACH_ENGINE(RandomBatches);

TEST_P(Batch, WritesNothingBeforeUpdateBatch)
{
    add("233", 4);
    find("101");
    rows_.Fields("OutNewProducts").SetValue(6);
    rows_.Update();
    find("104");
    rows_.Delete();
    rows_.ClearFilter();
    EXPECT_EQ(stored(), untouched);
    EXPECT_TRUE(rows_.HasPendingChanges());

    rows_.UpdateBatch(3);
    EXPECT_EQ(stored(), (QStringList{QStringLiteral("101 6"), QStringLiteral("210 9"),
                                     QStringLiteral("233 4")}));
    EXPECT_FALSE(rows_.HasPendingChanges());
}

TEST_P(Batch, WritesOnlyTheColumnsThatWereSet)
{
    find("210");
    rows_.Fields("OutNewProducts").SetValue(10);
    rows_.ClearFilter();
    rows_.UpdateBatch();
    EXPECT_EQ(stored("ProductID || ' ' || OutNewProducts || ' ' || ReturnNewProducts").last(),
              QStringLiteral("210 10 3"));
}

TEST_P(Batch, FinishesAPendingAdditionWhenMovingFilteringOrWriting)
{
    add("233", 1);
    rows_.MoveFirst();
    EXPECT_EQ(rows_.RecordCount(), 4);
    add("234", 2);
    find("234");
    EXPECT_EQ(rows_.RecordCount(), 1);
    EXPECT_EQ(rows_.Value("OutNewProducts"), QVariant(2.0));
    add("235", 3);
    rows_.UpdateBatch();
    EXPECT_EQ(stored().size(), 6);
}

TEST_P(Batch, ShowsARowThatIsAddedWhileAFilterIsOn)
{
    find("233");
    EXPECT_TRUE(rows_.Bof());
    add("233", 4);
    EXPECT_EQ(rows_.RecordCount(), 1);
    EXPECT_FALSE(rows_.Eof());
    EXPECT_EQ(rows_.Value("ProductID"), QStringLiteral("233"));
    rows_.ClearFilter();
    EXPECT_EQ(rows_.RecordCount(), 4);
    find("101");
    EXPECT_EQ(rows_.RecordCount(), 1);
}

TEST_P(Batch, LeavesOutTheRowThatIsDeleted)
{
    rows_.MoveNext();
    rows_.Delete();
    EXPECT_EQ(rows_.RecordCount(), 2);
    EXPECT_EQ(rows_.Position(), -1);
    EXPECT_FALSE(rows_.Bof());
    EXPECT_FALSE(rows_.Eof());
    EXPECT_THROW(rows_.Value("ProductID"), Failure);
    EXPECT_THROW(rows_.Delete(), Failure);
    rows_.MoveNext();
    EXPECT_EQ(rows_.Value("ProductID"), QStringLiteral("210"));
    rows_.MovePrevious();
    EXPECT_EQ(rows_.Value("ProductID"), QStringLiteral("101"));
}

TEST_P(Batch, StandsBehindTheEndAfterTheLastRowIsDeleted)
{
    rows_.MoveLast();
    rows_.Delete();
    rows_.MoveNext();
    EXPECT_TRUE(rows_.Eof());
    rows_.MoveFirst();
    rows_.Delete();
    rows_.MoveFirst();
    rows_.Delete();
    EXPECT_EQ(rows_.RecordCount(), 0);
    rows_.MoveNext();
    EXPECT_TRUE(rows_.Eof());
    EXPECT_TRUE(rows_.Bof());
    rows_.UpdateBatch();
    EXPECT_TRUE(stored().isEmpty());
}

TEST_P(Batch, NeverWritesARowThatWasAddedAndDeleted)
{
    add("233", 4);
    rows_.Update();
    rows_.Delete();
    add("234", 4);
    rows_.Delete();
    EXPECT_EQ(rows_.RecordCount(), 3);
    EXPECT_FALSE(rows_.HasPendingChanges());
    rows_.UpdateBatch();
    EXPECT_EQ(stored(), untouched);
}

TEST_P(Batch, RestampsEveryRowOfAVoucher)
{
    add("233", 4);
    rows_.ClearFilter();
    const int count = rows_.RecordCount();
    rows_.MoveFirst();
    for (int row = 1; row <= count; ++row) {
        rows_.Fields("GatePassID").SetValue(8);
        rows_.Update();
        rows_.MoveNext();
    }
    EXPECT_TRUE(rows_.Eof());
    rows_.UpdateBatch();
    EXPECT_TRUE(stored().isEmpty());
    EXPECT_EQ(company_.Scalar("select count(*) from GatePassBody where GatePassID=8"), QVariant(4));
}

TEST_P(Batch, TakesWhatWasWrittenForTheOriginalAfterwards)
{
    rows_.Fields("OutNewProducts").SetValue(6);
    EXPECT_EQ(rows_.Fields("OutNewProducts").OriginalValue(), QVariant(5.0));
    rows_.Update();
    EXPECT_EQ(rows_.Fields("OutNewProducts").OriginalValue(), QVariant(5.0));
    rows_.UpdateBatch();
    EXPECT_EQ(rows_.Fields("OutNewProducts").OriginalValue(), QVariant(6.0));

    add("233", 4);
    EXPECT_FALSE(rows_.Fields("OutNewProducts").OriginalValue().isValid());
    rows_.UpdateBatch();
    EXPECT_EQ(rows_.Fields("OutNewProducts").OriginalValue(), QVariant(4.0));

    // The same voucher is saved several times.
    for (int i = 0; i < 3; ++i) {
        rows_.Fields("OutNewProducts").SetValue(10 + i);
        rows_.UpdateBatch();
    }
    find("233");
    rows_.Delete();
    rows_.UpdateBatch();
    EXPECT_EQ(stored(), (QStringList{QStringLiteral("101 6"), QStringLiteral("104 2"),
                                     QStringLiteral("210 9")}));
}

TEST_P(Batch, GivesTheNumberThatTheDatabaseChose)
{
    Recordset lines;
    lines.Open(Statement("Select * from InsCustomerBody where InsCustomerID='Kot 1'"), connection_,
               CursorType::Static, LockType::BatchOptimistic);
    for (const char* product : {"101", "104"}) {
        lines.AddNew();
        lines.Fields("InsCustomerID").SetValue(QStringLiteral("Kot 1"));
        lines.Fields("ProductID").SetValue(QString::fromUtf8(product));
    }
    lines.UpdateBatch();
    EXPECT_EQ(lines.ValueAt(0, 0), QVariant(1));
    EXPECT_EQ(lines.ValueAt(1, 0), QVariant(2));
    lines.Fields("EngineNo").SetValue(QStringLiteral("E-1"));
    lines.UpdateBatch();
    EXPECT_EQ(company_.Scalar("select EngineNo from InsCustomerBody where serialno=2"),
              QStringLiteral("E-1"));
}

TEST_P(Batch, IsRefusedAsAWholeWhereARowWasChangedByAnother)
{
    company_.Run("update GatePassBody set OutNewProducts=50 where ProductID='210'");
    add("233", 4);
    rows_.MoveFirst();
    rows_.Fields("OutNewProducts").SetValue(6);
    rows_.MoveToPosition(2);
    rows_.Fields("OutNewProducts").SetValue(10);
    EXPECT_EQ(updateFailure(), conflict);
    EXPECT_EQ(stored(), (QStringList{QStringLiteral("101 5"), QStringLiteral("104 2"),
                                     QStringLiteral("210 50")}));
    EXPECT_FALSE(connection_->InTransaction());
}

TEST_P(Batch, IsRefusedWhereARowWasRemovedByAnother)
{
    company_.Run("delete from GatePassBody where ProductID='104'");
    rows_.MoveNext();
    rows_.Delete();
    EXPECT_EQ(updateFailure(), conflict);
    rows_.CancelBatch();
    EXPECT_EQ(rows_.RecordCount(), 3);
    find("104");
    rows_.Fields("OutNewProducts").SetValue(1);
    EXPECT_EQ(updateFailure(), conflict);
}

TEST_P(Batch, SeesAChangeOfCaseAsAChange)
{
    company_.Run("insert into ConcessionBody values (1, null, 'Kot 1', '1', 'paid', 5)");
    Recordset body;
    body.Open(Statement("select * from ConcessionBody where VoucherID=1"), connection_,
              CursorType::Static, LockType::BatchOptimistic);
    company_.Run("update ConcessionBody set Remarks='PAID'");
    body.Fields("Amount").SetValue(6);
    EXPECT_THROW(body.UpdateBatch(), ProviderFailure);
    EXPECT_EQ(company_.Scalar("select Amount from ConcessionBody"), QVariant(5));
}

TEST_P(Batch, KeepsItsMarksAfterAFailureSoThatTheUserCanTryAgain)
{
    company_.Run("update GatePassBody set OutNewProducts=50 where ProductID='210'");
    add("233", 4);
    rows_.MoveToPosition(2);
    rows_.Fields("OutNewProducts").SetValue(10);
    EXPECT_EQ(updateFailure(), conflict);
    EXPECT_TRUE(rows_.HasPendingChanges());
    EXPECT_EQ(updateFailure(), conflict);

    company_.Run("update GatePassBody set OutNewProducts=9 where ProductID='210'");
    rows_.UpdateBatch();
    EXPECT_EQ(stored(), (QStringList{QStringLiteral("101 5"), QStringLiteral("104 2"),
                                     QStringLiteral("210 10"), QStringLiteral("233 4")}));
}

TEST_P(Batch, UndoesOnlyItselfWithinATransaction)
{
    connection_->BeginTrans();
    connection_->Execute("insert into GatePassHeader (GatePassID) values (7)");
    add("233", 4);
    rows_.MoveFirst();
    rows_.Fields("OutNewProducts").SetValue(6);
    connection_->Execute("delete from GatePassBody where ProductID='101'");
    EXPECT_EQ(updateFailure(), conflict);
    EXPECT_TRUE(connection_->InTransaction());
    connection_->CommitTrans();
    EXPECT_EQ(company_.Scalar("select count(*) from GatePassHeader"), QVariant(1));
    EXPECT_EQ(stored(), (QStringList{QStringLiteral("104 2"), QStringLiteral("210 9")}));
}

TEST_P(Batch, ComesBackWhenTheTransactionIsRolledBack)
{
    add("233", 4);
    find("104");
    rows_.Delete();
    find("101");
    rows_.Fields("OutNewProducts").SetValue(6);
    rows_.ClearFilter();
    for (int attempt = 0; attempt < 2; ++attempt) {
        connection_->BeginTrans();
        rows_.UpdateBatch();
        EXPECT_FALSE(rows_.HasPendingChanges());
        connection_->RollbackTrans();
        EXPECT_TRUE(rows_.HasPendingChanges());
        EXPECT_EQ(stored(), untouched);
        EXPECT_EQ(rows_.RecordCount(), 3);
    }
    connection_->BeginTrans();
    rows_.UpdateBatch();
    connection_->CommitTrans();
    EXPECT_FALSE(rows_.HasPendingChanges());
    EXPECT_EQ(stored(), (QStringList{QStringLiteral("101 6"), QStringLiteral("210 9"),
                                     QStringLiteral("233 4")}));
}

TEST_P(Batch, OfAClosedRecordsetIsNotMissedByARollback)
{
    connection_->BeginTrans();
    add("233", 4);
    rows_.UpdateBatch();
    rows_.Close();
    EXPECT_NO_THROW(connection_->RollbackTrans());
    EXPECT_EQ(stored(), untouched);
}

TEST_P(Batch, SurvivesAFullDiskInMidSave)
{
    const int pages = connection_->Execute("PRAGMA page_count").ValueAt(0, 0).toInt();
    const auto limit = [&](int count) {
        connection_->Execute(Statement("PRAGMA max_page_count={N}").Bind("N", count));
    };
    connection_->BeginTrans();
    connection_->Execute("insert into GatePassHeader (GatePassID) values (7)");
    for (int i = 0; i < 2000; ++i)
        add(QByteArray::number(1000 + i).constData(), i);
    limit(pages + 5);
    EXPECT_TRUE(updateFailure().contains(isOdbc() ? QStringLiteral("disk is full")
                                                  : QStringLiteral("no room left on the disk")));
    EXPECT_NO_THROW(connection_->RollbackTrans());
    EXPECT_EQ(stored(), untouched);
    EXPECT_EQ(company_.Scalar("select count(*) from GatePassHeader"), QVariant(0));

    limit(1000000);
    connection_->BeginTrans();
    rows_.UpdateBatch();
    connection_->CommitTrans();
    EXPECT_EQ(stored().size(), 2003);
}

TEST_P(EmbeddedBatch, ComesBackWhenTheCommitFails)
{
    sqlite3* handle = static_cast<SqliteEngine&>(EngineAccess::Of(*connection_)).Raw();
    add("233", 4);
    connection_->BeginTrans();
    rows_.UpdateBatch();
    sqlite3_commit_hook(
        handle, [](void*) { return 1; }, nullptr);
    EXPECT_THROW(connection_->CommitTrans(), ProviderFailure);
    EXPECT_EQ(connection_->Errors().Count(), 1);
    sqlite3_commit_hook(handle, nullptr, nullptr);
    EXPECT_NO_THROW(connection_->RollbackTrans());
    EXPECT_EQ(stored(), untouched);

    connection_->BeginTrans();
    rows_.UpdateBatch();
    connection_->CommitTrans();
    EXPECT_EQ(stored().size(), 4);
}

TEST_P(Batch, IsCancelledAsAWhole)
{
    add("233", 4);
    rows_.MoveFirst();
    rows_.Fields("OutNewProducts").SetValue(6);
    rows_.MoveNext();
    rows_.Delete();
    rows_.CancelBatch();
    EXPECT_FALSE(rows_.HasPendingChanges());
    EXPECT_EQ(rows_.RecordCount(), 3);
    EXPECT_EQ(rows_.Value("OutNewProducts"), QVariant(5.0));
    rows_.UpdateBatch();
    EXPECT_EQ(stored(), untouched);
}

TEST_P(Batch, WritesOneOfTwoRowsThatAreAlike)
{
    company_.Run("insert into GatePassBody values (7, '210', 9, 0, 3)");
    rows_ = openBody();
    rows_.MoveToPosition(2);
    rows_.Fields("OutNewProducts").SetValue(1);
    rows_.UpdateBatch();
    EXPECT_EQ(stored(), (QStringList{QStringLiteral("101 5"), QStringLiteral("104 2"),
                                     QStringLiteral("210 1"), QStringLiteral("210 9")}));
    rows_.MoveToPosition(3);
    rows_.Delete();
    rows_.UpdateBatch();
    EXPECT_EQ(stored(), (QStringList{QStringLiteral("101 5"), QStringLiteral("104 2"),
                                     QStringLiteral("210 1")}));
}

TEST_P(Batch, ItsMarksComeBackAsSoonAsTheDatabaseHasEndedTheTransaction)
{
    connection_->BeginTrans();
    add("299", 4);
    rows_.UpdateBatch();
    EXPECT_FALSE(rows_.HasPendingChanges());
    connection_->Execute("rollback");
    EXPECT_THROW(connection_->Execute("select * from Nowhere"), ProviderFailure);
    EXPECT_TRUE(rows_.HasPendingChanges()) << "before anybody rolls back";
    connection_->RollbackTrans();
    rows_.UpdateBatch();
    EXPECT_EQ(stored().last(), QStringLiteral("299 4"));
}

TEST_P(Batch, ThatFailsInATransactionLeavesOnlyWhatWentBefore)
{
    company_.Run("create trigger Stop before insert on GatePassBody when new.ProductID = '299' "
                 "begin select raise(abort, 'no'); end");
    connection_->BeginTrans();
    connection_->Execute("delete from GatePassBody where GatePassID=7 and ProductID='104'");
    add("233", 1);
    add("299", 1);
    EXPECT_THROW(rows_.UpdateBatch(), ProviderFailure);
    EXPECT_TRUE(connection_->InTransaction());
    connection_->CommitTrans();
    EXPECT_EQ(stored(), (QStringList{QStringLiteral("101 5"), QStringLiteral("210 9")}));
}

TEST_P(Batch, DeletesOneOfTwoRowsThatAreAlike)
{
    company_.Run("insert into GatePassBody values (7, '210', 9, 0, 3)");
    rows_ = openBody();
    rows_.MoveToPosition(2);
    rows_.Delete();
    rows_.UpdateBatch();
    EXPECT_EQ(stored(), (QStringList{QStringLiteral("101 5"), QStringLiteral("104 2"),
                                     QStringLiteral("210 9")}));
}

TEST_P(Batch, RefusesToGuessWhereTheColumnsReadDoNotTellRowsApart)
{
    company_.Run("insert into GatePassBody values (7, '101', 5, 2, 0)");
    Recordset some;
    some.Open(Statement("select GatePassID, ProductID, OutNewProducts from GatePassBody"),
              connection_, CursorType::Static, LockType::BatchOptimistic);
    some.Fields("OutNewProducts").SetValue(6);
    EXPECT_THROW(some.UpdateBatch(), ProviderFailure);
    EXPECT_EQ(company_.Scalar("select count(*) from GatePassBody where OutNewProducts=6"),
              QVariant(0));
}

TEST_P(Batch, LetsARowTakeTheKeyThatAnotherGivesUp)
{
    Recordset sectors;
    sectors.Open(Statement("select * from Sectors order by SectorID"), connection_,
                 CursorType::Static, LockType::BatchOptimistic);
    sectors.AddNew();
    sectors.Fields("SectorID").SetValue(1);
    sectors.Fields("SectorName").SetValue(QStringLiteral("new"));
    sectors.MoveFirst();
    sectors.Delete();
    sectors.UpdateBatch();
    EXPECT_EQ(company_.Scalar("select SectorName from Sectors where SectorID=1"),
              QStringLiteral("new"));
}

TEST_P(EmbeddedBatch, FindsItsRowsByAnIndex)
{
    SqliteEngine& engine = static_cast<SqliteEngine&>(EngineAccess::Of(*connection_));
    const auto searches = [&](const char* statement) {
        Recordset plan = connection_->Execute(
            Statement(QStringLiteral("EXPLAIN QUERY PLAN ") + QString::fromUtf8(statement)));
        for (int row = 0; row < plan.RecordCount(); ++row)
            if (plan.ValueAt(row, 3).toString().startsWith(QStringLiteral("SCAN")))
                return false;
        return plan.RecordCount() > 0;
    };
    QList<QByteArray> statements;
    sqlite3_trace_v2(
        engine.Raw(), SQLITE_TRACE_STMT,
        [](unsigned, void* into, void* statement, void* text) {
            // Statements of triggers are traced as comments.
            if (!QByteArray(static_cast<const char*>(text)).startsWith("--"))
                static_cast<QList<QByteArray>*>(into)->append(
                    sqlite3_sql(static_cast<sqlite3_stmt*>(statement)));
            return 0;
        },
        &statements);
    rows_.Fields("OutNewProducts").SetValue(6);
    rows_.MoveNext();
    rows_.Delete();
    rows_.UpdateBatch();
    sqlite3_trace_v2(engine.Raw(), 0, nullptr, nullptr);
    int written = 0;
    for (const QByteArray& statement : std::as_const(statements)) {
        if (statement.startsWith("UPDATE") || statement.startsWith("DELETE")) {
            ++written;
            EXPECT_TRUE(searches(statement.constData())) << statement.toStdString();
        }
    }
    EXPECT_EQ(written, 2);
}

TEST_P(RandomBatches, LeaveInTheTableWhatAPlainModelSays)
{
    std::mt19937 random(2026);
    for (int round = 0; round < 30; ++round) {
        const TestCompany company;
        const auto connection = tests::ConnectThrough(GetParam(), company);
        Recordset rows;
        rows.Open(Statement("Select * from StockInDetailBody where StockID=5"), connection,
                  CursorType::Static, LockType::BatchOptimistic);
        std::map<int, QString> model; // unit number to chassis number
        std::map<int, QString> saved;
        int units = 0;
        const auto anyUnit = [&] {
            auto entry = model.begin();
            std::advance(entry, random() % model.size());
            return entry->first;
        };
        const auto goTo = [&](int unit) {
            rows.SetFilter(Statement("EngineNo='E{N}' and StockID=5").Bind("N", unit));
            ASSERT_EQ(rows.RecordCount(), 1);
        };
        for (int step = 0; step < 60; ++step) {
            const unsigned what = random() % 10;
            if (what < 4 || model.empty()) {
                rows.AddNew();
                rows.Fields("StockID").SetValue(5);
                rows.Fields("EngineNo").SetValue(QStringLiteral("E%1").arg(++units));
                rows.Fields("ChasisNo").SetValue(QStringLiteral("C%1").arg(units));
                model[units] = QStringLiteral("C%1").arg(units);
            } else if (what < 6) {
                const int unit = anyUnit();
                goTo(unit);
                model[unit] = QStringLiteral("C%1-%2").arg(unit).arg(step);
                rows.Fields("ChasisNo").SetValue(model[unit]);
            } else if (what < 8) {
                const int unit = anyUnit();
                goTo(unit);
                rows.Delete();
                model.erase(unit);
            } else if (what == 8) {
                const bool keeps = random() % 3;
                connection->BeginTrans();
                rows.UpdateBatch();
                keeps ? connection->CommitTrans() : connection->RollbackTrans();
                if (keeps)
                    saved = model;
            } else if (random() % 4 == 0) {
                rows.CancelBatch();
                model = saved;
            } else {
                rows.ClearFilter();
            }
            rows.ClearFilter();
            ASSERT_EQ(rows.RecordCount(), int(model.size())) << "round " << round;
        }
        rows.UpdateBatch();
        std::map<int, QString> stored;
        for (const QVariantList& row : company.Rows("select EngineNo, ChasisNo from "
                                                    "StockInDetailBody where StockID=5"))
            stored[row[0].toString().sliced(1).toInt()] = row[1].toString();
        EXPECT_EQ(stored, model) << "round " << round;
    }
}
