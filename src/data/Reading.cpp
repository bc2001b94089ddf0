#include "data/Reading.h"

#include "data/EngineAccess.h"
#include "data/RecordsetRows.h"

#include <utility>

namespace TradeForms {

Reading::Reading(const Statement& source, std::shared_ptr<Connection> connection)
    : connection_(std::move(connection))
{
    EngineAccess::Run(
        *connection_,
        [&] {
            Engine& engine = EngineAccess::Of(*connection_);
            text_ = engine.TextOf(source);
            cursor_ = engine.OpenCursor(text_);
        });
}

Reading::~Reading() = default;

bool Reading::ReadOn(int rows)
{
    return EngineAccess::Run(
        *connection_, [&] { return readOn(rows); });
}

bool Reading::readOn(int rows)
{
    if (!cursor_) {
        whole_ = EngineAccess::Of(*connection_).Run(text_);
        return true;
    }
    for (; rows > 0; --rows) {
        const auto row = cursor_->Next();
        if (!growing_)
            growing_ = std::make_shared<Snapshot>(cursor_->Columns());
        if (!row) {
            growing_->Finish();
            whole_ = std::move(growing_);
            return true;
        }
        growing_->Append(*row);
    }
    return false;
}

int Reading::RowCount() const
{
    return whole_ ? whole_->RowCount() : growing_ ? growing_->RowCount() : 0;
}

qint64 Reading::Work() const
{
    return cursor_ ? cursor_->Work() : 0;
}

Recordset Reading::Take()
{
    return Recordset(std::make_unique<Recordset::Rows>(std::move(whole_), LockType::ReadOnly,
                                                       connection_, text_));
}

} // namespace TradeForms
