#include "HostSchema.h"

#include <TradeForms/Connection.h>
#include <TradeForms/Recordset.h>

#include <QStringView>

namespace Host {

using TradeForms::Connection;
using TradeForms::Recordset;

namespace {

struct Column {
    const char16_t* Name;
    const char* Statement;
};

constexpr Column userColumns[] = {
    {u"UserName", "alter table Users add UserName TEXT COLLATE CI"},
    {u"PasswordHash", "alter table Users add PasswordHash TEXT"},
    {u"Administrator", "alter table Users add Administrator BIT not null default 0"},
    {u"AllowPostedEdit", "alter table Users add AllowPostedEdit BIT not null default 0"},
    {u"BranchCode", "alter table Users add BranchCode TEXT not null default '0'"},
};

constexpr const char* tables[] = {
    "create unique index if not exists UsersByName on Users (UserName)",

    "create table if not exists UserRights ("
    " UserNo INTEGER not null,"
    " ScreenKey TEXT COLLATE CI not null,"
    " CanModify BIT not null default 0,"
    " CanDelete BIT not null default 0,"
    " primary key (UserNo, ScreenKey))",

    "create table if not exists CompanyInfo ("
    " NameUrdu TEXT,"
    " LogoFile TEXT)",
};

} // namespace

void EnsureHostSchema(Connection& connection)
{
    const Recordset users = connection.Execute("select * from Users where 1=0");
    for (const Column& column : userColumns)
        if (users.FieldIndex(column.Name) < 0)
            connection.Execute(column.Statement);
    for (const char* statement : tables)
        connection.Execute(statement);
}

} // namespace Host
