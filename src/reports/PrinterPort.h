#pragma once

#include "reports/PrintPort.h"

#include <QString>
#include <QStringList>

#include <memory>

class QPrinter;

namespace TradeForms {

/// What the printer port asks of the system; tests put their own in its place.
class SystemPrinters {
public:
    virtual ~SystemPrinters();
    virtual QStringList Names() const;
    /// Empty where the system has no default printer.
    virtual QString DefaultName() const;
    virtual std::unique_ptr<QPrinter> Open(const QString& name) const;
};

/// The system's printers, without a dialog.
class PrinterPort : public PrintPort {
public:
    explicit PrinterPort(
        std::unique_ptr<SystemPrinters> system = std::make_unique<SystemPrinters>());

    /// Raises Failure where there is no printer, or it refuses the job or a page of it.
    void Print(const Document& document, const PrintJob& job) override;

    bool HasPrinter() const;
    /// The printer of a job: the one with the job's printer name, else the one named like its port,
    /// else the default printer, else the only one. Empty where there is none of these.
    QString Resolve(const PrintJob& job) const;

private:
    std::unique_ptr<SystemPrinters> system_;
};

} // namespace TradeForms
