// What a form that prints holds: its rows, the report in the viewer, and the copies.

#include "reports/FormReport.h"

#include "data/Connection.h"
#include "data/Failure.h"
#include "host/HostContext.h"
#include "reports/CrpGatePassDetail.h"
#include "reports/CrpSalary.h"
#include "reports/Designs.h"
#include "reports/PrintPort.h"
#include "reports/RptReportViewer.h"
#include "reports/SchPrint.h"
#include "reports/VoucherRows.h"
#include "support/ExpectedBoxes.h"
#include "support/Keys.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

namespace tests {

namespace {

/// What the pay forms declare, and what the gate pass does.
const CopyDeclaration kSalary{.Shown = {}, .Hidden = {3, 2}, .Copies = {s("1"), s("2")}};
const CopyDeclaration kGatePass{.Shown = {4}, .Hidden = {}, .Copies = {s("1"), s("2"), s("3")}};

class FormReportTest : public ::testing::Test {
protected:
    FormReportTest()
    {
        HostContext::objCN = company.Connect();
        StoreGatePass(company);
        StoreSalary(company);
        Printing::UseReceiver([this](const PrintJob& job, const QByteArray&) {
            jobs.append(job.Title + s(" copy ") + job.Copy);
        });
    }
    ~FormReportTest() override
    {
        for (int option = 1; option <= 4; ++option)
            dialog().SetOptionVisible(dialog().Option(option), true);
        unloadDialog();
        viewer().Report.reset();
        PrintPort::SetCurrent(nullptr);
        HostContext::objCN.reset();
    }

    static RptReportViewer& viewer() { return RptReportViewer::Shared(); }
    static SchPrint& dialog() { return SchPrint::Shared(); }
    /// Touching its options has loaded it.
    static void unloadDialog()
    {
        dialog().ShowModeless(false);
        dialog().Unload();
    }

    void feedGatePass()
    {
        report.Feed(std::make_shared<CrpGatePassDetail>(), CrpGatePassDetail::Source(s("7")));
    }
    void feedSalary()
    {
        report.Feed(std::make_shared<CrpSalary>(), CrpSalary::Source(s("2014"), QDate(2026, 3, 1)));
    }
    /// Answers the choice of copies with a key, after a click on one of its options.
    void print(const CopyDeclaration& copies, int option, Qt::Key key)
    {
        dialogs.Expect([option, key](Form& form) {
            EXPECT_EQ(dialog().ParaOutPrint, s("B"));
            if (option > 0)
                Click(form, dialog().Option(option));
            Press(form, key);
        });
        FormReport::PrintCopies(copies, nullptr);
    }

    TestCompany company;
    ExpectedBoxes boxes;
    ExpectedDialogs dialogs;
    FormReport report;
    QStringList jobs;
};

} // namespace

TEST_F(FormReportTest, FeedPutsTheReportIntoTheViewerAndKeepsItsRowsOpen)
{
    EXPECT_FALSE(report.IsOpen());
    feedSalary();
    EXPECT_TRUE(report.IsOpen());
    ASSERT_NE(dynamic_cast<CrpSalary*>(viewer().Report.get()), nullptr);
    EXPECT_EQ(viewer().Report->Title(), s("Salary 2014 Mar-2026"));
    // The next one takes its place.
    feedGatePass();
    ASSERT_NE(dynamic_cast<CrpGatePassDetail*>(viewer().Report.get()), nullptr);
    const PrintJob job = viewer().Report->Job();
    EXPECT_EQ(job.Title, s("Gate Pass 7"));
    EXPECT_EQ(job.Driver, s("Printer Driver"));
    EXPECT_EQ(job.PrinterName, s("Printer Name"));
    EXPECT_EQ(job.Port, s("LPT1"));
    EXPECT_FALSE(viewer().isVisible());
    report.Close();
    EXPECT_FALSE(report.IsOpen());
    EXPECT_THROW(viewer().Report->Title(), Failure);
}

TEST_F(FormReportTest, AFeedThatFailsLeavesTheReportThatWasThere)
{
    feedGatePass();
    const std::shared_ptr<Report> before = viewer().Report;
    EXPECT_THROW(report.Feed(std::make_shared<CrpSalary>(), Statement("select * from Nowhere")),
                 Failure);
    EXPECT_EQ(viewer().Report, before);
    EXPECT_FALSE(report.IsOpen());
}

TEST_F(FormReportTest, AllCopiesAreThoseThatTheFormDeclares)
{
    feedGatePass();
    print(kGatePass, 0, Qt::Key_Return);
    EXPECT_EQ(jobs, QStringList({s("Gate Pass 7 copy 1"), s("Gate Pass 7 copy 2"),
                                 s("Gate Pass 7 copy 3")}));
    EXPECT_EQ(viewer().Report->PaperNumber(), 1);
    jobs.clear();
    feedSalary();
    print(kSalary, 0, Qt::Key_Return);
    EXPECT_EQ(jobs,
              QStringList({s("Salary 2014 Mar-2026 copy 1"), s("Salary 2014 Mar-2026 copy 2")}));
}

TEST_F(FormReportTest, OneCopyIsPrintedAloneAndNoneWithoutAChoice)
{
    feedGatePass();
    print(kGatePass, 3, Qt::Key_Return);
    EXPECT_EQ(jobs, QStringList({s("Gate Pass 7 copy 3")}));
    jobs.clear();
    print(kGatePass, 2, Qt::Key_Escape);
    EXPECT_EQ(jobs, QStringList());
}

TEST_F(FormReportTest, OptionsThatAPayFormHidesStayHiddenForAGatePass)
{
    feedSalary();
    print(kSalary, 1, Qt::Key_Return);
    EXPECT_EQ(jobs, QStringList({s("Salary 2014 Mar-2026 copy 1")}));
    dialog().SetOptionVisible(dialog().Option4, false);
    unloadDialog();
    feedGatePass();
    dialogs.Expect([](Form& form) {
        EXPECT_TRUE(dialog().Option1.IsVisible());
        EXPECT_FALSE(dialog().Option2.IsVisible());
        EXPECT_FALSE(dialog().Option3.IsVisible());
        EXPECT_TRUE(dialog().Option4.IsVisible());
        Press(form, Qt::Key_Escape);
    });
    FormReport::PrintCopies(kGatePass, nullptr);
}

TEST_F(FormReportTest, ACopyThatTheFormDoesNotKnowIsNotPrinted)
{
    feedSalary();
    const CopyDeclaration two{.Shown = {3}, .Hidden = {}, .Copies = {s("1"), s("2")}};
    print(two, 3, Qt::Key_Return);
    EXPECT_EQ(jobs, QStringList());
}

} // namespace tests
