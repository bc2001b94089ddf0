#pragma once

#include "data/Engine.h"
#include "data/Tokens.h"

#include <QString>

#include <memory>
#include <span>

namespace tests {

/// A session with a company file that understands the SQL Server dialect as far as this library
/// uses it: batches with try, row and transaction counts, savepoints. A transaction counts only
/// once a table was read or written in it, as with providers that leave its beginning to the
/// server. Raises ProviderFailure.
class ServerSession {
public:
    /// The result of a statement.
    struct Result {
        std::shared_ptr<const TradeForms::Snapshot> Rows; ///< null if it returns none
        int Changed = -1; ///< number of rows; -1 if nothing was written
    };

    explicit ServerSession(std::unique_ptr<TradeForms::Engine> company);

    Result Execute(const QString& text);

    void BeginTrans();
    void CommitTrans() { company_->CommitTrans(); }
    void RollbackTrans() { company_->RollbackTrans(); }

    /// Sets whether statements report how many rows they changed, which a session can turn off.
    void SetCounting(bool isOn) { isCounting_ = isOn; }

private:
    using Tokens = std::span<const TradeForms::Token>;

    Result number(qint64 value);
    Result plain(Tokens statement);
    Result batch(const QString& text);
    bool isCounted();

    std::unique_ptr<TradeForms::Engine> company_;
    bool isCounting_ = true;
    bool isTouched_ = false; // whether a table was accessed since the transaction was begun
    qint64 lastCount_ = 0;   // number of rows, @@rowcount
};

} // namespace tests
