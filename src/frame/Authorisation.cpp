#include "frame/Authorisation.h"

#include "controls/MsgBox.h"
#include "data/Connection.h"
#include "data/Recordset.h"
#include "host/HostContext.h"
#include "host/UserSecurity.h"

namespace TradeForms::Authorisation {

namespace {

constexpr std::int16_t Marker = 1;

bool refuse(QWidget* owner, const QString& words)
{
    Inform(owner, words, MsgIcon::Stop, QStringLiteral("Error"));
    return false;
}

} // namespace

bool MayModify(QWidget* owner, const QString& screenKey, const QString& refusal)
{
    UserSecurity& user = HostContext::Security();
    return user.IsAdministrator() || user.HasRight(screenKey, Marker, std::nullopt) ||
           refuse(owner, refusal);
}

bool MayDelete(QWidget* owner, const QString& screenKey, const QString& refusal)
{
    UserSecurity& user = HostContext::Security();
    return user.IsAdministrator() || user.HasRight(screenKey, std::nullopt, Marker) ||
           refuse(owner, refusal);
}

bool PassesPostedRule(QWidget* owner, const QString& screenKey, const Statement& isPosted)
{
    const Recordset stored = HostContext::Database()->Execute(isPosted);
    if (stored.RecordCount() != 1)
        return true;
    if (!stored.Value("isPosted").toBool()) {
        return MayModify(owner, screenKey,
                         QStringLiteral("You are not authorized to modify a record"));
    }
    UserSecurity& user = HostContext::Security();
    // Hosts rely on the flag being read, though its value has no effect.
    static_cast<void>(user.UserFlagA());
    if (!user.AllowPostedEdit())
        return false;
    return user.IsAdministrator() ||
           refuse(owner, QStringLiteral("You are not authorized to modify a posted record"));
}

bool PassesDateWindow(QWidget* owner, const QDate& voucherDate)
{
    const Recordset window = HostContext::Database()->Execute(
        Statement("Select * from Users where UserNo = {UserNo} and FromDate is not null")
            .Bind("UserNo", int(HostContext::UserNo)));
    if (window.RecordCount() == 0)
        return true;
    const QDate from = window.Value("FromDate").toDate();
    const QDate to = window.Value("ToDate").toDate();
    if (voucherDate >= from && (!to.isValid() || voucherDate <= to))
        return true;
    Inform(owner, QStringLiteral("You are not authorized to add a record in this Date."),
           MsgIcon::Information, QStringLiteral("Information"));
    return false;
}

Statement BranchFilter()
{
    const QString branch = HostContext::Security().UserBranchCode();
    if (branch == QLatin1String("0"))
        return Statement();
    return Statement(" and BranchCode={BranchCode}").Bind("BranchCode", branch);
}

} // namespace TradeForms::Authorisation
