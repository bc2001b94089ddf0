// What forms ask of companies of different sizes: each figure is one call.

#include "Companies.h"
#include "Measure.h"

#include "data/Connection.h"
#include "data/Recordset.h"

#include <QLocale>

#include <map>
#include <memory>

namespace {

using namespace TradeForms;
using benchmark::State;

/// A company of one size, opened by the library and through the C API. Opened when it is first
/// used, and made if it has to be.
class Company {
public:
    static Company& Of(int accounts)
    {
        static std::map<int, std::unique_ptr<Company>> opened;
        std::unique_ptr<Company>& company = opened[accounts];
        if (!company)
            company.reset(new Company(Bench::CompanyOf(accounts)));
        return *company;
    }

    /// Runs a statement and takes every value of every row out; returns the number of rows.
    int ReadAll(const QString& statement) const
    {
        Recordset rows = Ours->Execute(Statement(statement));
        if (!rows.IsOpen())
            return 0;
        for (int row = 0; row < rows.RecordCount(); ++row)
            for (int field = 0; field < rows.FieldCount(); ++field)
                benchmark::DoNotOptimize(rows.ValueAt(row, field));
        return rows.RecordCount();
    }

    std::shared_ptr<Connection> Ours;
    Bench::Raw Raw;
    std::vector<QByteArray> Accounts; ///< from all over the company
    QByteArray Day500;                ///< the day whose receipts are nearest to 500
    int ReceiptsOfDay = 0;
    QByteArray LargestArea;
    int AccountsOfArea = 0;
    QByteArray Month; ///< first day of the last one

private:
    explicit Company(const QString& file) : Ours(Connection::Open(file)), Raw(file)
    {
        constexpr int chosen = 500;
        const qlonglong rows = Raw.Number("select max(rowid) from InsCustomerHeader");
        for (int i = 0; i < chosen; ++i) {
            const auto row = QByteArray::number(1 + rows * i / chosen);
            Accounts.push_back(
                Raw.Text("select InsCustomerID from InsCustomerHeader where rowid = " + row)
                    .toUtf8());
        }
        const QByteArray days = "(select VoucherDate as Day, count(*) as Receipts from "
                                "RecoveryBody group by VoucherDate) order by "
                                "abs(Receipts - 500), Day limit 1";
        Day500 = Raw.Text("select Day from " + days).toUtf8();
        ReceiptsOfDay = int(Raw.Number("select Receipts from " + days));
        const QByteArray areas = "(select AreaCode, count(*) as Held from InsCustomerHeader "
                                 "group by AreaCode) order by abs(Held - 5000), AreaCode limit 1";
        LargestArea = Raw.Text("select AreaCode from " + areas).toUtf8();
        AccountsOfArea = int(Raw.Number("select Held from " + areas));
        Month = Raw.Text("select max(VoucherDate) from RecoveryHeader").left(8).toUtf8() + "01";
    }
};

QString s(const QByteArray& text)
{
    return QString::fromUtf8(text);
}

/// One statement after the other, by the library and raw.
template <class Make> void ours(State& state, int accounts, Make make)
{
    Company& company = Company::Of(accounts);
    std::size_t turn = 0;
    for (auto _ : state)
        company.ReadAll(s(make(company, turn++)));
    state.counters["accounts"] = accounts;
}

template <class Make> void raw(State& state, int accounts, Make make)
{
    Company& company = Company::Of(accounts);
    std::size_t turn = 0;
    for (auto _ : state)
        company.Raw.ReadAll(make(company, turn++));
}

// ---- What an account owes

const QByteArray& accountAt(const Company& company, std::size_t turn)
{
    return company.Accounts[turn % company.Accounts.size()];
}

QByteArray balanceCall(const Company& company, std::size_t turn)
{
    return "select dbo.FunCurrentBalance('" + accountAt(company, turn) + "')";
}

QByteArray balanceSums(const Company& company, std::size_t turn)
{
    return "SELECT round(ifnull(h.TotalAmount, 0)"
           " - (SELECT total(Amount) FROM PreviousBalances WHERE InsCustomerID = h.InsCustomerID)"
           " - (SELECT total(Amount) FROM RecoveryBody WHERE InsCustomerID = h.InsCustomerID)"
           " - (SELECT total(Amount) FROM ConcessionBody WHERE InsCustomerID = h.InsCustomerID)"
           " - (SELECT total(Amount) FROM ReturnBody WHERE InsCustomerID = h.InsCustomerID), 4)"
           " FROM InsCustomerHeader h WHERE h.InsCustomerID = '" +
           accountAt(company, turn) + "'";
}

// ---- Stock

QByteArray stockOfOne(const Company&, std::size_t turn)
{
    const char* const products[] = {"101", "104", "210", "233", "301", "601"};
    return QByteArray("SELECT * from vuCurrentStock WHERE ProductID='") + products[turn % 6] +
           "' and branchcode =" + QByteArray::number(1 + turn % 3);
}

QByteArray stockOfAll(const Company&, std::size_t)
{
    return "SELECT ProductID, ProductName, Sum(Stock) as Stock FROM VuCurrentStock where 1=1 "
           "Group By ProductID, ProductName";
}

// ---- Numbers for new records

constexpr std::pair<const char*, const char*> numbered[] = {
    {"GatePassID", "GatePassHeader"},     {"VoucherID", "RecoveryHeader"},
    {"VoucherID", "ConcessionHeader"},    {"VoucherID", "ReturnHeader"},
    {"VoucherID", "WorkShopPartsHeader"}, {"StockID", "StockInHeader"},
    {"StockID", "StockOutHeader"},        {"StockID", "StockInDetailHeader"},
};

QByteArray nextNumber(std::size_t turn, const char* null)
{
    const auto& [key, table] = numbered[turn % std::size(numbered)];
    return QByteArray("Select ") + null + "(max(" + key + "),0)+1 from " + table;
}

QByteArray nextCard(const Company& company, const char* null)
{
    return QByteArray("Select ") + null +
           "(max(cast(Autocard as int)),0) + 1  from InsCustomerHeader Where old=0 and AreaCode "
           "= '" +
           company.LargestArea + "'";
}

// ---- The two procedures. The baseline runs the same statements in a transaction.

QByteArray balancesFrom(const QByteArray& accounts, const QByteArray& day)
{
    const auto sum = [&day](const char* table, const char* date) {
        return QByteArray(" - (SELECT total(Amount) FROM ") + table +
               " WHERE InsCustomerID = a.InsCustomerID AND " + date + " <= '" + day + "')";
    };
    return "INSERT INTO InstallmentBalances (InsCustomerID, Balance)"
           " SELECT a.InsCustomerID, round(ifnull(a.TotalAmount, 0)" +
           sum("PreviousBalances", "PreviousDate") + sum("RecoveryBody", "VoucherDate") +
           sum("ConcessionBody", "VoucherDate") + sum("ReturnBody", "VoucherDate") + ", 4) FROM " +
           accounts;
}

void runProcedure(State& state, int accounts, double limit,
                  QByteArray (*call)(const Company& company), int Company::*size)
{
    Company& company = Company::Of(accounts);
    Bench::LimitTime(state, limit);
    for (auto _ : state)
        company.ReadAll(s(call(company)));
    state.counters["accounts"] = accounts;
    state.counters["about"] = company.*size;
    if (company.Raw.Number("select count(*) from InstallmentBalances") == 0)
        state.SkipWithError("there are no balances");
}

void runInsert(State& state, int accounts, QByteArray (*insert)(const Company& company))
{
    Company& company = Company::Of(accounts);
    for (auto _ : state) {
        company.Raw.Run("BEGIN IMMEDIATE");
        company.Raw.Run("DELETE FROM InstallmentBalances");
        company.Raw.Run(insert(company));
        company.Raw.Run("COMMIT");
    }
}

QByteArray dayCall(const Company& company)
{
    return "exec SPInstallmentBalances '" + company.Day500 + "'";
}

QByteArray dayInsert(const Company& company)
{
    return balancesFrom("(SELECT v.InsCustomerID, h.TotalAmount FROM"
                        " (SELECT DISTINCT b.InsCustomerID FROM RecoveryHeader r"
                        " JOIN RecoveryBody b ON b.VoucherID = r.VoucherID"
                        " WHERE r.VoucherDate = '" +
                            company.Day500 +
                            "') v"
                            " LEFT JOIN InsCustomerHeader h"
                            " ON h.InsCustomerID = v.InsCustomerID) a",
                        company.Day500);
}

QByteArray areaCall(const Company& company)
{
    return "exec spRecoveryPrize '" + company.LargestArea + "','" + company.Month + "'";
}

QByteArray areaInsert(const Company& company)
{
    const QDate month = QDate::fromString(s(company.Month), Qt::ISODate);
    const QByteArray before = month.addDays(-1).toString(Qt::ISODate).toUtf8();
    return balancesFrom("InsCustomerHeader a WHERE a.AreaCode = '" + company.LargestArea +
                            "' AND a.SaleDate <= '" + before +
                            "' AND (a.ChangeDate IS NULL OR a.ChangeDate <= '" + before + "')",
                        before);
}

// ---- A list of vouchers

QByteArray vouchersOfTwoMonths(const Company& company, std::size_t)
{
    const QDate last = QDate::fromString(s(company.Month), Qt::ISODate);
    return "Select RecoveryHeader.VoucherID, RecoveryHeader.AreaCode, VoucherDate,"
           "Recoverybody.TotalAmount, Staff.Name as Staff ,Areas.AreaName from RecoveryHeader "
           "join (SELECT VoucherID, sum(amount) as TotalAmount FROM RecoveryBody GROUP BY "
           "VoucherID) RecoveryBody on RecoveryHeader.VoucherID=RecoveryBody.VoucherID join "
           "Areas on RecoveryHeader.AreaCode=Areas.AreaCode left outer join Staff on "
           "RecoveryHeader.StaffID = Staff.StaffID WHERE VoucherDate Between '" +
           last.addDays(-60).toString(Qt::ISODate).toUtf8() + "' AND '" + company.Month +
           "' AND RecoveryHeader.AreaCode ='" + company.LargestArea +
           "' order by VoucherDate, RecoveryHeader.VoucherID";
}

void registerFor(int accounts)
{
    const std::string size = ", " + QLocale(QLocale::English).toString(accounts).toStdString();
    constexpr int many = 500;

    Bench::RegisterPair(
        "balance of an account" + size,
        [=](State& state) {
            Bench::LimitTime(state, 50e-6);
            ours(state, accounts, balanceCall);
        },
        [=](State& state) { raw(state, accounts, balanceSums); }, many);
    Bench::RegisterPair(
        "stock of a product in a branch" + size,
        [=](State& state) {
            Bench::LimitTime(state, 1e-3);
            ours(state, accounts, stockOfOne);
        },
        [=](State& state) { raw(state, accounts, stockOfOne); }, many);
    Bench::RegisterPair(
        "stock of all products" + size, [=](State& state) { ours(state, accounts, stockOfAll); },
        [=](State& state) { raw(state, accounts, stockOfAll); }, 50);
    Bench::RegisterPair(
        "next number of a voucher" + size,
        [=](State& state) {
            Bench::LimitTime(state, 1e-3);
            ours(
                state, accounts,
                [](const Company&, std::size_t turn) { return nextNumber(turn, "isnull"); });
        },
        [=](State& state) {
            raw(
                state, accounts,
                [](const Company&, std::size_t turn) { return nextNumber(turn, "ifnull"); });
        },
        many);
    Bench::RegisterPair(
        "next card of an area" + size,
        [=](State& state) {
            Bench::LimitTime(state, 1e-3);
            ours(
                state, accounts,
                [](const Company& company, std::size_t) { return nextCard(company, "isnull"); });
        },
        [=](State& state) {
            raw(
                state, accounts,
                [](const Company& company, std::size_t) { return nextCard(company, "ifnull"); });
        },
        many);
    Bench::RegisterPair(
        "balances of a day of about 500 receipts" + size,
        [=](State& state) {
            runProcedure(state, accounts, 100e-3, dayCall, &Company::ReceiptsOfDay);
        },
        [=](State& state) { runInsert(state, accounts, dayInsert); }, 3);
    Bench::RegisterPair(
        "balances of an area of about 5,000 accounts" + size,
        [=](State& state) {
            runProcedure(state, accounts, 300e-3, areaCall, &Company::AccountsOfArea);
        },
        [=](State& state) { runInsert(state, accounts, areaInsert); }, 1);
    Bench::RegisterPair(
        "list of an area's vouchers of two months" + size,
        [=](State& state) { ours(state, accounts, vouchersOfTwoMonths); },
        [=](State& state) { raw(state, accounts, vouchersOfTwoMonths); }, 1);
}

const bool registered = [] {
    for (const int accounts : Bench::CompanySizes())
        registerFor(accounts);
    return true;
}();

} // namespace
