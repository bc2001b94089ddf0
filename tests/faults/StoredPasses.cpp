#include "faults/StoredPasses.h"

#include "data/Connection.h"
#include "data/Recordset.h"
#include "faults/PlannedPass.h"

#include <QSet>

#include <map>

using namespace TradeForms;

namespace {

struct Stored {
    QString Driver;
    QString Area;
    QList<PlannedPass::Row> Rows;
};

using Passes = std::map<qlonglong, Stored>;

Passes readHeaders(Connection& connection)
{
    Passes passes;
    Recordset headers = connection.Execute("select GatePassID, DriverCode, AreaCode, EntryDate, "
                                           "GatePassDate, BranchCode, UserNo from GatePassHeader");
    for (; !headers.Eof(); headers.MoveNext())
        passes[headers.Value("GatePassID").toLongLong()] = {
            headers.Value("DriverCode").toString(), headers.Value("AreaCode").toString(), {}};
    return passes;
}

QStringList readBodies(Connection& connection, Passes& passes)
{
    QStringList faults;
    Recordset rows = connection.Execute("select * from GatePassBody order by ProductID");
    for (; !rows.Eof(); rows.MoveNext()) {
        const qlonglong id = rows.Value("GatePassID").toLongLong();
        const auto pass = passes.find(id);
        if (pass == passes.end()) {
            faults.append(QStringLiteral("a row of pass %1, which has no header").arg(id));
            continue;
        }
        pass->second.Rows.append({rows.Value("ProductID").toString(),
                                  rows.Value("OutNewProducts").toLongLong(),
                                  rows.Value("ReturnOldProducts").toLongLong(),
                                  rows.Value("ReturnNewProducts").toLongLong()});
    }
    return faults;
}

} // namespace

void FillStock(const TestCompany& company)
{
    company.Run("delete from StockInBody;"
                "insert into StockInBody (StockID, ProductID, Qty) select 1, ProductID, 1e12 "
                "from Products");
}

std::string FaultsIn(const TestCompany& company, const QList<ClerksWord::Saved>& reported)
{
    const auto connection = company.Connect();
    QStringList faults;
    Recordset check = connection->Execute("PRAGMA integrity_check");
    for (; !check.Eof(); check.MoveNext()) {
        const QString line = check.Value("integrity_check").toString();
        if (line != QStringLiteral("ok"))
            faults.append(QStringLiteral("integrity_check: ") + line);
    }

    Passes passes = readHeaders(*connection);
    faults += readBodies(*connection, passes);
    std::map<qlonglong, qlonglong> tokens; // of each pass that is whole
    QSet<qlonglong> seen;
    for (const auto& [id, stored] : passes) {
        const PlannedPass planned(stored.Rows.isEmpty() ? 0 : stored.Rows.first().NewBack);
        if (stored.Rows != planned.Rows || stored.Driver != planned.Driver ||
            stored.Area != planned.Area) {
            faults.append(QStringLiteral("pass %1 is not whole: %2 rows, driver %3, area %4")
                              .arg(id)
                              .arg(stored.Rows.size())
                              .arg(stored.Driver, stored.Area));
            continue;
        }
        if (seen.contains(planned.Token))
            faults.append(QStringLiteral("pass %1 stands twice").arg(planned.Token));
        seen.insert(planned.Token);
        tokens[id] = planned.Token;
    }
    for (const ClerksWord::Saved& saved : reported) {
        const auto found = tokens.find(saved.Id);
        if (found == tokens.end() || found->second != saved.Token)
            faults.append(QStringLiteral("pass %1 was reported as number %2 and is not there")
                              .arg(saved.Token)
                              .arg(saved.Id));
    }
    constexpr qsizetype told = 10;
    if (faults.size() > told)
        faults = faults.first(told) << QStringLiteral("and %1 more").arg(faults.size() - told);
    return faults.join(u'\n').toStdString();
}

int CountPasses(const TestCompany& company)
{
    const auto connection = company.Connect();
    return connection->Execute("select count(*) from GatePassHeader").ValueAt(0, 0).toInt();
}
