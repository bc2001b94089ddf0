// Areas, branches, products, staff, accounts, parts, parties, sectors and customers.

#include "search/Catalogue.h"
#include "support/SearchDesk.h"
#include "support/Text.h"

#include <QTest>

namespace tests {

namespace {

class CodeListsTest : public SearchDesk {
protected:
    /// A text typed into a field, and the key of the row on which the jump then stands.
    struct Jump {
        const char* Field;
        const char* Typed;
        const char* Reached;
    };

    void ExpectJumps(const SearchDeclaration& declaration, const QList<Jump>& jumps)
    {
        Look(
            declaration,
            [&](SearchWindow& window) {
                const QString listed = Column(window, "ID");
                for (const Jump& jump : jumps) {
                    SCOPED_TRACE(jump.Typed);
                    TypeInto(window, jump.Field, s(jump.Typed));
                    EXPECT_EQ(Current(window, "ID"), s(jump.Reached));
                    EXPECT_EQ(window.List().SelectedRows(), QList<int>{window.List().Row()});
                    TypeInto(window, jump.Field, QString());
                    EXPECT_EQ(window.List().Row(), 0);
                }
                EXPECT_EQ(Column(window, "ID"), listed); // the list stays whole
            });
    }

    static void GiveBranch(const SearchDeclaration& declaration, const char* code)
    {
        SearchDialog::Shared(declaration).SetParaIn("ParaInBranchCode", s(code));
    }
};

} // namespace

// Areas and branches

TEST_F(CodeListsTest, AreasJumpByTheBeginningOfTheirCodeAndName)
{
    ExpectJumps(SchArea(), {{"TxtID", "ra", "Raja"},
                            {"TxtID", "x", "Lahore"},
                            {"TxtName", "راجہ", "Raja"},
                            {"TxtName", "جنگ", "Lahore"}}); // within a name: no match
}

TEST_F(CodeListsTest, AllAreasAreListedForBranchZeroAndOtherwiseTheBranchsOwn)
{
    Look(SchArea(),
         [](SearchWindow& window) { EXPECT_EQ(Column(window, "ID"), s("Kot Raja Lahore")); });
    GiveBranch(SchArea(), "2");
    Look(SchArea(), [](SearchWindow& window) { EXPECT_EQ(Column(window, "ID"), s("Lahore")); });
}

TEST_F(CodeListsTest, ABranchCodeThatIsMissingFailsTheReadInsteadOfListingAll)
{
    for (const SearchDeclaration* declaration : {&SchArea(), &SchBranch()}) {
        GiveBranch(*declaration, "");
        boxes.Expect({s("Incorrect syntax near '='."), MsgIcon::Stop, s("Error occured")});
        Look(*declaration, [](SearchWindow& window) { EXPECT_EQ(window.List().RowCount(), 0); });
    }
}

TEST_F(CodeListsTest, BranchesJumpByTheirWholeCodeAndTheBeginningOfTheirName)
{
    company.Run("insert into Branches values (21, 'رائے ونڈ')");
    ExpectJumps(SchBranch(), {{"TxtID", "2", "2"},
                              {"TxtID", "21", "21"},
                              {"TxtID", "9", "21"},
                              {"TxtName", "پتو", "3"},
                              {"TxtName", "ونڈ", "21"},
                              {"TxtName", "ہور", "21"}});
}

TEST_F(CodeListsTest, ABranchOfficeSeesItsOwnBranchAlone)
{
    GiveBranch(SchBranch(), "3");
    Look(SchBranch(), [](SearchWindow& window) { EXPECT_EQ(Column(window, "ID"), s("3")); });
}

// Products

TEST_F(CodeListsTest, ProductsShowTheirStockOfAllBranchesAndJumpByTheBeginningOfTheirCode)
{
    company.Run("delete from StockOutBody; delete from GatePassBody;"
                "delete from StockInBody where StockID > 2");
    Look(SchProduct(),
         [](SearchWindow& window) { EXPECT_EQ(Column(window, "Stock"), s("25 14 30 8")); });
    ExpectJumps(SchProduct(),
                {{"TxtID", "2", "210"}, {"TxtID", "23", "233"}, {"TxtID", "3", "233"}});
}

TEST_F(CodeListsTest, ProductsAreReadAgainByAnyPartOfTheirName)
{
    Look(
        SchProduct(),
        [](SearchWindow& window) {
            TypeInto(window, "TxtName", s("سائیکل"));
            EXPECT_EQ(Column(window, "ID"), s("101 104"));
            TypeInto(window, "TxtName", s("پنکھا")); // was never in stock
            EXPECT_EQ(window.List().RowCount(), 0);
            TypeInto(window, "TxtName", QString());
            EXPECT_EQ(window.List().RowCount(), 4);
        });
}

// Staff

TEST_F(CodeListsTest, StaffJumpByTheBeginningOfTheirCode)
{
    ExpectJumps(SchStaff(),
                {{"TxtID", "31", "3107"}, {"TxtID", "3108", "3108"}, {"TxtID", "1", "5002"}});
}

TEST_F(CodeListsTest, StaffWithAFranchiseClauseListsFranchiseHoldersAndItLandsBehindTheName)
{
    SearchDialog::Shared(SchStaff()).SetParaIn("ParaInStr", s(" and Frenchiser=1"));
    Look(SchStaff(), [](SearchWindow& window) {
        EXPECT_EQ(Column(window, "ID"), s("4001"));
        TypeInto(window, "TxtName", s("طارق"));
        EXPECT_EQ(Column(window, "ID"), s("4001"));
        EXPECT_TRUE(window.ListStatement().endsWith(
            s("where 1=1 and Name like '%طارق%' and Frenchiser=1")));
        TypeInto(window, "TxtName", s("احمد"));
        EXPECT_EQ(window.List().RowCount(), 0);
    });
}

TEST_F(CodeListsTest, StaffTakesEachOfTheClausesThatFormsGiveIt)
{
    const QList<std::pair<const char*, const char*>> clauses{
        {" and Frenchiser=1", "4001"},
        {" and Fieldworker=1", "2014 2015 5001 5002"},
        {" and FieldWorker=1", "2014 2015 5001 5002"},
        {" and Fieldworker=1 ", "2014 2015 5001 5002"},
        {" and Machenic=0", "2014 2015 3107 4001 5001 5002"},
        {" and Machenic=1", "3108"},
        {"", "2014 2015 3107 3108 4001 5001 5002"},
    };
    for (const auto& [clause, listed] : clauses) {
        SearchDialog::Shared(SchStaff()).SetParaIn("ParaInStr", s(clause));
        Look(SchStaff(), [&, text = listed, given = clause](SearchWindow& window) {
            EXPECT_EQ(Column(window, "ID"), s(text));
            EXPECT_TRUE(window.ListStatement().endsWith(s("  where 1=1") + s(given)));
        });
    }
}

TEST_F(CodeListsTest, StaffOfABranchThatIsGoneAreMissing)
{
    company.Run("delete from Branches where BranchCode = 3");
    Look(SchStaff(), [](SearchWindow& window) {
        EXPECT_EQ(Column(window, "ID"), s("2014 2015 3107 3108 5001 5002"));
        EXPECT_EQ(Current(window, "Branch"), s("قصور"));
    });
}

// Accounts, parts, parties, sectors

TEST_F(CodeListsTest, AccountsJumpByTheBeginningOfTheirNumberAndAnyPartOfTheirName)
{
    ExpectJumps(SchAccounts(), {{"TxtID", "7", "7"},
                                {"TxtID", "12", "12"},
                                {"TxtID", "9", "12"},
                                {"TxtName", "ٹریڈرز", "7"},
                                {"TxtName", "x", "12"}});
}

TEST_F(CodeListsTest, PartsJumpByTheirWholeNumberAndTheBeginningOfTheirName)
{
    ExpectJumps(SchParts(), {{"TxtID", "12", "12"},
                             {"TxtID", "1", "13"}, // no part has this number
                             {"TxtName", "بریک", "12"},
                             {"TxtName", "شو", "13"}});
    Look(SchParts(),
         [](SearchWindow& window) { EXPECT_EQ(Column(window, "Rate"), s("850 420.5 2900")); });
}

TEST_F(CodeListsTest, PartiesJumpByTheBeginningOfTheirCodeAndAnyPartOfTheirName)
{
    company.Run("insert into Parties values ('Q7', 'نیو الیکٹرونکس سنٹر')");
    ExpectJumps(SchParty(), {{"TxtID", "p2", "P2"},
                             {"TxtID", "2", "Q7"},
                             {"TxtName", "الیکٹرونکس", "P2"},
                             {"TxtName", "سنٹر", "Q7"}});
}

TEST_F(CodeListsTest, SectorsJumpByTheBeginningOfTheirNumberAndName)
{
    company.Run("insert into Sectors values (21, 'مرکز')");
    ExpectJumps(SchSector(), {{"TxtID", "2", "2"},
                              {"TxtID", "21", "21"},
                              {"TxtID", "9", "21"},
                              {"TxtName", "سیکٹر ب", "2"},
                              {"TxtName", "ب", "21"}});
}

TEST_F(CodeListsTest, ALetterWhereANumberIsComparedFailsAndTheDialogStays)
{
    for (const SearchDeclaration* declaration : {&SchBranch(), &SchParts()}) {
        boxes.Expect({s("Incorrect syntax near 'x'."), MsgIcon::Stop, s("Error occured")});
        Look(*declaration, [](SearchWindow& window) {
            TypeInto(window, "TxtID", s("x"));
            EXPECT_TRUE(window.isVisible());
            EXPECT_EQ(window.List().RowCount(), 3);
        });
    }
}

// Customers

TEST_F(CodeListsTest, CustomersOfNoAreaAreAllAccountsOfAllAreas)
{
    for (const char* area : {"", "  "}) {
        SearchDialog::Shared(SchCustomer()).SetParaIn("ParaInAreaCode", s(area));
        Look(SchCustomer(), [](SearchWindow& window) {
            EXPECT_EQ(Column(window, "AreaCode"), s("Kot Kot Kot Raja Gone"));
        });
    }
}

TEST_F(CodeListsTest, CustomersOfAnAreaAreItsOwnWhateverItsCase)
{
    SearchDialog::Shared(SchCustomer()).SetParaIn("ParaInAreaCode", s("kOT"));
    Look(SchCustomer(),
         [](SearchWindow& window) { EXPECT_EQ(Column(window, "ID"), s("11 12 13")); });
}

TEST_F(CodeListsTest, CustomersJumpByTheWholeCardNumberOnly)
{
    ExpectJumps(SchCustomer(), {{"TxtID", "12", "12"}, {"TxtID", "13", "13"}, {"TxtID", "1", "7"}});
}

TEST_F(CodeListsTest, CustomersAreReadAgainByAnyPartOfNameAndFathersName)
{
    Look(
        SchCustomer(),
        [](SearchWindow& window) {
            TypeInto(window, "TxtName", s("احمد"));
            EXPECT_EQ(Column(window, "ID"), s("11 12 13 12"));
            TypeInto(window, "TxtFName", s("نبی"));
            EXPECT_EQ(Column(window, "ID"), s("12"));
            TypeInto(window, "TxtName", QString());
            TypeInto(window, "TxtFName", s("احمد"));
            EXPECT_EQ(Column(window, "ID"), s("7"));
        });
}

TEST_F(CodeListsTest, CustomersAreGivenByCardAndArea)
{
    SearchDialog& dialog = Show(SchCustomer(), [](SearchWindow& window) {
        TypeInto(window, "TxtFName", s("یوسف"));
        Press(window, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutCID").toString(), s("12"));
    EXPECT_EQ(dialog.ParaOut("ParaOutAreaCode").toString(), s("Raja"));
}

TEST_F(CodeListsTest, LblBalanceIsEmptyAtFirstAndTellsOfEachRowThatBecomesCurrent)
{
    company.Run("delete from ConvertArea; delete from ConcessionBody; delete from ReturnBody;"
                "delete from RecoveryBody where VoucherID > 1");
    Look(
        SchCustomer(),
        [](SearchWindow& window) {
            EXPECT_EQ(window.LblBalance()->Text(), QString());
            Press(window, Qt::Key_Down);
            Press(window, Qt::Key_Down);
            EXPECT_EQ(window.LblBalance()->Text(), s("129500 موٹر سائیکل 70 سی سی, پنکھا x2"));
            Press(window, Qt::Key_Up);
            EXPECT_EQ(window.LblBalance()->Text(), s("180000 موٹر سائیکل 125 سی سی"));
            TypeInto(window, "TxtID", s("7"));
            EXPECT_EQ(window.LblBalance()->Text(), s("7400 ")); // sold nothing that is told
            TypeInto(window, "TxtName", s("نذیر"));
            EXPECT_EQ(window.LblBalance()->Text(), s("84000 ریفریجریٹر درمیانہ"));
            TypeInto(window, "TxtName", s("zzz"));
            EXPECT_EQ(window.LblBalance()->Text(), QString());
        });
    Look(SchArea(), [](SearchWindow& window) { EXPECT_EQ(window.LblBalance(), nullptr); });
}

TEST_F(CodeListsTest, AHundredThousandCustomersAreListedAndJumpedIn)
{
    company.Run("with recursive n(i) as (select 1 union all select i + 1 from n where i < 100000)"
                " insert into InsCustomerHeader (InsCustomerID, AreaCode, CardNo, Name)"
                " select 'Lahore ' || i, 'Lahore', i, 'N' || i from n");
    SearchDialog::Shared(SchCustomer()).SetParaIn("ParaInAreaCode", s("Lahore"));
    SearchDialog& dialog = Show(SchCustomer(), [](SearchWindow& window) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.List().RowCount() == 100000; }, 60000));
        TypeInto(window, "TxtID", s("99999"));
        EXPECT_EQ(Current(window, "Name"), s("N99999"));
        Press(window, Qt::Key_Down);
        Press(window, Qt::Key_End);
        Press(window, Qt::Key_Up);
        Press(window, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutCID").toString().size(), 5);
}

TEST_F(CodeListsTest, TheLoadEmptiesTheFirstResultOfCustomersImgExitNoneAndBtnCloseBoth)
{
    SearchDialog& dialog =
        Show(SchCustomer(), [](SearchWindow& window) { Press(window, Qt::Key_Return); });
    const QString area = dialog.ParaOut("ParaOutAreaCode").toString();
    EXPECT_EQ(dialog.ParaOut("ParaOutCID").toString(), s("11"));
    EXPECT_EQ(area, s("Kot"));
    Show(SchCustomer(), [&](SearchWindow& window) {
        EXPECT_TRUE(dialog.ParaOut("ParaOutCID").toString().isEmpty());
        EXPECT_EQ(dialog.ParaOut("ParaOutAreaCode").toString(), area);
        Click(window, window.Title().ImgExit());
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutAreaCode").toString(), area);
    Show(SchCustomer(), [](SearchWindow& window) { Click(window, window.BtnClose()); });
    EXPECT_TRUE(dialog.ParaOut("ParaOutAreaCode").toString().isEmpty());
}

} // namespace tests
