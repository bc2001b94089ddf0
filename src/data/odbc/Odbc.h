#pragma once

#include <QString>

// The driver manager's headers need those of the system first.
#ifdef _WIN32
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

#include <utility>

// RAII handles and text conversion for the ODBC C API.

namespace TradeForms {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "The driver manager takes text in UTF-16.");

/// The text in UTF-16, as the driver manager takes it. Valid as long as the string. The driver
/// manager takes it as not const but does not write to it.
inline SQLWCHAR* OdbcText(const QString& text)
{
    return reinterpret_cast<SQLWCHAR*>(const_cast<ushort*>(text.utf16()));
}

inline QString FromOdbcText(const SQLWCHAR* text, qsizetype length)
{
    return QString::fromUtf16(reinterpret_cast<const char16_t*>(text), length);
}

/// Owns an ODBC environment, connection or statement handle; null where it could not be allocated.
template <SQLSMALLINT Type> class OdbcHandle {
public:
    OdbcHandle() = default;
    explicit OdbcHandle(SQLHANDLE parent) { SQLAllocHandle(Type, parent, &handle_); }
    ~OdbcHandle()
    {
        if (handle_)
            SQLFreeHandle(Type, handle_);
    }
    OdbcHandle(OdbcHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    OdbcHandle& operator=(OdbcHandle&& other) noexcept
    {
        std::swap(handle_, other.handle_);
        return *this;
    }

    SQLHANDLE Get() const { return handle_; }

private:
    SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

using OdbcEnvironment = OdbcHandle<SQL_HANDLE_ENV>;
using OdbcSession = OdbcHandle<SQL_HANDLE_DBC>;
using OdbcStatement = OdbcHandle<SQL_HANDLE_STMT>;

} // namespace TradeForms
