#include "sample/Facts.h"
#include "sample/Names.h"
#include "sample/Parts.h"
#include "sample/PayBook.h"
#include "sample/Random.h"
#include "sample/TableWriter.h"
#include "sample/Utf8.h"

#include <TradeForms/Connection.h>

#include <algorithm>
#include <tuple>

namespace Sample {

namespace {

constexpr const char* sectorNames[Sectors] = {
    "شہر",      "غلہ منڈی", "ریلوے سٹیشن", "بائی پاس", "چک جنوبی",
    "چک شمالی", "نہر پار",  "صنعتی علاقہ", "کالونی",   "مضافات",
};

struct PartFact {
    const char* Name;
    int Rate;
};

constexpr PartFact partFacts[Parts] = {
    {"پلگ", 250},        {"چین سیٹ", 2200},    {"بریک شو", 450},     {"کلچ پلیٹ", 950},
    {"ٹائر اگلا", 3200}, {"ٹائر پچھلا", 3600}, {"ٹیوب", 700},        {"ہیڈ لائٹ", 1400},
    {"بیٹری", 2600},     {"انجن آئل", 1100},   {"ایئر فلٹر", 380},   {"کاربوریٹر", 2900},
    {"پسٹن سیٹ", 2400},  {"سائلنسر", 3800},    {"سپیڈو میٹر", 1300}, {"سیٹ کور", 900},
    {"شاک", 2700},       {"کمپریسر", 12500},   {"تھرموسٹیٹ", 1600},  {"موٹر وائنڈنگ", 1900},
};

constexpr const char* supplierNames[Suppliers] = {
    "نیشنل موٹرز",         "پنجاب الیکٹرونکس", "کریسنٹ ہوم اپلائنسز",
    "شالیمار فین انڈسٹری", "راوی ٹریڈنگ",      "ستلج سولر",
};

constexpr const char* partyNames[] = {
    "حاجی محمد شریف اینڈ سنز", "چوہدری برادرز", "میاں الیکٹرک سٹور", "ملک آٹوز", "رحمت ٹریڈرز",
    "بسم اللہ الیکٹرونکس",     "المکہ موٹرز",   "نیو قصور فرنیچر",
};

void writeBranchesAndAreas(const Setting& setting)
{
    TableWriter branches(setting.Connection, "Branches", {"BranchCode", "BranchName"});
    for (const Branch& branch : Branches())
        branches.Row({branch.Code, utf8(branch.Name)});
    branches.Finish();

    TableWriter areas(setting.Connection, "Areas",
                      {"AreaCode", "AreaName", "AMStaffID", "SAMStaffID", "BranchCode"});
    for (const Area& area : setting.Extent.Areas())
        areas.Row({area.Code, area.Name, area.Manager, area.Secretary, area.BranchCode});
    areas.Finish();

    TableWriter sectors(setting.Connection, "Sectors", {"SectorID", "SectorName"});
    for (int i = 0; i < Sectors; ++i)
        sectors.Row({i + 1, utf8(sectorNames[i])});
    sectors.Finish();
}

/// The manager, secretary and collector of an area work in its branch.
int homeBranch(const Setting& setting, const QString& staffId, int turn)
{
    for (const Area& area : setting.Extent.Areas())
        if (staffId == area.Manager || staffId == area.Secretary || staffId == area.Collector)
            return area.BranchCode;
    return Branches()[std::size_t(turn) % Branches().size()].Code;
}

/// The staff of the areas beyond those of the smallest company.
std::vector<StaffGroup> furtherStaff(const Extent& extent)
{
    const int areas = extent.FurtherAreas();
    const std::pair<int, int> firstIds[] = {
        {FurtherDrivers, areas},
        {FurtherCollectors, areas},
        {FurtherManagers, areas},
        {FurtherSecretaries, areas},
        {FurtherFranchises, extent.FurtherFranchiseHolders()},
        {FurtherMechanicIds, extent.FurtherMechanics()},
    };
    constexpr Post posts[] = {Post::Driver,    Post::Collector,       Post::AreaManager,
                              Post::Secretary, Post::FranchiseHolder, Post::Mechanic};
    std::vector<StaffGroup> further;
    for (std::size_t i = 0; i < std::size(posts); ++i) {
        StaffGroup group = *std::ranges::find(StaffGroups(), posts[i], &StaffGroup::Role);
        std::tie(group.FirstId, group.Count) = firstIds[i];
        further.push_back(group);
    }
    return further;
}

StaffMember hire(const StaffGroup& group, int turn, Random& random)
{
    const bool franchise = group.Role == Post::FranchiseHolder;
    const bool hasLoan = !franchise && random.Percent(20);
    const int salary = group.BasicSalary == 0 ? 0 : group.BasicSalary + 500 * random.Below(9);
    return {QString::number(group.FirstId + turn),
            group.Role,
            salary,
            salary / 50,
            franchise ? 0 : 200,
            hasLoan ? 2000 : 0,
            {},
            {}};
}

/// Draws the person's loans and cheques for each half year.
void lend(StaffMember& person, int days, Random& random)
{
    constexpr int halfYear = 181;
    for (int day = 0; day + halfYear <= days; day += halfYear) {
        if (person.MonthlyRecovery > 0) {
            const int lent = day + random.Between(0, 90);
            person.Loans.push_back({lent, 5000 * random.Between(2, 8)});
        }
        if (random.Percent(12)) {
            const int drawn = day + random.Between(60, 170);
            person.Cheques.push_back({drawn, 1000 * random.Between(3, 15)});
        }
    }
}

std::vector<StaffMember> writeStaff(const Setting& setting)
{
    Random random(1001);
    TableWriter staff(setting.Connection, "Staff",
                      {"StaffID", "Name", "FName", "Address", "Designation", "BranchCode",
                       "FieldWorker", "Frenchiser", "Machenic", "BasicSalary", "Advance", "GPFund",
                       "KFFund"});
    TableWriter loans(setting.Connection, "StaffAdvance", {"StaffID", "AdvanceDate", "Amount"});
    TableWriter cheques(setting.Connection, "cheque", {"ChequeDate", "staffid", "amount"});
    std::vector<StaffMember> people;
    const auto addGroup = [&](const StaffGroup& group) {
        for (int i = 0; i < group.Count; ++i) {
            StaffMember person = hire(group, i, random);
            staff.Row({person.Id, GivenName(random), GivenName(random), HomeAddress(random),
                       utf8(group.Designation), homeBranch(setting, person.Id, i),
                       group.FieldWorker, group.Role == Post::FranchiseHolder,
                       group.Role == Post::Mechanic, person.BasicSalary, person.MonthlyRecovery,
                       person.GPFund, person.KFFund});
            lend(person, setting.Extent.Days(), random);
            for (const DatedAmount& loan : person.Loans)
                loans.Row({person.Id, setting.Day(loan.Day), loan.Amount});
            for (const DatedAmount& cheque : person.Cheques)
                cheques.Row({setting.Day(cheque.Day), person.Id, cheque.Amount});
            people.push_back(person);
        }
    };
    std::ranges::for_each(StaffGroups(), addGroup);
    std::ranges::for_each(furtherStaff(setting.Extent), addGroup);
    staff.Finish();
    loans.Finish();
    cheques.Finish();
    return people;
}

void writeProducts(const Setting& setting)
{
    TableWriter products(
        setting.Connection, "Products",
        {"ProductID", "ProductName", "PurchaseRate", "InstallmentRate", "GroupID"});
    for (const Product& product : Products()) {
        products.Row({utf8(product.Id), utf8(product.Name), product.PurchaseRate,
                      InstallmentRate(product), product.Group});
    }
    products.Finish();

    TableWriter parts(setting.Connection, "Parts", {"PartID", "PartName", "PartRate"});
    for (int i = 0; i < Parts; ++i)
        parts.Row({i + 1, utf8(partFacts[i].Name), partFacts[i].Rate});
    parts.Finish();
}

void writeAccountsAndParties(const Setting& setting)
{
    TableWriter accounts(setting.Connection, "Accounts", {"AccountNo", "AccountName"});
    accounts.Row({utf8(OpeningAccount), utf8("ابتدائی سٹاک")});
    accounts.Row({QStringLiteral("1002"), utf8("برانچ منتقلی")});
    for (int i = 0; i < Suppliers; ++i)
        accounts.Row({QString::number(FirstSupplier + i), utf8(supplierNames[i])});
    accounts.Finish();

    TableWriter parties(setting.Connection, "Parties", {"PartyCode", "PartyName"});
    int code = 501;
    for (const char* name : partyNames)
        parties.Row({QString::number(code++), utf8(name)});
    parties.Finish();
}

void writeCommissions(const Setting& setting)
{
    TableWriter sale(setting.Connection, "SaleCommission",
                     {"ProductID", "Driver", "AreaManager", "SAreaManager", "Frenchiser"});
    TableWriter order(setting.Connection, "OrderCommission",
                      {"ProductID", "DriverSmall", "DriverLarge", "AreaManager", "SAreaManager",
                       "CheckingManager", "Frenchiser"});
    for (const Product& product : Products()) {
        const QString id = utf8(product.Id);
        const Rates rates = RatesOf(product);
        sale.Row(
            {id, rates.SaleDriver, rates.SaleManager, rates.SaleSecretary, rates.SaleFranchise});
        order.Row({id, rates.OrderDriverSmall, rates.OrderDriverLarge, rates.OrderManager,
                   rates.OrderSecretary, rates.OrderCheckingManager, rates.OrderFranchise});
    }
    sale.Finish();
    order.Finish();
}

void writePrizes(const Setting& setting)
{
    TableWriter sale(setting.Connection, "SalePrize", {"GroupID", "Less", "More", "Driver"});
    TableWriter order(setting.Connection, "OrderPrize",
                      {"GroupID", "Less", "More", "Driver", "AreaManager", "SAreaManager"});
    for (const ProductGroup& group : ProductGroups()) {
        for (const PrizeBand& band : PrizeBands(group)) {
            sale.Row({group.Id, band.Less, band.More, band.Sale});
            order.Row({group.Id, band.Less, band.More, band.OrderDriver, band.OrderManager,
                       band.OrderSecretary});
        }
    }
    sale.Finish();
    order.Finish();

    TableWriter perItem(setting.Connection, "RecoveryCommissionHeader", {"PerItem"});
    perItem.Row({SupplyRate});
    perItem.Finish();

    const std::initializer_list<const char*> bands = {"Less", "More", "AreaManager",
                                                      "SAreaManager"};
    TableWriter commissionBands(setting.Connection, "RecoveryCommission", bands);
    commissionBands.Row({0, 49.99, 1, 0.5});
    commissionBands.Row({50, 69.99, 2, 1});
    commissionBands.Row({70, 300, 3, 1.5});
    commissionBands.Finish();
    TableWriter prizeBands(setting.Connection, "RecoveryPrize", bands);
    prizeBands.Row({80, 89.99, 3000, 1500});
    prizeBands.Row({90, 300, 6000, 3000});
    prizeBands.Finish();
}

} // namespace

std::vector<StaffMember> WriteMasters(const Setting& setting)
{
    writeBranchesAndAreas(setting);
    std::vector<StaffMember> staff = writeStaff(setting);
    writeProducts(setting);
    writeAccountsAndParties(setting);
    writeCommissions(setting);
    writePrizes(setting);
    return staff;
}

void WriteWorkshop(const Setting& setting, PayBook& earned)
{
    Random random(1002);
    TableWriter headers(setting.Connection, "WorkShopPartsHeader",
                        {"VoucherID", "VoucherDate", "StaffID", "TotalAmount"});
    TableWriter bodies(setting.Connection, "WorkShopPartsBody",
                       {"VoucherID", "PartID", "Rate", "Qty", "Amount"});
    const int all = Mechanics + setting.Extent.FurtherMechanics();
    const int vouchersOfADay = all / Mechanics;
    const int vouchers = (setting.Extent.Days() - 3 + 5) / 6 * vouchersOfADay;
    for (int voucher = 1; voucher <= vouchers; ++voucher) {
        const int day = 3 + (voucher - 1) / vouchersOfADay * 6;
        const int turn = (voucher - 1) % all;
        const QString mechanic = QString::number(
            turn < Mechanics ? FirstMechanic + turn : FurtherMechanicIds + turn - Mechanics);
        const int lines = random.Between(1, 5);
        int total = 0;
        for (int line = 0; line < lines; ++line) {
            // Five steps of seven through twenty parts are all different.
            const int part = (voucher * 3 + line * 7) % Parts;
            const int quantity = random.Between(1, 3);
            const int amount = partFacts[part].Rate * quantity;
            bodies.Row({voucher, part + 1, partFacts[part].Rate, quantity, amount});
            earned.AddPart(day, mechanic, part + 1, amount);
            total += amount;
        }
        headers.Row({voucher, setting.Day(day), mechanic, total});
    }
    headers.Finish();
    bodies.Finish();
}

} // namespace Sample
