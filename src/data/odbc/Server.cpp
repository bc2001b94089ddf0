#include "data/odbc/Server.h"

#include "data/Utf8.h"
#include "data/odbc/SqlServer.h"

#include <algorithm>
#include <utility>

namespace TradeForms {

namespace {

using Factories = std::vector<std::pair<QString, Server::Factory>>;

Factories& factories()
{
    static Factories registered;
    return registered;
}

} // namespace

const ServerColumn* ServerTable::Find(const QString& name) const
{
    const auto found =
        std::find_if(Columns.begin(), Columns.end(),
                     [&](const ServerColumn& column) { return IsSameName(column.Name, name); });
    return found == Columns.end() ? nullptr : &*found;
}

bool ServerTable::IsKey(const QString& name) const
{
    return Keys.contains(name, Qt::CaseInsensitive);
}

Server::~Server() = default;

bool Server::IsSystemTable(const QString& table) const
{
    return IsSameName(table, u"SchemaVersion") || IsSameName(table, u"StockLevels");
}

void Server::Register(const QString& system, Factory factory)
{
    factories().emplace_back(system, factory);
}

std::unique_ptr<Server> Server::Named(const QString& system)
{
    for (const auto& [name, factory] : factories())
        if (system.contains(name, Qt::CaseInsensitive))
            return factory();
    return std::make_unique<SqlServer>();
}

} // namespace TradeForms
