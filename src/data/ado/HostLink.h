#pragma once

#include "data/ado/Dispatch.h"

#include <optional>

namespace TradeForms {

/// The connection that a host has opened and lent: it runs statements, tells failures in the
/// database's words, and knows what became of the transaction. Never closes the connection.
class HostLink {
public:
    /// Counts a reference of its own.
    explicit HostLink(const Dispatch& connection);

    /// Runs one statement. Gives the rows, or no object where it gives none; and how many rows it
    /// has changed, -1 where that is not told. Raises ProviderFailure.
    Dispatch Run(const QString& statement, qint32* changed = nullptr);
    /// The first column of the first row, 0 where there is none. Raises ProviderFailure.
    qint32 ReadNumber(const QString& query);

    void Begin();
    void Commit();
    /// Ends quietly where the database has undone the transaction by itself.
    void Rollback();
    /// Whether a transaction that was begun here is open.
    bool IsOpen() const { return isOpen_; }
    /// Whether any is, such as one of the host's own. Asks the database.
    bool IsWithinTransaction();

    /// Makes calls of the connection and what it gives. Where one fails, it finds out what became
    /// of connection and transaction, and raises ProviderFailure.
    template <class Operation> auto Guarded(Operation operation) -> decltype(operation())
    {
        try {
            return operation();
        } catch (const DispatchFailure& failure) {
            raise(failure);
        }
    }

private:
    /// What was reported of one failure.
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
    bool isLost_ = false; // when it last failed
};

} // namespace TradeForms
