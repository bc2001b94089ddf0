#include "entry/com/HostSecurity.h"

namespace TradeForms {

namespace {

Variant markerOf(std::optional<std::int16_t> marker)
{
    return marker ? Variant(qint16(*marker)) : Variant::Missing();
}

} // namespace

HostSecurity::HostSecurity(Dispatch object) : object_(std::move(object)) {}

HostSecurity::~HostSecurity() = default;

bool HostSecurity::HasRight(const QString& screenKey, std::optional<std::int16_t> modifyMarker,
                            std::optional<std::int16_t> deleteMarker)
{
    Variant key(screenKey);
    const Variant reference = Variant::ReferenceTo(key);
    // Omitted trailing arguments are not passed.
    if (deleteMarker)
        return object_.Call("HasRight", reference, markerOf(modifyMarker), markerOf(deleteMarker))
            .ToBool();
    if (modifyMarker)
        return object_.Call("HasRight", reference, markerOf(modifyMarker)).ToBool();
    return object_.Call("HasRight", reference).ToBool();
}

bool HostSecurity::UserFlagA() const
{
    return object_.Get("UserFlagA").ToBool();
}

bool HostSecurity::AllowPostedEdit() const
{
    return object_.Get("AllowPostedEdit").ToBool();
}

bool HostSecurity::IsAdministrator() const
{
    return object_.Get("IsAdministrator").ToBool();
}

std::int16_t HostSecurity::UserNumber() const
{
    return object_.Get("UserNumber").ToInt16();
}

QString HostSecurity::UserBranchCode() const
{
    return object_.Get("UserBranchCode").ToString();
}

} // namespace TradeForms
