#include "reports/PrintPort.h"

#include "reports/PdfPorts.h"
#include "reports/PrinterPort.h"

#include <utility>

namespace TradeForms {

namespace {

std::unique_ptr<PrintPort>& current()
{
    static std::unique_ptr<PrintPort> port;
    return port;
}

} // namespace

PrintPort::~PrintPort() = default;

PrintPort& PrintPort::Current()
{
    if (!current())
        current() = std::make_unique<PrinterPort>();
    return *current();
}

std::unique_ptr<PrintPort> PrintPort::SetCurrent(std::unique_ptr<PrintPort> port)
{
    return std::exchange(current(), std::move(port));
}

namespace Printing {

void UsePrinter(const QString& folderWithoutPrinter,
                std::function<void(const QString& folder)> onFolder)
{
    auto printer = std::make_unique<PrinterPort>();
    if (folderWithoutPrinter.isEmpty()) {
        PrintPort::SetCurrent(std::move(printer));
    } else {
        PrintPort::SetCurrent(std::make_unique<PrinterOrFolderPort>(
            std::move(printer), folderWithoutPrinter, std::move(onFolder)));
    }
}

void UseFolder(const QString& folder)
{
    PrintPort::SetCurrent(std::make_unique<FolderPort>(folder));
}

void UseReceiver(Receiver receiver)
{
    PrintPort::SetCurrent(std::make_unique<ReceiverPort>(std::move(receiver)));
}

} // namespace Printing
} // namespace TradeForms
