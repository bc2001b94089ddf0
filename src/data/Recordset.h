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

/// The values are the customary ones of record-based data access.
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
    /// Sets the value in the recordset; an invalid QVariant sets null. Raises Failure where
    /// the recordset is read-only or stands on no record, TypeMismatchFailure where the value
    /// cannot be held by the field.
    void SetValue(const QVariant& value);
    /// The value as it was read from the database.
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
/// With LockType::BatchOptimistic added, changed and deleted rows are only marked until
/// UpdateBatch; with LockType::Pessimistic or Optimistic each Update goes to the table. Moving
/// off a record, filtering and UpdateBatch finish a pending Update first.
class TRADEFORMS_EXPORT Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// Raises ProviderFailure where the statement fails, Failure where this one is open.
    void Open(const Statement& source, const std::shared_ptr<Connection>& connection,
              CursorType cursor = CursorType::Static, LockType lock = LockType::ReadOnly,
              int options = -1);
    /// Runs the same statement again; pending changes are dropped.
    void Requery();
    /// Drops the rows and pending changes. Raises Failure where it is not open.
    void Close();
    RecordsetState State() const;
    bool IsOpen() const { return State() == RecordsetState::Open; }

    /// Before the first and after the last record. (Not the customary spelling: EOF is taken
    /// by the C library.)
    bool Bof() const;
    bool Eof() const;
    /// Rows that the filter lets through, pending additions counted, pending deletions not.
    int RecordCount() const;

    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();

    /// Stands for a row as long as the recordset is open; -1 is no row.
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
    /// The current record's value: short for Fields(name).Value().
    QVariant Value(const char* name) const;
    /// Index of a field, or -1.
    int FieldIndex(QStringView name) const;

    /// Random access that moves nothing: the row at a position among the visible ones
    /// (0 is the first) and a field's index.
    QVariant ValueAt(int position, int field) const;
    /// Position of the current record among the visible rows, from 0, or -1.
    int Position() const;
    void MoveToPosition(int position);

    /// Adds a blank record and stands on it.
    void AddNew();
    /// Finishes the current record's pending addition or change.
    void Update();
    void CancelUpdate();
    /// Marks the current record deleted (batch) or deletes it from the table.
    void Delete();
    /// Writes all pending rows to the table, all or none. A row that was changed or removed by
    /// someone else since it was read raises ProviderFailure. (The affected-rows argument
    /// is customary: 3 is all.)
    void UpdateBatch(int affected = 3);
    void CancelBatch();
    bool HasPendingChanges() const;

    /// Keeps only rows for which the criterion holds: comparisons `column op value` joined by
    /// `and` or `or`; op is =, <>, <, >, <=, >= or like; a value is a number or a quoted text;
    /// like takes * or %. Texts compare without regard to case. Moves to the first record.
    /// Raises Failure where the criterion cannot be read.
    void SetFilter(const Statement& criterion);
    void ClearFilter();
    bool HasFilter() const;

    /// Moves to the first record, from the first one on, for which one comparison holds, and
    /// past the end where there is none. Raises Failure where the criterion cannot be read.
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
