#pragma once

#include <functional>

/// A disk that fails on request. For its lifetime, every database is opened on it; databases must
/// be opened after it is created and closed before it is destroyed. Only one may exist at a time.
class FaultyDisk {
public:
    enum class Fault {
        Error, ///< writes, flushes and truncations return an error
        Full   ///< writes fail for lack of space
    };
    enum class Lasts { Once, UntilRepaired };

    FaultyDisk();
    ~FaultyDisk();
    FaultyDisk(const FaultyDisk&) = delete;
    FaultyDisk& operator=(const FaultyDisk&) = delete;

    /// Makes the operation with this number fail, counted from 1 starting now. A failing write
    /// still writes the first half of its data.
    void FailAt(int operation, Fault fault, Lasts lasts);
    void Repair();
    /// Whether any operation has failed since FailAt.
    bool HasFailed() const;

    /// Sets a function that is called once, the next time a lock is refused because another
    /// connection holds it. That caller is then waiting for the lock.
    void WhenSomebodyWaits(std::function<void()> deed);
};
