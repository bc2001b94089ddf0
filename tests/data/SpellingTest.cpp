// The statements of the forms, dialogs and reports in several spellings of upper and lower case,
// and their rewritten form for the embedded engine.

#include "data/Connection.h"
#include "data/Failure.h"
#include "data/Recordset.h"
#include "data/sqlite/Adapter.h"
#include "support/LibraryStatements.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QMap>

#include <functional>
#include <random>

using namespace TradeForms;

namespace {

QStringList linesOf(const char* name)
{
    QFile file(QStringLiteral(SOURCE_DIR "/tests/data/") + QLatin1String(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QStringList lines;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n'))
        if (!line.isEmpty() && !line.startsWith(QStringLiteral("--")))
            lines.append(line);
    return lines;
}

bool isQuestion(const QString& statement)
{
    return statement.trimmed().startsWith(QStringLiteral("select"), Qt::CaseInsensitive);
}

using Spelling = std::function<QChar(QChar)>;

/// A statement with names and keywords in another spelling and unchanged literals.
QString spelt(const QString& statement, const Spelling& spelling)
{
    QString result;
    bool isLiteral = false;
    for (const QChar letter : statement) {
        if (letter == u'\'')
            isLiteral = !isLiteral;
        result += isLiteral ? letter : spelling(letter);
    }
    return result;
}

QStringList rowsOf(const Recordset& rows)
{
    QStringList read;
    for (int position = 0; position < rows.RecordCount(); ++position) {
        QStringList row;
        for (int field = 0; field < rows.FieldCount(); ++field) {
            const QVariant value = rows.ValueAt(position, field);
            row.append(QString::fromLatin1(value.typeName()) + u' ' + value.toString());
        }
        read.append(row.join(u'|'));
    }
    return read;
}

/// The contents of all tables.
QStringList contentOf(const TestCompany& company)
{
    QStringList content;
    for (const QVariantList& table : company.Rows("select name from sqlite_schema where "
                                                  "type='table' and name not like 'sqlite_%'")) {
        for (const QVariantList& row :
             company.Rows(QStringLiteral("select * from ") + table[0].toString())) {
            QString line = table[0].toString();
            for (const QVariant& value : row)
                line += u'|' + value.toString();
            content.append(line);
        }
    }
    return content;
}

/// Documents for which most statements return rows.
constexpr const char* documents = R"sql(
INSERT INTO InsCustomerHeader (InsCustomerID, [Order], Sale, Old, SmallVehicle, LargeVehicle,
        CardNo, AutoCard, Name, FName, AreaCode, SectorID, FStaffID, ReceivingCode, AMStaffID,
        SAMStaffID, CMStaffID, DriverID, SaleDate, MonthlyInstallment, TotalAmount) VALUES
    ('Kot 1', 1, 1, 0, 1, 1, '1', '1', 'عبداللہ', 'عبدالرحمن', 'Kot', 1, '4001', '3107', '2014',
     '2014', '2014', '2014', '2026-01-05', 5000, 185000);
INSERT INTO InsCustomerBody (InsCustomerID, ProductID, Qty, Price, Amount, EngineNo) VALUES
    ('Kot 1', '101', 1, 185000, 185000, 'E1');
INSERT INTO RecoveryHeader VALUES
    (1, '2026-01-05 10:00:00', 0, '2026-01-05', 'Kot', '2014', '2014', '3107', 1);
INSERT INTO RecoveryBody VALUES (1, '2026-01-05', 'Kot 1', '1', 1, 5000);
INSERT INTO ConvertArea VALUES ('Kot 1', 5000, 185000, 'Raja 9', 180000, '2026-01-20');
INSERT INTO GatePassHeader VALUES
    (1, '2026-01-05 10:00:00', 0, '2026-01-05', '2014', '3107', 'Kot', 1, 1, 0, 0, 1);
INSERT INTO GatePassBody VALUES (1, '101', 2, 1, 0);
INSERT INTO WorkShopPartsHeader VALUES (1, '2026-01-05', '2014', 850);
INSERT INTO WorkShopPartsBody VALUES (1, 11, 850, 1, 850);
INSERT INTO Salaries VALUES
    ('2014', '2026-01-05', 100, 1, 1, 1, 1, 1, 1, 1, 20, 10, 5, 0, 500, 0);
INSERT INTO FrenchiserSalaryHeader VALUES ('2014', '2026-01-05', 100, 20, 10, 5, 0, 0, 500);
INSERT INTO FrenchiserSalaryBody VALUES ('2014', '2026-01-05', '101', 'x', 5, 2, 10);
)sql";

QMap<QString, QString> pinned()
{
    const QStringList lines = linesOf("rewritten.sql");
    EXPECT_EQ(lines.size() % 2, 0);
    QMap<QString, QString> texts;
    for (qsizetype line = 0; line + 1 < lines.size(); line += 2)
        texts.insert(lines[line], lines[line + 1]);
    return texts;
}

} // namespace

TEST(Spelling, MakesNoDifferenceToAnyStatement)
{
    std::mt19937 random(4);
    const Spelling asIs = [](QChar letter) { return letter; };
    const Spelling anyhow = [&](QChar letter) {
        return random() % 2 ? letter.toUpper() : letter.toLower();
    };
    const Spelling swapped = [](QChar letter) {
        return letter.isUpper() ? letter.toLower() : letter.toUpper();
    };
    const Spelling upper = [](QChar letter) { return letter.toUpper(); };
    const Spelling lower = [](QChar letter) { return letter.toLower(); };

    const QStringList all = tests::LibraryStatements(QStringLiteral(SOURCE_DIR));
    QStringList answers;
    QStringList contents;
    for (const Spelling& spelling : {asIs, upper, lower, swapped, anyhow, anyhow}) {
        const TestCompany company;
        company.Run(documents);
        const auto connection = company.Connect();
        QStringList given;
        for (const QString& statement : all) {
            const QString text = spelt(statement, spelling);
            try {
                const Recordset rows = connection->Execute(Statement(text));
                EXPECT_EQ(rows.IsOpen(), isQuestion(statement));
                if (rows.IsOpen())
                    given.append(rowsOf(rows).join(u'\n'));
            } catch (const Failure& failure) {
                ADD_FAILURE() << failure.what() << "\n  in " << text.toStdString();
            }
        }
        const QStringList content = contentOf(company);
        if (answers.isEmpty()) {
            answers = given;
            contents = content;
        }
        ASSERT_EQ(given.size(), answers.size());
        for (qsizetype question = 0; question < given.size(); ++question)
            EXPECT_EQ(given[question].toStdString(), answers[question].toStdString())
                << all[question].toStdString();
        EXPECT_EQ(content.join(u'\n').toStdString(), contents.join(u'\n').toStdString());
    }
    EXPECT_GT(answers.size(), 260);
    EXPECT_GT(answers.size() - answers.count(QString()), 180);
}

TEST(Spelling, OfARewrittenStatementIsPinnedAndAllOthersStandAsTheyAre)
{
    const QMap<QString, QString> expected = pinned();
    QStringList rewritten;
    for (const QString& statement : tests::LibraryStatements(QStringLiteral(SOURCE_DIR))) {
        const AdaptedStatement adapted = AdaptStatement(statement.toUtf8());
        if (adapted.Procedure)
            continue;
        const QString text = QString::fromUtf8(adapted.Text);
        EXPECT_EQ(text.toStdString(), expected.value(statement, statement).toStdString());
        if (text != statement)
            rewritten.append(statement);
    }
    for (auto entry = expected.begin(); entry != expected.end(); ++entry)
        EXPECT_TRUE(rewritten.contains(entry.key()))
            << "is no statement that is rewritten: " << entry.key().toStdString();
    EXPECT_GT(rewritten.size(), 60);
}
