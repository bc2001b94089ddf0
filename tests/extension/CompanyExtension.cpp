// Makes a company file usable for SQLite's ODBC driver, which opens the file with a handle of its
// own: gives that handle the library's collation and functions.

#include "data/Failure.h"
#include "data/sqlite/CompanyFunctions.h"
#include "data/sqlite/Functions.h"

#include <sqlite3.h>

#if defined(__GNUC__)
#define TESTS_EXPORT __attribute__((visibility("default")))
#else
#define TESTS_EXPORT __declspec(dllexport)
#endif

struct sqlite3_api_routines;

extern "C" TESTS_EXPORT int sqlite3_extension_init(sqlite3* handle, char** message,
                                                   const sqlite3_api_routines*)
{
    try {
        TradeForms::RegisterDialect(handle);
        // The handle is the driver's, and tells no one when it is closed: this stays.
        new TradeForms::CompanyFunctions(handle);
        return SQLITE_OK;
    } catch (const TradeForms::Failure& failure) {
        *message = sqlite3_mprintf("%s", failure.what());
        return SQLITE_ERROR;
    }
}
