// The report window: load, zoom, pages, search, printing, saving, and what replaces what.

#include "reports/RptReportViewer.h"
#include "controls/FileDialog.h"
#include "controls/MsgBox.h"
#include "data/Failure.h"
#include "reports/PrintPort.h"
#include "reports/SampleReport.h"
#include "support/ExpectedBoxes.h"
#include "support/Keys.h"
#include "support/Pdf.h"
#include "support/Text.h"

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QWindow>

#include <gtest/gtest.h>

#include <QtTest>

namespace tests {

using namespace TradeForms;

namespace {

class RptReportViewerTest : public ::testing::Test {
protected:
    ~RptReportViewerTest() override
    {
        It().close();
        PrintPort::SetCurrent(nullptr);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }

    static RptReportViewer& It() { return RptReportViewer::Shared(); }
    static ReportView& View() { return It().CRViewer1; }

    void show(const SampleReport& sample)
    {
        It().Report = sample.Make();
        It().Show();
        Activate(It());
    }
    static void ctrl(Qt::Key key) { Press(It(), key, Qt::ControlModifier); }
    /// Colour in the middle of a place in the view.
    static QColor colorAt(const QPoint& point)
    {
        return View().viewport()->grab().toImage().pixelColor(point);
    }
    static bool viewHas(const QColor& color)
    {
        const QImage image = View().viewport()->grab().toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == color)
                    return true;
        }
        return false;
    }

    ExpectedBoxes boxes;
    ExpectedDialogs dialogs;
};

const QColor kMark(0xff, 0xee, 0xa0);
const QColor kCurrentMark(0xff, 0xb3, 0x4d);

} // namespace

// ---- Load, resize, unload

TEST_F(RptReportViewerTest, LoadShowsTheFirstPageAtNinetyThreePercent)
{
    const SampleReport sample(100);
    show(sample);
    EXPECT_TRUE(It().isVisible());
    EXPECT_EQ(It().windowTitle(), s("Previewing Report"));
    EXPECT_EQ(View().Zoom(), 93);
    EXPECT_EQ(View().Page(), 1);
    EXPECT_EQ(View().PageCount(), 4);
    EXPECT_EQ(It().TxtPage.Text(), s("1"));
    EXPECT_EQ(It().LblPages.Text(), s("/ 4"));
    EXPECT_EQ(It().LblZoom.Text(), s("93%"));
    EXPECT_EQ(It().ActiveControl(), &View());
    // 148 millimetres at 93 percent.
    EXPECT_EQ(View().PageRect(1).width(), qRound(148 / 25.4 * View().logicalDpiX() * 0.93));
    EXPECT_EQ(colorAt(View().PageRect(1).topLeft() + QPoint(20, 20)), QColor(Qt::white));
}

TEST_F(RptReportViewerTest, ItStaysBesideTheOtherWindows)
{
    const SampleReport sample(1);
    show(sample);
    EXPECT_EQ(It().windowModality(), Qt::NonModal);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(RptReportViewerTest, TheViewFillsTheWindow)
{
    const SampleReport sample(1);
    show(sample);
    for (const QSize& size : {QSize(790, 500), QSize(800, 760)}) {
        It().resize(size);
        QCoreApplication::processEvents();
        // All between the tools and the buttons, but for the window's own frame.
        const QRect tools = It().TxtSearch.parentWidget()->geometry();
        const QRect buttons = It().BtnClose.parentWidget()->geometry();
        EXPECT_EQ(View().geometry(), QRect(QPoint(1, tools.bottom() + 1),
                                           QPoint(size.width() - 2, buttons.top() - 1)));
    }
}

TEST_F(RptReportViewerTest, ItFitsOnTheScreen)
{
    const SampleReport sample(1);
    show(sample);
    const QRect screen = It().screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(It().geometry()))
        << It().width() << 'x' << It().height() << " minimum " << It().minimumSizeHint().width();
}

TEST_F(RptReportViewerTest, TheHourglassIsUpWhileItLoadsAndThePointerIsRestored)
{
    SampleReport sample(3);
    Qt::CursorShape during = Qt::ArrowCursor;
    sample.OnLayout = [&during] {
        during = QApplication::overrideCursor() ? QApplication::overrideCursor()->shape()
                                                : Qt::ArrowCursor;
    };
    show(sample);
    EXPECT_EQ(during, Qt::WaitCursor);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(RptReportViewerTest, AFailureWhileLoadingIsTheCallersAndThePointerIsRestored)
{
    SampleReport sample(3);
    sample.OnLayout = [] { throw Failure(s("The column is missing.")); };
    It().Report = sample.Make();
    EXPECT_THROW(It().Show(), Failure);
    EXPECT_FALSE(It().isVisible());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);

    It().Report = nullptr;
    EXPECT_THROW(It().Show(), Failure);
}

TEST_F(RptReportViewerTest, AFailureWhileLoadingLeavesTheReportInView)
{
    const SampleReport first(100);
    show(first);
    SampleReport broken(3);
    broken.OnLayout = [] { throw Failure(s("The column is missing.")); };
    It().Report = broken.Make();
    EXPECT_THROW(It().Show(), Failure);
    EXPECT_TRUE(It().isVisible());
    EXPECT_EQ(View().PageCount(), 4);
}

TEST_F(RptReportViewerTest, ASecondReportReplacesTheFirst)
{
    const SampleReport first(100);
    show(first);
    ctrl(Qt::Key_Plus);
    ctrl(Qt::Key_End);
    ctrl(Qt::Key_F);
    Type(It(), "P00050");
    EXPECT_EQ(View().HitCount(), 1);

    const SampleReport second(60);
    show(second);
    EXPECT_TRUE(It().isVisible());
    EXPECT_EQ(View().PageCount(), 3);
    EXPECT_EQ(View().Page(), 1);
    EXPECT_EQ(View().Zoom(), 93);
    EXPECT_EQ(View().HitCount(), 0);
    EXPECT_TRUE(It().TxtSearch.Text().isEmpty());
}

TEST_F(RptReportViewerTest, EscClosesItAndUnloadSetsTheReportToNothing)
{
    const SampleReport sample(1);
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Space}) {
        show(sample);
        EXPECT_NE(It().Report, nullptr);
        if (key == Qt::Key_Escape)
            Press(It(), key);
        else
            Click(It(), It().BtnClose);
        EXPECT_FALSE(It().isVisible());
        EXPECT_EQ(It().Report, nullptr);
        EXPECT_EQ(View().PageCount(), 0);
    }
}

TEST_F(RptReportViewerTest, TheRowsMayBeClosedWhileItIsInView)
{
    SampleReport sample(200);
    show(sample);
    sample.Rows().Close();
    ctrl(Qt::Key_End);
    EXPECT_EQ(View().Page(), View().PageCount());
    ctrl(Qt::Key_F);
    Type(It(), "P00200");
    EXPECT_EQ(View().HitCount(), 1);
}

TEST_F(RptReportViewerTest, F11AndADoubleClickOnTheTitleFillTheScreenAndBack)
{
    const SampleReport sample(1);
    show(sample);
    for (const bool whole : {true, false}) {
        Press(It(), Qt::Key_F11);
        EXPECT_EQ(It().isMaximized(), whole);
    }
    const auto doubleClick = [](const QPoint& at) {
        QTest::mouseDClick(It().windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    };
    doubleClick(QPoint(It().width() / 2, 10));
    EXPECT_TRUE(It().isMaximized());
    doubleClick(QPoint(It().width() / 2, 10));
    EXPECT_FALSE(It().isMaximized());
    doubleClick(QPoint(It().width() / 2, It().height() - 5));
    EXPECT_FALSE(It().isMaximized());
}

// ---- Zoom

TEST_F(RptReportViewerTest, CtrlPlusAndMinusStepTheZoom)
{
    const SampleReport sample(1);
    show(sample);
    const auto zoomAfter = [](Qt::Key key) {
        ctrl(key);
        return View().Zoom();
    };
    EXPECT_EQ(zoomAfter(Qt::Key_Plus), 100);
    EXPECT_EQ(zoomAfter(Qt::Key_Equal), 125);
    EXPECT_EQ(It().LblZoom.Text(), s("125%"));
    EXPECT_EQ(zoomAfter(Qt::Key_Minus), 100);
    EXPECT_EQ(zoomAfter(Qt::Key_Minus), 93);
    EXPECT_EQ(zoomAfter(Qt::Key_Minus), 75);
    EXPECT_EQ(zoomAfter(Qt::Key_1), 100);
    EXPECT_EQ(zoomAfter(Qt::Key_0), 93);
    for (int step = 0; step < 20; ++step)
        ctrl(Qt::Key_Minus);
    EXPECT_EQ(View().Zoom(), 25);
    for (int step = 0; step < 20; ++step)
        ctrl(Qt::Key_Plus);
    EXPECT_EQ(View().Zoom(), 400);
    EXPECT_GT(View().horizontalScrollBar()->maximum(), 0);
}

TEST_F(RptReportViewerTest, TheButtonsZoomToo)
{
    const SampleReport sample(1);
    show(sample);
    Click(It(), It().BtnZoomIn);
    EXPECT_EQ(View().Zoom(), 100);
    Click(It(), It().BtnZoomOut);
    EXPECT_EQ(View().Zoom(), 93);
}

TEST_F(RptReportViewerTest, CtrlAndTheWheelZoomAndKeepWhatIsUnderThePointer)
{
    const SampleReport sample(100);
    show(sample);
    View().GoToPage(3);
    const QPoint at = View().viewport()->rect().center();
    const auto placeOnPage = [&at] {
        return (at - View().PageRect(3).topLeft()) / (View().Zoom() / 100.0);
    };
    const QPointF before = placeOnPage();
    for (int click = 0; click < 2; ++click) {
        QWheelEvent wheel(at, View().viewport()->mapToGlobal(at), {}, {0, 120}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(View().viewport(), &wheel);
    }
    EXPECT_EQ(View().Zoom(), 125);
    EXPECT_NEAR(placeOnPage().y(), before.y(), 3);

    const int top = View().verticalScrollBar()->value();
    QWheelEvent down(at, View().viewport()->mapToGlobal(at), {}, {0, -120}, Qt::NoButton,
                     Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(View().viewport(), &down);
    EXPECT_GT(View().verticalScrollBar()->value(), top);
    EXPECT_EQ(View().Zoom(), 125);
}

TEST_F(RptReportViewerTest, FitWidthFollowsTheWindowUntilAnotherZoomIsChosen)
{
    const SampleReport sample(1);
    show(sample);
    const auto slack = [] { return View().viewport()->width() - View().PageRect(1).width(); };
    ctrl(Qt::Key_2);
    EXPECT_GE(slack(), 0);
    EXPECT_LT(slack(), 40);
    EXPECT_EQ(View().horizontalScrollBar()->maximum(), 0);
    It().resize(It().minimumSizeHint().width(), 600);
    QCoreApplication::processEvents();
    EXPECT_GE(slack(), 0);
    EXPECT_LT(slack(), 40);
    ctrl(Qt::Key_1);
    It().resize(790, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(View().Zoom(), 100);
}

// ---- Pages

TEST_F(RptReportViewerTest, KeysTurnThePages)
{
    const SampleReport sample(100);
    show(sample);
    const auto pageAfter = [](Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        Press(It(), key, modifiers);
        return View().Page();
    };
    EXPECT_EQ(pageAfter(Qt::Key_PageDown, Qt::ControlModifier), 2);
    EXPECT_EQ(View().PageRect(2).top(), 12);
    EXPECT_EQ(pageAfter(Qt::Key_End, Qt::ControlModifier), 4);
    EXPECT_EQ(pageAfter(Qt::Key_PageDown, Qt::ControlModifier), 4);
    EXPECT_EQ(pageAfter(Qt::Key_PageUp, Qt::ControlModifier), 3);
    EXPECT_EQ(pageAfter(Qt::Key_Home, Qt::ControlModifier), 1);
    EXPECT_EQ(pageAfter(Qt::Key_PageUp, Qt::ControlModifier), 1);

    const int step = View().verticalScrollBar()->pageStep();
    Press(It(), Qt::Key_PageDown);
    EXPECT_EQ(View().verticalScrollBar()->value(), step);
    Press(It(), Qt::Key_PageUp);
    EXPECT_EQ(View().verticalScrollBar()->value(), 0);
    Press(It(), Qt::Key_Space);
    EXPECT_EQ(View().verticalScrollBar()->value(), step);
    Press(It(), Qt::Key_Space, Qt::ShiftModifier);
    Press(It(), Qt::Key_Down);
    EXPECT_EQ(View().verticalScrollBar()->value(), 48);
    Press(It(), Qt::Key_End);
    EXPECT_EQ(View().Page(), 1);
    EXPECT_NEAR(View().PageRect(1).bottom(), View().viewport()->height() - 12, 2);
    Press(It(), Qt::Key_Home);
    EXPECT_EQ(View().verticalScrollBar()->value(), 0);
}

TEST_F(RptReportViewerTest, PagesTurnWhileTheFocusIsInAField)
{
    const SampleReport sample(100);
    show(sample);
    ctrl(Qt::Key_F);
    Type(It(), "P0000");
    Press(It(), Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(View().Page(), 2);
    // Home is the field's own.
    Press(It(), Qt::Key_Home);
    EXPECT_EQ(It().TxtSearch.cursorPosition(), 0);
    EXPECT_EQ(View().Page(), 2);
}

TEST_F(RptReportViewerTest, APageIsReachedByItsNumber)
{
    const SampleReport sample(100);
    show(sample);
    const auto goTo = [](const char* number) {
        ctrl(Qt::Key_G);
        EXPECT_EQ(It().ActiveControl(), &It().TxtPage);
        Type(It(), number);
        Press(It(), Qt::Key_Return);
        EXPECT_EQ(It().ActiveControl(), &View());
        return View().Page();
    };
    EXPECT_EQ(goTo("3"), 3);
    EXPECT_EQ(It().TxtPage.Text(), s("3"));
    EXPECT_EQ(goTo("99"), 4);
    EXPECT_EQ(It().TxtPage.Text(), s("4"));
    EXPECT_EQ(goTo("0"), 1);
    // What was typed and not sent is dropped.
    ctrl(Qt::Key_G);
    Type(It(), "2");
    Press(It(), Qt::Key_Tab);
    EXPECT_EQ(It().TxtPage.Text(), s("1"));
}

TEST_F(RptReportViewerTest, APageFarFromTheFirstIsShownAndShownAgainAlike)
{
    const SampleReport sample(3000);
    show(sample);
    EXPECT_GT(View().PageCount(), 90);
    View().GoToPage(60);
    EXPECT_EQ(View().Page(), 60);
    EXPECT_TRUE(View().viewport()->rect().intersects(View().PageRect(60)));
    EXPECT_FALSE(View().viewport()->rect().intersects(View().PageRect(58)));
    const QImage sixtieth = View().viewport()->grab().toImage();
    View().GoToPage(61);
    EXPECT_NE(View().viewport()->grab().toImage(), sixtieth);
    View().GoToPage(60);
    EXPECT_EQ(View().viewport()->grab().toImage(), sixtieth);
}

// ---- Search

TEST_F(RptReportViewerTest, SearchMarksAllPlacesAndGoesToTheFirst)
{
    const SampleReport sample(100);
    show(sample);
    EXPECT_FALSE(viewHas(kCurrentMark));
    ctrl(Qt::Key_F);
    EXPECT_EQ(It().ActiveControl(), &It().TxtSearch);
    Type(It(), "p0005");
    EXPECT_EQ(View().HitCount(), 10);
    EXPECT_EQ(View().Hit(), 1);
    EXPECT_EQ(It().LblHits.Text(), s("1 / 10"));
    EXPECT_EQ(View().Page(), 2);
    EXPECT_TRUE(viewHas(kCurrentMark));
    EXPECT_TRUE(viewHas(kMark));

    It().TxtSearch.SetText(QString());
    EXPECT_EQ(View().HitCount(), 0);
    EXPECT_TRUE(It().LblHits.Text().isEmpty());
    EXPECT_FALSE(viewHas(kMark));
}

TEST_F(RptReportViewerTest, F3GoesOnRoundAndRoundAndShiftF3Back)
{
    const SampleReport sample(100);
    show(sample);
    ctrl(Qt::Key_F);
    Type(It(), "copy");
    ASSERT_EQ(View().HitCount(), 4);
    for (int hit = 2; hit <= 4; ++hit) {
        Press(It(), Qt::Key_F3);
        EXPECT_EQ(View().Hit(), hit);
    }
    EXPECT_EQ(View().Page(), 4);
    Press(It(), Qt::Key_F3);
    EXPECT_EQ(View().Hit(), 1);
    Press(It(), Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(View().Hit(), 4);
    Press(It(), Qt::Key_Return);
    EXPECT_EQ(View().Hit(), 1);
    Press(It(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(View().Hit(), 4);
    Click(It(), It().BtnNextHit);
    EXPECT_EQ(View().Hit(), 1);
    Click(It(), It().BtnPreviousHit);
    EXPECT_EQ(View().Hit(), 4);
    EXPECT_EQ(It().LblHits.Text(), s("4 / 4"));
}

TEST_F(RptReportViewerTest, SearchBeginsAtThePageInView)
{
    const SampleReport sample(100);
    show(sample);
    View().GoToPage(3);
    ctrl(Qt::Key_F);
    Type(It(), "copy");
    EXPECT_EQ(View().Hit(), 3);
    EXPECT_EQ(View().Page(), 3);
}

TEST_F(RptReportViewerTest, WhatIsNotFoundIsSaid)
{
    const SampleReport sample(10);
    show(sample);
    Press(It(), Qt::Key_F3);
    EXPECT_EQ(It().ActiveControl(), &It().TxtSearch);
    Type(It(), "nothing of the kind");
    EXPECT_EQ(It().LblHits.Text(), s("not found"));
    Press(It(), Qt::Key_F3);
    EXPECT_EQ(View().Hit(), 0);
    EXPECT_EQ(View().Page(), 1);
}

TEST_F(RptReportViewerTest, CtrlCCopiesThePageAndInAFieldItsOwnText)
{
    const SampleReport sample(100);
    show(sample);
    ctrl(Qt::Key_End);
    ctrl(Qt::Key_C);
    const QStringList lines = QGuiApplication::clipboard()->text().split(u'\n');
    EXPECT_EQ(lines.first(), s("copy 1"));
    EXPECT_EQ(lines.last(), s("P00100"));
    ctrl(Qt::Key_F);
    Type(It(), "P0009");
    ctrl(Qt::Key_A);
    ctrl(Qt::Key_C);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), s("P0009"));
}

TEST_F(RptReportViewerTest, ACopiedPageRunsLineByLineFromTheReadersRightHand)
{
    const SampleReport sample(3);
    It().Report = sample.Make();
    QList<ReportObject>& line = It().Report->Sections()[2].Objects;
    ReportObject second = line.first();
    second.Name = s("FldOut");
    second.Source.Name = s("OutNewProducts");
    second.Place = QRectF(700, 0, 300, 60);
    line.append(second);
    It().Show();
    Activate(It());
    ctrl(Qt::Key_C);
    EXPECT_EQ(It().LblNote.Text(), s("Copied the page"));
    EXPECT_EQ(QGuiApplication::clipboard()->text().split(u'\n'),
              QStringList({s("Title of the sample"), s("copy 1"), s("1\tP00001"), s("2\tP00002"),
                           s("3\tP00003")}));
}

// ---- Print and save

TEST_F(RptReportViewerTest, CtrlPPrintsWhatIsInView)
{
    PrintJob printed;
    QByteArray pdf;
    Printing::UseReceiver([&](const PrintJob& job, const QByteArray& bytes) {
        printed = job;
        pdf = bytes;
    });
    SampleReport sample(40);
    show(sample);
    // A form may print another report meanwhile, and close its rows.
    const SampleReport other(1);
    It().Report = other.Make(s("Other"));
    sample.Rows().Close();
    ctrl(Qt::Key_P);
    EXPECT_EQ(printed.Title, s("Sample"));
    EXPECT_EQ(printed.PrinterName, s("Printer Name"));
    EXPECT_EQ(printed.Copy, s("1"));
    EXPECT_TRUE(TextOfPdf(pdf).contains(s("P00040")));
    EXPECT_EQ(It().LblNote.Text(), s("Printed"));
}

TEST_F(RptReportViewerTest, APrinterThatFailsIsToldAndTheWindowStays)
{
    Printing::UseReceiver(
        [](const PrintJob&, const QByteArray&) { throw Failure(s("Paper jam.")); });
    const SampleReport sample(1);
    show(sample);
    boxes.Expect({s("Paper jam."), MsgIcon::Stop, s("Error occured")});
    Click(It(), It().BtnPrint);
    EXPECT_TRUE(It().isVisible());
    EXPECT_TRUE(It().LblNote.Text().isEmpty());
}

TEST_F(RptReportViewerTest, SaveWritesThePdfThatTheUserNames)
{
    const SampleReport sample(60);
    show(sample);
    const QTemporaryDir folder;
    const QString file = folder.filePath(s("kept.pdf"));
    SaveQuestion asked;
    const QWidget* asker = nullptr;
    QString answer = file;
    const Modal::SavePresenter before =
        Modal::SetSavePresenter([&](QWidget* owner, const SaveQuestion& question) {
            asker = owner;
            asked = question;
            return answer;
        });
    ctrl(Qt::Key_S);
    EXPECT_EQ(asker, &It());
    EXPECT_EQ(asked.Title, s("Save as PDF"));
    EXPECT_EQ(asked.Name, s("Sample"));
    EXPECT_EQ(asked.Kind, s("PDF"));
    EXPECT_EQ(asked.Suffix, s("pdf"));
    EXPECT_EQ(PdfInfo(file, s("Pages")).toInt(), View().PageCount());
    EXPECT_TRUE(TextOfPdf(file).contains(s("P00060")));
    EXPECT_EQ(It().LblNote.Text(), QDir::toNativeSeparators(file));

    // No file named, nothing saved.
    answer.clear();
    Click(It(), It().BtnSavePdf);
    EXPECT_TRUE(It().LblNote.Text().isEmpty());

    // A file that cannot be written is told.
    answer = folder.filePath(s("no/such/folder/kept.pdf"));
    boxes.ExpectAny(MsgIcon::Stop, s("Error occured"));
    Click(It(), It().BtnSavePdf);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    Modal::SetSavePresenter(before);
}

// ---- The report's colours

TEST_F(RptReportViewerTest, RemoveObjectColorsWorksOnTheReport)
{
    const SampleReport sample(1);
    It().Report = sample.Make();
    It().Report->Object(s("TxtTitle")).BackColor = 255;
    It().RemoveObjectColors();
    EXPECT_EQ(It().Report->Object(s("TxtTitle")).BackColor, NoColor);
    It().Report = nullptr;
    It().RemoveObjectColors();
}

} // namespace tests
