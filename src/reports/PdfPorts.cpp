#include "reports/PdfPorts.h"

#include "data/Failure.h"
#include "reports/Document.h"
#include "reports/PrinterPort.h"

#include <QBuffer>
#include <QDir>
#include <QFile>

#include <utility>

namespace TradeForms {

namespace {

/// Keeps letters, digits, "-" and "."; other characters become blanks.
QString asFileName(const QString& text)
{
    QString name;
    for (const QChar c : text) {
        const bool plain = c.isLetterOrNumber() || c == u' ' || c == u'-' || c == u'.';
        name.append(plain ? c : u' ');
    }
    return name.simplified();
}

QByteArray pdfOf(const Document& document)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    document.WritePdf(buffer);
    return buffer.data();
}

} // namespace

FolderPort::FolderPort(const QString& folder) : folder_(folder) {}

QString FolderPort::FileName(const PrintJob& job, const QDateTime& time)
{
    QString name = asFileName(job.Title);
    if (!job.Copy.isEmpty())
        name += QStringLiteral(" copy ") + asFileName(job.Copy);
    return name + time.toString(QStringLiteral(" yyyy-MM-dd HH.mm.ss")) + QStringLiteral(".pdf");
}

void FolderPort::Print(const Document& document, const PrintJob& job)
{
    const QByteArray pdf = pdfOf(document);
    const auto failed = [](const QString& path, const QString& why) {
        return Failure(QStringLiteral("%1 cannot be written: %2. Nothing was printed.")
                           .arg(QDir::toNativeSeparators(path), why));
    };
    if (!QDir().mkpath(folder_))
        throw failed(folder_, QStringLiteral("the folder cannot be made"));

    // NewOnly: two programs may write to the same folder.
    const QString wanted = QDir(folder_).filePath(FileName(job, QDateTime::currentDateTime()));
    QFile file(wanted);
    for (int next = 2; !file.open(QIODevice::WriteOnly | QIODevice::NewOnly); ++next) {
        if (!file.exists())
            throw failed(file.fileName(), file.errorString());
        QString other = wanted;
        other.insert(wanted.size() - 4, QStringLiteral(" (%1)").arg(next));
        file.setFileName(other);
    }
    if (file.write(pdf) != pdf.size() || !file.flush()) {
        const QString why = file.errorString();
        file.remove();
        throw failed(file.fileName(), why);
    }
}

ReceiverPort::ReceiverPort(Printing::Receiver receiver) : receiver_(std::move(receiver)) {}

void ReceiverPort::Print(const Document& document, const PrintJob& job)
{
    receiver_(job, pdfOf(document));
}

PrinterOrFolderPort::PrinterOrFolderPort(std::unique_ptr<PrinterPort> printer,
                                         const QString& folder,
                                         std::function<void(const QString& folder)> onFolder)
    : printer_(std::move(printer)), path_(folder), folder_(folder), onFolder_(std::move(onFolder))
{
}

PrinterOrFolderPort::~PrinterOrFolderPort() = default;

void PrinterOrFolderPort::Print(const Document& document, const PrintJob& job)
{
    // Checked for each job: a printer may be installed while the program runs.
    if (printer_->HasPrinter()) {
        printer_->Print(document, job);
        return;
    }
    folder_.Print(document, job);
    if (const auto tell = std::exchange(onFolder_, {}))
        tell(path_);
}

} // namespace TradeForms
