#pragma once

#include "Passwords.h"

#include <QString>

#include <memory>
#include <optional>

namespace TradeForms {
class Connection;
}

namespace Host {

/// Someone who has logged in.
struct UserAccount {
    int UserNo = 0;
    QString UserName;
};

/// The users of one company.
class Users {
public:
    explicit Users(std::shared_ptr<TradeForms::Connection> connection, Passwords passwords = {});

    /// The user of that name (in any case) and password, or nothing. An unknown name takes as
    /// long to answer as a wrong password. Raises TradeForms::Failure.
    std::optional<UserAccount> LogIn(const QString& userName, const QString& password) const;

    /// Whether anyone can log in at all: a company made by an older host has users without names.
    bool AnyoneCanLogIn() const;

    /// Adds the administrator with whom such a company begins. Raises TradeForms::Failure where
    /// there are users who can log in.
    void AddFirstAdministrator(const QString& userName, const QString& password);

private:
    std::shared_ptr<TradeForms::Connection> connection_;
    Passwords passwords_;
};

/// The words for a login that failed; they do not tell which of the two was wrong.
QString WrongLoginText();
QString WrongLoginTextUrdu();

} // namespace Host
