#include "stock/FrmStockInDetail.h"

#include "data/Connection.h"
#include "data/Recordset.h"
#include "search/Catalogue.h"

#include <QBoxLayout>

namespace TradeForms {

namespace {

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

Caption* caption(const char* urdu, const char* english)
{
    return new Caption(utf8(urdu), utf8(english));
}

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
      TxtChasisNo(CodeField(this, "TxtChasisNo", "Chassis number")),
      Detail(*this, Rows, detail()), LookupReceiving(*this, receiving()),
      LookupProduct(*this, product())
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
    const auto number = [](const char* column, const char* urdu, const char* english) {
        return GridColumn{.Name = utf8(column), .Urdu = utf8(urdu), .English = utf8(english),
                          .Width = 210};
    };
    return DetailDeclaration{
        .Columns = {{number("ChasisNo", "چیسس نمبر", "Chassis no"), &TxtChasisNo, "ChasisNo",
                     Stored::Text, "ChasisNo", true},
                    {number("EngineNo", "انجن نمبر", "Engine no"), &TxtEngineNo, "EngineNo",
                     Stored::Text, "EngineNo", true},
                    {GridColumn{.Name = QStringLiteral("Name"), .Urdu = utf8("نام"),
                                .English = QStringLiteral("Product"), .Style = StyleSet::ColUrdu,
                                .Width = 200, .Stretch = true},
                     &TxtProductName, "ProductName", Stored::Display},
                    {GridColumn{.Name = QStringLiteral("ID"), .Urdu = utf8("کوڈ"),
                                .English = QStringLiteral("Code"), .Width = 120, .Number = true},
                     &TxtProductID, "ProductID", Stored::Key, "ProductID"}},
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
        .Duplicate = {QStringLiteral("The Record Already Exist"), MsgIcon::Information,
                      QStringLiteral("Alert")},
        .EditFirst = &TxtEngineNo,
        .Ends = {{&TxtChasisNo, {&TxtProductID, &BtnClose, &TxtEngineNo}}},
    };
}

// ---- The code fields

LookupDescription FrmStockInDetail::receiving()
{
    const auto product = [this] { return &TxtProductID; };
    return LookupDescription{
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

LookupDescription FrmStockInDetail::product()
{
    const auto engine = [this] { return &TxtEngineNo; };
    return LookupDescription{
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
    if (known.RecordCount() == 0) {
        return true;
    }
    Inform(this, QStringLiteral("Engine No or Chasis No Already Entered"), MsgIcon::Exclamation,
           QStringLiteral("Alert"));
    SetFocus(TxtEngineNo);
    TxtEngineNo.selectAll();
    return false;
}

// ---- Steps

void FrmStockInDetail::SaveVoucher()
{
    if (!IsNew && !PassesModifyRule()) {
        return;
    }
    if (!IsFilled(TxtReceivingCode, QStringLiteral("Enter Receiving Code."))) {
        return;
    }
    if (!PassesRaceRule()) {
        return;
    }
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
        CodeSet(caption("نمبر", "Document no"), &TxtID, nullptr, nullptr),
        Labelled(caption("تاریخ", "Date"), AtOwnWidth(&DtpDate)),
        CodeSet(caption("وصول کنندہ", "Receiver"), &TxtReceivingCode, &BtnReceiving,
                &TxtReceivingName),
        Labelled(caption("تفصیل", "Description"), &TxtDescription),
    });
}

QWidget* FrmStockInDetail::composeEntryRow()
{
    for (Txt* txt : {&TxtEngineNo, &TxtChasisNo}) {
        txt->setFixedWidth(210);
    }
    return EntryStrip(Stacked(caption("مال", "Product"),
                              CodeSet(nullptr, &TxtProductID, &BtnProduct, &TxtProductName)),
                      {Stacked(caption("انجن نمبر", "Engine no"), &TxtEngineNo),
                       Stacked(caption("چیسس نمبر", "Chassis no"), &TxtChasisNo)});
}

} // namespace TradeForms
