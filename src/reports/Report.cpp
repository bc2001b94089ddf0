#include "reports/Report.h"

#include "data/Failure.h"
#include "data/Numbers.h"
#include "host/HostContext.h"
#include "reports/Paginator.h"
#include "reports/PrintPort.h"
#include "reports/ReportRows.h"

namespace TradeForms {

Report::Report(ReportDeclaration declaration) : declaration_(std::move(declaration))
{
    parameters_.resize(declaration_.Parameters.size());
}

Report::~Report() = default;

ReportObject& Report::Object(const QString& name)
{
    for (ReportSection& section : declaration_.Sections) {
        for (ReportObject& object : section.Objects)
            if (object.Name.compare(name, Qt::CaseInsensitive) == 0)
                return object;
    }
    throw Failure(QStringLiteral("The report %1 has no object %2.").arg(Name(), name));
}

void Report::SetDataSource(std::shared_ptr<Recordset> rows, int dataTag, int tableNumber)
{
    constexpr int recordsetTag = 3;
    if (dataTag != recordsetTag)
        throw Failure(
            QStringLiteral("The report %1 reads no data of the kind %2.").arg(Name()).arg(dataTag));
    if (tableNumber != 1)
        throw Failure(
            QStringLiteral("The report %1 has no table %2.").arg(Name()).arg(tableNumber));
    rows_ = std::move(rows);
}

void Report::SelectPrinter(const QString& driver, const QString& name, const QString& port)
{
    driver_ = driver;
    printer_ = name;
    port_ = port;
}

void Report::SetParameter(int index, const QString& value)
{
    if (index < 1 || index > parameters_.size())
        throw Failure(QStringLiteral("The report %1 has no parameter %2.").arg(Name()).arg(index));
    if (declaration_.Parameters.at(index - 1).Numeric && !IsNumeric(value))
        throw TypeMismatchFailure();
    parameters_[index - 1] = value;
}

QString Report::Parameter(int index) const
{
    if (index < 1 || index > parameters_.size())
        throw Failure(QStringLiteral("The report %1 has no parameter %2.").arg(Name()).arg(index));
    return parameters_.at(index - 1);
}

QString Report::Title() const
{
    const ReportRows rows(rows_);
    const RowValues first(rows, parameters_);
    if (!declaration_.Key || !first.HasRow())
        return declaration_.Title;
    return declaration_.Title + u' ' + TextOf(declaration_.Key(first));
}

PrintJob Report::Job() const
{
    return PrintJob{.Driver = driver_,
                    .PrinterName = printer_,
                    .Port = port_,
                    .Title = Title(),
                    .Copy = parameters_.value(0)};
}

void Report::ReportHeaderSection1_Format()
{
    ReportObject& logo = Object(QStringLiteral("PicLogo"));
    logo.Suppress = HostContext::LogoImage.isEmpty();
    if (!logo.Suppress)
        logo.Picture = HostContext::LogoImage;
    Object(QStringLiteral("TxtNameUrdu")).Text = HostContext::NameUrdu;
}

Document Report::Format()
{
    const QString title = Title();
    ReportHeaderSection1_Format();
    return Document(std::make_unique<Paginator>(ReportState{declaration_, rows_, parameters_, title,
                                                            QDateTime::currentDateTime(),
                                                            QString::number(HostContext::UserNo)}));
}

void Report::PrintOut(bool prompt)
{
    if (prompt)
        throw Failure(QStringLiteral("The report %1 is printed without a prompt.").arg(Name()));
    const Document document = Format();
    PrintPort::Current().Print(document, Job());
}

void RemoveObjectColors(Report& report)
{
    for (ReportSection& section : report.Sections()) {
        for (ReportObject& object : section.Objects) {
            if (object.Name.startsWith(QLatin1String("NO"), Qt::CaseInsensitive))
                continue;
            switch (object.Kind) {
            case ObjectKind::Text:
            case ObjectKind::Field:
                object.BackColor = NoColor;
                break;
            case ObjectKind::Box:
                object.FillColor = White;
                break;
            case ObjectKind::Picture:
            case ObjectKind::Line:
                break;
            }
        }
    }
}

} // namespace TradeForms
