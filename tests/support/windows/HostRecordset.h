#pragma once

#include "data/Snapshot.h"
#include "support/windows/HostConnection.h"

#include <memory>
#include <vector>

namespace tests {

/// A column of a host's result: the number of its type, and its values by row.
struct HostField {
    QString Name;
    int Type = 0;
    int Size = 0;
    int Precision = 0;
    int Decimals = 0;
};

/// The recordset of one statement, as returned by a host's connection; closed if the statement
/// returns no rows. Its members are State, EOF, Fields, GetRows and Close.
class HostRecordset : public HostObject {
public:
    HostRecordset(HostConnection& connection, std::shared_ptr<const TradeForms::Snapshot> rows,
                  Provider provider);
    ~HostRecordset() override;

private:
    TradeForms::Variant getRows(Arguments arguments);
    TradeForms::Variant value(const TradeForms::Cell& cell, const HostField& field) const;
    void requireOpen() const;

    HostConnection& connection_;
    std::shared_ptr<const TradeForms::Snapshot> rows_;
    std::vector<HostField> fields_;
    int next_ = 0;
};

} // namespace tests
