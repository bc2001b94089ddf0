#include "sample/AccountPlan.h"
#include "sample/Facts.h"
#include "sample/Names.h"
#include "sample/Parts.h"
#include "sample/PayBook.h"
#include "sample/Random.h"
#include "sample/TableWriter.h"
#include "sample/Utf8.h"

#include <TradeForms/Connection.h>

#include <algorithm>
#include <vector>

namespace Sample {

namespace {

/// The people of an account, and its origin.
struct Roles {
    bool Order = false;
    bool Sale = false;
    bool SmallVehicle = false;
    bool LargeVehicle = false;
    QString Manager;
    QString Secretary;
    QVariant Franchise;
    QVariant CheckingManager;
    QVariant Driver;
    QVariant Receiver;
};

/// The area's own one, or the next in turn.
QVariant sometimes(Random& random, int percent, const QString& own, int first, int count)
{
    const QString turn = QString::number(first + random.Below(count));
    return random.Percent(percent) ? QVariant(own.isEmpty() ? turn : own) : QVariant();
}

Roles chooseRoles(Random& random, const AccountPlan& plan, const Area& area)
{
    Roles roles;
    roles.Order = !plan.Old && random.Percent(40);
    roles.Sale = !plan.Old && !roles.Order;
    roles.Franchise = sometimes(random, 15, area.Franchise, FirstFranchiseHolder, FranchiseHolders);
    // The company's own franchise holders have a chief of their own.
    const bool franchise = roles.Franchise.isValid() && area.Franchise.isEmpty();
    roles.Manager = franchise ? utf8(FranchiseManager) : area.Manager;
    roles.Secretary = franchise ? utf8(FranchiseManager) : area.Secretary;
    roles.CheckingManager =
        sometimes(random, roles.Order ? 70 : 30, QString(), FirstCheckingManager, CheckingManagers);
    roles.Driver = sometimes(random, roles.Order ? 90 : 50, area.Driver, FirstDriver, Drivers);
    if (roles.Driver.isValid()) {
        roles.LargeVehicle = random.Percent(40);
        roles.SmallVehicle = !roles.LargeVehicle;
    }
    roles.Receiver = random.Percent(60) ? QVariant(area.Collector) : QVariant();
    return roles;
}

// Receipts, concessions and returns, kept until all accounts are planned: only then is it known
// which vouchers exist. A million accounts have ten million receipts.

struct Receipt {
    int Slot;
    int Account;
    int Amount;
};

struct Concession {
    int Slot;
    int Account;
    int Amount;
};

struct Return {
    int Slot;
    int Account;
    int Recovered;
    int Amount;
};

/// Sorts them by voucher, and marks the used vouchers.
template <class Movement> void enter(std::vector<Movement>& movements, VoucherBook& book)
{
    std::ranges::sort(movements, [](const Movement& first, const Movement& second) {
        return std::pair(first.Slot, first.Account) < std::pair(second.Slot, second.Account);
    });
    for (const Movement& movement : movements)
        book.Use(movement.Slot);
    book.Number();
}

/// Writes the accounts and their vouchers.
class AccountHistory {
public:
    AccountHistory(const Setting& setting, PayBook& earned)
        : setting_(setting), earned_(earned), planner_(setting.Extent),
          headers_(setting.Connection, "InsCustomerHeader",
                   {"InsCustomerID", "EntryDate",     "isPosted",     "Order",
                    "Sale",          "Old",           "SmallVehicle", "LargeVehicle",
                    "CardNo",        "AutoCard",      "Name",         "FName",
                    "Cast",          "DOB",           "AreaCode",     "SectorID",
                    "FStaffID",      "ReceivingCode", "AMStaffID",    "SAMStaffID",
                    "CMStaffID",     "DriverID",      "NICNew",       "TAddress",
                    "PAddress",      "City",          "JobAddress",   "PreviousAccount",
                    "PhoneHouse",    "PhoneJob",      "Mobile",       "GName",
                    "GFName",        "GCast",         "GDOB",         "GNICNew",
                    "GPhoneNo",      "GPAddress",     "GCity",        "GJobAddress",
                    "SaleDate",      "ChangeDate",    "PromiseDate",  "MonthlyInstallment",
                    "TotalAmount",   "UserNo",        "Product"}),
          lines_(setting.Connection, "InsCustomerBody",
                 {"InsCustomerID", "ProductID", "Qty", "Price", "Amount", "Colour", "EngineNo",
                  "ChasisNo", "VehicleNo"}),
          previous_(setting.Connection, "PreviousBalances",
                    {"InsCustomerID", "PreviousDate", "Amount", "Previous", "ConvertAccount"}),
          conversions_(setting.Connection, "ConvertArea",
                       {"FromInsCustomerID", "FromAmount", "TotalAmount", "ToInsCustomerID",
                        "ToAmount", "ToDate"})
    {
    }

    void Write()
    {
        const Extent& extent = setting_.Extent;
        constexpr int expectedReceipts = 11;
        receipts_.reserve(std::size_t(extent.Accounts()) *
                          (extent.IsLarge() ? expectedReceipts : 4));
        for (int account = 0; account < extent.Sold(); ++account) {
            pause("accounts", account, extent.Accounts());
            writeSold(account, planner_.Plan(account));
        }
        for (int account = extent.Sold(); account < extent.Accounts(); ++account) {
            pause("accounts", account, extent.Accounts());
            const int from = planner_.ConvertedFrom(account);
            writeConverted(account, from, planner_.Plan(from));
        }
        for (TableWriter* writer : {&headers_, &lines_, &previous_, &conversions_})
            writer->Finish();
        writeRecoveries();
        writeConcessions();
        writeReturns();
    }

private:
    /// Reports the progress, and commits from time to time to limit the transaction.
    void pause(const char* what, int done, int of)
    {
        constexpr int rowsPerTransaction = 20000;
        if (done % rowsPerTransaction == rowsPerTransaction - 1) {
            setting_.Connection->CommitTrans();
            setting_.Connection->BeginTrans();
            setting_.Progress(what, done, of);
        }
    }

    const Area& area(std::size_t index) const { return setting_.Extent.Areas()[index]; }

    static Random randomOf(int account) { return Random(7'000'000'000U + std::uint64_t(account)); }

    void writeSold(int account, const AccountPlan& plan)
    {
        Random random = randomOf(account);
        const QString id = planner_.IdOf(account);
        const QString products = writeLines(account, id, plan, random);
        const Roles roles = chooseRoles(random, plan, area(plan.Area));
        headers_.Row(header(id, products, plan, roles, random));
        if (plan.PaidBefore > 0)
            previous_.Row({id, setting_.Day(-1), plan.PaidBefore, true, false});
        earn(plan, roles);
        noteMovements(account, plan);
    }

    /// An account as the conversion of another leaves it. The keys of its records are in capitals.
    void writeConverted(int account, int from, const AccountPlan& plan)
    {
        Random random = randomOf(from);
        const PlannedConversion& conversion = *plan.Conversion;
        const Area& newArea = area(planner_.AreaOf(account));
        const QString id = planner_.IdOf(account);
        const QString products = writeLines(from, id, plan, random);
        const Roles roles = chooseRoles(random, plan, area(plan.Area));
        std::vector<QVariant> row = header(id, products, plan, roles, random);
        row[Sale] = false;
        row[Order] = false;
        row[Old] = true;
        row[CardNo] = planner_.CardOf(account);
        row[AreaCode] = newArea.Code;
        row[PreviousAccount] = QString(plan.CardNo + QLatin1Char(' ') + area(plan.Area).Code);
        row[ChangeDate] = setting_.Day(conversion.Day);
        headers_.Row(row);

        conversions_.Row({planner_.IdOf(from).toUpper(), conversion.Paid, plan.Total, id.toUpper(),
                          plan.Total - conversion.Paid, setting_.Day(conversion.Day)});
        previous_.Row({id.toUpper(), setting_.Day(conversion.LastReceipt.value_or(plan.SaleDay)),
                       conversion.Paid, false, true});
    }

    /// Returns the text that lists the account's products.
    QString writeLines(int account, const QString& id, const AccountPlan& plan, Random& random)
    {
        QStringList names;
        int serial = 500000 + 3 * account;
        for (const SaleLine& line : plan.Lines) {
            const QString name = utf8(line.Item->Name);
            names.append(
                line.Quantity == 1 ? name : QStringLiteral("%1 x%2").arg(name).arg(line.Quantity));
            QVariant colour;
            QVariant engine;
            QVariant chassis;
            QVariant vehicle;
            if (line.Item->Numbered) {
                ++serial;
                colour = Colour(random);
                engine = QStringLiteral("E%1").arg(serial);
                chassis = QStringLiteral("C%1").arg(serial);
                vehicle = VehicleNumber(random);
            }
            lines_.Row({id, utf8(line.Item->Id), line.Quantity, line.Price,
                        line.Quantity * line.Price, colour, engine, chassis, vehicle});
        }
        return names.join(QStringLiteral(", "));
    }

    // Places of the columns that differ on the account that another is converted into.
    enum HeaderColumn {
        Order = 3,
        Sale = 4,
        Old = 5,
        CardNo = 8,
        AreaCode = 14,
        PreviousAccount = 27,
        ChangeDate = 41
    };

    std::vector<QVariant> header(const QString& id, const QString& products,
                                 const AccountPlan& plan, const Roles& roles, Random& random) const
    {
        const QDate saleDate = setting_.Day(plan.SaleDay);
        const QTime time(random.Between(9, 19), random.Below(60));
        const QString caste = Caste(random);
        const QString address = HomeAddress(random);
        const QString city = City(random);
        const bool posted = plan.SaleDay < setting_.Extent.Days() - 60;
        return {id,
                QDateTime(saleDate, time),
                posted,
                roles.Order,
                roles.Sale,
                plan.Old,
                roles.SmallVehicle,
                roles.LargeVehicle,
                plan.CardNo,
                plan.Old ? QVariant() : QVariant(plan.CardNo),
                GivenName(random),
                GivenName(random),
                caste,
                birthday(random),
                area(plan.Area).Code,
                random.Between(1, Sectors),
                roles.Franchise,
                roles.Receiver,
                roles.Manager,
                roles.Secretary,
                roles.CheckingManager,
                roles.Driver,
                IdentityCard(random),
                address,
                address,
                city,
                JobAddress(random),
                plan.Conversion ? QVariant(newAccountOf(*plan.Conversion)) : QVariant(),
                random.Percent(20) ? QVariant(HousePhone(random)) : QVariant(),
                QVariant(),
                MobileNumber(random),
                GivenName(random),
                GivenName(random),
                Caste(random),
                birthday(random),
                IdentityCard(random),
                MobileNumber(random),
                HomeAddress(random),
                City(random),
                random.Percent(50) ? QVariant(JobAddress(random)) : QVariant(),
                saleDate,
                QVariant(),
                random.Between(1, 28),
                plan.Installment,
                plan.Total,
                random.Between(2, 3),
                products};
    }

    /// The account that one was converted into, as it stands on that one: card before area.
    QString newAccountOf(const PlannedConversion& conversion) const
    {
        return planner_.CardOf(conversion.Account) + QLatin1Char(' ') +
               area(planner_.AreaOf(conversion.Account)).Code;
    }

    static QDate birthday(Random& random)
    {
        return QDate(1955, 1, 1).addDays(random.Below(45 * 365));
    }

    void earn(const AccountPlan& plan, const Roles& roles)
    {
        if (plan.Old)
            return;
        const EarningSale sale{plan.SaleDay,
                               roles.Order,
                               roles.SmallVehicle,
                               roles.LargeVehicle,
                               roles.Driver.toString(),
                               roles.Manager,
                               roles.Secretary,
                               roles.CheckingManager.toString(),
                               roles.Franchise.toString()};
        for (const SaleLine& line : plan.Lines)
            earned_.AddSale(sale, *line.Item, line.Quantity);
    }

    void noteMovements(int account, const AccountPlan& plan)
    {
        for (const PlannedReceipt& receipt : plan.Receipts) {
            receipts_.push_back({receipt.Slot,
                                 receipt.IsOnNewAccount ? plan.Conversion->Account : account,
                                 receipt.Amount});
        }
        if (plan.Concession)
            concessions_.push_back({plan.Concession->Slot, account, plan.Concession->Amount});
        if (plan.Return) {
            returns_.push_back(
                {plan.Return->Slot, account, plan.Return->Recovered, plan.Return->Amount});
        }
    }

    void writeRecoveries()
    {
        VoucherBook book(planner_.RecoverySlots());
        enter(receipts_, book);
        writeRecoveryHeaders(book);

        // The receipts come from one book after another, of which each begins anew.
        constexpr int lastReceiptNumber = 999'999;
        TableWriter writer(
            setting_.Connection, "RecoveryBody",
            {"VoucherID", "VoucherDate", "InsCustomerID", "CardNo", "ReceiptNo", "Amount"});
        const int count = int(receipts_.size());
        for (int number = 0; number < count; ++number) {
            pause("receipts", number, count);
            const Receipt& receipt = receipts_[std::size_t(number)];
            const int day = planner_.RecoveryDay(receipt.Slot);
            const std::size_t place = planner_.RecoveryArea(receipt.Slot);
            const QString card = planner_.CardOf(receipt.Account);
            writer.Row({book.Id(receipt.Slot), setting_.Day(day),
                        QString(area(place).Code + QLatin1Char(' ') + card), card,
                        number % lastReceiptNumber + 1, receipt.Amount});
            earned_.AddReceipt(day, place, receipt.Amount);
        }
        writer.Finish();
        std::vector<Receipt>().swap(receipts_);
    }

    void writeRecoveryHeaders(const VoucherBook& book)
    {
        Random random(4001);
        TableWriter writer(setting_.Connection, "RecoveryHeader",
                           {"VoucherID", "EntryDate", "isPosted", "VoucherDate", "AreaCode",
                            "AMStaffID", "SAMStaffID", "StaffID", "UserNo"});
        for (int slot = 0; slot < book.Slots(); ++slot) {
            if (book.Id(slot) == 0)
                continue;
            const int day = planner_.RecoveryDay(slot);
            const QDate date = setting_.Day(day);
            const Area& place = area(planner_.RecoveryArea(slot));
            const QTime time(random.Between(15, 19), random.Below(60));
            writer.Row({book.Id(slot), QDateTime(date, time), day < setting_.Extent.Days() - 30,
                        date, place.Code, place.Manager, place.Secretary, place.Collector,
                        place.BranchCode == 2 ? 5 : 2});
        }
        writer.Finish();
    }

    void writeMonthlyHeaders(const char* table, const VoucherBook& book,
                             int (AccountPlanner::*dayOf)(int) const)
    {
        TableWriter writer(setting_.Connection, table, {"VoucherID", "VoucherDate", "AreaCode"});
        for (int slot = 0; slot < book.Slots(); ++slot) {
            if (book.Id(slot) != 0) {
                writer.Row({book.Id(slot), setting_.Day((planner_.*dayOf)(slot)),
                            area(planner_.MonthlyArea(slot)).Code});
            }
        }
        writer.Finish();
    }

    void writeConcessions()
    {
        VoucherBook book(planner_.MonthlySlots());
        enter(concessions_, book);
        writeMonthlyHeaders("ConcessionHeader", book, &AccountPlanner::ConcessionDay);
        TableWriter writer(
            setting_.Connection, "ConcessionBody",
            {"VoucherID", "VoucherDate", "InsCustomerID", "CardNo", "Remarks", "Amount"});
        for (const Concession& concession : concessions_) {
            writer.Row({book.Id(concession.Slot),
                        setting_.Day(planner_.ConcessionDay(concession.Slot)),
                        planner_.IdOf(concession.Account), planner_.CardOf(concession.Account),
                        utf8("رعایت"), concession.Amount});
        }
        writer.Finish();
    }

    void writeReturns()
    {
        VoucherBook book(planner_.MonthlySlots());
        enter(returns_, book);
        writeMonthlyHeaders("ReturnHeader", book, &AccountPlanner::ReturnDay);
        TableWriter writer(setting_.Connection, "ReturnBody",
                           {"VoucherID", "VoucherDate", "InsCustomerID", "CardNo", "Remarks",
                            "TotalRecovery", "TotalAmount", "Amount"});
        TableWriter products(setting_.Connection, "ReturnProducts",
                             {"VoucherID", "InsCustomerID", "ProductID", "Qty"});
        for (const Return& back : returns_) {
            const int voucher = book.Id(back.Slot);
            const QString id = planner_.IdOf(back.Account);
            const AccountPlan plan = planner_.Plan(back.Account);
            writer.Row({voucher, setting_.Day(planner_.ReturnDay(back.Slot)), id, plan.CardNo,
                        utf8("مال واپس"), back.Recovered, plan.Total, back.Amount});
            for (const SaleLine& line : plan.Lines)
                products.Row({voucher, id, utf8(line.Item->Id), line.Quantity});
        }
        writer.Finish();
        products.Finish();
    }

    const Setting& setting_;
    PayBook& earned_;
    AccountPlanner planner_;
    TableWriter headers_;
    TableWriter lines_;
    TableWriter previous_;
    TableWriter conversions_;
    std::vector<Receipt> receipts_;
    std::vector<Concession> concessions_;
    std::vector<Return> returns_;
};

} // namespace

void WriteAccounts(const Setting& setting, PayBook& earned)
{
    AccountHistory(setting, earned).Write();
}

} // namespace Sample
