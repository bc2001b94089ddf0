#include "data/Connection.h"

#include "data/EngineAccess.h"
#include "data/RecordsetRows.h"
#ifdef _WIN32
#include "data/ado/AdoEngine.h"
#endif
#include "data/odbc/CompanyServer.h"
#include "data/sqlite/CompanyFile.h"

namespace TradeForms {

std::shared_ptr<Connection> Connection::Open(const QString& file, Mode mode)
{
    return EngineAccess::Connect(mode == Mode::Create ? CreateCompanyFile(file)
                                                      : OpenCompanyFile(file));
}

std::shared_ptr<Connection> Connection::OpenServer(const QString& connectionString)
{
    return EngineAccess::Connect(OpenCompanyServer(connectionString));
}

#ifdef _WIN32
std::shared_ptr<Connection> Connection::OpenHost(IDispatch* connection)
{
    return EngineAccess::Connect(std::make_unique<AdoEngine>(Dispatch(connection)));
}
#endif

Connection::Connection(std::unique_ptr<Engine> engine) : engine_(std::move(engine)) {}

Connection::~Connection() = default;

Recordset Connection::Execute(const Statement& statement)
{
    return EngineAccess::Run(
        *this,
        [&] {
            auto snapshot = engine_->Run(engine_->TextOf(statement));
            return snapshot ? Recordset(std::make_unique<Recordset::Rows>(
                                  std::move(snapshot), LockType::ReadOnly, nullptr, QString()))
                            : Recordset();
        });
}

Recordset Connection::Execute(const char* statement)
{
    return Execute(Statement(statement));
}

void Connection::BeginTrans()
{
    EngineAccess::Run(
        *this, [&] { engine_->BeginTrans(); });
}

void Connection::CommitTrans()
{
    EngineAccess::Run(
        *this, [&] { engine_->CommitTrans(); });
}

void Connection::RollbackTrans()
{
    EngineAccess::Run(
        *this, [&] { engine_->RollbackTrans(); });
}

bool Connection::InTransaction() const
{
    return engine_->InTransaction();
}

void Connection::BeginLoad()
{
    EngineAccess::Run(
        *this, [&] { engine_->BeginLoad(); });
}

void Connection::EndLoad(const std::function<void(int, int)>& progress)
{
    EngineAccess::Run(
        *this, [&] { engine_->EndLoad(progress); });
}

const TradeForms::Dialect& Connection::Dialect() const
{
    return engine_->Dialect();
}

void Connection::report(const ProviderFailure& failure)
{
    errors_.errors_.append({failure.Number(), failure.Description()});
    engine_->UndoIfRolledBack();
}

} // namespace TradeForms
