#pragma once

#include "support/TestCompany.h"

#include <QStringList>

#include <string>
#include <vector>

/// Returns the names of all tables of a company file in alphabetical order, except those whose
/// contents the file derives itself.
QStringList TablesOf(const TestCompany& company);

/// Adds to a company the tables and columns that a host adds as its own.
void AddHostTables(const TestCompany& company);

/// Adds rows to every table, whatever it already holds. The values include Urdu, quotes, line
/// breaks, empty texts and trailing spaces, nulls in each nullable column, amounts of up to
/// fourteen digits, dates, times and flags. The accounts are "Kot 1001" and following, and the
/// money vouchers belong to them. To be called once.
void FillEveryTable(const TestCompany& company, int rows);

/// Returns the contents of those tables of a file: the rows of each table in byte order.
std::vector<std::string> ContentsOf(const QString& file);
