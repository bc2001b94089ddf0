#include "stock/StockForm.h"

#include "data/Numbers.h"
#include "data/Recordset.h"
#include "frame/Lookups.h"

namespace TradeForms {

namespace {

constexpr int NumberWidth = 120;
constexpr Caption PriceCaption{"قیمت", "Price"};
constexpr Caption AmountCaption{"رقم", "Amount"};

} // namespace

StockForm::StockForm(const StockDeclaration& declaration)
    : StockVoucher(declaration.Voucher),
      Branch(MakeCodeField(this, {"TxtBranchID", "Branch code"}, {"BtnBranch", "List of branches"},
                           {"TxtBranchName", "Branch name"}, true)),
      Account(MakeCodeField(this, {"TxtAccountNo", "Account number"},
                            {"BtnSearch", "List of accounts"}, {"TxtAccountName", "Account name"})),
      TxtQty(NumberField(this, "TxtQty", "Quantity")),
      TxtPrice(NumberField(this, "TxtPrice", "Price")),
      TxtAmount(NumberField(this, "TxtAmount", "Amount")), Label8(*new CaptionLabel(PriceCaption)),
      Label15(*new CaptionLabel(AmountCaption)), Detail(*this, Rows, detail(declaration)),
      LookupBranch(*this, branch()), LookupAccount(*this, account()),
      LookupProduct(*this, product())
{
    Label8.setObjectName(QStringLiteral("Label8"));
    Label15.setObjectName(QStringLiteral("Label15"));
    TxtAmount.SetDisplayOnly(true);
    TxtQty.OnChange += [this] { workOutAmount(); };
    TxtPrice.OnChange += [this] { workOutAmount(); };
    UseDetail(Detail);
    UseMandatory(Branch.Code, QStringLiteral("Enter Branch Code."));
    // The number of a new document can be changed; whether it is taken is checked on saving.
    TxtID.SetAlignment(Qt::AlignRight);
    TxtID.SetNumberExpected(true);
    UseIdentity({&TxtID});
    // No focus change for a new document: a clerk who enters several in a row stays where he is.
    UseFocus(nullptr, &DtpDate);
    namespace H = HeaderFields;
    UseStockHeader({H::Number("BranchCode", Branch.Code), H::Shown("BranchName", Branch.Name),
                    H::NumberOrNull("AccountNo", Account.Code),
                    H::Shown("AccountName", Account.Name)});
    Compose({composeHeader(), Detail.EntryRow(Stacked({"مال", "Product"}, CodeSet(Product))),
             GridArea(Rows)});
    // The number is last in the tab order because it is rarely changed, and never before the other
    // fields are entered.
    TabAfter(TxtID, BtnClose);
}

StockForm::~StockForm() = default;

// ---- What this form is

DetailDeclaration StockForm::detail(const StockDeclaration& declaration)
{
    using Storage = DetailColumn::Storage;
    return {
        .Columns = {{NumberColumn("Amount", AmountCaption, NumberWidth), &TxtAmount, "Amount",
                     Storage::Number, false, &Label15},
                    {NumberColumn("Price", PriceCaption, NumberWidth), &TxtPrice, "price",
                     Storage::Number, false, &Label8},
                    {NumberColumn("Qty", {"تعداد", "Quantity"}, NumberWidth), &TxtQty, "Qty",
                     Storage::Number},
                    {NameColumn("Name", {"نام", "Product"}, 240), &Product.Name, "ProductName",
                     Storage::Display},
                    {NumberColumn("ID", {"کوڈ", "Code"}, 150), &Product.Code, "ProductID",
                     Storage::Key}},
        .IdColumn = "StockID",
        .Body = declaration.Body,
        .Display = declaration.Display,
        .RowFilter = "StockID={id} and ProductID='{code}'",
        .Required = {{.Field = &Product.Code, .TakesFocus = false}},
        .EditFirst = &TxtQty,
        .Ends = {{&TxtPrice, {&Product.Code, &BtnClose, &TxtQty}},
                 {&TxtQty, {&Product.Code, &BtnClose, &TxtPrice}}},
    };
}

// ---- The code fields

LookupDeclaration StockForm::branch()
{
    return Lookups::Branch(Branch, " Select * FROM Branches where BranchCode = {code}")
        .To(Account.Code);
}

LookupDeclaration StockForm::account()
{
    LookupDeclaration account = Lookups::Account(Account).To(Product.Code);
    account.NextAfterButton = [this]() -> Control* {
        return Product.Code.IsEnabled() ? &Product.Code : nullptr;
    };
    return account;
}

LookupDeclaration StockForm::product()
{
    LookupDeclaration product = LookupOfProduct(TxtQty);
    product.OnFound = [this](const Recordset& row) {
        TxtPrice.SetText(TextOf(row.Value("PurchaseRate")));
    };
    product.OnMissed = [this] { TxtPrice.SetText(QString()); };
    product.MissMarksEdited = true;
    return product;
}

// ---- Steps

void StockForm::FormLoad()
{
    if (!ParaInShowPrice) {
        Rows.SetColumnHidden(u"Price", true);
        Rows.SetColumnHidden(u"Amount", true);
        Label8.setVisible(false);
        Label15.setVisible(false);
        TxtPrice.SetVisible(false);
        TxtAmount.SetVisible(false);
    }
    VoucherForm::FormLoad();
}

/// Sets the amount of the row to its quantity times its price.
void StockForm::workOutAmount()
{
    TxtAmount.SetText(GeneralFormat(InRange(Val(TxtQty.Text()) * Val(TxtPrice.Text()))));
}

// ---- Layout

QWidget* StockForm::composeHeader()
{
    return HeaderStrip({
        CodeSet({"نمبر", "Document no"}, TxtID),
        Labelled({"تاریخ", "Date"}, AtOwnWidth(&DtpDate)),
        CodeSet({"برانچ", "Branch"}, Branch),
        CodeSet({"اکاؤنٹ", "Account"}, Account),
        Labelled({"تفصیل", "Description"}, &TxtDescription),
    });
}

} // namespace TradeForms
