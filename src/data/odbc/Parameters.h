#pragma once

#include "data/Cells.h"
#include "data/odbc/OdbcLink.h"
#include "data/odbc/Server.h"

#include <vector>

namespace TradeForms {

/// The parameters of one run of a prepared statement, in the order of its question marks.
class Parameters {
public:
    /// Adds a value for a column. A decimal is rounded to the column's scale, so that it compares
    /// equal to the stored value.
    void Add(const Cell& cell, const ServerColumn& column);
    /// Binds the parameters to a statement. They must exist unchanged until it has run. Raises
    /// ProviderFailure.
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
