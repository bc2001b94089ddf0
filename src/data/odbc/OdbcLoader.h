#pragma once

#include "data/odbc/OdbcRowWriter.h"

#include <QStringList>

namespace TradeForms {

/// Adds rows with the numbers that they have, also where the server gives numbers otherwise.
class OdbcLoader : public OdbcRowWriter {
public:
    OdbcLoader(OdbcEngine& engine, const std::shared_ptr<const ResultMetadata>& metadata);
    ~OdbcLoader() override;

private:
    OdbcEngine& engine_;
    QString disableIdentityInsert_;
};

} // namespace TradeForms
