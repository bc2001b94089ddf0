#pragma once

#include "data/Engine.h"
#include "data/sqlite/Adapter.h"
#include "data/sqlite/BulkLoad.h"
#include "data/sqlite/CompanyFunctions.h"
#include "data/sqlite/Handle.h"
#include "data/sqlite/WaitClock.h"

#include <QCache>

#include <chrono>
#include <memory>
#include <optional>

namespace TradeForms {

/// The embedded database, through the SQLite C API.
class SqliteEngine : public Engine {
public:
    /// Takes an open connection and registers the server's dialect. Raises ProviderFailure.
    explicit SqliteEngine(Handle handle);
    ~SqliteEngine() override;

    void Scan(const QString& statement, const OnColumns& begin, const OnRow& each,
              Purpose purpose = Purpose::Read) override;
    std::unique_ptr<Cursor> OpenCursor(const QString& statement) override;
    std::unique_ptr<RowWriter> WriterFor(std::shared_ptr<const ResultMetadata> metadata) override;
    const TradeForms::Dialect& Dialect() const override { return dialect_; }
    QStringList TableNames() override;
    void BeginReadTransaction() override;
    void EndReadTransaction() noexcept override;

    void BeginLoad() override;
    void EndLoad(const std::function<void(int done, int steps)>& progress) override;

    /// Sets the time to wait for a lock of another process; 0 by default.
    void SetLockWait(std::chrono::milliseconds wait) { lockWait_ = wait; }
    /// Sets the clock for that; a steady clock by default.
    void SetWaitClock(std::shared_ptr<WaitClock> clock) { clock_ = std::move(clock); }

    sqlite3* Raw() const { return handle_.get(); }

    /// A statement rewritten for SQLite, from a cache. The reference is valid until the next call.
    /// Raises ProviderFailure.
    const AdaptedStatement& Adapted(const QString& statement);

    /// A prepared statement in SQLite's dialect, from a cache. The pointer is valid until the next
    /// call. Raises ProviderFailure.
    sqlite3_stmt* Prepared(const QByteArray& text) { return cachedStatement(text).Compiled.get(); }

private:
    struct CachedStatement {
        PreparedStatement Compiled;
        std::shared_ptr<const ResultMetadata> Columns;
        Purpose ReadFor = Purpose::Read; ///< the purpose for which the columns were read
        int Preparations = 0;            ///< SQLite's count of preparations at that time
    };

    bool isNativeOpen() const override;
    void beginNative() override { run("BEGIN IMMEDIATE"); }
    void commitNative() override { run("COMMIT"); }
    void rollbackNative() override { run("ROLLBACK"); }
    void setSavepoint() override { run("SAVEPOINT mark"); }
    void releaseSavepoint() override { run("RELEASE mark"); }
    void rollbackToSavepoint() override;

    void run(const QByteArray& text);
    CachedStatement& cachedStatement(const QByteArray& text);
    std::shared_ptr<const ResultMetadata> metadataOf(CachedStatement& cached, Purpose purpose);
    static int waitForLock(void* self, int attempt);

    Handle handle_;
    TradeForms::Dialect dialect_;
    std::chrono::milliseconds lockWait_{0};
    std::shared_ptr<WaitClock> clock_ = std::make_shared<WaitClock>();
    std::chrono::milliseconds lockWaitBegan_{0};
    QCache<QString, AdaptedStatement> adapted_;
    QCache<QByteArray, CachedStatement> prepared_;
    CompanyFunctions functions_;
    std::optional<BulkLoad> load_;
    std::string row_; // of the row being read
};

} // namespace TradeForms
