#pragma once

#include "data/Criterion.h"
#include "data/Engine.h"
#include "data/Recordset.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace TradeForms {

/// What stands behind an open recordset: the rows that were read, what was done to them since,
/// which of them are visible, and where the current record is.
class Recordset::Rows {
public:
    Rows(std::shared_ptr<const Snapshot> snapshot, LockType lock,
         std::shared_ptr<Connection> connection, QString source);

    const ResultMetadata& Columns() const { return snapshot_->Columns(); }
    void Requery();

    int Count() const;
    bool Bof() const;
    bool Eof() const;
    int Position() const { return isOnRecord() ? position_ : -1; }
    int CurrentRow() const { return isOnRecord() ? rowAt(position_) : -1; }
    void MoveFirst();
    void MoveLast();
    void MoveToPosition(int position);
    void MoveToRow(int row);
    void MoveNext();
    void MovePrevious();

    QVariant ValueAt(int position, int field) const;
    QVariant Value(int field) const;
    QVariant OriginalValue(int field) const;
    void SetValue(int field, const QVariant& value);

    void AddNew();
    void Update();
    void CancelUpdate();
    void Delete();
    void UpdateBatch();
    void CancelBatch();
    bool HasPendingChanges() const;

    void SetFilter(const Statement& criterion);
    void ClearFilter();
    bool HasFilter() const { return filter_.has_value(); }
    void Find(const Statement& criterion);

private:
    enum class EditState { Clean, Added, Modified, Deleted, Removed };

    /// What was done to one row.
    struct Edit {
        EditState State = EditState::Clean;
        std::string Row;           ///< its present bytes; empty where they are the snapshot's
        std::string Original;      ///< as last written to the table; empty likewise
        std::vector<bool> Touched; ///< columns that were set since
    };

    /// The change of the current record that no Update has finished yet.
    struct Pending {
        int Row = 0;
        std::string Bytes;
        std::vector<bool> Touched;
        bool IsNew = false;
        int PositionBefore = 0;
    };

    /// A row's edit as a batch found it.
    struct SavedEdit {
        int Row;
        Edit Before;
    };

    bool isOnRecord() const;
    int totalRows() const;
    int rowAt(int position) const;
    const Edit* editOf(int row) const;
    Edit& makeEdit(int row);
    bool isDeleted(int row) const;
    const char* bytes(int row) const;
    std::string_view view(const char* row) const;
    const char* originalBytes(int row) const;
    void requireRecord() const;
    void requireWritable() const;
    void requireField(int field) const;

    void beginChange();
    void refilter();
    void moveTo(int position);
    std::vector<int>& explicitVisible();

    void stagePending();
    void writePending();
    std::vector<std::string> write(const std::vector<RowChange>& changes);
    RowChange changeOf(int row) const;
    Edit written(int row, std::string stored) const;
    void restore(const std::vector<SavedEdit>& edits);

    std::shared_ptr<const Snapshot> snapshot_;
    LockType lock_;
    std::shared_ptr<Connection> connection_;
    QString source_;

    std::vector<std::unique_ptr<Edit>> edits_; // by row; shorter than the rows where none is
    std::optional<std::vector<int>> visible_;  // without it all rows are visible
    std::optional<Criterion> filter_;
    std::optional<Pending> pending_;
    int position_ = 0;
    bool isOnDeleted_ = false;    // the current record was deleted; the next one is at position_
    std::shared_ptr<Rows*> self_; // what a transaction may still undo here ends with it
};

} // namespace TradeForms
