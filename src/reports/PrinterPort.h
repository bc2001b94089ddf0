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
    /// Empty where the system names none.
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
    /// The printer that a job goes to: the one that bears its printer name, else the one that
    /// bears the name of its port, else the default one, else the only one. Empty where none
    /// of these is.
    QString Resolve(const PrintJob& job) const;

private:
    std::unique_ptr<SystemPrinters> system_;
};

} // namespace TradeForms
