#pragma once

#include "SampleFacts.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

// What happens to each instalment account of the sample, worked out from its number alone: any
// account can be planned at any time, so that a great many need no room in memory.

namespace Host::Sample {

/// The vouchers of one kind, laid out as slots in the order of their dates. Only those that are
/// used get a number, so that the numbers have no gaps.
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
    int Slot;     ///< of the book of recoveries
    int Position; ///< in the voucher, from 0
    int Amount;
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
};

class AccountPlanner {
public:
    /// Most receipts of one voucher.
    static constexpr int ReceiptsPerVoucher = 60;

    explicit AccountPlanner(int count);

    /// The account of that number, from 0.
    AccountPlan Plan(int account) const;

    int RecoverySlots() const;
    std::size_t RecoveryArea(int slot) const;
    int RecoveryDay(int slot) const;

    static int MonthlySlots();
    static std::size_t MonthlyArea(int slot);
    static int ConcessionDay(int slot);
    static int ReturnDay(int slot);

private:
    int newCards_; ///< of the area that has most
    int blocks_;   ///< vouchers that an area needs for one visit
};

} // namespace Host::Sample
