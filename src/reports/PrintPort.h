#pragma once

#include <TradeForms/Printing.h>

#include <memory>

namespace TradeForms {

class Document;

/// Where finished documents go. Jobs come one at a time, in the order of their copies.
class PrintPort {
public:
    PrintPort() = default;
    virtual ~PrintPort();
    PrintPort(const PrintPort&) = delete;
    PrintPort& operator=(const PrintPort&) = delete;

    /// Puts out all pages of a document and returns when the job has been handed over.
    /// Raises Failure with a text for the user where it cannot be.
    virtual void Print(const Document& document, const PrintJob& job) = 0;

    /// The port of this program: what the host has chosen, or the system's printer.
    static PrintPort& Current();
    /// Puts another one in its place, null for the system's printer; gives back the one before.
    static std::unique_ptr<PrintPort> SetCurrent(std::unique_ptr<PrintPort> port);
};

} // namespace TradeForms
