#pragma once

#include "Screens.h"
#include "Users.h"

#include <TradeForms/Forms.h>

#include <QString>

#include <memory>

namespace TradeForms {
class Connection;
class UserSecurity;
} // namespace TradeForms

namespace Host {

/// The company's name and logo on reports.
struct CompanyInfo {
    QString NameUrdu;
    QString LogoFile;
};

/// Raises TradeForms::Failure.
CompanyInfo ReadCompanyInfo(TradeForms::Connection& connection);

/// The session of a user in a company, from login to log-out.
class Session {
public:
    /// Hands connection, user and company to the library. Raises TradeForms::Failure with a
    /// text for the user where the library refuses the user's number.
    Session(const std::shared_ptr<TradeForms::Connection>& connection, const UserAccount& account);

    const UserAccount& Account() const { return account_; }
    const CompanyInfo& Company() const { return company_; }

    /// Whether the user may do everything. Read at each call.
    bool IsAdministrator() const;
    /// Whether the user has the screen: an administrator has all. Read at each call.
    bool MayOpen(const Screen& screen) const;
    /// Shows the screen. Raises TradeForms::Failure where the user may not open it; what the
    /// screen itself raises comes through.
    void Open(const Screen& screen);

private:
    UserAccount account_;
    CompanyInfo company_;
    std::shared_ptr<TradeForms::UserSecurity> security_;
    TradeForms::Forms forms_;
};

} // namespace Host
