#include "data/server/ServerFailure.h"

namespace TradeForms {

QString InUseText(const QString& reason)
{
    return QStringLiteral("The database is in use by another user. Try again in a moment. (%1)")
        .arg(reason);
}

QString LostText(const QString& reason)
{
    return QStringLiteral("The connection to the database was lost. What stands in the windows "
                          "and was not saved is not in the database. When the server can be "
                          "reached again, start the program anew. (%1)")
        .arg(reason);
}

QString LostInCommitText(const QString& reason)
{
    return QStringLiteral("The connection to the database was lost while the change was being "
                          "saved. It is not known whether it was: look it up before it is "
                          "entered again. (%1)")
        .arg(reason);
}

bool IsLockNumber(int number)
{
    constexpr int timeOut = 1222;
    constexpr int deadlock = 1205;
    return number == timeOut || number == deadlock;
}

} // namespace TradeForms
