#include "sample/AccountPlan.h"

#include "sample/Random.h"

#include <algorithm>

namespace Sample {

namespace {

/// Each week a quarter of an area's accounts is visited, so that each is visited every four
/// weeks.
constexpr int visitGroups = 4;
constexpr int workdays = 6;
constexpr int sunday = 6;
constexpr int daysOfMonth = 30;
/// One account in ten is an old one.
constexpr int oldEvery = 10;

int roundUp(int amount, int step)
{
    return (amount + step - 1) / step * step;
}

/// Cards that are typed by hand are unique over all areas: a letter and up to four digits.
QString typedCard(char16_t firstLetter, int ordinal)
{
    constexpr int perLetter = 9999;
    return QChar(char16_t(firstLetter + ordinal / perLetter)) +
           QString::number(ordinal % perLetter + 1);
}

// The first and the step of the accounts that were converted.
constexpr int firstConverted = 31;
constexpr int convertedEvery = 49;

bool isOld(int rank)
{
    return rank % oldEvery == oldEvery - 1;
}

std::vector<SaleLine> chooseLines(Random& random)
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

/// The payment at one visit: mostly the instalment, sometimes half, double or nothing.
int payment(Random& random, int installment)
{
    const int draw = random.Below(100);
    if (draw < 12)
        return 0;
    if (draw < 20)
        return roundUp(installment / 2, 50);
    return draw < 25 ? 2 * installment : installment;
}

} // namespace

int VoucherBook::Number()
{
    int last = 0;
    for (int& id : ids_)
        if (id != 0)
            id = ++last;
    return last;
}

AccountPlanner::AccountPlanner(const Extent& extent) : extent_(extent)
{
    // All vouchers of a small company have the same number of accounts.
    constexpr int turns[] = {250, 125, 420, 625};
    constexpr int smallTurns = 60;
    constexpr int townTurns = 250; // of each of the two quarters collected on a Sunday

    const int areas = extent_.AreaCount();
    for (int area = 0; area < areas; ++area) {
        const int accounts = accountsSoldIn(std::size_t(area));
        const bool town = isTown(std::size_t(area));
        Round round{};
        round.NewCards = accounts - accounts / oldEvery;
        round.Weekday = town ? sunday : area * workdays / areas;
        round.Turns = town ? townTurns : extent_.IsLarge() ? turns[area % 4] : smallTurns;
        const int perVisit = (accounts + visitGroups - 1) / visitGroups;
        round.Blocks = (perVisit + round.Turns - 1) / round.Turns;
        rounds_.push_back(round);
    }
    // The slots of a week stand in the order of its days: the town's come last.
    const int first = extent_.IsLarge() ? 1 : 0;
    for (int turn = 0; turn < areas; ++turn) {
        const auto area = std::size_t((first + turn) % areas);
        rounds_[area].Offset = int(slotAreas_.size());
        slotAreas_.insert(slotAreas_.end(), std::size_t(rounds_[area].Blocks), area);
    }
}

int AccountPlanner::accountsSoldIn(std::size_t area) const
{
    if (isTown(area))
        return extent_.Town();
    const int areas = extent_.AreaCount() - (extent_.IsLarge() ? 1 : 0);
    return std::max(1, (extent_.Sold() - extent_.Town() + areas - 1) / areas);
}

/// Accounts were sold in all areas in parallel, in the order of their numbers.
Place AccountPlanner::placeOf(int account) const
{
    if (!extent_.IsLarge()) {
        const int areas = extent_.AreaCount();
        return {std::size_t(account % areas), account / areas};
    }
    const auto townBefore = [this](int number) {
        return int(std::int64_t(number) * extent_.Town() / extent_.Sold());
    };
    const int town = townBefore(account);
    if (townBefore(account + 1) > town)
        return {0, town};
    const int others = extent_.AreaCount() - 1;
    return {std::size_t(1 + (account - town) % others), (account - town) / others};
}

std::optional<int> AccountPlanner::conversionOf(int account) const
{
    const int turn = (account - firstConverted) / convertedEvery;
    if (account < firstConverted || (account - firstConverted) % convertedEvery != 0 ||
        turn >= extent_.Converted())
        return std::nullopt;
    return extent_.Sold() + turn;
}

int AccountPlanner::ConvertedFrom(int account) const
{
    return firstConverted + (account - extent_.Sold()) * convertedEvery;
}

/// An account moves to the area after its own.
std::size_t AccountPlanner::AreaOf(int account) const
{
    if (account < extent_.Sold())
        return placeOf(account).Area;
    return (placeOf(ConvertedFrom(account)).Area + 1) % std::size_t(extent_.AreaCount());
}

QString AccountPlanner::CardOf(int account) const
{
    if (account >= extent_.Sold())
        return typedCard(u'N', account - extent_.Sold());
    const Place place = placeOf(account);
    if (isOld(place.Rank))
        return typedCard(u'A', place.Rank / oldEvery * extent_.AreaCount() + int(place.Area));
    return QString::number(place.Rank - place.Rank / oldEvery + 1);
}

QString AccountPlanner::IdOf(int account) const
{
    return extent_.Areas()[AreaOf(account)].Code + QLatin1Char(' ') + CardOf(account);
}

AccountPlan AccountPlanner::Plan(int account) const
{
    Random random(3'000'000'000U + std::uint64_t(account));
    const auto [area, rank] = placeOf(account);
    AccountPlan plan;
    plan.Area = area;
    plan.Old = isOld(rank);
    plan.CardNo = CardOf(account);
    if (plan.Old) {
        plan.SaleDay = -random.Between(30, 360);
    } else {
        const int card = rank - rank / oldEvery;
        plan.SaleDay = int(std::int64_t(card) * extent_.Days() / rounds_[area].NewCards);
    }

    plan.Lines = chooseLines(random);
    for (const SaleLine& line : plan.Lines)
        plan.Total += line.Quantity * line.Price;
    plan.Installment = roundUp(plan.Total / extent_.Instalments(), 100);
    if (plan.Old) {
        const int paid = -plan.SaleDay / daysOfMonth * plan.Installment;
        plan.PaidBefore = std::min(paid, plan.Total * 4 / 5);
    }

    int owing = plan.Total - plan.PaidBefore;
    int lastDay = extent_.Days();
    if (const auto converted = conversionOf(account)) {
        const int soon = std::max(0, plan.SaleDay) + random.Between(40, 160);
        plan.Conversion = {*converted, std::min(soon, extent_.Days() - 1)};
    } else if (rank % 25 == 7) {
        if (const auto slot = slotAfter(plan.SaleDay, area, 24, random)) {
            plan.Concession = {*slot, roundUp(plan.Total / 20, 100)};
            owing -= plan.Concession->Amount;
        }
    } else if (rank % 30 == 13) {
        if (const auto slot = slotAfter(plan.SaleDay + 40, area, 27, random)) {
            plan.Return = {*slot, 0, 0};
            lastDay = ReturnDay(*slot);
        }
    }
    planReceipts(plan, rank, owing, lastDay, random);
    return plan;
}

void AccountPlanner::planReceipts(AccountPlan& plan, int rank, int owing, int lastDay,
                                  Random& random) const
{
    for (int week = rank % visitGroups; week < extent_.Weeks(); week += visitGroups) {
        const int visit = recoverySlot(plan.Area, rank, week);
        const bool isOnNewAccount = plan.Conversion && RecoveryDay(visit) > plan.Conversion->Day;
        const int slot =
            isOnNewAccount ? recoverySlot(AreaOf(plan.Conversion->Account), rank, week) : visit;
        const int day = RecoveryDay(slot);
        if (day < plan.SaleDay + 20 || day >= lastDay ||
            (isOnNewAccount && day <= plan.Conversion->Day))
            continue;
        // An account that is paid off is not converted.
        const bool keepsOwing = plan.Conversion && !isOnNewAccount;
        const int mostly = keepsOwing ? owing - plan.Installment : owing;
        const int amount = std::min(mostly, payment(random, plan.Installment));
        if (amount <= 0)
            continue;
        plan.Receipts.push_back({slot, amount, isOnNewAccount});
        owing -= amount;
        if (keepsOwing) {
            plan.Conversion->LastReceipt = day;
            plan.Conversion->Paid += amount;
        }
    }
    if (plan.Conversion)
        plan.Conversion->Paid += plan.PaidBefore;
    if (plan.Return && owing > 0) {
        // What is still owed is waived for the goods; what was paid stays paid.
        plan.Return->Amount = owing;
        plan.Return->Recovered = plan.Total - owing;
    } else {
        plan.Return.reset(); // a paid-off account returns nothing
    }
}

/// The voucher on which an account is collected. In the town two weeks' quarters pay on one day.
int AccountPlanner::recoverySlot(std::size_t area, int rank, int week) const
{
    const Round& round = rounds_[area];
    const int block = rank / visitGroups / round.Turns % round.Blocks;
    const int visit = isTown(area) ? week | 1 : week;
    return visit * int(slotAreas_.size()) + round.Offset + block;
}

int AccountPlanner::RecoverySlots() const
{
    return extent_.Weeks() * int(slotAreas_.size());
}

std::size_t AccountPlanner::RecoveryArea(int slot) const
{
    return slotAreas_[std::size_t(slot) % slotAreas_.size()];
}

int AccountPlanner::RecoveryDay(int slot) const
{
    return 7 * (slot / int(slotAreas_.size())) + rounds_[RecoveryArea(slot)].Weekday;
}

int AccountPlanner::MonthlySlots() const
{
    return extent_.Months() * extent_.AreaCount();
}

std::size_t AccountPlanner::MonthlyArea(int slot) const
{
    return std::size_t(slot % extent_.AreaCount());
}

int AccountPlanner::monthlyDay(int slot, int dayOfMonth) const
{
    const int areas = extent_.AreaCount();
    return slot / areas * daysOfMonth + dayOfMonth + slot % areas * 3 / areas;
}

/// A slot of the area in one of the months after the day, if any is left.
std::optional<int> AccountPlanner::slotAfter(int day, std::size_t area, int dayOfMonth,
                                             Random& random) const
{
    constexpr int choice = 8;
    int first = 0;
    const auto slotOf = [&](int month) { return month * extent_.AreaCount() + int(area); };
    while (first < extent_.Months() && monthlyDay(slotOf(first), dayOfMonth) <= day)
        ++first;
    const int left = std::min(choice, extent_.Months() - first);
    if (left == 0)
        return std::nullopt;
    return slotOf(first + random.Below(left));
}

} // namespace Sample
