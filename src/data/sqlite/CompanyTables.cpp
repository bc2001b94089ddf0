#include "data/CompanyTables.h"

#include "data/Utf8.h"
#include "data/sqlite/CompanySchema.h"
#include "data/sqlite/SqliteEngine.h"

#include <QHash>

#include <algorithm>

namespace TradeForms {

namespace {

using Tables = QHash<QString, CompanyTable>;

QStringList names(SqliteEngine& model, const char* query, const QString& of)
{
    sqlite3_stmt* statement = model.Prepared(query);
    const ResetAtEnd reset(statement);
    const QByteArray bytes = of.toUtf8();
    BindText(statement, 1, ViewOf(bytes));
    QStringList found;
    while (Step(statement))
        found.append(ReadText(statement, 0));
    return found;
}

/// The columns of the primary key; without one, of a unique index on columns that are not nullable.
QStringList keysOf(SqliteEngine& model, const QString& table)
{
    const QStringList primary =
        names(model, "SELECT name FROM pragma_table_info(?1) WHERE pk > 0 ORDER BY pk", table);
    if (!primary.isEmpty())
        return primary;
    const QStringList indexes = names(
        model, "SELECT name FROM pragma_index_list(?1) WHERE \"unique\" AND NOT partial", table);
    const QStringList neverNull =
        names(model, "SELECT name FROM pragma_table_info(?1) WHERE \"notnull\"", table);
    for (const QString& index : indexes) {
        const QStringList columns = names(model, "SELECT name FROM pragma_index_info(?1)", index);
        if (std::all_of(columns.begin(), columns.end(),
                        [&](const QString& column) { return neverNull.contains(column); }))
            return columns;
    }
    return {};
}

Tables readTables()
{
    SqliteEngine model{SchemaInMemory()};
    Tables tables;
    for (const QString& name : model.TableNames()) {
        CompanyTable& table = tables[name.toLower()];
        const auto none =
            model.Run(QStringLiteral("select * from ") + QString::fromUtf8(QuotedIdentifier(name)));
        const ResultMetadata& columns = none->Columns();
        for (int index = 0; index < columns.Count(); ++index)
            table.Fields.push_back({columns.At(index).Name, columns.At(index).Kind});
        table.Keys = keysOf(model, name);
    }
    return tables;
}

} // namespace

const CompanyTable::Field* CompanyTable::Find(const QString& name) const
{
    const auto found = std::find_if(Fields.begin(), Fields.end(), [&](const Field& field) {
        return IsSameName(field.Name, name);
    });
    return found == Fields.end() ? nullptr : &*found;
}

const CompanyTable* CompanyTableNamed(const QString& name)
{
    static const Tables tables = readTables();
    const auto found = tables.constFind(name.toLower());
    return found == tables.constEnd() ? nullptr : &*found;
}

} // namespace TradeForms
