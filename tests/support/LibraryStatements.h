#pragma once

#include <QString>
#include <QStringList>

namespace tests {

// The statements that the library sends, gathered from where they are written, so that those of a
// new form or dialog are there without further ado. sourceDir is the project's folder.

/// The texts of a C++ file that are statements: string literals, adjacent ones joined, that begin
/// with select, insert, update, delete or exec.
QStringList StatementLiterals(const QString& source);
/// Those of all files of a folder.
QStringList StatementLiteralsIn(const QString& folder);

/// A statement with values in its places, once with every clause that forms put into it and once
/// without. A place that is not known here fails the test: it wants a value that finds something.
QStringList WithSampleValues(const QString& statement);

/// Of the dialogs, as their descriptions make them: without a clause, with each alone, with all;
/// and of their second lists and balances.
QStringList StatementsOfDialogs();
/// Of the frame, the forms and the reports: the literals of src but for the rooms data, which
/// speaks to the databases in their own words, and search.
QStringList StatementsOfForms(const QString& sourceDir);
/// Of screens that are not built yet, written down by hand.
QStringList StatementsToCome(const QString& sourceDir);

/// All of these, each once.
QStringList LibraryStatements(const QString& sourceDir);

} // namespace tests
