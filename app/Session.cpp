#include "Session.h"

#include "DatabaseSecurity.h"

#include <TradeForms/Connection.h>
#include <TradeForms/Failure.h>
#include <TradeForms/Recordset.h>

namespace Host {

using TradeForms::Connection;
using TradeForms::Failure;
using TradeForms::Recordset;

CompanyInfo ReadCompanyInfo(Connection& connection)
{
    const Recordset info = connection.Execute("select NameUrdu, LogoFile from CompanyInfo");
    if (info.RecordCount() == 0)
        return {};
    return {info.Value("NameUrdu").toString(), info.Value("LogoFile").toString()};
}

Session::Session(const std::shared_ptr<Connection>& connection, const UserAccount& account)
    : account_(account), company_(ReadCompanyInfo(*connection)),
      security_(std::make_shared<DatabaseSecurity>(connection, account.UserNo))
{
    forms_.InitializeClass(connection);
    try {
        forms_.InitializeSecurity(security_);
    } catch (const TradeForms::OverflowFailure&) {
        throw Failure(QStringLiteral("User \"%1\" has the number %2, and user numbers go from 0 "
                                     "to 255. Ask the administrator for another number.")
                          .arg(account.UserName)
                          .arg(account.UserNo));
    }
    forms_.InitializeLogo(company_.LogoFile, company_.NameUrdu);
    forms_.InitializeServer(false);
}

bool Session::IsAdministrator() const
{
    return security_->IsAdministrator();
}

bool Session::MayOpen(const Screen& screen) const
{
    return IsAdministrator() || security_->HasRight(QLatin1String(screen.Key));
}

void Session::Open(const Screen& screen)
{
    if (!MayOpen(screen)) {
        throw Failure(QStringLiteral("User \"%1\" may not open %2.")
                          .arg(account_.UserName, QLatin1String(screen.English)));
    }
    (forms_.*screen.Open)();
}

} // namespace Host
