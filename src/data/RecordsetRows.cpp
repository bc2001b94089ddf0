#include "data/RecordsetRows.h"

#include "data/EngineAccess.h"
#include "data/Failure.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace TradeForms {

namespace {

void join(std::vector<bool>& touched, const std::vector<bool>& more)
{
    touched.resize(more.size());
    for (std::size_t field = 0; field < more.size(); ++field)
        touched[field] = touched[field] || more[field];
}

} // namespace

Recordset::Rows::Rows(std::shared_ptr<const Snapshot> snapshot, LockType lock,
                      std::shared_ptr<Connection> connection, QString source)
    : snapshot_(std::move(snapshot)), lock_(lock), connection_(std::move(connection)),
      source_(std::move(source)), self_(std::make_shared<Rows*>(this))
{
}

void Recordset::Rows::Requery()
{
    if (!connection_)
        throw Failure(QStringLiteral("The rows were not read by a recordset of its own."));
    Engine& engine = EngineAccess::Of(*connection_);
    const auto purpose =
        lock_ == LockType::ReadOnly ? Engine::Purpose::Read : Engine::Purpose::Write;
    snapshot_ = EngineAccess::Run(*connection_, [&] { return engine.Run(source_, purpose); });
    self_ = std::make_shared<Rows*>(this);
    edits_.clear();
    pending_.reset();
    refilter();
    moveTo(0);
}

int Recordset::Rows::totalRows() const
{
    return std::max(snapshot_->RowCount(), int(edits_.size()));
}

int Recordset::Rows::Count() const
{
    return visible_ ? int(visible_->size()) : totalRows();
}

bool Recordset::Rows::isOnRecord() const
{
    return !isOnDeleted_ && position_ >= 0 && position_ < Count();
}

bool Recordset::Rows::Bof() const
{
    return !isOnDeleted_ && (Count() == 0 || position_ < 0);
}

bool Recordset::Rows::Eof() const
{
    return !isOnDeleted_ && (Count() == 0 || position_ >= Count());
}

int Recordset::Rows::rowAt(int position) const
{
    return visible_ ? (*visible_)[std::size_t(position)] : position;
}

void Recordset::Rows::moveTo(int position)
{
    position_ = position;
    isOnDeleted_ = false;
}

void Recordset::Rows::MoveFirst()
{
    Update();
    moveTo(0);
}

void Recordset::Rows::MoveLast()
{
    Update();
    moveTo(std::max(0, Count() - 1));
}

void Recordset::Rows::MoveToPosition(int position)
{
    Update();
    if (position < 0 || position >= Count())
        throw Failure(QStringLiteral("There is no record at this position."));
    moveTo(position);
}

void Recordset::Rows::MoveToRow(int row)
{
    Update();
    if (!visible_)
        return MoveToPosition(row);
    // The visible rows are sorted by number, since a new row gets the highest.
    const auto found = std::lower_bound(visible_->begin(), visible_->end(), row);
    if (found == visible_->end() || *found != row)
        throw Failure(QStringLiteral("The bookmark stands for no visible record."));
    moveTo(int(found - visible_->begin()));
}

void Recordset::Rows::MoveNext()
{
    Update();
    if (isOnDeleted_)
        moveTo(position_);
    else if (position_ < Count())
        moveTo(position_ + 1);
}

void Recordset::Rows::MovePrevious()
{
    Update();
    if (position_ >= 0)
        moveTo(position_ - 1);
}

const Recordset::Rows::Edit* Recordset::Rows::editOf(int row) const
{
    return std::size_t(row) < edits_.size() ? edits_[std::size_t(row)].get() : nullptr;
}

Recordset::Rows::Edit& Recordset::Rows::makeEdit(int row)
{
    edits_.resize(std::size_t(std::max(totalRows(), row + 1)));
    std::unique_ptr<Edit>& edit = edits_[std::size_t(row)];
    if (!edit)
        edit = std::make_unique<Edit>();
    return *edit;
}

bool Recordset::Rows::isDeleted(int row) const
{
    const Edit* edit = editOf(row);
    return edit && (edit->State == EditState::Deleted || edit->State == EditState::Removed);
}

const char* Recordset::Rows::bytes(int row) const
{
    if (pending_ && pending_->Row == row)
        return pending_->Bytes.data();
    if (edits_.empty())
        return snapshot_->Row(row);
    const Edit* edit = editOf(row);
    return edit && !edit->Row.empty() ? edit->Row.data() : snapshot_->Row(row);
}

const char* Recordset::Rows::originalBytes(int row) const
{
    const Edit* edit = editOf(row);
    if (edit && edit->State == EditState::Clean && !edit->Row.empty())
        return edit->Row.data();
    return edit && !edit->Original.empty() ? edit->Original.data() : snapshot_->Row(row);
}

std::string_view Recordset::Rows::view(const char* row) const
{
    const char* end = row;
    SkipCells(end, Columns().Count());
    return {row, std::size_t(end - row)};
}

void Recordset::Rows::requireRecord() const
{
    if (!isOnRecord())
        throw Failure(QStringLiteral("There is no current record."));
}

void Recordset::Rows::requireWritable() const
{
    if (lock_ == LockType::ReadOnly)
        throw Failure(QStringLiteral("The recordset was opened for reading only."));
    if (Columns().BaseTable().isEmpty())
        throw Failure(QStringLiteral("These records cannot be changed: they do not come from one "
                                     "table alone."));
}

void Recordset::Rows::requireField(int field) const
{
    if (field < 0 || field >= Columns().Count())
        throw Failure(QStringLiteral("There is no column of this number."));
}

QVariant Recordset::Rows::ValueAt(int position, int field) const
{
    requireField(field);
    if (position < 0 || position >= Count())
        throw Failure(QStringLiteral("There is no record at this position."));
    return ValueOf(CellAt(bytes(rowAt(position)), field), Columns().At(field).Kind);
}

QVariant Recordset::Rows::Value(int field) const
{
    requireRecord();
    return ValueAt(position_, field);
}

QVariant Recordset::Rows::OriginalValue(int field) const
{
    requireRecord();
    requireField(field);
    const int row = rowAt(position_);
    const Edit* edit = editOf(row);
    if (edit && edit->State == EditState::Added)
        return QVariant();
    return ValueOf(CellAt(originalBytes(row), field), Columns().At(field).Kind);
}

void Recordset::Rows::beginChange()
{
    if (pending_)
        return;
    const int row = rowAt(position_);
    pending_ = Pending{row, std::string(view(bytes(row))),
                       std::vector<bool>(std::size_t(Columns().Count())), false, position_};
}

void Recordset::Rows::SetValue(int field, const QVariant& value)
{
    requireWritable();
    requireRecord();
    requireField(field);
    const EncodedValue encoded(value, Columns().At(field).Kind);
    beginChange();
    pending_->Bytes = WithCell(pending_->Bytes, field, encoded.Cell());
    pending_->Touched[std::size_t(field)] = true;
}

void Recordset::Rows::AddNew()
{
    requireWritable();
    Update();
    const int row = totalRows();
    Edit& edit = makeEdit(row);
    edit.State = EditState::Added;
    edit.Row = BlankRow(Columns().Count());
    pending_ =
        Pending{row, edit.Row, std::vector<bool>(std::size_t(Columns().Count())), true, position_};
    if (visible_)
        visible_->push_back(row);
    moveTo(Count() - 1);
}

void Recordset::Rows::Update()
{
    if (!pending_)
        return;
    if (lock_ == LockType::BatchOptimistic)
        stagePending();
    else
        writePending();
    pending_.reset();
}

void Recordset::Rows::stagePending()
{
    Edit& edit = makeEdit(pending_->Row);
    if (edit.State == EditState::Clean) {
        edit.State = EditState::Modified;
        edit.Original = std::move(edit.Row);
    }
    edit.Row = std::move(pending_->Bytes);
    join(edit.Touched, pending_->Touched);
}

void Recordset::Rows::writePending()
{
    const bool isNew = pending_->IsNew;
    std::string& row = pending_->Bytes;
    std::string stored =
        write({{isNew ? RowChange::Type::Insert : RowChange::Type::Update,
                isNew ? nullptr : originalBytes(pending_->Row), row.data(), &pending_->Touched}})
            .front();
    Edit& edit = makeEdit(pending_->Row);
    edit = Edit();
    edit.Row = stored.empty() ? row : std::move(stored);
}

void Recordset::Rows::CancelUpdate()
{
    if (!pending_)
        return;
    const Pending cancelled = *std::exchange(pending_, std::nullopt);
    if (!cancelled.IsNew)
        return;
    edits_.pop_back();
    if (visible_)
        visible_->pop_back();
    moveTo(cancelled.PositionBefore);
}

std::vector<int>& Recordset::Rows::explicitVisible()
{
    if (!visible_) {
        visible_.emplace(std::size_t(totalRows()));
        std::iota(visible_->begin(), visible_->end(), 0);
    }
    return *visible_;
}

void Recordset::Rows::Delete()
{
    requireWritable();
    requireRecord();
    if (pending_ && pending_->IsNew)
        return CancelUpdate();
    pending_.reset();

    const int row = rowAt(position_);
    if (lock_ != LockType::BatchOptimistic)
        write({{RowChange::Type::Delete, originalBytes(row), nullptr, nullptr}});

    // A row that was added and deleted within one batch never reaches the table.
    const bool isRemoved = lock_ != LockType::BatchOptimistic ||
                           (editOf(row) && editOf(row)->State == EditState::Added);
    std::vector<int>& visible = explicitVisible();
    Edit& edit = makeEdit(row);
    if (edit.State == EditState::Clean)
        edit.Original = edit.Row;
    edit.State = isRemoved ? EditState::Removed : EditState::Deleted;
    visible.erase(visible.begin() + position_);
    isOnDeleted_ = true;
}

std::vector<std::string> Recordset::Rows::write(const std::vector<RowChange>& changes)
{
    Engine& engine = EngineAccess::Of(*connection_);
    std::vector<std::string> stored;
    EngineAccess::Run(*connection_, [&] {
        engine.Atomically(
            [&] { stored = engine.WriterFor(snapshot_->SharedMetadata())->Write(changes); });
    });
    return stored;
}

/// The change that writes the edit of a row.
RowChange Recordset::Rows::changeOf(int row) const
{
    const Edit& edit = *editOf(row);
    switch (edit.State) {
    case EditState::Added:
        return {RowChange::Type::Insert, nullptr, edit.Row.data(), &edit.Touched};
    case EditState::Modified:
        return {RowChange::Type::Update, originalBytes(row), edit.Row.data(), &edit.Touched};
    case EditState::Deleted:
        return {RowChange::Type::Delete, originalBytes(row), nullptr, nullptr};
    case EditState::Clean:
    case EditState::Removed:
        break;
    }
    Q_UNREACHABLE();
}

/// The edit of a row after its change was written.
Recordset::Rows::Edit Recordset::Rows::written(int row, std::string stored) const
{
    const Edit& edit = *editOf(row);
    Edit result;
    if (edit.State == EditState::Deleted)
        result.State = EditState::Removed;
    else
        result.Row = stored.empty() ? edit.Row : std::move(stored);
    return result;
}

void Recordset::Rows::UpdateBatch()
{
    requireWritable();
    Update();
    if (!HasPendingChanges())
        return;
    std::vector<int> rows;
    std::vector<RowChange> changes;
    // Deletions first: a key that is freed may be used again by a row added in the same batch.
    for (const EditState state : {EditState::Deleted, EditState::Modified, EditState::Added}) {
        for (int row = 0; row < int(edits_.size()); ++row) {
            if (edits_[std::size_t(row)] && edits_[std::size_t(row)]->State == state) {
                rows.push_back(row);
                changes.push_back(changeOf(row));
            }
        }
    }
    std::vector<std::string> stored = write(changes);
    std::vector<SavedEdit> before;
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const int row = rows[index];
        Edit after = written(row, std::move(stored[index]));
        before.push_back({row, std::exchange(*edits_[std::size_t(row)], std::move(after))});
    }

    // If the transaction is rolled back, the edits are pending again, so that the user can retry.
    EngineAccess::Of(*connection_)
        .OnRollback([self = std::weak_ptr<Rows*>(self_), before = std::move(before)] {
            if (const auto those = self.lock())
                (*those)->restore(before);
        });
}

void Recordset::Rows::restore(const std::vector<SavedEdit>& edits)
{
    for (const SavedEdit& edit : edits)
        *edits_[std::size_t(edit.Row)] = edit.Before;
}

void Recordset::Rows::CancelBatch()
{
    CancelUpdate();
    for (const std::unique_ptr<Edit>& edit : edits_) {
        if (!edit || edit->State == EditState::Clean || edit->State == EditState::Removed)
            continue;
        const bool wasAdded = edit->State == EditState::Added;
        edit->State = wasAdded ? EditState::Removed : EditState::Clean;
        edit->Row = std::exchange(edit->Original, {});
        edit->Touched.clear();
    }
    refilter();
    moveTo(0);
}

bool Recordset::Rows::HasPendingChanges() const
{
    return pending_ || std::any_of(
                           edits_.begin(), edits_.end(),
                           [](const std::unique_ptr<Edit>& edit) {
                               return edit && edit->State != EditState::Clean &&
                                      edit->State != EditState::Removed;
                           });
}

/// Determines which rows are visible.
void Recordset::Rows::refilter()
{
    visible_.reset();
    const bool hasDeleted =
        std::any_of(edits_.begin(), edits_.end(), [](const std::unique_ptr<Edit>& edit) {
            return edit && (edit->State == EditState::Deleted || edit->State == EditState::Removed);
        });
    if (!filter_ && !hasDeleted)
        return;
    std::vector<int> visible;
    const int total = totalRows();
    for (int row = 0; row < total; ++row)
        if (!isDeleted(row) && (!filter_ || filter_->Holds(bytes(row))))
            visible.push_back(row);
    visible_ = std::move(visible);
}

void Recordset::Rows::SetFilter(const Statement& criterion)
{
    Criterion parsed = Criterion::Parse(criterion.Text(), Columns());
    Update();
    filter_ = std::move(parsed);
    refilter();
    moveTo(0);
}

void Recordset::Rows::ClearFilter()
{
    Update();
    filter_.reset();
    refilter();
    moveTo(0);
}

void Recordset::Rows::Find(const Statement& criterion)
{
    const Criterion wanted = Criterion::ParseSingle(criterion.Text(), Columns());
    Update();
    int position = 0;
    while (position < Count() && !wanted.Holds(bytes(rowAt(position))))
        ++position;
    moveTo(position);
}

} // namespace TradeForms
