#include "stock/FrmStockInDetail.h"

#include "data/Connection.h"
#include "data/Recordset.h"
#include "search/Catalogue.h"

#include <QBoxLayout>

namespace TradeForms {

namespace {

constexpr int UnitWidth = 210;

VoucherDeclaration stockInDetail()
{
    return VoucherDeclaration{
        .WindowCaption = "Stock In Detail",
        .Urdu = "سٹاک آمد تفصیل",
        .ScreenKey = "MniStockInDetail",
        .NextId = "Select isnull(max(StockID),0)+1 from StockInDetailHeader",
        .NextIdAddsOne = false,
        .Load = "Select h.*, r.name as ReceivingName from StockInDetailHeader h"
                " left outer join Staff r on h.ReceivingCode = r.StaffID where StockID = {id}",
        .Race = "Select * from StockInDetailHeader where StockID = {id}",
        .Header = "select * from StockInDetailHeader where StockID={id}",
        .Delete = {"Delete from StockInDetailBody where StockID = {id}",
                   "Delete from StockInDetailHeader where StockID = {id}"},
        .Vouchers = &SchStockInDetail,
        .ChosenVoucher = "ParaOutStockID",
        .IdTaken = QStringLiteral("This Stock ID already exists. A new Stock ID. has been "
                                  "generated. Please try again"),
    };
}

} // namespace

FrmStockInDetail::FrmStockInDetail()
    : VoucherForm(stockInDetail()), TxtID(CodeField(this, "TxtID", "Document number")),
      TxtReceivingCode(CodeField(this, "TxtReceivingCode", "Receiver code", true)),
      BtnReceiving(ListButton(this, "BtnReceiving", "List of receivers")),
      TxtReceivingName(UrduField(this, "TxtReceivingName", "Receiver name")),
      TxtDescription(UrduField(this, "TxtDescription", "Description")),
      TxtProductID(CodeField(this, "TxtProductID", "Product code")),
      BtnProduct(ListButton(this, "BtnProduct", "List of products")),
      TxtProductName(UrduField(this, "TxtProductName", "Product name")),
      TxtEngineNo(CodeField(this, "TxtEngineNo", "Engine number")),
      TxtChasisNo(CodeField(this, "TxtChasisNo", "Chassis number")), Detail(*this, Rows, detail()),
      LookupReceiving(*this, receiving()), LookupProduct(*this, product())
{
    setObjectName(QStringLiteral("FrmStockInDetail"));
    TxtID.SetEnabled(false);
    UseId(TxtID);
    UseDetail(Detail);
    UseFocus(&TxtReceivingCode, &DtpDate);
    declareHeader();
    Compose(composeHeader(), composeEntryRow());
    SetTabOrderOf({&DtpDate, &TxtReceivingCode, &TxtDescription, &TxtProductID, &TxtEngineNo,
                   &TxtChasisNo, &Rows, &BtnSave, &BtnOpen, &BtnDelete, &BtnClear, &BtnClose});
    resize(1000, 620);
}

FrmStockInDetail::~FrmStockInDetail() = default;

// ---- What this form is

void FrmStockInDetail::declareHeader()
{
    using Write = HeaderField::Write;
    namespace H = HeaderFields;
    UseHeader(VoucherHeader({
        H::Number("StockID", TxtID, Write::NewOnly),
        H::Date("Date", DtpDate),
        H::TextOrNull("ReceivingCode", TxtReceivingCode),
        H::Shown("ReceivingName", TxtReceivingName),
        H::TextOrNull("Description", TxtDescription),
    }));
}

DetailDeclaration FrmStockInDetail::detail()
{
    using Stored = DetailColumn::Stored;
    return DetailDeclaration{
        .Columns = {{CodeColumn("ChasisNo", "چیسس نمبر", "Chassis no", UnitWidth), &TxtChasisNo,
                     "ChasisNo", Stored::Text, "ChasisNo", true},
                    {CodeColumn("EngineNo", "انجن نمبر", "Engine no", UnitWidth), &TxtEngineNo,
                     "EngineNo", Stored::Text, "EngineNo", true},
                    {NameColumn("Name", "نام", "Product", 200), &TxtProductName, "ProductName",
                     Stored::Display},
                    {NumberColumn("ID", "کوڈ", "Code", 120), &TxtProductID, "ProductID",
                     Stored::Key, "ProductID"}},
        .IdColumn = "StockID",
        .Body = "Select * from StockInDetailBody where StockID={id}",
        .Display = "select pr.ProductName,sib.* from StockInDetailBody sib"
                   " join Products pr on sib.ProductID = pr.ProductID where StockID={id}",
        // Removing goes by the product alone: of several units of one product the first record
        // goes, which need not be the row that leaves the grid.
        .RowFilter = "StockID={id} and ProductID='{code}'",
        .EntryFilter = "ProductID = '{code}' and EngineNo = '{EngineNo}'"
                       " and ChasisNo = '{ChasisNo}'",
        .MayAdd = [this] { return isNewUnit(); },
        .EditFirst = &TxtEngineNo,
        .Ends = {{&TxtChasisNo, {&TxtProductID, &BtnClose, &TxtEngineNo}}},
    };
}

// ---- The code fields

LookupDeclaration FrmStockInDetail::receiving()
{
    const auto product = [this] { return &TxtProductID; };
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
        .NextAfterF1 = product,
        .NextAfterButton = product,
    };
}

LookupDeclaration FrmStockInDetail::product()
{
    const auto engine = [this] { return &TxtEngineNo; };
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
        .MissEmptiesCode = true,
        .ChangeMarksEdited = false,
        .NextAfterF1 = engine,
        .NextAfterButton = engine,
    };
}

/// A unit may come in once, whatever voucher it stood on: product, engine and chassis number
/// together tell it.
bool FrmStockInDetail::isNewUnit()
{
    const Recordset known =
        Database().Execute(Statement("Select * from StockInDetailBody where ProductID = '{code}'"
                                     " and EngineNo = '{EngineNo}' and ChasisNo = '{ChasisNo}'")
                               .Bind("code", TxtProductID.Text())
                               .Bind("EngineNo", TxtEngineNo.Text())
                               .Bind("ChasisNo", TxtChasisNo.Text()));
    if (known.RecordCount() == 0)
        return true;
    Inform(this, QStringLiteral("Engine No or Chasis No Already Entered"), MsgIcon::Exclamation,
           QStringLiteral("Alert"));
    SetFocus(TxtEngineNo);
    TxtEngineNo.selectAll();
    return false;
}

// ---- Steps

void FrmStockInDetail::SaveVoucher()
{
    if (!IsNew && !PassesModifyRule())
        return;
    if (!IsFilled(TxtReceivingCode, QStringLiteral("Enter Receiving Code.")))
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

QWidget* FrmStockInDetail::composeHeader()
{
    return HeaderStrip({
        CodeSet(MakeCaption("نمبر", "Document no"), &TxtID, nullptr, nullptr),
        Labelled(MakeCaption("تاریخ", "Date"), AtOwnWidth(&DtpDate)),
        CodeSet(MakeCaption("وصول کنندہ", "Receiver"), &TxtReceivingCode, &BtnReceiving,
                &TxtReceivingName),
        Labelled(MakeCaption("تفصیل", "Description"), &TxtDescription),
    });
}

QWidget* FrmStockInDetail::composeEntryRow()
{
    for (Txt* txt : {&TxtEngineNo, &TxtChasisNo})
        txt->setFixedWidth(UnitWidth);
    return EntryStrip(Stacked(MakeCaption("مال", "Product"),
                              CodeSet(nullptr, &TxtProductID, &BtnProduct, &TxtProductName)),
                      {Stacked(MakeCaption("انجن نمبر", "Engine no"), &TxtEngineNo),
                       Stacked(MakeCaption("چیسس نمبر", "Chassis no"), &TxtChasisNo)});
}

} // namespace TradeForms
