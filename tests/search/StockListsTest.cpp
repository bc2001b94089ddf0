// Stock in, stock out and numbered stock in, each with the lines of the current document.

#include "search/Catalogue.h"
#include "support/SearchDesk.h"
#include "support/Text.h"

#include <QTest>

namespace tests {

namespace {

class StockListsTest : public SearchDesk {
protected:
    const QList<const SearchDeclaration*> all{&SchStockIn(), &SchStockOut(), &SchStockInDetail()};
};

} // namespace

TEST_F(StockListsTest, ComeUpWithTheLastThirtyDays)
{
    for (const SearchDeclaration* declaration : all) {
        SCOPED_TRACE(declaration->Name);
        Look(*declaration, [&](SearchWindow& window) {
            EXPECT_EQ(window.DtpFrom()->Value(), today.addDays(-30));
            EXPECT_EQ(window.DtpTo()->Value(), today);
            EXPECT_EQ(Column(window, "Date"), Shown(-30) + u' ' + Shown(0));
            window.DtpFrom()->SetValue(today.addDays(-31));
            EXPECT_EQ(window.List().RowCount(), 3);
        });
    }
}

TEST_F(StockListsTest, ShowWhoseAndHowMuchTheyAre)
{
    Look(SchStockIn(), [](SearchWindow& window) {
        EXPECT_EQ(Column(window, "AccountName"), s("حاجی ٹریڈرز "));
        EXPECT_EQ(Column(window, "BranchName"), s("قصور لاہور"));
        EXPECT_EQ(Column(window, "TotalItems"), s("5 1"));
    });
    Look(SchStockOut(), [](SearchWindow& window) {
        EXPECT_EQ(Column(window, "AccountName"), s("لاہور موٹرز "));
        EXPECT_EQ(Column(window, "BranchName"), s("قصور پتوکی"));
        EXPECT_EQ(Column(window, "TotalItems"), s("1 3"));
    });
    Look(SchStockInDetail(), [](SearchWindow& window) {
        EXPECT_EQ(Column(window, "ReceivingName"), s("غلام رسول "));
        EXPECT_EQ(Column(window, "TotalItems"), s("2 1"));
    });
}

TEST_F(StockListsTest, ShowTheLinesOfEachRowThatBecomesCurrent)
{
    Look(SchStockIn(), [](SearchWindow& window) {
        Grid& lines = *window.GridDetail();
        EXPECT_EQ(Column(lines, "ProductName"), s("موٹر سائیکل 125 سی سی واشنگ مشین"));
        EXPECT_EQ(Column(lines, "Qty"), s("2 3"));
        Press(window, Qt::Key_Down);
        Press(window, Qt::Key_Down);
        EXPECT_EQ(Column(lines, "ProductName"), s("موٹر سائیکل 70 سی سی"));
        TypeInto(window, "TxtFilter", s("11")); // a jump is a change of row, too
        EXPECT_EQ(Column(lines, "Qty"), s("2 3"));
    });
    Look(SchStockOut(), [](SearchWindow& window) {
        EXPECT_EQ(Column(*window.GridDetail(), "Qty"), s("1"));
        ClickRow(window, window.List(), 1);
        EXPECT_EQ(Column(*window.GridDetail(), "Qty"), s("1 2"));
    });
    Look(
        SchStockInDetail(),
        [](SearchWindow& window) {
            Grid& lines = *window.GridDetail();
            EXPECT_EQ(Column(lines, "ChasisNo"), s("CH-10021 CH-10022"));
            EXPECT_EQ(Column(lines, "EngineNo"), s("EN-70881 EN-70882"));
            window.List().SetRow(1);
            EXPECT_EQ(Column(lines, "ProductName"), s("موٹر سائیکل 70 سی سی"));
            EXPECT_EQ(Column(lines, "EngineNo"), s("EN-5531"));
        });
    Look(SchGatePass(), [](SearchWindow& window) { EXPECT_EQ(window.GridDetail(), nullptr); });
}

TEST_F(StockListsTest, ShowTheLinesAfterEachReadAndNoneForAnEmptyList)
{
    Look(
        SchStockIn(),
        [](SearchWindow& window) {
            TypeInto(window, "TxtBranchCode", s("2"));
            EXPECT_EQ(Column(*window.GridDetail(), "ProductName"), s("موٹر سائیکل 70 سی سی"));
            TypeInto(window, "TxtBranchCode", s("9"));
            EXPECT_EQ(window.List().RowCount(), 0);
            EXPECT_EQ(window.GridDetail()->RowCount(), 0);
            TypeInto(window, "TxtBranchCode", QString());
            EXPECT_EQ(Column(*window.GridDetail(), "Qty"), s("2 3"));
        });
}

TEST_F(StockListsTest, KeysInTheLinesMoveThereAndEnterStillTakesTheDocument)
{
    SearchDialog& dialog = Show(SchStockIn(), [](SearchWindow& window) {
        window.SetFocus(*window.GridDetail());
        Press(window, Qt::Key_Down);
        EXPECT_EQ(window.GridDetail()->Row(), 1);
        EXPECT_EQ(window.List().Row(), 0);
        Press(window, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutStockID").toInt(), 11);
}

TEST_F(StockListsTest, WhereTheLinesCannotBeReadTheDialogStays)
{
    Look(
        SchStockInDetail(),
        [this](SearchWindow& window) {
            company.Run("alter table StockInDetailBody rename to Gone");
            boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
            Press(window, Qt::Key_Down);
            Press(window, Qt::Key_Down);
            EXPECT_EQ(window.List().Row(), 1);
            EXPECT_TRUE(window.isVisible());
        });
}

TEST_F(StockListsTest, AreReadAgainByBranchAtOnce)
{
    for (const SearchDeclaration* declaration : {&SchStockIn(), &SchStockOut()}) {
        Look(
            *declaration,
            [&](SearchWindow& window) {
                TypeInto(window, "TxtBranchCode", s("1"));
                EXPECT_EQ(Column(window, "ID"), s("11"));
            });
    }
}

TEST_F(StockListsTest, AProductNameTakesEffectAtTheNextRead)
{
    const struct {
        const SearchDeclaration* Is;
        const char* Product;
        const char* All;
        const char* Found;
    } cases[] = {{&SchStockIn(), "واشنگ", "11 12", "11"},
                 {&SchStockOut(), "125", "11 12", "12"},
                 {&SchStockInDetail(), "70", "1 2", "2"}};
    for (const auto& [declaration, product, listed, found] : cases) {
        SCOPED_TRACE(declaration->Name);
        Look(*declaration, [&, text = product, before = listed, after = found,
                            dialog = declaration](SearchWindow& window) {
            TypeInto(window, "TxtProductName", s(text));
            Press(window, Qt::Key_F12); // is no key here
            EXPECT_EQ(Column(window, "ID"), s(before));
            Click(window, *window.BtnFilter());
            EXPECT_EQ(Column(window, "ID"), s(after));
            TypeInto(window, "TxtProductName", QString());
            EXPECT_EQ(Column(window, "ID"), s(after));
            window.DtpTo()->SetValue(window.DtpTo()->Value().addDays(1)); // a read, too
            EXPECT_EQ(Column(window, "ID"), s(before));
            TypeInto(window, "TxtProductName", s(text));
            TypeInto(window, dialog == &SchStockInDetail() ? "TxtEngineNo" : "TxtBranchCode",
                     s("9"));
            EXPECT_EQ(window.List().RowCount(), 0);
            EXPECT_TRUE(Read(window, s(" and ProductName like '%") + s(text) + s("%'")));
        });
    }
}

TEST_F(StockListsTest, NumberedStockIsReadAgainByTheWholeEngineOrChassisNumber)
{
    Look(
        SchStockInDetail(),
        [](SearchWindow& window) {
            TypeInto(window, "TxtEngineNo", s("en-5531"));
            EXPECT_EQ(Column(window, "ID"), s("2"));
            TypeInto(window, "TxtEngineNo", s("EN-553"));
            EXPECT_EQ(window.List().RowCount(), 0);
            TypeInto(window, "TxtEngineNo", QString());
            TypeInto(window, "TxtChasisNo", s("CH-10022"));
            EXPECT_EQ(Column(window, "ID"), s("1"));
            EXPECT_EQ(Column(window, "TotalItems"), s("1")); // those that meet the clause
        });
}

TEST_F(StockListsTest, JumpByNumber)
{
    for (const SearchDeclaration* declaration : all) {
        SCOPED_TRACE(declaration->Name);
        Look(*declaration, [&](SearchWindow& window) {
            const QString last = window.List().Cell(1, s("ID"));
            TypeInto(window, "TxtFilter", last);
            EXPECT_EQ(Current(window, "ID"), last);
            TypeInto(window, "TxtFilter", window.List().Cell(0, s("ID")));
            EXPECT_EQ(window.List().Row(), 0);
            TypeInto(window, "TxtFilter", s("99"));
            EXPECT_EQ(Current(window, "ID"), last);
            TypeInto(window, "TxtFilter", QString());
            EXPECT_EQ(window.List().Row(), 0);
        });
    }
}

TEST_F(StockListsTest, CarryNumbersUpTo32767)
{
    const QList<std::pair<const SearchDeclaration*, const char*>> tables{
        {&SchStockIn(), "StockIn"},
        {&SchStockOut(), "StockOut"},
        {&SchStockInDetail(), "StockInDetail"}};
    for (const auto& [declaration, table] : tables) {
        SCOPED_TRACE(table);
        int number = declaration == &SchStockInDetail() ? 2 : 12;
        for (const int next : {32767, 32768}) {
            company.Run(s("update %1Header set StockID = %2 where StockID = %3;"
                          "update %1Body set StockID = %2 where StockID = %3")
                            .arg(s(table))
                            .arg(next)
                            .arg(number));
            number = next;
            const bool fails = next > 32767;
            if (fails)
                boxes.Expect({s("Overflow"), MsgIcon::Stop, s("Error occured")});
            SearchDialog& dialog = Show(*declaration, [&](SearchWindow& window) {
                TypeInto(window, "TxtFilter", QString::number(next));
                Press(window, Qt::Key_Return);
                EXPECT_EQ(window.isVisible(), fails);
                if (fails)
                    Press(window, Qt::Key_Escape);
            });
            EXPECT_EQ(dialog.ParaOut("ParaOutStockID").toInt(), fails ? 0 : next);
        }
    }
}

TEST_F(StockListsTest, AHundredThousandDocumentsAreListedWithTheLinesOfTheCurrentOne)
{
    company.Run(s("with recursive n(i) as (select 1000 union all select i + 1 from n"
                  " where i < 100999) insert into StockInDetailHeader (StockID, Date)"
                  " select i, '%1' from n;"
                  "insert into StockInDetailBody select StockID, '101', 'E' || StockID, 'C'"
                  " from StockInDetailHeader where StockID >= 1000")
                    .arg(today.toString(Qt::ISODate)));
    Look(SchStockInDetail(), [](SearchWindow& window) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.List().RowCount() == 100002; }, 60000));
        TypeInto(window, "TxtFilter", s("100999"));
        EXPECT_EQ(Current(window, "ID"), s("100999"));
        EXPECT_EQ(Column(*window.GridDetail(), "EngineNo"), s("E100999"));
    });
}

} // namespace tests
