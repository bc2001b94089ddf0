#include "SampleCompany.h"

#include "HostSchema.h"
#include "Passwords.h"

namespace Host {

void MakeSampleCompany(const QString& file, int accounts, QDate until,
                       const Sample::Progress& progress)
{
    const Passwords passwords;
    const Sample::HostTables tables{
        EnsureHostSchema, [&passwords](const QString& text) { return passwords.Hash(text); }};
    Sample::CreateCompany(file, accounts, until, tables, progress);
}

} // namespace Host
