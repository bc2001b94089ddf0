#pragma once

#include "data/Cells.h"

#include <QString>
#include <QStringView>

#include <memory>
#include <string_view>
#include <vector>

namespace TradeForms {

/// One column of a result.
struct Column {
    QString Name;
    ColumnKind Kind = ColumnKind::Expression;
    QString Table; ///< the table that it comes from; empty for an expression and where a result is
                   ///< read only
    QString Field; ///< its name in that table
};

/// The columns of a result, and the table to which its rows can be written.
class ResultMetadata {
public:
    explicit ResultMetadata(std::vector<Column> columns);

    int Count() const { return int(columns_.size()); }
    const Column& At(int index) const { return columns_[std::size_t(index)]; }
    /// The index of a column by its name, without regard to case; the first where several have that
    /// name, -1 where none has.
    int IndexOf(QStringView name) const;
    int IndexOf(const char* name) const;
    /// The one table that all columns come from, none of them twice; empty otherwise. Rows of a
    /// result without a base table cannot be written.
    const QString& BaseTable() const { return baseTable_; }

private:
    std::vector<Column> columns_;
    QString baseTable_;
};

/// The rows of a query, read-only.
class Snapshot {
public:
    explicit Snapshot(std::shared_ptr<const ResultMetadata> metadata)
        : metadata_(std::move(metadata))
    {
    }

    const ResultMetadata& Columns() const { return *metadata_; }
    const std::shared_ptr<const ResultMetadata>& SharedMetadata() const { return metadata_; }

    int RowCount() const { return int(rows_.size()); }
    const char* Row(int row) const { return rows_[std::size_t(row)]; }

    /// Adds a row of encoded cells.
    void Append(std::string_view row);
    /// To be called after the last row: frees unused memory.
    void Finish() { rows_.shrink_to_fit(); }

private:
    std::shared_ptr<const ResultMetadata> metadata_;
    std::vector<std::unique_ptr<char[]>> blocks_;
    std::vector<const char*> rows_;
    char* free_ = nullptr;
    std::size_t freeSize_ = 0;
    std::size_t stored_ = 0;
};

} // namespace TradeForms
