#include "search/Catalogue.h"

namespace TradeForms {

namespace {

using Input = SearchInput::Kind;
using Result = SearchResult::Kind;
using Narrow = SearchField::Kind;
using Column = SearchColumn::Kind;

} // namespace

// Code lists.

const SearchDescription SchArea{
    .Name = "SchArea",
    .Urdu = "علاقہ تلاش کریں",
    .English = "Find area",
    .Statement = "SELECT * FROM Areas where 1=1 {BranchFilter}",
    .Inputs = {{"ParaInBranchCode", "BranchFilter", Input::Value,
                " and BranchCode={ParaInBranchCode}", "0"}},
    .Results = {{"ParaOutAID", "AreaCode", Result::Text}},
    .Fields = {{"TxtID", Narrow::Jump, "AreaCode like '{Text}%'", nullptr, "کوڈ", "Code"},
               {"TxtName", Narrow::Jump, "AreaName like '{Text}%'", nullptr, "نام", "Name", true}},
    .JumpField = "TxtID",
    .Columns = {{"ID", "AreaCode", "کوڈ", "Code", 120},
                {"Name", "AreaName", "نام", "Name", 260, Column::Urdu, true}},
};

const SearchDescription SchBranch{
    .Name = "SchBranch",
    .Urdu = "برانچ تلاش کریں",
    .English = "Find branch",
    .Statement = "SELECT * FROM Branches where 1=1 {BranchFilter}",
    .Inputs = {{"ParaInBranchCode", "BranchFilter", Input::Value,
                " and BranchCode={ParaInBranchCode}", "0"}},
    .Results = {{"ParaOutBranchCode", "BranchCode", Result::Text}},
    .Fields = {{"TxtID", Narrow::Jump, "BranchCode ={Text}", nullptr, "کوڈ", "Code"},
               {"TxtName", Narrow::Jump, "BranchName like '{Text}%'", nullptr, "نام", "Name",
                true}},
    .JumpField = "TxtID",
    .Columns = {{"ID", "BranchCode", "کوڈ", "Code", 120, Column::Number},
                {"Name", "BranchName", "نام", "Name", 260, Column::Urdu, true}},
};

const SearchDescription SchProduct{
    .Name = "SchProduct",
    .Urdu = "مال تلاش کریں",
    .English = "Find product",
    .Statement = "SELECT ProductID, ProductName, Sum(Stock) as Stock FROM  VuCurrentStock"
                 " where 1=1 {NameClause} Group By ProductID, ProductName",
    .Inputs = {},
    .Results = {{"ParaOutPID", "ProductID", Result::Text}},
    .Fields = {{"TxtID", Narrow::Jump, "ProductID like '{Text}%'", nullptr, "کوڈ", "Code"},
               {"TxtName", Narrow::QueryAgain, " AND ProductName Like '%{Text}%'", "NameClause",
                "نام", "Name", true}},
    .JumpField = "TxtID",
    .Columns = {{"ID", "ProductID", "کوڈ", "Code", 110, Column::Number},
                {"Name", "ProductName", "نام", "Name", 280, Column::Urdu, true},
                {"Stock", "Stock", "سٹاک", "Stock", 90, Column::Number}},
};

const SearchDescription SchStaff{
    .Name = "SchStaff",
    .Urdu = "ملازم تلاش کریں",
    .English = "Find staff",
    .Statement = "SELECT s.*,branchname as branch FROM Staff s"
                 " inner join branches b on b.branchcode=s.branchcode "
                 " where 1=1{NameClause}{ParaInStr}",
    .Inputs = {{"ParaInStr", "ParaInStr", Input::ReadyClause}},
    .Results = {{"ParaOutStaffID", "StaffID", Result::Text}},
    .Fields = {{"TxtID", Narrow::Jump, "StaffID like '{Text}%'", nullptr, "کوڈ", "Code"},
               {"TxtName", Narrow::QueryAgain, " and Name like '%{Text}%'", "NameClause", "نام",
                "Name", true}},
    .JumpField = "TxtID",
    .Columns = {{"ID", "StaffID", "کوڈ", "Code", 90},
                {"Name", "Name", "نام", "Name", 170, Column::Urdu},
                {"Address", "Address", "پتہ", "Address", 240, Column::Urdu, true},
                {"Designation", "Designation", "عہدہ", "Post", 190, Column::Urdu},
                {"Branch", "branch", "برانچ", "Branch", 110, Column::Urdu}},
};

// Voucher lists.

const SearchDescription SchGatePass{
    .Name = "SchGatePass",
    .Urdu = "گیٹ پاس تلاش کریں",
    .English = "Find gate pass",
    .Statement =
        "Select GatePassHeader.GatePassID, GatePassDate, d.Name as DriverName,"
        " r.Name as Receiving, GatePassBody.outnew, GatePassBody.returnold,"
        " GatePassBody.returnnew, AreaCode from GatePassHeader"
        " join (SELECT GatePassID, sum(OutNewProducts) as outnew,"
        " sum(ReturnOldProducts) as returnold, sum(ReturnNewProducts) as returnnew"
        " FROM GatePassBody GROUP BY GatePassID) GatePassBody"
        " on GatePassHeader.GatePassID=GatePassBody.GatePassID"
        " left outer join staff d on GatePassHeader.DriverCode = d.StaffID"
        " left outer join staff r on GatePassHeader.ReceivingCode = r.StaffID"
        " WHERE GatePassDate Between '{DtpFrom}' AND '{DtpTo}'"
        "{ReceivingClause}{AreaClause}{DriverClause}"
        " ORDER By GatePassDate, GatePassHeader.GatePassID",
    .Inputs = {},
    .Results = {{"ParaOutGatePassID", "GatePassID", Result::Int16}},
    .Fields = {{"TxtFilter", Narrow::Jump, "GatePassID = {Text}", nullptr, "نمبر", "Number"},
               {"TxtAreaCode", Narrow::QueryAgain, " and areacode='{Text}'", "AreaClause", "علاقہ",
                "Area code"},
               {"TxtDriverName", Narrow::QueryAgain, " and d.Name like '%{Text}%'",
                "DriverClause", "ڈرائیور", "Driver", true},
               {"TxtReceiving", Narrow::QueryAgain, " and r.Name like '%{Text}%'",
                "ReceivingClause", "وصول کنندہ", "Receiver", true}},
    .JumpField = "TxtFilter",
    .Columns = {{"ID", "GatePassID", "نمبر", "Number", 80, Column::Number},
                {"Date", "GatePassDate", "تاریخ", "Date", 100},
                {"Driver", "DriverName", "ڈرائیور", "Driver", 160, Column::Urdu, true},
                {"Receiving", "Receiving", "وصول کنندہ", "Receiver", 160, Column::Urdu, true},
                {"AreaName", "AreaCode", "علاقہ", "Area", 90},
                {"outnewstock", "outnew", "باہر", "Out", 80, Column::Number},
                {"returnoldstock", "returnold", "واپس پرانا", "Returned old", 100, Column::Number},
                {"returnnewstock", "returnnew", "واپس نیا", "Returned new", 100,
                 Column::Number}},
    .DefaultFrom = [](const QDate& today) { return today.addDays(-30); },
    .MinimizeWorks = false,
};

} // namespace TradeForms
