// How sections find their place on pages: asserted on the primitives.

#include "reports/Paginator.h"
#include "data/Connection.h"
#include "data/Failure.h"
#include "reports/Designs.h"
#include "reports/ReportText.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tests {

namespace {

ReportSource totalSource(const char* name)
{
    return ReportSource{ReportSource::From::Total, s(name), {}};
}

class PaginatorTest : public ::testing::Test {
protected:
    Document layOut(const QString& statement)
    {
        rows = RowsOf(connection, statement);
        return layOut();
    }

    Document layOut()
    {
        return Document(std::make_unique<Paginator>(ReportState{
            design, rows, {}, s("Plain"), QDateTime(QDate(2026, 3, 5), QTime(14, 5)), s("7")}));
    }

    /// A group of so many rows, with its header, and a footer that has the group's sum.
    void group(double header = 50, double footer = 50)
    {
        design.GroupBy = s("g");
        design.Sections += {
            FieldSection(SectionKind::GroupHeader, "GroupHeader", header, ColumnSource("g")),
            FieldSection(SectionKind::GroupFooter, "GroupFooter", footer, totalSource("GroupSum"))};
        SectionOf(design, SectionKind::GroupFooter).Totals = {{s("GroupSum"), s("amount")}};
    }

    TestCompany company;
    std::shared_ptr<Connection> connection = company.Connect();
    std::shared_ptr<Recordset> rows;
    ReportDeclaration design = PlainDesign();
};

} // namespace

TEST_F(PaginatorTest, NoRowsGiveOnePageWithItsHeaderAndFooter)
{
    design.Sections += FieldSection(SectionKind::ReportFooter, "End", 50, totalSource("Sum"));
    SectionOf(design, SectionKind::ReportFooter).Totals = {{s("Sum"), s("amount")}};
    const Document document = layOut(Counted(0));
    EXPECT_EQ(document.PageCount(), 1);
    EXPECT_EQ(Shown(document, 0),
              QStringList({s("PageHeader: head"), s("End: 0"), s("PageFooter: 1 of 1")}));
}

TEST_F(PaginatorTest, OneRowStandsUnderTheHeaderAndTheFooterAtTheBottom)
{
    const Document document = layOut(Counted(1));
    EXPECT_EQ(Shown(document, 0),
              QStringList({s("PageHeader: head"), s("Row: 1"), s("PageFooter: 1 of 1")}));
    const QList<TextRun> texts = document.PageAt(0).Texts();
    EXPECT_EQ(texts[0].Place, QRectF(240, 100, 1000, 50));
    EXPECT_EQ(texts[1].Place, QRectF(240, 150, 1000, 100));
    EXPECT_EQ(texts[2].Place, QRectF(240, 1050, 1000, 50));
}

TEST_F(PaginatorTest, ThePageIsFilledToItsLastRowAndHeaderAndFooterComeAgain)
{
    // Nine rows of 100 fit between the header and the footer.
    const Document document = layOut(Counted(40));
    ASSERT_EQ(document.PageCount(), 5);
    for (int page = 0; page < 5; ++page) {
        const QStringList texts = Shown(document, page);
        EXPECT_EQ(texts.first(), s("PageHeader: head"));
        EXPECT_EQ(texts.last(), QStringLiteral("PageFooter: %1 of 5").arg(page + 1));
        EXPECT_EQ(texts.size(), page < 4 ? 11 : 6);
        EXPECT_EQ(texts.at(1), QStringLiteral("Row: %1").arg(page * 9 + 1));
    }
}

TEST_F(PaginatorTest, ThreeThousandRowsComeOutOnceEachInTheirOrder)
{
    design.Sections += FieldSection(SectionKind::ReportFooter, "End", 50, totalSource("Sum"));
    SectionOf(design, SectionKind::ReportFooter).Totals = {{s("Sum"), s("amount")}};
    const Document document = layOut(Counted(3000));
    const QList<TextRun> rowsShown = RunsOf(document, s("Row"));
    ASSERT_EQ(rowsShown.size(), 3000);
    for (int row = 0; row < 3000; ++row)
        ASSERT_EQ(rowsShown.at(row).Text, QString::number(row + 1));
    // The last nine rows and the footer do not fit on one page: the last row goes with it.
    EXPECT_EQ(document.PageCount(), 334);
    EXPECT_EQ(Only(document, "End"), s("2250750"));
    EXPECT_EQ(RunsOf(document, 333, s("Row")).size(), 3000 - 333 * 9);
}

TEST_F(PaginatorTest, TheFirstPageIsReadyBeforeTheOthersAreLaidOut)
{
    const Document document = layOut(Counted(3000));
    EXPECT_EQ(document.PagesReady(), 0);
    EXPECT_TRUE(document.HasPage(0));
    EXPECT_EQ(document.PagesReady(), 1);
    EXPECT_FALSE(document.IsComplete());
    const Page& first = document.PageAt(0);
    EXPECT_EQ(first.Texts().last().Text, s("1 of …"));
    EXPECT_EQ(document.PageCount(), 334);
    // The same page has the count now, in the middle of its place as before.
    EXPECT_EQ(first.Texts().last().Text, s("1 of 334"));
    EXPECT_FALSE(document.HasPage(334));
    EXPECT_FALSE(document.HasPage(-1));
    EXPECT_THROW(document.PageAt(334), Failure);
}

TEST_F(PaginatorTest, AReportHeaderStandsOnTheFirstPageOnlyAboveThePageHeader)
{
    design.Sections += TextSection(SectionKind::ReportHeader, "Title", 200, "title");
    const Document document = layOut(Counted(10));
    EXPECT_EQ(Shown(document, 0).mid(0, 2),
              QStringList({s("Title: title"), s("PageHeader: head")}));
    EXPECT_EQ(RunsOf(document, 0, s("Row")).size(), 7);
    EXPECT_EQ(Shown(document, 1).first(), s("PageHeader: head"));
    EXPECT_EQ(RunsOf(document, 1, s("Row")).size(), 3);
}

TEST_F(PaginatorTest, PageHeadersMayBeForTheFirstPageOrForTheOthers)
{
    design.Sections += {TextSection(SectionKind::PageHeader, "First", 50, "first"),
                        TextSection(SectionKind::PageHeader, "Again", 50, "again")};
    design.Sections[design.Sections.size() - 2].On = ReportSection::Pages::FirstOnly;
    design.Sections.last().On = ReportSection::Pages::AfterFirst;
    const Document document = layOut(Counted(12));
    EXPECT_EQ(Shown(document, 0).mid(0, 3),
              QStringList({s("PageHeader: head"), s("First: first"), s("Row: 1")}));
    EXPECT_EQ(Shown(document, 1).mid(0, 3),
              QStringList({s("PageHeader: head"), s("Again: again"), s("Row: 9")}));
}

TEST_F(PaginatorTest, AGroupOverAPageBreakRepeatsItsHeaderAndSumsAllItsRows)
{
    group();
    SectionOf(design, SectionKind::GroupHeader).Repeat = true;
    // Three groups of 12 rows each: every group goes over a break.
    const Document document = layOut(Counted(36, 12));
    ASSERT_GE(document.PageCount(), 4);
    const QList<TextRun> footers = RunsOf(document, s("GroupFooter"));
    ASSERT_EQ(footers.size(), 3);
    EXPECT_EQ(footers[0].Text, s("39"));  // (1 + … + 12) / 2
    EXPECT_EQ(footers[1].Text, s("111")); // (13 + … + 24) / 2
    EXPECT_EQ(footers[2].Text, s("183"));
    EXPECT_EQ(Shown(document, 0).mid(0, 3),
              QStringList({s("PageHeader: head"), s("GroupHeader: 0"), s("Row: 1")}));
    // Page 2 goes on with group 0 under its repeated header.
    EXPECT_EQ(Shown(document, 1).mid(0, 3),
              QStringList({s("PageHeader: head"), s("GroupHeader: 0"), s("Row: 9")}));
    // The footer comes right after the last row of its group, the next header after it.
    const QStringList second = Shown(document, 1);
    const qsizetype last = second.indexOf(s("Row: 12"));
    EXPECT_EQ(second.mid(last + 1, 3),
              QStringList({s("GroupFooter: 39"), s("GroupHeader: 1"), s("Row: 13")}));
}

TEST_F(PaginatorTest, AGroupHeaderIsNotRepeatedUnlessItSaysSo)
{
    group();
    const Document document = layOut(Counted(12, 12));
    EXPECT_EQ(Shown(document, 1).at(1), s("Row: 9"));
}

TEST_F(PaginatorTest, AGroupsHeaderStaysWithItsFirstRow)
{
    group(100, 50);
    // Group 0: header, 7 rows and footer take 850 of 900; the next header alone would not fit,
    // and with 6 rows it would, but its first row would not.
    const Document document = layOut(Counted(12, 6));
    EXPECT_EQ(Shown(document, 0).last(2).first(), s("GroupFooter: 10.5"));
    EXPECT_EQ(Shown(document, 1).mid(1, 2), QStringList({s("GroupHeader: 1"), s("Row: 7")}));
}

TEST_F(PaginatorTest, AGroupsHeaderMayStandAloneWhereItIsNotKept)
{
    group(100, 50);
    SectionOf(design, SectionKind::GroupHeader).KeepWithRows = false;
    const Document document = layOut(Counted(12, 6));
    EXPECT_EQ(Shown(document, 0).last(2).first(), s("GroupHeader: 1"));
    EXPECT_EQ(Shown(document, 1).at(1), s("Row: 7"));
}

TEST_F(PaginatorTest, AFooterTakesTheLastRowWithIt)
{
    design.Sections += FieldSection(SectionKind::ReportFooter, "End", 50, ColumnSource("n"));
    const Document document = layOut(Counted(9));
    ASSERT_EQ(document.PageCount(), 2);
    EXPECT_EQ(RunsOf(document, 0, s("Row")).size(), 8);
    EXPECT_EQ(Shown(document, 1), QStringList({s("PageHeader: head"), s("Row: 9"), s("End: 9"),
                                               s("PageFooter: 2 of 2")}));
}

TEST_F(PaginatorTest, AFooterThatIsNotKeptGoesAlone)
{
    design.Sections += FieldSection(SectionKind::ReportFooter, "End", 50, ColumnSource("n"));
    design.Sections.last().KeepWithRows = false;
    const Document document = layOut(Counted(9));
    EXPECT_EQ(RunsOf(document, 0, s("Row")).size(), 9);
    EXPECT_EQ(Shown(document, 1),
              QStringList({s("PageHeader: head"), s("End: 9"), s("PageFooter: 2 of 2")}));
}

TEST_F(PaginatorTest, AFooterAtTheBottomStandsAboveThePageFooter)
{
    design.Sections += TextSection(SectionKind::ReportFooter, "Sign", 80, "sign");
    design.Sections.last().AtBottom = true;
    const Document document = layOut(Counted(2));
    EXPECT_EQ(RunsOf(document, s("Sign")).first().Place, QRectF(240, 970, 1000, 80));
}

TEST_F(PaginatorTest, APagesTotalCountsTheRowsOfThatPage)
{
    design.Sections += FieldSection(SectionKind::PageFooter, "PageSum", 0, totalSource("PageSum"));
    design.Sections.last().Totals = {{s("PageSum"), s("n")}};
    design.Sections += FieldSection(SectionKind::PageFooter, "SumSoFar", 0, totalSource("Sum"));
    design.Sections += FieldSection(SectionKind::ReportFooter, "End", 50, totalSource("Sum"));
    design.Sections.last().Totals = {{s("Sum"), s("n")}};
    const Document document = layOut(Counted(11));
    ASSERT_EQ(document.PageCount(), 2);
    EXPECT_EQ(RunsOf(document, 0, s("PageSum")).first().Text, s("45"));
    EXPECT_EQ(RunsOf(document, 1, s("PageSum")).first().Text, s("21"));
    // What goes over to the next page is the sum up to the last row of this one.
    EXPECT_EQ(RunsOf(document, 0, s("SumSoFar")).first().Text, s("45"));
    EXPECT_EQ(Only(document, "End"), s("66"));
}

TEST_F(PaginatorTest, APagesTotalDoesNotCountARowTwiceWhoseFooterGoesToTheNextPage)
{
    design.Sections += FieldSection(SectionKind::PageFooter, "PageSum", 0, totalSource("PageSum"));
    design.Sections.last().Totals = {{s("PageSum"), s("n")}};
    design.Sections += TextSection(SectionKind::ReportFooter, "End", 50, "end");
    design.Sections.last().KeepWithRows = false;
    const Document document = layOut(Counted(9));
    EXPECT_EQ(RunsOf(document, 0, s("PageSum")).first().Text, s("45"));
    EXPECT_EQ(RunsOf(document, 1, s("PageSum")).first().Text, s("0"));
}

TEST_F(PaginatorTest, ThePageFooterSeesTheLastRowOfItsPage)
{
    design.Sections += FieldSection(SectionKind::PageFooter, "Until", 0, ColumnSource("n"));
    const Document document = layOut(Counted(12));
    EXPECT_EQ(RunsOf(document, 0, s("Until")).first().Text, s("9"));
    EXPECT_EQ(RunsOf(document, 1, s("Until")).first().Text, s("12"));
}

TEST_F(PaginatorTest, ATextThatGrowsWrapsAndPushesDownWhatStandsUnderIt)
{
    ReportSection& details = SectionOf(design, SectionKind::Details);
    ReportObject text = details.Objects.takeFirst();
    text.Source = ColumnSource("words");
    text.CanGrow = true;
    text.Place = QRectF(0, 0, 300, 50);
    ReportObject rule;
    rule.Kind = ObjectKind::Line;
    rule.Place = QRectF(QPointF(0, 90), QPointF(1000, 90));
    ReportObject box;
    box.Kind = ObjectKind::Box;
    box.Place = QRectF(0, 0, 400, 60);
    details.Objects = {text, rule, box};
    const QString words = s("seven words that need more than one line of three hundred tenths");
    const Document document =
        layOut(QStringLiteral("select '%1' as words union all select 'short'").arg(words));
    const QList<TextRun> runs = RunsOf(document, 0, s("Row"));
    ASSERT_GE(runs.size(), 4);
    const qsizetype lines = runs.size() - 1;
    const double growth = double(lines - 1) * ReportText::LinePitch(text.Font);
    QStringList read;
    for (qsizetype line = 0; line < lines; ++line) {
        EXPECT_LE(runs[line].Width, 300);
        EXPECT_EQ(runs[line].Continues, line + 1 < lines);
        read.append(runs[line].Text);
    }
    EXPECT_EQ(read.join(u' '), words);
    EXPECT_EQ(runs.last().Text, s("short"));
    EXPECT_DOUBLE_EQ(runs.last().Place.top(), 150 + 100 + growth);
    for (const Primitive& primitive : document.PageAt(0).Primitives) {
        if (const auto* line = std::get_if<LineStroke>(&primitive)) {
            EXPECT_DOUBLE_EQ(line->From.y(), 150 + 90 + growth);
            break;
        }
    }
    for (const Primitive& primitive : document.PageAt(0).Primitives) {
        if (const auto* frame = std::get_if<BoxShape>(&primitive)) {
            EXPECT_EQ(frame->Place, QRectF(240, 150, 400, 60 + growth));
            break;
        }
    }
}

TEST_F(PaginatorTest, ATextThatMayNotGrowShrinksUntilItFits)
{
    SectionOf(design, SectionKind::Details).Objects.first().Place = QRectF(0, 0, 100, 50);
    const Document document = layOut(s("select 123456789012 as n"));
    const TextRun run = RunsOf(document, s("Row")).first();
    EXPECT_EQ(run.Text, s("123456789012"));
    EXPECT_LE(run.Width, 100);
    EXPECT_LT(run.Font.pixelSize(), 35);
}

TEST_F(PaginatorTest, ASectionTallerThanAPageGoesOnOnTheNextWithoutLoss)
{
    ReportSection& details = SectionOf(design, SectionKind::Details);
    ReportObject& text = details.Objects.first();
    text.Source = ColumnSource("words");
    text.CanGrow = true;
    text.Place = QRectF(0, 0, 200, 50);
    const Document document = layOut(s("select replace(hex(zeroblob(60)), '00', 'word ') as words"
                                       " union all select 'after'"));
    ASSERT_GE(document.PageCount(), 2);
    QStringList read;
    for (const TextRun& run : RunsOf(document, s("Row"))) {
        EXPECT_LE(run.Place.bottom(), 1050 + 0.01);
        read.append(run.Text.trimmed());
    }
    EXPECT_EQ(read.takeLast(), s("after"));
    EXPECT_EQ(read.join(u' ').split(u' ').count(s("word")), 60);
}

TEST_F(PaginatorTest, HeadersThatLeaveNoRoomAreRefused)
{
    SectionOf(design, SectionKind::PageHeader).Height = 2000;
    EXPECT_THROW(layOut(Counted(1)).PageCount(), Failure);
}

TEST_F(PaginatorTest, SuppressedSectionsAndObjectsTakeNoPart)
{
    SectionOf(design, SectionKind::PageHeader).Suppress = true;
    SectionOf(design, SectionKind::PageFooter).Objects.first().Suppress = true;
    ReportSection& details = SectionOf(design, SectionKind::Details);
    for (const ObjectKind kind : {ObjectKind::Line, ObjectKind::Box, ObjectKind::Text}) {
        ReportObject hidden;
        hidden.Kind = kind;
        hidden.Place = QRectF(0, 0, 500, 300);
        hidden.BackColor = 255;
        hidden.Suppress = true;
        details.Objects.append(hidden);
    }
    const Document document = layOut(Counted(1));
    EXPECT_EQ(Shown(document, 0), QStringList({s("Row: 1")}));
    EXPECT_EQ(document.PageAt(0).Primitives.size(), 1);
    EXPECT_EQ(document.PageAt(0).Texts().first().Place.top(), 100);
}

TEST_F(PaginatorTest, ASuppressedFooterLeavesItsRoomToTheRows)
{
    SectionOf(design, SectionKind::PageFooter).Height = 200;
    SectionOf(design, SectionKind::PageFooter).Suppress = true;
    const Document document = layOut(Counted(12));
    // 950 of 1000 are for rows of 100.
    EXPECT_EQ(RunsOf(document, 0, s("Row")).size(), 9);
    SectionOf(design, SectionKind::PageFooter).Suppress = false;
    EXPECT_EQ(RunsOf(layOut(Counted(12)), 0, s("Row")).size(), 7);
}

TEST_F(PaginatorTest, AGroupThatHasEndedIsNotHeadedAgain)
{
    group(100, 50);
    SectionOf(design, SectionKind::GroupHeader).Repeat = true;
    design.Sections += TextSection(SectionKind::ReportFooter, "End", 300, "end");
    design.Sections.last().KeepWithRows = false;
    // Header, 7 rows and footer take 850 of 900: the report's footer goes to the next page.
    const Document document = layOut(Counted(7, 7));
    ASSERT_EQ(document.PageCount(), 2);
    EXPECT_EQ(Shown(document, 1),
              QStringList({s("PageHeader: head"), s("End: end"), s("PageFooter: 2 of 2")}));
}

TEST_F(PaginatorTest, AGroupThatBeginsAPageIsHeadedOnce)
{
    group(100, 50);
    SectionOf(design, SectionKind::GroupHeader).Repeat = true;
    // Group 0: header, 7 rows and footer take 850 of 900.
    const Document document = layOut(Counted(14, 7));
    ASSERT_EQ(document.PageCount(), 2);
    EXPECT_EQ(Shown(document, 1).mid(0, 3),
              QStringList({s("PageHeader: head"), s("GroupHeader: 1"), s("Row: 8")}));
}

TEST_F(PaginatorTest, AmountsStandByTheirDecimalPointAndNullsAreEmpty)
{
    SectionOf(design, SectionKind::Details).Objects.first().Format = ValueFormat::Amount;
    const Document document = layOut(s("select 5 as n union all select 1234567.5 union all"
                                       " select -20.25 union all select null union all"
                                       " select 0.125"));
    const QList<TextRun> runs = RunsOf(document, s("Row"));
    ASSERT_EQ(runs.size(), 4);
    EXPECT_EQ(runs[0].Text, s("5"));
    EXPECT_EQ(runs[1].Text, s("1,234,567.50"));
    EXPECT_EQ(runs[2].Text, s("-20.25"));
    EXPECT_EQ(runs[3].Text, s("0.125"));
    const double point = runs[0].Origin.x() + ReportText::Width(runs[0].Text, runs[0].Font);
    // Two decimals end at the edge.
    EXPECT_NEAR(point + ReportText::Width(s(".00"), runs[0].Font), 1240, 0.5);
    for (const TextRun& run : runs) {
        const QString whole = run.Text.section(u'.', 0, 0);
        EXPECT_NEAR(run.Origin.x() + ReportText::Width(whole, run.Font), point, 0.5)
            << run.Text.toStdString();
        EXPECT_NEAR(run.Width, ReportText::Width(run.Text, run.Font), 0.01)
            << run.Text.toStdString();
        EXPECT_LE(run.Origin.x() + run.Width, 1240 + 0.5) << run.Text.toStdString();
    }
    // Only what has no room behind the point is set smaller, and no smaller than it has to be.
    for (const int full : {0, 1, 2})
        EXPECT_EQ(runs[full].Font.pixelSize(), 35) << runs[full].Text.toStdString();
    EXPECT_LT(runs[3].Font.pixelSize(), 35);
    EXPECT_GE(runs[3].Font.pixelSize(), 35 * 2 / 3);
}

TEST_F(PaginatorTest, AnAmountThatIsWiderThanItsColumnIsSetSmallerUntilItFits)
{
    ReportObject& field = SectionOf(design, SectionKind::Details).Objects.first();
    field.Format = ValueFormat::Amount;
    field.Place = QRectF(100, 0, 200, 100);
    const Document document =
        layOut(s("select 1234.5 as n union all select 123456789012.25 union all"
                 " select -98765432109"));
    const QList<TextRun> runs = RunsOf(document, s("Row"));
    ASSERT_EQ(runs.size(), 3);
    EXPECT_EQ(runs[0].Font.pixelSize(), 35);
    EXPECT_EQ(runs[1].Text, s("123,456,789,012.25"));
    EXPECT_EQ(runs[2].Text, s("-98,765,432,109"));
    for (const TextRun& run : {runs[1], runs[2]}) {
        EXPECT_LT(run.Font.pixelSize(), 35) << run.Text.toStdString();
        EXPECT_GT(run.Font.pixelSize(), 15) << run.Text.toStdString();
        EXPECT_GE(run.Origin.x(), 340 - 0.5) << run.Text.toStdString();
        EXPECT_LE(run.Origin.x() + run.Width, 540 + 0.5) << run.Text.toStdString();
    }
}

TEST_F(PaginatorTest, QuantitiesStandByTheirDecimalPointWithRoomForOneDecimal)
{
    SectionOf(design, SectionKind::Details).Objects.first().Format = ValueFormat::Quantity;
    const Document document = layOut(s("select 3 as n union all select 1000 union all"
                                       " select 2.5 union all select 0.25"));
    const QList<TextRun> runs = RunsOf(document, s("Row"));
    ASSERT_EQ(runs.size(), 4);
    QStringList texts;
    for (const TextRun& run : runs) {
        texts.append(run.Text);
        const QString whole = run.Text.section(u'.', 0, 0);
        EXPECT_NEAR(run.Origin.x() + ReportText::Width(whole, run.Font),
                    1240 - ReportText::Width(s(".0"), runs[0].Font), 0.5)
            << run.Text.toStdString();
    }
    EXPECT_EQ(texts, QStringList({s("3"), s("1,000"), s("2.5"), s("0.25")}));
    for (const int full : {0, 1, 2})
        EXPECT_EQ(runs[full].Font.pixelSize(), 35) << texts[full].toStdString();
    EXPECT_LT(runs[3].Font.pixelSize(), 35);
}

TEST_F(PaginatorTest, ATextStandsAtTheSideThatItsObjectNames)
{
    ReportObject& text = SectionOf(design, SectionKind::PageHeader).Objects.first();
    const auto left = [&](Qt::Alignment side) {
        text.Alignment = side;
        const TextRun run = RunsOf(layOut(Counted(1)), s("PageHeader")).first();
        EXPECT_NEAR(run.Width, ReportText::Width(s("head"), run.Font), 0.01);
        EXPECT_EQ(run.Font.pixelSize(), 35);
        return run.Origin.x();
    };
    const double width = ReportText::Width(s("head"), text.Font);
    EXPECT_NEAR(left(Qt::AlignLeft), 240, 0.01);
    EXPECT_NEAR(left(Qt::AlignHCenter), 740 - width / 2, 0.01);
    EXPECT_NEAR(left(Qt::AlignRight), 1240 - width, 0.01);
}

TEST_F(PaginatorTest, RowsThatAreClosedMeanwhileFailClearly)
{
    const Document document = layOut(Counted(100));
    EXPECT_TRUE(document.HasPage(0));
    rows->Close();
    try {
        document.PageCount();
        FAIL() << "read closed rows";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Description(), s("The rows of the report have been closed."));
    }
    // What was laid out is still there.
    EXPECT_EQ(RunsOf(document, 0, s("Row")).size(), 9);
}

TEST_F(PaginatorTest, RowsOfAnotherStatementAreNotMixedIn)
{
    const Document document = layOut(Counted(100));
    EXPECT_TRUE(document.HasPage(0));
    for (const int other : {50, 200}) {
        rows->Close();
        rows->Open(Statement(Counted(other)), connection);
        try {
            document.PageCount();
            FAIL() << "read other rows";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Description(), s("The rows of the report have changed."));
        }
    }
}

TEST_F(PaginatorTest, AnUnknownColumnIsNamed)
{
    SectionOf(design, SectionKind::Details).Objects.first().Source = ColumnSource("nowhere");
    try {
        layOut(Counted(1)).PageCount();
        FAIL() << "found the column";
    } catch (const Failure& failure) {
        EXPECT_TRUE(failure.Description().contains(s("nowhere")));
    }
}

} // namespace tests
