#include "faults/Meanwhile.h"
#include "data/EngineAccess.h"

#include "data/sqlite/SqliteEngine.h"

Meanwhile::Meanwhile(std::shared_ptr<TradeForms::Connection> connection, const char* statement,
                     std::function<void()> deed)
    : connection_(std::move(connection)),
      handle_(
          static_cast<TradeForms::SqliteEngine&>(TradeForms::EngineAccess::Of(*connection_)).Raw()),
      statement_(statement), deed_(std::move(deed))
{
    sqlite3_trace_v2(handle_, SQLITE_TRACE_STMT, &Meanwhile::trace, this);
}

Meanwhile::~Meanwhile()
{
    sqlite3_trace_v2(handle_, 0, nullptr, nullptr);
}

int Meanwhile::trace(unsigned, void* self, void*, void* text)
{
    auto& meanwhile = *static_cast<Meanwhile*>(self);
    if (!meanwhile.hasHappened_ &&
        QByteArray(static_cast<const char*>(text)).startsWith(meanwhile.statement_)) {
        meanwhile.hasHappened_ = true;
        meanwhile.deed_();
    }
    return 0;
}
