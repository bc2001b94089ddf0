#pragma once

#include "data/Engine.h"

#include <QFileInfo>
#include <QString>

#include <chrono>
#include <memory>

struct sqlite3;

namespace TradeForms {

class SqliteEngine;

/// How long another process that holds a lock is waited for.
constexpr std::chrono::milliseconds defaultLockWait{5000};

/// Opens a company file. Raises ProviderFailure with words for the user where it is missing, no
/// company, of a newer version, read-only or cannot be opened.
std::unique_ptr<Engine> OpenCompanyFile(const QString& file,
                                        std::chrono::milliseconds lockWait = defaultLockWait);

/// Opens a file as OpenCompanyFile does, but only to read it: it may be read-only, and is left in
/// the form in which it is.
std::unique_ptr<SqliteEngine>
OpenCompanyToRead(const QString& file, std::chrono::milliseconds lockWait = defaultLockWait);

/// Opens a file without asking what is in it. Raises ProviderFailure.
std::unique_ptr<SqliteEngine> OpenFile(const QString& file, std::chrono::milliseconds lockWait);

/// Whether a file or folder may be written. An administrator may write to what is marked
/// read-only as well, and is told all the same: the mark is there for a reason.
bool IsWritable(const QFileInfo& info);

/// Makes a company file, which must not exist, with the schema in it. Raises ProviderFailure.
std::unique_ptr<Engine> CreateCompanyFile(const QString& file);
/// The same with the schema that another file has, a host's own tables included.
std::unique_ptr<Engine> CreateCompanyFileLike(SqliteEngine& model, const QString& file);

/// Sets what a company is worked on with: a commit is on the disk when it returns; readers and a
/// writer do not hinder each other. All that was written before is on the disk as well then.
void ConfigureCompany(sqlite3* handle);

/// Marks the file as a whole company of this version.
void MarkAsCompany(sqlite3* handle);

/// Works out anew how much there is of each product in each branch. The schema's triggers keep
/// it from then on.
void FillStockLevels(sqlite3* handle);

} // namespace TradeForms
