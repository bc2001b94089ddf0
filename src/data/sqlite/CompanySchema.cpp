#include "data/sqlite/CompanySchema.h"

#include "data/Failure.h"
#include "data/sqlite/Functions.h"
#include "data/sqlite/Handle.h"

#include <QHash>

#include <algorithm>

namespace TradeForms {

/// The text of schema/sqlite.sql, which the build makes a part of the library.
const char* SqliteSchemaScript();

namespace {

/// One object of a schema: its type, its name in small letters, the text that made it.
struct Object {
    QString Type;
    QString Name;
    QString Text;
};

QString textAt(sqlite3_stmt* statement, int column)
{
    const Cell cell = ReadColumn(statement, column);
    return QString::fromUtf8(cell.Bytes.data(), qsizetype(cell.Bytes.size()));
}

QList<Object> schemaOf(sqlite3* handle)
{
    const PreparedStatement statement = Prepare(
        handle, "SELECT type, lower(name), sql FROM sqlite_schema WHERE sql IS NOT NULL", false);
    QList<Object> schema;
    while (Step(statement.get()))
        schema.append(
            {textAt(statement.get(), 0), textAt(statement.get(), 1), textAt(statement.get(), 2)});
    return schema;
}

/// What the schema script makes, read once.
const QList<Object>& madeSchema()
{
    static const QList<Object> schema = [] {
        sqlite3* raw = nullptr;
        sqlite3_open_v2(":memory:", &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
        const Handle handle(raw);
        RegisterDialect(raw);
        RunScript(raw, SqliteSchemaScript());
        return schemaOf(raw);
    }();
    return schema;
}

/// Whether a table's text is the one that made it, or that with further columns put in at one
/// place, as `alter table` does.
bool isExtended(const QString& made, const QString& found)
{
    const qsizetype added = found.size() - made.size();
    if (added <= 0)
        return found == made;
    const auto end = std::mismatch(made.begin(), made.end(), found.begin()).first;
    const qsizetype same = end - made.begin();
    // Where a comma follows in both, the columns seem to be put in behind it.
    const bool isColumn = found[same] == u',' || (same > 0 && found[same - 1] == u',');
    return isColumn && QStringView(found).sliced(same + added) == QStringView(made).sliced(same);
}

[[noreturn]] void raiseDamaged(const QString& file, const QString& what)
{
    throw ProviderFailure(DamagedText(file, what), SQLITE_CORRUPT);
}

} // namespace

void RequireCompanySchema(sqlite3* handle, const QString& file)
{
    // With it, a write would take pages for something else than they are.
    if (ReadInteger(handle, "PRAGMA auto_vacuum") != 0)
        raiseDamaged(file, QStringLiteral("its head is not as it was made"));
    // No two tables or indexes begin at one page.
    if (ReadInteger(handle, "SELECT count(rootpage) - count(DISTINCT rootpage) FROM sqlite_schema "
                            "WHERE rootpage > 0") != 0)
        raiseDamaged(file, QStringLiteral("two of its tables are one"));

    QHash<QString, Object> found;
    for (const Object& object : schemaOf(handle))
        found.insert(object.Name, object);
    for (const Object& made : madeSchema()) {
        const auto object = found.constFind(made.Name);
        const bool isThere = object != found.constEnd() && object->Type == made.Type;
        if (!isThere && made.Type == QStringLiteral("index"))
            continue;
        const bool isAsMade =
            isThere && (made.Type == QStringLiteral("table") ? isExtended(made.Text, object->Text)
                                                             : made.Text == object->Text);
        if (!isAsMade)
            raiseDamaged(file,
                         QStringLiteral("%1 '%2' is not as it was made").arg(made.Type, made.Name));
    }
}

} // namespace TradeForms
