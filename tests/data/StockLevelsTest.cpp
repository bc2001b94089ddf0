#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <random>

namespace {

/// Stock levels that are missing or differ from the sum of all movements.
int differences(const TestCompany& company)
{
    constexpr const char* summed =
        "select ProductID, BranchCode, round(total(Qty), 4), sum(Movements) from StockMovements "
        "where ProductID is not null and BranchCode is not null group by ProductID, BranchCode";
    constexpr const char* kept =
        "select ProductID, BranchCode, round(Stock, 4), Movements from StockLevels "
        "where Movements <> 0";
    int count = 0;
    for (const auto& [first, second] : {std::pair(summed, kept), std::pair(kept, summed)}) {
        const QString both = QStringLiteral("select count(*) from (%1 except %2)")
                                 .arg(QString::fromUtf8(first), QString::fromUtf8(second));
        count += company.Scalar(both).toInt();
    }
    return count;
}

QVariant stock(const TestCompany& company, const char* product, int branch)
{
    return company.Scalar(QStringLiteral("select Stock from vuCurrentStock where ProductID = '%1' "
                                         "and BranchCode = %2")
                              .arg(QString::fromUtf8(product))
                              .arg(branch));
}

/// All kinds of changes to the three pairs of tables, with headers before, after and without their
/// bodies.
class Mover {
public:
    explicit Mover(unsigned seed) : random_(seed) {}

    QString Next()
    {
        struct Pair {
            const char* Name;
            const char* Key;
            const char* Quantity;
        };
        static constexpr Pair pairs[] = {{"StockIn", "StockID", "Qty"},
                                         {"StockOut", "StockID", "Qty"},
                                         {"GatePass", "GatePassID", "OutNewProducts"},
                                         {"GatePass", "GatePassID", "ReturnNewProducts"}};
        const Pair& pair = pairs[below(4)];
        const auto orNull = [this](int chance, const QString& value) {
            return below(chance) == 0 ? QStringLiteral("null") : value;
        };
        QString statement = sentence(below(8));
        statement.replace(QStringLiteral("PAIR"), QString::fromUtf8(pair.Name));
        statement.replace(QStringLiteral("KEY"), QString::fromUtf8(pair.Key));
        statement.replace(QStringLiteral("QUANTITY"), QString::fromUtf8(pair.Quantity));
        statement.replace(QStringLiteral("DOCUMENT"), QString::number(below(4) + 10));
        statement.replace(QStringLiteral("BRANCH"), orNull(6, QString::number(below(3) + 1)));
        statement.replace(QStringLiteral("PRODUCT"),
                          orNull(9, QString::number(101 + 3 * below(2))));
        statement.replace(QStringLiteral("PIECES"), orNull(7, QString::number(below(500) / 100.0)));
        return statement;
    }

private:
    int below(int limit) { return int(random_() % unsigned(limit)); }

    static QString sentence(int kind)
    {
        static constexpr const char* sentences[] = {
            "insert or ignore into PAIRHeader (KEY, BranchCode) values (DOCUMENT, BRANCH)",
            "insert into PAIRBody (KEY, ProductID, QUANTITY) values (DOCUMENT, PRODUCT, PIECES)",
            "insert into PAIRBody (KEY, ProductID, QUANTITY) values (DOCUMENT, PRODUCT, PIECES)",
            "update PAIRBody set QUANTITY = PIECES where KEY = DOCUMENT",
            "update PAIRBody set KEY = DOCUMENT, ProductID = PRODUCT where QUANTITY < 2",
            "update PAIRHeader set BranchCode = BRANCH where KEY = DOCUMENT",
            "delete from PAIRBody where KEY = DOCUMENT and QUANTITY > 3",
            "delete from PAIRHeader where KEY = DOCUMENT",
        };
        return QString::fromUtf8(sentences[kind]);
    }

    std::mt19937 random_;
};

} // namespace

TEST(StockLevels, FollowEveryChangeOfADocument)
{
    for (unsigned seed = 1; seed <= 8; ++seed) {
        const TestCompany company;
        ASSERT_EQ(differences(company), 0);
        Mover mover(seed);
        for (int step = 0; step < 150; ++step) {
            const QString statement = mover.Next();
            company.Run(statement);
            ASSERT_EQ(differences(company), 0) << seed << ": " << statement.toStdString();
        }
    }
}

TEST(StockLevels, AProductWhoseMovementsAreAllGoneHasNoRow)
{
    const TestCompany company;
    company.Run("insert into StockInHeader (StockID, BranchCode) values (9, 3);"
                "insert into StockInBody (StockID, ProductID, Qty) values (9, '299', 5)");
    EXPECT_EQ(stock(company, "299", 3), QVariant(5.0));
    company.Run("insert into GatePassHeader (GatePassID, BranchCode) values (9, 3);"
                "insert into GatePassBody (GatePassID, ProductID, OutNewProducts) "
                "values (9, '299', 5)");
    EXPECT_EQ(stock(company, "299", 3), QVariant(0.0)) << "all sent out";
    company.Run("delete from GatePassBody; delete from StockInBody where StockID = 9");
    EXPECT_FALSE(stock(company, "299", 3).isValid());
}

TEST(StockLevels, FractionsLeaveNoTrifleBehind)
{
    const TestCompany company;
    company.Run("insert into StockInHeader (StockID, BranchCode) values (9, 3);"
                "insert into StockInBody (StockID, ProductID, Qty) values (9, '299', 0.3);"
                "insert into StockOutHeader (StockID, BranchCode) values (9, 3);"
                "insert into StockOutBody (StockID, ProductID, Qty) values (9, '299', 0.1), "
                "(9, '299', 0.2)");
    EXPECT_EQ(stock(company, "299", 3), QVariant(0.0));
}
