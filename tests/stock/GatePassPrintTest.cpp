// BtnPrint of the gate pass: the data passed to the report, the choice of copies, the print jobs,
// and the state after a failure.

#include "data/Failure.h"
#include "host/HostContext.h"
#include "reports/CrpGatePassDetail.h"
#include "reports/PrintPort.h"
#include "reports/PrinterPort.h"
#include "reports/RptReportViewer.h"
#include "reports/SchPrint.h"
#include "support/GatePassDesk.h"
#include "support/Pdf.h"
#include "support/Text.h"

#include <QDir>
#include <QPrinter>
#include <QtTest>

namespace tests {

namespace {

/// A system without a printer.
class NoPrinters : public SystemPrinters {
public:
    QStringList Names() const override { return {}; }
    QString DefaultName() const override { return {}; }
};

class GatePassPrintTest : public GatePassDesk {
protected:
    GatePassPrintTest()
    {
        Printing::UseReceiver([this](const PrintJob& job, const QByteArray& pdf) {
            if (job.Copy == failingCopy)
                throw Failure(s("The printer is out of paper."));
            jobs.append(job);
            texts.append(TextOfPdf(pdf));
        });
    }
    ~GatePassPrintTest() override
    {
        PrintPort::SetCurrent(nullptr);
        SchPrint& dialog = SchPrint::Shared();
        for (int option = 1; option <= 4; ++option)
            dialog.SetOptionVisible(dialog.Option(option), true);
        dialog.hide();
        RptReportViewer::Shared().Report.reset();
    }

    /// Opens a window showing a stored pass; returns its number.
    int OpenPass()
    {
        Open();
        EnterHeader();
        EnterRow(s("101"), s("3"), s("1"));
        EnterRow(s("210"), s("5"));
        Save();
        OpenStored(1);
        return 1;
    }
    /// Presses Ctrl+P and sends the keys to the SchPrint dialog.
    void Print(const QList<Qt::Key>& keys)
    {
        dialogs.Expect([keys](Form& dialog) {
            for (const Qt::Key key : keys)
                Press(dialog, key);
        });
        Ctrl(Qt::Key_P);
    }
    QStringList Copies() const
    {
        QStringList copies;
        for (const PrintJob& job : jobs)
            copies.append(job.Copy);
        return copies;
    }
    /// Checks that the form is in the state after opening the pass.
    void ExpectAsOpened()
    {
        EXPECT_EQ(It().FormState(), VoucherForm::State::Opened);
        EXPECT_EQ(It().TxtGatePassID.Text(), s("1"));
        EXPECT_EQ(It().Branch.Code.Text(), s("1"));
        EXPECT_EQ(FilledRows(), 2);
        EXPECT_TRUE(It().BtnPrint.IsEnabled());
        EXPECT_FALSE(It().BtnSave.IsEnabled());
        EXPECT_EQ(BodyOf(1), QStringList({s("101|3|1|null"), s("210|5|null|null")}));
    }

    QList<PrintJob> jobs;
    QStringList texts;
    QString failingCopy;
};

} // namespace

// ---- The choice of copies

TEST_F(GatePassPrintTest, AllCopiesPrintsThreeTimesWithTheParameterOneTwoThreeInThatOrder)
{
    OpenPass();
    Print({Qt::Key_Return});
    EXPECT_EQ(Copies(), QStringList({s("1"), s("2"), s("3")}));
    ASSERT_EQ(texts.size(), 3);
    EXPECT_TRUE(texts[0].contains(s("Office copy"))) << qPrintable(texts[0]);
    EXPECT_TRUE(texts[1].contains(s("Driver's copy"))) << qPrintable(texts[1]);
    EXPECT_TRUE(texts[2].contains(s("Gate copy"))) << qPrintable(texts[2]);
    ExpectAsOpened();
}

TEST_F(GatePassPrintTest, AllCopiesAreTheDefaultAndEachCopyCanBeChosen)
{
    OpenPass();
    dialogs.Expect([](Form& shown) {
        SchPrint& dialog = SchPrint::Shared();
        EXPECT_EQ(&shown, &dialog);
        EXPECT_EQ(dialog.ParaOutPrint, s("B"));
        EXPECT_TRUE(dialog.Option4.Value());
        EXPECT_EQ(dialog.ActiveControl(), &dialog.Option4);
        Click(dialog, dialog.Option2);
        Click(dialog, dialog.BtnSelect);
    });
    Click(It(), It().BtnPrint);
    EXPECT_EQ(Copies(), QStringList({s("2")}));
    jobs.clear();
    Print({Qt::Key_Down, Qt::Key_Return}); // wraps from the last option to the first
    EXPECT_EQ(Copies(), QStringList({s("1")}));
    jobs.clear();
    Print({Qt::Key_Up, Qt::Key_Return});
    EXPECT_EQ(Copies(), QStringList({s("3")}));
}

TEST_F(GatePassPrintTest, EscInSchPrintPrintsNothing)
{
    OpenPass();
    Print({Qt::Key_Escape});
    EXPECT_TRUE(SchPrint::Shared().ParaOutPrint.isEmpty());
    EXPECT_TRUE(jobs.isEmpty());
    ExpectAsOpened();
}

TEST_F(GatePassPrintTest, TheFormIsTheOwnerOfSchPrint)
{
    OpenPass();
    dialogs.Expect([this](Form& dialog) {
        EXPECT_EQ(dialog.windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(dialog.windowHandle()->transientParent(), It().windowHandle());
        Press(dialog, Qt::Key_Escape);
    });
    Ctrl(Qt::Key_P);
}

TEST_F(GatePassPrintTest, OptionsHiddenByASalaryFormStayHiddenForAGatePassWhichShowsOnlyOption4)
{
    // As a salary form does, and as a form might that hides all copies.
    SchPrint& dialog = SchPrint::Shared();
    dialog.SetOptionVisible(dialog.Option3, false);
    dialog.SetOptionVisible(dialog.Option2, false);
    dialog.SetOptionVisible(dialog.Option4, false);
    OpenPass();
    dialogs.Expect([&dialog](Form&) {
        EXPECT_TRUE(dialog.Option1.IsVisible());
        EXPECT_FALSE(dialog.Option2.IsVisible());
        EXPECT_FALSE(dialog.Option3.IsVisible());
        EXPECT_TRUE(dialog.Option4.IsVisible());
        Press(dialog, Qt::Key_Return);
    });
    Ctrl(Qt::Key_P);
    // Hidden or not, "all copies" prints three.
    EXPECT_EQ(Copies(), QStringList({s("1"), s("2"), s("3")}));
}

// ---- What is printed

TEST_F(GatePassPrintTest, TheReportIsFedAsItsFormTells)
{
    HostContext::NameUrdu = s("Madina Traders");
    OpenPass();
    dialogs.Expect([this](Form& dialog) {
        const RptReportViewer& viewer = RptReportViewer::Shared();
        EXPECT_FALSE(viewer.isVisible());
        EXPECT_NE(dynamic_cast<CrpGatePassDetail*>(viewer.Report.get()), nullptr);
        EXPECT_EQ(viewer.Report->PaperNumber(), 1);
        EXPECT_TRUE(It().PrintReport.IsOpen());
        Press(dialog, Qt::Key_Return);
    });
    Ctrl(Qt::Key_P);
    HostContext::NameUrdu.clear();
    EXPECT_FALSE(RptReportViewer::Shared().isVisible());
    ASSERT_EQ(jobs.size(), 3);
    for (const PrintJob& job : jobs) {
        EXPECT_EQ(job.Driver, s("Printer Driver"));
        EXPECT_EQ(job.PrinterName, s("Printer Name"));
        EXPECT_EQ(job.Port, s("LPT1"));
        EXPECT_EQ(job.Title, s("Gate Pass 1"));
    }
    for (const QString& text : texts) {
        EXPECT_TRUE(text.contains(s("Madina Traders"))) << qPrintable(text);
        EXPECT_TRUE(text.contains(s("101")));
        EXPECT_TRUE(text.contains(s("210")));
    }
}

TEST_F(GatePassPrintTest, AGatePassWhoseBodyIsEmptyGivesAReportWithoutLines)
{
    OpenPass();
    company.Run("delete from GatePassBody");
    Print({Qt::Key_Up, Qt::Key_Return});
    ASSERT_EQ(jobs.size(), 1);
    EXPECT_EQ(jobs.front().Title, s("Gate Pass"));
    EXPECT_EQ(texts.front().count(u'\f'), 1);
    EXPECT_TRUE(texts.front().contains(s("Gate copy"))) << qPrintable(texts.front());
    EXPECT_FALSE(texts.front().contains(s("210")));
}

TEST_F(GatePassPrintTest, AProductRowWhoseProductVanishedIsLeftOffThePrint)
{
    OpenPass();
    company.Run("pragma foreign_keys = off; delete from Products where ProductID = '210'");
    Print({Qt::Key_Up, Qt::Key_Return});
    ASSERT_EQ(texts.size(), 1);
    EXPECT_TRUE(texts.front().contains(s("101")));
    EXPECT_FALSE(texts.front().contains(s("210")));
}

TEST_F(GatePassPrintTest, ThePrintReadsWhatIsStoredEachTimeAnew)
{
    OpenPass();
    Print({Qt::Key_Up, Qt::Key_Return});
    company.Run("update GatePassBody set OutNewProducts = 7777 where ProductID = '101'");
    Print({Qt::Key_Up, Qt::Key_Return});
    ASSERT_EQ(texts.size(), 2);
    EXPECT_FALSE(texts[0].contains(s("7,777")));
    EXPECT_TRUE(texts[1].contains(s("7,777"))) << qPrintable(texts[1]);
}

TEST_F(GatePassPrintTest, TheReportsRowsStayOpenUntilTheFormCloses)
{
    OpenPass();
    EXPECT_FALSE(It().PrintReport.IsOpen());
    Print({Qt::Key_Escape});
    EXPECT_TRUE(It().PrintReport.IsOpen());
    Ctrl(Qt::Key_W);
    EXPECT_TRUE(It().PrintReport.IsOpen());
    Type(It(), "2014");
    boxes.Expect({s("Are you sure to close without save?"), MsgIcon::Question, s("Alert"),
                  MsgButtons::YesNo},
                 MsgAnswer::No);
    Ctrl(Qt::Key_Q);
    EXPECT_TRUE(It().PrintReport.IsOpen());
    Ctrl(Qt::Key_W);
    Ctrl(Qt::Key_Q);
    EXPECT_FALSE(It().isVisible());
    EXPECT_FALSE(It().PrintReport.IsOpen());
}

// ---- Save and print

TEST_F(GatePassPrintTest, PrintingAfterSaveUsesTheIdStillOnTheScreen)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    boxes.Expect(PrintQuestion(), MsgAnswer::Yes);
    dialogs.Expect([this](Form& dialog) {
        EXPECT_EQ(It().TxtGatePassID.Text(), s("1"));
        EXPECT_EQ(FilledRows(), 1);
        Press(dialog, Qt::Key_Return);
    });
    Ctrl(Qt::Key_S);
    EXPECT_EQ(Copies(), QStringList({s("1"), s("2"), s("3")}));
    EXPECT_EQ(jobs.front().Title, s("Gate Pass 1"));
    EXPECT_EQ(It().FormState(), VoucherForm::State::New);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("2"));
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
}

TEST_F(GatePassPrintTest, APrinterThatFailsAfterSaveLeavesTheVoucherStored)
{
    failingCopy = s("1");
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"));
    boxes.Expect(PrintQuestion(), MsgAnswer::Yes);
    boxes.Expect(Failed(s("The printer is out of paper.")));
    dialogs.Expect([](Form& dialog) { Press(dialog, Qt::Key_Return); });
    Ctrl(Qt::Key_S);
    EXPECT_TRUE(jobs.isEmpty());
    EXPECT_EQ(Count(s("GatePassHeader")), 1);
    EXPECT_EQ(It().FormState(), VoucherForm::State::New);
    EXPECT_EQ(It().TxtGatePassID.Text(), s("2"));
}

TEST_F(GatePassPrintTest, AnUnsavedChangeCannotBePrinted)
{
    OpenPass();
    Click(It(), It().Product.Code);
    EnterRow(s("104"), s("1"));
    EXPECT_EQ(It().FormState(), VoucherForm::State::Edited);
    EXPECT_FALSE(It().BtnPrint.IsEnabled());
    Ctrl(Qt::Key_P);
    EXPECT_TRUE(jobs.isEmpty());
}

// ---- Failures

TEST_F(GatePassPrintTest, APrinterThatFailsAtTheSecondCopyIsToldAndLeavesTheFormAsItWas)
{
    OpenPass();
    failingCopy = s("2");
    boxes.Expect(Failed(s("The printer is out of paper.")));
    Print({Qt::Key_Return});
    EXPECT_EQ(Copies(), QStringList({s("1")}));
    ExpectAsOpened();
    // The next print is not affected.
    failingCopy.clear();
    Print({Qt::Key_Return});
    EXPECT_EQ(Copies(), QStringList({s("1"), s("1"), s("2"), s("3")}));
}

TEST_F(GatePassPrintTest, WhereThereIsNoPrinterThisIsSaidOnce)
{
    PrintPort::SetCurrent(std::make_unique<PrinterPort>(std::make_unique<NoPrinters>()));
    OpenPass();
    boxes.Expect(Failed(s("There is no printer on this computer. Nothing was printed.")));
    Print({Qt::Key_Return});
    ExpectAsOpened();
}

TEST_F(GatePassPrintTest, AStatementThatFailsIsToldBeforeTheCopiesAreAskedFor)
{
    OpenPass();
    company.Run("alter table Products rename to ProductsElsewhere");
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    Ctrl(Qt::Key_P);
    EXPECT_TRUE(jobs.isEmpty());
    EXPECT_EQ(RptReportViewer::Shared().Report, nullptr);
    company.Run("alter table ProductsElsewhere rename to Products");
    Print({Qt::Key_Return});
    EXPECT_EQ(jobs.size(), 3);
}

// ---- Into a folder

TEST_F(GatePassPrintTest, AllCopiesBecomeFilesOfTheirOwnInAFolder)
{
    const QTemporaryDir folder;
    Printing::UseFolder(folder.filePath(s("printed")));
    OpenPass();
    Print({Qt::Key_Return});
    const QDir printed(folder.filePath(s("printed")));
    const QStringList files = printed.entryList(QDir::Files, QDir::Name);
    ASSERT_EQ(files.size(), 3);
    const QStringList marks = {s("Office copy"), s("Driver's copy"), s("Gate copy")};
    for (int copy = 0; copy < 3; ++copy) {
        EXPECT_TRUE(files[copy].startsWith(s("Gate Pass 1 copy %1 ").arg(copy + 1)))
            << qPrintable(files[copy]);
        EXPECT_TRUE(TextOfPdf(printed.filePath(files[copy])).contains(marks[copy]));
        EXPECT_TRUE(PdfInfo(printed.filePath(files[copy]), s("Page size")).contains(s("A5")));
    }
}

} // namespace tests
