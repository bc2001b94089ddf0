#pragma once

#include "data/ado/Dispatch.h"

#include <optional>

namespace TradeForms {

/// A connection that a host has opened: runs statements, raises failures with the database's
/// messages, and keeps the state of the transaction. Never closes the connection.
class HostLink {
public:
    /// Adds a reference to the connection.
    explicit HostLink(const Dispatch& connection);

    /// Runs one statement. Returns its recordset object, or no object where it has no rows. Sets
    /// the number of changed rows, -1 where it is not reported. Raises ProviderFailure.
    Dispatch Run(const QString& statement, qint32* changed = nullptr);
    /// Runs a query. Returns the first column of the first row, 0 where there is none. Raises
    /// ProviderFailure.
    qint32 ReadNumber(const QString& query);

    void Begin();
    void Commit();
    /// Raises nothing where the database has rolled back by itself.
    void Rollback();
    /// Whether a transaction that was begun here is open.
    bool IsOpen() const { return isOpen_; }
    /// Whether any transaction is open in the session, also one of the host. Queries the database.
    bool IsWithinTransaction();

    /// Runs an operation on the connection or its results. Where that raises DispatchFailure,
    /// determines whether connection and transaction still exist, and raises ProviderFailure.
    template <class Operation> auto Guarded(Operation operation) -> decltype(operation())
    {
        try {
            return operation();
        } catch (const DispatchFailure& failure) {
            raise(failure);
        }
    }

private:
    /// The message and number of a failure.
    struct Report {
        QString Text;
        int Number = 0;
    };

    Dispatch execute(const QString& statement, qint32& changed) const;
    qint32 readNumber(const QString& query) const;
    std::optional<qint32> countTransactions() const;
    Report reportOf(const DispatchFailure& failure) const;
    [[noreturn]] void raise(const DispatchFailure& failure);

    Dispatch connection_;
    bool isOpen_ = false;
    bool isLost_ = false; // as determined at the last failure
};

} // namespace TradeForms
