#include "stock/StockForms.h"

#include "search/Catalogue.h"

namespace TradeForms {

FrmStockIn::FrmStockIn()
    : StockForm({
          .Voucher = {.Title = {"سٹاک آمد", "Stock In"},
                      .ScreenKey = "MniStockIn",
                      .NextId = "Select isnull(max(StockID),0)+1 from StockInHeader",
                      .Load = "Select  sih.*, Branchname, AccountName from StockInHeader sih"
                              " join Branches b on  b.BranchCode = sih.BranchCode "
                              " left outer join Accounts a on  a.AccountNo = sih.AccountNo"
                              " where StockID={id}",
                      .Race = "Select * from StockInHeader where StockID = {id}",
                      .Header = "select * from StockInHeader where StockID={id}",
                      .Delete = {"Delete from StockInBody where StockID = {id}",
                                 "Delete from StockInHeader where StockID = {id}"},
                      .Vouchers = &SchStockIn()},
          .Body = "Select * from StockInBody where StockID={id}",
          .Display = "select pr.ProductName,sib.* from StockInBody sib"
                     " join Products pr on sib.ProductID=pr.ProductID where StockID={id}",
      })
{
    setObjectName(QStringLiteral("FrmStockIn"));
}

FrmStockOut::FrmStockOut()
    : StockForm({
          .Voucher = {.Title = {"سٹاک روانگی", "Stock Out"},
                      .ScreenKey = "MniStockOut",
                      .NextId = "Select isnull(max(StockID),0)+1 from StockOutHeader",
                      .Load = "Select h.*, Branchname, AccountName from StockOutHeader h"
                              " join Branches b on  b.BranchCode = h.BranchCode "
                              " left outer join Accounts a on  a.AccountNo = h.AccountNo"
                              " where StockID = {id}",
                      .Race = "Select * from StockOutHeader where StockID = {id}",
                      .Header = "select * from StockOutHeader where StockID={id}",
                      .Delete = {"Delete from StockOutBody where StockID = {id}",
                                 "Delete from StockOutHeader where StockID = {id}"},
                      .Vouchers = &SchStockOut()},
          .Body = "Select * from StockOutBody where StockID={id}",
          .Display = "select pr.ProductName,sib.* from StockOutBody sib"
                     " join Products pr on sib.ProductID=pr.ProductID where StockID={id}",
      })
{
    setObjectName(QStringLiteral("FrmStockOut"));
}

} // namespace TradeForms
