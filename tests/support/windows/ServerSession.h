#pragma once

#include "data/Engine.h"
#include "data/Tokens.h"

#include <QString>

#include <memory>
#include <span>

namespace tests {

/// A session with a company file that understands what this library says to SQL Server, as far as
/// it says it: batches that try, counts of rows and of transactions, marks. A transaction counts
/// only when a table was read or written in it, as with the providers that leave its beginning to
/// the server. Raises ProviderFailure.
class ServerSession {
public:
    /// What a statement gave.
    struct Result {
        std::shared_ptr<const TradeForms::Snapshot> Rows; ///< null where it gives none
        int Changed = -1;                                 ///< rows; -1 where nothing was written
    };

    explicit ServerSession(std::unique_ptr<TradeForms::Engine> company);

    Result Execute(const QString& text);

    void BeginTrans();
    void CommitTrans() { company_->CommitTrans(); }
    void RollbackTrans() { company_->RollbackTrans(); }

    /// Whether statements tell how many rows they have changed, which a session may be told not to.
    void SetCounting(bool isOn) { isCounting_ = isOn; }

private:
    using Tokens = std::span<const TradeForms::Token>;

    Result number(qint64 value);
    Result plain(Tokens statement);
    Result batch(const QString& text);
    bool isCounted();

    std::unique_ptr<TradeForms::Engine> company_;
    bool isCounting_ = true;
    bool isTouched_ = false; // a table, since the transaction was begun
    qint64 lastCount_ = 0;   // of rows, @@rowcount
};

} // namespace tests
