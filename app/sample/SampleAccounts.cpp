#include "AccountPlan.h"
#include "SampleFacts.h"
#include "SampleNames.h"
#include "SampleParts.h"
#include "SampleRandom.h"
#include "TableWriter.h"

#include <TradeForms/Connection.h>

namespace Host::Sample {

namespace {

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

/// Who stands on an account, and how it came.
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

QVariant sometimes(SampleRandom& random, int percent, int first, int count)
{
    const int id = first + random.Below(count);
    return random.Percent(percent) ? QVariant(QString::number(id)) : QVariant();
}

Roles chooseRoles(SampleRandom& random, const AccountPlan& plan)
{
    const Area& area = Areas()[plan.Area];
    Roles roles;
    roles.Order = !plan.Old && random.Percent(40);
    roles.Sale = !plan.Old && !roles.Order;
    roles.Franchise = sometimes(random, 15, FirstFranchiseHolder, FranchiseHolders);
    const bool franchise = roles.Franchise.isValid();
    roles.Manager = utf8(franchise ? FranchiseManager : area.Manager);
    roles.Secretary = utf8(franchise ? FranchiseManager : area.Secretary);
    roles.CheckingManager =
        sometimes(random, roles.Order ? 70 : 30, FirstCheckingManager, CheckingManagers);
    roles.Driver = sometimes(random, roles.Order ? 90 : 50, FirstDriver, Drivers);
    if (roles.Driver.isValid()) {
        roles.LargeVehicle = random.Percent(40);
        roles.SmallVehicle = !roles.LargeVehicle;
    }
    roles.Receiver = random.Percent(60) ? QVariant(utf8(area.Collector)) : QVariant();
    return roles;
}

/// Writes the accounts and all that hangs on them.
class AccountHistory {
public:
    AccountHistory(const Setting& setting, int count)
        : setting_(setting), count_(count), planner_(count), recoveries_(planner_.RecoverySlots()),
          concessions_(AccountPlanner::MonthlySlots()), returns_(AccountPlanner::MonthlySlots()),
          headers_(setting.Connection, "InsCustomerHeader",
                   {"InsCustomerID", "EntryDate",    "isPosted",
                    "Order",         "Sale",         "Old",
                    "SmallVehicle",  "LargeVehicle", "CardNo",
                    "AutoCard",      "Name",         "FName",
                    "Cast",          "DOB",          "AreaCode",
                    "SectorID",      "FStaffID",     "ReceivingCode",
                    "AMStaffID",     "SAMStaffID",   "CMStaffID",
                    "DriverID",      "NICNew",       "TAddress",
                    "PAddress",      "City",         "JobAddress",
                    "PhoneHouse",    "PhoneJob",     "Mobile",
                    "GName",         "GFName",       "GCast",
                    "GDOB",          "GNICNew",      "GPhoneNo",
                    "GPAddress",     "GCity",        "GJobAddress",
                    "SaleDate",      "PromiseDate",  "MonthlyInstallment",
                    "TotalAmount",   "UserNo",       "Product"}),
          lines_(setting.Connection, "InsCustomerBody",
                 {"InsCustomerID", "ProductID", "Qty", "Price", "Amount", "Colour", "EngineNo",
                  "ChasisNo", "VehicleNo"}),
          previous_(setting.Connection, "PreviousBalances",
                    {"InsCustomerID", "PreviousDate", "Amount", "Previous", "ConvertAccount"}),
          receipts_(setting.Connection, "RecoveryBody",
                    {"VoucherID", "VoucherDate", "InsCustomerID", "CardNo", "ReceiptNo", "Amount"}),
          concessionLines_(
              setting.Connection, "ConcessionBody",
              {"VoucherID", "VoucherDate", "InsCustomerID", "CardNo", "Remarks", "Amount"}),
          returnLines_(setting.Connection, "ReturnBody",
                       {"VoucherID", "VoucherDate", "InsCustomerID", "CardNo", "Remarks",
                        "TotalRecovery", "TotalAmount", "Amount"}),
          returnProducts_(setting.Connection, "ReturnProducts",
                          {"VoucherID", "InsCustomerID", "ProductID", "Qty"})
    {
    }

    void Write()
    {
        numberVouchers();
        writeRecoveryHeaders();
        writeMonthlyHeaders("ConcessionHeader", concessions_, AccountPlanner::ConcessionDay);
        writeMonthlyHeaders("ReturnHeader", returns_, AccountPlanner::ReturnDay);
        for (int account = 0; account < count_; ++account) {
            if (account % accountsPerTransaction == accountsPerTransaction - 1) {
                setting_.Connection->CommitTrans();
                setting_.Connection->BeginTrans();
            }
            writeAccount(account);
        }
        for (TableWriter* writer : {&headers_, &lines_, &previous_, &receipts_, &concessionLines_,
                                    &returnLines_, &returnProducts_}) {
            writer->Finish();
        }
    }

private:
    static constexpr int accountsPerTransaction = 5000;

    /// Which vouchers there are shows only when all accounts are known.
    void numberVouchers()
    {
        for (int account = 0; account < count_; ++account) {
            const AccountPlan plan = planner_.Plan(account);
            for (const PlannedReceipt& receipt : plan.Receipts) {
                recoveries_.Use(receipt.Slot);
            }
            if (plan.Concession) {
                concessions_.Use(plan.Concession->Slot);
            }
            if (plan.Return) {
                returns_.Use(plan.Return->Slot);
            }
        }
        for (VoucherBook* book : {&recoveries_, &concessions_, &returns_}) {
            book->Number();
        }
    }

    void writeRecoveryHeaders()
    {
        SampleRandom random(4001);
        TableWriter writer(setting_.Connection, "RecoveryHeader",
                           {"VoucherID", "EntryDate", "isPosted", "VoucherDate", "AreaCode",
                            "AMStaffID", "SAMStaffID", "StaffID", "UserNo"});
        for (int slot = 0; slot < recoveries_.Slots(); ++slot) {
            if (recoveries_.Id(slot) == 0) {
                continue;
            }
            const int day = planner_.RecoveryDay(slot);
            const QDate date = setting_.Day(day);
            const Area& area = Areas()[planner_.RecoveryArea(slot)];
            const QTime time(random.Between(15, 19), random.Below(60));
            writer.Row({recoveries_.Id(slot), QDateTime(date, time), day < Days - 30, date,
                        utf8(area.Code), utf8(area.Manager), utf8(area.Secretary),
                        utf8(area.Collector), area.BranchCode == 2 ? 5 : 2});
        }
        writer.Finish();
    }

    void writeMonthlyHeaders(const char* table, const VoucherBook& book, int (*dayOf)(int))
    {
        TableWriter writer(setting_.Connection, table, {"VoucherID", "VoucherDate", "AreaCode"});
        for (int slot = 0; slot < book.Slots(); ++slot) {
            if (book.Id(slot) != 0) {
                const Area& area = Areas()[AccountPlanner::MonthlyArea(slot)];
                writer.Row({book.Id(slot), setting_.Day(dayOf(slot)), utf8(area.Code)});
            }
        }
        writer.Finish();
    }

    void writeAccount(int account)
    {
        const AccountPlan plan = planner_.Plan(account);
        SampleRandom random(7'000'000'000U + std::uint64_t(account));
        const QString id = utf8(Areas()[plan.Area].Code) + QLatin1Char(' ') + plan.CardNo;
        const QString products = writeLines(account, id, plan, random);
        writeHeader(id, products, plan, random);
        writeMovements(id, plan);
    }

    /// Returns the text that tells the account's products.
    QString writeLines(int account, const QString& id, const AccountPlan& plan,
                       SampleRandom& random)
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

    void writeHeader(const QString& id, const QString& products, const AccountPlan& plan,
                     SampleRandom& random)
    {
        const Roles roles = chooseRoles(random, plan);
        const QDate saleDate = setting_.Day(plan.SaleDay);
        const QTime time(random.Between(9, 19), random.Below(60));
        const QString caste = Caste(random);
        const QString address = HomeAddress(random);
        const QString city = City(random);
        const bool posted = plan.SaleDay < Days - 60;
        headers_.Row({id,
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
                      utf8(Areas()[plan.Area].Code),
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
                      random.Between(1, 28),
                      plan.Installment,
                      plan.Total,
                      random.Between(2, 3),
                      products});
    }

    static QDate birthday(SampleRandom& random)
    {
        return QDate(1955, 1, 1).addDays(random.Below(45 * 365));
    }

    void writeMovements(const QString& id, const AccountPlan& plan)
    {
        if (plan.PaidBefore > 0) {
            previous_.Row({id, setting_.Day(-1), plan.PaidBefore, true, false});
        }
        for (const PlannedReceipt& receipt : plan.Receipts) {
            const int voucher = recoveries_.Id(receipt.Slot);
            const int number =
                (voucher - 1) * AccountPlanner::ReceiptsPerVoucher + receipt.Position + 1;
            receipts_.Row({voucher, setting_.Day(planner_.RecoveryDay(receipt.Slot)), id,
                           plan.CardNo, number, receipt.Amount});
        }
        if (plan.Concession) {
            const int slot = plan.Concession->Slot;
            concessionLines_.Row({concessions_.Id(slot),
                                  setting_.Day(AccountPlanner::ConcessionDay(slot)), id,
                                  plan.CardNo, utf8("رعایت"), plan.Concession->Amount});
        }
        if (plan.Return) {
            const int slot = plan.Return->Slot;
            returnLines_.Row({returns_.Id(slot), setting_.Day(AccountPlanner::ReturnDay(slot)), id,
                              plan.CardNo, utf8("مال واپس"), plan.Return->Recovered, plan.Total,
                              plan.Return->Amount});
            for (const SaleLine& line : plan.Lines) {
                returnProducts_.Row({returns_.Id(slot), id, utf8(line.Item->Id), line.Quantity});
            }
        }
    }

    const Setting& setting_;
    int count_;
    AccountPlanner planner_;
    VoucherBook recoveries_;
    VoucherBook concessions_;
    VoucherBook returns_;
    TableWriter headers_;
    TableWriter lines_;
    TableWriter previous_;
    TableWriter receipts_;
    TableWriter concessionLines_;
    TableWriter returnLines_;
    TableWriter returnProducts_;
};

} // namespace

void WriteAccounts(const Setting& setting, int count)
{
    AccountHistory(setting, count).Write();
}

} // namespace Host::Sample
