#include "Xlsx.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QXmlStreamReader>

namespace tests {

namespace {

QString attribute(const QXmlStreamReader& xml, const char* name)
{
    return xml.attributes().value(QLatin1String(name)).toString();
}

bool begins(const QXmlStreamReader& xml, const char* element)
{
    return xml.isStartElement() && xml.name() == QLatin1String(element);
}

} // namespace

Xlsx::Xlsx(const QString& file) : file_(file)
{
    readStyles();
    readSheet();
}

QString Xlsx::Part(const QString& name) const
{
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), file_, name});
    EXPECT_TRUE(unzip.waitForFinished(60'000));
    EXPECT_EQ(unzip.exitCode(), 0) << unzip.readAllStandardError().toStdString();
    return QString::fromUtf8(unzip.readAllStandardOutput());
}

void Xlsx::readStyles()
{
    QHash<QString, QString> formats;
    QList<bool> bold;
    bool inCells = false;
    QXmlStreamReader xml(Part(QStringLiteral("xl/styles.xml")));
    while (!xml.atEnd()) {
        xml.readNext();
        if (begins(xml, "numFmt"))
            formats[attribute(xml, "numFmtId")] = attribute(xml, "formatCode");
        else if (begins(xml, "font"))
            bold.append(false);
        else if (begins(xml, "b"))
            bold.last() = true;
        else if (begins(xml, "cellXfs"))
            inCells = true;
        else if (xml.isEndElement() && xml.name() == QLatin1String("cellXfs"))
            inCells = false;
        else if (inCells && begins(xml, "xf"))
            styles_.append({formats.value(attribute(xml, "numFmtId")),
                            bold.value(attribute(xml, "fontId").toInt())});
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

void Xlsx::readSheet()
{
    QString place;
    QXmlStreamReader xml(Part(QStringLiteral("xl/worksheets/sheet1.xml")));
    while (!xml.atEnd()) {
        xml.readNext();
        if (begins(xml, "row"))
            rows_ = attribute(xml, "r").toInt();
        else if (begins(xml, "c")) {
            place = attribute(xml, "r");
            const Style style = styles_.value(attribute(xml, "s").toInt());
            cells_[place] = {attribute(xml, "t"), {}, style.Format, style.Bold};
        } else if (begins(xml, "v") || begins(xml, "t"))
            cells_[place].Text = xml.readElementText();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
}

} // namespace tests
