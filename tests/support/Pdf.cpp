#include "support/Pdf.h"

#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace tests {

namespace {

QString output(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60'000) && process.exitCode() == 0)
        << qPrintable(program) << ' '
        << qPrintable(QString::fromUtf8(process.readAllStandardError()));
    return QString::fromUtf8(process.readAllStandardOutput());
}

} // namespace

QString TextOfPdf(const QString& file)
{
    // Ligatures are resolved into their letters.
    return output(QStringLiteral("pdftotext"),
                  {QStringLiteral("-layout"), file, QStringLiteral("-")})
        .normalized(QString::NormalizationForm_KC);
}

QString TextOfPdf(const QByteArray& pdf)
{
    QTemporaryFile file;
    EXPECT_TRUE(file.open());
    file.write(pdf);
    file.flush();
    return TextOfPdf(file.fileName());
}

QImage PictureOfPdf(const QString& file, int dotsPerInch)
{
    const QTemporaryDir folder;
    const QString base = folder.filePath(QStringLiteral("page"));
    output(QStringLiteral("pdftoppm"),
           {QStringLiteral("-r"), QString::number(dotsPerInch), QStringLiteral("-gray"),
            QStringLiteral("-singlefile"), QStringLiteral("-png"), file, base});
    return QImage(base + QStringLiteral(".png"));
}

QString PdfInfo(const QString& file, const QString& name)
{
    const QStringList lines = output(QStringLiteral("pdfinfo"), {file}).split(u'\n');
    for (const QString& line : lines)
        if (line.startsWith(name + u':'))
            return line.mid(name.size() + 1).trimmed();
    return {};
}

} // namespace tests
