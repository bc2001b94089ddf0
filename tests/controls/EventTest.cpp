#include "controls/Desk.h"

namespace TradeForms {

namespace {

TEST(EventTest, StepsRunInTheOrderInWhichTheyWereAdded)
{
    QStringList ran;
    Txt field;
    field.OnChange += [&] { ran << s("first"); };
    field.OnChange += [&] { ran << s("second"); };
    field.SetText(s("a"));
    EXPECT_EQ(ran, QStringList({s("first"), s("second")}));
}

TEST(EventTest, AStepThatIsAddedMeanwhileRunsTheNextTime)
{
    int added = 0;
    Txt field;
    field.OnChange += [&] { field.OnChange += [&] { ++added; }; };
    field.SetText(s("a"));
    EXPECT_EQ(added, 0);
    field.SetText(s("b"));
    EXPECT_EQ(added, 1);
}

TEST(EventTest, AStepMayClearItsEvent)
{
    int ran = 0;
    Txt field;
    field.OnChange += [&] { field.OnChange.Clear(); };
    field.OnChange += [&] { ++ran; };
    field.SetText(s("a"));
    field.SetText(s("b"));
    EXPECT_EQ(ran, 1);
}

TEST(EventTest, TheFirstRefusalEndsTheAsking)
{
    QStringList asked;
    VetoEvent validate;
    validate += [&](bool&) { asked << s("agrees"); };
    validate += [&](bool& cancel) {
        asked << s("refuses");
        cancel = true;
    };
    validate += [&](bool&) { asked << s("too late"); };
    bool cancel = false;
    validate(cancel);
    EXPECT_TRUE(cancel);
    EXPECT_EQ(asked, QStringList({s("agrees"), s("refuses")}));
}

TEST(EventTest, AStepThatFailsEndsTheEventAndIsTold)
{
    Desk desk;
    int ran = 0;
    desk.A.OnChange.Clear();
    desk.A.OnChange += [] { throw std::runtime_error("broken"); };
    desk.A.OnChange += [&] { ++ran; };
    desk.A.SetText(s("a"));
    EXPECT_EQ(ran, 0);
    EXPECT_EQ(desk.failures, QStringList({s("broken")}));
}

} // namespace

} // namespace TradeForms
