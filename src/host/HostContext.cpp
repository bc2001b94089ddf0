#include "host/HostContext.h"

#include "data/Connection.h"
#include "data/Failure.h"
#include "host/UserSecurity.h"

namespace TradeForms {

UserSecurity::~UserSecurity() = default;

namespace HostContext {

std::shared_ptr<Connection> objCN;
std::shared_ptr<UserSecurity> objSec;
std::uint8_t UserNo = 0;
QString LogoImage;
QString NameUrdu;
bool ServerMode = false;

const std::shared_ptr<Connection>& Database()
{
    if (!objCN) {
        throw Failure(QStringLiteral(
            "There is no database connection: the host has not called InitializeClass."));
    }
    return objCN;
}

UserSecurity& Security()
{
    if (!objSec) {
        throw Failure(
            QStringLiteral("There is no user: the host has not called InitializeSecurity."));
    }
    return *objSec;
}

} // namespace HostContext
} // namespace TradeForms
