// Properties of all texts and all batches, tested with random ones. A failure reports the seed.

#include "data/Connection.h"
#include "data/Recordset.h"
#include "data/Tokens.h"
#include "data/sqlite/Adapter.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace TradeForms;

namespace {

class Random {
public:
    explicit Random(unsigned seed) : engine_(seed) {}

    int Below(int bound) { return int(engine_() % unsigned(bound)); }
    template <class List> auto Of(const List& list) { return list[Below(int(std::size(list)))]; }

    /// A random text of characters of all planes, quotes, brackets, comment signs and keywords.
    QString Text()
    {
        static const char* const pieces[] = {
            "'",      "''",    "\"",   "[",   "]",    "--",          "/*",    "*/",   ";",
            "\n",     "\t",    " ",    "{1}", "%",    "_",           "left(", "dbo.", "isnull(",
            "select", "exec ", "case", "end", "max(", "'advance' =", "قصور",  "\\",   "`",
            ",",      ")",     "(",    "N'",  "?1",   ":a",          "@b",    "0x",   "1e5"};
        QString text;
        for (int count = Below(12); count > 0; --count)
            text += Below(2) ? QString::fromUtf8(Of(pieces)) : Letter();
        return text;
    }

private:
    QString Letter()
    {
        char32_t letter = 0;
        do
            letter = char32_t(1 + Below(Below(2) ? 0x10FFFF : 0x3000));
        while (letter >= 0xD800 && letter <= 0xDFFF);
        return QString::fromUcs4(&letter, 1);
    }

    std::mt19937 engine_;
};

QByteArray literalOf(const QString& text)
{
    return '\'' + text.toUtf8().replace("'", "''") + '\'';
}

std::vector<std::string> literalsIn(const QByteArray& statement)
{
    std::vector<std::string> literals;
    for (const Token& token : ReadTokens({statement.constData(), std::size_t(statement.size())}))
        if (token.Kind == Token::Type::Literal)
            literals.emplace_back(token.Text);
    return literals;
}

} // namespace

TEST(Property, AnyLiteralSurvivesTheAdapterAndTheDatabase)
{
    const TestCompany company;
    const auto connection = company.Connect();
    static const char* const statements[] = {
        "select %1 as a, left(Name,2) from Staff where Name <> %2",
        "select isnull(%1,%2) as a",
        "select dbo.FunGetProduct(%1) as a, %2 b",
        "update Staff set Name = %1 where Address = %2",
        "select case when Name = %1 then %2 end from Staff -- left('",
        "select right(%1,2) /* ' dbo. */, dateadd(d,1,max(Name)) from Staff where Name like %2"};
    for (unsigned seed = 1; seed <= 1500; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(seed);
        const QString first = random.Text();
        const QString second = random.Text();
        QByteArray statement = random.Of(statements);
        statement.replace(statement.indexOf("%2"), 2, literalOf(second));
        statement.replace(statement.indexOf("%1"), 2, literalOf(first));
        const AdaptedStatement adapted = AdaptStatement(statement);
        EXPECT_EQ(literalsIn(adapted.Text).front(), literalsIn(statement).front());
        EXPECT_TRUE(adapted.Text.contains(literalOf(first)));
        EXPECT_TRUE(adapted.Text.contains(literalOf(second)));

        const Recordset rows = connection->Execute(
            Statement(QStringLiteral("select isnull(") + QString::fromUtf8(literalOf(first)) +
                      QStringLiteral(",'x') as a, ") + QString::fromUtf8(literalOf(second)) +
                      QStringLiteral(" as b")));
        EXPECT_EQ(rows.Value("a").toString(), first);
        EXPECT_EQ(rows.Value("b").toString(), second);
    }
}

namespace {

enum class Kind { Whole, Amount, Text, Flag, Date };

struct TestColumn {
    const char* Name;
    Kind Is;
};

struct TestTable {
    const char* Name;
    QList<TestColumn> Columns;
    int Keys; ///< number of key columns, which are the first ones
};

const QList<TestTable>& tables()
{
    static const QList<TestTable> all{
        {"Sectors", {{"SectorID", Kind::Whole}, {"SectorName", Kind::Text}}, 1},
        {"Areas",
         {{"AreaCode", Kind::Text},
          {"AreaName", Kind::Text},
          {"AMStaffID", Kind::Text},
          {"SAMStaffID", Kind::Text},
          {"BranchCode", Kind::Whole}},
         1},
        {"WorkShopSalaryHeader",
         {{"StaffID", Kind::Text},
          {"SalaryMonth", Kind::Date},
          {"BasicSalary", Kind::Amount},
          {"Other", Kind::Amount}},
         2},
        {"GatePassBody",
         {{"GatePassID", Kind::Whole},
          {"ProductID", Kind::Text},
          {"OutNewProducts", Kind::Amount},
          {"ReturnOldProducts", Kind::Amount},
          {"ReturnNewProducts", Kind::Amount}},
         0},
        {"PreviousBalances",
         {{"InsCustomerID", Kind::Text},
          {"PreviousDate", Kind::Date},
          {"Amount", Kind::Amount},
          {"Previous", Kind::Flag},
          {"ConvertAccount", Kind::Flag}},
         0}};
    return all;
}

using ModelRow = QStringList;

QString shown(const QVariant& value)
{
    return value.isNull() ? QStringLiteral("null") : value.toString();
}

/// A table and a list of rows to which the same changes are applied.
class Twin {
public:
    Twin(const TestTable& table, const std::shared_ptr<Connection>& connection, Random& random)
        : table_(table), shared_(connection), connection_(*shared_), random_(random)
    {
        connection_.Execute(
            Statement(QStringLiteral("delete from ") + QString::fromLatin1(table_.Name)));
        open();
    }

    void Batch()
    {
        const QList<ModelRow> before = rows_;
        for (int change = random_.Below(8); change >= 0; --change)
            this->change();
        switch (random_.Below(6)) {
        case 0:
            recordset_.CancelBatch();
            rows_ = before;
            break;
        case 1:
            connection_.BeginTrans();
            recordset_.UpdateBatch();
            connection_.RollbackTrans();
            // The changes are pending again, and a successful save stores them.
            EXPECT_EQ(stored(), sorted(before));
            recordset_.UpdateBatch();
            break;
        case 2:
            connection_.BeginTrans();
            recordset_.UpdateBatch();
            connection_.CommitTrans();
            break;
        default:
            recordset_.UpdateBatch();
            break;
        }
        EXPECT_FALSE(recordset_.HasPendingChanges());
        EXPECT_EQ(stored(), sorted(rows_));
        EXPECT_EQ(seen(), sorted(rows_));
        if (random_.Below(3) == 0)
            open();
    }

private:
    QString columns() const
    {
        QStringList names;
        for (const TestColumn& column : table_.Columns)
            names.append(QString::fromLatin1(column.Name));
        return names.join(u',');
    }

    void open()
    {
        recordset_ = Recordset();
        recordset_.Open(Statement(QStringLiteral("select %1 from %2")
                                      .arg(columns(), QString::fromLatin1(table_.Name))),
                        shared_, CursorType::Static, LockType::BatchOptimistic);
        rows_ = allOf(recordset_);
    }

    QList<ModelRow> allOf(const Recordset& rows) const
    {
        QList<ModelRow> all;
        for (int position = 0; position < rows.RecordCount(); ++position) {
            ModelRow row;
            for (int field = 0; field < rows.FieldCount(); ++field)
                row.append(shown(rows.ValueAt(position, field)));
            all.append(row);
        }
        return all;
    }

    static QList<ModelRow> sorted(QList<ModelRow> rows)
    {
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    QList<ModelRow> stored() const
    {
        return sorted(allOf(
            connection_.Execute(Statement(QStringLiteral("select %1 from %2")
                                              .arg(columns(), QString::fromLatin1(table_.Name))))));
    }

    QList<ModelRow> seen() const { return sorted(allOf(recordset_)); }

    QVariant value(Kind kind, bool isKey)
    {
        if (!isKey && random_.Below(4) == 0)
            return QVariant();
        static const char* const texts[] = {"a", "A", "a ", "قصور", "", "Kot 1", "it''s"};
        switch (kind) {
        case Kind::Whole:
            return random_.Below(isKey ? 100000 : 3);
        case Kind::Amount:
            return random_.Below(9) / 4.0;
        case Kind::Text:
            return isKey ? QStringLiteral("k%1").arg(random_.Below(100000))
                         : QString::fromUtf8(random_.Of(texts));
        case Kind::Flag:
            return random_.Below(2) == 1;
        case Kind::Date:
            return QDate(2026, 1 + random_.Below(12), 1);
        }
        return QVariant();
    }

    void setAll()
    {
        for (int column = 0; column < table_.Columns.size(); ++column) {
            const bool isKey = column < table_.Keys;
            if (isKey || random_.Below(4) > 0)
                recordset_.Fields(column).SetValue(value(table_.Columns[column].Is, isKey));
        }
    }

    ModelRow current()
    {
        ModelRow row;
        for (int column = 0; column < table_.Columns.size(); ++column)
            row.append(shown(recordset_.Fields(column).Value()));
        return row;
    }

    void change()
    {
        const int count = recordset_.RecordCount();
        const int what = count == 0 ? 0 : random_.Below(4);
        if (what <= 1) {
            recordset_.AddNew();
            setAll();
            recordset_.Update();
            rows_.append(current());
            return;
        }
        recordset_.MoveToPosition(random_.Below(count));
        const qsizetype twin = rows_.indexOf(current());
        ASSERT_GE(twin, 0);
        if (what == 2) {
            recordset_.Delete();
            rows_.removeAt(twin);
            return;
        }
        const int column = random_.Below(int(table_.Columns.size()));
        recordset_.Fields(column).SetValue(value(table_.Columns[column].Is, column < table_.Keys));
        if (random_.Below(5) == 0) {
            recordset_.CancelUpdate();
        } else {
            recordset_.Update();
            rows_[twin] = current();
        }
    }

    const TestTable& table_;
    std::shared_ptr<Connection> shared_;
    Connection& connection_;
    Random& random_;
    Recordset recordset_;
    QList<ModelRow> rows_;
};

} // namespace

TEST(Property, AnyBatchLeavesTheTableThatAPlainListOfRowsWouldBe)
{
    const TestCompany company;
    const auto connection = company.Connect();
    for (const TestTable& table : tables()) {
        for (unsigned seed = 1; seed <= 25; ++seed) {
            SCOPED_TRACE(std::string(table.Name) + ", seed " + std::to_string(seed));
            Random random(seed);
            Twin twin(table, connection, random);
            for (int batch = 0; batch < 8 && !testing::Test::HasFailure(); ++batch)
                twin.Batch();
        }
    }
}
