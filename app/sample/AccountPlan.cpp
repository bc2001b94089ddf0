#include "AccountPlan.h"

#include "SampleRandom.h"

#include <algorithm>

namespace Host::Sample {

namespace {

/// Each week a quarter of an area's accounts is visited, so that each is visited every four
/// weeks.
constexpr int visits = 26;
constexpr int visitGroups = 4;
constexpr int months = 6;
constexpr int daysOfMonth = 30;
/// One account in ten is an old one.
constexpr int oldEvery = 10;

int areaCount()
{
    return int(Areas().size());
}

int roundUp(int amount, int step)
{
    return (amount + step - 1) / step * step;
}

/// Cards of old accounts are unique over all areas: a letter and up to four digits.
QString oldCard(int ordinal)
{
    constexpr int perLetter = 9999;
    return QChar(u'A' + ordinal / perLetter) + QString::number(ordinal % perLetter + 1);
}

std::vector<SaleLine> chooseLines(SampleRandom& random)
{
    std::vector<SaleLine> lines;
    const int draw = random.Below(100);
    const int wanted = draw < 80 ? 1 : draw < 96 ? 2 : 3;
    while (int(lines.size()) < wanted) {
        const Product& product = random.Pick(Products());
        const bool rare = random.Below(24) >= product.Demand;
        const bool twice = std::ranges::any_of(
            lines, [&product](const SaleLine& line) { return line.Item == &product; });
        if (!rare && !twice) {
            const int quantity = product.Numbered || random.Percent(85) ? 1 : 2;
            lines.push_back({&product, quantity, InstallmentRate(product)});
        }
    }
    return lines;
}

/// What is paid at one visit: mostly the instalment, at times half, double or nothing.
int payment(SampleRandom& random, int installment)
{
    const int draw = random.Below(100);
    if (draw < 12) {
        return 0;
    }
    if (draw < 20) {
        return roundUp(installment / 2, 50);
    }
    return draw < 25 ? 2 * installment : installment;
}

/// A slot of the area in one of the months whose voucher is later than the day, if any is.
std::optional<int> slotAfter(int day, std::size_t area, SampleRandom& random, int (*dayOf)(int))
{
    std::vector<int> later;
    for (int month = 0; month < months; ++month) {
        const int slot = month * areaCount() + int(area);
        if (dayOf(slot) > day) {
            later.push_back(slot);
        }
    }
    if (later.empty()) {
        return std::nullopt;
    }
    return random.Pick(later);
}

} // namespace

int VoucherBook::Number()
{
    int last = 0;
    for (int& id : ids_) {
        if (id != 0) {
            id = ++last;
        }
    }
    return last;
}

AccountPlanner::AccountPlanner(int count)
{
    const int perArea = std::max(1, (count + areaCount() - 1) / areaCount());
    newCards_ = perArea - perArea / oldEvery;
    const int perVisit = (perArea + visitGroups - 1) / visitGroups;
    blocks_ = (perVisit + ReceiptsPerVoucher - 1) / ReceiptsPerVoucher;
}

AccountPlan AccountPlanner::Plan(int account) const
{
    SampleRandom random(3'000'000'000U + std::uint64_t(account));
    const int rank = account / areaCount();
    AccountPlan plan;
    plan.Area = std::size_t(account % areaCount());
    plan.Old = rank % oldEvery == oldEvery - 1;
    if (plan.Old) {
        plan.CardNo = oldCard(rank / oldEvery * areaCount() + int(plan.Area));
        plan.SaleDay = -random.Between(30, 360);
    } else {
        const int card = rank - rank / oldEvery;
        plan.CardNo = QString::number(card + 1);
        plan.SaleDay = int(std::int64_t(card) * Days / newCards_);
    }

    plan.Lines = chooseLines(random);
    for (const SaleLine& line : plan.Lines) {
        plan.Total += line.Quantity * line.Price;
    }
    plan.Installment = roundUp(plan.Total / 12, 100);
    if (plan.Old) {
        const int paid = -plan.SaleDay / daysOfMonth * plan.Installment;
        plan.PaidBefore = std::min(paid, plan.Total * 4 / 5);
    }

    int owing = plan.Total - plan.PaidBefore;
    int lastDay = Days;
    if (rank % 25 == 7) {
        if (const auto slot = slotAfter(plan.SaleDay, plan.Area, random, ConcessionDay)) {
            plan.Concession = {*slot, roundUp(plan.Total / 20, 100)};
            owing -= plan.Concession->Amount;
        }
    } else if (rank % 30 == 13) {
        if (const auto slot = slotAfter(plan.SaleDay + 40, plan.Area, random, ReturnDay)) {
            plan.Return = {*slot, 0, 0};
            lastDay = ReturnDay(*slot);
        }
    }

    const int turn = rank / visitGroups;
    const int block = turn / ReceiptsPerVoucher;
    const int position = turn % ReceiptsPerVoucher;
    for (int visit = rank % visitGroups; visit < visits; visit += visitGroups) {
        const int slot = (visit * areaCount() + int(plan.Area)) * blocks_ + block;
        const int day = RecoveryDay(slot);
        if (day < plan.SaleDay + 20 || day >= lastDay) {
            continue;
        }
        const int amount = std::min(owing, payment(random, plan.Installment));
        if (amount > 0) {
            plan.Receipts.push_back({slot, position, amount});
            owing -= amount;
        }
    }
    if (plan.Return) {
        // What is still owed is waived for the goods; what was paid stays paid.
        plan.Return->Amount = owing;
        plan.Return->Recovered = plan.Total - owing;
    }
    return plan;
}

int AccountPlanner::RecoverySlots() const
{
    return visits * areaCount() * blocks_;
}

std::size_t AccountPlanner::RecoveryArea(int slot) const
{
    return std::size_t(slot / blocks_ % areaCount());
}

int AccountPlanner::RecoveryDay(int slot) const
{
    const int visit = slot / blocks_ / areaCount();
    return 7 * visit + int(RecoveryArea(slot)) / 2;
}

int AccountPlanner::MonthlySlots()
{
    return months * areaCount();
}

std::size_t AccountPlanner::MonthlyArea(int slot)
{
    return std::size_t(slot % areaCount());
}

int AccountPlanner::ConcessionDay(int slot)
{
    return slot / areaCount() * daysOfMonth + 24 + slot % areaCount() / 4;
}

int AccountPlanner::ReturnDay(int slot)
{
    return slot / areaCount() * daysOfMonth + 27 + slot % areaCount() / 4;
}

} // namespace Host::Sample
