// Measures the way through a host's connection: reading beside the bare calls that fetch the same
// rows and leave them as they are, saving beside the embedded engine that the test host has behind
// it. Prints a line a measure: name, ours, baseline in milliseconds, ratio; medians of one run.

#include "data/Connection.h"
#include "data/Recordset.h"
#include "data/ado/Dispatch.h"
#include "data/sqlite/CompanyFile.h"
#include "support/windows/HostConnection.h"

#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

using namespace TradeForms;

namespace {

constexpr int rounds = 7;

double medianOf(const std::function<void()>& work)
{
    std::vector<double> milliseconds;
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        work();
        milliseconds.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::nth_element(milliseconds.begin(), milliseconds.begin() + rounds / 2, milliseconds.end());
    return milliseconds[rounds / 2];
}

void report(const char* name, double ours, double baseline)
{
    std::printf("%-28s %9.2f %9.2f %6.2f\n", name, ours, baseline, ours / baseline);
}

void fill(Connection& company)
{
    company.Execute("with recursive n(i) as (select 1 union all select i+1 from n where i<100000) "
                    "insert into RecoveryBody select i/50, '2026-01-05', 'Kot ' || i, "
                    "'Card ' || i, i, i/4.0 from n");
}

/// What reading takes of which nothing is kept.
void fetch(const Dispatch& host, const char* statement)
{
    constexpr qint32 rowsAtOnce = 682; // as many as the library asks for, of six columns
    const Dispatch rows = host.Call("Execute", QString::fromLatin1(statement)).ToDispatch();
    while (!rows.Get("EOF").ToBool())
        rows.Call("GetRows", rowsAtOnce);
}

/// One hundred rows of a voucher, within a transaction as a form saves them.
void save(const std::shared_ptr<Connection>& connection)
{
    constexpr int count = 100;
    connection->Execute("delete from GatePassBody");
    Recordset rows;
    rows.Open(Statement("Select * from GatePassBody where GatePassID=7"), connection,
              CursorType::Static, LockType::BatchOptimistic);
    for (int row = 0; row < count; ++row) {
        rows.AddNew();
        rows.Fields("GatePassID").SetValue(7);
        rows.Fields("ProductID").SetValue(QString::number(row));
        for (const char* column : {"OutNewProducts", "ReturnOldProducts", "ReturnNewProducts"})
            rows.Fields(column).SetValue(row);
    }
    connection->BeginTrans();
    rows.UpdateBatch();
    connection->CommitTrans();
}

void stamp(const std::shared_ptr<Connection>& connection)
{
    Recordset rows;
    rows.Open(Statement("Select * from GatePassBody where GatePassID=7"), connection,
              CursorType::Static, LockType::BatchOptimistic);
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext())
        rows.Fields("GatePassID").SetValue(7);
    rows.Update();
    connection->BeginTrans();
    rows.UpdateBatch();
    connection->CommitTrans();
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("bench.company"));
    const auto embedded = Connection::Open(file, Connection::Mode::Create);
    fill(*embedded);
    const Dispatch host =
        tests::Handed(new tests::HostConnection(OpenCompanyFile(file))).ToDispatch();
    const auto connection = Connection::OpenHost(host.Raw());

    const auto read = [&](const char* name, const char* statement) {
        report(name, medianOf([&] { connection->Execute(statement); }),
               medianOf([&] { fetch(host, statement); }));
    };
    const auto write = [&](const char* name, const auto& work) {
        report(name, medianOf([&] { work(connection); }), medianOf([&] { work(embedded); }));
    };
    std::printf("%-28s %9s %9s %6s\n", "", "ours ms", "base ms", "ratio");
    read("read 100000 x 6", "select * from RecoveryBody");
    read("read 1 x 6", "select * from RecoveryBody where InsCustomerID='Kot 7'");
    write("save 100 new rows", save);
    write("save 100 changed rows", stamp);
    return 0;
}
