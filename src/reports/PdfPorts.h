#pragma once

#include "reports/PrintPort.h"

#include <QDateTime>
#include <QString>

#include <memory>

namespace TradeForms {

class PrinterPort;

/// A folder in which each job becomes a PDF file of its own.
class FolderPort : public PrintPort {
public:
    explicit FolderPort(const QString& folder);

    /// Raises Failure where the folder or the file cannot be written.
    void Print(const Document& document, const PrintJob& job) override;

    /// A job's file name, "Gate Pass 12 copy 1 2026-03-31 14.05.09.pdf". What no file name may
    /// hold is left out.
    static QString FileName(const PrintJob& job, const QDateTime& time);

private:
    QString folder_;
};

/// Hands each job to the host as a PDF document.
class ReceiverPort : public PrintPort {
public:
    explicit ReceiverPort(Printing::Receiver receiver);
    void Print(const Document& document, const PrintJob& job) override;

private:
    Printing::Receiver receiver_;
};

/// The system's printer, or a folder as long as there is none.
class PrinterOrFolderPort : public PrintPort {
public:
    PrinterOrFolderPort(std::unique_ptr<PrinterPort> printer, const QString& folder,
                        std::function<void(const QString& folder)> onFolder);
    ~PrinterOrFolderPort() override;
    void Print(const Document& document, const PrintJob& job) override;

private:
    std::unique_ptr<PrinterPort> printer_;
    QString path_;
    FolderPort folder_;
    std::function<void(const QString& folder)> onFolder_; ///< empty once it has been called
};

} // namespace TradeForms
