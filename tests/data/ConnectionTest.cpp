#include "data/Connection.h"
#include "data/EngineAccess.h"

#include "data/Failure.h"
#include "data/Recordset.h"
#include "data/sqlite/CompanyFile.h"
#include "data/sqlite/SqliteEngine.h"
#include "support/Engines.h"
#include "support/FaultyDisk.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <chrono>
#include <memory>
#include <numeric>
#include <thread>
#include <vector>

using namespace TradeForms;
using namespace std::chrono_literals;

namespace {

QString openFailure(const QString& file, Connection::Mode mode = Connection::Mode::ReadWrite)
{
    try {
        Connection::Open(file, mode);
    } catch (const ProviderFailure& failure) {
        return failure.Description();
    }
    return QStringLiteral("no failure");
}

template <class Operation> QString failureOf(Operation operation)
{
    try {
        operation();
    } catch (const ProviderFailure& failure) {
        return failure.Description();
    }
    return QStringLiteral("no failure");
}

QString shown(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

/// Restores the permissions of a file or folder at the end of a scope.
class WithPermissions {
public:
    WithPermissions(const QString& path, QFile::Permissions permissions)
        : path_(path), before_(QFile::permissions(path))
    {
        QFile::setPermissions(path, permissions);
    }
    ~WithPermissions() { QFile::setPermissions(path_, before_); }

private:
    QString path_;
    QFile::Permissions before_;
};

const QString inUse =
    QStringLiteral("The database is in use by another user. Try again in a moment.");

/// Runs a statement that fails and makes the database roll back by itself, as a full disk does.
void endByFailure(Connection& connection)
{
    connection.Execute("rollback");
    EXPECT_THROW(connection.Execute("select * from Nowhere"), ProviderFailure);
}

class Execute : public tests::OnEngine {};
class Errors : public tests::OnEngine {};
class Transaction : public tests::OnEngine {};

class Lock : public tests::OnEngine {
protected:
    /// Longer than any lock is held, also on a slow machine.
    static constexpr std::chrono::minutes patience{4};
    // The driver returns SQLite's message, which follows the text for the user.
    const QString inUse_ = isOdbc() ? inUse + QStringLiteral(" (database is locked (5))") : inUse;
};

/// A clock that is advanced by pauses only.
class PauseClock : public WaitClock {
public:
    Milliseconds Now() override { return now_; }
    void Sleep(Milliseconds pause) override
    {
        now_ += pause;
        Pauses.push_back(pause);
    }
    std::vector<Milliseconds> Pauses;

private:
    Milliseconds now_ = 1h;
};

class FullDisk : public tests::OnEngine {};
class Caches : public tests::OnEngine {};

} // namespace

ON_EACH_ENGINE(Execute);
ON_EACH_ENGINE(Errors);
ON_EACH_ENGINE(Transaction);
ON_EACH_ENGINE(Lock);
ON_EACH_ENGINE(FullDisk);
ON_EACH_ENGINE(Caches);

TEST(Open, AMissingFileIsNamedAndNotMade)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("قصور.company"));
    EXPECT_EQ(openFailure(file),
              QStringLiteral("The company file '%1' was not found.").arg(shown(file)));
    EXPECT_FALSE(QFile::exists(file));
}

TEST(Open, AFolderIsNoCompany)
{
    const QTemporaryDir folder;
    EXPECT_EQ(openFailure(folder.path()),
              QStringLiteral("'%1' is a folder, not a company file.").arg(shown(folder.path())));
}

TEST(Open, AFileThatIsNoDatabaseIsRefusedAndLeftAlone)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("letter.txt"));
    const QByteArray content = QByteArray("Dear customer, ").repeated(100);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(content);
    file.close();
    EXPECT_EQ(openFailure(path), QStringLiteral("'%1' is not a company file.").arg(shown(path)));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), content);
}

TEST(Open, AnEmptyFileHoldsNoCompany)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("empty.company"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_EQ(openFailure(path), QStringLiteral("'%1' holds no company.").arg(shown(path)));
    EXPECT_EQ(QFileInfo(path).size(), 0);
}

TEST(Open, ADatabaseOfAnotherProgramIsRefusedAndLeftAlone)
{
    const TestCompany company;
    company.Run("PRAGMA journal_mode=DELETE; PRAGMA application_id=12345");
    EXPECT_EQ(openFailure(company.File()),
              QStringLiteral("'%1' belongs to another program.").arg(shown(company.File())));
    EXPECT_EQ(company.Scalar("PRAGMA journal_mode"), QStringLiteral("delete"));
    company.Run("PRAGMA application_id=0");
    EXPECT_EQ(openFailure(company.File()),
              QStringLiteral("'%1' holds no company.").arg(shown(company.File())));
}

TEST(Open, ACompanyOfANewerVersionIsRefused)
{
    const TestCompany company;
    company.Run("PRAGMA user_version=3");
    EXPECT_EQ(openFailure(company.File()),
              QStringLiteral("'%1' was made by a newer version of this program. Install that "
                             "version to open it.")
                  .arg(shown(company.File())));
}

TEST(Open, ACompanyWhoseLastPageBreaksOffIsDamaged)
{
    const TestCompany company;
    const QString copy = company.Folder() + QStringLiteral("/copy.company");
    ASSERT_TRUE(QFile::copy(company.File(), copy));
    EXPECT_EQ(openFailure(copy), QStringLiteral("no failure"));
    ASSERT_TRUE(QFile::resize(copy, QFileInfo(copy).size() + 10));
    EXPECT_EQ(openFailure(copy),
              QStringLiteral("'%1' is damaged: its last page breaks off. Restore it from a backup.")
                  .arg(shown(copy)));
}

TEST(Open, ACompanyWhoseTablesAreNotItsOwnIsDamaged)
{
    const struct {
        const char* Change;
        const char* Damage;
    } cases[] = {
        {"drop table Sectors", "table 'sectors' is not as it was made"},
        {"drop view vuAccounts; create view vuAccounts as select * from Parties",
         "view 'vuaccounts' is not as it was made"},
        {"drop trigger StockMovements_Insert",
         "trigger 'stockmovements_insert' is not as it was made"},
        {"drop index RecoveryBody_InsCustomerID;"
         "create index RecoveryBody_InsCustomerID on RecoveryBody (Amount)",
         "index 'recoverybody_inscustomerid' is not as it was made"},
        {"pragma writable_schema = on; update sqlite_schema set rootpage = (select rootpage from "
         "sqlite_schema where name = 'Parts') where name = 'Sectors'",
         "two of its tables are one"},
    };
    for (const auto& [change, damage] : cases) {
        const TestCompany company;
        company.Run(change);
        EXPECT_EQ(openFailure(company.File()),
                  QStringLiteral("'%1' is damaged: %2. Restore it from a backup.")
                      .arg(shown(company.File()), QLatin1String(damage)))
            << change;
    }
    const TestCompany company;
    company.Run("drop index RecoveryBody_InsCustomerID; alter table Sectors add Note text");
    EXPECT_EQ(openFailure(company.File()), QStringLiteral("no failure"));
}

TEST(Open, AReadOnlyFileIsReportedAtOnceEvenToAnAdministrator)
{
    const TestCompany company;
    const WithPermissions readOnly(company.File(), QFile::ReadOwner | QFile::ReadGroup);
    EXPECT_EQ(openFailure(company.File()),
              QStringLiteral("'%1' is read-only. Nothing could be saved in it.")
                  .arg(shown(company.File())));
}

#ifndef _WIN32 // where no mark keeps files from being made in a folder
TEST(Open, AReadOnlyFolderIsReportedAtOnce)
{
    const TestCompany company;
    const WithPermissions readOnly(company.Folder(), QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_EQ(openFailure(company.File()),
              QStringLiteral("The folder of '%1' is read-only. A company can be kept only where "
                             "files can be written.")
                  .arg(shown(company.File())));
    const QString another = company.Folder() + QStringLiteral("/new.company");
    EXPECT_TRUE(
        openFailure(another, Connection::Mode::Create).contains(QStringLiteral("read-only")));
    EXPECT_FALSE(QFile::exists(another));
}
#endif

TEST(Open, ACompanyThatAnotherHoldsForItselfIsInUse)
{
    const TestCompany company;
    company.Run("PRAGMA locking_mode=EXCLUSIVE; BEGIN IMMEDIATE; COMMIT");
    EXPECT_EQ(failureOf([&] { OpenCompanyFile(company.File(), 50ms); }), inUse);
}

TEST(Create, MakesACompanyThatOpens)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("نئی کمپنی.company"));
    Connection::Open(file, Connection::Mode::Create);
    const auto connection = Connection::Open(file);
    EXPECT_EQ(connection->Execute("select * from InsCustomerHeader").FieldCount(), 47);
}

TEST(Create, RefusesAFileThatExists)
{
    const TestCompany company;
    EXPECT_EQ(openFailure(company.File(), Connection::Mode::Create),
              QStringLiteral("'%1' exists already.").arg(shown(company.File())));
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(3));
}

TEST(Create, NamesAFolderThatIsMissing)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("none/x.company"));
    EXPECT_EQ(openFailure(file, Connection::Mode::Create),
              QStringLiteral("The folder of '%1' was not found.").arg(shown(file)));
}

TEST_P(Execute, KnowsTheRecordCountAtOnce)
{
    EXPECT_EQ(connection_->Execute("select * from Staff").RecordCount(), 7);
    EXPECT_EQ(connection_->Execute("select * from Staff where 1=0").RecordCount(), 0);
}

TEST_P(Execute, GivesAClosedRecordsetForAStatementWithoutRows)
{
    EXPECT_FALSE(connection_->Execute("delete from Sectors").IsOpen());
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors"), QVariant(0));
    const char* procedure = "exec SPInstallmentBalances '2026-01-01'";
    if (isOdbc()) { // SQLite has no procedures: they are the embedded engine's own.
        EXPECT_EQ(failureOf([&] { connection_->Execute(procedure); }),
                  QStringLiteral("near \"exec\": syntax error (1)"));
    } else {
        EXPECT_FALSE(connection_->Execute(procedure).IsOpen());
    }
}

TEST_P(Execute, RefusesACharacterThatWouldEndTheStatement)
{
    const QString text =
        QStringLiteral("delete from Sectors") + QChar(0) + QStringLiteral(" where SectorID=1");
    EXPECT_EQ(failureOf([&] { connection_->Execute(Statement(text)); }),
              QStringLiteral("The statement holds a character that cannot be used."));
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors"), QVariant(3));
}

TEST_P(Execute, GivesAComputedCodeWithTheSignsOfADateAsText)
{
    company_.Run("insert into ConvertArea (FromInsCustomerID, ToInsCustomerID) values "
                 "('Area-12-05 7', '12/05/Area 8')");
    const Recordset rows = connection_->Execute(
        "select left(FromInsCustomerID, PATINDEX('% %', FromInsCustomerID) - 1) as PrevAreaCode, "
        "left(ToInsCustomerID, PATINDEX('% %', ToInsCustomerID) - 1) as NewAreaCode "
        "from ConvertArea");
    EXPECT_EQ(rows.Value("PrevAreaCode"), QVariant(QStringLiteral("Area-12-05")));
    EXPECT_EQ(rows.Value("NewAreaCode"), QVariant(QStringLiteral("12/05/Area")));
}

TEST_P(Execute, FindsNamesInAnyCase)
{
    for (const char* statement :
         {"select * from InsCustomerHeader", "select * from inscustomerheader",
          "select INSCUSTOMERID from INSCUSTOMERHEADER",
          "select insCustomerID from InsCustomerbody", "select * from Salaries",
          "select * from salaries", "select * from WorkShopSalarybODY",
          "select * from WorkShopSalaryBody", "select frominscustomerid from convertArea",
          "select * from ConvertArea", "select * from VuCurrentStock",
          "select * from vucurrentstock", "select dbo.funcurrentbalance('x')",
          "select DBO.FunCurrentBalance('x')"})
        EXPECT_NO_THROW(connection_->Execute(statement)) << statement;
    if (isOdbc())
        return; // which has no procedures
    for (const char* statement :
         {"EXEC spinstallmentbalances '2026-01-01'", "exec SPRECOVERYPRIZE 'Kot','2026-01-01'"})
        EXPECT_NO_THROW(connection_->Execute(statement)) << statement;
}

TEST_P(Errors, StandUntilTheNextOperation)
{
    EXPECT_EQ(connection_->Errors().Count(), 0);
    EXPECT_THROW(connection_->Execute("select * from Nowhere"), ProviderFailure);
    ASSERT_EQ(connection_->Errors().Count(), 1);
    // The driver appends SQLite's error number to the message.
    EXPECT_EQ(connection_->Errors().Item(0).Description,
              isOdbc() ? QStringLiteral("no such table: Nowhere (1)")
                       : QStringLiteral("no such table: Nowhere"));
    EXPECT_EQ(connection_->Errors().Item(0).Number, SQLITE_ERROR);

    // Failures that do not come from the database change nothing.
    Recordset staff;
    EXPECT_THROW(staff.Close(), Failure);
    EXPECT_EQ(connection_->Errors().Count(), 1);

    connection_->Execute("select 1");
    EXPECT_EQ(connection_->Errors().Count(), 0);
}

TEST_P(Errors, TellTheUserWhichKeyIsTaken)
{
    const auto expectFailure = [&](const char* statement, const char* embedded, const char* odbc) {
        EXPECT_EQ(failureOf([&] { connection_->Execute(statement); }),
                  QString::fromUtf8(isOdbc() ? odbc : embedded));
    };
    expectFailure("insert into Branches values (1, 'x')",
                  "A record with the same key exists already (Branches.BranchCode).",
                  "UNIQUE constraint failed: Branches.BranchCode (19)");
    // The driver reports the primary error code only.
    EXPECT_EQ(connection_->Errors().Item(0).Number,
              isOdbc() ? SQLITE_CONSTRAINT : SQLITE_CONSTRAINT_PRIMARYKEY);
    expectFailure("insert into Areas values ('KOT ','',1,1,1)",
                  "A record with the same key exists already (Areas.AreaCode).",
                  "UNIQUE constraint failed: Areas.AreaCode (19)");
    expectFailure("insert into Parties values (null, 'x')",
                  "A value is missing (Parties.PartyCode).",
                  "NOT NULL constraint failed: Parties.PartyCode (19)");
}

TEST_P(Transaction, CommitsAndRollsBack)
{
    EXPECT_FALSE(connection_->InTransaction());
    connection_->BeginTrans();
    EXPECT_TRUE(connection_->InTransaction());
    connection_->Execute("delete from Sectors");
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors"), QVariant(3));
    connection_->RollbackTrans();
    EXPECT_FALSE(connection_->InTransaction());
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors"), QVariant(3));

    connection_->BeginTrans();
    connection_->Execute("delete from Sectors");
    connection_->CommitTrans();
    EXPECT_FALSE(connection_->InTransaction());
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors"), QVariant(0));
}

TEST_P(Transaction, DoesNotNest)
{
    connection_->BeginTrans();
    connection_->Execute("delete from Sectors");
    EXPECT_EQ(failureOf([&] { connection_->BeginTrans(); }),
              QStringLiteral("A transaction is open already."));
    EXPECT_EQ(connection_->Errors().Count(), 1);
    EXPECT_TRUE(connection_->InTransaction());
    connection_->CommitTrans();
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors"), QVariant(0));
}

TEST_P(Transaction, MustBeOpenToEnd)
{
    EXPECT_EQ(failureOf([&] { connection_->CommitTrans(); }),
              QStringLiteral("There is no transaction to commit."));
    EXPECT_EQ(failureOf([&] { connection_->RollbackTrans(); }),
              QStringLiteral("There is no transaction to roll back."));
    EXPECT_EQ(connection_->Errors().Count(), 1);
}

TEST_P(Transaction, ThatTheDatabaseHasEndedIsRolledBackQuietlyOnce)
{
    connection_->BeginTrans();
    connection_->Execute("delete from Sectors");
    endByFailure(*connection_);
    EXPECT_FALSE(connection_->InTransaction());
    EXPECT_TRUE(failureOf([&] {
                    connection_->CommitTrans();
                }).contains(QStringLiteral("Nothing of it was saved")));
    EXPECT_NO_THROW(connection_->RollbackTrans());
    EXPECT_THROW(connection_->RollbackTrans(), ProviderFailure);
    EXPECT_NO_THROW(connection_->BeginTrans());
    connection_->CommitTrans();
}

TEST_P(Transaction, CanBeBegunAnewWhereTheDatabaseHasEndedOne)
{
    connection_->BeginTrans();
    endByFailure(*connection_);
    connection_->BeginTrans();
    EXPECT_TRUE(connection_->InTransaction());
    connection_->RollbackTrans();
    EXPECT_THROW(connection_->RollbackTrans(), ProviderFailure);
}

TEST_P(Lock, IsTakenWhenATransactionBegins)
{
    const auto first = connect();
    const auto second = connect(50ms);
    first->BeginTrans();

    EXPECT_EQ(failureOf([&] { second->BeginTrans(); }), inUse_);
    EXPECT_FALSE(second->InTransaction());
    ASSERT_EQ(second->Errors().Count(), 1);
    EXPECT_EQ(second->Errors().Item(0).Number & 0xFF, SQLITE_BUSY);
    EXPECT_EQ(failureOf([&] { second->Execute("delete from Sectors"); }), inUse_);

    // Reading is still possible.
    EXPECT_EQ(second->Execute("select * from Sectors").RecordCount(), 3);
    first->RollbackTrans();
    EXPECT_NO_THROW(second->BeginTrans());
    second->RollbackTrans();
}

TEST_P(Lock, OfAnotherIsWaitedFor)
{
    {
        FaultyDisk disk;
        const auto first = connect();
        const auto second = connect(patience);
        first->BeginTrans();
        first->Execute("delete from Sectors where SectorID=1");
        disk.WhenSomebodyWaits([&] { first->CommitTrans(); });
        second->BeginTrans();
        EXPECT_FALSE(first->InTransaction()) << "the second had to wait for it";
        second->Execute("delete from Sectors where SectorID=2");
        second->CommitTrans();

        first->BeginTrans();
        disk.WhenSomebodyWaits([&] { first->RollbackTrans(); });
        second->Execute("delete from Sectors where SectorID=3");
        EXPECT_FALSE(first->InTransaction()) << "a statement alone waits as well";
    }
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors"), QVariant(0));
}

TEST(LockWait, LastsAsLongAsSaidInPausesThatGrow)
{
    const TestCompany company;
    const auto first = company.Connect();
    const auto second = company.Connect();
    auto& engine = static_cast<SqliteEngine&>(EngineAccess::Of(*second));
    const auto clock = std::make_shared<PauseClock>();
    engine.SetWaitClock(clock);
    engine.SetLockWait(700ms);
    first->BeginTrans();
    // Each wait starts from zero.
    for (int i = 0; i < 2; ++i) {
        clock->Pauses.clear();
        EXPECT_EQ(failureOf([&] { second->BeginTrans(); }), inUse);
        ASSERT_EQ(std::accumulate(clock->Pauses.begin(), clock->Pauses.end(), 0ms), 700ms);
        EXPECT_EQ(clock->Pauses.front(), 1ms);
        for (std::size_t pause = 0; pause < clock->Pauses.size(); ++pause) {
            EXPECT_GE(clock->Pauses[pause], 1ms);
            EXPECT_LE(clock->Pauses[pause],
                      std::chrono::milliseconds(std::min<int>(pause + 1, 25)));
        }
        EXPECT_GT(*std::max_element(clock->Pauses.begin(), clock->Pauses.end()), 5ms);
    }
    engine.SetLockWait(0ms);
    clock->Pauses.clear();
    EXPECT_EQ(failureOf([&] { second->BeginTrans(); }), inUse);
    EXPECT_TRUE(clock->Pauses.empty());
}

TEST(LockWait, OfAWorkstationIsFiveSeconds)
{
    const TestCompany company;
    const auto first = company.Connect();
    const auto second = company.Connect();
    const auto clock = std::make_shared<PauseClock>();
    static_cast<SqliteEngine&>(EngineAccess::Of(*second)).SetWaitClock(clock);
    first->BeginTrans();
    EXPECT_EQ(failureOf([&] { second->BeginTrans(); }), inUse);
    EXPECT_EQ(std::accumulate(clock->Pauses.begin(), clock->Pauses.end(), 0ms), 5s);
}

TEST_P(Lock, AutocommitWritesOfManyAllArrive)
{
    constexpr int writers = 4;
    constexpr int each = 25;
    std::vector<std::thread> threads;
    for (int writer = 0; writer < writers; ++writer) {
        threads.emplace_back([this, writer] {
            const auto connection = connect(patience);
            for (int i = 0; i < each; ++i)
                connection->Execute(Statement("insert into cheque (staffid, amount) "
                                              "values ('{Staff}', {Amount})")
                                        .Bind("Staff", writer)
                                        .Bind("Amount", i));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(company_.Scalar("select count(*) from cheque"), QVariant(writers * each));
}

TEST_P(FullDisk, EndsASaveWithAClearTextAndNothingWritten)
{
    // So few pages that the disk is full after some of the rows.
    connection_->Execute(
        Statement("PRAGMA max_page_count={Pages}")
            .Bind("Pages", connection_->Execute("PRAGMA page_count").ValueAt(0, 0).toInt() + 8));
    connection_->BeginTrans();
    const QString failure = failureOf([&] {
        for (int i = 0; i < 1000; ++i)
            connection_->Execute(Statement("insert into Sectors values ({Id}, '{Name}')")
                                     .Bind("Id", 100 + i)
                                     .Bind("Name", QString(2000, u'x')));
    });
    EXPECT_EQ(failure, isOdbc() ? QStringLiteral("database or disk is full (13)")
                                : QStringLiteral("There is no room left on the disk for '%1'. The "
                                                 "change was not saved. Make room and try again.")
                                      .arg(shown(company_.File())));
    ASSERT_EQ(connection_->Errors().Count(), 1);
    EXPECT_EQ(connection_->Errors().Item(0).Number, SQLITE_FULL);
    // The end of a failed save calls RollbackTrans, whether the database has rolled back or not.
    EXPECT_NO_THROW(connection_->RollbackTrans());
    EXPECT_FALSE(connection_->InTransaction());
    EXPECT_THROW(connection_->RollbackTrans(), ProviderFailure);
    EXPECT_EQ(company_.Scalar("select count(*) from Sectors"), QVariant(3));
}

TEST_P(Caches, GiveFreshRowsForAStatementRunAgain)
{
    for (int i = 0; i < 600; ++i) {
        const Recordset rows = connection_->Execute(
            Statement("select {N} as n, count(*) as c from Sectors").Bind("N", i % 300));
        ASSERT_EQ(rows.Value("n"), QVariant(i % 300));
        ASSERT_EQ(rows.Value("c"), QVariant(3));
    }
    connection_->Execute("delete from Sectors where SectorID=1");
    EXPECT_EQ(connection_->Execute("select 1 as n, count(*) as c from Sectors").Value("c"),
              QVariant(2));
}
