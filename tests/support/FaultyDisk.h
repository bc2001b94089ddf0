#pragma once

#include <functional>

/// A disk that fails when a test says so. Within its scope every database is on it: databases
/// must be opened after it was made, and closed before it goes. One at a time.
class FaultyDisk {
public:
    enum class Fault {
        Error, ///< what is written, flushed or cut off comes back as an error
        Full   ///< what is written finds no room
    };
    enum class Lasts { Once, UntilRepaired };

    FaultyDisk();
    ~FaultyDisk();
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;

    /// The operation of this number, counted from 1 and from now, fails. Of a write that fails
    /// the first half arrives.
    void FailAt(int operation, Fault fault, Lasts lasts);
    void Repair();
    /// Whether anything has failed since FailAt.
    bool HasFailed() const;

    /// What happens when somebody is next refused a lock that another holds: he waits by then.
    void WhenSomebodyWaits(std::function<void()> deed);
};
