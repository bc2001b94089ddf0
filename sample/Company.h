#pragma once

#include <QDate>
#include <QString>

#include <functional>

namespace TradeForms {
class Connection;
}

/// A made-up trading company to try the screens on.
///
/// It has three branches with twelve areas and sixty staff, forty products, rates of commission
/// and prize, users with different rights, and half a year of vouchers of every kind. A company of
/// more than a thousand accounts has four years of them, ten receipts an account on average, and
/// as many more areas with their staff as it takes for none to hold more than five thousand.
///
/// Days are counted back from the last one; the same last day and number of accounts give the
/// same rows each time. Another last day moves the dates of the vouchers and changes nothing else
/// in them; only pay goes by the months of the calendar. (The hashes of the passwords differ, for
/// each has a salt of its own.)
namespace Sample {

inline constexpr int DefaultAccounts = 400;
/// Limited by the five characters of a card number.
inline constexpr int MostAccounts = 1'000'000;

/// The password of every user of the sample.
QString Password();

/// Called with the name of the part being written, the number of units done, and their total.
using Progress = std::function<void(const char* what, int done, int of)>;

/// What the host adds to the tables of a company. The sample fills its columns of Users and its
/// tables UserRights and CompanyInfo.
struct HostTables {
    /// Adds the host's tables and columns to a new company.
    std::function<void(TradeForms::Connection&)> Prepare;
    /// Returns the hash of a password.
    std::function<QString(const QString& password)> HashPassword;
};

/// Creates the company in a new file, with this number of instalment accounts and vouchers up to
/// the given day. Raises TradeForms::Failure where the file exists or cannot be created; an
/// unfinished file is removed.
void CreateCompany(const QString& file, int accounts, QDate until, const HostTables& host,
                   const Progress& progress = {});

} // namespace Sample
