#pragma once

#include "sample/Facts.h"

#include <vector>

namespace Sample {

/// The size of the company, computed from its number of accounts.
///
/// Up to a thousand accounts it has twelve areas of one size and half a year of vouchers. A
/// larger one has traded for four years, in which an account has ten receipts on average. Its
/// first area, the town, holds up to five thousand accounts and is collected on every other
/// Sunday, when all else is closed; the other accounts live in as many areas as it takes for
/// none to hold more than five thousand either.
class Extent {
public:
    explicit Extent(int accounts);

    int Accounts() const { return accounts_; }
    bool IsLarge() const { return isLarge_; }
    /// Accounts that were sold. The other ones are conversions of some of these.
    int Sold() const { return sold_; }
    int Converted() const { return accounts_ - sold_; }
    /// Accounts sold in the town of a large company.
    int Town() const { return town_; }

    /// How many days of vouchers there are; the last one is the company's last day.
    int Days() const { return isLarge_ ? 1456 : 181; }
    int Weeks() const { return (Days() + 6) / 7; }
    /// Number of monthly instalments of a new account.
    int Instalments() const { return isLarge_ ? 13 : 12; }
    /// Thirty days each.
    int Months() const { return Days() / 30; }

    std::span<const Area> Areas() const { return areas_; }
    int AreaCount() const { return int(areas_.size()); }
    /// Areas beyond those of the smallest company.
    int FurtherAreas() const { return AreaCount() - int(HomeAreas().size()); }

    /// Mechanics beyond those of the smallest company.
    int FurtherMechanics() const { return (FurtherAreas() + 9) / 10; }
    int FurtherFranchiseHolders() const { return (FurtherAreas() + 2) / 3; }
    /// Stock turnover, as a multiple of the smallest company's.
    int Trade() const;

private:
    int accounts_;
    int sold_;
    bool isLarge_;
    int town_;
    std::vector<Area> areas_;
};

// Staff of the further areas, by the first id of each post.
inline constexpr int FurtherManagers = 20001;
inline constexpr int FurtherSecretaries = 30001;
inline constexpr int FurtherCollectors = 40001;
inline constexpr int FurtherDrivers = 50001;
inline constexpr int FurtherFranchises = 60001;
inline constexpr int FurtherMechanicIds = 70001;

} // namespace Sample
