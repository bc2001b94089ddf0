// The data room on a hundred thousand rows: recordsets, criteria, batches and the adapter.

#include "Measure.h"
#include "data/EngineAccess.h"

#include "controls/Utf8.h"
#include "data/Connection.h"
#include "data/Recordset.h"
#include "data/sqlite/Adapter.h"
#include "data/sqlite/SqliteEngine.h"
#include "support/LibraryStatements.h"
#include "support/TestCompany.h"

#include <QHash>

#include <memory>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

using namespace TradeForms;
using benchmark::State;

constexpr int rowCount = 100'000;
constexpr int batchSize = 1'000;

/// A company with a hundred thousand receipts and as many accounts. Made when it is first used.
class Desk {
public:
    static Desk& Get()
    {
        static Desk desk;
        return desk;
    }

    TestCompany Company;
    std::shared_ptr<Connection> Ours = Company.Connect();
    Bench::Raw Raw{Company.File()};

private:
    Desk()
    {
        const QString numbers =
            utf8("with recursive n(i) as (select 1 union all select i + 1 from n where i < %1) ")
                .arg(rowCount);
        Company.Run(numbers +
                    utf8("insert into RecoveryBody select 1 + i / 200, date('2026-01-01', '+' || "
                         "(i / 300) || ' days'), 'Kot ' || i, i, i, 500 + i % 40 * 50 from n"));
        Company.Run(numbers +
                    utf8("insert into InsCustomerHeader (InsCustomerID, AreaCode, CardNo, "
                         "Name, FName, PAddress) select 'Kot ' || i, 'Kot', i, "
                         "'محمد اسلم ' || i, 'غلام رسول ' || (i % 1000), "
                         "'مکان نمبر ' || i || '، محلہ غوثیہ' from n"));
    }
};

const char* const sixColumns = "Select * from RecoveryBody";
const char* const accountColumns =
    "SELECT AreaCode, InsCustomerID, CardNo, Name, FName, PAddress FROM InsCustomerHeader";

Recordset openedOn(const char* statement, LockType lock = LockType::ReadOnly)
{
    Recordset rows;
    rows.Open(Statement(statement), Desk::Get().Ours, CursorType::Static, lock);
    return rows;
}

// ---- Reading all rows

void readOurs(State& state)
{
    Bench::LimitRatio(state, 1.5);
    Desk::Get();
    for (auto _ : state) {
        Recordset rows = openedOn(sixColumns);
        const int fields = rows.FieldCount();
        for (; !rows.Eof(); rows.MoveNext())
            for (int field = 0; field < fields; ++field)
                benchmark::DoNotOptimize(rows.Fields(field).Value());
        if (rows.RecordCount() != rowCount)
            state.SkipWithError("the rows are not there");
    }
}

void readBaseline(State& state)
{
    for (auto _ : state)
        if (Desk::Get().Raw.ReadAll(sixColumns) != rowCount)
            state.SkipWithError("the rows are not there");
}

// ---- Memory of the rows

double allocated()
{
#ifdef __GLIBC__
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks) + double(info.hblkhd);
#else
    return 0;
#endif
}

void memoryOurs(State& state)
{
    Bench::LimitRatio(state, 1.5);
    openedOn(sixColumns); // what a first statement leaves in caches is not the recordset's
    double used = 0;
    for (auto _ : state) {
        const double before = allocated();
        const Recordset rows = openedOn(sixColumns);
        used = allocated() - before;
    }
    state.counters["memory"] = used;
}

/// The bytes of the values themselves: texts as they are stored, eight for a number.
void memoryBaseline(State& state)
{
    double bytes = 0;
    for (auto _ : state) {
        bytes = 0;
        sqlite3_stmt* statement = Desk::Get().Raw.Prepare(sixColumns);
        while (sqlite3_step(statement) == SQLITE_ROW) {
            for (int column = 0; column < sqlite3_column_count(statement); ++column) {
                const bool isText = sqlite3_column_type(statement, column) == SQLITE_TEXT;
                bytes += isText ? sqlite3_column_bytes(statement, column) : 8;
            }
        }
        sqlite3_finalize(statement);
    }
    state.counters["memory"] = bytes;
}

// ---- Searching in what has been read; the baseline asks the database anew

void find(State& state, const char* criterion)
{
    Recordset rows = openedOn(accountColumns);
    const Statement wanted(criterion);
    for (auto _ : state) {
        rows.Find(wanted);
        if (rows.Eof())
            state.SkipWithError("nothing is found");
    }
}

void filter(State& state)
{
    Recordset rows = openedOn(accountColumns);
    const Statement wanted("Name like '%99%' and FName like '%99%'");
    for (auto _ : state) {
        rows.SetFilter(wanted);
        if (rows.RecordCount() == 0 || rows.RecordCount() > rowCount / 10)
            state.SkipWithError("the filter does not fit");
    }
}

void search(State& state, const char* statement)
{
    for (auto _ : state)
        if (Desk::Get().Raw.ReadAll(statement) == 0)
            state.SkipWithError("nothing is found");
}

// ---- Writing a batch

void batchOurs(State& state)
{
    Bench::LimitRatio(state, 1.3);
    Desk& desk = Desk::Get();
    for (auto _ : state) {
        state.PauseTiming();
        Recordset rows =
            openedOn("Select * from ReturnProducts where 1=0", LockType::BatchOptimistic);
        for (int row = 0; row < batchSize; ++row) {
            rows.AddNew();
            rows.Fields("VoucherID").SetValue(1);
            rows.Fields("InsCustomerID").SetValue(QStringLiteral("Kot %1").arg(row));
            rows.Fields("ProductID").SetValue(utf8("101"));
            rows.Fields("Qty").SetValue(2);
        }
        desk.Ours->BeginTrans();
        state.ResumeTiming();
        rows.UpdateBatch();
        state.PauseTiming();
        desk.Ours->CommitTrans();
        if (desk.Raw.Number("select count(*) from ReturnProducts") != batchSize)
            state.SkipWithError("the rows are not stored");
        desk.Raw.Run("delete from ReturnProducts");
        state.ResumeTiming();
    }
}

void batchBaseline(State& state)
{
    Desk& desk = Desk::Get();
    std::vector<QByteArray> accounts;
    for (int row = 0; row < batchSize; ++row)
        accounts.push_back("Kot " + QByteArray::number(row));
    for (auto _ : state) {
        state.PauseTiming();
        desk.Raw.Run("begin immediate");
        state.ResumeTiming();
        sqlite3_stmt* insert = desk.Raw.Prepare("insert into ReturnProducts (VoucherID, "
                                                "InsCustomerID, ProductID, Qty) values "
                                                "(?, ?, ?, ?)");
        for (const QByteArray& account : accounts) {
            sqlite3_bind_int(insert, 1, 1);
            sqlite3_bind_text(insert, 2, account.constData(), int(account.size()), SQLITE_STATIC);
            sqlite3_bind_text(insert, 3, "101", 3, SQLITE_STATIC);
            sqlite3_bind_double(insert, 4, 2);
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
        sqlite3_finalize(insert);
        state.PauseTiming();
        desk.Raw.Run("commit");
        desk.Raw.Run("delete from ReturnProducts");
        state.ResumeTiming();
    }
}

// ---- The adapter, a statement

/// Runs the work on one statement after the other, each time on the next.
template <class Work> void eachStatement(State& state, Work work)
{
    const QStringList statements = tests::LibraryStatements(utf8(SOURCE_DIR));
    qsizetype next = 0;
    for (auto _ : state) {
        work(statements[next]);
        next = (next + 1) % statements.size();
    }
}

void adaptNew(State& state)
{
    Bench::LimitTime(state, 10e-6);
    eachStatement(state, [](const QString& statement) {
        benchmark::DoNotOptimize(AdaptStatement(statement.toUtf8()));
    });
}

/// What comes after it in any case: SQLite prepares the statement.
void prepareAdapted(State& state)
{
    std::vector<QByteArray> texts;
    for (const QString& statement : tests::LibraryStatements(utf8(SOURCE_DIR))) {
        const AdaptedStatement adapted = AdaptStatement(statement.toUtf8());
        if (!adapted.Procedure)
            texts.push_back(adapted.Text);
    }
    sqlite3* handle = static_cast<SqliteEngine&>(EngineAccess::Of(*Desk::Get().Ours)).Raw();
    std::size_t next = 0;
    for (auto _ : state) {
        sqlite3_stmt* prepared = nullptr;
        if (sqlite3_prepare_v2(handle, texts[next].constData(), -1, &prepared, nullptr) !=
            SQLITE_OK)
            state.SkipWithError("a statement cannot be prepared");
        sqlite3_finalize(prepared);
        next = (next + 1) % texts.size();
    }
}

void adaptCached(State& state)
{
    Bench::LimitTime(state, 1e-6);
    auto& engine = static_cast<SqliteEngine&>(EngineAccess::Of(*Desk::Get().Ours));
    for (const QString& statement : tests::LibraryStatements(utf8(SOURCE_DIR)))
        engine.Adapted(statement);
    eachStatement(state, [&engine](const QString& statement) {
        benchmark::DoNotOptimize(engine.Adapted(statement));
    });
}

/// A look-up of the statement in a hash table.
void lookUp(State& state)
{
    QHash<QString, int> known;
    for (const QString& statement : tests::LibraryStatements(utf8(SOURCE_DIR)))
        known.insert(statement, 1);
    eachStatement(state, [&known](const QString& statement) {
        benchmark::DoNotOptimize(known.constFind(statement));
    });
}

const bool registered = [] {
    Bench::RegisterPair("read 100,000 rows of 6 columns", readOurs, readBaseline, 1);
    Bench::RegisterPair("memory of 100,000 rows of 6 columns", memoryOurs, memoryBaseline, 1);
    Bench::RegisterPair(
        "find by prefix in 100,000 rows",
        [](State& state) { find(state, "InsCustomerID like 'Kot 99999%'"); },
        [](State& state) {
            search(state, "SELECT CardNo FROM InsCustomerHeader WHERE InsCustomerID LIKE "
                          "'Kot 99999%' LIMIT 1");
        },
        1);
    Bench::RegisterPair(
        "find by part in 100,000 rows",
        [](State& state) { find(state, "Name like '%اسلم 99999%'"); },
        [](State& state) {
            search(state, "SELECT CardNo FROM InsCustomerHeader WHERE Name LIKE "
                          "'%اسلم 99999%' LIMIT 1");
        },
        1);
    Bench::RegisterPair(
        "filter 100,000 rows by two columns", filter,
        [](State& state) {
            search(state, "SELECT CardNo FROM InsCustomerHeader WHERE Name LIKE '%99%' AND "
                          "FName LIKE '%99%'");
        },
        1);
    Bench::RegisterPair("write a batch of 1,000 new rows", batchOurs, batchBaseline, 3);
    Bench::RegisterPair("adapt a new statement, against preparing it", adaptNew, prepareAdapted,
                        2000);
    Bench::RegisterPair("adapt a known statement, against a hash", adaptCached, lookUp, 100'000);
    return true;
}();

} // namespace
