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

    /// Returns whether the user has a right on a screen, given by the name of its menu entry
    /// ("MniGatePass"). The right to modify is asked for with modifyMarker 1 and no deleteMarker,
    /// the right to delete with deleteMarker 1 and no modifyMarker.
    virtual bool HasRight(const QString& screenKey,
                          std::optional<std::int16_t> modifyMarker = std::nullopt,
                          std::optional<std::int16_t> deleteMarker = std::nullopt) = 0;
    virtual bool UserFlagA() const = 0;
    /// Whether the user may save a posted voucher. False stops the save without a message.
    virtual bool AllowPostedEdit() const = 0;
    /// Whether the user has every right on every screen.
    virtual bool IsAdministrator() const = 0;
    /// The user's number, 0 to 255; Forms::InitializeSecurity refuses others.
    virtual std::int16_t UserNumber() const = 0;
    /// The code of the user's branch; "0" means all branches.
    virtual QString UserBranchCode() const = 0;
};

} // namespace TradeForms
