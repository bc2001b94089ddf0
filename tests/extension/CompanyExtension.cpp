// Makes a company file usable for SQLite's ODBC driver, which opens the file with a handle of its
// own: gives that handle the library's collation and functions.

#include "data/Failure.h"
#include "data/sqlite/CompanyFunctions.h"
#include "data/sqlite/Functions.h"

#include <sqlite3.h>

#include <memory>

#if defined(__GNUC__)
#define TESTS_EXPORT __attribute__((visibility("default")))
#else
#define TESTS_EXPORT __declspec(dllexport)
#endif

struct sqlite3_api_routines;

namespace {

void nothing(sqlite3_context*, int, sqlite3_value**) {}

} // namespace

extern "C" TESTS_EXPORT int sqlite3_extension_init(sqlite3* handle, char** message,
                                                   const sqlite3_api_routines*)
{
    try {
        TradeForms::RegisterDialect(handle);
        // The handle is the driver's. When it is closed it tells those who gave it a function.
        auto functions = std::make_unique<TradeForms::CompanyFunctions>(handle);
        return sqlite3_create_function_v2(
            handle, "company_functions", 0, SQLITE_UTF8, functions.release(), nothing, nullptr,
            nullptr, [](void* given) { delete static_cast<TradeForms::CompanyFunctions*>(given); });
    } catch (const TradeForms::Failure& failure) {
        *message = sqlite3_mprintf("%s", failure.what());
        return SQLITE_ERROR;
    }
}
