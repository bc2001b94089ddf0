#include "data/odbc/CompanyServer.h"

#include "data/Failure.h"
#include "data/SchemaVersion.h"

namespace TradeForms {

namespace {

/// The schema version of the database; 0 where it holds no company.
qint64 versionOf(OdbcEngine& engine)
{
    try {
        return engine.Link().ReadNumber(engine.DatabaseServer().VersionQuery());
    } catch (const ProviderFailure&) {
        if (engine.Link().IsLost())
            throw;
        return 0;
    }
}

} // namespace

void RequireCompany(OdbcEngine& engine)
{
    const qint64 version = versionOf(engine);
    if (version == 0)
        throw ProviderFailure(
            QStringLiteral("This database holds no company, or this login may not read it. Make "
                           "one with the schema script for the server, or ask for the rights."));
    if (version > schemaVersion)
        throw ProviderFailure(QStringLiteral("The company in this database was made by a newer "
                                             "version of this program. Install that version to "
                                             "open it."));
    if (version < schemaVersion)
        throw ProviderFailure(QStringLiteral("The company in this database was made by an older "
                                             "version of this program. Run the schema script for "
                                             "the server on it again, which keeps its rows."));
}

std::unique_ptr<Engine> OpenCompanyServer(const QString& connectionString)
{
    auto engine = std::make_unique<OdbcEngine>(connectionString);
    RequireCompany(*engine);
    return engine;
}

} // namespace TradeForms
