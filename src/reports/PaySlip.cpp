#include "reports/PaySlip.h"

#include "controls/Utf8.h"
#include "data/Numbers.h"
#include "reports/Paper.h"
#include "reports/ReportText.h"

#include <algorithm>

namespace TradeForms::PaySlip {

namespace {

using namespace ReportPieces;
using ReportPieces::Field; // the data room has one, too

constexpr double lineHeight = 80;
constexpr double gapBetween = 60;

/// The name of the list's total among the totals of the report.
QString totalOfList()
{
    return QStringLiteral("TotalAmount");
}

/// A formula that is null without a row.
ReportSource::Formula ofRow(std::function<double(const ReportValues&)> compute)
{
    return [compute = std::move(compute)](const ReportValues& values) -> QVariant {
        return values.HasRow() ? QVariant(compute(values)) : QVariant();
    };
}

ReportSource::Formula sumOf(const QList<Line>& lines)
{
    return ofRow([lines](const ReportValues& values) {
        double sum = 0;
        for (const Line& line : lines)
            sum += line.Amount(values).toDouble();
        return sum;
    });
}

/// Net pay: the total as it is displayed, less loan and funds.
std::function<double(const ReportValues&)>
remaining(const std::function<double(const ReportValues&)>& totalOf)
{
    return [totalOf](const ReportValues& values) {
        return Val(GeneralFormat(totalOf(values))) - values.Number(QStringLiteral("Recloan")) -
               values.Number(QStringLiteral("KFFund")) - values.Number(QStringLiteral("GPFund"));
    };
}

/// A caption at the right, small English under it, the amount at the left.
void addLine(ReportSection& section, const Line& line, double left, double width, double top,
             bool strong)
{
    constexpr double amountWidth = 250;
    const QFont::Weight weight = strong ? QFont::Bold : QFont::Normal;
    const QByteArray name(line.Name);
    const QRectF label(left + amountWidth, top, width - amountWidth, 50);
    ReportObject urdu = Text("Lbl" + name, label, ReportText::Urdu(Paper::SlipUrduSize, weight),
                             utf8(line.Label.Urdu));
    ReportObject english = Text("LblEnglish" + name, label.translated(0, 48).adjusted(0, 0, 0, -22),
                                ReportText::Latin(Paper::SlipSmallSize), utf8(line.Label.English));
    english.Direction = Qt::LeftToRight;
    english.Color = Paper::Muted;
    ReportObject amount = Field("Fld" + name, QRectF(left, top, amountWidth, 50),
                                ReportText::Latin(Paper::LatinSize, weight), Formula(line.Amount),
                                ValueFormat::Amount);
    amount.Direction = Qt::LeftToRight;
    section.Objects += {urdu, english, amount};
}

/// A heading, lines, and their sum under a rule.
double addColumn(ReportSection& section, const Caption& heading, const QList<Line>& lines,
                 const Line& sum, qsizetype rows, double left, double width, double top)
{
    ReportObject urdu = Text("TxtHeading", QRectF(left, top, width, 56),
                             ReportText::Urdu(Paper::UrduSize, QFont::Bold), utf8(heading.Urdu));
    ReportObject english = Text("TxtHeadingEnglish", QRectF(left, top, width, 56),
                                ReportText::Latin(Paper::SlipHeadingSize), utf8(heading.English));
    english.Direction = Qt::LeftToRight;
    english.Alignment = Qt::AlignLeft;
    english.Color = Paper::Muted;
    section.Objects += {urdu, english, HLine(top + 62, left, left + width)};
    double y = top + 72;
    for (const Line& line : lines) {
        addLine(section, line, left, width, y, false);
        y += lineHeight;
    }
    // The sums of both columns are aligned.
    y = top + 80 + double(rows) * lineHeight;
    section.Objects.append(HLine(y, left, left + width));
    addLine(section, sum, left, width, y + 8, true);
    return y + 8 + lineHeight;
}

ReportSection payAndDeductions(const Declaration& slip, double width)
{
    // Below a long list it may move to a page of its own.
    ReportSection section{.Kind = slip.List.isEmpty() ? SectionKind::Details
                                                      : SectionKind::ReportFooter,
                          .Name = QStringLiteral("PaySection"),
                          .KeepWithRows = false};
    const QList<Line> deductions = Deductions();
    const qsizetype rows = std::max(slip.Pay.size(), deductions.size());
    const double column = (width - gapBetween) / 2;
    addColumn(section, {"تنخواہ", "Pay"}, slip.Pay,
              {"SumPay", {"کل تنخواہ", "Pay in all"}, sumOf(slip.Pay)}, rows, column + gapBetween,
              column, 10);
    const double end =
        addColumn(section, {"کٹوتی", "Deductions"}, deductions,
                  {"SumDeductions", {"کل کٹوتی", "Deductions in all"}, sumOf(deductions)}, rows, 0,
                  column, 10);

    // The two totals of the pay screen; the second one is the net pay.
    constexpr double boxHeight = 110;
    ReportObject box;
    box.Name = QStringLiteral("BoxTotals");
    box.Kind = ObjectKind::Box;
    box.Place = QRectF(0, end + 16, width, boxHeight);
    box.Radius = 16;
    box.LineWidth = 3;
    box.FillColor = Paper::TotalsGround;
    section.Objects.append(box);
    constexpr double pad = 24;
    const double top = end + 28;
    addLine(section, {"Total", {"میزان", "Total before loan and funds"}, ofRow(slip.TotalOf)},
            column + gapBetween, column - pad, top, true);
    addLine(section, {"Remaining", {"قابل ادائیگی", "Net pay"}, ofRow(remaining(slip.TotalOf))}, 0,
            column, top, true);
    section.Height = end + 16 + boxHeight + 10;
    return section;
}

} // namespace

Line ColumnLine(const char* column, const Caption& label)
{
    const QString name = utf8(column);
    return Line{column, label, [name](const ReportValues& values) { return values.Column(name); }};
}

QList<Line> Deductions()
{
    return {ColumnLine("Advance", {"ایڈوانس", "Advance"}),
            ColumnLine("Less", {"دیگر کٹوتی", "Less"}),
            ColumnLine("Recloan", {"وصولی قرض", "Loan recovered"}),
            ColumnLine("KFFund", {"کے ایف فنڈ", "KF fund"}),
            ColumnLine("GPFund", {"جی پی فنڈ", "GP fund"})};
}

QList<Line> PayWithList(const Caption& list)
{
    return {ColumnLine("BasicSalary", {"بنیادی تنخواہ", "Basic pay"}),
            Line{"ListTotal", list,
                 ofRow([](const ReportValues& values) { return values.Total(totalOfList()); })},
            ColumnLine("Other", {"دیگر", "Other"})};
}

double TotalWithList(const ReportValues& values)
{
    return values.Number(QStringLiteral("BasicSalary")) - values.Number(QStringLiteral("Advance")) -
           values.Number(QStringLiteral("Less")) + values.Total(totalOfList()) +
           values.Number(QStringLiteral("Other"));
}

ReportDeclaration ReportOf(const Declaration& slip)
{
    const QList<Caption> copies = {{"ملازم کاپی", "Employee's copy"},
                                   {"دفتری کاپی", "Office copy"}};
    const QList<LabelledField> person = {
        {"Person", {"نام", "Name"}, Column(slip.NameColumn), ValueFormat::Plain, true},
        {"StaffID", {"کوڈ", "Code"}, Column("StaffID")},
        {"FName", {"ولدیت", "Father's name"}, Column("FName"), ValueFormat::Plain, true},
        {"SalaryMonth", {"مہینہ", "Month"}, Column("SalaryMonth"), ValueFormat::Month},
        {"Designation", {"عہدہ", "Post"}, Column("Designation"), ValueFormat::Plain, true},
        {"Address", {"پتہ", "Address"}, Column("Address"), ValueFormat::Plain, true},
    };
    const auto key = [](const ReportValues& values) -> QVariant {
        return QString(
            TextOf(values.Column(QStringLiteral("StaffID"))) + u' ' +
            ReportText::Of(values.Column(QStringLiteral("SalaryMonth")), ValueFormat::Month));
    };

    ReportDeclaration declaration{.Name = utf8(slip.ReportName),
                                  .Title = utf8(slip.Title),
                                  .Key = key,
                                  .Paper = QPageSize::A5,
                                  .Margins = QMarginsF(100, 100, 100, 80),
                                  .Parameters = {CopyParameter()}};
    const double width = declaration.Width();
    declaration.Sections = {Header(slip.Heading, copies, width),
                            Fields("ReportHeaderSection2", person, 2, width),
                            Continuation(slip.Heading, key, width)};
    if (!slip.List.isEmpty()) {
        declaration.Sections +=
            {ListHeads(slip.List, width), ListRow(slip.List, width), ListTotals(slip.List, width)};
    }
    declaration.Sections += {payAndDeductions(slip, width),
                             Signatures({{"دستخط ملازم", "Employee"},
                                         {"دستخط اکاؤنٹنٹ", "Accountant"},
                                         {"دستخط منیجر", "Manager"}},
                                        width),
                             Footer(width)};
    return declaration;
}

Statement Source(const char* text, const QString& staffId, const QDate& month)
{
    return Statement(text).Bind("StaffID", staffId).Bind("month", month);
}

} // namespace TradeForms::PaySlip
