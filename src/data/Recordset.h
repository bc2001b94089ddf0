#pragma once

#include <TradeForms/Export.h>
#include <TradeForms/Statement.h>

#include <QString>
#include <QStringView>
#include <QVariant>

#include <memory>

namespace TradeForms {

class Connection;
class Snapshot;

/// The values are those that record-based data access libraries use.
enum class CursorType { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
enum class LockType { ReadOnly = 1, Pessimistic = 2, Optimistic = 3, BatchOptimistic = 4 };
enum class RecordsetState { Closed = 0, Open = 1 };

class Recordset;

/// One field of a recordset's current record.
class TRADEFORMS_EXPORT Field {
public:
    /// The value; an invalid QVariant is a null. A flag reads as bool, a date as QDate, a
    /// date-time as QDateTime, a number as qlonglong or double, a text as QString.
    QVariant Value() const;
    /// Sets the value in the recordset; an invalid QVariant sets null. Raises Failure where the
    /// recordset is read-only or has no current record, TypeMismatchFailure where the field cannot
    /// hold the value, OverflowFailure where a number is too large for it.
    void SetValue(const QVariant& value);
    /// The value as it was last read from or written to the database; invalid for an added record.
    QVariant OriginalValue() const;
    QString Name() const;

private:
    friend class Recordset;
    Field(Recordset& owner, int index) : owner_(owner), index_(index) {}
    Recordset& owner_;
    int index_;
};

/// A snapshot of a query's rows, held in memory, with a current record.
///
/// With LockType::BatchOptimistic, added, changed and deleted rows are pending until UpdateBatch;
/// with LockType::Pessimistic or Optimistic each Update is written to the table. Moving to another
/// record, filtering and UpdateBatch call Update first.
class TRADEFORMS_EXPORT Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// Runs a statement and moves to its first record. A statement without rows leaves the
    /// recordset closed. Raises ProviderFailure where the statement fails, Failure where the
    /// recordset is open already.
    void Open(const Statement& source, const std::shared_ptr<Connection>& connection,
              CursorType cursor = CursorType::Static, LockType lock = LockType::ReadOnly,
              int options = -1);
    /// Runs the same statement again; pending changes are dropped.
    void Requery();
    /// Drops the rows and pending changes. Raises Failure where it is not open.
    void Close();
    RecordsetState State() const;
    bool IsOpen() const { return State() == RecordsetState::Open; }

    /// Whether the position is before the first or after the last record. (Not spelt in capitals,
    /// since EOF is a macro of the C library.)
    bool Bof() const;
    bool Eof() const;
    /// The number of records that pass the filter, with pending additions and without pending
    /// deletions.
    int RecordCount() const;

    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();

    /// Identifies a row as long as the recordset is open; -1 is no row.
    using Bookmark = int;
    Bookmark CurrentBookmark() const;
    void MoveTo(Bookmark bookmark);

    int FieldCount() const;
    QString FieldName(int index) const;
    /// By name, without regard to case; of two fields of one name the first. Raises Failure
    /// for an unknown name.
    Field Fields(QStringView name);
    Field Fields(const char* name);
    Field Fields(int index);
    /// The value of a field of the current record, as Fields(name).Value() returns it.
    QVariant Value(const char* name) const;
    /// Index of a field, or -1.
    int FieldIndex(QStringView name) const;

    /// Reads a value without moving: of the visible row at a position from 0, and of the field at
    /// an index.
    QVariant ValueAt(int position, int field) const;
    /// Position of the current record among the visible rows, from 0, or -1.
    int Position() const;
    void MoveToPosition(int position);

    /// Adds a blank record and moves to it.
    void AddNew();
    /// Completes the addition or change of the current record: writes it to the table, or makes it
    /// pending for the batch.
    void Update();
    void CancelUpdate();
    /// Deletes the current record from the table, or makes its deletion pending for the batch.
    void Delete();
    /// Writes all pending rows to the table, all or none. Raises ProviderFailure, also where
    /// another user has changed or removed one of the rows since it was read. The argument is
    /// ignored.
    void UpdateBatch(int affected = 3);
    void CancelBatch();
    bool HasPendingChanges() const;

    /// Shows only rows that meet a criterion: comparisons `column op value` joined by `and` or
    /// `or`; op is =, <>, <, >, <=, >= or like; a value is a number or a quoted text; like takes *
    /// or %. Texts compare without regard to case. Moves to the first record. Raises Failure where
    /// the criterion cannot be read.
    void SetFilter(const Statement& criterion);
    void ClearFilter();
    bool HasFilter() const;

    /// Moves to the first record that meets a criterion of one comparison, and past the last record
    /// where there is none. Raises Failure where the criterion cannot be read.
    void Find(const Statement& criterion);

private:
    friend class Field;
    friend class Connection;
    friend class Reading;
    class Rows;

    explicit Recordset(std::unique_ptr<Rows> rows);
    Rows& open() const;
    int requireField(const char* name) const;

    std::unique_ptr<Rows> rows_;
};

} // namespace TradeForms
