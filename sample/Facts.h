#pragma once

#include <QString>

#include <array>
#include <span>

// The lists from which the vouchers of the sample are drawn. Texts are UTF-8.

namespace Sample {

struct Branch {
    int Code;
    const char* Name;
};

struct Area {
    QString Code; ///< proper case, no blank: the first half of the key of an account
    QString Name;
    int BranchCode;
    QString Manager; ///< staff ids
    QString Secretary;
    QString Collector; ///< the field worker who brings the instalments in
    QString Driver;    ///< the area's own driver; empty where the company's drivers take turns
    QString Franchise; ///< its franchise holder; empty where the company's take turns
};

enum class Post {
    AreaManager,
    Secretary,
    CheckingManager,
    Driver,
    Collector,
    FranchiseHolder,
    Mechanic,
    Office
};

/// A group of staff with the same post: consecutive ids, branches in turn.
struct StaffGroup {
    Post Role;
    const char* Designation;
    int FirstId;
    int Count;
    int BasicSalary;
    bool FieldWorker;
};

struct Product {
    const char* Id;
    const char* Name;
    int PurchaseRate;
    int Group;
    int Demand;    ///< relative frequency in sales
    bool Numbered; ///< has an engine and a chassis number
};

struct ProductGroup {
    int Id;
    int CommissionPerMille; ///< of the instalment rate, to each role
    int Dearest;            ///< monthly pieces for the highest prize
};

std::span<const Branch> Branches();
/// The twelve areas that the smallest company has.
std::span<const Area> HomeAreas();
std::span<const StaffGroup> StaffGroups();
std::span<const Product> Products();
std::span<const ProductGroup> ProductGroups();

/// Price on instalments, to the next hundred.
int InstallmentRate(const Product& product);

/// The commission per sold or ordered piece, by role.
struct Rates {
    int SaleDriver;
    int SaleManager;
    int SaleSecretary;
    int SaleFranchise;
    int OrderDriverSmall;
    int OrderDriverLarge;
    int OrderManager;
    int OrderSecretary;
    int OrderCheckingManager;
    int OrderFranchise;
};
Rates RatesOf(const Product& product);

/// The prizes for a month's pieces of a group between Less and More.
struct PrizeBand {
    int Less;
    int More;
    int Sale; ///< to each role alike
    int OrderDriver;
    int OrderManager;
    int OrderSecretary;
};
std::array<PrizeBand, 2> PrizeBands(const ProductGroup& group);

/// Per piece that a driver delivers on a supply.
inline constexpr int SupplyRate = 25;

/// The chief of the area managers, manager and secretary of every account of a franchise holder.
inline constexpr const char* FranchiseManager = "6210";
inline constexpr int FirstFranchiseHolder = 7001;
inline constexpr int FranchiseHolders = 4;
inline constexpr int FirstCheckingManager = 6401;
inline constexpr int CheckingManagers = 3;
inline constexpr int FirstDriver = 2001;
inline constexpr int Drivers = 12;
inline constexpr int FirstMechanic = 8001;
inline constexpr int Mechanics = 5;
inline constexpr int FirstStoreKeeper = 9001;

inline constexpr int Sectors = 10;
inline constexpr int Parts = 20;
inline constexpr const char* OpeningAccount = "1001";
inline constexpr int FirstSupplier = 2001;
inline constexpr int Suppliers = 6;

} // namespace Sample
