#include "Desk.h"

#include "controls/Pieces.h"

namespace TradeForms {

using JeweledButtonTest = DeskTest;

namespace {

/// Counts the windows that come up while it lives.
class ShownWindows : public QObject {
public:
    ShownWindows() { qApp->installEventFilter(this); }
    int Count() const { return count_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show && watched->isWindowType())
            ++count_;
        return false;
    }

private:
    int count_ = 0;
};

} // namespace

TEST_F(JeweledButtonTest, SpaceClicks)
{
    desk.SetFocus(desk.Btn);
    desk.TakeLog();
    Press(desk, Qt::Key_Space);
    EXPECT_EQ(desk.TakeLog(), QStringList{s("BtnB.Click")});
}

TEST_F(JeweledButtonTest, ClickByAKeyMovesNoFocus)
{
    EXPECT_TRUE(desk.Btn.Click());
    EXPECT_EQ(desk.TakeLog(), QStringList{s("BtnB.Click")});
    EXPECT_TRUE(IsActive(desk.A));
}

TEST_F(JeweledButtonTest, DisabledOrHiddenIsNotClicked)
{
    desk.Btn.SetEnabled(false);
    EXPECT_FALSE(desk.Btn.Click());
    Click(desk, desk.Btn);
    desk.Btn.SetEnabled(true);
    desk.Btn.SetVisible(false);
    EXPECT_FALSE(desk.Btn.Click());
    EXPECT_EQ(desk.TakeLog(), QStringList{});
}

TEST_F(JeweledButtonTest, ReleaseOutsideIsNoClick)
{
    const QRect button = desk.Btn.geometry();
    QTest::mousePress(desk.windowHandle(), Qt::LeftButton, Qt::NoModifier, button.center());
    QTest::mouseRelease(desk.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_EQ(desk.TakeLog().filter(s("Click")), QStringList{});
}

class OptionButtonTest : public ::testing::Test {
protected:
    OptionButtonTest()
    {
        auto* column = new QVBoxLayout(&form);
        auto* row = new QHBoxLayout;
        column->addLayout(row);
        column->addWidget(&field);
        for (OptionButton* option : {&sale, &order, &supply}) {
            row->addWidget(option);
            option->OnClick = [this, option] { clicks << option->Name(); };
        }
        sale.SetValue(true);
        form.SetTabOrderOf({&field, &sale, &order, &supply});
        Activate(form);
        clicks.clear();
    }

    QList<bool> values() const { return {sale.Value(), order.Value(), supply.Value()}; }

    Form form;
    Txt& field = *new Txt(s("TxtField"));
    OptionButton& sale = *new OptionButton(s("OptSale"), s("Sale"), &form);
    OptionButton& order = *new OptionButton(s("OptOrder"), s("Order"), &form);
    OptionButton& supply = *new OptionButton(s("OptSupply"), s("Supply"), &form);
    QStringList clicks;
};

TEST_F(OptionButtonTest, ClickChoosesOneOfAll)
{
    Click(form, order);
    EXPECT_EQ(values(), (QList<bool>{false, true, false}));
    EXPECT_EQ(clicks, QStringList{s("OptOrder")});
    EXPECT_TRUE(form.IsActive(order));
}

TEST_F(OptionButtonTest, SetValueRunsClickOnlyOnAChange)
{
    order.SetValue(true);
    order.SetValue(true);
    EXPECT_EQ(clicks, QStringList{s("OptOrder")});
    order.SetValue(false);
    EXPECT_EQ(values(), (QList<bool>{false, false, false}));
    EXPECT_EQ(clicks, QStringList{s("OptOrder")});
}

TEST_F(OptionButtonTest, ClickOnTheChosenOneRunsClickToo)
{
    Click(form, sale);
    EXPECT_EQ(clicks, QStringList{s("OptSale")});
    EXPECT_TRUE(sale.Value());
}

TEST_F(OptionButtonTest, TabStopsOnlyAtTheChosenOne)
{
    Press(form, Qt::Key_Tab);
    EXPECT_TRUE(form.IsActive(sale));
    Press(form, Qt::Key_Tab);
    EXPECT_TRUE(form.IsActive(field));
}

TEST_F(OptionButtonTest, ArrowsFollowTheEyeAndGoRound)
{
    form.SetFocus(sale); // stands at the right
    Press(form, Qt::Key_Left);
    EXPECT_TRUE(order.Value());
    EXPECT_TRUE(form.IsActive(order));
    Press(form, Qt::Key_Right);
    EXPECT_TRUE(sale.Value());
    Press(form, Qt::Key_Right);
    EXPECT_TRUE(supply.Value());
    Press(form, Qt::Key_Down);
    EXPECT_TRUE(sale.Value());
    EXPECT_EQ(clicks, (QStringList{s("OptOrder"), s("OptSale"), s("OptSupply"), s("OptSale")}));
}

TEST_F(OptionButtonTest, ArrowsPassADisabledOne)
{
    form.SetFocus(sale);
    order.SetEnabled(false);
    Press(form, Qt::Key_Left);
    EXPECT_TRUE(supply.Value());
}

TEST_F(OptionButtonTest, SpaceChooses)
{
    form.SetFocus(order);
    Press(form, Qt::Key_Space);
    EXPECT_TRUE(order.Value());
    EXPECT_EQ(clicks, QStringList{s("OptOrder")});
}

TEST(ImageTest, IsClickedWithoutTheFocus)
{
    Form form;
    auto* column = new QVBoxLayout(&form);
    auto* strip = new TitleStrip(s("گیٹ پاس"), s("Gate Pass"));
    auto* field = new Txt(s("TxtField"));
    column->addWidget(strip);
    column->addWidget(field);
    field->OnValidate = [](bool& cancel) {
        ADD_FAILURE() << "validated";
        cancel = true;
    };
    int clicks = 0;
    strip->ImgExit().OnClick = [&] { ++clicks; };
    Activate(form);
    Click(form, strip->ImgExit());
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(form.IsActive(*field));
    // Pressed on the image but released elsewhere.
    const QPoint at = strip->ImgExit().mapTo(&form, QPoint(5, 5));
    QTest::mousePress(form.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
    EXPECT_EQ(clicks, 1);
}

TEST(LabelTest, ShowsItsTextAsItStands)
{
    Label label(s("LblBalance"), s("<b>1</b> & 'x'"));
    EXPECT_EQ(label.Text(), s("<b>1</b> & 'x'"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    label.SetForeColor(Qt::red);
    EXPECT_EQ(label.ForeColor(), QColor(Qt::red));
    EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(Qt::red));
}

TEST(TitleStripTest, ShowsNothingBeforeItsWindow)
{
    ShownWindows shown;
    TitleStrip strip(s("گیٹ پاس"), s("Gate Pass"));
    strip.SetState(s("نیا"), s("New"));
    EXPECT_EQ(shown.Count(), 0);
    strip.show();
    EXPECT_EQ(shown.Count(), 1);
}

TEST(TitleStripTest, TellsTheState)
{
    TitleStrip strip(s("گیٹ پاس"), s("Gate Pass"));
    EXPECT_EQ(strip.StateText(), QString());
    strip.SetState(s("نیا"), s("New"));
    EXPECT_EQ(strip.StateText(), s("نیا · New"));
    strip.SetState({}, s("rows 1,284"));
    EXPECT_EQ(strip.StateText(), s("rows 1,284"));
}

TEST(PiecesTest, CodeStandsAtTheReadersRightHand)
{
    Form form;
    auto* column = new QVBoxLayout(&form);
    auto* caption = new Caption(s("ڈرائیور"), s("Driver"));
    auto* code = new Txt(s("TxtDriverCode"));
    auto* button = new JeweledButton(s("BtnDriver"), s("..."), {}, {}, JeweledButton::Kind::Small);
    auto* name = new UTxt(s("TxtDriverName"));
    column->addWidget(CodeSet(caption, code, button, name));
    Activate(form);
    const auto x = [&](const QWidget* widget) { return widget->mapTo(&form, QPoint(0, 0)).x(); };
    EXPECT_GT(x(caption), x(code));
    EXPECT_GT(x(code), x(button));
    EXPECT_GT(x(button), x(name));
    EXPECT_EQ(caption->UrduLabel().Text(), s("ڈرائیور"));
}

} // namespace TradeForms
