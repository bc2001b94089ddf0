#pragma once

#include "data/Statement.h"
#include "reports/Report.h"

#include <QDate>
#include <QString>

namespace TradeForms {

/// The pay slip of a salaried person, on A5: copies 1 and 2 for the employee and the office.
class CrpSalary : public Report {
public:
    CrpSalary();

    /// The row of one person and month; the month is its first day.
    static Statement Source(const QString& staffId, const QDate& month);
};

} // namespace TradeForms
