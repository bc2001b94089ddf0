#include "support/Engines.h"
#include "data/EngineAccess.h"

#include "data/sqlite/CompanyFile.h"
#ifdef _WIN32
#include "data/ado/Dispatch.h"
#include "support/windows/HostConnection.h"
#else
#include "data/odbc/OdbcEngine.h"
#include "data/sqlite/Adapter.h"
#endif

using namespace TradeForms;

namespace tests {

#ifdef _WIN32

std::shared_ptr<Connection> ConnectThrough(EngineKind engine, const TestCompany& company,
                                           std::chrono::milliseconds lockWait)
{
    auto file = OpenCompanyFile(company.File(), lockWait);
    if (engine == EngineKind::Embedded)
        return EngineAccess::Connect(std::move(file));
    const Dispatch host = Handed(new HostConnection(std::move(file))).ToDispatch();
    return Connection::OpenHost(host.Raw());
}

#else

namespace {

class AdaptingEngine : public OdbcEngine {
public:
    using OdbcEngine::OdbcEngine;

private:
    QString serverText(const QString& statement) const override
    {
        const AdaptedStatement adapted = AdaptStatement(statement.toUtf8());
        // Procedures exist only in the embedded engine; the driver will report that there is none.
        return adapted.Procedure ? statement : QString::fromUtf8(adapted.Text);
    }
};

/// Keeps the driver loaded until the process ends. If it were unloaded with its last connection,
/// the memory that it keeps would be reported as a leak.
void keepDriver()
{
    [[gnu::used]] static OdbcEngine* kept =
        new OdbcEngine(QStringLiteral("Driver=SQLite3;Database=:memory:"));
}

} // namespace

QString OdbcString(const TestCompany& company, std::chrono::milliseconds lockWait)
{
    keepDriver();
    return QStringLiteral("Driver=SQLite3;Database=%1;LoadExt=" COMPANY_EXTENSION ";Timeout=%2")
        .arg(company.File())
        .arg(lockWait.count());
}

std::shared_ptr<Connection> ConnectThrough(EngineKind engine, const TestCompany& company,
                                           std::chrono::milliseconds lockWait)
{
    if (engine == EngineKind::Embedded)
        return EngineAccess::Connect(OpenCompanyFile(company.File(), lockWait));
    return EngineAccess::Connect(std::make_unique<AdaptingEngine>(OdbcString(company, lockWait)));
}

#endif

} // namespace tests
