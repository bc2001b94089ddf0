#include "DatabaseSecurity.h"

#include <TradeForms/Connection.h>
#include <TradeForms/Failure.h>

#include <limits>

namespace Host {

using TradeForms::Connection;
using TradeForms::Failure;
using TradeForms::OverflowFailure;
using TradeForms::Recordset;
using TradeForms::Statement;

DatabaseSecurity::DatabaseSecurity(std::shared_ptr<Connection> connection, int userNo)
    : connection_(std::move(connection)), userNo_(userNo)
{
}

bool DatabaseSecurity::HasRight(const QString& screenKey, std::optional<std::int16_t> modifyMarker,
                                std::optional<std::int16_t> deleteMarker)
{
    const Recordset rights =
        connection_->Execute(Statement("select CanModify, CanDelete from UserRights "
                                       "where UserNo = {UserNo} and ScreenKey = '{ScreenKey}'")
                                 .Bind("UserNo", userNo_)
                                 .Bind("ScreenKey", screenKey));
    if (rights.RecordCount() == 0)
        return false;
    const bool modifyHolds = !modifyMarker || rights.Value("CanModify").toBool();
    const bool deleteHolds = !deleteMarker || rights.Value("CanDelete").toBool();
    return modifyHolds && deleteHolds;
}

bool DatabaseSecurity::AllowPostedEdit() const
{
    return userRow().Value("AllowPostedEdit").toBool();
}

bool DatabaseSecurity::IsAdministrator() const
{
    return userRow().Value("Administrator").toBool();
}

std::int16_t DatabaseSecurity::UserNumber() const
{
    using Limits = std::numeric_limits<std::int16_t>;
    if (userNo_ < Limits::min() || userNo_ > Limits::max())
        throw OverflowFailure();
    return static_cast<std::int16_t>(userNo_);
}

QString DatabaseSecurity::UserBranchCode() const
{
    return userRow().Value("BranchCode").toString();
}

Recordset DatabaseSecurity::userRow() const
{
    Recordset row = connection_->Execute(
        Statement("select Administrator, AllowPostedEdit, BranchCode from Users "
                  "where UserNo = {UserNo}")
            .Bind("UserNo", userNo_));
    if (row.RecordCount() != 1) {
        throw Failure(
            QStringLiteral("User number %1 is no longer a user of this company.").arg(userNo_));
    }
    return row;
}

} // namespace Host
