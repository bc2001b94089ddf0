#include "data/Connection.h"
#include "data/EngineAccess.h"
#include "data/Failure.h"
#include "support/Engines.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace TradeForms;

namespace {

class Scanning : public tests::OnEngine {
protected:
    void scan(const char* statement, const Engine::OnRow& each)
    {
        engine_.Scan(
            QString::fromUtf8(statement),
            [&](const std::shared_ptr<const ResultMetadata>& columns) {
                ++beginnings_;
                columns_ = columns;
            },
            each);
    }

    Engine& engine_ = EngineAccess::Of(*connection_);
    int beginnings_ = 0;
    std::shared_ptr<const ResultMetadata> columns_;
};

} // namespace

ON_EACH_ENGINE(Scanning);

TEST_P(Scanning, HandsOverTheColumnsOnceAndEachRowInItsOrder)
{
    QVariantList codes;
    scan("select BranchCode, BranchName from Branches order by BranchCode desc",
         [&](std::string_view row) {
             EXPECT_EQ(beginnings_, 1);
             codes.append(ValueOf(CellAt(row.data(), 0), columns_->At(0).Kind));
             const Cell name = CellAt(row.data(), 1);
             EXPECT_EQ(name.Bytes.data() + name.Bytes.size(), row.data() + row.size());
         });
    EXPECT_EQ(codes, (QVariantList{3LL, 2LL, 1LL}));
    EXPECT_EQ(columns_->At(1).Name, QStringLiteral("BranchName"));
    EXPECT_EQ(columns_->At(1).Kind, ColumnKind::Text);
}

TEST_P(Scanning, TellsTheColumnsOfAnEmptyResultAndNothingOfNoResult)
{
    const auto never = [](std::string_view) { FAIL() << "there is no row"; };
    scan("select * from Branches where 1=0", never);
    EXPECT_EQ(beginnings_, 1);
    EXPECT_EQ(columns_->Count(), 2);
    scan("delete from Sectors where 1=0", never);
    if (!isOdbc()) // whose SQLite has no procedures
        scan("exec SPInstallmentBalances '2026-01-05'", never);
    EXPECT_EQ(beginnings_, 1);
}

TEST_P(Scanning, EndsWithWhatIsRaisedAndCanBeBegunAnew)
{
    int rows = 0;
    const auto stopAtTheSecond = [&](std::string_view) {
        if (++rows == 2)
            throw std::runtime_error("enough");
    };
    EXPECT_THROW(scan("select * from Staff", stopAtTheSecond), std::runtime_error);
    EXPECT_EQ(rows, 2);
    // The cancelled scan leaves no open statement: the table can be changed and read.
    engine_.Run(QStringLiteral("delete from Staff where StaffID='2014'"));
    rows = 10;
    scan("select * from Staff", stopAtTheSecond);
    EXPECT_EQ(rows, 16);
}

TEST_P(Scanning, RaisesWhatTheDatabaseRefuses)
{
    EXPECT_THROW(scan("select * from Nowhere", [](std::string_view) {}), ProviderFailure);
    EXPECT_EQ(beginnings_, 0);
}
