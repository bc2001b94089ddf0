#include "data/Backup.h"
#include "data/EngineAccess.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "data/sqlite/CompanyFile.h"
#include "support/EveryTable.h"
#include "support/FaultyDisk.h"
#include "support/TestCompany.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QThread>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <thread>

using namespace TradeForms;
using testing::AllOf;
using testing::HasSubstr;

namespace {

/// The message of the failure that an operation raises; empty where it raises none.
template <class Work> std::string failureOf(Work work)
{
    try {
        work();
    } catch (const Failure& failure) {
        return failure.what();
    }
    return {};
}

class Backups : public testing::Test {
protected:
    QString place(const char* name) const { return folder_.filePath(QString::fromUtf8(name)); }
    QStringList files() const { return QDir(folder_.path()).entryList(QDir::Files, QDir::Name); }

    /// Changes bytes in the middle of a file.
    static void damage(const QString& file)
    {
        QFile bytes(file);
        ASSERT_TRUE(bytes.open(QIODevice::ReadWrite));
        for (qint64 page = 3; page * 4096 < bytes.size(); page += 7) {
            bytes.seek(page * 4096 + 100);
            bytes.write(QByteArray(300, '\x5a'));
        }
    }
    static void truncate(const QString& file)
    {
        ASSERT_TRUE(QFile::resize(file, QFileInfo(file).size() / 2));
    }

    TestCompany company_;
    QTemporaryDir folder_;
};

} // namespace

TEST_F(Backups, ACopyHoldsEverythingThatTheCompanyHolds)
{
    AddHostTables(company_);
    FillEveryTable(company_, 12);
    const VerifiedCompany copy = BackUpCompany(company_.File(), place("copy.db"));
    EXPECT_EQ(copy.File, place("copy.db"));
    EXPECT_EQ(copy.Bytes, QFileInfo(place("copy.db")).size());
    EXPECT_EQ(copy.Tables.size(), TablesOf(company_).size());
    EXPECT_EQ(ContentsOf(place("copy.db")), ContentsOf(company_.File()));
    EXPECT_EQ(copy.Rows(), qint64(ContentsOf(company_.File()).size()));
    EXPECT_EQ(files(), QStringList{QStringLiteral("copy.db")}) << "one file, and nothing beside it";

    const VerifiedCompany verified = VerifyBackup(place("copy.db"));
    EXPECT_EQ(verified.Tables, copy.Tables);
    EXPECT_EQ(files(), QStringList{QStringLiteral("copy.db")});
}

TEST_F(Backups, WhatStandsInTheLogIsInTheCopy)
{
    const auto connection = company_.Connect();
    connection->Execute("update Areas set AreaName='new' where AreaCode='Kot'");
    ASSERT_GT(QFileInfo(company_.File() + QStringLiteral("-wal")).size(), 0);
    BackUpCompany(company_.File(), place("copy.db"));
    const auto copy = Connection::Open(place("copy.db"));
    EXPECT_EQ(copy->Execute("select AreaName from Areas where AreaCode='Kot'").ValueAt(0, 0),
              QVariant(QStringLiteral("new")));
}

TEST_F(Backups, WhoeverSavesAllTheTimeNeitherWaitsNorSpoilsTheCopy)
{
    FillEveryTable(company_, 400);
    std::atomic<bool> isEnough = false;
    std::atomic<int> saved = 0;
    std::thread clerk([&] {
        const auto connection = company_.Connect();
        while (!isEnough) {
            connection->BeginTrans();
            connection->Execute(Statement("insert into ConcessionHeader (VoucherID) values ({N})")
                                    .Bind("N", 100000 + saved));
            for (int row = 0; row < 3; ++row)
                connection->Execute(
                    Statement("insert into ConcessionBody (VoucherID, Amount) values ({N}, 1)")
                        .Bind("N", 100000 + saved));
            connection->CommitTrans();
            ++saved;
        }
    });
    const auto waitForSaves = [&](int more) {
        for (const int before = saved; saved < before + more;)
            QThread::msleep(1);
    };
    waitForSaves(1);
    qint64 last = 0;
    const auto follow = [&](const WorkProgress& progress) {
        waitForSaves(2);
        if (progress.At == Stage::Copying) {
            EXPECT_GE(progress.Done, last) << "it does not begin anew";
            last = progress.Done;
        }
        return true;
    };
    BackUpCompany(company_.File(), place("copy.db"), Existing::Keep, follow);
    isEnough = true;
    clerk.join();

    const auto copy = Connection::Open(place("copy.db"));
    const auto count = [&](const char* statement) {
        return copy->Execute(statement).ValueAt(0, 0).toInt();
    };
    const int headers = count("select count(*) from ConcessionHeader where VoucherID >= 100000");
    EXPECT_GE(headers, 1);
    EXPECT_LT(headers, saved);
    EXPECT_EQ(count("select count(*) from ConcessionBody where VoucherID >= 100000"), 3 * headers)
        << "each voucher is there whole or not at all";
}

TEST_F(Backups, ADamageThatNoReadingMeetsIsListed)
{
    company_.Run("create table Ours (A text); insert into Ours values (null), ('x');"
                 "pragma writable_schema = on; update sqlite_schema "
                 "set sql = 'create table Ours (A text not null)' where name = 'Ours'");
    EXPECT_THAT(failureOf([&] { VerifyBackup(company_.File()); }),
                AllOf(HasSubstr("test.company' is damaged: "), HasSubstr("NULL value in Ours.A")));
    EXPECT_THAT(failureOf([&] { BackUpCompany(company_.File(), place("copy.db")); }),
                AllOf(HasSubstr("The copy of "), HasSubstr("is not whole and was removed: "),
                      HasSubstr("NULL value in Ours.A")));
    EXPECT_EQ(files(), QStringList());
}

TEST_F(Backups, AFileOfThatNameIsKeptUnlessItIsToBeReplaced)
{
    QFile letter(place("letter.txt"));
    ASSERT_TRUE(letter.open(QIODevice::WriteOnly));
    letter.write("Dear Sir");
    letter.close();
    EXPECT_THAT(failureOf([&] { BackUpCompany(company_.File(), place("letter.txt")); }),
                AllOf(HasSubstr("letter.txt"), HasSubstr("exists already")));
    EXPECT_EQ(QFileInfo(place("letter.txt")).size(), 8);

    BackUpCompany(company_.File(), place("copy.db"));
    company_.Run("delete from Areas");
    BackUpCompany(company_.File(), place("copy.db"), Existing::Replace);
    EXPECT_EQ(ContentsOf(place("copy.db")), ContentsOf(company_.File()));
    EXPECT_EQ(files(), (QStringList{QStringLiteral("copy.db"), QStringLiteral("letter.txt")}));
}

TEST_F(Backups, ACompanyInUseIsNotReplacedByABackup)
{
    const TestCompany other;
    const auto clerk = other.Connect();
    EXPECT_THAT(failureOf([&] { BackUpCompany(company_.File(), other.File(), Existing::Replace); }),
                HasSubstr("is in use"));
    EXPECT_EQ(clerk->Execute("select * from Areas").RecordCount(), 3);
}

TEST_F(Backups, TheCompanyItselfIsNoPlaceForItsBackup)
{
    const auto refused = [&](const QString& target) {
        return failureOf([&] { BackUpCompany(company_.File(), target, Existing::Replace); });
    };
    EXPECT_THAT(refused(company_.File()), HasSubstr("is the company itself"));
#ifndef _WIN32 // where links take an administrator
    ASSERT_TRUE(QFile::link(company_.File(), place("link.db")));
    EXPECT_THAT(refused(place("link.db")), HasSubstr("is the company itself"));
#endif
    std::filesystem::create_hard_link(QFileInfo(company_.File()).filesystemFilePath(),
                                      QFileInfo(place("second.db")).filesystemFilePath());
    EXPECT_THAT(refused(place("second.db")), HasSubstr("is the company itself"));
    const auto clerk = company_.Connect();
    EXPECT_THAT(refused(company_.File() + QStringLiteral("-wal")),
                HasSubstr("is the company itself"));
    EXPECT_EQ(clerk->Execute("select * from Areas").RecordCount(), 3);
}

TEST_F(Backups, WhatCannotBeBackedUpIsTold)
{
    const auto refused = [&](const QString& file) {
        return failureOf([&] { BackUpCompany(file, place("copy.db")); });
    };
    EXPECT_THAT(refused(place("missing.db")),
                AllOf(HasSubstr("missing.db"), HasSubstr("was not found")));
    EXPECT_THAT(refused(folder_.path()), HasSubstr("is a folder"));
    QFile letter(place("letter.txt"));
    ASSERT_TRUE(letter.open(QIODevice::WriteOnly));
    letter.write(QByteArray("Dear Sir, ").repeated(500));
    letter.close();
    EXPECT_THAT(refused(place("letter.txt")), HasSubstr("is not a company file"));
    const auto stamped = [&](const char* pragma) {
        const TestCompany other;
        other.Run(pragma);
        return refused(other.File());
    };
    EXPECT_THAT(stamped("pragma application_id = 77"), HasSubstr("belongs to another program"));
    EXPECT_THAT(stamped("pragma application_id = 0"), HasSubstr("holds no company"));
    EXPECT_THAT(stamped("pragma user_version = 0"), HasSubstr("holds no company"));
    EXPECT_THAT(stamped("pragma user_version = 99"), HasSubstr("newer version"));
    EXPECT_EQ(files(), QStringList{QStringLiteral("letter.txt")});
}

TEST_F(Backups, APlaceThatTakesNoFileIsTold)
{
    const auto refused = [&](const QString& target) {
        return failureOf([&] { BackUpCompany(company_.File(), target); });
    };
    EXPECT_THAT(refused(place("nowhere/copy.db")),
                AllOf(HasSubstr("nowhere"), HasSubstr("was not found")));
    EXPECT_THAT(refused(folder_.path()), HasSubstr("is a folder"));
#ifndef _WIN32 // where no mark keeps files from being made in a folder
    const QFile::Permissions before = QFile::permissions(folder_.path());
    QFile::setPermissions(folder_.path(), QFile::ReadOwner | QFile::ExeOwner);
    EXPECT_THAT(refused(place("copy.db")), HasSubstr("it is read-only"));
    QFile::setPermissions(folder_.path(), before);
#endif
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(Backups, TwoAtOnceForOnePlaceDoNotMix)
{
    std::string second;
    BackUpCompany(company_.File(), place("copy.db"), Existing::Keep, [&](const WorkProgress&) {
        if (second.empty())
            second = failureOf([&] { BackUpCompany(company_.File(), place("copy.db")); });
        return true;
    });
    EXPECT_THAT(second, HasSubstr("Another program is writing"));
    EXPECT_EQ(ContentsOf(place("copy.db")), ContentsOf(company_.File()));
}

TEST_F(Backups, ADiskThatIsFullAtAnyWriteIsToldAndNothingIsLeft)
{
    FaultyDisk disk;
    int refused = 0;
    int noRoom = 0;
    for (int operation = 1;; ++operation) {
        disk.FailAt(operation, FaultyDisk::Fault::Full, FaultyDisk::Lasts::UntilRepaired);
        const std::string told =
            failureOf([&] { BackUpCompany(company_.File(), place("copy.db")); });
        const bool hasFailed = disk.HasFailed();
        disk.Repair();
        if (!hasFailed) {
            EXPECT_EQ(told, "");
            break;
        }
        // Where the flush fails, the system reports no reason.
        EXPECT_THAT(told, AnyOf(HasSubstr("no room left"),
                                AllOf(HasSubstr("disk I/O error"), HasSubstr("Check the disk"))))
            << operation;
        noRoom += told.find("no room left") != std::string::npos;
        EXPECT_TRUE(files().isEmpty()) << operation << files().join(u' ').toStdString();
        ++refused;
    }
    EXPECT_GT(noRoom, 100);
    EXPECT_LT(refused - noRoom, 10);
    EXPECT_NO_THROW(VerifyBackup(place("copy.db")));
}

TEST_F(Backups, StoppedAtAnyMomentItLeavesNothing)
{
    FillEveryTable(company_, 200);
    for (const Stage stage : {Stage::Counting, Stage::Copying, Stage::Checking}) {
        EXPECT_THROW(
            BackUpCompany(company_.File(), place("copy.db"), Existing::Keep,
                          [&](const WorkProgress& progress) { return progress.At != stage; }),
            CancelledFailure);
        EXPECT_TRUE(files().isEmpty()) << int(stage);
    }
    // A running check can be cancelled as well.
    int asked = 0;
    EXPECT_THROW(VerifyBackup(company_.File(),
                              [&](const WorkProgress& progress) {
                                  return progress.At != Stage::Checking || ++asked < 2;
                              }),
                 CancelledFailure);
    EXPECT_EQ(asked, 2);
}

TEST_F(Backups, ADamagedBackupIsFound)
{
    FillEveryTable(company_, 100);
    BackUpCompany(company_.File(), place("copy.db"));
    ASSERT_TRUE(QFile::copy(place("copy.db"), place("short.db")));
    truncate(place("short.db"));
    EXPECT_THAT(failureOf([&] { VerifyBackup(place("short.db")); }),
                AllOf(HasSubstr("short.db"), HasSubstr("is damaged")));
    damage(place("copy.db"));
    EXPECT_THAT(failureOf([&] { VerifyBackup(place("copy.db")); }),
                AllOf(HasSubstr("copy.db"), HasSubstr("is damaged")));
    EXPECT_THAT(failureOf([&] { VerifyBackup(place("none.db")); }), HasSubstr("was not found"));
}

TEST_F(Backups, ADamagedCompanyGivesNoBackup)
{
    FillEveryTable(company_, 100);
    BackUpCompany(company_.File(), place("damaged.db"));
    damage(place("damaged.db"));
    EXPECT_NE(failureOf([&] { BackUpCompany(place("damaged.db"), place("copy.db")); }), "");
    EXPECT_FALSE(files().contains(QStringLiteral("copy.db")));
    EXPECT_FALSE(files().contains(QStringLiteral("copy.db.part")));
}

TEST_F(Backups, ARestoredCompanyIsTheBackupAndTheFormerOneIsKept)
{
    FillEveryTable(company_, 12);
    BackUpCompany(company_.File(), place("copy.db"));
    const auto then = ContentsOf(company_.File());
    ASSERT_TRUE(QFile::copy(company_.File(), place("company.db")));
    Connection::Open(place("company.db"))->Execute("delete from RecoveryBody");
    const auto now = ContentsOf(place("company.db"));

    const RestoredCompany restored = RestoreCompany(place("copy.db"), place("company.db"));
    EXPECT_EQ(restored.Company.File, place("company.db"));
    EXPECT_EQ(ContentsOf(place("company.db")), then);
    EXPECT_EQ(ContentsOf(place("copy.db")), then);
    EXPECT_THAT(restored.Former.toStdString(), HasSubstr("company-before-restore-2"));
    EXPECT_EQ(ContentsOf(restored.Former), now);
    EXPECT_EQ(files().size(), 3) << files().join(u' ').toStdString();
    Connection::Open(place("company.db"))->Execute("delete from RecoveryBody");

    const RestoredCompany again = RestoreCompany(place("copy.db"), place("company.db"));
    EXPECT_NE(again.Former, restored.Former);
    EXPECT_EQ(files().size(), 4);
}

TEST_F(Backups, ACompanyThatIsGoneIsRestored)
{
    BackUpCompany(company_.File(), place("copy.db"));
    const RestoredCompany restored = RestoreCompany(place("copy.db"), place("company.db"));
    EXPECT_TRUE(restored.Former.isEmpty());
    EXPECT_EQ(ContentsOf(place("company.db")), ContentsOf(company_.File()));
    EXPECT_THAT(failureOf([&] { RestoreCompany(place("copy.db"), place("no/company.db")); }),
                HasSubstr("was not found"));
}

TEST_F(Backups, ACompanyThatSomebodyHasOpenIsNotRestored)
{
    BackUpCompany(company_.File(), place("copy.db"));
    const auto clerk = company_.Connect();
    EXPECT_THAT(failureOf([&] { RestoreCompany(place("copy.db"), company_.File()); }),
                AllOf(HasSubstr("is in use"), HasSubstr("all workstations")));
    clerk->Execute("update Areas set AreaName='as before'");
    EXPECT_EQ(company_.Scalar("select count(*) from Areas where AreaName='as before'"),
              QVariant(3LL));
    EXPECT_EQ(QDir(company_.Folder()).entryList({QStringLiteral("*before*")}).size(), 0);
}

TEST_F(Backups, ADamagedBackupIsNotRestored)
{
    FillEveryTable(company_, 100);
    BackUpCompany(company_.File(), place("copy.db"));
    damage(place("copy.db"));
    const auto before = ContentsOf(company_.File());
    EXPECT_THAT(failureOf([&] { RestoreCompany(place("copy.db"), company_.File()); }),
                HasSubstr("is damaged"));
    EXPECT_EQ(ContentsOf(company_.File()), before);
    EXPECT_THAT(failureOf([&] { RestoreCompany(company_.File(), company_.File()); }),
                HasSubstr("is the company itself"));
}

TEST_F(Backups, ARestoreThatIsStoppedLeavesTheCompany)
{
    BackUpCompany(company_.File(), place("copy.db"));
    ASSERT_TRUE(QFile::copy(company_.File(), place("company.db")));
    Connection::Open(place("company.db"))->Execute("delete from Areas");
    const auto before = ContentsOf(place("company.db"));
    EXPECT_THROW(
        RestoreCompany(place("copy.db"), place("company.db"),
                       [](const WorkProgress& progress) { return progress.At != Stage::Copying; }),
        CancelledFailure);
    EXPECT_EQ(ContentsOf(place("company.db")), before);
    EXPECT_EQ(files(), (QStringList{QStringLiteral("company.db"), QStringLiteral("copy.db")}));
}

TEST_F(Backups, ADamagedCompanyIsSetAside)
{
    BackUpCompany(company_.File(), place("copy.db"));
    QFile file(place("company.db"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("rubbish ").repeated(2000));
    file.close();
    const RestoredCompany restored = RestoreCompany(place("copy.db"), place("company.db"));
    EXPECT_EQ(ContentsOf(place("company.db")), ContentsOf(company_.File()));
    EXPECT_EQ(QFileInfo(restored.Former).size(), 16000);
}

TEST_F(Backups, TheLogOfACompanyThatIsGoneDoesNotReachTheOneThatComes)
{
    BackUpCompany(company_.File(), place("copy.db"));
    const auto then = ContentsOf(place("copy.db"));
    {
        const auto clerk = company_.Connect();
        clerk->Execute("update Areas set AreaName='from the log'");
        for (const char* name : {"company.db-wal", "other.db-wal"})
            ASSERT_TRUE(QFile::copy(company_.File() + QStringLiteral("-wal"), place(name)));
    }
    const RestoredCompany restored = RestoreCompany(place("copy.db"), place("company.db"));
    EXPECT_EQ(ContentsOf(place("company.db")), then);
    EXPECT_TRUE(restored.Former.isEmpty());
    EXPECT_EQ(files().filter(QStringLiteral("before-restore")).size(), 1) << "it is not lost";

    EXPECT_THAT(failureOf([&] { BackUpCompany(company_.File(), place("other.db")); }),
                AllOf(HasSubstr("other.db-wal"), HasSubstr("Move it away")));
    EXPECT_FALSE(files().contains(QStringLiteral("other.db")));
}

TEST_F(Backups, WhoWaitsForTheFormerCompanyDoesNotWorkInIt)
{
    BackUpCompany(company_.File(), place("copy.db"));
    ASSERT_TRUE(QFile::copy(company_.File(), place("company.db")));
    Connection::Open(place("company.db"))->Execute("delete from Areas");
    FaultyDisk disk;
    std::atomic<bool> isWaitingOrIn = false;
    disk.WhenSomebodyWaits([&] { isWaitingOrIn = true; });
    std::thread clerk;
    std::string told;
    int areas = -1;
    const auto comeIn = [&] {
        told = failureOf([&] {
            const auto connection = EngineAccess::Connect(
                OpenCompanyFile(place("company.db"), std::chrono::minutes(4)));
            areas = connection->Execute("select * from Areas").RecordCount();
        });
        isWaitingOrIn = true;
    };
    const std::string refused = failureOf([&] {
        RestoreCompany(place("copy.db"), place("company.db"), [&](const WorkProgress& progress) {
            if (progress.At == Stage::Copying && !clerk.joinable()) {
                clerk = std::thread(comeIn);
                while (!isWaitingOrIn)
                    std::this_thread::yield();
            }
            return true;
        });
    });
    clerk.join();
#ifdef _WIN32 // where the system keeps a file from being replaced under who has it open
    if (!refused.empty()) {
        EXPECT_THAT(refused, HasSubstr("company.db' is in use"));
        EXPECT_EQ(told, "");
        EXPECT_EQ(areas, 0) << "the former one";
        EXPECT_EQ(files(), (QStringList{QStringLiteral("company.db"), QStringLiteral("copy.db")}));
        return;
    }
#endif
    EXPECT_EQ(refused, "");
    if (told.empty())
        EXPECT_EQ(areas, 3) << "the restored one";
    else
        EXPECT_THAT(told, HasSubstr("was replaced while it was open"));
}

TEST_F(Backups, ARestoreThatFailsInTheCompanysPlacePutsTheCompanyBack)
{
    // A backup of schema version 1 that cannot be upgraded: a table has the name of a new object.
    company_.Run("drop view StockMovements; create table StockMovements (Note text);"
                 "pragma user_version = 1");
    const TestCompany former;
    ASSERT_TRUE(QFile::copy(former.File(), place("company.db")));
    const auto before = ContentsOf(place("company.db"));
    EXPECT_THAT(failureOf([&] { RestoreCompany(company_.File(), place("company.db")); }),
                HasSubstr("StockMovements already exists"));
    EXPECT_EQ(files(), QStringList{QStringLiteral("company.db")});
    EXPECT_EQ(ContentsOf(place("company.db")), before);
}

TEST_F(Backups, OnlyOlderBackupsOfTheSameCompanyAreRemoved)
{
    const auto touch = [&](const char* name) {
        QFile file(place(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name;
    };
    const QDateTime moment(QDate(2026, 3, 31), QTime(17, 45));
    EXPECT_EQ(BackupName(QStringLiteral("/x/kasur.main.db"), moment),
              QStringLiteral("kasur.main-backup-20260331-174500.db"));
    const QStringList others{QStringLiteral("company-backup-20260230-000000.db"),
                             QStringLiteral("company-backup-20260331-174500.db.txt"),
                             QStringLiteral("company-backup-mine.db"),
                             QStringLiteral("company.db"),
                             QStringLiteral("company2-backup-20200101-000000.db"),
                             QStringLiteral("company-backup-20260331-1745001.db")};
    for (const QString& name : others)
        touch(name.toUtf8().constData());
    for (const char* name :
         {"company-backup-20260401-080000.db", "company-backup-20251231-235959.db",
          "company-backup-20260331-174500.db", "company-backup-20260331-174600.db.part"})
        touch(name);
    EXPECT_EQ(RemoveOlderBackups(folder_.path(), QStringLiteral("/x/company.db"), 2),
              QStringList{QStringLiteral("company-backup-20251231-235959.db")});
    QStringList left = others;
    left << QStringLiteral("company-backup-20260331-174500.db")
         << QStringLiteral("company-backup-20260401-080000.db");
    left.sort();
    QStringList there = files();
    there.sort();
    EXPECT_EQ(there, left);
    EXPECT_TRUE(RemoveOlderBackups(folder_.path(), QStringLiteral("company.db"), 5).isEmpty());
}
