#pragma once

#include "reports/PrintPort.h"

#include <QDateTime>
#include <QString>

#include <memory>

namespace TradeForms {

class PrinterPort;

/// Writes each job to a PDF file of its own in a folder.
class FolderPort : public PrintPort {
public:
    explicit FolderPort(const QString& folder);

    /// Raises Failure where the folder or the file cannot be written.
    void Print(const Document& document, const PrintJob& job) override;

    /// The file name of a job, "Gate Pass 12 copy 1 2026-03-31 14.05.09.pdf". Characters that a
    /// file name cannot hold become blanks.
    static QString FileName(const PrintJob& job, const QDateTime& time);

private:
    QString folder_;
};

/// Passes each job to the host as a PDF document.
class ReceiverPort : public PrintPort {
public:
    explicit ReceiverPort(Printing::Receiver receiver);
    void Print(const Document& document, const PrintJob& job) override;

private:
    Printing::Receiver receiver_;
};

/// The system's printer, or a folder while there is no printer.
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
    std::function<void(const QString& folder)> onFolder_; ///< reset after its first call
};

} // namespace TradeForms
