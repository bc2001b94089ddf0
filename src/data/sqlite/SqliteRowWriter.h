#pragma once

#include "data/sqlite/SqliteEngine.h"

namespace TradeForms {

/// Writes rows of one result to their table.
class SqliteRowWriter : public RowWriter {
public:
    SqliteRowWriter(SqliteEngine& engine, std::shared_ptr<const ResultMetadata> metadata);

    std::string Insert(const char* row, const std::vector<bool>& touched) override;
    qint64 Update(const char* original, const char* row, const std::vector<bool>& touched) override;
    qint64 Delete(const char* original) override;

private:
    /// What the table itself says of its columns.
    struct TableInfo {
        int Columns = 0;
        QList<QString> Keys;
    };

    /// A statement made for the columns that a row has touched. Rows of one batch mostly touch
    /// the same ones.
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
    QByteArray where_; ///< finds a row; parameter n is original value n; made when it is needed
    CachedText insert_;
    CachedText update_;
};

} // namespace TradeForms
