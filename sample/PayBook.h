#pragma once

#include "sample/Facts.h"

#include <QDate>
#include <QHash>
#include <QString>

#include <array>
#include <map>
#include <vector>

namespace Sample {

struct Setting;

/// A sale: its people, who earn a commission.
struct EarningSale {
    int Day;
    bool IsOrder; ///< otherwise a sale
    bool SmallVehicle;
    bool LargeVehicle;
    QString Driver; ///< staff ids; empty where there is none
    QString Manager;
    QString Secretary;
    QString CheckingManager;
    QString Franchise;
};

/// The earnings of each person in each whole month, collected while the vouchers are written. The
/// forms compute the same from the vouchers.
class PayBook {
public:
    explicit PayBook(const Setting& setting);

    /// One line of an account.
    void AddSale(const EarningSale& sale, const Product& product, int quantity);
    /// Pieces that a driver took out on a supply.
    void AddSupply(int day, const QString& driver, int pieces);
    void AddReceipt(int day, std::size_t area, int amount);
    void AddPart(int day, const QString& mechanic, int part, int amount);

    /// The first days of the whole months, in their order.
    const std::vector<QDate>& Months() const { return months_; }

    int SaleCommission(const QString& staff, int month) const;
    int SalePrize(const QString& staff, int month) const;
    int OrderCommission(const QString& staff, int month) const;
    int OrderPrize(const QString& staff, int month) const;
    int SupplyCommission(const QString& staff, int month) const;
    /// Received from all accounts of an area.
    double Received(std::size_t area, int month) const;

    /// Pieces by product, those ordered and those sold; null where there are none.
    struct FranchiseMonth {
        std::vector<int> Ordered;
        std::vector<int> Sold;
    };
    const FranchiseMonth* Franchise(const QString& staff, int month) const;
    /// Amounts by part; null where there are none.
    const std::map<int, int>* Workshop(const QString& staff, int month) const;

private:
    static constexpr std::size_t groups = 8;
    using ByGroup = std::array<int, groups>;

    struct Earned {
        int SaleCommission = 0;
        int OrderCommission = 0;
        int SuppliedPieces = 0;
        ByGroup Sold{};
        ByGroup DriverOrdered{};
        ByGroup ManagerOrdered{};
        ByGroup SecretaryOrdered{};
    };
    using Key = std::pair<QString, int>; // person and month

    /// -1 for a day of no whole month.
    int monthOf(int day) const;
    Earned& earned(const QString& staff, int month);
    const Earned& earned(const QString& staff, int month) const;
    void addOrder(const EarningSale& sale, int month, const Product& product, int quantity);
    void addSold(const EarningSale& sale, int month, const Product& product, int quantity);

    std::vector<QDate> months_;
    std::vector<int> monthOfDay_;
    std::vector<Rates> rates_;
    QHash<QString, std::vector<Earned>> people_;
    std::vector<std::vector<double>> received_; // by area and month
    std::map<Key, FranchiseMonth> franchises_;
    std::map<Key, std::map<int, int>> workshop_;
};

} // namespace Sample
