#pragma once

#include "data/Engine.h"
#include "data/Failure.h"
#include "data/odbc/OdbcLink.h"
#include "data/odbc/Server.h"

#include <QCache>

#include <map>

namespace TradeForms {

/// A database server, through the ODBC C API.
class OdbcEngine : public Engine {
public:
    /// Connects. Raises ProviderFailure.
    explicit OdbcEngine(const QString& connectionString);
    ~OdbcEngine() override;

    void Scan(const QString& statement, const OnColumns& begin, const OnRow& each,
              Purpose purpose = Purpose::Read) override;
    std::unique_ptr<RowWriter> WriterFor(std::shared_ptr<const ResultMetadata> metadata) override;
    std::unique_ptr<RowWriter> LoaderFor(std::shared_ptr<const ResultMetadata> metadata) override;
    const TradeForms::Dialect& Dialect() const override { return server_->Dialect(); }

    QStringList TableNames() override;
    void BeginReadTransaction() override;
    void EndReadTransaction() noexcept override;

    const Server& DatabaseServer() const { return *server_; }
    OdbcLink& Link() { return link_; }

    /// A prepared statement with question marks for its parameters, from a cache. The reference is
    /// valid until the next call. Raises ProviderFailure.
    const OdbcStatement& Prepared(const QString& text);
    /// The columns and keys of a table, read from the server's catalogue at the first call. The
    /// reference stays valid as long as the engine. Raises ProviderFailure where there is no such
    /// table.
    const ServerTable& Table(const QString& name);

    /// Runs an operation. Where it raises ProviderFailure, checks whether the transaction is still
    /// open and passes the failure on.
    template <class Operation> auto Guarded(Operation operation) -> decltype(operation())
    {
        try {
            return operation();
        } catch (const ProviderFailure&) {
            checkTransaction();
            throw;
        }
    }

protected:
    /// The statement as it is sent to this server: unchanged for SQL Server.
    virtual QString serverText(const QString& statement) const { return statement; }

private:
    bool isNativeOpen() const override { return isOpen_ && !link_.IsLost(); }
    void beginNative() override;
    void commitNative() override;
    void rollbackNative() override;
    void setSavepoint() override;
    void releaseSavepoint() override;
    void rollbackToSavepoint() override;

    void run(const QStringList& statements);
    void resumeAutocommit();
    void checkTransaction();
    std::shared_ptr<const ResultMetadata>
    metadataOf(std::vector<Column> columns, const QString& statement, Purpose purpose) const;
    void readColumns(const QString& name, ServerTable& table);
    void readPrimaryKey(const QString& name, ServerTable& table);
    void readUniqueIndex(const QString& name, ServerTable& table);

    OdbcLink link_;
    std::unique_ptr<Server> server_;
    bool isOpen_ = false; // whether a transaction is open, as far as this side knows
    QCache<QString, OdbcStatement> prepared_;
    std::map<QString, ServerTable> tables_; // by name in lower case; nodes never move
};

} // namespace TradeForms
