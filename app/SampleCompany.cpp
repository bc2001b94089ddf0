#include "SampleCompany.h"

#include "HostSchema.h"
#include "sample/PayBook.h"
#include "sample/SampleParts.h"
#include "sample/TableWriter.h"

#include <TradeForms/Connection.h>

#include <QFile>

namespace Host {

namespace {

void writeCompanyInfo(const Sample::Setting& setting)
{
    TableWriter info(setting.Connection, "CompanyInfo", {"NameUrdu", "LogoFile"});
    info.Row({QString::fromUtf8("المدینہ ٹریڈرز قصور"), QString()});
    info.Finish();
}

} // namespace

QDate Sample::Setting::Day(int day) const
{
    return LastDay.addDays(day - (Extent.Days() - 1));
}

QString SampleCompany::Password()
{
    return QStringLiteral("sample");
}

void SampleCompany::Create(const QString& file, int accounts, QDate until, const Progress& progress)
{
    using TradeForms::Connection;
    const Progress tell = progress ? progress : [](const char*, int, int) {};
    Sample::Setting setting{Connection::Open(file, Connection::Mode::Create), until,
                            Sample::Extent(accounts), tell};
    try {
        Connection& company = *setting.Connection;
        EnsureHostSchema(company);
        company.BeginLoad();
        company.BeginTrans();
        writeCompanyInfo(setting);
        const std::vector<Sample::StaffMember> staff = Sample::WriteMasters(setting);
        Sample::WriteUsers(setting);
        Sample::PayBook earned(setting);
        Sample::WriteWorkshop(setting, earned);
        Sample::WriteStock(setting, earned);
        Sample::WriteAccounts(setting, earned);
        Sample::WritePay(setting, staff, earned);
        company.CommitTrans();
        company.EndLoad([&tell](int done, int of) { tell("indexes", done, of); });
    } catch (...) {
        setting.Connection.reset();
        for (const char* ending : {"", "-journal", "-wal", "-shm"})
            QFile::remove(file + QLatin1String(ending));
        throw;
    }
}

} // namespace Host
