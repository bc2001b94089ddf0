#include "data/QueryPlans.h"
#include "data/EngineAccess.h"

#include "data/Connection.h"
#include "data/Recordset.h"
#include "data/sqlite/Adapter.h"
#include "data/sqlite/SqliteEngine.h"
#include "support/LibraryStatements.h"
#include "support/TestCompany.h"

#include <gmock/gmock.h>

#include <QSet>

using namespace TradeForms;

namespace {

/// A statement for which a full scan of a voucher table is accepted.
struct Exception {
    const char* Part; ///< a part of its text
    const char* Table;
    const char* Reason;
    bool ReadsIndexAlone; ///< a covering index
};

// SQLite computes the sums of all vouchers before it joins them to the headers of the wanted dates,
// since it cannot push the join into a grouped subquery. It reads a covering index instead of the
// rows.
constexpr const char* groupedBeforeJoined = "the sums are made before the join";

constexpr Exception exceptions[] = {
    {"FROM GatePassBody GROUP BY GatePassID", "GatePassBody", groupedBeforeJoined, true},
    {"FROM InsCustomerBody GROUP BY InsCustomerBody.InsCustomerID", "InsCustomerBody",
     groupedBeforeJoined, true},
    {"FROM RecoveryBody GROUP BY VoucherID", "RecoveryBody", groupedBeforeJoined, true},
    {"FROM ConcessionBody GROUP BY VoucherID", "ConcessionBody", groupedBeforeJoined, true},
    {"FROM ReturnBody GROUP BY VoucherID", "ReturnBody", groupedBeforeJoined, true},
    {"FROM WorkShopPartsBody GROUP BY VoucherID", "WorkShopPartsBody", groupedBeforeJoined, true},
    {"from FrenchiserSalaryBody group by staffid", "FrenchiserSalaryBody", groupedBeforeJoined,
     true},
    {"from WorkShopSalaryBody group by staffid", "WorkShopSalaryBody", groupedBeforeJoined, true},
    {"where left(frominscustomerid,PATINDEX('% %',frominscustomerid)-1) = ", "ConvertArea",
     "an index on the parts of the key would need functions that no other program has", false},
    {"SELECT AreaCode, InsCustomerID, CardNo, Name, FName, PAddress FROM InsCustomerHeader where "
     "1=1",
     "InsCustomerHeader", "asks for the accounts of all areas", false},
    {"select * from FrenchiserSalaryBody", "FrenchiserSalaryBody",
     "asks for all rows, to add to them", false},
    {"select * from WorkShopSalaryBody", "WorkShopSalaryBody", "asks for all rows, to add to them",
     false},
};

const Exception* exceptionFor(const QString& statement, const QStringList& tables)
{
    for (const Exception& exception : exceptions)
        if (statement.contains(QString::fromUtf8(exception.Part)) &&
            tables == QStringList(QString::fromUtf8(exception.Table)))
            return &exception;
    return nullptr;
}

QStringList libraryStatements()
{
    return tests::LibraryStatements(QStringLiteral(SOURCE_DIR));
}

class QueryPlans : public testing::Test {
protected:
    sqlite3* handle() const
    {
        return static_cast<SqliteEngine&>(EngineAccess::Of(*connection_)).Raw();
    }

    QStringList scanned(const char* statement) const
    {
        return ScannedVoucherTables(handle(), AdaptStatement(statement).Text);
    }

    TestCompany company_;
    std::shared_ptr<Connection> connection_ = company_.Connect();
};

} // namespace

TEST_F(QueryPlans, NoStatementReadsAVoucherTableFromEndToEndWhereAnIndexCanServe)
{
    int examined = 0;
    QSet<const Exception*> used;
    for (const QString& statement : libraryStatements()) {
        const AdaptedStatement adapted = AdaptStatement(statement.toUtf8());
        if (adapted.Procedure)
            continue;
        ++examined;
        const QStringList tables = ScannedVoucherTables(handle(), adapted.Text);
        if (tables.isEmpty())
            continue;
        const Exception* exception = exceptionFor(statement, tables);
        EXPECT_TRUE(exception) << "Reads all of " << tables.join(u' ').toStdString() << "\n  in "
                               << statement.toStdString();
        if (!exception)
            continue;
        EXPECT_EQ(ReadsIndexAlone(handle(), adapted.Text, tables.first()),
                  exception->ReadsIndexAlone)
            << exception->Reason << "\n  in " << statement.toStdString();
        used.insert(exception);
    }
    EXPECT_GT(examined, 200);
    EXPECT_EQ(used.size(), qsizetype(std::size(exceptions))) << "an exception is not needed";
}

TEST_F(QueryPlans, TheListOfReceiptsBeginsWithTheVouchersOfItsDates)
{
    int examined = 0;
    for (const QString& statement : libraryStatements()) {
        if (!statement.contains(QStringLiteral("Order By RecoveryHeader.VoucherID")) ||
            statement.contains(QStringLiteral("RecoveryHeader.voucherID =")))
            continue;
        ++examined;
        const QStringList plan = PlanOf(handle(), AdaptStatement(statement.toUtf8()).Text);
        EXPECT_THAT(plan.value(0).toStdString(),
                    testing::AllOf(testing::StartsWith("SEARCH RecoveryHeader USING"),
                                   testing::HasSubstr("VoucherDate>? AND VoucherDate<?")))
            << plan.join(u'\n').toStdString() << "\n  in " << statement.toStdString();
    }
    EXPECT_GE(examined, 3);
}

TEST_F(QueryPlans, StatisticsThatAToolHasLeftDoNoHarm)
{
    company_.Run("begin;"
                 "with recursive n(i) as (select 1 union all select i + 1 from n where i < 2000)"
                 " insert into RecoveryHeader (VoucherID, VoucherDate, AreaCode)"
                 " select i, date('2020-01-01', i || ' days'), 'Kot' from n;"
                 "with recursive n(i) as (select 1 union all select i + 1 from n where i < 50)"
                 " insert into RecoveryBody (VoucherID, VoucherDate, InsCustomerID, Amount)"
                 " select VoucherID, VoucherDate, 'Kot ' || i, 500 from RecoveryHeader, n;"
                 "commit; analyze");
    const auto opened = company_.Connect();
    sqlite3* handle = static_cast<SqliteEngine&>(EngineAccess::Of(*opened)).Raw();
    int examined = 0;
    for (const QString& statement : libraryStatements()) {
        if (!statement.contains(QStringLiteral("Order By RecoveryHeader.VoucherID")))
            continue;
        ++examined;
        EXPECT_FALSE(ScannedVoucherTables(handle, AdaptStatement(statement.toUtf8()).Text)
                         .contains(QStringLiteral("RecoveryBody")))
            << statement.toStdString();
    }
    EXPECT_GE(examined, 4);
}

TEST_F(QueryPlans, FunctionsAndProceduresFindTheirRowsByIndexes)
{
    for (const char* statement :
         {"select dbo.FunCurrentBalance('Kot 1'), dbo.FunGetProduct('Kot 1'), "
          "dbo.FunGetCustomer('E1'), dbo.FunCurrentAdvance('2014')",
          "exec SPInstallmentBalances '2026-01-05'", "exec spRecoveryPrize 'Kot','2026-01-05'"})
        connection_->Execute(statement);
    int read = 0;
    for (const QByteArray& statement : PreparedStatements(handle())) {
        const bool isQuestion = statement.contains("SELECT") || statement.contains("select");
        if (!isQuestion || statement.contains("sqlite_master"))
            continue;
        ++read;
        EXPECT_EQ(ScannedVoucherTables(handle(), statement), QStringList())
            << statement.toStdString();
    }
    EXPECT_GE(read, 7);
}

TEST_F(QueryPlans, SavedRowsAreFoundByIndexes)
{
    company_.Run("insert into RecoveryHeader (VoucherID, VoucherDate) values (1, '2026-01-05');"
                 "insert into RecoveryBody values (1, '2026-01-05', 'Kot 1', '1', 1, 500),"
                 " (1, '2026-01-05', 'Kot 2', '2', 2, 500)");
    Recordset rows;
    rows.Open(Statement("Select * from RecoveryBody where VoucherID=1"), connection_,
              CursorType::Static, LockType::BatchOptimistic);
    rows.Fields("Amount").SetValue(700);
    rows.MoveNext();
    rows.Delete();
    rows.UpdateBatch();
    int written = 0;
    for (const QByteArray& statement : PreparedStatements(handle())) {
        if (!statement.startsWith("UPDATE") && !statement.startsWith("DELETE"))
            continue;
        ++written;
        EXPECT_EQ(ScannedVoucherTables(handle(), statement), QStringList())
            << statement.toStdString();
    }
    EXPECT_EQ(written, 2);
}

// Tests of the plan analysis itself.

TEST_F(QueryPlans, AConditionThatNoIndexServesIsFound)
{
    EXPECT_EQ(scanned("select * from RecoveryBody where Amount > 5"),
              QStringList(QStringLiteral("RecoveryBody")));
    EXPECT_EQ(scanned("select * from RecoveryBody b where month(b.VoucherDate) = 1"),
              QStringList(QStringLiteral("RecoveryBody")))
        << "an alias does not hide it, nor does a function around an indexed column";
    EXPECT_EQ(scanned("select count(*) from InsCustomerHeader"),
              QStringList(QStringLiteral("InsCustomerHeader")))
        << "all of an index is as long as all of the table";
    EXPECT_EQ(scanned("delete from ReturnBody where Remarks = 'x'"),
              QStringList(QStringLiteral("ReturnBody")));
    EXPECT_EQ(scanned("select * from vuAccounts a join InsCustomerHeader h on h.City = "
                      "a.AccountName"),
              QStringList(QStringLiteral("InsCustomerHeader")));
}

TEST_F(QueryPlans, AnIndexMadeForOneStatementIsFound)
{
    EXPECT_EQ(scanned("select * from RecoveryHeader h join ConcessionBody c on c.Amount = "
                      "h.UserNo where h.VoucherID = 1 or h.VoucherID = 2"),
              QStringList(QStringLiteral("ConcessionBody")));
}

TEST_F(QueryPlans, MastersAndLargestNumbersPass)
{
    EXPECT_EQ(scanned("SELECT * FROM Sectors"), QStringList());
    EXPECT_EQ(scanned("Select isnull(max(VoucherID),0) from RecoveryHeader"), QStringList());
    EXPECT_EQ(scanned("select * from RecoveryBody where VoucherID = 1 order by Amount"),
              QStringList());
}
