#include "search/CatalogueParts.h"

namespace TradeForms {

namespace {

SearchField numberField()
{
    return {"TxtFilter", Narrow::Jump, "StockID = {TxtFilter}", nullptr, Captions::Number};
}

SearchField productField()
{
    return {"TxtProductName", Narrow::OnFilter,  " and ProductName like '%{TxtProductName}%'",
            "ProductClause",  Captions::Product, true};
}

/// Stock in and stock out documents with quantities.
SearchDeclaration stockDocuments(const char* name, const Caption& title, const char* kind)
{
    return {
        .Name = name,
        .Title = title,
        .Statement =
            of(kind, "Select h.StockID, Date, sum(qty) as Qty, BranchName, AccountName"
                     " from {Kind}Header h inner join {Kind}Body b on h.StockID = b.StockID"
                     " inner join branches br on br.branchcode = h.branchcode"
                     " left outer join Accounts a on a.AccountNo = h.AccountNo"
                     " inner join Products p on p.ProductID = b.ProductID"
                     " WHERE Date Between '{DtpFrom}' AND '{DtpTo}'{BranchClause}{ProductClause}"
                     " Group By h.StockID, Date, BranchName, AccountName"),
        .Results = {{"ParaOutStockID", "StockID", Result::Int16}},
        .Fields = {numberField(),
                   {"TxtBranchCode",
                    Narrow::QueryAgain,
                    " and h.BranchCode={TxtBranchCode}",
                    "BranchClause",
                    {"برانچ", "Branch code"}},
                   productField()},
        .Dates = {.From = Dates::daysAgo<30>, .To = Dates::today},
        .BtnFilter = true,
        .Columns = {{"ID", "StockID", Captions::Number, 90, Column::Number},
                    {"Date", "Date", Captions::Date, 110},
                    {"AccountName", "AccountName", {"اکاؤنٹ", "Account"}, 200, Column::Urdu, true},
                    {"BranchName", "BranchName", Captions::Branch, 150, Column::Urdu},
                    {"TotalItems", "Qty", Captions::Quantity, 90, Column::Number}},
        .GridDetail =
            {of(kind, " Select ProductName, Qty from {Kind}Header h"
                      " inner join {Kind}Body b on h.StockID = b.StockID"
                      " inner join Products p on p.ProductID = b.ProductID Where h.StockID = {ID}"),
             {{"ProductName", "ProductName", Captions::Product, 300, Column::Urdu, true},
              {"Qty", "Qty", Captions::Quantity, 90, Column::Number}}},
    };
}

} // namespace

const SearchDeclaration& SchStockIn()
{
    static const SearchDeclaration declaration =
        stockDocuments("SchStockIn", {"آمد مال تلاش کریں", "Find stock in"}, "StockIn");
    return declaration;
}

const SearchDeclaration& SchStockOut()
{
    static const SearchDeclaration declaration =
        stockDocuments("SchStockOut", {"روانگی مال تلاش کریں", "Find stock out"}, "StockOut");
    return declaration;
}

const SearchDeclaration& SchStockInDetail()
{
    static const SearchDeclaration declaration{
        .Name = "SchStockInDetail",
        .Title = {"نمبر وار آمد مال تلاش کریں", "Find numbered stock in"},
        .Statement =
            "Select h.StockID, Date, count(chasisNo) as Qty, r.Name as ReceivingName"
            " from StockInDetailHeader h inner join StockInDetailBody b on h.StockID = b.StockID"
            " left outer join Staff r on h.ReceivingCode = r.StaffID"
            " inner join Products p on p.ProductID = b.ProductID"
            " WHERE Date Between '{DtpFrom}' AND '{DtpTo}'"
            "{ProductClause}{EngineClause}{ChasisClause} Group By h.StockID, Date, r.Name",
        .Results = {{"ParaOutStockID", "StockID", Result::Int16}},
        .Fields = {numberField(),
                   productField(),
                   {"TxtEngineNo", Narrow::QueryAgain, " and EngineNo = '{TxtEngineNo}'",
                    "EngineClause", Captions::EngineNo},
                   {"TxtChasisNo", Narrow::QueryAgain, " and ChasisNo = '{TxtChasisNo}'",
                    "ChasisClause", Captions::ChassisNo}},
        .Dates = {.From = Dates::daysAgo<30>, .To = Dates::today},
        .BtnFilter = true,
        .Columns = {{"ID", "StockID", Captions::Number, 90, Column::Number},
                    {"Date", "Date", Captions::Date, 110},
                    {"ReceivingName", "ReceivingName", Captions::Receiver, 220, Column::Urdu, true},
                    {"TotalItems", "Qty", Captions::Quantity, 90, Column::Number}},
        .GridDetail = {" Select ProductName, ChasisNo, EngineNo from StockInDetailHeader h"
                       " inner join StockInDetailBody b on h.StockID = b.StockID"
                       " inner join Products p on p.ProductID = b.ProductID Where h.StockID = {ID}",
                       {{"ProductName", "ProductName", Captions::Product, 260, Column::Urdu, true},
                        {"ChasisNo", "ChasisNo", Captions::ChassisNo, 150},
                        {"EngineNo", "EngineNo", Captions::EngineNo, 150}}},
    };
    return declaration;
}

} // namespace TradeForms
