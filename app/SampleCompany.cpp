#include "SampleCompany.h"

#include "HostSchema.h"
#include "sample/SampleFacts.h"
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
    return LastDay.addDays(day - (Days - 1));
}

QString SampleCompany::Password()
{
    return QStringLiteral("sample");
}

void SampleCompany::Create(const QString& file, int accounts, QDate until)
{
    using TradeForms::Connection;
    Sample::Setting setting{Connection::Open(file, Connection::Mode::Create), until};
    try {
        EnsureHostSchema(*setting.Connection);
        setting.Connection->BeginTrans();
        writeCompanyInfo(setting);
        Sample::WriteMasters(setting);
        Sample::WriteUsers(setting);
        Sample::WriteStock(setting);
        Sample::WriteAccounts(setting, accounts);
        setting.Connection->CommitTrans();
    } catch (...) {
        setting.Connection.reset();
        for (const char* ending : {"", "-journal", "-wal", "-shm"}) {
            QFile::remove(file + QLatin1String(ending));
        }
        throw;
    }
}

} // namespace Host
