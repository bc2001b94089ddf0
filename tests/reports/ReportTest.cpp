// The live report: what its callers may set and ask.

#include "data/Connection.h"
#include "data/Failure.h"
#include "host/HostContext.h"
#include "reports/CrpFrenchiserSalary.h"
#include "reports/CrpGatePassDetail.h"
#include "reports/CrpRecoveryVoucher.h"
#include "reports/CrpSalary.h"
#include "reports/CrpWorkshopSalary.h"
#include "reports/Designs.h"
#include "reports/PrintPort.h"
#include "reports/VoucherRows.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <functional>

namespace tests {

namespace {

/// Gives the header's values back when a test ends.
class HeaderValues {
public:
    HeaderValues() : logo_(HostContext::LogoImage), name_(HostContext::NameUrdu) {}
    ~HeaderValues()
    {
        HostContext::LogoImage = logo_;
        HostContext::NameUrdu = name_;
    }
    HeaderValues(const HeaderValues&) = delete;
    HeaderValues& operator=(const HeaderValues&) = delete;

private:
    QString logo_;
    QString name_;
};

class ReportTest : public ::testing::Test {
protected:
    void feedStoredPass()
    {
        StoreGatePass(company);
        rows = std::make_shared<Recordset>();
        rows->Open(CrpGatePassDetail::Source(s("7")), connection);
        report.SetDataSource(rows);
    }

    static QList<PictureShape> pictures(const Document& document)
    {
        QList<PictureShape> found;
        for (const Primitive& primitive : document.PageAt(0).Primitives)
            if (const auto* picture = std::get_if<PictureShape>(&primitive))
                found.append(*picture);
        return found;
    }

    HeaderValues header;
    TestCompany company;
    std::shared_ptr<Connection> connection = company.Connect();
    std::shared_ptr<Recordset> rows;
    CrpGatePassDetail report;
};

/// Keeps what is printed.
class KeptJobs : public PrintPort {
public:
    struct Kept {
        PrintJob Job;
        int Pages;
        QString Copy;
    };
    explicit KeptJobs(QList<Kept>& jobs) : jobs_(jobs) {}
    void Print(const Document& document, const PrintJob& job) override
    {
        jobs_.append({job, document.PageCount(), Only(document, "FldCopy")});
    }

private:
    QList<Kept>& jobs_;
};

} // namespace

// ---- The header hook, the same in all five

class HeaderHookTest : public ::testing::TestWithParam<std::function<std::shared_ptr<Report>()>> {
protected:
    HeaderValues header;
    std::shared_ptr<Report> report = GetParam()();
};

INSTANTIATE_TEST_SUITE_P(
    AllReports, HeaderHookTest,
    ::testing::Values(
        []() -> std::shared_ptr<Report> { return std::make_shared<CrpGatePassDetail>(); },
        []() -> std::shared_ptr<Report> { return std::make_shared<CrpRecoveryVoucher>(); },
        []() -> std::shared_ptr<Report> { return std::make_shared<CrpSalary>(); },
        []() -> std::shared_ptr<Report> { return std::make_shared<CrpFrenchiserSalary>(); },
        []() -> std::shared_ptr<Report> { return std::make_shared<CrpWorkshopSalary>(); }));

TEST_P(HeaderHookTest, ALogoIsPointedToAndShownAndTheNameIsSet)
{
    HostContext::LogoImage = s("/some/where/logo.png");
    HostContext::NameUrdu = s("المدینہ ٹریڈرز");
    report->Object(s("PicLogo")).Suppress = true;
    report->ReportHeaderSection1_Format();
    EXPECT_FALSE(report->Object(s("PicLogo")).Suppress);
    EXPECT_EQ(report->Object(s("PicLogo")).Picture, s("/some/where/logo.png"));
    EXPECT_EQ(report->Object(s("TxtNameUrdu")).Text, s("المدینہ ٹریڈرز"));
}

TEST_P(HeaderHookTest, WithoutALogoThePictureIsSuppressedAndTheEmbeddedOneNotShown)
{
    HostContext::LogoImage.clear();
    HostContext::NameUrdu = s("نام");
    report->ReportHeaderSection1_Format();
    EXPECT_TRUE(report->Object(s("PicLogo")).Suppress);
    EXPECT_EQ(report->Object(s("PicLogo")).DefaultPicture.size(), QSize(362, 338));
    EXPECT_EQ(report->Object(s("TxtNameUrdu")).Text, s("نام"));
}

TEST_P(HeaderHookTest, EachReportHasOneNumericCopyParameter)
{
    ASSERT_EQ(report->Declaration().Parameters.size(), 1);
    report->SetParameter(1, s("2"));
    EXPECT_EQ(report->Parameter(1), s("2"));
    EXPECT_THROW(report->SetParameter(1, s("two")), TypeMismatchFailure);
    EXPECT_EQ(report->Parameter(1), s("2"));
    EXPECT_THROW(report->SetParameter(0, s("1")), Failure);
    EXPECT_THROW(report->SetParameter(2, s("1")), Failure);
    EXPECT_THROW(report->Parameter(2), Failure);
}

TEST_F(ReportTest, ALogoFileIsDrawnInItsPlace)
{
    const QTemporaryDir folder;
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    HostContext::LogoImage = folder.filePath(s("logo.png"));
    ASSERT_TRUE(image.save(HostContext::LogoImage));
    feedStoredPass();
    const QList<PictureShape> drawn = pictures(report.Format());
    ASSERT_EQ(drawn.size(), 1);
    EXPECT_EQ(drawn.first().Image.size(), QSize(40, 20));
}

TEST_F(ReportTest, WithoutALogoNoPictureIsDrawnNotEvenTheEmbeddedOne)
{
    HostContext::LogoImage.clear();
    HostContext::NameUrdu = s("نام");
    feedStoredPass();
    const Document document = report.Format();
    EXPECT_TRUE(pictures(document).isEmpty());
    EXPECT_EQ(Only(document, "TxtNameUrdu"), s("نام"));
}

TEST_F(ReportTest, ALargeLogoIsReducedToWhatPaperCanShow)
{
    const QTemporaryDir folder;
    QImage image(3000, 3000, QImage::Format_RGB32);
    image.fill(Qt::red);
    HostContext::LogoImage = folder.filePath(s("logo.png"));
    ASSERT_TRUE(image.save(HostContext::LogoImage));
    feedStoredPass();
    const QList<PictureShape> drawn = pictures(report.Format());
    ASSERT_EQ(drawn.size(), 1);
    // Its place is 16 millimetres wide: 378 dots of a printer with 600 to the inch.
    EXPECT_EQ(drawn.first().Image.size(), QSize(378, 378));
}

TEST_F(ReportTest, AMissingLogoFileIsNoFailureAndLeavesItsPlaceEmpty)
{
    HostContext::LogoImage = s("/no/such/logo.png");
    feedStoredPass();
    const Document document = report.Format();
    EXPECT_TRUE(pictures(document).isEmpty());
    EXPECT_EQ(document.PageCount(), 1);
}

// ---- Data, paper and printer

TEST_F(ReportTest, ARecordsetIsTagThreeAndTheOnlyTableIsOne)
{
    EXPECT_THROW(report.SetDataSource(std::make_shared<Recordset>(), 2, 1), Failure);
    EXPECT_THROW(report.SetDataSource(std::make_shared<Recordset>(), 3, 2), Failure);
}

TEST_F(ReportTest, WithoutOpenRowsItFailsClearly)
{
    const QString words = s("The rows of the report are not open.");
    for (const bool given : {false, true}) {
        if (given)
            report.SetDataSource(std::make_shared<Recordset>());
        try {
            report.Format();
            FAIL() << "formatted nothing";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Description(), words);
        }
    }
}

TEST_F(ReportTest, TheCallersChangesCountUntilItIsLaidOut)
{
    feedStoredPass();
    report.Object(s("txttitleenglish")).Text = s("Changed");
    report.Object(s("FldProductName")).BackColor = 0x0000ff;
    const Document document = report.Format();
    report.Object(s("TxtTitleEnglish")).Text = s("Too late");
    EXPECT_EQ(Only(document, "TxtTitleEnglish"), s("Changed"));
    int red = 0;
    for (const Primitive& primitive : document.PageAt(0).Primitives) {
        const auto* box = std::get_if<BoxShape>(&primitive);
        red += box && box->Fill == QColor(255, 0, 0) ? 1 : 0;
    }
    EXPECT_EQ(red, 3);
    EXPECT_THROW(report.Object(s("Nothing")), Failure);
}

TEST_F(ReportTest, ASecondReportOfTheClassStartsFromTheDesign)
{
    report.Object(s("TxtTitleEnglish")).Text = s("Changed");
    CrpGatePassDetail second;
    EXPECT_EQ(second.Object(s("TxtTitleEnglish")).Text, s("Gate pass"));
}

TEST_F(ReportTest, PrintOutGivesTheCopyToThePrintPort)
{
    feedStoredPass();
    report.SelectPrinter(s("Printer Driver"), s("Printer Name"), s("LPT1"));
    report.SetPaper(1);
    EXPECT_EQ(report.PaperNumber(), 1);
    QList<KeptJobs::Kept> jobs;
    std::unique_ptr<PrintPort> before = PrintPort::SetCurrent(std::make_unique<KeptJobs>(jobs));
    for (const char* copy : {"1", "2", "3"}) {
        report.SetParameter(1, s(copy));
        report.PrintOut(false);
    }
    EXPECT_THROW(report.PrintOut(true), Failure);
    PrintPort::SetCurrent(std::move(before));

    ASSERT_EQ(jobs.size(), 3);
    EXPECT_EQ(jobs[0].Job.Driver, s("Printer Driver"));
    EXPECT_EQ(jobs[0].Job.PrinterName, s("Printer Name"));
    EXPECT_EQ(jobs[0].Job.Port, s("LPT1"));
    EXPECT_EQ(jobs[0].Job.Title, s("Gate Pass 7"));
    EXPECT_EQ(jobs[0].Job.Copy, s("1"));
    EXPECT_EQ(jobs[2].Job.Copy, s("3"));
    EXPECT_EQ(jobs[0].Pages, 1);
    EXPECT_EQ(jobs[0].Copy, s("دفتری کاپی · Office copy"));
    EXPECT_EQ(jobs[1].Copy, s("ڈرائیور کاپی · Driver's copy"));
    EXPECT_EQ(jobs[2].Copy, s("گیٹ کاپی · Gate copy"));
}

// ---- RemoveObjectColors

TEST(RemoveObjectColorsTest, ColoursGoFromTextsFieldsAndBoxesUnlessTheNameSaysNo)
{
    ReportDeclaration design = PlainDesign();
    const auto object = [](const char* name, ObjectKind kind) {
        ReportObject made;
        made.Name = s(name);
        made.Kind = kind;
        made.BackColor = 255;
        made.FillColor = 128;
        return made;
    };
    design.Sections = {TextSection(SectionKind::ReportHeader, "A", 50, "a"),
                       TextSection(SectionKind::Details, "B", 50, "b")};
    design.Sections[0].Objects = {object("Title", ObjectKind::Text),
                                  object("NoTitle", ObjectKind::Text),
                                  object("Picture", ObjectKind::Picture)};
    design.Sections[1].Objects = {
        object("Field", ObjectKind::Field), object("noField", ObjectKind::Field),
        object("Box", ObjectKind::Box),     object("NOBOX", ObjectKind::Box),
        object("Line", ObjectKind::Line),   object("Knot", ObjectKind::Text)};
    Report report(design);
    RemoveObjectColors(report);
    const auto back = [&report](const char* name) { return report.Object(s(name)).BackColor; };
    const auto fill = [&report](const char* name) { return report.Object(s(name)).FillColor; };
    EXPECT_EQ(back("Title"), -1);
    EXPECT_EQ(back("Field"), -1);
    EXPECT_EQ(back("Knot"), -1);
    EXPECT_EQ(fill("Box"), 16777215);
    EXPECT_EQ(back("NoTitle"), 255);
    EXPECT_EQ(back("noField"), 255);
    EXPECT_EQ(fill("NOBOX"), 128);
    for (const char* other : {"Picture", "Line"}) {
        EXPECT_EQ(back(other), 255) << other;
        EXPECT_EQ(fill(other), 128) << other;
    }
    EXPECT_EQ(fill("Title"), 128);
    EXPECT_EQ(back("Box"), 255);
}

} // namespace tests
