#pragma once

#include "sample/Company.h"

#include <QDate>
#include <QString>

namespace Host {

/// Makes the sample company with the tables of this host, so that its users can log in here.
/// Raises as Sample::CreateCompany does.
void MakeSampleCompany(const QString& file, int accounts, QDate until,
                       const Sample::Progress& progress = {});

} // namespace Host
