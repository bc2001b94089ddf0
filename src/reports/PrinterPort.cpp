#include "reports/PrinterPort.h"

#include "data/Failure.h"
#include "reports/Document.h"

#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

#include <algorithm>

namespace TradeForms {

SystemPrinters::~SystemPrinters() = default;

QStringList SystemPrinters::Names() const
{
    return QPrinterInfo::availablePrinterNames();
}

QString SystemPrinters::DefaultName() const
{
    return QPrinterInfo::defaultPrinterName();
}

std::unique_ptr<QPrinter> SystemPrinters::Open(const QString& name) const
{
    return std::make_unique<QPrinter>(QPrinterInfo::printerInfo(name), QPrinter::HighResolution);
}

PrinterPort::PrinterPort(std::unique_ptr<SystemPrinters> system) : system_(std::move(system)) {}

bool PrinterPort::HasPrinter() const
{
    return !system_->Names().isEmpty();
}

QString PrinterPort::Resolve(const PrintJob& job) const
{
    const QStringList names = system_->Names();
    for (const QString& wanted : {job.PrinterName, job.Port}) {
        const auto found = std::find_if(names.begin(), names.end(), [&](const QString& name) {
            return name.compare(wanted, Qt::CaseInsensitive) == 0;
        });
        if (found != names.end())
            return *found;
    }
    const QString usual = system_->DefaultName();
    return usual.isEmpty() && names.size() == 1 ? names.front() : usual;
}

void PrinterPort::Print(const Document& document, const PrintJob& job)
{
    const QString name = Resolve(job);
    if (name.isEmpty()) {
        throw Failure(
            HasPrinter()
                ? QStringLiteral("There are several printers and none of them is the default one. "
                                 "Make one the default printer of this computer. Nothing was "
                                 "printed.")
                : QStringLiteral("There is no printer on this computer. Nothing was printed."));
    }
    const auto failed = [&name](const QString& what) {
        return Failure(QStringLiteral("The printer \"%1\" %2.").arg(name, what));
    };

    const std::unique_ptr<QPrinter> printer = system_->Open(name);
    printer->setDocName(job.Copy.isEmpty() ? job.Title
                                           : QStringLiteral("%1 (%2)").arg(job.Title, job.Copy));
    // The document contains its margins. A printer without this paper size keeps its own; the page
    // is printed in its top left corner.
    QPageLayout sheet = document.PageLayout();
    sheet.setMode(QPageLayout::FullPageMode);
    printer->setPageLayout(sheet);
    QPainter painter;
    if (!painter.begin(printer.get()))
        throw failed(QStringLiteral("does not take the document"));
    const qreal scale = printer->resolution() / 254.0;
    painter.scale(scale, scale);
    for (int page = 0; page < document.PageCount(); ++page) {
        if (page > 0 && !printer->newPage()) {
            printer->abort();
            throw failed(QStringLiteral("has failed at page %1 of %2")
                             .arg(page + 1)
                             .arg(document.PageCount()));
        }
        document.Paint(painter, page);
    }
    if (!painter.end() || printer->printerState() == QPrinter::Error)
        throw failed(QStringLiteral("has failed at the end of the document"));
}

} // namespace TradeForms
