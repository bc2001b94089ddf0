#include "search/CatalogueParts.h"

namespace TradeForms {

const SearchDeclaration& SchArea()
{
    static const SearchDeclaration declaration{
        .Name = "SchArea",
        .Title = {"علاقہ تلاش کریں", "Find area"},
        .Statement = "SELECT * FROM Areas where 1=1 {BranchFilter}",
        .Inputs = {{"ParaInBranchCode", "BranchFilter", Input::Value,
                    " and BranchCode={ParaInBranchCode}", "0"}},
        .Results = {{"ParaOutAID", "AreaCode", Result::Text}},
        .Fields = {{"TxtID", Narrow::Jump, "AreaCode like '{TxtID}%'", nullptr, Captions::Code},
                   {"TxtName", Narrow::Jump, "AreaName like '{TxtName}%'", nullptr, Captions::Name,
                    true}},
        .Columns = {{"ID", "AreaCode", Captions::Code, 120},
                    {"Name", "AreaName", Captions::Name, 260, Column::Urdu, true}},
    };
    return declaration;
}

const SearchDeclaration& SchBranch()
{
    static const SearchDeclaration declaration{
        .Name = "SchBranch",
        .Title = {"برانچ تلاش کریں", "Find branch"},
        .Statement = "SELECT * FROM Branches where 1=1 {BranchFilter}",
        .Inputs = {{"ParaInBranchCode", "BranchFilter", Input::Value,
                    " and BranchCode={ParaInBranchCode}", "0"}},
        .Results = {{"ParaOutBranchCode", "BranchCode", Result::Text}},
        .Fields = {{"TxtID", Narrow::Jump, "BranchCode ={TxtID}", nullptr, Captions::Code},
                   {"TxtName", Narrow::Jump, "BranchName like '{TxtName}%'", nullptr,
                    Captions::Name, true}},
        .Columns = {{"ID", "BranchCode", Captions::Code, 120, Column::Number},
                    {"Name", "BranchName", Captions::Name, 260, Column::Urdu, true}},
    };
    return declaration;
}

const SearchDeclaration& SchProduct()
{
    static const SearchDeclaration declaration{
        .Name = "SchProduct",
        .Title = {"مال تلاش کریں", "Find product"},
        .Statement = "SELECT ProductID, ProductName, Sum(Stock) as Stock FROM  VuCurrentStock"
                     " where 1=1 {NameClause} Group By ProductID, ProductName",
        .Results = {{"ParaOutPID", "ProductID", Result::Text}},
        .Fields = {{"TxtID", Narrow::Jump, "ProductID like '{TxtID}%'", nullptr, Captions::Code},
                   {"TxtName", Narrow::QueryAgain, " AND ProductName Like '%{TxtName}%'",
                    "NameClause", Captions::Name, true}},
        .Columns = {{"ID", "ProductID", Captions::Code, 110, Column::Number},
                    {"Name", "ProductName", Captions::Name, 280, Column::Urdu, true},
                    {"Stock", "Stock", {"سٹاک", "Stock"}, 90, Column::Number}},
    };
    return declaration;
}

const SearchDeclaration& SchStaff()
{
    static const SearchDeclaration declaration{
        .Name = "SchStaff",
        .Title = {"ملازم تلاش کریں", "Find staff"},
        .Statement = "SELECT s.*,branchname as branch FROM Staff s"
                     " inner join branches b on b.branchcode=s.branchcode "
                     " where 1=1{NameClause}{ParaInStr}",
        .Inputs = {{"ParaInStr", "ParaInStr", Input::ReadyClause}},
        .Results = {{"ParaOutStaffID", "StaffID", Result::Text}},
        .Fields = {{"TxtID", Narrow::Jump, "StaffID like '{TxtID}%'", nullptr, Captions::Code},
                   {"TxtName", Narrow::QueryAgain, " and Name like '%{TxtName}%'", "NameClause",
                    Captions::Name, true}},
        .Columns = {{"ID", "StaffID", Captions::Code, 90},
                    {"Name", "Name", Captions::Name, 170, Column::Urdu},
                    {"Address", "Address", Captions::Address, 240, Column::Urdu, true},
                    {"Designation", "Designation", Captions::Post, 190, Column::Urdu},
                    {"Branch", "branch", Captions::Branch, 110, Column::Urdu}},
    };
    return declaration;
}

const SearchDeclaration& SchAccounts()
{
    static const SearchDeclaration declaration{
        .Name = "SchAccounts",
        .Title = {"اکاؤنٹ تلاش کریں", "Find account"},
        .Statement = "SELECT * FROM vuAccounts",
        .Results = {{"ParaOutAccountNo", "AccountNo", Result::Text}},
        .Fields = {{"TxtID", Narrow::Jump, "AccountNo like '{TxtID}%'", nullptr, Captions::Code},
                   {"TxtName", Narrow::Jump, "AccountName like '%{TxtName}%'", nullptr,
                    Captions::Name, true}},
        .Columns = {{"ID", "AccountNo", Captions::Code, 120},
                    {"Name", "AccountName", Captions::Name, 260, Column::Urdu, true}},
    };
    return declaration;
}

const SearchDeclaration& SchParts()
{
    static const SearchDeclaration declaration{
        .Name = "SchParts",
        .Title = {"پرزہ تلاش کریں", "Find part"},
        .Statement = "SELECT * FROM Parts",
        .Results = {{"ParaOutPID", "PartID", Result::Text}},
        .Fields = {{"TxtID", Narrow::Jump, "PartID ={TxtID}", nullptr, Captions::Code},
                   {"TxtName", Narrow::Jump, "PartName like '{TxtName}%'", nullptr, Captions::Name,
                    true}},
        .Columns = {{"ID", "PartID", Captions::Code, 110, Column::Number},
                    {"Name", "PartName", Captions::Name, 280, Column::Urdu, true},
                    {"Rate", "PartRate", {"قیمت", "Price"}, 100, Column::Number}},
    };
    return declaration;
}

const SearchDeclaration& SchParty()
{
    static const SearchDeclaration declaration{
        .Name = "SchParty",
        .Title = {"پارٹی تلاش کریں", "Find party"},
        .Statement = "SELECT * FROM Parties",
        .Results = {{"ParaOutPartyCode", "PartyCode", Result::Text}},
        .Fields = {{"TxtID", Narrow::Jump, "PartyCode like '{TxtID}%'", nullptr, Captions::Code},
                   {"TxtName", Narrow::Jump, "PartyName like '%{TxtName}%'", nullptr,
                    Captions::Name, true}},
        .Columns = {{"ID", "PartyCode", Captions::Code, 120},
                    {"Name", "PartyName", Captions::Name, 260, Column::Urdu, true}},
    };
    return declaration;
}

const SearchDeclaration& SchSector()
{
    static const SearchDeclaration declaration{
        .Name = "SchSector",
        .Title = {"سیکٹر تلاش کریں", "Find sector"},
        .WindowTitle = "Search",
        .Statement = "SELECT * FROM Sectors",
        .Results = {{"ParaOutID", "SectorID", Result::Text}},
        .Fields = {{"TxtID", Narrow::Jump, "SectorID like '{TxtID}%'", nullptr, Captions::Code},
                   {"TxtName", Narrow::Jump, "SectorName like '{TxtName}%'", nullptr,
                    Captions::Name, true}},
        .Columns = {{"ID", "SectorID", Captions::Code, 120, Column::Number},
                    {"Name", "SectorName", Captions::Name, 260, Column::Urdu, true}},
    };
    return declaration;
}

const SearchDeclaration& SchCustomer()
{
    static const SearchDeclaration declaration{
        .Name = "SchCustomer",
        .Title = {"گاہک تلاش کریں", "Find customer"},
        .Statement = "SELECT AreaCode, InsCustomerID, CardNo, Name, FName, PAddress"
                     " FROM InsCustomerHeader where 1=1 {AreaClause}{NameClause}{FNameClause}",
        .Inputs = {{"ParaInAreaCode", "AreaClause", Input::Value,
                    " and AreaCode = '{ParaInAreaCode}'"}},
        .Results = {{"ParaOutCID", "CardNo", Result::Text},
                    {"ParaOutAreaCode", "AreaCode", Result::Text}},
        .Fields = {{"TxtID", Narrow::Jump, "CardNo = '{TxtID}'", nullptr, Captions::CardNo},
                   {"TxtName", Narrow::QueryAgain, " and Name like '%{TxtName}%'", "NameClause",
                    Captions::Name, true},
                   {"TxtFName", Narrow::QueryAgain, " and FName like '%{TxtFName}%'", "FNameClause",
                    Captions::FatherName, true}},
        .BtnFilter = true,
        .FilterOnF12 = true,
        .Columns = {{"AreaCode", "AreaCode", Captions::Area, 80},
                    {"ID", "CardNo", Captions::CardNo, 90, Column::Number},
                    {"Name", "Name", Captions::Name, 170, Column::Urdu},
                    {"FName", "FName", Captions::FatherName, 170, Column::Urdu},
                    {"Address", "PAddress", Captions::Address, 280, Column::Urdu, true}},
        .LblBalance = {"select dbo.FunCurrentBalance('{InsCustomerID}')",
                       "select dbo.FunGetProduct('{InsCustomerID}')"},
    };
    return declaration;
}

} // namespace TradeForms
