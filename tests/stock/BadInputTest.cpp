// Input typed by mistake or pasted from elsewhere, and database failures in the middle of a save:
// each gives a clear message, nothing is half written, and the clerk can go on.

#include "data/EngineAccess.h"
#include "data/sqlite/SqliteEngine.h"
#include "search/Catalogue.h"
#include "support/FaultyDisk.h"
#include "support/GatePassDesk.h"
#include "support/Text.h"

#include <QDir>
#include <QtTest>

#include <chrono>

namespace tests {

namespace {

using namespace std::chrono_literals;
using State = VoucherForm::State;

constexpr int TenThousand = 10'000;

/// Returns the message for a quote in a text that the statement encloses in quotes.
QString unclosedQuote(const QString& text)
{
    return s("Unclosed quotation mark after the character string '%1'.").arg(text);
}

/// Returns the message for a text where the statement needs a number; a long text is shown in part.
QString noNumber(const QString& text)
{
    constexpr int told = 60;
    return s("Incorrect syntax near '%1'.")
        .arg(text.size() <= told ? text : text.first(told) + QChar(0x2026));
}

// ---- What a clerk may type

class BadInputTest : public GatePassDesk {
protected:
    QList<Txt*> textCodes()
    {
        return {&It().Driver.Code, &It().Receiving.Code, &It().Area.Code, &It().Product.Code};
    }

    /// Pastes a text into a code field and presses Enter. It is not a valid code, so the list
    /// opens, and is closed by Esc; if a complaint is given, its box comes first.
    void pasteAsCode(Txt& field, const QString& text, const QString& complaint = {})
    {
        SCOPED_TRACE(qPrintable(field.Name()));
        It().ResetFocus(field);
        if (!complaint.isEmpty())
            boxes.Expect(Failed(complaint));
        dialogs.Expect(Cancel());
        Paste(It(), text);
        Press(It(), Qt::Key_Return);
        EXPECT_TRUE(HasFocus(field));
        EXPECT_EQ(boxes.Left(), 0) << "no complaint";
        EXPECT_EQ(dialogs.Left(), 0) << "no list";
    }

    /// What is in the code field and the name beside it.
    void expectCode(const Txt& code, const UTxt& name, const QString& text)
    {
        EXPECT_EQ(code.Text(), text) << qPrintable(code.Name());
        EXPECT_TRUE(name.Text().isEmpty()) << qPrintable(name.Name());
    }

    /// Checks that a text that is no valid code stays in the staff and area fields, while a product
    /// that is not found, or not in stock, is cleared.
    void expectUnknown(const QString& text)
    {
        expectCode(It().Driver.Code, It().Driver.Name, text);
        expectCode(It().Receiving.Code, It().Receiving.Name, text);
        expectCode(It().Area.Code, It().Area.Name, text);
        expectCode(It().Product.Code, It().Product.Name, QString());
    }

    /// Checks that a pass can still be entered and stored.
    void expectTheNextSaveWorks()
    {
        SCOPED_TRACE("the next save");
        Ctrl(Qt::Key_W);
        const int id = Stored(s("101"), s("3"));
        EXPECT_EQ(BodyOf(id), QStringList({s("101|3|null|null")}));
        EXPECT_EQ(company.Scalar(s("select DriverCode || AreaCode || BranchCode from GatePassHeader"
                                   " where GatePassID = %1")
                                     .arg(id)),
                  s("2014Kot1"));
    }

    /// Enters three rows, each with the text in another one of the three quantities.
    void enterAsEachQuantity(const QString& text)
    {
        const QList<std::pair<const char*, Txt*>> rows = {{"101", &It().TxtOutNewProducts},
                                                          {"104", &It().TxtReturnOldProducts},
                                                          {"210", &It().TxtReturnNewProducts}};
        for (const auto& [product, field] : rows) {
            SCOPED_TRACE(qPrintable(field->Name()));
            Enter(s(product));
            for (Txt* quantity : {&It().TxtOutNewProducts, &It().TxtReturnOldProducts,
                                  &It().TxtReturnNewProducts}) {
                ASSERT_TRUE(HasFocus(*quantity)) << qPrintable(quantity->Name());
                if (quantity == field) {
                    Paste(It(), text);
                    EXPECT_TRUE(field->HasNumberWarning());
                }
                Press(It(), Qt::Key_Return);
            }
            ASSERT_TRUE(HasFocus(It().Product.Code));
        }
    }

    /// Checks that a quantity is shown in the grid as typed, while the number that it starts with
    /// is stored.
    void expectQuantityCounts(const QString& typed, const QString& shown, const char* number)
    {
        Open();
        EnterHeader();
        enterAsEachQuantity(typed);
        ASSERT_EQ(FilledRows(), 3);
        EXPECT_EQ(Cell(0, "OutNewProducts"), shown);
        EXPECT_EQ(Cell(1, "ReturnOldProducts"), shown);
        EXPECT_EQ(Cell(2, "ReturnNewProducts"), shown);
        Save();
        EXPECT_EQ(BodyOf(1), QStringList({s("101|%1|null|null").arg(s(number)),
                                          s("104|null|%1|null").arg(s(number)),
                                          s("210|null|null|%1").arg(s(number))}));
    }
};

// ---- What a clerk may type in the lists

class BadNarrowingTest : public BadInputTest {
protected:
    enum class Way {
        Jump,       ///< by the start of a text
        NumberJump, ///< by a number
        QueryAgain
    };
    struct Field {
        const SearchDeclaration& Dialog;
        const char* Name;
        Way Is;
    };
    static QList<Field> fields()
    {
        return {{SchArea(), "TxtID", Way::Jump},
                {SchArea(), "TxtName", Way::Jump},
                {SchBranch(), "TxtID", Way::NumberJump},
                {SchBranch(), "TxtName", Way::Jump},
                {SchProduct(), "TxtID", Way::Jump},
                {SchProduct(), "TxtName", Way::QueryAgain},
                {SchStaff(), "TxtID", Way::Jump},
                {SchStaff(), "TxtName", Way::QueryAgain},
                {SchGatePass(), "TxtFilter", Way::NumberJump},
                {SchGatePass(), "TxtAreaCode", Way::QueryAgain},
                {SchGatePass(), "TxtDriverName", Way::QueryAgain},
                {SchGatePass(), "TxtReceiving", Way::QueryAgain}};
    }

    void SetUp() override
    {
        Open();
        Stored(s("101"), s("3"));
        Stored(s("104"), s("2"));
    }

    /// Pastes a text into each filter field and clears it again. The complaints are those of the
    /// fields that compare text and of those that compare a number; empty for none.
    void pasteIntoEveryField(const QString& text, const QString& shown,
                             const QString& complaintOfText, const QString& complaintOfNumber)
    {
        for (const Field& field : fields()) {
            SCOPED_TRACE(s("%1.%2").arg(s(field.Dialog.Name), s(field.Name)).toStdString());
            const QString complaint =
                field.Is == Way::NumberJump ? complaintOfNumber : complaintOfText;
            SearchDialog& dialog = SearchDialog::Shared(field.Dialog);
            for (const SearchInput& input : field.Dialog.Inputs)
                dialog.SetParaIn(input.Name, s(input.NoClauseFor));
            dialogs.Expect([&](Form& window) {
                pasteAndEmpty(dynamic_cast<SearchWindow&>(window), field, text, shown, complaint);
            });
            dialog.Show(form.get());
            // The list returns a row's code, whatever was typed.
            EXPECT_FALSE(dialog.ParaOut(field.Dialog.Results.front().Name).toString().isEmpty());
        }
    }

    /// The number of rows in the list while the text was in the field.
    QHash<QString, int> RowsLeft;

private:
    void pasteAndEmpty(SearchWindow& window, const Field& field, const QString& text,
                       const QString& shown, const QString& complaint)
    {
        Txt& typed = window.NarrowingField(field.Name);
        const int rows = window.List().RowCount();
        EXPECT_GT(rows, 1);
        EXPECT_TRUE(window.SetFocus(typed));
        if (!complaint.isEmpty())
            boxes.Expect(Failed(complaint));
        Paste(window, text);
        EXPECT_EQ(boxes.Left(), 0) << "no complaint";
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(typed.Text(), shown);
        if (!complaint.isEmpty() || field.Is != Way::QueryAgain)
            EXPECT_EQ(window.List().RowCount(), rows) << "the list does not stand as it was";
        RowsLeft[s(field.Dialog.Name) + u'.' + s(field.Name)] = window.List().RowCount();

        Press(window, Qt::Key_A, Qt::ControlModifier);
        Press(window, Qt::Key_Backspace);
        EXPECT_EQ(window.List().RowCount(), rows);
        EXPECT_EQ(window.List().Row(), 0);
        Press(window, Qt::Key_Return);
    }
};

// ---- What a database may do while a voucher is saved

enum class Trouble { Locked, FullDisk, ReadOnly };

std::ostream& operator<<(std::ostream& out, Trouble trouble)
{
    constexpr const char* names[] = {"Locked", "FullDisk", "ReadOnly"};
    return out << names[int(trouble)];
}

class TroubleTest : public BadInputTest, public ::testing::WithParamInterface<Trouble> {
protected:
    /// A code that does not fit into the free space of the pages of the table and its indexes, so
    /// that a row with it needs more disk space.
    const QString longCode = s("299") + QString(3000, u'L');

    void SetUp() override
    {
        company.Run(s("insert into Products (ProductID, ProductName) values ('%1', 'Long');"
                      "insert into StockInBody (StockID, ProductID, Qty) values (1, '%1', 50)")
                        .arg(longCode));
        Open();
    }

    void beginTrouble()
    {
        switch (GetParam()) {
        case Trouble::Locked:
            static_cast<SqliteEngine&>(EngineAccess::Of(*connection)).SetLockWait(50ms);
            other_ = company.Connect();
            other_->BeginTrans();
            break;
        case Trouble::FullDisk:
            connection->Execute(
                Statement("PRAGMA max_page_count={Pages}")
                    .Bind("Pages", connection->Execute("PRAGMA page_count").ValueAt(0, 0)));
            break;
        case Trouble::ReadOnly:
            connection->Execute("PRAGMA query_only=1");
            break;
        }
    }

    void endTrouble()
    {
        switch (GetParam()) {
        case Trouble::Locked:
            other_->RollbackTrans();
            break;
        case Trouble::FullDisk:
            connection->Execute("PRAGMA max_page_count=1000000");
            break;
        case Trouble::ReadOnly:
            connection->Execute("PRAGMA query_only=0");
            break;
        }
    }

    Message complaint() const
    {
        const QString file = QDir::toNativeSeparators(company.File());
        switch (GetParam()) {
        case Trouble::Locked:
            return Failed(s("The database is in use by another user. Try again in a moment."));
        case Trouble::FullDisk:
            return Failed(s("There is no room left on the disk for '%1'. The change was not saved."
                            " Make room and try again.")
                              .arg(file));
        case Trouble::ReadOnly:
            return Failed(s("'%1' is read-only. The change was not saved.").arg(file));
        }
        return {};
    }

    /// Pastes the long code, and 2 as the outgoing quantity.
    void enterLongRow()
    {
        Paste(It(), longCode);
        Press(It(), Qt::Key_Return);
        Enter(s("2"));
        Enter(QString());
        Enter(QString());
    }

    /// Returns everything of the voucher that the clerk sees.
    QStringList screen()
    {
        QStringList seen = {It().Title.StateText(), It().DtpDate.Value().toString(Qt::ISODate)};
        for (Control* control : It().Controls()) {
            if (const auto* txt = dynamic_cast<Txt*>(control))
                seen.append(txt->Name() + u'=' + txt->Text());
            if (const auto* option = dynamic_cast<OptionButton*>(control))
                seen.append(option->Name() + u'=' + QString::number(option->Value()));
        }
        for (int row = 0; row < It().Rows.RowCount(); ++row)
            for (const GridColumn& column : It().Rows.Columns())
                seen.append(It().Rows.Cell(row, column.Name));
        return seen;
    }

    /// Checks that saving reports the failure and leaves the voucher on the screen unchanged.
    void expectSaveFails()
    {
        const QStringList before = screen();
        boxes.Expect(complaint());
        Ctrl(Qt::Key_S);
        EXPECT_EQ(boxes.Left(), 0) << "no complaint";
        EXPECT_EQ(screen(), before);
        EXPECT_TRUE(It().BtnSave.IsEnabled());
        EXPECT_FALSE(connection->InTransaction());
    }

private:
    std::shared_ptr<Connection> other_;
};

class DeletionTroubleTest : public TroubleTest {};

/// A company on a disk that reports waits for a lock.
struct WatchedDisk {
    FaultyDisk disk;
};
class LockTest : protected WatchedDisk, public BadInputTest {};

} // namespace

// ---- Code fields

TEST_F(BadInputTest, AQuoteInACodeIsReportedAndStaysInTheField)
{
    Open();
    const QString typed = s("O'Neil");
    for (Txt* field : textCodes()) {
        pasteAsCode(*field, typed, unclosedQuote(typed));
        EXPECT_EQ(field->Text(), typed) << qPrintable(field->Name());
    }
    pasteAsCode(It().Branch.Code, typed, noNumber(typed));
    EXPECT_EQ(It().Branch.Code.Text(), typed);
    expectTheNextSaveWorks();
}

TEST_F(BadInputTest, APercentSignInACodeStandsForNoOtherCode)
{
    Open();
    for (Txt* field : textCodes())
        pasteAsCode(*field, s("%"));
    expectUnknown(s("%"));
    pasteAsCode(It().Branch.Code, s("%"), noNumber(s("%")));
    expectCode(It().Branch.Code, It().Branch.Name, s("%"));
    expectTheNextSaveWorks();
}

TEST_F(BadInputTest, ASemicolonInACodeEndsNoStatement)
{
    Open();
    const QString typed = s("1; delete from Staff -- {code}");
    for (Txt* field : textCodes())
        pasteAsCode(*field, typed);
    expectUnknown(typed);
    pasteAsCode(It().Branch.Code, typed, noNumber(typed));
    expectCode(It().Branch.Code, It().Branch.Name, typed);
    EXPECT_EQ(Count(s("Staff")), 7);
    expectTheNextSaveWorks();
}

TEST_F(BadInputTest, UrduInACodeIsAnUnknownCode)
{
    Open();
    const QString typed = s("محمد ۲۰۱۴");
    for (Txt* field : textCodes())
        pasteAsCode(*field, typed);
    expectUnknown(typed);
    pasteAsCode(It().Branch.Code, typed, noNumber(typed));
    expectCode(It().Branch.Code, It().Branch.Name, typed);
    expectTheNextSaveWorks();
}

TEST_F(BadInputTest, LineBreaksPastedIntoACodeBecomeBlanks)
{
    Open();
    const QString shown = s("two lines more");
    for (Txt* field : textCodes())
        pasteAsCode(*field, s("two\r\nlines\nmore"));
    expectUnknown(shown);
    pasteAsCode(It().Branch.Code, s("two\r\nlines\nmore"), noNumber(shown));
    expectCode(It().Branch.Code, It().Branch.Name, shown);
    expectTheNextSaveWorks();
}

TEST_F(BadInputTest, ACodeCopiedWithTheLineBreakBehindItIsFound)
{
    Open();
    const QList<std::pair<const char*, Txt*>> codes = {{"2014\r\n", &It().Driver.Code},
                                                       {"3107\n", &It().Receiving.Code},
                                                       {"kot\n", &It().Area.Code},
                                                       {"1\n", &It().Branch.Code},
                                                       {"101\n", &It().Product.Code}};
    for (const auto& [code, field] : codes) {
        SCOPED_TRACE(qPrintable(field->Name()));
        ASSERT_TRUE(HasFocus(*field));
        Paste(It(), s(code));
        Press(It(), Qt::Key_Return);
    }
    Enter(s("3"));
    Enter(QString());
    Enter(QString());
    Save();
    OpenStored(1);
    EXPECT_EQ(It().Driver.Name.Text(), s("محمد اسلم"));
    EXPECT_EQ(It().Receiving.Name.Text(), s("غلام رسول"));
    EXPECT_EQ(It().Area.Name.Text(), s("کوٹ رادھا کشن"));
    EXPECT_EQ(It().Branch.Name.Text(), s("قصور"));
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(Cell(0, "Name"), s("موٹر سائیکل 125 سی سی"));
}

TEST_F(BadInputTest, TenThousandCharactersInACodeAreAnUnknownCode)
{
    Open();
    const QString typed(TenThousand, u'7');
    for (Txt* field : textCodes())
        pasteAsCode(*field, typed);
    expectUnknown(typed);
    pasteAsCode(It().Branch.Code, typed);
    // Like a product, a branch that is not found is cleared.
    expectCode(It().Branch.Code, It().Branch.Name, QString());
    expectTheNextSaveWorks();
}

TEST_F(BadInputTest, LettersInTheBranchAreReportedAndStayThere)
{
    Open();
    pasteAsCode(It().Branch.Code, s("one"), noNumber(s("one")));
    expectCode(It().Branch.Code, It().Branch.Name, s("one"));
    const QString many(TenThousand, u'x');
    Press(It(), Qt::Key_A, Qt::ControlModifier);
    pasteAsCode(It().Branch.Code, many, noNumber(many));
    expectCode(It().Branch.Code, It().Branch.Name, many);
    expectTheNextSaveWorks();
}

TEST_F(BadInputTest, CodesThatHoldPercentSignsSemicolonsAndUrduAreStoredAndOpenedAsTheyAre)
{
    company.Run(
        s("insert into Staff (StaffID, Name, BranchCode, FieldWorker) values"
          " ('20%;', 'اکبر', 1, 1), ('رسول-7', 'رسول', 1, 0);"
          "insert into Areas (AreaCode, AreaName, BranchCode) values ('قصور %', 'شہر', 1);"
          "insert into Products (ProductID, ProductName) values ('1%;{id}', 'A'), ('1x;{id}', 'B');"
          "insert into StockInBody (StockID, ProductID, Qty) values (1, '1%;{id}', 9),"
          " (1, '1x;{id}', 9)"));
    Open();
    Enter(s("20%;"));
    Enter(s("رسول-7"));
    Enter(s("قصور %"));
    Enter(s("1"));
    EnterRow(s("1x;{id}"), s("4"));
    EnterRow(s("1%;{id}"), s("5")); // not the product before it
    Save();
    EXPECT_EQ(company.Rows("select DriverCode, ReceivingCode, AreaCode from GatePassHeader"),
              QList<QVariantList>({{s("20%;"), s("رسول-7"), s("قصور %")}}));
    EXPECT_EQ(company.Rows("select ProductID, OutNewProducts from GatePassBody order by 2"),
              QList<QVariantList>({{s("1x;{id}"), 4}, {s("1%;{id}"), 5}}));

    OpenStored(1);
    EXPECT_EQ(It().Driver.Code.Text(), s("20%;"));
    EXPECT_EQ(It().Driver.Name.Text(), s("اکبر"));
    EXPECT_EQ(It().Receiving.Name.Text(), s("رسول"));
    EXPECT_EQ(It().Area.Name.Text(), s("شہر"));
    EXPECT_EQ(FilledRows(), 2);
}

// ---- Quantities

TEST_F(BadInputTest, ACodeThatReadsAsANumberBeyondAllNumbersIsACode)
{
    company.Run(s("insert into Products (ProductID, ProductName) values ('1E400', 'A')"));
    company.Run(s("insert into StockInBody (StockID, ProductID, Qty) select"
                  " min(StockID), '1E400', 9 from StockInHeader where BranchCode = 1"));
    Open();
    EnterHeader();
    EnterRow(s("1E400"), s("4"));
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("1E400|4|null|null")}));
}

TEST_F(BadInputTest, AQuantityWithAQuoteCountsAsTheNumberAtItsStart)
{
    expectQuantityCounts(s("4'5"), s("4'5"), "4");
}

TEST_F(BadInputTest, AQuantityWithAPercentSignCountsAsTheNumberAtItsStart)
{
    expectQuantityCounts(s("4%"), s("4%"), "4");
}

TEST_F(BadInputTest, AQuantityWithASemicolonCountsAsTheNumberAtItsStart)
{
    expectQuantityCounts(s("4; delete from Staff"), s("4; delete from Staff"), "4");
    EXPECT_EQ(Count(s("Staff")), 7);
}

TEST_F(BadInputTest, AQuantityInUrduCountsAsZero)
{
    expectQuantityCounts(s("چار ۴"), s("چار ۴"), "0");
}

TEST_F(BadInputTest, AQuantityOfSeveralPastedLinesCountsAsTheFirst)
{
    expectQuantityCounts(s("4\r\n5\n6"), s("4 5 6"), "4");
}

TEST_F(BadInputTest, LettersInAQuantityCountAsZero)
{
    expectQuantityCounts(s("four"), s("four"), "0");
}

TEST_F(BadInputTest, TenThousandLettersInAQuantityCountAsZero)
{
    const QString typed(TenThousand, u'x');
    expectQuantityCounts(typed, typed, "0");
}

TEST_F(BadInputTest, TenThousandDigitsInAQuantityAreRefusedAndStayInTheField)
{
    Open();
    EnterHeader();
    const QString typed(TenThousand, u'9');
    for (Txt* field :
         {&It().TxtOutNewProducts, &It().TxtReturnOldProducts, &It().TxtReturnNewProducts}) {
        SCOPED_TRACE(qPrintable(field->Name()));
        Enter(s("101"));
        // An outgoing quantity is also checked against the stock.
        if (field == &It().TxtOutNewProducts)
            boxes.Expect(Failed(s("Overflow")));
        boxes.Expect(Failed(s("Overflow")));
        for (Txt* quantity :
             {&It().TxtOutNewProducts, &It().TxtReturnOldProducts, &It().TxtReturnNewProducts}) {
            ASSERT_TRUE(HasFocus(*quantity)) << qPrintable(quantity->Name());
            if (quantity == field)
                Paste(It(), typed);
            Press(It(), Qt::Key_Return);
        }
        EXPECT_EQ(boxes.Left(), 0) << "no complaint";
        EXPECT_EQ(FilledRows(), 0);
        EXPECT_EQ(field->Text(), typed);
        EXPECT_EQ(It().Product.Code.Text(), s("101"));
        Press(It(), Qt::Key_Escape);
        ASSERT_TRUE(HasFocus(It().Product.Code));
    }
    EnterRow(s("101"), s("3"));
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null")}));
}

// ---- Dates

TEST_F(BadInputTest, ADateStaysADateWhateverIsTypedOrPasted)
{
    Open();
    Stored();
    const auto attack = [](Form& window, DTPicker& date) {
        SCOPED_TRACE(qPrintable(date.Name()));
        const QString before = date.text();
        window.ResetFocus(date);
        for (const QString& text : {s("'"), s("%"), s(";"), s("ابت"), s("one")}) {
            SCOPED_TRACE(qPrintable(text));
            Type(window, text);
            EXPECT_EQ(date.text(), before);
            Paste(window, text);
            EXPECT_EQ(date.text(), before);
        }
        for (const QString& text : {s("one\r\ntwo"), QString(TenThousand, u'x')}) {
            SCOPED_TRACE(qPrintable(text.left(20)));
            Paste(window, text);
            EXPECT_EQ(date.text(), before);
            EXPECT_EQ(date.Value(), QDate::fromString(before, s("dd/MM/yyyy")));
        }
    };
    attack(It(), It().DtpDate);
    dialogs.Expect([&](Form& dialog) {
        auto& window = dynamic_cast<SearchWindow&>(dialog);
        attack(window, *window.DtpFrom());
        attack(window, *window.DtpTo());
        EXPECT_EQ(window.List().RowCount(), 1);
        Press(window, Qt::Key_Escape);
    });
    Ctrl(Qt::Key_O);
}

// ---- Narrowing fields

TEST_F(BadNarrowingTest, AQuoteIsReportedAndTheListStands)
{
    const QString typed = s("O'Neil");
    pasteIntoEveryField(typed, typed, unclosedQuote(typed), noNumber(typed));
}

TEST_F(BadNarrowingTest, APercentSignFitsEveryNameAndNoNumber)
{
    pasteIntoEveryField(s("%"), s("%"), QString(), noNumber(s("%")));
    EXPECT_EQ(RowsLeft[s("SchStaff.TxtName")], 7);
    EXPECT_EQ(RowsLeft[s("SchGatePass.TxtDriverName")], 2);
    EXPECT_EQ(RowsLeft[s("SchGatePass.TxtAreaCode")], 0); // compared as a whole
}

TEST_F(BadNarrowingTest, ASemicolonEndsNoStatement)
{
    const QString typed = s("1; delete from Staff -- {Text}");
    pasteIntoEveryField(typed, typed, QString(), noNumber(typed));
    EXPECT_EQ(RowsLeft[s("SchStaff.TxtName")], 0);
    EXPECT_EQ(Count(s("Staff")), 7);
}

TEST_F(BadNarrowingTest, UrduNarrowsNamesAndIsNoNumber)
{
    const QString typed = s("محمد");
    pasteIntoEveryField(typed, typed, QString(), noNumber(typed));
    EXPECT_EQ(RowsLeft[s("SchStaff.TxtName")], 3);
    EXPECT_EQ(RowsLeft[s("SchGatePass.TxtDriverName")], 2);
    EXPECT_EQ(RowsLeft[s("SchGatePass.TxtReceiving")], 0);
    EXPECT_EQ(RowsLeft[s("SchProduct.TxtName")], 0);
}

TEST_F(BadNarrowingTest, PastedLineBreaksBecomeBlanks)
{
    const QString shown = s("محمد اسلم");
    pasteIntoEveryField(s("محمد\r\nاسلم"), shown, QString(), noNumber(shown));
    EXPECT_EQ(RowsLeft[s("SchStaff.TxtName")], 1);
    EXPECT_EQ(RowsLeft[s("SchGatePass.TxtDriverName")], 2);
}

TEST_F(BadNarrowingTest, LettersAreNoNumber)
{
    pasteIntoEveryField(s("one"), s("one"), QString(), noNumber(s("one")));
}

TEST_F(BadNarrowingTest, TenThousandDigitsFitNoTextAndAreTooLargeForANumber)
{
    const QString typed(TenThousand, u'7');
    pasteIntoEveryField(typed, typed, QString(), s("Overflow"));
    EXPECT_EQ(RowsLeft[s("SchStaff.TxtName")], 0);
}

TEST_F(BadNarrowingTest, TenThousandLettersFitNothing)
{
    const QString typed(TenThousand, u'x');
    pasteIntoEveryField(typed, typed, QString(), noNumber(typed));
    EXPECT_EQ(RowsLeft[s("SchStaff.TxtName")], 0);
}

// ---- The database

TEST_P(TroubleTest, ANewPassStaysOnTheScreenAndIsSavedAfterwards)
{
    EnterHeader();
    EnterRow(s("101"), s("3"));
    enterLongRow();
    ASSERT_EQ(FilledRows(), 2);

    beginTrouble();
    for (int attempt = 1; attempt <= 2; ++attempt) {
        SCOPED_TRACE(attempt);
        expectSaveFails();
        EXPECT_EQ(Count(s("GatePassHeader")), 0);
        EXPECT_EQ(Count(s("GatePassBody")), 0);
    }
    endTrouble();

    Save();
    EXPECT_EQ(It().FormState(), State::New);
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null"), longCode + s("|2|null|null")}));
}

TEST_P(TroubleTest, AChangedPassKeepsItsStoredRowsUntilItIsSaved)
{
    const int id = Stored(s("101"), s("3"));
    OpenStored(id);
    Click(It(), It().Product.Code);
    Press(It(), Qt::Key_Down);
    Press(It(), Qt::Key_Up);
    Press(It(), Qt::Key_Return);
    ASSERT_TRUE(HasFocus(It().TxtReturnOldProducts));
    Enter(s("1"));
    Enter(QString());
    enterLongRow();
    It().OptSupply.SetValue(true);
    ASSERT_EQ(Cell(0, "ReturnOldProducts"), s("1"));

    beginTrouble();
    for (int attempt = 1; attempt <= 2; ++attempt) {
        SCOPED_TRACE(attempt);
        expectSaveFails();
        EXPECT_EQ(company.Scalar("select Supply from GatePassHeader"), 0);
        EXPECT_EQ(BodyOf(id), QStringList({s("101|3|null|null")}));
    }
    endTrouble();

    Save();
    EXPECT_EQ(company.Scalar("select Supply from GatePassHeader"), 1);
    EXPECT_EQ(BodyOf(id), QStringList({s("101|3|1|null"), longCode + s("|2|null|null")}));
}

INSTANTIATE_TEST_SUITE_P(Database, TroubleTest,
                         ::testing::Values(Trouble::Locked, Trouble::FullDisk, Trouble::ReadOnly),
                         ::testing::PrintToStringParamName());

TEST_P(DeletionTroubleTest, APassThatCannotBeDeletedStaysAndIsDeletedAfterwards)
{
    const int id = Stored(s("101"), s("3"));
    OpenStored(id);
    const Message question{s("Do you want to remove this record?"), MsgIcon::Question,
                           s("Confirmation"), MsgButtons::YesNo};
    const QStringList before = screen();

    beginTrouble();
    boxes.Expect(question, MsgAnswer::Yes);
    boxes.Expect(complaint());
    Ctrl(Qt::Key_R);
    EXPECT_EQ(screen(), before);
    EXPECT_FALSE(connection->InTransaction());
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
    EXPECT_EQ(BodyOf(id), QStringList({s("101|3|null|null")}));
    endTrouble();

    boxes.Expect(question, MsgAnswer::Yes);
    Ctrl(Qt::Key_R);
    EXPECT_EQ(Count(s("GatePassHeader")), 0);
    EXPECT_EQ(Count(s("GatePassBody")), 0);
}

// A deletion needs no additional disk space.
INSTANTIATE_TEST_SUITE_P(Database, DeletionTroubleTest,
                         ::testing::Values(Trouble::Locked, Trouble::ReadOnly),
                         ::testing::PrintToStringParamName());

TEST_F(BadInputTest, AClerkTypesOnWhileAnotherUserHoldsTheDatabase)
{
    Open();
    const std::shared_ptr<Connection> other = company.Connect();
    other->BeginTrans();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    EXPECT_EQ(FilledRows(), 1);
    EXPECT_EQ(It().Branch.Name.Text(), s("قصور"));
    other->RollbackTrans();
    Save();
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null")}));
}

TEST_F(LockTest, ASaveWaitsForAnotherUserWithoutAWord)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    const std::shared_ptr<Connection> other = company.Connect();
    other->BeginTrans();
    // The other user is done only after the save has asked for the lock several times.
    constexpr int patience = 5;
    int refused = 0;
    const std::function<void()> refuse = [&] {
        if (++refused < patience)
            disk.WhenSomebodyWaits(refuse);
        else
            other->RollbackTrans();
    };
    disk.WhenSomebodyWaits(refuse);
    Save();
    EXPECT_EQ(refused, patience);
    EXPECT_EQ(BodyOf(1), QStringList({s("101|3|null|null")}));
}

} // namespace tests
