// The choice of copies: its codes, its keys, and the options that stay hidden.

#include "reports/SchPrint.h"
#include "controls/Form.h"
#include "support/ExpectedBoxes.h"
#include "support/Keys.h"
#include "support/Text.h"

#include <gtest/gtest.h>

#include <QtTest>

namespace tests {

using namespace TradeForms;

namespace {

class SchPrintTest : public ::testing::Test {
protected:
    SchPrintTest()
    {
        owner.resize(200, 100);
        owner.show();
    }
    ~SchPrintTest() override
    {
        for (OptionButton* option : {&It().Option1, &It().Option2, &It().Option3, &It().Option4})
            It().SetOptionVisible(*option, true);
        // Touching the options has loaded it: the next test is to find it unloaded.
        It().ShowModeless(false);
        It().Unload();
    }

    static SchPrint& It() { return SchPrint::Shared(); }

    /// Shows the dialog, lets the test drive it, and gives what it leaves.
    QString show(const std::function<void()>& drive)
    {
        dialogs.Expect([&](Form& form) {
            EXPECT_EQ(&form, &It());
            drive();
        });
        It().Show(&owner);
        EXPECT_FALSE(It().isVisible());
        return It().ParaOutPrint;
    }

    ExpectedBoxes boxes;
    ExpectedDialogs dialogs;
    QWidget owner;
};

} // namespace

TEST_F(SchPrintTest, LoadSetsOneAndSelectLeavesIt)
{
    It().ParaOutPrint = s("3");
    EXPECT_EQ(show([] {
                  EXPECT_EQ(It().ParaOutPrint, s("1"));
                  EXPECT_TRUE(It().Option1.Value());
                  EXPECT_EQ(It().ActiveControl(), &It().Option1);
                  Click(It(), It().BtnSelect);
              }),
              s("1"));
}

TEST_F(SchPrintTest, AClickBeforeShowingLoadsFirstSoThatItIsTheDefault)
{
    It().ClickOption(It().Option4);
    EXPECT_EQ(show([] {
                  EXPECT_TRUE(It().Option4.Value());
                  EXPECT_FALSE(It().Option1.Value());
                  EXPECT_EQ(It().ActiveControl(), &It().Option4);
                  Press(It(), Qt::Key_Return);
              }),
              s("B"));
    // The next showing is a fresh one.
    EXPECT_EQ(show([] { Press(It(), Qt::Key_Return); }), s("1"));
}

TEST_F(SchPrintTest, EachOptionHasItsCode)
{
    const QList<std::pair<OptionButton*, QString>> codes = {{&It().Option1, s("1")},
                                                            {&It().Option2, s("2")},
                                                            {&It().Option3, s("3")},
                                                            {&It().Option4, s("B")}};
    for (const auto& [option, code] : codes) {
        const OptionButton& each = *option;
        EXPECT_EQ(show([&each] {
                      Click(It(), each);
                      EXPECT_TRUE(each.Value());
                      Press(It(), Qt::Key_Return);
                  }),
                  code);
    }
}

TEST_F(SchPrintTest, AClickOnACaptionChoosesItsOption)
{
    EXPECT_EQ(show([] {
                  const QList<Label*> labels = It().findChildren<Label*>();
                  const auto caption = std::find_if(
                      labels.begin(), labels.end(),
                      [](const Label* label) { return label->Text() == s("Copy Two"); });
                  ASSERT_NE(caption, labels.end());
                  Click(It(), **caption);
                  EXPECT_EQ(It().ActiveControl(), &It().Option2);
                  Press(It(), Qt::Key_Return);
              }),
              s("2"));
}

TEST_F(SchPrintTest, EscAndCloseAndTheCornerEmptyTheField)
{
    EXPECT_EQ(show([] { Press(It(), Qt::Key_Escape); }), QString());
    EXPECT_EQ(show([] { Click(It(), It().BtnClose); }), QString());
    EXPECT_EQ(show([] { Click(It(), It().findChild<TitleStrip*>()->ImgExit()); }), QString());
    EXPECT_EQ(show([] { It().close(); }), QString());
}

TEST_F(SchPrintTest, ArrowsWalkTheVisibleOptionsRoundAndRound)
{
    It().SetOptionVisible(It().Option2, false);
    It().SetOptionVisible(It().Option3, false);
    EXPECT_EQ(show([] {
                  Press(It(), Qt::Key_Down);
                  EXPECT_EQ(It().ActiveControl(), &It().Option4);
                  EXPECT_EQ(It().ParaOutPrint, s("B"));
                  Press(It(), Qt::Key_Down);
                  EXPECT_EQ(It().ParaOutPrint, s("1"));
                  Press(It(), Qt::Key_Up);
                  EXPECT_EQ(It().ParaOutPrint, s("B"));
                  Press(It(), Qt::Key_Return);
              }),
              s("B"));
}

TEST_F(SchPrintTest, TabGoesFromTheChosenOptionToTheButtons)
{
    It().ClickOption(It().Option3);
    show([] {
        Press(It(), Qt::Key_Tab);
        EXPECT_EQ(It().ActiveControl(), &It().BtnSelect);
        Press(It(), Qt::Key_Tab);
        EXPECT_EQ(It().ActiveControl(), &It().BtnClose);
        Press(It(), Qt::Key_Tab);
        EXPECT_EQ(It().ActiveControl(), &It().Option3);
        Press(It(), Qt::Key_Tab, Qt::ShiftModifier);
        EXPECT_EQ(It().ActiveControl(), &It().BtnClose);
        Press(It(), Qt::Key_Space);
    });
    EXPECT_TRUE(It().ParaOutPrint.isEmpty());
}

TEST_F(SchPrintTest, AnOptionThatWasHiddenStaysHiddenAndLeavesNoGap)
{
    int whole = 0;
    show([&whole] {
        whole = It().height();
        Press(It(), Qt::Key_Escape);
    });
    It().SetOptionVisible(It().Option2, false);
    It().SetOptionVisible(It().Option3, false);
    for (int showing = 0; showing < 2; ++showing) {
        show([whole] {
            EXPECT_TRUE(It().Option1.IsVisible());
            EXPECT_FALSE(It().Option2.IsVisible());
            EXPECT_FALSE(It().Option3.IsVisible());
            EXPECT_TRUE(It().Option4.IsVisible());
            EXPECT_LT(It().height(), whole - 40);
            for (const Label* label : It().findChildren<Label*>()) {
                const bool hidden =
                    label->Text() == s("Copy Two") || label->Text() == s("Copy Three");
                if (hidden)
                    EXPECT_FALSE(label->isVisible()) << qPrintable(label->Text());
            }
            Press(It(), Qt::Key_Escape);
        });
    }
}

} // namespace tests
