#pragma once

#include "Passwords.h"

#include <QString>

#include <memory>
#include <optional>

namespace TradeForms {
class Connection;
}

namespace Host {

/// A user who has logged in.
struct UserAccount {
    int UserNo = 0;
    QString UserName;
};

/// The users of one company.
class Users {
public:
    explicit Users(std::shared_ptr<TradeForms::Connection> connection, Passwords passwords = {});

    /// Returns the user of that name, in any case, and password, or nothing. An unknown name takes
    /// as long as a wrong password. Raises TradeForms::Failure.
    std::optional<UserAccount> LogIn(const QString& userName, const QString& password) const;

    /// Whether any user can log in: a company of an older host has users without names.
    bool AnyoneCanLogIn() const;

    /// Adds the first administrator of such a company. Raises TradeForms::Failure where
    /// there are users who can log in.
    void AddFirstAdministrator(const QString& userName, const QString& password);

private:
    std::shared_ptr<TradeForms::Connection> connection_;
    Passwords passwords_;
};

/// The message for a failed login; it does not tell whether name or password was wrong.
QString WrongLoginText();
QString WrongLoginTextUrdu();

} // namespace Host
