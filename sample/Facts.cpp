#include "sample/Facts.h"
#include "sample/Utf8.h"

#include <vector>

namespace Sample {

namespace {

/// An area as it is written down here.
struct AreaFact {
    const char* Code;
    const char* Name;
    int BranchCode;
    const char* Manager;
    const char* Secretary;
    const char* Collector;
};

constexpr Branch branches[] = {
    {1, "قصور"},
    {2, "لاہور"},
    {3, "پتوکی"},
};

constexpr AreaFact areas[] = {
    {"Kot", "کوٹ رادھا کشن", 1, "6201", "6301", "3101"},
    {"Khudian", "کھڈیاں خاص", 1, "6202", "6301", "3102"},
    {"Mustafa", "مصطفیٰ آباد", 1, "6203", "6302", "3103"},
    {"Ganda", "گنڈا سنگھ والا", 1, "6204", "6302", "3104"},
    {"Raiwind", "رائے ونڈ", 2, "6205", "6303", "3105"},
    {"Raja", "راجہ جنگ", 2, "6206", "6303", "3106"},
    {"Kahna", "کاہنہ نو", 2, "6207", "6304", "3107"},
    {"Manga", "مانگا منڈی", 2, "6208", "6304", "3108"},
    {"Pattoki", "پتوکی شہر", 3, "6209", "6305", "3109"},
    {"Phool", "پھول نگر", 3, "6210", "6305", "3110"},
    {"Chunian", "چونیاں", 3, "6211", "6306", "3111"},
    {"Habib", "حبیب آباد", 3, "6212", "6306", "3112"},
};

constexpr StaffGroup staffGroups[] = {
    {Post::Driver, "ڈرائیور", FirstDriver, Drivers, 22000, true},
    {Post::Collector, "فیلڈ ورکر", 3101, 12, 20000, true},
    {Post::AreaManager, "ایریا منیجر", 6201, 12, 35000, true},
    {Post::Secretary, "سیکرٹری ایریا منیجر", 6301, 6, 28000, true},
    {Post::CheckingManager, "چیکنگ منیجر", FirstCheckingManager, CheckingManagers, 32000, false},
    {Post::FranchiseHolder, "فرنچائزر", FirstFranchiseHolder, FranchiseHolders, 0, false},
    {Post::Mechanic, "مکینک", FirstMechanic, Mechanics, 18000, false},
    {Post::Office, "دفتری عملہ", FirstStoreKeeper, 6, 25000, false},
};

constexpr Product products[] = {
    {"101", "موٹر سائیکل 125 سی سی", 168000, 1, 12, true},
    {"102", "موٹر سائیکل 100 سی سی", 132000, 1, 10, true},
    {"103", "موٹر سائیکل 110 سی سی", 141000, 1, 6, true},
    {"104", "موٹر سائیکل 70 سی سی", 104000, 1, 24, true},
    {"105", "موٹر سائیکل 150 سی سی", 245000, 1, 3, true},
    {"106", "لوڈر رکشہ", 268000, 1, 3, true},
    {"107", "مسافر رکشہ", 285000, 1, 2, true},
    {"108", "الیکٹرک سکوٹی", 155000, 1, 2, true},
    {"210", "واشنگ مشین", 14500, 2, 14, false},
    {"211", "واشنگ مشین ٹوئن ٹب", 24800, 2, 8, false},
    {"212", "واشنگ مشین آٹومیٹک", 52000, 2, 4, false},
    {"213", "سپن ڈرائر", 12800, 2, 6, false},
    {"214", "واشنگ مشین سٹیل باڈی", 18600, 2, 5, false},
    {"231", "ریفریجریٹر چھوٹا", 58000, 3, 8, false},
    {"233", "ریفریجریٹر درمیانہ", 74000, 3, 10, false},
    {"235", "ریفریجریٹر بڑا", 98000, 3, 5, false},
    {"236", "ڈیپ فریزر سنگل ڈور", 69000, 3, 3, false},
    {"237", "ڈیپ فریزر ڈبل ڈور", 92000, 3, 2, false},
    {"238", "واٹر ڈسپنسر", 27500, 3, 4, false},
    {"301", "پنکھا چھت والا", 6200, 4, 16, false},
    {"302", "پیڈسٹل پنکھا", 7800, 4, 12, false},
    {"303", "بریکٹ پنکھا", 5900, 4, 6, false},
    {"304", "ایگزاسٹ پنکھا", 4300, 4, 4, false},
    {"305", "ایئر کولر چھوٹا", 15500, 4, 6, false},
    {"306", "ایئر کولر بڑا", 23800, 4, 5, false},
    {"401", "ایل ای ڈی ٹی وی 24 انچ", 21500, 5, 4, false},
    {"402", "ایل ای ڈی ٹی وی 32 انچ", 36500, 5, 7, false},
    {"403", "ایل ای ڈی ٹی وی 43 انچ", 62000, 5, 4, false},
    {"404", "ایل ای ڈی ٹی وی 55 انچ", 108000, 5, 2, false},
    {"501", "ایئر کنڈیشنر 1 ٹن", 112000, 6, 3, false},
    {"502", "ایئر کنڈیشنر 1.5 ٹن", 138000, 6, 3, false},
    {"503", "گیزر گیس والا", 28000, 6, 4, false},
    {"504", "گیزر بجلی والا", 24500, 6, 3, false},
    {"601", "سلائی مشین", 13800, 7, 9, false},
    {"602", "استری", 4200, 7, 7, false},
    {"603", "مائیکرو ویو اوون", 24800, 7, 3, false},
    {"604", "گیس کا چولہا", 9400, 7, 6, false},
    {"701", "سولر پلیٹ 550 واٹ", 19500, 8, 6, false},
    {"702", "یو پی ایس بیٹری", 38000, 8, 5, false},
    {"703", "یو پی ایس 1000 واٹ", 22500, 8, 4, false},
};

constexpr ProductGroup productGroups[] = {
    {1, 8, 20},  {2, 12, 15}, {3, 10, 15}, {4, 15, 25},
    {5, 12, 10}, {6, 10, 8},  {7, 15, 15}, {8, 10, 12},
};

int commission(const Product& product, int percentOfRate)
{
    const ProductGroup& group = productGroups[product.Group - 1];
    const int full = InstallmentRate(product) * group.CommissionPerMille / 1000;
    return (full * percentOfRate / 100 + 9) / 10 * 10;
}

} // namespace

std::span<const Branch> Branches()
{
    return branches;
}

std::span<const Area> HomeAreas()
{
    static const std::vector<Area> made = [] {
        std::vector<Area> list;
        for (const AreaFact& fact : areas)
            list.push_back({utf8(fact.Code), utf8(fact.Name), fact.BranchCode, utf8(fact.Manager),
                            utf8(fact.Secretary), utf8(fact.Collector), QString(), QString()});
        return list;
    }();
    return made;
}

std::span<const StaffGroup> StaffGroups()
{
    return staffGroups;
}

std::span<const Product> Products()
{
    return products;
}

std::span<const ProductGroup> ProductGroups()
{
    return productGroups;
}

int InstallmentRate(const Product& product)
{
    const int withMarkup = product.PurchaseRate * 138 / 100;
    return (withMarkup + 99) / 100 * 100;
}

Rates RatesOf(const Product& product)
{
    return {commission(product, 40),  commission(product, 100), commission(product, 60),
            commission(product, 150), commission(product, 30),  commission(product, 50),
            commission(product, 80),  commission(product, 50),  commission(product, 30),
            commission(product, 120)};
}

std::array<PrizeBand, 2> PrizeBands(const ProductGroup& group)
{
    constexpr int unreachable = 9999;
    return {{{group.Dearest / 2, group.Dearest - 1, 1500, 1000, 2000, 1200},
             {group.Dearest, unreachable, 4000, 2500, 5000, 3000}}};
}

} // namespace Sample
