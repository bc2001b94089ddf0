#pragma once

#include "data/Statement.h"
#include "data/Tokens.h"

#include <QString>
#include <QStringList>

#include <vector>

// SQL Server's own words, whichever way they reach it.

namespace TradeForms {

/// A name as it may stand in any statement.
QString QuotedName(const QString& name);

namespace TransactSql {

/// Dates in the one form that no language setting misreads.
TradeForms::Dialect Dialect();

/// A text as a literal: a plain one, which is in the database's own encoding, or in Unicode.
QString Literal(const QString& text);
QString UnicodeLiteral(const QString& text);

/// Raises ProviderFailure where a second statement begins: the server needs no sign between two,
/// and would run both.
void RequireOneStatement(const std::vector<Token>& tokens);

/// Takes the company's write lock within a transaction. Two who begin one wait for each other
/// here, and those who only read do not wait.
QString TakeLock();
QString SetSavepoint();
QString RollbackToSavepoint();
/// How many transactions are open.
QString CountTransactions();

// Statements that write rows of a table whose name is quoted already. Of rows that are alike in
// everything, one of them is written.

QString UpdateStatement(const QString& table, const QString& settings, const QString& where,
                        bool isSingleRow);
QString DeleteStatement(const QString& table, const QString& where, bool isSingleRow);
/// Adds a row, and gives the columns that are wanted of it as the table then holds them.
QString InsertStatement(const QString& table, const QString& columns, const QString& values,
                        const QStringList& returned);

} // namespace TransactSql

} // namespace TradeForms
