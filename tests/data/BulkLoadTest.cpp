#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Recordset.h"

#include <gmock/gmock.h>

#include <QTemporaryDir>

using namespace TradeForms;

namespace {

class BulkLoadTest : public testing::Test {
protected:
    BulkLoadTest()
    {
        connection_ = Connection::Open(file_, Connection::Mode::Create);
        before_ = schema();
    }

    QStringList schema() const
    {
        QStringList objects;
        Recordset rows = connection_->Execute("select type, name, sql from sqlite_master "
                                              "order by type, name");
        for (; !rows.Eof(); rows.MoveNext())
            objects.append(rows.Value("type").toString() + u' ' + rows.Value("name").toString() +
                           u' ' + rows.Value("sql").toString());
        return objects;
    }

    QVariant ask(const char* statement) const
    {
        return connection_->Execute(statement).ValueAt(0, 0);
    }

    /// The message of the failure that an operation raises; empty where it raises none.
    template <class Work> static QString failure(Work work)
    {
        try {
            work();
        } catch (const ProviderFailure& raised) {
            return raised.Description();
        }
        return QString();
    }

    void receive(int pieces)
    {
        Recordset header;
        header.Open(Statement("Select * from StockInHeader where 1=0"), connection_,
                    CursorType::Static, LockType::BatchOptimistic);
        header.AddNew();
        header.Fields("StockID").SetValue(1);
        header.Fields("BranchCode").SetValue(2);
        header.UpdateBatch();
        Recordset body;
        body.Open(Statement("Select * from StockInBody where 1=0"), connection_, CursorType::Static,
                  LockType::BatchOptimistic);
        body.AddNew();
        body.Fields("StockID").SetValue(1);
        body.Fields("ProductID").SetValue(QStringLiteral("101"));
        body.Fields("Qty").SetValue(pieces);
        body.UpdateBatch();
    }

    QTemporaryDir folder_;
    QString file_ = folder_.filePath(QStringLiteral("company.db"));
    std::shared_ptr<Connection> connection_;
    QStringList before_;
};

} // namespace

TEST_F(BulkLoadTest, LeavesTheCompanyAsIfItsRowsHadBeenSavedOneByOne)
{
    connection_->Execute("insert into Products (ProductID, ProductName) values ('101', 'x')");
    connection_->Execute("delete from Products");
    connection_->BeginLoad();
    EXPECT_LT(schema().size(), before_.size()) << "the indexes are put aside";
    connection_->Execute("insert into Products (ProductID, ProductName) values ('101', 'x')");
    receive(7);
    int last = 0;
    int steps = 0;
    connection_->EndLoad([&](int done, int of) {
        EXPECT_EQ(done, ++last);
        steps = of;
    });
    EXPECT_EQ(last, steps);
    EXPECT_GT(steps, 90);
    EXPECT_EQ(schema(), before_);
    EXPECT_EQ(ask("select Stock from vuCurrentStock where ProductID='101' and BranchCode=2"),
              QVariant(7.0));
    EXPECT_EQ(ask("PRAGMA journal_mode"), QVariant(QStringLiteral("wal")));
    EXPECT_EQ(ask("PRAGMA synchronous"), QVariant(2));
    EXPECT_EQ(ask("PRAGMA integrity_check"), QVariant(QStringLiteral("ok")));

    connection_ = Connection::Open(file_);
    EXPECT_EQ(ask("select count(*) from StockInBody"), QVariant(1));
}

TEST_F(BulkLoadTest, KeepsWhatTheHostHasAdded)
{
    connection_->Execute("create index Ours on Products (GroupID)");
    before_ = schema();
    connection_->BeginLoad();
    connection_->EndLoad();
    EXPECT_EQ(schema(), before_);
}

TEST_F(BulkLoadTest, AFileWhoseLoadWasNotEndedHoldsNoCompany)
{
    connection_->BeginLoad();
    receive(1);
    connection_.reset();
    EXPECT_THAT(failure([&] { Connection::Open(file_); }).toStdString(),
                testing::HasSubstr("holds no company"));
}

TEST_F(BulkLoadTest, ACompanyThatHoldsRowsIsRefusedAndKeepsItsIndexes)
{
    receive(1);
    EXPECT_THAT(failure([&] { connection_->BeginLoad(); }).toStdString(),
                testing::HasSubstr("'StockInHeader' holds rows"));
    EXPECT_EQ(schema(), before_);
}

TEST_F(BulkLoadTest, AFailedStatementIsUndoneWithinALoad)
{
    connection_->BeginLoad();
    connection_->BeginTrans();
    receive(1);
    connection_->RollbackTrans();
    EXPECT_EQ(ask("select count(*) from StockInHeader"), QVariant(0));
    receive(2);
    EXPECT_NE(failure([&] { receive(3); }), QString()) << "the key is taken";
    connection_->EndLoad();
    EXPECT_EQ(ask("select count(*) from StockInBody"), QVariant(1));
}

TEST_F(BulkLoadTest, BeginsAndEndsOnceAndOutsideOfATransaction)
{
    EXPECT_NE(failure([&] { connection_->EndLoad(); }), QString());
    connection_->BeginTrans();
    EXPECT_NE(failure([&] { connection_->BeginLoad(); }), QString());
    connection_->RollbackTrans();
    connection_->BeginLoad();
    EXPECT_NE(failure([&] { connection_->BeginLoad(); }), QString());
    connection_->BeginTrans();
    EXPECT_NE(failure([&] { connection_->EndLoad(); }), QString());
    connection_->RollbackTrans();
    connection_->EndLoad();
    EXPECT_EQ(schema(), before_);
}
