#pragma once

#include "data/sqlite/Handle.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace TradeForms {

/// The text of schema/sqlite.sql, which the build makes a part of the library.
const char* SqliteSchemaScript();

/// A new database in memory in which the schema script was run: a company without rows.
Handle SchemaInMemory();

/// One object that a schema defines.
struct SchemaObject {
    QByteArray Type; ///< table, index, view or trigger
    QByteArray Name;
    QByteArray Definition; ///< the statement that makes it
};

/// The objects of a database in the order in which they were made. What SQLite makes by itself and
/// can define by no statement, such as the index of a key, is left out. Raises ProviderFailure.
QList<SchemaObject> SchemaObjectsOf(sqlite3* handle);

/// Raises ProviderFailure where a file does not have the tables, views and triggers of the schema,
/// since it is damaged then. Further tables, further columns and missing
/// indexes are accepted.
void RequireCompanySchema(sqlite3* handle, const QString& file);

} // namespace TradeForms
