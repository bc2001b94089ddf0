// Salaries, franchise holders' salaries and workshop salaries.

#include "search/Catalogue.h"
#include "support/SearchDesk.h"
#include "support/Text.h"

#include <QTest>

namespace tests {

namespace {

QString shown(const QDate& month)
{
    return QLocale(QLocale::English).toString(month, s("MMM-yyyy"));
}

class SalaryListsTest : public SearchDesk {
protected:
    /// The list of last month and this one, whatever day it is.
    void LookAtTwoMonths(const SearchDeclaration& declaration,
                         const std::function<void(SearchWindow&)>& look)
    {
        SCOPED_TRACE(declaration.Name);
        Look(declaration, [&](SearchWindow& window) {
            window.DtpFrom()->SetValue(month.addMonths(-1));
            look(window);
        });
    }

    const QList<const SearchDeclaration*> all{&SchSalary(), &SchFrenchiserSalary(),
                                              &SchWorkShopSalary()};
};

} // namespace

TEST_F(SalaryListsTest, ComeUpFromTheMonthThirtyDaysAgoToThisOne)
{
    const QDate ago = today.addDays(-30);
    for (const SearchDeclaration* declaration : all) {
        Look(
            *declaration,
            [&](SearchWindow& window) {
                EXPECT_EQ(window.DtpFrom()->Value(), QDate(ago.year(), ago.month(), 1));
                EXPECT_EQ(window.DtpTo()->Value(), month);
                EXPECT_EQ(window.DtpTo()->text(), shown(month));
            });
    }
}

TEST_F(SalaryListsTest, ListWholeMonthsFromTheFirstUpToTheOneAfterTheLast)
{
    for (const SearchDeclaration* declaration : all) {
        LookAtTwoMonths(
            *declaration,
            [&](SearchWindow& window) {
                const char* column = declaration == &SchSalary() ? "Date" : "Month";
                QStringList months = Column(window, column).split(u' ');
                months.sort();
                QStringList expected{shown(month), shown(month.addMonths(-1))};
                expected.sort();
                EXPECT_EQ(months, expected);
                window.DtpTo()->SetValue(month.addMonths(-1));
                EXPECT_EQ(Column(window, column), shown(month.addMonths(-1)));
                window.DtpFrom()->SetValue(month.addMonths(-3));
                EXPECT_EQ(window.List().RowCount(), 2);
            });
    }
}

TEST_F(SalaryListsTest, ASalaryOnTheLastDayOfTheLastMonthIsListed)
{
    company.Run(s("update Salaries set SalaryMonth = '%1' where StaffID = '2014'")
                    .arg(month.addMonths(1).addDays(-1).toString(Qt::ISODate)));
    LookAtTwoMonths(SchSalary(),
                    [](SearchWindow& window) { EXPECT_EQ(window.List().RowCount(), 2); });
    company.Run(s("update Salaries set SalaryMonth = '%1' where StaffID = '2014'")
                    .arg(month.addMonths(1).toString(Qt::ISODate)));
    LookAtTwoMonths(SchSalary(),
                    [](SearchWindow& window) { EXPECT_EQ(Column(window, "ID"), s("5001")); });
}

TEST_F(SalaryListsTest, MonthsAreReadAgainAsTheyAreTypedOrStepped)
{
    Look(
        SchSalary(),
        [](SearchWindow& window) {
            window.SetFocus(*window.DtpTo());
            Type(window, s("mar"));
            Press(window, Qt::Key_Right);
            Type(window, s("2024"));
            Press(window, Qt::Key_Tab);
            EXPECT_EQ(window.DtpTo()->Value(), QDate(2024, 3, 1));
            EXPECT_TRUE(Read(window, s("SalaryMonth < '2024-04-01'")));
            window.SetFocus(*window.DtpTo());
            Press(window, Qt::Key_Down);
            EXPECT_EQ(window.DtpTo()->Value(), QDate(2024, 2, 1));
            EXPECT_TRUE(Read(window, s("SalaryMonth < '2024-03-01'")));
        });
}

TEST_F(SalaryListsTest, ShowTheSumOfEachSalary)
{
    const auto totals = [](SearchWindow& window) {
        QStringList texts = Column(window, "Total").split(u' ');
        texts.sort();
        return texts.join(u' ');
    };
    LookAtTwoMonths(SchSalary(), [&](SearchWindow& window) {
        // 15000 and 28 of commissions and prizes and 30 other, less 200, 100, 50 and 8.
        EXPECT_EQ(totals(window), s("14700 24400"));
        TypeInto(window, "TxtID", s("2014"));
        EXPECT_EQ(Current(window, "Name"), s("محمد اسلم"));
        EXPECT_EQ(Current(window, "FName"), s("محمد اکرم"));
        EXPECT_EQ(Current(window, "Designation"), s("ڈرائیور"));
    });
    LookAtTwoMonths(
        SchFrenchiserSalary(),
        [&](SearchWindow& window) {
            // 1400 of rows and 10000 and 7, less 20, 10, 5 and 2; and a month without rows.
            EXPECT_EQ(totals(window), s("10000 11370"));
            EXPECT_EQ(Current(window, "Name"), s("طارق محمود"));
        });
    LookAtTwoMonths(SchWorkShopSalary(),
                    [&](SearchWindow& window) { EXPECT_EQ(totals(window), s("12800 14071")); });
}

TEST_F(SalaryListsTest, AreReadAgainByAnyPartOfTheNameAndTheWholeCode)
{
    LookAtTwoMonths(SchSalary(), [](SearchWindow& window) {
        TypeInto(window, "TxtName", s("نذیر"));
        EXPECT_EQ(Column(window, "ID"), s("5001"));
        TypeInto(window, "TxtID", s("2014"));
        EXPECT_EQ(window.List().RowCount(), 0);
        TypeInto(window, "TxtName", QString());
        EXPECT_EQ(Column(window, "ID"), s("2014"));
        TypeInto(window, "TxtID", s("201"));
        EXPECT_EQ(window.List().RowCount(), 0);
    });
    LookAtTwoMonths(SchFrenchiserSalary(), [](SearchWindow& window) {
        TypeInto(window, "TxtName", s("محمود"));
        EXPECT_EQ(window.List().RowCount(), 2);
        TypeInto(window, "TxtID", s("3108"));
        EXPECT_EQ(window.List().RowCount(), 0);
    });
    LookAtTwoMonths(SchWorkShopSalary(), [](SearchWindow& window) {
        TypeInto(window, "TxtID", s("3108"));
        EXPECT_EQ(window.List().RowCount(), 2);
    });
}

TEST_F(SalaryListsTest, ACharacterTypedInTheListReadsByCode)
{
    LookAtTwoMonths(
        SchSalary(),
        [](SearchWindow& window) {
            Press(window, Qt::Key_Down);
            Type(window, s("5"));
            EXPECT_TRUE(window.IsActive(window.NarrowingField("TxtID")));
            EXPECT_EQ(window.List().RowCount(), 0); // no code is just 5
            Type(window, s("001"));
            EXPECT_EQ(Column(window, "ID"), s("5001"));
        });
}

TEST_F(SalaryListsTest, GiveThePersonAndTheMonth)
{
    for (const auto& [declaration, staff] :
         {std::pair(&SchSalary(), "5001"), std::pair(&SchFrenchiserSalary(), "4001"),
          std::pair(&SchWorkShopSalary(), "3108")}) {
        SearchDialog& dialog = Show(*declaration, [&](SearchWindow& window) {
            window.DtpFrom()->SetValue(month.addMonths(-1));
            window.DtpTo()->SetValue(month.addMonths(-1));
            Press(window, Qt::Key_Return);
        });
        EXPECT_EQ(dialog.ParaOut("ParaOutStaffID").toString(), s(staff));
        EXPECT_EQ(dialog.ParaOut("ParaOutDate").toString(),
                  month.addMonths(-1).toString(s("dd/MM/yyyy")));
        EXPECT_EQ(dialog.ParaOutDate("ParaOutDate"), month.addMonths(-1)) << "day first";
    }
}

TEST_F(SalaryListsTest, AHundredThousandSalariesAreListed)
{
    company.Run(s("delete from Salaries; with recursive n(i) as (select 1 union all"
                  " select i + 1 from n where i < 100000)"
                  " insert into Salaries (StaffID, SalaryMonth, BasicSalary)"
                  " select '5001', date('2000-01-01', '+' || i || ' days'), i from n"));
    Look(SchSalary(), [](SearchWindow& window) {
        window.DtpFrom()->SetValue(QDate(2000, 1, 1));
        window.DtpTo()->SetValue(QDate(2400, 1, 1));
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.List().RowCount() == 100000; }, 60000));
        Press(window, Qt::Key_Down);
        Press(window, Qt::Key_End);
        EXPECT_EQ(window.List().Row(), 99999);
        TypeInto(window, "TxtID", s("2014")); // after a long list the next one waits for a pause
        EXPECT_TRUE(QTest::qWaitFor([&] { return window.List().RowCount() == 0; }, 60000));
    });
}

} // namespace tests
