#pragma once

#include "data/Cells.h"
#include "data/odbc/OdbcLink.h"
#include "data/odbc/Server.h"

#include <vector>

namespace TradeForms {

/// The values for one run of a prepared statement, in the order of its question marks.
class Parameters {
public:
    /// A value for a column. A decimal is rounded to the column's decimals, so that what is
    /// looked for is what the column holds.
    void Add(const Cell& cell, const ServerColumn& column);
    /// Gives them to a statement. They have to live, unchanged, until it has run.
    void Bind(OdbcLink& link, const OdbcStatement& statement);

private:
    struct Value {
        SQLSMALLINT Type = SQL_C_CHAR;
        SQLSMALLINT SqlType = SQL_VARCHAR;
        SQLULEN Size = 1;
        SQLBIGINT Integer = 0;
        SQLDOUBLE Real = 0;
        QByteArray Bytes;
        SQLLEN Length = SQL_NULL_DATA;

        SQLPOINTER Place();
    };

    static Value numberFor(const Cell& cell, const ServerColumn& column);
    static Value textFor(const Cell& cell, const ServerColumn& column);

    std::vector<Value> values_;
};

} // namespace TradeForms
