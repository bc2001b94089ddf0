#include "data/EngineAccess.h"
#include "data/QueryPlans.h"

#include "data/Connection.h"
#include "data/Recordset.h"
#include "data/sqlite/Adapter.h"
#include "data/sqlite/SqliteEngine.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

using namespace TradeForms;

namespace {

/// A company of schema version 1.
class FirstVersion : public testing::Test {
protected:
    FirstVersion()
    {
        sqlite3* handle = nullptr;
        sqlite3_open(file_.toUtf8().constData(), &handle);
        sqlite3_create_collation(
            handle, "CI", SQLITE_UTF8, nullptr,
            [](void*, int firstSize, const void* first, int secondSize, const void* second) {
                return qstrnicmp(static_cast<const char*>(first), firstSize,
                                 static_cast<const char*>(second), secondSize);
            });
        QFile script(QStringLiteral(SOURCE_DIR "/tests/data/company-1.sql"));
        EXPECT_TRUE(script.open(QIODevice::ReadOnly));
        run(handle, "begin;" + script.readAll() + "commit");
        run(handle, "insert into Products (ProductID, ProductName) values ('101', 'x'), "
                    "('102', 'y');"
                    "insert into StockInHeader (StockID, BranchCode) values (1, 1), (2, 2);"
                    "insert into StockInBody (StockID, ProductID, Qty) values (1, '101', 5), "
                    "(1, '102', 4), (2, '101', 2);"
                    "insert into GatePassHeader (GatePassID, BranchCode) values (1, 1);"
                    "insert into GatePassBody values (1, '101', 3, 7, 1);"
                    "insert into GatePassBody values (77, '101', 3, 7, 1);"
                    "create table Ours (Text text);"
                    "create index OursByText on Ours (Text);"
                    "insert into Ours values ('kept')");
        sqlite3_close(handle);
    }

    static void run(sqlite3* handle, const QByteArray& script)
    {
        EXPECT_EQ(sqlite3_exec(handle, script.constData(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(handle);
    }

    static QStringList schema(Connection& connection)
    {
        QStringList objects;
        Recordset rows = connection.Execute("select type, name, sql from sqlite_master "
                                            "where name not like 'Ours%' order by type, name");
        for (; !rows.Eof(); rows.MoveNext())
            objects.append(rows.Value("type").toString() + u' ' + rows.Value("name").toString() +
                           u' ' + rows.Value("sql").toString());
        return objects;
    }

    QTemporaryDir folder_;
    QString file_ = folder_.filePath(QStringLiteral("first.db"));
};

} // namespace

TEST_F(FirstVersion, IsBroughtUpToWhatANewCompanyHas)
{
    const TestCompany fresh;
    const auto wanted = fresh.Connect();
    const auto opened = Connection::Open(file_);
    EXPECT_EQ(schema(*opened), schema(*wanted));
    EXPECT_EQ(opened->Execute("PRAGMA user_version").ValueAt(0, 0),
              wanted->Execute("PRAGMA user_version").ValueAt(0, 0));
    EXPECT_EQ(opened->Execute("PRAGMA integrity_check").ValueAt(0, 0),
              QVariant(QStringLiteral("ok")));
}

TEST_F(FirstVersion, KeepsItsRowsAndWhatTheHostHasAdded)
{
    const auto opened = Connection::Open(file_);
    EXPECT_EQ(opened->Execute("select Text from Ours").ValueAt(0, 0),
              QVariant(QStringLiteral("kept")));
    EXPECT_EQ(opened->Execute("select count(*) from sqlite_master where name = 'OursByText'")
                  .ValueAt(0, 0),
              QVariant(1));
    EXPECT_EQ(opened->Execute("select count(*) from GatePassBody").ValueAt(0, 0), QVariant(2));
}

TEST_F(FirstVersion, KnowsItsStockAndKeepsItFromThenOn)
{
    const auto opened = Connection::Open(file_);
    const auto stock = [&] {
        Recordset rows = opened->Execute("select ProductID, BranchCode, Stock from vuCurrentStock "
                                         "order by ProductID, BranchCode");
        QStringList found;
        for (; !rows.Eof(); rows.MoveNext())
            found.append(QStringLiteral("%1/%2: %3")
                             .arg(rows.Value("ProductID").toString(),
                                  rows.Value("BranchCode").toString(),
                                  rows.Value("Stock").toString()));
        return found.join(u", ");
    };
    EXPECT_EQ(stock(), QStringLiteral("101/1: 3, 101/2: 2, 102/1: 4"));
    opened->Execute("Delete from GatePassBody where GatePassID = 1");
    EXPECT_EQ(stock(), QStringLiteral("101/1: 5, 101/2: 2, 102/1: 4"));
}

TEST_F(FirstVersion, FindsReceiptsByTheDatesOfTheirVouchers)
{
    const auto opened = Connection::Open(file_);
    const QByteArray receipts =
        "select h.VoucherID, Amount from RecoveryHeader h join RecoveryBody b"
        " on h.VoucherID = b.VoucherID join Areas a on h.AreaCode = a.AreaCode"
        " where h.VoucherDate between '2026-01-01' and '2026-01-31' order by h.VoucherID";
    EXPECT_EQ(ScannedVoucherTables(static_cast<SqliteEngine&>(EngineAccess::Of(*opened)).Raw(),
                                   AdaptStatement(receipts).Text),
              QStringList());
}

TEST_F(FirstVersion, IsOpenedAgainWithoutAChange)
{
    const QStringList first = schema(*Connection::Open(file_));
    EXPECT_EQ(schema(*Connection::Open(file_)), first);
}
