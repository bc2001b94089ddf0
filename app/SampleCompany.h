#pragma once

#include <QDate>
#include <QString>

/// A made-up trading company to try the screens on.
///
/// It has three branches with twelve areas and sixty staff, forty products, rates of commission
/// and prize, users with different rights, and half a year of vouchers. Days are counted back
/// from the last one; the same last day and number of accounts give the same rows each time, and
/// another last day moves the dates and changes nothing else. (Only the hashes of the passwords
/// differ, for each has a salt of its own.)
namespace Host::SampleCompany {

inline constexpr int DefaultAccounts = 400;
/// Card numbers have five characters, and an area must have enough of them.
inline constexpr int MostAccounts = 1'000'000;

/// The password of every user of the sample.
QString Password();

/// Makes the company in a new file, with so many instalment accounts, its vouchers ending on
/// the given day. Raises TradeForms::Failure where the file is there or cannot be made; a file
/// that it could not finish is removed.
void Create(const QString& file, int accounts, QDate until);

} // namespace Host::SampleCompany
