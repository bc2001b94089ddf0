#include "search/CatalogueParts.h"

namespace TradeForms {

namespace {

/// Concessions and returns: vouchers of an area, with the total of their rows.
SearchDeclaration creditVouchers(const char* name, const Caption& title, const char* kind)
{
    return {
        .Name = name,
        .Title = title,
        .Statement = of(
            kind, "Select {Kind}Header.VoucherID, {Kind}Header.AreaCode,"
                  " VoucherDate,{Kind}body.TotalAmount ,Areas.AreaName from {Kind}Header"
                  " join (SELECT VoucherID, sum(amount) as TotalAmount FROM {Kind}Body"
                  " GROUP BY VoucherID) {Kind}Body on {Kind}Header.VoucherID={Kind}Body.VoucherID"
                  " join Areas on {Kind}Header.AreaCode=Areas.AreaCode"
                  " WHERE VoucherDate Between '{DtpFrom}' AND '{DtpTo}'{AreaClause}"
                  " order by VoucherDate, {Kind}Header.VoucherID"),
        .Results = {{"ParaOutVoucherID", "VoucherID", Result::Int16}},
        .Fields = {{"TxtFilter", Narrow::Jump, "VoucherID = {TxtFilter}", nullptr,
                    Captions::Number},
                   {"TxtAreaCode", Narrow::QueryAgain,
                    of(kind, " AND {Kind}Header.AreaCode ='{TxtAreaCode}'"), "AreaClause",
                    Captions::AreaCode}},
        .Dates = {.From = Dates::daysAgo<30>, .To = Dates::today},
        .Columns = {{"ID", "VoucherID", Captions::Number, 90, Column::Number},
                    {"Date", "VoucherDate", Captions::Date, 110},
                    {"AreaName", "AreaName", Captions::Area, 220, Column::Urdu, true},
                    {"TotalAmount", "TotalAmount", Captions::Total, 120, Column::Number}},
    };
}

} // namespace

const SearchDeclaration& SchGatePass()
{
    static const SearchDeclaration declaration{
        .Name = "SchGatePass",
        .Title = {"گیٹ پاس تلاش کریں", "Find gate pass"},
        .Statement = "Select GatePassHeader.GatePassID, GatePassDate, d.Name as DriverName,"
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
        .Results = {{"ParaOutGatePassID", "GatePassID", Result::Int16}},
        .Fields = {{"TxtFilter", Narrow::Jump, "GatePassID = {TxtFilter}", nullptr,
                    Captions::Number},
                   {"TxtAreaCode", Narrow::QueryAgain, " and areacode='{TxtAreaCode}'",
                    "AreaClause", Captions::AreaCode},
                   {"TxtDriverName", Narrow::QueryAgain, " and d.Name like '%{TxtDriverName}%'",
                    "DriverClause", Captions::Driver, true},
                   {"TxtReceiving", Narrow::QueryAgain, " and r.Name like '%{TxtReceiving}%'",
                    "ReceivingClause", Captions::Receiver, true}},
        .Dates = {.From = Dates::daysAgo<30>, .To = Dates::today},
        .Columns =
            {{"ID", "GatePassID", Captions::Number, 80, Column::Number},
             {"Date", "GatePassDate", Captions::Date, 100},
             {"Driver", "DriverName", Captions::Driver, 160, Column::Urdu, true},
             {"Receiving", "Receiving", Captions::Receiver, 160, Column::Urdu, true},
             {"AreaName", "AreaCode", Captions::Area, 90},
             {"outnewstock", "outnew", {"باہر", "Out"}, 80, Column::Number},
             {"returnoldstock", "returnold", {"واپس پرانا", "Returned old"}, 100, Column::Number},
             {"returnnewstock", "returnnew", {"واپس نیا", "Returned new"}, 100, Column::Number}},
        .MinimizeWorks = false,
    };
    return declaration;
}

const SearchDeclaration& SchInsCustomer()
{
    static const SearchDeclaration declaration{
        .Name = "SchInsCustomer",
        .Title = {"قسط کا کھاتہ تلاش کریں", "Find instalment account"},
        .Statement =
            " SELECT InsCustomerHeader.InsCustomerID,InsCustomerHeader.CardNo, SaleDate,"
            " InsCustomerHeader.Name, InsCustomerHeader.FName ,InsCustomerHeader.TotalAmount,"
            "PromiseDate, isnull(TotalItems,0) as TotalItems, Areas.AreaName,"
            "InsCustomerHeader.AreaCode, r.Name as Receiving, f.Name as Frenchiser"
            " FROM InsCustomerHeader"
            " Left Outer Join (SELECT InsCustomerBody.InsCustomerID, sum(qty) as TotalItems"
            " FROM InsCustomerBody GROUP BY InsCustomerBody.InsCustomerID) InsCustomerBody"
            " ON InsCustomerHeader.InsCustomerID = InsCustomerBody.InsCustomerID"
            " INNER JOIN Areas ON InsCustomerHeader.AreaCode = Areas.AreaCode"
            " left outer JOIN Staff f ON InsCustomerHeader.FStaffID = f.StaffID"
            " left outer JOIN Staff r ON InsCustomerHeader.ReceivingCode = r.StaffID"
            " WHERE SaleDate Between '{DtpFrom}' AND '{DtpTo}'"
            "{AreaClause}{NameClause}{FNameClause}{FrenchiserClause}{ReceivingClause}"
            " order by InsCustomerHeader.CardNo",
        .Results = {{"ParaOutInsCustomerID", "InsCustomerID", Result::Text}},
        .Fields =
            {{"TxtFilter", Narrow::Jump, "CardNo like '{TxtFilter}%'", nullptr, Captions::CardNo},
             {"TxtAreaCode", Narrow::OnFilter, " AND InsCustomerHeader.AreaCode='{TxtAreaCode}'",
              "AreaClause", Captions::AreaCode},
             {"TxtName", Narrow::OnFilter, " AND InsCustomerHeader.Name like '%{TxtName}%'",
              "NameClause", Captions::Name, true},
             {"TxtFName", Narrow::OnFilter, " AND InsCustomerHeader.FName like '%{TxtFName}%'",
              "FNameClause", Captions::FatherName, true},
             {"TxtFrenchiser", Narrow::OnFilter, " AND f.Name like '%{TxtFrenchiser}%'",
              "FrenchiserClause", Captions::Franchiser, true},
             {"TxtReceiving", Narrow::OnFilter, " AND r.Name like '%{TxtReceiving}%'",
              "ReceivingClause", Captions::Receiver, true}},
        .Dates = {.From = Dates::daysAgo<90>, .To = Dates::today, .QueryAgain = false},
        .BtnFilter = true,
        .FilterOnF12 = true,
        .FilterTip = "Shortcut Key is F12",
        .Columns = {{"ID", "CardNo", Captions::CardNo, 80, Column::Number},
                    {"Date", "SaleDate", {"تاریخ فروخت", "Sale date"}, 100},
                    {"CustomerName", "Name", Captions::Customer, 150, Column::Urdu, true},
                    {"FName", "FName", Captions::FatherName, 150, Column::Urdu, true},
                    {"AreaName", "AreaName", Captions::Area, 120, Column::Urdu},
                    {"Receiving", "Receiving", Captions::Receiver, 130, Column::Urdu},
                    {"Frenchiser", "Frenchiser", Captions::Franchiser, 130, Column::Urdu},
                    {"Promise", "PromiseDate", {"وعدہ", "Promise"}, 70, Column::Number},
                    {"TotalItems", "TotalItems", Captions::Quantity, 70, Column::Number},
                    {"TotalAmount", "TotalAmount", Captions::Total, 100, Column::Number},
                    {"CusID", "InsCustomerID", {"کھاتہ", "Account"}, 110}},
    };
    return declaration;
}

const SearchDeclaration& SchRecoveryVoucher()
{
    static const SearchDeclaration declaration{
        .Name = "SchRecoveryVoucher",
        .Title = {"وصولی واؤچر تلاش کریں", "Find recovery voucher"},
        .Statement =
            "Select RecoveryHeader.VoucherID, RecoveryHeader.AreaCode,"
            " VoucherDate,Recoverybody.TotalAmount, Staff.Name as Staff ,Areas.AreaName"
            " from RecoveryHeader"
            " join (SELECT VoucherID, sum(amount) as TotalAmount FROM RecoveryBody"
            " GROUP BY VoucherID) RecoveryBody on RecoveryHeader.VoucherID=RecoveryBody.VoucherID"
            " join Areas on RecoveryHeader.AreaCode=Areas.AreaCode"
            " left outer join Staff on RecoveryHeader.StaffID = Staff.StaffID"
            " WHERE VoucherDate Between '{DtpFrom}' AND '{DtpTo}'{AreaClause}{StaffClause}"
            " order by VoucherDate, RecoveryHeader.VoucherID",
        .Results = {{"ParaOutVoucherID", "VoucherID", Result::Int32}},
        .Fields = {{"TxtFilter", Narrow::Jump, "VoucherID = {TxtFilter}", nullptr,
                    Captions::Number},
                   {"TxtAreaCode", Narrow::QueryAgain,
                    " AND RecoveryHeader.AreaCode ='{TxtAreaCode}'", "AreaClause",
                    Captions::AreaCode},
                   {"TxtStaffName", Narrow::QueryAgain, " and name like '%{TxtStaffName}%'",
                    "StaffClause", Captions::Staff, true}},
        .Dates = {.From = Dates::firstOfMonth, .To = Dates::today},
        .Columns = {{"ID", "VoucherID", Captions::Number, 90, Column::Number},
                    {"Date", "VoucherDate", Captions::Date, 110},
                    {"AreaName", "AreaName", Captions::Area, 180, Column::Urdu, true},
                    {"Staff", "Staff", Captions::Staff, 180, Column::Urdu, true},
                    {"TotalAmount", "TotalAmount", Captions::Total, 120, Column::Number}},
    };
    return declaration;
}

const SearchDeclaration& SchRecoveryVoucherDetail()
{
    static const SearchDeclaration declaration{
        .Name = "SchRecoveryVoucherDetail",
        .Title = {"وصولی کی رسید تلاش کریں", "Find recovery receipt"},
        .Statement =
            "Select RecoveryHeader.VoucherID, RecoveryHeader.AreaCode, RecoveryHeader.VoucherDate"
            " ,Areas.AreaName, Amount, ReceiptNo, RecoveryBody.CardNo, RecoveryBody.InsCustomerID,"
            " InsCustomerHeader.Name from RecoveryHeader"
            " join RecoveryBody on RecoveryHeader.VoucherID=RecoveryBody.VoucherID"
            " join Areas on RecoveryHeader.AreaCode=Areas.AreaCode"
            " join InsCustomerHeader on InsCustomerHeader.InsCustomerID=RecoveryBody.InsCustomerID"
            " WHERE RecoveryHeader.VoucherDate Between '{DtpFrom}' AND '{DtpTo}'"
            "{AreaClause}{VoucherClause}{NameClause} Order By RecoveryHeader.VoucherID",
        .Results = {{"ParaOutVoucherID", "VoucherID", Result::Int32},
                    {"ParaOutInsCustomerID", "InsCustomerID", Result::Text}},
        .Fields = {{"TxtID", Narrow::Jump, "CardNo Like '{TxtID}'", nullptr, Captions::CardNo},
                   {"TxtAreaCode", Narrow::QueryAgain,
                    " AND RecoveryHeader.AreaCode = '{TxtAreaCode}'", "AreaClause",
                    Captions::AreaCode},
                   {"TxtFilter",
                    Narrow::QueryAgain,
                    " AND RecoveryHeader.voucherID = {TxtFilter}",
                    "VoucherClause",
                    {"واؤچر نمبر", "Voucher no"}},
                   {"TxtName", Narrow::QueryAgain, " AND InsCustomerHeader.Name like '%{TxtName}%'",
                    "NameClause", Captions::Name, true}},
        .Dates = {.From = Dates::daysAgo<60>, .To = Dates::today},
        .Columns = {{"ID", "CardNo", Captions::CardNo, 90, Column::Number},
                    {"VoucherNo", "VoucherID", {"واؤچر نمبر", "Voucher no"}, 90, Column::Number},
                    {"Date", "VoucherDate", Captions::Date, 100},
                    {"CusID", "InsCustomerID", {"کھاتہ", "Account"}, 120},
                    {"Name", "Name", Captions::Name, 170, Column::Urdu, true},
                    {"AreaName", "AreaName", Captions::Area, 150, Column::Urdu},
                    {"Receipt", "ReceiptNo", {"رسید", "Receipt"}, 80, Column::Number},
                    {"Amount", "Amount", Captions::Amount, 90, Column::Number}},
        .LblTotalCards = true,
    };
    return declaration;
}

const SearchDeclaration& SchConcessionVoucher()
{
    static const SearchDeclaration declaration = creditVouchers(
        "SchConcessionVoucher", {"رعایت واؤچر تلاش کریں", "Find concession voucher"}, "Concession");
    return declaration;
}

const SearchDeclaration& SchReturnVoucher()
{
    static const SearchDeclaration declaration = creditVouchers(
        "SchReturnVoucher", {"واپسی واؤچر تلاش کریں", "Find return voucher"}, "Return");
    return declaration;
}

const SearchDeclaration& SchWorkerParts()
{
    static const SearchDeclaration declaration{
        .Name = "SchWorkerParts",
        .Title = {"پرزہ جات واؤچر تلاش کریں", "Find parts voucher"},
        .Statement =
            "Select h.VoucherID, VoucherDate, b.TotalAmount ,Name, h.StaffID"
            " from WorkShopPartsHeader h"
            " join (SELECT VoucherID, sum(amount) as TotalAmount FROM WorkShopPartsBody"
            " GROUP BY VoucherID) b on h.VoucherID = b.VoucherID"
            " left outer join Staff s on h.StaffID = s.staffid"
            " WHERE VoucherDate Between '{DtpFrom}' AND '{DtpTo}'{NameClause}{StaffClause}",
        .Results = {{"ParaOutVoucherID", "VoucherID", Result::Int16}},
        .Fields = {{"TxtFilter", Narrow::Jump, "VoucherID = {TxtFilter}", nullptr,
                    Captions::Number},
                   {"TxtStaffName", Narrow::QueryAgain, " and name like '%{TxtStaffName}%'",
                    "NameClause", Captions::Staff, true},
                   {"TxtID", Narrow::QueryAgain, " and h.StaffID like '%{TxtID}%'", "StaffClause",
                    Captions::StaffCode}},
        .Dates = {.From = Dates::firstOfMonth, .To = Dates::today},
        .Columns = {{"ID", "VoucherID", Captions::Number, 90, Column::Number},
                    {"Date", "VoucherDate", Captions::Date, 110},
                    {"StaffID", "StaffID", Captions::StaffCode, 100},
                    {"StaffName", "Name", Captions::Staff, 200, Column::Urdu, true},
                    {"TotalAmount", "TotalAmount", Captions::Total, 120, Column::Number}},
    };
    return declaration;
}

const SearchDeclaration& SchPartnershipProfit()
{
    static const SearchDeclaration declaration{
        .Name = "SchPartnershipProfit",
        .Title = {"شراکت کا منافع تلاش کریں", "Find partnership profit"},
        .Statement =
            "Select h.VoucherID, h.AreaCode, [Month], sum(Income)-sum(Less)-sum(Expense) as Profit"
            " , AreaName from PartnershipProfitHeader h"
            " join PartnershipProfitBody b on h.VoucherID = b.VoucherID"
            " join Areas a on h.AreaCode = a.AreaCode"
            " WHERE [Month] Between '{DtpFrom}' AND '{DtpTo}'{AreaClause}"
            " Group By h.VoucherID, h.AreaCode, [Month], AreaName order by [Month], h.VoucherID",
        .Results = {{"ParaOutVoucherID", "VoucherID", Result::Int16}},
        .Fields = {{"TxtFilter", Narrow::Jump, "VoucherID = {TxtFilter}", nullptr,
                    Captions::Number},
                   {"TxtAreaCode", Narrow::QueryAgain, " AND h.AreaCode ='{TxtAreaCode}'",
                    "AreaClause", Captions::AreaCode}},
        .Dates = {.From = Dates::today, .To = Dates::today, .WholeMonths = true},
        .Columns = {{"ID", "VoucherID", Captions::Number, 90, Column::Number},
                    {"Month", "Month", Captions::Month, 110, Column::Month},
                    {"AreaName", "AreaName", Captions::Area, 220, Column::Urdu, true},
                    {"Profit", "Profit", {"منافع", "Profit"}, 120, Column::Number}},
    };
    return declaration;
}

const SearchDeclaration& SchConvertArea()
{
    static const SearchDeclaration declaration{
        .Name = "SchConvertArea",
        .Title = {"منتقل شدہ کھاتہ تلاش کریں", "Find converted account"},
        .Statement =
            " select left(frominscustomerid,PATINDEX('% %',frominscustomerid)-1) as PrevAreaCode ,"
            " right(frominscustomerid,len(frominscustomerid)-PATINDEX('% %',frominscustomerid))"
            " as PrevCardNo , Name, c.TotalAmount as Total, FromAmount as Previous ,"
            " left(Toinscustomerid,PATINDEX('% %',Toinscustomerid)-1) as NewAreaCode ,"
            " right(Toinscustomerid,len(Toinscustomerid)-PATINDEX('% %',Toinscustomerid))"
            " as NewCardNo , ToAmount as Remain, ToDate from convertArea c "
            " inner join inscustomerheader h on c.frominscustomerid = h.inscustomerid"
            " where ToDate between '{DtpFrom}' and '{DtpTo}'{NameClause}{AreaClause}{CardClause}",
        .Results = {{"ParaOutPrevAreaCode", "PrevAreaCode", Result::Text},
                    {"ParaOutPrevCardNo", "PrevCardNo", Result::Text}},
        .Fields = {{"TxtPrevCardNo",
                    Narrow::QueryAgain,
                    " and right(frominscustomerid,len(frominscustomerid)-"
                    "PATINDEX('% %',frominscustomerid)) like '%{TxtPrevCardNo}%'",
                    "CardClause",
                    {"سابقہ کارڈ نمبر", "Previous card no"}},
                   {"TxtPrevAreaCode",
                    Narrow::QueryAgain,
                    " and left(frominscustomerid,PATINDEX('% %',frominscustomerid)-1)"
                    " = '{TxtPrevAreaCode}'",
                    "AreaClause",
                    {"سابقہ علاقہ", "Previous area"}},
                   {"TxtName", Narrow::QueryAgain, " and Name like '%{TxtName}%'", "NameClause",
                    Captions::Name, true}},
        .Dates = {.From = Dates::daysAgo<180>, .To = Dates::today},
        .Columns =
            {{"PrevAreaCode", "PrevAreaCode", {"سابقہ علاقہ", "Previous area"}, 100},
             {"PrevCardNo", "PrevCardNo", {"سابقہ کارڈ", "Previous card"}, 100, Column::Number},
             {"Name", "Name", Captions::Name, 170, Column::Urdu, true},
             {"Total", "Total", Captions::Total, 100, Column::Number},
             {"Previous", "Previous", {"سابقہ بقایا", "Previous balance"}, 120, Column::Number},
             {"NewAreaCode", "NewAreaCode", {"نیا علاقہ", "New area"}, 90},
             {"NewCardNo", "NewCardNo", {"نیا کارڈ", "New card"}, 90, Column::Number},
             {"Remain", "Remain", {"بقایا", "Balance"}, 100, Column::Number},
             {"ToDate", "ToDate", Captions::Date, 100}},
    };
    return declaration;
}

} // namespace TradeForms
