#pragma once

#include "data/Snapshot.h"
#include "data/ado/Dispatch.h"
#include "data/server/ServerCells.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace TradeForms {

/// What the connection's objects tell of a column.
struct HostColumn {
    QString Name;
    int Type = 0;   ///< in their numbers
    int Size = 0;   ///< letters or bytes at most, 0 where it is not told
    int Scale = -1; ///< of a decimal; -1 where it is not told

    /// What it holds, as far as its type tells.
    ColumnKind Kind() const;
    bool IsDecimal() const;
    /// A text in Unicode, rather than in the database's own encoding.
    bool IsUnicode() const;
};

/// The rows of one result, which are fetched in blocks. Raises DispatchFailure where a call
/// fails, and ProviderFailure where what comes back cannot be read.
class HostRows {
public:
    /// Takes an open result. It is closed at the end.
    explicit HostRows(const Dispatch& rows);
    ~HostRows();
    HostRows(const HostRows&) = delete;
    HostRows& operator=(const HostRows&) = delete;

    const std::vector<HostColumn>& Columns() const { return columns_; }
    /// As what the columns' values are to be stored; at first as their types tell.
    void SetKinds(const ResultMetadata& metadata);

    /// The next row's encoded cells, which live until the next call; none after the last row.
    std::optional<std::string_view> Next();

private:
    class Block;

    bool fetch();
    void append(const tagVARIANT& value, std::size_t column);
    void appendText(QStringView text, ColumnKind kind);
    void appendMoment(double moment, ColumnKind kind);

    Dispatch rows_;
    std::vector<HostColumn> columns_;
    std::vector<ColumnKind> kinds_;
    std::unique_ptr<Block> block_;
    TextAppender texts_;
    std::string row_; // being read
};

} // namespace TradeForms
