#pragma once

#include <QString>

#include <sqlite3.h>

namespace TradeForms {

/// Makes sure that an open file holds the tables, views and indexes of a company as this program
/// makes them. More tables, and more columns in those of the company, are the host's own, and an
/// index may lack. Raises ProviderFailure for anything else: the file is damaged.
void RequireCompanySchema(sqlite3* handle, const QString& file);

} // namespace TradeForms
