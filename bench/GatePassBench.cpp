// The gate pass, each figure beside its raw baseline in the same run.

#include "controls/Utf8.h"
#include "data/Connection.h"
#include "data/Recordset.h"
#include "host/HostContext.h"
#include "stock/FrmGatePass.h"
#include "support/ExpectedBoxes.h"
#include "support/FakeUser.h"
#include "support/Keys.h"
#include "support/TestCompany.h"

#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <QtTest>

#include <sqlite3.h>

namespace {

using namespace TradeForms;

constexpr int Repetitions = 15;

/// A company with fifty-row vouchers in mind: 600 products in the stock of branch 1.
class Desk {
public:
    Desk()
    {
        company.Run(utf8("with recursive n(i) as (select 1000 union all select i + 1 from n"
                         " where i < 1599) insert into Products (ProductID, ProductName)"
                         " select i, 'P' || i from n"));
        company.Run(
            utf8("insert into StockInBody (StockID, ProductID, Qty) select"
                 " (select min(StockID) from StockInHeader where BranchCode = 1), ProductID,"
                 " 50 from Products where ProductName like 'P1%'"));
        HostContext::objCN = company.Connect();
        HostContext::objSec = std::make_shared<tests::FakeUser>();
        HostContext::UserNo = 1;
        presenter = Modal::SetBoxPresenter([this](QWidget*, const Message& message) {
            if (onBox)
                onBox();
            return message.Buttons == MsgButtons::YesNo ? MsgAnswer::No : MsgAnswer::Ok;
        });
    }
    ~Desk()
    {
        form.reset();
        Modal::SetBoxPresenter(presenter);
        HostContext::objCN.reset();
        HostContext::objSec.reset();
    }

    /// The same database file through the C API alone.
    sqlite3* raw()
    {
        if (!raw_) {
            sqlite3_open_v2(QFile::encodeName(company.File()).constData(), &raw_,
                            SQLITE_OPEN_READWRITE, nullptr);
            sqlite3_create_collation(raw_, "CI", SQLITE_UTF8, nullptr,
                                     [](void*, int an, const void* a, int bn, const void* b) {
                                         return qstrnicmp(static_cast<const char*>(a), an,
                                                          static_cast<const char*>(b), bn);
                                     });
            run("pragma journal_mode=wal");
            run("pragma synchronous=full");
        }
        return raw_;
    }
    void run(const char* sql) { sqlite3_exec(raw_ ? raw_ : raw(), sql, nullptr, nullptr, nullptr); }
    void closeRaw()
    {
        sqlite3_close(raw_);
        raw_ = nullptr;
    }

    void open()
    {
        form = std::make_unique<FrmGatePass>();
        form->FormLoad();
        form->ShowModeless(false);
        form->activateWindow();
        if (!QTest::qWaitForWindowActive(form.get()))
            qFatal("The window does not become active.");
    }
    void enter(const QString& text)
    {
        form->ActiveControl()->Widget().setProperty("text", text);
        Press(*form, Qt::Key_Return);
    }
    void enterHeader()
    {
        enter(utf8("2014"));
        enter(utf8("3107"));
        enter(utf8("Kot"));
        enter(utf8("1"));
    }
    void enterRow(int product)
    {
        enter(QString::number(product));
        enter(utf8("2"));
        enter(utf8("1"));
        enter(QString());
    }

    /// A pass of 20 rows.
    void enterPass()
    {
        enterHeader();
        for (int row = 0; row < 20; ++row)
            enterRow(1000 + row);
    }

    TestCompany company;
    std::unique_ptr<FrmGatePass> form;
    std::function<void()> onBox; ///< a message box has come up

private:
    Modal::BoxPresenter presenter;
    sqlite3* raw_ = nullptr;
};

double seconds(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e9;
}

// ---- Opening a window until it is painted and has the focus

void openOurs(benchmark::State& state)
{
    Desk desk;
    desk.open(); // fonts and statements are loaded once a run
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        auto form = std::make_unique<FrmGatePass>();
        form->FormLoad();
        form->ShowModeless(false);
        form->activateWindow();
        while (!form->isActiveWindow() || QApplication::focusWidget() != &form->Driver.Code)
            QApplication::processEvents();
        form->grab();
        state.SetIterationTime(seconds(timer));
    }
}

void openBaseline(benchmark::State& state)
{
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        QWidget window(nullptr, Qt::FramelessWindowHint);
        auto* all = new QVBoxLayout(&window);
        for (int i = 0; i < 19; ++i)
            all->addWidget(new QLineEdit);
        for (int i = 0; i < 11; ++i)
            all->addWidget(new QPushButton(utf8("Button")));
        all->addWidget(new QTableWidget(1, 5));
        window.show();
        window.activateWindow();
        while (!window.isActiveWindow() || !QApplication::focusWidget())
            QApplication::processEvents();
        window.grab();
        state.SetIterationTime(seconds(timer));
    }
}

BENCHMARK(openOurs)
    ->Name("open a gate pass window/ours")
    ->UseManualTime()
    ->Repetitions(Repetitions)
    ->Iterations(1);
BENCHMARK(openBaseline)
    ->Name("open a gate pass window/baseline")
    ->UseManualTime()
    ->Repetitions(Repetitions)
    ->Iterations(1);

// ---- Leaving a code field

void leaveOurs(benchmark::State& state)
{
    Desk desk;
    desk.open();
    desk.enterHeader();
    for (auto _ : state) {
        desk.form->ResetFocus(desk.form->Area.Code);
        QElapsedTimer timer;
        timer.start();
        desk.form->FocusNext();
        state.SetIterationTime(seconds(timer));
    }
}

void leaveBaseline(benchmark::State& state)
{
    Desk desk;
    sqlite3* database = desk.raw();
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database, "Select * FROM Areas  where AreaCode='Kot'", -1, &statement,
                           nullptr);
        while (sqlite3_step(statement) == SQLITE_ROW)
            benchmark::DoNotOptimize(sqlite3_column_text(statement, 1));
        sqlite3_finalize(statement);
        state.SetIterationTime(seconds(timer));
    }
    desk.closeRaw();
}

BENCHMARK(leaveOurs)
    ->Name("leave a code field/ours")
    ->UseManualTime()
    ->Repetitions(Repetitions)
    ->Iterations(50);
BENCHMARK(leaveBaseline)
    ->Name("leave a code field/baseline")
    ->UseManualTime()
    ->Repetitions(Repetitions)
    ->Iterations(50);

// ---- Adding a row to a voucher of 500 rows, against an empty one

void addRow(benchmark::State& state, int rowsBefore)
{
    Desk desk;
    desk.open();
    desk.enterHeader();
    int product = 1000;
    for (int row = 0; row < rowsBefore; ++row)
        desk.enterRow(product++);
    for (auto _ : state) {
        desk.enter(QString::number(product++));
        desk.enter(utf8("2"));
        desk.enter(utf8("1"));
        QElapsedTimer timer;
        timer.start();
        Press(*desk.form, Qt::Key_Return);
        QApplication::processEvents();
        state.SetIterationTime(seconds(timer));
    }
    if (desk.form->Rows.RowCount() != rowsBefore + int(state.iterations()) + 1)
        state.SkipWithError("the rows are not there");
}

BENCHMARK_CAPTURE(addRow, ours, 500)
    ->Name("add a row to 500, against an empty pass/ours")
    ->UseManualTime()
    ->Repetitions(Repetitions)
    ->Iterations(5);
BENCHMARK_CAPTURE(addRow, baseline, 0)
    ->Name("add a row to 500, against an empty pass/baseline")
    ->UseManualTime()
    ->Repetitions(Repetitions)
    ->Iterations(5);

// ---- Saving a pass of 20 rows

/// From the click to the question that follows the commit.
void saveOurs(benchmark::State& state)
{
    Desk desk;
    desk.open();
    for (auto _ : state) {
        desk.enterPass();
        QElapsedTimer timer;
        timer.start();
        double saved = 0;
        desk.onBox = [&] { saved = seconds(timer); };
        desk.form->BtnSave.Click();
        state.SetIterationTime(saved);
    }
    if (desk.company.Scalar(utf8("select count(*) from GatePassBody")).toInt() !=
        20 * int(state.iterations()))
        state.SkipWithError("the rows are not stored");
}

/// The statements of one save, as the form sends them, through the C API.
void saveRaw(sqlite3* database, int id)
{
    const auto run = [database](const QByteArray& sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(database, sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
            qFatal("%s: %s", sql.constData(), sqlite3_errmsg(database));
        while (sqlite3_step(statement) == SQLITE_ROW) {
        }
        sqlite3_finalize(statement);
    };
    const QByteArray number = QByteArray::number(id);
    run("select isposted from GatePassHeader where GatePassID = " + number);
    run("Select * from Users where UserNo = 1 and FromDate is not null");
    run("Select * from GatePassHeader where GatePassID = " + number);
    run("begin immediate");
    run("select * from GatePassHeader where GatePassID=" + number);
    run("insert into GatePassHeader values (" + number +
        ",'2026-11-21 10:00:00',0,'2026-11-21','2014','3107','Kot',1,0,1,0,1)");
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(database, "insert into GatePassBody values (?,?,?,?,?)", -1, &insert,
                       nullptr);
    for (int row = 0; row < 20; ++row) {
        const QByteArray product = QByteArray::number(1000 + row);
        sqlite3_bind_int(insert, 1, id);
        sqlite3_bind_text(insert, 2, product.constData(), int(product.size()), SQLITE_TRANSIENT);
        sqlite3_bind_double(insert, 3, 2);
        sqlite3_bind_double(insert, 4, 1);
        sqlite3_bind_null(insert, 5);
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    run("commit");
}

/// The same clerk at the same form, so that the processor's caches are as cold; only the saving
/// goes past the library.
void saveBaseline(benchmark::State& state)
{
    Desk desk;
    desk.open();
    int id = 0;
    sqlite3* database = desk.raw();
    for (auto _ : state) {
        desk.enterPass();
        QElapsedTimer timer;
        timer.start();
        saveRaw(database, ++id);
        state.SetIterationTime(seconds(timer));
        desk.form->SetFormState(VoucherForm::State::New);
    }
    desk.closeRaw();
    if (desk.company.Scalar(utf8("select count(*) from GatePassBody")).toInt() !=
        20 * int(state.iterations()))
        state.SkipWithError("the rows are not stored");
}

BENCHMARK(saveOurs)
    ->Name("save a pass of 20 rows/ours")
    ->UseManualTime()
    ->Repetitions(Repetitions)
    ->Iterations(10);
BENCHMARK(saveBaseline)
    ->Name("save a pass of 20 rows/baseline")
    ->UseManualTime()
    ->Repetitions(Repetitions)
    ->Iterations(10);

// ---- Ten open windows

double residentBytes()
{
    QFile status(utf8("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').front().toDouble() * 1024;
    return 0;
}

void windows(benchmark::State& state, int count)
{
    Desk desk;
    std::vector<std::unique_ptr<FrmGatePass>> open;
    for (auto _ : state) {
        for (int i = 0; i < count; ++i) {
            desk.open();
            desk.form->grab();
            open.push_back(std::move(desk.form));
        }
    }
    state.counters["memory"] = residentBytes();
}

BENCHMARK_CAPTURE(windows, baseline, 1)
    ->Name("ten open windows, against one/baseline")
    ->Iterations(1);
BENCHMARK_CAPTURE(windows, ours, 10)->Name("ten open windows, against one/ours")->Iterations(1);

} // namespace
