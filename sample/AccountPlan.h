#pragma once

#include "sample/Extent.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

// The history of each instalment account of the sample, computed from its number alone, so that a
// million accounts need not be kept in memory.

namespace Sample {

class Random;

/// The vouchers of one kind, as slots in the order of their dates. Only used slots are numbered, so
/// that the numbers have no gaps.
class VoucherBook {
public:
    explicit VoucherBook(int count) : ids_(std::size_t(count), 0) {}

    void Use(int slot) { ids_[std::size_t(slot)] = 1; }
    /// Numbers the used slots from 1; returns how many there are.
    int Number();
    /// 0 for a slot that is not used.
    int Id(int slot) const { return ids_[std::size_t(slot)]; }
    int Slots() const { return int(ids_.size()); }

private:
    std::vector<int> ids_;
};

struct SaleLine {
    const Product* Item;
    int Quantity;
    int Price;
};

struct PlannedReceipt {
    int Slot; ///< of the book of recoveries
    int Amount;
    bool IsOnNewAccount; ///< was received after the account had been converted
};

struct PlannedConcession {
    int Slot; ///< of the books of concessions and returns
    int Amount;
};

struct PlannedReturn {
    int Slot;
    int Recovered;
    int Amount;
};

struct PlannedConversion {
    int Account; ///< the number of the new account
    int Day;
    int Paid = 0;                        ///< on the old account until then
    std::optional<int> LastReceipt = {}; ///< day of the last of them
};

/// The area of an account, and its index in the area.
struct Place {
    std::size_t Area;
    int Rank; ///< within the area
};

struct AccountPlan {
    std::size_t Area;
    bool Old; ///< an older card, typed by hand; sold before the vouchers begin
    QString CardNo;
    int SaleDay; ///< negative: before the vouchers begin
    std::vector<SaleLine> Lines;
    int Total = 0;
    int Installment = 0;
    int PaidBefore = 0; ///< what an old account had paid when the vouchers begin
    std::vector<PlannedReceipt> Receipts;
    std::optional<PlannedConcession> Concession;
    std::optional<PlannedReturn> Return;
    std::optional<PlannedConversion> Conversion;
};

/// Accounts are numbered from 0: first those that were sold, then those that others were
/// converted into.
class AccountPlanner {
public:
    explicit AccountPlanner(const Extent& extent);

    /// An account that was sold.
    AccountPlan Plan(int account) const;
    /// The sold account that was converted into this one.
    int ConvertedFrom(int account) const;

    /// Of any account.
    std::size_t AreaOf(int account) const;
    QString CardOf(int account) const;
    /// `{AreaCode} {CardNo}`
    QString IdOf(int account) const;

    int RecoverySlots() const;
    std::size_t RecoveryArea(int slot) const;
    int RecoveryDay(int slot) const;

    int MonthlySlots() const;
    std::size_t MonthlyArea(int slot) const;
    int ConcessionDay(int slot) const { return monthlyDay(slot, 24); }
    int ReturnDay(int slot) const { return monthlyDay(slot, 27); }

private:
    /// The collection schedule of an area.
    struct Round {
        int NewCards; ///< accounts that are not old ones
        int Weekday;
        int Turns;  ///< accounts per voucher
        int Blocks; ///< vouchers per visit
        int Offset; ///< index of the first voucher among the slots of a week
    };

    Place placeOf(int account) const;
    bool isTown(std::size_t area) const { return extent_.IsLarge() && area == 0; }
    int accountsSoldIn(std::size_t area) const;
    int recoverySlot(std::size_t area, int rank, int week) const;
    int monthlyDay(int slot, int dayOfMonth) const;
    std::optional<int> slotAfter(int day, std::size_t area, int dayOfMonth, Random& random) const;
    std::optional<int> conversionOf(int account) const;
    void planReceipts(AccountPlan& plan, int rank, int owing, int lastDay, Random& random) const;

    const Extent& extent_;
    std::vector<Round> rounds_;          // by area
    std::vector<std::size_t> slotAreas_; // of the slots of a week
};

} // namespace Sample
