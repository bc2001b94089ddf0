#include "sample/PayBook.h"

#include "sample/Parts.h"

#include <algorithm>

namespace Sample {

namespace {

std::size_t indexOf(const Product& product)
{
    return std::size_t(&product - Products().data());
}

std::size_t groupOf(const Product& product)
{
    return std::size_t(product.Group - 1);
}

/// The bands that a month's pieces of each group fall into, each paid once.
template <class Pieces> int prize(const Pieces& pieces, int PrizeBand::*amount)
{
    int sum = 0;
    for (std::size_t group = 0; group < pieces.size(); ++group) {
        for (const PrizeBand& band : PrizeBands(ProductGroups()[group]))
            if (pieces[group] >= band.Less && pieces[group] <= band.More)
                sum += band.*amount;
    }
    return sum;
}

} // namespace

PayBook::PayBook(const Setting& setting)
    : monthOfDay_(std::size_t(setting.Extent.Days()), -1),
      received_(std::size_t(setting.Extent.AreaCount()))
{
    const QDate first = setting.Day(0);
    QDate month(first.year(), first.month(), 1);
    if (month < first)
        month = month.addMonths(1);
    for (; month.addMonths(1) <= setting.LastDay.addDays(1); month = month.addMonths(1)) {
        const auto from = std::size_t(first.daysTo(month));
        std::fill_n(monthOfDay_.begin() + qsizetype(from), month.daysInMonth(),
                    int(months_.size()));
        months_.push_back(month);
    }
    for (const Product& product : Products())
        rates_.push_back(RatesOf(product));
    for (std::vector<double>& area : received_)
        area.resize(months_.size());
}

int PayBook::monthOf(int day) const
{
    return day < 0 ? -1 : monthOfDay_[std::size_t(day)];
}

PayBook::Earned& PayBook::earned(const QString& staff, int month)
{
    std::vector<Earned>& months = people_[staff];
    months.resize(months_.size());
    return months[std::size_t(month)];
}

const PayBook::Earned& PayBook::earned(const QString& staff, int month) const
{
    static const Earned nothing;
    const auto person = people_.constFind(staff);
    return person == people_.cend() ? nothing : (*person)[std::size_t(month)];
}

void PayBook::AddSale(const EarningSale& sale, const Product& product, int quantity)
{
    const int month = monthOf(sale.Day);
    if (month < 0)
        return;
    sale.IsOrder ? addOrder(sale, month, product, quantity)
                 : addSold(sale, month, product, quantity);
    if (!sale.Franchise.isEmpty()) {
        FranchiseMonth& pieces = franchises_[{sale.Franchise, month}];
        std::vector<int>& list = sale.IsOrder ? pieces.Ordered : pieces.Sold;
        list.resize(Products().size());
        list[indexOf(product)] += quantity;
    }
}

void PayBook::addSold(const EarningSale& sale, int month, const Product& product, int quantity)
{
    const Rates& rates = rates_[indexOf(product)];
    QStringList counted; // the pieces of an account count once for each person's prize
    const auto pay = [&](const QString& staff, int rate) {
        if (staff.isEmpty())
            return;
        Earned& person = earned(staff, month);
        person.SaleCommission += rate * quantity;
        if (!counted.contains(staff)) {
            counted.append(staff);
            person.Sold[groupOf(product)] += quantity;
        }
    };
    pay(sale.Driver, rates.SaleDriver);
    pay(sale.Manager, rates.SaleManager);
    pay(sale.Secretary, rates.SaleSecretary);
}

void PayBook::addOrder(const EarningSale& sale, int month, const Product& product, int quantity)
{
    const Rates& rates = rates_[indexOf(product)];
    const auto pay = [&](const QString& staff, int rate, ByGroup Earned::*ordered) {
        if (staff.isEmpty())
            return;
        Earned& person = earned(staff, month);
        person.OrderCommission += rate * quantity;
        if (ordered)
            (person.*ordered)[groupOf(product)] += quantity;
    };
    const int delivery = (sale.SmallVehicle ? rates.OrderDriverSmall : 0) +
                         (sale.LargeVehicle ? rates.OrderDriverLarge : 0);
    pay(sale.Driver, delivery, &Earned::DriverOrdered);
    pay(sale.Manager, rates.OrderManager, &Earned::ManagerOrdered);
    pay(sale.Secretary, rates.OrderSecretary, &Earned::SecretaryOrdered);
    pay(sale.CheckingManager, rates.OrderCheckingManager, nullptr);
}

void PayBook::AddSupply(int day, const QString& driver, int pieces)
{
    if (const int month = monthOf(day); month >= 0)
        earned(driver, month).SuppliedPieces += pieces;
}

void PayBook::AddReceipt(int day, std::size_t area, int amount)
{
    if (const int month = monthOf(day); month >= 0)
        received_[area][std::size_t(month)] += amount;
}

void PayBook::AddPart(int day, const QString& mechanic, int part, int amount)
{
    if (const int month = monthOf(day); month >= 0)
        workshop_[{mechanic, month}][part] += amount;
}

int PayBook::SaleCommission(const QString& staff, int month) const
{
    return earned(staff, month).SaleCommission;
}

int PayBook::SalePrize(const QString& staff, int month) const
{
    return prize(earned(staff, month).Sold, &PrizeBand::Sale);
}

int PayBook::OrderCommission(const QString& staff, int month) const
{
    return earned(staff, month).OrderCommission;
}

int PayBook::OrderPrize(const QString& staff, int month) const
{
    const Earned& person = earned(staff, month);
    return prize(person.DriverOrdered, &PrizeBand::OrderDriver) +
           prize(person.ManagerOrdered, &PrizeBand::OrderManager) +
           prize(person.SecretaryOrdered, &PrizeBand::OrderSecretary);
}

int PayBook::SupplyCommission(const QString& staff, int month) const
{
    return earned(staff, month).SuppliedPieces * SupplyRate;
}

double PayBook::Received(std::size_t area, int month) const
{
    return received_[area][std::size_t(month)];
}

const PayBook::FranchiseMonth* PayBook::Franchise(const QString& staff, int month) const
{
    const auto found = franchises_.find({staff, month});
    return found == franchises_.end() ? nullptr : &found->second;
}

const std::map<int, int>* PayBook::Workshop(const QString& staff, int month) const
{
    const auto found = workshop_.find({staff, month});
    return found == workshop_.end() ? nullptr : &found->second;
}

} // namespace Sample
