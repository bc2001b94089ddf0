#pragma once

#include <TradeForms/Export.h>

#include <QByteArray>
#include <QString>

#include <functional>

namespace TradeForms {

/// What goes to a print port together with the pages: one job is one copy.
struct TRADEFORMS_EXPORT PrintJob {
    QString Driver; ///< the three strings of SelectPrinter, as the program gives them
    QString PrinterName;
    QString Port;
    QString Title; ///< names the report and the voucher, "Gate Pass 12"
    QString Copy;  ///< "1", "2" or "3"; empty where a report knows no copies
};

/// Where printed pages go. A host chooses once, before the first print; without a choice they
/// go to the system's printer.
namespace Printing {

/// The system's printer, without a dialog: the one of the job's name where there is one, else
/// the default one.
///
/// Where there is no printer at all, each job is kept as a PDF file in a folder instead, if one
/// is named: see UseFolder. When the first one is, onFolder is called with the folder's path.
TRADEFORMS_EXPORT void UsePrinter(const QString& folderWithoutPrinter = {},
                                  std::function<void(const QString& folder)> onFolder = {});
/// A folder of PDF files in place of a printer, made when it is needed: one file a job, named by
/// its title, copy and time. No file is overwritten.
TRADEFORMS_EXPORT void UseFolder(const QString& folder);
/// A receiver of finished PDF documents in place of a printer. What it throws ends in the error
/// box of the form that prints, and the copies that have not come yet are left out.
using Receiver = std::function<void(const PrintJob& job, const QByteArray& pdf)>;
TRADEFORMS_EXPORT void UseReceiver(Receiver receiver);

} // namespace Printing
} // namespace TradeForms
