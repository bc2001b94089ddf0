#include "SampleFacts.h"
#include "SampleNames.h"
#include "SampleParts.h"
#include "TableWriter.h"

#include <TradeForms/Connection.h>

namespace Host::Sample {

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

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

void writeBranchesAndAreas(const Setting& setting)
{
    TableWriter branches(setting.Connection, "Branches", {"BranchCode", "BranchName"});
    for (const Branch& branch : Branches()) {
        branches.Row({branch.Code, utf8(branch.Name)});
    }
    branches.Finish();

    TableWriter areas(setting.Connection, "Areas",
                      {"AreaCode", "AreaName", "AMStaffID", "SAMStaffID", "BranchCode"});
    for (const Area& area : Areas()) {
        areas.Row({utf8(area.Code), utf8(area.Name), utf8(area.Manager), utf8(area.Secretary),
                   area.BranchCode});
    }
    areas.Finish();

    TableWriter sectors(setting.Connection, "Sectors", {"SectorID", "SectorName"});
    for (int i = 0; i < Sectors; ++i) {
        sectors.Row({i + 1, utf8(sectorNames[i])});
    }
    sectors.Finish();
}

/// The manager, secretary and collector of an area work in its branch.
int homeBranch(const QString& staffId, int turn)
{
    for (const Area& area : Areas()) {
        for (const char* id : {area.Manager, area.Secretary, area.Collector}) {
            if (staffId == QLatin1String(id)) {
                return area.BranchCode;
            }
        }
    }
    return Branches()[std::size_t(turn) % Branches().size()].Code;
}

void writeStaff(const Setting& setting)
{
    SampleRandom random(1001);
    TableWriter staff(setting.Connection, "Staff",
                      {"StaffID", "Name", "FName", "Address", "Designation", "BranchCode",
                       "FieldWorker", "Frenchiser", "Machenic", "BasicSalary", "Advance", "GPFund",
                       "KFFund"});
    TableWriter loans(setting.Connection, "StaffAdvance", {"StaffID", "AdvanceDate", "Amount"});
    TableWriter cheques(setting.Connection, "cheque", {"ChequeDate", "staffid", "amount"});
    for (const StaffGroup& group : StaffGroups()) {
        for (int i = 0; i < group.Count; ++i) {
            const QString id = QString::number(group.FirstId + i);
            const bool franchise = group.Role == Post::FranchiseHolder;
            const bool hasLoan = !franchise && random.Percent(20);
            const int salary =
                group.BasicSalary == 0 ? 0 : group.BasicSalary + 500 * random.Below(9);
            staff.Row({id, GivenName(random), GivenName(random), HomeAddress(random),
                       utf8(group.Designation), homeBranch(id, i), group.FieldWorker, franchise,
                       group.Role == Post::Mechanic, salary, hasLoan ? 2000 : 0, salary / 50,
                       franchise ? 0 : 200});
            if (hasLoan) {
                loans.Row({id, setting.Day(random.Between(0, 90)), 5000 * random.Between(2, 8)});
            }
            if (random.Percent(12)) {
                cheques.Row(
                    {setting.Day(random.Between(60, 170)), id, 1000 * random.Between(3, 15)});
            }
        }
    }
    staff.Finish();
    loans.Finish();
    cheques.Finish();
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
    for (int i = 0; i < Parts; ++i) {
        parts.Row({i + 1, utf8(partFacts[i].Name), partFacts[i].Rate});
    }
    parts.Finish();
}

void writeAccountsAndParties(const Setting& setting)
{
    TableWriter accounts(setting.Connection, "Accounts", {"AccountNo", "AccountName"});
    accounts.Row({utf8(OpeningAccount), utf8("ابتدائی سٹاک")});
    accounts.Row({QStringLiteral("1002"), utf8("برانچ منتقلی")});
    for (int i = 0; i < Suppliers; ++i) {
        accounts.Row({QString::number(FirstSupplier + i), utf8(supplierNames[i])});
    }
    accounts.Finish();

    TableWriter parties(setting.Connection, "Parties", {"PartyCode", "PartyName"});
    int code = 501;
    for (const char* name : partyNames) {
        parties.Row({QString::number(code++), utf8(name)});
    }
    parties.Finish();
}

int commission(const Product& product, int percentOfRate)
{
    const ProductGroup& group = ProductGroups()[std::size_t(product.Group - 1)];
    const int full = InstallmentRate(product) * group.CommissionPerMille / 1000;
    return (full * percentOfRate / 100 + 9) / 10 * 10;
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
        sale.Row({id, commission(product, 40), commission(product, 100), commission(product, 60),
                  commission(product, 150)});
        order.Row({id, commission(product, 30), commission(product, 50), commission(product, 80),
                   commission(product, 50), commission(product, 30), commission(product, 120)});
    }
    sale.Finish();
    order.Finish();
}

void writePrizes(const Setting& setting)
{
    constexpr int unreachable = 9999;
    TableWriter sale(setting.Connection, "SalePrize", {"GroupID", "Less", "More", "Driver"});
    TableWriter order(setting.Connection, "OrderPrize",
                      {"GroupID", "Less", "More", "Driver", "AreaManager", "SAreaManager"});
    for (const ProductGroup& group : ProductGroups()) {
        const int lower = group.Dearest / 2;
        sale.Row({group.Id, lower, group.Dearest - 1, 1500});
        sale.Row({group.Id, group.Dearest, unreachable, 4000});
        order.Row({group.Id, lower, group.Dearest - 1, 1000, 2000, 1200});
        order.Row({group.Id, group.Dearest, unreachable, 2500, 5000, 3000});
    }
    sale.Finish();
    order.Finish();

    TableWriter perItem(setting.Connection, "RecoveryCommissionHeader", {"PerItem"});
    perItem.Row({25});
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

void writeWorkshop(const Setting& setting)
{
    SampleRandom random(1002);
    TableWriter headers(setting.Connection, "WorkShopPartsHeader",
                        {"VoucherID", "VoucherDate", "StaffID", "TotalAmount"});
    TableWriter bodies(setting.Connection, "WorkShopPartsBody",
                       {"VoucherID", "PartID", "Rate", "Qty", "Amount"});
    int voucher = 0;
    for (int day = 3; day < Days; day += 6) {
        const int mechanic = FirstMechanic + voucher % Mechanics;
        ++voucher;
        const int lines = random.Between(1, 5);
        int total = 0;
        for (int line = 0; line < lines; ++line) {
            // Steps of seven through twenty parts never meet the same one twice in five.
            const int part = (voucher * 3 + line * 7) % Parts;
            const int quantity = random.Between(1, 3);
            const int amount = partFacts[part].Rate * quantity;
            bodies.Row({voucher, part + 1, partFacts[part].Rate, quantity, amount});
            total += amount;
        }
        headers.Row({voucher, setting.Day(day), QString::number(mechanic), total});
    }
    headers.Finish();
    bodies.Finish();
}

} // namespace

void WriteMasters(const Setting& setting)
{
    writeBranchesAndAreas(setting);
    writeStaff(setting);
    writeProducts(setting);
    writeAccountsAndParties(setting);
    writeCommissions(setting);
    writePrizes(setting);
    writeWorkshop(setting);
}

} // namespace Host::Sample
