#include "sample/Company.h"

#include "sample/Parts.h"
#include "sample/PayBook.h"
#include "sample/TableWriter.h"
#include "sample/Utf8.h"

#include <TradeForms/Connection.h>

#include <QFile>

namespace Sample {

namespace {

void writeCompanyInfo(const Setting& setting)
{
    TableWriter info(setting.Connection, "CompanyInfo", {"NameUrdu", "LogoFile"});
    info.Row({utf8("المدینہ ٹریڈرز قصور"), QString()});
    info.Finish();
}

} // namespace

QDate Setting::Day(int day) const
{
    return LastDay.addDays(day - (Extent.Days() - 1));
}

QString Password()
{
    return QStringLiteral("sample");
}

void CreateCompany(const QString& file, int accounts, QDate until, const HostTables& host,
                   const Progress& progress)
{
    using TradeForms::Connection;
    const Progress tell = progress ? progress : [](const char*, int, int) {};
    Setting setting{Connection::Open(file, Connection::Mode::Create), until, Extent(accounts),
                    tell};
    try {
        Connection& company = *setting.Connection;
        host.Prepare(company);
        company.BeginLoad();
        company.BeginTrans();
        writeCompanyInfo(setting);
        const std::vector<StaffMember> staff = WriteMasters(setting);
        WriteUsers(setting, host.HashPassword);
        PayBook earned(setting);
        WriteWorkshop(setting, earned);
        WriteStock(setting, earned);
        WriteAccounts(setting, earned);
        WritePay(setting, staff, earned);
        company.CommitTrans();
        company.EndLoad([&tell](int done, int of) { tell("indexes", done, of); });
    } catch (...) {
        setting.Connection.reset();
        for (const char* ending : {"", "-journal", "-wal", "-shm"})
            QFile::remove(file + QLatin1String(ending));
        throw;
    }
}

} // namespace Sample
