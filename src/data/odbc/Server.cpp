#include "data/odbc/Server.h"

#include "data/odbc/SqlServer.h"
#include "data/odbc/SqliteServer.h"

#include <algorithm>

namespace TradeForms {

namespace {

bool isSameName(const QString& first, const QString& second)
{
    return first.compare(second, Qt::CaseInsensitive) == 0;
}

} // namespace

const ServerColumn* ServerTable::Find(const QString& name) const
{
    const auto found =
        std::find_if(Columns.begin(), Columns.end(),
                     [&](const ServerColumn& column) { return isSameName(column.Name, name); });
    return found == Columns.end() ? nullptr : &*found;
}

bool ServerTable::IsKey(const QString& name) const
{
    return Keys.contains(name, Qt::CaseInsensitive);
}

Server::~Server() = default;

bool Server::IsOwnTable(const QString& table) const
{
    return isSameName(table, QStringLiteral("SchemaVersion")) ||
           isSameName(table, QStringLiteral("StockLevels"));
}

std::unique_ptr<Server> Server::Named(const QString& system)
{
    if (system.contains(QLatin1String("sqlite"), Qt::CaseInsensitive))
        return std::make_unique<SqliteServer>();
    return std::make_unique<SqlServer>();
}

} // namespace TradeForms
