#include "stock/StockForm.h"

#include "data/Numbers.h"
#include "data/Recordset.h"
#include "host/HostContext.h"
#include "host/UserSecurity.h"
#include "search/Catalogue.h"

#include <QBoxLayout>

namespace TradeForms {

namespace {

constexpr int NumberWidth = 120;

} // namespace

StockForm::StockForm(const StockDeclaration& declaration)
    : VoucherForm(declaration.Voucher), TxtID(NumberField(this, "TxtID", "Document number")),
      TxtBranchID(CodeField(this, "TxtBranchID", "Branch code", true)),
      BtnBranch(ListButton(this, "BtnBranch", "List of branches")),
      TxtBranchName(UrduField(this, "TxtBranchName", "Branch name")),
      TxtAccountNo(CodeField(this, "TxtAccountNo", "Account number")),
      BtnSearch(ListButton(this, "BtnSearch", "List of accounts")),
      TxtAccountName(UrduField(this, "TxtAccountName", "Account name")),
      TxtDescription(UrduField(this, "TxtDescription", "Description")),
      TxtProductID(CodeField(this, "TxtProductID", "Product code")),
      BtnProduct(ListButton(this, "BtnProduct", "List of products")),
      TxtProductName(UrduField(this, "TxtProductName", "Product name")),
      TxtQty(NumberField(this, "TxtQty", "Quantity")),
      TxtPrice(NumberField(this, "TxtPrice", "Price")),
      TxtAmount(NumberField(this, "TxtAmount", "Amount")), Label8(*MakeCaption("قیمت", "Price")),
      Label15(*MakeCaption("رقم", "Amount")), Detail(*this, Rows, detail(declaration)),
      LookupBranch(*this, branch()), LookupAccount(*this, account()),
      LookupProduct(*this, product())
{
    Label8.setObjectName(QStringLiteral("Label8"));
    Label15.setObjectName(QStringLiteral("Label15"));
    TxtAmount.SetDisplayOnly(true);
    TxtQty.OnChange += [this] { workOutAmount(); };
    TxtPrice.OnChange += [this] { workOutAmount(); };
    UseId(TxtID);
    UseDetail(Detail);
    // A clerk who enters documents one after another stays where he is.
    UseFocus(nullptr, &DtpDate);
    declareHeader();
    Compose(composeHeader(), composeEntryRow());
    // The number comes last: it is seldom typed over, and never by one who begins to type.
    SetTabOrderOf({&DtpDate, &TxtBranchID, &TxtAccountNo, &TxtDescription, &TxtProductID, &TxtQty,
                   &TxtPrice, &Rows, &BtnSave, &BtnOpen, &BtnDelete, &BtnClear, &BtnClose, &TxtID});
    resize(1000, 620);
}

StockForm::~StockForm() = default;

// ---- What this form is

void StockForm::declareHeader()
{
    using Write = HeaderField::Write;
    namespace H = HeaderFields;
    UseHeader(VoucherHeader({
        H::Number("StockID", TxtID, Write::NewOnly),
        H::Date("Date", DtpDate),
        H::Number("BranchCode", TxtBranchID),
        H::Shown("BranchName", TxtBranchName),
        H::NumberOrNull("AccountNo", TxtAccountNo),
        H::Shown("AccountName", TxtAccountName),
        H::TextOrNull("Description", TxtDescription),
    }));
}

DetailDeclaration StockForm::detail(const StockDeclaration& declaration)
{
    using Stored = DetailColumn::Stored;
    return DetailDeclaration{
        .Columns = {{NumberColumn("Amount", "رقم", "Amount", NumberWidth), &TxtAmount, "Amount",
                     Stored::Number, "Amount"},
                    {NumberColumn("Price", "قیمت", "Price", NumberWidth), &TxtPrice, "price",
                     Stored::Number, "price"},
                    {NumberColumn("Qty", "تعداد", "Quantity", NumberWidth), &TxtQty, "Qty",
                     Stored::Number, "Qty"},
                    {NameColumn("Name", "نام", "Product", 240), &TxtProductName, "ProductName",
                     Stored::Display},
                    {NumberColumn("ID", "کوڈ", "Code", 150), &TxtProductID, "ProductID",
                     Stored::Key, "ProductID"}},
        .IdColumn = "StockID",
        .Body = declaration.Body,
        .Display = declaration.Display,
        .RowFilter = "StockID={id} and ProductID='{code}'",
        .EditFirst = &TxtQty,
        .Ends = {{&TxtPrice, {&TxtProductID, &BtnClose, &TxtQty}},
                 {&TxtQty, {&TxtProductID, &BtnClose, &TxtPrice}}},
        // Last of all, as the amount has followed the quantity and the price on their way.
        .OnClearEntryRow = [this] { TxtAmount.SetText(QString()); },
    };
}

// ---- The code fields

LookupDeclaration StockForm::branch()
{
    const auto account = [this] { return &TxtAccountNo; };
    return LookupDeclaration{
        .Code = TxtBranchID,
        .Name = TxtBranchName,
        .Button = BtnBranch,
        .Dialog = SchBranch,
        .ParaIn = "ParaInBranchCode",
        .ParaInValue = [] { return HostContext::Security().UserBranchCode(); },
        .ParaOut = "ParaOutBranchCode",
        .Find =
            [this] {
                return Statement(" Select * FROM Branches where BranchCode = {code}")
                    .Bind("code", TxtBranchID.Text());
            },
        .NameColumn = "BranchName",
        .MissEmptiesCode = true,
        .EmptyBringsList = true,
        .ChangeMarksEdited = false,
        .NextAfterF1 = account,
        .NextAfterButton = account,
    };
}

LookupDeclaration StockForm::account()
{
    return LookupDeclaration{
        .Code = TxtAccountNo,
        .Name = TxtAccountName,
        .Button = BtnSearch,
        .Dialog = SchAccounts,
        .ParaOut = "ParaOutAccountNo",
        .Find =
            [this] {
                return Statement("select * from vuAccounts where AccountNo = '{code}'")
                    .Bind("code", TxtAccountNo.Text());
            },
        .NameColumn = "AccountName",
        .TrustsName = true,
        .NextAfterF1 = [this] { return &TxtProductID; },
        .NextAfterButton = [this]() -> Control* {
            return TxtProductID.IsEnabled() ? &TxtProductID : nullptr;
        },
    };
}

LookupDeclaration StockForm::product()
{
    const auto quantity = [this] { return &TxtQty; };
    return LookupDeclaration{
        .Code = TxtProductID,
        .Name = TxtProductName,
        .Button = BtnProduct,
        .Dialog = SchProduct,
        .ParaOut = "ParaOutPID",
        .Find =
            [this] {
                return Statement("SELECT ProductName, PurchaseRate from Products"
                                 " WHERE ProductID = '{code}'")
                    .Bind("code", TxtProductID.Text());
            },
        .NameColumn = "ProductName",
        .OnFound =
            [this](const Recordset& row) { TxtPrice.SetText(TextOf(row.Value("PurchaseRate"))); },
        .OnMissed = [this] { TxtPrice.SetText(QString()); },
        .MissEmptiesCode = true,
        .ChangeMarksEdited = false,
        .MissMarksEdited = true,
        .NextAfterF1 = quantity,
        .NextAfterButton = quantity,
    };
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

void StockForm::SetFormState(State state)
{
    VoucherForm::SetFormState(state);
    // The number of a new document may be typed over; whether it is taken is seen on saving.
    if (state != State::Edited)
        TxtID.SetEnabled(state == State::New);
}

/// The amount of a row is its quantity times its price.
void StockForm::workOutAmount()
{
    TxtAmount.SetText(GeneralFormat(InRange(Val(TxtQty.Text()) * Val(TxtPrice.Text()))));
}

void StockForm::SaveVoucher()
{
    if (!IsNew && !PassesModifyRule())
        return;
    if (!IsFilled(TxtBranchID, QStringLiteral("Enter Branch Code.")))
        return;
    if (!PassesRaceRule())
        return;
    BeginTrans();
    SaveHeader();
    SaveBody();
    CommitTrans();
    SetFormState(State::New);
}

// ---- Layout

QWidget* StockForm::composeHeader()
{
    return HeaderStrip({
        CodeSet(MakeCaption("نمبر", "Document no"), &TxtID, nullptr, nullptr),
        Labelled(MakeCaption("تاریخ", "Date"), AtOwnWidth(&DtpDate)),
        CodeSet(MakeCaption("برانچ", "Branch"), &TxtBranchID, &BtnBranch, &TxtBranchName),
        CodeSet(MakeCaption("اکاؤنٹ", "Account"), &TxtAccountNo, &BtnSearch, &TxtAccountName),
        Labelled(MakeCaption("تفصیل", "Description"), &TxtDescription),
    });
}

QWidget* StockForm::composeEntryRow()
{
    for (Txt* txt : {&TxtQty, &TxtPrice, &TxtAmount})
        txt->setFixedWidth(NumberWidth);
    return EntryStrip(Stacked(MakeCaption("مال", "Product"),
                              CodeSet(nullptr, &TxtProductID, &BtnProduct, &TxtProductName)),
                      {Stacked(MakeCaption("تعداد", "Quantity"), &TxtQty),
                       Stacked(&Label8, &TxtPrice), Stacked(&Label15, &TxtAmount)});
}

} // namespace TradeForms
