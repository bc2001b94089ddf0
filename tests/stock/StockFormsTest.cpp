// Stock documents: goods received and issued, with and without prices. Common behaviour is tested
// for both kinds.

#include "stock/StockForms.h"
#include "support/FormDesk.h"
#include "support/Text.h"

namespace tests {

namespace {

const Message Duplicate{s("The Record Already Exist"), MsgIcon::Information, s("Alert")};
const Message IdTaken{
    s("This Stock ID already exists. A new Stock ID. has been generated. Please try again"),
    MsgIcon::Stop, s("Alert")};

/// The values in which the two kinds differ, for the tests.
template <class TheForm> struct Kind;

template <> struct Kind<FrmStockIn> {
    static constexpr const char* Title = "Stock In";
    static constexpr const char* Key = "MniStockIn";
    static constexpr const char* Header = "StockInHeader";
    static constexpr const char* Body = "StockInBody";
    static constexpr const char* Dialog = "SchStockIn";
};

template <> struct Kind<FrmStockOut> {
    static constexpr const char* Title = "Stock Out";
    static constexpr const char* Key = "MniStockOut";
    static constexpr const char* Header = "StockOutHeader";
    static constexpr const char* Body = "StockOutBody";
    static constexpr const char* Dialog = "SchStockOut";
};

template <class TheForm> class StockFormTest : public FormDesk<TheForm> {
protected:
    using Is = Kind<TheForm>;
    using Desk = FormDesk<TheForm>;

    StockFormTest()
    {
        // Removes the documents through which the stock was received, so that they do not affect
        // the tests.
        this->company.Run(s("delete from %1; delete from %2;").arg(s(Is::Body), s(Is::Header)));
    }

    void Prepare(TheForm& window) override { window.ParaInShowPrice = showPrice; }

    void OpenPriced()
    {
        showPrice = true;
        Desk::Open();
    }

    /// Enters branch and account, starting at the date and ending at the product.
    void EnterHeader(const QString& branch = s("1"), const QString& account = s("7"))
    {
        this->It().ResetFocus(this->It().DtpDate);
        this->Enter(QString());
        this->Enter(branch);
        this->Enter(account);
        this->Enter(QString());
    }

    /// Enters a row with the product's own price.
    void EnterRow(const QString& product, const QString& quantity)
    {
        this->Enter(product);
        this->Enter(quantity);
        if (showPrice)
            this->Enter(QString());
    }

    /// Replaces the assigned number with another one.
    void TypeNumber(const QString& number)
    {
        this->It().ResetFocus(this->It().DtpDate);
        Press(this->It(), Qt::Key_Backtab);
        ASSERT_TRUE(this->HasFocus(this->It().TxtID));
        this->Enter(number);
    }

    QStringList Headers()
    {
        return this->Lines(s("select StockID, BranchCode, AccountNo, Description from %1"
                             " order by StockID")
                               .arg(s(Is::Header)));
    }
    QStringList BodyOf(int id)
    {
        return this->Lines(s("select ProductID, Qty, price, Amount from %1 where StockID = %2"
                             " order by cast(ProductID as integer)")
                               .arg(s(Is::Body))
                               .arg(id));
    }
    int Store()
    {
        const int id = this->It().TxtID.Text().toInt();
        EnterHeader();
        EnterRow(s("101"), s("2"));
        this->Ctrl(Qt::Key_S);
        return id;
    }

    bool showPrice = false;
};

using BothKinds = ::testing::Types<FrmStockIn, FrmStockOut>;

struct KindName {
    template <class TheForm> static std::string GetName(int) { return Kind<TheForm>::Dialog + 3; }
};

TYPED_TEST_SUITE(StockFormTest, BothKinds, KindName);

} // namespace

// In a class template, members of a dependent base need this->.
#define IT this->It()

TYPED_TEST(StockFormTest, OpensNewWithTheNextNumberAndToday)
{
    this->Open();
    EXPECT_EQ(IT.windowTitle(), s(Kind<TypeParam>::Title));
    EXPECT_EQ(IT.objectName().mid(3), s(Kind<TypeParam>::Dialog).mid(3));
    EXPECT_EQ(IT.TxtID.Text(), s("1"));
    EXPECT_TRUE(IT.TxtID.IsEnabled());
    EXPECT_EQ(IT.DtpDate.Value(), QDate::currentDate());
    EXPECT_FALSE(IT.BtnSave.IsEnabled());
    EXPECT_FALSE(IT.BtnPrint.IsVisible());
    EXPECT_TRUE(this->HasFocus(IT.DtpDate));
}

TYPED_TEST(StockFormTest, WithoutPricesNoPriceIsShownAnywhere)
{
    this->Open();
    for (const Control* control : {&IT.TxtPrice, &IT.TxtAmount})
        EXPECT_FALSE(control->IsVisible()) << qPrintable(control->Name());
    EXPECT_FALSE(IT.Label8.isVisible());
    EXPECT_FALSE(IT.Label15.isVisible());
    EXPECT_TRUE(IT.Rows.isColumnHidden(IT.Rows.ColumnIndex(u"Price")));
    EXPECT_TRUE(IT.Rows.isColumnHidden(IT.Rows.ColumnIndex(u"Amount")));
    EXPECT_FALSE(IT.Rows.isColumnHidden(IT.Rows.ColumnIndex(u"Qty")));
}

TYPED_TEST(StockFormTest, WithPricesTheyAreShown)
{
    this->OpenPriced();
    EXPECT_TRUE(IT.TxtPrice.IsVisible());
    EXPECT_TRUE(IT.TxtAmount.IsVisible());
    EXPECT_TRUE(IT.Label8.isVisible());
    EXPECT_TRUE(IT.Label15.isVisible());
    EXPECT_FALSE(IT.Rows.isColumnHidden(IT.Rows.ColumnIndex(u"Price")));
    EXPECT_FALSE(IT.Rows.isColumnHidden(IT.Rows.ColumnIndex(u"Amount")));
}

TYPED_TEST(StockFormTest, RowsWithoutPricesAreStoredWithThePurchaseRateAndTheComputedAmount)
{
    const int rate =
        this->company.Scalar(s("select PurchaseRate from Products where ProductID = '101'"))
            .toInt();
    ASSERT_GT(rate, 0);
    this->Open();
    this->EnterHeader();
    EXPECT_TRUE(this->HasFocus(IT.Product.Code));
    this->Enter(s("101"));
    EXPECT_TRUE(this->HasFocus(IT.TxtQty));
    this->Enter(s("3"));
    EXPECT_TRUE(this->HasFocus(IT.Product.Code));
    EXPECT_EQ(this->FilledRows(), 1);
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->Headers(), QStringList(s("1|1|7|null")));
    EXPECT_EQ(this->BodyOf(1), QStringList(s("101|3|%1|%2").arg(rate).arg(3 * rate)));
}

TYPED_TEST(StockFormTest, WithPricesTabFromTheQuantityAddsNothingAndTabOutOfThePriceAdds)
{
    this->OpenPriced();
    this->EnterHeader();
    this->Enter(s("101"));
    this->Enter(s("3"));
    EXPECT_TRUE(this->HasFocus(IT.TxtPrice));
    EXPECT_EQ(this->FilledRows(), 0);
    this->Enter(s("10.5"));
    EXPECT_TRUE(this->HasFocus(IT.Product.Code));
    EXPECT_EQ(this->Cell(0, "ID"), s("101"));
    EXPECT_EQ(this->Cell(0, "Qty"), s("3"));
    EXPECT_EQ(this->Cell(0, "Price"), s("10.5"));
    EXPECT_EQ(this->Cell(0, "Amount"), s("31.5"));
    EXPECT_TRUE(IT.TxtAmount.Text().isEmpty());
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->BodyOf(1), QStringList(s("101|3|10.5|31.5")));
}

TYPED_TEST(StockFormTest, TheAmountFollowsTheQuantityAndThePrice)
{
    this->OpenPriced();
    this->EnterHeader();
    this->Enter(s("101"));
    const double rate = IT.TxtPrice.Text().toDouble();
    Type(IT, s("2"));
    EXPECT_EQ(IT.TxtAmount.Text().toDouble(), 2 * rate);
    Type(IT, s("5"));
    EXPECT_EQ(IT.TxtAmount.Text().toDouble(), 25 * rate);
    Press(IT, Qt::Key_Return);
    Type(IT, s("x"));
    EXPECT_EQ(IT.TxtAmount.Text(), s("0"));
}

TYPED_TEST(StockFormTest, AnAmountBeyondAllNumbersIsToldAndTheTypingStays)
{
    this->OpenPriced();
    this->EnterHeader();
    this->Enter(s("101"));
    this->Enter(s("1E200"));
    this->boxes.Expect(this->Failed(s("Overflow")));
    Paste(IT, s("1E200"));
    EXPECT_EQ(IT.TxtPrice.Text(), s("1E200"));
    EXPECT_EQ(IT.TxtQty.Text(), s("1E200"));
}

TYPED_TEST(StockFormTest, AnAccountOfZeroOrNoneStoresNull)
{
    this->company.Run("insert into Accounts values ('0', 'کوئی نہیں')");
    this->Open();
    this->EnterHeader(s("1"), s("0"));
    this->EnterRow(s("101"), s("1"));
    this->Ctrl(Qt::Key_S);
    this->EnterHeader(s("1"), QString());
    this->EnterRow(s("101"), s("1"));
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->Headers(), QStringList({s("1|1|null|null"), s("2|1|null|null")}));
}

TYPED_TEST(StockFormTest, LeavingTheQuantityWithoutAProductAddsNothingAndSaysNothing)
{
    this->Open();
    this->EnterHeader();
    this->Enter(QString());
    EXPECT_TRUE(this->HasFocus(IT.TxtQty));
    this->Enter(s("4"));
    EXPECT_EQ(this->FilledRows(), 0);
    EXPECT_EQ(IT.TxtQty.Text(), s("4"));
}

TYPED_TEST(StockFormTest, ADocumentWithABranchAndNoRowsIsSaved)
{
    this->Open();
    this->EnterHeader();
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->Headers(), QStringList(s("1|1|7|null")));
    EXPECT_TRUE(this->BodyOf(1).isEmpty());
    EXPECT_EQ(IT.FormState(), VoucherForm::State::New);
    EXPECT_EQ(IT.TxtID.Text(), s("2"));
}

TYPED_TEST(StockFormTest, TwoRowsOfOneProductAreRefused)
{
    this->Open();
    this->EnterHeader();
    this->EnterRow(s("101"), s("2"));
    this->boxes.Expect(Duplicate);
    this->EnterRow(s("101"), s("9"));
    EXPECT_TRUE(this->HasFocus(IT.Product.Code));
    EXPECT_TRUE(IT.TxtQty.Text().isEmpty());
    EXPECT_EQ(this->FilledRows(), 1);
    EXPECT_EQ(this->Cell(0, "Qty"), s("2"));
}

TYPED_TEST(StockFormTest, ARowIsStillKnownAfterTheNumberWasTypedOver)
{
    this->Open();
    this->EnterHeader();
    this->EnterRow(s("101"), s("2"));
    this->TypeNumber(s("40"));
    IT.ResetFocus(IT.Product.Code);
    this->boxes.Expect(Duplicate);
    this->EnterRow(s("101"), s("9"));
    this->EnterRow(s("104"), s("1"));
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->Headers(), QStringList(s("40|1|7|null")));
    EXPECT_EQ(this->BodyOf(40).size(), 2);
    EXPECT_EQ(IT.TxtID.Text(), s("41"));
}

TYPED_TEST(StockFormTest, ATakenNumberTypedOverIsToldAndANewOneGiven)
{
    this->Open();
    this->Store();
    this->EnterHeader();
    this->EnterRow(s("104"), s("1"));
    this->TypeNumber(s("1"));
    this->boxes.Expect(IdTaken);
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(IT.TxtID.Text(), s("2"));
    EXPECT_TRUE(this->BodyOf(2).isEmpty());
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->BodyOf(1).size(), 1);
    ASSERT_EQ(this->BodyOf(2).size(), 1);
    EXPECT_TRUE(this->BodyOf(2).front().startsWith(s("104|1|")));
}

TYPED_TEST(StockFormTest, ANumberThatAnotherWorkstationTookIsToldAndTheSecondSaveStores)
{
    this->Open();
    this->EnterHeader();
    this->EnterRow(s("101"), s("1"));
    this->company.Run(s("insert into %1 (StockID, Date, BranchCode) values (1, '2026-01-01', 2)")
                          .arg(s(Kind<TypeParam>::Header)));
    this->boxes.Expect(IdTaken);
    this->Ctrl(Qt::Key_S);
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->Headers(), QStringList({s("1|2|null|null"), s("2|1|7|null")}));
    EXPECT_EQ(this->BodyOf(2).size(), 1);
}

TYPED_TEST(StockFormTest, TheBranchIsMandatory)
{
    this->Open();
    IT.ResetFocus(IT.TxtDescription);
    Type(IT, s("note"));
    this->boxes.Expect(
        Message{s("Enter Branch Code."), MsgIcon::Exclamation, s(Kind<TypeParam>::Title)});
    this->Ctrl(Qt::Key_S);
    EXPECT_TRUE(this->HasFocus(IT.Branch.Code));
    EXPECT_EQ(IT.TxtDescription.Text(), s("note"));
    EXPECT_TRUE(this->Headers().isEmpty());
}

TYPED_TEST(StockFormTest, ADescriptionIsStoredAsItStands)
{
    this->Open();
    this->EnterHeader();
    IT.TxtDescription.SetText(s(" پرانا مال "));
    this->Ctrl(Qt::Key_S);
    this->EnterHeader();
    IT.TxtDescription.SetText(s("  "));
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->Headers(), QStringList({s("1|1|7| پرانا مال "), s("2|1|7|  ")}));
}

TYPED_TEST(StockFormTest, OpeningFillsEveryFieldAndClosesTheNumber)
{
    this->OpenPriced();
    this->EnterHeader();
    IT.TxtDescription.SetText(s("نوٹ"));
    this->EnterRow(s("101"), s("2"));
    this->EnterRow(s("210"), s("5"));
    this->Ctrl(Qt::Key_S);
    this->OpenStored(1);
    EXPECT_EQ(IT.FormState(), VoucherForm::State::Opened);
    EXPECT_EQ(IT.TxtID.Text(), s("1"));
    EXPECT_FALSE(IT.TxtID.IsEnabled());
    EXPECT_TRUE(this->HasFocus(IT.DtpDate));
    EXPECT_EQ(IT.Branch.Code.Text(), s("1"));
    EXPECT_EQ(IT.Branch.Name.Text(), s("قصور"));
    EXPECT_EQ(IT.Account.Code.Text(), s("7"));
    EXPECT_EQ(IT.Account.Name.Text(), s("حاجی ٹریڈرز"));
    EXPECT_EQ(IT.TxtDescription.Text(), s("نوٹ"));
    EXPECT_EQ(this->FilledRows(), 2);
    EXPECT_EQ(this->Cell(1, "ID"), s("210"));
    EXPECT_EQ(this->Cell(1, "Name"), s("واشنگ مشین"));
    EXPECT_EQ(this->Cell(1, "Qty"), s("5"));
    EXPECT_EQ(this->Cell(1, "Price"), s("18500"));
    EXPECT_EQ(this->Cell(1, "Amount"), s("92500"));
    // A new document enables it again.
    this->Ctrl(Qt::Key_W);
    EXPECT_TRUE(IT.TxtID.IsEnabled());
    EXPECT_EQ(IT.TxtID.Text(), s("2"));
}

TYPED_TEST(StockFormTest, ARowIsCorrectedAndStoredUnderTheSameNumber)
{
    this->OpenPriced();
    const int id = this->Store();
    this->OpenStored(id);
    IT.ResetFocus(IT.Product.Code);
    Press(IT, Qt::Key_Down);
    Press(IT, Qt::Key_Home);
    Press(IT, Qt::Key_Return);
    EXPECT_TRUE(this->HasFocus(IT.TxtQty));
    EXPECT_FALSE(IT.Product.Code.IsEnabled());
    this->Enter(s("7"));
    this->Enter(s("100"));
    EXPECT_EQ(this->Cell(0, "Amount"), s("700"));
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->BodyOf(id), QStringList(s("101|7|100|700")));
}

TYPED_TEST(StockFormTest, DeletingTakesBodyAndHeader)
{
    this->Open();
    const int id = this->Store();
    this->OpenStored(id);
    this->boxes.Expect(Message{s("Do you want to remove this record?"), MsgIcon::Question,
                               s("Confirmation"), MsgButtons::YesNo},
                       MsgAnswer::Yes);
    this->Ctrl(Qt::Key_R);
    EXPECT_TRUE(this->Headers().isEmpty());
    EXPECT_TRUE(this->BodyOf(id).isEmpty());
    EXPECT_EQ(this->user->Asked, QList<QString>{s(Kind<TypeParam>::Key) + s(" delete")});
}

TYPED_TEST(StockFormTest, DeletingTakesTheRowsBeforeTheHeader)
{
    this->Open();
    const int id = this->Store();
    this->OpenStored(id);
    this->DeleteRowsFirst(s(Kind<TypeParam>::Header), s(Kind<TypeParam>::Body), s("StockID"));
    EXPECT_TRUE(this->Headers().isEmpty());
    EXPECT_TRUE(this->BodyOf(id).isEmpty());
}

TYPED_TEST(StockFormTest, TheRightIsTestedBeforeTheBranchIsAskedFor)
{
    this->Open();
    this->OpenStored(this->Store());
    IT.ResetFocus(IT.TxtDescription);
    Type(IT, s("x"));
    IT.Branch.Code.SetText(QString());
    this->user->Modify = false;
    this->boxes.Expect(this->Refused(s("You are not authorized to modify a record")));
    this->Ctrl(Qt::Key_S);
    this->user->Modify = true;
    this->boxes.Expect(
        Message{s("Enter Branch Code."), MsgIcon::Exclamation, s(Kind<TypeParam>::Title)});
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->Headers(), QStringList(s("1|1|7|null")));
}

TYPED_TEST(StockFormTest, TheBranchIsAskedForBeforeTheNumberIsTested)
{
    this->Open();
    this->Store();
    IT.ResetFocus(IT.TxtDescription);
    Type(IT, s("x"));
    IT.TxtID.SetText(s("1"));
    this->boxes.Expect(
        Message{s("Enter Branch Code."), MsgIcon::Exclamation, s(Kind<TypeParam>::Title)});
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(IT.TxtID.Text(), s("1"));
    IT.Branch.Code.SetText(s("1"));
    this->boxes.Expect(IdTaken);
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(IT.TxtID.Text(), s("2"));
}

TYPED_TEST(StockFormTest, GoingBackIntoTheEntryRowOrToCloseAddsNothing)
{
    this->OpenPriced();
    this->EnterHeader();
    this->Enter(s("101"));
    this->Enter(s("3"));
    for (const auto& [from, to] : {std::pair<Txt*, Txt*>{&IT.TxtPrice, &IT.TxtQty},
                                   {&IT.TxtPrice, &IT.Product.Code},
                                   {&IT.TxtQty, &IT.TxtPrice},
                                   {&IT.TxtQty, &IT.Product.Code}}) {
        IT.ResetFocus(*from);
        Click(IT, *to);
        EXPECT_TRUE(this->HasFocus(*to)) << qPrintable(from->Name() + to->Name());
        EXPECT_EQ(this->FilledRows(), 0) << qPrintable(from->Name() + to->Name());
    }
    for (Txt* from : {&IT.TxtPrice, &IT.TxtQty}) {
        IT.ResetFocus(*from);
        this->ExpectCloseQuestion(MsgAnswer::No, [this] { EXPECT_EQ(this->FilledRows(), 0); });
        Click(IT, IT.BtnClose);
        EXPECT_EQ(this->FilledRows(), 0) << qPrintable(from->Name());
        EXPECT_EQ(IT.Product.Code.Text(), s("101"));
    }
    IT.ResetFocus(IT.TxtQty);
    Click(IT, IT.TxtDescription);
    EXPECT_EQ(this->FilledRows(), 1);
}

TYPED_TEST(StockFormTest, ACodeOfBlanksAddsNothingAndSaysNothing)
{
    this->Open();
    this->EnterHeader();
    IT.ResetFocus(IT.TxtQty);
    IT.Product.Code.SetText(s("  "));
    this->Enter(s("4"));
    EXPECT_EQ(this->FilledRows(), 0);
    EXPECT_EQ(IT.Detail.CountRows(), 0);
}

TYPED_TEST(StockFormTest, AnEmptyQuantityAndPriceAreStoredAsZero)
{
    this->OpenPriced();
    this->EnterHeader();
    this->Enter(s("101"));
    IT.TxtPrice.SetText(QString());
    this->Enter(QString());
    this->Enter(QString());
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->BodyOf(1), QStringList(s("101|0|0|0")));
}

TYPED_TEST(StockFormTest, TheAmountCannotBeTyped)
{
    this->OpenPriced();
    this->EnterHeader();
    Click(IT, IT.TxtAmount);
    Type(IT, s("5"));
    EXPECT_TRUE(IT.TxtAmount.Text().isEmpty());
    EXPECT_FALSE(this->HasFocus(IT.TxtAmount));
}

TYPED_TEST(StockFormTest, AnEmptyOrUnknownBranchBringsUpTheList)
{
    this->Open();
    IT.ResetFocus(IT.Branch.Code);
    this->dialogs.Expect([](Form& dialog) {
        EXPECT_EQ(dialog.objectName(), s("SchBranch"));
        Press(dialog, Qt::Key_Escape);
    });
    Press(IT, Qt::Key_Tab);
    EXPECT_TRUE(this->HasFocus(IT.Branch.Code));
    EXPECT_FALSE(IT.IsDirty());
    this->dialogs.Expect(this->Cancel());
    this->Enter(s("99"));
    EXPECT_TRUE(this->HasFocus(IT.Branch.Code));
    EXPECT_TRUE(IT.Branch.Code.Text().isEmpty());
}

TYPED_TEST(StockFormTest, ADocumentWithoutAnAccountOpens)
{
    this->Open();
    this->EnterHeader(s("2"), QString());
    this->EnterRow(s("101"), s("1"));
    this->Ctrl(Qt::Key_S);
    this->OpenStored(1);
    EXPECT_EQ(IT.Branch.Code.Text(), s("2"));
    EXPECT_TRUE(IT.Account.Code.Text().isEmpty());
    EXPECT_TRUE(IT.Account.Name.Text().isEmpty());
    EXPECT_EQ(this->FilledRows(), 1);
}

TYPED_TEST(StockFormTest, TheDateIsStoredAndOpened)
{
    this->Open();
    this->EnterHeader();
    this->EnterRow(s("101"), s("1"));
    const QDate date = QDate::currentDate().addDays(-5);
    IT.DtpDate.SetValue(date);
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(IT.DtpDate.Value(), QDate::currentDate());
    EXPECT_EQ(this->company.Scalar(s("select Date from %1").arg(s(Kind<TypeParam>::Header))),
              date.toString(Qt::ISODate));
    this->OpenStored(1);
    EXPECT_EQ(IT.DtpDate.Value(), date);
}

TYPED_TEST(StockFormTest, WithoutTheModifyRightANewDocumentIsStoredAndAStoredOneIsNot)
{
    this->user->Modify = false;
    this->Open();
    const int id = this->Store();
    EXPECT_EQ(this->BodyOf(id).size(), 1);
    EXPECT_TRUE(this->user->Asked.isEmpty());
    this->OpenStored(id);
    IT.ResetFocus(IT.TxtDescription);
    Type(IT, s("x"));
    this->boxes.Expect(this->Refused(s("You are not authorized to modify a record")));
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->user->Asked, QList<QString>{s(Kind<TypeParam>::Key) + s(" modify")});
    EXPECT_EQ(this->Headers(), QStringList(s("1|1|7|null")));
}

TYPED_TEST(StockFormTest, AUserOfOneBranchMayTypeAnother)
{
    this->user->Branch = s("1");
    this->Open();
    this->EnterHeader(s("2"));
    EXPECT_EQ(IT.Branch.Name.Text(), s("لاہور"));
}

TYPED_TEST(StockFormTest, F1WalksFromTheBranchToTheAccountToTheProductToTheQuantity)
{
    // The product list shows only products with stock movements.
    this->company.Run("insert into GatePassHeader (GatePassID, GatePassDate, BranchCode)"
                      " values (1, '2026-01-01', 1); insert into GatePassBody"
                      " (GatePassID, ProductID, ReturnNewProducts) values (1, '104', 5);");
    this->Open();
    IT.ResetFocus(IT.Branch.Code);
    this->dialogs.Expect(this->Choose(s("2")));
    Press(IT, Qt::Key_F1);
    EXPECT_EQ(IT.Branch.Code.Text(), s("2"));
    EXPECT_TRUE(this->HasFocus(IT.Account.Code));
    this->dialogs.Expect(this->Choose(s("12")));
    Press(IT, Qt::Key_F1);
    EXPECT_EQ(IT.Account.Name.Text(), s("لاہور موٹرز"));
    EXPECT_TRUE(this->HasFocus(IT.Product.Code));
    this->dialogs.Expect(this->Choose(s("104")));
    Press(IT, Qt::Key_F1);
    EXPECT_EQ(IT.Product.Code.Text(), s("104"));
    EXPECT_TRUE(this->HasFocus(IT.TxtQty));
}

TYPED_TEST(StockFormTest, TheAccountsButtonGoesOnToTheProductOrBackToTheAccount)
{
    this->Open();
    this->dialogs.Expect(this->Choose(s("7")));
    Click(IT, IT.Account.Button);
    EXPECT_EQ(IT.Account.Name.Text(), s("حاجی ٹریڈرز"));
    EXPECT_TRUE(this->HasFocus(IT.Product.Code));
    this->dialogs.Expect(this->Cancel());
    Click(IT, IT.Account.Button);
    EXPECT_TRUE(this->HasFocus(IT.Account.Code));
    EXPECT_EQ(IT.Account.Code.Text(), s("7"));
}

TYPED_TEST(StockFormTest, AnUnknownAccountBringsUpTheListAndCancellingKeepsTheFocus)
{
    this->Open();
    IT.ResetFocus(IT.Account.Code);
    this->dialogs.Expect(this->Cancel());
    this->Enter(s("999"));
    EXPECT_TRUE(this->HasFocus(IT.Account.Code));
    EXPECT_EQ(IT.Account.Code.Text(), s("999"));
    EXPECT_TRUE(IT.Account.Name.Text().isEmpty());
}

TYPED_TEST(StockFormTest, AnAccountWhoseNameIsThereIsNotLookedUpAgain)
{
    this->Open();
    IT.ResetFocus(IT.Account.Code);
    this->Enter(s("7"));
    this->company.Run("delete from Accounts where AccountNo = '7'");
    IT.ResetFocus(IT.Account.Code);
    Press(IT, Qt::Key_Return);
    EXPECT_TRUE(this->HasFocus(IT.TxtDescription));
}

TYPED_TEST(StockFormTest, AnUnknownProductEmptiesCodeNameAndPriceAndMarksTheDocument)
{
    this->OpenPriced();
    this->EnterHeader();
    this->Ctrl(Qt::Key_W);
    ASSERT_FALSE(IT.IsDirty());
    IT.ResetFocus(IT.Product.Code);
    IT.TxtPrice.SetText(s("55"));
    this->dialogs.Expect([&](Form& dialog) {
        EXPECT_TRUE(IT.Product.Code.Text().isEmpty());
        EXPECT_TRUE(IT.TxtPrice.Text().isEmpty());
        Press(dialog, Qt::Key_Escape);
    });
    this->Enter(s("9999"));
    EXPECT_TRUE(this->HasFocus(IT.Product.Code));
    EXPECT_TRUE(IT.IsDirty());
}

TYPED_TEST(StockFormTest, AClickOnSaveAddsThePendingRowFirst)
{
    this->OpenPriced();
    this->EnterHeader();
    this->Enter(s("101"));
    this->Enter(s("3"));
    Type(IT, s("5"));
    Click(IT, IT.BtnSave);
    EXPECT_EQ(this->BodyOf(1), QStringList(s("101|3|5|15")));
}

TYPED_TEST(StockFormTest, CtrlSInTheQuantityAddsThePendingRowFirst)
{
    this->Open();
    this->EnterHeader();
    this->Enter(s("101"));
    Type(IT, s("3"));
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->BodyOf(1).size(), 1);
}

TYPED_TEST(StockFormTest, AfterASaveTheFocusStays)
{
    this->Open();
    this->Store();
    EXPECT_TRUE(this->HasFocus(IT.Product.Code));
    EXPECT_TRUE(IT.Branch.Code.Text().isEmpty());
}

TYPED_TEST(StockFormTest, ServerModeTakesTheWritingButtons)
{
    HostContext::ServerMode = true;
    this->Open();
    EXPECT_FALSE(IT.BtnSave.IsVisible());
    EXPECT_FALSE(IT.BtnDelete.IsVisible());
}

TYPED_TEST(StockFormTest, AFailedSaveKeepsTheTypedRowsAndTheNextOneStores)
{
    this->Open();
    this->EnterHeader();
    this->EnterRow(s("101"), s("2"));
    this->company.Run(s("create trigger Refuse before insert on %1 begin"
                        " select raise(abort, 'no room'); end")
                          .arg(s(Kind<TypeParam>::Body)));
    this->boxes.Expect(this->Failed(s("The database refuses this record: no room.")));
    this->Ctrl(Qt::Key_S);
    EXPECT_FALSE(this->connection->InTransaction());
    EXPECT_EQ(this->FilledRows(), 1);
    EXPECT_TRUE(IT.IsDirty());
    EXPECT_TRUE(this->Headers().isEmpty());
    this->company.Run("drop trigger Refuse");
    this->Ctrl(Qt::Key_S);
    EXPECT_EQ(this->BodyOf(1).size(), 1);
}

#undef IT

using FrmStockOutTest = StockFormTest<FrmStockOut>;

TEST_F(FrmStockOutTest, MoreMayGoOutThanIsInStock)
{
    Open();
    EnterHeader();
    EnterRow(s("299"), s("1000"));
    Ctrl(Qt::Key_S);
    ASSERT_EQ(BodyOf(1).size(), 1);
    EXPECT_TRUE(BodyOf(1).front().startsWith(s("299|1000|")));
}

using FrmStockInTest = StockFormTest<FrmStockIn>;

TEST_F(FrmStockInTest, ADocumentIsInTheStockOfItsBranchAtOnce)
{
    Open();
    EnterHeader(s("3"));
    EnterRow(s("299"), s("4"));
    Ctrl(Qt::Key_S);
    const Recordset stock =
        connection->Execute("SELECT * from vuCurrentStock WHERE ProductID='299' and branchcode =3");
    ASSERT_EQ(stock.RecordCount(), 1);
    EXPECT_EQ(stock.Value("Stock").toInt(), 4);
}

TEST_F(FrmStockInTest, InAndOutCountTheirNumbersApart)
{
    Open();
    Store();
    EXPECT_EQ(It().TxtID.Text(), s("2"));
    FrmStockOut out;
    out.FormLoad();
    EXPECT_EQ(out.TxtID.Text(), QString::number(Count(s("StockOutHeader")) + 1));
}

} // namespace tests
