// What an exported list is, byte by byte, and what is left where it could not be written.

#include "search/ListExport.h"

#include "Xlsx.h"
#include "data/Failure.h"
#include "data/Numbers.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QDate>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>
#include <sys/resource.h>

namespace tests {

using namespace TradeForms;

namespace {

bool always(int)
{
    return true;
}

/// A list of the rows as they are given.
ExportList listOf(const QStringList& titles, const QList<QVariantList>& rows)
{
    ExportList list;
    list.Name = s("Find customer");
    for (const QString& title : titles)
        list.Columns.append({title, 100});
    list.Rows = int(rows.size());
    list.Value = [rows](int row, int column) { return rows[row][column]; };
    list.Text = [rows](int row, int column) { return TextOf(rows[row][column]); };
    return list;
}

ExportList oneCell(const QVariant& value)
{
    return listOf({s("A")}, {{value}});
}

/// Many rows: number, text.
ExportList longList(int rows)
{
    ExportList list = listOf({s("No"), s("نام")}, {});
    list.Rows = rows;
    list.Value = [](int row, int column) {
        return column == 0 ? QVariant(qlonglong(row)) : QVariant(s("محمد اسلم %1").arg(row));
    };
    return list;
}

/// While it lives no file may grow beyond this many bytes, as on a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, signal_);
    }

private:
    rlimit before_{};
    void (*signal_)(int);
};

int openFiles()
{
    return int(QDir(s("/proc/self/fd"))
                   .entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)
                   .size());
}

class ListExportTest : public ::testing::Test {
protected:
    QByteArray bytes() const
    {
        QFile read(file);
        EXPECT_TRUE(read.open(QIODevice::ReadOnly)) << file.toStdString();
        return read.readAll();
    }

    /// The data row of a list of one cell, as CSV has it.
    QByteArray csvOf(const QVariant& value)
    {
        EXPECT_TRUE(ExportCsv(oneCell(value), file, always));
        QByteArray written = bytes();
        const QByteArray head("\xEF\xBB\xBF"
                              "A\r\n");
        EXPECT_TRUE(written.startsWith(head)) << written.constData();
        EXPECT_TRUE(written.endsWith("\r\n")) << written.constData();
        return written.mid(head.size()).chopped(2);
    }

    Xlsx::Cell xlsxOf(const QVariant& value)
    {
        EXPECT_TRUE(ExportXlsx(oneCell(value), file, always));
        return Xlsx(file).At(s("A2"));
    }

    void put(const QByteArray& content) const
    {
        QFile write(file);
        ASSERT_TRUE(write.open(QIODevice::WriteOnly));
        write.write(content);
    }

    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    QTemporaryDir folder;
    QString file = folder.filePath(s("list"));
};

using Writer = bool (*)(const ExportList&, const QString&, const ExportProgress&);

class BothFormats : public ListExportTest, public ::testing::WithParamInterface<Writer> {};

} // namespace

TEST_F(ListExportTest, CsvIsUtf8WithAByteOrderMarkAndEndsItsLinesWithBoth)
{
    ASSERT_TRUE(ExportCsv(listOf({s("کوڈ · Code"), s("نام · Name")},
                                 {{s("Kot"), s("کوٹ رادھا کشن")}, {s("Raja"), QVariant()}}),
                          file, always));
    EXPECT_EQ(bytes(), QByteArray("\xEF\xBB\xBF"
                                  "کوڈ · Code,نام · Name\r\nKot,کوٹ رادھا کشن\r\nRaja,\r\n"));
}

TEST_F(ListExportTest, CsvQuotesWhatWouldPartACell)
{
    EXPECT_EQ(csvOf(s("Kot, Raja")), "\"Kot, Raja\"");
    EXPECT_EQ(csvOf(s("70 \"cc\"")), "\"70 \"\"cc\"\"\"");
    EXPECT_EQ(csvOf(s("one\r\ntwo")), "\"one\r\ntwo\"");
    EXPECT_EQ(csvOf(s("one\ntwo")), "\"one\ntwo\"");
    EXPECT_EQ(csvOf(s("it's; a\ttext")), "it's; a\ttext");
    EXPECT_EQ(csvOf(QString()), "");
}

TEST_F(ListExportTest, CsvMakesATextHarmlessThatASpreadsheetWouldReckon)
{
    EXPECT_EQ(csvOf(s("=1+1")), "'=1+1");
    EXPECT_EQ(csvOf(s("+92 300")), "'+92 300");
    EXPECT_EQ(csvOf(s("-7")), "'-7");
    EXPECT_EQ(csvOf(s("@SUM(A1)")), "'@SUM(A1)");
    EXPECT_EQ(csvOf(s("\t=1")), "'\t=1");
    EXPECT_EQ(csvOf(s("\r=1")), "\"'\r=1\"");
    EXPECT_EQ(csvOf(s("=HYPERLINK(\"x\",\"y\")")), "\"'=HYPERLINK(\"\"x\"\",\"\"y\"\")\"");
    EXPECT_EQ(csvOf(s("5-6")), "5-6");
}

TEST_F(ListExportTest, CsvKeepsNumbersNumbersAndWritesDatesForEverySpreadsheet)
{
    EXPECT_EQ(csvOf(-7), "-7");
    EXPECT_EQ(csvOf(qlonglong(-4000000000)), "-4000000000");
    EXPECT_EQ(csvOf(-1234.5), "-1234.5");
    EXPECT_EQ(csvOf(QDate(2026, 1, 31)), "2026-01-31");
    EXPECT_EQ(csvOf(QDateTime(QDate(2026, 1, 31), QTime(0, 0))), "2026-01-31");
    EXPECT_EQ(csvOf(QDateTime(QDate(2026, 1, 31), QTime(9, 5))), "2026-01-31 09:05:00");
    EXPECT_EQ(csvOf(true), "True");
}

TEST_F(ListExportTest, XlsxHoldsNumbersDatesAndTextsAsWhatTheyAre)
{
    const Xlsx::Cell number = xlsxOf(-1234.5);
    EXPECT_EQ(number.Type, QString());
    EXPECT_EQ(number.Text, s("-1234.5"));

    const Xlsx::Cell whole = xlsxOf(qlonglong(32768));
    EXPECT_EQ(whole.Type, QString());
    EXPECT_EQ(whole.Text, s("32768"));

    const Xlsx::Cell date = xlsxOf(QDate(2026, 1, 31));
    EXPECT_EQ(date.Type, QString());
    EXPECT_EQ(date.Text, s("46053")); // days since 30 December 1899
    EXPECT_EQ(date.Format, s("dd/mm/yyyy"));

    const Xlsx::Cell moment = xlsxOf(QDateTime(QDate(2026, 1, 31), QTime(12, 0)));
    EXPECT_EQ(moment.Text, s("46053.5"));
    EXPECT_EQ(moment.Format, s("dd/mm/yyyy hh:mm:ss"));

    const Xlsx::Cell longAgo = xlsxOf(QDate(1899, 12, 31));
    EXPECT_EQ(longAgo.Type, s("inlineStr"));
    EXPECT_EQ(longAgo.Text, s("31/12/1899"));
}

TEST_F(ListExportTest, XlsxTakesATextForNothingElse)
{
    for (const char* text : {"=1+1", "007", "-7", "{=1}", "http://a.example", "<b>&\"'", " x ",
                             "one\ntwo", "کوٹ رادھا کشن"}) {
        const Xlsx::Cell cell = xlsxOf(s(text));
        EXPECT_EQ(cell.Type, s("inlineStr")) << text;
        EXPECT_EQ(cell.Text, s(text)) << text;
    }
    EXPECT_EQ(xlsxOf(s("a\x01z")).Text, s("a_x0001_z"));
}

TEST_F(ListExportTest, XlsxIsASheetReadyForUse)
{
    ExportList list = listOf({s("کوڈ · Code"), s("نام · Name")}, {{s("Kot"), s("کوٹ")}, {1, 2}});
    list.Columns[1].Width = 210;
    ASSERT_TRUE(ExportXlsx(list, file, always));
    const Xlsx sheet(file);
    EXPECT_EQ(sheet.At(s("A1")).Text, s("کوڈ · Code"));
    EXPECT_TRUE(sheet.At(s("A1")).Bold);
    EXPECT_FALSE(sheet.At(s("A2")).Bold);
    EXPECT_EQ(sheet.RowCount(), 3);
    const QString xml = sheet.Part(s("xl/worksheets/sheet1.xml"));
    EXPECT_TRUE(xml.contains(s("rightToLeft=\"1\"")));
    EXPECT_TRUE(xml.contains(s("<pane ySplit=\"1\" topLeftCell=\"A2\"")));
    EXPECT_TRUE(xml.contains(s("state=\"frozen\"")));
    EXPECT_TRUE(xml.contains(s("<autoFilter ref=\"A1:B3\"/>")));
    EXPECT_TRUE(xml.contains(s("<col min=\"2\" max=\"2\" width=\"30.7"))) << qPrintable(xml);
    EXPECT_TRUE(sheet.Part(s("xl/workbook.xml")).contains(s("name=\"Find customer\"")));
}

TEST_F(ListExportTest, XlsxRefusesMoreRowsThanASheetHasAndNamesTheWayOut)
{
    try {
        ExportXlsx(longList(1'048'576), file, always);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_TRUE(failure.Description().contains(s("1048575"))) << failure.what();
        EXPECT_TRUE(failure.Description().contains(s("CSV"))) << failure.what();
    }
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(ListExportTest, ListsOfNoneOneAndAHundredThousandRowsAreWhole)
{
    for (const int rows : {0, 1, 100'000}) {
        ASSERT_TRUE(ExportCsv(longList(rows), file, always));
        const QByteArray csv = bytes();
        EXPECT_EQ(csv.count("\r\n"), rows + 1);
        ASSERT_TRUE(ExportXlsx(longList(rows), file, always));
        const Xlsx sheet(file);
        EXPECT_EQ(sheet.RowCount(), rows + 1);
        if (rows == 0)
            continue;
        const QString last = s("محمد اسلم %1").arg(rows - 1);
        EXPECT_TRUE(csv.endsWith(s("%1,%2\r\n").arg(rows - 1).arg(last).toUtf8()));
        EXPECT_EQ(sheet.At(s("B%1").arg(rows + 1)).Text, last);
    }
}

TEST_F(ListExportTest, CopiedCellsKeepTheirPlaces)
{
    const ExportList list =
        listOf({s("کوڈ"), s("نام")}, {{s("K\tot"), s("one\r\ntwo")}, {-7, QDate(2026, 1, 31)}});
    EXPECT_EQ(CopiedRow(list, 0), s("K ot\tone  two"));
    EXPECT_EQ(CopiedList(list, always), s("کوڈ\tنام\nK ot\tone  two\n-7\t31/01/2026\n"));
    EXPECT_TRUE(CopiedList(list, [](int row) { return row < 1; }).isNull());
}

INSTANTIATE_TEST_SUITE_P(ListExportTest, BothFormats, ::testing::Values(ExportCsv, ExportXlsx),
                         [](const auto& tested) { return tested.index == 0 ? "Csv" : "Xlsx"; });

TEST_P(BothFormats, StoppedLeavesNothingAndTheOldFileWhole)
{
    const int open = openFiles();
    EXPECT_FALSE(GetParam()(longList(50'000), file, [](int row) { return row < 30'000; }));
    EXPECT_TRUE(files().isEmpty());

    put("before");
    EXPECT_FALSE(GetParam()(longList(50'000), file, [](int row) { return row < 30'000; }));
    EXPECT_EQ(bytes(), "before");
    EXPECT_EQ(files().size(), 1);
    EXPECT_EQ(openFiles(), open);
}

TEST_P(BothFormats, WrittenReplacesTheOldFile)
{
    put("before");
    EXPECT_TRUE(GetParam()(longList(3), file, always));
    EXPECT_NE(bytes(), "before");
    EXPECT_EQ(files().size(), 1);
}

TEST_P(BothFormats, AFullDiskIsToldAndLeavesTheOldFileWhole)
{
    put("before");
    const int open = openFiles();
    {
        const FullDisk disk(64 * 1024);
        try {
            GetParam()(longList(100'000), file, always);
            FAIL();
        } catch (const Failure& failure) {
            EXPECT_TRUE(failure.Description().startsWith(
                s("The list could not be saved as '%1'").arg(file)))
                << failure.what();
        }
    }
    EXPECT_EQ(bytes(), "before");
    EXPECT_EQ(files().size(), 1);
    EXPECT_EQ(openFiles(), open);
}

TEST_P(BothFormats, AFolderThatTakesNoFileIsTold)
{
    for (const QString& refused :
         {folder.filePath(s("no/such/folder")), s("/proc/list"), folder.path()}) {
        try {
            GetParam()(longList(3), refused, always);
            FAIL() << refused.toStdString();
        } catch (const Failure& failure) {
            EXPECT_TRUE(failure.Description().contains(refused)) << failure.what();
        }
    }
}

TEST_P(BothFormats, AFailureOfTheListEndsTheExport)
{
    ExportList list = longList(10);
    list.Value = [](int row, int) {
        if (row == 5)
            throw Failure(QStringLiteral("broken"));
        return QVariant(row);
    };
    EXPECT_THROW(GetParam()(list, file, always), Failure);
    EXPECT_TRUE(files().isEmpty());
}

} // namespace tests
