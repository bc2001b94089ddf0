#pragma once

#include "data/Statement.h"
#include "data/Tokens.h"

#include <QString>
#include <QStringList>

#include <vector>

// Statements of SQL Server, for both ways to reach it.

namespace TradeForms {

/// A name in double quotes, for use in statements.
QString QuotedName(const QString& name);

namespace TransactSql {

/// The date formats that are read the same under every language setting.
TradeForms::Dialect Dialect();

/// A text as a string literal: in the code page of the database, or in Unicode.
QString Literal(const QString& text);
QString UnicodeLiteral(const QString& text);

/// Raises ProviderFailure where the tokens are more than one statement: the server needs no
/// semicolon between two, and would run both.
void RequireOneStatement(const std::vector<Token>& tokens);

/// Takes the company's write lock within a transaction. Only other transactions that take it have
/// to wait, not readers.
QString TakeLock();
QString SetSavepoint();
QString RollbackToSavepoint();
/// A query for the number of open transactions.
QString CountTransactions();

// Statements that write rows of a table whose name is quoted already. With isSingleRow, only one of
// several matching rows is written.

QString UpdateStatement(const QString& table, const QString& settings, const QString& where,
                        bool isSingleRow);
QString DeleteStatement(const QString& table, const QString& where, bool isSingleRow);
/// Inserts a row and returns columns of it as stored.
QString InsertStatement(const QString& table, const QString& columns, const QString& values,
                        const QStringList& returned);

} // namespace TransactSql

} // namespace TradeForms
