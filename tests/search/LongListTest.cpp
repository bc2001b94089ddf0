// A list that is long in the reading: the keys that come in meanwhile are heard, each once and in
// their order, and the list is the one that belongs to the text that stands.

#include "data/Connection.h"
#include "data/EngineAccess.h"
#include "data/sqlite/SqliteEngine.h"
#include "host/HostContext.h"
#include "search/SearchWindow.h"
#include "support/ExpectedBoxes.h"
#include "support/Keys.h"
#include "support/TestCompany.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QtTest>

#include <sqlite3.h>

namespace tests {

using namespace TradeForms;

namespace {

constexpr int Rows = 60'000;

/// A list that the database has to make up, row by row. Of each name that begins with a given
/// digit there is a tenth.
const SearchDeclaration SchSlow{
    .Name = "SchSlow",
    .Title = {"سست", "Slow"},
    .Statement = "Select ID, Name from Slow where 1=1{NameClause}",
    .Results = {{"ParaOutID", "ID", SearchResult::Type::Int32}},
    .Fields = {{"TxtID", SearchField::Type::Jump, "ID = {TxtID}", nullptr, {"نمبر", "Number"}},
               {"TxtName",
                SearchField::Type::QueryAgain,
                " and Name like '{TxtName}%'",
                "NameClause",
                {"نام", "Name"}}},
    .Columns = {{"ID", "ID", {"نمبر", "Number"}, 120, SearchColumn::Type::Number},
                {"Name", "Name", {"نام", "Name"}, 260, SearchColumn::Type::Latin, true}},
};

/// Counts the statements that read the list, from when it is made.
class Reads {
public:
    Reads() : raw_(static_cast<SqliteEngine&>(EngineAccess::Of(*HostContext::objCN)).Raw())
    {
        sqlite3_trace_v2(raw_, SQLITE_TRACE_STMT, tell, this);
    }
    ~Reads() { sqlite3_trace_v2(raw_, 0, nullptr, nullptr); }
    Reads(const Reads&) = delete;
    Reads& operator=(const Reads&) = delete;

    /// The texts, as they were begun.
    QStringList Begun;

private:
    static int tell(unsigned, void* self, void*, void* text)
    {
        const QString statement = QString::fromUtf8(static_cast<const char*>(text));
        if (statement.contains(s("from Slow")))
            static_cast<Reads*>(self)->Begun.append(statement);
        return 0;
    }

    sqlite3* raw_;
};

class LongListTest : public ::testing::Test {
protected:
    LongListTest()
    {
        company.Run(s("create view Slow as with recursive n(i) as (select 1 union all"
                      " select i + 1 from n where i < %1)"
                      " select i as ID, cast(i %% 10 as text) || 'x' || i as Name from n")
                        .replace(s("%%"), s("%"))
                        .arg(Rows));
        HostContext::objCN = company.Connect();
        owner.show();
    }
    ~LongListTest() override { HostContext::objCN.reset(); }

    /// Shows the dialog with its whole list, and lets the test drive its window.
    SearchDialog& show(const std::function<void(SearchWindow&)>& drive)
    {
        SearchDialog& dialog = SearchDialog::Shared(SchSlow);
        dialogs.Expect([&](Form& form) {
            auto& window = dynamic_cast<SearchWindow&>(form);
            waitForList(window);
            drive(window);
        });
        dialog.Show(&owner);
        return dialog;
    }

    /// Begins to read a list of all rows anew.
    static void readAgain(SearchWindow& window)
    {
        window.NarrowingField("TxtName").SetText(s("%"));
        ASSERT_TRUE(window.IsReading());
    }

    /// Puts keys where the system puts them: in line behind what waits already.
    static void post(SearchWindow& window, const QString& text)
    {
        for (const QChar c : text)
            post(window, QTest::asciiToKey(c.toLatin1()), QString(c));
    }
    static void post(SearchWindow& window, int key, const QString& text = QString())
    {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
            QCoreApplication::postEvent(window.windowHandle(),
                                        new QKeyEvent(type, key, Qt::NoModifier, text));
    }

    static void waitForList(SearchWindow& window)
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window.IsReading(); }, 60'000));
    }

    static QString cell(SearchWindow& window, const char* column)
    {
        return window.List().Cell(window.List().Row(), s(column));
    }

    TestCompany company;
    ExpectedBoxes boxes;
    ExpectedDialogs dialogs;
    QWidget owner;
};

} // namespace

TEST_F(LongListTest, ComesUpAtOnceAndSaysThatItIsBeingRead)
{
    SearchWindow window(SearchDialog::Shared(SchSlow));
    window.Load();
    EXPECT_TRUE(window.IsReading());
    EXPECT_EQ(window.Title().StateText(), s("پڑھا جا رہا ہے · reading 20,000"));
    EXPECT_EQ(window.List().RowCount(), 0);
    window.ShowModeless(false);
    waitForList(window);
    EXPECT_EQ(window.List().RowCount(), Rows);
    EXPECT_EQ(window.List().Row(), 0);
    EXPECT_EQ(window.List().SelectedRows(), QList<int>({0}));
    EXPECT_EQ(window.Title().StateText(), s("rows 60,000"));
}

TEST_F(LongListTest, KeysThatComeInWhileItIsReadAreAllThereAndItIsReadForTheLastOfThem)
{
    show([](SearchWindow& window) {
        Txt& name = window.NarrowingField("TxtName");
        ASSERT_TRUE(window.SetFocus(name));
        const Reads reads;
        post(window, s("3x123"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.IsReading(); }));
        waitForList(window);
        EXPECT_EQ(name.Text(), s("3x123"));
        EXPECT_TRUE(window.ListStatement().endsWith(s(" and Name like '3x123%'")));
        EXPECT_EQ(window.List().RowCount(), 1 + 1 + 10); // 123 itself, 1233, 12303 and so on
        EXPECT_EQ(cell(window, "ID"), s("123"));
        ASSERT_EQ(reads.Begun.size(), 1) << qPrintable(reads.Begun.join(u'\n'));
        EXPECT_TRUE(reads.Begun.constFirst().contains(s("'3x123%'")));
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(LongListTest, AKeyThatComesInWhileItIsReadGivesItUpForTheNewText)
{
    show([](SearchWindow& window) {
        Txt& name = window.NarrowingField("TxtName");
        ASSERT_TRUE(window.SetFocus(name));
        const Reads reads;
        int begun = 0;
        for (const char* key : {"3", "x", "1", "2"}) {
            post(window, s(key));
            ++begun;
            ASSERT_TRUE(QTest::qWaitFor([&] { return reads.Begun.size() == begun; }, 60'000));
        }
        waitForList(window);
        EXPECT_EQ(name.Text(), s("3x12"));
        EXPECT_EQ(reads.Begun.size(), 4);
        EXPECT_TRUE(window.ListStatement().endsWith(s("'3x12%'")));
        EXPECT_EQ(cell(window, "ID"), s("123"));
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(LongListTest, EnterTakesTheMarkedRowOfTheListThatBelongsToWhatIsTyped)
{
    SearchDialog& dialog = show([](SearchWindow& window) {
        ASSERT_TRUE(window.SetFocus(window.NarrowingField("TxtName")));
        post(window, s("7x2"));
        post(window, Qt::Key_Return, s("\r"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }, 60'000));
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutID").toInt(), 27);
}

TEST_F(LongListTest, TheFirstListIsWaitedForToo)
{
    SearchDialog& dialog = SearchDialog::Shared(SchSlow);
    SearchWindow window(dialog);
    window.Load();
    ASSERT_TRUE(window.IsReading());
    window.BtnSelect().Click();
    EXPECT_FALSE(window.IsReading());
    EXPECT_EQ(window.List().RowCount(), Rows);
    EXPECT_EQ(dialog.ParaOut("ParaOutID").toInt(), 1);
}

TEST_F(LongListTest, DownGoesIntoTheListThatBelongsToWhatIsTyped)
{
    SearchDialog& dialog = show([](SearchWindow& window) {
        window.NarrowingField("TxtName").SetText(s("5"));
        ASSERT_TRUE(window.IsReading());
        post(window, Qt::Key_Down);
        post(window, Qt::Key_Down);
        post(window, Qt::Key_Return, s("\r"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }, 60'000));
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutID").toInt(), 15);
}

TEST_F(LongListTest, ArrowsInTheOldListMoveInTheNewOne)
{
    show([](SearchWindow& window) {
        Press(window, Qt::Key_Down);
        window.NarrowingField("TxtName").SetText(s("5"));
        ASSERT_TRUE(window.IsReading());
        EXPECT_EQ(window.List().RowCount(), Rows); // as long as there is no other
        Press(window, Qt::Key_Down);
        EXPECT_FALSE(window.IsReading());
        EXPECT_EQ(window.List().RowCount(), Rows / 10);
        EXPECT_EQ(cell(window, "ID"), s("15"));
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(LongListTest, EscWhileItIsReadLeavesWithoutAResult)
{
    SearchDialog& dialog = show([](SearchWindow& window) {
        readAgain(window);
        Press(window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
        EXPECT_FALSE(window.IsReading());
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutID").toInt(), 0);
    // Nothing is left of it that would hold the database.
    HostContext::objCN->BeginTrans();
    HostContext::objCN->CommitTrans();
}

TEST_F(LongListTest, ClosedByTheSystemWhileItIsReadItEndsToo)
{
    show([](SearchWindow& window) {
        readAgain(window);
        window.close();
        EXPECT_FALSE(window.IsReading());
    });
}

TEST_F(LongListTest, AJumpTypedMeanwhileIsMadeInTheWholeList)
{
    SearchDialog& dialog = show([](SearchWindow& window) {
        readAgain(window);
        post(window, s("59123"));
        post(window, Qt::Key_Return, s("\r"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }, 60'000));
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutID").toInt(), 59'123);
}

TEST_F(LongListTest, AListReadAgainForgetsTheJumpAsItForgetsTheRow)
{
    show([](SearchWindow& window) {
        readAgain(window);
        // Without the event loop in between, in which the reading would go on.
        window.NarrowingField("TxtID").SetText(s("59123"));
        ASSERT_TRUE(window.IsReading());
        window.NarrowingField("TxtName").SetText(s("3"));
        waitForList(window);
        EXPECT_EQ(cell(window, "ID"), s("3"));
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(LongListTest, AFailureWhileItIsReadIsToldAndTheListStays)
{
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    show([this](SearchWindow& window) {
        // The statement begins well; a number of a late row overflows.
        company.Run(s("drop view Slow; create view Slow as with recursive n(i) as (select 1 union"
                      " all select i + 1 from n where i < 60000) select i as ID, 'x' || i as Name"
                      " from n where abs(case when i < 50000 then 1"
                      " else -9223372036854775807 - 1 end) > 0"));
        HostContext::objCN->Execute("select * from Branches"); // hears of it by reading a table
        window.NarrowingField("TxtName").SetText(s("x"));
        ASSERT_TRUE(window.IsReading());
        waitForList(window);
        EXPECT_EQ(boxes.Left(), 0);
        EXPECT_EQ(window.List().RowCount(), Rows);
        EXPECT_EQ(window.Title().StateText(), s("rows 60,000"));
        EXPECT_TRUE(window.isVisible());
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(LongListTest, AQuoteTypedMeanwhileIsToldOnceAndTheNextKeyTriesAgain)
{
    boxes.Expect({s("Unclosed quotation mark after the character string '3''."), MsgIcon::Stop,
                  s("Error occured")});
    show([this](SearchWindow& window) {
        ASSERT_TRUE(window.SetFocus(window.NarrowingField("TxtName")));
        post(window, s("3'"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.IsReading(); }));
        waitForList(window);
        EXPECT_EQ(boxes.Left(), 0);
        EXPECT_EQ(window.List().RowCount(), Rows);
        post(window, Qt::Key_Backspace);
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.List().RowCount() < Rows; }, 60'000));
        EXPECT_EQ(window.List().RowCount(), Rows / 10);
        EXPECT_EQ(window.NarrowingField("TxtName").Text(), s("3"));
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(LongListTest, ADoubleClickIsNotTakenForARowOfTheListThatGoes)
{
    show([](SearchWindow& window) {
        window.NarrowingField("TxtName").SetText(s("5"));
        ASSERT_TRUE(window.IsReading());
        DoubleClickRow(window, window.List(), 3);
        EXPECT_TRUE(window.isVisible());
        EXPECT_FALSE(window.IsReading());
        EXPECT_EQ(cell(window, "ID"), s("5"));
        Press(window, Qt::Key_Escape);
    });
}

TEST_F(LongListTest, OtherStatementsRunWhileItIsRead)
{
    SearchWindow window(SearchDialog::Shared(SchSlow));
    window.Load();
    // More of them than the engine keeps.
    for (int i = 0; i < 300; ++i) {
        const QByteArray statement =
            "select count(*) as N from Branches where 1=1 or 2=" + QByteArray::number(i);
        EXPECT_EQ(HostContext::objCN->Execute(statement.constData()).Value("N").toInt(), 3);
    }
    ASSERT_TRUE(window.IsReading());
    window.ShowModeless(false);
    waitForList(window);
    EXPECT_EQ(window.List().RowCount(), Rows);
}

TEST_F(LongListTest, AnEmptyListAfterALongOneIsFoundToo)
{
    show([](SearchWindow& window) {
        window.NarrowingField("TxtName").SetText(s("zzz"));
        EXPECT_TRUE(window.IsReading());
        waitForList(window);
        EXPECT_EQ(window.List().RowCount(), 0);
        Press(window, Qt::Key_Escape);
    });
}

} // namespace tests
