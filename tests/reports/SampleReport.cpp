#include "reports/SampleReport.h"

namespace tests {

using namespace TradeForms;

namespace {

QFont type()
{
    QFont font(QStringLiteral("Noto Sans"));
    font.setPixelSize(40);
    return font;
}

ReportSection section(SectionKind kind, const char* name, double height,
                      const QList<ReportObject>& objects)
{
    ReportSection made;
    made.Kind = kind;
    made.Name = QString::fromUtf8(name);
    made.Height = height;
    made.Objects = objects;
    return made;
}

ReportObject text(const char* name, const char* words, const QRectF& place)
{
    ReportObject object;
    object.Name = QString::fromUtf8(name);
    object.Text = QString::fromUtf8(words);
    object.Place = place;
    object.Font = type();
    object.Direction = Qt::LeftToRight;
    return object;
}

ReportObject field(const char* name, const ReportSource& source, const QRectF& place)
{
    ReportObject object = text(name, "", place);
    object.Kind = ObjectKind::Field;
    object.Source = source;
    return object;
}

ReportSource formula(ReportSource::Formula compute)
{
    return {.Kind = ReportSource::From::Formula, .Name = {}, .Compute = std::move(compute)};
}

} // namespace

SampleReport::SampleReport(int rows) : rows_(std::make_shared<Recordset>())
{
    company_.Run(QStringLiteral(
                     "with recursive n(i) as (select 1 union all select i + 1 from n where i < %1)"
                     " insert into GatePassBody (GatePassID, ProductID, OutNewProducts)"
                     " select 1, printf('P%05d', i), i from n where i <= %1")
                     .arg(rows));
    rows_->Open(Statement("select ProductID, OutNewProducts from GatePassBody order by ProductID"),
                company_.Connect());
}

std::shared_ptr<Report> SampleReport::Make(const QString& title) const
{
    ReportObject logo;
    logo.Name = QStringLiteral("PicLogo");
    logo.Kind = ObjectKind::Picture;
    logo.Suppress = true;

    const ReportSource copy = formula([onLayout = &OnLayout](const ReportValues& values) {
        if (*onLayout)
            (*onLayout)();
        return QVariant(QStringLiteral("copy ") + values.Parameter(1));
    });
    const ReportSource product{
        .Kind = ReportSource::From::Column, .Name = QStringLiteral("ProductID"), .Compute = {}};

    ReportDeclaration declaration;
    declaration.Name = QStringLiteral("CrpSample");
    declaration.Title = title;
    declaration.Paper = QPageSize::A5;
    declaration.Orientation = Turn;
    declaration.Parameters = {{QStringLiteral("Copy"), true}};
    declaration.Sections = {
        section(SectionKind::ReportHeader, "ReportHeaderSection1", 200,
                {logo, text("TxtNameUrdu", "", QRectF(0, 0, 1000, 80)),
                 text("TxtTitle", "Title of the sample", QRectF(0, 100, 1000, 80))}),
        section(SectionKind::PageHeader, "PageHeaderSection1", 80,
                {field("FldCopy", copy, QRectF(0, 0, 1000, 60))}),
        section(SectionKind::Details, "DetailSection1", 60,
                {field("FldProduct", product, QRectF(0, 0, 600, 60))})};

    auto report = std::make_shared<Report>(declaration);
    report->SetDataSource(rows_);
    report->SelectPrinter(QStringLiteral("Printer Driver"), QStringLiteral("Printer Name"),
                          QStringLiteral("LPT1"));
    report->SetParameter(1, QStringLiteral("1"));
    return report;
}

} // namespace tests
