#pragma once

#include "data/ado/Dispatch.h"
#include "host/UserSecurity.h"

namespace TradeForms {

/// The host's security object, called through IDispatch. Its errors are raised as DispatchFailure
/// with their own description.
class HostSecurity : public UserSecurity {
public:
    explicit HostSecurity(Dispatch object);
    ~HostSecurity() override;

    bool HasRight(const QString& screenKey, std::optional<std::int16_t> modifyMarker,
                  std::optional<std::int16_t> deleteMarker) override;
    bool UserFlagA() const override;
    bool AllowPostedEdit() const override;
    bool IsAdministrator() const override;
    std::int16_t UserNumber() const override;
    QString UserBranchCode() const override;

private:
    Dispatch object_;
};

} // namespace TradeForms
