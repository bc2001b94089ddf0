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

/// What every part needs to know.
struct Setting {
    std::shared_ptr<TradeForms::Connection> Connection;
    QDate LastDay;
    Sample::Extent Extent;
    /// Told what is being written and how much of how much of it is done.
    std::function<void(const char* what, int done, int of)> Progress;

    /// The date of a day of the company, 0 being the first one of its vouchers; days before
    /// that are negative.
    QDate Day(int day) const;
};

/// A sum on a day of the company.
struct DatedAmount {
    int Day;
    int Amount;
};

/// What the pay of a person is worked out from, apart from what he has earned.
struct StaffMember {
    QString Id;
    Post Role;
    int BasicSalary;
    int GPFund;
    int KFFund;
    int MonthlyRecovery; ///< taken back each month from what he was lent
    std::vector<DatedAmount> Loans;
    std::vector<DatedAmount> Cheques;
};

/// Branches, areas, staff, products and the other lists; rates; loans and cheques. Returns the
/// staff.
std::vector<StaffMember> WriteMasters(const Setting& setting);
/// Gives what is kept of a password.
using PasswordHash = std::function<QString(const QString& password)>;
/// Users and what each may do.
void WriteUsers(const Setting& setting, const PasswordHash& hash);
/// Parts that the workshop has built in.
void WriteWorkshop(const Setting& setting, PayBook& earned);
/// Stock in and out, gate passes, numbered units.
void WriteStock(const Setting& setting, PayBook& earned);
/// Instalment accounts, those that were converted, and their receipts, concessions and returns.
void WriteAccounts(const Setting& setting, PayBook& earned);
/// The pay of each whole month, and what each area has earned in it.
void WritePay(const Setting& setting, const std::vector<StaffMember>& staff, const PayBook& earned);

} // namespace Sample
