#include "sample/Parts.h"
#include "sample/PayBook.h"
#include "sample/Random.h"
#include "sample/TableWriter.h"
#include "sample/Utf8.h"

#include <algorithm>
#include <numeric>

namespace Sample {

namespace {

// The two kinds of line on a franchise holder's sheet, as the symbol font writes them.
constexpr const char* orderLine = "i”iC";
constexpr const char* saleLine = "¼Ïp";

/// The deductions of a month, and the balance carried forward.
struct Deductions {
    int Loan;
    int Advance;
};

/// Computes a person's months in order: loans are repaid in instalments, cheques since the last pay
/// day are an advance, and a negative balance is added to the next month's advance.
class Ledger {
public:
    Ledger(const Setting& setting, const StaffMember& person) : setting_(setting), person_(person)
    {
    }

    Deductions Next(QDate month)
    {
        const QDate end = month.addMonths(1).addDays(-1);
        const int lent = sum(person_.Loans, QDate(), month.addDays(-1)) - recovered_;
        const int loan = std::clamp(lent, 0, person_.MonthlyRecovery);
        recovered_ += loan;
        const int advance = sum(person_.Cheques, lastPaid_, end) + carried_;
        lastPaid_ = end;
        return {loan, advance};
    }

    void Close(int remaining) { carried_ = std::max(0, -remaining); }

private:
    /// The sum of the amounts dated after one day and up to another.
    int sum(const std::vector<DatedAmount>& list, QDate after, QDate until) const
    {
        return std::accumulate(
            list.begin(), list.end(), 0,
            [&](int sum, const DatedAmount& item) {
                const QDate date = setting_.Day(item.Day);
                const bool counts = (!after.isValid() || date > after) && date <= until;
                return counts ? sum + item.Amount : sum;
            });
    }

    const Setting& setting_;
    const StaffMember& person_;
    QDate lastPaid_;
    int recovered_ = 0;
    int carried_ = 0;
};

class PaySheets {
public:
    PaySheets(const Setting& setting, const PayBook& earned)
        : setting_(setting), earned_(earned),
          salaries_(setting.Connection, "Salaries",
                    {"StaffID", "SalaryMonth", "BasicSalary", "SaleComm", "SalePrize", "OrderComm",
                     "OrderPrize", "RecComm", "RecPrize", "SupplyComm", "GPFund", "KFFund",
                     "Recloan", "Other", "Advance", "Less"}),
          franchiseHeaders_(setting.Connection, "FrenchiserSalaryHeader", header),
          franchiseLines_(
              setting.Connection, "FrenchiserSalaryBody",
              {"StaffID", "SalaryMonth", "ProductID", "Type", "Commision", "Qty", "Amount"}),
          workshopHeaders_(setting.Connection, "WorkShopSalaryHeader", header),
          workshopLines_(setting.Connection, "WorkShopSalaryBody",
                         {"StaffID", "SalaryMonth", "PartID", "Amount"})
    {
    }

    void Write(const StaffMember& person)
    {
        Ledger ledger(setting_, person);
        for (int month = 0; month < int(earned_.Months().size()); ++month) {
            const QDate first = earned_.Months()[std::size_t(month)];
            const Deductions deductions = ledger.Next(first);
            switch (person.Role) {
            case Post::FranchiseHolder:
                ledger.Close(writeFranchise(person, month, first, deductions));
                break;
            case Post::Mechanic:
                ledger.Close(writeWorkshop(person, month, first, deductions));
                break;
            default:
                ledger.Close(writeSalary(person, month, first, deductions));
            }
        }
    }

    void Finish()
    {
        for (TableWriter* writer :
             {&salaries_, &franchiseHeaders_, &franchiseLines_, &workshopHeaders_, &workshopLines_})
            writer->Finish();
    }

private:
    static constexpr std::initializer_list<const char*> header = {
        "StaffID", "SalaryMonth", "BasicSalary", "GPFund", "KFFund",
        "Recloan", "Other",       "Less",        "Advance"};

    // Each returns the net pay.

    int writeSalary(const StaffMember& person, int month, QDate first, const Deductions& deductions)
    {
        const int sale = earned_.SaleCommission(person.Id, month);
        const int salePrize = earned_.SalePrize(person.Id, month);
        const int order = earned_.OrderCommission(person.Id, month);
        const int orderPrize = earned_.OrderPrize(person.Id, month);
        const int supply = earned_.SupplyCommission(person.Id, month);
        const auto [recovery, recoveryPrize] = recoveryPay(person, month);
        const int other = random_.Percent(5) ? 500 * random_.Between(1, 4) : 0;
        const int less = random_.Percent(5) ? 100 * random_.Between(1, 10) : 0;
        salaries_.Row({person.Id, first, person.BasicSalary, sale, salePrize, order, orderPrize,
                       recovery, recoveryPrize, supply, person.GPFund, person.KFFund,
                       deductions.Loan, other, deductions.Advance, less});
        return person.BasicSalary + sale + salePrize + order + orderPrize + recovery +
               recoveryPrize + supply + other - less - deductions.Advance - deductions.Loan -
               person.GPFund - person.KFFund;
    }

    /// A share of the collections, higher in good months, and a prize for the best.
    std::pair<int, int> recoveryPay(const StaffMember& person, int month)
    {
        const bool manager = person.Role == Post::AreaManager;
        if (!manager && person.Role != Post::Secretary)
            return {0, 0};
        double received = 0;
        for (std::size_t area = 0; area < std::size_t(setting_.Extent.AreaCount()); ++area) {
            const Area& fact = setting_.Extent.Areas()[area];
            if (person.Id == (manager ? fact.Manager : fact.Secretary))
                received += earned_.Received(area, month);
        }
        const int percentage = random_.Between(45, 99);
        const double share = percentage < 50 ? 1 : percentage < 70 ? 2 : 3;
        const int prize = percentage < 80 ? 0 : percentage < 90 ? 3000 : 6000;
        const double part = manager ? 1 : 0.5;
        return {int(received * share / 100 * part), received > 0 ? int(prize * part) : 0};
    }

    int writeFranchise(const StaffMember& person, int month, QDate first,
                       const Deductions& deductions)
    {
        int total = 0;
        if (const PayBook::FranchiseMonth* pieces = earned_.Franchise(person.Id, month)) {
            total += writeFranchiseLines(person.Id, first, orderLine, pieces->Ordered,
                                         &Rates::OrderFranchise);
            total += writeFranchiseLines(person.Id, first, saleLine, pieces->Sold,
                                         &Rates::SaleFranchise);
        }
        franchiseHeaders_.Row({person.Id, first, person.BasicSalary, person.GPFund, person.KFFund,
                               deductions.Loan, 0, 0, deductions.Advance});
        return remaining(person, total, deductions);
    }

    int writeFranchiseLines(const QString& id, QDate first, const char* type,
                            const std::vector<int>& pieces, int Rates::*rate)
    {
        int total = 0;
        for (std::size_t product = 0; product < pieces.size(); ++product) {
            if (pieces[product] == 0)
                continue;
            const int commission = RatesOf(Products()[product]).*rate;
            const int amount = pieces[product] * commission;
            franchiseLines_.Row({id, first, utf8(Products()[product].Id), utf8(type), commission,
                                 pieces[product], amount});
            total += amount;
        }
        return total;
    }

    int writeWorkshop(const StaffMember& person, int month, QDate first,
                      const Deductions& deductions)
    {
        int total = 0;
        if (const std::map<int, int>* parts = earned_.Workshop(person.Id, month)) {
            for (const auto& [part, amount] : *parts) {
                workshopLines_.Row({person.Id, first, part, amount});
                total += amount;
            }
        }
        workshopHeaders_.Row({person.Id, first, person.BasicSalary, person.GPFund, person.KFFund,
                              deductions.Loan, 0, 0, deductions.Advance});
        return remaining(person, total, deductions);
    }

    static int remaining(const StaffMember& person, int total, const Deductions& deductions)
    {
        return person.BasicSalary + total - deductions.Advance - deductions.Loan - person.GPFund -
               person.KFFund;
    }

    const Setting& setting_;
    const PayBook& earned_;
    Random random_{6001};
    TableWriter salaries_;
    TableWriter franchiseHeaders_;
    TableWriter franchiseLines_;
    TableWriter workshopHeaders_;
    TableWriter workshopLines_;
};

/// Partnership profit: an area's monthly collections, less reductions and expenses.
void writePartnership(const Setting& setting, const PayBook& earned)
{
    Random random(6002);
    TableWriter headers(setting.Connection, "PartnershipProfitHeader",
                        {"VoucherID", "AreaCode", "Month"});
    TableWriter lines(setting.Connection, "PartnershipProfitBody",
                      {"VoucherID", "Income", "Less", "Expense"});
    int voucher = 0;
    for (int month = 0; month < int(earned.Months().size()); ++month) {
        for (std::size_t area = 0; area < std::size_t(setting.Extent.AreaCount()); ++area) {
            const double income = earned.Received(area, month);
            if (income == 0)
                continue;
            headers.Row({++voucher, setting.Extent.Areas()[area].Code,
                         earned.Months()[std::size_t(month)]});
            lines.Row({voucher, income, 0, 0});
            lines.Row({voucher, 0, int(income) * random.Between(0, 3) / 100,
                       int(income / 100) * random.Between(25, 45)});
        }
    }
    headers.Finish();
    lines.Finish();
}

} // namespace

void WritePay(const Setting& setting, const std::vector<StaffMember>& staff, const PayBook& earned)
{
    PaySheets sheets(setting, earned);
    for (const StaffMember& person : staff)
        sheets.Write(person);
    sheets.Finish();
    writePartnership(setting, earned);
}

} // namespace Sample
