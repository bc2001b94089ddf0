#pragma once

#include "controls/Caption.h"
#include "reports/ReportDeclaration.h"

#include <QList>
#include <QString>

// The objects and sections that all reports share. Texts are UTF-8 literals.

namespace TradeForms::ReportPieces {

// ---- Single objects

ReportSource Column(const char* name);
ReportSource Total(const char* name);
ReportSource Formula(ReportSource::Formula compute);

ReportObject Text(const char* name, const QRectF& place, const QFont& font, const QString& text);
ReportObject Field(const char* name, const QRectF& place, const QFont& font, ReportSource source,
                   ValueFormat format = ValueFormat::Plain);
ReportObject HLine(double top, double left, double right, double width = 2);

// ---- What a report begins and ends with

/// The header that Report::ReportHeaderSection1_Format fills: title and copy at the left, the
/// company's name in the middle, the logo at the right. Copies are named by the numeric first
/// parameter, from 1.
ReportSection Header(const Caption& title, const QList<Caption>& copies, double width);
/// At the top of the pages after the first one: the title with the voucher's key.
ReportSection Continuation(const Caption& title, const ReportSource::Formula& key, double width);
/// Signature lines at the bottom of the last page.
ReportSection Signatures(const QList<Caption>& signers, double width);
/// Page x of y, date and user of printing.
ReportSection Footer(double width);
/// The numeric parameter that all reports have.
ReportParameter CopyParameter();

// ---- A voucher's data

struct LabelledField {
    const char* Name = "";
    Caption Label;
    ReportSource Source;
    ValueFormat Format = ValueFormat::Plain;
    bool Urdu = false;
};

/// Fields with their labels, `inRow` of them in each row, from right to left.
ReportSection Fields(const char* name, const QList<LabelledField>& fields, int inRow, double width);

// ---- A list

struct ListColumn {
    enum class Type { Code, Name, Quantity, Amount };

    const char* Column = "";
    Caption Head;
    double Left = 0;
    double Width = 0;
    Type Kind = Type::Name;
    bool Totalled = false;
};

/// The heads of the columns, on each page.
ReportSection ListHeads(const QList<ListColumn>& columns, double width);
/// One row of the list; long names wrap.
ReportSection ListRow(const QList<ListColumn>& columns, double width);
/// The totals below their columns, each named after its column.
ReportSection ListTotals(const QList<ListColumn>& columns, double width);

} // namespace TradeForms::ReportPieces
