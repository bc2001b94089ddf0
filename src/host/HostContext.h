#pragma once

#include <QString>

#include <cstdint>
#include <memory>

namespace TradeForms {

class Connection;
class UserSecurity;

/// The process-wide state that all forms, dialogs and reports read. Written only by Forms; it
/// lives until the library is unloaded, and a later Initialize call overwrites it.
namespace HostContext {

extern std::shared_ptr<Connection> objCN;
extern std::shared_ptr<UserSecurity> objSec;
extern std::uint8_t UserNo;
extern QString LogoImage;
extern QString NameUrdu;
extern bool ServerMode;

/// Returns objCN. Raises Failure before the host has called InitializeClass.
const std::shared_ptr<Connection>& Database();
/// Returns objSec. Raises Failure before the host has called InitializeSecurity.
UserSecurity& Security();

} // namespace HostContext
} // namespace TradeForms
