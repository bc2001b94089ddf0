#pragma once

#include "sample/Extent.h"

#include <QDate>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

// The sample company is written in these parts, in this order. Each raises TradeForms::Failure.

namespace TradeForms {
class Connection;
}

namespace Sample {

class PayBook;

/// The settings of the sample.
struct Setting {
    std::shared_ptr<TradeForms::Connection> Connection;
    QDate LastDay;
    Sample::Extent Extent;
    /// See Sample::Progress.
    std::function<void(const char* what, int done, int of)> Progress;

    /// The date of a day number: 0 is the first day with vouchers, earlier days are negative.
    QDate Day(int day) const;
};

/// An amount on a day of the company.
struct DatedAmount {
    int Day;
    int Amount;
};

/// The data of a person's pay, apart from the earnings.
struct StaffMember {
    QString Id;
    Post Role;
    int BasicSalary;
    int GPFund;
    int KFFund;
    int MonthlyRecovery; ///< monthly repayment of the loans
    std::vector<DatedAmount> Loans;
    std::vector<DatedAmount> Cheques;
};

/// Branches, areas, staff, products and the other lists; rates; loans and cheques. Returns the
/// staff.
std::vector<StaffMember> WriteMasters(const Setting& setting);
/// Returns the hash of a password.
using PasswordHash = std::function<QString(const QString& password)>;
/// Users and what each may do.
void WriteUsers(const Setting& setting, const PasswordHash& hash);
/// The workshop's vouchers of used parts.
void WriteWorkshop(const Setting& setting, PayBook& earned);
/// Stock in and out, gate passes, numbered units.
void WriteStock(const Setting& setting, PayBook& earned);
/// Instalment accounts, those that were converted, and their receipts, concessions and returns.
void WriteAccounts(const Setting& setting, PayBook& earned);
/// Monthly pay, and the earnings of each area.
void WritePay(const Setting& setting, const std::vector<StaffMember>& staff, const PayBook& earned);

} // namespace Sample
