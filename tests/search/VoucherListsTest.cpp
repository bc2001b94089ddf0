// Gate passes, instalment accounts, recoveries, concessions, returns, workshop parts,
// partnership profits and converted accounts.

#include "search/Catalogue.h"
#include "support/SearchDesk.h"
#include "support/Text.h"

#include <QTest>

namespace tests {

namespace {

class VoucherListsTest : public SearchDesk {
protected:
    /// The default range, and that a document of each of these days is in it or not: the desk's
    /// documents stand on the first day of each range and on the day before.
    void ExpectRange(const SearchDeclaration& declaration, const QDate& from, const QDate& to)
    {
        SCOPED_TRACE(declaration.Name);
        Look(declaration, [&](SearchWindow& window) {
            EXPECT_EQ(window.DtpFrom()->Value(), from);
            EXPECT_EQ(window.DtpTo()->Value(), to);
            EXPECT_EQ(window.DtpFrom()->text(), from.toString(s("dd/MM/yyyy")));
        });
    }

    /// The numbers listed when a text is typed into a field.
    struct Query {
        const char* Field;
        const char* Typed;
        const char* Listed;
    };

    void ExpectQueries(const SearchDeclaration& declaration, const QList<Query>& queries,
                       const char* key = "ID")
    {
        Look(
            declaration,
            [&](SearchWindow& window) {
                const QString listed = Column(window, key);
                for (const Query& query : queries) {
                    SCOPED_TRACE(query.Typed);
                    TypeInto(window, query.Field, s(query.Typed));
                    EXPECT_EQ(Column(window, key), s(query.Listed));
                    TypeInto(window, query.Field, QString());
                    EXPECT_EQ(Column(window, key), listed);
                }
            });
    }

    /// A list of two vouchers, 1 and 2, in which a number is sought.
    void ExpectJumpByNumber(const SearchDeclaration& declaration)
    {
        SCOPED_TRACE(declaration.Name);
        Look(declaration, [](SearchWindow& window) {
            TypeInto(window, "TxtFilter", s("2"));
            EXPECT_EQ(Current(window, "ID"), s("2"));
            TypeInto(window, "TxtFilter", s("1"));
            EXPECT_EQ(Current(window, "ID"), s("1"));
            TypeInto(window, "TxtFilter", s("12")); // no such number
            EXPECT_EQ(Current(window, "ID"), s("2"));
            TypeInto(window, "TxtFilter", QString());
            EXPECT_EQ(window.List().Row(), 0);
            EXPECT_EQ(window.List().RowCount(), 2);
        });
    }

    /// Makes voucher 2 of a table, and its rows, one of this number; gives the dialog's word.
    void ExpectNumberCarried(const SearchDeclaration& declaration, const char* header,
                             const char* body, const char* key, const char* paraOut)
    {
        SCOPED_TRACE(declaration.Name);
        const bool narrow = &declaration != &SchRecoveryVoucher(); // the one that is wider
        int number = 2;
        for (const int next : {32767, 32768}) {
            company.Run(s("update %1 set %3 = %4 where %3 = %5;"
                          "update %2 set %3 = %4 where %3 = %5")
                            .arg(s(header), s(body), s(key))
                            .arg(next)
                            .arg(number));
            number = next;
            const bool fails = narrow && next > 32767;
            if (fails)
                boxes.Expect({s("Overflow"), MsgIcon::Stop, s("Error occured")});
            SearchDialog& dialog = Show(declaration, [&](SearchWindow& window) {
                TypeInto(window, "TxtFilter", QString::number(next));
                Press(window, Qt::Key_Return);
                EXPECT_EQ(window.isVisible(), fails);
                if (fails) {
                    EXPECT_GT(window.List().RowCount(), 0);
                    Press(window, Qt::Key_Escape);
                }
            });
            EXPECT_EQ(dialog.ParaOut(paraOut).toInt(), fails ? 0 : next);
        }
    }
};

} // namespace

// What they have in common

TEST_F(VoucherListsTest, ComeUpWithTheirDefaultRanges)
{
    ExpectRange(SchGatePass(), today.addDays(-30), today);
    ExpectRange(SchInsCustomer(), today.addDays(-90), today);
    ExpectRange(SchRecoveryVoucher(), month, today);
    ExpectRange(SchRecoveryVoucherDetail(), today.addDays(-60), today);
    ExpectRange(SchConcessionVoucher(), today.addDays(-30), today);
    ExpectRange(SchReturnVoucher(), today.addDays(-30), today);
    ExpectRange(SchWorkerParts(), month, today);
    ExpectRange(SchPartnershipProfit(), month, month.addMonths(1).addDays(-1));
    ExpectRange(SchConvertArea(), today.addDays(-180), today);
}

TEST_F(VoucherListsTest, JumpByNumber)
{
    for (const SearchDeclaration* declaration :
         {&SchGatePass(), &SchRecoveryVoucher(), &SchConcessionVoucher(), &SchReturnVoucher(),
          &SchWorkerParts(), &SchPartnershipProfit()})
        ExpectJumpByNumber(*declaration);
}

TEST_F(VoucherListsTest, CarryNumbersAsFarAsTheirResultIsWide)
{
    ExpectNumberCarried(SchGatePass(), "GatePassHeader", "GatePassBody", "GatePassID",
                        "ParaOutGatePassID");
    ExpectNumberCarried(SchRecoveryVoucher(), "RecoveryHeader", "RecoveryBody", "VoucherID",
                        "ParaOutVoucherID");
    ExpectNumberCarried(SchConcessionVoucher(), "ConcessionHeader", "ConcessionBody", "VoucherID",
                        "ParaOutVoucherID");
    ExpectNumberCarried(SchReturnVoucher(), "ReturnHeader", "ReturnBody", "VoucherID",
                        "ParaOutVoucherID");
    ExpectNumberCarried(SchWorkerParts(), "WorkShopPartsHeader", "WorkShopPartsBody", "VoucherID",
                        "ParaOutVoucherID");
    ExpectNumberCarried(SchPartnershipProfit(), "PartnershipProfitHeader", "PartnershipProfitBody",
                        "VoucherID", "ParaOutVoucherID");
}

TEST_F(VoucherListsTest, AVoucherWithoutRowsIsMissing)
{
    // Number 4 of each, which stands within the range.
    for (const SearchDeclaration* declaration :
         {&SchGatePass(), &SchRecoveryVoucher(), &SchConcessionVoucher(), &SchReturnVoucher(),
          &SchWorkerParts()}) {
        SCOPED_TRACE(declaration->Name);
        Look(*declaration, [](SearchWindow& window) { EXPECT_EQ(Column(window, "ID"), s("1 2")); });
    }
}

TEST_F(VoucherListsTest, ADateTypedIntoAPickerReadsTheListAgain)
{
    Look(
        SchGatePass(),
        [this](SearchWindow& window) {
            window.SetFocus(*window.DtpFrom());
            Press(window, Qt::Key_Home);
            Type(window, today.addDays(-31).toString(s("ddMMyyyy")));
            EXPECT_EQ(window.DtpFrom()->Value(), today.addDays(-31));
            EXPECT_EQ(Column(window, "ID"), s("3 1 2"));
            EXPECT_TRUE(window.IsActive(*window.DtpFrom()));
        });
}

TEST_F(VoucherListsTest, EnterWithADateTypedInPartTakesTheRowThatIsMarkedOnTheScreen)
{
    SearchDialog& dialog = Show(SchGatePass(), [](SearchWindow& window) {
        window.SetFocus(*window.DtpTo());
        Press(window, Qt::Key_End);
        Type(window, s("20"));
        EXPECT_EQ(Current(window, "ID"), s("1"));
        Press(window, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutGatePassID").toInt(), 1);
}

// Gate passes

TEST_F(VoucherListsTest, GatePassesShowTheirSumsAndNames)
{
    Look(
        SchGatePass(),
        [](SearchWindow& window) {
            EXPECT_EQ(Column(window, "Date"), Shown(-30) + u' ' + Shown(0));
            EXPECT_EQ(Column(window, "Driver"), s("محمد اسلم عبدالرشید"));
            EXPECT_EQ(Column(window, "Receiving"), s("غلام رسول "));
            EXPECT_EQ(Column(window, "AreaName"), s("Kot Raja"));
            EXPECT_EQ(Column(window, "outnewstock"), s("7 1"));
            EXPECT_EQ(Column(window, "returnoldstock"), s("1 "));
            EXPECT_EQ(Column(window, "returnnewstock"), s("2 "));
        });
}

TEST_F(VoucherListsTest, GatePassesAreReadAgainByAreaDriverAndReceiver)
{
    ExpectQueries(SchGatePass(), {{"TxtAreaCode", "raja", "2"},
                                  {"TxtAreaCode", "raj", ""},
                                  {"TxtDriverName", "رشید", "2"},
                                  {"TxtReceiving", "رسول", "1"}});
}

// Instalment accounts

TEST_F(VoucherListsTest, AccountsAreNotReadAgainUntilBtnFilterOrF12)
{
    for (const bool byKey : {false, true}) {
        Look(
            SchInsCustomer(),
            [byKey](SearchWindow& window) {
                const QString all = s("Kot 11 Kot 12 Raja 12");
                TypeInto(window, "TxtName", s("حسن"));
                EXPECT_EQ(Column(window, "CusID"), all);
                window.DtpFrom()->SetValue(window.DtpFrom()->Value().addDays(1));
                EXPECT_EQ(Column(window, "CusID"), all);
                if (byKey)
                    Press(window, Qt::Key_F12);
                else
                    Click(window, *window.BtnFilter());
                EXPECT_EQ(Column(window, "CusID"), s("Kot 12"));
                TypeInto(window, "TxtName", QString());
                EXPECT_EQ(Column(window, "CusID"), s("Kot 12"));
                Press(window, Qt::Key_F12);
                EXPECT_EQ(Column(window, "CusID"), s("Kot 12 Raja 12")); // the day of Kot 11 is out
            });
    }
}

TEST_F(VoucherListsTest, AccountsAreNarrowedByEachField)
{
    Look(
        SchInsCustomer(),
        [](SearchWindow& window) {
            const struct {
                const char* Field;
                const char* Typed;
                const char* Listed;
            } cases[] = {{"TxtAreaCode", "RAJA", "Raja 12"},
                         {"TxtName", "احمد", "Kot 11 Kot 12 Raja 12"},
                         {"TxtName", "نذیر", "Raja 12"},
                         {"TxtFName", "شفیع", "Kot 11"},
                         {"TxtFrenchiser", "طارق", "Kot 11 Raja 12"},
                         {"TxtReceiving", "اسلم", "Kot 12"}};
            for (const auto& [field, typed, listed] : cases) {
                TypeInto(window, field, s(typed));
                Press(window, Qt::Key_F12);
                EXPECT_EQ(Column(window, "CusID"), s(listed)) << typed;
                TypeInto(window, field, QString());
            }
        });
}

TEST_F(VoucherListsTest, AYearTypedInPartCountsWhenF12Reads)
{
    Look(
        SchInsCustomer(),
        [](SearchWindow& window) {
            window.SetFocus(*window.DtpFrom());
            Type(window, s("010199"));
            Press(window, Qt::Key_F12);
            EXPECT_TRUE(Read(window, s("Between '2099-01-01' AND")));
            EXPECT_EQ(window.List().RowCount(), 0);
        });
}

TEST_F(VoucherListsTest, AccountsJumpByTheBeginningOfTheirCard)
{
    Look(
        SchInsCustomer(),
        [](SearchWindow& window) {
            TypeInto(window, "TxtFilter", s("12"));
            EXPECT_EQ(Current(window, "CusID"), s("Kot 12"));
            TypeInto(window, "TxtFilter", s("1"));
            EXPECT_EQ(Current(window, "CusID"), s("Kot 11"));
            TypeInto(window, "TxtFilter", s("2"));
            EXPECT_EQ(Current(window, "CusID"), s("Raja 12"));
            TypeInto(window, "TxtFilter", QString());
            EXPECT_EQ(window.List().Row(), 0);
            EXPECT_EQ(window.List().SelectedRows(), QList<int>{0});
        });
}

TEST_F(VoucherListsTest, AccountsShowWhatWasSoldAndBelongToAnAreaThatIsKnown)
{
    Look(
        SchInsCustomer(),
        [](SearchWindow& window) {
            EXPECT_EQ(Column(window, "CusID"), s("Kot 11 Kot 12 Raja 12")); // not Gone 7
            EXPECT_EQ(Column(window, "ID"), s("11 12 12"));
            EXPECT_EQ(Column(window, "Date"), Shown(-90) + u' ' + Shown(0) + u' ' + Shown(0));
            EXPECT_EQ(Current(window, "CustomerName"), s("احمد علی"));
            EXPECT_EQ(Current(window, "FName"), s("محمد شفیع"));
            EXPECT_EQ(Current(window, "AreaName"), s("کوٹ رادھا کشن"));
            EXPECT_EQ(Current(window, "Receiving"), s("غلام رسول"));
            EXPECT_EQ(Current(window, "Frenchiser"), s("طارق محمود"));
            EXPECT_EQ(Column(window, "Promise"), s("5 10 1"));
            EXPECT_EQ(Column(window, "TotalItems"), s("1 3 1"));
            EXPECT_EQ(Column(window, "TotalAmount"), s("185000 132000.5 84000"));
        });
}

TEST_F(VoucherListsTest, AnAccountWithoutRowsCountsNoItems)
{
    company.Run("delete from InsCustomerBody where InsCustomerID = 'Kot 12'");
    Look(SchInsCustomer(),
         [](SearchWindow& window) { EXPECT_EQ(Column(window, "TotalItems"), s("1 0 1")); });
}

// Recoveries

TEST_F(VoucherListsTest, RecoveriesAreReadAgainByAreaAndStaff)
{
    ExpectQueries(SchRecoveryVoucher(),
                  {{"TxtAreaCode", "raja", "2"}, {"TxtStaffName", "رسول", "1"}});
    Look(SchRecoveryVoucher(), [](SearchWindow& window) {
        EXPECT_EQ(Column(window, "TotalAmount"), s("7500.5 4000"));
        EXPECT_EQ(Column(window, "Staff"), s("غلام رسول "));
    });
}

TEST_F(VoucherListsTest, ReceiptsAreReadAgainByVoucherAreaAndName)
{
    ExpectQueries(SchRecoveryVoucherDetail(),
                  {{"TxtFilter", "1", "501 502"},
                   {"TxtFilter", "4", ""},
                   {"TxtAreaCode", "Raja", "503"},
                   {"TxtName", "حسن", "502"}},
                  "Receipt");
}

TEST_F(VoucherListsTest, ReceiptsAreCountedAfterEachRead)
{
    Look(
        SchRecoveryVoucherDetail(),
        [](SearchWindow& window) {
            EXPECT_EQ(window.LblTotalCards()->Text(), s("3"));
            TypeInto(window, "TxtFilter", s("1"));
            EXPECT_EQ(window.LblTotalCards()->Text(), s("2"));
            TypeInto(window, "TxtFilter", s("14"));
            EXPECT_EQ(window.LblTotalCards()->Text(), s("0"));
        });
    Look(SchRecoveryVoucher(),
         [](SearchWindow& window) { EXPECT_EQ(window.LblTotalCards(), nullptr); });
}

TEST_F(VoucherListsTest, ReceiptsJumpByTheWholeCardAndTakeATypedCharacterThere)
{
    Look(
        SchRecoveryVoucherDetail(),
        [](SearchWindow& window) {
            TypeInto(window, "TxtID", s("12"));
            EXPECT_EQ(Current(window, "Receipt"), s("502"));
            TypeInto(window, "TxtID", s("1")); // no card of this number
            EXPECT_EQ(Current(window, "Receipt"), s("503"));
            Press(window, Qt::Key_Down);
            Type(window, s("x"));
            EXPECT_TRUE(window.IsActive(window.NarrowingField("TxtID")));
            EXPECT_EQ(window.NarrowingField("TxtID").Text(), s("x"));
            EXPECT_EQ(window.List().RowCount(), 3);
        });
}

TEST_F(VoucherListsTest, AReceiptIsGivenByItsVoucherAndAccount)
{
    company.Run("update RecoveryHeader set VoucherID = 70000 where VoucherID = 2;"
                "update RecoveryBody set VoucherID = 70000 where VoucherID = 2");
    SearchDialog& dialog = Show(SchRecoveryVoucherDetail(), [](SearchWindow& window) {
        TypeInto(window, "TxtFilter", s("70000"));
        Press(window, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutVoucherID").toInt(), 70000);
    EXPECT_EQ(dialog.ParaOut("ParaOutInsCustomerID").toString(), s("Raja 12"));
}

TEST_F(VoucherListsTest, AHundredThousandReceiptsAreListedAndJumpedIn)
{
    company.Run("with recursive n(i) as (select 1 union all select i + 1 from n where i < 100000)"
                " insert into RecoveryBody (VoucherID, InsCustomerID, CardNo, ReceiptNo, Amount)"
                " select 2, 'Raja 12', 'C' || i, i, 1 from n");
    SearchDialog& dialog = Show(SchRecoveryVoucherDetail(), [](SearchWindow& window) {
        ASSERT_TRUE(QTest::qWaitFor([&] { return window.List().RowCount() == 100003; }, 60000));
        EXPECT_EQ(window.LblTotalCards()->Text(), s("100003"));
        TypeInto(window, "TxtID", s("C99999"));
        EXPECT_EQ(Current(window, "ID"), s("C99999"));
        Press(window, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutVoucherID").toInt(), 2);
}

// Concessions and returns

TEST_F(VoucherListsTest, ConcessionsAndReturnsShowTheirSumsAndAreReadAgainByArea)
{
    for (const SearchDeclaration* declaration : {&SchConcessionVoucher(), &SchReturnVoucher()}) {
        SCOPED_TRACE(declaration->Name);
        ExpectQueries(*declaration, {{"TxtAreaCode", "raja", "2"}, {"TxtAreaCode", "x", ""}});
        Look(*declaration, [&](SearchWindow& window) {
            EXPECT_EQ(Column(window, "Date"), Shown(-30) + u' ' + Shown(0));
            EXPECT_EQ(Column(window, "AreaName"), s("کوٹ رادھا کشن راجہ جنگ"));
            EXPECT_EQ(Column(window, "TotalAmount"),
                      declaration == &SchReturnVoucher() ? s("9000 12000") : s("750.5 300"));
        });
    }
}

// Workshop parts

TEST_F(VoucherListsTest, PartsVouchersAreReadAgainByNameAndCode)
{
    ExpectQueries(SchWorkerParts(), {{"TxtStaffName", "شریف", "1"},
                                     {"TxtID", "10", "1"}, // any part of 3108
                                     {"TxtID", "7", ""}});
    Look(SchWorkerParts(), [](SearchWindow& window) {
        EXPECT_EQ(Column(window, "StaffID"), s("3108 "));
        EXPECT_EQ(Column(window, "StaffName"), s("محمد شریف "));
        EXPECT_EQ(Column(window, "TotalAmount"), s("1270.5 2900"));
        Press(window, Qt::Key_Down);
        Type(window, s("2"));
        EXPECT_TRUE(window.IsActive(window.NarrowingField("TxtFilter")));
        EXPECT_EQ(Current(window, "ID"), s("2"));
    });
}

// Partnership profits

TEST_F(VoucherListsTest, ProfitsAreIncomeLessDeductionsLessExpense)
{
    Look(SchPartnershipProfit(), [this](SearchWindow& window) {
        EXPECT_EQ(Column(window, "Profit"), s("74499.5 -1500"));
        const QString shown = QLocale(QLocale::English).toString(month, s("MMM-yyyy"));
        EXPECT_EQ(Column(window, "Month"), shown + u' ' + shown);
    });
    ExpectQueries(SchPartnershipProfit(), {{"TxtAreaCode", "raja", "2"}});
}

TEST_F(VoucherListsTest, ProfitsAreReadForWholeMonthsWhateverDaysAreChosen)
{
    Look(
        SchPartnershipProfit(),
        [](SearchWindow& window) {
            window.DtpFrom()->SetValue(QDate(2024, 1, 17));
            EXPECT_EQ(window.DtpFrom()->Value(), QDate(2024, 1, 1));
            window.DtpTo()->SetValue(QDate(2024, 2, 3));
            EXPECT_EQ(window.DtpTo()->Value(), QDate(2024, 2, 29));
            EXPECT_TRUE(Read(window, s("Between '2024-01-01' AND '2024-02-29'")));
            window.DtpTo()->SetValue(QDate(2024, 12, 31));
            EXPECT_EQ(window.DtpTo()->Value(), QDate(2024, 12, 31));
            TypeInto(window, "TxtAreaCode", s("Kot")); // a read of another cause moves nothing
            EXPECT_EQ(window.DtpFrom()->Value(), QDate(2024, 1, 1));
            EXPECT_EQ(window.DtpTo()->Value(), QDate(2024, 12, 31));
        });
}

TEST_F(VoucherListsTest, ProfitsAreReadWhileADateIsTypedWhichBecomesAWholeMonthWhenItIsLeft)
{
    for (const char* format : {"dd/MM/yyyy", "ddMMyyyy"}) {
        Look(
            SchPartnershipProfit(),
            [&](SearchWindow& window) {
                const QDate typed = month.addDays(-1);
                window.SetFocus(*window.DtpFrom());
                Press(window, Qt::Key_Home);
                Type(window, typed.toString(s(format)));
                EXPECT_EQ(Column(window, "ID"), s("3 1 2"));
                EXPECT_EQ(window.DtpFrom()->Value(), typed); // nothing breaks into the typing
                Press(window, Qt::Key_Tab);
                EXPECT_EQ(window.DtpFrom()->Value(), month.addMonths(-1));
                Type(window, QDate(2024, 2, 15).toString(s(format)));
                EXPECT_TRUE(Read(window, s("AND '2024-02-29'")));
                Press(window, Qt::Key_Tab);
                EXPECT_EQ(window.DtpTo()->Value(), QDate(2024, 2, 29));
            });
    }
}

TEST_F(VoucherListsTest, ProfitsShowTheWholeMonthAtOnceWhereADateIsChangedByArrow)
{
    Look(
        SchPartnershipProfit(),
        [](SearchWindow& window) {
            window.DtpTo()->SetValue(QDate(2024, 2, 10));
            window.SetFocus(*window.DtpTo());
            Press(window, Qt::Key_Right); // the month
            Press(window, Qt::Key_Up);
            EXPECT_EQ(window.DtpTo()->Value(), QDate(2024, 3, 31));
            EXPECT_TRUE(Read(window, s("AND '2024-03-31'")));
        });
}

// Converted accounts

TEST_F(VoucherListsTest, ConvertedAccountsAreReadAgainByEachField)
{
    ExpectQueries(SchConvertArea(),
                  {{"TxtPrevCardNo", "1", "11 12"}, // any part
                   {"TxtPrevCardNo", "12", "12"},
                   {"TxtPrevAreaCode", "kot", "11"},
                   {"TxtPrevAreaCode", "ko", ""},
                   {"TxtName", "نذیر", "12"}},
                  "PrevCardNo");
}

TEST_F(VoucherListsTest, AConvertedAccountIsTakenApartAtItsFirstBlank)
{
    company.Run(s("update ConvertArea set ToInsCustomerID = 'Raja 9 A' where FromInsCustomerID ="
                  " 'Kot 11'"));
    Look(SchConvertArea(), [](SearchWindow& window) {
        EXPECT_EQ(Column(window, "PrevAreaCode"), s("Kot Raja"));
        EXPECT_EQ(Column(window, "NewAreaCode"), s("Raja Lahore"));
        EXPECT_EQ(Column(window, "NewCardNo"), s("9 A 44"));
        EXPECT_EQ(Column(window, "Total"), s("185000 84000"));
        EXPECT_EQ(Column(window, "Previous"), s("60000 84000"));
        EXPECT_EQ(Column(window, "Remain"), s("60000 80000"));
        EXPECT_EQ(Column(window, "ToDate"), Shown(-180) + u' ' + Shown(0));
    });
}

TEST_F(VoucherListsTest, ACharacterTypedInConvertedAccountsNarrowsByPreviousCard)
{
    SearchDialog& dialog = Show(SchConvertArea(), [](SearchWindow& window) {
        Press(window, Qt::Key_Down);
        Type(window, s("1"));
        Type(window, s("2"));
        EXPECT_TRUE(window.IsActive(window.NarrowingField("TxtPrevCardNo")));
        EXPECT_EQ(Column(window, "PrevCardNo"), s("12"));
        Press(window, Qt::Key_Return);
    });
    EXPECT_EQ(dialog.ParaOut("ParaOutPrevAreaCode").toString(), s("Raja"));
    EXPECT_EQ(dialog.ParaOut("ParaOutPrevCardNo").toString(), s("12"));
}

} // namespace tests
