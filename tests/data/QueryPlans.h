#pragma once

#include <QByteArray>
#include <QStringList>

struct sqlite3;

/// The tables of vouchers that a statement reads from end to end, by their plain names in order.
/// Tables of masters and work tables do not count: they stay small.
QStringList ScannedVoucherTables(sqlite3* handle, const QByteArray& statement);

/// The steps of a statement's plan, in SQLite's words.
QStringList PlanOf(sqlite3* handle, const QByteArray& statement);

/// Whether a table that the statement reads from end to end is read from an index that holds all
/// that it needs. The statement has to know the table by its own name.
bool ReadsIndexAlone(sqlite3* handle, const QByteArray& statement, const QString& table);

/// Every statement that the connection holds prepared: what its functions and procedures run, as
/// well as what it was asked to run.
QList<QByteArray> PreparedStatements(sqlite3* handle);
