#include "search/ExportFile.h"

#include "data/Failure.h"

#include <QDir>

namespace TradeForms {

ExportFile::ExportFile(const QString& file) : file_(file)
{
    if (!file_.open(QIODevice::WriteOnly))
        Fail(file, file_.errorString());
}

void ExportFile::Write(QByteArrayView bytes)
{
    if (file_.write(bytes.data(), bytes.size()) != bytes.size())
        Fail(file_.fileName(), file_.errorString());
}

void ExportFile::Commit()
{
    if (!file_.commit())
        Fail(file_.fileName(), file_.errorString());
}

void ExportFile::Fail(const QString& file, const QString& reason)
{
    throw Failure(QStringLiteral("The list could not be saved as '%1': %2. Make room or choose "
                                 "another place, and try again.")
                      .arg(QDir::toNativeSeparators(file), reason));
}

} // namespace TradeForms
