#include "Desk.h"

#include <gtest/gtest-spi.h>

namespace TradeForms {

namespace {

const Message kBox{s("text"), MsgIcon::Stop, s("Alert")};
const Message kQuestion{s("text"), MsgIcon::Question, s("Alert"), MsgButtons::YesNo};

} // namespace

// The classes that answer boxes and dialogs in all other tests must themselves fail a test when
// they should.

TEST(ExpectedBoxesTest, UnexpectedBoxFailsAndGetsTheSafeAnswer)
{
    MsgAnswer answer = MsgAnswer::Yes;
    const ExpectedBoxes boxes;
    EXPECT_NONFATAL_FAILURE(answer = MsgBox(nullptr, kQuestion), "Unexpected message box");
    EXPECT_EQ(answer, MsgAnswer::No);
}

TEST(ExpectedBoxesTest, AnotherBoxFailsInEachOfItsParts)
{
    for (const Message& other :
         {Message{s("other"), MsgIcon::Stop, s("Alert")},
          Message{s("text"), MsgIcon::Information, s("Alert")},
          Message{s("text"), MsgIcon::Stop, s("Aletr")},
          Message{s("text"), MsgIcon::Stop, s("Alert"), MsgButtons::YesNo}}) {
        ExpectedBoxes boxes;
        boxes.Expect(kBox);
        EXPECT_NONFATAL_FAILURE(MsgBox(nullptr, other), "expected:");
        MsgBox(nullptr, kBox);
    }
}

TEST(ExpectedBoxesTest, BoxThatHasNotComeFails)
{
    EXPECT_NONFATAL_FAILURE(
        {
            ExpectedBoxes boxes;
            boxes.Expect(kBox);
        },
        "has not come");
}

TEST(ExpectedBoxesTest, AnyTextIsStillAText)
{
    ExpectedBoxes boxes;
    boxes.ExpectAny(MsgIcon::Stop, s("Alert"));
    EXPECT_NONFATAL_FAILURE(MsgBox(nullptr, {{}, MsgIcon::Stop, s("Alert")}), "expected:");
    MsgBox(nullptr, kBox);
    EXPECT_EQ(boxes.Left(), 0);
}

TEST(ExpectedDialogsTest, UnexpectedMissingAndOpenDialogsFail)
{
    Desk desk;
    EXPECT_NONFATAL_FAILURE(desk.ShowModal(nullptr), "Unexpected dialog");
    EXPECT_NONFATAL_FAILURE(
        {
            ExpectedDialogs dialogs;
            dialogs.Expect([](Form&) {});
        },
        "have not come");
    ExpectedDialogs dialogs;
    dialogs.Expect([](Form&) {});
    EXPECT_NONFATAL_FAILURE(desk.ShowModal(nullptr), "left open");
    EXPECT_FALSE(desk.isVisible());
}

} // namespace TradeForms
