#pragma once

#include <QString>
#include <QStringList>

namespace tests {

// The SQL statements that the library sends, collected from its sources, so that those of a new
// form or dialog are included automatically. sourceDir: the project's folder.

/// Returns the string literals of a C++ source text that are statements, adjacent literals joined:
/// those that begin with select, insert, update, delete or exec.
QStringList StatementLiterals(const QString& source);
/// Returns those of all files of a folder.
QStringList StatementLiteralsIn(const QString& folder);

/// Returns a statement with sample values in its places: once with every clause that forms insert
/// and once without. An unknown place fails the test; it needs a sample value that finds some rows.
QStringList WithSampleValues(const QString& statement);

/// Returns the statements of the search dialogs, made from their declarations: without any clause,
/// with each one alone and with all; and those of their second lists and balances.
QStringList StatementsOfDialogs();
/// Returns the statements of the frame, the forms and the reports: the literals in src except for
/// the rooms data, which uses each database's own dialect, and search.
QStringList StatementsOfForms(const QString& sourceDir);
/// Returns statements of screens not implemented yet, listed by hand.
QStringList StatementsToCome(const QString& sourceDir);

/// Returns all of these without duplicates.
QStringList LibraryStatements(const QString& sourceDir);

} // namespace tests
