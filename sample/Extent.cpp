#include "sample/Extent.h"
#include "sample/Utf8.h"

#include <algorithm>

namespace Sample {

namespace {

constexpr int largestSmallCompany = 1000;
constexpr int accountsOfAnArea = 5000;
constexpr int accountsPerConversion = 50;

int divideUp(int number, int by)
{
    return (number + by - 1) / by;
}

/// A village area: chaks are named by numbers.
Area furtherArea(int index)
{
    const std::span<const Branch> branches = Branches();
    const int village = index + 13;
    return {QStringLiteral("Ch%1").arg(village),
            utf8("چک نمبر %1").arg(village),
            branches[std::size_t(index) % branches.size()].Code,
            QString::number(FurtherManagers + index),
            QString::number(FurtherSecretaries + index),
            QString::number(FurtherCollectors + index),
            QString::number(FurtherDrivers + index),
            QString::number(FurtherFranchises + index / 3)};
}

} // namespace

Extent::Extent(int accounts)
    : accounts_(accounts), sold_(accounts - accounts / accountsPerConversion),
      isLarge_(accounts > largestSmallCompany),
      town_(isLarge_ ? std::min(accountsOfAnArea, sold_ / 2) : 0)
{
    const std::span<const Area> home = HomeAreas();
    areas_.assign(home.begin(), home.end());
    const int wanted = isLarge_ ? 1 + divideUp(sold_ - town_, accountsOfAnArea) : 0;
    for (int index = 0; AreaCount() < wanted; ++index)
        areas_.push_back(furtherArea(index));
}

int Extent::Trade() const
{
    // Five pieces go out with a gate pass, and five accounts take six.
    constexpr int piecesOfAPass = 5;
    const int pieces = accounts_ / 5 * 6;
    const int branches = int(Branches().size());
    return isLarge_ ? std::max(1, pieces / (piecesOfAPass * Days() * branches)) : 1;
}

} // namespace Sample
