// Where printed pages go: the printer and how it is found, the folder, the host.

#include "reports/PrintPort.h"
#include "data/Failure.h"
#include "reports/Document.h"
#include "reports/PdfPorts.h"
#include "reports/PrinterPort.h"
#include "reports/SampleReport.h"
#include "support/Pdf.h"
#include "support/Text.h"

#include <QDir>
#include <QFile>
#include <QPaintEngine>
#include <QPrintEngine>
#include <QPrinter>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tests {

using namespace TradeForms;
using testing::HasSubstr;

namespace {

const PrintJob kJob{.Driver = s("Printer Driver"),
                    .PrinterName = s("Printer Name"),
                    .Port = s("LPT1"),
                    .Title = s("Gate Pass 12"),
                    .Copy = s("2")};

/// A printer that takes some pages and then fails.
class FailingEngine : public QPaintEngine, public QPrintEngine {
public:
    explicit FailingEngine(int goodPages) : QPaintEngine(AllFeatures), left_(goodPages) {}

    bool begin(QPaintDevice*) override
    {
        state_ = QPrinter::Active;
        return true;
    }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPath(const QPainterPath&) override {}
    void drawTextItem(const QPointF&, const QTextItem&) override {}
    Type type() const override { return User; }

    void setProperty(PrintEnginePropertyKey key, const QVariant& value) override
    {
        properties_[key] = value;
    }
    QVariant property(PrintEnginePropertyKey key) const override
    {
        return key == PPK_Resolution ? QVariant(300) : properties_.value(key);
    }
    bool newPage() override { return --left_ > 0; }
    bool abort() override { return true; }
    int metric(QPaintDevice::PaintDeviceMetric) const override { return 300; }
    QPrinter::PrinterState printerState() const override { return state_; }

private:
    int left_;
    QPrinter::PrinterState state_ = QPrinter::Idle;
    QHash<int, QVariant> properties_;
};

class FailingPrinter : public QPrinter {
public:
    explicit FailingPrinter(int goodPages) : engine_(goodPages) { setEngines(&engine_, &engine_); }

private:
    FailingEngine engine_;
};

class FakePrinters : public SystemPrinters {
public:
    struct Office {
        QStringList Names;
        QString Default;
        std::function<std::unique_ptr<QPrinter>(const QString& name)> Make;
        QStringList Opened;
    };
    explicit FakePrinters(Office& office) : office_(office) {}

    QStringList Names() const override { return office_.Names; }
    QString DefaultName() const override { return office_.Default; }
    std::unique_ptr<QPrinter> Open(const QString& name) const override
    {
        office_.Opened.append(name);
        return office_.Make(name);
    }

private:
    Office& office_;
};

class PrintPortTest : public ::testing::Test {
protected:
    std::unique_ptr<PrinterPort> printerPort()
    {
        return std::make_unique<PrinterPort>(std::make_unique<FakePrinters>(office));
    }
    QString resolve(const QStringList& names, const QString& usual = {})
    {
        office.Names = names;
        office.Default = usual;
        return printerPort()->Resolve(kJob);
    }
    /// A printer that writes a file in place of paper.
    void printTo(const QString& file)
    {
        office.Names = {s("Laser")};
        office.Make = [file](const QString&) {
            auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
            printer->setOutputFileName(file);
            printer->setOutputFormat(QPrinter::PdfFormat);
            return printer;
        };
    }
    static std::string failureOf(const std::function<void()>& doIt)
    {
        try {
            doIt();
        } catch (const Failure& failure) {
            return failure.what();
        }
        return "none";
    }
    QString path(const char* name) const { return folder.filePath(s(name)); }
    QStringList files(const QString& within) const
    {
        return QDir(within).entryList(QDir::Files, QDir::Name);
    }

    ~PrintPortTest() override { PrintPort::SetCurrent(nullptr); }

    QTemporaryDir folder;
    FakePrinters::Office office;
};

} // namespace

// ---- The printer

TEST_F(PrintPortTest, AJobGoesToThePrinterOfItsNameElseOfItsPortElseToTheDefaultOne)
{
    EXPECT_EQ(resolve({s("Laser"), s("PRINTER NAME"), s("LPT1")}, s("Laser")), s("PRINTER NAME"));
    EXPECT_EQ(resolve({s("Laser"), s("lpt1")}, s("Laser")), s("lpt1"));
    EXPECT_EQ(resolve({s("Matrix"), s("Laser")}, s("Laser")), s("Laser"));
    EXPECT_EQ(resolve({s("Matrix")}), s("Matrix"));
    EXPECT_EQ(resolve({s("Matrix"), s("Laser")}), QString());
    EXPECT_EQ(resolve({}), QString());
}

TEST_F(PrintPortTest, ThePrinterGetsAllPagesOnThePaperOfTheDocument)
{
    const SampleReport sample(60);
    const Document document = sample.Make()->Format();
    ASSERT_GT(document.PageCount(), 1);
    printTo(path("paper.pdf"));
    printerPort()->Print(document, kJob);

    EXPECT_EQ(office.Opened, QStringList(s("Laser")));
    EXPECT_EQ(PdfInfo(path("paper.pdf"), s("Pages")).toInt(), document.PageCount());
    EXPECT_THAT(PdfInfo(path("paper.pdf"), s("Page size")).toStdString(), HasSubstr("(A5)"));
    EXPECT_EQ(PdfInfo(path("paper.pdf"), s("Title")), s("Gate Pass 12 (2)"));
    const QString text = TextOfPdf(path("paper.pdf"));
    for (const char* line : {"Title of the sample", "P00001", "P00060"})
        EXPECT_TRUE(text.contains(s(line))) << line;
}

TEST_F(PrintPortTest, ThePrinterDrawsInTheSizeAndTurnOfTheDocument)
{
    SampleReport sample(3);
    for (const auto turn : {QPageLayout::Portrait, QPageLayout::Landscape}) {
        sample.Turn = turn;
        const Document document = sample.Make()->Format();
        printTo(path("printer.pdf"));
        printerPort()->Print(document, kJob);
        document.WritePdf(path("writer.pdf"));
        EXPECT_EQ(TextOfPdf(path("printer.pdf")), TextOfPdf(path("writer.pdf")));
        EXPECT_EQ(PdfInfo(path("printer.pdf"), s("Page size")),
                  PdfInfo(path("writer.pdf"), s("Page size")));
        const QImage printed = PictureOfPdf(path("printer.pdf"), 100);
        EXPECT_FALSE(printed.isNull());
        EXPECT_EQ(printed, PictureOfPdf(path("writer.pdf"), 100));
    }
}

TEST_F(PrintPortTest, WhereThereIsNoPrinterThisIsSaid)
{
    const SampleReport sample(1);
    const Document document = sample.Make()->Format();
    EXPECT_EQ(failureOf([&] { printerPort()->Print(document, kJob); }),
              "There is no printer on this computer. Nothing was printed.");
    office.Names = {s("Matrix"), s("Laser")};
    EXPECT_THAT(failureOf([&] { printerPort()->Print(document, kJob); }),
                HasSubstr("none of them is the default one"));
    EXPECT_TRUE(office.Opened.isEmpty());
}

TEST_F(PrintPortTest, APrinterThatDoesNotTakeTheDocumentIsNamed)
{
    const SampleReport sample(1);
    const Document document = sample.Make()->Format();
    printTo(path("no/such/folder/paper.pdf"));
    EXPECT_EQ(failureOf([&] { printerPort()->Print(document, kJob); }),
              "The printer \"Laser\" does not take the document.");
}

TEST_F(PrintPortTest, APrinterThatFailsBetweenPagesIsNamedWithThePage)
{
    const SampleReport sample(100);
    const Document document = sample.Make()->Format();
    ASSERT_EQ(document.PageCount(), 4);
    office.Names = {s("Laser")};
    office.Make = [](const QString&) { return std::make_unique<FailingPrinter>(2); };
    EXPECT_EQ(failureOf([&] { printerPort()->Print(document, kJob); }),
              "The printer \"Laser\" has failed at page 3 of 4.");
}

// ---- The folder

TEST_F(PrintPortTest, AFolderGetsOneFileAJobNamedByTitleCopyAndTime)
{
    const SampleReport sample(2);
    const Document document = sample.Make()->Format();
    const QString within = path("made/when/needed");
    FolderPort(within).Print(document, kJob);
    const QStringList names = files(within);
    ASSERT_EQ(names.size(), 1);
    EXPECT_THAT(names.front().toStdString(),
                testing::MatchesRegex(
                    "Gate Pass 12 copy 2 [0-9-]{10} [0-9]{2}[.][0-9]{2}[.][0-9]{2}[.]pdf"));
    EXPECT_TRUE(TextOfPdf(QDir(within).filePath(names.front())).contains(s("P00002")));
}

TEST_F(PrintPortTest, NoFileIsOverwritten)
{
    const SampleReport sample(1);
    const Document document = sample.Make()->Format();
    FolderPort port(folder.path());
    // As many in one second as it takes.
    for (int job = 0; job < 5; ++job)
        port.Print(document, kJob);
    EXPECT_EQ(files(folder.path()).size(), 5);
}

TEST_F(PrintPortTest, ATitleCannotLeadOutOfTheFolder)
{
    const QDateTime time(QDate(2026, 3, 31), QTime(14, 5, 9));
    const auto name = [&time](const char* title, const char* copy) {
        return FolderPort::FileName(
            {.Driver = {}, .PrinterName = {}, .Port = {}, .Title = s(title), .Copy = s(copy)},
            time);
    };
    EXPECT_EQ(name("Gate Pass 12", "1"), s("Gate Pass 12 copy 1 2026-03-31 14.05.09.pdf"));
    EXPECT_EQ(name("گیٹ پاس 12", ""), s("گیٹ پاس 12 2026-03-31 14.05.09.pdf"));
    EXPECT_EQ(name("../../etc/pass\"wd:*?", "<1>"),
              s(".. .. etc pass wd copy 1 2026-03-31 14.05.09.pdf"));
}

TEST_F(PrintPortTest, AFolderThatCannotBeWrittenIsToldWithItsName)
{
    const SampleReport sample(1);
    const Document document = sample.Make()->Format();
    QFile occupied(path("occupied"));
    ASSERT_TRUE(occupied.open(QIODevice::WriteOnly));
    EXPECT_THAT(failureOf([&] { FolderPort(path("occupied")).Print(document, kJob); }),
                testing::AllOf(HasSubstr("occupied"), HasSubstr("cannot be")));
}

// ---- The host

TEST_F(PrintPortTest, AReceiverGetsTheJobAndItsPdf)
{
    const SampleReport sample(2);
    PrintJob got;
    QByteArray pdf;
    Printing::UseReceiver([&](const PrintJob& job, const QByteArray& bytes) {
        got = job;
        pdf = bytes;
    });
    const std::shared_ptr<Report> report = sample.Make();
    report->SetParameter(1, s("3"));
    report->PrintOut(false);
    EXPECT_EQ(got.Driver, s("Printer Driver"));
    EXPECT_EQ(got.PrinterName, s("Printer Name"));
    EXPECT_EQ(got.Port, s("LPT1"));
    EXPECT_EQ(got.Title, s("Sample"));
    EXPECT_EQ(got.Copy, s("3"));
    EXPECT_TRUE(TextOfPdf(pdf).contains(s("copy 3")));
}

TEST_F(PrintPortTest, AFolderTakesTheJobsAsLongAsThereIsNoPrinterAndTheHostIsToldOnce)
{
    const SampleReport sample(1);
    const Document document = sample.Make()->Format();
    QStringList told;
    PrinterOrFolderPort port(printerPort(), path("kept"),
                             [&told](const QString& where) { told.append(where); });
    port.Print(document, kJob);
    port.Print(document, kJob);
    EXPECT_EQ(files(path("kept")).size(), 2);
    EXPECT_EQ(told, QStringList(path("kept")));

    printTo(path("paper.pdf"));
    port.Print(document, kJob);
    EXPECT_EQ(files(path("kept")).size(), 2);
    EXPECT_TRUE(QFile::exists(path("paper.pdf")));
}

TEST_F(PrintPortTest, WithoutAChoiceOfTheHostThePrinterIsThePort)
{
    EXPECT_NE(dynamic_cast<PrinterPort*>(&PrintPort::Current()), nullptr);
    Printing::UseFolder(folder.path());
    EXPECT_NE(dynamic_cast<FolderPort*>(&PrintPort::Current()), nullptr);
    Printing::UsePrinter(folder.path());
    EXPECT_NE(dynamic_cast<PrinterOrFolderPort*>(&PrintPort::Current()), nullptr);
    Printing::UsePrinter();
    EXPECT_NE(dynamic_cast<PrinterPort*>(&PrintPort::Current()), nullptr);
}

} // namespace tests
