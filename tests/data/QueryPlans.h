#pragma once

#include <QByteArray>
#include <QStringList>

struct sqlite3;

/// The voucher tables that a statement reads by a full scan, sorted by name. Master tables and work
/// tables are not included, since they are small.
QStringList ScannedVoucherTables(sqlite3* handle, const QByteArray& statement);

/// The steps of a statement's query plan, as SQLite describes them.
QStringList PlanOf(sqlite3* handle, const QByteArray& statement);

/// Whether the full scan of a table uses a covering index. The statement must not use an alias for
/// the table.
bool ReadsIndexAlone(sqlite3* handle, const QByteArray& statement, const QString& table);

/// All prepared statements of a connection, including those of its functions and procedures.
QList<QByteArray> PreparedStatements(sqlite3* handle);
