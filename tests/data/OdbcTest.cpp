#include "data/Connection.h"
#include "data/EngineAccess.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "data/odbc/OdbcEngine.h"
#include "data/odbc/Parameters.h"
#include "data/odbc/SqlServer.h"
#include "data/server/ServerCells.h"
#include "data/server/ServerFailure.h"
#include "data/server/SimpleSource.h"
#include "data/server/TransactSql.h"
#include "support/CutLine.h"
#include "support/Engines.h"
#include "support/EveryTable.h"
#include "support/LibraryStatements.h"

#include <gtest/gtest.h>

#include <QFile>

#include <dlfcn.h>

using namespace TradeForms;
using tests::ConnectThrough;
using tests::CutLine;
using tests::EngineKind;

namespace {

template <class Operation> std::string failureOf(Operation operation)
{
    try {
        operation();
    } catch (const ProviderFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

/// Enough rows for several blocks, with columns of bounded width only.
void makeBounded(const TestCompany& company)
{
    company.Run("create table Bounded (No INTEGER PRIMARY KEY, Name VARCHAR(20) COLLATE CI, "
                "Amount NUMERIC, Day DATE, Moment DATETIME, Posted BIT);"
                "with recursive n(i) as (select 1 union all select i+1 from n where i<3000) "
                "insert into Bounded select i, case when i%7=0 then null else 'نام ' || i end, "
                "case when i%5=0 then null when i%2=0 then i else i/4.0 end, "
                "date('2026-01-01', i || ' days'), datetime('2026-01-01', i || ' minutes'), i%2 "
                "from n");
}

/// The values of all rows of a statement.
QList<QVariantList> rowsOf(Connection& connection, const QString& statement)
{
    const Recordset rows = connection.Execute(Statement(statement));
    QList<QVariantList> read;
    for (int position = 0; position < rows.RecordCount(); ++position) {
        QVariantList row;
        for (int field = 0; field < rows.FieldCount(); ++field)
            row.append(rows.ValueAt(position, field));
        read.append(row);
    }
    return read;
}

/// ODBC data sources for one test, which the driver manager finds by an environment variable.
class Sources {
public:
    explicit Sources(const QByteArray& text)
    {
        QFile file(folder_.filePath(QStringLiteral("odbc.ini")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        qputenv("ODBCINI", file.fileName().toUtf8());
    }
    ~Sources() { qunsetenv("ODBCINI"); }

private:
    QTemporaryDir folder_;
};

const std::string lost = "The connection to the database was lost. What stands in the windows and "
                         "was not saved is not in the database. When the server can be reached "
                         "again, start the program anew. ";

/// A parameter as it was bound.
struct BoundValue {
    SQLSMALLINT Type = 0;
    SQLSMALLINT SqlType = 0;
    SQLULEN Size = 0;
    qint64 Integer = 0; ///< value of an integer
    QByteArray Bytes;   ///< value of a text
    bool IsNull = false;
};

/// The last parameter that was bound.
BoundValue lastBound;

/// Binds one value. Returns the parameter that the driver received.
BoundValue boundFor(const Cell& cell, const ServerColumn& column)
{
    OdbcLink link(QStringLiteral("Driver=SQLite3;Database=:memory:"));
    const OdbcStatement statement = link.NewStatement();
    Parameters values;
    values.Add(cell, column);
    lastBound = BoundValue();
    values.Bind(link, statement);
    return lastBound;
}

class OdbcConnection : public testing::Test {
protected:
    TestCompany company_;
    std::shared_ptr<Connection> connection_ = ConnectThrough(EngineKind::Odbc, company_);
};

} // namespace

/// Replaces the driver manager's function, records its arguments and calls it.
extern "C" SQLRETURN SQL_API SQLBindParameter(SQLHSTMT statement, SQLUSMALLINT number,
                                              SQLSMALLINT direction, SQLSMALLINT type,
                                              SQLSMALLINT sqlType, SQLULEN size,
                                              SQLSMALLINT decimals, SQLPOINTER value,
                                              SQLLEN valueSize, SQLLEN* length)
{
    static auto* const next =
        reinterpret_cast<decltype(SQLBindParameter)*>(dlsym(RTLD_NEXT, "SQLBindParameter"));
    BoundValue bound{type, sqlType, size, 0, {}, *length == SQL_NULL_DATA};
    if (type == SQL_C_SBIGINT)
        bound.Integer = *static_cast<const SQLBIGINT*>(value);
    else if (type != SQL_C_DOUBLE && !bound.IsNull)
        bound.Bytes = QByteArray(static_cast<const char*>(value), *length);
    lastBound = bound;
    return next(statement, number, direction, type, sqlType, size, decimals, value, valueSize,
                length);
}

TEST(OpenServer, OpensTheCompanyOfADriverOrASource)
{
    const TestCompany company;
    const auto byDriver = Connection::OpenServer(tests::OdbcString(company));
    EXPECT_EQ(byDriver->Execute("select * from Staff").RecordCount(), 7);

    const Sources sources("[Kasur]\nDriver=SQLite3\nDatabase=" + company.File().toUtf8() + "\n");
    const auto bySource = Connection::OpenServer(QStringLiteral("DSN=Kasur"));
    EXPECT_EQ(bySource->Execute("select * from Branches").RecordCount(), 3);
}

TEST(OpenServer, TellsASourceOrADriverThatIsMissingInPlainWords)
{
    EXPECT_EQ(failureOf([] { Connection::OpenServer(QStringLiteral("DSN=Nowhere")); }),
              "The database could not be opened: Data source name not found and no default driver "
              "specified");
    const std::string noDriver =
        failureOf([] { Connection::OpenServer(QStringLiteral("Driver=/no/such/driver.so")); });
    EXPECT_EQ(noDriver.rfind("The database could not be opened: Can't open lib", 0), 0u)
        << noDriver;
}

TEST(OpenServer, RequiresACompanyOfThisVersion)
{
    const TestCompany company;
    const auto failure = [&] {
        return failureOf([&] { Connection::OpenServer(tests::OdbcString(company)); });
    };
    company.Run("PRAGMA user_version=9999");
    EXPECT_EQ(failure(), "The company in this database was made by a newer version of this "
                         "program. Install that version to open it.");
    company.Run("PRAGMA user_version=1");
    EXPECT_EQ(failure(), "The company in this database was made by an older version of this "
                         "program. Run the schema script for the server on it again, which keeps "
                         "its rows.");
    company.Run("PRAGMA user_version=0");
    const std::string none = "This database holds no company, or this login may not read it. Make "
                             "one with the schema script for the server, or ask for the rights.";
    EXPECT_EQ(failure(), none);
    company.Run("PRAGMA user_version=2; PRAGMA application_id=5");
    EXPECT_EQ(failure(), none);
}

TEST_F(OdbcConnection, ReadsBoundedColumnsInBlocksAsTheEmbeddedEngineReadsThem)
{
    makeBounded(company_);
    const auto embedded = company_.Connect();
    for (const char* statement :
         {"select * from Bounded order by No", "select No, Amount from Bounded where No<3",
          "select * from Bounded where 1=0", "select Posted, Day from Bounded order by No desc"}) {
        const QList<QVariantList> rows = rowsOf(*connection_, QString::fromLatin1(statement));
        EXPECT_EQ(rows, rowsOf(*embedded, QString::fromLatin1(statement))) << statement;
    }
    EXPECT_EQ(rowsOf(*connection_, QStringLiteral("select * from Bounded")).size(), 3000);
}

TEST_F(OdbcConnection, ReadsEveryTableAsTheEmbeddedEngineReadsIt)
{
    const TestCompany filled;
    AddHostTables(filled);
    FillEveryTable(filled, 40);
    const auto odbc = ConnectThrough(EngineKind::Odbc, filled);
    const auto embedded = filled.Connect();
    for (const QString& table : TablesOf(filled)) {
        const QString statement = QStringLiteral("select * from %1").arg(table);
        EXPECT_EQ(rowsOf(*odbc, statement), rowsOf(*embedded, statement)) << table.toStdString();
    }
}

TEST_F(OdbcConnection, NeverCutsAValueThatIsLongerThanItsColumn)
{
    company_.Run("create table Narrow (Name VARCHAR(3)); insert into Narrow values ('abcd')");
    EXPECT_EQ(failureOf([&] { connection_->Execute("select * from Narrow"); }),
              "A value is longer than its column was declared to be, and cannot be read whole.");
}

TEST_F(OdbcConnection, ReadsTheColumnsOfAnExpressionByTheirValues)
{
    const Recordset rows = connection_->Execute(
        "select 1 as One, 2.0 as Two, 'x' as Letter, max(Date) as Latest from StockInHeader");
    EXPECT_EQ(rows.Value("One"), QVariant(1LL));
    EXPECT_EQ(rows.Value("Two"), QVariant(2.0));
    EXPECT_EQ(rows.Value("Two").typeId(), QMetaType::Double);
    EXPECT_EQ(rows.Value("Letter"), QVariant(QStringLiteral("x")));
    EXPECT_EQ(rows.Value("Latest"), QVariant(QDate(2025, 12, 1)));
}

TEST_F(OdbcConnection, RefusesASecondStatement)
{
    EXPECT_EQ(failureOf([&] { connection_->Execute("select 1; delete from Sectors"); }),
              "Only one statement can be run at a time: there is more after its end.");
    EXPECT_EQ(connection_->Errors().Count(), 1);
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors"), QVariant(3));
    EXPECT_NO_THROW(connection_->Execute("select ';' as Sign; "));
}

TEST_F(OdbcConnection, TakesALineUnderInATablesNameForNoOtherLetter)
{
    company_.Run("create table Till_1 (No INTEGER PRIMARY KEY, Name TEXT);"
                 "create table TillX1 (Other TEXT)");
    const ServerTable& table =
        static_cast<OdbcEngine&>(EngineAccess::Of(*connection_)).Table(QStringLiteral("Till_1"));
    ASSERT_EQ(table.Columns.size(), 2u);
    EXPECT_TRUE(table.Find(QStringLiteral("name")));
    EXPECT_FALSE(table.Find(QStringLiteral("Other")));
}

TEST_F(OdbcConnection, KeepsATablesColumnsInTheirPlaceWhileAWriterLives)
{
    auto& engine = static_cast<OdbcEngine&>(EngineAccess::Of(*connection_));
    const auto rows = engine.Run(QStringLiteral("select * from Sectors where SectorID = 2"),
                                 Engine::Purpose::Write);
    const std::unique_ptr<RowWriter> writer = engine.WriterFor(rows->SharedMetadata());
    const ServerTable& before = engine.Table(QStringLiteral("Sectors"));
    const QStringList names = engine.TableNames();
    ASSERT_GT(names.size(), 30);
    for (const QString& name : names)
        engine.Table(name);
    EXPECT_EQ(&engine.Table(QStringLiteral("Sectors")), &before);
    EXPECT_EQ(writer->Delete(rows->Row(0)), 1);
    EXPECT_EQ(company_.Scalar("select group_concat(SectorID) from Sectors"), QStringLiteral("1,3"));
}

TEST_F(OdbcConnection, WritesRowsByAUniqueIndexWhereThereIsNoKey)
{
    company_.Run("create table Tills (No INTEGER NOT NULL, Name TEXT COLLATE CI);"
                 "create unique index TillNo on Tills (No);"
                 "insert into Tills values (1, 'a'), (2, 'b')");
    auto& engine = static_cast<OdbcEngine&>(EngineAccess::Of(*connection_));
    EXPECT_EQ(engine.Table(QStringLiteral("Tills")).Keys, QStringList{QStringLiteral("No")});
    EXPECT_EQ(engine.Table(QStringLiteral("GatePassBody")).Keys, QStringList());
    EXPECT_EQ(engine.Table(QStringLiteral("Salaries")).Keys,
              (QStringList{QStringLiteral("StaffID"), QStringLiteral("SalaryMonth")}));
    EXPECT_THROW(engine.Table(QStringLiteral("Nowhere")), ProviderFailure);
    Recordset rows;
    rows.Open(Statement("select * from Tills order by No"), connection_, CursorType::Static,
              LockType::Optimistic);
    rows.Fields("Name").SetValue(QStringLiteral("c"));
    rows.Update();
    EXPECT_EQ(company_.Scalar("select group_concat(Name) from Tills"), QStringLiteral("c,b"));
}

TEST_F(OdbcConnection, ThatBreaksOffEndsInAClearFailureAndKeepsTheRows)
{
    Recordset rows;
    rows.Open(Statement("select * from Sectors order by SectorID"), connection_, CursorType::Static,
              LockType::BatchOptimistic);
    rows.Fields("SectorName").SetValue(QStringLiteral("changed"));
    connection_->BeginTrans();
    connection_->Execute("delete from Parts");
    {
        const CutLine cut;
        EXPECT_EQ(failureOf([&] { rows.UpdateBatch(); }), lost + "(" + CutLine::Reason + ")");
        ASSERT_EQ(connection_->Errors().Count(), 1);
        EXPECT_EQ(connection_->Errors().Item(0).Number, 104);
        EXPECT_FALSE(connection_->InTransaction());
        EXPECT_NO_THROW(connection_->RollbackTrans());
    }
    EXPECT_EQ(rows.Value("SectorName"), QStringLiteral("changed"));
    EXPECT_EQ(rows.RecordCount(), 3);
    EXPECT_TRUE(rows.HasPendingChanges());

    // The network is available again, but the session is lost.
    const std::string again = lost + "(It was lost before.)";
    EXPECT_EQ(failureOf([&] { connection_->Execute("select 1"); }), again);
    EXPECT_EQ(failureOf([&] { connection_->BeginTrans(); }), again);
    EXPECT_FALSE(connection_->InTransaction());
    EXPECT_EQ(failureOf([&] { rows.UpdateBatch(); }), again);
    connection_.reset();
    EXPECT_EQ(company_.Scalar("select count(*) from Parts"), QVariant(3));
}

TEST_F(OdbcConnection, ThatBreaksOffWhileItCommitsLeavesNoOneInFalseCertainty)
{
    connection_->BeginTrans();
    connection_->Execute("delete from Parts");
    const CutLine cut;
    const std::string failure = failureOf([&] { connection_->CommitTrans(); });
    EXPECT_EQ(failure.rfind("The connection to the database was lost while the change was being "
                            "saved. It is not known whether it was: look it up",
                            0),
              0u)
        << failure;
    EXPECT_FALSE(connection_->InTransaction());
    EXPECT_NO_THROW(connection_->RollbackTrans());
}

TEST_F(OdbcConnection, ThatBreaksOffWhileItRollsBackHasRolledBack)
{
    Recordset rows;
    rows.Open(Statement("select * from Sectors order by SectorID"), connection_, CursorType::Static,
              LockType::BatchOptimistic);
    rows.Delete();
    connection_->BeginTrans();
    rows.UpdateBatch();
    EXPECT_FALSE(rows.HasPendingChanges());
    const CutLine cut;
    EXPECT_NO_THROW(connection_->RollbackTrans());
    EXPECT_FALSE(connection_->InTransaction());
    EXPECT_TRUE(rows.HasPendingChanges());
}

TEST(CellOfDecimal, IsWhatTheEmbeddedDatabaseWouldHold)
{
    EXPECT_EQ(CellOfDecimal("1500.0000"), Cell::FromInteger(1500));
    EXPECT_EQ(CellOfDecimal("-12"), Cell::FromInteger(-12));
    EXPECT_EQ(CellOfDecimal(".0000"), Cell::FromInteger(0));
    EXPECT_EQ(CellOfDecimal("-.0000"), Cell::FromInteger(0));
    EXPECT_EQ(CellOfDecimal("0.0000"), Cell::FromInteger(0));
    EXPECT_EQ(CellOfDecimal("99999999999999.0000"), Cell::FromInteger(99999999999999));
    EXPECT_EQ(CellOfDecimal(".5000"), Cell::FromReal(0.5));
    EXPECT_EQ(CellOfDecimal("-.2500"), Cell::FromReal(-0.25));
    EXPECT_EQ(CellOfDecimal("37699.7500"), Cell::FromReal(37699.75));
    EXPECT_EQ(CellOfDecimal("0.3333"), Cell::FromReal(0.3333));
    EXPECT_EQ(CellOfDecimal("99999999999999.9999"), Cell::FromReal(99999999999999.9999));
}

TEST(TableOfSimpleQuery, IsTheOneTableWhoseColumnsAreReadAsTheyAre)
{
    const auto table = [](const char* statement) {
        return TableOfSimpleQuery(QString::fromLatin1(statement)).toStdString();
    };
    EXPECT_EQ(table("Select * from GatePassBody where GatePassID=7"), "GatePassBody");
    EXPECT_EQ(table("select GatePassID, [Order] from [GatePassHeader]"), "GatePassHeader");
    EXPECT_EQ(table("select h.* from dbo.Staff h where h.BranchCode=1 order by h.Name;"), "Staff");
    EXPECT_EQ(table("select * from Staff as s where s.StaffID in (select StaffID from Salaries "
                    "group by StaffID)"),
              "Staff");
    EXPECT_EQ(table("select * from Staff s, Areas a"), "");
    EXPECT_EQ(table("select * from Staff s join Areas a on 1=1"), "");
    EXPECT_EQ(table("select s.*, 1 as One from Staff s"), "");
    EXPECT_EQ(table("select StaffID Code from Staff"), "");
    EXPECT_EQ(table("select distinct Name from Staff"), "");
    EXPECT_EQ(table("select top 1 * from Staff"), "");
    EXPECT_EQ(table("select isnull(Name,'') from Staff"), "");
    EXPECT_EQ(table("select Name from Staff group by Name"), "");
    EXPECT_EQ(table("select Name from Staff where BranchCode=1 group by Name"), "");
    EXPECT_EQ(table("select Name from Staff where BranchCode=1 for xml auto"), "");
    EXPECT_EQ(table("select Name from Staff where 1=1 union select AreaName from Areas"), "");
    EXPECT_EQ(table("select * from (select * from Staff) s"), "");
    EXPECT_EQ(table("delete from Staff"), "");
    EXPECT_EQ(table("select"), "");
    EXPECT_EQ(table("select * from"), "");
}

TEST(OdbcParameters, AreDecimalsOfTheColumnsOwnPlaces)
{
    const ServerColumn amount{QStringLiteral("Amount"), SQL_DECIMAL, 18, 4, true};
    const BoundValue real = boundFor(Cell::FromReal(-1234.5), amount);
    EXPECT_EQ(real.Type, SQL_C_CHAR);
    EXPECT_EQ(real.Bytes.toStdString(), "-1234.5000");
    EXPECT_EQ(boundFor(Cell::FromReal(0.00006), amount).Bytes.toStdString(), "0.0001");
    EXPECT_EQ(boundFor(Cell::FromInteger(7), amount).Bytes.toStdString(), "7");
    EXPECT_TRUE(boundFor(Cell(), amount).IsNull);
}

TEST(OdbcParameters, AreNumbersOfAWidthThatHoldsThem)
{
    const ServerColumn number{QStringLiteral("No"), SQL_INTEGER, 10, 0, false};
    const BoundValue small = boundFor(Cell::FromInteger(-2147483648), number);
    EXPECT_EQ(small.Integer, -2147483648);
    EXPECT_EQ(small.SqlType, SQL_INTEGER);
    for (const std::int64_t large : {2147483648, -2147483649}) {
        const BoundValue wide = boundFor(Cell::FromInteger(large), number);
        EXPECT_EQ(wide.Integer, large);
        EXPECT_EQ(wide.SqlType, SQL_BIGINT);
    }
}

TEST(OdbcParameters, AreTextsOfTheColumnsOwnLength)
{
    const ServerColumn name{QStringLiteral("Name"), SQL_VARCHAR, 50, 0, true};
    const QByteArray text = QByteArray("قصور");
    const BoundValue bound = boundFor(Cell::FromText({text.constData(), 8}), name);
    EXPECT_EQ(bound.Type, SQL_C_WCHAR);
    EXPECT_EQ(bound.SqlType, SQL_WVARCHAR);
    EXPECT_EQ(bound.Size, 50u);
    EXPECT_EQ(QString::fromUtf16(reinterpret_cast<const char16_t*>(bound.Bytes.constData()),
                                 bound.Bytes.size() / 2),
              QStringLiteral("قصور"));
    const std::string longText(4001, 'x');
    EXPECT_EQ(boundFor(Cell::FromText(longText), name).SqlType, SQL_WLONGVARCHAR);
    // A date is sent in the form in which it is stored.
    const ServerColumn day{QStringLiteral("Day"), SQL_TYPE_DATE, 10, 0, true};
    EXPECT_EQ(boundFor(Cell::FromText("2026-03-09"), day).Bytes.toStdString(), "2026-03-09");
}

TEST(SqlServerWords, TellALockThatWasWaitedForInVainByItsNumber)
{
    EXPECT_TRUE(IsLockNumber(1222)) << "the wait was too long";
    EXPECT_TRUE(IsLockNumber(1205)) << "two waited for each other";
    EXPECT_FALSE(IsLockNumber(2627)) << "a key that is taken";
    EXPECT_EQ(InUseText(QStringLiteral("why")),
              QStringLiteral("The database is in use by another user. Try again in a moment. "
                             "(why)"));
}

TEST(SqlServerWords, SetASessionUp)
{
    const QStringList settings = SqlServer().Settings();
    for (const char* setting :
         {"set language us_english", "set dateformat mdy", "set numeric_roundabort off",
          "set xact_abort off", "set nocount off", "set transaction isolation level read committed",
          "set lock_timeout 5000"}) // as long as the embedded engine waits
        EXPECT_TRUE(settings.contains(QLatin1String(setting))) << setting;
    EXPECT_EQ(settings.filter(QStringLiteral("quoted_identifier on")).size(), 1);
}

TEST(SqlServerWords, ReadAsAtOneMomentAndGoBackToTheUsualLevel)
{
    const SqlServer server;
    ASSERT_EQ(server.BeforeReadTransaction().size(), 1);
    EXPECT_TRUE(server.BeforeReadTransaction().constFirst().endsWith(
        QStringLiteral("snapshot_isolation_state = 1) set transaction isolation level snapshot "
                       "else set transaction isolation level serializable")));
    EXPECT_EQ(server.AfterReadTransaction(),
              QStringList{QStringLiteral("set transaction isolation level read committed")});
}

TEST(SqlServerWords, TakeGivenNumbersWhereTheServerNumbersAColumnItself)
{
    const SqlServer server;
    const QString table = QStringLiteral("InsCustomerBody");
    const QStringList columns{QStringLiteral("serialno"), QStringLiteral("It's")};
    const std::string where =
        "if exists (select * from sys.identity_columns where object_id = "
        "object_id(N'dbo.\"InsCustomerBody\"') and name in (N'serialno', N'It''s')) ";
    EXPECT_EQ(server.EnableIdentityInsert(table, columns).toStdString(),
              where + "set identity_insert dbo.\"InsCustomerBody\" on");
    EXPECT_EQ(server.DisableIdentityInsert(table, columns).toStdString(),
              where + "set identity_insert dbo.\"InsCustomerBody\" off");
}

TEST(SqlServerWords, LeaveOutTheTablesThatAreNotTheCompanys)
{
    const SqlServer server;
    for (const char* table : {"SchemaVersion", "schemaversion", "StockLevels", "sysdiagrams"})
        EXPECT_TRUE(server.IsSystemTable(QLatin1String(table))) << table;
    for (const char* table : {"Staff", "Versions", "sqlite_schema"})
        EXPECT_FALSE(server.IsSystemTable(QLatin1String(table))) << table;
}

TEST(SqlServerWords, WriteDatesInTheFormThatNoSettingMisreads)
{
    EXPECT_EQ(Statement("select '{D}', '{M}'")
                  .Bind("D", QDate(2026, 3, 9))
                  .Bind("M", QDateTime(QDate(2026, 3, 9), QTime(14, 5, 6)))
                  .Text(SqlServer().Dialect()),
              QStringLiteral("select '20260309', '20260309 14:05:06'"));
}

TEST(SqlServerWords, RefuseASecondStatementThatNothingPartsFromTheFirst)
{
    const auto isOne = [](const char* statement) {
        try {
            SqlServer().RequireOneStatement(ReadTokens(statement));
            return true;
        } catch (const ProviderFailure&) {
            return false;
        }
    };
    EXPECT_FALSE(isOne("select 1 delete from Staff"));
    EXPECT_FALSE(isOne("select * from Staff where BranchCode=1 DROP table Staff"));
    EXPECT_FALSE(isOne("update Staff set Name='x' exec spRecoveryPrize 'a','b'"));
    EXPECT_FALSE(isOne("exec SPInstallmentBalances '20260101' shutdown"));
    EXPECT_TRUE(isOne("select 'x delete from Staff' as [delete] from Staff -- drop table"));
    EXPECT_TRUE(isOne("insert into inscustomerheader SELECT * FROM Tempinscustomerheader"));
    EXPECT_TRUE(isOne("insert into T exec SomeProcedure"));
    EXPECT_TRUE(isOne("select s.[Use], s.go from Staff s"));
    EXPECT_TRUE(isOne("create procedure p as begin delete from Staff end"));
    const QStringList statements = tests::LibraryStatements(QStringLiteral(SOURCE_DIR));
    for (const QString& statement : statements)
        EXPECT_TRUE(isOne(statement.toUtf8().constData())) << statement.toStdString();
    EXPECT_GT(statements.size(), 200);
}

TEST(SqlServerWords, FindARowByAllThatWasReadOfIt)
{
    const SqlServer server;
    const ServerColumn number{QStringLiteral("No"), SQL_INTEGER, 10, 0, false};
    const ServerColumn text{QStringLiteral("Na\"me"), SQL_VARCHAR, 200, 0, true};
    const ServerColumn amount{QStringLiteral("Amount"), SQL_DECIMAL, 18, 4, true};
    EXPECT_EQ(server.Equals(text).Text.toStdString(), "\"Na\"\"me\" = cast(? as varchar(8000))");
    EXPECT_EQ(server.IsExactly(number).Text.toStdString(), "\"No\" = ?");
    EXPECT_EQ(server.IsExactly(amount).Text.toStdString(),
              "\"Amount\" = cast(? as decimal(18, 4))");
    const Server::Condition exactly = server.IsExactly(text);
    EXPECT_EQ(exactly.Text.toStdString(),
              "\"Na\"\"me\" = cast(? as varchar(8000)) and cast(\"Na\"\"me\" as varbinary(max)) = "
              "cast(cast(? as varchar(8000)) as varbinary(max))");
    EXPECT_EQ(exactly.Values, 2);
}

TEST(SqlServerWords, WriteRows)
{
    const SqlServer server;
    const QString table = QStringLiteral("\"T\"");
    const QString where = QStringLiteral("\"A\" = ?");
    EXPECT_EQ(server.UpdateStatement(table, QStringLiteral("\"B\" = ?"), where, true).toStdString(),
              "update top (1) \"T\" set \"B\" = ? where \"A\" = ?");
    EXPECT_EQ(server.DeleteStatement(table, where, false).toStdString(),
              "delete from \"T\" where \"A\" = ?");
    EXPECT_EQ(server.DeleteStatement(table, where, true).toStdString(),
              "delete top (1) from \"T\" where \"A\" = ?");
    const QStringList given{QStringLiteral("\"A\""), QStringLiteral("\"B\"")};
    const auto insertion = server.InsertStatement(table, given[1], QStringLiteral("?"), given);
    EXPECT_EQ(insertion.Text.toStdString(),
              "insert into \"T\" (\"B\") output inserted.\"A\", inserted.\"B\" values (?)");
    EXPECT_TRUE(insertion.ReadBack.isEmpty());
    EXPECT_EQ(server.InsertStatement(table, QString(), QString(), given).Text.toStdString(),
              "insert into \"T\" output inserted.\"A\", inserted.\"B\" default values");
}

TEST(TransactSqlLiteral, KeepsQuotesAndTheEndsOfLines)
{
    const auto plain = [](const char* text) {
        return TransactSql::Literal(QString::fromUtf8(text)).toStdString();
    };
    EXPECT_EQ(plain(""), "''");
    EXPECT_EQ(plain("قصور"), "'قصور'");
    EXPECT_EQ(plain("it's"), "'it''s'");
    EXPECT_EQ(plain("C:\\a"), "'C:\\a'");
    // The server joins a line that ends in a backslash with the next one.
    EXPECT_EQ(plain("a\\\nb"), "'a\\' + '\nb'");
    EXPECT_EQ(plain("a\\\r\nb"), "'a\\' + '\r\nb'");
    EXPECT_EQ(TransactSql::UnicodeLiteral(QStringLiteral("a\\\nb")).toStdString(),
              "N'a\\' + N'\nb'");
}
