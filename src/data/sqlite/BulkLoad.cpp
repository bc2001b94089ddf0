#include "data/sqlite/BulkLoad.h"

#include "data/Failure.h"
#include "data/sqlite/CompanyFile.h"

namespace TradeForms {

namespace {

/// The first column of every row, as text.
QList<QByteArray> readTexts(sqlite3* handle, const QByteArray& query)
{
    const PreparedStatement statement = Prepare(handle, query, false);
    QList<QByteArray> texts;
    while (Step(statement.get()))
        texts.append(ReadBytes(statement.get(), 0));
    return texts;
}

// Sorting uses as much memory as the cache and a file for the rest, since millions of texts would
// not fit. The journal in memory still undoes failed statements.
constexpr const char* loadSettings = "PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF;"
                                     "PRAGMA cache_size = -131072; PRAGMA temp_store = FILE;"
                                     "PRAGMA user_version = 0;";

} // namespace

BulkLoad::BulkLoad(sqlite3* handle) : handle_(handle)
{
    requireEmpty();
    RunScript(handle_, loadSettings);
    dropIndexesAndTriggers();
}

void BulkLoad::requireEmpty() const
{
    for (const QByteArray& table :
         readTexts(handle_, "SELECT name FROM sqlite_master WHERE type = 'table'"
                            " AND name NOT LIKE 'sqlite%'")) {
        if (ReadInteger(handle_, "SELECT EXISTS (SELECT 1 FROM [" + table + "])") != 0)
            throw ProviderFailure(QStringLiteral("Only a new company can be filled in bulk: '%1' "
                                                 "holds rows.")
                                      .arg(QString::fromUtf8(table)),
                                  SQLITE_MISUSE);
    }
}

/// Indexes of keys remain: SQLite has no definition for them.
void BulkLoad::dropIndexesAndTriggers()
{
    const QByteArray kept = " FROM sqlite_master WHERE type IN ('index', 'trigger')"
                            " AND sql IS NOT NULL ORDER BY type, tbl_name, name";
    definitions_ = readTexts(handle_, "SELECT sql" + kept);
    for (const QByteArray& drop :
         readTexts(handle_, "SELECT 'DROP ' || type || ' [' || name || ']'" + kept))
        RunScript(handle_, drop.constData());
}

void BulkLoad::Finish(const std::function<void(int, int)>& progress)
{
    for (qsizetype done = 0; done < definitions_.size(); ++done) {
        RunScript(handle_, definitions_[done].constData());
        if (progress)
            progress(int(done) + 1, int(definitions_.size()));
    }
    FillStockLevels(handle_);
    ConfigureCompany(handle_);
    MarkAsCompany(handle_);
}

} // namespace TradeForms
