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

/// A column as the connection's field objects describe it.
struct HostColumn {
    QString Name;
    int Type = 0;   ///< type number of the object model
    int Size = 0;   ///< maximal length in characters or bytes, 0 where it is not reported
    int Scale = -1; ///< of a decimal; -1 where it is not reported

    /// The column kind that follows from the type.
    ColumnKind Kind() const;
    bool IsDecimal() const;
    /// Whether it is a text in Unicode and not in the database's code page.
    bool IsUnicode() const;
};

/// Reads the rows of one result in blocks. Functions raise DispatchFailure where a call fails, and
/// ProviderFailure where a value cannot be read.
class HostRows {
public:
    /// Takes an open recordset object, which the destructor closes.
    explicit HostRows(const Dispatch& rows);
    ~HostRows();
    HostRows(const HostRows&) = delete;
    HostRows& operator=(const HostRows&) = delete;

    const std::vector<HostColumn>& Columns() const { return columns_; }
    /// Sets the kinds to which the values are converted; before that, they follow from the column
    /// types.
    void SetKinds(const ResultMetadata& metadata);

    /// The encoded cells of the next row, valid until the next call; nothing after the last row.
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
