#pragma once

#include "data/Connection.h"
#include "support/windows/HostObject.h"
#include "support/windows/ServerSession.h"

#include <QList>
#include <QStringList>

#include <memory>
#include <optional>

namespace tests {

/// How a connection's provider gives what it reads.
enum class Provider {
    Present, ///< dates as dates
    Older    ///< dates as texts, as one does that was made before the server knew them
};

/// A host's own connection to a company file, which answers as one to a database server does: with
/// the members Execute, BeginTrans, CommitTrans, RollbackTrans and Errors. Rows are all there when
/// Execute returns.
class HostConnection : public HostObject {
public:
    explicit HostConnection(std::unique_ptr<TradeForms::Engine> company,
                            Provider provider = Provider::Present);
    ~HostConnection() override;

    /// How often the way to the server was taken.
    int Calls() const { return calls_; }
    /// The statements that came.
    const QStringList& Statements() const { return statements_; }
    void ForgetStatements() { statements_.clear(); }

    /// The network is gone until it is mended: every call fails.
    void CutLine() { isCut_ = true; }
    void MendLine() { isCut_ = false; }
    /// After so many blocks of rows the line is cut.
    void CutLineAfterBlocks(int blocks) { blocksLeft_ = blocks; }
    /// The next statement fails with these errors, the first being the failure itself.
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
