#include "data/Connection.h"

#include "data/Failure.h"
#include "data/Recordset.h"
#include "data/sqlite/CompanyFile.h"
#include "data/sqlite/SqliteEngine.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <thread>

using namespace TradeForms;
using namespace std::chrono_literals;

namespace {

SqliteEngine& engineOf(Connection& connection)
{
    return static_cast<SqliteEngine&>(connection.engine());
}

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

/// Gives a file or a folder its permissions back at the end.
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

} // namespace

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

TEST(Open, AReadOnlyFileIsReportedAtOnceEvenToAnAdministrator)
{
    const TestCompany company;
    const WithPermissions readOnly(company.File(), QFile::ReadOwner | QFile::ReadGroup);
    EXPECT_EQ(openFailure(company.File()),
              QStringLiteral("'%1' is read-only. Nothing could be saved in it.")
                  .arg(shown(company.File())));
}

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

TEST(Execute, KnowsTheRecordCountAtOnce)
{
    const TestCompany company;
    const auto connection = company.Connect();
    EXPECT_EQ(connection->Execute("select * from Staff").RecordCount(), 7);
    EXPECT_EQ(connection->Execute("select * from Staff where 1=0").RecordCount(), 0);
}

TEST(Execute, GivesAClosedRecordsetForAStatementWithoutRows)
{
    const TestCompany company;
    const auto connection = company.Connect();
    EXPECT_FALSE(connection->Execute("delete from Sectors").IsOpen());
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(0));
    EXPECT_FALSE(connection->Execute("exec SPInstallmentBalances '2026-01-01'").IsOpen());
}

TEST(Execute, FindsNamesInAnyCase)
{
    const TestCompany company;
    const auto connection = company.Connect();
    for (const char* statement :
         {"select * from InsCustomerHeader", "select * from inscustomerheader",
          "select INSCUSTOMERID from INSCUSTOMERHEADER",
          "select insCustomerID from InsCustomerbody", "select * from Salaries",
          "select * from salaries", "select * from WorkShopSalarybODY",
          "select * from WorkShopSalaryBody", "select frominscustomerid from convertArea",
          "select * from ConvertArea", "select * from VuCurrentStock",
          "select * from vucurrentstock", "select dbo.funcurrentbalance('x')",
          "select DBO.FunCurrentBalance('x')", "EXEC spinstallmentbalances '2026-01-01'",
          "exec SPRECOVERYPRIZE 'Kot','2026-01-01'"})
        EXPECT_NO_THROW(connection->Execute(statement)) << statement;
}

TEST(Errors, StandUntilTheNextOperation)
{
    const TestCompany company;
    const auto connection = company.Connect();
    EXPECT_EQ(connection->Errors().Count(), 0);
    EXPECT_THROW(connection->Execute("select * from Nowhere"), ProviderFailure);
    ASSERT_EQ(connection->Errors().Count(), 1);
    EXPECT_EQ(connection->Errors().Item(0).Description, QStringLiteral("no such table: Nowhere"));
    EXPECT_EQ(connection->Errors().Item(0).Number, SQLITE_ERROR);

    // What is not the database's failure changes nothing.
    Recordset staff;
    EXPECT_THROW(staff.Close(), Failure);
    EXPECT_EQ(connection->Errors().Count(), 1);

    connection->Execute("select 1");
    EXPECT_EQ(connection->Errors().Count(), 0);
}

TEST(Errors, TellTheUserWhichKeyIsTaken)
{
    const TestCompany company;
    const auto connection = company.Connect();
    EXPECT_EQ(failureOf([&] { connection->Execute("insert into Branches values (1, 'x')"); }),
              QStringLiteral("A record with the same key exists already (Branches.BranchCode)."));
    EXPECT_EQ(connection->Errors().Item(0).Number, SQLITE_CONSTRAINT_PRIMARYKEY);
    EXPECT_EQ(failureOf([&] { connection->Execute("insert into Areas values ('KOT ','',1,1,1)"); }),
              QStringLiteral("A record with the same key exists already (Areas.AreaCode)."));
    EXPECT_EQ(failureOf([&] { connection->Execute("insert into Parties values (null, 'x')"); }),
              QStringLiteral("A value is missing (Parties.PartyCode)."));
}

TEST(Transaction, CommitsAndRollsBack)
{
    const TestCompany company;
    const auto connection = company.Connect();
    EXPECT_FALSE(connection->InTransaction());
    connection->BeginTrans();
    EXPECT_TRUE(connection->InTransaction());
    connection->Execute("delete from Sectors");
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(3));
    connection->RollbackTrans();
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(3));

    connection->BeginTrans();
    connection->Execute("delete from Sectors");
    connection->CommitTrans();
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(0));
}

TEST(Transaction, DoesNotNest)
{
    const TestCompany company;
    const auto connection = company.Connect();
    connection->BeginTrans();
    connection->Execute("delete from Sectors");
    EXPECT_EQ(failureOf([&] { connection->BeginTrans(); }),
              QStringLiteral("A transaction is open already."));
    EXPECT_EQ(connection->Errors().Count(), 1);
    EXPECT_TRUE(connection->InTransaction());
    connection->CommitTrans();
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(0));
}

TEST(Transaction, MustBeOpenToEnd)
{
    const TestCompany company;
    const auto connection = company.Connect();
    EXPECT_EQ(failureOf([&] { connection->CommitTrans(); }),
              QStringLiteral("There is no transaction to commit."));
    EXPECT_EQ(failureOf([&] { connection->RollbackTrans(); }),
              QStringLiteral("There is no transaction to roll back."));
    EXPECT_EQ(connection->Errors().Count(), 1);
}

TEST(Transaction, ThatTheDatabaseHasEndedIsRolledBackQuietlyOnce)
{
    const TestCompany company;
    const auto connection = company.Connect();
    connection->BeginTrans();
    connection->Execute("delete from Sectors");
    // As SQLite does by itself on a full disk.
    sqlite3_exec(engineOf(*connection).Raw(), "ROLLBACK", nullptr, nullptr, nullptr);
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_TRUE(failureOf([&] {
                    connection->CommitTrans();
                }).contains(QStringLiteral("Nothing of it was saved")));
    EXPECT_NO_THROW(connection->RollbackTrans());
    EXPECT_THROW(connection->RollbackTrans(), ProviderFailure);
    EXPECT_NO_THROW(connection->BeginTrans());
    connection->CommitTrans();
}

TEST(Transaction, CanBeBegunAnewWhereTheDatabaseHasEndedOne)
{
    const TestCompany company;
    const auto connection = company.Connect();
    connection->BeginTrans();
    sqlite3_exec(engineOf(*connection).Raw(), "ROLLBACK", nullptr, nullptr, nullptr);
    connection->BeginTrans();
    EXPECT_TRUE(connection->InTransaction());
    connection->RollbackTrans();
    EXPECT_THROW(connection->RollbackTrans(), ProviderFailure);
}

TEST(Lock, IsTakenWhenATransactionBegins)
{
    const TestCompany company;
    const auto first = company.Connect();
    const auto second = company.Connect();
    engineOf(*second).SetLockWait(50ms);
    first->BeginTrans();

    EXPECT_EQ(failureOf([&] { second->BeginTrans(); }), inUse);
    EXPECT_FALSE(second->InTransaction());
    ASSERT_EQ(second->Errors().Count(), 1);
    EXPECT_EQ(second->Errors().Item(0).Number & 0xFF, SQLITE_BUSY);
    EXPECT_EQ(failureOf([&] { second->Execute("delete from Sectors"); }), inUse);

    // Reading goes on.
    EXPECT_EQ(second->Execute("select * from Sectors").RecordCount(), 3);
    first->RollbackTrans();
    EXPECT_NO_THROW(second->BeginTrans());
    second->RollbackTrans();
}

TEST(Lock, OfAnotherIsWaitedFor)
{
    const TestCompany company;
    const auto first = company.Connect();
    first->BeginTrans();
    first->Execute("delete from Sectors where SectorID=1");

    QElapsedTimer waited;
    waited.start();
    std::thread other([&company] {
        const auto second = company.Connect();
        second->BeginTrans();
        second->Execute("delete from Sectors where SectorID=2");
        second->CommitTrans();
        second->Execute("delete from Sectors where SectorID=3");
    });
    std::this_thread::sleep_for(300ms);
    first->CommitTrans();
    other.join();
    EXPECT_GE(waited.elapsed(), 300);
    EXPECT_LT(waited.elapsed(), 4000);
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(0));
}

TEST(Lock, IsWaitedForAsLongAsSaid)
{
    const TestCompany company;
    const auto first = company.Connect();
    const auto second = company.Connect();
    engineOf(*second).SetLockWait(200ms);
    first->BeginTrans();
    QElapsedTimer waited;
    waited.start();
    EXPECT_THROW(second->BeginTrans(), ProviderFailure);
    EXPECT_GE(waited.elapsed(), 200);
    EXPECT_LT(waited.elapsed(), 2000);
}

TEST(Lock, AutocommitWritesOfManyAllArrive)
{
    const TestCompany company;
    constexpr int writers = 4;
    constexpr int each = 25;
    std::vector<std::thread> threads;
    for (int writer = 0; writer < writers; ++writer) {
        threads.emplace_back([&company, writer] {
            const auto connection = company.Connect();
            for (int i = 0; i < each; ++i)
                connection->Execute(Statement("insert into cheque (staffid, amount) "
                                              "values ('{Staff}', {Amount})")
                                        .Bind("Staff", writer)
                                        .Bind("Amount", i));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(company.Scalar("select count(*) from cheque"), QVariant(writers * each));
}

TEST(FullDisk, EndsASaveWithAClearTextAndNothingWritten)
{
    const TestCompany company;
    const auto connection = company.Connect();
    // So few pages that some row in the middle does not fit.
    connection->Execute(
        Statement("PRAGMA max_page_count={Pages}")
            .Bind("Pages", connection->Execute("PRAGMA page_count").ValueAt(0, 0).toInt() + 8));
    connection->BeginTrans();
    const QString failure = failureOf([&] {
        for (int i = 0; i < 1000; ++i)
            connection->Execute(Statement("insert into Sectors values ({Id}, '{Name}')")
                                    .Bind("Id", 100 + i)
                                    .Bind("Name", QString(2000, u'x')));
    });
    EXPECT_EQ(failure, QStringLiteral("There is no room left on the disk for '%1'. The change was "
                                      "not saved. Make room and try again.")
                           .arg(shown(company.File())));
    ASSERT_EQ(connection->Errors().Count(), 1);
    EXPECT_EQ(connection->Errors().Item(0).Number, SQLITE_FULL);
    // The tail of a save rolls back, whether the database has done so or not.
    EXPECT_NO_THROW(connection->RollbackTrans());
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_THROW(connection->RollbackTrans(), ProviderFailure);
    EXPECT_EQ(company.Scalar("select count(*) from Sectors"), QVariant(3));
}

TEST(Caches, GiveFreshRowsForAStatementRunAgain)
{
    const TestCompany company;
    const auto connection = company.Connect();
    for (int i = 0; i < 600; ++i) {
        const Recordset rows = connection->Execute(
            Statement("select {N} as n, count(*) as c from Sectors").Bind("N", i % 300));
        ASSERT_EQ(rows.Value("n"), QVariant(i % 300));
        ASSERT_EQ(rows.Value("c"), QVariant(3));
    }
    connection->Execute("delete from Sectors where SectorID=1");
    EXPECT_EQ(connection->Execute("select 1 as n, count(*) as c from Sectors").Value("c"),
              QVariant(2));
}
