#pragma once

#include <QDate>

#include <memory>

// The sample company is written in these parts, in this order. Each raises TradeForms::Failure.

namespace TradeForms {
class Connection;
}

namespace Host::Sample {

/// What every part needs to know.
struct Setting {
    std::shared_ptr<TradeForms::Connection> Connection;
    QDate LastDay;

    /// The date of a day of the company, 0 being the first one of its vouchers; days before
    /// that are negative.
    QDate Day(int day) const;
};

/// Branches, areas, staff, products and the other lists; rates; loans and workshop vouchers.
void WriteMasters(const Setting& setting);
/// Users and what each may do.
void WriteUsers(const Setting& setting);
/// Stock in and out, gate passes, numbered units.
void WriteStock(const Setting& setting);
/// Instalment accounts with their receipts, concessions and returns.
void WriteAccounts(const Setting& setting, int count);

} // namespace Host::Sample
