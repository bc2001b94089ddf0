#include "stock/FrmGatePass.h"

#include "controls/Look.h"
#include "data/Connection.h"
#include "data/Numbers.h"
#include "data/Recordset.h"
#include "frame/Authorisation.h"
#include "host/HostContext.h"
#include "host/UserSecurity.h"
#include "reports/CrpGatePassDetail.h"
#include "search/Catalogue.h"

#include <QBoxLayout>

namespace TradeForms {

namespace {

constexpr int QuantityWidth = 120;

// ---- What this form is

VoucherDeclaration gatePass()
{
    return VoucherDeclaration{
        .WindowCaption = "Gate Pass",
        .Urdu = "گیٹ پاس",
        .ScreenKey = "MniGatePass",
        .NextId = "Select isnull(max(GatePassID),0) from GatePassHeader",
        .IsPosted = "select isposted from GatePassHeader where GatePassID = {id}",
        .Load = "Select  gph.*, BranchName,a.AreaName, st.Name as Driver, r.Name as Receiving "
                " from GatePassHeader gph"
                " left outer join Staff st on gph.DriverCode=st.StaffID"
                " left outer join Staff r on gph.ReceivingCode=r.StaffID"
                " join Areas a on a.AreaCode=gph.AreaCode"
                " join Branches b on b.BranchCode=gph.BranchCode where GatePassID={id}",
        .Race = "Select * from GatePassHeader where GatePassID = {id}",
        .Header = "select * from GatePassHeader where GatePassID={id}",
        .Delete = {"Delete from GatePassBody where GatePassID = {id}",
                   "Delete from GatePassHeader where GatePassID = {id}"},
        .Vouchers = &SchGatePass,
        .ChosenVoucher = "ParaOutGatePassID",
        .IdTaken = QStringLiteral("This Gate Pass ID already exists. A new Gate Psss ID. has been "
                                  "generated. Please try again"),
        .NoRows = {QStringLiteral("Enter atleast one product to save"), MsgIcon::Exclamation,
                   QStringLiteral("Alert")},
        .PrintQuestion = QStringLiteral("Do you want to print this GatePass"),
        .Prints = true,
    };
}

/// Option2 and Option3 stay as the last print has left them.
CopyDeclaration copies()
{
    return {.Shown = {4},
            .Copies = {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}};
}

QVariant usersBranch()
{
    return HostContext::Security().UserBranchCode();
}

} // namespace

FrmGatePass::FrmGatePass()
    : VoucherForm(gatePass()), TxtGatePassID(CodeField(this, "TxtGatePassID", "Gate pass number")),
      TxtDriverCode(CodeField(this, "TxtDriverCode", "Driver code")),
      BtnDriver(ListButton(this, "BtnDriver", "List of drivers")),
      TxtDriverName(UrduField(this, "TxtDriverName", "Driver name")),
      TxtReceivingCode(CodeField(this, "TxtReceivingCode", "Receiver code")),
      BtnReceiving(ListButton(this, "BtnReceiving", "List of receivers")),
      TxtReceivingName(UrduField(this, "TxtReceivingName", "Receiver name")),
      TxtAreaCode(CodeField(this, "TxtAreaCode", "Area code", true)),
      BtnArea(ListButton(this, "BtnArea", "List of areas")),
      TxtAreaName(UrduField(this, "TxtAreaName", "Area name")),
      TxtBranchID(CodeField(this, "TxtBranchID", "Branch code", true)),
      BtnBranch(ListButton(this, "BtnBranch", "List of branches")),
      TxtBranchName(UrduField(this, "TxtBranchName", "Branch name")),
      OptSupply(OptionField(this, "OptSupply", "Supply")),
      OptOrder(OptionField(this, "OptOrder", "Order")),
      OptSale(OptionField(this, "OptSale", "Sale")), Label12(TextLabel(this, "Label12", "سپلائی")),
      Label13(TextLabel(this, "Label13", "آرڈر")), Label8(TextLabel(this, "Label8", "سیل")),
      TxtProductID(CodeField(this, "TxtProductID", "Product code", true)),
      BtnProduct(ListButton(this, "BtnProduct", "List of products")),
      TxtProductName(UrduField(this, "TxtProductName", "Product name")),
      TxtOutNewProducts(NumberField(this, "TxtOutNewProducts", "New pieces out")),
      TxtReturnOldProducts(NumberField(this, "TxtReturnOldProducts", "Old pieces returned")),
      TxtReturnNewProducts(NumberField(this, "TxtReturnNewProducts", "New pieces returned")),
      LblCaption(TextLabel(this, "LblCaption", "سٹاک")), LblStock(TextLabel(this, "LblStock", "")),
      Detail(*this, Rows, detail()), LookupDriver(*this, driver()),
      LookupReceiving(*this, receiving()), LookupArea(*this, area()), LookupBranch(*this, branch()),
      LookupProduct(*this, product())
{
    setObjectName(QStringLiteral("FrmGatePass"));
    TxtGatePassID.SetEnabled(false);
    UseId(TxtGatePassID);
    UseDetail(Detail);
    UseFocus(&TxtDriverCode, &DtpDate);
    declareHeader();
    attachOptions();
    TxtOutNewProducts.OnValidate += [this](bool& cancel) {
        cancel = Detail.IsRowAdd && Val(TxtOutNewProducts.Text()) > Val(LblStock.Text());
    };
    showStock(false);
    compose();
    SetTabOrderOf({&OptSale, &OptOrder, &OptSupply, &DtpDate, &TxtDriverCode, &TxtReceivingCode,
                   &TxtAreaCode, &TxtBranchID, &TxtProductID, &TxtOutNewProducts,
                   &TxtReturnOldProducts, &TxtReturnNewProducts, &Rows, &BtnSave, &BtnOpen,
                   &BtnPrint, &BtnDelete, &BtnClear, &BtnClose});
}

FrmGatePass::~FrmGatePass() = default;

void FrmGatePass::declareHeader()
{
    using Write = HeaderField::Write;
    namespace H = HeaderFields;
    UseHeader(VoucherHeader({
        H::Number("GatePassID", TxtGatePassID, Write::NewOnly),
        H::Value("EntryDate", Write::NewOnly, [] { return QDateTime::currentDateTime(); }),
        H::Value("isPosted", Write::NewOnly, [] { return false; }),
        H::Date("GatePassDate", DtpDate),
        H::OptionalText("DriverCode", TxtDriverCode),
        H::Shown("Driver", TxtDriverName),
        H::OptionalText("ReceivingCode", TxtReceivingCode),
        H::Shown("Receiving", TxtReceivingName),
        H::Text("AreaCode", TxtAreaCode),
        H::Shown("AreaName", TxtAreaName),
        H::Number("BranchCode", TxtBranchID),
        H::Shown("BranchName", TxtBranchName),
        H::Flag("Supply", OptSupply),
        H::Flag("Sale", OptSale),
        H::Flag("Order", OptOrder),
        H::Value("UserNo", Write::Always, [] { return int(HostContext::UserNo); }),
    }));
}

DetailDeclaration FrmGatePass::detail()
{
    using Stored = DetailColumn::Stored;
    return DetailDeclaration{
        .Columns = {{NumberColumn("ReturnNewProducts", "واپس نیا", "Returned new", QuantityWidth),
                     &TxtReturnNewProducts, "ReturnNewProducts", Stored::NumberOrNull,
                     "ReturnNewProducts"},
                    {NumberColumn("ReturnOldProducts", "واپس پرانا", "Returned old", QuantityWidth),
                     &TxtReturnOldProducts, "ReturnOldProducts", Stored::NumberOrNull,
                     "ReturnOldProducts"},
                    {NumberColumn("OutNewProducts", "باہر", "Out", QuantityWidth),
                     &TxtOutNewProducts, "OutNewProducts", Stored::NumberOrNull, "OutNewProducts"},
                    {NameColumn("Name", "نام", "Product", 240), &TxtProductName, "ProductName",
                     Stored::Display},
                    {NumberColumn("ID", "کوڈ", "Code", 150), &TxtProductID, "ProductID",
                     Stored::Key, "ProductID"}},
        .IdColumn = "GatePassID",
        .Body = "Select * from GatePassBody where GatePassID={id}",
        .Display = "select pr.ProductName,gpb.* from GatePassBody gpb"
                   " join Products pr on gpb.ProductID=pr.ProductID where GatePassID={id}",
        .RowFilter = "GatePassID={id} and ProductID='{code}'",
        .NoCode = {QStringLiteral("Enter Product ID."), MsgIcon::Exclamation,
                   QStringLiteral("Alert")},
        .EditFirst = &TxtReturnOldProducts,
        .Ends = {{&TxtReturnNewProducts,
                  {&TxtReturnOldProducts, &TxtOutNewProducts, &TxtProductID, &BtnClose}}},
        .OnClearEntryRow = [this] { showStock(false); },
    };
}

// ---- The code fields

LookupDeclaration FrmGatePass::driver()
{
    return LookupDeclaration{
        .Code = TxtDriverCode,
        .Name = TxtDriverName,
        .Button = BtnDriver,
        .Dialog = SchStaff,
        .ParaIn = "ParaInStr",
        .ParaInValue = [] { return QStringLiteral(" and Fieldworker=1 "); },
        .ParaOut = "ParaOutStaffID",
        .Find =
            [this] {
                return Statement("Select Name From Staff where FieldWorker=1 and StaffID='{code}'")
                    .Bind("code", TxtDriverCode.Text());
            },
        .NameColumn = "Name",
        .NextAfterF1 = [this] { return &TxtReceivingCode; },
        .NextAfterButton = [this] { return &TxtReceivingCode; },
    };
}

LookupDeclaration FrmGatePass::receiving()
{
    return LookupDeclaration{
        .Code = TxtReceivingCode,
        .Name = TxtReceivingName,
        .Button = BtnReceiving,
        .Dialog = SchStaff,
        .ParaIn = "ParaInStr",
        .ParaInValue = [] { return QString(); },
        .ParaOut = "ParaOutStaffID",
        .Find =
            [this] {
                return Statement("Select Name From Staff where StaffID='{code}'")
                    .Bind("code", TxtReceivingCode.Text());
            },
        .NameColumn = "Name",
        .NextAfterF1 = [this] { return &TxtAreaCode; },
        .NextAfterButton = [this] { return &TxtAreaCode; },
    };
}

LookupDeclaration FrmGatePass::area()
{
    return LookupDeclaration{
        .Code = TxtAreaCode,
        .Name = TxtAreaName,
        .Button = BtnArea,
        .Dialog = SchArea,
        .ParaIn = "ParaInBranchCode",
        .ParaInValue = usersBranch,
        .ParaOut = "ParaOutAID",
        .Find =
            [this] {
                return Statement("Select * FROM Areas  where AreaCode='{code}'{BranchFilter}")
                    .Bind("code", TxtAreaCode.Text())
                    .Splice("BranchFilter", Authorisation::BranchFilter());
            },
        .NameColumn = "AreaName",
        .EmptyBringsList = true,
        .OnLeaving = LookupDeclaration::Casing::Proper,
        .NextAfterF1 = [this] { return &TxtBranchID; },
        .NextAfterButton = [this] { return &TxtBranchID; },
    };
}

LookupDeclaration FrmGatePass::branch()
{
    return LookupDeclaration{
        .Code = TxtBranchID,
        .Name = TxtBranchName,
        .Button = BtnBranch,
        .Dialog = SchBranch,
        .ParaIn = "ParaInBranchCode",
        .ParaInValue = usersBranch,
        .ParaOut = "ParaOutBranchCode",
        .Find =
            [this] {
                return Statement(" Select * FROM Branches where BranchCode = {code}{BranchFilter}")
                    .Bind("code", TxtBranchID.Text())
                    .Splice("BranchFilter", Authorisation::BranchFilter());
            },
        .NameColumn = "BranchName",
        .MissEmptiesCode = true,
        .EmptyBringsList = true,
        .ChangeMarksEdited = false,
        .NextAfterF1 = [this] { return &TxtProductID; },
        .NextAfterButton = [this] { return &TxtProductID; },
    };
}

LookupDeclaration FrmGatePass::product()
{
    return LookupDeclaration{
        .Code = TxtProductID,
        .Name = TxtProductName,
        .Button = BtnProduct,
        .Dialog = SchProduct,
        .ParaOut = "ParaOutPID",
        .Find =
            [this] {
                return Statement("SELECT * from vuCurrentStock"
                                 " WHERE ProductID='{code}' and branchcode ={BranchCode}")
                    .Bind("code", TxtProductID.Text())
                    .Bind("BranchCode", Val(TxtBranchID.Text()));
            },
        .NameColumn = "ProductName",
        .OnFound =
            [this](const Recordset& row) {
                LblStock.SetText(TextOf(row.Value("Stock")));
                showStock(true);
            },
        .OnMissed = [this] { showStock(false); },
        .MissEmptiesCode = true,
        .ChangeMarksEdited = false,
        .MissMarksEdited = true,
        .NextAfterF1 = [this]() -> Control* {
            return TxtReturnOldProducts.IsEnabled() ? &TxtReturnOldProducts : nullptr;
        },
        .NextAfterButton = [this] { return &TxtOutNewProducts; },
    };
}

void FrmGatePass::showStock(bool show)
{
    LblStock.SetVisible(show);
    LblCaption.SetVisible(show);
}

void FrmGatePass::attachOptions()
{
    const QColor black(0, 0, 0);
    const QColor red(255, 0, 0);
    const auto pair = [black, red](OptionButton& button, Label& caption) {
        caption.OnClick += [&button] { button.SetValue(true); };
        button.OnGotFocus += [&caption, red] { caption.SetForeColor(red); };
        button.OnLostFocus += [&caption, black] { caption.SetForeColor(black); };
    };
    pair(OptSupply, Label12);
    pair(OptOrder, Label13);
    pair(OptSale, Label8);
}

// ---- Steps

void FrmGatePass::ClearVoucher()
{
    VoucherForm::ClearVoucher();
    OptSale.SetValue(true);
}

void FrmGatePass::SaveVoucher()
{
    if (!PassesPostedRule())
        return;
    if (!PassesDateWindow())
        return;
    if (!IsFilled(TxtBranchID, QStringLiteral("Enter Branch Code.")))
        return;
    if (!IsFilled(TxtAreaCode, QStringLiteral("Enter Area Code.")))
        return;
    if (!PassesRaceRule())
        return;
    if (!HasRows())
        return;
    BeginTrans();
    SaveHeader();
    SaveBody();
    CommitTrans();
    AskToPrint();
    Rows.SetRedraw(true);
    SetFormState(State::New);
}

void FrmGatePass::PrintVoucher()
{
    PrintReport.Feed(std::make_shared<CrpGatePassDetail>(),
                     CrpGatePassDetail::Source(TxtGatePassID.Text()));
    FormReport::PrintCopies(copies(), this);
}

void FrmGatePass::ConfirmClose(bool& cancel)
{
    VoucherForm::ConfirmClose(cancel);
    if (!cancel)
        PrintReport.Close();
}

bool FrmGatePass::TypingCounts(const Control& control) const
{
    return &control == &TxtOutNewProducts || &control == &TxtReturnOldProducts ||
           &control == &TxtReturnNewProducts;
}

// ---- Layout

QWidget* FrmGatePass::composeHeader()
{
    auto* options = new QWidget;
    auto* optionRow = new QHBoxLayout(options);
    optionRow->setContentsMargins(0, 0, 0, 0);
    optionRow->setSpacing(Look::Space());
    optionRow->addWidget(&DtpDate);
    for (const auto& [button, its] : {std::pair<OptionButton*, Label*>{&OptSale, &Label8},
                                      {&OptOrder, &Label13},
                                      {&OptSupply, &Label12}}) {
        button->setParent(options);
        optionRow->addSpacing(Look::Space());
        optionRow->addWidget(button);
        optionRow->addWidget(its);
    }
    optionRow->addStretch(1);

    return HeaderStrip({
        Labelled(MakeCaption("نمبر", "Gate pass no"), AtOwnWidth(&TxtGatePassID)),
        Labelled(MakeCaption("تاریخ", "Date"), options),
        CodeSet(MakeCaption("ڈرائیور", "Driver"), &TxtDriverCode, &BtnDriver, &TxtDriverName),
        CodeSet(MakeCaption("وصول کنندہ", "Receiver"), &TxtReceivingCode, &BtnReceiving,
                &TxtReceivingName),
        CodeSet(MakeCaption("علاقہ", "Area"), &TxtAreaCode, &BtnArea, &TxtAreaName),
        CodeSet(MakeCaption("برانچ", "Branch"), &TxtBranchID, &BtnBranch, &TxtBranchName),
    });
}

QWidget* FrmGatePass::composeEntryRow()
{
    auto* stock = new QWidget;
    auto* stockRow = new QHBoxLayout(stock);
    stockRow->setContentsMargins(0, 0, 0, 0);
    stockRow->setSpacing(Look::Space());
    LblCaption.setFont(Look::CaptionUrdu());
    LblCaption.SetForeColor(Look::Accent());
    LblStock.setFont(Look::TitleLatin());
    LblStock.SetForeColor(Look::Accent());
    stockRow->addWidget(&LblCaption);
    stockRow->addWidget(&LblStock);
    stockRow->addStretch(1);

    auto* product = new QWidget;
    auto* productColumn = new QVBoxLayout(product);
    productColumn->setContentsMargins(0, 0, 0, 0);
    productColumn->setSpacing(Look::Space() / 2);
    productColumn->addWidget(stock, 1);
    productColumn->addWidget(CodeSet(nullptr, &TxtProductID, &BtnProduct, &TxtProductName));

    for (Txt* txt : {&TxtOutNewProducts, &TxtReturnOldProducts, &TxtReturnNewProducts})
        txt->setFixedWidth(QuantityWidth);
    const auto field = [](const char* urdu, const char* english, Txt& txt) {
        return Stacked(MakeCaption(urdu, english), &txt);
    };
    return EntryStrip(product, {field("باہر", "Out", TxtOutNewProducts),
                                field("واپس پرانا", "Returned old", TxtReturnOldProducts),
                                field("واپس نیا", "Returned new", TxtReturnNewProducts)});
}

void FrmGatePass::compose()
{
    Compose(composeHeader(), composeEntryRow());
    resize(1100, 640);
}

} // namespace TradeForms
