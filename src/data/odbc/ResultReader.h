#pragma once

#include "data/Engine.h"
#include "data/odbc/OdbcLink.h"
#include "data/odbc/Server.h"
#include "data/server/ServerCells.h"

namespace TradeForms {

/// Reads the result of a statement that was run: in blocks where every column has a maximal width,
/// otherwise row by row with long values in chunks. The columns of a row are read from left to
/// right, as some drivers require.
class ResultReader {
public:
    ResultReader(OdbcLink& link, const Server& server, const OdbcStatement& statement);

    int Count() const { return int(columns_.size()); }
    /// The columns; for Purpose::Write with their base tables, where the driver reports them.
    /// Raises ProviderFailure.
    std::vector<Column> Describe(Engine::Purpose purpose);
    /// Reads all rows and calls `each` with each of them. Raises ProviderFailure.
    void Read(const Engine::OnRow& each);

private:
    /// The buffer of one column for the rows of a block.
    struct Buffer {
        SQLSMALLINT SqlType = 0;
        SQLSMALLINT Type = 0; ///< the C type in which it is fetched
        ColumnKind Kind = ColumnKind::Text;
        std::size_t Width = 0; ///< bytes of a value
        bool IsBounded = true;
        bool IsTyped = true; ///< false where the type may differ from value to value
        std::vector<char> Values;
        std::vector<SQLLEN> Lengths;
    };

    Buffer bufferFor(int column);
    QString textAttribute(int column, SQLUSMALLINT what);
    qint64 numberAttribute(int column, SQLUSMALLINT what);
    bool isBounded() const;
    void prepareBlocks();
    void setBlock(std::size_t rows, SQLULEN* fetched, SQLUSMALLINT* states);
    std::size_t fetch();
    void getColumns();
    void getLongData(int column, Buffer& buffer);
    void append(const Buffer& buffer, std::size_t row);

    OdbcLink& link_;
    const Server& server_;
    const OdbcStatement& statement_;
    std::vector<Buffer> columns_;
    std::size_t blockSize_ = 1;
    SQLULEN fetched_ = 0;
    std::vector<SQLUSMALLINT> rowStatus_;
    TextAppender texts_;
    std::string row_; // being read
};

} // namespace TradeForms
