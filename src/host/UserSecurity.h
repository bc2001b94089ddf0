#pragma once

#include <TradeForms/Export.h>

#include <QString>

#include <cstdint>
#include <optional>

namespace TradeForms {

/// The host's security object for the logged-in user. A failure is thrown as an exception and
/// ends in the error box of the step that asked.
class TRADEFORMS_EXPORT UserSecurity {
public:
    virtual ~UserSecurity();

    /// The right of this user on one screen. The key is the host's menu entry name
    /// ("MniGatePass"). For the right to modify, the first marker is 1 and the second left out;
    /// for the right to delete the other way round.
    virtual bool HasRight(const QString& screenKey,
                          std::optional<std::int16_t> modifyMarker = std::nullopt,
                          std::optional<std::int16_t> deleteMarker = std::nullopt) = 0;
    virtual bool UserFlagA() const = 0;
    /// False stops the save of a posted voucher without a message.
    virtual bool AllowPostedEdit() const = 0;
    /// True passes all tests of rights.
    virtual bool IsAdministrator() const = 0;
    /// 0 to 255; others are refused by Forms::InitializeSecurity.
    virtual std::int16_t UserNumber() const = 0;
    /// The user's branch; "0" means all branches.
    virtual QString UserBranchCode() const = 0;
};

} // namespace TradeForms
