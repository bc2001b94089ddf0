#include "Desk.h"

#include "controls/Pieces.h"

namespace TradeForms {

using JeweledButtonTest = DeskTest;

namespace {

/// Counts the windows shown during its lifetime.
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
            option->OnClick += [this, option] { clicks << option->Name(); };
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
    form.SetFocus(sale); // the rightmost option
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

TEST_F(OptionButtonTest, ArrowsChooseNothingWhereTheCheckRefuses)
{
    form.SetFocus(sale);
    sale.OnValidate += [](bool& cancel) { cancel = true; };
    Press(form, Qt::Key_Left);
    EXPECT_EQ(values(), (QList<bool>{true, false, false}));
    EXPECT_TRUE(form.IsActive(sale));
    EXPECT_EQ(clicks, QStringList{});
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
    field->OnValidate += [](bool& cancel) {
        ADD_FAILURE() << "validated";
        cancel = true;
    };
    int clicks = 0;
    strip->ImgExit().OnClick += [&] { ++clicks; };
    Activate(form);
    Click(form, strip->ImgExit());
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(form.IsActive(*field));
    Click(form, strip->ImgExit(), Qt::RightButton);
    EXPECT_EQ(clicks, 1);
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

TEST_F(DeskTest, ALabelIsClickedWithTheLeftButtonAlone)
{
    int clicks = 0;
    desk.Words.OnClick += [&] { ++clicks; };
    Click(desk, desk.Words, Qt::RightButton);
    EXPECT_EQ(clicks, 0);
    Click(desk, desk.Words);
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(IsActive(desk.A));
}

TEST(TitleStripTest, ShowsNothingBeforeItsWindow)
{
    ShownWindows shown;
    TitleStrip strip(s("گیٹ پاس"), s("Gate Pass"));
    strip.SetState(Caption{"نیا", "New"});
    EXPECT_EQ(shown.Count(), 0);
    strip.show();
    EXPECT_EQ(shown.Count(), 1);
}

TEST(TitleStripTest, TellsTheState)
{
    TitleStrip strip(s("گیٹ پاس"), s("Gate Pass"));
    EXPECT_EQ(strip.StateText(), QString());
    strip.SetState(Caption{"نیا", "New"});
    EXPECT_EQ(strip.StateText(), s("نیا · New"));
    strip.SetState(s("rows 1,284"));
    EXPECT_EQ(strip.StateText(), s("rows 1,284"));
}

TEST(PiecesTest, CodeStandsAtTheReadersRightHand)
{
    Form form;
    auto* column = new QVBoxLayout(&form);
    const CodeField driver =
        MakeCodeField(&form, {"TxtDriverCode", "Driver code"}, {"BtnDriver", "List of drivers"},
                      {"TxtDriverName", "Driver name"});
    column->addWidget(CodeSet({"ڈرائیور", "Driver"}, driver));
    Activate(form);
    auto* caption = form.findChild<CaptionLabel*>();
    const auto x = [&](const QWidget& widget) { return widget.mapTo(&form, QPoint(0, 0)).x(); };
    EXPECT_GT(x(*caption), x(driver.Code));
    EXPECT_GT(x(driver.Code), x(driver.Button));
    EXPECT_GT(x(driver.Button), x(driver.Name));
    EXPECT_EQ(caption->UrduLabel().Text(), s("ڈرائیور"));
}

class PiecesOnAFormTest : public ::testing::Test {
protected:
    PiecesOnAFormTest() { column->setContentsMargins(0, 0, 0, 0); }

    void add(QWidget* piece) { column->addWidget(piece); }
    QPoint placeOf(const Control& control)
    {
        Activate(form);
        return control.Widget().mapTo(&form, QPoint(0, 0));
    }

    Form form;
    QVBoxLayout* column = new QVBoxLayout(&form);
};

TEST_F(PiecesOnAFormTest, AHeaderRunsRowByRowFromTheReadersRightHand)
{
    QList<QWidget*> cells;
    QList<Txt*> fields;
    for (const char* name : {"TxtA", "TxtB", "TxtC"}) {
        fields.append(new Txt(s(name)));
        cells.append(Labelled({"نام", "Name"}, fields.last()));
    }
    add(HeaderStrip(cells));
    EXPECT_GT(placeOf(*fields[0]).x(), placeOf(*fields[1]).x());
    EXPECT_EQ(placeOf(*fields[0]).y(), placeOf(*fields[1]).y());
    EXPECT_EQ(placeOf(*fields[0]).x(), placeOf(*fields[2]).x());
    EXPECT_LT(placeOf(*fields[0]).y(), placeOf(*fields[2]).y());
}

TEST_F(PiecesOnAFormTest, TheFirstButtonsStandAtTheRightAndTheOthersAtTheLeft)
{
    form.resize(900, 100);
    auto* save = new JeweledButton(s("BtnSave"), s("محفوظ"), s("Save"));
    auto* open = new JeweledButton(s("BtnOpen"), s("کھولیں"), s("Open"));
    auto* close = new JeweledButton(s("BtnClose"), s("بند"), s("Close"));
    add(ButtonBar({save, open}, {close}));
    EXPECT_GT(placeOf(*save).x(), placeOf(*open).x());
    EXPECT_GT(placeOf(*open).x(), 450);
    EXPECT_LT(placeOf(*close).x(), 100);
}

TEST_F(PiecesOnAFormTest, AnEntryRowBeginsWithItsCode)
{
    auto* code = new Txt(s("TxtProductID"));
    auto* quantity = new Txt(s("TxtQty"));
    auto* price = new Txt(s("TxtPrice"));
    add(EntryStrip(Stacked({"کوڈ", "Code"}, code),
                   {Stacked({"تعداد", "Quantity"}, quantity), Stacked({"قیمت", "Price"}, price)}));
    EXPECT_GT(placeOf(*code).x(), placeOf(*quantity).x());
    EXPECT_GT(placeOf(*quantity).x(), placeOf(*price).x());
    EXPECT_EQ(placeOf(*code).y(), placeOf(*price).y());
}

TEST_F(PiecesOnAFormTest, FieldsBringWhatTheirKindHas)
{
    Txt& code = TextField(&form, "TxtAreaCode", "Area code", true);
    EXPECT_TRUE(code.IsMandatory());
    EXPECT_EQ(code.accessibleName(), s("Area code"));
    EXPECT_FALSE(TextField(&form, "TxtDriverCode", "Driver").IsMandatory());

    Txt& number = NumberField(&form, "TxtQty", "Quantity");
    EXPECT_TRUE(number.alignment().testFlag(Qt::AlignRight));
    number.SetText(s("x"));
    EXPECT_TRUE(number.HasNumberWarning());

    EXPECT_EQ(UrduField(&form, "TxtName", "Name").layoutDirection(), Qt::RightToLeft);
    const CodeField area =
        MakeCodeField(&form, {"TxtAreaCode", "Area code"}, {"BtnArea", "List of areas"},
                      {"TxtAreaName", "Area name"}, true);
    EXPECT_TRUE(area.Code.IsMandatory());
    EXPECT_EQ(area.Code.Name(), s("TxtAreaCode"));
    EXPECT_EQ(area.Button.Name(), s("BtnArea"));
    EXPECT_EQ(area.Button.accessibleName(), s("List of areas"));
    EXPECT_EQ(area.Name.Name(), s("TxtAreaName"));
    EXPECT_EQ(area.Name.accessibleName(), s("Area name"));
}

TEST_F(PiecesOnAFormTest, ControlsAreFoundInTheOrderOfReading)
{
    auto* part = new QWidget;
    auto* lines = new QVBoxLayout(part);
    Txt& third = TextField(&form, "TxtThird", "Third");
    Txt& first = TextField(&form, "TxtFirst", "First");
    Txt& second = TextField(&form, "TxtSecond", "Second");
    lines->addWidget(Labelled({"پہلا", "First"}, &first));
    auto* inner = new QHBoxLayout;
    inner->addWidget(&second);
    inner->addWidget(SideBySide({nullptr, &third}));
    lines->addLayout(inner);
    EXPECT_EQ(InLayoutOrder(*part), QList<Control*>({&first, &second, &third}));
    delete part;
}

TEST_F(PiecesOnAFormTest, APickerOfMonthsKeepsTheFirstDay)
{
    int told = 0;
    DTPicker& month = MonthField(&form, "DtpMonth", "Month");
    EXPECT_EQ(month.Value().day(), 1);
    month.SetValue(QDate(2026, 3, 1));
    month.OnChange += [&] { ++told; };
    month.setDate(QDate(2026, 3, 17)); // as the calendar does
    EXPECT_EQ(month.Value(), QDate(2026, 3, 1));
    EXPECT_EQ(told, 0);
    month.setDate(QDate(2026, 4, 30));
    EXPECT_EQ(month.Value(), QDate(2026, 4, 1));
    EXPECT_EQ(told, 1);
    EXPECT_EQ(month.text(), s("Apr-2026"));
}

} // namespace TradeForms
