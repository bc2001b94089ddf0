#include "data/sqlite/CompanySchema.h"

#include "data/Failure.h"
#include "data/sqlite/Functions.h"

#include <QHash>

#include <algorithm>

namespace TradeForms {

namespace {

/// The objects that the schema script makes, read once.
const QList<SchemaObject>& expectedSchema()
{
    static const QList<SchemaObject> schema = SchemaObjectsOf(SchemaInMemory().get());
    return schema;
}

/// Whether the definition of a table is the expected one, or that with columns inserted at one
/// place, as `alter table` does.
bool isExtended(const QByteArray& made, const QByteArray& found)
{
    const qsizetype added = found.size() - made.size();
    if (added <= 0)
        return found == made;
    const auto end = std::mismatch(made.begin(), made.end(), found.begin()).first;
    const qsizetype same = end - made.begin();
    // The inserted text begins with a comma, or follows one.
    const bool isColumn = found[same] == ',' || (same > 0 && found[same - 1] == ',');
    return isColumn &&
           QByteArrayView(found).sliced(same + added) == QByteArrayView(made).sliced(same);
}

[[noreturn]] void raiseDamaged(const QString& file, const QString& what)
{
    throw ProviderFailure(DamagedText(file, what), SQLITE_CORRUPT);
}

} // namespace

Handle SchemaInMemory()
{
    sqlite3* raw = nullptr;
    sqlite3_open(":memory:", &raw);
    Handle handle(raw);
    RegisterDialect(raw);
    RunScript(raw, SqliteSchemaScript());
    return handle;
}

QList<SchemaObject> SchemaObjectsOf(sqlite3* handle)
{
    const PreparedStatement statement = Prepare(
        handle, "SELECT type, name, sql FROM sqlite_schema WHERE sql IS NOT NULL ORDER BY rowid",
        false);
    QList<SchemaObject> objects;
    while (Step(statement.get()))
        objects.append({ReadBytes(statement.get(), 0), ReadBytes(statement.get(), 1),
                        ReadBytes(statement.get(), 2)});
    return objects;
}

void RequireCompanySchema(sqlite3* handle, const QString& file)
{
    // A changed auto_vacuum setting would make writes corrupt pages.
    if (ReadInteger(handle, "PRAGMA auto_vacuum") != 0)
        raiseDamaged(file, QStringLiteral("its head is not as it was made"));
    // Two tables or indexes cannot have the same root page.
    if (ReadInteger(handle, "SELECT count(rootpage) - count(DISTINCT rootpage) FROM sqlite_schema "
                            "WHERE rootpage > 0") != 0)
        raiseDamaged(file, QStringLiteral("two of its tables are one"));

    QHash<QByteArray, SchemaObject> found;
    for (const SchemaObject& object : SchemaObjectsOf(handle))
        found.insert(object.Name.toLower(), object);
    for (const SchemaObject& expected : expectedSchema()) {
        const auto object = found.constFind(expected.Name.toLower());
        const bool isThere = object != found.constEnd() && object->Type == expected.Type;
        if (!isThere && expected.Type == "index")
            continue;
        const bool isAsMade = isThere && (expected.Type == "table"
                                              ? isExtended(expected.Definition, object->Definition)
                                              : expected.Definition == object->Definition);
        if (!isAsMade)
            raiseDamaged(file, QStringLiteral("%1 '%2' is not as it was made")
                                   .arg(QString::fromUtf8(expected.Type),
                                        QString::fromUtf8(expected.Name.toLower())));
    }
}

} // namespace TradeForms
