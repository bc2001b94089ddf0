#include "stock/FrmStockOut.h"

#include "search/Catalogue.h"

namespace TradeForms {

FrmStockOut::FrmStockOut()
    : StockForm({
          .Voucher =
              {
                  .WindowCaption = "Stock Out",
                  .Urdu = "سٹاک روانگی",
                  .ScreenKey = "MniStockOut",
                  .NextId = "Select isnull(max(StockID),0)+1 from StockOutHeader",
                  .NextIdAddsOne = false,
                  .Load = "Select h.*, Branchname, AccountName from StockOutHeader h"
                          " join Branches b on  b.BranchCode = h.BranchCode "
                          " left outer join Accounts a on  a.AccountNo = h.AccountNo"
                          " where StockID = {id}",
                  .Race = "Select * from StockOutHeader where StockID = {id}",
                  .Header = "select * from StockOutHeader where StockID={id}",
                  .Delete = {"Delete from StockOutBody where StockID = {id}",
                             "Delete from StockOutHeader where StockID = {id}"},
                  .Vouchers = &SchStockOut,
                  .ChosenVoucher = "ParaOutStockID",
                  .IdTaken =
                      QStringLiteral("This Stock ID already exists. A new Stock ID. has been "
                                     "generated. Please try again"),
              },
          .Body = "Select * from StockOutBody where StockID={id}",
          .Display = "select pr.ProductName,sib.* from StockOutBody sib"
                     " join Products pr on sib.ProductID=pr.ProductID where StockID={id}",
      })
{
    setObjectName(QStringLiteral("FrmStockOut"));
}

} // namespace TradeForms
