#pragma once

#include "data/Engine.h"
#include "data/ado/HostLink.h"
#include "data/ado/HostRows.h"

#include <QHash>

namespace TradeForms {

/// The database server of a connection that a host has opened. Runs no statement before the first
/// one that is asked for, and leaves the session's settings unchanged.
class AdoEngine : public Engine {
public:
    /// Adds a reference to the connection.
    explicit AdoEngine(const Dispatch& connection);
    ~AdoEngine() override;

    void Scan(const QString& statement, const OnColumns& begin, const OnRow& each,
              Purpose purpose = Purpose::Read) override;
    std::unique_ptr<Cursor> OpenCursor(const QString& statement) override;
    std::unique_ptr<RowWriter> WriterFor(std::shared_ptr<const ResultMetadata> metadata) override;
    const TradeForms::Dialect& Dialect() const override { return dialect_; }

    HostLink& Link() { return link_; }
    /// The description of a table column from the last result that was read for writing; only the
    /// name where there was none.
    HostColumn ColumnOf(const QString& table, const QString& name) const;

private:
    bool isNativeOpen() const override { return link_.IsOpen(); }
    bool isWithinTransaction() override { return link_.IsWithinTransaction(); }
    void beginNative() override;
    void commitNative() override { link_.Commit(); }
    void rollbackNative() override { link_.Rollback(); }
    void setSavepoint() override;
    void releaseSavepoint() override {}
    void rollbackToSavepoint() override;

    std::shared_ptr<const ResultMetadata> metadataOf(const std::vector<HostColumn>& columns,
                                                     const QString& statement, Purpose purpose);

    HostLink link_;
    TradeForms::Dialect dialect_;
    QHash<QString, HostColumn> columns_; // by table and name, in lower case
};

} // namespace TradeForms
