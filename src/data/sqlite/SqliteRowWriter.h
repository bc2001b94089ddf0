#pragma once

#include "data/sqlite/SqliteEngine.h"

namespace TradeForms {

/// Writes rows of one result to their table in the embedded database.
class SqliteRowWriter : public RowWriter {
public:
    SqliteRowWriter(SqliteEngine& engine, std::shared_ptr<const ResultMetadata> metadata);

    std::string Insert(const char* row, const std::vector<bool>& touched) override;
    qint64 Update(const char* original, const char* row, const std::vector<bool>& touched) override;
    qint64 Delete(const char* original) override;

private:
    /// The number of columns and the primary key of a table.
    struct TableInfo {
        int Columns = 0;
        QList<QString> Keys;
    };

    /// The text of a statement for a set of touched columns, which is mostly the same for all rows
    /// of a batch.
    struct CachedText {
        std::vector<bool> For;
        QByteArray Text;
    };

    TableInfo readTable();
    void bindRow(sqlite3_stmt* statement, int firstParameter, const char* row);
    QByteArray columnNames(const std::vector<bool>& chosen) const;
    const QByteArray& insertFor(const std::vector<bool>& touched);
    const QByteArray& updateFor(const std::vector<bool>& touched);
    const QByteArray& where();

    SqliteEngine& engine_;
    std::shared_ptr<const ResultMetadata> metadata_;
    QByteArray table_;
    QByteArray where_; ///< condition that identifies a row; parameter n is original value n
    CachedText insert_;
    CachedText update_;
};

} // namespace TradeForms
