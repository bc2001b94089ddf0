// The statements that other tests run are all that the library sends.

#include "search/Catalogue.h"
#include "support/LibraryStatements.h"
#include "support/Text.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSet>

using namespace TradeForms;

namespace tests {

namespace {

/// A statement with nothing in the places of its values.
QString withoutValues(QString statement)
{
    static const QRegularExpression value(s("'[^']*'|\\b\\d+(\\.\\d+)?\\b"));
    return statement.replace(value, s("?"));
}

QSet<QString> withoutValues(const QStringList& statements)
{
    QSet<QString> all;
    for (const QString& statement : statements)
        all << withoutValues(statement);
    return all;
}

} // namespace

/// A dialog's statement that stands anywhere else would be run by no test.
TEST(Statements, OfTheDialogsAllStandInTheirDescriptions)
{
    QStringList described;
    for (const SearchDeclaration* description : AllSearchDialogs())
        for (const QByteArray& statement :
             QList<QByteArray>{description->Statement, description->GridDetail.Statement} +
                 description->LblBalance)
            described << QString::fromUtf8(statement);
    const QStringList written = StatementLiteralsIn(s(SOURCE_DIR "/src/search"));
    EXPECT_GT(written.size(), 20);
    for (const QString& statement : written) {
        // One text can be that of several kinds.
        const QRegularExpression ofAnyKind(QRegularExpression::anchoredPattern(
            QRegularExpression::escape(statement).replace(s("\\{Kind\\}"), s("\\w+"))));
        EXPECT_FALSE(described.filter(ofAnyKind).isEmpty()) << statement.toStdString();
    }
}

TEST(Statements, OfScreensToComeAreNotThoseOfScreensThatAreThere)
{
    const QStringList toCome = StatementsToCome(s(SOURCE_DIR));
    EXPECT_FALSE(toCome.isEmpty());
    const QSet<QString> there =
        withoutValues(StatementsOfDialogs() + StatementsOfForms(s(SOURCE_DIR)));
    for (const QString& statement : toCome) {
        EXPECT_FALSE(there.contains(withoutValues(statement)))
            << "is sent by now and has to leave the file: " << statement.toStdString();
    }
    EXPECT_EQ(QSet<QString>(toCome.begin(), toCome.end()).size(), toCome.size());
}

TEST(Statements, OfFormsFrameAndReportsAreGathered)
{
    const QStringList all = LibraryStatements(s(SOURCE_DIR));
    for (const char* statement :
         {"Select * from Users where UserNo = 3 and FromDate is not null",
          "Select * FROM Areas  where AreaCode='Kot' and BranchCode=1",
          "Select * FROM Areas  where AreaCode='Kot'",
          "SELECT * from vuCurrentStock WHERE ProductID='101' and branchcode =1",
          "Delete from StockOutHeader where StockID = 1",
          "exec SPInstallmentBalances '2026-01-05'"})
        EXPECT_TRUE(all.contains(s(statement))) << statement;
}

// The gathering itself.

TEST(Statements, AreTheTextsOfASourceThatBeginWithTheirWords)
{
    EXPECT_EQ(StatementLiterals(s(R"cpp(
        // run("select 1 from Comment")
        /* "select 2 from Comment" */
        const int many = 20'000;
        const char16_t quote = u'\''; const char other = '"';
        run("Select * from A"
            " where \"B\" = 1" // goes on
            " and C = 2");
        run(QStringLiteral(" delete from D"), "insert into E");
        say("Selected", "Delete", "the select x"); call("EXEC F 'x'"); put("update G set H=1");
    )cpp")),
              (QStringList{s("Select * from A where \"B\" = 1 and C = 2"), s(" delete from D"),
                           s("insert into E"), s("EXEC F 'x'"), s("update G set H=1")}));
}

TEST(Statements, HaveAValueInEachPlace)
{
    EXPECT_EQ(WithSampleValues(s("select * from Staff where StaffID = '{code}'{BranchFilter}")),
              (QStringList{s("select * from Staff where StaffID = '2014' and BranchCode=1"),
                           s("select * from Staff where StaffID = '2014'")}));
    EXPECT_NONFATAL_FAILURE(WithSampleValues(s("select * from Staff where Height = {height}")),
                            "wants a sample value");
    EXPECT_NONFATAL_FAILURE(WithSampleValues(s("select * from Staff where Height = '{code}'")),
                            "wants a sample value");
}

} // namespace tests
