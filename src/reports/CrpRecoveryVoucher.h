#pragma once

#include "data/Statement.h"
#include "reports/Report.h"

#include <QDate>
#include <QString>

namespace TradeForms {

/// The recovery voucher, on A4: each receipt with the balance of its account.
class CrpRecoveryVoucher : public Report {
public:
    CrpRecoveryVoucher();

    /// The statement that computes the balances at the voucher's date. To be run before the rows
    /// are opened.
    static Statement Balances(const QDate& voucherDate);
    /// The rows of one voucher.
    static Statement Source(const QString& voucherId);
};

} // namespace TradeForms
