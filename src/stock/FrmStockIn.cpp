#include "stock/FrmStockIn.h"

#include "search/Catalogue.h"

namespace TradeForms {

FrmStockIn::FrmStockIn()
    : StockForm({
          .Voucher =
              {
                  .WindowCaption = "Stock In",
                  .Urdu = "سٹاک آمد",
                  .ScreenKey = "MniStockIn",
                  .NextId = "Select isnull(max(StockID),0)+1 from StockInHeader",
                  .NextIdAddsOne = false,
                  .Load = "Select  sih.*, Branchname, AccountName from StockInHeader sih"
                          " join Branches b on  b.BranchCode = sih.BranchCode "
                          " left outer join Accounts a on  a.AccountNo = sih.AccountNo"
                          " where StockID={id}",
                  .Race = "Select * from StockInHeader where StockID = {id}",
                  .Header = "select * from StockInHeader where StockID={id}",
                  .Delete = {"Delete from StockInBody where StockID = {id}",
                             "Delete from StockInHeader where StockID = {id}"},
                  .Vouchers = &SchStockIn,
                  .ChosenVoucher = "ParaOutStockID",
                  .IdTaken =
                      QStringLiteral("This Stock ID already exists. A new Stock ID. has been "
                                     "generated. Please try again"),
              },
          .Body = "Select * from StockInBody where StockID={id}",
          .Display = "select pr.ProductName,sib.* from StockInBody sib"
                     " join Products pr on sib.ProductID=pr.ProductID where StockID={id}",
      })
{
    setObjectName(QStringLiteral("FrmStockIn"));
}

} // namespace TradeForms
