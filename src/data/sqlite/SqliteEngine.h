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

/// The embedded database, by its C API.
class SqliteEngine : public Engine {
public:
    /// Takes an open handle, and gives it the server's dialect. Raises ProviderFailure.
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

    /// How long another process that holds the lock is waited for; at first not at all.
    void SetLockWait(std::chrono::milliseconds wait) { lockWait_ = wait; }
    /// The clock of that wait, at first the time of day.
    void SetWaitClock(std::shared_ptr<WaitClock> clock) { clock_ = std::move(clock); }

    sqlite3* Raw() const { return handle_.get(); }

    /// A statement made ready for SQLite, and cached for the next time. It lives until the next
    /// call. Raises ProviderFailure.
    const AdaptedStatement& Adapted(const QString& statement);

    /// A statement in SQLite's own words, prepared once and cached for the next time. It lives
    /// until the next call. Raises ProviderFailure.
    sqlite3_stmt* Prepared(const QByteArray& text) { return cachedStatement(text).Compiled.get(); }

private:
    struct CachedStatement {
        PreparedStatement Compiled;
        std::shared_ptr<const ResultMetadata> Columns;
        Purpose ReadFor = Purpose::Read; ///< what the columns were read for
        int Preparations = 0;            ///< SQLite's count when they were read
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
