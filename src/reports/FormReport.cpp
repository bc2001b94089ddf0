#include "reports/FormReport.h"

#include "data/Connection.h"
#include "data/Recordset.h"
#include "host/HostContext.h"
#include "reports/Report.h"
#include "reports/RptReportViewer.h"
#include "reports/SchPrint.h"

namespace TradeForms {

namespace {

constexpr int kPaperSetting = 1;
constexpr int kFirstParameter = 1;

/// The copies that a choice stands for.
QStringList chosen(const QString& choice, const QStringList& copies)
{
    if (choice == QLatin1String("B"))
        return copies;
    return copies.contains(choice) ? QStringList(choice) : QStringList();
}

} // namespace

FormReport::FormReport() : rows_(std::make_shared<Recordset>()) {}

FormReport::~FormReport()
{
    Close();
}

bool FormReport::IsOpen() const
{
    return rows_->IsOpen();
}

void FormReport::Close()
{
    if (rows_->IsOpen())
        rows_->Close();
}

void FormReport::Feed(std::shared_ptr<Report> report, const Statement& statement)
{
    Close();
    rows_->Open(statement, HostContext::Database(), CursorType::Static, LockType::ReadOnly, -1);
    RptReportViewer& viewer = RptReportViewer::Shared();
    viewer.Report = std::move(report);
    viewer.Report->SetDataSource(rows_, 3, 1);
    viewer.Report->SelectPrinter(QStringLiteral("Printer Driver"), QStringLiteral("Printer Name"),
                                 QStringLiteral("LPT1"));
}

void FormReport::PrintCopies(const CopyDeclaration& declaration, QWidget* owner)
{
    // Keeps the report alive if the viewer drops it while printing.
    const std::shared_ptr<Report> report = RptReportViewer::Shared().Report;
    report->SetPaper(kPaperSetting);

    SchPrint& dialog = SchPrint::Shared();
    dialog.Load();
    for (const int number : declaration.Shown)
        dialog.SetOptionVisible(dialog.Option(number), true);
    for (const int number : declaration.Hidden)
        dialog.SetOptionVisible(dialog.Option(number), false);
    dialog.ClickOption(dialog.Option4);
    dialog.Show(owner);

    for (const QString& copy : chosen(dialog.ParaOutPrint, declaration.Copies)) {
        report->SetParameter(kFirstParameter, copy);
        report->PrintOut(false);
    }
}

} // namespace TradeForms
