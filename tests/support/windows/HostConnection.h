#pragma once

#include "data/Connection.h"
#include "support/windows/HostObject.h"
#include "support/windows/ServerSession.h"

#include <QList>
#include <QStringList>

#include <memory>
#include <optional>

namespace tests {

/// The way in which a connection's provider returns values.
enum class Provider {
    Present, ///< dates as dates
    Older    ///< dates as texts, like providers older than the server's date types
};

/// A host's own connection object to a company file, which behaves like one to a database server.
/// Its members are Execute, BeginTrans, CommitTrans, RollbackTrans and Errors. All rows have been
/// read when Execute returns.
class HostConnection : public HostObject {
public:
    explicit HostConnection(std::unique_ptr<TradeForms::Engine> company,
                            Provider provider = Provider::Present);
    ~HostConnection() override;

    /// Returns the number of round trips to the server.
    int Calls() const { return calls_; }
    /// Returns the statements received.
    const QStringList& Statements() const { return statements_; }
    void ForgetStatements() { statements_.clear(); }

    /// Simulates a lost network until MendLine: every call fails.
    void CutLine() { isCut_ = true; }
    void MendLine() { isCut_ = false; }
    /// Loses the network after this many blocks of rows.
    void CutLineAfterBlocks(int blocks) { blocksLeft_ = blocks; }
    /// Makes the next statement fail with these errors, of which the first is the failure itself.
    void FailNext(QList<TradeForms::ProviderError> errors) { next_ = std::move(errors); }

    ServerSession& Session() { return session_; }

    static const QString LostReason;

private:
    class Errors;
    friend class HostRecordset;

    void reach();
    void countBlock();
    [[noreturn]] void fail(const QList<TradeForms::ProviderError>& errors);
    TradeForms::Variant run(const std::function<TradeForms::Variant()>& operation);
    TradeForms::Variant execute(Arguments arguments);

    ServerSession session_;
    Provider provider_;
    int calls_ = 0;
    QStringList statements_;
    bool isCut_ = false;
    std::optional<int> blocksLeft_;
    QList<TradeForms::ProviderError> next_;
    QList<TradeForms::ProviderError> errors_;
};

} // namespace tests
