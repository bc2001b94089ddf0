#include "support/CutLine.h"

#include "data/odbc/Odbc.h"

#include <dlfcn.h>

#include <algorithm>
#include <string_view>

// These functions replace the driver manager's of the same names, and forward to them while the
// network is up.

namespace {

bool isCut = false;

template <class Function> Function* real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

namespace tests {

CutLine::CutLine()
{
    isCut = true;
}

CutLine::~CutLine()
{
    isCut = false;
}

} // namespace tests

extern "C" {

SQLRETURN SQL_API SQLExecDirectW(SQLHSTMT statement, SQLWCHAR* text, SQLINTEGER length)
{
    static auto* const next = real<decltype(SQLExecDirectW)>("SQLExecDirectW");
    return isCut ? SQLRETURN(SQL_ERROR) : next(statement, text, length);
}

SQLRETURN SQL_API SQLExecute(SQLHSTMT statement)
{
    static auto* const next = real<decltype(SQLExecute)>("SQLExecute");
    return isCut ? SQLRETURN(SQL_ERROR) : next(statement);
}

SQLRETURN SQL_API SQLFetch(SQLHSTMT statement)
{
    static auto* const next = real<decltype(SQLFetch)>("SQLFetch");
    return isCut ? SQLRETURN(SQL_ERROR) : next(statement);
}

SQLRETURN SQL_API SQLEndTran(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT how)
{
    static auto* const next = real<decltype(SQLEndTran)>("SQLEndTran");
    return isCut ? SQLRETURN(SQL_ERROR) : next(type, handle, how);
}

SQLRETURN SQL_API SQLGetDiagRecW(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT record,
                                 SQLWCHAR* state, SQLINTEGER* number, SQLWCHAR* message,
                                 SQLSMALLINT size, SQLSMALLINT* length)
{
    static auto* const next = real<decltype(SQLGetDiagRecW)>("SQLGetDiagRecW");
    if (!isCut)
        return next(type, handle, record, state, number, message, size, length);
    if (record != 1)
        return SQL_NO_DATA;
    const std::string_view lost("08S01");
    const std::string_view report(tests::CutLine::Report);
    std::copy(lost.begin(), lost.end(), state);
    std::copy(report.begin(), report.end(), message);
    *number = 104;
    *length = SQLSMALLINT(report.size());
    return SQL_SUCCESS;
}

} // extern "C"
