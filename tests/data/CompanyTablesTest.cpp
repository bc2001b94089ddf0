#include "data/CompanyTables.h"

#include "support/SchemaScript.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace TradeForms;

namespace {

QStringList smallLetters(QStringList names)
{
    for (QString& name : names)
        name = name.toLower();
    return names;
}

} // namespace

TEST(CompanyTables, HaveTheKeysAndColumnsOfTheServersScript)
{
    QFile script(QStringLiteral(SOURCE_DIR "/schema/sqlserver.sql"));
    ASSERT_TRUE(script.open(QIODevice::ReadOnly));
    const tests::SchemaObjects server =
        tests::ReadServerScript(QString::fromUtf8(script.readAll()));
    int compared = 0;
    for (auto told = server.Tables.begin(); told != server.Tables.end(); ++told) {
        const CompanyTable* table = CompanyTableNamed(told.key());
        if (!table)
            continue; // the reference host's own
        ++compared;
        EXPECT_EQ(smallLetters(table->Keys), told->Key) << told.key().toStdString();
        for (const CompanyTable::Field& field : table->Fields) {
            EXPECT_FALSE(told->Columns.filter(field.Name.toLower() + u' ').isEmpty())
                << told.key().toStdString() << '.' << field.Name.toStdString();
        }
    }
    EXPECT_GT(compared, 40);
}

TEST(CompanyTables, TellTheKindsOfTheirColumns)
{
    const CompanyTable* header = CompanyTableNamed(QStringLiteral("inscustomerHEADER"));
    ASSERT_TRUE(header);
    EXPECT_EQ(header->Find(QStringLiteral("saledate"))->Kind, ColumnKind::Date);
    EXPECT_EQ(header->Find(QStringLiteral("EntryDate"))->Kind, ColumnKind::DateTime);
    EXPECT_EQ(header->Find(QStringLiteral("isPosted"))->Kind, ColumnKind::Flag);
    EXPECT_EQ(header->Find(QStringLiteral("TotalAmount"))->Kind, ColumnKind::Number);
    EXPECT_EQ(header->Find(QStringLiteral("UserNo"))->Kind, ColumnKind::Integer);
    EXPECT_EQ(header->Find(QStringLiteral("Name"))->Kind, ColumnKind::Text);
    EXPECT_FALSE(header->Find(QStringLiteral("Nothing")));
    EXPECT_TRUE(header->IsKey(QStringLiteral("insCustomerID")));
    EXPECT_FALSE(header->IsKey(QStringLiteral("Name")));
}

TEST(CompanyTables, AreNoOtherTables)
{
    EXPECT_FALSE(CompanyTableNamed(QStringLiteral("sqlite_schema")));
    EXPECT_FALSE(CompanyTableNamed(QStringLiteral("Nowhere")));
    EXPECT_FALSE(CompanyTableNamed(QString()));
    ASSERT_TRUE(CompanyTableNamed(QStringLiteral("GatePassBody")));
    EXPECT_TRUE(CompanyTableNamed(QStringLiteral("GatePassBody"))->Keys.isEmpty());
}
