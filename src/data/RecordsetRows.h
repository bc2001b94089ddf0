#pragma once

#include "data/Criterion.h"
#include "data/Engine.h"
#include "data/Recordset.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace TradeForms {

/// The state of an open recordset: the rows that were read, their changes, which of them are
/// visible, and the position of the current record.
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

    /// The changes of one row.
    struct Edit {
        EditState State = EditState::Clean;
        std::string Row;           ///< its current bytes; empty where they are unchanged
        std::string Original;      ///< its bytes as last written to the table; empty where they are
                                   ///< those of the snapshot
        std::vector<bool> Touched; ///< columns that were set since then
    };

    /// The change of the current record before Update.
    struct Pending {
        int Row = 0;
        std::string Bytes;
        std::vector<bool> Touched;
        bool IsNew = false;
        int PositionBefore = 0;
    };

    /// The edit of a row before a batch was written.
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

    std::vector<std::unique_ptr<Edit>> edits_; // by row; may be shorter than the rows
    std::optional<std::vector<int>> visible_;  // all rows where it is empty
    std::optional<Criterion> filter_;
    std::optional<Pending> pending_;
    int position_ = 0;
    bool isOnDeleted_ = false;    // the current record was deleted; position_ is the next one
    std::shared_ptr<Rows*> self_; // guards the OnRollback functions that refer to this object
};

} // namespace TradeForms
