#include "sample/Company.h"
#include "sample/Parts.h"
#include "sample/TableWriter.h"
#include "sample/Utf8.h"

#include <TradeForms/Connection.h>

namespace Sample {

namespace {

constexpr const char* allScreens[] = {
    "MniGatePass",
    "MniStockIn",
    "MniStockOut",
    "MniStockInDetail",
    "MniInstallmentCustomer",
    "MniConvertArea",
    "MniRecoveryVoucher",
    "MniConcession",
    "MniReturn",
    "MniSalary",
    "MniFrenchiserSalary",
    "MniWorkerParts",
    "MniWorkShopSalary",
};

enum class Window {
    None,
    ThisMonth, ///< from the first of the last day's month, open to the end
    Closed     ///< a day in the past: nothing can be entered on screens that check the window
};

struct UserFact {
    int Number;
    const char* Name;
    bool Administrator;
    bool AllowPostedEdit;
    const char* BranchCode;
    bool CanModify;
    bool CanDelete;
    Window Dates;
};

// clang-format off
// All users have all screens, with different rights.
constexpr UserFact users[] = {
    // No. name     admin  posted branch modify delete dates
    {1, "admin",    true,  true,  "0",   true,  true,  Window::None},
    {2, "clerk",    false, true,  "0",   true,  true,  Window::None},
    {3, "newclerk", false, true,  "0",   false, false, Window::None},
    {4, "viewer",   false, false, "0",   false, false, Window::Closed},
    {5, "lahore",   false, true,  "2",   true,  false, Window::None},
    {6, "month",    false, true,  "0",   true,  true,  Window::ThisMonth},
    {7, "poster",   false, false, "0",   true,  true,  Window::None},
};
// clang-format on

QVariant firstDate(Window window, QDate lastDay)
{
    switch (window) {
    case Window::None:
        return {};
    case Window::ThisMonth:
        return QDate(lastDay.year(), lastDay.month(), 1);
    case Window::Closed:
        return QDate(2000, 1, 1);
    }
    return {};
}

} // namespace

void WriteUsers(const Setting& setting, const PasswordHash& hash)
{
    TableWriter rows(setting.Connection, "Users",
                     {"UserNo", "FromDate", "ToDate", "UserName", "PasswordHash", "Administrator",
                      "AllowPostedEdit", "BranchCode"});
    TableWriter rights(setting.Connection, "UserRights",
                       {"UserNo", "ScreenKey", "CanModify", "CanDelete"});
    for (const UserFact& user : users) {
        const QVariant from = firstDate(user.Dates, setting.LastDay);
        const QVariant to = user.Dates == Window::Closed ? from : QVariant();
        rows.Row({user.Number, from, to, utf8(user.Name), hash(Password()), user.Administrator,
                  user.AllowPostedEdit, utf8(user.BranchCode)});
        for (const char* screen : allScreens)
            rights.Row({user.Number, utf8(screen), user.CanModify, user.CanDelete});
    }
    rows.Finish();
    rights.Finish();
}

} // namespace Sample
