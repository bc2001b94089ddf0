#pragma once

#include "data/odbc/OdbcEngine.h"

namespace TradeForms {

/// Writes rows of one result to their table on the server.
class OdbcRowWriter : public RowWriter {
public:
    OdbcRowWriter(OdbcEngine& engine, std::shared_ptr<const ResultMetadata> metadata);

    std::string Insert(const char* row, const std::vector<bool>& touched) override;
    qint64 Update(const char* original, const char* row, const std::vector<bool>& touched) override;
    qint64 Delete(const char* original) override;

private:
    /// What finds a row: each value stands as often as the condition takes it, a null not at all.
    struct RowCondition {
        std::vector<bool> Nulls; ///< for which it was made
        QString Text;
        std::vector<int> Columns; ///< whose values it takes, in their order
    };

    const ServerColumn& serverColumn(int index) const;
    const RowCondition& conditionFor(const char* original);
    bool mayFindDuplicates() const;

    OdbcEngine& engine_;
    std::shared_ptr<const ResultMetadata> metadata_;
    QString table_;
    const ServerTable& columns_;
    RowCondition condition_;
};

} // namespace TradeForms
