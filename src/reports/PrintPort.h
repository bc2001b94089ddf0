#pragma once

#include <TradeForms/Printing.h>

#include <memory>

namespace TradeForms {

class Document;

/// The destination of finished documents. Jobs come one at a time, in the order of their copies.
class PrintPort {
public:
    PrintPort() = default;
    virtual ~PrintPort();
    PrintPort(const PrintPort&) = delete;
    PrintPort& operator=(const PrintPort&) = delete;

    /// Prints all pages of a document and returns when the job has been handed over. Raises Failure
    /// with a text for the user.
    virtual void Print(const Document& document, const PrintJob& job) = 0;

    /// Returns the port that the host has chosen, or the system's printer.
    static PrintPort& Current();
    /// Sets the port, null for the system's printer. Returns the previous one.
    static std::unique_ptr<PrintPort> SetCurrent(std::unique_ptr<PrintPort> port);
};

} // namespace TradeForms
