#pragma once

#include "data/Statement.h"
#include "reports/Report.h"

#include <QDate>
#include <QString>

namespace TradeForms {

/// The pay slip of a franchise holder, on A5: the commission lines, and copies 1 and 2.
class CrpFrenchiserSalary : public Report {
public:
    CrpFrenchiserSalary();

    /// The rows of one person and month; the month is its first day.
    static Statement Source(const QString& staffId, const QDate& month);
};

} // namespace TradeForms
