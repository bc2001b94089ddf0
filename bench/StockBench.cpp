// Units coming into stock, each figure beside its raw baseline in the same run.

#include "data/Connection.h"
#include "host/HostContext.h"
#include "stock/FrmStockInDetail.h"
#include "support/FakeUser.h"
#include "support/Keys.h"
#include "support/TestCompany.h"

#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QFile>
#include <QtTest>

#include <sqlite3.h>

namespace {

using namespace TradeForms;

constexpr int Units = 300;
constexpr int StoredUnits = 5'000'000;

double seconds(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e9;
}

QByteArray number(const char* kind, int unit)
{
    return kind + QByteArray::number(unit).rightJustified(19, '0');
}

void run(sqlite3* database, const QByteArray& sql)
{
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(database, sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
        qFatal("%s: %s", sql.constData(), sqlite3_errmsg(database));
    while (sqlite3_step(statement) == SQLITE_ROW)
        for (int column = 0; column < sqlite3_column_count(statement); ++column)
            benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
    sqlite3_finalize(statement);
}

/// A company, its file through the C API alone, and a window on it.
class Desk {
public:
    Desk()
    {
        HostContext::objCN = company.Connect();
        HostContext::objSec = std::make_shared<tests::FakeUser>();
        HostContext::UserNo = 1;
        sqlite3_open_v2(QFile::encodeName(company.File()).constData(), &raw, SQLITE_OPEN_READWRITE,
                        nullptr);
        sqlite3_create_collation(raw, "CI", SQLITE_UTF8, nullptr,
                                 [](void*, int an, const void* a, int bn, const void* b) {
                                     const int difference = qstrnicmp(static_cast<const char*>(a),
                                                                      static_cast<const char*>(b),
                                                                      size_t(std::min(an, bn)));
                                     return difference != 0 ? difference : an - bn;
                                 });
        run(raw, "pragma synchronous=full");
    }
    ~Desk()
    {
        form.reset();
        sqlite3_close(raw);
        HostContext::objCN.reset();
        HostContext::objSec.reset();
    }

    void open()
    {
        form = std::make_unique<FrmStockInDetail>();
        form->FormLoad();
        form->ShowModeless(false);
        form->activateWindow();
        if (!QTest::qWaitForWindowActive(form.get()))
            qFatal("The window does not become active.");
    }
    void enter(const QByteArray& text)
    {
        form->ActiveControl()->Widget().setProperty("text", QString::fromLatin1(text));
        Press(*form, Qt::Key_Return);
    }
    void enterHeader()
    {
        form->ResetFocus(form->Receiving.Code);
        enter("3107");
        enter(QByteArray());
    }
    void enterUnit(int unit)
    {
        enter("101");
        enter(number("E", unit));
        enter(number("C", unit));
    }

    TestCompany company;
    sqlite3* raw = nullptr;
    std::unique_ptr<FrmStockInDetail> form;
};

// ---- Saving 300 units, from the click to the commit

void saveOurs(benchmark::State& state)
{
    Desk desk;
    desk.open();
    int unit = 0;
    for (auto _ : state) {
        desk.enterHeader();
        for (int i = 0; i < Units; ++i)
            desk.enterUnit(++unit);
        QElapsedTimer timer;
        timer.start();
        // What follows the commit is the emptying of the form, which begins with its number.
        double saved = 0;
        desk.form->TxtID.OnChange += [&] {
            if (saved == 0)
                saved = seconds(timer);
        };
        desk.form->BtnSave.Click();
        desk.form->TxtID.OnChange.Clear();
        state.SetIterationTime(saved);
    }
    if (desk.company.Scalar(QStringLiteral("select count(*) from StockInDetailBody")).toInt() !=
        unit)
        state.SkipWithError("the units are not stored");
}

/// The statements of one save, as the form sends them, through the C API.
void saveRaw(sqlite3* database, int id, int firstUnit)
{
    const QByteArray voucher = QByteArray::number(id);
    run(database, "Select * from StockInDetailHeader where StockID = " + voucher);
    run(database, "begin immediate");
    run(database, "select * from StockInDetailHeader where StockID=" + voucher);
    run(database,
        "insert into StockInDetailHeader values (" + voucher + ",'2026-11-21','3107',null)");
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(database,
                       "insert into StockInDetailBody (StockID, ProductID, EngineNo, ChasisNo)"
                       " values (?,?,?,?)",
                       -1, &insert, nullptr);
    for (int unit = firstUnit; unit < firstUnit + Units; ++unit) {
        const QByteArray engine = number("E", unit);
        const QByteArray chassis = number("C", unit);
        sqlite3_bind_int(insert, 1, id);
        sqlite3_bind_text(insert, 2, "101", 3, SQLITE_STATIC);
        sqlite3_bind_text(insert, 3, engine.constData(), int(engine.size()), SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 4, chassis.constData(), int(chassis.size()), SQLITE_TRANSIENT);
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    run(database, "commit");
}

/// The same clerk at the same form, so that the processor's caches are as cold; only the saving
/// goes past the library.
void saveBaseline(benchmark::State& state)
{
    Desk desk;
    desk.open();
    int unit = 0;
    int id = 0;
    for (auto _ : state) {
        desk.enterHeader();
        const int first = unit + 1;
        for (int i = 0; i < Units; ++i)
            desk.enterUnit(++unit);
        QElapsedTimer timer;
        timer.start();
        saveRaw(desk.raw, ++id, first);
        state.SetIterationTime(seconds(timer));
        desk.form->BtnClear.Click();
    }
}

BENCHMARK(saveOurs)->Name("save 300 units/ours")->UseManualTime()->Repetitions(7)->Iterations(1);
BENCHMARK(saveBaseline)
    ->Name("save 300 units/baseline")
    ->UseManualTime()
    ->Repetitions(7)
    ->Iterations(1);

// ---- A unit among five million: is it known?

/// Fills the table faster than row by row: its indexes are made afterwards.
void store(Desk& desk, int units)
{
    const QList<QVariantList> indexes =
        desk.company.Rows("select name, sql from sqlite_master where type = 'index'"
                          " and tbl_name = 'StockInDetailBody' and sql is not null");
    for (const QVariantList& index : indexes)
        run(desk.raw, "drop index " + index[0].toByteArray());
    run(desk.raw, "with recursive n(i) as (select 1 union all select i + 1 from n where i < " +
                      QByteArray::number(units) +
                      ") insert into StockInDetailBody (StockID, ProductID, EngineNo, ChasisNo)"
                      " select i / 300 + 1, '101', printf('E%019d', i), printf('C%019d', i)"
                      " from n");
    for (const QVariantList& index : indexes)
        run(desk.raw, index[1].toByteArray());
    run(desk.raw, "insert into StockInDetailHeader (StockID, Date)"
                  " select distinct StockID, '2026-01-01' from StockInDetailBody");
}

/// Leaving the chassis number of a new unit: the test, and the row that it lets into the grid.
void knownOurs(benchmark::State& state)
{
    Desk desk;
    store(desk, StoredUnits);
    desk.open();
    desk.enterHeader();
    int unit = StoredUnits;
    for (auto _ : state) {
        desk.enter("101");
        desk.enter(number("E", ++unit));
        desk.form->TxtChasisNo.SetText(QString::fromLatin1(number("C", unit)));
        QElapsedTimer timer;
        timer.start();
        desk.form->FocusNext();
        state.SetIterationTime(seconds(timer));
    }
    if (desk.form->Rows.RowCount() != unit - StoredUnits + 1)
        state.SkipWithError("the units are not in the grid");
}

void knownBaseline(benchmark::State& state)
{
    Desk desk;
    store(desk, StoredUnits);
    int unit = StoredUnits;
    for (auto _ : state) {
        ++unit;
        const QByteArray statement =
            "Select * from StockInDetailBody where ProductID = '101' and EngineNo = '" +
            number("E", unit) + "' and ChasisNo = '" + number("C", unit) + "'";
        QElapsedTimer timer;
        timer.start();
        run(desk.raw, statement);
        state.SetIterationTime(seconds(timer));
    }
}

BENCHMARK(knownOurs)
    ->Name("add a unit, with 5,000,000 stored/ours")
    ->UseManualTime()
    ->Iterations(50);
BENCHMARK(knownBaseline)
    ->Name("add a unit, with 5,000,000 stored/baseline")
    ->UseManualTime()
    ->Iterations(50);

} // namespace
