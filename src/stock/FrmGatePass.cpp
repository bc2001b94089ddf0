#include "stock/FrmGatePass.h"

#include "controls/Look.h"
#include "data/Numbers.h"
#include "data/Recordset.h"
#include "frame/Lookups.h"
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
        .Title = {"گیٹ پاس", "Gate Pass"},
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
        .Vouchers = &SchGatePass(),
        .ChosenVoucher = "ParaOutGatePassID",
        .IdTaken = QStringLiteral("This Gate Pass ID already exists. A new Gate Psss ID. has been "
                                  "generated. Please try again"),
        .NoRows = {QStringLiteral("Enter atleast one product to save"), MsgIcon::Exclamation,
                   QStringLiteral("Alert")},
        .PrintQuestion = QStringLiteral("Do you want to print this GatePass"),
        .Prints = true,
    };
}

/// Option2 and Option3 are not in Shown: their visibility is left as the last print dialog set it.
CopyDeclaration copies()
{
    return {.Shown = {4},
            .Copies = {QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3")}};
}

} // namespace

FrmGatePass::FrmGatePass()
    : VoucherForm(gatePass()), TxtGatePassID(TextField(this, "TxtGatePassID", "Gate pass number")),
      DtpDate(DateField(this, "DtpDate", "Date")),
      Driver(MakeCodeField(this, {"TxtDriverCode", "Driver code"}, {"BtnDriver", "List of drivers"},
                           {"TxtDriverName", "Driver name"})),
      Receiving(Lookups::ReceivingField(this)),
      Area(MakeCodeField(this, {"TxtAreaCode", "Area code"}, {"BtnArea", "List of areas"},
                         {"TxtAreaName", "Area name"}, true)),
      Branch(MakeCodeField(this, {"TxtBranchID", "Branch code"}, {"BtnBranch", "List of branches"},
                           {"TxtBranchName", "Branch name"}, true)),
      OptSupply(OptionField(this, "OptSupply", "Supply")),
      OptOrder(OptionField(this, "OptOrder", "Order")),
      OptSale(OptionField(this, "OptSale", "Sale")), Label12(TextLabel(this, "Label12", "سپلائی")),
      Label13(TextLabel(this, "Label13", "آرڈر")), Label8(TextLabel(this, "Label8", "سیل")),
      Product(MakeCodeField(this, {"TxtProductID", "Product code"},
                            {"BtnProduct", "List of products"}, {"TxtProductName", "Product name"},
                            true)),
      TxtOutNewProducts(NumberField(this, "TxtOutNewProducts", "New pieces out")),
      TxtReturnOldProducts(NumberField(this, "TxtReturnOldProducts", "Old pieces returned")),
      TxtReturnNewProducts(NumberField(this, "TxtReturnNewProducts", "New pieces returned")),
      LblCaption(TextLabel(this, "LblCaption", "سٹاک")), LblStock(TextLabel(this, "LblStock", "")),
      Rows(VoucherGrid(this)), Detail(*this, Rows, detail()),
      LookupDriver(*this, Lookups::Staff(Driver, " and Fieldworker=1 ",
                                         "Select Name From Staff where FieldWorker=1"
                                         " and StaffID='{code}'")
                              .To(Receiving.Code)),
      LookupReceiving(*this, Lookups::Receiving(Receiving).To(Area.Code)),
      LookupArea(*this, Lookups::Area(Area, "Select * FROM Areas "
                                            " where AreaCode='{code}'{BranchFilter}")
                            .To(Branch.Code)),
      LookupBranch(*this, Lookups::Branch(Branch, " Select * FROM Branches"
                                                  " where BranchCode = {code}{BranchFilter}")
                              .To(Product.Code)),
      LookupProduct(*this, product())
{
    setObjectName(QStringLiteral("FrmGatePass"));
    TxtGatePassID.SetEnabled(false);
    UseId(TxtGatePassID);
    UseDate(DtpDate);
    UseDetail(Detail);
    UseFocus(&Driver.Code, &DtpDate);
    declareHeader();
    attachOptions();
    TxtOutNewProducts.OnValidate += [this](bool& cancel) {
        cancel = Detail.IsRowAdd && Val(TxtOutNewProducts.Text()) > Val(LblStock.Text());
    };
    showStock(false);
    Compose({composeHeader(), Detail.EntryRow(composeProduct()), GridArea(Rows)});
    TabAfter(DtpDate, OptSupply);
    resize(1100, 640);
}

FrmGatePass::~FrmGatePass() = default;

void FrmGatePass::declareHeader()
{
    namespace H = HeaderFields;
    UseHeader({
        H::Number("GatePassID", TxtGatePassID, H::Write::NewOnly),
        H::EntryDate(),
        H::IsPosted(),
        H::Date("GatePassDate", DtpDate),
        H::OptionalText("DriverCode", Driver.Code),
        H::Shown("Driver", Driver.Name),
        H::OptionalText("ReceivingCode", Receiving.Code),
        H::Shown("Receiving", Receiving.Name),
        H::Text("AreaCode", Area.Code),
        H::Shown("AreaName", Area.Name),
        H::Number("BranchCode", Branch.Code),
        H::Shown("BranchName", Branch.Name),
        H::Flag("Supply", OptSupply),
        H::Flag("Sale", OptSale),
        H::Flag("Order", OptOrder),
        H::UserNo(),
    });
}

DetailDeclaration FrmGatePass::detail()
{
    using Storage = DetailColumn::Storage;
    const auto quantity = [](const char* name, const Caption& caption, Txt& control) {
        return DetailColumn{NumberColumn(name, caption, QuantityWidth), &control, name,
                            Storage::NumberOrNull};
    };
    return {
        .Columns =
            {quantity("ReturnNewProducts", {"واپس نیا", "Returned new"}, TxtReturnNewProducts),
             quantity("ReturnOldProducts", {"واپس پرانا", "Returned old"}, TxtReturnOldProducts),
             quantity("OutNewProducts", {"باہر", "Out"}, TxtOutNewProducts),
             {NameColumn("Name", {"نام", "Product"}, 240), &Product.Name, "ProductName",
              Storage::Display},
             {NumberColumn("ID", {"کوڈ", "Code"}, 150), &Product.Code, "ProductID", Storage::Key}},
        .IdColumn = "GatePassID",
        .Body = "Select * from GatePassBody where GatePassID={id}",
        .Display = "select pr.ProductName,gpb.* from GatePassBody gpb"
                   " join Products pr on gpb.ProductID=pr.ProductID where GatePassID={id}",
        .RowFilter = "GatePassID={id} and ProductID='{code}'",
        .Required = {{&Product.Code,
                      {QStringLiteral("Enter Product ID."), MsgIcon::Exclamation,
                       QStringLiteral("Alert")}}},
        .EditFirst = &TxtReturnOldProducts,
        .Ends = {{&TxtReturnNewProducts,
                  {&TxtReturnOldProducts, &TxtOutNewProducts, &Product.Code, &BtnClose}}},
    };
}

// ---- The product and its stock

LookupDeclaration FrmGatePass::product()
{
    LookupDeclaration product = Lookups::Product(Product, "");
    product.Find = [this] {
        return Statement("SELECT * from vuCurrentStock"
                         " WHERE ProductID='{code}' and branchcode ={BranchCode}")
            .Bind("code", Product.Code.Text())
            .Bind("BranchCode", Val(Branch.Code.Text()));
    };
    product.OnFound = [this](const Recordset& row) {
        LblStock.SetText(TextOf(row.Value("Stock")));
        showStock(true);
    };
    product.OnMissed = [this] { showStock(false); };
    product.MissMarksEdited = true;
    product.NextAfterF1 = [this]() -> Control* {
        return TxtReturnOldProducts.IsEnabled() ? &TxtReturnOldProducts : nullptr;
    };
    product.NextAfterButton = [this] { return &TxtOutNewProducts; };
    return product;
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
    showStock(false);
    OptSale.SetValue(true);
}

void FrmGatePass::ClearEntryRow()
{
    VoucherForm::ClearEntryRow();
    showStock(false);
}

void FrmGatePass::SaveVoucher()
{
    if (!PassesPostedRule())
        return;
    if (!PassesDateWindow())
        return;
    if (!IsFilled(Branch.Code, QStringLiteral("Enter Branch Code.")))
        return;
    if (!IsFilled(Area.Code, QStringLiteral("Enter Area Code.")))
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
    QWidget* dateAndKind = SideBySide({&DtpDate, nullptr, &OptSale, &Label8, nullptr, &OptOrder,
                                       &Label13, nullptr, &OptSupply, &Label12});
    return HeaderStrip({
        Labelled({"نمبر", "Gate pass no"}, AtOwnWidth(&TxtGatePassID)),
        Labelled({"تاریخ", "Date"}, dateAndKind),
        CodeSet({"ڈرائیور", "Driver"}, Driver),
        CodeSet({"وصول کنندہ", "Receiver"}, Receiving),
        CodeSet({"علاقہ", "Area"}, Area),
        CodeSet({"برانچ", "Branch"}, Branch),
    });
}

/// Lays out the product's code with its quantity in stock above it.
QWidget* FrmGatePass::composeProduct()
{
    LblCaption.setFont(Look::CaptionUrdu());
    LblCaption.SetForeColor(Look::Accent());
    LblStock.setFont(Look::TitleLatin());
    LblStock.SetForeColor(Look::Accent());
    auto* part = new QWidget;
    auto* lines = new QVBoxLayout(part);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(Look::Space() / 2);
    lines->addWidget(SideBySide({&LblCaption, &LblStock}), 1);
    lines->addWidget(CodeSet(Product));
    return part;
}

} // namespace TradeForms
