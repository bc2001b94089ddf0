#include "sample/Facts.h"
#include "sample/Parts.h"
#include "sample/PayBook.h"
#include "sample/Random.h"
#include "sample/TableWriter.h"
#include "sample/Utf8.h"

#include <TradeForms/Connection.h>

#include <algorithm>
#include <numeric>
#include <vector>

namespace Sample {

namespace {

/// Simulates the company's days in order and writes the stock movements. It tracks the stock of
/// every product in every branch, so that none becomes negative.
class StockHistory {
public:
    StockHistory(const Setting& setting, PayBook& earned)
        : setting_(setting), earned_(earned), trade_(setting.Extent.Trade()),
          inHeaders_(setting.Connection, "StockInHeader", stockHeader),
          inBodies_(setting.Connection, "StockInBody", stockBody),
          outHeaders_(setting.Connection, "StockOutHeader", stockHeader),
          outBodies_(setting.Connection, "StockOutBody", stockBody),
          passHeaders_(setting.Connection, "GatePassHeader",
                       {"GatePassID", "EntryDate", "isPosted", "GatePassDate", "DriverCode",
                        "ReceivingCode", "AreaCode", "BranchCode", "Supply", "Sale", "Order",
                        "UserNo"}),
          passBodies_(setting.Connection, "GatePassBody",
                      {"GatePassID", "ProductID", "OutNewProducts", "ReturnOldProducts",
                       "ReturnNewProducts"}),
          areas_(Branches().size()),
          stock_(Branches().size(), std::vector<int>(Products().size(), 0))
    {
        for (const Area& area : setting.Extent.Areas())
            areas_[std::size_t(area.BranchCode - 1)].push_back(&area);
    }

    void Play()
    {
        const int days = setting_.Extent.Days();
        for (int day = 0; day < days; ++day) {
            setting_.Progress("stock", day, days);
            for (std::size_t branch = 0; branch < Branches().size(); ++branch)
                playDay(day, branch);
        }
        for (TableWriter* writer :
             {&inHeaders_, &inBodies_, &outHeaders_, &outBodies_, &passHeaders_, &passBodies_})
            writer->Finish();
    }

private:
    static constexpr std::initializer_list<const char*> stockHeader = {
        "StockID", "Date", "BranchCode", "AccountNo", "Description"};
    static constexpr std::initializer_list<const char*> stockBody = {"StockID", "ProductID", "Qty",
                                                                     "Price", "Amount"};

    void playDay(int day, std::size_t branch)
    {
        const int turn = int(branch);
        if (day == 0)
            openStock(branch);
        else if (day % 6 == 2 * turn)
            buy(day, branch);
        const bool closed = day % 7 == 6;
        if (!closed)
            for (int passes = random_.Below(2 * trade_ + 1); passes > 0; --passes)
                sendOut(day, branch);
        if (day % 12 == 4 + turn)
            giveBack(day, branch);
    }

    struct Quantity {
        std::size_t Product;
        int Pieces;
    };

    void openStock(std::size_t branch)
    {
        std::vector<Quantity> all;
        for (std::size_t i = 0; i < Products().size(); ++i)
            all.push_back({i, trade_ * (2 * Products()[i].Demand + 4)});
        receive(0, branch, utf8(OpeningAccount), utf8("ابتدائی سٹاک"), all);
    }

    /// Restocks products that run low.
    void buy(int day, std::size_t branch)
    {
        std::vector<Quantity> scarce;
        for (std::size_t i = 0; i < Products().size(); ++i) {
            const int demand = Products()[i].Demand;
            const int held = stock_[branch][i];
            if (held < trade_ * (2 + demand / 4))
                scarce.push_back({i, trade_ * (demand + 4) - held});
        }
        if (!scarce.empty()) {
            const int supplier = FirstSupplier + random_.Below(Suppliers);
            receive(day, branch, QString::number(supplier), utf8("نئی خریداری"), scarce);
        }
    }

    /// A stock in voucher.
    void receive(int day, std::size_t branch, const QString& account, const QString& note,
                 const std::vector<Quantity>& quantities)
    {
        ++lastIn_;
        inHeaders_.Row({lastIn_, setting_.Day(day), Branches()[branch].Code, account, note});
        for (const auto& [product, pieces] : quantities) {
            const Product& fact = Products()[product];
            inBodies_.Row(
                {lastIn_, utf8(fact.Id), pieces, fact.PurchaseRate, pieces * fact.PurchaseRate});
            stock_[branch][product] += pieces;
        }
    }

    /// A gate pass: one to four products to one area of the branch.
    void sendOut(int day, std::size_t branch)
    {
        std::vector<std::size_t> chosen;
        for (int tries = random_.Between(1, 4); tries > 0; --tries) {
            const std::size_t product = pickProduct();
            const bool twice = std::ranges::find(chosen, product) != chosen.end();
            if (!twice && stock_[branch][product] > 0)
                chosen.push_back(product);
        }
        if (chosen.empty())
            return;
        ++lastPass_;
        const auto [isSupply, driver] = writePassHeader(day, branch);
        int pieces = 0;
        for (const std::size_t product : chosen) {
            const Product& fact = Products()[product];
            int& held = stock_[branch][product];
            const int out = std::min(held, random_.Between(1, fact.Numbered ? 2 : 4));
            const int backOld = random_.Percent(10) ? 1 : 0;
            const int backNew = random_.Percent(12) ? random_.Between(1, out) : 0;
            passBodies_.Row({lastPass_, utf8(fact.Id), out, backOld, backNew});
            held += backNew - out;
            pieces += out;
        }
        if (isSupply)
            earned_.AddSupply(day, driver, pieces);
    }

    struct Carrier {
        bool IsSupply;
        QString Driver;
    };

    Carrier writePassHeader(int day, std::size_t branch)
    {
        const int branchCode = Branches()[branch].Code;
        const Area& area = *random_.Pick(areas_[branch]);
        // Four of the drivers who take turns belong to each branch.
        const int turn = FirstDriver + int(branch) + int(Branches().size()) * random_.Below(4);
        const QString driver = area.Driver.isEmpty() ? QString::number(turn) : area.Driver;
        const QVariant driverCode = random_.Percent(92) ? QVariant(driver) : QVariant();
        const QVariant receiver = random_.Percent(80) ? QVariant(area.Collector) : QVariant();
        const bool posted = day < setting_.Extent.Days() - 45 && random_.Percent(80);
        const int kind = random_.Below(100);
        const bool supply = kind < 30;
        const bool order = kind >= 75;
        const int user = branchCode == 2 ? 5 : 2;
        const QDate date = setting_.Day(day);
        const QTime time(random_.Between(9, 18), random_.Below(60));
        passHeaders_.Row({lastPass_, QDateTime(date, time), posted, date, driverCode, receiver,
                          area.Code, branchCode, supply, !supply && !order, order, user});
        return {supply && driverCode.isValid(), driver};
    }

    /// A stock out voucher: one or two damaged pieces go back to their supplier.
    void giveBack(int day, std::size_t branch)
    {
        const std::size_t product = pickProduct();
        int& held = stock_[branch][product];
        if (held == 0)
            return;
        const int quantity = std::min(held, random_.Between(1, 2));
        const Product& fact = Products()[product];
        const int supplier = FirstSupplier + random_.Below(Suppliers);
        ++lastOut_;
        outHeaders_.Row({lastOut_, setting_.Day(day), Branches()[branch].Code,
                         QString::number(supplier), utf8("خراب مال واپس")});
        outBodies_.Row(
            {lastOut_, utf8(fact.Id), quantity, fact.PurchaseRate, quantity * fact.PurchaseRate});
        held -= quantity;
    }

    std::size_t pickProduct()
    {
        const auto products = Products();
        int rest = random_.Below(
            std::accumulate(products.begin(), products.end(), 0,
                            [](int sum, const Product& product) { return sum + product.Demand; }));
        std::size_t product = 0;
        while (rest >= products[product].Demand) {
            rest -= products[product].Demand;
            ++product;
        }
        return product;
    }

    const Setting& setting_;
    PayBook& earned_;
    int trade_;
    Random random_{2001};
    TableWriter inHeaders_;
    TableWriter inBodies_;
    TableWriter outHeaders_;
    TableWriter outBodies_;
    TableWriter passHeaders_;
    TableWriter passBodies_;
    std::vector<std::vector<const Area*>> areas_; ///< by branch
    std::vector<std::vector<int>> stock_;         ///< by branch and product
    int lastIn_ = 0;
    int lastOut_ = 0;
    int lastPass_ = 0;
};

/// Vouchers of numbered units, each with an engine and a chassis number of its own.
void writeNumberedUnits(const Setting& setting)
{
    Random random(2002);
    std::vector<const Product*> numbered;
    for (const Product& product : Products())
        if (product.Numbered)
            numbered.push_back(&product);
    TableWriter headers(setting.Connection, "StockInDetailHeader",
                        {"StockID", "Date", "ReceivingCode", "Description"});
    TableWriter bodies(setting.Connection, "StockInDetailBody",
                       {"StockID", "ProductID", "EngineNo", "ChasisNo"});
    int stockId = 0;
    int serial = 100000;
    for (int day = 4; day < setting.Extent.Days(); day += 11) {
        headers.Row(
            {++stockId, setting.Day(day), QString::number(FirstStoreKeeper), utf8("نئی گاڑیاں")});
        for (int units = setting.Extent.Trade() * random.Between(4, 8); units > 0; --units) {
            ++serial;
            bodies.Row({stockId, utf8(random.Pick(numbered)->Id), QStringLiteral("E%1").arg(serial),
                        QStringLiteral("C%1").arg(serial)});
        }
    }
    headers.Finish();
    bodies.Finish();
}

} // namespace

void WriteStock(const Setting& setting, PayBook& earned)
{
    StockHistory(setting, earned).Play();
    writeNumberedUnits(setting);
}

} // namespace Sample
