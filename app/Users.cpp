#include "Users.h"

#include <TradeForms/Connection.h>
#include <TradeForms/Failure.h>
#include <TradeForms/Recordset.h>

namespace Host {

using TradeForms::Connection;
using TradeForms::Failure;
using TradeForms::Recordset;
using TradeForms::Statement;

Users::Users(std::shared_ptr<Connection> connection, Passwords passwords)
    : connection_(std::move(connection)), passwords_(std::move(passwords))
{
}

std::optional<UserAccount> Users::LogIn(const QString& userName, const QString& password) const
{
    UserAccount account;
    QString hash;
    const QString name = userName.trimmed();
    // A name with a quote cannot be bound in a statement, so no user has it.
    if (!name.isEmpty() && !name.contains(QLatin1Char('\''))) {
        const Recordset found =
            connection_->Execute(Statement("select UserNo, UserName, PasswordHash from Users "
                                           "where UserName = '{Name}'")
                                     .Bind("Name", name));
        if (found.RecordCount() == 1) {
            account = {found.Value("UserNo").toInt(), found.Value("UserName").toString()};
            hash = found.Value("PasswordHash").toString();
        }
    }
    if (!passwords_.Verify(hash, password))
        return std::nullopt;
    return account;
}

bool Users::AnyoneCanLogIn() const
{
    const Recordset able = connection_->Execute(
        "select UserNo from Users where UserName is not null and PasswordHash is not null");
    return able.RecordCount() > 0;
}

void Users::AddFirstAdministrator(const QString& userName, const QString& password)
{
    if (AnyoneCanLogIn()) {
        throw Failure(QStringLiteral("This company has users already: its administrator adds "
                                     "further ones."));
    }
    const Recordset last = connection_->Execute("select isnull(max(UserNo),0) as No from Users");
    connection_->Execute(
        Statement("insert into Users (UserNo, UserName, PasswordHash, Administrator, "
                  "AllowPostedEdit, BranchCode) values ({No}, '{Name}', '{Hash}', 1, 1, '0')")
            .Bind("No", last.Value("No").toInt() + 1)
            .Bind("Name", userName.trimmed())
            .Bind("Hash", passwords_.Hash(password)));
}

QString WrongLoginText()
{
    return QStringLiteral("Wrong user name or password");
}

QString WrongLoginTextUrdu()
{
    return QString::fromUtf8("صارف کا نام یا پاس ورڈ غلط ہے");
}

} // namespace Host
