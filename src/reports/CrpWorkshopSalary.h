#pragma once

#include "data/Statement.h"
#include "reports/Report.h"

#include <QDate>
#include <QString>

namespace TradeForms {

/// The pay slip of a workshop mechanic, on A5: the parts, and copies 1 and 2.
class CrpWorkshopSalary : public Report {
public:
    CrpWorkshopSalary();

    /// The rows of one person and month; the month is its first day.
    static Statement Source(const QString& staffId, const QDate& month);
};

} // namespace TradeForms
