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
    /// The condition that identifies a row by its original values.
    struct RowCondition {
        std::vector<bool> Nulls; ///< the columns that are null, for which the text was made
        QString Text;
        std::vector<int> Columns; ///< the columns of its parameters, in their order
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
