#pragma once

#include "data/Recordset.h"

#include <QString>
#include <QtGlobal>

#include <memory>

namespace TradeForms {

class Connection;
class Cursor;
class Snapshot;

/// A query on its way into a recordset, a piece at a time: between two pieces the program can turn
/// to the user, run other statements, or give the query up by destroying this.
class Reading {
public:
    /// Raises ProviderFailure where the statement is refused.
    Reading(const Statement& source, std::shared_ptr<Connection> connection);
    ~Reading();
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    /// Reads up to so many rows more. True when all are read. Where the database can only read in
    /// one go, that is what the first call does. Raises ProviderFailure.
    bool ReadOn(int rows);
    /// Rows that are read so far.
    int RowCount() const;
    /// What the database has done so far: see Cursor::Work.
    qint64 Work() const;
    /// The statement as it was sent.
    const QString& Text() const { return text_; }

    /// A static recordset for reading, on its first record. All rows must be read.
    Recordset Take();

private:
    bool readOn(int rows);

    std::shared_ptr<Connection> connection_;
    QString text_;
    std::unique_ptr<Cursor> cursor_;
    std::shared_ptr<Snapshot> growing_;
    std::shared_ptr<const Snapshot> whole_;
};

} // namespace TradeForms
