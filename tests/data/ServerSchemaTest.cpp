#include "data/SchemaVersion.h"
#include "support/SchemaScript.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace tests;

namespace {

QString script()
{
    QFile file(QStringLiteral(SOURCE_DIR "/schema/sqlserver.sql"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

/// Objects that the embedded engine implements in C++ and not in the file.
void addRoutines(SchemaObjects& embedded)
{
    for (const char* function :
         {"funcurrentadvance", "funcurrentbalance", "fungetcustomer", "fungetproduct"})
        embedded.Functions.append(QString::fromLatin1(function));
    for (const char* procedure : {"spinstallmentbalances", "sprecoveryprize"})
        embedded.Procedures.append(QString::fromLatin1(procedure));
}

/// Removes the differences that are intended.
void reconcile(SchemaObjects& embedded, SchemaObjects& server)
{
    // A file has its schema version in the header.
    EXPECT_EQ(server.Tables.remove(QStringLiteral("schemaversion")), 1);
    // The server has a view that sums the movements of a product.
    EXPECT_EQ(embedded.Tables.remove(QStringLiteral("stocklevels")), 1);
    EXPECT_EQ(embedded.Views.removeAll(QStringLiteral("stockmovements")), 1);
    // In a file the reference host creates its own tables.
    EXPECT_EQ(server.Tables.remove(QStringLiteral("userrights")), 1);
    EXPECT_EQ(server.Tables.remove(QStringLiteral("companyinfo")), 1);
    EXPECT_EQ(server.Indexes.remove(QStringLiteral("usersbyname")), 1);
    QStringList& users = server.Tables[QStringLiteral("users")].Columns;
    ASSERT_EQ(users.size(), 8);
    users = users.first(3);
}

QString differences(const QString& serverScript)
{
    const TestCompany company;
    SchemaObjects embedded = ReadCompanyFile(company);
    addRoutines(embedded);
    SchemaObjects server = ReadServerScript(serverScript);
    reconcile(embedded, server);
    EXPECT_GT(embedded.Tables.size(), 40);
    EXPECT_GT(embedded.Indexes.size(), 60);
    return Differences(embedded, server).join(u'\n');
}

} // namespace

TEST(ServerSchema, IsTheEmbeddedOnesInTheServersWords)
{
    EXPECT_EQ(differences(script()).toStdString(), "");
}

TEST(ServerSchema, TheComparisonSeesEveryKindOfDifference)
{
    const struct {
        const char* Of;
        const char* Becomes;
        const char* Tells;
    } slips[] = {
        {"    SectorName varchar(200)", "    SectorName varchar(200),\n    Extra int",
         "table sectors"},
        {"    FName       varchar(200),\n    Address     varchar(500),",
         "    Address     varchar(500),\n    FName       varchar(200),", "table staff"},
        {"    FieldWorker bit", "    FieldWorker int", "table staff"},
        {"    primary key (StaffID, SalaryMonth)\n", "    primary key (SalaryMonth, StaffID)\n",
         "table salaries"},
        {"create table dbo.cheque (", "create table dbo.cheques (", "table cheque"},
        {"create index Areas_BranchCode on", "create index Areas_Branch on", "index areas_branch"},
        {"dbo.RecoveryBody (VoucherID, ReceiptNo, Amount)",
         "dbo.RecoveryBody (VoucherID, Amount, ReceiptNo)", "index recoverybody_voucherid"},
        {"view dbo.vuAccounts", "view dbo.vuAccount", "views"},
        {"function dbo.FunGetProduct", "function dbo.FunGetProducts", "functions"},
        {"procedure dbo.spRecoveryPrize", "procedure dbo.spRecovery", "procedures"},
    };
    for (const auto& slip : slips) {
        QString slipped = script();
        const QString before = slipped;
        slipped.replace(QString::fromLatin1(slip.Of), QString::fromLatin1(slip.Becomes));
        ASSERT_NE(slipped, before) << slip.Of;
        EXPECT_TRUE(differences(slipped).contains(QString::fromLatin1(slip.Tells))) << slip.Of;
    }
}

TEST(ServerSchema, IsOfTheLibrarysVersion)
{
    EXPECT_TRUE(script().contains(
        QStringLiteral("insert into dbo.SchemaVersion (Version)\nselect %1 where not exists")
            .arg(TradeForms::schemaVersion)));
}

TEST(ServerSchema, CanBeRunAgain)
{
    // Each batch either creates an object only where it is missing, or replaces it.
    int made = 0;
    for (const QString& batch : script().split(QStringLiteral("\ngo\n"))) {
        const bool makesTable = batch.contains(QStringLiteral("\ncreate table ")) ||
                                batch.startsWith(QStringLiteral("create table "));
        const bool makesIndex = batch.contains(QStringLiteral("create index ")) ||
                                batch.contains(QStringLiteral("create unique index "));
        EXPECT_TRUE(!makesTable || batch.contains(QStringLiteral("if object_id(")))
            << batch.toStdString();
        EXPECT_TRUE(!makesIndex ||
                    batch.contains(QStringLiteral("if not exists (select 1 from sys.indexes")))
            << batch.toStdString();
        EXPECT_FALSE(batch.contains(QStringLiteral("create view")) ||
                     batch.contains(QStringLiteral("create function")) ||
                     batch.contains(QStringLiteral("create procedure")))
            << batch.toStdString();
        made += makesTable || makesIndex;
    }
    EXPECT_GT(made, 120);
}

TEST(ServerSchema, GuardsEachObjectByItsOwnName)
{
    for (const QString& batch : script().split(QStringLiteral("\ngo\n"))) {
        const QStringList lines = batch.split(u'\n');
        for (const QString& line : lines) {
            if (line.startsWith(QStringLiteral("create table "))) {
                EXPECT_TRUE(batch.contains(
                    QStringLiteral("object_id(N'%1', N'U')").arg(line.section(u' ', 2, 2))))
                    << line.toStdString();
            }
            if (line.startsWith(QStringLiteral("create index "))) {
                EXPECT_TRUE(
                    batch.contains(QStringLiteral("name = N'%1'").arg(line.section(u' ', 2, 2))))
                    << line.toStdString();
            }
        }
    }
}
