#pragma once

#include <span>

// What the sample company is made of: the few lists that its vouchers draw on. Texts are UTF-8.

namespace Host::Sample {

struct Branch {
    int Code;
    const char* Name;
};

struct Area {
    const char* Code; ///< proper case, no blank: it is the first half of every account's key
    const char* Name;
    int BranchCode;
    const char* Manager; ///< staff ids
    const char* Secretary;
    const char* Collector; ///< the field worker who brings the instalments in
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

/// A row of people with the same post: ids count up from the first, branches take turns.
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
    int Demand;    ///< how often it is asked for, against the others
    bool Numbered; ///< has an engine and a chassis number
};

struct ProductGroup {
    int Id;
    int CommissionPerMille; ///< of the instalment rate, to each role
    int Dearest;            ///< pieces of a month from which the highest prize is paid
};

std::span<const Branch> Branches();
std::span<const Area> Areas();
std::span<const StaffGroup> StaffGroups();
std::span<const Product> Products();
std::span<const ProductGroup> ProductGroups();

/// Price on instalments, to the next hundred.
int InstallmentRate(const Product& product);

/// The area managers' chief, who stands on every account that a franchise holder brings in.
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

/// How many days of vouchers there are; the last one is the company's last day.
inline constexpr int Days = 181;

} // namespace Host::Sample
