#pragma once

#include <TradeForms/Export.h>

#include <QByteArray>
#include <QString>

#include <functional>

namespace TradeForms {

/// A print job: one copy of a document.
struct TRADEFORMS_EXPORT PrintJob {
    QString Driver; ///< driver, name and port as given to SelectPrinter
    QString PrinterName;
    QString Port;
    QString Title; ///< names the report and the voucher, "Gate Pass 12"
    QString Copy;  ///< "1", "2" or "3"; empty where a report knows no copies
};

/// The destination of printed pages. A host chooses it before the first print; the default is the
/// system's printer.
namespace Printing {

/// Prints to the system's printer without a dialog: the one with the job's printer name, else the
/// default one.
///
/// Without a printer, each job is written to a PDF file in the folder, if one is given: see
/// UseFolder. onFolder is called once, with the folder's path, after the first of them.
TRADEFORMS_EXPORT void UsePrinter(const QString& folderWithoutPrinter = {},
                                  std::function<void(const QString& folder)> onFolder = {});
/// Writes each job to a PDF file in a folder, named by title, copy and time. The folder is created
/// when needed; no file is overwritten.
TRADEFORMS_EXPORT void UseFolder(const QString& folder);
/// Passes each job to a function as a PDF document. An exception of the function is shown in the
/// error box of the printing form, and the remaining copies are not printed.
using Receiver = std::function<void(const PrintJob& job, const QByteArray& pdf)>;
TRADEFORMS_EXPORT void UseReceiver(Receiver receiver);

} // namespace Printing
} // namespace TradeForms
