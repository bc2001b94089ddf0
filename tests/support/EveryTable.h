#pragma once

#include "support/TestCompany.h"

#include <QStringList>

#include <string>
#include <vector>

/// All tables of a company file, in the order of their names, but for what it works out from them.
QStringList TablesOf(const TestCompany& company);

/// Gives a company the tables and columns that a host adds as its own.
void AddHostTables(const TestCompany& company);

/// Adds rows to every table, whatever stands in it: Urdu, quotes, line ends, empty texts and
/// blanks at the end, nulls wherever one may stand, amounts of up to fourteen digits, days, moments
/// and flags. The accounts are "Kot 1001" and on, and the money vouchers are theirs. Call it once.
void FillEveryTable(const TestCompany& company, int rows);

/// Everything that stands in those tables of a file: the rows of each table in the order of their
/// bytes.
std::vector<std::string> ContentsOf(const QString& file);
