#pragma once

#include "data/Recordset.h"

#include <QString>
#include <QtGlobal>

#include <memory>

namespace TradeForms {

class Connection;
class Cursor;
class Snapshot;

/// Reads a query into a recordset piece by piece. Between two pieces the program can process
/// events, run other statements, or cancel the query by destroying this object.
class Reading {
public:
    /// Prepares the statement. Raises ProviderFailure where the database refuses it.
    Reading(const Statement& source, std::shared_ptr<Connection> connection);
    ~Reading();
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

    /// Reads up to a number of further rows; all rows at the first call where the database can only
    /// read a result as a whole. Returns true when all rows are read. Raises ProviderFailure.
    bool ReadOn(int rows);
    /// The number of rows read so far.
    int RowCount() const;
    /// The database's work so far; see Cursor::Work.
    qint64 Work() const;
    /// The text of the statement with its values.
    const QString& Text() const { return text_; }

    /// A read-only recordset of the rows, on its first record. To be called once, after all rows
    /// are read.
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
