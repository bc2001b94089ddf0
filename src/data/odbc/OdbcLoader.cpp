#include "data/odbc/OdbcLoader.h"

namespace TradeForms {

namespace {

QStringList fieldsOf(const ResultMetadata& metadata)
{
    QStringList fields;
    for (int index = 0; index < metadata.Count(); ++index)
        fields.append(metadata.At(index).Field);
    return fields;
}

} // namespace

OdbcLoader::OdbcLoader(OdbcEngine& engine, const std::shared_ptr<const ResultMetadata>& metadata)
    : OdbcRowWriter(engine, metadata), engine_(engine)
{
    const QString& table = metadata->BaseTable();
    const QStringList fields = fieldsOf(*metadata);
    const QString enableIdentityInsert =
        engine.DatabaseServer().EnableIdentityInsert(table, fields);
    if (enableIdentityInsert.isEmpty())
        return;
    engine.Guarded([&] { engine.Link().Run(enableIdentityInsert); });
    disableIdentityInsert_ = engine.DatabaseServer().DisableIdentityInsert(table, fields);
}

OdbcLoader::~OdbcLoader()
{
    if (disableIdentityInsert_.isEmpty())
        return;
    try {
        engine_.Link().Run(disableIdentityInsert_);
    } catch (const ProviderFailure&) {
        // The connection is lost, and the setting with it.
    }
}

} // namespace TradeForms
