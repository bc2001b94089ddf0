#pragma once

#include <TradeForms/Recordset.h>
#include <TradeForms/UserSecurity.h>

#include <memory>

namespace TradeForms {
class Connection;
class Statement;
} // namespace TradeForms

namespace Host {

/// The rights of one user, read from the company at each call, so that an administrator's changes
/// apply at once. Every method raises TradeForms::Failure where the rights cannot be read or the
/// user has been deleted.
class DatabaseSecurity final : public TradeForms::UserSecurity {
public:
    DatabaseSecurity(std::shared_ptr<TradeForms::Connection> connection, int userNo);

    /// Without a marker: whether the user may open the screen.
    bool HasRight(const QString& screenKey, std::optional<std::int16_t> modifyMarker = std::nullopt,
                  std::optional<std::int16_t> deleteMarker = std::nullopt) override;
    bool UserFlagA() const override { return false; }
    bool AllowPostedEdit() const override;
    bool IsAdministrator() const override;
    /// Raises TradeForms::OverflowFailure beyond 16 bits.
    std::int16_t UserNumber() const override;
    QString UserBranchCode() const override;

private:
    TradeForms::Recordset userRow() const;

    std::shared_ptr<TradeForms::Connection> connection_;
    int userNo_;
};

} // namespace Host
