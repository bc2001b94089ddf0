#pragma once

#include <QString>

#include <vector>

// Sample companies of several sizes. They take minutes to make and are kept between runs.

namespace Bench {

/// The sizes that are measured, in accounts: 10,000, 100,000 and 1,000,000, or those that
/// TRADEFORMS_BENCH_SIZES lists, "10000,100000".
const std::vector<int>& CompanySizes();

/// The file of the company of that size, in build/bench/companies or in the folder that
/// TRADEFORMS_BENCH_COMPANIES names. Makes it, and says so, where it is not there yet.
QString CompanyOf(int accounts);

} // namespace Bench
