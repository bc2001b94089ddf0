#pragma once

#include "data/Connection.h"
#include "data/Recordset.h"
#include "reports/Report.h"
#include "support/TestCompany.h"

#include <memory>

namespace tests {

/// A plain report for what stands round reports: A5, one line a row, the copy as its parameter.
class SampleReport {
public:
    /// The rows are P00001, P00002 and so on.
    explicit SampleReport(int rows);

    std::shared_ptr<TradeForms::Report> Make(const QString& title = QStringLiteral("Sample")) const;
    TradeForms::Recordset& Rows() { return *rows_; }

    QPageLayout::Orientation Turn = QPageLayout::Portrait;
    /// Runs while a page's header is laid out, within Format or later.
    std::function<void()> OnLayout;

private:
    TestCompany company_;
    std::shared_ptr<TradeForms::Recordset> rows_;
};

} // namespace tests
