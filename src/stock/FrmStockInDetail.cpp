#include "stock/FrmStockInDetail.h"

#include "data/Connection.h"
#include "data/Recordset.h"
#include "frame/Lookups.h"
#include "search/Catalogue.h"

namespace TradeForms {

namespace {

constexpr int UnitWidth = 210;

VoucherDeclaration stockInDetail()
{
    return VoucherDeclaration{
        .Title = {"سٹاک آمد تفصیل", "Stock In Detail"},
        .ScreenKey = "MniStockInDetail",
        .NextId = "Select isnull(max(StockID),0)+1 from StockInDetailHeader",
        .Load = "Select h.*, r.name as ReceivingName from StockInDetailHeader h"
                " left outer join Staff r on h.ReceivingCode = r.StaffID where StockID = {id}",
        .Race = "Select * from StockInDetailHeader where StockID = {id}",
        .Header = "select * from StockInDetailHeader where StockID={id}",
        .Delete = {"Delete from StockInDetailBody where StockID = {id}",
                   "Delete from StockInDetailHeader where StockID = {id}"},
        .Vouchers = &SchStockInDetail(),
    };
}

} // namespace

FrmStockInDetail::FrmStockInDetail()
    : StockVoucher(stockInDetail()), Receiving(Lookups::ReceivingField(this, true)),
      TxtEngineNo(TextField(this, "TxtEngineNo", "Engine number")),
      TxtChasisNo(TextField(this, "TxtChasisNo", "Chassis number")), Detail(*this, Rows, detail()),
      LookupReceiving(*this, Lookups::Receiving(Receiving).To(Product.Code)),
      LookupProduct(*this, LookupOfProduct(TxtEngineNo))
{
    setObjectName(QStringLiteral("FrmStockInDetail"));
    TxtID.SetEnabled(false);
    UseDetail(Detail);
    UseMandatory(Receiving.Code, QStringLiteral("Enter Receiving Code."));
    UseFocus(&Receiving.Code, &DtpDate);
    namespace H = HeaderFields;
    UseStockHeader({H::TextOrNull("ReceivingCode", Receiving.Code),
                    H::Shown("ReceivingName", Receiving.Name)});
    Compose({composeHeader(), Detail.EntryRow(Stacked({"مال", "Product"}, CodeSet(Product))),
             GridArea(Rows)});
}

FrmStockInDetail::~FrmStockInDetail() = default;

DetailDeclaration FrmStockInDetail::detail()
{
    using Storage = DetailColumn::Storage;
    return {
        .Columns = {{CodeColumn("ChasisNo", {"چیسس نمبر", "Chassis no"}, UnitWidth), &TxtChasisNo,
                     "ChasisNo", Storage::Text, true},
                    {CodeColumn("EngineNo", {"انجن نمبر", "Engine no"}, UnitWidth), &TxtEngineNo,
                     "EngineNo", Storage::Text, true},
                    {NameColumn("Name", {"نام", "Product"}, 200), &Product.Name, "ProductName",
                     Storage::Display},
                    {NumberColumn("ID", {"کوڈ", "Code"}, 120), &Product.Code, "ProductID",
                     Storage::Key}},
        .IdColumn = "StockID",
        .Body = "Select * from StockInDetailBody where StockID={id}",
        .Display = "select pr.ProductName,sib.* from StockInDetailBody sib"
                   " join Products pr on sib.ProductID = pr.ProductID where StockID={id}",
        // Rows are removed by the product alone: if there are several units of a product, the first
        // record is deleted, which may not be that of the row removed from the grid.
        .RowFilter = "StockID={id} and ProductID='{code}'",
        .EntryFilter = "ProductID = '{code}' and EngineNo = '{EngineNo}'"
                       " and ChasisNo = '{ChasisNo}'",
        .Required = {{.Field = &Product.Code, .TakesFocus = false}},
        .MayAdd = [this] { return isNewUnit(); },
        .EditFirst = &TxtEngineNo,
        .Ends = {{&TxtChasisNo, {&Product.Code, &BtnClose, &TxtEngineNo}}},
    };
}

/// A unit, identified by product, engine and chassis numbers, can be received only once, on
/// whatever voucher.
bool FrmStockInDetail::isNewUnit()
{
    const Recordset known =
        Database().Execute(Statement("Select * from StockInDetailBody where ProductID = '{code}'"
                                     " and EngineNo = '{EngineNo}' and ChasisNo = '{ChasisNo}'")
                               .Bind("code", Product.Code.Text())
                               .Bind("EngineNo", TxtEngineNo.Text())
                               .Bind("ChasisNo", TxtChasisNo.Text()));
    if (known.RecordCount() == 0)
        return true;
    Refuse(TxtEngineNo, {QStringLiteral("Engine No or Chasis No Already Entered"),
                         MsgIcon::Exclamation, QStringLiteral("Alert")});
    TxtEngineNo.selectAll();
    return false;
}

QWidget* FrmStockInDetail::composeHeader()
{
    return HeaderStrip({
        CodeSet({"نمبر", "Document no"}, TxtID),
        Labelled({"تاریخ", "Date"}, AtOwnWidth(&DtpDate)),
        CodeSet({"وصول کنندہ", "Receiver"}, Receiving),
        Labelled({"تفصیل", "Description"}, &TxtDescription),
    });
}

} // namespace TradeForms
