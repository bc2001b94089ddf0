#pragma once

#include "data/Engine.h"

#include <QFileInfo>
#include <QString>

#include <chrono>
#include <memory>

struct sqlite3;

namespace TradeForms {

class SqliteEngine;

/// The default time to wait for a lock of another process.
constexpr std::chrono::milliseconds defaultLockWait{5000};

/// Opens a company file and upgrades an older one. Raises ProviderFailure with a text for the user
/// where it is missing, is no company, has a newer version, is read-only, damaged or cannot be
/// opened.
std::unique_ptr<Engine> OpenCompanyFile(const QString& file,
                                        std::chrono::milliseconds lockWait = defaultLockWait);

/// Opens a company file for reading only: it may be read-only, and is neither configured nor
/// upgraded. Raises ProviderFailure as OpenCompanyFile does.
std::unique_ptr<SqliteEngine>
OpenCompanyToRead(const QString& file, std::chrono::milliseconds lockWait = defaultLockWait);

/// Opens a database file without checking its contents. Raises ProviderFailure.
std::unique_ptr<SqliteEngine> OpenFile(const QString& file, std::chrono::milliseconds lockWait);

/// Whether a file or folder may be written. Returns false for one that is marked read-only also
/// where the user is an administrator, who could write to it.
bool IsWritable(const QFileInfo& info);

/// Creates a company file, which must not exist, with the schema. Raises ProviderFailure.
std::unique_ptr<Engine> CreateCompanyFile(const QString& file);
/// The same with the schema of another company, including tables of a host.
std::unique_ptr<Engine> CreateCompanyFileLike(SqliteEngine& model, const QString& file);

/// Sets durable commits and WAL mode, in which readers and a writer do not block each other, and
/// sizes of caches. Raises ProviderFailure.
void ConfigureCompany(sqlite3* handle);

/// Sets the schema version, which marks the file as a complete company.
void MarkAsCompany(sqlite3* handle);

/// Recalculates the stock of each product in each branch, which triggers keep up to date
/// afterwards. Raises ProviderFailure.
void FillStockLevels(sqlite3* handle);

} // namespace TradeForms
