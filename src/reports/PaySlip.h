#pragma once

#include "data/Statement.h"
#include "reports/ReportDeclaration.h"
#include "reports/ReportPieces.h"

#include <QDate>
#include <QList>
#include <QString>

#include <functional>

// What the three pay slips share: the sheet, the person, the lines of pay and deductions beside
// each other, and the totals as the pay screens work them out.

namespace TradeForms::PaySlip {

/// One line of the slip.
struct Line {
    const char* Name = "";
    Caption Label;
    ReportSource::Formula Amount;
};

/// A line that shows a column of the rows.
Line ColumnLine(const char* column, const Caption& label);
/// Advance, further deduction, loan and the two funds, in this order.
QList<Line> Deductions();

/// The pay of a slip with a list: basic pay, the list's total, other pay.
QList<Line> PayWithList(const Caption& list);
/// The total of PayWithList before loan and funds, summed in the order of the pay screen.
double TotalWithList(const ReportValues& values);

/// The declaration of one kind of slip.
struct Declaration {
    const char* ReportName = "";
    const char* Title = ""; ///< of the print job
    Caption Heading;
    const char* NameColumn = ""; ///< of the person's name
    /// Columns of a list of the rows, the total amount first; empty where each row is a slip.
    QList<ReportPieces::ListColumn> List = {};
    QList<Line> Pay;
    /// Pay before loan and funds, summed in the order of the pay screen.
    std::function<double(const ReportValues&)> TotalOf;
};

ReportDeclaration ReportOf(const Declaration& slip);

/// The statement with its two keys: the person, and the first of the month.
Statement Source(const char* text, const QString& staffId, const QDate& month);

} // namespace TradeForms::PaySlip
