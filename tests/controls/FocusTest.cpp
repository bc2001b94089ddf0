#include "Desk.h"

#include <stdexcept>

namespace TradeForms {

using FocusTest = DeskTest;

namespace {

const std::function<void(bool&)> refuse = [](bool& cancel) { cancel = true; };

QStringList moved(const char* from, const char* to)
{
    return {s("%1.Validate(%1)").arg(s(from)), s("%1.LostFocus(%2)").arg(s(from), s(to)),
            s("%1.GotFocus(%1)").arg(s(to))};
}

} // namespace

TEST(FormShown, FirstTabStopGetsTheFocus)
{
    Desk desk;
    desk.A.SetEnabled(false);
    Activate(desk);
    EXPECT_TRUE(desk.IsActive(desk.B));
    EXPECT_TRUE(desk.B.hasFocus());
    EXPECT_EQ(desk.TakeLog(), QStringList{s("TxtB.GotFocus(TxtB)")});
}

TEST(FormShown, FocusSetBeforeShowingStays)
{
    Desk desk;
    EXPECT_TRUE(desk.SetFocus(desk.C));
    EXPECT_TRUE(desk.IsActive(desk.C));
    Activate(desk);
    EXPECT_TRUE(desk.C.hasFocus());
    EXPECT_EQ(desk.TakeLog(), QStringList{s("TxtC.GotFocus(TxtC)")});
}

TEST(FormShown, AgainAfterUnloadIsAFreshShowing)
{
    Desk desk;
    desk.ShowModeless(false);
    desk.SetFocus(desk.C);
    EXPECT_TRUE(desk.Unload());
    EXPECT_EQ(desk.ActiveControl(), nullptr);
    desk.TakeLog();
    Activate(desk);
    EXPECT_TRUE(desk.IsActive(desk.A));
    EXPECT_EQ(desk.TakeLog(), QStringList{s("TxtA.GotFocus(TxtA)")});
}

TEST_F(FocusTest, TabValidatesThenMovesThenLosesThenGets)
{
    Press(desk, Qt::Key_Tab);
    EXPECT_EQ(desk.TakeLog(), moved("TxtA", "TxtB"));
    EXPECT_TRUE(desk.B.hasFocus());
}

TEST_F(FocusTest, BacktabGoesTheOtherWay)
{
    Press(desk, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(desk.TakeLog(), moved("TxtA", "Grid"));
}

TEST_F(FocusTest, TabPassesDisabledHiddenAndUnstoppedControls)
{
    desk.B.SetEnabled(false);
    desk.C.SetVisible(false);
    desk.Date.SetTabStop(false);
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.Btn));
    Press(desk, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(IsActive(desk.A));
}

TEST_F(FocusTest, TabLeavesTheGridAndTheDateAndComesRound)
{
    desk.SetFocus(desk.Date);
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.Btn));
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.Rows));
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.A));
}

TEST_F(FocusTest, TabWalksOnlyTheGivenOrder)
{
    desk.SetTabOrderOf({&desk.C, &desk.A});
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.C));
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.A));
}

TEST_F(FocusTest, RefusedTabMovesNothing)
{
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += [this](bool& cancel) {
        desk.Note(desk.ActiveControl()->Name());
        cancel = true;
    };
    Press(desk, Qt::Key_Tab);
    EXPECT_EQ(desk.TakeLog(), QStringList{s("TxtA")});
    EXPECT_TRUE(IsActive(desk.A));
    EXPECT_TRUE(desk.A.hasFocus());
}

TEST_F(FocusTest, RefusedMousePressMovesNothingAndClicksNothing)
{
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += refuse;
    Click(desk, desk.Btn);
    EXPECT_EQ(desk.TakeLog(), QStringList{});
    EXPECT_TRUE(IsActive(desk.A));
    EXPECT_FALSE(desk.Btn.isDown());
}

TEST_F(FocusTest, RefusedDoubleClickIsAskedOncePerPress)
{
    int asked = 0;
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += [&](bool& cancel) {
        ++asked;
        cancel = true;
    };
    desk.B.SetText(s("word"));
    DoubleClick(desk, desk.B);
    EXPECT_EQ(asked, 2);
    EXPECT_TRUE(IsActive(desk.A));
    EXPECT_FALSE(desk.B.hasSelectedText());
}

TEST_F(FocusTest, AcceptedDoubleClickReachesTheField)
{
    desk.B.SetText(s("wordwordwordwordwordwordwordwordword"));
    DoubleClick(desk, desk.B);
    EXPECT_EQ(desk.TakeLog(), moved("TxtA", "TxtB"));
    EXPECT_TRUE(desk.B.hasSelectedText());
}

TEST_F(FocusTest, ClickOnAButtonMovesTheFocusThenClicks)
{
    Click(desk, desk.Btn);
    EXPECT_EQ(desk.TakeLog(), moved("TxtA", "BtnB") << s("BtnB.Click"));
}

TEST_F(FocusTest, ClickStillReachesTheButtonWhereLostFocusMovesOn)
{
    desk.A.OnLostFocus.Clear();
    desk.A.OnLostFocus += [this] { desk.SetFocus(desk.C); };
    desk.Btn.OnValidate.Clear();
    Click(desk, desk.Btn);
    EXPECT_EQ(desk.TakeLog(),
              (QStringList{s("TxtA.Validate(TxtA)"), s("TxtC.GotFocus(TxtC)"), s("BtnB.Click")}));
    EXPECT_TRUE(IsActive(desk.C));
    EXPECT_TRUE(desk.C.hasFocus());
}

TEST_F(FocusTest, RightPressFollowsTheSameRule)
{
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += refuse;
    Click(desk, desk.Rows, Qt::RightButton);
    EXPECT_TRUE(IsActive(desk.A));
    desk.A.OnValidate.Clear();
    Click(desk, desk.Rows, Qt::RightButton);
    EXPECT_TRUE(IsActive(desk.Rows));
}

TEST_F(FocusTest, PressOnDisabledControlLabelAndBackgroundValidatesNothing)
{
    desk.B.SetEnabled(false);
    Click(desk, desk.B);
    Click(desk, desk.Words);
    Click(desk, QPoint(10, 10));
    EXPECT_EQ(desk.TakeLog(), QStringList{});
    EXPECT_TRUE(desk.A.hasFocus());
}

TEST_F(FocusTest, PressOnAScrollBarOrHeaderDoesNotEnterTheGrid)
{
    desk.Rows.SetColumns({{s("ID"), {"کوڈ", "Code"}}});
    for (int i = 0; i < 100; ++i)
        desk.Rows.AddRow();
    const auto* bar = desk.Rows.verticalScrollBar();
    ASSERT_TRUE(QTest::qWaitFor([bar] { return bar->isVisible(); }));
    Click(desk, bar->mapTo(&desk, bar->rect().center()));
    const auto* header = desk.Rows.horizontalHeader();
    Click(desk, header->mapTo(&desk, header->rect().center()));
    EXPECT_EQ(desk.TakeLog(), QStringList{});
    EXPECT_TRUE(desk.A.hasFocus());
}

TEST_F(FocusTest, ClickIntoTheActiveControlIsNoChange)
{
    Click(desk, desk.A);
    EXPECT_EQ(desk.TakeLog(), QStringList{});
}

TEST_F(FocusTest, ControlWithoutTabStopIsStillClicked)
{
    desk.B.SetTabStop(false);
    Click(desk, desk.B);
    EXPECT_TRUE(IsActive(desk.B));
}

TEST_F(FocusTest, TargetThatCausesNoValidationIsReachedUnasked)
{
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += refuse;
    desk.Btn.CausesValidation = false;
    Click(desk, desk.Btn);
    EXPECT_EQ(desk.TakeLog(),
              (QStringList{s("TxtA.LostFocus(BtnB)"), s("BtnB.GotFocus(BtnB)"), s("BtnB.Click")}));
}

TEST_F(FocusTest, AButtonThatSparesOneCheckIsStillHeldBackByTheOthers)
{
    desk.Btn.SparesValidationOf = &desk.A;
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += refuse;
    desk.B.OnValidate.Clear();
    desk.B.OnValidate += refuse;
    Click(desk, desk.Btn);
    EXPECT_EQ(desk.TakeLog(),
              (QStringList{s("TxtA.LostFocus(BtnB)"), s("BtnB.GotFocus(BtnB)"), s("BtnB.Click")}));
    desk.ResetFocus(desk.B);
    desk.TakeLog();
    Click(desk, desk.Btn);
    EXPECT_EQ(desk.TakeLog(), QStringList{});
    EXPECT_TRUE(IsActive(desk.B));
}

TEST_F(FocusTest, SetFocusObeysValidation)
{
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += refuse;
    EXPECT_FALSE(desk.SetFocus(desk.B));
    EXPECT_TRUE(IsActive(desk.A));
    desk.A.OnValidate.Clear();
    EXPECT_TRUE(desk.SetFocus(desk.B));
    EXPECT_EQ(desk.TakeLog(), (QStringList{s("TxtA.LostFocus(TxtB)"), s("TxtB.GotFocus(TxtB)")}));
}

TEST_F(FocusTest, SetFocusToTheActiveControlIsTrueAndAsksNothing)
{
    EXPECT_TRUE(desk.SetFocus(desk.A));
    EXPECT_EQ(desk.TakeLog(), QStringList{});
}

TEST_F(FocusTest, SetFocusFailsOnWhatCannotTakeIt)
{
    desk.B.SetEnabled(false);
    desk.C.SetVisible(false);
    EXPECT_FALSE(desk.SetFocus(desk.B));
    EXPECT_FALSE(desk.SetFocus(desk.C));
    EXPECT_FALSE(desk.SetFocus(desk.Words));
    desk.Date.SetVisible(true);
    EXPECT_EQ(desk.TakeLog(), QStringList{});
    EXPECT_TRUE(desk.A.hasFocus());
}

TEST_F(FocusTest, ResetFocusAsksAndTellsNobodyThatIsLeft)
{
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += refuse;
    EXPECT_TRUE(desk.ResetFocus(desk.B));
    EXPECT_EQ(desk.TakeLog(), QStringList{s("TxtB.GotFocus(TxtB)")});
    EXPECT_TRUE(desk.B.hasFocus());
}

TEST_F(FocusTest, SetFocusWithinValidateMovesWithoutAskingAgain)
{
    int asked = 0;
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += [&](bool&) {
        ++asked;
        EXPECT_TRUE(desk.SetFocus(desk.C));
    };
    Press(desk, Qt::Key_Tab);
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(IsActive(desk.C));
    EXPECT_EQ(desk.TakeLog(), (QStringList{s("TxtA.LostFocus(TxtC)"), s("TxtC.GotFocus(TxtC)")}));
}

TEST_F(FocusTest, SetFocusInLostFocusPassesOverTheNewControl)
{
    desk.A.OnLostFocus.Clear();
    desk.A.OnLostFocus += [this] { desk.SetFocus(desk.Date); };
    Press(desk, Qt::Key_Tab);
    EXPECT_EQ(desk.TakeLog(), (QStringList{s("TxtA.Validate(TxtA)"), s("TxtB.Validate(TxtB)"),
                                           s("DtpDate.GotFocus(DtpDate)")}));
    EXPECT_TRUE(desk.Date.hasFocus());
}

TEST_F(FocusTest, SetFocusInGotFocusMovesOn)
{
    desk.B.OnGotFocus.Clear();
    desk.B.OnGotFocus += [this] { desk.SetFocus(desk.C); };
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.C));
    EXPECT_TRUE(desk.C.hasFocus());
    EXPECT_EQ(desk.TakeLog().last(), s("TxtC.GotFocus(TxtC)"));
}

TEST_F(FocusTest, BackFromLostFocusReturnsTheFocus)
{
    desk.A.OnLostFocus.Clear();
    desk.A.OnLostFocus += [this] { desk.SetFocus(desk.A); };
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(desk.A.hasFocus());
    EXPECT_TRUE(IsActive(desk.A));
}

TEST_F(FocusTest, TargetDisabledByValidationIsPassed)
{
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += [this](bool&) { desk.B.SetEnabled(false); };
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.C));
}

TEST_F(FocusTest, DisablingTheActiveControlMovesOnUnvalidated)
{
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += refuse;
    desk.A.SetEnabled(false);
    EXPECT_TRUE(IsActive(desk.B));
    EXPECT_TRUE(desk.B.hasFocus());
    EXPECT_EQ(desk.TakeLog(), (QStringList{s("TxtA.LostFocus(TxtB)"), s("TxtB.GotFocus(TxtB)")}));
}

TEST_F(FocusTest, HidingTheActiveControlMovesOnUnvalidated)
{
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += refuse;
    desk.A.SetVisible(false);
    EXPECT_TRUE(IsActive(desk.B));
    EXPECT_TRUE(desk.B.hasFocus());
}

TEST_F(FocusTest, ControlThatWasLeftMayBeDisabled)
{
    desk.B.OnGotFocus.Clear();
    desk.B.OnGotFocus += [this] { desk.A.SetEnabled(false); };
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.B));
    EXPECT_TRUE(desk.B.hasFocus());
}

TEST_F(FocusTest, NewControlDisabledInLostFocusIsPassed)
{
    desk.A.OnLostFocus.Clear();
    desk.A.OnLostFocus += [this] { desk.B.SetEnabled(false); };
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.C));
    EXPECT_TRUE(desk.C.hasFocus());
    EXPECT_EQ(desk.TakeLog(), (QStringList{s("TxtA.Validate(TxtA)"), s("TxtC.GotFocus(TxtC)")}));
}

TEST_F(FocusTest, ButtonThatDisablesItselfPassesTheFocusOn)
{
    desk.Btn.OnClick.Clear();
    desk.Btn.OnClick += [this] { desk.Btn.SetEnabled(false); };
    Click(desk, desk.Btn);
    EXPECT_TRUE(IsActive(desk.Rows));
    EXPECT_TRUE(desk.Rows.hasFocus());
    EXPECT_EQ(desk.TakeLog(), moved("TxtA", "BtnB")
                                  << s("BtnB.LostFocus(Grid)") << s("Grid.GotFocus(Grid)"));
}

TEST_F(FocusTest, ModalBoxInLostFocusComesBetweenTheSteps)
{
    const Message message{s("Enter Product ID."), MsgIcon::Exclamation, s("Alert")};
    desk.A.OnLostFocus.Clear();
    desk.A.OnLostFocus += [&] {
        MsgBox(&desk, message);
        desk.SetFocus(desk.A);
    };
    desk.B.OnValidate.Clear();
    boxes.Expect(message, MsgAnswer::Ok, [this] { EXPECT_TRUE(IsActive(desk.B)); });
    Press(desk, Qt::Key_Tab);
    EXPECT_TRUE(IsActive(desk.A));
    EXPECT_TRUE(desk.A.hasFocus());
}

TEST_F(FocusTest, DateTypedInPartBecomesTheValueBeforeValidation)
{
    desk.Date.SetValue(QDate(2026, 11, 21));
    desk.SetFocus(desk.Date);
    desk.TakeLog();
    desk.Date.OnChange.Clear();
    desk.Date.OnChange += [this] { desk.Note(s("changed")); };
    Type(desk, "5");
    Press(desk, Qt::Key_Tab);
    EXPECT_EQ(desk.Date.Value(), QDate(2026, 11, 5));
    EXPECT_EQ(desk.TakeLog(), QStringList{s("changed")} << moved("DtpDate", "BtnB"));
}

TEST_F(FocusTest, FailureInEachHandlerEndsInHandlerFailed)
{
    const auto fail = [](const char* what) { return [what] { throw std::runtime_error(what); }; };
    desk.A.OnValidate.Clear();
    desk.A.OnValidate += [](bool&) { throw std::runtime_error("validate"); };
    desk.A.OnLostFocus.Clear();
    desk.A.OnLostFocus += fail("lost");
    desk.Btn.OnGotFocus.Clear();
    desk.Btn.OnGotFocus += fail("got");
    desk.Btn.OnClick.Clear();
    desk.Btn.OnClick += fail("click");
    desk.A.OnChange.Clear();
    desk.A.OnChange += fail("change");
    desk.Words.OnClick.Clear();
    desk.Words.OnClick += fail("label");
    desk.onKeyDown = [](KeyPress& key) {
        if (key.Code == Qt::Key_F5)
            throw std::runtime_error("key");
    };
    desk.onKeyPress = [] { throw 1; };
    desk.onQueryUnload = [](bool&) { throw std::runtime_error("unload"); };

    Type(desk, "1");
    EXPECT_EQ(desk.failures, (QStringList{s("Unknown failure"), s("change")}));
    desk.failures.clear();
    Press(desk, Qt::Key_F5);
    Click(desk, desk.Words);
    Click(desk, desk.Btn);
    EXPECT_EQ(desk.failures,
              (QStringList{s("key"), s("label"), s("validate"), s("lost"), s("got"), s("click")}));
    desk.failures.clear();
    EXPECT_TRUE(desk.Unload());
    EXPECT_EQ(desk.failures, QStringList{s("unload")});
}

TEST(FormFailure, BaseShowsAPlainBox)
{
    ExpectedBoxes boxes;
    Form form;
    form.SetWindowCaption(s("Gate Pass"));
    boxes.Expect({s("No such row"), MsgIcon::Stop, s("Gate Pass")});
    form.Guard([] { throw std::out_of_range("No such row"); });
}

TEST_F(FocusTest, ControlsStandInTheOrderOfTheirCreation)
{
    QStringList names;
    for (const Control* control : desk.Controls())
        names << control->Name();
    EXPECT_EQ(names, (QStringList{s("TxtA"), s("TxtB"), s("TxtC"), s("DtpDate"), s("BtnB"),
                                  s("Grid"), s("LblWords")}));
}

TEST_F(FocusTest, InnerWidgetsBelongToTheirControl)
{
    EXPECT_EQ(Control::Of(desk.Date.findChild<QLineEdit*>()), &desk.Date);
    EXPECT_EQ(Control::Of(desk.Rows.viewport()), &desk.Rows);
    EXPECT_EQ(Control::Of(&desk), nullptr);
    EXPECT_EQ(Control::Of(nullptr), nullptr);
    EXPECT_EQ(desk.A.OwnerForm(), &desk);
}

TEST_F(FocusTest, VisibleMeansShownOnItsForm)
{
    Desk other;
    EXPECT_TRUE(other.A.IsVisible());
    other.A.SetVisible(false);
    EXPECT_FALSE(other.A.IsVisible());
}

/// A form with two pages in one place and a field outside them.
class PagesTest : public ::testing::Test {
protected:
    PagesTest()
    {
        auto* lines = new QVBoxLayout(&form);
        for (QWidget* page : {first, second})
            lines->addWidget(page);
        lines->addWidget(&outside);
        (new QVBoxLayout(first))->addWidget(&name);
        auto* other = new QVBoxLayout(second);
        other->addWidget(&closed);
        other->addWidget(&price);
        closed.SetTabStop(false);
        form.SetTabOrderOf({&name, &closed, &price, &outside});
        name.OnValidate += [this](bool& cancel) { cancel = ++asked > 0; };
        name.OnLostFocus += [this] { ++left; };
        form.ShowPage(*first, {first, second});
        Activate(form);
    }

    Form form;
    QWidget* first = new QWidget(&form);
    QWidget* second = new QWidget(&form);
    Txt& name = *new Txt(s("TxtName"));
    Txt& closed = *new Txt(s("TxtClosed"));
    Txt& price = *new Txt(s("TxtPrice"));
    Txt& outside = *new Txt(s("TxtOutside"));
    int asked = 0;
    int left = 0;
};

TEST_F(PagesTest, TurningThePageTakesTheFocusAlongWithoutAsking)
{
    ASSERT_TRUE(form.IsActive(name));
    form.ShowPage(*second, {first, second});
    EXPECT_TRUE(form.IsActive(price));
    EXPECT_TRUE(price.hasFocus());
    EXPECT_FALSE(name.IsVisible());
    EXPECT_TRUE(price.IsVisible());
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(left, 0);
}

TEST_F(PagesTest, AFocusElsewhereStays)
{
    form.ResetFocus(outside);
    form.ShowPage(*second, {first, second});
    EXPECT_TRUE(form.IsActive(outside));
    form.ShowPage(*second, {first, second});
    EXPECT_TRUE(form.IsActive(outside));
}

} // namespace TradeForms
