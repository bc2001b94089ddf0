#pragma once

#include "data/Statement.h"
#include "reports/Report.h"

#include <QString>

namespace TradeForms {

/// The gate pass, on A5: its lines, and copies 1 to 3 for the office, the driver and the gate.
class CrpGatePassDetail : public Report {
public:
    CrpGatePassDetail();

    /// The rows of one gate pass.
    static Statement Source(const QString& gatePassId);
};

} // namespace TradeForms
