// No caption is clipped, nothing overlaps, and every window fits on the smallest screen.

#include "house/CaptionRules.h"

#include "controls/Look.h"
#include "reports/RptReportViewer.h"
#include "support/GatePassDesk.h"
#include "support/SearchDesk.h"
#include "support/Text.h"

#include <QFontDatabase>
#include <QProcess>
#include <QtTest>

namespace tests {

namespace {

constexpr const char* ScaleVariable = "QT_SCALE_FACTOR";

/// Set where a certain font must be in use, lest the tests run on another one unnoticed.
constexpr const char* UrduFontVariable = "CAPTIONS_URDU_FONT";

double wantedScale()
{
    return qEnvironmentVariable(ScaleVariable, s("1")).toDouble();
}

/// The smallest screens that the program has to do with, in logical pixels.
QSize smallestScreen()
{
    return wantedScale() > 1 ? QSize(1920, 1080) / wantedScale() : QSize(1366, 768);
}

void expectNothingClipped(QWidget& window)
{
    ASSERT_TRUE(window.isVisible());
    QCoreApplication::processEvents(); // what is to be laid out anew is laid out now
    const QStringList violations = captionViolations(window, smallestScreen());
    EXPECT_TRUE(violations.isEmpty()) << qPrintable(violations.join(u'\n'));
}

/// Runs the tests of this file with other settings. Scale and fonts hold for a whole program from
/// its start, hence in a process of its own.
void expectWholeUnder(const QList<std::pair<const char*, QString>>& settings)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [variable, value] : settings)
        environment.insert(QString::fromLatin1(variable), value);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {s("--gtest_filter=CaptionsTest.*:CaptionRulesTest.*:Of/SearchCaptionsTest.*")});
    ASSERT_TRUE(process.waitForFinished(120'000));
    const QString printed = QString::fromUtf8(process.readAll());
    EXPECT_TRUE(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        << qPrintable(printed);
    for (const char* ran :
         {"CaptionsTest.OfAnOpenedGatePassAreWhole",
          "Of/SearchCaptionsTest.AreWhole/SchInsCustomer",
          "CaptionsTest.OfTheChoiceOfCopiesAreWhole", "CaptionsTest.OfTheReportInViewAreWhole",
          "CaptionRulesTest.FindALabelThatIsTooNarrow"})
        EXPECT_TRUE(printed.contains(s("[       OK ] ") + s(ran))) << ran << qPrintable(printed);
}

class CaptionsTest : public GatePassDesk {
protected:
    void SetUp() override
    {
        ASSERT_EQ(qApp->devicePixelRatio(), wantedScale());
        const QString font = Look::UrduFont().families().constFirst();
        ASSERT_EQ(font, qEnvironmentVariable(UrduFontVariable, font)) << qPrintable(font);
    }
};

class SearchCaptionsTest : public SearchDesk,
                           public ::testing::WithParamInterface<const SearchDeclaration*> {};

INSTANTIATE_TEST_SUITE_P(Of, SearchCaptionsTest, ::testing::ValuesIn(AllSearchDialogs()),
                         NameOfDialog);

/// A window on which a test places what it likes.
class CaptionRulesTest : public ::testing::Test {
protected:
    CaptionRulesTest()
    {
        window.setWindowFlag(Qt::FramelessWindowHint);
        window.resize(400, 300);
    }

    QLabel& place(const char* text, const QRect& at, QWidget* parent = nullptr)
    {
        auto& label = *new QLabel(s(text), parent ? parent : &window);
        label.setGeometry(at);
        return label;
    }

    /// The one thing that is wrong, or all of them in lines.
    QString violation(const QSize& screen = QSize(1366, 768))
    {
        window.show();
        return captionViolations(window, screen).join(u'\n');
    }

    QWidget window;
};

} // namespace

TEST_F(CaptionsTest, OfANewGatePassAreWhole)
{
    Open();
    ASSERT_EQ(It().FormState(), VoucherForm::State::New);
    expectNothingClipped(It());
}

TEST_F(CaptionsTest, OfAnEditedGatePassAreWhole)
{
    Open();
    EnterHeader();
    EnterRow(s("101"), s("3"), s("1"), s("2"));
    ASSERT_EQ(It().FormState(), VoucherForm::State::Edited);
    expectNothingClipped(It());
}

TEST_F(CaptionsTest, OfARowThatIsBeingEnteredWithItsStockAreWhole)
{
    Open();
    EnterHeader();
    Enter(s("101"));
    Enter(s("12"));
    ASSERT_TRUE(It().LblStock.IsVisible());
    expectNothingClipped(It());
}

TEST_F(CaptionsTest, OfAnOpenedGatePassAreWhole)
{
    Open();
    OpenStored(Stored());
    ASSERT_EQ(It().FormState(), VoucherForm::State::Opened);
    expectNothingClipped(It());
}

TEST_P(SearchCaptionsTest, AreWhole)
{
    Look(
        *GetParam(),
        [](SearchWindow& window) {
            EXPECT_GT(window.List().RowCount(), 0);
            Press(window, Qt::Key_Down);
            Press(window, Qt::Key_Down); // what tells of the current row stands there
            expectNothingClipped(window);
        });
}

TEST_F(CaptionsTest, OfTheChoiceOfCopiesAreWhole)
{
    Open();
    OpenStored(Stored());
    dialogs.Expect([](Form& dialog) {
        expectNothingClipped(dialog);
        Press(dialog, Qt::Key_Escape);
    });
    Ctrl(Qt::Key_P);
}

TEST_F(CaptionsTest, OfTheReportInViewAreWhole)
{
    Open();
    OpenStored(Stored());
    dialogs.Expect(Cancel());
    Ctrl(Qt::Key_P);
    RptReportViewer& viewer = RptReportViewer::Shared();
    viewer.Show();
    viewer.TxtSearch.SetText(s("Gate"));
    ASSERT_GT(viewer.CRViewer1.HitCount(), 0);
    expectNothingClipped(viewer);
    viewer.TxtSearch.SetText(s("nowhere"));
    expectNothingClipped(viewer);
    viewer.Unload();
}

TEST(CaptionsElsewhere, AreWholeAtOneAndAHalf)
{
    expectWholeUnder({{ScaleVariable, s("1.5")}});
}

TEST(CaptionsElsewhere, AreWholeInNastaliqWithItsTallLines)
{
    const QString nastaliq = s("Noto Nastaliq Urdu");
    const QString settings = s("/etc/fonts/fonts.conf");
    if (!QFontDatabase::hasFamily(nastaliq) || !QFile::exists(settings))
        GTEST_SKIP() << "Needs the font and fontconfig, to take the preferred font away";
    QTemporaryFile withoutNaskh;
    ASSERT_TRUE(withoutNaskh.open());
    withoutNaskh.write("<?xml version='1.0'?><!DOCTYPE fontconfig SYSTEM 'fonts.dtd'>"
                       "<fontconfig><include>/etc/fonts/fonts.conf</include><selectfont>"
                       "<rejectfont><pattern><patelt name='family'>"
                       "<string>Noto Naskh Arabic</string>"
                       "</patelt></pattern></rejectfont></selectfont></fontconfig>");
    withoutNaskh.close();
    expectWholeUnder({{"FONTCONFIG_FILE", withoutNaskh.fileName()}, {UrduFontVariable, nastaliq}});
}

TEST_F(CaptionRulesTest, LetAWindowPassOnWhichAllIsWhole)
{
    place("Gate pass no", QRect(10, 10, 200, 40));
    place("گیٹ پاس", QRect(10, 50, 200, 40)); // touches the one above
    auto& field = *new Txt(s("TxtAreaCode"), s("Area code"), &window);
    field.setGeometry(10, 100, 100, 40);
    field.SetText(s("Lahore"));
    field.setSelection(1, 3);
    EXPECT_TRUE(violation().isEmpty()) << qPrintable(violation());
}

TEST_F(CaptionRulesTest, FindALabelThatIsTooNarrow)
{
    place("Gate pass no", QRect(10, 10, 30, 40));
    EXPECT_TRUE(violation().contains(s("the text 'Gate pass no' takes")));
}

TEST_F(CaptionRulesTest, FindALabelThatIsTooLow)
{
    place("گیٹ", QRect(10, 10, 200, 8));
    EXPECT_TRUE(violation().contains(s("the text 'گیٹ' takes")));
}

TEST_F(CaptionRulesTest, FindAButtonThatIsTooNarrow)
{
    auto& button = *new JeweledButton(s("BtnSave"), s("محفوظ"), s("Save"), s("Ctrl+S"),
                                      JeweledButton::Kind::Plain, &window);
    button.setGeometry(10, 10, 40, 60);
    EXPECT_TRUE(violation().contains(s("JeweledButton BtnSave: the text 'Save Ctrl+S' takes")));
}

TEST_F(CaptionRulesTest, FindATextThatIsLongerThanItsField)
{
    auto& field = *new Txt(s("TxtAreaCode"), s("Area code"), &window);
    field.setGeometry(10, 10, 60, 40);
    field.SetText(s("Kot Radha Kishan"));
    EXPECT_TRUE(violation().contains(s("Txt TxtAreaCode: the text 'Kot Radha Kishan' takes")));
}

TEST_F(CaptionRulesTest, FindAColumnThatIsTooNarrowForItsCaption)
{
    auto& grid = *new Grid(s("Grid"), &window);
    grid.setGeometry(10, 10, 380, 200);
    grid.SetColumns(
        {GridColumn{.Name = s("Old"), .Caption = {"واپس پرانا", "Returned old"}, .Width = 20}});
    const QString found = violation();
    EXPECT_TRUE(found.contains(s("the text 'Returned old' takes"))) << qPrintable(found);
    EXPECT_TRUE(found.contains(s("the text 'واپس"))) << qPrintable(found);
}

TEST_F(CaptionRulesTest, FindColumnsBeyondTheEdgeOfTheirList)
{
    auto& grid = *new Grid(s("Grid"), &window);
    grid.setGeometry(10, 10, 300, 200);
    grid.SetColumns({GridColumn{.Name = s("ID"), .Caption = {"کوڈ", "Code"}, .Width = 300},
                     GridColumn{.Name = s("Name"), .Caption = {"نام", "Name"}, .Width = 300}});
    EXPECT_TRUE(violation().contains(s("Grid Grid: the columns take 600 pixels")));
}

TEST_F(CaptionRulesTest, LeaveTheCellsOfAListAlone)
{
    auto& grid = *new Grid(s("Grid"), &window);
    grid.setGeometry(10, 10, 300, 200);
    grid.SetColumns({GridColumn{.Name = s("ID"), .Caption = {"کوڈ", "Code"}, .Width = 100}});
    grid.SetCell(grid.AddRow(), s("ID"), s("A code that is much longer than its column"));
    EXPECT_TRUE(violation().isEmpty()) << qPrintable(violation());
}

TEST_F(CaptionRulesTest, FindTwoWidgetsThatOverlap)
{
    place("Driver", QRect(10, 10, 100, 40)).setObjectName(s("Label1"));
    place("Area", QRect(100, 40, 100, 40)).setObjectName(s("Label2"));
    const QString found = violation();
    EXPECT_TRUE(found.contains(s("QLabel Label1: overlaps QWidget / QLabel Label2")))
        << qPrintable(found);
}

TEST_F(CaptionRulesTest, FindAWidgetThatReachesOutOfItsParent)
{
    QWidget strip(&window);
    strip.setGeometry(10, 10, 200, 40);
    place("Driver", QRect(150, 0, 100, 40), &strip);
    EXPECT_TRUE(violation().contains(s("reaches out of its parent")));
}

TEST_F(CaptionRulesTest, LeaveOutWhatIsHidden)
{
    place("Gate pass no", QRect(10, 10, 30, 40)).hide();
    EXPECT_TRUE(violation().isEmpty()) << qPrintable(violation());
}

TEST_F(CaptionRulesTest, FindAWindowThatIsLargerThanTheScreen)
{
    EXPECT_TRUE(violation(QSize(300, 400)).contains(s("does not fit on 300x400")));
    EXPECT_TRUE(violation(QSize(400, 300)).isEmpty());
}

} // namespace tests
