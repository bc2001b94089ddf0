#include "Screens.h"

#include <algorithm>

namespace Host {

namespace {

using TradeForms::Forms;

constexpr Screen screens[] = {
    // clang-format off
    {"GatePassForm", "MniGatePass", "گیٹ پاس", "Gate Pass", ScreenGroup::Stock, &Forms::GatePassForm},
    {"StockInForm", "MniStockIn", "سٹاک آمد", "Stock In", ScreenGroup::Stock, &Forms::StockInForm},
    {"StockInPriceForm", "MniStockIn", "سٹاک آمد مع قیمت", "Stock In with Prices", ScreenGroup::Stock, &Forms::StockInPriceForm},
    {"StockInDetailForm", "MniStockInDetail", "سٹاک آمد تفصیل", "Stock In Detail", ScreenGroup::Stock, &Forms::StockInDetailForm},
    {"StockOutForm", "MniStockOut", "سٹاک روانگی", "Stock Out", ScreenGroup::Stock, &Forms::StockOutForm},
    {"StockOutPriceForm", "MniStockOut", "سٹاک روانگی مع قیمت", "Stock Out with Prices", ScreenGroup::Stock, &Forms::StockOutPriceForm},
    // clang-format on
};

} // namespace

std::span<const Screen> Screens()
{
    return screens;
}

const Screen* FindScreen(const QString& method)
{
    const auto found = std::ranges::find_if(screens, [&method](const Screen& screen) {
        return method.compare(QLatin1String(screen.Method), Qt::CaseInsensitive) == 0;
    });
    return found == std::end(screens) ? nullptr : found;
}

QStringList ScreenMethods()
{
    QStringList names;
    for (const Screen& screen : screens)
        names.append(QLatin1String(screen.Method));
    return names;
}

QString GroupUrdu(ScreenGroup group)
{
    switch (group) {
    case ScreenGroup::Stock:
        return QString::fromUtf8("سٹاک");
    case ScreenGroup::Installment:
        return QString::fromUtf8("قسطیں");
    case ScreenGroup::Payroll:
        return QString::fromUtf8("تنخواہ");
    }
    return {};
}

QString GroupEnglish(ScreenGroup group)
{
    switch (group) {
    case ScreenGroup::Stock:
        return QStringLiteral("Stock");
    case ScreenGroup::Installment:
        return QStringLiteral("Installment");
    case ScreenGroup::Payroll:
        return QStringLiteral("Payroll");
    }
    return {};
}

} // namespace Host
