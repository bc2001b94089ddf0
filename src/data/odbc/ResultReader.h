#pragma once

#include "data/Engine.h"
#include "data/odbc/OdbcLink.h"
#include "data/odbc/Server.h"
#include "data/server/ServerCells.h"

namespace TradeForms {

/// Reads the rows of a statement that was run: in blocks where every column's width is bounded,
/// else one by one, since a text without a limit is fetched piece by piece. Either way the cells
/// of a row are read from left to right, as some drivers demand.
class ResultReader {
public:
    ResultReader(OdbcLink& link, const Server& server, const OdbcStatement& statement);

    int Count() const { return int(columns_.size()); }
    /// The columns, with the tables they come from where they are wanted and the driver knows.
    std::vector<Column> Describe(Engine::Purpose purpose);
    /// Hands over every row.
    void Read(const Engine::OnRow& each);

private:
    /// One column's values, of as many rows as are fetched at once.
    struct Buffer {
        SQLSMALLINT SqlType = 0;
        SQLSMALLINT Type = 0; ///< in which the driver gives it
        ColumnKind Kind = ColumnKind::Text;
        std::size_t Width = 0; ///< bytes of a value
        bool IsBounded = true;
        bool IsTyped = true; ///< false where each value tells its type
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
