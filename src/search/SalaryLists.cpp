#include "search/CatalogueParts.h"

namespace TradeForms {

namespace {

/// The first day of the month thirty days ago.
QDate firstMonth(const QDate& today)
{
    return Dates::firstOfMonth(Dates::daysAgo<30>(today));
}

SearchDeclaration salaryList(const char* name, const Caption& title, const QByteArray& statement,
                             const QList<SearchColumn>& columns)
{
    return {
        .Name = name,
        .Title = title,
        .Statement = statement,
        .Results = {{"ParaOutStaffID", "StaffID", Result::Text},
                    {"ParaOutDate", "SalaryMonth", Result::Text}},
        .Fields = {{"TxtID", Narrow::QueryAgain, " and f.staffid ='{TxtID}'", "StaffClause",
                    Captions::StaffCode},
                   {"TxtName", Narrow::QueryAgain, " and f.Name like '%{TxtName}%'", "NameClause",
                    Captions::Name, true}},
        .Dates = {.From = firstMonth, .To = Dates::firstOfMonth, .Format = "MMM-yyyy"},
        .Columns = columns,
    };
}

/// Salaries whose total includes the rows of a body table.
SearchDeclaration salaryListWithRows(const char* name, const Caption& title, const char* kind)
{
    return salaryList(
        name, title,
        of(kind,
           " Select s.*, f.name, s.SalaryMonth , isnull(b.totamount,0)+S.BasicSalary + S.Other"
           " - s.GPFund - s.KFFund - RecLoan - less as total  from {Kind}SalaryHeader s"
           " left outer join (select staffid, salarymonth, sum(amount)totamount"
           " from {Kind}SalaryBody group by staffid, salarymonth) b"
           " on b.staffid = s.staffid and b.salarymonth = s.salarymonth"
           " inner join staff f on s.StaffID = f.StaffID"
           " WHERE s.SalaryMonth >='{DtpFrom}' and s.SalaryMonth < '{MonthAfterDtpTo}'"
           "{NameClause}{StaffClause}"),
        {{"ID", "StaffID", Captions::Code, 100},
         {"Name", "Name", Captions::Name, 220, Column::Urdu, true},
         {"Month", "SalaryMonth", Captions::Month, 110, Column::Month},
         {"Total", "Total", Captions::Total, 120, Column::Number}});
}

} // namespace

const SearchDeclaration& SchSalary()
{
    static const SearchDeclaration declaration = salaryList(
        "SchSalary", {"تنخواہ تلاش کریں", "Find salary"},
        " Select s.*, f.name, f.FName, designation, SalaryMonth ,"
        " s.BasicSalary+Salecomm+saleprize+ordercomm+orderprize+reccomm+recprize+supplycomm"
        "+s.other-s.GPFund-s.KFFund-RecLoan-less as total"
        " FROM salaries s inner join staff f on s.StaffID = f.StaffID"
        " WHERE SalaryMonth >='{DtpFrom}' and SalaryMonth < '{MonthAfterDtpTo}'"
        "{NameClause}{StaffClause}",
        {{"ID", "StaffID", Captions::Code, 90},
         {"Name", "Name", Captions::Name, 160, Column::Urdu, true},
         {"FName", "FName", Captions::FatherName, 160, Column::Urdu, true},
         {"Date", "SalaryMonth", Captions::Month, 100, Column::Month},
         {"Designation", "Designation", Captions::Post, 190, Column::Urdu},
         {"Total", "Total", Captions::Total, 110, Column::Number}});
    return declaration;
}

const SearchDeclaration& SchFrenchiserSalary()
{
    static const SearchDeclaration declaration =
        salaryListWithRows("SchFrenchiserSalary",
                           {"فرنچائزر کی تنخواہ تلاش کریں", "Find franchise salary"}, "Frenchiser");
    return declaration;
}

const SearchDeclaration& SchWorkShopSalary()
{
    static const SearchDeclaration declaration = salaryListWithRows(
        "SchWorkShopSalary", {"ورکشاپ کی تنخواہ تلاش کریں", "Find workshop salary"}, "WorkShop");
    return declaration;
}

} // namespace TradeForms
