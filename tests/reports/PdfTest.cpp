// The PDF as a stranger's tools read it, and the ink on the page.

#include "support/Pdf.h"
#include "data/Connection.h"
#include "data/Failure.h"
#include "host/HostContext.h"
#include "reports/CrpFrenchiserSalary.h"
#include "reports/CrpGatePassDetail.h"
#include "reports/CrpRecoveryVoucher.h"
#include "reports/CrpSalary.h"
#include "reports/CrpWorkshopSalary.h"
#include "reports/Designs.h"
#include "reports/VoucherRows.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdlib>

namespace tests {

namespace {

QString outputOf(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(s(program), arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        ADD_FAILURE() << program << " failed: " << process.errorString().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// What pdftotext reads, without marks of direction and on one line.
QString readBack(const QString& file)
{
    QString text = TextOfPdf(file);
    for (const ushort mark : {0x202a, 0x202b, 0x202c})
        text.remove(QChar(mark));
    return text.simplified();
}

class PdfTest : public ::testing::Test {
protected:
    PdfTest() { HostContext::NameUrdu = s("مدینہ ٹریڈرز قصور"); }
    ~PdfTest() override { HostContext::NameUrdu.clear(); }

    template <class Crp> Document formatted(const Statement& source)
    {
        Crp report;
        auto rows = std::make_shared<Recordset>();
        rows->Open(source, connection);
        report.SetDataSource(rows);
        report.SetParameter(1, s("1"));
        return report.Format();
    }

    /// All five, with rows.
    QList<std::shared_ptr<Document>> all()
    {
        StoreGatePass(company);
        StoreRecovery(company);
        StoreSalary(company);
        StoreFrenchiserSalary(company);
        StoreWorkshopSalary(company, 2);
        connection->Execute(CrpRecoveryVoucher::Balances(QDate(2026, 3, 5)));
        const QDate march(2026, 3, 1);
        QList<std::shared_ptr<Document>> documents;
        const auto add = [&documents](Document&& document) {
            documents.append(std::make_shared<Document>(std::move(document)));
        };
        add(formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7"))));
        add(formatted<CrpRecoveryVoucher>(CrpRecoveryVoucher::Source(s("3"))));
        add(formatted<CrpSalary>(CrpSalary::Source(s("2014"), march)));
        add(formatted<CrpFrenchiserSalary>(CrpFrenchiserSalary::Source(s("4001"), march)));
        add(formatted<CrpWorkshopSalary>(CrpWorkshopSalary::Source(s("3108"), march)));
        return documents;
    }

    QString written(const Document& document)
    {
        const QString file = folder.filePath(s("report.pdf"));
        document.WritePdf(file);
        return file;
    }

    TestCompany company;
    std::shared_ptr<Connection> connection = company.Connect();
    QTemporaryDir folder;
};

/// What a run of text leaves on an otherwise empty page.
QRect inkOf(const TextRun& run, const QSizeF& page, double scale)
{
    QImage image((page * scale).toSize(), QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    painter.setFont(run.Font);
    painter.setLayoutDirection(run.Direction);
    painter.drawText(run.Origin, run.Text);
    painter.end();
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        const uchar* line = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x)
            if (line[x] < 160)
                ink |= QRect(x, y, 1, 1);
    }
    return ink;
}

} // namespace

TEST_F(PdfTest, TextIsReadBackAsItStandsOnThePage)
{
    StoreGatePass(company);
    const QString file = written(formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7"))));
    const QString text = readBack(file);
    for (const char* word :
         {"Gate pass", "Office copy", "گیٹ پاس", "مدینہ ٹریڈرز قصور", "محمد اسلم", "واشنگ مشین",
          "05/03/2026", "10.5", "Page 1 of 1", "Returned old"})
        EXPECT_TRUE(text.contains(s(word))) << word << " in " << text.toStdString();
}

TEST_F(PdfTest, PagesSizeAndTitleAreTold)
{
    StoreGatePass(company);
    StoreGatePassLines(company, 37);
    const Document document = formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7")));
    const QString file = written(document);
    EXPECT_EQ(PdfInfo(file, s("Pages")).toInt(), document.PageCount());
    EXPECT_TRUE(PdfInfo(file, s("Page size")).contains(QRegularExpression(s("^595 x 4(19|20) "))));
    EXPECT_EQ(PdfInfo(file, s("Title")), s("Gate Pass 7"));
    const QString second = TextOfPdf(file).section(u'\f', 1, 1);
    EXPECT_TRUE(second.contains(QStringLiteral("Page 2 of %1").arg(document.PageCount())));
}

TEST_F(PdfTest, AllFontsAreEmbeddedAsSubsetsWithTheirUnicode)
{
    StoreGatePass(company);
    const QString fonts = outputOf(
        "pdffonts", {written(formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7"))))});
    const QStringList lines = fonts.split(u'\n', Qt::SkipEmptyParts).mid(2);
    ASSERT_GE(lines.size(), 3);
    for (const QString& line : lines) {
        EXPECT_TRUE(line.contains(QRegularExpression(s(" yes +(yes|no) +yes +\\d+ +\\d+$"))))
            << line.toStdString();
        EXPECT_FALSE(line.contains(s("Type 3"))) << line.toStdString();
    }
    EXPECT_TRUE(fonts.contains(s("Naskh")));
}

TEST_F(PdfTest, ThePageLooksAsOnTheScreen)
{
    StoreGatePass(company);
    const Document document = formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7")));
    const QImage printed = PictureOfPdf(written(document), 100);
    ASSERT_FALSE(printed.isNull());
    QImage shown(printed.size(), QImage::Format_Grayscale8);
    shown.fill(Qt::white);
    QPainter painter(&shown);
    painter.scale(100 / 254.0, 100 / 254.0);
    document.Paint(painter, 0);
    painter.end();
    // Coarse squares of both have much the same ink: a text that is missing or moved shows.
    constexpr int cell = 12;
    const QSize cells(printed.width() / cell, printed.height() / cell);
    const QImage a = printed.convertToFormat(QImage::Format_Grayscale8)
                         .scaled(cells, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage b = shown.scaled(cells, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    int different = 0;
    int inked = 0;
    for (int y = 0; y < cells.height(); ++y) {
        for (int x = 0; x < cells.width(); ++x) {
            const int one = qGray(a.pixel(x, y));
            const int other = qGray(b.pixel(x, y));
            inked += one < 240 ? 1 : 0;
            different += std::abs(one - other) > 40 ? 1 : 0;
        }
    }
    EXPECT_GT(inked, 200);
    EXPECT_LT(different, inked / 50);
}

TEST_F(PdfTest, NoTextLeavesItsPlaceOrThePaper)
{
    constexpr double scale = 0.3;
    constexpr double tolerance = 4; // tenths of a millimetre: one pixel of the picture, and blur
    for (const std::shared_ptr<Document>& document : all()) {
        const QSizeF size = document->PageSize();
        for (const TextRun& run : document->PageAt(0).Texts()) {
            const QRect pixels = inkOf(run, size, scale);
            ASSERT_FALSE(pixels.isEmpty()) << run.Object.toStdString();
            const QRectF ink(pixels.x() / scale, pixels.y() / scale, pixels.width() / scale,
                             pixels.height() / scale);
            const QRectF place = run.Place.adjusted(-tolerance, -tolerance, tolerance, tolerance);
            EXPECT_TRUE(place.contains(ink))
                << document->Title().toStdString() << ", " << run.Object.toStdString() << " '"
                << run.Text.toStdString() << "': ink " << ink.left() << ".." << ink.right() << ", "
                << ink.top() << ".." << ink.bottom() << " in " << run.Place.left() << ".."
                << run.Place.right() << ", " << run.Place.top() << ".." << run.Place.bottom();
            EXPECT_TRUE(QRectF(QPointF(), size).contains(run.Place)) << run.Object.toStdString();
        }
    }
}

TEST_F(PdfTest, InkThatLeavesItsPlaceIsFound)
{
    StoreGatePass(company);
    const Document document = formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7")));
    TextRun run = RunsOf(document, s("TxtNameUrdu")).first();
    run.Origin.ry() += 90;
    const QRect pixels = inkOf(run, document.PageSize(), 0.3);
    EXPECT_GT(pixels.bottom() / 0.3, run.Place.bottom() + 4);
}

TEST_F(PdfTest, NoTwoTextsLieUponEachOther)
{
    for (const std::shared_ptr<Document>& document : all()) {
        const QList<TextRun> runs = document->PageAt(0).Texts();
        const auto core = [](const TextRun& run) {
            // From the top of a letter to the base line.
            return QRectF(run.Origin.x(), run.Origin.y() - 0.6 * run.Font.pixelSize(), run.Width,
                          0.6 * run.Font.pixelSize());
        };
        for (qsizetype a = 0; a < runs.size(); ++a) {
            for (qsizetype b = a + 1; b < runs.size(); ++b)
                EXPECT_FALSE(core(runs[a]).intersects(core(runs[b])))
                    << document->Title().toStdString() << ": " << runs[a].Text.toStdString()
                    << " and " << runs[b].Text.toStdString();
        }
    }
}

TEST_F(PdfTest, UrduIsShapedIntoJoinedLetters)
{
    StoreGatePass(company);
    const Document document = formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7")));
    const TextRun run = RunsOf(document, s("FldName")).first();
    ASSERT_EQ(run.Text, s("محمد اسلم"));
    // Letters by themselves are wider than the joined word.
    QString apart;
    for (const QChar letter : run.Text)
        apart += QString(letter) + QChar(0x200c);
    TextRun loose = run;
    loose.Text = apart;
    const QSizeF page = document.PageSize();
    const QRect joined = inkOf(run, page, 0.3);
    const QRect separate = inkOf(loose, page, 0.3);
    EXPECT_GT(separate.width(), joined.width() * 1.1);
}

TEST_F(PdfTest, AFileThatCannotBeWrittenIsNamed)
{
    StoreGatePass(company);
    const Document document = formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7")));
    const QString file = folder.filePath(s("missing/report.pdf"));
    try {
        document.WritePdf(file);
        FAIL() << "wrote into a folder that is not there";
    } catch (const Failure& failure) {
        EXPECT_TRUE(failure.Description().contains(file));
    }
}

TEST_F(PdfTest, AFailureInMidReportLeavesNoHalfFile)
{
    StoreGatePass(company);
    StoreGatePassLines(company, 100);
    CrpGatePassDetail report;
    auto rows = std::make_shared<Recordset>();
    rows->Open(CrpGatePassDetail::Source(s("7")), connection);
    report.SetDataSource(rows);
    const Document document = report.Format();
    ASSERT_TRUE(document.HasPage(0));
    rows->Close();
    const QString file = folder.filePath(s("half.pdf"));
    EXPECT_THROW(document.WritePdf(file), Failure);
    EXPECT_FALSE(QFile::exists(file));
}

TEST_F(PdfTest, APageOfTextTakesAtMostFiveKilobytesBesideTheFonts)
{
    StoreGatePass(company);
    const auto sizeOf = [this] {
        const Document document = formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7")));
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        document.WritePdf(buffer);
        return std::pair(document.PageCount(), buffer.size());
    };
    const auto [fewPages, few] = sizeOf();
    StoreGatePassLines(company, 600);
    const auto [manyPages, many] = sizeOf();
    ASSERT_GT(manyPages, fewPages + 20);
    EXPECT_LE((many - few) / (manyPages - fewPages), 5 * 1024);
}

// ---- Search

TEST_F(PdfTest, ASearchedTextIsFoundWhereItStands)
{
    StoreGatePass(company);
    StoreGatePassLines(company, 37);
    const Document document = formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7")));
    const QList<Document::Match> matches = document.Find(s("مال نمبر 30"));
    ASSERT_EQ(matches.size(), 1);
    ASSERT_EQ(matches.first().Rects.size(), 1);
    const auto rows = RunsOf(document, matches.first().Page, s("FldProductName"));
    const auto holds = [&matches](const TextRun& run) {
        return run.LineBox().adjusted(-1, -1, 1, 1).contains(matches.first().Rects.first());
    };
    const auto found = std::find_if(rows.begin(), rows.end(), holds);
    ASSERT_NE(found, rows.end());
    EXPECT_EQ(found->Text, s("مال نمبر 30"));

    EXPECT_EQ(document.Find(s("OFFICE COPY")).size(), 1);
    EXPECT_TRUE(document.Find(s("not there")).isEmpty());
    EXPECT_TRUE(document.Find(QString()).isEmpty());
}

TEST_F(PdfTest, APartOfALineIsMarkedAloneAtItsSide)
{
    StoreGatePass(company);
    const Document document = formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7")));
    const TextRun english = RunsOf(document, s("HeadEnglishReturnOldProducts")).first();
    const QRectF old = document.Find(s("old")).first().Rects.first();
    EXPECT_GT(old.left(), english.LineBox().center().x());
    EXPECT_NEAR(old.right(), english.LineBox().right(), 1);
    const TextRun urdu = RunsOf(document, s("FldName")).first();
    const QRectF second = document.Find(s("اسلم")).first().Rects.first();
    EXPECT_NEAR(second.left(), urdu.LineBox().left(), 1);
    EXPECT_LT(second.right(), urdu.LineBox().center().x() + 10);
}

TEST_F(PdfTest, ATextThatWrapsIsFoundOverItsLines)
{
    StoreGatePass(company);
    company.Run("UPDATE Products SET ProductName = 'ایک بہت لمبا نام جو ایک سطر میں نہیں آتا اور اس"
                " لیے دوسری سطر پر بھی جاتا ہے تاکہ پورا پڑھا جا سکے اور کچھ بھی نہ کٹے'"
                " WHERE ProductID = '210'");
    const Document document = formatted<CrpGatePassDetail>(CrpGatePassDetail::Source(s("7")));
    const QList<TextRun> names = RunsOf(document, s("FldProductName"));
    const auto broken =
        std::find_if(names.begin(), names.end(), [](const TextRun& run) { return run.Continues; });
    ASSERT_NE(broken, names.end());
    const QString over =
        broken->Text.section(u' ', -1) + u' ' + (broken + 1)->Text.section(u' ', 0, 0);
    const QList<Document::Match> matches = document.Find(over);
    ASSERT_EQ(matches.size(), 1);
    EXPECT_EQ(matches.first().Rects.size(), 2);
}

} // namespace tests
