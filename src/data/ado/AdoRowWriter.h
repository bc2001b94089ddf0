#pragma once

#include "data/ado/AdoEngine.h"

#include <QStringList>

namespace TradeForms {

struct CompanyTable;

/// Writes rows of one result to their table through a host's connection, several rows in one batch.
class AdoRowWriter : public RowWriter {
public:
    AdoRowWriter(AdoEngine& engine, std::shared_ptr<const ResultMetadata> metadata);

    std::string Insert(const char* row, const std::vector<bool>& touched) override;
    qint64 Update(const char* original, const char* row, const std::vector<bool>& touched) override;
    qint64 Delete(const char* original) override;
    std::vector<std::string> Write(const std::vector<RowChange>& changes) override;

private:
    QString literal(int index, const Cell& cell) const;
    QString condition(int index, const Cell& cell) const;
    QString search(const char* original) const;
    QString insertStatement(const char* row, const std::vector<bool>& touched) const;
    QString updateStatement(const char* original, const char* row,
                            const std::vector<bool>& touched) const;
    QString deleteStatement(const char* original) const;
    QString statementFor(const RowChange& change) const;
    bool returnsRow(const std::vector<bool>& touched) const;
    bool mayFindDuplicates() const;
    qint64 changedBy(const QString& statement);
    std::string rowReturnedBy(const QString& statement);
    void runAtOnce(const QStringList& statements);

    AdoEngine& engine_;
    std::shared_ptr<const ResultMetadata> metadata_;
    const CompanyTable* known_; ///< null for a table that is not in the company's schema
    QString table_;
    std::vector<HostColumn> columns_;
    QStringList names_; // of the columns, quoted
};

} // namespace TradeForms
