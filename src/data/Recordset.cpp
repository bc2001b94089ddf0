#include "data/Recordset.h"

#include "data/EngineAccess.h"
#include "data/Failure.h"
#include "data/RecordsetRows.h"

namespace TradeForms {

QVariant Field::Value() const
{
    return owner_.open().Value(index_);
}

void Field::SetValue(const QVariant& value)
{
    owner_.open().SetValue(index_, value);
}

QVariant Field::OriginalValue() const
{
    return owner_.open().OriginalValue(index_);
}

QString Field::Name() const
{
    return owner_.FieldName(index_);
}

Recordset::Recordset() = default;

Recordset::Recordset(std::unique_ptr<Rows> rows) : rows_(std::move(rows)) {}

Recordset::~Recordset() = default;

Recordset::Recordset(Recordset&&) noexcept = default;

Recordset& Recordset::operator=(Recordset&&) noexcept = default;

Recordset::Rows& Recordset::open() const
{
    if (!rows_)
        throw Failure(QStringLiteral("The recordset is closed."));
    return *rows_;
}

void Recordset::Open(const Statement& source, const std::shared_ptr<Connection>& connection,
                     CursorType, LockType lock, int)
{
    if (rows_)
        throw Failure(QStringLiteral("The recordset is open already."));
    if (!connection)
        throw Failure(QStringLiteral("The recordset has no connection."));
    EngineAccess::Run(*connection, [&] {
        Engine& engine = EngineAccess::Of(*connection);
        const QString text = engine.TextOf(source);
        const auto purpose =
            lock == LockType::ReadOnly ? Engine::Purpose::Read : Engine::Purpose::Write;
        if (auto snapshot = engine.Run(text, purpose))
            rows_ = std::make_unique<Rows>(std::move(snapshot), lock, connection, text);
    });
}

void Recordset::Requery()
{
    open().Requery();
}

void Recordset::Close()
{
    open();
    rows_.reset();
}

RecordsetState Recordset::State() const
{
    return rows_ ? RecordsetState::Open : RecordsetState::Closed;
}

bool Recordset::Bof() const
{
    return open().Bof();
}

bool Recordset::Eof() const
{
    return open().Eof();
}

int Recordset::RecordCount() const
{
    return open().Count();
}

void Recordset::MoveFirst()
{
    open().MoveFirst();
}

void Recordset::MoveLast()
{
    open().MoveLast();
}

void Recordset::MoveNext()
{
    open().MoveNext();
}

void Recordset::MovePrevious()
{
    open().MovePrevious();
}

Recordset::Bookmark Recordset::CurrentBookmark() const
{
    return open().CurrentRow();
}

void Recordset::MoveTo(Bookmark bookmark)
{
    open().MoveToRow(bookmark);
}

int Recordset::FieldCount() const
{
    return open().Columns().Count();
}

QString Recordset::FieldName(int index) const
{
    const ResultMetadata& columns = open().Columns();
    if (index < 0 || index >= columns.Count())
        throw Failure(QStringLiteral("There is no column of this number."));
    return columns.At(index).Name;
}

int Recordset::FieldIndex(QStringView name) const
{
    return open().Columns().IndexOf(name);
}

Field Recordset::Fields(QStringView name)
{
    const int index = FieldIndex(name);
    if (index < 0)
        throw Failure(QStringLiteral("There is no column '%1'.").arg(name));
    return Field(*this, index);
}

Field Recordset::Fields(const char* name)
{
    return Field(*this, requireField(name));
}

Field Recordset::Fields(int index)
{
    if (index < 0 || index >= FieldCount())
        throw Failure(QStringLiteral("There is no column of this number."));
    return Field(*this, index);
}

int Recordset::requireField(const char* name) const
{
    const int index = open().Columns().IndexOf(name);
    if (index < 0)
        throw Failure(QStringLiteral("There is no column '%1'.").arg(QLatin1String(name)));
    return index;
}

QVariant Recordset::Value(const char* name) const
{
    return open().Value(requireField(name));
}

QVariant Recordset::ValueAt(int position, int field) const
{
    return open().ValueAt(position, field);
}

int Recordset::Position() const
{
    return open().Position();
}

void Recordset::MoveToPosition(int position)
{
    open().MoveToPosition(position);
}

void Recordset::AddNew()
{
    open().AddNew();
}

void Recordset::Update()
{
    open().Update();
}

void Recordset::CancelUpdate()
{
    open().CancelUpdate();
}

void Recordset::Delete()
{
    open().Delete();
}

void Recordset::UpdateBatch(int)
{
    open().UpdateBatch();
}

void Recordset::CancelBatch()
{
    open().CancelBatch();
}

bool Recordset::HasPendingChanges() const
{
    return rows_ && rows_->HasPendingChanges();
}

void Recordset::SetFilter(const Statement& criterion)
{
    open().SetFilter(criterion);
}

void Recordset::ClearFilter()
{
    open().ClearFilter();
}

bool Recordset::HasFilter() const
{
    return rows_ && rows_->HasFilter();
}

void Recordset::Find(const Statement& criterion)
{
    open().Find(criterion);
}

} // namespace TradeForms
