#pragma once

#include "data/odbc/OdbcRowWriter.h"

#include <QStringList>

namespace TradeForms {

/// Inserts rows with explicit values for identity columns. Raises ProviderFailure where the server
/// refuses that.
class OdbcLoader : public OdbcRowWriter {
public:
    OdbcLoader(OdbcEngine& engine, const std::shared_ptr<const ResultMetadata>& metadata);
    ~OdbcLoader() override;

private:
    OdbcEngine& engine_;
    QString disableIdentityInsert_;
};

} // namespace TradeForms
